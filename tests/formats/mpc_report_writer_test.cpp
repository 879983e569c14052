#include "formats/mpc_report.h"

#include "support/failed_writes.h"
#include "support/measured_marks.h"
#include "support/mpc_reports.h"
#include "support/sexagesimal.h"
#include "support/temporary_folder.h"
#include "support/tracks.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

using namespace tavelinUtils;
using namespace mpcReports;

namespace {

using Lines = std::vector<std::string>;
using Tracks = std::vector<TrackVtorichka>;

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
    mark.time = -0.0;
    EXPECT_EQ(GetStringMPC("12345", "500", mark),
              "12345         C2023 02 250.00000 01 00 00.00 -00 30 00.0          09.5 R      500");
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
