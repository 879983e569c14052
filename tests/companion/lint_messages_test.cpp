#include "base/lines.h"
#include "reading/line_fates.h"
#include "reading/lint.h"

#include "support/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <string>
#include <vector>

namespace {

using companion::FileAccount;
using companion::Finding;
using companion::LintSettings;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

using Lines = std::vector<std::string>;

Lines linted(const std::string& format, const std::string& bytes)
{
    const TemporaryFolder folder;
    std::ofstream(folder / "file", std::ios::binary) << bytes;
    Lines findings;
    const FileAccount account =
        companion::lintFile(folder / "file", format, {}, [&findings](const Finding& found) {
            findings.push_back(std::to_string(found.line) + ':' + std::to_string(found.column) + ' ' +
                               found.code.text());
        });
    EXPECT_TRUE(account.agrees());
    return findings;
}

// A message of one segment, with lines of data.
std::string message(const std::string& data)
{
    return "CCSDS_TDM_VERS = 2.0\nORIGINATOR = MPC\nMETA_START\nTIME_SYSTEM = UTC\nPARTICIPANT_1 = H21\n"
           "PARTICIPANT_2 = XL90E5A\nANGLE_TYPE = RADEC\nREFERENCE_FRAME = ICRF\nMETA_STOP\nDATA_START\n" +
           data + "DATA_STOP\n";
}

constexpr std::size_t linesBefore = 10;

std::string record(const std::string& key, const std::string& time, const std::string& value)
{
    return key + " = 2016-06-11T" + time + ' ' + value + '\n';
}

const std::string ra = record("ANGLE_1", "08:20:14.40960", "321.3460833");
const std::string de = record("ANGLE_2", "08:20:14.40960", "-8.8160833");
const std::string mag = record("MAG", "08:20:14.40960", "21.1000");

const std::string emptySegment = "0:0 V168"; // of the file

// The findings of data, by line of the data.
Lines ofData(const std::string& data)
{
    Lines findings;
    for (const std::string& each : linted("tdm", message(data))) {
        if (each.starts_with("0:")) {
            findings.push_back(each);
            continue;
        }
        const std::size_t colon = each.find(':');
        findings.push_back(std::to_string(std::stoul(each.substr(0, colon)) - linesBefore) +
                           each.substr(colon));
    }
    return findings;
}

std::string replaced(std::string text, const std::string& what, const std::string& by)
{
    const std::size_t place = text.find(what);
    EXPECT_NE(place, std::string::npos) << what;
    return text.replace(place, what.size(), by);
}

// A report of SSMAS with blocks behind its three lines.
std::string report(const std::string& blocks)
{
    return "Measurements\n807\nconversion\n" + blocks;
}

const std::string title = "\n\n#SSMAS   #INTER\n";
const std::string columns = "   Data        UT           CU           DE      RMS  m\n";
const std::string first = "09.06.2016 05:56:24.00  16:47:17.48 -16.15.50.00 001 22.1\n";
const std::string second = "09.06.2016 06:09:22.46  16:47:15.98 -16.15.59.00 001 22.0\n";
const std::string objectA = "1" + title + "A A\n" + columns;
const std::string objectB = "2" + title + "B B\n" + columns;

std::string observation(const std::string& changed, const std::string& by)
{
    return replaced("     K24Y04R  C2025 02 23.51234 12 30 12.34 +01 20 30.1          18.5 G      L01\n",
                    changed, by);
}

} // namespace

TEST(LintTdm, NothingIsWrongWithAGoodMessage)
{
    EXPECT_THAT(ofData(ra + de + mag), IsEmpty());
    EXPECT_THAT(linted("tdm", replaced(message(ra + de + mag), "META_STOP",
                                       "COMMENT word\nMODE = SEQUENTIAL\n\n"
                                       "META_STOP")),
                IsEmpty());
}

TEST(LintTdm, WithoutASegmentThereAreNoTracks)
{
    EXPECT_THAT(linted("tdm", "CCSDS_TDM_VERS = 2.0\n"), ElementsAre("0:0 V170"));
    EXPECT_THAT(linted("tdm", ra + de + mag), ElementsAre("1:1 V170", "2:1 V170", "3:1 V170"));
    EXPECT_THAT(linted("tdm", replaced(message(mag), "META_START", "META_START ")),
                ElementsAre("3:1 V171", "11:1 V170"));
}

TEST(LintTdm, KeysThatBlanksHide)
{
    EXPECT_THAT(
        ofData("  " + ra + "ANGLE_2=2016-06-11T08:20:14.40960 -8.8\n" + replaced(mag, "MAG ", "MAG  ")),
        ElementsAre("1:3 V171", "2:1 V171", "3:1 V171", emptySegment));
    EXPECT_THAT(linted("tdm", replaced(message(ra + de + mag), "PARTICIPANT_2", "\tPARTICIPANT_2")),
                ElementsAre("6:2 V171", "11:1 V178"));
}

TEST(LintTdm, AnglesWithoutAMagnitude)
{
    EXPECT_THAT(ofData(ra + de), ElementsAre("1:1 V172", "2:1 V172", emptySegment));
    EXPECT_THAT(ofData(ra + de + ra + de + mag), ElementsAre("1:1 V172", "2:1 V172"));
}

TEST(LintTdm, MagnitudesWithoutAngles)
{
    EXPECT_THAT(ofData(mag), ElementsAre("1:1 V173"));
    EXPECT_THAT(ofData(ra + mag), ElementsAre("2:1 V173"));
    EXPECT_THAT(ofData(ra + de + mag + record("MAG", "08:21:00.0", "21.0")),
                ElementsAre("3:7 V131", "4:1 V173", "4:7 V131"));
}

TEST(LintTdm, TimesThatAreNotFound)
{
    EXPECT_THAT(ofData(replaced(ra, " 321", "   321") + de + mag), ElementsAre("1:39 V174"));
    EXPECT_THAT(ofData(ra + replaced(de, " -8", "   -8") + replaced(mag, " 21", "  21")), IsEmpty());
    EXPECT_THAT(ofData("ANGLE_1 = 321.3\n" + de + mag), ElementsAre("1:11 V174"));
    EXPECT_THAT(ofData(replaced(ra, "T", " ") + de + mag), ElementsAre("1:22 V179"));
    EXPECT_THAT(ofData(replaced(ra, "T08:20:14.40960", "") + replaced(de, "T08:20:14.40960", "") + mag),
                ElementsAre("1:22 V174"));
    EXPECT_THAT(ofData("ANGLE_1 =\n" + de + mag), Contains("1:10 V174"));
    EXPECT_THAT(ofData("ANGLE_1 =   \n" + de + mag), Contains("1:10 V174"));
}

TEST(LintTdm, TimesThatAreMisread)
{
    EXPECT_THAT(ofData(replaced(ra, "2016-06-11", "2016-163") + de + mag), ElementsAre("1:11 V175"));
    EXPECT_THAT(ofData(replaced(ra, "2016-06-11", "20160611") + de + mag), Contains("1:11 V126"));
    EXPECT_THAT(ofData(replaced(ra, "2016-06-11", "2016-1x3") + de + mag), Contains("1:11 V123"));
    EXPECT_THAT(ofData(replaced(ra, "2016-06-11", "2016-06-31") + de + mag),
                ElementsAre("1:11 V127", "2:11 V182", "3:7 V182"));
    EXPECT_THAT(linted("tdm", replaced(message(ra + de + mag), "UTC", "TAI")), ElementsAre("11:11 V176"));
    EXPECT_THAT(ofData(replaced(ra, "40960 ", "40960Z ") + de + mag), IsEmpty());
    EXPECT_THAT(ofData(ra + replaced(de, "08:20", "08:21") + mag), ElementsAre("2:11 V182"));
}

TEST(LintTdm, WhatTheHeadOfASegmentSays)
{
    EXPECT_THAT(linted("tdm", replaced(message(ra + de + mag), "RADEC", "AZEL")), ElementsAre("11:37 V177"));
    EXPECT_THAT(linted("tdm", replaced(message(ra + de + mag), "ICRF", "EME2000")),
                ElementsAre("11:37 V181"));
    EXPECT_THAT(linted("tdm", replaced(message(ra + de + mag), "PARTICIPANT_2", "PARTICIPANT_3")),
                ElementsAre("11:1 V178"));
}

TEST(LintTdm, ValuesThatAreMisread)
{
    EXPECT_THAT(ofData(replaced(ra, "0833", "0833 [deg]") + de + mag), ElementsAre("1:37 V179"));
    EXPECT_THAT(ofData(replaced(ra, "0833", "0833  ") + de + mag), ElementsAre("1:37 V179"));
    EXPECT_THAT(ofData(replaced(ra, "0833", "0833 ") + de + mag), IsEmpty());
    EXPECT_THAT(ofData(replaced(ra, " 321", "\t321") + de + mag), ElementsAre("1:37 V179"));
    EXPECT_THAT(ofData(ra + replaced(de, "-8.8", "-98.8") + replaced(mag, "21.1", "21,1")),
                ElementsAre("2:37 V121", "3:33 V124"));
    EXPECT_THAT(ofData(ra + de + "MAG =\n"), ElementsAre("3:5 V122"));
}

TEST(LintTdm, OtherDataAreCounted)
{
    EXPECT_THAT(ofData(ra + de + mag + record("RANGE", "08:20:00", "1.0") + record("RCS", "08:20:00", "1.0")),
                ElementsAre("0:0 V180"));
}

TEST(LintTdm, EachAngleOfAFixtureMakesAMarkOrHasAFinding)
{
    std::size_t angles = 0;
    for (const auto& entry : std::filesystem::directory_iterator(VOMAR_PROJECT "/tests/fixtures/tdm")) {
        SCOPED_TRACE(entry.path());
        companion::LineFates fates;
        companion::readWithFates({entry.path(), "tdm", {}, {}}, fates);
        std::map<std::size_t, std::size_t> findings;
        companion::lintFile(entry.path(), "tdm", {},
                            [&findings](const Finding& found) { ++findings[found.line]; });
        std::ifstream file(entry.path());
        std::size_t number = 0;
        for (std::string line; std::getline(file, line);) {
            ++number;
            const std::size_t begin = std::min(line.find_first_not_of(" \t"), line.size());
            if (line.compare(begin, 6, "ANGLE_") == 0 && line.find('T') < line.rfind(' ') &&
                line.find("TYPE") == line.npos)
            {
                ++angles;
                EXPECT_TRUE(fates.fate(number) == tavelinUtils::LineFate::part || findings[number] > 0)
                    << line;
            }
        }
    }
    EXPECT_GT(angles, 100U);
}

TEST(LintSsmas, NothingIsWrongWithAGoodReport)
{
    EXPECT_THAT(linted("ssmas", report(objectA + first + second + objectB + first)), IsEmpty());
}

TEST(LintSsmas, TheFirstObjectIsInTheSeventhLine)
{
    EXPECT_THAT(linted("ssmas", "Measurements\n807\n" + objectA + first + second + objectB + first),
                ElementsAre("6:1 V185"));
}

TEST(LintSsmas, MarkAmongTheLinesInFrontIsSkipped)
{
    EXPECT_THAT(linted("ssmas", "Measurements\n807\n" + first + objectA + second), ElementsAre("3:1 V164"));
    EXPECT_THAT(linted("ssmas", replaced(report(objectA + first), "conversion", "v1.2.x")), IsEmpty());
}

TEST(LintSsmas, ObjectsThatAreLost)
{
    EXPECT_THAT(linted("ssmas", report(objectA + first + "B B\n" + columns + first + second + "3" + title +
                                       "C C\n" + second)),
                ElementsAre("10:1 V186"));
    EXPECT_THAT(
        linted("ssmas", report(objectA + first + "2" + title + "NGC 1 A\n" + columns + first + second)),
        ElementsAre("13:1 V188"));
    EXPECT_THAT(linted("ssmas", report(objectA + first + replaced(second, "09.06.2016", "#SSMAS") +
                                       "NGC 1 A\n" + columns + first)),
                ElementsAre("10:1 V126", "11:1 V188")); // a title in the form of a mark
    EXPECT_THAT(linted("ssmas", report("1" + title + "A A\n#SSMAS\ncloud\n" + first +
                                       replaced(second, "22.0", "22.0 "))),
                ElementsAre("9:1 V188", "11:1 V166"));
}

TEST(LintSsmas, LinesThatCloseTheirObject)
{
    const std::string oneBlank = replaced(second, ".46  ", ".46 ");
    EXPECT_THAT(linted("ssmas", report(objectA + first + oneBlank + first + objectB + first)),
                ElementsAre("10:1 V187"));
    EXPECT_THAT(linted("ssmas", report(objectA + first + "cloud\n" + second + objectB + first)),
                ElementsAre("10:1 V187"));
    EXPECT_THAT(linted("ssmas", report(objectA + oneBlank + first)), ElementsAre("9:1 V166"));
}

TEST(LintSsmas, MarksThatAreSkippedOrComeAgain)
{
    EXPECT_THAT(linted("ssmas", report(objectA + replaced(first, "22.1", "22.1 ") + second)),
                ElementsAre("9:1 V166"));
    EXPECT_THAT(linted("ssmas", report(objectA + first + " B\n" + second)), ElementsAre("10:1 V189"));
    EXPECT_THAT(linted("ssmas", report(objectA + objectB + second)), ElementsAre("7:1 V168"));
}

TEST(LintSsmas, TooManyMarksThatComeAgain)
{
    const TemporaryFolder folder;
    std::ofstream file(folder / "file");
    file << report(objectA + first);
    for (int i = 0; i < 1500; ++i) {
        file << " B\n" << second;
    }
    file.close();
    std::map<std::string, std::size_t> codes;
    companion::lintFile(folder / "file", "ssmas", {},
                        [&codes](const Finding& found) { ++codes[found.code.text()]; });
    EXPECT_EQ(codes["V189"], 1500U);
    EXPECT_EQ(codes["V190"], 1U);
}

TEST(LintSsmas, FieldsThatAreMisread)
{
    const auto of = [](const std::string& what, const std::string& by) {
        return linted("ssmas", report(objectA + replaced(first, what, by)));
    };
    EXPECT_THAT(of("50.00", "50.70"), ElementsAre("9:37 V191"));
    EXPECT_THAT(of("22.1", "0-1.2"), ElementsAre("9:54 V192"));
    EXPECT_THAT(of("09.06", "09.13"), ElementsAre("9:1 V126"));
    EXPECT_THAT(of("09.06", "31.06"), ElementsAre("9:1 V127"));
    EXPECT_THAT(of("05:56:24", "05:56:60"), ElementsAre("9:12 V128"));
    EXPECT_THAT(of("16:47:17.48", "16:47"), ElementsAre("9:25 V123"));
    EXPECT_THAT(of("-16.15.50.00", "-16.15.50"), ElementsAre("9:37 V123"));
    EXPECT_THAT(of("-16.15.50.00", "-96.15.50.00"), ElementsAre("9:37 V121"));
    EXPECT_THAT(of("-16.15.50.00", "16.15.50.00"), IsEmpty());
    EXPECT_THAT(of("16:47:17.48", "251.82"), IsEmpty());
}

TEST(LintMpc, NothingIsWrongWithAGoodReport)
{
    EXPECT_THAT(linted("mpc", "COD L01\nNET Gaia-DR3\n" + observation("K24", "K24")), IsEmpty());
    EXPECT_THAT(linted("mpc", observation("18.5 G", "      ")), IsEmpty());
    EXPECT_THAT(linted("mpc", observation("+01 20 30.1 ", "-01 20 30.12")), IsEmpty());
}

TEST(LintMpc, LinesThatAreSkipped)
{
    EXPECT_THAT(linted("mpc", observation("+01", "01")), ElementsAre("1:1 V195"));
    EXPECT_THAT(linted("mpc", observation("L01", "L01 ")), ElementsAre("1:1 V195"));
    EXPECT_THAT(linted("mpc", "NUM 1\n----- end -----\n"), ElementsAre("0:0 V180"));
}

TEST(LintMpc, Stations)
{
    EXPECT_THAT(linted("mpc", "COD L01\nCOD L01\n" + observation("K24", "K24")), IsEmpty());
    EXPECT_THAT(linted("mpc", "COD L01\nCOD L02\n" + observation("K24", "K24")), ElementsAre("2:5 V196"));
}

TEST(LintMpc, Keywords)
{
    EXPECT_THAT(linted("mpc", "COD\n"), ElementsAre("1:1 V197"));
    EXPECT_THAT(linted("mpc", observation("     K24Y04R", "COM12       ")), ElementsAre("1:1 V197"));
}

TEST(LintMpc, FieldsThatAreMisread)
{
    EXPECT_THAT(linted("mpc", observation("2025 02", "2025 13")), ElementsAre("1:16 V126"));
    EXPECT_THAT(linted("mpc", observation("2025 02 23", "2025 02 30")), ElementsAre("1:16 V127"));
    EXPECT_THAT(linted("mpc", observation("12.34 ", "60.00 ")), ElementsAre("1:33 V128"));
    EXPECT_THAT(linted("mpc", observation("12.34", "12,34")), ElementsAre("1:33 V124"));
    EXPECT_THAT(linted("mpc", observation("12 30 12.34", " 2 30 12.34")), ElementsAre("1:34 V123"));
    EXPECT_THAT(linted("mpc", observation("12 30 12.34", "-1 30 12.34")), ElementsAre("1:33 V123"));
    EXPECT_THAT(linted("mpc", observation("+01 20", "+91 20")), ElementsAre("1:45 V121"));
    EXPECT_THAT(linted("mpc", observation("18.5", "1x.5")), ElementsAre("1:66 V123"));
    EXPECT_THAT(linted("mpc", std::string(80, ' ') + '\n'), ElementsAre("1:1 V123"));
}
