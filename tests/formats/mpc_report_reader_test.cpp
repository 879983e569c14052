#include "formats/mpc_report.h"

#include "support/measured_marks.h"
#include "support/mpc_reports.h"
#include "support/places.h"
#include "support/sexagesimal.h"
#include "support/temporary_folder.h"
#include "support/tracks.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <stdexcept>
#include <string>
#include <vector>

using namespace tavelinUtils;
using namespace mpcReports;

namespace {

using Lines = std::vector<std::string>;
using Tracks = std::vector<TrackVtorichka>;

Tracks readFixture(const std::string& name)
{
    return lMPC(fixture("mpc/" + name));
}

} // namespace

// Parsing an observation line.

TEST(MpcObservation, NewOneIsEmptyAndZero)
{
    const TMPCMea parsed;
    EXPECT_EQ(parsed.Name, "");
    EXPECT_EQ(parsed.filtr, "");
    EXPECT_EQ(parsed.date, 0);
    EXPECT_EQ(parsed.time, 0.0);
    EXPECT_EQ(parsed.RA, 0.0);
    EXPECT_EQ(parsed.DE, 0.0);
    EXPECT_EQ(parsed.m, 0.0);
}

TEST(MpcObservation, IsReadByItsColumns)
{
    const TMPCMea parsed = ParsMPCMea(observation);
    EXPECT_EQ(parsed.Name, "12345");
    EXPECT_EQ(parsed.filtr, "R");
    EXPECT_EQ(parsed.date, 60000);
    EXPECT_DOUBLE_EQ(parsed.time, 0.5);
    EXPECT_DOUBLE_EQ(parsed.RA, 15.0);
    EXPECT_DOUBLE_EQ(parsed.DE, -0.5);
    EXPECT_DOUBLE_EQ(parsed.m, 9.5);
}

TEST(MpcObservation, ColumnsOfNotesAndCodeAreNotRead)
{
    std::string line = withText(13, "*KC");
    line.replace(77, 3, "xyz");
    const TMPCMea parsed = ParsMPCMea(line);
    EXPECT_EQ(parsed.Name, "12345");
    EXPECT_EQ(parsed.filtr, "R");
    EXPECT_EQ(parsed.date, 60000);
}

TEST(MpcObservation, NamesLoseEveryBlank)
{
    const struct
    {
        const char* columns;
        const char* name;
    } rows[] = {
        {"     K23A01B", "K23A01B"}, {"    2019 AB1", "2019AB1"},      {" a b c d e f", "abcdef"},
        {"            ", ""},        {"0141PJ94P01b", "0141PJ94P01b"}, {"\t2345       ", "\t2345"},
    };
    for (const auto& [columns, name] : rows) {
        SCOPED_TRACE(columns);
        EXPECT_EQ(ParsMPCMea(withText(1, columns)).Name, name);
    }
}

TEST(MpcObservation, ReadsDates)
{
    const struct
    {
        const char* columns;
        int date;
    } rows[] = {
        {"2023 02 25", 60000}, {"1893 10 29", 12765}, {"2000 01 01", 51544}, {"2023 02 31", 60006}, // 3 March
        {"2023 2  25", 59975}, // the third part is empty: the day before the first of February
        {"2023 13 01", 0},     {"          ", 0},     {"2023-02-25", 0},     {" 2023 2 25", 0},
        {"2001a08 24", 0},     {"year mo da", 0},
    };
    for (const auto& [columns, date] : rows) {
        SCOPED_TRACE(columns);
        EXPECT_EQ(ParsMPCMea(withText(16, columns)).date, date);
    }
}

TEST(MpcObservation, ReadsFractionsOfADay)
{
    const struct
    {
        const char* columns;
        double time;
    } rows[] = {
        {".50000 ", 0.5},  {".539940", 0.53994}, {".4132  ", 0.4132}, {"       ", 0.0},
        {".5  4  ", 0.54}, {"1.2500 ", 1.25},    {" -.5   ", 0.0},    {".abcde ", 0.0},
        {"nothing", 0.0},  {".00000 ", 0.0},     {"      5", 5.0},
    };
    for (const auto& [columns, time] : rows) {
        SCOPED_TRACE(columns);
        EXPECT_DOUBLE_EQ(ParsMPCMea(withText(26, columns)).time, time);
    }
}

TEST(MpcObservation, ReadsRightAscensions)
{
    const struct
    {
        const char* columns;
        double RA;
    } rows[] = {
        {"01 00 00.00 ", 15.0},
        {"11 30 00.371", hours(11, 30, 0.371)},
        {"23 59 60.00 ", 360.0},
        {"00 00 00.00 ", 0.0},
        {"01 15.0     ", 18.75},
        {"01          ", 15.0},
        {" 1 00 00.00 ", 0.25}, // the first part is empty
        {"            ", 0.0},
        {"1 2 3 4 5 6 ", hours(1, 2, 3)},
        {"hh mm ss.ss ", 0.0},
        {"01:30:00.00 ", 15.0}, // one part
        {"1 + 4353.003", hours(1, 0, 4353.003)},
    };
    for (const auto& [columns, RA] : rows) {
        SCOPED_TRACE(columns);
        EXPECT_DOUBLE_EQ(ParsMPCMea(withText(33, columns)).RA, RA);
    }
}

TEST(MpcObservation, ReadsDeclinations)
{
    const struct
    {
        const char* columns;
        double DE;
    } rows[] = {
        {"-00 30 00.0 ", -0.5},
        {"+00 30 00.0 ", 0.5},
        {"00 30 00.0  ", 0.5},
        {"100 15 00.0 ", 100.25},
        {"+04 09 31.15", degrees(4, 9, 31.15)},
        {"-04 09 31.15", -degrees(4, 9, 31.15)},
        {"+18 49      ", degrees(18, 49, 0)},
        {"-00 00      ", 0.0},
        {"-12         ", -12.0},
        {" 12 30 00.0 ", degrees(0, 12, 30)}, // the first part is empty
        {" -12 30 00.0", degrees(0, -12, 30)},
        {"            ", 0.0},
        {"sdd mm ss.s ", 0.0},
        {"-dd 30 00.0 ", -0.5},
        {" +38.11385  ", 38.11385 / 60.0},
    };
    for (const auto& [columns, DE] : rows) {
        SCOPED_TRACE(columns);
        EXPECT_DOUBLE_EQ(ParsMPCMea(withText(45, columns)).DE, DE);
    }
}

TEST(MpcObservation, ReadsMagnitudes)
{
    const struct
    {
        const char* columns;
        double m;
    } rows[] = {
        {"09.5 ", 9.5},  {"15.37", 15.37}, {" 7.5 ", 7.5},  {"18   ", 18.0}, {"     ", 0.0},
        {"-1.0 ", -1.0}, {"0-1.0", 0.0},   {"1 8.5", 18.5}, {"faint", 0.0},  {"3400 ", 3400.0},
    };
    for (const auto& [columns, m] : rows) {
        SCOPED_TRACE(columns);
        EXPECT_DOUBLE_EQ(ParsMPCMea(withText(66, columns)).m, m);
    }
}

TEST(MpcObservation, BandsLoseEveryBlank)
{
    const struct
    {
        const char* columns;
        const char* band;
    } rows[] = {
        {"R      ", "R"},       {"       ", ""},     {" V     ", "V"},
        {"Vq~0yn5", "Vq~0yn5"}, {"R  G ab", "RGab"}, {"  HA053", "HA053"},
    };
    for (const auto& [columns, band] : rows) {
        SCOPED_TRACE(columns);
        EXPECT_EQ(ParsMPCMea(withText(71, columns)).filtr, band);
    }
}

TEST(MpcObservation, LineThatEndsBeforeAColumnRaisesOutOfRange)
{
    for (std::size_t length = 0; length < 70; ++length) {
        SCOPED_TRACE(length);
        EXPECT_THROW(ParsMPCMea(observation.substr(0, length)), std::out_of_range);
    }
}

TEST(MpcObservation, BandAndCodeMayBeMissing)
{
    const TMPCMea parsed = ParsMPCMea(observation.substr(0, 70));
    EXPECT_EQ(parsed.Name, "12345");
    EXPECT_DOUBLE_EQ(parsed.m, 9.5);
    EXPECT_EQ(parsed.filtr, "");
    EXPECT_EQ(ParsMPCMea(observation.substr(0, 71)).filtr, "R");
    EXPECT_EQ(ParsMPCMea(observation + " and more").filtr, "R");
}

// Reading reports.

TEST(MpcReader, ReadsAnObservation)
{
    const Tracks tracks = lMPC(Lines{observation});
    ASSERT_EQ(outline(tracks), Lines{"12345 1"});
    expectMark(tracks[0].Marks[0], {60000, 0.5, 15.0, -0.5, 9.5}, "R");
}

TEST(MpcReader, LeavesTheRestOfTheHeadAsConstructed)
{
    const Tracks tracks = lMPC(Lines{observation});
    ASSERT_EQ(tracks.size(), 1U);
    const TrackVtorichka& track = tracks[0];
    EXPECT_EQ(track.QRVName, "");
    EXPECT_EQ(track.NORAD, "");
    EXPECT_EQ(track.telescope, "telescope");
    EXPECT_EQ(track.originator, "observatory");
    EXPECT_EQ(track.REFERENCE_FRAME, "ICRF");
    EXPECT_EQ(track.FindOrb, 999.0);
    EXPECT_EQ(track.N, 0);
    EXPECT_EQ(track.NMarks, 0);
    EXPECT_EQ(track.SourceFile, "");
    EXPECT_TRUE(track.InterBlobs.empty());
    EXPECT_TRUE(track.Candidates.empty());
    EXPECT_TRUE(track.Cast.empty());
    expectHeader(track.MPCHeader, TMPCReportHeader{});
}

TEST(MpcReader, TracksStandInTheOrderOfTheirNames)
{
    const auto line = [&](const std::string& name, const std::string& magnitude) {
        return name + withText(66, magnitude).substr(12);
    };
    const Tracks tracks = lMPC(Lines{
        line("     K23A01B", "01.0"),
        line("12345       ", "02.0"),
        line("     K23A01B", "03.0"),
        line("            ", "04.0"),
        line("     k23a01b", "05.0"),
        line("       12345", "06.0"), // the same without its blanks
        line("K 2 3 A 01B ", "07.0"),
        line("00001       ", "08.0"),
    });
    ASSERT_EQ(outline(tracks), (Lines{"K23A01B 3", "12345 2", " 1", "k23a01b 1", "00001 1"}));
    const std::vector<std::vector<double>> magnitudes = {{1.0, 3.0, 7.0}, {2.0, 6.0}, {4.0}, {5.0}, {8.0}};
    for (std::size_t i = 0; i < tracks.size(); ++i) {
        std::vector<double> ofTrack;
        for (const TRecLabelPervichka_File& mark : tracks[i].Marks) {
            ofTrack.push_back(mark.m);
        }
        EXPECT_EQ(ofTrack, magnitudes[i]);
    }
}

TEST(MpcReader, LinesOfAnotherLengthArePassedOver)
{
    const Tracks tracks = lMPC(Lines{
        "",
        " ",
        "CO",
        "----- end -----",
        observation.substr(0, 79),
        observation + " ",
        observation + "\t",
        observation + "\r",
        " " + observation,
        observation,
    });
    EXPECT_EQ(outline(tracks), Lines{"12345 1"});
}

TEST(MpcReader, ColumnsCountInBytes)
{
    const std::string twoBytes = "\xc3\x89";
    const Tracks tracks = lMPC(Lines{
        twoBytes + "ros       " + observation.substr(12),  // 80 bytes
        twoBytes + "ros        " + observation.substr(12), // 80 characters
    });
    EXPECT_EQ(outline(tracks), Lines{twoBytes + "ros 1"});
}

TEST(MpcReader, LineOfEightyColumnsOfNonsenseGivesZeros)
{
    const Tracks tracks = lMPC(Lines{std::string(80, 'x'), std::string(80, ' ')});
    ASSERT_EQ(outline(tracks), (Lines{"xxxxxxxxxxxx 1", " 1"}));
    expectMark(tracks[0].Marks[0], {0, 0.0, 0.0, 0.0, 0.0}, "xxxxxxx");
    expectMark(tracks[1].Marks[0], {0, 0.0, 0.0, 0.0, 0.0}, "");
}

TEST(MpcReader, HeaderWithoutObservationsGivesNoTracks)
{
    EXPECT_TRUE(lMPC(Lines{}).empty());
    EXPECT_TRUE(lMPC(Lines{"COD W85", "OBS A. Observer"}).empty());
}

TEST(MpcReader, HeaderIsCopiedToEachTrack)
{
    Lines lines = GetListHeadMPC(fullHeader());
    lines.push_back(observation);
    lines.push_back(withText(1, "54321"));
    const Tracks tracks = lMPC(lines);
    ASSERT_EQ(outline(tracks), (Lines{"12345 1", "54321 1"}));
    expectHeader(tracks[0].MPCHeader, fullHeader());
    expectHeader(tracks[1].MPCHeader, fullHeader());
}

TEST(MpcReader, HeaderLinesMayStandInAnyOrderAndPlace)
{
    Lines lines = GetListHeadMPC(fullHeader());
    for (int turn = 0; turn < 9; ++turn) {
        SCOPED_TRACE(turn);
        std::rotate(lines.begin(), lines.begin() + 1, lines.end());
        for (const bool reversed : {false, true}) {
            Lines report = lines;
            if (reversed) {
                std::reverse(report.begin(), report.end());
            }
            report.insert(report.begin() + turn, observation);
            const Tracks tracks = lMPC(report);
            ASSERT_EQ(outline(tracks), Lines{"12345 1"});
            expectHeader(tracks[0].MPCHeader, fullHeader());
        }
    }
}

TEST(MpcReader, LastLineOfAKeywordWins)
{
    for (const Keyword& keyword : keywords) {
        SCOPED_TRACE(keyword.word);
        const std::string word = keyword.word;
        TMPCReportHeader expected;
        expected.*keyword.member = "third";
        const Tracks tracks = lMPC(
            Lines{word + " first", observation, word + " second", withText(1, "54321"), word + " third"});
        ASSERT_EQ(outline(tracks), (Lines{"12345 1", "54321 1"}));
        expectHeader(tracks[0].MPCHeader, expected);
        expectHeader(tracks[1].MPCHeader, expected);
    }
}

TEST(MpcReader, CodeOfTheLastStationIsThatOfAllTracks)
{
    const Tracks tracks =
        lMPC(Lines{"COD 291", withText(78, "291"), "COD W85", withText(1, "54321"), withText(1, "99999")});
    ASSERT_EQ(tracks.size(), 3U);
    for (const TrackVtorichka& track : tracks) {
        EXPECT_EQ(track.MPCHeader.COD, "W85");
    }
}

TEST(MpcReader, KeywordWithItsBlankAloneIsAnEmptyText)
{
    for (const Keyword& keyword : keywords) {
        SCOPED_TRACE(keyword.word);
        const std::string word = keyword.word;
        const Tracks tracks = lMPC(Lines{word + " before", word + " ", observation});
        ASSERT_EQ(tracks.size(), 1U);
        EXPECT_EQ(tracks[0].MPCHeader.*keyword.member, "");
    }
}

TEST(MpcReader, KeywordAloneRaisesOutOfRange)
{
    for (const Keyword& keyword : keywords) {
        SCOPED_TRACE(keyword.word);
        const std::string word = keyword.word;
        EXPECT_THROW(lMPC(Lines{word}), std::out_of_range);
        EXPECT_THROW(lMPC(Lines{"COD 500", observation, word, observation}), std::out_of_range);
        EXPECT_THROW(readFile(word + "\n"), std::out_of_range);
        EXPECT_THROW(readFile(word + "\r\n"), std::out_of_range);
        EXPECT_THROW(readFile(word + "\t\n"), std::out_of_range);
        EXPECT_NO_THROW(readFile(word + " \n"));
        EXPECT_NO_THROW(readFile(word + " \r\n"));
    }
}

TEST(MpcReader, TextOfAHeaderLineBeginsAtItsFifthCharacter)
{
    const struct
    {
        const char* line;
        const char* text;
    } rows[] = {
        {"COM a text", "a text"},  {"COM  a text ", " a text "},
        {"COMMENT", "ENT"},        {"COMx", ""},
        {"COM\ta text", "a text"}, {"COM\t", ""},
    };
    for (const auto& [line, text] : rows) {
        SCOPED_TRACE(line);
        const Tracks tracks = lMPC(Lines{"COM before", line, observation});
        ASSERT_EQ(tracks.size(), 1U);
        EXPECT_EQ(tracks[0].MPCHeader.COM, text);
    }
}

TEST(MpcReader, KeywordsAreComparedExactly)
{
    const Tracks tracks =
        lMPC(Lines{"cod W85", "Cod W85", " COD W85", "CO D W85", "C", "XYZ W85", observation});
    ASSERT_EQ(outline(tracks), Lines{"12345 1"});
    expectHeader(tracks[0].MPCHeader, TMPCReportHeader{});
}

TEST(MpcReader, HeaderLineOfEightyColumnsIsNoObservation)
{
    const std::string text = "an address that reaches to column eighty" + std::string(36, '.');
    const Tracks tracks = lMPC(Lines{"CON " + text, observation});
    ASSERT_EQ(outline(tracks), Lines{"12345 1"});
    EXPECT_EQ(tracks[0].MPCHeader.CON, text);
}

TEST(MpcReader, ObjectWhoseNameBeginsLikeAKeywordIsAHeaderLine)
{
    const Tracks tracks = lMPC(Lines{withText(1, "MEA01"), observation});
    ASSERT_EQ(outline(tracks), Lines{"12345 1"});
    EXPECT_EQ(tracks[0].MPCHeader.MEA, "1" + observation.substr(5));
}

TEST(MpcReader, LineEndingsOfBothKindsAndTabsAtTheEndReadAlike)
{
    for (const std::string end : {"\n", "\r\n", "\t\n", "\t\r\n"}) {
        const Tracks tracks = readFile("COD W85" + end + end + observation + end + observation + end);
        ASSERT_EQ(outline(tracks), Lines{"12345 2"});
        EXPECT_EQ(tracks[0].MPCHeader.COD, "W85");
    }
    EXPECT_EQ(outline(readFile(observation)), Lines{"12345 1"});
}

TEST(MpcReader, BlanksAtTheEndOfALineCount)
{
    EXPECT_TRUE(readFile(observation + " \n").empty());
    const Tracks tracks = readFile("COD W85 \n" + observation + "\n");
    ASSERT_EQ(tracks.size(), 1U);
    EXPECT_EQ(tracks[0].MPCHeader.COD, "W85 ");
    EXPECT_EQ(outline(readFile(observation.substr(0, 77) + "   \n")), Lines{"12345 1"});
    EXPECT_TRUE(readFile(observation.substr(0, 77) + "\n").empty());
}

TEST(MpcReader, MissingFileAndAFolderGiveNothing)
{
    const TemporaryFolder folder;
    EXPECT_TRUE(lMPC(folder / "missing.txt").empty());
    EXPECT_FALSE(exists(folder / "missing.txt"));
    EXPECT_TRUE(lMPC(folder.path()).empty());
    EXPECT_TRUE(lMPC(std::string()).empty());
    EXPECT_TRUE(readFile("").empty());
}

// Reports of observatories.

TEST(MpcReader, ReadsAReportWithAFullHeader)
{
    const Tracks tracks = readFixture("every_keyword_but_com_crlf.txt");
    ASSERT_EQ(outline(tracks), (Lines{"K17BC1T 3", "P10GvKl 3", "K8785 3", "W2017 3", "l8269 3", "m1820 3"}));
    TMPCReportHeader header;
    header.COD = "W85";
    header.CON = "T. Lister, LCO, 6740 Cortona Drive Suite 102, Goleta, CA 93117 [tlister@lco.global]";
    header.OBS = "T. Lister";
    header.MEA = "T. Lister";
    header.TEL = "1.0-m f/8 Ritchey-Chretien + CCD";
    header.ACK = "MPCReport file updated 2018.02.16 10:06:45";
    header.AC2 = "tlister@lco.global";
    header.NET = "Gaia DR1";
    for (const TrackVtorichka& track : tracks) {
        expectHeader(track.MPCHeader, header);
    }
    expectMark(tracks[0].Marks[0], {58165, 0.198172, hours(11, 26, 54.17), -degrees(4, 24, 44.7), 20.2}, "G");
    expectMark(tracks[2].Marks[1], {58165, 0.203656, hours(11, 27, 53.01), -degrees(4, 8, 9.0), 20.5}, "G");
    expectMark(tracks[5].Marks[2], {58165, 0.210981, hours(11, 26, 26.41), -degrees(4, 12, 3.3), 21.3}, "G");
}

TEST(MpcReader, KeepsTheLastHeaderOfThreeBatches)
{
    const Tracks tracks = readFixture("batches_of_three_stations.txt");
    ASSERT_EQ(outline(tracks), (Lines{"P10kefK 3", "K16R34D 2", "K16J29B 4"}));
    TMPCReportHeader header;
    header.COD = "568";
    header.CON = "D. J. Tholen";
    header.OBS = "D. Fohring, D. Hung";
    header.MEA = "D. J. Tholen";
    header.COM = "Seeing FWHM = 2.0 arcsec";
    header.TEL = "2.24-m University of Hawaii reflector";
    header.ACK = "2016 JB29 virtual impactor";
    header.AC2 = "swatch@varuna.kpno.noao.edu";
    header.NET = "PPMXL";
    for (const TrackVtorichka& track : tracks) {
        expectHeader(track.MPCHeader, header);
    }
    expectMark(tracks[0].Marks[0], {57113, 0.4691, hours(12, 17, 58.93), degrees(48, 19, 52.2), 20.7}, "R");
    expectMark(tracks[1].Marks[1], {57744, 0.325591, hours(2, 41, 35.541), degrees(42, 24, 59.45), 23.9},
               "G");
    expectMark(tracks[2].Marks[3], {57525, 0.320852, hours(15, 44, 36.88), degrees(10, 58, 31.46), 21.4},
               "R");
}

TEST(MpcReader, MagnitudeThatIsMissingIsZero)
{
    const Tracks tracks = readFixture("bands_without_magnitudes.txt");
    ASSERT_EQ(outline(tracks), (Lines{"K12O00Z 2", "K15K57K 3"}));
    EXPECT_EQ(tracks[0].MPCHeader.COD, "675");
    EXPECT_EQ(tracks[0].MPCHeader.CON, "");
    expectMark(tracks[0].Marks[0], {57186, 0.2338, hours(17, 53, 37.66), degrees(9, 1, 24.0), 21.3}, "R");
    expectMark(tracks[0].Marks[1], {57186, 0.25939, hours(17, 53, 35.81), degrees(9, 1, 15.1), 0.0}, "R");
    expectMark(tracks[1].Marks[2], {57186, 0.29497, hours(18, 23, 40.88), degrees(19, 53, 25.3), 0.0}, "R");
}

TEST(MpcReader, PassesOverTheLongLineOfAReport)
{
    const Tracks tracks = readFixture("line_of_85_columns.txt");
    ASSERT_EQ(outline(tracks),
              (Lines{"K01S91D 4", "UKR0029 4", "UKR0030 4", "UKR0031 4", "H0318 1", "E7818 4"}));
    EXPECT_EQ(tracks[0].MPCHeader.COD, "F51");
    EXPECT_EQ(tracks[5].MPCHeader.MEA,
              "V. Myliavka, Y. Lavrenko, O.Semeshchuk, V. Sulym, A.Katkalov & S.Plaksa "
              "(Street Astronomy, Ukraine)");
    expectMark(tracks[0].Marks[0], {57781, 0.53994, hours(11, 30, 0.371), degrees(4, 9, 31.15), 21.6}, "R");
    expectMark(tracks[4].Marks[0], {57781, 0.53994, hours(11, 30, 6.748), degrees(4, 12, 5.08), 22.3}, "R");
    expectMark(tracks[5].Marks[3], {57781, 0.575395, hours(11, 29, 54.059), degrees(4, 10, 22.14), 20.0},
               "R");
}

TEST(MpcReader, KeepsTheBytesOfAHeader)
{
    const Tracks tracks = readFixture("latin1_letter_in_the_header.txt");
    ASSERT_EQ(outline(tracks), (Lines{"JPA0003 4", "JPA0004 4", "JPA0005 4", "JPA0006 4"}));
    TMPCReportHeader header;
    header.COD = "G96";
    header.MEA = "J. Alves, J. Novo & T. Sim\xf5"
                 "es (NUCLIO NEO Search Team 2, Portugal)";
    header.TEL = "1.5-m reflector + CCD";
    header.ACK = "MPCReport file updated 2017.05.24 22:57:03";
    header.NET = "UCAC-3";
    expectHeader(tracks[3].MPCHeader, header);
    expectMark(tracks[0].Marks[0], {57892, 0.384857, hours(17, 29, 14.607), -degrees(11, 12, 19.65), 18.7},
               "R");
    expectMark(tracks[3].Marks[3], {57892, 0.397272, hours(17, 30, 16.862), -degrees(11, 58, 36.84), 18.0},
               "R");
}

TEST(MpcReader, SecondLinesOfRecordsAreReadByTheSameColumns)
{
    const Tracks tracks = readFixture("records_of_two_lines.txt");
    ASSERT_EQ(outline(tracks), Lines{"00433 5"});
    const std::vector<TRecLabelPervichka_File>& marks = tracks[0].Marks;
    expectHeader(tracks[0].MPCHeader, TMPCReportHeader{});
    expectMark(marks[0], {12765, 0.4132, hours(6, 8, 59.32), degrees(53, 39, 4.2), 0.0}, "HA053");
    expectMark(marks[1], {55857, 0.34124, hours(6, 53, 3.495), degrees(46, 43, 6.69), 0.0}, "X~7lwF");
    expectMark(marks[2], {55857, 0.34124, hours(1, 0, 4353.003), 0.0, 3400.0}, "~7lwF");
    expectMark(marks[3], {60182, 0.191932, hours(20, 55, 41.1), -degrees(8, 18, 29.6), 15.1}, "VV~7811");
    expectMark(marks[4], {60182, 0.191932, hours(1, 237.76096, 0), 38.11385 / 60.0, 0.0}, "~7811");
}
