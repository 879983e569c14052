#include "formats/reference_positions.h"

#include "support/measured_marks.h"
#include "support/temporary_folder.h"
#include "support/texts.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

using namespace tavelinUtils;

namespace {

// 29 February 2024, 6 h, between columns that nobody reads.
const std::string amuLine = "25544  ISS (ZARYA)         2024-02-29 06:00:00.0000       1.5  2.5  3.5"
                            " 157.500000   -20.250000   9.99";

TrackVtorichka amuTrack(const std::string& bytes)
{
    const TemporaryFolder folder;
    makeFile(folder / "25544_a.txt", bytes);
    TrackVtorichka track;
    loadAMU(folder / "25544_a.txt", track);
    return track;
}

TrackVtorichka etalonTrack(const std::string& bytes)
{
    const TemporaryFolder folder;
    makeFile(folder / "radec_25544-a.txt", bytes);
    TrackVtorichka track;
    loadEtalonAMU(folder / "radec_25544-a.txt", track);
    return track;
}

/// The one mark of a line; a default one, and a failure, where there is another number of them.
TRecLabelPervichka_File onlyMark(const TrackVtorichka& track)
{
    EXPECT_EQ(track.Marks.size(), 1U);
    return track.Marks.size() == 1 ? track.Marks[0] : TRecLabelPervichka_File{};
}

void expectMark(const TRecLabelPervichka_File& mark, int date, double time, double ra, double de)
{
    EXPECT_EQ(measured(mark).date, date);
    EXPECT_DOUBLE_EQ(mark.time, time);
    EXPECT_DOUBLE_EQ(mark.RA, ra);
    EXPECT_DOUBLE_EQ(mark.DE, de);
}

TEST(ReferencePositions, FixedColumnsGiveDateTimeAndDegrees)
{
    expectMark(onlyMark(amuTrack("columns\n" + amuLine + "\n")), 60369, 0.25, 157.5, -20.25);
}

TEST(ReferencePositions, NothingBetweenTheFixedColumnsCounts)
{
    std::string line(100, '9');
    line = with(line, 27, "2024-02-29");
    line = with(line, 38, "00:00:08.6400");
    line = with(line, 72, "123.456789");
    line = with(line, 85, "-12.345678");
    expectMark(onlyMark(amuTrack("columns\n" + line + "\n")), 60369, 8.64 / 86400.0, 123.456789, -12.345678);
}

TEST(ReferencePositions, OtherFieldsKeepTheirDefaults)
{
    const TRecLabelPervichka_File mark = onlyMark(amuTrack("columns\n" + amuLine + "\n"));
    EXPECT_DOUBLE_EQ(mark.m, 0.0);
    EXPECT_DOUBLE_EQ(mark.RefValue4, -1.0);
    EXPECT_EQ(std::string(mark.filtr), "R");
}

TEST(ReferencePositions, FirstLineOfFixedColumnsIsPassedOver)
{
    EXPECT_TRUE(amuTrack("").Marks.empty());
    EXPECT_TRUE(amuTrack(amuLine + "\n").Marks.empty());
    EXPECT_EQ(amuTrack(amuLine + "\n" + amuLine + "\n").Marks.size(), 1U);
    EXPECT_EQ(amuTrack("columns\n" + amuLine + "\n" + amuLine + "\n" + amuLine + "\n").Marks.size(), 3U);
}

TEST(ReferencePositions, ColumnsThatAShortLineLacksAreZero)
{
    struct Case
    {
        std::size_t length;
        int date;
        double time;
        double ra;
        double de;
    };
    const Case cases[] = {
        {0, 0, 0.0, 0.0, 0.0},           {26, 0, 0.0, 0.0, 0.0},
        {27, 0, 0.0, 0.0, 0.0},          {31, 0, 0.0, 0.0, 0.0},
        {37, 60369, 0.0, 0.0, 0.0},      {38, 60369, 0.0, 0.0, 0.0},
        {40, 60369, 0.25, 0.0, 0.0},     {51, 60369, 0.25, 0.0, 0.0},
        {71, 60369, 0.25, 0.0, 0.0},     {72, 60369, 0.25, 0.0, 0.0},
        {75, 60369, 0.25, 157.0, 0.0},   {82, 60369, 0.25, 157.5, 0.0},
        {85, 60369, 0.25, 157.5, 0.0},   {88, 60369, 0.25, 157.5, -20.0},
        {90, 60369, 0.25, 157.5, -20.2}, {95, 60369, 0.25, 157.5, -20.25},
    };
    std::string line = with(std::string(95, ' '), 27, "2024-02-29");
    line = with(line, 38, "06:00:00.0000");
    line = with(line, 72, "157.500000");
    line = with(line, 85, "-20.250000");
    for (const Case& c : cases) {
        SCOPED_TRACE(c.length);
        // The line after it keeps the empty one from being the end of the file.
        const TrackVtorichka track = amuTrack("columns\n" + line.substr(0, c.length) + "\n" + line + "\n");
        ASSERT_EQ(track.Marks.size(), 2U);
        expectMark(track.Marks[0], c.date, c.time, c.ra, c.de);
    }
}

TEST(ReferencePositions, FixedColumnsWithoutNumbersAreZero)
{
    std::string line = with(std::string(95, ' '), 27, "----------");
    line = with(line, 38, "no time here ");
    line = with(line, 72, "n.a.");
    line = with(line, 85, "n.a.");
    expectMark(onlyMark(amuTrack("columns\n" + line + "\n")), 0, 0.0, 0.0, 0.0);
}

TEST(ReferencePositions, FixedColumnsNameTheObjectBeforeTheFirstUnderscore)
{
    const struct
    {
        const char* file;
        const char* name;
    } cases[] = {
        {"25544_2024-02-29.txt", "25544"}, {"25544_a_b.txt", "25544"},
        {"25544.txt", "25544.txt"},        {"_25544.txt", ""},
        {"ISS 1-2_x", "ISS 1-2"},          {"radec_25544-a.txt", "radec"},
    };
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder / "a_b");
    for (const auto& c : cases) {
        SCOPED_TRACE(c.file);
        const std::string path = folder / "a_b" + "/" + c.file;
        makeFile(path, "columns\n" + amuLine + "\n");
        TrackVtorichka track;
        track.NORAD = "before";
        loadAMU(path, track);
        EXPECT_EQ(track.NORAD, c.name);
        EXPECT_EQ(track.ResidFile, path);
        EXPECT_EQ(track.Marks.size(), 1U);
    }
}

TEST(ReferencePositions, FixedColumnsAreAppended)
{
    const TemporaryFolder folder;
    makeFile(folder / "1_a.txt", "columns\n" + amuLine + "\n");
    TrackVtorichka track;
    track.QRVName = "ISS";
    track.SourceFile = "source";
    track.Marks.resize(2);
    loadAMU(folder / "1_a.txt", track);
    ASSERT_EQ(track.Marks.size(), 3U);
    EXPECT_EQ(measured(track.Marks[1]).date, 0);
    EXPECT_EQ(measured(track.Marks[2]).date, 60369);
    EXPECT_EQ(track.QRVName, "ISS");
    EXPECT_EQ(track.SourceFile, "source");
}

TEST(ReferencePositions, FixedColumnsOfAFileThatIsNotThereStillNameTheObject)
{
    const TemporaryFolder folder;
    TrackVtorichka track;
    loadAMU(folder / "25544_a.txt", track);
    EXPECT_TRUE(track.Marks.empty());
    EXPECT_EQ(track.NORAD, "25544");
    EXPECT_EQ(track.ResidFile, folder / "25544_a.txt");
}

TEST(ReferencePositions, EpochLinesGiveHoursAsDegrees)
{
    expectMark(onlyMark(etalonTrack("2024-02-29T06:00:00.000 10.5 -20.25\n")), 60369, 0.25, 157.5, -20.25);
}

TEST(ReferencePositions, EpochLinesKeepAllDigits)
{
    expectMark(onlyMark(etalonTrack("2022-09-01T00:01:00.00000 20.967455555 +0.731499999 7 8 9\n")), 59823,
               1.0 / 1440.0, 20.967455555 * 15.0, 0.731499999);
}

TEST(ReferencePositions, FirstEpochLineCounts)
{
    const TrackVtorichka track = etalonTrack(
        "2024-02-29T06:00:00 1.0 2.0\n2024-03-01T12:00:00 3.0 4.0\n2024-03-02T18:00:00 5.0 6.0\n");
    ASSERT_EQ(track.Marks.size(), 3U);
    expectMark(track.Marks[0], 60369, 0.25, 15.0, 2.0);
    expectMark(track.Marks[1], 60370, 0.5, 45.0, 4.0);
    expectMark(track.Marks[2], 60371, 0.75, 75.0, 6.0);
}

TEST(ReferencePositions, EpochLinesWithANumberSignInFrontArePassedOver)
{
    const TrackVtorichka track = etalonTrack("# epoch ra de\n#2024-02-29T06:00:00 1.0 2.0\n"
                                             "2024-03-01T12:00:00 3.0 4.0\n#\n");
    expectMark(onlyMark(track), 60370, 0.5, 45.0, 4.0);
}

TEST(ReferencePositions, NumberSignBehindABlankIsALine)
{
    expectMark(onlyMark(etalonTrack(" # 30.0\n")), 0, 0.0, 0.0, 30.0);
}

TEST(ReferencePositions, SecondBlankIsAnEmptyItem)
{
    expectMark(onlyMark(etalonTrack("2024-02-29T06:00:00  10.5 -20.25\n")), 60369, 0.25, 0.0, 10.5);
}

TEST(ReferencePositions, EpochOfOnePartLeavesDateAndTime)
{
    for (const char* epoch : {"60369.25", "2024-02-29", "2024-02-29T", "2024-02-29t06:00:00", ""}) {
        SCOPED_TRACE(epoch);
        expectMark(onlyMark(etalonTrack(std::string(epoch) + " 1.0 2.0\n")), 0, 0.0, 15.0, 2.0);
    }
}

TEST(ReferencePositions, EpochOfMoreThanTwoPartsIsReadByItsFirstTwo)
{
    expectMark(onlyMark(etalonTrack("2024-02-29T06:00:00T1 1.0 2.0\n")), 60369, 0.25, 15.0, 2.0);
    expectMark(onlyMark(etalonTrack("TTT 1.0 2.0\n")), 0, 0.0, 15.0, 2.0);
}

TEST(ReferencePositions, EpochLinesThatEndEarlyAreZeroInTheRest)
{
    const TrackVtorichka track = etalonTrack("2024-02-29T06:00:00\n2024-02-29T06:00:00 1.0\n\nT 1.0 2.0\n"
                                             "2024-02-29T06:00:00 x y\n");
    ASSERT_EQ(track.Marks.size(), 5U);
    expectMark(track.Marks[0], 60369, 0.25, 0.0, 0.0);
    expectMark(track.Marks[1], 60369, 0.25, 15.0, 0.0);
    expectMark(track.Marks[2], 0, 0.0, 0.0, 0.0);
    expectMark(track.Marks[3], 0, 0.0, 15.0, 2.0);
    expectMark(track.Marks[4], 60369, 0.25, 0.0, 0.0);
}

TEST(ReferencePositions, EpochLinesNameTheObjectBeforeTheFirstHyphen)
{
    const struct
    {
        const char* file;
        const char* name;
    } cases[] = {
        {"radec_25544-2024-02-29.txt", "25544"},
        {"25544-a.txt", "25544"},
        {"radec_25544.txt", "25544.txt"},
        {"radec_-a.txt", ""},
        {"a_radec_b-c", "a_b"},
        {"RADEC_25544-a", "RADEC_25544"},
        {"radec_ISS_1-a", "ISS_1"},
    };
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder / "radec_7-8");
    for (const auto& c : cases) {
        SCOPED_TRACE(c.file);
        const std::string path = folder / "radec_7-8" + "/" + c.file;
        makeFile(path, "2024-02-29T06:00:00 1.0 2.0\n");
        TrackVtorichka track;
        track.NORAD = "before";
        loadEtalonAMU(path, track);
        EXPECT_EQ(track.NORAD, c.name);
        EXPECT_EQ(track.ResidFile, path);
        EXPECT_EQ(track.Marks.size(), 1U);
    }
}

TEST(ReferencePositions, EpochLinesAreAppended)
{
    const TemporaryFolder folder;
    makeFile(folder / "radec_1-a.txt", "2024-02-29T06:00:00 1.0 2.0\n");
    TrackVtorichka track;
    track.Marks.resize(1);
    loadEtalonAMU(folder / "radec_1-a.txt", track);
    loadEtalonAMU(folder / "radec_1-a.txt", track);
    ASSERT_EQ(track.Marks.size(), 3U);
    expectMark(track.Marks[0], 0, 0.0, 0.0, 0.0);
    expectMark(track.Marks[1], 60369, 0.25, 15.0, 2.0);
    expectMark(track.Marks[2], 60369, 0.25, 15.0, 2.0);
}

TEST(ReferencePositions, EpochLinesOfAFileThatIsNotThereStillNameTheObject)
{
    const TemporaryFolder folder;
    TrackVtorichka track;
    loadEtalonAMU(folder / "radec_25544-a.txt", track);
    EXPECT_TRUE(track.Marks.empty());
    EXPECT_EQ(track.NORAD, "25544");
    EXPECT_EQ(track.ResidFile, folder / "radec_25544-a.txt");
}

} // namespace
