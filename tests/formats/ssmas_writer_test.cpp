#include "formats/ssmas.h"

#include "support/failed_writes.h"
#include "support/measured_marks.h"
#include "support/sexagesimal.h"
#include "support/ssmas_lines.h"
#include "support/temporary_folder.h"
#include "support/texts.h"
#include "support/tracks.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace tavelinUtils;
using namespace ssmasLines;

namespace {

using Tracks = std::vector<TrackVtorichka>;

std::string written(const Tracks& tracks)
{
    return writtenBy([&tracks](const std::string& path) { sSSMAS(path, tracks); });
}

// The line of a track's only mark.
std::string writtenLine(const TRecLabelPervichka_File& mark)
{
    return between("Measurements\ntelescope\nconversion\n1\n\n#SSMAS   #INTER\nN N\n" + columnLine + "\n",
                   written({trackNamed("N", {mark})}), "\n");
}

} // namespace

TEST(SsmasWriter, ThreeLinesAndABlockForEachTrack)
{
    TrackVtorichka first = trackNamed(
        "A", {theMark(), {.date = 60001, .time = day(1, 2, 3.456), .RA = 187.5, .DE = 45.25, .m = 15.3}});
    first.telescope = "T1";
    first.HeadText2 = "100";
    first.HeadText3 = "200";
    TrackVtorichka second =
        trackNamed("B", {{.date = 51544, .time = 0.25, .RA = 30.0, .DE = -1.0, .m = 10.0}});
    second.telescope = "T2";
    EXPECT_EQ(written({first, second}), "Measurements\n"
                                        "T1\n"
                                        "conversion\n"
                                        "1\n"
                                        "\n"
                                        "#SSMAS   #INTER\n"
                                        "100 200\n"
                                        "   Data        UT           CU           DE      RMS  m\n"
                                        "25.02.2023 12:00:00.00  01:00:00.00 -00.30.00.00 001 09.5\n"
                                        "26.02.2023 01:02:03.46  12:30:00.00 45.15.00.00 001 15.3\n"
                                        "2\n"
                                        "\n"
                                        "#SSMAS   #INTER\n"
                                        "B B\n"
                                        "   Data        UT           CU           DE      RMS  m\n"
                                        "01.01.2000 06:00:00.00  02:00:00.00 -01.00.00.00 001 10.0\n");
}

TEST(SsmasWriter, EmptyNumbersOfAnObjectAreReplacedByItsName)
{
    const struct
    {
        const char* number2;
        const char* number3;
        const char* line;
    } rows[] = {
        {"", "", "N N"},           {"100", "", "100 N"},  {"", "200", "N 200"},
        {"100", "200", "100 200"}, {" ", "2 0", "  2 0"},
    };
    for (const auto& [number2, number3, line] : rows) {
        SCOPED_TRACE(line);
        TrackVtorichka track = trackNamed("N", {});
        track.NORAD = "28884";
        track.originator = "O";
        track.HeadText2 = number2;
        track.HeadText3 = number3;
        EXPECT_EQ(written({track}), "Measurements\ntelescope\nconversion\n1\n\n#SSMAS   #INTER\n" +
                                        std::string(line) + "\n" + columnLine + "\n");
    }
}

TEST(SsmasWriter, TextsStandAsTheyAre)
{
    TrackVtorichka track = trackNamed("2008 TC3", {});
    track.telescope = "";
    EXPECT_EQ(written({track}),
              "Measurements\n\nconversion\n1\n\n#SSMAS   #INTER\n2008 TC3 2008 TC3\n" + columnLine + "\n");
    EXPECT_EQ(written({TrackVtorichka{}}),
              "Measurements\ntelescope\nconversion\n1\n\n#SSMAS   #INTER\n \n" + columnLine + "\n");
}

TEST(SsmasWriter, TrackWithoutMarksHasABlockWithoutMarks)
{
    const TrackVtorichka empty = trackNamed("E", {});
    const TrackVtorichka full = trackNamed("A", {theMark()});
    EXPECT_EQ(written({empty, full, empty}), "Measurements\ntelescope\nconversion\n"
                                             "1\n\n#SSMAS   #INTER\nE E\n" +
                                                 columnLine + "\n2\n\n#SSMAS   #INTER\nA A\n" + columnLine +
                                                 "\n" + markLine + "\n3\n\n#SSMAS   #INTER\nE E\n" +
                                                 columnLine + "\n");
}

TEST(SsmasWriter, BlocksAreNumbered)
{
    const Tracks tracks(1200, trackNamed("A", {}));
    std::string expected = "Measurements\ntelescope\nconversion\n";
    for (int i = 1; i <= 1200; ++i) {
        expected += std::to_string(i) + "\n\n#SSMAS   #INTER\nA A\n" + columnLine + "\n";
    }
    EXPECT_EQ(written(tracks), expected);
}

TEST(SsmasWriter, EmptyListMakesNoFile)
{
    const TemporaryFolder folder;
    sSSMAS(folder / "new.ssm", Tracks{});
    EXPECT_FALSE(exists(folder / "new.ssm"));

    makeFile(folder / "old.ssm", "kept");
    sSSMAS(folder / "old.ssm", Tracks{});
    EXPECT_EQ(bytesOf(folder / "old.ssm"), "kept");

    forUnwritablePaths([](const std::string& path) { EXPECT_NO_THROW(sSSMAS(path, Tracks{})); });
}

TEST(SsmasWriter, FileIsReplaced)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.ssm", std::string(10000, 'x'));
    sSSMAS(folder / "a.ssm", Tracks{trackNamed("A", {})});
    EXPECT_EQ(bytesOf(folder / "a.ssm"),
              "Measurements\ntelescope\nconversion\n1\n\n#SSMAS   #INTER\nA A\n" + columnLine + "\n");
}

TEST(SsmasWriter, FailedWriteRaisesCode7)
{
    expectCode7([](const std::string& path) { sSSMAS(path, Tracks{trackNamed("A", {{}})}); });
}

TEST(SsmasWriter, DateHasFourDigitsOfTheYear)
{
    const struct
    {
        int date;
        std::string text;
    } rows[] = {
        {60000, "25.02.2023"}, {51544, "01.01.2000"},  {49718, "01.01.1995"}, {88068, "31.12.2099"},
        {0, "17.11.1858"},     {-315469, "25.02.995"}, {-677059, "25.02.5"},  {2147483647, "00.00.0"},
    };
    for (const auto& [date, text] : rows) {
        SCOPED_TRACE(date);
        EXPECT_EQ(writtenLine({.date = date}), text + " 00:00:00.00  00:00:00.00 00.00.00.00 001 00.0");
    }
}

TEST(SsmasWriter, TimeIsRoundedWithoutCarry)
{
    const struct
    {
        double time;
        std::string text;
    } rows[] = {
        {0.0, "00:00:00.00"},
        {0.5, "12:00:00.00"},
        {day(12, 34, 56.0), "12:34:56.00"},
        {day(1, 2, 3.454), "01:02:03.45"},
        {day(1, 2, 3.456), "01:02:03.46"},
        {day(12, 34, 59.994), "12:34:59.99"},
        {day(12, 34, 59.996), "12:34:60.00"},
        {day(12, 59, 59.996), "12:59:60.00"},
        {day(23, 59, 59.996), "23:59:60.00"},
        // The "0" looks at the value: it stays before seconds that are rounded up to 10.
        {day(12, 0, 9.994), "12:00:09.99"},
        {day(12, 0, 9.996), "12:00:010.00"},
        {day(12, 0, 10.004), "12:00:10.00"},
        {60000.25, "06:00:00.00"},
        {-0.25, "18:00:00.00"},
        {1.0 - 5e-15, "24:00:00.00"},
    };
    for (const auto& [time, text] : rows) {
        SCOPED_TRACE(time);
        EXPECT_EQ(writtenLine({.date = 60000, .time = time}),
                  "25.02.2023 " + text + "  00:00:00.00 00.00.00.00 001 00.0");
    }
}

TEST(SsmasWriter, RightAscensionIsRoundedWithoutCarry)
{
    const struct
    {
        double RA;
        std::string text;
    } rows[] = {
        {0.0, "00:00:00.00"},
        {15.0, "01:00:00.00"},
        {187.5, "12:30:00.00"},
        {hours(1, 2, 3.456), "01:02:03.46"},
        {hours(1, 0, 59.996), "01:00:60.00"},
        {359.9999999, "23:59:60.00"},
        {360.0, "24:00:00.00"},
        // The "0" looks at the text, other than that of the time.
        {hours(12, 5, 9.994), "12:05:09.99"},
        {hours(12, 5, 9.996), "12:05:10.00"},
        {-15.0, "-01:00:00.00"},
    };
    for (const auto& [RA, text] : rows) {
        SCOPED_TRACE(RA);
        EXPECT_EQ(writtenLine({.date = 60000, .RA = RA}),
                  "25.02.2023 00:00:00.00  " + text + " 00.00.00.00 001 00.0");
    }
}

TEST(SsmasWriter, DeclinationHasPointsAndASignOnlyBelowZero)
{
    const struct
    {
        double DE;
        std::string text;
    } rows[] = {
        {0.0, "00.00.00.00"},
        {-0.0, "00.00.00.00"},
        {0.5, "00.30.00.00"},
        {-0.5, "-00.30.00.00"},
        {degrees(12, 5, 30.1234), "12.05.30.12"},
        {-degrees(12, 5, 30.1234), "-12.05.30.12"},
        {degrees(45, 0, 9.996), "45.00.10.00"},
        {degrees(45, 0, 59.996), "45.00.60.00"},
        {-89.9999999, "-89.59.60.00"},
        {90.0, "90.00.00.00"},
    };
    for (const auto& [DE, text] : rows) {
        SCOPED_TRACE(DE);
        EXPECT_EQ(writtenLine({.date = 60000, .DE = DE}),
                  "25.02.2023 00:00:00.00  00:00:00.00 " + text + " 001 00.0");
    }
}

TEST(SsmasWriter, MagnitudeHasAZeroBelowTenUnlessItsTextIsTen)
{
    const struct
    {
        double m;
        std::string text;
    } rows[] = {
        {15.3, "15.3"},
        {9.5, "09.5"},
        {9.94, "09.9"},
        {9.96, "10.0"}, // other than in a telegram
        {10.0, "10.0"},
        {10.04, "10.0"},
        {0.0, "00.0"},
        {0.05, "00.1"},
        {15.25, "15.2"}, // a tie goes to the even digit
        {99.96, "100.0"},
        // Signs are not handled: the "0" comes before them.
        {-0.0, "0-0.0"},
        {-0.04, "0-0.0"},
        {-1.2, "0-1.2"},
        {-10.0, "0-10.0"},
        {-12.34, "0-12.3"},
    };
    for (const auto& [m, text] : rows) {
        SCOPED_TRACE(m);
        EXPECT_EQ(writtenLine({.date = 60000, .m = m}),
                  "25.02.2023 00:00:00.00  00:00:00.00 00.00.00.00 001 " + text);
    }
}

TEST(SsmasWriter, ListOfManyMarks)
{
    TrackVtorichka track = trackNamed("A", {});
    std::string expected =
        "Measurements\ntelescope\nconversion\n1\n\n#SSMAS   #INTER\nA A\n" + columnLine + "\n";
    for (int i = 0; i < 20000; ++i) {
        track.Marks.push_back({.date = 60000, .time = 0.5, .RA = 15.0, .DE = -0.5, .m = i % 10 * 0.1 + 15.0});
        expected += markOf("15." + std::to_string(i % 10)) + "\n";
    }
    EXPECT_TRUE(written({track}) == expected);
}
