#include "reading/lint.h"

#include "companion/lint_outputs.h"
#include "reading/ades_document.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <string>
#include <vector>

namespace {

using companion::Finding;
using testing::Contains;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;
using testing::StartsWith;

using Lines = std::vector<std::string>;

// The findings of the receiver's layer alone.
Lines linted(const std::string& receiver, const std::string& format, const std::string& bytes,
             const std::string& name = "file.txt")
{
    const TemporaryFolder folder;
    std::ofstream(folder / name, std::ios::binary) << bytes;
    companion::LintSettings settings;
    settings.reader = false;
    settings.person = false;
    settings.receiver = receiver;
    Lines findings;
    companion::lintFile(folder / name, format, settings, [&findings](const Finding& found) {
        findings.push_back(std::to_string(found.line) + ':' + std::to_string(found.column) + ' ' +
                           found.code.text());
    });
    return findings;
}

std::string replaced(std::string text, const std::string& what, const std::string& by)
{
    const std::size_t place = text.find(what);
    EXPECT_NE(place, std::string::npos) << what;
    return text.replace(place, what.size(), by);
}

// The part of a text from one word to the end of another one.
std::string between(const std::string& text, const std::string& from, const std::string& to)
{
    const std::size_t begin = text.find(from);
    return text.substr(begin, text.find(to) + to.size() - begin);
}

// 80 columns

const std::string header =
    "COD L01\nOBS J. R. R. Tolkien, J.-F. Hulot\nMEA A. B. van der Berg\nACK night\nNET Gaia-DR3\n";
constexpr int headerLines = 5;
const std::string observation =
    "     K24Y04R  C2025 02 23.51234 12 30 12.34 +01 20 30.1          18.5 G      L01\n";

// The findings of lines behind the header, by their columns.
Lines ofObservations(const std::string& lines)
{
    Lines findings;
    for (const std::string& each : linted("mpc", "mpc", header + lines)) {
        findings.push_back(each);
    }
    return findings;
}

Lines ofObservation(const std::string& what, const std::string& by)
{
    Lines findings;
    for (const std::string& each : ofObservations(replaced(observation, what, by))) {
        EXPECT_THAT(each, StartsWith(std::to_string(headerLines + 1) + ':'));
        findings.push_back(each.substr(2));
    }
    return findings;
}

} // namespace

TEST(LintForMpc, GoodLinesHaveNoFinding)
{
    const Lines good{"00433         C2025 02 23.51234 12 30 12.34 +01 20 30.1          18.5 G      L01",
                     "A0345         B2025 02 23.51234512 30 12.345-01 20 30.12         18.53G      L01",
                     "~000z         C2025 02 23.51234 12 30 12.34 +01 20 30.1          18.5 G      L01",
                     "     K25D12A* C2025 02 23.51234 12 30 12.34 +01 20 30.1          18.5 V      L01",
                     "     AST1000  C2025 02 23.51234 12 30 12.34 +01 20 30.1                      L01",
                     "    CK23A030  C2025 02 23.51234 12 30 12.34 -00 00 00.5          10.1 G      L01",
                     "0073P      c  C2025 02 23.51234 12 30 12.34 +01 20 30.1          14.2 R      L01",
                     "J013S        TC2025 02 23.51234 12 30 12.34 +01 20 30.1          17.8 G      L01",
                     "00433I98D00Q  C2025 02 23.51234 12 30 12.34 +01 20 30.1           -1.0V      L01",
                     "     K24Y04R  C2025 12 31.99999 23 59 59.99 -89 59 59.9          18.5 G      L01",
                     "     _QC0aEM  C2026 02 03.00001 12 30 12.34 +01 20 30.1          18.5 G      L01"};
    EXPECT_THAT(ofObservation("12 30 12.34", "12 30.2    "), IsEmpty());
    for (const std::string& line : good) {
        EXPECT_THAT(ofObservations(line + '\n'), IsEmpty()) << line;
    }
}

TEST(LintForMpc, NamesThatAreRefused)
{
    const std::string name = "     K24Y04R  ";
    EXPECT_THAT(ofObservation(name, "      ABC123  "), ElementsAre("1 V312"));
    EXPECT_THAT(ofObservation(name, "    AST10000  "), ElementsAre("1 V312"));
    EXPECT_THAT(ofObservation(name, "     SAT-01   "), ElementsAre("1 V312"));
    EXPECT_THAT(ofObservation(name, "              "), ElementsAre("1 V312"));
    EXPECT_THAT(ofObservation(name, "C/2023 A3     "), ElementsAre("1 V319"));
    EXPECT_THAT(ofObservation(name, "433           "), ElementsAre("1 V319"));
    EXPECT_THAT(ofObservation(name, "     16033A   "), ElementsAre("1 V318"));
}

TEST(LintForMpc, AnglesThatAreRefused)
{
    EXPECT_THAT(ofObservation("+01", "01"), ElementsAre("1 V310", "45 V314"));
    EXPECT_THAT(ofObservation("+01", " 01"), ElementsAre("45 V314"));
    EXPECT_THAT(ofObservation("12.34 ", "60.00 "), ElementsAre("33 V313"));
    EXPECT_THAT(ofObservation("30.1 ", "60.0 "), ElementsAre("46 V313"));
    EXPECT_THAT(ofObservation("12.34 ", "12,34 "), ElementsAre("33 V316"));
    EXPECT_THAT(ofObservation("12 30 12.34", "24 00 00.00"), ElementsAre("33 V316"));
    EXPECT_THAT(ofObservation("+01 20 30.1", "+91 00 00.0"), ElementsAre("45 V316"));
}

TEST(LintForMpc, AnglesMayEndEarlierThanTheLastDecimal)
{
    EXPECT_THAT(ofObservation("12 30 12.34", "12 30 12   "), IsEmpty());
    EXPECT_THAT(ofObservation("12 30 12.34", "12 30      "), IsEmpty());
    EXPECT_THAT(ofObservation("12 30 12.34", "12 30.23   "), IsEmpty());
}

TEST(LintForMpc, AnglesOutOfTheirColumns)
{
    for (const char* angle : {"           ", "1x 30 12.34", "12:30 12.34", "12 x0 12.34", "12 30 1x.34",
                              "12 30 12.3x", "12 30 1.234", "12 30.23456", "123012.3400"})
    {
        EXPECT_THAT(ofObservation("12 30 12.34", angle), ElementsAre("33 V316")) << angle;
    }
    EXPECT_THAT(ofObservation("12 30 12.34", "12 60 12.34"), ElementsAre("33 V313"));
    EXPECT_THAT(ofObservation("+01 20", "+0x 20"), ElementsAre("45 V316"));
}

TEST(LintForMpc, TimesThatAreRefused)
{
    EXPECT_THAT(ofObservation("2025 02 23", "2025-02 23"), ElementsAre("16 V316"));
    EXPECT_THAT(ofObservation("2025 02 23", "2025 02-23"), ElementsAre("16 V316"));
    EXPECT_THAT(ofObservation("02 23", "02 30"), ElementsAre("16 V316"));
    EXPECT_THAT(ofObservation(".51234 ", "       "), ElementsAre("26 V316"));
    const std::string late = replaced(observation, ".51234", ".99998");
    EXPECT_THAT(ofObservations(late + replaced(observation, ".51234", ".00000")), ElementsAre("7:16 V317"));
    EXPECT_THAT(ofObservations(replaced(observation, ".51234", ".00000") + late), IsEmpty());
    const std::string early = replaced(observation, ".51234", ".49999");
    EXPECT_THAT(ofObservations(early + replaced(observation, ".51234", ".00000")), IsEmpty());
}

TEST(LintForMpc, OtherColumnsThatAreRefused)
{
    EXPECT_THAT(ofObservation("18.5 G", "18.5 X"), ElementsAre("71 V316"));
    EXPECT_THAT(ofObservation("18.5 G", "18.5 C"), ElementsAre("71 V316"));
    EXPECT_THAT(ofObservation("18.5 G ", "18.5 GV"), ElementsAre("71 V316"));
    EXPECT_THAT(ofObservation("18.5 G", "     G"), ElementsAre("71 V316"));
    EXPECT_THAT(ofObservation("18.5", "00.0"), ElementsAre("66 V315"));
    EXPECT_THAT(ofObservation("18.5 ", "1.85 "), ElementsAre("66 V316"));
    EXPECT_THAT(ofObservation("30.1          18", "30.1  x       18"), ElementsAre("57 V316"));
    EXPECT_THAT(ofObservation("  C2025", "  X2025"), ElementsAre("15 V316"));
    EXPECT_THAT(ofObservation("  C2025", "  S2025"), ElementsAre("15 V316"));
    EXPECT_THAT(ofObservation("L01", "L02"), ElementsAre("78 V320"));
    EXPECT_THAT(ofObservation("L01", "L01 "), ElementsAre("1 V310"));
    EXPECT_THAT(ofObservation("L01", "L0"), ElementsAre("1 V310"));
}

TEST(LintForMpc, MagnitudesOutOfTheirColumns)
{
    EXPECT_THAT(ofObservation("18.5 ", "18   "), IsEmpty());
    EXPECT_THAT(ofObservation("18.5 ", " 9.5 "), IsEmpty());
    for (const char* magnitude : {"1    ", "  18 ", "18 5 ", "185.3", " -.5 ", "  .5 ", "18.x ", "1x.5 "}) {
        EXPECT_THAT(ofObservation("18.5 ", magnitude), ElementsAre("66 V316")) << magnitude;
    }
}

TEST(LintForMpc, StationsThatAreNone)
{
    const auto ofStation = [](const std::string& station) {
        return linted("mpc", "mpc", replaced(header, "L01", station) + replaced(observation, "L01", station));
    };
    EXPECT_THAT(ofStation("703"), IsEmpty());
    for (const char* station : {"L-1", "l01", "500"}) {
        EXPECT_THAT(ofStation(station), ElementsAre("6:78 V316")) << station;
    }
}

TEST(LintForMpc, LineEndsOfBothKindsAreTaken)
{
    EXPECT_THAT(ofObservation("L01\n", "L01\r\n"), IsEmpty());
}

TEST(LintForMpc, TwoPositionsOfAnObjectAtOneTime)
{
    const std::string other = replaced(observation, "+01", "-01");
    EXPECT_THAT(ofObservations(observation + other), ElementsAre("7:16 V316"));
    EXPECT_THAT(ofObservations(replaced(observation, ".51234 ", ".512340") + other),
                ElementsAre("7:16 V316"));
    EXPECT_THAT(ofObservations(observation + replaced(other, ".51234", ".51235")), IsEmpty());
    EXPECT_THAT(ofObservations(observation + replaced(other, "K24Y04R", "K24Y04S")), IsEmpty());
}

TEST(LintForMpc, PairsOfLines)
{
    const std::string first = replaced(observation, "  C2025", "  S2025");
    const std::string second =
        "     K24Y04R  s2025 02 23.51234 1 + 6803.9667 +  267.8728 +  855.8559        L01\n";
    EXPECT_THAT(ofObservations(first + second), IsEmpty());
    EXPECT_THAT(ofObservations(second), ElementsAre("6:15 V316"));
    EXPECT_THAT(ofObservations(first + replaced(second, "K24Y04R", "K24Y05R")),
                ElementsAre("6:15 V316", "7:15 V316"));
    EXPECT_THAT(ofObservations(first + replaced(observation, ".51234", ".61234")), ElementsAre("6:15 V316"));
    for (const char* note : {"  v2025", "  r2025"}) {
        EXPECT_THAT(ofObservations(replaced(second, "  s2025", note)), ElementsAre("6:15 V316")) << note;
    }
}

TEST(LintForMpc, TheColumnsOfARadarEchoAreNotThoseOfAPosition)
{
    const std::string echo =
        "00433         R2025 02 23.512340   12345670000 +     100000000  2380253      251\n"
        "00433         r2025 02 23.512340S        1000             2000      253      251\n";
    EXPECT_THAT(linted("mpc", "mpc", replaced(header, "L01", "251") + echo), IsEmpty());
}

TEST(LintForMpc, Headers)
{
    EXPECT_THAT(linted("mpc", "mpc", observation), ElementsAre("1:1 V320"));
    EXPECT_THAT(linted("mpc", "mpc", "COD L01\n" + observation), ElementsAre("2:1 V320", "2:1 V320"));
    EXPECT_THAT(linted("mpc", "mpc", replaced(header, "ACK night", "ACK") + observation),
                ElementsAre("4:1 V320"));
    EXPECT_THAT(linted("mpc", "mpc", replaced(header, "NET ", "NETS ") + observation),
                ElementsAre("5:1 V310"));
    EXPECT_THAT(linted("mpc", "mpc", replaced(header, "NET ", "\nNET ") + observation), IsEmpty());
    EXPECT_THAT(linted("mpc", "mpc", replaced(header, "Tolkien, ", "Tolkien,, ") + observation), IsEmpty());
    EXPECT_THAT(linted("mpc", "mpc", replaced(header, "night", std::string(77, 'a')) + observation),
                ElementsAre("4:81 V320"));
    for (const char* name : {"John Tolkien", "J.R. Tolkien", "J. TOLKIEN", "Tolkien", "J."}) {
        EXPECT_THAT(linted("mpc", "mpc", replaced(header, "J. R. R. Tolkien", name) + observation),
                    ElementsAre("2:5 V320"))
            << name;
    }
    EXPECT_THAT(linted("mpc", "mpc", replaced(header, "night", "n\tight") + observation),
                ElementsAre("4:6 V321"));
    EXPECT_THAT(linted("mpc", "mpc", replaced(header, "night", "n\xC3\xA4ght") + observation),
                ElementsAre("4:6 V321"));
}

// Tracking messages

namespace {

const std::string message =
    "CCSDS_TDM_VERS = 2.0\nCREATION_DATE = 2025-02-24T08:00:00\nORIGINATOR = MPC\nMETA_START\n"
    "TIME_SYSTEM = UTC\nSTART_TIME = 2025-02-23T12:00:00\nSTOP_TIME = 2025-02-23T12:01:00\n"
    "PARTICIPANT_1 = H21\nPARTICIPANT_2 = XL90E5A\nMODE = SEQUENTIAL\nPATH = 2,1\n"
    "ANGLE_TYPE = RADEC\nREFERENCE_FRAME = ICRF\nMETA_STOP\nDATA_START\n"
    "ANGLE_1 = 2025-02-23T12:00:00 321.3\nANGLE_2 = 2025-02-23T12:00:00 -8.8\n"
    "MAG = 2025-02-23T12:00:00 21.1\nANGLE_1 = 2025-02-23T12:01:00 321.4\n"
    "ANGLE_2 = 2025-02-23T12:01:00 -8.7\nMAG = 2025-02-23T12:01:00 21.2\nDATA_STOP\n";

Lines ofMessage(const std::string& what, const std::string& by)
{
    return linted("ccsds", "tdm", replaced(message, what, by));
}

} // namespace

TEST(LintForCcsds, AGoodMessageHasNoFinding)
{
    EXPECT_THAT(linted("ccsds", "tdm", message), IsEmpty());
    EXPECT_THAT(ofMessage("2025-02-24T", "2025-055T"), IsEmpty());
    EXPECT_THAT(ofMessage("META_START\n", "META_START\nCOMMENT  free\n\n"), IsEmpty());
    EXPECT_THAT(ofMessage("MODE = ", "  MODE   =   "), IsEmpty());
}

TEST(LintForCcsds, Headers)
{
    EXPECT_THAT(ofMessage("2025-02-24T08:00:00", "0-00-00T00:00:00"), ElementsAre("2:17 V340"));
    EXPECT_THAT(ofMessage("VERS = 2.0", "VERS = 1.0"), ElementsAre("18:7 V341"));
    EXPECT_THAT(ofMessage("VERS = 2.0", "VERS = 3.0"), ElementsAre("1:18 V342"));
    EXPECT_THAT(ofMessage("ORIGINATOR = MPC\n", ""), ElementsAre("3:1 V342"));
    EXPECT_THAT(ofMessage("ORIGINATOR = MPC", "ORIGINATOR ="), ElementsAre("3:13 V342"));
    EXPECT_THAT(ofMessage("CCSDS_TDM_VERS = 2.0\n", "COMMENT a\nCCSDS_TDM_VERS = 2.0\n"),
                Contains("1:1 V342"));
    EXPECT_THAT(ofMessage("CCSDS_TDM_VERS = 2.0\n", ""), ElementsAre("1:1 V342"));
    EXPECT_THAT(ofMessage("META_START", "TIME_SYSTEM = UTC\nMETA_START"), ElementsAre("4:15 V342"));
    EXPECT_THAT(ofMessage("META_STOP", "ORIGINATOR = MPC\nMETA_STOP"), ElementsAre("14:14 V342"));
}

TEST(LintForCcsds, KeysOfTheMetadata)
{
    EXPECT_THAT(ofMessage("TIME_SYSTEM = UTC\n", ""), Contains("13:1 V342"));
    EXPECT_THAT(ofMessage("MODE = SEQUENTIAL\n", "MODE = SEQUENTIAL\nMODE = SEQUENTIAL\n"),
                ElementsAre("11:8 V342"));
    EXPECT_THAT(ofMessage("SEQUENTIAL", "PARALLEL"), ElementsAre("10:8 V342"));
    EXPECT_THAT(ofMessage("SEQUENTIAL", "sequential"), IsEmpty());
    EXPECT_THAT(ofMessage("SEQUENTIAL", "Sequential"), ElementsAre("10:8 V342"));
    EXPECT_THAT(ofMessage("PATH = 2,1", "PATH = 2,1,"), ElementsAre("11:8 V342"));
    EXPECT_THAT(ofMessage("ANGLE_TYPE", "RANGE_MODULUS = -1\nANGLE_TYPE"), ElementsAre("12:17 V342"));
    EXPECT_THAT(ofMessage("PATH = 2,1", "PATH = 2,3"), ElementsAre("11:8 V342"));
    EXPECT_THAT(ofMessage("PATH = 2,1", "PATH = 2, 1"), ElementsAre("11:8 V342"));
    EXPECT_THAT(ofMessage("PATH = 2,1", "PATH = 1"), ElementsAre("11:8 V342"));
    EXPECT_THAT(ofMessage("PATH = 2,1", "PATH = 2,1\nPATH_1 = 2,1"), ElementsAre("15:1 V342"));
    EXPECT_THAT(ofMessage("PATH = 2,1", "PATH = 2,1\nPATH_2 = 2,1"), ElementsAre("15:1 V342"));
    EXPECT_THAT(ofMessage("= ICRF", "= J2000"), ElementsAre("13:19 V342"));
    EXPECT_THAT(ofMessage("REFERENCE_FRAME = ICRF\n", ""), ElementsAre("13:1 V342"));
    EXPECT_THAT(ofMessage("= UTC", "= LOCAL"), ElementsAre("5:15 V342"));
    EXPECT_THAT(ofMessage("ANGLE_TYPE = RADEC\n", ""), ElementsAre("15:11 V342"));
    EXPECT_THAT(ofMessage("PATH = 2,1\nANGLE_TYPE = RADEC\n", "ANGLE_TYPE = RADEC\nPATH = 2,1\n"),
                ElementsAre("12:8 V342"));
    EXPECT_THAT(ofMessage("META_STOP", "COLOUR = red\nMETA_STOP"), ElementsAre("14:1 V342"));
}

TEST(LintForCcsds, StructureOfSegments)
{
    EXPECT_THAT(ofMessage("DATA_STOP\n", ""), ElementsAre("21:0 V342"));
    EXPECT_THAT(ofMessage("META_STOP\n", ""), Contains("14:1 V342"));
    EXPECT_THAT(ofMessage("META_STOP\n", "META_STOP\nMETA_STOP\n"), ElementsAre("15:1 V342"));
    EXPECT_THAT(ofMessage("META_STOP\n", "META_STOP\nMAG = 2025-02-23T12:00:00 21.1\n"),
                ElementsAre("15:7 V342"));
    EXPECT_THAT(ofMessage("DATA_STOP\n", "DATA_STOP\nDATA_STOP\n"), ElementsAre("23:1 V342"));
    EXPECT_THAT(linted("ccsds", "tdm", ""), ElementsAre("0:0 V342"));
    EXPECT_THAT(linted("ccsds", "tdm", "CCSDS_TDM_VERS = 2.0\n"), ElementsAre("1:0 V342"));
    EXPECT_THAT(ofMessage("MAG = 2025-02-23T12:00:00", "COMMENT late\nMAG = 2025-02-23T12:00:00"),
                ElementsAre("18:1 V342"));
    EXPECT_THAT(ofMessage("META_START\n", "META_START\nCOMMENT " + std::string(246, 'a') + '\n'), IsEmpty());
    EXPECT_THAT(ofMessage("META_START\n", "META_START\nCOMMENT " + std::string(247, 'a') + '\n'),
                ElementsAre("5:1 V342"));
}

TEST(LintForCcsds, Photometry)
{
    const std::string data = "DATA_START\nMAG = 2025-02-23T12:00:00 21.1\nMAG = 2025-02-23T12:01:00 21.2\n";
    const std::string photometry =
        replaced(message.substr(0, message.find("ANGLE_TYPE")), "MPC\n", "MPC\nMESSAGE_ID = 1\n") +
        "META_STOP\n" + data + "DATA_STOP\n";
    EXPECT_THAT(linted("ccsds", "tdm", photometry), IsEmpty());
    EXPECT_THAT(linted("ccsds", "tdm", replaced(photometry, "MODE = SEQUENTIAL\nPATH = 2,1\n", "")),
                ElementsAre("13:7 V342", "13:7 V342")); // MODE and PATH
    EXPECT_THAT(linted("ccsds", "tdm", replaced(photometry, "MAG = 2025-02-23T12:01:00 21.2", "MAG =")),
                ElementsAre("8:13 V345", "16:6 V342"));
}

TEST(LintForCcsds, Records)
{
    EXPECT_THAT(ofMessage("321.3", "360.0000000"), ElementsAre("16:11 V343"));
    EXPECT_THAT(ofMessage("321.3", "nan"), ElementsAre("16:11 V344"));
    EXPECT_THAT(ofMessage("321.3", "321.3 [deg]"), ElementsAre("16:1 V342"));
    EXPECT_THAT(ofMessage("-8.8", "-8,8"), ElementsAre("17:11 V342"));
    EXPECT_THAT(ofMessage("ANGLE_1 = 2025-02-23T12:01:00", "ANGLE_1 = 2025-02-23T12:00:00"),
                ElementsAre("19:11 V344"));
    EXPECT_THAT(ofMessage("ANGLE_1 = 2025-02-23T12:01:00", "ANGLE_1 = 2025-02-23T11:01:00"),
                ElementsAre("6:14 V345", "19:11 V342"));
    EXPECT_THAT(ofMessage("MAG = 2025-02-23T12:01:00", "MAG = 2025-02-23T00:00:00.0"),
                ElementsAre("6:14 V345", "21:7 V346"));
    EXPECT_THAT(ofMessage("STOP_TIME = 2025-02-23T12:01:00", "STOP_TIME = 2025-02-23T12:00:59"),
                ElementsAre("7:13 V345"));
    EXPECT_THAT(ofMessage("12:00:00 21.1", "25:00:00 21.1"), ElementsAre("18:7 V342"));
    EXPECT_THAT(ofMessage("321.3", "-0.0"), ElementsAre("16:11 V342"));
    EXPECT_THAT(ofMessage("321.3", "-x"), ElementsAre("16:11 V342"));
    EXPECT_THAT(ofMessage("321.3", "321."), ElementsAre("16:11 V342"));
    EXPECT_THAT(ofMessage("321.3", "321.x"), ElementsAre("16:11 V342"));
}

TEST(LintForCcsds, TheEndOfADayOnTheOldDate)
{
    std::string late = message;
    for (const char* key : {"ANGLE_1", "ANGLE_2", "MAG"}) {
        const std::string front = std::string(key) + " = 2025-02-23T";
        late = replaced(late, front + "12:01:00", front + "00:00:00.00000");
    }
    EXPECT_THAT(linted("ccsds", "tdm", late),
                ElementsAre("6:14 V345", "7:13 V345", "19:11 V346", "20:11 V346", "21:7 V346"));
}

TEST(LintForCcsds, MidnightOfAnotherDayOrBeforeAMorningIsOutOfOrder)
{
    EXPECT_THAT(ofMessage("MAG = 2025-02-23T12:01:00", "MAG = 2025-02-22T00:00:00"),
                ElementsAre("6:14 V345", "21:7 V342"));
    const std::string morning = replaced(message, "MAG = 2025-02-23T12:00:00", "MAG = 2025-02-23T11:59:59");
    EXPECT_THAT(
        linted("ccsds", "tdm", replaced(morning, "MAG = 2025-02-23T12:01:00", "MAG = 2025-02-23T00:00:00")),
        ElementsAre("6:14 V345", "21:7 V342"));
}

namespace {

const std::string document =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<tdm id=\"CCSDS_TDM_VERS\" version=\"2.0\">\n<header>\n"
    "<CREATION_DATE>2025-02-24T08:00:00</CREATION_DATE>\n<ORIGINATOR>MPC</ORIGINATOR>\n</"
    "header>\n<body>\n<segment>\n"
    "<metadata>\n<TIME_SYSTEM>UTC</TIME_SYSTEM>\n<PARTICIPANT_1>H21</PARTICIPANT_1>\n<MODE>SEQUENTIAL</"
    "MODE>\n"
    "<PATH>1,1</PATH>\n<ANGLE_TYPE>RADEC</ANGLE_TYPE>\n<REFERENCE_FRAME>ICRF</REFERENCE_FRAME>\n</"
    "metadata>\n<data>\n"
    "<observation><EPOCH>2025-02-23T12:00:00</EPOCH><ANGLE_1>321.3</ANGLE_1></observation>\n"
    "</data>\n</segment>\n</body>\n</tdm>\n";

Lines ofDocument(const std::string& what, const std::string& by)
{
    return linted("ccsds", "tdm.xml", replaced(document, what, by));
}

} // namespace

TEST(LintForCcsds, DocumentsAreLookedAtAsMessagesAre)
{
    EXPECT_THAT(linted("ccsds", "tdm.xml", document), IsEmpty());
    EXPECT_THAT(ofDocument("2025-02-24T08:00:00", "0-00-00T00:00:00"), ElementsAre("4:1 V340"));
    EXPECT_THAT(ofDocument("<ANGLE_1>321.3", "<ANGLE_1>360.0"), ElementsAre("18:48 V343"));
    EXPECT_THAT(ofDocument(">ICRF<", "><"), ElementsAre("15:1 V342"));
    EXPECT_THAT(ofDocument("<EPOCH>2025-02-23T12:00:00</EPOCH>", ""), ElementsAre("17:1 V342", "18:1 V342"));
    EXPECT_THAT(ofDocument("id=\"CCSDS_TDM_VERS\" ", ""), ElementsAre("2:1 V342"));
    EXPECT_THAT(ofDocument("</segment>", ""), ElementsAre("0:0 V342"));
    std::string deep;
    for (int level = 0; level < 1001; ++level) {
        deep += "<a>";
    }
    EXPECT_THAT(linted("ccsds", "tdm.xml", deep), ElementsAre("0:0 V342"));
}

TEST(LintForCcsds, WhatTheSchemasOfDocumentsRefuse)
{
    EXPECT_THAT(ofDocument("version=\"2.0\"", "version=\"1.0\""), ElementsAre("2:1 V342"));
    EXPECT_THAT(ofDocument("<PARTICIPANT_1>H21</PARTICIPANT_1>", "<PARTICIPANT_2>H21</PARTICIPANT_2>"),
                Contains("9:1 V342"));
    EXPECT_THAT(ofDocument(">ICRF<", ">ITRF1993<"), ElementsAre("15:1 V342"));
    EXPECT_THAT(ofDocument(">ICRF<", ">icrf<"), IsEmpty());
    EXPECT_THAT(ofDocument("<ANGLE_1>", "<ANGLE_1 units=\"rad\">"), ElementsAre("18:48 V342"));
    EXPECT_THAT(ofDocument("<ANGLE_1>", "<ANGLE_1 units=\"deg\">"), IsEmpty());
    EXPECT_THAT(ofDocument("<data>", "<data>text"), ElementsAre("17:1 V342"));
    EXPECT_THAT(ofDocument("UTC<", "UTC<COMMENT/><"), ElementsAre("10:1 V342"));
    EXPECT_THAT(ofDocument("<segment>", "<piece/><segment>"), ElementsAre("8:1 V342"));
    EXPECT_THAT(ofDocument(" version=\"2.0\"", ""), ElementsAre("2:1 V342"));
    EXPECT_THAT(ofDocument("<data>", "<data><![CDATA[ ]]>"), IsEmpty());
    EXPECT_THAT(ofDocument(between(document, "<observation>", "</observation>"), "<observation/>"),
                ElementsAre("17:1 V342", "18:1 V342"));
}

TEST(LintForCcsds, ElementsWithTheNamesOfKeysThatDoNotBelongThere)
{
    EXPECT_THAT(ofDocument("<CREATION_DATE>", "<CCSDS_TDM_VERS>2.0</CCSDS_TDM_VERS><CREATION_DATE>"),
                ElementsAre("4:1 V342"));
    for (const std::string key : {"ANGLE_1", "MAG", "META_START"}) {
        EXPECT_THAT(ofDocument("<REFERENCE_FRAME>", '<' + key + ">1</" + key + "><REFERENCE_FRAME>"),
                    ElementsAre("15:1 V342"))
            << key;
    }
    EXPECT_THAT(ofDocument("<ANGLE_1>321.3</ANGLE_1>", "<RANGE_MODULUS>1</RANGE_MODULUS>"),
                ElementsAre("17:1 V342", "18:48 V342"));
}

// Brightness

namespace {

const std::string parameters =
    "#TYPE=Extended\n#OBSCODE=TST01\n#SOFTWARE=x 1\n#DELIM=,\n#DATE=JD\n#OBSTYPE=CCD\n#NAME,DATE\n";
const std::string measure =
    "V1023 Her,2457878.75315,12.847,0.011,V,NO,STD,ENSEMBLE,na,120,12.013,1.204,na,X17724AYH,na\n";

Lines ofMeasure(const std::string& what, const std::string& by)
{
    return linted("aavso", "aavso", parameters + replaced(measure, what, by));
}

} // namespace

TEST(LintForAavso, GoodFilesHaveNoFinding)
{
    EXPECT_THAT(linted("aavso", "aavso", parameters + measure), IsEmpty());
    EXPECT_THAT(ofMeasure("12.847,0.011,V", "<15.2,na,TG"), IsEmpty());
    EXPECT_THAT(ofMeasure("12.847", "-1.046"), IsEmpty());
    EXPECT_THAT(ofMeasure("12.847", "+1.046"), IsEmpty());
    EXPECT_THAT(ofMeasure("12.847", ".847"), IsEmpty());
    EXPECT_THAT(ofMeasure("12.847", "9."), IsEmpty());
    EXPECT_THAT(ofMeasure("STD", "ABS"), IsEmpty());
    EXPECT_THAT(linted("aavso", "aavso",
                       replaced(parameters, "=,", "=;") +
                           "A,B;2457878.7;12.8;na;RJ;YES;STD;000;8.2;na;na;2;17;na;a|b\n"),
                IsEmpty());
}

TEST(LintForAavso, FieldsThatAreRefused)
{
    EXPECT_THAT(ofMeasure("12.847", "12"), ElementsAre("8:25 V361"));
    EXPECT_THAT(ofMeasure("12.847", "12.8471234"), ElementsAre("8:25 V361"));
    EXPECT_THAT(ofMeasure("12.847", "na"), ElementsAre("8:25 V361"));
    for (const char* magnitude : {"12.8x", "1x.8", ".", "-."}) {
        EXPECT_THAT(ofMeasure("12.847", magnitude), ElementsAre("8:25 V361")) << magnitude;
    }
    for (const char* error : {"inf", "1.2", "0.01234", "", "-0.1"}) {
        EXPECT_THAT(ofMeasure("0.011", error), ElementsAre("8:32 V361")) << error;
    }
    EXPECT_THAT(ofMeasure(",V,", ",Clear,"), ElementsAre("8:38 V363"));
    EXPECT_THAT(ofMeasure(",120,", ",,"), ElementsAre("8:59 V363"));
    EXPECT_THAT(ofMeasure("V1023 Her", std::string(31, 'a')), ElementsAre("8:1 V361"));
    EXPECT_THAT(ofMeasure("V1023 Her", ""), ElementsAre("8:1 V361"));
    EXPECT_THAT(ofMeasure("V1023 Her", "na"), ElementsAre("8:1 V361"));
    EXPECT_THAT(ofMeasure("V1023 Her", "A,B"), ElementsAre("8:1 V360"));
    EXPECT_THAT(ofMeasure("2457878.75315", "yesterday"), ElementsAre("8:11 V361"));
    EXPECT_THAT(ofMeasure(",NO,", ",MAYBE,"), ElementsAre("8:40 V361"));
    EXPECT_THAT(ofMeasure("STD", "STX"), ElementsAre("8:43 V361"));
    EXPECT_THAT(ofMeasure("12.013", "bright"), ElementsAre("8:63 V361"));
    EXPECT_THAT(ofMeasure("STD,ENSEMBLE", "DIF,na"), ElementsAre("8:47 V361"));
    EXPECT_THAT(ofMeasure("1.204,na", "1.204,a"), ElementsAre("8:76 V361"));
    EXPECT_THAT(ofMeasure("1.204", "1.2034567"), ElementsAre("8:70 V361"));
    EXPECT_THAT(ofMeasure("2457878.75315", "2457878.7531512345"), ElementsAre("8:11 V361"));
    EXPECT_THAT(ofMeasure("2457878.75315", "57878.25315"), ElementsAre("8:11 V364"));
    EXPECT_THAT(ofMeasure("12.847", "0.000"), ElementsAre("8:25 V362"));
}

TEST(LintForAavso, DatesOfASpreadsheetAreTakenInAnyForm)
{
    const std::string ofSpreadsheet = replaced(parameters, "=JD", "=EXCEL");
    for (const char* date : {"12/31/2007 12:59:59 AM", "2457878.75315", "31.12.2007 0:59"}) {
        EXPECT_THAT(linted("aavso", "aavso", ofSpreadsheet + replaced(measure, "2457878.75315", date)),
                    IsEmpty())
            << date;
    }
    EXPECT_THAT(linted("aavso", "aavso", ofSpreadsheet + replaced(measure, "2457878.75315", "")),
                ElementsAre("8:11 V361"));
    EXPECT_THAT(
        linted("aavso", "aavso",
               replaced(parameters, "=JD", "=MJD") + replaced(measure, "2457878.75315", "31.12.2007")),
        ElementsAre("5:7 V361", "8:11 V361"));
}

TEST(LintForAavso, FilesThatAreRefused)
{
    EXPECT_THAT(linted("aavso", "aavso", parameters + measure, "file.mag"), ElementsAre("1:0 V364"));
    EXPECT_THAT(linted("aavso", "aavso", parameters + '\n' + measure), ElementsAre("8:0 V364"));
    EXPECT_THAT(linted("aavso", "aavso", replaced(parameters, "#DELIM=,\n", "") + measure),
                ElementsAre("7:0 V361"));
    EXPECT_THAT(linted("aavso", "aavso", replaced(parameters, "#DELIM=,\n", "")), ElementsAre("0:0 V361"));
}

namespace {

Lines ofParameters(const std::string& what, const std::string& by)
{
    return linted("aavso", "aavso", replaced(parameters, what, by) + measure);
}

} // namespace

TEST(LintForAavso, ValuesOfParametersThatAreTaken)
{
    EXPECT_THAT(ofParameters("=Extended", "=EXTENDED"), IsEmpty());
    EXPECT_THAT(ofParameters("=x 1", '=' + std::string(255, 'x')), IsEmpty());
    EXPECT_THAT(ofParameters("=JD", "=HJD"), IsEmpty());
    EXPECT_THAT(ofParameters("=JD", "=Excel"), IsEmpty());
    EXPECT_THAT(ofParameters("=CCD", "=DSLR"), IsEmpty());
    EXPECT_THAT(ofParameters("=CCD", "=pep"), IsEmpty());
    EXPECT_THAT(ofParameters("#OBSTYPE", "#COLOUR=red\n#OBSTYPE"), IsEmpty());
}

TEST(LintForAavso, ValuesOfParametersThatAreRefused)
{
    EXPECT_THAT(ofParameters("=Extended", "=Visual"), ElementsAre("1:7 V361"));
    EXPECT_THAT(ofParameters("TST01", "aavso"), ElementsAre("2:10 V361"));
    EXPECT_THAT(ofParameters("=x 1", "="), ElementsAre("3:11 V361"));
    EXPECT_THAT(ofParameters("=x 1", '=' + std::string(256, 'x')), ElementsAre("3:11 V361"));
    EXPECT_THAT(ofParameters("=,", "=#"), ElementsAre("4:8 V361"));
    EXPECT_THAT(ofParameters("=JD", "=MJD"), ElementsAre("5:7 V361"));
    EXPECT_THAT(ofParameters("=CCD", "=VISDIG"), ElementsAre("6:10 V361"));
}

// ADES

namespace {

const std::string ades =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<ades version=\"2022\">\n<obsBlock>\n<obsContext>\n"
    "<observatory><mpcCode>568</mpcCode></observatory>\n<submitter><name>A. B. Sender</name></submitter>\n"
    "<measurers><name>C. Reader</name></measurers>\n"
    "<telescope><design>reflector</design><aperture>0.6</aperture><detector>CCD</detector></telescope>\n"
    "</obsContext>\n<obsData>\n<optical>\n<permID>433</permID>\n<mode>CCD</mode>\n<stn>568</stn>\n"
    "<obsTime>2025-02-23T12:17:46.176Z</obsTime>\n<ra>187.551417</ra>\n<dec>1.341694</dec>\n"
    "<astCat>Gaia3</astCat>\n<mag>18.53</mag>\n<band>G</band>\n</optical>\n</obsData>\n</obsBlock>\n</"
    "ades>\n";

const std::string psv =
    "# version=2022\n# observatory\n! mpcCode 568\n# submitter\n! name A. B. Sender\n# measurers\n"
    "! name C. Reader\n# telescope\n! design reflector\n! aperture 0.6\n! detector CCD\n"
    "permID |trkSub  |mode|stn |obsTime                 |ra        |dec      |astCat|mag  |band\n"
    "433    |        |CCD |568 |2025-02-23T12:17:46.176Z|187.551417| 1.341694|Gaia3 |18.53|G\n"
    "       |AST10000|CMO |568 |2025-02-23T23:59:59.999Z|  0.000000|-0.000139|Gaia3 |     |\n";

Lines ofAdes(const std::string& what, const std::string& by)
{
    return linted("ades", "ades.xml", replaced(ades, what, by), "file.xml");
}

Lines ofPsv(const std::string& what, const std::string& by)
{
    return linted("ades", "ades.psv", replaced(psv, what, by), "file.psv");
}

} // namespace

TEST(LintForAdes, GoodDocumentsHaveNoFinding)
{
    EXPECT_THAT(linted("ades", "ades.xml", ades), IsEmpty());
    EXPECT_THAT(linted("ades", "ades.psv", psv), IsEmpty());
}

TEST(LintForAdes, WhatTheSchemaRefuses)
{
    EXPECT_THAT(ofAdes("2022", "2017"), ElementsAre("2:1 V380"));
    EXPECT_THAT(ofAdes("<submitter><name>A. B. Sender</name></submitter>\n", ""), ElementsAre("4:1 V380"));
    EXPECT_THAT(ofAdes("<design>reflector</design>", ""), ElementsAre("4:1 V380"));
    EXPECT_THAT(ofAdes(">0.6<", ">.6<"), ElementsAre("8:38 V380"));
    EXPECT_THAT(ofAdes("<permID>433</permID>\n", ""), ElementsAre("11:1 V380"));
    EXPECT_THAT(ofAdes("<permID>433<", "<permID>A0345<"), ElementsAre("12:1 V380"));
    EXPECT_THAT(ofAdes("<permID>433</permID>\n", "<permID>433</permID>\n<artSat>1998-067A</artSat>\n"),
                ElementsAre("11:1 V380"));
    EXPECT_THAT(ofAdes("<mode>CCD</mode>\n<stn>568</stn>", "<stn>568</stn>\n<mode>CCD</mode>"),
                ElementsAre("14:1 V380"));
    EXPECT_THAT(ofAdes("46.176Z", "46.176"), ElementsAre("15:1 V380"));
    EXPECT_THAT(ofAdes("187.551417", "360.0"), ElementsAre("16:1 V380"));
    EXPECT_THAT(ofAdes("<band>G</band>\n", ""), ElementsAre("11:1 V380"));
    EXPECT_THAT(ofAdes("<band>G</band>", "<band>G</band><prog>01</prog>"), ElementsAre("20:15 V380"));
    EXPECT_THAT(ofAdes("</ades>", ""), ElementsAre("0:0 V380"));
}

TEST(LintForAdes, ContextsOfDocuments)
{
    EXPECT_THAT(ofAdes("<ades version=\"2022\">", "<ades>"), ElementsAre("2:1 V380"));
    EXPECT_THAT(ofAdes("</ades>", "<optical/>\n</ades>"), ElementsAre("24:1 V380"));
    EXPECT_THAT(ofAdes("</obsBlock>", "</obsBlock><obsBlock/>"), ElementsAre("23:12 V380", "23:12 V380"));
    EXPECT_THAT(ofAdes("</obsBlock>", "</obsBlock><obsBlock><obsData><radar/></obsData></obsBlock>"),
                ElementsAre("23:12 V380")); // no context, and radar is not looked at
    const std::string context = between(ades, "<obsContext>", "</obsContext>");
    for (const char* data : {"", "<obsData></obsData>", "<observations><radar/></observations>"}) {
        EXPECT_THAT(ofAdes("</obsBlock>",
                           "</obsBlock><obsBlock>" + replaced(context, "\n", "") + data + "</obsBlock>"),
                    ElementsAre("23:12 V380"))
            << data;
    }
    EXPECT_THAT(ofAdes("</optical>", "</optical>\n<radar/>"), ElementsAre("22:1 V380"));
}

TEST(LintForAdes, ElementsOfObservations)
{
    EXPECT_THAT(ofAdes("<obsTime>2025-02-23T12:17:46.176Z</obsTime>\n", ""), ElementsAre("11:1 V380"));
    EXPECT_THAT(ofAdes("<permID>433", "<colour>red</colour><permID>433"), ElementsAre("12:1 V380"));
    EXPECT_THAT(ofAdes("</mode>", "</mode><mode>CCD</mode>"), ElementsAre("13:17 V380"));
    EXPECT_THAT(ofAdes("<mag>18.53</mag>\n<band>G</band>\n", "<photCat>Gaia3</photCat>\n"),
                ElementsAre("11:1 V380", "11:1 V380")); // mag and band
}

TEST(LintForAdes, ALocationIsWholeOrNotThere)
{
    const std::string station = "</stn>";
    const std::string whole = "<sys>WGS84</sys><ctr>399</ctr><pos1>10.5</pos1><pos2>50</pos2><pos3>0</pos3>";
    EXPECT_THAT(ofAdes(station, station + whole), IsEmpty());
    EXPECT_THAT(ofAdes(station, station + replaced(whole, "<ctr>399</ctr>", "")), ElementsAre("11:1 V380"));
    EXPECT_THAT(ofAdes(station, station + "<vel1>0.5</vel1>"), ElementsAreArray(Lines(5, "11:1 V380")));
}

TEST(LintForAdes, ADocumentAboveTheReceiversLimit)
{
    companion::LintSettings settings;
    settings.receiver = "ades";
    const auto toldOf = [&settings](std::size_t bytes) {
        return lintOutputs::toldBy(
            [bytes](companion::LintOutput& out) { companion::AdesDocument(out).size(bytes); }, settings);
    };
    EXPECT_THAT(toldOf(536'870'912), IsEmpty());
    ASSERT_EQ(toldOf(536'870'913).size(), 1U);
    EXPECT_EQ(toldOf(536'870'913)[0].text, "the file is above 512 MB");
    EXPECT_EQ(toldOf(536'870'913)[0].code.text(), "V382");
}

TEST(LintForAdes, WhatOnlyTheReceiverRefuses)
{
    EXPECT_THAT(ofAdes(">CCD</mode>", ">XYZ</mode>"), ElementsAre("13:1 V381"));
    EXPECT_THAT(ofAdes(">G<", ">C<"), ElementsAre("20:1 V381"));
    EXPECT_THAT(ofAdes("<stn>568", "<stn>703"), ElementsAre("14:1 V382"));
    EXPECT_THAT(ofAdes(">433<", ">00433<"), ElementsAre("12:1 V382"));
    EXPECT_THAT(ofAdes("A. B. Sender", "Anna Sender"), ElementsAre("6:12 V320"));
}

TEST(LintForAdes, TwoPositionsOfAnObjectAtOneTime)
{
    const std::string last = psv.substr(psv.find("       |AST"));
    EXPECT_THAT(linted("ades", "ades.psv", psv + replaced(last, "-0.000139", "-0.000140")),
                ElementsAre("15:28 V381"));
    EXPECT_THAT(linted("ades", "ades.psv", psv + replaced(last, ".999Z", ".99Z ")), IsEmpty());
    EXPECT_THAT(linted("ades", "ades.psv", psv + replaced(last, "AST10000", "AST10001")), IsEmpty());
}

TEST(LintForAdes, RowsAreLookedAtAsDocumentsAre)
{
    EXPECT_THAT(ofPsv("version=2022", "version=2017"), ElementsAre("1:11 V380"));
    EXPECT_THAT(ofPsv("! design reflector\n", ""), ElementsAre("11:1 V380"));
    EXPECT_THAT(ofPsv("187.551417", "387.551417"), ElementsAre("13:53 V380"));
    EXPECT_THAT(ofPsv("|G\n", "|Q\n"), ElementsAre("13:87 V381"));
    EXPECT_THAT(ofPsv("|18.53|G\n", "|18.53|\n"), ElementsAre("13:1 V380"));
    EXPECT_THAT(ofPsv("AST10000", "        "), ElementsAre("14:1 V380"));
    EXPECT_THAT(ofPsv("|     |\n", "|     | |1\n"), ElementsAre("14:1 V380"));
    EXPECT_THAT(linted("ades", "ades.psv", psv.substr(0, psv.size() - 1)), ElementsAre("14:1 V380"));
    EXPECT_THAT(ofPsv("# submitter", "\n# submitter"), IsEmpty());
}

TEST(LintForAdes, TheFirstLineOfRowsIsTheVersion)
{
    EXPECT_THAT(ofPsv("# version=2022\n", ""), ElementsAre("1:3 V380"));
    EXPECT_THAT(ofPsv("# version", "# edition"), ElementsAre("1:3 V380"));
    EXPECT_THAT(linted("ades", "ades.psv", psv.substr(psv.find("permID"))),
                ElementsAreArray(Lines(5, "1:1 V380"))); // and the four parts of a context
}

TEST(LintForAdes, ContextsOfRows)
{
    EXPECT_THAT(ofPsv("! mpcCode 568\n", ""), ElementsAre("11:1 V380"));
    EXPECT_THAT(ofPsv("! mpcCode 568", "! mpcCode"), ElementsAre("3:3 V380"));
    EXPECT_THAT(ofPsv("! design", "! name A1\n! design"), IsEmpty());
    EXPECT_THAT(ofPsv("! design", "! colour red\n! design"), ElementsAre("9:10 V380"));
    EXPECT_THAT(ofPsv("! design reflector", "! design reflector\n! design reflector"),
                ElementsAre("10:10 V380"));
    EXPECT_THAT(ofPsv("! name C. Reader", "! name C. Reader\n! name D. Reader"), IsEmpty());
}

TEST(LintForAdes, RowsOfOtherKindsThanOpticalOnesAreNotLookedAt)
{
    EXPECT_THAT(ofPsv("|ra        |", "|deltaRA   |"), IsEmpty());
    EXPECT_THAT(ofPsv("|obsTime                 |", "|colour                  |"),
                ElementsAre("13:28 V380", "13:1 V380", "14:28 V380", "14:1 V380"));
}
