#include "formats/ssmas.h"

#include "support/measured_marks.h"
#include "support/places.h"
#include "support/sexagesimal.h"
#include "support/ssmas_lines.h"
#include "support/temporary_folder.h"
#include "support/tracks.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <stdexcept>
#include <string>
#include <vector>

using namespace tavelinUtils;
using namespace ssmasLines;

namespace {

using Lines = std::vector<std::string>;
using Tracks = std::vector<TrackVtorichka>;

// The tracks of the six lines before the first object and the lines given.
Tracks read(const Lines& lines)
{
    Lines all = {"Measurements", "T1", "conversion", "1", "", "#SSMAS   #INTER"};
    all.insert(all.end(), lines.begin(), lines.end());
    return lckako_meas(all, "MPC");
}

Tracks readBytes(const std::string& bytes)
{
    return readBy([](const std::string& path) { return lckako_meas(path, "MPC"); }, bytes);
}

// The only mark of an object whose only line this is.
TRecLabelPervichka_File readMark(const std::string& line)
{
    SCOPED_TRACE(line);
    return onlyMark(read({"A B", line}));
}

void expectHead(const TrackVtorichka& track, const std::string& originator, const std::string& telescope,
                const std::string& name, const std::string& number)
{
    ::expectHead(track, {originator, telescope, name, name});
    EXPECT_EQ(track.HeadText2, "");
    EXPECT_EQ(track.HeadText3, number);
}

void expectObject(const TrackVtorichka& track, const std::string& name, const std::string& number,
                  std::size_t marks)
{
    expectHead(track, "MPC", "T1", name, number);
    EXPECT_EQ(track.Marks.size(), marks);
}

void expectDefaultTrack(const TrackVtorichka& track)
{
    expectHead(track, "observatory", "telescope", "", "");
    EXPECT_TRUE(track.Marks.empty());
}

} // namespace

TEST(SsmasReader, BlockIsATrack)
{
    const Tracks tracks = lckako_meas(
        Lines{"Measurements", "T1", "conversion", "1", "", "#SSMAS   #INTER", "100 200", columnLine, markLine,
              "26.02.2023 06:00:00.00  12:30:00.00 +45.15.00.00 001 15.3", "2", "", "#SSMAS   #INTER", "B B",
              columnLine, "01.01.2000 18:00:00.00  02:00:00.00 -01.00.00.00 001 10.0"},
        "MPC");
    ASSERT_EQ(tracks.size(), 2u);
    expectHead(tracks[0], "MPC", "T1", "100", "200");
    ASSERT_EQ(tracks[0].Marks.size(), 2u);
    expectTheMark(tracks[0].Marks[0]);
    expectMark(tracks[0].Marks[1], {60001, 0.25, 187.5, 45.25, 15.3});
    expectHead(tracks[1], "MPC", "T1", "B", "B");
    ASSERT_EQ(tracks[1].Marks.size(), 1u);
    expectMark(tracks[1].Marks[0], {51544, 0.75, 30.0, -1.0, 10.0});
}

TEST(SsmasReader, FileReadsLikeItsLines)
{
    const Tracks tracks =
        readBytes("Measurements\r\nT1\t\r\nconversion\r\n1\r\n\r\n#SSMAS   #INTER\r\nA B\t\r\n" + columnLine +
                  "\r\n" + markLine + "\t\r\n" + markLine);
    ASSERT_EQ(tracks.size(), 1u);
    expectObject(tracks[0], "A", "B", 2);
    expectTheMark(tracks[0].Marks[0]);
    expectTheMark(tracks[0].Marks[1]);
}

TEST(SsmasReader, NothingToRead)
{
    const TemporaryFolder folder;
    EXPECT_TRUE(lckako_meas(Lines{}, "MPC").empty());
    EXPECT_TRUE(lckako_meas(folder / "missing.ssm", "MPC").empty());
    EXPECT_TRUE(lckako_meas(folder.path(), "MPC").empty());
    EXPECT_TRUE(readBytes("").empty());
}

TEST(SsmasReader, SevenLinesAreNeeded)
{
    const Lines lines = {"A B", "A B", "A B", "A B", "A B", "A B"};
    EXPECT_TRUE(lckako_meas(lines, "MPC").empty());
    EXPECT_TRUE(readBytes("A B\nA B\nA B\nA B\nA B\nA B\n").empty());

    const Tracks tracks = read({"A B"});
    ASSERT_EQ(tracks.size(), 1u);
    expectDefaultTrack(tracks[0]);
}

TEST(SsmasReader, FirstSixLinesGiveTheTelescopeOnly)
{
    const Tracks tracks =
        lckako_meas(Lines{markLine, "K88 of the night ", "1 2", "3 4", markLine, "5 6", "A B", markLine},
                    "MPC observatory");
    ASSERT_EQ(tracks.size(), 1u);
    expectHead(tracks[0], "MPC observatory", "K88 of the night ", "A", "B");
    EXPECT_EQ(tracks[0].Marks.size(), 1u);

    const Tracks empty = lckako_meas(Lines{"", "", "", "", "", "", "A B", markLine}, "");
    ASSERT_EQ(empty.size(), 1u);
    expectHead(empty[0], "", "", "A", "B");
}

TEST(SsmasReader, TwoWordsOpenAnObject)
{
    const struct
    {
        const char* line;
        const char* name;
        const char* number;
    } rows[] = {
        {"A B", "A", "B"},     {"A ", "A", ""}, {" B", "", "B"}, {" ", "", ""}, {"A\t1 B\t2", "A\t1", "B\t2"},
        {"A B\r", "A", "B\r"},
    };
    for (const auto& [line, name, number] : rows) {
        SCOPED_TRACE(line);
        const Tracks tracks = read({line, columnLine, markLine});
        ASSERT_EQ(tracks.size(), 1u);
        expectObject(tracks[0], name, number, 1);
    }
}

TEST(SsmasReader, LinesOfOtherCountsOpenNone)
{
    for (const char* line :
         {"", "A", "A B ", "A  B", " A B", "  ", "A\tB", "2008 TC3 2008 TC3", "A B C D E F G H"})
    {
        SCOPED_TRACE(line);
        EXPECT_TRUE(read({line, columnLine, markLine}).empty());
    }
}

TEST(SsmasReader, LinesBeforeTheFirstObjectAreSkipped)
{
    const Tracks tracks = read({markLine, "x", "", columnLine, "a b c", "A B", columnLine, markLine});
    ASSERT_EQ(tracks.size(), 1u);
    expectObject(tracks[0], "A", "B", 1);
}

TEST(SsmasReader, ObjectWithoutMarksLeavesADefaultTrackInItsPlace)
{
    const Tracks tracks = read({"A A", columnLine, "2", "", "#SSMAS   #INTER", "B B", columnLine, markLine,
                                "3", "", "#SSMAS   #INTER", "C C", columnLine});
    ASSERT_EQ(tracks.size(), 3u);
    expectDefaultTrack(tracks[0]);
    expectObject(tracks[1], "B", "B", 1);
    expectDefaultTrack(tracks[2]);
}

TEST(SsmasReader, ColumnLineIsNotNeeded)
{
    const Tracks tracks = read({"A A", markLine, markLine, "2", "B B", markLine});
    ASSERT_EQ(tracks.size(), 2u);
    expectObject(tracks[0], "A", "A", 2);
    expectObject(tracks[1], "B", "B", 1);
}

TEST(SsmasReader, ShortLineWithAFirstItemClosesAnObjectThatHasMarks)
{
    for (const char* line : {"2", "END", "a b c", "a  ", "#SSMAS   #INTER", "a b c d e f", "a     "}) {
        SCOPED_TRACE(line);
        const Tracks tracks =
            read({"A A", columnLine, markLine, line, markLine, columnLine, markLine, "B B", markLine});
        ASSERT_EQ(tracks.size(), 2u);
        expectObject(tracks[0], "A", "A", 1);
        expectObject(tracks[1], "B", "B", 1);
    }
}

TEST(SsmasReader, ShortLineWithoutAFirstItemClosesNothing)
{
    for (const char* line : {"", "  ", "   ", " a b", "     ", " b c d e f"}) {
        SCOPED_TRACE(line);
        const Tracks tracks = read({"A A", columnLine, markLine, line, markLine});
        ASSERT_EQ(tracks.size(), 1u);
        expectObject(tracks[0], "A", "A", 2);
    }
}

TEST(SsmasReader, ShortLineClosesNothingBeforeTheFirstMark)
{
    for (const char* line : {"2", "END", "a b c", "#SSMAS   #INTER", "a b c d e f"}) {
        SCOPED_TRACE(line);
        const Tracks tracks = read({"A A", line, columnLine, line, markLine});
        ASSERT_EQ(tracks.size(), 1u);
        expectObject(tracks[0], "A", "A", 1);
    }
}

TEST(SsmasReader, LinesOfMoreThanSevenItemsArePassedOver)
{
    for (const std::string& line : {columnLine, markLine + " ", markLine + " x", " " + markLine,
                                    std::string("a b c d e f g h"), std::string("       ")})
    {
        SCOPED_TRACE(line);
        const Tracks tracks = read({"A A", markLine, line, markLine});
        ASSERT_EQ(tracks.size(), 1u);
        expectObject(tracks[0], "A", "A", 2);
    }
}

// A blank between time and right ascension that is missing leaves six items, which close the object.
TEST(SsmasReader, MarkOfSixItemsClosesTheObject)
{
    const std::string six = "25.02.2023 12:00:00.00 01:00:00.00 -00.30.00.00 001 09.5";
    const Tracks tracks = read({"A A", six, markLine, six, markLine});
    ASSERT_EQ(tracks.size(), 1u);
    expectObject(tracks[0], "A", "A", 1);
}

TEST(SsmasReader, SecondObjectStraightAfterMarksIsLostAndLeavesADefaultTrack)
{
    const Tracks tracks = read({"A A", columnLine, markLine, "B B", columnLine, markLine, markLine, "3", "",
                                "#SSMAS   #INTER", "C C", columnLine, markLine});
    ASSERT_EQ(tracks.size(), 3u);
    expectObject(tracks[0], "A", "A", 1);
    expectDefaultTrack(tracks[1]);
    expectObject(tracks[2], "C", "C", 1);
}

TEST(SsmasReader, SecondObjectBeforeAnyMarkTakesTheMarks)
{
    const Tracks tracks = read({"A A", columnLine, "B C", columnLine, markLine});
    ASSERT_EQ(tracks.size(), 2u);
    expectDefaultTrack(tracks[0]);
    expectObject(tracks[1], "B", "C", 1);
}

// The object line resets, so that the next one opens an object again.
TEST(SsmasReader, EverySecondObjectOfAListWithoutNumbersIsLost)
{
    const Tracks tracks =
        read({"A A", markLine, "B B", markLine, "C C", markLine, markLine, "D D", "E E", markLine});
    ASSERT_EQ(tracks.size(), 5u);
    expectObject(tracks[0], "A", "A", 1);
    expectDefaultTrack(tracks[1]);
    expectObject(tracks[2], "C", "C", 2);
    expectDefaultTrack(tracks[3]);
    expectObject(tracks[4], "E", "E", 1);
}

TEST(SsmasReader, NameWithABlankIsMissedWithItsMarks)
{
    const Tracks tracks =
        read({"A A", columnLine, markLine, "2", "", "#SSMAS   #INTER", "2008 TC3 2008 TC3", columnLine,
              markLine, markLine, "3", "", "#SSMAS   #INTER", "C C", columnLine, markLine});
    ASSERT_EQ(tracks.size(), 2u);
    expectObject(tracks[0], "A", "A", 1);
    expectObject(tracks[1], "C", "C", 1);
}

TEST(SsmasReader, MarksOfANameWithABlankGoToAnObjectThatHadNone)
{
    const Tracks tracks = read(
        {"A A", columnLine, "2", "", "#SSMAS   #INTER", "2008 TC3 2008 TC3", columnLine, markLine, markLine});
    ASSERT_EQ(tracks.size(), 1u);
    expectObject(tracks[0], "A", "A", 2);
}

TEST(SsmasReader, ObjectWithAnEmptyNameKeepsTheMarksBeforeIt)
{
    const Tracks tracks = read({"A A", markOf("01.0"), markOf("02.0"), " B", markOf("03.0"), " ",
                                markOf("04.0"), "5", "C C", markOf("05.0")});
    ASSERT_EQ(tracks.size(), 4u);
    expectObject(tracks[0], "A", "A", 2);
    expectObject(tracks[1], "", "B", 3);
    expectObject(tracks[2], "", "", 4);
    expectObject(tracks[3], "C", "C", 1);
    for (std::size_t i = 0; i < 3; ++i) {
        for (std::size_t k = 0; k < tracks[i].Marks.size(); ++k) {
            expectMark(tracks[i].Marks[k], {60000, 0.5, 15.0, -0.5, static_cast<double>(k + 1)});
        }
    }
    expectMark(tracks[3].Marks[0], {60000, 0.5, 15.0, -0.5, 5.0});
}

TEST(SsmasReader, ObjectWithAnEmptyNameAndNoMarksOfItsOwnLeavesADefaultTrack)
{
    const Tracks tracks = read({"A A", markLine, " B", " C", markLine, " D"});
    ASSERT_EQ(tracks.size(), 4u);
    expectObject(tracks[0], "A", "A", 1);
    expectDefaultTrack(tracks[1]);
    expectObject(tracks[2], "", "C", 2);
    expectDefaultTrack(tracks[3]);
}

// The object lines repeat 1,000, 1,001 ... 1,732 marks: 1,001,278 together.
TEST(SsmasReader, MoreThanAMillionRepeatedMarksRaise)
{
    Lines lines = {"A A"};
    lines.insert(lines.end(), 1000, markLine);
    for (int i = 0; i < 733; ++i) {
        lines.emplace_back(" B");
        lines.push_back(markLine);
    }
    EXPECT_THROW(read(lines), std::length_error);
}

TEST(SsmasReader, RepeatedObjectsWithoutMarksOfTheirOwnDoNotCount)
{
    Lines lines = {"A A"};
    lines.insert(lines.end(), 9600, markLine);
    lines.insert(lines.end(), 2000, " B");
    const Tracks tracks = read(lines);
    ASSERT_EQ(tracks.size(), 2001u);
    expectObject(tracks[0], "A", "A", 9600);
    expectDefaultTrack(tracks[1]);
    expectDefaultTrack(tracks[2000]);
}

TEST(SsmasReader, MarksThatAreRepeatedBelowTheLimitAreRead)
{
    Lines lines = {"A A"};
    lines.insert(lines.end(), 2000, markLine);
    for (int i = 0; i < 50; ++i) {
        lines.emplace_back(" B");
        lines.push_back(markLine);
    }
    const Tracks tracks = read(lines);
    ASSERT_EQ(tracks.size(), 51u);
    expectObject(tracks[0], "A", "A", 2000);
    expectObject(tracks[1], "", "B", 2001);
    expectObject(tracks[50], "", "B", 2050);
}

TEST(SsmasReader, DateOfAMark)
{
    const struct
    {
        const char* text;
        int date;
    } rows[] = {
        {"25.02.2023", 60000},
        {"01.01.2000", 51544},
        {"1.1.2000", 51544},
        {"31.02.2023", 60006},    // 3 March
        {"25.02.2023.99", 60000}, // a fourth part is not looked at
        {"25.02.5", -677059},
        {"25.02", -678886}, // parts that are missing count as 0
        {"25", 0},
        {"", 0},
        {"25.13.2023", 0},
        {"2023-02-25", 0},
        {"a.b.c", 0},
    };
    for (const auto& [text, date] : rows) {
        SCOPED_TRACE(text);
        expectMark(readMark(std::string(text) + " 12:00:00.00  01:00:00.00 -00.30.00.00 001 09.5"),
                   {date, 0.5, 15.0, -0.5, 9.5});
    }
}

TEST(SsmasReader, TimeOfAMark)
{
    const struct
    {
        const char* text;
        double time;
    } rows[] = {
        {"12:00:00.00", 0.5},
        {"12:34:56.789", day(12, 34, 56.789)},
        {"12:34:60.00", day(12, 34, 60.0)},
        {"12:00:010.00", day(12, 0, 10.0)},
        {"24:00:00.00", 1.0},
        {"6", 0.25},
        {"06:00", 0.25},
        {"06:00:00:59", 0.25},
        {"", 0.0},
        {"abc", 0.0},
    };
    for (const auto& [text, time] : rows) {
        SCOPED_TRACE(text);
        expectMark(readMark("25.02.2023 " + std::string(text) + "  01:00:00.00 -00.30.00.00 001 09.5"),
                   {60000, time, 15.0, -0.5, 9.5});
    }
}

TEST(SsmasReader, RightAscensionOfAMark)
{
    const struct
    {
        const char* text;
        double RA;
    } rows[] = {
        {"01:00:00.00", 15.0},
        {"12:34:56.78", hours(12, 34, 56.78)},
        {"23:59:60.00", 360.0},
        {"12.5", 12.5}, // no separator: degrees
        {"12:30", -100.0},
        {"12:30:00:00", -100.0},
        {"", 0.0},
        {"abc", 0.0},
    };
    for (const auto& [text, RA] : rows) {
        SCOPED_TRACE(text);
        expectMark(readMark("25.02.2023 12:00:00.00  " + std::string(text) + " -00.30.00.00 001 09.5"),
                   {60000, 0.5, RA, -0.5, 9.5});
    }
}

TEST(SsmasReader, DeclinationOfAMarkLosesTheFractionOfItsSeconds)
{
    const struct
    {
        const char* text;
        double DE;
    } rows[] = {
        {"-00.30.00.00", -0.5},
        {"00.30.00.00", 0.5},
        {"+00.30.00.00", 0.5},
        {"45.23.28.99", degrees(45, 23, 28.0)},
        {"-45.23.28.99", -degrees(45, 23, 28.0)},
        {"-45:23:28.99", -degrees(45, 23, 28.99)},
        {"12.30.15", 12.30}, // three parts: a number
        {"12.5", 12.5},
        {"12:30", -100.0},
        {"", 0.0},
        {"abc", 0.0},
    };
    for (const auto& [text, DE] : rows) {
        SCOPED_TRACE(text);
        expectMark(readMark("25.02.2023 12:00:00.00  01:00:00.00 " + std::string(text) + " 001 09.5"),
                   {60000, 0.5, 15.0, DE, 9.5});
    }
}

TEST(SsmasReader, MagnitudeOfAMark)
{
    const struct
    {
        const char* text;
        double m;
    } rows[] = {
        {"09.5", 9.5},  {"15.34", 15.34}, {"-1.2", -1.2}, {"0-1.2", 0.0}, // what -1.2 is written as
        {"10.0", 10.0}, {"abc", 0.0},     {"", 0.0},      {"9.5\r", 9.5},
    };
    for (const auto& [text, m] : rows) {
        SCOPED_TRACE(text);
        expectMark(readMark(markOf(text)), {60000, 0.5, 15.0, -0.5, m});
    }
}

TEST(SsmasReader, ThirdItemAndRmsOfAMarkAreNotRead)
{
    expectTheMark(readMark("25.02.2023 12:00:00.00 x 01:00:00.00 -00.30.00.00  09.5"));
    expectTheMark(readMark("25.02.2023 12:00:00.00 99 01:00:00.00 -00.30.00.00 abc 09.5"));
    // Six blanks are seven empty items.
    expectMark(readMark("      "), {0, 0.0, 0.0, 0.0, 0.0});
}

TEST(Ssmas, WhatIsWrittenComesBack)
{
    TrackVtorichka first =
        trackNamed("A", {{.date = 60000, .time = 0.5, .RA = 187.5, .DE = -0.5, .m = 9.5},
                         {.date = 60001, .time = 0.25, .RA = 15.0, .DE = 45.25, .m = 15.3}});
    first.originator = "O1";
    first.telescope = "T1";
    first.REFERENCE_FRAME = "B1950";
    first.HeadText2 = "100";
    first.HeadText3 = "200";
    TrackVtorichka second = trackNamed("B", {{.date = 51544, .DE = -1.0}});
    second.telescope = "T2";
    const TemporaryFolder folder;
    sSSMAS(folder / "a.ssm", Tracks{first, trackNamed("E", {}), second});
    const Tracks tracks = lckako_meas(folder / "a.ssm", "MPC");
    ASSERT_EQ(tracks.size(), 3u);
    expectObject(tracks[0], "100", "200", 2);
    expectMark(tracks[0].Marks[0], {60000, 0.5, 187.5, -0.5, 9.5});
    expectMark(tracks[0].Marks[1], {60001, 0.25, 15.0, 45.25, 15.3});
    expectDefaultTrack(tracks[1]);
    expectObject(tracks[2], "B", "B", 1); // under the telescope of the first
    expectMark(tracks[2].Marks[0], {51544, 0.0, 0.0, -1.0, 0.0});
}

TEST(Ssmas, PublishedNight)
{
    const Tracks tracks = lckako_meas(fixture("ssmas/K88_20240120.ssm"), "MPC");
    ASSERT_EQ(tracks.size(), 1u);
    expectHead(tracks[0], "MPC", "K88", "K24B01X", "K24B01X");
    ASSERT_EQ(tracks[0].Marks.size(), 130u);
    expectMark(tracks[0].Marks.front(),
               {60329, day(21, 48, 27.36), hours(7, 46, 28.66), degrees(45, 23, 28), 18.0});
    expectMark(tracks[0].Marks.back(),
               {60330, day(0, 19, 18.45), hours(7, 31, 57.86), degrees(47, 43, 19), 12.7});
    expectPublished(tracks[0].Marks, publishedMarks("K88_20240120"),
                    {.time = 0.005, .RA = 0.005, .DE = 1.0, .m = 0.05});
}

TEST(Ssmas, PublishedNightIsWrittenWithWholeArcsecondsAndWithoutPlusSigns)
{
    std::string expected = bytesOf(fixture("ssmas/K88_20240120.ssm"));
    for (std::size_t at = expected.find('+'); at != std::string::npos; at = expected.find('+')) {
        expected.erase(at, 1);
        expected.replace(at + std::string("45.23.28.").size(), 2, "00");
    }
    const Tracks tracks = lckako_meas(fixture("ssmas/K88_20240120.ssm"), "MPC");
    EXPECT_EQ(writtenBy([&tracks](const std::string& path) { sSSMAS(path, tracks); }), expected);
}
