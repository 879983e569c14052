// The tracks that copies for receivers are made of, with what is known of them.

#include "task/copy_tracks.h"

#include "support/tasks.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <utility>

namespace {

using companion::CheckSettings;
using companion::CopyInput;
using companion::copyTracksOfFile;
using companion::copyTracksOfTask;
using companion::TaskChecker;

CopyInput tracksIn(const std::string& bytes, const std::string& format)
{
    return readBy([&](const std::string& path) { return copyTracksOfFile(path, format, "night.txt"); },
                  bytes);
}

// A report of one observation, which is the rest of its line from column 45 on.
CopyInput reportWith(const std::string& rest)
{
    return tracksIn("COD K88\nOBS A. B. Sender\n"
                    "     AST1000  C2025 02 23.50000 01 00 00.00 " +
                        rest + "\n",
                    "mpc");
}

// A message of one mark of the object A, with a further line in its metadata.
std::string messageWith(const std::string& line)
{
    return "CCSDS_TDM_VERS = 2.0\nCREATION_DATE = 2025-02-24T00:00:00\nORIGINATOR = K88\n"
           "META_START\nTIME_SYSTEM = UTC\nPARTICIPANT_1 = K88\nPARTICIPANT_2 = A\n"
           "MODE = SEQUENTIAL\nPATH = 2,1\nANGLE_TYPE = RADEC\n" +
           line +
           "META_STOP\nDATA_START\nANGLE_1 = 2025-02-23T12:00:00 15.0\n"
           "ANGLE_2 = 2025-02-23T12:00:00 -0.5\nDATA_STOP\n";
}

// The tracks of a conversion of a file of MEA whose objects have these names.
CopyInput converted(const TemporaryFolder& folder, const std::string& station, const std::string& name)
{
    makeFile(folder / "night.mea",
             station + " 2000.0 UTC\n" + name + " 250223 1200000000 0100000000 -0030000000 001 09.50\n");
    makeFile(folder / "task.xml", taskText({{"path_in", folder / "night.mea"},
                                            {"inputformat", "mea"},
                                            {"outputformat", "mea"},
                                            {"REFERENCE_FRAME", "ICRF"},
                                            {"PARTICIPANT_1", "H21"}}));
    return copyTracksOfTask(TaskChecker(CheckSettings{}).check(folder / "task.xml"));
}

// The tracks of a report whose series has the service, of a table with two tracks.
CopyInput reported(const std::string& service, const std::string& excludes)
{
    const TemporaryFolder folder;
    std::filesystem::create_directories(folder / "night/tavelin/dataVO");
    makeFile(folder / "night/a.conf", "<root><Service>" + service + "</Service></root>\n");
    makeFile(
        folder / "night/tavelin/dataVO/t.txt",
        "v2\nQRVName:Text\tMPCChecker:Text\tNORAD:Text\tdate:Date\ttime:Time\tRA:Float:deg\tDE:Float:deg\t"
        "m:Float:mag\n"
        "A1\tZ6433\t\t2025-02-23\t12:00:00\t15.0\t-0.5\t9.5\n---\n"
        "A2\t\t25544\t2025-02-23\t12:00:00\t15.0\t-0.5\t9.5\n---\n");
    const std::string seria = "<seria><path>" + (folder / "night/tavelin/dataVO/t.txt") +
                              "</path><excludes>" + excludes + "</excludes></seria>";
    makeFile(folder / "task.xml", taskText({{"inputformat", "vomar"},
                                            {"outputformat", "mea"},
                                            {"outputextension", "mea"},
                                            {"toSeparateFile", "allobjects"},
                                            {"paths", seria}}));
    return copyTracksOfTask(TaskChecker(CheckSettings{}).check(folder / "task.xml"));
}

TEST(CopyTracks, AFormatThatHoldsNoTracksGivesNone)
{
    EXPECT_TRUE(tracksIn("anything\n", "unknown").tracks.empty());
}

TEST(CopyTracks, TheLineOfAnObservationTellsItsStationAndNote)
{
    const CopyInput input = reportWith("-00 30 00.0          18.5 G      H21");
    ASSERT_EQ(input.tracks.size(), 1U);
    EXPECT_EQ(input.tracks[0].observatory->station, "H21");
    EXPECT_EQ(input.tracks[0].observatory->mode, "CCD");
    EXPECT_EQ(input.tracks[0].note2, 'C');
    EXPECT_EQ(input.tracks[0].marks.at(0).line80.size(), 80U);
    ASSERT_EQ(input.contradictions.size(), 1U); // with the header
    EXPECT_EQ(input.contradictions.at(0).first, "K88");
    EXPECT_EQ(input.contradictions.at(0).second, "H21");
}

TEST(CopyTracks, WhatIsNoStationCodeIsNone)
{
    const CopyInput input = reportWith("-00 30 00.0          18.5 G      abc");
    ASSERT_EQ(input.tracks.size(), 1U);
    EXPECT_EQ(input.tracks[0].observatory->station, "");
    EXPECT_TRUE(input.contradictions.empty());
}

TEST(CopyTracks, LinesOfAnotherWidthAreLeftOut)
{
    // Northern lines of the tool are a column short; a band of eight letters, or more, moves the station.
    for (const char* band : {"Vcousins", "VcousinsX"}) {
        const CopyInput input = reportWith("00 30 00.0          18.5 " + std::string(band) + "K88");
        EXPECT_TRUE(input.tracks.empty()) << band;
        EXPECT_EQ(input.leftOut, 1U) << band;
        ASSERT_EQ(input.findings.size(), 1U) << band;
        EXPECT_EQ(input.findings[0].code.text(), "V195") << band;
    }
}

TEST(CopyTracks, AMessageWithoutAFrameSaysNone)
{
    const std::pair<const char*, const char*> frames[] = {
        {"", "not stated"}, {"REFERENCE_FRAME = TEME\n", "TEME"}, {"REFERENCE_FRAME = ICRF\n", ""}};
    for (const auto& [line, other] : frames) {
        const CopyInput input = tracksIn(messageWith(line), "tdm");
        ASSERT_EQ(input.tracks.size(), 1U) << line;
        EXPECT_EQ(input.tracks[0].otherFrame, other);
    }
}

TEST(CopyTracks, AStationOfTheTaskThatIsNotThatOfTheFileIsAContradiction)
{
    const TemporaryFolder folder;
    EXPECT_EQ(converted(folder, "K88", "AST1000").contradictions.size(), 1U);
    EXPECT_TRUE(converted(folder, "H21", "AST1000").contradictions.empty());
    EXPECT_TRUE(converted(folder, "telescope", "AST1000").contradictions.empty());
}

TEST(CopyTracks, WordsOfATaskReplaceThoseOfItsInput)
{
    const TemporaryFolder folder;
    makeFile(folder / "night.tdm", messageWith("REFERENCE_FRAME = EME2000\n"));
    makeFile(folder / "task.xml", taskText({{"path_in", folder / "night.tdm"},
                                            {"inputformat", "tdm"},
                                            {"outputformat", "mea"},
                                            {"REFERENCE_FRAME", "ICRF"},
                                            {"originator", "ISON"},
                                            {"PARTICIPANT_1", "T1"}}));
    const CopyInput input = copyTracksOfTask(TaskChecker(CheckSettings{}).check(folder / "task.xml"));
    ASSERT_EQ(input.tracks.size(), 1U);
    EXPECT_EQ(input.tracks[0].track.QRVName, "A");
    EXPECT_EQ(input.tracks[0].track.REFERENCE_FRAME, "ICRF");
    EXPECT_EQ(input.tracks[0].track.originator, "ISON");
    EXPECT_EQ(input.tracks[0].track.telescope, "T1");
}

TEST(CopyTracks, ObjectsOfAReportAreWhatItsServiceSays)
{
    const CopyInput asteroids = reported("asteroids", "");
    ASSERT_EQ(asteroids.tracks.size(), 2U);
    EXPECT_TRUE(asteroids.tracks[0].isIdentified);
    EXPECT_FALSE(asteroids.tracks[1].isIdentified);
    EXPECT_FALSE(asteroids.tracks[0].isSatellite);
    const CopyInput satellites = reported("satellites", "");
    ASSERT_EQ(satellites.tracks.size(), 2U);
    EXPECT_FALSE(satellites.tracks[0].isIdentified);
    EXPECT_TRUE(satellites.tracks[0].isSatellite);
}

TEST(CopyTracks, ATrackWhoseMarksAreAllExcludedIsNone)
{
    const CopyInput input = reported("asteroids", "0;0");
    ASSERT_EQ(input.tracks.size(), 1U);
    EXPECT_FALSE(input.tracks[0].isIdentified);
}

} // namespace
