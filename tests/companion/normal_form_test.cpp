#include "reading/normal_form.h"

#include "formats/mea.h"
#include "formats/telegram.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

namespace {

using companion::NormalForm;
using companion::TrueSettings;
using tavelinUtils::TrackVtorichka;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

NormalForm normal(const std::string& format, const std::string& bytes, const TrueSettings& settings = {})
{
    return readBy([&](const std::string& path) { return companion::normalFormOf(path, format, settings); },
                  bytes);
}

// Codes with their lines, without the notes of what is mended.
std::vector<std::string> told(const NormalForm& form)
{
    std::vector<std::string> codes;
    for (const companion::Finding& each : form.findings) {
        if (each.code != companion::FindingCode("V423")) {
            codes.push_back(std::to_string(each.line) + ' ' + each.code.text());
        }
    }
    return codes;
}

const std::string head = "TIME_SYSTEM = UTC\nPARTICIPANT_1 = K88\nPARTICIPANT_2 = A\nMODE = SEQUENTIAL\n"
                         "PATH = 2,1\nANGLE_TYPE = RADEC\nREFERENCE_FRAME = ICRF\n";
const std::string marks = "ANGLE_1 = 2017-01-01T00:00:00 10.5\nANGLE_2 = 2017-01-01T00:00:00 -1.5\n"
                          "MAG = 2017-01-01T00:00:00 9.5\n";

std::string message(const std::string& metadata, const std::string& data)
{
    return "CCSDS_TDM_VERS = 2.0\nMETA_START\n" + metadata + "META_STOP\nDATA_START\n" + data + "DATA_STOP\n";
}

// The metadata above with another value of a key; empty leaves the key out.
std::string headWith(const std::string& key, const std::string& value)
{
    std::string text = head;
    const std::size_t at = text.find(key + " = ");
    const std::size_t end = text.find('\n', at) + 1;
    return text.replace(at, end - at, value.empty() ? "" : key + " = " + value + '\n');
}

void expectRefused(const std::string& metadata, const std::string& code, const std::string& text)
{
    const NormalForm form = normal("tdm", message(metadata, marks));
    SCOPED_TRACE(metadata);
    EXPECT_TRUE(form.isRefused);
    EXPECT_EQ(form.leftOut, 1U);
    ASSERT_EQ(form.findings.size(), 1U);
    EXPECT_EQ(form.findings[0].code.text(), code);
    EXPECT_EQ(form.findings[0].text, text);
}

} // namespace

TEST(NormalForm, AMessageThatIsRightStaysAsItIs)
{
    const NormalForm form = normal("tdm", message(head, marks));
    EXPECT_EQ(form.text, message(head, marks));
    EXPECT_FALSE(form.isChanged);
    EXPECT_THAT(form.findings, IsEmpty());
    EXPECT_EQ(form.marks, 1U);
}

TEST(NormalForm, BlanksOfAMessageBecomeOne)
{
    std::string spread = message(head, marks);
    for (std::size_t at = spread.find('='); at != std::string::npos; at = spread.find('=', at + 5)) {
        spread.replace(at, 1, "\t =  ");
    }
    EXPECT_EQ(normal("tdm", "  " + spread).text, message(head, marks));
    std::string trailing = message(head, marks);
    trailing.insert(trailing.find('\n'), " ");
    const NormalForm form = normal("tdm", trailing);
    EXPECT_EQ(form.text, message(head, marks));
    ASSERT_EQ(form.findings.size(), 1U);
    EXPECT_EQ(form.findings[0].text, "mended: one blank between words, 1 line");
    std::string tight = message(head, marks);
    for (std::size_t at = tight.find(" = "); at != std::string::npos; at = tight.find(" = ")) {
        tight.replace(at, 3, "=");
    }
    EXPECT_EQ(normal("tdm", tight).text, message(head, marks));
}

TEST(NormalForm, RecordsInAnyOrderArePairedByTheirTimes)
{
    const std::string byKey = "MAG = 2017-01-01T00:00:01 9.6\nMAG = 2017-01-01T00:00:00 9.5\n"
                              "ANGLE_2 = 2017-001T00:00:00.0Z -1.5\nANGLE_2 = 2017-01-01T00:00:01 -1.6\n"
                              "ANGLE_1 = 2017-01-01T00:00:01 10.6\nANGLE_1 = 2017-01-01T00:00:00 10.5\n";
    const NormalForm form = normal("tdm", message(head, byKey));
    EXPECT_EQ(form.text, message(head, marks + "ANGLE_1 = 2017-01-01T00:00:01 10.6\n"
                                               "ANGLE_2 = 2017-01-01T00:00:01 -1.6\n"
                                               "MAG = 2017-01-01T00:00:01 9.6\n"));
    EXPECT_THAT(told(form), IsEmpty());
}

TEST(NormalForm, TwoMarksAtOneTimeStayTwo)
{
    EXPECT_EQ(normal("tdm", message(head, marks + marks)).text, message(head, marks + marks));
}

TEST(NormalForm, CommentsAndUnitsDoNotDisturb)
{
    const std::string data = "COMMENT one\nANGLE_1 = 2017-01-01T00:00:00 10.5 [deg]\nCOMMENT two\n"
                             "ANGLE_2 = 2017-01-01T00:00:00 -1.5 [deg]\nMAG = 2017-01-01T00:00:00 9.5\n";
    EXPECT_EQ(normal("tdm", message(head, data)).text, message(head, "COMMENT one\nCOMMENT two\n" + marks));
}

TEST(NormalForm, ASegmentsNameIsItsOwn)
{
    const std::string two = message(head, marks) + "META_START\n" + headWith("PARTICIPANT_2", "B") +
                            "META_STOP\nDATA_START\n" + marks + "DATA_STOP\n";
    const NormalForm form = normal("tdm", two);
    EXPECT_EQ(form.text, two);
    EXPECT_EQ(form.marks, 2U);
}

TEST(NormalForm, AnglesOfOtherTypesAreRefused)
{
    for (const std::string type : {"AZEL", "XEYN", "XSYE"}) {
        expectRefused(headWith("ANGLE_TYPE", type), "V141", type + " angles");
    }
    expectRefused(headWith("ANGLE_TYPE", ""), "V141", "undeclared angles");
}

TEST(NormalForm, WhatDoesNotTellObserverAndObjectIsRefused)
{
    const std::string rest = " do not tell observer and object";
    expectRefused(headWith("MODE", "SINGLE_DIFF"), "V142", "the participants of MODE SINGLE_DIFF" + rest);
    expectRefused(head + "PARTICIPANT_3 = B\n", "V142", "3 participants" + rest);
    expectRefused(headWith("PARTICIPANT_2", ""), "V142", "1 participant" + rest);
    expectRefused(headWith("PATH", "1,2,3"), "V142", "the participants of PATH 1,2,3" + rest);
    expectRefused(headWith("PATH", ""), "V142", "the participants of no PATH" + rest);
}

TEST(NormalForm, APathToTheSecondParticipantExchangesTheTwo)
{
    const std::string exchanged = headWith("PARTICIPANT_1", "A");
    std::string metadata = exchanged;
    metadata.replace(metadata.find("PARTICIPANT_2 = A"), 17, "PARTICIPANT_2 = K88");
    metadata.replace(metadata.find("PATH = 2,1"), 10, "PATH = 1,2");
    const NormalForm form = normal("tdm", message(metadata + "TRANSMIT_DELAY_2 = 0.5\n", marks));
    EXPECT_EQ(form.text, message(head + "TRANSMIT_DELAY_1 = 0.5\n", marks));
}

TEST(NormalForm, APathToTheSecondParticipantAndBackIsExchangedToo)
{
    std::string metadata = headWith("PARTICIPANT_1", "A");
    metadata.replace(metadata.find("PARTICIPANT_2 = A"), 17, "PARTICIPANT_2 = K88");
    metadata.replace(metadata.find("PATH = 2,1"), 10, "PATH = 2, 1,\t2");
    const NormalForm form = normal("tdm", message(metadata + "EPHEMERIS_NAME_1 = a\nTRANSMIT_DELAY_1 = 0.25\n"
                                                             "TRANSMIT_DELAY_2 = 0.5\n",
                                                  marks));
    EXPECT_EQ(form.text, message(headWith("PATH", "1,2,1") + "EPHEMERIS_NAME_2 = a\nTRANSMIT_DELAY_1 = 0.5\n"
                                                             "TRANSMIT_DELAY_2 = 0.25\n",
                                 marks));
}

TEST(NormalForm, FramesAreRefusedUnlessTheyAreAccepted)
{
    for (const std::string frame : {"ICRF", "EME2000", "J2000"}) {
        EXPECT_EQ(normal("tdm", message(headWith("REFERENCE_FRAME", frame), marks)).marks, 1U);
    }
    expectRefused(headWith("REFERENCE_FRAME", "TOD"), "V143", "the frame is TOD");
    expectRefused(headWith("REFERENCE_FRAME", ""), "V143", "the frame is not stated");
    TrueSettings settings;
    settings.acceptFrame = true;
    const std::string tod = message(headWith("REFERENCE_FRAME", "TOD"), marks);
    EXPECT_EQ(normal("tdm", tod, settings).text, tod);
}

TEST(NormalForm, ClocksWithoutLeapSecondsAreRefusedUnlessTheyAreNamed)
{
    expectRefused(headWith("TIME_SYSTEM", "UT1"), "V144", "the time system is UT1");
    expectRefused(headWith("TIME_SYSTEM", "SCLK"), "V144", "the time system is SCLK");
    expectRefused(headWith("TIME_SYSTEM", ""), "V144", "the time system is not stated");
    TrueSettings settings;
    settings.timeSystem = "GPS";
    const NormalForm named = normal("tdm", message(headWith("TIME_SYSTEM", "SCLK"), marks), settings);
    EXPECT_THAT(named.text, HasSubstr("\nTIME_SYSTEM = UTC\n"));
    EXPECT_THAT(named.text, HasSubstr("\nANGLE_1 = 2016-12-31T23:59:43 10.5\n"));
    EXPECT_THAT(normal("tdm", message(head, marks), settings).text, HasSubstr("2017-01-01T00:00:00 10.5"));
}

TEST(NormalForm, CorrectionsAreRefusedUnlessTheyAreToBeApplied)
{
    const std::string given = "CORRECTION_ANGLE_1 = -10.75\nCORRECTION_ANGLE_2 = 0.125\nCORRECTION_MAG = 1\n";
    const std::string rest = "corrections are given and not applied";
    expectRefused(head + given + "CORRECTIONS_APPLIED = NO\n", "V145", rest);
    expectRefused(head + given, "V145", rest);
    expectRefused(head + "CORRECTION_RECEIVE = 0.5\nCORRECTIONS_APPLIED = NO\n", "V145", rest);
    const std::string applied = message(head + given + "CORRECTIONS_APPLIED = YES\n", marks);
    EXPECT_EQ(normal("tdm", applied).text, applied);
    TrueSettings settings;
    settings.applyCorrections = true;
    const NormalForm added =
        normal("tdm", message(head + given + "CORRECTIONS_APPLIED = NO\n", marks), settings);
    EXPECT_THAT(added.text, HasSubstr("\nCORRECTIONS_APPLIED = YES\n"));
    EXPECT_THAT(added.text, HasSubstr("\nANGLE_1 = 2017-01-01T00:00:00 359.75\n"
                                      "ANGLE_2 = 2017-01-01T00:00:00 -1.375\n"
                                      "MAG = 2017-01-01T00:00:00 10.5\n"));
    EXPECT_EQ(normal("tdm", added.text, settings).text, added.text);
    expectRefused(head + "CORRECTION_MAG = 1\n", "V145", rest);
    EXPECT_THAT(normal("tdm", message(head + "CORRECTION_ANGLE_1 = 0.25\n", marks), settings).text,
                HasSubstr("\nANGLE_1 = 2017-01-01T00:00:00 10.75\n"));
    EXPECT_TRUE(
        normal("tdm", message(head + "CORRECTION_ABERRATION_YEARLY = 0.1\n", marks), settings).isRefused);
}

TEST(NormalForm, NumbersMayHaveAPlus)
{
    const std::string positive = "ANGLE_1 = 2017-01-01T00:00:00 +10.5\nANGLE_2 = 2017-01-01T00:00:00 +1.5\n"
                                 "MAG = 2017-01-01T00:00:00 9.5\n";
    EXPECT_EQ(normal("tdm", message(head, positive)).text, message(head, positive));
}

TEST(NormalForm, AnAngleWithoutItsPairIsToldAndLeftOut)
{
    const NormalForm form = normal("tdm", message(head, marks + "ANGLE_1 = 2017-01-01T00:00:01 10.5\n"
                                                                "ANGLE_2 = 2017-01-01T00:00:02 10.5\n"));
    EXPECT_EQ(form.text, message(head, marks));
    EXPECT_EQ(form.leftOut, 2U);
    EXPECT_THAT(told(form), ElementsAre("15 V146", "16 V146"));
    EXPECT_EQ(form.findings[0].text, "ANGLE_1 without its pair at 2017-01-01T00:00:01");
}

TEST(NormalForm, MarksWithoutAMagnitudeAreLeftOutOrGetTheOneThatIsGiven)
{
    const std::string pair = "ANGLE_1 = 2017-01-01T00:00:01 10.5\nANGLE_2 = 2017-01-01T00:00:01 -1.5\n";
    const NormalForm without = normal("tdm", message(head, marks + pair));
    EXPECT_EQ(without.text, message(head, marks));
    EXPECT_EQ(without.leftOut, 1U);
    EXPECT_THAT(told(without), ElementsAre("15 V147"));
    TrueSettings settings;
    settings.magnitude = 12.5;
    const NormalForm given = normal("tdm", message(head, marks + pair), settings);
    EXPECT_EQ(given.text, message(head, marks + pair + "MAG = 2017-01-01T00:00:01 12.5\n"));
    EXPECT_THAT(told(given), IsEmpty());
    EXPECT_EQ(given.marks, 2U);
}

TEST(NormalForm, ValuesThatAreNoNumbersAndTimesThatAreNoneAreTold)
{
    const NormalForm form =
        normal("tdm", message(head, "ANGLE_1 = 2017-01-01T00:00:05 10,5\nANGLE_2 = 2017-01-01T00:00:05 -1.5\n"
                                    "ANGLE_1 = yesterday 10.5\nANGLE_1 = 2017-01-01T00:00:01 10.5\n"
                                    "ANGLE_2 = 2017-01-01T00:00:01 90.5\nMAG = 2017-01-01T00:00:03 9.5\n" +
                                        marks));
    EXPECT_THAT(told(form), ElementsAre("12 V122", "14 V126", "16 V121", "17 V172"));
}

TEST(NormalForm, AMessageWithoutSegmentsStaysAsItIs)
{
    const std::string header = "CCSDS_TDM_VERS = 1.0\nCREATION_DATE = 0-00-00T00:00:00\nORIGINATOR = MPC\n";
    const NormalForm form = normal("tdm", header);
    EXPECT_EQ(form.text, header);
    EXPECT_FALSE(form.isRefused);
}

TEST(NormalForm, SegmentsOfAnXmlDocumentBecomeText)
{
    const std::string fixture = std::string(VOMAR_PROJECT) + "/tests/fixtures/tdm_xml/two_segments.xml";
    const NormalForm form = companion::normalFormOf(fixture, "tdm.xml", {});
    EXPECT_THAT(told(form), ElementsAre("23 V141", "81 V141", "0 V180"));
}

TEST(NormalForm, WellFormedFilesOfTheToolStayAsTheyAre)
{
    namespace fs = std::filesystem;
    const fs::path fixtures = fs::path(VOMAR_PROJECT) / "tests/fixtures";
    std::size_t files = 0;
    for (const char* folder : {"nights", "telegram", "ssmas", "tdm"}) {
        for (const auto& entry : fs::directory_iterator(fixtures / folder)) {
            const std::string suffix = entry.path().extension();
            const std::string format = suffix == ".tel"   ? "telegram"
                                       : suffix == ".ssm" ? "ssmas"
                                       : suffix == ".tdm" ? "tdm"
                                                          : "";
            const std::string name = entry.path().filename();
            if (format.empty() || name.find("_20") == std::string::npos) {
                continue; // of other makers
            }
            ++files;
            const NormalForm form = companion::normalFormOf(entry.path(), format, {});
            EXPECT_FALSE(form.isChanged) << entry.path();
            EXPECT_EQ(form.text, bytesOf(entry.path())) << entry.path();
            EXPECT_THAT(form.findings, IsEmpty()) << entry.path();
        }
    }
    EXPECT_GT(files, 6U);
}

TEST(NormalForm, TheReaderTakesTheToolsOwnDeclinationsRightAfterwards)
{
    TrackVtorichka track;
    track.QRVName = "A";
    for (int degrees = -89; degrees < 90; degrees += 2) {
        track.Marks.push_back({.date = 60000, .RA = 4.0 * (degrees + 90), .DE = degrees - 0.0625, .m = 9.5});
    }
    const auto expectRight = [&track](const std::vector<TrackVtorichka>& back) {
        ASSERT_EQ(back.size(), 1U);
        ASSERT_EQ(back[0].Marks.size(), track.Marks.size());
        for (std::size_t i = 0; i < track.Marks.size(); ++i) {
            EXPECT_NEAR(double{back[0].Marks[i].DE}, double{track.Marks[i].DE}, 2e-6);
        }
    };
    const std::string mea =
        normal("mea", writtenBy([&](const std::string& path) { tavelinUtils::sMEA(path, {track}); })).text;
    expectRight(readBy([](const std::string& path) { return tavelinUtils::plMEATrack(path, ""); }, mea));
    const std::string telegram =
        normal("telegram",
               writtenBy([&](const std::string& path) { tavelinUtils::sTelegramma(path, {track}); }))
            .text;
    expectRight(readBy([](const std::string& path) { return tavelinUtils::lTelegramma(path); }, telegram));
}

TEST(NormalForm, LineEndsOfAFileStay)
{
    EXPECT_EQ(normal("mea", "K88 2000.0 UTC\r\nA 250223 1200000000 0100000000 1230000000 001 09.50\r\n").text,
              "K88 2000.0 UTC\r\nA 250223 1200000000 0100000000 +1230000000 001 09.50\r\n");
    EXPECT_EQ(normal("mea", "K88 2000.0 UTC\nA 250223 1200000000 0100000000 1230000000 001 09.50").text,
              "K88 2000.0 UTC\nA 250223 1200000000 0100000000 +1230000000 001 09.50");
}

TEST(NormalForm, TabsBetweenTheWordsOfAMarkBecomeBlanks)
{
    const NormalForm form =
        normal("mea", "K88 2000.0 UTC\nA\t250223 1200000000\t0100000000 1230000000 001 09.50\n");
    EXPECT_EQ(form.text, "K88 2000.0 UTC\nA 250223 1200000000 0100000000 +1230000000 001 09.50\n");
    EXPECT_EQ(form.marks, 1U);
}

TEST(NormalForm, DeclinationsThatNobodyCanTellAreLeftOut)
{
    const std::string site = "K88 2000.0 UTC\n";
    for (const std::string DE : {"123000000", "12300000000", "9130000000", "12300x0000"}) {
        const NormalForm form = normal("mea", site + "A 250223 1200000000 0100000000 " + DE + " 001 09.50\n");
        EXPECT_EQ(form.text, site) << DE;
        EXPECT_EQ(form.leftOut, 1U) << DE;
        EXPECT_THAT(told(form), ElementsAre("2 V121")) << DE;
    }
}

TEST(NormalForm, MagnitudesOfATelegramComeBackAsTheyWere)
{
    const NormalForm form = normal("telegram", "MPC 807 A\n090616 05562400 16471748 -16155070 0010-12\n"
                                               "090616 05562400 16471748 -16155070 0010-3\n"
                                               "090616 05562400 16471748 -16155070 0010100\nEND\n");
    const auto tracks =
        readBy([](const std::string& path) { return tavelinUtils::lTelegramma(path); }, form.text);
    ASSERT_EQ(tracks.size(), 1U);
    EXPECT_DOUBLE_EQ(tracks[0].Marks[0].m, -1.2);
    EXPECT_DOUBLE_EQ(tracks[0].Marks[1].m, -0.3);
    EXPECT_DOUBLE_EQ(tracks[0].Marks[2].m, 10.0);
}

TEST(NormalForm, WideTextsBecomeUtf8)
{
    const std::string text = "K88 2000.0 UTC\nA\xC3\xA9 250223 1200000000 0100000000 +123000000 001 09.50\n";
    for (const bool isBig : {false, true}) {
        for (const std::size_t width : {std::size_t{2}, std::size_t{4}}) {
            for (const bool isMarked : {false, true}) {
                std::string wide;
                const auto add = [&](unsigned character) {
                    for (std::size_t i = 0; i < width; ++i) {
                        const std::size_t byte = isBig ? width - 1 - i : i;
                        wide += byte < 2 ? static_cast<char>(character >> 8 * byte & 0xFFU) : '\0';
                    }
                };
                if (isMarked) {
                    add(0xFEFF);
                }
                for (std::size_t i = 0; i < text.size(); ++i) {
                    const auto byte = static_cast<unsigned char>(text[i]);
                    add(byte < 0x80 ? byte : 0xE9U);
                    i += byte < 0x80 ? 0U : 1U;
                }
                const NormalForm form = normal("mea", wide);
                EXPECT_EQ(form.text, text) << isBig << width << isMarked;
                EXPECT_TRUE(form.isChanged);
            }
        }
    }
}

TEST(NormalForm, BrokenEncodingsAreRefused)
{
    const std::string mark = std::string("\xFF\xFE", 2);
    for (const std::string& bytes : {mark + std::string("A\0B", 3),
                                     mark + std::string("\0\xDC"
                                                        "A\0",
                                                        4),
                                     mark + std::string("\0\xD8"
                                                        "A\0",
                                                        4),
                                     std::string("K88 2000.0 UTC\nA\0B\n", 19),
                                     std::string("\xEF\xBB\xBF"
                                                 "A\xE9 B\n")})
    {
        const NormalForm form = normal("mea", bytes);
        EXPECT_TRUE(form.isRefused);
        EXPECT_THAT(told(form), ElementsAre("0 V101"));
    }
}

TEST(NormalForm, ATablesLastTrackGetsItsEndMark)
{
    const std::string table = "v2\nQRVName\tdate\ttime\tRA\tDE\n---\nA\t2023-02-25\t12:00:00\t15\t-0.5\t";
    EXPECT_EQ(normal("table", table).text, table + "\n---\n");
    EXPECT_EQ(normal("table", table + "\n\n").text, table + "\n---\n");
    EXPECT_EQ(normal("table", table + "\r\n").text, table + "\r\n---\r\n");
    EXPECT_EQ(normal("table", table + "\n---\n").text, table + "\n---\n");
    EXPECT_EQ(normal("table", table + "\n---").text, table + "\n---");
    EXPECT_EQ(normal("table", "v2\nQRVName\tdate\n").text, "v2\nQRVName\tdate\n");
    EXPECT_EQ(normal("table", table).marks, 1U);
}

TEST(NormalForm, DocumentsThatAreNoMeasurementsHaveNone)
{
    EXPECT_TRUE(companion::hasNormalForm("mea"));
    EXPECT_FALSE(companion::hasNormalForm("task"));
}

TEST(NormalForm, ABlankSignOfAReportBecomesAPlusAndOtherDigitsAreRefused)
{
    const std::string front = "     AST1000  C2025 02 23.50000 12 30 10.00 ";
    const std::string back = "          18.5 G      K88\n";
    const NormalForm form = normal("mpc", front + " 41 20 30.1" + back + front + "  1 20 30.1" + back);
    EXPECT_EQ(form.text, front + "+41 20 30.1" + back);
    EXPECT_TRUE(form.isChanged);
    EXPECT_EQ(form.leftOut, 1U);
    EXPECT_THAT(told(form), ElementsAre("2 V195"));
    const std::string second = "     AST1000  s2025 02 23.50000 1 + 1234.5678  + 1234.5678  + 1234.5678"
                               "      C51\n";
    EXPECT_EQ(normal("mpc", second).text, second);
}
