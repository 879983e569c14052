// What a copy as ADES mends and what it refuses to guess.

#include "receivers/ades_copy.h"

#include "companion/copies.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

namespace {

using companion::AdesForm;
using companion::Copy;
using companion::CopySettings;
using companion::CopyTrack;
using companion::Observatory;
using copies::completeObservatory;
using copies::linesOf;
using copies::markAt;
using copies::trackOf;
using copies::usualSettings;
using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

Copy copied(const std::vector<CopyTrack>& tracks, const CopySettings& settings = usualSettings())
{
    Copy copy = companion::adesCopy(tracks, settings, AdesForm::xml);
    if (!copy.text.empty()) {
        EXPECT_THAT(copies::linted(copy.text, "ades.xml", "ades"), IsEmpty());
        const std::string lines = companion::adesCopy(tracks, settings, AdesForm::psv).text;
        EXPECT_THAT(copies::linted(lines, "ades.psv", "ades"), IsEmpty());
    }
    return copy;
}

std::string textOf(const CopyTrack& track, const CopySettings& settings = usualSettings())
{
    return copied({track}, settings).text;
}

std::vector<std::string> refusals(const CopyTrack& track, const CopySettings& settings = usualSettings())
{
    const Copy copy = copied({track}, settings);
    EXPECT_EQ(copy.refused, track.marks.size());
    EXPECT_EQ(copy.text, "");
    return copies::textsOf(copy.reasons);
}

CopyTrack named(const std::string& name)
{
    return trackOf(name, {markAt(0.5, 187.551417, 1.341694)});
}

} // namespace

TEST(AdesCopy, TheXmlFormHasABlockForAStation)
{
    CopyTrack track = trackOf("433", {markAt(0.512345, 187.551417, 1.341694)});
    track.track.Marks[0].m = 18.53;
    EXPECT_EQ(textOf(track), R"(<?xml version="1.0" encoding="UTF-8"?>
<ades version="2022">
  <obsBlock>
    <obsContext>
      <observatory>
        <mpcCode>K88</mpcCode>
      </observatory>
      <submitter>
        <name>A. B. Sender</name>
      </submitter>
      <observers>
        <name>A. B. Sender</name>
      </observers>
      <measurers>
        <name>C. Reader</name>
        <name>D. Reader</name>
      </measurers>
      <telescope>
        <design>reflector</design>
        <aperture>0.6</aperture>
        <detector>CCD</detector>
        <fRatio>4.0</fRatio>
      </telescope>
    </obsContext>
    <obsData>
      <optical>
        <permID>433</permID>
        <mode>CCD</mode>
        <stn>K88</stn>
        <obsTime>2025-02-23T12:17:46.608Z</obsTime>
        <ra>187.5514170</ra>
        <dec>1.34169400</dec>
        <astCat>Gaia3</astCat>
        <mag>18.53</mag>
        <band>G</band>
      </optical>
    </obsData>
  </obsBlock>
</ades>
)");
}

TEST(AdesCopy, TheFormWithBarsHasARowForAMark)
{
    CopyTrack bare = trackOf("AST10000", {markAt(0.6, 0.0, -0.000139)});
    bare.marks[0].hasMagnitude = false;
    const std::vector<std::string> lines =
        linesOf(companion::adesCopy({named("433"), bare}, usualSettings(), AdesForm::psv).text);
    ASSERT_EQ(lines.size(), 18U);
    EXPECT_EQ(lines[0], "# version=2022");
    EXPECT_EQ(lines[1], "# observatory");
    EXPECT_EQ(lines[2], "! mpcCode K88");
    EXPECT_EQ(lines[15],
              "permID|trkSub  |mode|stn|obsTime                 |         ra|        dec|astCat|  mag|band");
    EXPECT_EQ(lines[16],
              "433   |        |CCD |K88|2025-02-23T12:00:00.000Z|187.5514170| 1.34169400|Gaia3 |18.50|G");
    EXPECT_EQ(lines[17],
              "      |AST10000|CCD |K88|2025-02-23T14:24:00.000Z|  0.0000000|-0.00013900|Gaia3 |     |");
}

TEST(AdesCopy, MendsPackedDesignationsByUnpackingThem)
{
    const Copy copy = copied({named("K24Y04R")});
    EXPECT_THAT(copy.text, HasSubstr("<provID>2024 YR4</provID>"));
    EXPECT_THAT(copies::textsOf(copy.mended),
                ElementsAre("V423 mended: the designation is unpacked, 1 mark"));
    EXPECT_THAT(textOf(named("0073P")), HasSubstr("<permID>73P</permID>"));
    EXPECT_THAT(textOf(named("73P-C")), HasSubstr("<permID>73P-C</permID>"));
    EXPECT_THAT(textOf(named("CK23A030")), HasSubstr("<provID>C/2023 A3</provID>"));
    EXPECT_THAT(textOf(named("J013S")), HasSubstr("<permID>Jupiter 13</permID>"));
    EXPECT_THAT(textOf(named("SK20J010")), HasSubstr("<provID>S/2020 J 1</provID>"));
}

TEST(AdesCopy, NamesOf8CharactersFit)
{
    EXPECT_THAT(textOf(named("AST10000")), HasSubstr("<trkSub>AST10000</trkSub>"));
    EXPECT_THAT(refusals(named("AST100000")), ElementsAre(StartsWith("V380 trkSub is \"AST100000\"")));
    EXPECT_THAT(refusals(named("A B")), ElementsAre(StartsWith("V380 trkSub is \"A B\"")));
}

TEST(AdesCopy, TimesHaveAsManyDecimalsAsTheSource)
{
    CopyTrack track = trackOf("AST1", {markAt(0.123456789012, 15, -0.5)});
    const auto time = [&track](double step) {
        track.marks[0].steps.time = step;
        const std::string text = textOf(track);
        const std::size_t begin = text.find("<obsTime>") + 9;
        return text.substr(begin, text.find("</obsTime>") - begin);
    };
    EXPECT_EQ(time(0.864), "2025-02-23T02:57:46.7Z");
    EXPECT_EQ(time(0.01), "2025-02-23T02:57:46.67Z");
    EXPECT_EQ(time(0.00001), "2025-02-23T02:57:46.66657Z");
    EXPECT_EQ(time(0.0000001), "2025-02-23T02:57:46.666571Z");
}

TEST(AdesCopy, MendsWhatRoundsUpToAFullCircleOrToTheNextDay)
{
    const Copy copy = copied({trackOf("AST1", {markAt(0.9999999999, 359.99999999, -0.5)})});
    EXPECT_THAT(copy.text,
                AllOf(HasSubstr("<obsTime>2025-02-24T00:00:00.000Z"), HasSubstr("<ra>0.0000000</ra>")));
    EXPECT_THAT(copies::textsOf(copy.mended),
                ElementsAre("V423 mended: the time is carried into the next day, 1 mark",
                            "V423 mended: a right ascension of 360 degrees is 0, 1 mark"));
}

TEST(AdesCopy, ALeapSecondIsWrittenAsOne)
{
    CopyTrack track = trackOf("AST1", {markAt(86400.25 / 86400, 15, -0.5)});
    track.track.Marks[0].date = 57753; // 2016-12-31
    EXPECT_THAT(textOf(track), HasSubstr("<obsTime>2016-12-31T23:59:60.250Z"));
}

TEST(AdesCopy, AMagnitudeThatIsNoneIsLeftOutWithItsBand)
{
    CopyTrack track = named("AST1");
    track.marks[0].hasMagnitude = false;
    EXPECT_THAT(textOf(track), AllOf(Not(HasSubstr("<mag>")), Not(HasSubstr("<band>"))));
}

TEST(AdesCopy, StationsHaveTheirBlocks)
{
    Observatory other = completeObservatory();
    other.station = "A77";
    const std::string text = copied({named("AST1"), trackOf("AST1", {markAt(0.5, 15, -0.5)}, other)}).text;
    EXPECT_LT(text.find("<mpcCode>A77"), text.find("<mpcCode>K88"));
    EXPECT_LT(text.find("<stn>A77"), text.find("<mpcCode>K88"));
    EXPECT_GT(text.find("<stn>K88"), text.find("<mpcCode>K88"));
}

TEST(AdesCopy, RefusesEachPartOfTheContextThatIsNotKnown)
{
    struct Part
    {
        std::string Observatory::*text;
        const char* reason;
    };
    const Part parts[] = {
        {&Observatory::station, "V420 the station is not known: give it by --station"},
        {&Observatory::submitter,
         "V420 the name of the submitter is not known: give it by submitter of --profile"},
        {&Observatory::measurers,
         "V420 the name of the measurers is not known: give it by measurers of --profile"},
        {&Observatory::design,
         "V420 the design of the telescope is not known: give it by telescope.design of --profile"},
        {&Observatory::aperture,
         "V420 the aperture of the telescope is not known: give it by telescope.aperture of --profile"},
        {&Observatory::detector,
         "V420 the detector is not known: give it by telescope.detector of --profile"},
        {&Observatory::mode, "V420 the mode of observation is not known: give it by mode of --profile"},
        {&Observatory::astrometricCatalogue,
         "V420 the catalogue of the positions is not known: give it by astrometricCatalogue of --profile"},
    };
    for (const Part& part : parts) {
        Observatory observatory = completeObservatory();
        (observatory.*part.text).clear();
        EXPECT_THAT(refusals(trackOf("AST1", {markAt(0.5, 15, -0.5)}, observatory)),
                    ElementsAre(part.reason));
    }
}

TEST(AdesCopy, RefusesAContextThatTheSchemaDoesNotTake)
{
    Observatory observatory = completeObservatory();
    observatory.aperture = ".6";
    EXPECT_THAT(refusals(trackOf("AST1", {markAt(0.5, 15, -0.5)}, observatory)),
                ElementsAre(StartsWith("V380 aperture is \".6\"")));
    observatory = completeObservatory();
    observatory.mode = "CMOS";
    EXPECT_THAT(refusals(trackOf("AST1", {markAt(0.5, 15, -0.5)}, observatory)),
                ElementsAre(StartsWith("V380 mode is \"CMOS\"")));
    observatory = completeObservatory();
    observatory.submitter = "John Smith";
    EXPECT_THAT(refusals(trackOf("AST1", {markAt(0.5, 15, -0.5)}, observatory)),
                ElementsAre(StartsWith("V320 ")));
}

TEST(AdesCopy, RefusesBandsThatAreNotForNewWork)
{
    CopyTrack track = named("AST1");
    for (const char* band : {"C", "L", "u"}) {
        track.track.Marks[0].filtr = band;
        EXPECT_THAT(refusals(track),
                    ElementsAre(std::string("V381 band: the word \"") + band + "\" is not for new work"));
    }
    track.track.Marks[0].filtr = "Q";
    EXPECT_THAT(refusals(track), ElementsAre("V381 band: the word \"Q\" is not in the list"));
    track.marks[0].hasBand = false;
    EXPECT_THAT(refusals(track), ElementsAre(StartsWith("V420 the band of the magnitude is not known")));
}

TEST(AdesCopy, TheGeocentreIsNoStation)
{
    Observatory observatory = completeObservatory();
    observatory.station = "500";
    EXPECT_THAT(refusals(trackOf("AST1", {markAt(0.5, 15, -0.5)}, observatory)),
                ElementsAre("V420 the station is not known: give it by --station"));
}

TEST(AdesCopy, ASatelliteOfItsOwnNameIsATracklet)
{
    CopyTrack track = named("SAT01");
    track.isSatellite = true;
    EXPECT_THAT(refusals(track), ElementsAre("V318 \"SAT01\" is an artificial satellite"));
    CopySettings settings = usualSettings();
    settings.allowsSatellites = true;
    EXPECT_THAT(textOf(track, settings), HasSubstr("<trkSub>SAT01</trkSub>"));
}

TEST(AdesCopy, RefusesSatellitesUnlessTheyAreAllowed)
{
    EXPECT_THAT(refusals(named("2016-033A")), ElementsAre("V318 \"2016-033A\" is an artificial satellite"));
    CopySettings settings = usualSettings();
    settings.allowsSatellites = true;
    EXPECT_THAT(textOf(named("2016-033A"), settings), HasSubstr("<artSat>2016-033A</artSat>"));
    EXPECT_THAT(textOf(named("16033A"), settings), HasSubstr("<artSat>2016-033A</artSat>"));
    EXPECT_THAT(textOf(named("98067AB"), settings), HasSubstr("<artSat>1998-067AB</artSat>"));
}

TEST(AdesCopy, RefusesFiveDigitsThatMayBeAnything)
{
    EXPECT_THAT(refusals(named("25544")), ElementsAre(StartsWith("V311 ")));
    CopySettings settings = usualSettings();
    settings.areNumbers = true;
    EXPECT_THAT(textOf(named("25544"), settings), HasSubstr("<permID>25544</permID>"));
    CopyTrack identified = named("25544");
    identified.isIdentified = true;
    EXPECT_THAT(textOf(identified), HasSubstr("<permID>25544</permID>"));
}

TEST(AdesCopy, RefusesNumbersThatNoElementTakes)
{
    CopyTrack track =
        trackOf("AST1", {markAt(0.5, std::nan(""), -0.5), markAt(0.5, 15, 91), markAt(0.5, 15, -0.5)});
    track.track.Marks[2].m = 36;
    EXPECT_THAT(refusals(track), ElementsAre(StartsWith("V380 ra is "), StartsWith("V380 dec is "),
                                             StartsWith("V380 mag is \"36.00\"")));
}

TEST(AdesCopy, RefusesNumbersBeforeTheyAreText)
{
    CopyTrack track =
        trackOf("AST1", {markAt(0.5, 15, -0.5), markAt(0.5, 15, -0.5), markAt(2.0, 15, -0.5),
                         markAt(0.5, 2e6, -0.5), markAt(0.5, 15, std::nan("")), markAt(0.5, 15, -0.5)});
    track.track.Marks[0].date = -600001;
    track.track.Marks[1].date = 2'900'001;
    track.track.Marks[5].m = 1000;
    EXPECT_THAT(refusals(track), ElementsAre(StartsWith("V380 obsTime is "), StartsWith("V380 obsTime is "),
                                             StartsWith("V380 obsTime is "), StartsWith("V380 ra is "),
                                             StartsWith("V380 dec is "), StartsWith("V380 mag is \"1000.0")));
}

TEST(AdesCopy, MendsARightAscensionOfAnotherTurn)
{
    for (const double rightAscension : {-15.5, 704.5}) {
        const Copy copy = copied({trackOf("AST1", {markAt(0.5, rightAscension, -0.5)})});
        EXPECT_THAT(copy.text, HasSubstr("<ra>344.5000000</ra>"));
        EXPECT_THAT(copies::textsOf(copy.mended),
                    ElementsAre("V423 mended: a right ascension is brought to below 360 degrees, 1 mark"));
    }
}

TEST(AdesCopy, MendsAFullCircleOfWholeDegrees)
{
    CopyTrack track = trackOf("AST1", {markAt(0.5, 359.95, -0.5)});
    track.marks[0].steps.rightAscension = 3600;
    const Copy copy = copied({track});
    EXPECT_THAT(copy.text, HasSubstr("<ra>0</ra>"));
    EXPECT_THAT(copies::textsOf(copy.mended),
                ElementsAre("V423 mended: a right ascension of 360 degrees is 0, 1 mark"));
}

TEST(AdesCopy, RowsOfTimesOfTwoWidthsStandInOneColumn)
{
    CopyTrack track = trackOf("AST1", {markAt(0.5, 15, -0.5), markAt(0.6, 15, -0.5)});
    track.marks[1].steps.time = 1;
    const std::vector<std::string> lines =
        linesOf(companion::adesCopy({track}, usualSettings(), AdesForm::psv).text);
    ASSERT_EQ(lines.size(), 18U);
    EXPECT_EQ(lines[16], "AST1  |CCD |K88|2025-02-23T12:00:00.000Z|15.0000000|-0.50000000|Gaia3 |18.50|G");
    EXPECT_EQ(lines[17], "AST1  |CCD |K88|2025-02-23T14:24:00Z    |15.0000000|-0.50000000|Gaia3 |18.50|G");
}

TEST(AdesCopy, RefusesTwoPositionsOfAnObjectAtOneTime)
{
    const Copy copy = copied({named("AST1"), named("AST1"), named("AST2")});
    EXPECT_EQ(copy.refused, 1U);
    EXPECT_THAT(copies::textsOf(copy.reasons),
                ElementsAre("V381 obsTime: the word \"2025-02-23T12:00:00.000Z\" is the time of another "
                            "position of the object"));
}

TEST(AdesCopy, ACatalogueThatIsNoWordNamesTheKeyThatGivesOne)
{
    Observatory observatory = completeObservatory();
    observatory.astrometricCatalogue = "Gaia DR1";
    EXPECT_THAT(refusals(trackOf("AST1", {markAt(0.5, 15, -0.5)}, observatory)),
                ElementsAre("V380 astCat is \"Gaia DR1\", which is no word for a catalogue: "
                            "astrometricCatalogue of --profile would give one"));
    observatory = completeObservatory();
    observatory.photometricCatalogue = "Gaia DR1";
    EXPECT_THAT(refusals(trackOf("AST1", {markAt(0.5, 15, -0.5)}, observatory)),
                ElementsAre("V380 photCat is \"Gaia DR1\", which is no word for a catalogue: "
                            "photometricCatalogue of --profile would give one"));
}
