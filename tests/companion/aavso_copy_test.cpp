// What a copy for the AAVSO mends and what it refuses to guess.

#include "receivers/aavso_copy.h"

#include "companion/copies.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

namespace {

using companion::Copy;
using companion::CopySettings;
using companion::CopyTrack;
using companion::MagnitudeKind;
using companion::Observatory;
using copies::completeObservatory;
using copies::linesOf;
using copies::markAt;
using copies::usualSettings;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

Copy copied(const std::vector<CopyTrack>& tracks, const CopySettings& settings = usualSettings())
{
    Copy copy = companion::aavsoCopy(tracks, settings);
    if (!copy.text.empty()) {
        EXPECT_THAT(copies::linted(copy.text, "aavso", "aavso"), IsEmpty());
    }
    return copy;
}

// A star with an ensemble magnitude in V.
CopyTrack star(const std::string& name = "V1023 Her", const Observatory& observatory = completeObservatory())
{
    CopyTrack track = copies::trackOf(name, {markAt(0.25315, 15, 0.5)}, observatory);
    track.track.Marks[0].date = 57878;
    track.track.Marks[0].mEnsemble = 12.847;
    track.track.Marks[0].mInstr = -7.5;
    track.track.Marks[0].SNRpeak = 91;
    track.track.Marks[0].filtr = "V";
    track.marks[0].known = {true, true, true, true};
    return track;
}

std::vector<std::string> records(const Copy& copy)
{
    std::vector<std::string> lines;
    for (const std::string& line : linesOf(copy.text)) {
        if (line[0] != '#') {
            lines.push_back(line);
        }
    }
    return lines;
}

std::vector<std::string> refusals(const CopyTrack& track, const CopySettings& settings = usualSettings())
{
    const Copy copy = copied({track}, settings);
    EXPECT_EQ(copy.refused, track.marks.size());
    EXPECT_EQ(copy.text, "");
    return copies::textsOf(copy.reasons);
}

} // namespace

TEST(AavsoCopy, AReportHasItsParametersAndARecordForAMark)
{
    EXPECT_EQ(copied({star()}).text,
              "#TYPE=Extended\n"
              "#OBSCODE=TST01\n"
              "#SOFTWARE=tavelin 0.2.0\n"
              "#DELIM=,\n"
              "#DATE=JD\n"
              "#OBSTYPE=CCD\n"
              "#NAME,DATE,MAG,MERR,FILT,TRANS,MTYPE,CNAME,CMAG,KNAME,KMAG,AMASS,GROUP,CHART,NOTES\n"
              "V1023 Her,2457878.75315000,12.847,0.0110,V,NO,DIF,ENSEMBLE,na,na,na,na,na,na,na\n");
}

TEST(AavsoCopy, EachMarkHasItsOwnFilter)
{
    CopyTrack second = star("V2");
    second.track.Marks[0].filtr = "tg";
    EXPECT_THAT(records(copied({star(), second})),
                ElementsAre(testing::HasSubstr(",0.0110,V,NO,"), testing::HasSubstr(",0.0110,TG,NO,")));
}

TEST(AavsoCopy, AJulianDateHas16CharactersAndIsCarried)
{
    CopyTrack track = star();
    track.track.Marks[0].time = 0.499999999999;
    EXPECT_THAT(records(copied({track})), ElementsAre(StartsWith("V1023 Her,2457879.00000000,")));
}

TEST(AavsoCopy, MendsWhatIsEmptyToNa)
{
    CopyTrack track = star();
    track.track.Marks[0].CHART = "";
    track.track.Marks[0].CNAME = "";
    track.track.Marks[0].MTYPE = "STD";
    const Copy copy = copied({track});
    EXPECT_THAT(records(copy), ElementsAre(testing::EndsWith(",STD,na,na,na,na,na,na,na,na")));
    EXPECT_THAT(copies::textsOf(copy.mended), ElementsAre("V423 mended: what is empty is na, 1 mark"));
}

TEST(AavsoCopy, MendsTheErrorOfAMarkWithoutSignalToNoise)
{
    CopyTrack track = star();
    track.track.Marks[0].SNRpeak = 0;
    const Copy copy = copied({track});
    EXPECT_THAT(records(copy), ElementsAre(testing::HasSubstr(",12.847,na,V,")));
    EXPECT_THAT(copies::textsOf(copy.mended),
                Contains("V423 mended: the error is na, where no signal-to-noise ratio is known, 1 mark"));
}

TEST(AavsoCopy, ACheckStarHasItsMagnitude)
{
    CopyTrack track = star();
    track.track.Marks[0].KNAME = "120";
    track.track.Marks[0].Spare2 = 12.0125;
    track.track.Marks[0].CHART = "X17724AYH";
    EXPECT_THAT(records(copied({track})),
                ElementsAre(testing::EndsWith(",na,120,12.012,na,na,X17724AYH,na")));
}

TEST(AavsoCopy, MendsTheDelimiterToOneThatNoTextHolds)
{
    CopyTrack track = star("A,B;C");
    const Copy copy = copied({track});
    EXPECT_THAT(linesOf(copy.text), Contains("#DELIM=!"));
    EXPECT_THAT(records(copy), ElementsAre(StartsWith("A,B;C!2457878.75315000!12.847!")));
    EXPECT_THAT(copies::textsOf(copy.mended),
                Contains("V423 mended: the delimiter is !, which no text holds, 1 mark"));
}

TEST(AavsoCopy, ATextWithAllDelimitersHasTabsBesideIt)
{
    const Copy copy = copied({star("A,;!|:^~B")});
    EXPECT_THAT(linesOf(copy.text), Contains("#DELIM=tab"));
    EXPECT_THAT(records(copy), ElementsAre(StartsWith("A,;!|:^~B\t2457878.75315000\t12.847\t")));
}

TEST(AavsoCopy, TheCodeOfAnotherObserverHoldsFromItsFirstRecord)
{
    Observatory other = completeObservatory();
    other.aavsoCode = "TST02";
    const std::vector<std::string> lines =
        linesOf(copied({star("V1"), star("V2", other), star("V3", other)}).text);
    ASSERT_EQ(lines.size(), 11U);
    EXPECT_EQ(lines[1], "#OBSCODE=TST01");
    EXPECT_THAT(lines[7], StartsWith("V1,"));
    EXPECT_EQ(lines[8], "#OBSCODE=TST02");
    EXPECT_THAT(lines[9], StartsWith("V2,"));
    EXPECT_THAT(lines[10], StartsWith("V3,"));
}

TEST(AavsoCopy, OnlyACheckStarHasACheckMagnitude)
{
    struct Row
    {
        const char* star;
        double magnitude;
        const char* fields;
    };
    const Row rows[] = {{"120", 12.5, ",na,120,12.500,na,"},
                        {"na", 12.5, ",na,na,na,na,"},
                        {" ", 12.5, ",na,na,na,na,"},
                        {"120", 0.0, ",na,120,na,na,"},
                        {"120", 1000.0, ",na,120,na,na,"}};
    for (const Row& row : rows) {
        CopyTrack track = star();
        track.track.Marks[0].KNAME = row.star;
        track.track.Marks[0].Spare2 = row.magnitude;
        EXPECT_THAT(records(copied({track})), ElementsAre(testing::HasSubstr(row.fields)));
    }
}

TEST(AavsoCopy, MendsAnEmptyChartBesideACheckStar)
{
    CopyTrack track = star();
    track.track.Marks[0].KNAME = "120";
    track.track.Marks[0].CHART = "";
    EXPECT_THAT(copies::textsOf(copied({track}).mended),
                ElementsAre("V423 mended: what is empty is na, 1 mark"));
}

TEST(AavsoCopy, AMagnitudeOf0IsOneWhereTheCallSaysSo)
{
    CopyTrack track = star();
    track.track.Marks[0].mEnsemble = 0;
    CopySettings settings = usualSettings();
    settings.takesZeroMagnitudes = true;
    EXPECT_THAT(records(companion::aavsoCopy({track}, settings)),
                ElementsAre(testing::HasSubstr(",0.000,0.0110,")));
}

TEST(AavsoCopy, MagnitudesThatWereAbsoluteKeepTheirWord)
{
    CopyTrack track = star();
    track.track.Marks[0].MTYPE = "abs";
    EXPECT_THAT(records(copied({track})), ElementsAre(testing::HasSubstr(",NO,ABS,")));
}

TEST(AavsoCopy, RefusesDaysAndMagnitudesThatAreNone)
{
    const CopyTrack good = star();
    for (const int day : {-300001, 2'900'001}) {
        CopyTrack track = good;
        track.track.Marks[0].date = day;
        EXPECT_THAT(refusals(track), ElementsAre(StartsWith("V361 DATE is "))) << day;
    }
    for (const double magnitude : {1e6, std::nan("")}) {
        CopyTrack track = good;
        track.track.Marks[0].mEnsemble = magnitude;
        EXPECT_THAT(refusals(track), ElementsAre(StartsWith("V361 MAG is "))) << magnitude;
    }
}

TEST(AavsoCopy, NumbersKeepToTheirWidths)
{
    CopyTrack track = star();
    track.track.Marks[0].mEnsemble = -7.0625;
    track.track.Marks[0].SNRpeak = 1e9;
    EXPECT_THAT(records(copied({track})), ElementsAre(testing::HasSubstr(",-7.062,0.0000,")));
    track.track.Marks[0].mEnsemble = 12345.678;
    EXPECT_THAT(refusals(track), ElementsAre(StartsWith("V361 MAG is \"12345.678\"")));
}

TEST(AavsoCopy, RefusesAPlaceholderForTheObserver)
{
    Observatory observatory = completeObservatory();
    for (const char* code : {"", "aavso", "CODEAAVSO", "N/A"}) {
        observatory.aavsoCode = code;
        EXPECT_THAT(refusals(star("V1", observatory)),
                    ElementsAre("V420 the observer's code is not known: give it by --observer"));
    }
}

TEST(AavsoCopy, RefusesAnEnsembleMagnitudeOf0)
{
    CopyTrack track = star();
    track.track.Marks[0].mEnsemble = 0;
    EXPECT_THAT(refusals(track),
                ElementsAre("V420 the ensemble magnitude is not known: give it by --magnitude "
                            "apparent or --magnitude instrumental"));
    CopySettings settings = usualSettings();
    settings.magnitude = MagnitudeKind::apparent;
    EXPECT_THAT(records(copied({track}, settings)), ElementsAre(testing::HasSubstr(",18.500,")));
    settings.magnitude = MagnitudeKind::instrumental;
    EXPECT_THAT(records(copied({track}, settings)), ElementsAre(testing::HasSubstr(",-7.500,")));
}

TEST(AavsoCopy, RefusesFiltersOutsideTheListUnlessBandsHasThem)
{
    CopyTrack track = star();
    track.track.Marks[0].filtr = "Clear";
    EXPECT_THAT(refusals(track), ElementsAre("V363 FILT is \"Clear\": not in the receiver's list"));
    Observatory observatory = completeObservatory();
    observatory.bands["Clear"] = "CV";
    track.observatory = std::make_shared<const Observatory>(observatory);
    EXPECT_THAT(records(copied({track})), ElementsAre(testing::HasSubstr(",CV,NO,")));
    track.marks[0].hasBand = false;
    EXPECT_THAT(refusals(track), ElementsAre("V420 the filter is not known: give it by --band"));
}

TEST(AavsoCopy, RefusesNamesThatAreTooLongOrNone)
{
    EXPECT_THAT(records(copied({star(std::string(30, 'N'))})), testing::SizeIs(1));
    EXPECT_THAT(refusals(star(std::string(31, 'N'))),
                ElementsAre(testing::HasSubstr("31 characters, at most 30")));
    EXPECT_THAT(refusals(star("")), ElementsAre(StartsWith("V361 NAME is \"\"")));
    EXPECT_THAT(refusals(star("#1")), ElementsAre(testing::HasSubstr("taken for a comment")));
    EXPECT_THAT(refusals(star("na")), ElementsAre("V361 NAME is \"na\": a name is wanted"));
    for (const char* name : {"\xC3\xA4", "a\x7F"}) {
        EXPECT_THAT(refusals(star(name)),
                    ElementsAre(testing::HasSubstr("ASCII characters alone are wanted")));
    }
}

TEST(AavsoCopy, RefusesAnErrorOf1AndMore)
{
    CopyTrack track = star();
    for (const double ratio : {1.0, 0.5, -3.0, 1e-300}) {
        track.track.Marks[0].SNRpeak = ratio;
        EXPECT_THAT(refusals(track), ElementsAre(StartsWith("V361 MERR is "))) << ratio;
    }
}

TEST(AavsoCopy, RefusesTextsThatTheirFieldsDoNotTake)
{
    CopyTrack track = star();
    track.track.Marks[0].MTYPE = "XYZ";
    EXPECT_THAT(refusals(track), ElementsAre(StartsWith("V361 MTYPE is \"XYZ\"")));
    track.track.Marks[0].MTYPE = "DIF";
    track.track.Marks[0].CNAME = "na";
    EXPECT_THAT(refusals(track), ElementsAre(StartsWith("V361 CNAME is \"na\"")));
    track.track.Marks[0].CNAME = std::string(21, 'c');
    EXPECT_THAT(refusals(track), ElementsAre(StartsWith("V361 CNAME is ")));
    track.track.Marks[0].CNAME = "ENSEMBLE";
    track.track.Marks[0].CHART = "\xC3\xA4";
    EXPECT_THAT(refusals(track), ElementsAre(StartsWith("V361 CHART is ")));
}

TEST(AavsoCopy, RefusesALeapSecond)
{
    CopyTrack track = star();
    track.track.Marks[0].date = 57753; // 2016-12-31
    track.track.Marks[0].time = 86400.5 / 86400;
    EXPECT_THAT(refusals(track), ElementsAre(testing::HasSubstr("a Julian date cannot say a leap second")));
}

TEST(AavsoCopy, WhatASourceDoesNotSayIsNotTheDefaultOfARecord)
{
    CopyTrack track = star();
    track.marks[0].known = {true, false, false, false};
    const Copy copy = copied({track});
    EXPECT_THAT(records(copy),
                ElementsAre("V1023 Her,2457878.75315000,12.847,0.0110,V,NO,STD,na,na,na,na,na,na,na,na"));
    EXPECT_THAT(
        copies::textsOf(copy.mended),
        testing::IsSupersetOf({"V423 mended: the kind of magnitude is STD, where none is known, 1 mark",
                               "V423 mended: the comparison star is na, where none is known, 1 mark"}));
}

TEST(AavsoCopy, AMagnitudeThatTheSourceDoesNotHaveIsRefused)
{
    CopySettings settings = usualSettings();
    settings.takesZeroMagnitudes = true;
    CopyTrack track = star();
    track.marks[0].known = {};
    EXPECT_THAT(refusals(track, settings),
                ElementsAre(StartsWith("V420 the ensemble magnitude is not known")));
    settings.magnitude = MagnitudeKind::instrumental;
    EXPECT_THAT(refusals(track, settings),
                ElementsAre(StartsWith("V420 the instrumental magnitude is not known")));
    settings.magnitude = MagnitudeKind::apparent;
    track.marks[0].hasMagnitude = false;
    EXPECT_THAT(refusals(track, settings), ElementsAre(StartsWith("V420 the magnitude is not known")));
}
