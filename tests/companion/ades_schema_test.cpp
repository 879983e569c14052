#include "companion/xmllint.h"

#include <gtest/gtest.h>

#include <string>

namespace {

// The smallest document that a receiver takes, with two observations.
const char* const smallest = R"(<?xml version="1.0" encoding="UTF-8"?>
<ades version="2022">
  <obsBlock>
    <obsContext>
      <observatory><mpcCode>568</mpcCode></observatory>
      <submitter><name>A. B. Sender</name></submitter>
      <measurers><name>C. Reader</name></measurers>
      <telescope>
        <design>reflector</design>
        <aperture>0.6</aperture>
        <detector>CCD</detector>
      </telescope>
    </obsContext>
    <obsData>
      <optical>
        <permID>433</permID>
        <mode>CCD</mode>
        <stn>568</stn>
        <obsTime>2025-02-23T12:17:46.176Z</obsTime>
        <ra>187.551417</ra>
        <dec>1.341694</dec>
        <astCat>Gaia3</astCat>
        <mag>18.53</mag>
        <band>G</band>
      </optical>
      <optical>
        <trkSub>AST10000</trkSub>
        <mode>CMO</mode>
        <stn>W84</stn>
        <obsTime>2025-02-23T23:59:59.999Z</obsTime>
        <ra>0.000000</ra>
        <dec>-0.000139</dec>
        <astCat>Gaia2</astCat>
      </optical>
    </obsData>
  </obsBlock>
</ades>
)";

struct Change
{
    const char* what;
    const char* piece;
    const char* other;
};

constexpr const char* permanent = "<permID>433</permID>";
constexpr const char* magnitude = "<mag>18.53</mag>";
constexpr const char* band = "<band>G</band>";

constexpr Change refused[] = {
    {"another version", "version=\"2022\"", "version=\"2017\""},
    {"no version", " version=\"2022\"", ""},
    {"observations outside a block", "</obsBlock>", "</obsBlock><optical/>"},
    {"no submitter", "<submitter><name>A. B. Sender</name></submitter>", ""},
    {"no measurers", "<measurers><name>C. Reader</name></measurers>", ""},
    {"measurers without a name", "<name>C. Reader</name>", ""},
    {"no design", "<design>reflector</design>", ""},
    {"an aperture with a unit", ">0.6<", ">0.60-m<"},
    {"an aperture without a digit in front", ">0.6<", ">.6<"},
    {"two submitters", "<name>A. B. Sender</name>", "<name>A. B. Sender</name><name>C. D.</name>"},
    {"a comment without lines", "</obsContext>", "<comment>text</comment></obsContext>"},
    {"no identification", permanent, ""},
    {"two identifications", permanent, "<permID>433</permID><artSat>1998-067A</artSat>"},
    {"identifications in another order", permanent, "<provID>1898 DQ</provID><permID>433</permID>"},
    {"a packed number", permanent, "<permID>A0345</permID>"},
    {"a name", permanent, "<permID>433 Eros</permID>"},
    {"a packed designation", permanent, "<provID>J98SA8Q</provID>"},
    {"a comet's name", permanent, "<provID>C/2023 A3 (X-Y)</provID>"},
    {"a long name of a tracklet", ">AST10000<", ">AST100000<"},
    {"an empty name of a tracklet", ">AST10000<", "><"},
    {"a mode of four letters", ">CMO<", ">CMOS<"},
    {"a station of two letters", ">W84<", ">W8<"},
    {"a station before the mode", "<mode>CMO</mode>\n        <stn>W84</stn>",
     "<stn>W84</stn><mode>CMO</mode>"},
    {"seeing behind exp", band, "<band>G</band><exp>1</exp><seeing>2</seeing>"},
    {"rmsMag behind band", band, "<band>G</band><rmsMag>0.1</rmsMag>"},
    {"rmsTime behind ra", "<dec>1.3", "<rmsTime>1</rmsTime><dec>1.3"},
    {"a time without Z", "46.176Z", "46.176"},
    {"a time with an offset", "46.176Z", "46.176+00:00"},
    {"seven decimals", "46.176Z", "46.1234567Z"},
    {"a point without decimals", "46.176Z", "46.Z"},
    {"60 seconds on a common day", "12:17:46.176Z", "23:59:60Z"},
    {"February 30th", "2025-02-23T12", "2025-02-30T12"},
    {"RA of 360", ">187.551417<", ">360.0<"},
    {"RA with a sign", ">187.551417<", ">+187.5<"},
    {"RA with a zero in front", ">187.551417<", ">007.5<"},
    {"RA in hours", ">187.551417<", ">12 30 12.34<"},
    {"RA with ten decimals", ">187.551417<", ">187.5514171234<"},
    {"a declination beyond the pole", ">1.341694<", ">90.1<"},
    {"a declination with a zero in front", ">1.341694<", ">01.3<"},
    {"a declination with an exponent", ">1.341694<", ">1.3e0<"},
    {"no catalogue", "<astCat>Gaia3</astCat>", ""},
    {"a catalogue with a hyphen", ">Gaia3<", ">GSC-2.2<"},
    {"a catalogue of nine letters", ">Gaia3<", ">Gaia_2016<"},
    {"a magnitude without a band", band, ""},
    {"a band without a magnitude", magnitude, ""},
    {"a magnitude of 36", ">18.53<", ">36<"},
    {"a magnitude with a zero in front", ">18.53<", ">08.5<"},
    {"a magnitude of eight figures", ">18.53<", ">18.123456<"},
    {"a magnitude that is none", ">18.53<", ">NaN<"},
    {"a long band", band, "<band>Gaia</band>"},
    {"an error of nothing", "<astCat>Gaia3", "<rmsRA>0</rmsRA><astCat>Gaia3"},
    {"an error with an exponent", "<astCat>Gaia3", "<rmsRA>1e-1</rmsRA><astCat>Gaia3"},
    {"an error of eight figures", "<astCat>Gaia3", "<rmsRA>0.123456</rmsRA><astCat>Gaia3"},
    {"an exposure of nothing", band, "<band>G</band><exp>0</exp>"},
    {"no stars", band, "<band>G</band><nStars>0</nStars>"},
    {"a discovery by letter", band, "<band>G</band><disc>D</disc>"},
    {"seven notes", band, "<band>G</band><notes>abcdefg</notes>"},
    {"a bar in remarks", band, "<band>G</band><remarks>a|b</remarks>"},
    {"empty remarks", band, "<band>G</band><remarks> </remarks>"},
    {"an element of the receiver", band, "<band>G</band><obsID>1</obsID>"},
    {"a place without an origin", "<obsTime>2025-02-23T12", "<sys>ITRF</sys><obsTime>2025-02-23T12"},
    {"another kind among optical ones", "<optical>\n        <trkSub>", "<radar/><optical><trkSub>"},
};

// The receiver's schema takes these, and the receiver refuses them by its lists.
constexpr Change refusedByTheLists[] = {
    {"an unlisted mode", ">CMO<", ">XYZ<"},
    {"an unlisted band", band, "<band>Q</band>"},
    {"a band that must not be sent", band, "<band>C</band>"},
    {"an unlisted note", band, "<band>G</band><notes>q</notes>"},
};

constexpr Change taken[] = {
    {"a number with zeros in front", permanent, "<permID>00433</permID>"},
    {"hour 24", "12:17:46.176Z", "24:00:00Z"},
    {"blanks around a time", ">2025-02-23T12:17:46.176Z<", "> 2025-02-23T12:17:46.176Z <"},
    {"blanks around a place", ">187.551417<", "> 187.551417 <"},
    {"an error of RA alone", "<astCat>Gaia3", "<rmsRA>0.1</rmsRA><astCat>Gaia3"},
    {"a point at the end", ">18.53<", ">18.<"},
    {"a line feed in remarks", band, "<band>G</band><remarks>a\nb</remarks>"},
    {"another order of the context", "<design>reflector</design>\n        <aperture>0.6</aperture>",
     "<aperture>0.6</aperture><design>reflector</design>"},
    {"60 seconds on a leap day", "2025-02-23T12:17:46.176Z", "2016-12-31T23:59:60.5Z"},
    {"three ways of one identification", permanent,
     "<permID>433</permID><provID>1898 DQ</provID><trkSub>a</trkSub>"},
    {"a place with its origin", "<obsTime>2025-02-23T12",
     "<sys>ITRF</sys><ctr>399</ctr><pos1>1.5</pos1><pos2>-1</pos2><pos3>0</pos3><obsTime>2025-02-23T12"},
    {"all of the photometry", band,
     "<rmsMag>0.1</rmsMag><band>Vj</band><fltr>G</fltr><photCat>Gaia3</photCat><photAp>5</photAp>"},
    {"a historic band", band, "<band>V</band>"},
    {"several notes", band, "<band>G</band><notes>aB</notes>"},
    {"lines of a comment", "</obsContext>", "<comment><line>a</line><line>b</line></comment></obsContext>"},
};

std::string refusalOf(const Change& change)
{
    return refusalByXmllint("ades", withReplaced(smallest, change.piece, change.other));
}

TEST(AdesSchema, TakesTheSmallestDocument)
{
    EXPECT_EQ(refusalByXmllint("ades", smallest), "");
}

TEST(AdesSchema, RefusesWhatReceiversRefuse)
{
    for (const Change& change : refused) {
        EXPECT_NE(refusalOf(change), "") << change.what;
    }
}

TEST(AdesSchema, RefusesWordsThatAreNotListed)
{
    for (const Change& change : refusedByTheLists) {
        EXPECT_NE(refusalOf(change), "") << change.what;
    }
}

TEST(AdesSchema, TakesWhatReceiversTake)
{
    for (const Change& change : taken) {
        EXPECT_EQ(refusalOf(change), "") << change.what;
    }
}

} // namespace
