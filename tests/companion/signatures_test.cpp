#include "reading/signatures.h"

#include "findings/finding.h"
#include "support/folders.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

namespace {

namespace fs = std::filesystem;
using companion::recognised;
using companion::Recognition;

const std::string mark = "12345   250223 1200000000 0100000000 +205301234 001 09.50\n";

TEST(Signatures, EachFixtureIsWhatItsFolderSays)
{
    const std::pair<const char*, const char*> folders[] = {{"mea", "mea"},
                                                           {"mea_nights", "mea"},
                                                           {"telegram", "telegram"},
                                                           {"tdm", "tdm"},
                                                           {"ssmas", "ssmas"},
                                                           {"mpc", "mpc"},
                                                           {"tdm_xml", "tdm.xml"},
                                                           {"horizons", "horizons"},
                                                           {"element_sets", "elements"},
                                                           {"configuration", "configuration"}};
    for (const auto& [folder, format] : folders) {
        for (const auto& entry : fs::directory_iterator(fs::path(VOMAR_PROJECT) / "tests/fixtures" / folder))
        {
            if (entry.is_regular_file() && entry.path().extension() != ".csv") {
                const Recognition recognition = companion::recognisedFile(entry.path());
                EXPECT_EQ(recognition.format, format) << entry.path();
                EXPECT_TRUE(recognition.isSure()) << entry.path() << ": " << recognition.points;
            }
        }
    }
}

TEST(Signatures, TasksAndResults)
{
    for (const auto& entry : fs::directory_iterator(fs::path(VOMAR_PROJECT) / "examples")) {
        if (entry.path().extension() == ".xml") {
            EXPECT_EQ(companion::recognisedFile(entry.path()).format, "task") << entry.path();
        }
    }
    EXPECT_EQ(recognised("<ResultsList><Result><Code>0</Code></Result></ResultsList>").format, "result");
    EXPECT_EQ(recognised("2024-03-09 04:05:06.000789 Code=0//OK//out/a.txt\n").format, "result");
}

TEST(Signatures, FirstLinesThatNoOtherFormatHas)
{
    EXPECT_EQ(recognised("#TYPE=Extended\n").points, 100);
    EXPECT_EQ(recognised("# TYPE = EXTENDED\n").format, "aavso");
    EXPECT_EQ(recognised("# version=2022\n# observatory\n").format, "ades.psv");
    EXPECT_EQ(recognised("<ades version=\"2022\"></ades>").format, "ades.xml");
    EXPECT_EQ(recognised("JD geocentric\tapparent\tensemble\n").format, "mag");
    EXPECT_EQ(recognised("v2\nN:Int\tdate:Date\n").format, "table");
    EXPECT_EQ(recognised("date\ttime\tRA\tDE\n").points, 90);
    EXPECT_EQ(recognised("Measurements\nK88\nconversion\n1\n\n#SSMAS   #INTER\n").format, "ssmas");
    EXPECT_EQ(recognised("CCSDS_TDM_VERS = 2.0\n").format, "tdm");
}

TEST(Signatures, EncodingAndLineEndsDoNotCount)
{
    const std::string night = "K88 2000.0 UTC\n" + mark;
    EXPECT_EQ(recognised("\xEF\xBB\xBF" + night).format, "mea");
    std::string wide = "\xFF\xFE";
    std::string returns = night;
    for (char& c : returns) {
        wide += {c, '\0'};
        c = c == '\n' ? '\r' : c;
    }
    EXPECT_EQ(recognised(wide).format, "mea");
    EXPECT_EQ(recognised(returns).format, "mea");
    EXPECT_EQ(recognised(wide.substr(2)).format, "mea");
    std::string wider("\xFF\xFE\0\0", 4);
    for (const char c : night) {
        wider += {c, '\0', '\0', '\0'};
    }
    EXPECT_EQ(recognised(wider).format, "mea");
}

TEST(Signatures, ShareOfLinesOfAFormat)
{
    EXPECT_EQ(recognised(mark + mark).points, 100);
    EXPECT_EQ(recognised(mark + "a\nb\nc\n").points, 25);
    EXPECT_FALSE(recognised(mark + "a\nb\nc\n").isSure());
    EXPECT_EQ(recognised("K88 2000.0 UTC\n" + mark + "a\nb\nc\n").points, 95);
    EXPECT_EQ(recognised("a b c\n250223 12000000 01000000 -00300000 001095\nEND\n").format, "telegram");
}

TEST(Signatures, SpoiltMarks)
{
    EXPECT_EQ(recognised("12345   250223 1200000000 01000 +205301234 001 09.50\n").points, 0);
    EXPECT_EQ(recognised("12345   250223 1200000000 0100000000 +north+south 001 09.50\n").points, 0);
    EXPECT_EQ(recognised("250223 12000000 01000000 -00300000 faint\n").points, 0);
    const std::string observation =
        "     K24Y04R  C2025 02 23.51234 12 30 12.34 +01 20 30.1          18.5 G      L01\n";
    EXPECT_EQ(recognised(observation).format, "mpc");
    for (const char* date : {"2025 xx 23", "2025 02 2x"}) {
        std::string spoilt = observation;
        EXPECT_EQ(recognised(spoilt.replace(15, 10, date)).points, 0) << date;
    }
    const std::string second = "2 25544  51.6400 208.9163 0006703 130.5360 325.0288 15.72125391563537\n";
    EXPECT_EQ(
        recognised("1 25544U 98067A   24020.50000000  .00016717  00000-0  10270-3 0  9005\n" + second).points,
        100);
    EXPECT_EQ(
        recognised("1 ABCDEU 98067A   24020.50000000  .00016717  00000-0  10270-3 0  9005\n" + second).points,
        0);
}

TEST(Signatures, FrontsThatLackSomething)
{
    EXPECT_EQ(recognised("META_START\nDATA_START\n").format, "tdm");
    EXPECT_EQ(recognised("META_START\n").points, 0);
    EXPECT_EQ(recognised("Measurements\n").points, 0);
    EXPECT_EQ(recognised("v2\n").points, 95);
    EXPECT_EQ(recognised("v2\ncolour\tsize\n").points, 50);
    EXPECT_EQ(recognised("JPL Horizons\nEphemeris of 433\n").points, 90);
    EXPECT_EQ(recognised("JPL Horizons\n").points, 0);
}

TEST(Signatures, DocumentsAreKnownByTheirElements)
{
    EXPECT_EQ(recognised("<tdm/>").points, 100);
    EXPECT_EQ(recognised("<_ndm><tdm></tdm></_ndm>").format, "tdm.xml");
    EXPECT_EQ(recognised("<_ndm><tdm></tdm></_ndm>").points, 90);
    EXPECT_EQ(recognised("<_ndm><tdm").points, 90);
    EXPECT_EQ(recognised("<_ndm><tdms></tdms></_ndm>").points, 0);
    EXPECT_EQ(recognised("<a><Code>0</Code><Comment>OK</Comment></a>").format, "result");
    EXPECT_EQ(recognised("<a><Code>0</Code></a>").points, 0);
}

TEST(Signatures, WhatIsNoneOfThem)
{
    for (const char* text : {"", "\n\n", "Shall I compare thee\nto a summer day\n", "<a/>", "<", "<!--"}) {
        EXPECT_FALSE(recognised(text).isSure()) << text;
    }
    // A list of stars has columns of the same names.
    EXPECT_FALSE(recognised("N:Int\tLabel:Text\tRA:Float:deg\tDE:Float:deg\tV:Float:mag\n").isSure());
}

TEST(Signatures, FilesThatCannotBeRead)
{
    const TemporaryFolder folder;
    EXPECT_THROW(companion::recognisedFile(folder / "missing"), companion::WrongUsage);
    EXPECT_THROW(companion::recognisedFile(folder.path()), companion::WrongUsage);
}

TEST(Signatures, NamesAndTitles)
{
    EXPECT_TRUE(companion::isFormatName("tdm.xml"));
    EXPECT_FALSE(companion::isFormatName("TDM"));
    EXPECT_EQ(companion::formatTitle("mea"), "MEA");
    EXPECT_EQ(companion::formatTitle("table"), "track table");
    EXPECT_EQ(companion::formatTitle("other"), "other");
    EXPECT_EQ(companion::formatNames().size(), 16U);
}

} // namespace
