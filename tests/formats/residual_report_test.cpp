#include "formats/residual_report.h"

#include "results/result.h"

#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

using namespace tavelinUtils;

namespace {

using Mark = TRecLabelPervichka_File;
using Tracks = std::vector<TrackVtorichka>;

// 29 February 2024, 6 h. Residuals of 3600/4096 and of -3600/1024 arcseconds.
const Mark fullMark{.X_bf = 1234567.0,
                    .Y_bf = -3.0,
                    .X_f = 1024.5,
                    .Y_f = 0.25,
                    .Angle = 33.375,
                    .Length = 4.5,
                    .date = 60369,
                    .time = 0.25,
                    .RA = 157.5,
                    .DE = -20.25,
                    .RefValue4 = 157.5 - 1.0 / 4096.0,
                    .RefValue5 = -20.25 + 1.0 / 1024.0};

const std::string columnLines =
    "mean\trms\n"
    "RA: 0.00\t0.00\n"
    "DE: 0.00\t0.00\n"
    "dateTtime\tday\tsign\tresRA\tresDE\tfi\tlen\tRAoDec\tDEoDec\tRAo\tDEo\tRAc\tDEc\txo\tyo\txc\tyc\n";

// The file of a track of 25544 whose first mark is `fullMark`.
const std::string fullMarkFile = "25544 2024-02-29 06-00-00_etalon-ref.txt_result-_test.resid";

TrackVtorichka trackOf(std::vector<Mark> marks, const std::string& norad = "25544")
{
    TrackVtorichka track;
    track.NORAD = norad;
    track.ResidFile = "/reference/ref.txt";
    track.Marks = std::move(marks);
    return track;
}

std::string fileOf(const TrackVtorichka& track, const std::string& fileName)
{
    const TemporaryFolder folder;
    SaveResidAMU(folder.path(), "test", {track});
    return bytesOf(folder / fileName);
}

std::string summaryOf(const Tracks& tracks)
{
    const TemporaryFolder folder;
    SaveResidAMU(folder.path(), "test", tracks);
    return bytesOf(folder / "test.result");
}

/// A column, from 0, of the one line of a mark.
std::string columnOf(Mark mark, int column)
{
    mark.date = 60369;
    mark.time = 0.25;
    std::string text = fileOf(trackOf({mark}), fullMarkFile);
    text.erase(0, columnLines.size());
    for (; column > 0; --column) {
        text.erase(0, text.find('\t') + 1);
    }
    return text.substr(0, text.find('\t'));
}

TEST(ResidualReport, FileOfATrackHasItsMeansAndALineForEachMark)
{
    TrackVtorichka track = trackOf({fullMark, {.date = 60370, .time = 0.5, .RefValue4 = 0, .RefValue5 = 0}});
    track.SourceFile = "/a/b/c/d/e/series/g.txt";
    track.DispX = 0.125;
    track.LymX = 0.34;
    track.DispY = -0.05;
    track.LymY = 10.0;
    EXPECT_EQ(
        fileOf(track, "25544 2024-02-29 06-00-00_etalon-ref.txt_result-series_test.resid"),
        "mean\trms\n"
        "RA: 0.12\t0.34\n"
        "DE: -0.05\t10.00\n"
        "dateTtime\tday\tsign\tresRA\tresDE\tfi\tlen\tRAoDec\tDEoDec\tRAo\tDEo\tRAc\tDEc\txo\tyo\txc\tyc\n"
        "2024-02-29T06:00:00.000000\t0.2500000000\t    !    \t0.88\t-3.52\t33.38\t4.50\t"
        "157.5000000000\t-20.2500000000\t10:30:00.000\t-20:15:00.00\t10:29:59.941\t-20:14:56.48\t"
        "1024.5\t0.25\t1.23457e+06\t-3\t\n"
        "2024-03-01T12:00:00.000000\t0.5000000000\t         \t0.00\t0.00\t0.00\t0.00\t"
        "0.0000000000\t0.0000000000\t00:00:00.000\t00:00:00.00\t00:00:00.000\t00:00:00.00\t"
        "0\t0\t0\t0\t\n");
}

TEST(ResidualReport, EachColumnHasItsField)
{
    const std::pair<const char*, const char*> columns[] = {
        {"dateTtime", "2024-02-29T06:00:00.000000"},
        {"day", "0.2500000000"},
        {"sign", "    !    "},
        {"resRA", "0.88"},
        {"resDE", "-3.52"},
        {"fi", "33.38"},
        {"len", "4.50"},
        {"RAoDec", "157.5000000000"},
        {"DEoDec", "-20.2500000000"},
        {"RAo", "10:30:00.000"},
        {"DEo", "-20:15:00.00"},
        {"RAc", "10:29:59.941"},
        {"DEc", "-20:14:56.48"},
        {"xo", "1024.5"},
        {"yo", "0.25"},
        {"xc", "1.23457e+06"},
        {"yc", "-3"},
    };
    int number = 0;
    for (const auto& [name, text] : columns) {
        SCOPED_TRACE(name);
        EXPECT_EQ(columnOf(fullMark, number), text);
        ++number;
    }
}

TEST(ResidualReport, TimesOfMarksHaveMicroseconds)
{
    const TrackVtorichka track =
        trackOf({{.date = 60000, .time = 0.123456789012, .RefValue4 = 0, .RefValue5 = 0}});
    // 10666.666570637 seconds are 2 h 57 min 46.666570637 s; the file's name has them without decimals.
    const std::string text = fileOf(track, "25544 2023-02-25 02-57-47_etalon-ref.txt_result-_test.resid");
    EXPECT_EQ(text.substr(columnLines.size(), 40), "2023-02-25T02:57:46.666571\t0.1234567890\t");
}

TEST(ResidualReport, TimeInTheNameOfAFileRoundsUpToMidnightOfTheSameDate)
{
    const TrackVtorichka track = trackOf({{.date = 60369, .time = 0.999999, .RefValue4 = 0, .RefValue5 = 0}});
    const std::string text = fileOf(track, "25544 2024-02-29 00-00-00_etalon-ref.txt_result-_test.resid");
    EXPECT_EQ(text.substr(columnLines.size(), 40), "2024-02-29T23:59:59.913600\t0.9999990000\t");
}

TEST(ResidualReport, OnlyAResidualAboveTwoArcsecondsIsMarked)
{
    // 3600 times this is 2.0 exactly, and 3600 times the next double is more.
    const double two = 1.0 / 1800.0;
    const double more = std::nextafter(two, 1.0);
    ASSERT_EQ(3600.0 * two, 2.0);
    ASSERT_GT(3600.0 * more, 2.0);
    const struct
    {
        double ra;
        double de;
        const char* sign;
    } cases[] = {
        {0.0, 0.0, "         "},   {two, 0.0, "         "},    {-two, 0.0, "         "},
        {0.0, two, "         "},   {0.0, -two, "         "},   {two, -two, "         "},
        {more, 0.0, "    !    "},  {-more, 0.0, "    !    "},  {0.0, more, "    !    "},
        {0.0, -more, "    !    "}, {more, -more, "    !    "}, {two, more, "    !    "},
        {-more, two, "    !    "}, {90.0, 0.0, "    !    "},   {0.0, -90.0, "    !    "},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << c.ra << ' ' << c.de);
        EXPECT_EQ(columnOf({.RA = c.ra, .DE = c.de, .RefValue4 = 0, .RefValue5 = 0}, 2), c.sign);
    }
}

TEST(ResidualReport, ResidualOfTwoLooksTheSameMarkedOrNot)
{
    const double more = std::nextafter(1.0 / 1800.0, 1.0);
    EXPECT_EQ(columnOf({.RA = 1.0 / 1800.0, .RefValue4 = 0, .RefValue5 = 0}, 3), "2.00");
    EXPECT_EQ(columnOf({.RA = more, .RefValue4 = 0, .RefValue5 = 0}, 3), "2.00");
}

TEST(ResidualReport, ResidualsAreMeasuredMinusCalculated)
{
    const Mark mark{.RA = 10.0, .DE = -5.0, .RefValue4 = 10.0009765625, .RefValue5 = -5.0009765625};
    EXPECT_EQ(columnOf(mark, 3), "-3.52");
    EXPECT_EQ(columnOf(mark, 4), "3.52");
}

TEST(ResidualReport, RightAscensionHasNoCosineOfTheDeclination)
{
    EXPECT_EQ(columnOf({.RA = 11.0, .DE = 89.0, .RefValue4 = 10.0, .RefValue5 = 89.0}, 3), "3600.00");
}

TEST(ResidualReport, ResidualIsNotWrappedAtTheFullCircle)
{
    const Mark east{.RA = 0.25, .RefValue4 = 359.75, .RefValue5 = 0};
    EXPECT_EQ(columnOf(east, 3), "-1294200.00");
    EXPECT_EQ(columnOf(east, 2), "    !    ");
    EXPECT_EQ(columnOf({.RA = 359.75, .RefValue4 = 0.25, .RefValue5 = 0}, 3), "1294200.00");
}

TEST(ResidualReport, SecondsThatRoundUpStandAsSixty)
{
    const Mark mark{.RA = 359.9999999, .DE = 19.9999999, .RefValue4 = 29.9999999, .RefValue5 = -0.9999999};
    EXPECT_EQ(columnOf(mark, 9), "23:59:60.000");
    EXPECT_EQ(columnOf(mark, 10), "19:59:60.00");
    EXPECT_EQ(columnOf(mark, 11), "01:59:60.000");
    EXPECT_EQ(columnOf(mark, 12), "-00:59:60.00");
}

TEST(ResidualReport, SummaryTellsMeansWithTheirSigns)
{
    const struct
    {
        double x;
        double y;
        const char* means;
    } cases[] = {
        {0.0, 0.0, "RA\t0.00\t0.25\tDE\t0.00\t0.75"},
        {0.12, -0.05, "RA\t+0.12\t0.25\tDE\t-0.05\t0.75"},
        {-12.5, 3.0, "RA\t-12.50\t0.25\tDE\t+3.00\t0.75"},
        {0.001, 0.001, "RA\t+0.00\t0.25\tDE\t+0.00\t0.75"},
        {-0.001, -0.001, "RA\t-0.00\t0.25\tDE\t-0.00\t0.75"},
        {1000.0, 0.0, "RA\t+1000.00\t0.25\tDE\t0.00\t0.75"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.means);
        TrackVtorichka track = trackOf({fullMark, fullMark});
        track.DispX = c.x;
        track.DispY = c.y;
        track.LymX = 0.25;
        track.LymY = 0.75;
        EXPECT_EQ(summaryOf({track}),
                  "test\tmean\trms\nNObs: 2\t" + std::string(c.means) + "\t" + fullMarkFile + "\n");
    }
}

TEST(ResidualReport, MeansOfTheFileHaveNoPlus)
{
    TrackVtorichka track = trackOf({fullMark});
    track.DispX = 1.5;
    track.DispY = -1.5;
    track.LymX = 0.25;
    track.LymY = 0.75;
    EXPECT_EQ(fileOf(track, fullMarkFile).substr(0, 42), "mean\trms\nRA: 1.50\t0.25\nDE: -1.50\t0.75\ndate");
}

TEST(ResidualReport, SummaryOfNoTracksIsItsFirstLine)
{
    EXPECT_EQ(summaryOf({}), "test\tmean\trms\n");
}

TEST(ResidualReport, TrackWithoutMarksLeavesNothing)
{
    const TemporaryFolder folder;
    SaveResidAMU(folder.path(), "test", {trackOf({}, "1"), trackOf({}, "2"), trackOf({}, "3")});
    EXPECT_EQ(bytesOf(folder / "test.result"), "test\tmean\trms\n");
    const auto entries = std::filesystem::directory_iterator(folder.path());
    EXPECT_EQ(std::distance(begin(entries), end(entries)), 1);
}

/// The summary with the object's name alone for each line of a track.
std::string namesOf(const Tracks& tracks)
{
    std::string text = summaryOf(tracks);
    std::string names;
    for (text.erase(0, text.find('\n') + 1); !text.empty(); text.erase(0, text.find('\n') + 1)) {
        const std::string line = text.substr(0, text.find('\n'));
        const std::string name = line.substr(line.rfind('\t') + 1);
        names += name.substr(0, name.find(' ')) + "|";
    }
    return names;
}

TEST(ResidualReport, EmptyLinePartsObjects)
{
    const TrackVtorichka a = trackOf({fullMark}, "A");
    const TrackVtorichka b = trackOf({fullMark}, "B");
    EXPECT_EQ(namesOf({a}), "A|");
    EXPECT_EQ(namesOf({a, a}), "A|A|");
    EXPECT_EQ(namesOf({a, b}), "A||B|");
    EXPECT_EQ(namesOf({a, a, b, b, a}), "A|A||B|B||A|");
}

TEST(ResidualReport, TrackWithoutMarksCountsAsTheNextOneOnly)
{
    const TrackVtorichka a = trackOf({fullMark}, "A");
    const TrackVtorichka b = trackOf({fullMark}, "B");
    const TrackVtorichka emptyA = trackOf({}, "A");
    const TrackVtorichka emptyB = trackOf({}, "B");
    EXPECT_EQ(namesOf({emptyA, b}), "B|");
    EXPECT_EQ(namesOf({a, emptyB}), "A||");
    EXPECT_EQ(namesOf({a, emptyB, a}), "A||A|");
    EXPECT_EQ(namesOf({a, emptyA, b}), "A|B|");
    EXPECT_EQ(namesOf({a, emptyB, b}), "A||B|");
}

TEST(ResidualReport, FileNameHasTheSeventhPartOfTheSource)
{
    const std::pair<const char*, const char*> sources[] = {
        {"/a/b/c/d/e/f/g.txt", "f"},
        {"/a/b/c/d/e/f", "f"},
        {"a/b/c/d/e/f/g.txt", "g.txt"},
        {"a/b/c/d/e/f/g/h/i.txt", "g"},
        {"a//c/d/e/f/g", "g"},
        {"/a/b/c/d/e/", ""},
        {"/a/b/c/d/e", ""},
        {"a/b/c/d/e/f", ""},
        {"a/b/c/d/e/f/", ""},
        {"a/b/c/d/e/f//h", ""},
        {"a.txt", ""},
        {"", ""},
    };
    for (const auto& [source, part] : sources) {
        SCOPED_TRACE(source);
        const TemporaryFolder folder;
        TrackVtorichka track = trackOf({fullMark});
        track.SourceFile = source;
        SaveResidAMU(folder.path(), "test", {track});
        EXPECT_TRUE(
            exists(folder / "25544 2024-02-29 06-00-00_etalon-ref.txt_result-" + part + "_test.resid"));
    }
}

TEST(ResidualReport, FileNameHasTheNameOfTheReference)
{
    const std::pair<const char*, const char*> references[] = {
        {"/a/b/25544_x.txt", "25544_x.txt"}, {"25544_x.txt", "25544_x.txt"}, {"/a/b/", ""}, {"", ""}};
    for (const auto& [reference, name] : references) {
        SCOPED_TRACE(reference);
        const TemporaryFolder folder;
        TrackVtorichka track = trackOf({fullMark});
        track.ResidFile = reference;
        SaveResidAMU(folder.path(), "test", {track});
        EXPECT_TRUE(exists(folder / "25544 2024-02-29 06-00-00_etalon-" + name + "_result-_test.resid"));
    }
}

TEST(ResidualReport, FileNameHasDateAndTimeOfTheFirstMark)
{
    const TemporaryFolder folder;
    const Mark later{.date = 60000, .time = 0.5};
    SaveResidAMU(folder.path(), "night", {trackOf({later, fullMark}, "")});
    EXPECT_TRUE(exists(folder / " 2023-02-25 12-00-00_etalon-ref.txt_result-_night.resid"));
    EXPECT_TRUE(exists(folder / "night.result"));
}

TEST(ResidualReport, FilesThatAreThereAreReplaced)
{
    const TemporaryFolder folder;
    makeFile(folder / "test.result", std::string(5000, 'x'));
    makeFile(folder / fullMarkFile, std::string(5000, 'x'));
    SaveResidAMU(folder.path(), "test", {trackOf({fullMark})});
    EXPECT_EQ(bytesOf(folder / "test.result"),
              "test\tmean\trms\nNObs: 1\tRA\t0.00\t0.00\tDE\t0.00\t0.00\t" + fullMarkFile + "\n");
    EXPECT_EQ(bytesOf(folder / fullMarkFile).substr(0, columnLines.size()), columnLines);
}

TEST(ResidualReport, TracksOfOneNameShareAFileThatHoldsTheLast)
{
    const TemporaryFolder folder;
    SaveResidAMU(folder.path(), "test", {trackOf({fullMark, fullMark}), trackOf({fullMark})});
    const std::string text = bytesOf(folder / fullMarkFile);
    EXPECT_EQ(text.find("2024-02-29T"), columnLines.size());
    EXPECT_EQ(text.find("2024-02-29T", columnLines.size() + 1), std::string::npos);
}

/// Checks that code 7 is thrown with the path.
void expectCode7(const std::string& folder, const Tracks& tracks, const std::string& path)
{
    try {
        SaveResidAMU(folder, "test", tracks);
        ADD_FAILURE() << "nothing was raised";
    } catch (const TavelinException& failure) {
        EXPECT_EQ(failure.getCode(), 7);
        EXPECT_EQ(failure.getComment(), path);
        EXPECT_STREQ(failure.what(), "Error opening file");
    }
}

TEST(ResidualReport, FirstFileThatCannotBeWrittenIsCode7)
{
    const TemporaryFolder folder;
    const std::string missing = folder / "missing";
    expectCode7(missing, {trackOf({fullMark})}, missing + "/" + fullMarkFile);
    expectCode7(missing, {}, missing + "/test.result");
    expectCode7(missing, {trackOf({})}, missing + "/test.result");
    EXPECT_FALSE(exists(missing));
}

TEST(ResidualReport, FilesBeforeTheOneThatCannotBeWrittenStay)
{
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder / "test.result");
    expectCode7(folder.path(), {trackOf({fullMark})}, folder / "test.result");
    EXPECT_TRUE(exists(folder / fullMarkFile));
}

TEST(ResidualReport, NameOfAnObjectWithASeparatorNamesAFolder)
{
    const TemporaryFolder folder;
    const Tracks tracks = {trackOf({fullMark}, "C/2023 A3")};
    expectCode7(folder.path(), tracks, folder / ("C/2023 A3" + fullMarkFile.substr(5)));
    EXPECT_FALSE(exists(folder / "test.result"));
}

TEST(ResidualReportSink, AddWritesTheFileOfATrackAndSaveTheSummary)
{
    const TemporaryFolder folder;
    makeFile(folder / "test.result", "old");
    ResidualReportSink sink(folder.path(), "test");
    sink.add(trackOf({fullMark}));
    EXPECT_EQ(bytesOf(folder / fullMarkFile), fileOf(trackOf({fullMark}), fullMarkFile));
    EXPECT_EQ(bytesOf(folder / "test.result"), "old");
    EXPECT_TRUE(sink.save());
    EXPECT_EQ(bytesOf(folder / "test.result"), summaryOf({trackOf({fullMark})}));
}

TEST(ResidualReportSink, WithoutATrackItWritesTheFirstLineOfTheSummary)
{
    const TemporaryFolder folder;
    EXPECT_TRUE(ResidualReportSink(folder.path(), "test").save());
    EXPECT_EQ(bytesOf(folder / "test.result"), "test\tmean\trms\n");
}

// The object of a track's line is remembered, and the track is not.
TEST(ResidualReportSink, EmptyLinePartsObjectsThatComeInTheSameMemory)
{
    const TemporaryFolder folder;
    ResidualReportSink sink(folder.path(), "test");
    TrackVtorichka track = trackOf({fullMark}, "A");
    for (const char* name : {"A", "A", "B", "A"}) {
        track.NORAD = name;
        sink.add(track);
    }
    EXPECT_TRUE(sink.save());
    const auto trackNamedBy = [](const char* name) { return trackOf({fullMark}, name); };
    EXPECT_EQ(bytesOf(folder / "test.result"),
              summaryOf({trackNamedBy("A"), trackNamedBy("A"), trackNamedBy("B"), trackNamedBy("A")}));
}

} // namespace
