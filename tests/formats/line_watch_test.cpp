// Each line has one fate, whatever its format, and who watches gets the tracks of who does not.

#include "formats/line_watch.h"

#include "formats/mea.h"
#include "formats/mpc_report.h"
#include "formats/ssmas.h"
#include "formats/tdm.h"
#include "formats/telegram.h"
#include "formats/track_table.h"

#include "support/head_fields.h"
#include "support/measured_marks.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <stdexcept>
#include <string>
#include <vector>

using namespace tavelinUtils;

namespace {

using Lines = std::vector<std::string>;
using Tracks = std::vector<TrackVtorichka>;

const char* nameOf(LineFate fate)
{
    switch (fate) {
    case LineFate::head: return "head";
    case LineFate::blank: return "blank";
    case LineFate::mark: return "mark";
    case LineFate::part: return "part";
    case LineFate::end: return "end";
    case LineFate::passed: return "passed";
    case LineFate::lost: return "lost";
    case LineFate::refused: return "refused";
    }
    return "?";
}

const char* nameOf(PassedReason reason)
{
    switch (reason) {
    case PassedReason::none: return "";
    case PassedReason::unknownKey: return " unknown key";
    case PassedReason::replaced: return " replaced";
    case PassedReason::withoutMagnitude: return " without magnitude";
    case PassedReason::wordCount: return " word count";
    case PassedReason::lineLength: return " line length";
    case PassedReason::outsideBlock: return " outside block";
    case PassedReason::unclosedBlock: return " unclosed block";
    case PassedReason::tooShort: return " too short";
    }
    return " ?";
}

// Keeps what it is told, "1 head", "2 passed word count".
class Told : public LineWatch
{
public:
    void settled(const LineReport& report) override
    {
        reports.push_back(report);
    }

    Lines shown()
    {
        std::sort(reports.begin(), reports.end(),
                  [](const LineReport& a, const LineReport& b) { return a.line < b.line; });
        Lines lines;
        for (const LineReport& report : reports) {
            lines.push_back(std::to_string(report.line) + " " + nameOf(report.fate) + nameOf(report.reason));
        }
        return lines;
    }

    std::size_t count(LineFate fate) const
    {
        return static_cast<std::size_t>(
            std::count_if(reports.begin(), reports.end(),
                          [fate](const LineReport& report) { return report.fate == fate; }));
    }

private:
    std::vector<LineReport> reports;
};

std::size_t marksOf(const Tracks& tracks)
{
    std::size_t marks = 0;
    for (const TrackVtorichka& track : tracks) {
        marks += track.Marks.size();
    }
    return marks;
}

const std::string meaMark = "12345   250223 1200000000 0100000000 -0030000000 001 09.50";
const std::string telegramMark = "250223 12000000 01000000 -00300000 001095";

} // namespace

TEST(LineWatch, OfAMeaFile)
{
    const Lines lines = {"K88 2000.0 UTC",
                         meaMark,
                         "",
                         "   ",
                         "12345 250223",
                         meaMark + " x",
                         "12345 250 1200000000 0100000000 -0030000000 001 09.50",
                         meaMark};
    Told told;
    const Tracks tracks = lMEATrack(lines, "observatory", told);
    EXPECT_EQ(told.shown(), (Lines{"1 head", "2 mark", "3 blank", "4 blank", "5 passed word count",
                                   "6 passed word count", "7 refused too short", "8 mark"}));
    EXPECT_EQ(marksOf(tracks), 2U);
    EXPECT_THROW(lMEATrack(lines, "observatory"), std::out_of_range);
}

TEST(LineWatch, OfATelegram)
{
    const Lines lines = {telegramMark, "observatory T1 12345",
                         telegramMark, "",
                         "a b",        "END",
                         "END ",       "observatory T1 2",
                         "x y 3",      "250223 1 01000000 -00300000 001095",
                         telegramMark, "STOP",
                         "END",        "observatory T1 4",
                         telegramMark};
    Told told;
    const Tracks tracks = lTelegramma(lines, told);
    EXPECT_EQ(told.shown(),
              (Lines{"1 passed outside block", "2 head", "3 mark", "4 blank", "5 passed word count", "6 end",
                     "7 passed word count", "8 head", "9 head", "10 refused too short", "11 mark", "12 end",
                     "13 end", "14 lost unclosed block", "15 lost unclosed block"}));
    EXPECT_EQ(tracks.size(), 3U); // a word alone closes a block without a head too
    EXPECT_EQ(marksOf(tracks), 2U);
}

TEST(LineWatch, OfAnMpcReport)
{
    const std::string mark =
        "     AST1001  C2023 02 25.14236 05 38 02.40 +57 07 37.4          15.0 R      500";
    ASSERT_EQ(mark.size(), 80U);
    const Lines lines = {"COD 500", "COD", mark, "", mark + " ", mark, "NOT a keyword"};
    Told told;
    const Tracks tracks = lMPC(lines, told);
    EXPECT_EQ(told.shown(), (Lines{"1 head", "2 refused too short", "3 mark", "4 blank",
                                   "5 passed line length", "6 mark", "7 passed line length"}));
    EXPECT_EQ(marksOf(tracks), 2U);
    EXPECT_THROW(lMPC(lines), std::out_of_range);
}

TEST(LineWatch, OfATrackingMessage)
{
    const TemporaryFolder folder;
    const std::string path = folder / "a.tdm";
    makeFile(path, "CCSDS_TDM_VERS = 1.0\n"                 // 1
                   "ORIGINATOR = K88\n"                     // 2
                   "ANGLE_1 = 2023-02-25T12:00:00.0 15.0\n" // 3
                   "META_START\n"                           // 4
                   "PARTICIPANT_1 = T1\n"                   // 5
                   "\n"                                     // 6
                   "ANGLE_1 = 2023-02-25T12:00:00.0 15.0\n" // 7
                   "ANGLE_1 = 2023-02-25T12:00:01.0 15.0\n" // 8
                   "ANGLE_2 = 2023-02-25T12:00:01.0 -0.5\n" // 9
                   "MAG = 2023-02-25T12:00:01.0 9.5\n"      // 10
                   "MAG = 2023-02-25T12:00:01.0 9.6\n"      // 11
                   "ANGLE_2 = 2023-02-25T12:00:02.0 -0.5\n" // 12
                   "DATA_STOP\n");                          // 13
    Told told;
    const Tracks tracks = lTDM(path, told);
    EXPECT_EQ(told.shown(), (Lines{"1 passed unknown key", "2 head", "3 passed outside block", "4 head",
                                   "5 head", "6 blank", "7 lost replaced", "8 part", "9 part", "10 mark",
                                   "11 mark", "12 lost without magnitude", "13 passed unknown key"}));
    EXPECT_EQ(marksOf(tracks), 2U);
}

TEST(LineWatch, OfASsmasReport)
{
    const std::string mark = "25.02.2023 12:00:00.00  01:00:00.00 -00.30.00.00 001 09.5";
    const Lines front = {"1", "2", "3", "4", "5", "6"};
    Lines lines = front;
    const Lines rest = {"7 7", mark, "", "x", mark, "8 8", "9 9", mark, "a b c d e f g h"};
    lines.insert(lines.end(), rest.begin(), rest.end());
    Told told;
    const Tracks tracks = lckako_meas(lines, "observatory", told);
    EXPECT_EQ(told.shown(), (Lines{"1 head", "2 head", "3 head", "4 head", "5 head", "6 head", "7 head",
                                   "8 mark", "9 blank", "10 end", "11 passed outside block", "12 head",
                                   "13 head", "14 mark", "15 passed word count"}));
    EXPECT_EQ(tracks.size(), lckako_meas(lines, "observatory").size());
}

TEST(LineWatch, OfATrackTable)
{
    const std::string columns = "date:Date\ttime:Time";
    const std::string mark = "2023-02-25\t12:00:00";
    Told told;
    const Tracks tracks = lListTrack(Lines{"v2", columns, mark, "", "---", "---", mark, "---", mark}, told);
    EXPECT_EQ(told.shown(), (Lines{"1 head", "2 head", "3 mark", "4 mark", "5 end", "6 end", "7 mark",
                                   "8 end", "9 lost unclosed block"}));
    EXPECT_EQ(tracks.size(), 3U);
    EXPECT_EQ(marksOf(tracks), 3U);
}

TEST(LineWatch, OfATrackTableWithoutAnEnd)
{
    const TemporaryFolder folder;
    const std::string path = folder / "table.txt";
    makeFile(path, "date:Date\n2023-02-25\n2023-02-26\n");
    Told told;
    EXPECT_EQ(marksOf(lListTrack(path, told)), 2U);
    EXPECT_EQ(told.shown(), (Lines{"1 head", "2 mark", "3 mark"}));
    Told toldOfColumns;
    TrackTableSource source(path, "date", toldOfColumns);
    EXPECT_EQ(source.count(), 1U);
    EXPECT_EQ(toldOfColumns.shown(), told.shown());
}

TEST(LineWatch, OfAMissingFileHearsNothing)
{
    const TemporaryFolder folder;
    Told told;
    EXPECT_TRUE(plMEATrack(folder / "missing", "o", told).empty());
    EXPECT_TRUE(lTelegramma(folder / "missing", told).empty());
    EXPECT_TRUE(lMPC(folder / "missing", told).empty());
    EXPECT_TRUE(lTDM(folder / "missing", told).empty());
    EXPECT_TRUE(lckako_meas(folder / "missing", "o", told).empty());
    EXPECT_TRUE(lListTrack(folder / "missing", told).empty());
    EXPECT_TRUE(told.shown().empty());
}

TEST(LineWatch, OfAFileHearsWhatItsLinesTell)
{
    const TemporaryFolder folder;
    const std::string path = folder / "night.mea";
    makeFile(path, "K88 2000.0 UTC\r\n" + meaMark + "\r\n\r\n" + meaMark + "\t\nshort");
    Told told;
    const Tracks tracks = plMEATrack(path, "observatory", told);
    EXPECT_EQ(told.shown(), (Lines{"1 head", "2 mark", "3 blank", "4 mark", "5 passed word count"}));
    EXPECT_EQ(told.count(LineFate::mark), marksOf(tracks));
}

namespace {

// A text with a few random changes, of bytes and of lines.
std::string changed(std::string text, unsigned& state)
{
    const auto below = [&state](std::size_t limit) {
        state = state * 1664525U + 1013904223U;
        return (state >> 8) % limit;
    };
    for (std::size_t changes = below(6); changes > 0 && !text.empty(); --changes) {
        const std::size_t at = below(text.size());
        switch (below(4)) {
        case 0: text.erase(at, 1 + below(12)); break;
        case 1: text.insert(at, 1, " \t\n-.5"[below(6)]); break;
        case 2: text[at] = static_cast<char>(below(256)); break;
        default: text.insert(0, text.substr(at, below(200))); break;
        }
    }
    return text;
}

std::size_t linesOf(const std::string& text)
{
    const auto feeds = static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
    return feeds + (text.empty() || text.back() == '\n' ? 0 : 1);
}

// Each line has one fate, and no line has two.
void expectOneFateEach(Told& told, const std::string& text)
{
    const Lines shown = told.shown();
    ASSERT_EQ(shown.size(), linesOf(text));
    for (std::size_t i = 0; i < shown.size(); ++i) {
        ASSERT_EQ(shown[i].substr(0, shown[i].find(' ')), std::to_string(i + 1));
    }
}

void expectSameTracks(const Tracks& tracks, const Tracks& expected)
{
    ASSERT_EQ(tracks.size(), expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i) {
        expectSameHead(tracks[i], expected[i]);
        ASSERT_EQ(tracks[i].Marks.size(), expected[i].Marks.size());
        for (std::size_t mark = 0; mark < expected[i].Marks.size(); ++mark) {
            ASSERT_EQ(measured(tracks[i].Marks[mark]), measured(expected[i].Marks[mark]));
        }
    }
}

// Reads a file with a watch and without. Returns whether the reader without one takes it.
template <class Read, class ReadWatched>
bool expectSameReading(const std::string& text, Read read, ReadWatched readWatched)
{
    Told told;
    const Tracks watched = readWatched(told);
    expectOneFateEach(told, text);
    try {
        expectSameTracks(watched, read());
    } catch (const std::out_of_range&) {
        EXPECT_GT(told.count(LineFate::refused), 0U);
        return false;
    }
    EXPECT_EQ(told.count(LineFate::refused), 0U);
    return true;
}

} // namespace

TEST(LineWatch, ReadersGiveTheSameTracksAndEachLineOneFate)
{
    const TemporaryFolder folder;
    const std::string path = folder / "file";
    const Lines texts = {
        "K88 2000.0 UTC\n" + meaMark + "\n" + meaMark + "\n\n" + meaMark + "\n",
        "observatory T1 12345\n" + telegramMark + "\n" + telegramMark + "\nEND\n\nobservatory T1 2\n" +
            telegramMark + "\nEND\n",
        "CCSDS_TDM_VERS = 1.0\nMETA_START\nPARTICIPANT_2 = 5\nANGLE_1 = 2023-02-25T12:00:00.0 15.0\n"
        "ANGLE_2 = 2023-02-25T12:00:00.0 5.0\nMAG = 2023-02-25T12:00:00.0 5.0\nDATA_STOP\n",
        "1\n2\n3\n4\n5\n6\n7 7\n25.02.2023 12:00:00.00  01:00:00.00 -00.30.00.00 001 09.5\n8 8\n",
        "COD 500\n     AST1001  C2023 02 25.14236 05 38 02.40 +57 07 37.4          15.0 R      500\n",
        "v2\ndate:Date\ttime:Time\tRA:Float\n2023-02-25\t12:00:00\t5.5\n---\n2023-02-26\t1:2:3\t6\n---\n"};
    unsigned state = 5;
    std::size_t taken = 0;
    std::size_t refused = 0;
    for (int round = 0; round < 1500; ++round) {
        const std::string text = changed(texts[static_cast<std::size_t>(round) % texts.size()], state);
        SCOPED_TRACE(text);
        makeFile(path, text);
        const bool results[] = {
            expectSameReading(
                text, [&] { return plMEATrack(path, "o"); },
                [&](Told& told) { return plMEATrack(path, "o", told); }),
            expectSameReading(
                text, [&] { return lTelegramma(path); }, [&](Told& told) { return lTelegramma(path, told); }),
            expectSameReading(
                text, [&] { return lTDM(path); }, [&](Told& told) { return lTDM(path, told); }),
            expectSameReading(
                text, [&] { return lckako_meas(path, "o"); },
                [&](Told& told) { return lckako_meas(path, "o", told); }),
            expectSameReading(
                text, [&] { return lMPC(path); }, [&](Told& told) { return lMPC(path, told); }),
            expectSameReading(
                text, [&] { return lListTrack(path); }, [&](Told& told) { return lListTrack(path, told); })};
        const auto good = static_cast<std::size_t>(std::count(std::begin(results), std::end(results), true));
        taken += good;
        refused += std::size(results) - good;
        ASSERT_FALSE(testing::Test::HasFailure());
    }
    EXPECT_GT(taken, 4000U);
    EXPECT_GT(refused, 40U);
}
