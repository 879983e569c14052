// What a copy for the Minor Planet Center mends and what it refuses to guess.

#include "receivers/mpc_copy.h"

#include "companion/copies.h"
#include "receivers/mpc_header.h"
#include "receivers/report_mends.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <vector>

namespace {

using companion::Copy;
using companion::CopySettings;
using companion::CopyTrack;
using companion::Observatory;
using copies::completeObservatory;
using copies::linesOf;
using copies::markAt;
using copies::trackOf;
using copies::usualSettings;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

Copy copied(const std::vector<CopyTrack>& tracks, const CopySettings& settings = usualSettings())
{
    Copy copy = companion::mpcCopy(tracks, settings);
    if (!copy.text.empty()) {
        EXPECT_THAT(copies::linted(copy.text, "mpc", "mpc"), IsEmpty());
    }
    return copy;
}

// The observations of a copy, which has one header.
std::vector<std::string> observations(const Copy& copy)
{
    std::vector<std::string> lines;
    for (const std::string& line : linesOf(copy.text)) {
        if (line.size() == 80) {
            lines.push_back(line);
        }
    }
    return lines;
}

std::vector<std::string> observationsOf(const CopyTrack& track,
                                        const CopySettings& settings = usualSettings())
{
    return observations(copied({track}, settings));
}

CopyTrack coarse(CopyTrack track)
{
    for (companion::CopyMark& mark : track.marks) {
        mark.steps = {0.864, 0.15, 0.1, 0.1};
    }
    return track;
}

// A track of one line of a report in 80 columns, of 2025-02-23.5, magnitude 18.5 in G.
CopyTrack reported(const std::string& line)
{
    CopyTrack track = coarse(trackOf("AST1000", {markAt(0.5, 15, -0.5)}));
    track.isOf80Columns = true;
    track.note2 = 'C';
    track.marks[0].line80 = line;
    return track;
}

std::vector<std::string> refusals(const CopyTrack& track, const CopySettings& settings = usualSettings())
{
    const Copy copy = copied({track}, settings);
    EXPECT_EQ(copy.refused, track.marks.size());
    EXPECT_EQ(copy.text, "");
    return copies::textsOf(copy.reasons);
}

} // namespace

TEST(MpcCopy, AHeaderComesBeforeTheObservationsOfAStation)
{
    EXPECT_EQ(copied({trackOf("K24Y04R", {markAt(0.51234, 187.551417, 1.341694)})}).text,
              "COD K88\n"
              "OBS A. B. Sender\n"
              "MEA C. Reader, D. Reader\n"
              "TEL 0.6-m f/4.0 reflector + CCD\n"
              "NET Gaia-DR3\n"
              "ACK Observations of K88, 2025-02-23\n"
              "AC2 a@example.org\n"
              "     K24Y04R  C2025 02 23.51234 12 30 12.340+01 20 30.10         18.50G      K88\n");
}

TEST(MpcCopy, MendsTheSignOfANorthernDeclination)
{
    const Copy copy = copied({trackOf("AST1000", {markAt(0.5, 15, 0.5), markAt(0.6, 15, -0.5)})});
    EXPECT_THAT(observations(copy),
                ElementsAre(HasSubstr("01 00 00.000+00 30 00.00"), HasSubstr("01 00 00.000-00 30 00.00")));
    EXPECT_THAT(copies::textsOf(copy.mended),
                ElementsAre("V423 mended: the declination has its sign in column 45, 1 mark"));
}

TEST(MpcCopy, MendsSecondsOf60)
{
    const Copy copy = copied({coarse(trackOf("AST1000", {markAt(0.5, 15.0 - 1e-7, -1.0 + 1e-7)}))});
    EXPECT_THAT(observations(copy), ElementsAre(HasSubstr("01 00 00.00 -01 00 00.0 ")));
    EXPECT_THAT(copies::textsOf(copy.mended), ElementsAre("V423 mended: seconds of 60 are carried, 1 mark"));
}

TEST(MpcCopy, MendsTheLastHalfSecondOfADayAndOfAYear)
{
    auto mark = markAt(0.999999, 15, -0.5);
    mark.date = 60675; // 2024-12-31
    const Copy copy = copied({trackOf("AST1000", {mark})});
    EXPECT_THAT(observations(copy), ElementsAre(HasSubstr("C2025 01 01.00000 ")));
    EXPECT_THAT(copies::textsOf(copy.mended),
                ElementsAre("V423 mended: the time is carried into the next day, 1 mark"));
}

TEST(MpcCopy, MendsARightAscensionOf24Hours)
{
    for (const double rightAscension : {359.9999999, 360.0}) {
        const Copy copy = copied({trackOf("AST1000", {markAt(0.5, rightAscension, -0.5)})});
        EXPECT_THAT(observations(copy), ElementsAre(HasSubstr(" 00 00 00.000-00")));
        EXPECT_THAT(copies::textsOf(copy.mended),
                    Contains("V423 mended: a right ascension of 24 h is 0 h, 1 mark"));
    }
}

TEST(MpcCopy, ADeclinationOfMinus0KeepsItsSign)
{
    EXPECT_THAT(observationsOf(trackOf("AST1000", {markAt(0.5, 15, -0.00001)})),
                ElementsAre(HasSubstr("-00 00 00.04")));
}

TEST(MpcCopy, MendsAMagnitudeThatIsNoneWithItsBand)
{
    CopyTrack track = trackOf("AST1000", {markAt(0.5, 15, -0.5), markAt(0.6, 15, -0.5)});
    track.marks[0].hasMagnitude = false;
    track.track.Marks[1].m = 0;
    const Copy copy = copied({track});
    EXPECT_THAT(observations(copy), ElementsAre(HasSubstr("-00 30 00.00                     K88"),
                                                HasSubstr("-00 30 00.00                     K88")));
    EXPECT_THAT(copies::textsOf(copy.mended),
                ElementsAre("V423 mended: a magnitude that is none is left blank, 2 marks"));
}

TEST(MpcCopy, AMagnitudeOf0IsOneWhereTheCallSaysSo)
{
    CopyTrack track = trackOf("AST1000", {markAt(0.5, 15, -0.5)});
    track.track.Marks[0].m = 0;
    CopySettings settings = usualSettings();
    settings.takesZeroMagnitudes = true;
    EXPECT_THAT(observations(companion::mpcCopy({track}, settings)), ElementsAre(HasSubstr("  0.00G ")));
}

TEST(MpcCopy, MagnitudesAreLeftOutWhereTheCallSaysSo)
{
    CopySettings settings = usualSettings();
    settings.leavesMagnitudesOut = true;
    EXPECT_THAT(observationsOf(trackOf("AST1000", {markAt(0.5, 15, -0.5)}), settings),
                ElementsAre(HasSubstr("-00 30 00.00                     K88")));
}

TEST(MpcCopy, NegativeMagnitudesStandInTheirColumns)
{
    CopyTrack track = coarse(trackOf("AST1000", {markAt(0.5, 15, -0.5), markAt(0.6, 15, -0.5)}));
    track.track.Marks[0].m = -1.0;
    track.track.Marks[1].m = 9.5;
    EXPECT_THAT(observationsOf(track),
                ElementsAre(HasSubstr("          -1.0G      K88"), HasSubstr("          9.5 G      K88")));
    track.track.Marks[0].m = -12.34;
    track.marks[0].steps.magnitude = 0.01;
    EXPECT_THAT(observationsOf(track)[0], HasSubstr("         -12.3G      K88"));
}

TEST(MpcCopy, Columns72To77AreBlankAndThe15thTellsTheDetector)
{
    Observatory observatory = completeObservatory();
    EXPECT_THAT(observationsOf(trackOf("AST1000", {markAt(0.5, 15, -0.5)})),
                ElementsAre(StartsWith("     AST1000  C2025")));
    observatory.mode = "CMO";
    EXPECT_THAT(observationsOf(trackOf("AST1000", {markAt(0.5, 15, -0.5)}, observatory)),
                ElementsAre(StartsWith("     AST1000  B2025")));
}

TEST(MpcCopy, OtherModesHaveTheirLettersOrAreRefused)
{
    Observatory observatory = completeObservatory();
    const std::pair<const char*, const char*> modes[] = {{"VID", "n"}, {"OCC", "E"}, {"PHO", "P"},
                                                         {"ENC", "e"}, {"MER", "T"}, {"MIC", "M"}};
    for (const auto& [mode, letter] : modes) {
        observatory.mode = mode;
        EXPECT_THAT(observationsOf(trackOf("AST1000", {markAt(0.5, 15, -0.5)}, observatory)),
                    ElementsAre(StartsWith("     AST1000  " + std::string(letter) + "2025")));
    }
    for (const char* mode : {"TDI", "PMT", "UNK"}) {
        observatory.mode = mode;
        EXPECT_THAT(refusals(trackOf("AST1000", {markAt(0.5, 15, -0.5)}, observatory)),
                    ElementsAre("V316 column 15 hold \"" + std::string(mode) + "\": the mode has no letter"));
    }
}

TEST(MpcCopy, RefusesTwoPositionsOfAnObjectAtOneTime)
{
    const Copy copy = copied({trackOf("AST1000", {markAt(0.5, 15, -0.5), markAt(0.5, 15, 0.5)}),
                              trackOf("AST1001", {markAt(0.5, 15, -0.5)})});
    EXPECT_EQ(copy.refused, 1U);
    EXPECT_EQ(observations(copy).size(), 2U);
    EXPECT_THAT(copies::textsOf(copy.reasons),
                ElementsAre("V316 columns 16 to 32 hold \"2025 02 23.50000\": another position of the "
                            "object has this time"));
}

TEST(MpcCopy, MendsATimeThatFiveDecimalsMakeAnotherOneByASixth)
{
    const CopyTrack track = trackOf("AST1000", {markAt(0.5, 15, -0.5), markAt(0.500004, 15, 0.5)});
    const Copy copy = copied({track});
    EXPECT_THAT(observations(copy), ElementsAre(HasSubstr("23.50000 01"), HasSubstr("23.50000401")));
    EXPECT_THAT(
        copies::textsOf(copy.mended),
        Contains("V423 mended: the time has six decimals: with five, two positions of the object would "
                 "have one, 1 mark"));
    CopySettings settings = usualSettings();
    settings.timeDecimals = 6;
    EXPECT_THAT(observationsOf(track, settings), ElementsAre(HasSubstr("23.500000"), HasSubstr("23.500004")));
}

TEST(MpcCopy, RefusesTwoTimesThatRoundingMakesOne)
{
    const CopyTrack near = trackOf("AST1000", {markAt(0.5, 15, -0.5), markAt(0.5000002, 15, 0.5)});
    EXPECT_THAT(copies::textsOf(copied({near}).reasons),
                ElementsAre("V316 columns 16 to 32 hold \"2025 02 23.500000\": another position of the "
                            "object has this time, rounded; --for ades may tell them apart"));
    CopySettings settings = usualSettings();
    settings.timeDecimals = 5;
    const CopyTrack track = trackOf("AST1000", {markAt(0.5, 15, -0.5), markAt(0.500004, 15, 0.5)});
    EXPECT_THAT(copies::textsOf(copied({track}, settings).reasons),
                ElementsAre("V316 columns 16 to 32 hold \"2025 02 23.50000\": another position of the "
                            "object has this time, rounded; --for ades may tell them apart"));
}

TEST(MpcCopy, MendsNumbersAndDesignationsByPackingThem)
{
    EXPECT_THAT(observationsOf(trackOf("433", {markAt(0.5, 15, -0.5)})),
                ElementsAre(StartsWith("00433         C")));
    EXPECT_THAT(observationsOf(trackOf("203289", {markAt(0.5, 15, -0.5)})),
                ElementsAre(StartsWith("K3289 ")));
    const Copy copy = copied({trackOf("C/2023 A3", {markAt(0.5, 15, -0.5)})});
    EXPECT_THAT(observations(copy), ElementsAre(StartsWith("    CK23A030  C")));
    EXPECT_THAT(copies::textsOf(copy.mended), ElementsAre("V423 mended: the designation is packed, 1 mark"));
}

TEST(MpcCopy, ANumberThatGetsZerosIsPacked)
{
    EXPECT_THAT(copies::textsOf(copied({trackOf("433", {markAt(0.5, 15, -0.5)})}).mended),
                ElementsAre("V423 mended: the designation is packed, 1 mark"));
    EXPECT_THAT(copied({trackOf("00433", {markAt(0.5, 15, -0.5)})}).mended, IsEmpty());
}

TEST(MpcCopy, TemporaryNamesBeginInColumn6)
{
    EXPECT_THAT(observationsOf(trackOf("ABC123", {markAt(0.5, 15, -0.5)})),
                ElementsAre(StartsWith("     ABC123   C2025")));
}

TEST(MpcCopy, MendsTheOrderOfLines)
{
    Observatory other = completeObservatory();
    other.station = "A77";
    const Copy copy =
        copied({trackOf("BBB", {markAt(0.6, 15, -0.5), markAt(0.5, 15, -0.5)}),
                trackOf("AAA", {markAt(0.7, 15, -0.5)}), trackOf("CCC", {markAt(0.1, 15, -0.5)}, other)});
    EXPECT_THAT(observations(copy), ElementsAre(StartsWith("     CCC      C2025 02 23.1"),
                                                StartsWith("     AAA      C2025 02 23.7"),
                                                StartsWith("     BBB      C2025 02 23.5"),
                                                StartsWith("     BBB      C2025 02 23.6")));
    EXPECT_EQ(linesOf(copy.text)[0], "COD A77");
    EXPECT_EQ(linesOf(copy.text)[8], "COD K88");
}

TEST(MpcCopy, DecimalsAreThoseOfTheSourceOrOfTheCall)
{
    const CopyTrack track = trackOf("AST1000", {markAt(0.123456789, 15.12345, -0.5)});
    EXPECT_THAT(observationsOf(coarse(track)), ElementsAre(HasSubstr(".12346 01 00 29.63 -00 30 00.0 ")));
    CopySettings settings = usualSettings();
    settings.timeDecimals = 6;
    settings.rightAscensionDecimals = 2;
    settings.declinationDecimals = 1;
    EXPECT_THAT(observationsOf(track, settings), ElementsAre(HasSubstr(".12345701 00 29.63 -00 30 00.0 ")));
}

TEST(MpcCopy, LongListsOfNamesHaveSeveralLines)
{
    Observatory observatory = completeObservatory();
    observatory.observers =
        "A. Observer, B. Observer, C. Observer, D. Observer, E. Observer, F. Observer, G. Observer";
    const std::vector<std::string> lines =
        linesOf(copied({trackOf("AST1000", {markAt(0.5, 15, -0.5)}, observatory)}).text);
    EXPECT_EQ(lines[1], "OBS A. Observer, B. Observer, C. Observer, D. Observer, E. Observer, F. Observer");
    EXPECT_EQ(lines[2], "OBS G. Observer");
}

TEST(MpcCopy, RefusesAStationThatIsNotKnown)
{
    Observatory observatory = completeObservatory();
    for (const char* station : {"", "500", "telescope", "k88"}) {
        observatory.station = station;
        EXPECT_THAT(refusals(trackOf("AST1000", {markAt(0.5, 15, -0.5)}, observatory)),
                    ElementsAre("V420 the station is not known: give it by --station"))
            << station;
    }
}

TEST(MpcCopy, RefusesTheDefaultBandOfARecord)
{
    CopyTrack track = trackOf("AST1000", {markAt(0.5, 15, -0.5)});
    track.track.Marks[0].filtr = "R";
    track.marks[0].hasBand = false;
    EXPECT_THAT(
        refusals(track),
        ElementsAre("V420 the band of the magnitude is not known: give it by --band or --no-magnitudes"));
    Observatory observatory = completeObservatory();
    observatory.band = "V";
    track.observatory = std::make_shared<const Observatory>(observatory);
    EXPECT_THAT(observationsOf(track), ElementsAre(HasSubstr("18.50V ")));
}

TEST(MpcCopy, RefusesABandThatIsNoneOfTheReceiver)
{
    CopyTrack track = trackOf("AST1000", {markAt(0.5, 15, -0.5)});
    for (const char* band : {"C", "X", "Clear", "VR"}) {
        track.track.Marks[0].filtr = band;
        EXPECT_THAT(refusals(track), ElementsAre(StartsWith("V316 column 71 hold"))) << band;
    }
    track.track.Marks[0].filtr = "V ";
    EXPECT_THAT(refusals(track),
                ElementsAre("V316 column 71 hold \"V \": the band is one letter, and columns 72 "
                            "to 77 are blank"));
    Observatory observatory = completeObservatory();
    observatory.bands["Clear"] = "G";
    track.track.Marks[0].filtr = "Clear";
    track.observatory = std::make_shared<const Observatory>(observatory);
    EXPECT_THAT(observationsOf(track), ElementsAre(HasSubstr("18.50G ")));
}

TEST(MpcCopy, RefusesANameThatIsNone)
{
    for (const char* name : {"", "AST10000", "SAT-01", "1AB", "A B", "15396336"}) {
        EXPECT_THAT(refusals(trackOf(name, {markAt(0.5, 15, -0.5)})), ElementsAre(StartsWith("V312 ")))
            << name;
    }
}

TEST(MpcCopy, RefusesFiveDigitsThatMayBeAnything)
{
    for (const char* name : {"25544", "A1001"}) {
        CopyTrack track = trackOf(name, {markAt(0.5, 15, -0.5)});
        EXPECT_THAT(refusals(track), ElementsAre(StartsWith("V311 "))) << name;
        CopySettings settings = usualSettings();
        settings.areNumbers = true;
        EXPECT_THAT(observationsOf(track, settings), ElementsAre(StartsWith(name)));
        track.isIdentified = true;
        EXPECT_THAT(observationsOf(track), ElementsAre(StartsWith(name)));
    }
}

TEST(MpcCopy, RefusesArtificialSatellitesUnlessTheyAreAllowed)
{
    CopyTrack track = trackOf("16033A", {markAt(0.5, 15, -0.5)});
    EXPECT_THAT(refusals(track), ElementsAre("V318 \"16033A\" is an artificial satellite"));
    CopyTrack named = trackOf("SAT01", {markAt(0.5, 15, -0.5)});
    named.isSatellite = true;
    EXPECT_THAT(refusals(named), ElementsAre("V318 \"SAT01\" is an artificial satellite"));
    CopySettings settings = usualSettings();
    settings.allowsSatellites = true;
    EXPECT_THAT(observations(companion::mpcCopy({track}, settings)),
                ElementsAre(StartsWith("     16033A   C")));
    EXPECT_THAT(observationsOf(named, settings), ElementsAre(StartsWith("     SAT01    C")));
}

TEST(MpcCopy, RefusesWhatNoLineCanSay)
{
    CopyTrack track = trackOf("AST1000", {markAt(0.5, std::nan(""), -0.5), markAt(0.5, 15, 90.5),
                                          markAt(0.5, 15, -0.5), markAt(86400.5 / 86400, 15, -0.5)});
    track.track.Marks[2].m = 120;
    track.track.Marks[3].date = 57753; // 2016-12-31, within its leap second
    EXPECT_THAT(refusals(track),
                ElementsAre(StartsWith("V316 columns 33 to 44"), StartsWith("V316 columns 45 to 56"),
                            StartsWith("V316 columns 66 to 70"), HasSubstr("cannot say a leap second")));
}

TEST(MpcCopy, RefusesDaysAndAnglesThatAreNone)
{
    constexpr double infinite = std::numeric_limits<double>::infinity();
    CopyTrack track =
        trackOf("AST1000",
                {markAt(0.5, 15, -0.5), markAt(0.5, 15, -0.5), markAt(-0.1, 15, -0.5), markAt(2.5, 15, -0.5),
                 markAt(std::nan(""), 15, -0.5), markAt(0.5, 2e6, -0.5), markAt(0.5, 15, infinite)});
    track.track.Marks[0].date = -300000;
    track.track.Marks[1].date = 2'900'000;
    EXPECT_THAT(refusals(track),
                ElementsAre(StartsWith("V316 columns 16 to 32"), StartsWith("V316 columns 16 to 32"),
                            StartsWith("V316 columns 16 to 32"), StartsWith("V316 columns 16 to 32"),
                            StartsWith("V316 columns 16 to 32"), StartsWith("V316 columns 33 to 44"),
                            StartsWith("V316 columns 45 to 56")));
}

TEST(MpcCopy, RefusesMagnitudesThatDoNotFitTheirColumns)
{
    CopyTrack track = trackOf("AST1000", {markAt(0.5, 15, -0.5)});
    for (const double magnitude : {99.996, 100.0, -100.0, std::nan("")}) {
        track.track.Marks[0].m = magnitude;
        EXPECT_THAT(refusals(track), ElementsAre(StartsWith("V316 columns 66 to 70 hold "))) << magnitude;
    }
}

TEST(MpcCopy, AnotherDayThatRoundingReachesIsAnotherMoment)
{
    CopyTrack track = trackOf("AST1000", {markAt(0.999999, 15, -0.5), markAt(0.0, 15, 0.5)});
    track.track.Marks[1].date = 60730;
    EXPECT_THAT(copies::textsOf(copied({track}).reasons),
                ElementsAre("V316 columns 16 to 32 hold \"2025 02 24.000000\": another position of the "
                            "object has this time, rounded; --for ades may tell them apart"));
}

TEST(MpcCopy, MendsADeclinationWhoseSecondsAre60)
{
    const Copy copy = copied({coarse(trackOf("AST1000", {markAt(0.5, 15, -1.0 + 1e-7)}))});
    EXPECT_THAT(observations(copy), ElementsAre(HasSubstr("01 00 00.00 -01 00 00.0 ")));
    EXPECT_THAT(copies::textsOf(copy.mended), ElementsAre("V423 mended: seconds of 60 are carried, 1 mark"));
}

TEST(MpcCopy, ARightAscensionOfOtherTurnsIsBroughtTo0To24Hours)
{
    const Copy copy = copied({trackOf("AST1000", {markAt(0.5, 375.0, -0.5)})});
    EXPECT_THAT(observations(copy), ElementsAre(HasSubstr(" 01 00 00.000-00")));
    EXPECT_THAT(copies::textsOf(copy.mended),
                ElementsAre("V423 mended: a right ascension is brought to below 24 h, 1 mark"));
    const Copy below = copied({trackOf("AST1000", {markAt(0.5, -15.6, -0.5)})});
    EXPECT_THAT(observations(below), ElementsAre(HasSubstr(" 22 57 36.000-00")));
    EXPECT_THAT(copies::textsOf(below.mended),
                ElementsAre("V423 mended: a right ascension is brought to below 24 h, 1 mark"));
}

TEST(MpcCopy, SecondsOf0OfAnotherTurnAreNotCarriedOnes)
{
    const Copy copy = copied({trackOf("AST1000", {markAt(0.5, -14.75, -0.5)})});
    EXPECT_THAT(observations(copy), ElementsAre(HasSubstr(" 23 01 00.000-00")));
    EXPECT_THAT(copies::textsOf(copy.mended),
                ElementsAre("V423 mended: a right ascension is brought to below 24 h, 1 mark"));
}

TEST(MpcCopy, ABandOfBlanksIsNotKnown)
{
    Observatory observatory = completeObservatory();
    observatory.bands["G"] = " ";
    EXPECT_THAT(
        refusals(trackOf("AST1000", {markAt(0.5, 15, -0.5)}, observatory)),
        ElementsAre("V420 the band of the magnitude is not known: give it by --band or --no-magnitudes"));
    CopyTrack track = trackOf("AST1000", {markAt(0.5, 15, -0.5)});
    track.track.Marks[0].filtr = "  ";
    EXPECT_THAT(
        refusals(track),
        ElementsAre("V420 the band of the magnitude is not known: give it by --band or --no-magnitudes"));
}

TEST(MpcCopy, ALongLaunchDesignationHasNoRoom)
{
    CopySettings settings = usualSettings();
    settings.allowsSatellites = true;
    EXPECT_THAT(refusals(trackOf("2016-033A", {markAt(0.5, 15, -0.5)}), settings),
                ElementsAre("V312 the name \"2016-033A\" has 9 characters: names begin in column 6 and have "
                            "up to 7 letters and digits"));
}

TEST(MpcCopy, OfAReportOnlyWhatIsOtherIsTold)
{
    CopyTrack track =
        reported("     AST1000  C2025 02 23.50000 01 00 00.00 -00 30 00.0          18.5 GW     K88");
    EXPECT_THAT(copies::textsOf(copied({track}).mended),
                ElementsAre("V423 mended: columns 72 to 77 are blank, 1 mark"));
    CopySettings settings = usualSettings();
    settings.leavesMagnitudesOut = true; // as asked for, and not a mend
    EXPECT_THAT(copies::textsOf(copied({track}, settings).mended),
                ElementsAre("V423 mended: columns 72 to 77 are blank, 1 mark"));
    track.track.Marks[0].m = 0;
    EXPECT_THAT(copies::textsOf(copied({track}).mended),
                ElementsAre("V423 mended: a magnitude that is none is left blank, 1 mark",
                            "V423 mended: columns 72 to 77 are blank, 1 mark"));
}

TEST(MpcCopy, ADesignationOfAReportIsPacked)
{
    CopyTrack track =
        reported("C/2023 A3     C2025 02 23.50000 01 00 00.00 -00 30 00.0          18.5 G      K88");
    track.track.QRVName = "C/2023 A3";
    EXPECT_THAT(copies::textsOf(copied({track}).mended),
                ElementsAre("V423 mended: the designation is packed, 1 mark"));
}

TEST(ReportMends, LinesOfAnotherWidthAreNotCompared)
{
    const std::string line = observationsOf(trackOf("AST1000", {markAt(0.5, 15, -0.5)})).at(0);
    const std::string other = line.substr(0, 15) + "2026" + line.substr(19);
    EXPECT_THAT(companion::reportMends(other, line), ElementsAre("the time is carried into the next day"));
    EXPECT_THAT(companion::reportMends(other.substr(0, 79), line), IsEmpty());
    EXPECT_THAT(companion::reportMends(other, line + ' '), IsEmpty());
}

TEST(MpcCopy, OnlyStationCodesEndInTwoDigits)
{
    EXPECT_TRUE(companion::isOnlyStationCode("K88"));
    EXPECT_TRUE(companion::isOnlyStationCode("010"));
    for (const char* text : {"", "K8", "K8A", "KA8", "500", "k88", "K888"}) {
        EXPECT_FALSE(companion::isOnlyStationCode(text)) << text;
    }
}

TEST(MpcCopy, RefusesAHeaderWithoutObserversOrWithNamesOfAnotherForm)
{
    Observatory observatory = completeObservatory();
    observatory.observers = "";
    EXPECT_THAT(
        refusals(trackOf("AST1000", {markAt(0.5, 15, -0.5)}, observatory)),
        ElementsAre("V420 the name of the observers is not known: give it by observers of --profile"));
    observatory.observers = "John Smith";
    EXPECT_THAT(refusals(trackOf("AST1000", {markAt(0.5, 15, -0.5)}, observatory)),
                ElementsAre(HasSubstr("the name \"John Smith\" is not written as")));
    observatory.observers = "A. M\xC3\xBCller";
    EXPECT_THAT(refusals(trackOf("AST1000", {markAt(0.5, 15, -0.5)}, observatory)),
                ElementsAre(HasSubstr("its line OBS has characters that are not ASCII")));
}

TEST(MpcHeader, NamesHaveCommasBetweenThem)
{
    EXPECT_THAT(companion::namesOf(" A. One,, B. Two , "), ElementsAre("A. One", "B. Two"));
    EXPECT_THAT(companion::namesOf(" "), IsEmpty());
}

TEST(MpcHeader, AnAddressThatIsNotKnownHasNoLine)
{
    Observatory observatory = completeObservatory();
    observatory.contact = "A. B. Sender, Observatory Road 1";
    EXPECT_THAT(companion::mpcHeader(observatory, ""),
                HasSubstr("\nCON A. B. Sender, Observatory Road 1\nCON [a@example.org]\nOBS "));
    observatory.email = "";
    EXPECT_THAT(companion::mpcHeader(observatory, ""),
                HasSubstr("\nCON A. B. Sender, Observatory Road 1\nOBS "));
}

TEST(MpcHeader, RefusesLinesThatAreTooLongOrNotAscii)
{
    Observatory observatory = completeObservatory();
    observatory.contact = std::string(76, 'x');
    EXPECT_THAT(companion::mpcHeaderFaults(observatory, true), IsEmpty());
    observatory.contact = std::string(77, 'x');
    EXPECT_THAT(copies::textsOf(companion::mpcHeaderFaults(observatory, true)),
                ElementsAre(HasSubstr("its line CON has 81 columns, at most 80")));
    observatory.contact = "a\x7F";
    EXPECT_THAT(copies::textsOf(companion::mpcHeaderFaults(observatory, true)),
                ElementsAre(HasSubstr("its line CON has characters that are not ASCII")));
}

TEST(MpcHeader, WhatAnObservatoryHasIsNotReadFromItsTelescopeLine)
{
    Observatory observatory;
    observatory.telescope = "0.41-m f/10 Schmidt-Cassegrain + CCD";
    observatory.aperture = "0.4";
    observatory.detector = "CMOS";
    companion::readTelescopeLine(observatory);
    EXPECT_EQ(observatory.aperture, "0.4");
    EXPECT_EQ(observatory.fRatio, "10");
    EXPECT_EQ(observatory.design, "Schmidt-Cassegrain");
    EXPECT_EQ(observatory.detector, "CMOS");
}

TEST(MpcCopy, RefusesAFurtherStationWithoutTelescopeAndCatalogue)
{
    Observatory bare = completeObservatory();
    bare.aperture = "";
    bare.astrometricCatalogue = "";
    Observatory other = bare;
    other.station = "Z99";
    const Copy copy = copied({trackOf("AST1000", {markAt(0.5, 15, -0.5)}, bare),
                              trackOf("AST1000", {markAt(0.5, 15, -0.5)}, other)});
    EXPECT_EQ(copy.refused, 1U);
    EXPECT_EQ(observations(copy).size(), 1U);
    EXPECT_THAT(copies::textsOf(copy.reasons),
                ElementsAre(StartsWith("V420 the telescope of a further station"),
                            StartsWith("V420 the star catalogue of a further station")));
}

TEST(MpcCopy, RefusalsAreToldWithTheirLines)
{
    const Copy copy = copied({trackOf("AST10000", {markAt(0.5, 15, -0.5), markAt(0.6, 15, -0.5)})});
    ASSERT_EQ(copy.reasons.size(), 2U);
    EXPECT_EQ(copy.reasons[0].file, "night.mea");
    EXPECT_EQ(copy.reasons[0].line, 2U);
    EXPECT_EQ(copy.reasons[1].line, 3U);
    EXPECT_EQ(copy.reasons[1].places.at(0).mark.time, "2025-02-23T14:24:00.000");
}
