#include "formats/mea.h"

#include "support/measured_marks.h"
#include "support/places.h"
#include "support/sexagesimal.h"
#include "support/temporary_folder.h"
#include "support/tracks.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cstddef>
#include <stdexcept>
#include <string>
#include <vector>

using namespace tavelinUtils;

namespace {

using Lines = std::vector<std::string>;
using Tracks = std::vector<TrackVtorichka>;

const std::string site = "T1 2000.0 UTC";
const std::string markLine = "12345   250223 1200000000 0100000000 -0030000000 001 09.50";

Tracks read(const Lines& markLines)
{
    Lines lines = markLines;
    lines.insert(lines.begin(), site);
    return lMEATrack(lines, "observatory");
}

Tracks readFile(const std::string& bytes)
{
    return readBy([](const std::string& path) { return plMEATrack(path, "observatory"); }, bytes);
}

// The mark of a line with these five fields.
TRecLabelPervichka_File readMark(const std::string& date, const std::string& time, const std::string& RA,
                                 const std::string& DE, const std::string& magnitude)
{
    return onlyMark(read({"N " + date + " " + time + " " + RA + " " + DE + " 001 " + magnitude}));
}

std::vector<std::string> namesOf(const Tracks& tracks)
{
    std::vector<std::string> names;
    for (const TrackVtorichka& track : tracks) {
        names.push_back(track.QRVName);
    }
    return names;
}

std::vector<double> magnitudesOf(const TrackVtorichka& track)
{
    std::vector<double> magnitudes;
    for (const TRecLabelPervichka_File& mark : track.Marks) {
        magnitudes.push_back(mark.m);
    }
    return magnitudes;
}

// Restores the numeric locale of the process.
class NumericLocale
{
public:
    explicit NumericLocale(const char* name) : before(std::setlocale(LC_NUMERIC, nullptr))
    {
        EXPECT_NE(std::setlocale(LC_NUMERIC, name), nullptr) << "no locale " << name;
    }
    ~NumericLocale()
    {
        std::setlocale(LC_NUMERIC, before.c_str());
    }
    NumericLocale(const NumericLocale&) = delete;
    NumericLocale& operator=(const NumericLocale&) = delete;

private:
    std::string before;
};

} // namespace

// Reading: the head.

TEST(MeaReader, FillsTheHeadOfATrack)
{
    const Tracks tracks = lMEATrack(Lines{site, markLine}, "A. Observer");
    ASSERT_EQ(tracks.size(), 1U);
    const TrackVtorichka& track = tracks[0];
    EXPECT_EQ(track.telescope, "T1");
    EXPECT_EQ(track.originator, "A. Observer");
    EXPECT_EQ(track.QRVName, "12345");
    EXPECT_EQ(track.NORAD, "12345");
}

TEST(MeaReader, LeavesTheRestOfTheHeadAsConstructed)
{
    const Tracks tracks = read({markLine});
    ASSERT_EQ(tracks.size(), 1U);
    const TrackVtorichka& track = tracks[0];
    EXPECT_EQ(track.MPCChecker, "");
    EXPECT_EQ(track.HeadText2, "");
    EXPECT_EQ(track.HeadText3, "");
    EXPECT_EQ(track.REFERENCE_FRAME, "ICRF");
    EXPECT_EQ(track.Series, "");
    EXPECT_EQ(track.FindOrb, 999.0);
    EXPECT_EQ(track.N, 0);
    EXPECT_EQ(track.NMarks, 0);
    EXPECT_EQ(static_cast<int>(track.TrMade), 0);
    EXPECT_EQ(track.MPCHeader.COD, "500");
    EXPECT_EQ(track.ObsCode, "aavso");
    EXPECT_EQ(track.SourceFile, "");
    EXPECT_TRUE(track.InterBlobs.empty());
    EXPECT_TRUE(track.Candidates.empty());
    EXPECT_TRUE(track.Cast.empty());
}

TEST(MeaReader, TelescopeIsTheFirstTokenOfTheFirstLine)
{
    const struct
    {
        const char* line;
        const char* telescope;
    } rows[] = {
        {"T1 2000.0 UTC", "T1"},
        {"T1", "T1"},
        {"T1 ", "T1"},
        {"Zeiss 1000 2000.0 UTC", "Zeiss"},
        {" T1 2000.0 UTC", ""},
        {"", ""},
        {" ", ""},
        {"T1\t2000.0\tUTC", "T1\t2000.0\tUTC"},
        {"T\xc3\xa9l\xc3\xa9scope-1 2000.0 UTC", "T\xc3\xa9l\xc3\xa9scope-1"},
        {"12345   250223 1200000000 0100000000 -0030000000 001 09.50", "12345"},
    };
    for (const auto& [line, telescope] : rows) {
        SCOPED_TRACE(line);
        const Tracks tracks = lMEATrack(Lines{line, markLine}, "");
        ASSERT_EQ(tracks.size(), 1U);
        EXPECT_EQ(tracks[0].telescope, telescope);
        EXPECT_EQ(tracks[0].originator, "");
        EXPECT_EQ(tracks[0].Marks.size(), 1U);
    }
}

TEST(MeaReader, FirstLineIsNeverAMark)
{
    EXPECT_TRUE(lMEATrack(Lines{markLine}, "observatory").empty());
    const Tracks tracks = lMEATrack(Lines{markLine, markLine}, "observatory");
    ASSERT_EQ(tracks.size(), 1U);
    EXPECT_EQ(tracks[0].Marks.size(), 1U);
}

TEST(MeaReader, FewerThanTwoLinesGiveNothing)
{
    EXPECT_TRUE(lMEATrack(Lines{}, "observatory").empty());
    EXPECT_TRUE(lMEATrack(Lines{site}, "observatory").empty());
    EXPECT_TRUE(lMEATrack(Lines{""}, "observatory").empty());
}

// Reading: the marks.

TEST(MeaReader, ReadsTheFieldsOfAMark)
{
    const Tracks tracks = read({"12345   150923 2359598760 1234567891 -0812345678 001 15.37"});
    ASSERT_EQ(tracks.size(), 1U);
    ASSERT_EQ(tracks[0].Marks.size(), 1U);
    expectMark(tracks[0].Marks[0],
               {60202, day(23, 59, 59.876), hours(12, 34, 56.7891), -degrees(8, 12, 34.5678), 15.37});
}

TEST(MeaReader, ReadsDates)
{
    const struct
    {
        const char* text;
        int date;
    } rows[] = {
        {"010100", 51544},
        {"250223", 60000},
        {"290224", 60369},
        // 2099
        {"311299", 88068},
        // 3 March and 28 February
        {"310223", 60006},
        {"000323", 60003},
        // no such month
        {"011323", 0},
        {"010023", 0},
        {"abcdef", 0},
        // the years 20 and 202
        {"2502", -671581},
        {"25022", -605107},
        // further characters do not count
        {"2502239", 60000},
        {"25022399", 60000},
    };
    for (const auto& [text, date] : rows) {
        SCOPED_TRACE(text);
        EXPECT_EQ(measured(readMark(text, "120000", "010000", "-003000", "1")).date, date);
    }
}

TEST(MeaReader, ReadsTimesOfAnyNumberOfDecimals)
{
    const struct
    {
        const char* text;
        double time;
    } rows[] = {
        {"1200000000", 0.5},
        {"120000", 0.5},
        {"0000000000", 0.0},
        {"0600005", day(6, 0, 0.5)},
        {"1234559990", day(12, 34, 55.999)},
        {"123455999012345", day(12, 34, 55.999012345)},
        {"2400000000", 1.0},
        {"2359600000", 1.0},
        {"abcdefghij", 0.0},
        {"12ab30", day(12, 0, 30.0)},
    };
    for (const auto& [text, time] : rows) {
        SCOPED_TRACE(text);
        EXPECT_DOUBLE_EQ(measured(readMark("250223", text, "010000", "-003000", "1")).time, time);
    }
}

TEST(MeaReader, ReadsRightAscensions)
{
    const struct
    {
        const char* text;
        double RA;
    } rows[] = {
        {"0100000000", 15.0},
        {"010000", 15.0},
        {"0000000000", 0.0},
        {"1234567891", hours(12, 34, 56.7891)},
        {"2359600000", 360.0},
        {"2400000000", 360.0},
        {"12345678912345", hours(12, 34, 56.78912345)},
        {"abcdefghij", 0.0},
        {"ab3015", hours(0, 30, 15.0)},
    };
    for (const auto& [text, RA] : rows) {
        SCOPED_TRACE(text);
        EXPECT_DOUBLE_EQ(measured(readMark("250223", "120000", text, "-003000", "1")).RA, RA);
    }
}

TEST(MeaReader, ReadsDeclinationsWithASign)
{
    const struct
    {
        const char* text;
        double DE;
    } rows[] = {
        {"-0030000000", -0.5},
        {"+0030000000", 0.5},
        {"-003000", -0.5},
        {"+1205301234", degrees(12, 5, 30.1234)},
        {"-1205301234", -degrees(12, 5, 30.1234)},
        {"-9000000000", -90.0},
        {"-0000000001", -degrees(0, 0, 0.0001)},
        {"+8959600000", 90.0},
        {"+1205301234567", degrees(12, 5, 30.1234567)},
        {"abcdefghijk", 0.0},
        {"-ab3000", -0.5},
    };
    for (const auto& [text, DE] : rows) {
        SCOPED_TRACE(text);
        EXPECT_DOUBLE_EQ(measured(readMark("250223", "120000", "010000", text, "1")).DE, DE);
    }
}

TEST(MeaReader, TakesThreeCharactersForSignAndDegreesWhateverStandsThere)
{
    EXPECT_DOUBLE_EQ(measured(readMark("250223", "120000", "010000", "1205301234", "1")).DE,
                     degrees(120, 53, 1.234));
    EXPECT_DOUBLE_EQ(measured(readMark("250223", "120000", "010000", "0030000000", "1")).DE, 3.0);
    EXPECT_DOUBLE_EQ(measured(readMark("250223", "120000", "010000", "0000000", "1")).DE, 0.0);
}

TEST(MeaReader, ReadsMagnitudes)
{
    const struct
    {
        const char* text;
        double m;
    } rows[] = {
        {"09.50", 9.5}, {"-01.20", -1.2}, {"00.00", 0.0}, {"010.00", 10.0}, {"9", 9.0},     {"+9.5", 9.5},
        {"1e1", 10.0},  {"9.5mag", 9.5},  {".5", 0.5},    {"9,5", 9.0},     {"faint", 0.0}, {"-", 0.0},
    };
    for (const auto& [text, m] : rows) {
        SCOPED_TRACE(text);
        EXPECT_DOUBLE_EQ(measured(readMark("250223", "120000", "010000", "-003000", text)).m, m);
    }
}

TEST(MeaReader, SixthTokenMayBeAnything)
{
    for (const char* token : {"001", "999", "-1", "abc", "99999999999999999999", "0.5"}) {
        SCOPED_TRACE(token);
        const Tracks tracks =
            read({std::string("12345 250223 1200000000 0100000000 -0030000000 ") + token + " 09.50"});
        ASSERT_EQ(tracks.size(), 1U);
        ASSERT_EQ(tracks[0].Marks.size(), 1U);
        expectMark(tracks[0].Marks[0], {60000, 0.5, 15.0, -0.5, 9.5});
    }
}

TEST(MeaReader, RunsOfBlanksActAsOne)
{
    const Tracks tracks = read({
        "12345 250223 1200000000 0100000000 -0030000000 001 09.50",
        "12345  250223  1200000000  0100000000  -0030000000  001  09.50",
        "   12345      250223 1200000000 0100000000     -0030000000 001 09.50",
        "12345 250223 1200000000 0100000000 -0030000000 001 09.50 ",
        "  12345 250223 1200000000 0100000000 -0030000000 001 09.50     ",
    });
    ASSERT_EQ(tracks.size(), 1U);
    ASSERT_EQ(tracks[0].Marks.size(), 5U);
    for (const TRecLabelPervichka_File& mark : tracks[0].Marks) {
        expectMark(mark, {60000, 0.5, 15.0, -0.5, 9.5});
    }
}

TEST(MeaReader, LinesOfAnotherTokenCountArePassedOver)
{
    const Tracks tracks = read({
        "",
        " ",
        "          ",
        "12345",
        "12345 250223 1200000000 0100000000 -0030000000 001",
        "12345 250223 1200000000 0100000000 -0030000000 001 01.00 R",
        "2019 AB1 250223 1200000000 0100000000 -0030000000 001 02.00",
        "12345\t250223 1200000000 0100000000 -0030000000 001 03.00",
        "12345\t250223\t1200000000\t0100000000\t-0030000000\t001\t04.00",
        "12345 250223 1200000000 0100000000 -0030000000 001 \t 05.00",
        "COD 500",
        markLine,
    });
    ASSERT_EQ(namesOf(tracks), std::vector<std::string>{"12345"});
    EXPECT_EQ(magnitudesOf(tracks[0]), std::vector<double>{9.5});
}

TEST(MeaReader, TabsBelongToTheirTokens)
{
    const Tracks tracks = read({
        "\t12345 250223 1200000000 0100000000 -0030000000 001 01.00",
        "12345\t 250223 1200000000 0100000000 -0030000000 001 02.00",
        "12345 250223 1200000000 0100000000 -0030000000 001 \t03.00",
        "12345 250223 1200000000 0100000000 -0030000000 001 04.00\t",
        "12345 250223 1200000000 0100000000 -0030000000 \t 05.00",
    });
    ASSERT_EQ(namesOf(tracks), (std::vector<std::string>{"\t12345", "12345\t", "12345"}));
    EXPECT_EQ(magnitudesOf(tracks[2]), (std::vector<double>{3.0, 4.0, 5.0})) << "the tab is the sixth token";
}

TEST(MeaReader, MarksOfAnObjectComeTogetherFromAllOverTheFile)
{
    const std::string fields = " 250223 1200000000 0100000000 -0030000000 001 ";
    const Tracks tracks = read({"B" + fields + "1", "A" + fields + "2", "B" + fields + "3",
                                "C" + fields + "4", "a" + fields + "5", "A" + fields + "6",
                                "B" + fields + "7", "A" + fields + "8", "AB" + fields + "9"});
    ASSERT_EQ(namesOf(tracks), (std::vector<std::string>{"B", "A", "C", "a", "AB"}));
    EXPECT_EQ(magnitudesOf(tracks[0]), (std::vector<double>{1, 3, 7}));
    EXPECT_EQ(magnitudesOf(tracks[1]), (std::vector<double>{2, 6, 8}));
    EXPECT_EQ(magnitudesOf(tracks[2]), (std::vector<double>{4}));
    EXPECT_EQ(magnitudesOf(tracks[3]), (std::vector<double>{5}));
    EXPECT_EQ(magnitudesOf(tracks[4]), (std::vector<double>{9}));
    for (const TrackVtorichka& track : tracks) {
        EXPECT_EQ(track.telescope, "T1");
        EXPECT_EQ(track.originator, "observatory");
        EXPECT_EQ(track.NORAD, track.QRVName);
    }
}

TEST(MeaReader, MarksStandInTheOrderOfTheFileAndNotOfTime)
{
    const Tracks tracks = read({
        "A 250223 1800000000 0100000000 -0030000000 001 1",
        "A 250223 0600000000 0100000000 -0030000000 001 2",
        "A 240223 1200000000 0100000000 -0030000000 001 3",
    });
    ASSERT_EQ(tracks.size(), 1U);
    EXPECT_EQ(magnitudesOf(tracks[0]), (std::vector<double>{1, 2, 3}));
}

TEST(MeaReader, ListHasNoSpareCapacity)
{
    const std::string fields = " 250223 1200000000 0100000000 -0030000000 001 1";
    for (const std::size_t count : {1U, 3U, 5U, 9U}) {
        Lines lines;
        for (std::size_t i = 0; i < count; ++i) {
            lines.push_back(std::to_string(i) + fields);
        }
        const Tracks tracks = read(lines);
        EXPECT_EQ(tracks.size(), count);
        EXPECT_EQ(tracks.capacity(), count);
    }
}

TEST(MeaReader, NamesKeepTheirBytes)
{
    const std::string fields = " 250223 1200000000 0100000000 -0030000000 001 1";
    const Tracks tracks = read({"123456789" + fields, "C\xc3\xa9r\xc3\xa8s" + fields, "\xe9" + fields,
                                "a-very-long-name-of-an-object-that-no-column-holds" + fields});
    ASSERT_EQ(namesOf(tracks),
              (std::vector<std::string>{"123456789", "C\xc3\xa9r\xc3\xa8s", "\xe9",
                                        "a-very-long-name-of-an-object-that-no-column-holds"}));
}

TEST(MeaReader, ShortTokensRaiseOutOfRange)
{
    const char* lines[] = {
        "N 250 1200000000 0100000000 -0030000000 001 09.50",
        "N 2 1200000000 0100000000 -0030000000 001 09.50",
        "N 250223 12000 0100000000 -0030000000 001 09.50",
        "N 250223 1 0100000000 -0030000000 001 09.50",
        "N 250223 1200000000 01000 -0030000000 001 09.50",
        "N 250223 1200000000 0 -0030000000 001 09.50",
        "N 250223 1200000000 0100000000 -00300 001 09.50",
        "N 250223 1200000000 0100000000 - 001 09.50",
        "a b c d e f g",
    };
    for (const char* line : lines) {
        SCOPED_TRACE(line);
        EXPECT_THROW(read({line}), std::out_of_range);
        EXPECT_THROW(read({markLine, markLine, line, markLine}), std::out_of_range);
        EXPECT_THROW(readFile(site + "\n" + line + "\n"), std::out_of_range);
    }
}

TEST(MeaReader, ShortTokensOfLinesThatArePassedOverDoNotMatter)
{
    EXPECT_TRUE(read({"N 2 1 0 - 001", "N 2 1 0 - 001 09.50 R"}).empty());
}

TEST(MeaReader, ShortestTokensAreTaken)
{
    expectMark(readMark("250223", "120000", "010000", "-003000", "1"), {60000, 0.5, 15.0, -0.5, 1.0});
    EXPECT_NO_THROW(readMark("2502", "120000", "010000", "-003000", "1"));
}

TEST(MeaReader, TokensThatAreNoNumbersCountAsZero)
{
    expectMark(readMark("xxxxxx", "xxxxxx", "xxxxxx", "xxxxxxx", "x"), {0, 0.0, 0.0, 0.0, 0.0});
}

// Reading: files.

TEST(MeaReader, ReadsAFile)
{
    const Tracks tracks = readFile("T1 2000.0 UTC\n"
                                   "12345   250223 1200000000 0100000000 -0030000000 001 09.50\n"
                                   "54321   250223 0600000000 0200000000 +0130000000 001 -01.20\n");
    ASSERT_EQ(namesOf(tracks), (std::vector<std::string>{"12345", "54321"}));
    ASSERT_EQ(tracks[1].Marks.size(), 1U);
    EXPECT_EQ(tracks[1].telescope, "T1");
    EXPECT_EQ(tracks[1].originator, "observatory");
    expectMark(tracks[0].Marks[0], {60000, 0.5, 15.0, -0.5, 9.5});
    expectMark(tracks[1].Marks[0], {60000, 0.25, 30.0, 1.5, -1.2});
}

TEST(MeaReader, LineEndingsOfBothKindsAndBlanksAtTheEndReadAlike)
{
    for (const std::string end : {"\n", "\r\n", "\t\n", "\t\r\n", " \n", " \r\n", "\r\r\n"}) {
        const Tracks tracks = readFile(site + end + markLine + end + end + markLine + end);
        ASSERT_EQ(tracks.size(), 1U);
        EXPECT_EQ(tracks[0].telescope, "T1");
        ASSERT_EQ(tracks[0].Marks.size(), 2U);
        expectMark(tracks[0].Marks[1], {60000, 0.5, 15.0, -0.5, 9.5});
    }
}

TEST(MeaReader, LineFeedAtTheEndMayBeMissing)
{
    const Tracks tracks = readFile(site + "\n" + markLine + "\n" + markLine);
    ASSERT_EQ(tracks.size(), 1U);
    EXPECT_EQ(tracks[0].Marks.size(), 2U);
}

TEST(MeaReader, EmptyFirstLineOfAFileGivesAnEmptyTelescope)
{
    const Tracks tracks = readFile("\n" + markLine + "\n");
    ASSERT_EQ(tracks.size(), 1U);
    EXPECT_EQ(tracks[0].telescope, "");
    EXPECT_EQ(tracks[0].Marks.size(), 1U);
}

TEST(MeaReader, FilesOfFewerThanTwoLinesGiveNothing)
{
    EXPECT_TRUE(readFile("").empty());
    EXPECT_TRUE(readFile("\n").empty());
    EXPECT_TRUE(readFile(site).empty());
    EXPECT_TRUE(readFile(site + "\n").empty());
    EXPECT_TRUE(readFile(site + "\n\n").empty());
}

TEST(MeaReader, MissingFileAndAFolderGiveNothing)
{
    const TemporaryFolder folder;
    EXPECT_TRUE(plMEATrack(folder / "missing.mea", "observatory").empty());
    EXPECT_FALSE(exists(folder / "missing.mea"));
    EXPECT_TRUE(plMEATrack("", "observatory").empty());
    EXPECT_TRUE(plMEATrack(folder.path(), "observatory").empty());
}

TEST(MeaReader, PutsTheNumericLocaleToC)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.mea", site + "\n" + markLine + "\n");
    const NumericLocale other("C.UTF-8");
    plMEATrack(folder / "a.mea", "observatory");
    EXPECT_STREQ(std::setlocale(LC_NUMERIC, nullptr), "C");
}

TEST(MeaReader, MissingFileLeavesTheNumericLocale)
{
    const TemporaryFolder folder;
    const NumericLocale other("C.UTF-8");
    plMEATrack(folder / "missing.mea", "observatory");
    EXPECT_STREQ(std::setlocale(LC_NUMERIC, nullptr), "C.UTF-8");
}

TEST(MeaReader, ReadsANightOfInterleavedObjects)
{
    const Tracks tracks = plMEATrack(fixture("mea/interleaved_objects.mea"), "observatory");
    ASSERT_EQ(namesOf(tracks), (std::vector<std::string>{"K11Ue6X", "Z4218", "K11V22U"}));
    for (const TrackVtorichka& track : tracks) {
        EXPECT_EQ(track.telescope, "926");
        ASSERT_EQ(track.Marks.size(), 3U);
    }
    EXPECT_EQ(magnitudesOf(tracks[0]), (std::vector<double>{19.8, 19.7, 19.4}));
    EXPECT_EQ(magnitudesOf(tracks[2]), (std::vector<double>{20.0, 20.1, 19.9}));
    expectMark(tracks[0].Marks[0],
               {56324, day(11, 50, 39.264), hours(10, 11, 33.39), degrees(24, 31, 26.0), 19.8});
    expectMark(tracks[1].Marks[2],
               {56324, day(12, 37, 12.576), hours(10, 11, 31.36), degrees(24, 31, 35.0), 19.4});
    expectMark(tracks[2].Marks[1],
               {56324, day(7, 5, 8.736), hours(9, 20, 40.53), degrees(5, 32, 24.8), 20.1});
}

TEST(MeaReader, ReadsANightOfBothSignsOfDeclination)
{
    const Tracks tracks = plMEATrack(fixture("mea/both_signs_of_declination.mea"), "observatory");
    ASSERT_EQ(namesOf(tracks), (std::vector<std::string>{"K11O59E", "K11WF0Z"}));
    ASSERT_EQ(tracks[0].Marks.size(), 3U);
    ASSERT_EQ(tracks[1].Marks.size(), 3U);
    EXPECT_EQ(tracks[0].telescope, "644");
    expectMark(tracks[0].Marks[0],
               {54019, day(10, 16, 1.92), hours(2, 50, 1.19), -degrees(3, 0, 55.4), 20.7});
    expectMark(tracks[0].Marks[2],
               {54019, day(10, 56, 33.216), hours(2, 50, 0.14), -degrees(3, 1, 2.5), 20.7});
    expectMark(tracks[1].Marks[0],
               {54019, day(4, 9, 49.536), hours(0, 17, 2.3), degrees(20, 23, 32.4), 20.0});
    expectMark(tracks[1].Marks[2],
               {54019, day(5, 10, 45.984), hours(0, 16, 59.78), degrees(20, 23, 29.0), 20.2});
}

// What is written and read back.

TEST(Mea, NegativeDeclinationsComeBack)
{
    const TemporaryFolder folder;
    TrackVtorichka first = trackNamed(
        "12345", {{.date = 60000, .time = 0.5, .RA = 15.0, .DE = -12.091700944444445, .m = 9.5},
                  {.date = 60001, .time = 0.25, .RA = hours(12, 34, 56.7891), .DE = -0.5, .m = -1.2}});
    first.telescope = "T1";
    const TrackVtorichka second =
        trackNamed("123456789", {{.date = 60001, .time = 0.75, .RA = 30.0, .DE = -89.0, .m = 20.25}});
    sMEA(folder / "a.mea", {first, second});
    const Tracks tracks = plMEATrack(folder / "a.mea", "observatory");
    ASSERT_EQ(namesOf(tracks), (std::vector<std::string>{"12345", "123456789"}));
    ASSERT_EQ(tracks[0].Marks.size(), 2U);
    ASSERT_EQ(tracks[1].Marks.size(), 1U);
    EXPECT_EQ(tracks[0].telescope, "T1");
    EXPECT_EQ(tracks[1].telescope, "T1");
    expectMark(tracks[0].Marks[0], {60000, 0.5, 15.0, -degrees(12, 5, 30.1234), 9.5});
    expectMark(tracks[0].Marks[1], {60001, 0.25, hours(12, 34, 56.7891), -0.5, -1.2});
    expectMark(tracks[1].Marks[0], {60001, 0.75, 30.0, -89.0, 20.25});
}

TEST(Mea, PositiveDeclinationsComeBackMisplaced)
{
    const TemporaryFolder folder;
    sMEA(folder / "a.mea", {trackNamed("A", {{.DE = 12.091700944444445}, {.DE = 0.5}, {.DE = 89.5}})});
    const Tracks tracks = plMEATrack(folder / "a.mea", "observatory");
    ASSERT_EQ(tracks.size(), 1U);
    ASSERT_EQ(tracks[0].Marks.size(), 3U);
    EXPECT_DOUBLE_EQ(measured(tracks[0].Marks[0]).DE, degrees(120, 53, 1.234));
    EXPECT_DOUBLE_EQ(measured(tracks[0].Marks[1]).DE, 3.0);
    EXPECT_DOUBLE_EQ(measured(tracks[0].Marks[2]).DE, 893.0);
}

TEST(Mea, DatesOfTheLastCenturyComeBackInThisOne)
{
    const TemporaryFolder folder;
    sMEA(folder / "a.mea", {trackNamed("A", {{.date = 51543, .DE = -1.0}})});
    const Tracks tracks = plMEATrack(folder / "a.mea", "observatory");
    ASSERT_EQ(tracks.size(), 1U);
    EXPECT_EQ(measured(tracks[0].Marks[0]).date, 88068);
}

TEST(Mea, EmptyNamesAndNamesWithABlankDoNotComeBack)
{
    const TemporaryFolder folder;
    sMEA(folder / "a.mea", {trackNamed("", {{.DE = -1.0}}), trackNamed("2019 AB1", {{.DE = -1.0}}),
                            trackNamed("A", {{.DE = -1.0}})});
    EXPECT_EQ(namesOf(plMEATrack(folder / "a.mea", "observatory")), std::vector<std::string>{"A"});
}

TEST(Mea, TracksOfOneNameComeBackAsOne)
{
    const TemporaryFolder folder;
    sMEA(folder / "a.mea",
         {trackNamed("A", {{.m = 11.0}}), trackNamed("B", {{.m = 12.0}}), trackNamed("A", {{.m = 13.0}})});
    const Tracks tracks = plMEATrack(folder / "a.mea", "observatory");
    ASSERT_EQ(namesOf(tracks), (std::vector<std::string>{"A", "B"}));
    EXPECT_EQ(magnitudesOf(tracks[0]), (std::vector<double>{11.0, 13.0}));
}

TEST(Mea, TimesLoseWhatTheirSecondsAreCutBy)
{
    const TemporaryFolder folder;
    sMEA(folder / "a.mea", {trackNamed("A", {{.date = 60000, .time = day(12, 34, 56.0), .DE = -1.0}})});
    const Tracks tracks = plMEATrack(folder / "a.mea", "observatory");
    ASSERT_EQ(tracks.size(), 1U);
    EXPECT_DOUBLE_EQ(measured(tracks[0].Marks[0]).time, day(12, 34, 55.999));
}

TEST(MeaWithEphemeris, ReadsBackAsPlainMea)
{
    const TemporaryFolder folder;
    TrackVtorichka track = trackNamed("12345", {theMark()});
    track.telescope = "T1";
    sMEA_TLE(folder / "a.mea", {track});
    const Tracks tracks = plMEATrack(folder / "a.mea", "observatory");
    ASSERT_EQ(namesOf(tracks), std::vector<std::string>{"12345"});
    EXPECT_EQ(tracks[0].telescope, "T1");
    expectMark(tracks[0].Marks[0], {60000, 0.5, 15.0, -0.5, 9.5});
}
