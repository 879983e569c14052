// What a copy as a tracking data message mends and what it refuses to guess.

#include "receivers/tdm_copy.h"

#include "companion/copies.h"
#include "reading/schema_validation.h"
#include "support/temporary_folder.h"

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
using companion::Finding;
using companion::Observatory;
using companion::TdmForm;
using copies::completeObservatory;
using copies::linesOf;
using copies::markAt;
using copies::trackOf;
using copies::usualSettings;
using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

// What both published schemas say of a document.
std::vector<std::string> refusalsOfSchemas(const std::string& document)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.xml", document);
    std::vector<std::string> refusals;
    for (const char* version : {"2.0.0", "4.0.0"}) {
        const companion::XmlSchema schema(std::string(VOMAR_PROJECT) + "/tests/fixtures/schemas/ndmxml-" +
                                          version + "/tdm-root.xsd");
        schema.validate(folder / "a.xml",
                        [&refusals](const Finding& found) { refusals.push_back(found.text); });
    }
    return refusals;
}

Copy copied(const std::vector<CopyTrack>& tracks, const CopySettings& settings = usualSettings())
{
    Copy copy = companion::tdmCopy(tracks, settings, TdmForm::text);
    if (!copy.text.empty()) {
        EXPECT_THAT(copies::linted(copy.text, "tdm", "ccsds"), IsEmpty());
        const std::string document = companion::tdmCopy(tracks, settings, TdmForm::xml).text;
        EXPECT_THAT(copies::linted(document, "tdm.xml", "ccsds"), IsEmpty());
        EXPECT_THAT(refusalsOfSchemas(document), IsEmpty());
    }
    return copy;
}

std::vector<std::string> refusals(const CopyTrack& track)
{
    const Copy copy = copied({track});
    EXPECT_EQ(copy.refused, track.marks.size());
    EXPECT_EQ(copy.text, "");
    return copies::textsOf(copy.reasons);
}

std::vector<std::string> keyLines(const std::string& text, const std::string& key)
{
    std::vector<std::string> lines;
    for (const std::string& line : linesOf(text)) {
        if (line.starts_with(key + " = ")) {
            lines.push_back(line.substr(key.size() + 3));
        }
    }
    return lines;
}

} // namespace

TEST(TdmCopy, AMessageIsOfVersion2AndHasItsCreationDate)
{
    EXPECT_EQ(copied({trackOf("Z6433", {markAt(0.5, 187.551417, -1.341694)})}).text,
              "CCSDS_TDM_VERS = 2.0\n"
              "CREATION_DATE = 2025-02-24T00:00:00\n"
              "ORIGINATOR = K88\n"
              "META_START\n"
              "TIME_SYSTEM = UTC\n"
              "START_TIME = 2025-02-23T12:00:00.0000000\n"
              "STOP_TIME = 2025-02-23T12:00:00.0000000\n"
              "PARTICIPANT_1 = K88\n"
              "PARTICIPANT_2 = Z6433\n"
              "MODE = SEQUENTIAL\n"
              "PATH = 2,1\n"
              "ANGLE_TYPE = RADEC\n"
              "REFERENCE_FRAME = ICRF\n"
              "META_STOP\n"
              "DATA_START\n"
              "ANGLE_1 = 2025-02-23T12:00:00.0000000 187.55141700\n"
              "ANGLE_2 = 2025-02-23T12:00:00.0000000 -1.34169400\n"
              "MAG = 2025-02-23T12:00:00.0000000 18.5000\n"
              "DATA_STOP\n");
}

TEST(TdmCopy, MendsTheOrderOfMarksAndWithItStartAndStop)
{
    const Copy copy =
        copied({trackOf("A", {markAt(0.6, 15, -0.5), markAt(0.7, 15, -0.5), markAt(0.5, 15, -0.5)})});
    EXPECT_THAT(keyLines(copy.text, "START_TIME"), ElementsAre("2025-02-23T12:00:00.0000000"));
    EXPECT_THAT(keyLines(copy.text, "STOP_TIME"), ElementsAre("2025-02-23T16:48:00.0000000"));
    EXPECT_THAT(
        keyLines(copy.text, "ANGLE_1"),
        ElementsAre(StartsWith("2025-02-23T12"), StartsWith("2025-02-23T14"), StartsWith("2025-02-23T16")));
    EXPECT_THAT(copies::textsOf(copy.mended),
                ElementsAre("V423 mended: the marks are in the order of time, 3 marks"));
}

TEST(TdmCopy, MendsAFullCircle)
{
    const Copy copy = copied({trackOf("A", {markAt(0.5, 360.0, -0.5)})});
    EXPECT_THAT(keyLines(copy.text, "ANGLE_1"), ElementsAre("2025-02-23T12:00:00.0000000 0.00000000"));
    EXPECT_THAT(copies::textsOf(copy.mended),
                ElementsAre("V423 mended: a right ascension is brought to below 360 degrees, 1 mark"));
}

TEST(TdmCopy, AFullCircleThatOnlyRoundingMakesIsTold)
{
    const Copy copy = copied({trackOf("A", {markAt(0.5, 359.9999999999, -0.5)})});
    EXPECT_THAT(copy.text, HasSubstr(" 0.00000000\n"));
    EXPECT_THAT(copies::textsOf(copy.mended),
                ElementsAre("V423 mended: a right ascension is brought to below 360 degrees, 1 mark"));
}

TEST(TdmCopy, MendsTheEndOfADay)
{
    const Copy copy = copied({trackOf("A", {markAt(1.0 - 1e-13, 15, -0.5)})});
    EXPECT_THAT(keyLines(copy.text, "ANGLE_1"), ElementsAre(StartsWith("2025-02-24T00:00:00.0000000 ")));
    EXPECT_THAT(copies::textsOf(copy.mended),
                ElementsAre("V423 mended: the time is carried into the next day, 1 mark"));
}

TEST(TdmCopy, EachTrackAndBandHasASegment)
{
    CopyTrack track = trackOf("A", {markAt(0.5, 15, -0.5), markAt(0.6, 15, -0.5), markAt(0.7, 15, -0.5)});
    track.track.Marks[1].filtr = "R";
    const std::string text = copied({track, trackOf("B", {markAt(0.5, 15, -0.5)})}).text;
    EXPECT_THAT(keyLines(text, "PARTICIPANT_2"), ElementsAre("A", "A", "B"));
    EXPECT_THAT(
        keyLines(text, "START_TIME"),
        ElementsAre(StartsWith("2025-02-23T12"), StartsWith("2025-02-23T14"), StartsWith("2025-02-23T12")));
}

TEST(TdmCopy, MendsAMagnitudeThatIsNoneByHavingNoLineForIt)
{
    CopyTrack track = trackOf("A", {markAt(0.5, 15, -0.5)});
    track.marks[0].hasMagnitude = false;
    const Copy copy = copied({track});
    EXPECT_THAT(keyLines(copy.text, "MAG"), IsEmpty());
    EXPECT_EQ(keyLines(copy.text, "ANGLE_2").size(), 1U);
    EXPECT_THAT(copies::textsOf(copy.mended),
                ElementsAre("V423 mended: there is no line for a magnitude that is none, 1 mark"));
}

TEST(TdmCopy, MendsNamesWithLineFeeds)
{
    const Copy copy = copied({trackOf(" A\r\n B & C ", {markAt(0.5, 15, -0.5)})});
    EXPECT_THAT(keyLines(copy.text, "PARTICIPANT_2"), ElementsAre("A B & C"));
    EXPECT_THAT(copies::textsOf(copy.mended),
                ElementsAre("V423 mended: a name is on one line, without blanks at its ends, 1 mark"));
}

TEST(TdmCopy, TheFrameJ2000IsEme2000)
{
    CopyTrack track = trackOf("A", {markAt(0.5, 15, -0.5)});
    track.track.REFERENCE_FRAME = "J2000";
    EXPECT_THAT(keyLines(copied({track}).text, "REFERENCE_FRAME"), ElementsAre("EME2000"));
}

TEST(TdmCopy, WordsOfTheSourceArePreferredToTheStation)
{
    CopyTrack track = trackOf("A", {markAt(0.5, 15, -0.5)});
    track.track.telescope = "TFRM";
    track.track.originator = "ISON";
    const std::string text = copied({track}).text;
    EXPECT_THAT(keyLines(text, "PARTICIPANT_1"), ElementsAre("TFRM"));
    EXPECT_THAT(keyLines(text, "ORIGINATOR"), ElementsAre("ISON"));
}

TEST(TdmCopy, ALeapSecondIsWrittenAsOne)
{
    CopyTrack track = trackOf("A", {markAt(86400.5 / 86400, 15, -0.5)});
    track.track.Marks[0].date = 57753; // 2016-12-31
    EXPECT_THAT(keyLines(copied({track}).text, "ANGLE_1"),
                ElementsAre(StartsWith("2016-12-31T23:59:60.5000000 ")));
}

TEST(TdmCopy, RefusesAFrameThatTheStandardDoesNotList)
{
    CopyTrack track = trackOf("A", {markAt(0.5, 15, -0.5)});
    for (const char* frame : {"", "FK5", "TEME"}) {
        track.track.REFERENCE_FRAME = frame;
        EXPECT_THAT(refusals(track), ElementsAre(StartsWith("V342 REFERENCE_FRAME has the value ")));
    }
}

TEST(TdmCopy, TheSchemasHaveFewerFramesThanTheText)
{
    CopyTrack track = trackOf("A", {markAt(0.5, 15, -0.5)});
    track.track.REFERENCE_FRAME = "TOD_EARTH";
    EXPECT_EQ(companion::tdmCopy({track}, usualSettings(), TdmForm::text).refused, 0U);
    EXPECT_EQ(companion::tdmCopy({track}, usualSettings(), TdmForm::xml).refused, 1U);
}

TEST(TdmCopy, RefusesWhatIsNoNumber)
{
    CopyTrack track =
        trackOf("A", {markAt(0.5, std::nan(""), -0.5), markAt(0.6, 15, 91), markAt(0.7, 15, -0.5),
                      markAt(std::numeric_limits<double>::infinity(), 15, -0.5)});
    track.track.Marks[2].m = std::numeric_limits<double>::infinity();
    EXPECT_THAT(refusals(track), ElementsAre(StartsWith("V344 ANGLE_1 "), StartsWith("V344 ANGLE_2 "),
                                             StartsWith("V344 MAG "), StartsWith("V344 EPOCH ")));
}

TEST(TdmCopy, RefusesDaysAndAnglesThatAreNone)
{
    CopyTrack track = trackOf("A", {markAt(0.5, 15, -0.5), markAt(0.5, 15, -0.5), markAt(0.5, 2e6, -0.5),
                                    markAt(0.5, 15, std::nan(""))});
    track.track.Marks[0].date = -600001;
    track.track.Marks[1].date = 2'900'001;
    EXPECT_THAT(refusals(track), ElementsAre(StartsWith("V344 EPOCH "), StartsWith("V344 EPOCH "),
                                             StartsWith("V344 ANGLE_1 "), StartsWith("V344 ANGLE_2 ")));
}

TEST(TdmCopy, ATelescopeWithoutANameIsTheStation)
{
    CopyTrack track = trackOf("A", {markAt(0.5, 15, -0.5)});
    track.track.telescope = "";
    EXPECT_THAT(keyLines(copied({track}).text, "PARTICIPANT_1"), ElementsAre("K88"));
}

TEST(TdmCopy, MagnitudesAreLeftOutWhereTheCallSaysSo)
{
    CopySettings settings = usualSettings();
    settings.leavesMagnitudesOut = true;
    const Copy copy = copied({trackOf("A", {markAt(0.5, 15, -0.5)})}, settings);
    EXPECT_THAT(keyLines(copy.text, "MAG"), IsEmpty());
    EXPECT_EQ(keyLines(copy.text, "ANGLE_2").size(), 1U);
    EXPECT_THAT(copy.mended, IsEmpty());
}

TEST(TdmCopy, RefusesParticipantsThatAreNotAsciiOrTooLong)
{
    for (const std::string& name : {std::string("\xC3\xA4"), std::string("a\x7F"), std::string(231, 'a')}) {
        CopyTrack track = trackOf(name, {markAt(0.5, 15, -0.5)});
        EXPECT_THAT(refusals(track),
                    ElementsAre("V342 PARTICIPANT_2 has more than ASCII characters, or too many"));
        track.track.telescope = name;
        EXPECT_THAT(refusals(track),
                    ElementsAre("V342 PARTICIPANT_1 has more than ASCII characters, or too many"));
    }
    EXPECT_EQ(copied({trackOf(std::string(230, 'a'), {markAt(0.5, 15, -0.5)})}).refused, 0U);
}

TEST(TdmCopy, RefusesTwoMarksOfAnObjectAtOneTime)
{
    const Copy copy = copied({trackOf("A", {markAt(0.5, 15, -0.5), markAt(0.5, 16, -0.5)}),
                              trackOf("A", {markAt(0.5, 17, -0.5)}), trackOf("B", {markAt(0.5, 15, -0.5)})});
    EXPECT_EQ(copy.refused, 2U);
    EXPECT_THAT(copies::textsOf(copy.reasons),
                ElementsAre("V344 ANGLE_1 has the time 2025-02-23T12:00:00.0000000 twice",
                            "V344 ANGLE_1 has the time 2025-02-23T12:00:00.0000000 twice"));
    EXPECT_THAT(keyLines(copy.text, "ANGLE_1"),
                ElementsAre(testing::EndsWith(" 15.00000000"), testing::EndsWith(" 15.00000000")));
}

TEST(TdmCopy, RefusesAMessageWithoutTelescopeOrObject)
{
    Observatory observatory = completeObservatory();
    observatory.station = "";
    CopyTrack track = trackOf("A", {markAt(0.5, 15, -0.5)}, observatory);
    track.track.telescope = "telescope"; // what a record has that nobody has filled
    EXPECT_THAT(refusals(track), ElementsAre("V420 the telescope is not known: give it by --station"));
    EXPECT_THAT(refusals(trackOf(" ", {markAt(0.5, 15, -0.5)})),
                ElementsAre("V342 PARTICIPANT_2 has no value"));
    EXPECT_THAT(refusals(trackOf("\xC3\xA4", {markAt(0.5, 15, -0.5)})),
                ElementsAre(StartsWith("V342 PARTICIPANT_2 has more than ASCII")));
}
