// What a track's lines do not say is as in a new head, whatever the tracks before it had, unless its format
// says otherwise.

#include "files/essentials.h"
#include "formats/mea.h"
#include "formats/mpc_report.h"
#include "formats/ssmas.h"
#include "formats/tdm.h"
#include "formats/telegram.h"
#include "formats/track_table.h"

#include "support/head_fields.h"
#include "support/mark_fields.h"
#include "support/measured_marks.h"
#include "support/mpc_reports.h"
#include "support/ssmas_lines.h"
#include "support/temporary_folder.h"
#include "support/track_tables.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <vector>

using namespace tavelinUtils;

namespace {

using Lines = std::vector<std::string>;
using Tracks = std::vector<TrackVtorichka>;

// The head of a track that a reader of measurements has named.
THeadTrVtor headOf(const std::string& name, const std::string& norad, const std::string& telescope,
                   const std::string& originator)
{
    THeadTrVtor head;
    head.QRVName = name;
    head.NORAD = norad;
    head.telescope = telescope;
    head.originator = originator;
    return head;
}

// Checks for a track of that head whose marks are all the usual one.
void expectTrack(const TrackVtorichka& track, const THeadTrVtor& head, std::size_t marks)
{
    expectSameHead(track, head);
    ASSERT_EQ(track.Marks.size(), marks);
    for (const TRecLabelPervichka_File& mark : track.Marks) {
        expectTheMark(mark);
    }
    EXPECT_TRUE(track.InterBlobs.empty());
    EXPECT_TRUE(track.Candidates.empty());
    EXPECT_TRUE(track.Cast.empty());
}

// Every column that a reader takes; iB stands in front too, where the shortest line has it.
std::string allColumns()
{
    return "iB:Int\t" + headerOf62Columns +
           "\tmEnsemble\tmInstrComp\tfiltr\tMTYPE\tCNAME\tKNAME\tCHART\tnoradid\tmRA\tmDE";
}

// A line with the value in each of the columns.
std::string lineOfValues(const std::string& columns, const std::string& value)
{
    std::string line = value;
    for (const char character : columns) {
        line += character == '\t' ? "\t" + value : "";
    }
    return line;
}

// The head of a track of a table that says nothing.
THeadTrVtor headOfTable(int marks, const std::string& path)
{
    THeadTrVtor head;
    head.NMarks = marks;
    head.SourceFile = path;
    return head;
}

} // namespace

TEST(HeadsOfTracks, EveryColumnOfATableIsForgottenAtTheEndOfATrack)
{
    const TemporaryFolder folder;
    const std::string path = folder / "t.txt";
    const std::string columns = allColumns();
    const std::string full = lineOfValues(columns, "7") + "\n";
    makeFile(path, "v2\n" + columns + "\n" + full + full + "---\n5\n---\n---\n" + full + "---\n\n6\n---\n");
    const Tracks tracks = lListTrack(path);
    ASSERT_EQ(tracks.size(), 5u);
    for (const std::size_t filled : {std::size_t{0}, std::size_t{3}}) {
        EXPECT_EQ(tracks[filled].N, 7);
        EXPECT_EQ(tracks[filled].QRVName, "7");
        EXPECT_EQ(tracks[filled].Length_rms, 7.0);
    }
    expectSameHead(tracks[1], headOfTable(1, path));
    expectSameHead(tracks[2], headOfTable(0, path));
    expectSameHead(tracks[4], headOfTable(2, path));
    ASSERT_EQ(tracks[4].Marks.size(), 2u);
    TRecLabelPervichka_File mark;
    expectSame(tracks[4].Marks[0], mark);
    mark.iB = 6;
    expectSame(tracks[4].Marks[1], mark);
    EXPECT_EQ(tracks[4].InterBlobs.size(), 2u);
    EXPECT_EQ(tracks[1].InterBlobs.size(), 1u);
    EXPECT_TRUE(tracks[2].InterBlobs.empty());
}

TEST(HeadsOfTracks, EachColumnOfATableIsForgottenAtTheEndOfATrack)
{
    Lines columns;
    Pars9(allColumns(), columns, "\t");
    EXPECT_EQ(columns.size(), 73u);
    for (const std::string& column : columns) {
        SCOPED_TRACE(column);
        const Tracks tracks =
            lListTrack(Lines{"HA:Float\t" + column, "1\t7", "---", "2", "---", "3\t8", "---", "4"});
        ASSERT_EQ(tracks.size(), 3u);
        expectSameHead(tracks[1], headOfTable(1, ""));
        ASSERT_EQ(tracks[1].Marks.size(), 1u);
        expectSame(tracks[1].Marks[0], {});
    }
}

// Of two columns for one field the later wins on each line anew, also where it is missing on a later line.
TEST(HeadsOfTracks, OfTwoColumnsForAFieldTheLastOnTheLastLineWins)
{
    const struct
    {
        const char* columns;
        const char* shorter; // the last line
        std::string THeadTrVtor::*text;
        const char* value;
    } rows[] = {
        {"NORAD\tnoradid", "3", &THeadTrVtor::NORAD, "3"},
        {"noradid\tNORAD", "3", &THeadTrVtor::NORAD, "3"},
        {"NORAD\tnoradid", "3\t4", &THeadTrVtor::NORAD, "4"},
        {"noradid\tNORAD", "3\t4", &THeadTrVtor::NORAD, "3"},
        {"Name\tQRVName", "3", &THeadTrVtor::QRVName, "3"},
        {"QRVName\tName", "3", &THeadTrVtor::QRVName, "3"},
        {"QRVName\tName", "3\t4", &THeadTrVtor::QRVName, "3"},
        {"x\tQRVName\tName", "3", &THeadTrVtor::QRVName, "1"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.columns + std::string(", ") + row.shorter);
        const Tracks tracks = lListTrack(Lines{row.columns, "0\t1\t2", row.shorter, "---"});
        ASSERT_EQ(tracks.size(), 1u);
        EXPECT_EQ(tracks[0].*row.text, row.value);
    }
    EXPECT_EQ(lListTrack(Lines{"V_ra\tmRA", "1\t2", "3"})[0].V_ra, 3.0);
    EXPECT_EQ(lListTrack(Lines{"mDE\tV_de", "1\t2", "3\t4"})[0].V_de, 3.0);
}

TEST(HeadsOfTracks, BlockOfATelegramThatOnlyCloses)
{
    const std::string mark = "250223 12000000 01000000 -00300000 001095";
    const Tracks tracks =
        lTelegramma(Lines{"O T A", mark, mark, "END", "END", "P U B", "Q V C", mark, "END", "x", "END"});
    ASSERT_EQ(tracks.size(), 5u);
    expectTrack(tracks[0], headOf("A", "A", "T", "O"), 2);
    expectTrack(tracks[1], {}, 0);
    expectTrack(tracks[2], headOf("C", "C", "V", "Q"), 1);
    expectTrack(tracks[3], {}, 0);
    expectTrack(tracks[4], {}, 0);
}

// Empty words of a head line are values too.
TEST(HeadsOfTracks, HeadLineOfATelegramWithEmptyWords)
{
    const Tracks tracks = lTelegramma(Lines{"O T A", "END", "  B", "END", "O  ", "END"});
    ASSERT_EQ(tracks.size(), 3u);
    expectTrack(tracks[1], headOf("B", "B", "", ""), 0);
    expectTrack(tracks[2], headOf("", "", "", "O"), 0);
}

TEST(HeadsOfTracks, WorkingTrackOfSsmas)
{
    const std::string mark = ssmasLines::markLine;
    const Tracks tracks = lckako_meas(Lines{"", "T", "", "", "", "", "A 5", mark, "B 6", "C ", mark, mark,
                                            "2", "D 7", "3", "4", "E 8", mark},
                                      "O");
    ASSERT_EQ(tracks.size(), 5u);
    const auto headWith = [](const std::string& name, const std::string& number) {
        THeadTrVtor head = headOf(name, name, "T", "O");
        head.HeadText3 = number;
        return head;
    };
    expectTrack(tracks[0], headWith("A", "5"), 1);
    expectTrack(tracks[1], {}, 0); // lost: no line closed the object before it
    expectTrack(tracks[2], headWith("C", ""), 2);
    expectTrack(tracks[3], {}, 0);
    expectTrack(tracks[4], headWith("E", "8"), 1);
}

// Objects whose marks are repeated: the working track goes on until a line closes it.
TEST(HeadsOfTracks, RepeatedMarksOfSsmas)
{
    const std::string mark = ssmasLines::markLine;
    const Tracks tracks = lckako_meas(
        Lines{"", "T", "", "", "", "", "A 5", mark, " 6", mark, " ", " 7", mark, "2", "B ", mark}, "O");
    ASSERT_EQ(tracks.size(), 5u);
    THeadTrVtor head = headOf("A", "A", "T", "O");
    head.HeadText3 = "5";
    expectTrack(tracks[0], head, 1);
    head = headOf("", "", "T", "O");
    head.HeadText3 = "6";
    expectTrack(tracks[1], head, 2);
    expectTrack(tracks[2], {}, 0);
    head.HeadText3 = "7";
    expectTrack(tracks[3], head, 3);
    expectTrack(tracks[4], headOf("B", "B", "T", "O"), 1);
}

// By contract: a segment has the texts read most recently. All else of its head is new.
TEST(HeadsOfTracks, SegmentsInheritTheirTextsAndNothingElse)
{
    const std::string mark = "ANGLE_1 = 2023-02-25T12:00:00 15.0\nANGLE_2 = 2023-02-25T12:00:00 -0.5\n"
                             "MAG = 2023-02-25T12:00:00 9.5\n";
    const Tracks tracks = readBy([](const std::string& path) { return lTDM(path); },
                                 "ORIGINATOR = O\nMETA_START\nPARTICIPANT_1 = T\nPARTICIPANT_2 = A\n"
                                 "REFERENCE_FRAME = EME2000\nMETA_STOP\n" +
                                     mark + mark + "META_START\nMETA_STOP\nMETA_START\nPARTICIPANT_2 = B\n" +
                                     "MAG = x 9.5\nPARTICIPANT_1 = U\n");
    ASSERT_EQ(tracks.size(), 3u);
    expectTrack(tracks[0], headOf("A", "", "T", "O"), 2);
    expectTrack(tracks[1], headOf("A", "", "T", "O"), 0);
    expectTrack(tracks[2], headOf("B", "", "U", "O"), 1);
}

TEST(HeadsOfTracks, ObjectsOfMeaShareTheSiteAndTheOriginator)
{
    const std::string fields = " 250223 1200000000 0100000000 -0030000000 001 09.50";
    const Tracks tracks =
        lMEATrack(Lines{"T x", "A" + fields, "B" + fields, "A" + fields, "C D" + fields, "E" + fields}, "O");
    ASSERT_EQ(tracks.size(), 3u);
    expectTrack(tracks[0], headOf("A", "A", "T", "O"), 2);
    expectTrack(tracks[1], headOf("B", "B", "T", "O"), 1);
    expectTrack(tracks[2], headOf("E", "E", "T", "O"), 1);
}

TEST(HeadsOfTracks, ObjectsOfAnMpcReportShareTheHeader)
{
    const Tracks tracks =
        lMPC(Lines{"COD I41", mpcReports::observation, "CON contact", mpcReports::withText(1, "67890"),
                   "ACK ", mpcReports::observation, "ACK last", "COD W84"});
    ASSERT_EQ(tracks.size(), 2u);
    THeadTrVtor head;
    head.MPCHeader.COD = "W84";
    head.MPCHeader.CON = "contact";
    head.MPCHeader.ACK = "last";
    head.MPCChecker = "12345";
    expectTrack(tracks[0], head, 2);
    head.MPCChecker = "67890";
    expectTrack(tracks[1], head, 1);
}
