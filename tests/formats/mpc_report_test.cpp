#include "formats/mpc_report.h"

#include "support/failed_writes.h"
#include "support/measured_marks.h"
#include "support/places.h"
#include "support/sexagesimal.h"
#include "support/temporary_folder.h"
#include "support/tracks.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <limits>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

using namespace tavelinUtils;

namespace {

using Lines = std::vector<std::string>;
using Tracks = std::vector<TrackVtorichka>;

const std::string observation =
    "12345         C2023 02 25.50000 01 00 00.00 -00 30 00.0          09.5 R      500";

// The observation with a text in place of what stands from a column on; columns count from 1.
std::string withText(std::size_t column, const std::string& text)
{
    std::string line = observation;
    return line.replace(column - 1, text.size(), text);
}

// Names of the tracks with the number of their marks.
std::vector<std::string> outline(const Tracks& tracks)
{
    std::vector<std::string> names;
    for (const TrackVtorichka& track : tracks) {
        names.push_back(track.MPCChecker + " " + std::to_string(track.Marks.size()));
    }
    return names;
}

Tracks readFile(const std::string& bytes)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.txt", bytes);
    return lMPC(folder / "a.txt");
}

Tracks readFixture(const std::string& name)
{
    return lMPC(fixture("mpc/" + name));
}

TrackVtorichka checkedTrack(const std::string& name, std::vector<TRecLabelPervichka_File> marks)
{
    TrackVtorichka track = trackNamed("", std::move(marks));
    track.MPCChecker = name;
    return track;
}

std::string written(const Tracks& tracks)
{
    const TemporaryFolder folder;
    sMPC(folder / "a.txt", tracks);
    return bytesOf(folder / "a.txt");
}

std::string compared(const Tracks& tracks, const Tracks& ephemeris)
{
    const TemporaryFolder folder;
    sMPCAndHorRes(folder / "a.txt", tracks, ephemeris);
    return bytesOf(folder / "a.txt");
}

// The tracks that come back out of their report.
Tracks readBack(const Tracks& tracks)
{
    return readFile(written(tracks));
}

struct Keyword
{
    const char* word;
    std::string TMPCReportHeader::*member;
};

const Keyword keywords[] = {
    {"COD", &TMPCReportHeader::COD}, {"CON", &TMPCReportHeader::CON}, {"OBS", &TMPCReportHeader::OBS},
    {"MEA", &TMPCReportHeader::MEA}, {"COM", &TMPCReportHeader::COM}, {"TEL", &TMPCReportHeader::TEL},
    {"ACK", &TMPCReportHeader::ACK}, {"AC2", &TMPCReportHeader::AC2}, {"NET", &TMPCReportHeader::NET},
};

TMPCReportHeader fullHeader()
{
    TMPCReportHeader header;
    header.COD = "W85";
    header.CON = "A. Contact, 1 Some Street [contact@example.org]";
    header.OBS = "A. Observer, B. Observer";
    header.MEA = "C. Measurer";
    header.COM = "two  blanks stay";
    header.TEL = "1.0-m f/8 reflector + CCD";
    header.ACK = "night 1";
    header.AC2 = "ack@example.org";
    header.NET = "Gaia DR3";
    return header;
}

void expectHeader(const TMPCReportHeader& header, const TMPCReportHeader& expected)
{
    for (const Keyword& keyword : keywords) {
        EXPECT_EQ(header.*keyword.member, expected.*keyword.member) << keyword.word;
    }
    EXPECT_TRUE(header.HeaderOn);
    EXPECT_FALSE(header.HeaderFlag2);
}

} // namespace

// Header lines.

TEST(MpcHeader, HasALineForEachTextInOrder)
{
    EXPECT_EQ(GetListHeadMPC(fullHeader()), (Lines{
                                                "COD W85",
                                                "CON A. Contact, 1 Some Street [contact@example.org]",
                                                "OBS A. Observer, B. Observer",
                                                "MEA C. Measurer",
                                                "COM two  blanks stay",
                                                "TEL 1.0-m f/8 reflector + CCD",
                                                "ACK night 1",
                                                "AC2 ack@example.org",
                                                "NET Gaia DR3",
                                            }));
}

TEST(MpcHeader, NewHeaderHasTheCodeAlone)
{
    EXPECT_EQ(GetListHeadMPC(TMPCReportHeader{}), Lines{"COD 500"});
}

TEST(MpcHeader, EmptyTextsHaveNoLine)
{
    for (const Keyword& keyword : keywords) {
        SCOPED_TRACE(keyword.word);
        TMPCReportHeader header;
        header.COD = "";
        EXPECT_EQ(GetListHeadMPC(header), Lines{});
        header.*keyword.member = "a text";
        EXPECT_EQ(GetListHeadMPC(header), Lines{std::string(keyword.word) + " a text"});
        header.*keyword.member = " ";
        EXPECT_EQ(GetListHeadMPC(header), Lines{std::string(keyword.word) + "  "});
    }
}

TEST(MpcHeader, FlagsChangeNothing)
{
    TMPCReportHeader header;
    header.HeaderOn = false;
    header.HeaderFlag2 = true;
    EXPECT_EQ(GetListHeadMPC(header), Lines{"COD 500"});
}

// Observation lines.

TEST(MpcLine, HasEightyColumns)
{
    EXPECT_EQ(GetStringMPC("12345", "500", theMark()), observation);
    EXPECT_EQ(GetStringMPC("12345", "500", theMark()).size(), 80U);
    EXPECT_EQ(GetStringMPC("K23A01B", "W85",
                           {.date = 60202,
                            .time = 0.123456,
                            .RA = 123.456789,
                            .DE = -12.091700944444445,
                            .m = 15.37,
                            .filtr = "Vq~0yn5"}),
              "     K23A01B  C2023 09 15.12346 08 13 49.63 -12 05 30.1          15.4 Vq~0yn5W85");
}

TEST(MpcLine, NamesOfFiveCharactersStandLeftAndOthersRight)
{
    const struct
    {
        const char* name;
        const char* columns;
    } rows[] = {
        {"12345", "12345       "},
        {"K8785", "K8785       "},
        {"", "            "},
        {"1", "           1"},
        {"1234", "        1234"},
        {"123456", "      123456"},
        {"K23A01B", "     K23A01B"},
        {"0141PJ94P01b", "0141PJ94P01b"},
        {"0123456789abc", "0123456789abc"},
        {"2019 AB1", "    2019 AB1"},
        {"\xc3\x89ros", "\xc3\x89ros       "},               // five bytes
        {"\xc3\x89ro", "        \xc3\x89ro"},                // four
        {"C\xc3\xa9r\xc3\xa8s", "     C\xc3\xa9r\xc3\xa8s"}, // seven
    };
    for (const auto& [name, columns] : rows) {
        SCOPED_TRACE(name);
        EXPECT_EQ(GetStringMPC(name, "500", theMark()), columns + observation.substr(12));
    }
}

TEST(MpcLine, FractionsOfADayHaveFiveDigitsAndNoCarry)
{
    const struct
    {
        double time;
        const char* columns;
    } rows[] = {
        {0.0, ".00000"},      {0.5, ".50000"},        {0.123456789, ".12346"}, {0.999994, ".99999"},
        {0.999996, ".00000"}, {0.99999999, ".00000"}, {0.000004, ".00000"},    {0.000006, ".00001"},
    };
    for (const auto& [time, columns] : rows) {
        SCOPED_TRACE(time);
        TRecLabelPervichka_File mark = theMark();
        mark.time = time;
        EXPECT_EQ(GetStringMPC("12345", "500", mark), withText(26, columns));
    }
}

TEST(MpcLine, FractionLosesItsFirstCharacterWhateverItIs)
{
    TRecLabelPervichka_File mark = theMark();
    mark.time = 12.5;
    EXPECT_EQ(GetStringMPC("12345", "500", mark),
              "12345         C2023 02 252.50000 01 00 00.00 -00 30 00.0          09.5 R      500");
    mark.time = -0.25;
    EXPECT_EQ(GetStringMPC("12345", "500", mark),
              "12345         C2023 02 250.25000 01 00 00.00 -00 30 00.0          09.5 R      500");
}

TEST(MpcLine, WritesDates)
{
    const struct
    {
        int date;
        const char* columns;
    } rows[] = {
        {60000, "2023 02 25"}, {51544, "2000 01 01"}, {60369, "2024 02 29"},
        {0, "1858 11 17"},     {88128, "2100 03 01"},
    };
    for (const auto& [date, columns] : rows) {
        SCOPED_TRACE(date);
        TRecLabelPervichka_File mark = theMark();
        mark.date = date;
        EXPECT_EQ(GetStringMPC("12345", "500", mark), withText(16, columns));
    }
}

TEST(MpcLine, AnglesRoundWithoutACarry)
{
    TRecLabelPervichka_File mark = theMark();
    mark.RA = 359.9999999;
    mark.DE = -9.99999999;
    EXPECT_EQ(GetStringMPC("12345", "500", mark),
              "12345         C2023 02 25.50000 23 59 60.00 -09 59 60.0          09.5 R      500");
    mark.RA = 360.0;
    mark.DE = -90.0;
    EXPECT_EQ(GetStringMPC("12345", "500", mark),
              "12345         C2023 02 25.50000 24 00 00.00 -90 00 00.0          09.5 R      500");
}

TEST(MpcLine, PositiveDeclinationHasNoSignAndALineOf79Columns)
{
    TRecLabelPervichka_File mark = theMark();
    mark.DE = 0.5;
    const std::string line = GetStringMPC("12345", "500", mark);
    EXPECT_EQ(line, "12345         C2023 02 25.50000 01 00 00.00 00 30 00.0          09.5 R      500");
    EXPECT_EQ(line.size(), 79U);
    mark.DE = 0.0;
    EXPECT_EQ(GetStringMPC("12345", "500", mark),
              "12345         C2023 02 25.50000 01 00 00.00 00 00 00.0          09.5 R      500");
}

TEST(MpcLine, MagnitudesBelowTenInTheirRoundedTextAreFilledUp)
{
    const struct
    {
        double m;
        const char* columns;
    } rows[] = {
        {0.0, "00.0"},   {9.5, "09.5"},  {9.94, "09.9"},  {9.96, "10.0"},
        {9.996, "10.0"}, {10.0, "10.0"}, {15.37, "15.4"}, {21.0, "21.0"},
    };
    for (const auto& [m, columns] : rows) {
        SCOPED_TRACE(m);
        TRecLabelPervichka_File mark = theMark();
        mark.m = m;
        EXPECT_EQ(GetStringMPC("12345", "500", mark), withText(66, columns));
    }
}

TEST(MpcLine, NegativeMagnitudesAreFilledUpTooAndMoveTheRest)
{
    const struct
    {
        double m;
        const char* text;
    } rows[] = {{-1.0, "0-1.0"}, {-1.2, "0-1.2"},    {-0.004, "0-0.0"},
                {-0.0, "0-0.0"}, {-9.996, "0-10.0"}, {-12.3, "0-12.3"}};
    for (const auto& [m, text] : rows) {
        SCOPED_TRACE(text);
        TRecLabelPervichka_File mark = theMark();
        mark.m = m;
        EXPECT_EQ(GetStringMPC("12345", "500", mark),
                  observation.substr(0, 65) + text + observation.substr(69));
    }
    TRecLabelPervichka_File mark = theMark();
    mark.m = -1.0;
    EXPECT_EQ(GetStringMPC("12345", "500", mark).size(), 81U);
}

TEST(MpcLine, MagnitudeFromAHundredOnMovesTheRest)
{
    TRecLabelPervichka_File mark = theMark();
    mark.m = 100.5;
    EXPECT_EQ(GetStringMPC("12345", "500", mark),
              "12345         C2023 02 25.50000 01 00 00.00 -00 30 00.0          100.5 R      500");
}

TEST(MpcLine, BandsStandInColumn71)
{
    const struct
    {
        const char* band;
        const char* columns;
    } rows[] = {
        {"R", "R      "}, {"", "       "}, {"V", "V      "}, {"Vq~0yn5", "Vq~0yn5"}, {"B-of-8-l", "B-of-8-l"},
    };
    for (const auto& [band, columns] : rows) {
        SCOPED_TRACE(band);
        TRecLabelPervichka_File mark = theMark();
        mark.filtr = band;
        EXPECT_EQ(GetStringMPC("12345", "500", mark), observation.substr(0, 70) + columns + "500");
    }
}

TEST(MpcLine, CodeStandsAsItIs)
{
    for (const char* code : {"W85", "", "G", "F51X", "a code"}) {
        SCOPED_TRACE(code);
        EXPECT_EQ(GetStringMPC("12345", code, theMark()), observation.substr(0, 77) + code);
    }
}

TEST(MpcLine, WritesWhatIsNoNumberAsItIs)
{
    constexpr double none = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(GetStringMPC("12345", "500", {.date = 60000, .time = none, .RA = none, .DE = none, .m = none}),
              "12345         C2023 02 25an 00 00 nan 00 00 nan          nan R      500");
}

// Writing reports.

TEST(MpcReport, WritesTheHeaderAndTheMarks)
{
    TrackVtorichka track = trackNamed("12345", {theMark(), {.date = 60001, .time = 0.25, .DE = -1.0}});
    track.MPCHeader = fullHeader();
    EXPECT_EQ(written({track}),
              "COD W85\n"
              "CON A. Contact, 1 Some Street [contact@example.org]\n"
              "OBS A. Observer, B. Observer\n"
              "MEA C. Measurer\n"
              "COM two  blanks stay\n"
              "TEL 1.0-m f/8 reflector + CCD\n"
              "ACK night 1\n"
              "AC2 ack@example.org\n"
              "NET Gaia DR3\n"
              "12345         C2023 02 25.50000 01 00 00.00 -00 30 00.0          09.5 R      W85\n"
              "12345         C2023 02 26.25000 00 00 00.00 -01 00 00.0          00.0 R      W85\n");
}

TEST(MpcReport, HeaderIsThatOfTheFirstTrackAndCodesAreOfEachTrack)
{
    TrackVtorichka first = trackNamed("11111", {theMark()});
    TrackVtorichka second = trackNamed("22222", {theMark()});
    first.MPCHeader.OBS = "A. Observer";
    second.MPCHeader.COD = "W85";
    second.MPCHeader.OBS = "B. Observer";
    second.MPCHeader.TEL = "another";
    EXPECT_EQ(written({first, second}),
              "COD 500\n"
              "OBS A. Observer\n"
              "11111         C2023 02 25.50000 01 00 00.00 -00 30 00.0          09.5 R      500\n"
              "22222         C2023 02 25.50000 01 00 00.00 -00 30 00.0          09.5 R      W85\n");
}

TEST(MpcReport, NameOfTheCheckerIsPreferred)
{
    TrackVtorichka checked = trackNamed("11111", {theMark()});
    checked.MPCChecker = "K23A01B";
    checked.NORAD = "33333";
    TrackVtorichka unchecked = trackNamed("22222", {theMark()});
    unchecked.NORAD = "33333";
    EXPECT_EQ(written({checked, unchecked, trackNamed("", {theMark()})}),
              "COD 500\n"
              "     K23A01B  C2023 02 25.50000 01 00 00.00 -00 30 00.0          09.5 R      500\n"
              "22222         C2023 02 25.50000 01 00 00.00 -00 30 00.0          09.5 R      500\n"
              "              C2023 02 25.50000 01 00 00.00 -00 30 00.0          09.5 R      500\n");
}

TEST(MpcReport, TracksWithoutMarksAddNoLines)
{
    TrackVtorichka empty = trackNamed("11111", {});
    empty.MPCHeader.COD = "W85";
    EXPECT_EQ(written({empty}), "COD W85\n");
    EXPECT_EQ(written({empty, trackNamed("22222", {theMark()}), empty}),
              "COD W85\n"
              "22222         C2023 02 25.50000 01 00 00.00 -00 30 00.0          09.5 R      500\n");
    empty.MPCHeader.COD = "";
    EXPECT_EQ(written({empty}), "");
}

TEST(MpcReport, ReplacesTheFile)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.txt", std::string(10000, 'x'));
    sMPC(folder / "a.txt", {trackNamed("11111", {})});
    EXPECT_EQ(bytesOf(folder / "a.txt"), "COD 500\n");
}

TEST(MpcReport, EmptyListMakesNoFileAndLeavesOne)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.txt", "before");
    sMPC(folder / "a.txt", {});
    EXPECT_EQ(bytesOf(folder / "a.txt"), "before");
    sMPC(folder / "b.txt", {});
    EXPECT_FALSE(exists(folder / "b.txt"));
    EXPECT_NO_THROW(sMPC(folder / "missing/b.txt", {}));
}

TEST(MpcReport, FileThatCannotBeWrittenRaisesCode7)
{
    expectCode7([](const std::string& path) { sMPC(path, {trackNamed("12345", {theMark()})}); });
}

// Writing with a comparison.

TEST(MpcComparison, WritesResidualsAndTheEphemeris)
{
    const Tracks ephemeris = {trackNamed("", {{.date = 1,
                                               .time = 0.9,
                                               .RA = 15.1,
                                               .DE = -0.4,
                                               .m = 17.25,
                                               .RefValue4 = 0.5,
                                               .RefValue5 = -0.25,
                                               .RefValue6 = 0.75}})};
    TrackVtorichka track = checkedTrack("12345", {theMark()});
    track.MPCHeader.OBS = "A. Observer";
    EXPECT_EQ(compared({track}, ephemeris),
              "COD 500\n"
              "OBS A. Observer\n" +
                  observation +
                  "         0.50 -0.25  0.75      (01 00 24.00 -00 24 00.0 17.25 12:00:00.000)\n");
}

TEST(MpcComparison, WideResidualsAreKeptWholeAndTheTimeIsCarried)
{
    TRecLabelPervichka_File mark = theMark();
    mark.time = day(23, 59, 59.9999);
    const Tracks ephemeris = {trackNamed("", {{.RA = 359.9999999,
                                               .DE = 12.5,
                                               .m = -1.2,
                                               .RefValue4 = 123.456,
                                               .RefValue5 = -12.25,
                                               .RefValue6 = 1000.0}})};
    EXPECT_EQ(compared({checkedTrack("12345", {mark})}, ephemeris),
              "COD 500\n" + withText(26, ".00000") +
                  "   !!   123.46 -12.25 1000.00      (23 59 60.00 12 30 00.0 -1.20 00:00:00.000)\n");
    mark.time = 0.123456789;
    EXPECT_EQ(compared({checkedTrack("12345", {mark})}, ephemeris),
              "COD 500\n" + withText(26, ".12346") +
                  "   !!   123.46 -12.25 1000.00      (23 59 60.00 12 30 00.0 -1.20 02:57:46.667)\n");
}

TEST(MpcComparison, FlagTellsTheGreaterOfTheFirstTwoResiduals)
{
    const struct
    {
        double first;
        double second;
        double third;
        const char* block;
    } rows[] = {
        {0.0, 0.0, 0.0, "         0.00  0.00  0.00"},
        {1.0, 1.0, 9.0, "         1.00  1.00  9.00"},
        {-1.0, -1.0, -9.0, "        -1.00 -1.00 -9.00"},
        {1.0000001, 0.0, 0.0, "    !    1.00  0.00  0.00"},
        {0.0, 1.0000001, 0.0, "    !    0.00  1.00  0.00"},
        {-1.0000001, 0.0, 0.0, "    !   -1.00  0.00  0.00"},
        {0.0, -1.5, 0.0, "    !    0.00 -1.50  0.00"},
        {2.0, 2.0, 0.0, "    !    2.00  2.00  0.00"},
        {-2.0, 0.0, 0.0, "    !   -2.00  0.00  0.00"},
        {2.0000001, 0.0, 0.0, "   !!    2.00  0.00  0.00"},
        {0.0, 2.0000001, 0.0, "   !!    0.00  2.00  0.00"},
        {0.0, -2.0000001, 0.0, "   !!    0.00 -2.00  0.00"},
        {1.5, -2.5, 0.0, "   !!    1.50 -2.50  0.00"},
        {-2.5, 1.5, 0.0, "   !!   -2.50  1.50  0.00"},
        {std::numeric_limits<double>::quiet_NaN(), 3.0, 0.0, "   !!     nan  3.00  0.00"},
        {1.5, std::numeric_limits<double>::quiet_NaN(), 0.0, "    !    1.50   nan  0.00"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.block);
        const Tracks ephemeris = {
            trackNamed("", {{.RefValue4 = row.first, .RefValue5 = row.second, .RefValue6 = row.third}})};
        EXPECT_EQ(compared({checkedTrack("12345", {theMark()})}, ephemeris),
                  "COD 500\n" + observation + row.block +
                      "      (00 00 00.00 00 00 00.0 0.00 12:00:00.000)\n");
    }
}

TEST(MpcComparison, UnsetResidualsHaveNoFlag)
{
    EXPECT_EQ(compared({checkedTrack("12345", {theMark()})}, {trackNamed("", {{.m = 9.996}})}),
              "COD 500\n" + observation +
                  "        -1.00 -1.00 -1.00      (00 00 00.00 00 00 00.0 10.00 12:00:00.000)\n");
}

TEST(MpcComparison, EphemerisWithoutMarksGivesQuestionMarks)
{
    EXPECT_EQ(compared({checkedTrack("12345", {theMark(), theMark()})}, {trackNamed("", {})}),
              "COD 500\n" + observation + "???\n" + observation + "???\n");
}

TEST(MpcComparison, ShorterSecondListGivesQuestionMarks)
{
    const std::string block = "        -1.00 -1.00 -1.00      (00 00 00.00 00 00 00.0 0.00 12:00:00.000)\n";
    const Tracks tracks = {checkedTrack("12345", {theMark(), theMark()}), checkedTrack("12345", {theMark()})};
    EXPECT_EQ(compared(tracks, {}),
              "COD 500\n" + observation + "???\n" + observation + "???\n" + observation + "???\n");
    EXPECT_EQ(compared(tracks, {trackNamed("", {{}})}),
              "COD 500\n" + observation + block + observation + "???\n" + observation + "???\n");
}

TEST(MpcComparison, PlacesInTheTwoListsAreParallel)
{
    const auto residual = [](double value) {
        return TRecLabelPervichka_File{.RefValue4 = value, .RefValue5 = 0.0, .RefValue6 = 0.0};
    };
    const std::string behind = "  0.00  0.00      (00 00 00.00 00 00 00.0 0.00 12:00:00.000)\n";
    const Tracks tracks = {checkedTrack("12345", {theMark(), theMark()}), checkedTrack("12345", {}),
                           checkedTrack("12345", {theMark()})};
    const Tracks ephemeris = {trackNamed("", {residual(0.1), residual(0.2), residual(0.3)}),
                              trackNamed("", {residual(0.4)}), trackNamed("", {residual(0.5)}),
                              trackNamed("", {residual(0.6)})};
    EXPECT_EQ(compared(tracks, ephemeris), "COD 500\n" + observation + "         0.10" + behind +
                                               observation + "         0.20" + behind + observation +
                                               "         0.50" + behind);
}

TEST(MpcComparison, NameIsAlwaysThatOfTheChecker)
{
    TrackVtorichka track = trackNamed("11111", {theMark()});
    EXPECT_EQ(compared({track}, {}), "COD 500\n            " + observation.substr(12) + "???\n");
    track.MPCChecker = "12345";
    EXPECT_EQ(compared({track}, {}), "COD 500\n" + observation + "???\n");
}

TEST(MpcComparison, HeaderIsThatOfTheFirstTrackAndCodesAreOfEachTrack)
{
    TrackVtorichka first = checkedTrack("12345", {});
    TrackVtorichka second = checkedTrack("12345", {theMark()});
    first.MPCHeader = fullHeader();
    second.MPCHeader.COD = "G96";
    second.MPCHeader.ACK = "night 2";
    EXPECT_EQ(compared({first, second}, {}), "COD W85\n"
                                             "CON A. Contact, 1 Some Street [contact@example.org]\n"
                                             "OBS A. Observer, B. Observer\n"
                                             "MEA C. Measurer\n"
                                             "COM two  blanks stay\n"
                                             "TEL 1.0-m f/8 reflector + CCD\n"
                                             "ACK night 1\n"
                                             "AC2 ack@example.org\n"
                                             "NET Gaia DR3\n" +
                                                 withText(78, "G96") + "???\n");
}

TEST(MpcComparison, EmptyListMakesNoFileAndLeavesOne)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.txt", "before");
    const Tracks ephemeris = {trackNamed("", {{}})};
    sMPCAndHorRes(folder / "a.txt", {}, ephemeris);
    EXPECT_EQ(bytesOf(folder / "a.txt"), "before");
    sMPCAndHorRes(folder / "b.txt", {}, ephemeris);
    EXPECT_FALSE(exists(folder / "b.txt"));
}

TEST(MpcComparison, FileThatCannotBeWrittenRaisesCode7)
{
    expectCode7(
        [](const std::string& path) { sMPCAndHorRes(path, {checkedTrack("12345", {theMark()})}, {}); });
}

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

// What is written and read back.

TEST(MpcReport, ComesBackWithinItsPrecision)
{
    TrackVtorichka first = checkedTrack(
        "K23A01B",
        {{.date = 60000, .time = 0.123456789, .RA = 123.456789, .DE = -12.3456789, .m = 15.37, .filtr = "V"},
         {.date = 60001, .time = 0.5, .RA = 0.0, .DE = -0.0001, .m = 0.0}});
    first.MPCHeader = fullHeader();
    const TrackVtorichka second = trackNamed(
        "12345",
        {{.date = 60002, .time = 0.999994, .RA = 359.99999, .DE = -89.99999, .m = 9.96, .filtr = "Vq~0yn5"}});
    const Tracks tracks = readBack({first, second});
    ASSERT_EQ(outline(tracks), (Lines{"K23A01B 2", "12345 1"}));
    EXPECT_EQ(tracks[1].QRVName, "");

    const TRecLabelPervichka_File before[] = {first.Marks[0], first.Marks[1], second.Marks[0]};
    const TRecLabelPervichka_File after[] = {tracks[0].Marks[0], tracks[0].Marks[1], tracks[1].Marks[0]};
    for (std::size_t i = 0; i < 3; ++i) {
        SCOPED_TRACE(i);
        EXPECT_EQ(int(after[i].date), int(before[i].date));
        EXPECT_NEAR(double(after[i].time), double(before[i].time), 0.500001e-5);
        EXPECT_NEAR(double(after[i].RA), double(before[i].RA), 0.005001 / 240.0);
        EXPECT_NEAR(double(after[i].DE), double(before[i].DE), 0.05001 / 3600.0);
        EXPECT_NEAR(double(after[i].m), double(before[i].m), 0.05001);
        EXPECT_EQ(std::string(after[i].filtr), std::string(before[i].filtr));
    }
}

TEST(MpcReport, CodesOfLaterTracksDoNotComeBack)
{
    TrackVtorichka first = trackNamed("11111", {theMark()});
    TrackVtorichka second = trackNamed("22222", {theMark()});
    first.MPCHeader = fullHeader();
    second.MPCHeader.COD = "G96";
    const Tracks tracks = readBack({first, second});
    ASSERT_EQ(outline(tracks), (Lines{"11111 1", "22222 1"}));
    expectHeader(tracks[0].MPCHeader, fullHeader());
    expectHeader(tracks[1].MPCHeader, fullHeader());
}

TEST(MpcReport, DayThatIsRoundedUpComesBackADayEarlier)
{
    TRecLabelPervichka_File mark = theMark();
    mark.time = 0.999999;
    const Tracks tracks = readBack({trackNamed("12345", {mark})});
    ASSERT_EQ(tracks.size(), 1U);
    expectMark(tracks[0].Marks[0], {60000, 0.0, 15.0, -0.5, 9.5}, "R");
}

TEST(MpcReport, PositiveDeclinationsDoNotComeBack)
{
    TRecLabelPervichka_File mark = theMark();
    mark.DE = 0.5;
    EXPECT_TRUE(readBack({trackNamed("12345", {mark})}).empty());
    EXPECT_EQ(outline(readBack({trackNamed("12345", {mark, theMark(), mark})})), Lines{"12345 1"});
}

TEST(MpcReport, NegativeMagnitudesDoNotComeBack)
{
    TRecLabelPervichka_File mark = theMark();
    mark.m = -1.0;
    EXPECT_TRUE(readBack({trackNamed("12345", {mark})}).empty());
}

TEST(MpcReport, MissingSignAndNegativeMagnitudeMakeUpForEachOther)
{
    TRecLabelPervichka_File mark = theMark();
    mark.DE = 0.5;
    mark.m = -1.0;
    EXPECT_EQ(GetStringMPC("12345", "500", mark),
              "12345         C2023 02 25.50000 01 00 00.00 00 30 00.0          0-1.0 R      500");
    const Tracks tracks = readBack({trackNamed("12345", {mark})});
    ASSERT_EQ(tracks.size(), 1U);
    expectMark(tracks[0].Marks[0], {60000, 0.5, 15.0, 0.5, -1.0}, "R");
}

TEST(MpcReport, WideNamesBandsAndCodesDoNotComeBack)
{
    TRecLabelPervichka_File band = theMark();
    band.filtr = "B-of-8-l";
    TrackVtorichka code = trackNamed("33333", {theMark()});
    code.MPCHeader.COD = "W855";
    TrackVtorichka noCode = trackNamed("44444", {theMark()});
    noCode.MPCHeader.COD = "";
    EXPECT_TRUE(
        readBack({trackNamed("0123456789abc", {theMark()}), trackNamed("22222", {band}), code, noCode})
            .empty());
}

TEST(MpcReport, ComparisonsDoNotComeBack)
{
    EXPECT_TRUE(readFile(compared({checkedTrack("12345", {theMark()})}, {})).empty());
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

// The table of report marks.

TEST(MpcTable, HasItsColumns)
{
    EXPECT_EQ(getHeadMPC(), "N:Int\tNBl:Int\tdate:Date\ttime:Time\tName:Text\tRA:Float:deg\tDE:Float:deg"
                            "\tm:Float:mag\tNEORatio:Float\tDraw:Bool");
}

TEST(MpcTable, FileHasTheVersionAndTheColumns)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.txt", std::string(10000, 'x'));
    sMPCHeadTrack(folder / "a.txt");
    EXPECT_EQ(bytesOf(folder / "a.txt"),
              "v2\n"
              "N:Int\tNBl:Int\tdate:Date\ttime:Time\tName:Text\tRA:Float:deg\tDE:Float:deg"
              "\tm:Float:mag\tNEORatio:Float\tDraw:Bool\n");
}

TEST(MpcTable, FileThatCannotBeWrittenRaisesCode7)
{
    expectCode7([](const std::string& path) { sMPCHeadTrack(path); });
}
