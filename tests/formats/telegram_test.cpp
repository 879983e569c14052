#include "formats/telegram.h"

#include "support/failed_writes.h"
#include "support/measured_marks.h"
#include "support/places.h"
#include "support/sexagesimal.h"
#include "support/temporary_folder.h"
#include "support/texts.h"
#include "support/tracks.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <limits>
#include <stdexcept>
#include <string>
#include <vector>

using namespace tavelinUtils;

namespace {

using Lines = std::vector<std::string>;
using Tracks = std::vector<TrackVtorichka>;

const std::string head = "MPC K88 12345";
const std::string markLine = "250223 12000000 01000000 -00300000 001095";

std::string written(const Tracks& tracks)
{
    return writtenBy([&tracks](const std::string& path) { sTelegramma(path, tracks); });
}

// The line of a track's only mark.
std::string writtenLine(const TRecLabelPervichka_File& mark)
{
    return between("observatory telescope N\n", written({trackNamed("N", {mark})}), "\nEND\n\n");
}

// The tracks of a file that holds the bytes.
Tracks readFile(const std::string& bytes)
{
    return readBy([](const std::string& path) { return lTelegramma(path); }, bytes);
}

// The only mark of a block whose only line between head and end this is.
TRecLabelPervichka_File readMark(const std::string& line)
{
    SCOPED_TRACE(line);
    return onlyMark(lTelegramma(Lines{head, line, "END"}));
}

void expectHead(const TrackVtorichka& track, const std::string& originator, const std::string& telescope,
                const std::string& name)
{
    ::expectHead(track, {originator, telescope, name, name});
}

void expectDefaultTrack(const TrackVtorichka& track)
{
    expectHead(track, "observatory", "telescope", "");
    EXPECT_TRUE(track.Marks.empty());
}

} // namespace

TEST(TelegramWriter, HeadMarksEndAndAnEmptyLine)
{
    TrackVtorichka track = trackNamed(
        "12345", {theMark(), {.date = 60001, .time = day(1, 2, 3.456), .RA = 187.5, .DE = 45.25, .m = 15.3}});
    track.originator = "MPC";
    track.telescope = "K88";
    EXPECT_EQ(written({track}), "MPC K88 12345\n"
                                "250223 12000000 01000000 -00300000 001095\n"
                                "260223 01020346 12300000 45150000 001153\n"
                                "END\n"
                                "\n");
}

TEST(TelegramWriter, EachTrackHasItsBlock)
{
    TrackVtorichka first = trackNamed("A", {theMark()});
    first.originator = "O1";
    TrackVtorichka second = trackNamed("B", {{.date = 60000, .time = 0.25, .RA = 30.0, .DE = -1, .m = 10.0}});
    second.telescope = "T2";
    EXPECT_EQ(written({first, second, first}), "O1 telescope A\n"
                                               "250223 12000000 01000000 -00300000 001095\n"
                                               "END\n"
                                               "\n"
                                               "observatory T2 B\n"
                                               "250223 06000000 02000000 -01000000 001100\n"
                                               "END\n"
                                               "\n"
                                               "O1 telescope A\n"
                                               "250223 12000000 01000000 -00300000 001095\n"
                                               "END\n"
                                               "\n");
}

TEST(TelegramWriter, HeadWordsStandAsTheyAre)
{
    TrackVtorichka track = trackNamed("2008 TC3", {});
    track.NORAD = "28884";
    track.MPCChecker = "checked";
    track.originator = "";
    track.telescope = " T\xC3\x9C ";
    EXPECT_EQ(written({track}), "  T\xC3\x9C  2008 TC3\nEND\n\n");
}

TEST(TelegramWriter, TrackWithoutMarksHasHeadAndEnd)
{
    EXPECT_EQ(written({trackNamed("A", {}), TrackVtorichka{}}), "observatory telescope A\n"
                                                                "END\n"
                                                                "\n"
                                                                "observatory telescope \n"
                                                                "END\n"
                                                                "\n");
}

TEST(TelegramWriter, EmptyListWritesNothing)
{
    const TemporaryFolder folder;
    sTelegramma(folder / "new.tel", Tracks{});
    EXPECT_FALSE(exists(folder / "new.tel"));

    makeFile(folder / "old.tel", "kept");
    sTelegramma(folder / "old.tel", Tracks{});
    EXPECT_EQ(bytesOf(folder / "old.tel"), "kept");

    forUnwritablePaths([](const std::string& path) { EXPECT_NO_THROW(sTelegramma(path, Tracks{})); });
}

TEST(TelegramWriter, FileIsReplaced)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.tel", std::string(10000, 'x'));
    sTelegramma(folder / "a.tel", Tracks{trackNamed("A", {})});
    EXPECT_EQ(bytesOf(folder / "a.tel"), "observatory telescope A\nEND\n\n");
}

TEST(TelegramWriter, FailedWriteRaisesCode7)
{
    expectCode7([](const std::string& path) { sTelegramma(path, Tracks{trackNamed("A", {{}})}); });
}

TEST(TelegramWriter, ListOfManyMarks)
{
    TrackVtorichka track = trackNamed("A", {});
    std::string expected = "observatory telescope A\n";
    for (int i = 0; i < 20000; ++i) {
        track.Marks.push_back({.date = 60000, .time = 0.5, .RA = 15.0, .DE = -0.5, .m = i % 10 * 0.1 + 15.0});
        expected += "250223 12000000 01000000 -00300000 00115" + std::to_string(i % 10) + "\n";
    }
    EXPECT_TRUE(written({track}) == expected + "END\n\n");
}

TEST(TelegramWriter, DateHasTwoDigitsOfTheYear)
{
    const struct
    {
        int date;
        std::string text;
    } rows[] = {
        {60000, "250223"},    // 2023-02-25
        {51544, "010100"},    // 2000-01-01
        {49718, "010195"},    // 1995-01-01
        {53529, "080605"},    // 2005-06-08
        {88068, "311299"},    // 2099-12-31
        {0, "171158"},        // 1858-11-17
        {-677059, "25025"},   // the year 5 is written whole
        {-315469, "250295"},  // the year 995
        {2147483647, "00000"} // no date of the calendar
    };
    for (const auto& [date, text] : rows) {
        SCOPED_TRACE(date);
        EXPECT_EQ(writtenLine({.date = date}), text + " 00000000 00000000 00000000 001000");
    }
}

TEST(TelegramWriter, TimeIsRoundedWithoutCarry)
{
    const struct
    {
        double time;
        std::string text;
    } rows[] = {
        {0.0, "00000000"},
        {0.5, "12000000"},
        {day(12, 34, 56.0), "12345600"},
        {day(1, 2, 3.454), "01020345"},
        {day(1, 2, 3.456), "01020346"},
        {day(12, 34, 59.994), "12345999"},
        {day(12, 34, 59.996), "12346000"},
        {day(12, 59, 59.996), "12596000"},
        {day(23, 59, 59.996), "23596000"},
        // The "0" looks at the value: it stays before seconds that are rounded up to 10.
        {day(12, 0, 9.994), "12000999"},
        {day(12, 0, 9.996), "120001000"},
        {day(12, 0, 10.004), "12001000"},
        {60000.25, "06000000"},
        {-0.25, "18000000"},
        {1.0 - 5e-15, "24000000"},
    };
    for (const auto& [time, text] : rows) {
        SCOPED_TRACE(time);
        EXPECT_EQ(writtenLine({.date = 60000, .time = time}), "250223 " + text + " 00000000 00000000 001000");
    }
}

TEST(TelegramWriter, RightAscensionIsRoundedWithoutCarry)
{
    const struct
    {
        double RA;
        std::string text;
    } rows[] = {
        {0.0, "00000000"},
        {15.0, "01000000"},
        {187.5, "12300000"},
        {hours(1, 2, 3.456), "01020346"},
        {hours(1, 0, 59.996), "01006000"},
        {hours(23, 59, 59.996), "23596000"},
        {359.9999999, "23596000"},
        {360.0, "24000000"},
        // The "0" looks at the text, other than that of the time.
        {hours(12, 5, 9.994), "12050999"},
        {hours(12, 5, 9.996), "12051000"},
        {-15.0, "-01000000"},
        {1500.0, "100000000"},
    };
    for (const auto& [RA, text] : rows) {
        SCOPED_TRACE(RA);
        EXPECT_EQ(writtenLine({.date = 60000, .RA = RA}), "250223 00000000 " + text + " 00000000 001000");
    }
}

TEST(TelegramWriter, DeclinationIsRoundedWithoutCarryAndHasASignOnlyBelowZero)
{
    const struct
    {
        double DE;
        std::string text;
    } rows[] = {
        {0.0, "00000000"},
        {-0.0, "00000000"},
        {0.5, "00300000"},
        {-0.5, "-00300000"},
        {degrees(12, 5, 30.1234), "12053012"},
        {-degrees(12, 5, 30.1234), "-12053012"},
        {degrees(45, 0, 9.994), "45000999"},
        {degrees(45, 0, 9.996), "45001000"},
        {degrees(45, 0, 59.996), "45006000"},
        {-89.9999999, "-89596000"},
        {90.0, "90000000"},
    };
    for (const auto& [DE, text] : rows) {
        SCOPED_TRACE(DE);
        EXPECT_EQ(writtenLine({.date = 60000, .DE = DE}), "250223 00000000 00000000 " + text + " 001000");
    }
}

TEST(TelegramWriter, MagnitudeHasOneDecimalAndAZeroBelowTen)
{
    const struct
    {
        double m;
        std::string text;
    } rows[] = {
        {15.3, "001153"},
        {9.5, "001095"},
        {0.0, "001000"},
        {0.05, "001001"},
        {9.94, "001099"},
        {9.96, "0010100"}, // the value is below 10, the text is not
        {10.0, "001100"},
        {15.25, "001152"}, // a tie goes to the even digit
        {15.35, "001153"}, // no tie in binary
        {99.96, "0011000"},
        {123.4, "0011234"},
        // Signs are not handled: the "0" comes before them.
        {-0.0, "0010-00"},
        {-0.04, "0010-00"},
        {-1.2, "0010-12"},
        {-10.0, "0010-100"},
        {-12.34, "0010-123"},
    };
    for (const auto& [m, text] : rows) {
        SCOPED_TRACE(m);
        EXPECT_EQ(writtenLine({.date = 60000, .m = m}), "250223 00000000 00000000 00000000 " + text);
    }
}

TEST(TelegramReader, BlockIsATrack)
{
    const Tracks tracks =
        lTelegramma(Lines{"MPC K88 12345", markLine, "260223 06000000 12300000 +45150000 001153", "END", "",
                          "O T B", "010100 18000000 02000000 -01000000 001100", "END", ""});
    ASSERT_EQ(tracks.size(), 2u);
    expectHead(tracks[0], "MPC", "K88", "12345");
    ASSERT_EQ(tracks[0].Marks.size(), 2u);
    expectTheMark(tracks[0].Marks[0]);
    expectMark(tracks[0].Marks[1], {60001, 0.25, 187.5, 45.25, 15.3});
    expectHead(tracks[1], "O", "T", "B");
    ASSERT_EQ(tracks[1].Marks.size(), 1u);
    expectMark(tracks[1].Marks[0], {51544, 0.75, 30.0, -1.0, 10.0});
}

TEST(TelegramReader, FileReadsLikeItsLines)
{
    const Tracks tracks = readFile(head + "\n" + markLine + "\nEND\n\n");
    ASSERT_EQ(tracks.size(), 1u);
    expectHead(tracks[0], "MPC", "K88", "12345");
    ASSERT_EQ(tracks[0].Marks.size(), 1u);
    expectTheMark(tracks[0].Marks[0]);
}

TEST(TelegramReader, NothingToRead)
{
    const TemporaryFolder folder;
    EXPECT_TRUE(lTelegramma(Lines{}).empty());
    EXPECT_TRUE(lTelegramma(folder / "missing.tel").empty());
    EXPECT_TRUE(lTelegramma(folder.path()).empty());
    EXPECT_TRUE(readFile("").empty());
    EXPECT_TRUE(readFile("\n").empty());
}

TEST(TelegramReader, CarriageReturnsAndTabsAtTheEndOfALineAreDropped)
{
    const Tracks tracks = readFile("MPC K88 12345\t\r\n" + markLine + "\t\t\r\n\r\n\t\r\nEND\r\n\r\n");
    ASSERT_EQ(tracks.size(), 1u);
    expectHead(tracks[0], "MPC", "K88", "12345");
    ASSERT_EQ(tracks[0].Marks.size(), 1u);
    expectTheMark(tracks[0].Marks[0]);
}

TEST(TelegramReader, LastLineNeedsNoLineFeed)
{
    const Tracks tracks = readFile(head + "\n" + markLine + "\nEND");
    ASSERT_EQ(tracks.size(), 1u);
    EXPECT_EQ(tracks[0].Marks.size(), 1u);
}

TEST(TelegramReader, LinesGivenDirectlyKeepTheirCarriageReturns)
{
    const Tracks tracks = lTelegramma(Lines{"MPC K88 12345\r", markLine + "\r", "\r"});
    ASSERT_EQ(tracks.size(), 1u);
    expectHead(tracks[0], "MPC", "K88", "12345\r");
    ASSERT_EQ(tracks[0].Marks.size(), 1u);
    expectTheMark(tracks[0].Marks[0]);
}

TEST(TelegramReader, OneWordOfAnyKindClosesABlock)
{
    for (const char* word : {"END", "end", "E", "250223", "END.", "\tEND", "END\t", "A\tB", "\t", "\r", "-"})
    {
        SCOPED_TRACE(word);
        const Tracks tracks = lTelegramma(Lines{head, markLine, word});
        ASSERT_EQ(tracks.size(), 1u);
        expectHead(tracks[0], "MPC", "K88", "12345");
        EXPECT_EQ(tracks[0].Marks.size(), 1u);
    }
}

TEST(TelegramReader, ABlankMakesAWordMoreSoThatTheLineClosesNothing)
{
    for (const char* line : {"", " ", "END ", " END", "END  ", "  END", " END ", "END END", "   ", "\tEND "})
    {
        SCOPED_TRACE(line);
        EXPECT_TRUE(lTelegramma(Lines{head, markLine, line}).empty());
    }
    EXPECT_TRUE(readFile(head + "\n" + markLine + "\nEND \r\n").empty());
    EXPECT_TRUE(readFile(head + "\n" + markLine + "\nEND \t\n").empty());
}

TEST(TelegramReader, BlockThatIsNotClosedIsDropped)
{
    EXPECT_TRUE(lTelegramma(Lines{head, markLine}).empty());
    const Tracks tracks = lTelegramma(Lines{head, markLine, "END", "O T B", markLine, markLine});
    ASSERT_EQ(tracks.size(), 1u);
    expectHead(tracks[0], "MPC", "K88", "12345");
    EXPECT_EQ(tracks[0].Marks.size(), 1u);
}

TEST(TelegramReader, BlockWithoutMarksIsATrackWithoutMarks)
{
    const Tracks tracks = lTelegramma(Lines{head, "END"});
    ASSERT_EQ(tracks.size(), 1u);
    expectHead(tracks[0], "MPC", "K88", "12345");
    EXPECT_TRUE(tracks[0].Marks.empty());
}

TEST(TelegramReader, CloseWithoutHeadGivesADefaultTrack)
{
    const Tracks alone = lTelegramma(Lines{"END"});
    ASSERT_EQ(alone.size(), 1u);
    expectDefaultTrack(alone[0]);

    const Tracks tracks = lTelegramma(Lines{"END", head, markLine, "END", "END", "x"});
    ASSERT_EQ(tracks.size(), 4u);
    expectDefaultTrack(tracks[0]);
    expectHead(tracks[1], "MPC", "K88", "12345");
    EXPECT_EQ(tracks[1].Marks.size(), 1u);
    expectDefaultTrack(tracks[2]);
    expectDefaultTrack(tracks[3]);
}

TEST(TelegramReader, MarkOutsideABlockIsPassedOver)
{
    const Tracks before = lTelegramma(Lines{markLine, head, "END"});
    ASSERT_EQ(before.size(), 1u);
    EXPECT_TRUE(before[0].Marks.empty());

    const Tracks between = lTelegramma(Lines{head, markLine, "END", markLine, "O T B", "END"});
    ASSERT_EQ(between.size(), 2u);
    EXPECT_EQ(between[0].Marks.size(), 1u);
    expectHead(between[1], "O", "T", "B");
    EXPECT_TRUE(between[1].Marks.empty());

    const Tracks closed = lTelegramma(Lines{markLine, "END"});
    ASSERT_EQ(closed.size(), 1u);
    expectDefaultTrack(closed[0]);
}

TEST(TelegramReader, SecondHeadRenamesTheBlockAndKeepsItsMarks)
{
    const Tracks tracks = lTelegramma(Lines{head, markLine, "O T B", markLine, markLine, "END"});
    ASSERT_EQ(tracks.size(), 1u);
    expectHead(tracks[0], "O", "T", "B");
    EXPECT_EQ(tracks[0].Marks.size(), 3u);
}

TEST(TelegramReader, ThreeWordsAreAHeadEvenWhenEmpty)
{
    const struct
    {
        const char* line;
        const char* originator;
        const char* telescope;
        const char* name;
    } rows[] = {
        {"O T N", "O", "T", "N"},
        {" T N", "", "T", "N"},
        {"O  N", "O", "", "N"},
        {"O T ", "O", "T", ""},
        {"  ", "", "", ""},
        {" T ", "", "T", ""},
        {"O\tO T N\t", "O\tO", "T", "N\t"},
        {"END  ", "END", "", ""},
        {"a b END", "a", "b", "END"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.line);
        const Tracks tracks = lTelegramma(Lines{row.line, markLine, "END"});
        ASSERT_EQ(tracks.size(), 1u);
        expectHead(tracks[0], row.originator, row.telescope, row.name);
        EXPECT_EQ(tracks[0].Marks.size(), 1u);
    }
}

TEST(TelegramReader, LinesOfOtherCountsAreNoHead)
{
    for (const char* line :
         {"O T", "O T N X", "O T N ", " O T N", "O  T N", "O T  N", "O T N  ", "O T N X Y", "O T N X Y Z"})
    {
        SCOPED_TRACE(line);
        const Tracks tracks = lTelegramma(Lines{line, markLine, "END"});
        ASSERT_EQ(tracks.size(), 1u);
        expectDefaultTrack(tracks[0]);
    }
}

TEST(TelegramReader, HeadOfFourWordsLeavesItsMarksOut)
{
    const Tracks tracks = lTelegramma(Lines{head, markLine, "END", "O T 2008 TC3", markLine, "END"});
    ASSERT_EQ(tracks.size(), 2u);
    EXPECT_EQ(tracks[0].Marks.size(), 1u);
    expectDefaultTrack(tracks[1]);

    // In an open block it is no head either, and its marks go to the open block.
    const Tracks open = lTelegramma(Lines{head, markLine, "O T 2008 TC3", markLine, "END"});
    ASSERT_EQ(open.size(), 1u);
    expectHead(open[0], "MPC", "K88", "12345");
    EXPECT_EQ(open[0].Marks.size(), 2u);
}

TEST(TelegramReader, LinesOfOtherCountsAreNoMark)
{
    for (const char* line : {
             "250223 12000000 01000000 -00300000",              // four
             "250223 12000000",                                 // two
             "250223 12000000 01000000 -00300000 001095 x",     // six
             "250223 12000000 01000000 -00300000 001095 x y z", // eight
             "250223 12000000 01000000 -00300000 001095 ",      // a blank at the end is a sixth
             " 250223 12000000 01000000 -00300000 001095",      // and so is one before
             "250223  12000000 01000000 -00300000 001095",      // or a second one between
             "250223 12000000 01000000 -00300000  001095",
             "250223\t12000000 01000000 -00300000 001095", // a tab separates nothing
         })
    {
        SCOPED_TRACE(line);
        const Tracks tracks = lTelegramma(Lines{head, line, markLine, "END"});
        ASSERT_EQ(tracks.size(), 1u);
        expectHead(tracks[0], "MPC", "K88", "12345");
        EXPECT_EQ(tracks[0].Marks.size(), 1u);
    }
}

TEST(TelegramReader, LineOfThreeWordsInABlockIsAHead)
{
    const Tracks tracks = lTelegramma(Lines{head, markLine, "250223 12000000 01000000", "END"});
    ASSERT_EQ(tracks.size(), 1u);
    expectHead(tracks[0], "250223", "12000000", "01000000");
    EXPECT_EQ(tracks[0].Marks.size(), 1u);
}

TEST(TelegramReader, DateOfTwoDigitsEach)
{
    const struct
    {
        const char* text;
        int date;
    } rows[] = {
        {"250223", 60000}, {"010195", 86243},                        // always in 2000 to 2099
        {"311299", 88068}, {"010100", 51544},  {"250223999", 60000}, // the rest is not looked at
        {"310223", 60006},                                           // 3 March
        {"+50223", 59980}, {"25022", -605107},                       // the year 202
        {"2502", -671581},                                           // the year 20
        {"251323", 0},                                               // no such month
        {"250023", 0},     {"abcdef", 0},      {"????", 0},
    };
    for (const auto& [text, date] : rows) {
        SCOPED_TRACE(text);
        expectMark(readMark(std::string(text) + " 12000000 01000000 -00300000 001095"),
                   {date, 0.5, 15.0, -0.5, 9.5});
    }
}

TEST(TelegramReader, TimeOfAnyNumberOfDecimals)
{
    const struct
    {
        const char* text;
        double time;
    } rows[] = {
        {"120000", 0.5},
        {"12000000", 0.5},
        {"060000", 0.25},
        {"12345678", day(12, 34, 56.78)},
        {"1234567", day(12, 34, 56.7)},
        {"1234567890123", day(12, 34, 56.7890123)},
        {"12346000", day(12, 34, 60.0)},
        {"120001000", day(12, 0, 1.0)}, // what seconds of 9.996 are written as
        {"240000", 1.0},
        {".53000", day(1, 0, 0.0)},
        {"-10000", -1.0 / 24.0},
        {"120000abc", 0.5},
        {"abcdef", 0.0},
    };
    for (const auto& [text, time] : rows) {
        SCOPED_TRACE(text);
        expectMark(readMark("250223 " + std::string(text) + " 01000000 -00300000 001095"),
                   {60000, time, 15.0, -0.5, 9.5});
    }
}

TEST(TelegramReader, RightAscensionInHours)
{
    const struct
    {
        const char* text;
        double RA;
    } rows[] = {
        {"010000", 15.0},
        {"01000000", 15.0},
        {"12300000", 187.5},
        {"12345678", hours(12, 34, 56.78)},
        {"1234567", hours(12, 34, 56.7)},
        {"123456789", hours(12, 34, 56.789)},
        {"23596000", 360.0},
        {"010000xyz", 15.0},
        {"abcdef", 0.0},
    };
    for (const auto& [text, RA] : rows) {
        SCOPED_TRACE(text);
        expectMark(readMark("250223 12000000 " + std::string(text) + " -00300000 001095"),
                   {60000, 0.5, RA, -0.5, 9.5});
    }
}

TEST(TelegramReader, DeclinationHasThreeCharactersForSignAndDegrees)
{
    const struct
    {
        const char* text;
        double DE;
    } rows[] = {
        {"-003000", -0.5},
        {"-00300000", -0.5},
        {"+00300000", 0.5},
        {"+45232830", degrees(45, 23, 28.30)},
        {"-45232830", -degrees(45, 23, 28.30)},
        {"+452328301", degrees(45, 23, 28.301)},
        {"-00000000", 0.0},
        // Without a sign everything lies one character too far.
        {"00300000", 3.0},
        {"12053012", degrees(120, 53, 1.2)},
        {"abcdefg", 0.0},
    };
    for (const auto& [text, DE] : rows) {
        SCOPED_TRACE(text);
        expectMark(readMark("250223 12000000 01000000 " + std::string(text) + " 001095"),
                   {60000, 0.5, 15.0, DE, 9.5});
    }
}

TEST(TelegramReader, MagnitudeIsThreeCharactersBehindTheFirstThree)
{
    const struct
    {
        const char* text;
        double m;
    } rows[] = {
        {"001153", 15.3},  {"0011539", 15.3}, {"001153x", 15.3}, {"xyz153", 15.3},
        {"001095", 9.5},   {"001", 0.0},      {"0019", 0.9},     {"00195", 9.5},
        {"001-12", -1.2},  {"0010-12", 0.0}, // what -1.2 is written as
        {"0010100", 1.0},                    // and 9.96
        {"0011234", 12.3}, {"0011.5", 0.15},  {"001abc", 0.0},
    };
    for (const auto& [text, m] : rows) {
        SCOPED_TRACE(text);
        expectMark(readMark("250223 12000000 01000000 -00300000 " + std::string(text)),
                   {60000, 0.5, 15.0, -0.5, m});
    }
}

TEST(TelegramReader, ShortWordsOfAMarkRaise)
{
    for (const char* line : {
             "250 12000000 01000000 -00300000 001095", // date below 4
             "250223 12000 01000000 -00300000 001095", // time below 6
             "250223 12000000 01000 -00300000 001095", // right ascension below 6
             "250223 12000000 01000000 -00300 001095", // declination below 7
             "250223 12000000 01000000 003000 001095", // also without its sign
             "250223 12000000 01000000 -00300000 00",  // magnitude field below 3
             " 12000000 01000000 -00300000 001095",    // empty words are short ones
             "250223  01000000 -00300000 001095",
             "250223 12000000  -00300000 001095",
             "250223 12000000 01000000  001095",
             "250223 12000000 01000000 -00300000 ",
             "    ",
             "a b c d e",
         })
    {
        SCOPED_TRACE(line);
        EXPECT_THROW(lTelegramma(Lines{head, line, "END"}), std::out_of_range);
        EXPECT_THROW(lTelegramma(Lines{head, markLine, line}), std::out_of_range);
        EXPECT_THROW(readFile(head + "\n" + line + "\n"), std::out_of_range);
    }
}

TEST(TelegramReader, ShortWordsOutsideABlockRaiseNothing)
{
    for (const char* line : {"a b c d e", "    ", "250223 12000000 01000000 -00300000 00"}) {
        SCOPED_TRACE(line);
        EXPECT_EQ(lTelegramma(Lines{line, head, markLine, "END", line}).size(), 1u);
    }
}

TEST(TelegramReader, ShortestWordsOfAMark)
{
    expectMark(readMark("2502 120000 010000 -003000 001"), {-671581, 0.5, 15.0, -0.5, 0.0});
}

TEST(Telegram, SouthernMarksComeBack)
{
    const TemporaryFolder folder;
    TrackVtorichka track =
        trackNamed("A", {{.date = 60000, .time = 0.5, .RA = 187.5, .DE = -0.5, .m = 9.5},
                         {.date = 60001, .time = 0.25, .RA = 15.0, .DE = -89.25, .m = 15.3}});
    track.originator = "MPC";
    track.telescope = "K88";
    track.REFERENCE_FRAME = "B1950";
    sTelegramma(folder / "a.tel", Tracks{track, track});
    const Tracks read = lTelegramma(folder / "a.tel");
    ASSERT_EQ(read.size(), 2u);
    for (const TrackVtorichka& each : read) {
        expectHead(each, "MPC", "K88", "A");
        ASSERT_EQ(each.Marks.size(), 2u);
        expectMark(each.Marks[0], {60000, 0.5, 187.5, -0.5, 9.5});
        expectMark(each.Marks[1], {60001, 0.25, 15.0, -89.25, 15.3});
    }
}

TEST(Telegram, NorthernMarksComeBackMisplaced)
{
    const TemporaryFolder folder;
    sTelegramma(folder / "a.tel",
                Tracks{trackNamed("A", {{.date = 60000, .DE = degrees(12, 5, 30.12), .m = 15.0}})});
    const Tracks read = lTelegramma(folder / "a.tel");
    ASSERT_EQ(read.size(), 1u);
    ASSERT_EQ(read[0].Marks.size(), 1u);
    expectMark(read[0].Marks[0], {60000, 0.0, 0.0, degrees(120, 53, 1.2), 15.0});
}

TEST(Telegram, NameOfTwoWordsDoesNotComeBack)
{
    const TemporaryFolder folder;
    sTelegramma(folder / "a.tel", Tracks{trackNamed("2008 TC3", {{.date = 60000, .DE = -1.0}})});
    const Tracks read = lTelegramma(folder / "a.tel");
    ASSERT_EQ(read.size(), 1u);
    expectDefaultTrack(read[0]);
}

TEST(Telegram, PublishedNight)
{
    const Tracks tracks = lTelegramma(fixture("telegram/K88_20240120.tel"));
    ASSERT_EQ(tracks.size(), 1u);
    expectHead(tracks[0], "MPC", "K88", "K24B01X");
    ASSERT_EQ(tracks[0].Marks.size(), 130u);
    // 20 January 2024, 21:48:27.36, 7 h 46 min 28.66 s, +45 degrees 23' 28.30", 18.0
    expectMark(tracks[0].Marks.front(),
               {60329, day(21, 48, 27.36), hours(7, 46, 28.66), degrees(45, 23, 28.30), 18.0});
    // 21 January, 00:19:18.45, 7 h 31 min 57.86 s, +47 degrees 43' 19.88", 12.7
    expectMark(tracks[0].Marks.back(),
               {60330, day(0, 19, 18.45), hours(7, 31, 57.86), degrees(47, 43, 19.88), 12.7});
    expectPublished(tracks[0].Marks, publishedMarks("K88_20240120"),
                    {.time = 0.005, .RA = 0.005, .DE = 0.0, .m = 0.05});
}

TEST(Telegram, PublishedNightIsWrittenWithoutPlusSigns)
{
    std::string expected = bytesOf(fixture("telegram/K88_20240120.tel"));
    for (std::size_t at = expected.find('+'); at != std::string::npos; at = expected.find('+')) {
        expected.erase(at, 1);
    }
    EXPECT_EQ(written(lTelegramma(fixture("telegram/K88_20240120.tel"))), expected);
}
