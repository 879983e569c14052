#include "formats/tdm.h"
#include "text/date_text.h"

#include "support/measured_marks.h"
#include "support/places.h"
#include "support/sexagesimal.h"
#include "support/temporary_folder.h"
#include "support/texts.h"
#include "support/tracks.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <vector>

using namespace tavelinUtils;

namespace {

using Lines = std::vector<std::string>;
using Tracks = std::vector<TrackVtorichka>;

// The lines of a mark.
const std::string angle1 = "ANGLE_1 = 2023-02-25T12:00:00.00000 15.0000000";
const std::string angle2 = "ANGLE_2 = 2023-02-25T12:00:00.00000 -0.5000000";
const std::string mag = "MAG = 2023-02-25T12:00:00.00000 9.5000";

Tracks readBytes(const std::string& bytes)
{
    return readBy([](const std::string& path) { return lTDM(path); }, bytes);
}

Tracks read(const Lines& lines)
{
    return readBytes(textOf(lines));
}

// The only mark of a segment that consists of the lines.
TRecLabelPervichka_File readMark(const Lines& lines)
{
    Lines all = {"META_START"};
    all.insert(all.end(), lines.begin(), lines.end());
    return onlyMark(read(all));
}

void expectHead(const TrackVtorichka& track, const std::string& originator, const std::string& telescope,
                const std::string& name)
{
    ::expectHead(track, {originator, telescope, name, ""});
}

} // namespace

TEST(TdmEpoch, DateAndTimeAreRead)
{
    const struct
    {
        const char* text;
        int date;
        double time;
    } rows[] = {
        {"2023-02-25T12:00:00.00000", 60000, 0.5},
        {"2023-02-25T18:00:00", 60000, 0.75},
        {"2000-01-01T12:34:56.78901", 51544, day(12, 34, 56.78901)},
        {"2023-2-25T6:0:0", 60000, 0.25},
        {"2023-02-25T12:00:00Z", 60000, 0.5},
        {"2023-02-25T12:00:00T", 60000, 0.5}, // nothing behind the last "T"
        {"2023-02-25T24:00:00", 60000, 1.0},
        {"2023-02-31T12:00:00", 60006, 0.5}, // 3 March
        // Parts that are missing count as 0, a fourth is not looked at.
        {"2023-02-25T12:00", 60000, 0.5},
        {"2023-02-25T12", 60000, 0.5},
        {"2023-02-25T12:00:00:59", 60000, 0.5},
        {"2023-02-25-99T12:00:00", 60000, 0.5},
        {"2023-02T12:00:00", 59975, 0.5}, // the day before 1 February
        // No date of the calendar is 0; the time is read all the same.
        {"2023T12:00:00", 0, 0.5},
        {"2005-159T12:00:00", 0, 0.5}, // a day of the year
        {"2023-13-25T12:00:00", 0, 0.5},
        {"T12:00:00", 0, 0.5},
        {"xTy", 0, 0.0},
        {"TT", 0, 0.0},
        // Of three parts and more the first two.
        {"2034-02-22T23:08:33.417T56", 64015, day(23, 8, 33.417)},
        {"TTT", 0, 0.0},
    };
    for (const auto& [text, date, time] : rows) {
        SCOPED_TRACE(text);
        expectMark(readMark({"ANGLE_1 = " + std::string(text) + " 15.0", angle2, mag}),
                   {date, time, 15.0, -0.5, 9.5});
    }
}

TEST(TdmReader, SegmentIsATrack)
{
    const Tracks tracks = read({"CCSDS_TDM_VERS = 1.0",
                                "CREATION_DATE = 0-00-00T00:00:00",
                                "ORIGINATOR = MPC",
                                "META_START",
                                "TIME_SYSTEM = TAI",
                                "START_TIME = 2000-01-01T00:00:00.00000",
                                "STOP_TIME = 2000-01-01T00:00:00.00000",
                                "PARTICIPANT_1 = K88",
                                "PARTICIPANT_2 = TRACK NUMBER 001",
                                "MODE = PARALLEL",
                                "PATH = 1,2",
                                "ANGLE_TYPE = AZEL",
                                "REFERENCE_FRAME = EME2000",
                                "META_STOP",
                                "DATA_START",
                                angle1,
                                angle2,
                                mag,
                                "ANGLE_1 = 2023-02-26T06:00:00.00000 187.5",
                                "ANGLE_2 = 2023-02-26T06:00:00.00000 45.25",
                                "MAG = 2023-02-26T06:00:00.00000 -1.2",
                                "DATA_STOP"});
    ASSERT_EQ(tracks.size(), 1u);
    expectHead(tracks[0], "MPC", "K88", "TRACK NUMBER 001");
    ASSERT_EQ(tracks[0].Marks.size(), 2u);
    expectTheMark(tracks[0].Marks[0]);
    expectMark(tracks[0].Marks[1], {60001, 0.25, 187.5, 45.25, -1.2});
}

TEST(TdmReader, NothingToRead)
{
    const TemporaryFolder folder;
    EXPECT_TRUE(lTDM(folder / "missing.tdm").empty());
    EXPECT_TRUE(lTDM(folder.path()).empty());
    EXPECT_TRUE(readBytes("").empty());
    EXPECT_TRUE(readBytes("\n\n").empty());
}

TEST(TdmReader, FileWithoutSegmentHasNoTracks)
{
    EXPECT_TRUE(
        read({"ORIGINATOR = MPC", "PARTICIPANT_1 = K88", "PARTICIPANT_2 = A", angle1, angle2, mag}).empty());
    for (const char* line : {"META_START ", " META_START", "\tMETA_START", "meta_start",
                             "META_START= ", "META_START x", "META_STARTS"})
    {
        SCOPED_TRACE(line);
        EXPECT_TRUE(read({line, angle1, angle2, mag}).empty());
    }
}

TEST(TdmReader, LineEndings)
{
    const Tracks tracks = readBytes("ORIGINATOR = MPC\t\r\nMETA_START\t\r\nPARTICIPANT_1 = K88\r\n"
                                    "PARTICIPANT_2 = A\t\t\r\n" +
                                    angle1 + "\t\r\n" + angle2 + "\r\n" + mag + "\r\n\r\nDATA_STOP");
    ASSERT_EQ(tracks.size(), 1u);
    expectHead(tracks[0], "MPC", "K88", "A");
    ASSERT_EQ(tracks[0].Marks.size(), 1u);
    expectTheMark(tracks[0].Marks[0]);
}

TEST(TdmReader, LastLineNeedsNoLineFeed)
{
    const Tracks tracks = readBytes("META_START\n" + angle1 + "\n" + angle2 + "\n" + mag);
    ASSERT_EQ(tracks.size(), 1u);
    ASSERT_EQ(tracks[0].Marks.size(), 1u);
    expectTheMark(tracks[0].Marks[0]);
}

TEST(TdmReader, BlankLinesArePassedOver)
{
    const Tracks tracks = read({"", "ORIGINATOR = MPC", "", "META_START", "", "PARTICIPANT_1 = K88", "", "",
                                "PARTICIPANT_2 = A", "", angle1, "", angle2, "", mag, "", mag, ""});
    ASSERT_EQ(tracks.size(), 1u);
    expectHead(tracks[0], "MPC", "K88", "A");
    ASSERT_EQ(tracks[0].Marks.size(), 2u);
    expectTheMark(tracks[0].Marks[0]);
    expectTheMark(tracks[0].Marks[1]);
}

TEST(TdmReader, TextsThatAreMissingAreEmpty)
{
    const Tracks tracks = read({"META_START"});
    ASSERT_EQ(tracks.size(), 1u);
    expectHead(tracks[0], "", "", "");
    EXPECT_TRUE(tracks[0].Marks.empty());
}

TEST(TdmReader, ValueIsWhatStandsBetweenKeyAndTheNextEqualsSign)
{
    const struct
    {
        const char* line;
        const char* name;
    } rows[] = {
        {"PARTICIPANT_2 = A", "A"},
        {"PARTICIPANT_2 = TRACK NUMBER 001", "TRACK NUMBER 001"},
        {"PARTICIPANT_2 = A ", "A "},
        {"PARTICIPANT_2 =  A", " A"},
        {"PARTICIPANT_2 = A = B", "A"},
        {"PARTICIPANT_2 = A =", "A"},
        {"PARTICIPANT_2 = A=B", "A=B"},
        {"PARTICIPANT_2 = 'DSS-26'", "'DSS-26'"},
        // A key without value empties the text.
        {"PARTICIPANT_2 = ", ""},
        {"PARTICIPANT_2 =", ""},
        {"PARTICIPANT_2", ""},
        // Keys are whole and stand at the beginning.
        {"PARTICIPANT_2= A", "before"},
        {"PARTICIPANT_2  = A", "before"},
        {" PARTICIPANT_2 = A", "before"},
        {"\tPARTICIPANT_2 = A", "before"},
        {"participant_2 = A", "before"},
        {"PARTICIPANT_22 = A", "before"},
        {"COMMENT PARTICIPANT_2 = A", "before"},
    };
    for (const auto& [line, name] : rows) {
        SCOPED_TRACE(line);
        const Tracks tracks = read({"META_START", "PARTICIPANT_2 = before", line});
        ASSERT_EQ(tracks.size(), 1u);
        expectHead(tracks[0], "", "", name);
    }
}

TEST(TdmReader, KeysWithoutValueEmptyEachOfTheThreeTexts)
{
    const Tracks tracks =
        read({"ORIGINATOR = O", "PARTICIPANT_1 = T", "PARTICIPANT_2 = N", "META_START", "ORIGINATOR",
              "META_START", "PARTICIPANT_1 = ", "META_START", "PARTICIPANT_2"});
    ASSERT_EQ(tracks.size(), 3u);
    expectHead(tracks[0], "", "T", "N");
    expectHead(tracks[1], "", "", "N");
    expectHead(tracks[2], "", "", "");
}

TEST(TdmReader, ParticipantsReachTheirTrackOnTheSameLine)
{
    const Tracks tracks = read({"ORIGINATOR = O", "META_START", "PARTICIPANT_1 = T", "PARTICIPANT_2 = N"});
    ASSERT_EQ(tracks.size(), 1u);
    expectHead(tracks[0], "O", "T", "N");
}

TEST(TdmReader, SegmentsInheritWhatTheyDoNotSay)
{
    const Tracks tracks =
        read({"PARTICIPANT_1 = T0", "ORIGINATOR = O", "META_START", "PARTICIPANT_2 = A", "META_START",
              "META_START", "PARTICIPANT_1 = T3", "META_START", "PARTICIPANT_2 = B"});
    ASSERT_EQ(tracks.size(), 4u);
    expectHead(tracks[0], "O", "T0", "A");
    expectHead(tracks[1], "O", "T0", "A");
    expectHead(tracks[2], "O", "T3", "A");
    expectHead(tracks[3], "O", "T3", "B");
}

TEST(TdmReader, LaterOriginatorGoesToTheOpenSegmentAndAllBehindIt)
{
    const Tracks tracks = read({"ORIGINATOR = O1", "META_START", "META_STOP", "META_START", "DATA_STOP",
                                "ORIGINATOR = O2", "META_START", "META_STOP"});
    ASSERT_EQ(tracks.size(), 3u);
    expectHead(tracks[0], "O1", "", "");
    expectHead(tracks[1], "O2", "", ""); // between two segments the first of them is still open
    expectHead(tracks[2], "O2", "", "");
}

TEST(TdmReader, SegmentsOfOneNameStayApart)
{
    const Tracks tracks = read({"META_START", "PARTICIPANT_2 = A", angle1, angle2, mag, "META_START",
                                "PARTICIPANT_2 = A", angle1, angle2, mag, mag});
    ASSERT_EQ(tracks.size(), 2u);
    expectHead(tracks[0], "", "", "A");
    expectHead(tracks[1], "", "", "A");
    EXPECT_EQ(tracks[0].Marks.size(), 1u);
    EXPECT_EQ(tracks[1].Marks.size(), 2u);
}

TEST(TdmReader, OnlyAMagnitudeMakesAMark)
{
    const Tracks without = read({"META_START", angle1, angle2});
    ASSERT_EQ(without.size(), 1u);
    EXPECT_TRUE(without[0].Marks.empty());

    // An angle without a magnitude behind it is lost to the next one.
    const Tracks tracks = read({"META_START", "ANGLE_1 = 2000-01-01T06:00:00 99.0",
                                "ANGLE_2 = 2000-01-01T06:00:00 88.0", angle1, angle2, mag, angle1});
    ASSERT_EQ(tracks.size(), 1u);
    ASSERT_EQ(tracks[0].Marks.size(), 1u);
    expectTheMark(tracks[0].Marks[0]);
}

TEST(TdmReader, MarkKeepsWhatItsLinesDoNotSay)
{
    const Tracks tracks = read({"META_START",
                                "MAG = 2000-01-01T06:00:00 8.0", // nothing before it
                                angle1,
                                "MAG = 2000-01-01T06:00:00 9.0", // no declination yet
                                angle2, mag,
                                "MAG = 2000-01-01T06:00:00 10.0", // the position of the mark before
                                "ANGLE_2 = 2000-01-01T06:00:00 5.0", "MAG = 2000-01-01T06:00:00 11.0",
                                "META_START", // also in the next segment
                                "MAG = 2000-01-01T06:00:00 12.0", "ANGLE_1 = 2000-01-01T06:00:00 30.0",
                                "MAG = 2000-01-01T06:00:00 13.0"});
    ASSERT_EQ(tracks.size(), 2u);
    ASSERT_EQ(tracks[0].Marks.size(), 5u);
    expectMark(tracks[0].Marks[0], {0, 0.0, 0.0, 0.0, 8.0});
    expectMark(tracks[0].Marks[1], {60000, 0.5, 15.0, 0.0, 9.0});
    expectMark(tracks[0].Marks[2], {60000, 0.5, 15.0, -0.5, 9.5});
    expectMark(tracks[0].Marks[3], {60000, 0.5, 15.0, -0.5, 10.0});
    expectMark(tracks[0].Marks[4], {60000, 0.5, 15.0, 5.0, 11.0});
    ASSERT_EQ(tracks[1].Marks.size(), 2u);
    expectMark(tracks[1].Marks[0], {60000, 0.5, 15.0, 5.0, 12.0});
    expectMark(tracks[1].Marks[1], {51544, 0.25, 30.0, 5.0, 13.0});
}

TEST(TdmReader, EpochIsThatOfTheRightAscension)
{
    expectMark(readMark({"ANGLE_2 = 2000-01-01T06:00:00 -0.5", "ANGLE_1 = 2023-02-25T12:00:00 15.0",
                         "MAG = 2000-01-01T18:00:00 9.5"}),
               {60000, 0.5, 15.0, -0.5, 9.5});
}

TEST(TdmReader, LinesBeforeTheFirstSegmentLeaveTheMark)
{
    const Tracks tracks = read({angle1, angle2, mag, "META_START", "MAG = 2000-01-01T06:00:00 8.0"});
    ASSERT_EQ(tracks.size(), 1u);
    ASSERT_EQ(tracks[0].Marks.size(), 1u);
    expectMark(tracks[0].Marks[0], {0, 0.0, 0.0, 0.0, 8.0});
}

TEST(TdmReader, LineOfRightAscension)
{
    const struct
    {
        const char* line;
        int date;
        double time;
        double RA;
    } rows[] = {
        {"ANGLE_1 = 2023-02-25T12:00:00 15.0", 60000, 0.5, 15.0},
        {"ANGLE_1 = 2023-02-25T12:00:00 15.0 ", 60000, 0.5, 15.0}, // one blank behind makes no item
        {"ANGLE_1 = x y z 2023-02-25T12:00:00 15.0", 60000, 0.5, 15.0},
        {"ANGLE_1 = 2023-02-25T12:00:00 +15.0", 60000, 0.5, 15.0},
        {"ANGLE_1 = 2023-02-25T12:00:00 1.5e1deg", 60000, 0.5, 15.0},
        {"ANGLE_1 = 2023-02-25T12:00:00 abc", 60000, 0.5, 0.0},
        // Several blanks make empty items, and the one before the number is no epoch.
        {"ANGLE_1 = 2023-02-25T12:00:00  15.0", 51544, 0.25, 15.0},
        {"ANGLE_1 = 2023-02-25T12:00:00     15.0", 51544, 0.25, 15.0},
        {"ANGLE_1 =  2023-02-25T12:00:00 15.0", 60000, 0.5, 15.0},
        {"ANGLE_1 = 2023-02-25T12:00:00 15.0  ", 51544, 0.25, 0.0},
        {"ANGLE_1 = 2023-02-25T12:00:00\t15.0", 51544, 0.25, 2023.0}, // a tab separates nothing
        {"ANGLE_1 = 2023-02-25T12:00:00", 51544, 0.25, 2023.0},       // the last item is the number
        {"ANGLE_1 = 15.0", 51544, 0.25, 15.0},
        {"ANGLE_1 = ", 51544, 0.25, 0.0},
        {"ANGLE_1", 51544, 0.25, 0.0},
        // No such key.
        {" ANGLE_1 = 2023-02-25T12:00:00 15.0", 51544, 0.25, 7.0},
        {"\tANGLE_1 = 2023-02-25T12:00:00 15.0", 51544, 0.25, 7.0},
        {"ANGLE_1  = 2023-02-25T12:00:00 15.0", 51544, 0.25, 7.0},
        {"ANGLE_1= 2023-02-25T12:00:00 15.0", 51544, 0.25, 7.0},
        {"angle_1 = 2023-02-25T12:00:00 15.0", 51544, 0.25, 7.0},
        {"ANGLE_3 = 2023-02-25T12:00:00 15.0", 51544, 0.25, 7.0},
    };
    for (const auto& [line, date, time, RA] : rows) {
        SCOPED_TRACE(line);
        expectMark(readMark({"ANGLE_1 = 2000-01-01T06:00:00 7.0", angle2, line, mag}),
                   {date, time, RA, -0.5, 9.5});
    }
}

TEST(TdmReader, LineOfDeclination)
{
    const struct
    {
        const char* line;
        double DE;
    } rows[] = {
        {"ANGLE_2 = 2000-01-01T06:00:00 -0.5", -0.5},
        {"ANGLE_2 = 2000-01-01T06:00:00    +5.25 ", 5.25},
        {"ANGLE_2 = -0.5", -0.5},
        {"ANGLE_2 = 2000-01-01T06:00:00 abc", 0.0},
        {"ANGLE_2 = 2000-01-01T06:00:00 -0.5  ", 0.0},
        {"ANGLE_2 = 2000-01-01T06:00:00", 2000.0},
        {"ANGLE_2", 0.0},
        {"ANGLE_2 = ", 0.0},
        {" ANGLE_2 = 2000-01-01T06:00:00 -0.5", 7.0},
        {"ANGLE_2\t= 2000-01-01T06:00:00 -0.5", 7.0},
    };
    for (const auto& [line, DE] : rows) {
        SCOPED_TRACE(line);
        expectMark(readMark({angle1, "ANGLE_2 = 2023-02-25T12:00:00 7.0", line, mag}),
                   {60000, 0.5, 15.0, DE, 9.5});
    }
}

TEST(TdmReader, LineOfMagnitude)
{
    const struct
    {
        const char* line;
        double m;
    } rows[] = {
        {"MAG = 2000-01-01T06:00:00 9.5", 9.5},
        {"MAG =      2000-01-01T06:00:00    -1.2 ", -1.2},
        {"MAG = 9.5", 9.5},
        {"MAG = 2000-01-01T06:00:00 abc", 0.0},
        {"MAG = 2000-01-01T06:00:00 9.5  ", 0.0},
        {"MAG = 2000-01-01T06:00:00", 2000.0},
        {"MAG", 0.0},
        {"MAG = ", 0.0},
    };
    for (const auto& [line, m] : rows) {
        SCOPED_TRACE(line);
        expectMark(readMark({angle1, angle2, line}), {60000, 0.5, 15.0, -0.5, m});
    }
    for (const char* line : {" MAG = 9.5", "MAG  = 9.5", "MAG= 9.5", "mag = 9.5", "MAG_TYPE = 9.5"}) {
        SCOPED_TRACE(line);
        const Tracks tracks = read({"META_START", angle1, angle2, line});
        ASSERT_EQ(tracks.size(), 1u);
        EXPECT_TRUE(tracks[0].Marks.empty());
    }
}

TEST(TdmReader, MarksMayStandOutsideOfTheirSection)
{
    const Tracks tracks = read({"META_START", angle1, "META_STOP", angle2, "DATA_STOP", mag});
    ASSERT_EQ(tracks.size(), 1u);
    ASSERT_EQ(tracks[0].Marks.size(), 1u);
    expectTheMark(tracks[0].Marks[0]);
}

TEST(Tdm, WhatWasWrittenComesBackBesideTheReferenceFrame)
{
    TrackVtorichka first = trackNamed(
        "2008 TC3", {{.date = 60000, .time = 0.123456789, .RA = 15.12345678, .DE = -0.5, .m = 9.54321},
                     {.date = 60001, .time = 0.999999, .RA = 0.0, .DE = 89.99999999, .m = -1.2}});
    first.originator = "MPC";
    first.telescope = "K88";
    first.REFERENCE_FRAME = "EME2000";
    TrackVtorichka second = trackNamed("B", {{.date = 51544}});
    const TemporaryFolder folder;
    sTDM(folder / "a.tdm", Tracks{first, second});
    const Tracks tracks = lTDM(folder / "a.tdm");
    ASSERT_EQ(tracks.size(), 2u);
    expectHead(tracks[0], "MPC", "K88", "2008 TC3");
    expectHead(tracks[1], "MPC", "telescope", "B");
    ASSERT_EQ(tracks[0].Marks.size(), 2u);
    for (std::size_t i = 0; i < 2; ++i) {
        EXPECT_EQ(measured(tracks[0].Marks[i]).date, measured(first.Marks[i]).date);
        EXPECT_NEAR(measured(tracks[0].Marks[i]).time, measured(first.Marks[i]).time, 0.00001 / 86400.0);
        EXPECT_NEAR(measured(tracks[0].Marks[i]).RA, measured(first.Marks[i]).RA, 0.0000001);
        EXPECT_NEAR(measured(tracks[0].Marks[i]).DE, measured(first.Marks[i]).DE, 0.0000001);
        EXPECT_NEAR(measured(tracks[0].Marks[i]).m, measured(first.Marks[i]).m, 0.0001);
    }
    ASSERT_EQ(tracks[1].Marks.size(), 1u);
    expectMark(tracks[1].Marks[0], {51544, 0.0, 0.0, 0.0, 0.0});
}

TEST(Tdm, PublishedNight)
{
    const Tracks tracks = lTDM(fixture("tdm/K88_20240120.tdm"));
    ASSERT_EQ(tracks.size(), 1u);
    expectHead(tracks[0], "MPC", "K88", "K24B01X");
    ASSERT_EQ(tracks[0].Marks.size(), 130u);
    expectMark(tracks[0].Marks.front(), {60329, day(21, 48, 27.36), 116.6194167, 45.3911944, 18.0});
    expectMark(tracks[0].Marks.back(), {60330, day(0, 19, 18.4512), 112.9911, 47.7221889, 12.7});
    expectPublished(tracks[0].Marks, publishedMarks("K88_20240120"),
                    {.time = 0.000005, .RA = 0.00000005 * 240.0, .DE = 0.00000005 * 3600.0, .m = 0.0});
    EXPECT_EQ(writtenBy([&tracks](const std::string& path) { sTDM(path, tracks); }),
              bytesOf(fixture("tdm/K88_20240120.tdm")));
}

TEST(TdmOfOthers, TwoSegmentsWithMagnitudes)
{
    const Tracks tracks = lTDM(fixture("tdm/two_segments.kvn"));
    ASSERT_EQ(tracks.size(), 2u);
    expectHead(tracks[0], "ESA", "TFRM", "TRACK NUMBER 001");
    ASSERT_EQ(tracks[0].Marks.size(), 3u);
    expectMark(tracks[0].Marks[0], {56229, day(17, 46, 39.02), 332.2298750, -16.3028389, 12.1});
    expectMark(tracks[0].Marks[1], {56229, day(17, 48, 46.02), 332.7485833, -16.1876917, 12.3});
    expectMark(tracks[0].Marks[2], {56229, day(17, 50, 53.02), 333.2668750, -16.0716806, 12.3});
    expectHead(tracks[1], "ESA", "TFRM", "TRACK NUMBER 003");
    ASSERT_EQ(tracks[1].Marks.size(), 3u);
    expectMark(tracks[1].Marks[0], {56229, day(17, 57, 14.02), 335.1698333, -17.7212861, 11.8});
    expectMark(tracks[1].Marks[1], {56229, day(17, 59, 21.02), 335.7062083, -17.6950278, 12.4});
    expectMark(tracks[1].Marks[2], {56229, day(18, 1, 28.02), 336.2425833, -17.6673694, 13.1});
}

TEST(TdmOfOthers, SeveralBlanksBeforeTheAnglesLeaveNoTimes)
{
    const Tracks tracks = lTDM(fixture("tdm/several_blanks_before_numbers.kvn"));
    ASSERT_EQ(tracks.size(), 2u);
    expectHead(tracks[0], "ESA", "TFRM", "TRACK NUMBER 001");
    ASSERT_EQ(tracks[0].Marks.size(), 3u);
    expectMark(tracks[0].Marks[0], {0, 0.0, 332.2298750, -16.3028389, 12.1});
    expectMark(tracks[0].Marks[1], {0, 0.0, 332.7485833, -16.1876917, 12.3});
    expectMark(tracks[0].Marks[2], {0, 0.0, 333.2668750, -16.0716806, 12.3});
    expectHead(tracks[1], "ESA", "TFRM", "TRACK NUMBER 003");
    ASSERT_EQ(tracks[1].Marks.size(), 3u);
    expectMark(tracks[1].Marks[2], {0, 0.0, 336.2425833, -17.6673694, 13.1});
}

TEST(TdmOfOthers, SeveralBlanksBeforeDeclinationsAndMagnitudesDoNoHarm)
{
    for (const char* name : {"no_line_feed_at_the_end.kvn", "several_blanks_before_some_numbers.kvn"}) {
        SCOPED_TRACE(name);
        const Tracks tracks = lTDM(fixture(std::string("tdm/") + name));
        ASSERT_EQ(tracks.size(), 1u);
        expectHead(tracks[0], "GSOC", "SMARTNET-01-A-SUTH", "UNKNOWN");
        ASSERT_EQ(tracks[0].Marks.size(), 3u);
        expectMark(tracks[0].Marks[0], {58777, day(18, 59, 38.869008), 333.64830529, 5.23646136, 10.66});
        expectMark(tracks[0].Marks[1], {58777, day(19, 0, 24.405696), 333.83841725, 5.23617947, 10.77});
        expectMark(tracks[0].Marks[2], {58777, day(19, 0, 39.023021), 333.89958508, 5.23604417, 10.80});
    }
}

TEST(TdmOfOthers, FrequenciesAreNoMarks)
{
    const Tracks tracks = lTDM(fixture("tdm/day_of_year_epochs.kvn"));
    ASSERT_EQ(tracks.size(), 1u);
    expectHead(tracks[0], "NASA", "DSS-25", "yyyy-nnnA");
    EXPECT_TRUE(tracks[0].Marks.empty());
}

TEST(TdmOfOthers, PaddedKeysAreUnknown)
{
    const Tracks tracks = lTDM(fixture("tdm/padded_keys.kvn"));
    ASSERT_EQ(tracks.size(), 2u);
    expectHead(tracks[0], "DLR", "HBSTK", "SAT");
    EXPECT_TRUE(tracks[0].Marks.empty());
    expectHead(tracks[1], "DLR", "WHM1", "SAT");
    EXPECT_TRUE(tracks[1].Marks.empty());
}

TEST(TdmOfOthers, IndentedKeysAreUnknown)
{
    const Tracks tracks = lTDM(fixture("tdm/indented_keys.kvn"));
    ASSERT_EQ(tracks.size(), 2u);
    for (const TrackVtorichka& track : tracks) {
        expectHead(track, "", "", "");
        EXPECT_TRUE(track.Marks.empty());
    }
}

TEST(TdmSource, ReusedTrackHasItsDefaultsAgain)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.tdm",
             textOf({"ORIGINATOR = O", "META_START", "PARTICIPANT_1 = T", "PARTICIPANT_2 = A", angle1, angle2,
                     mag, mag, "META_START", "PARTICIPANT_2 = B", mag, "META_START"}));
    TdmSource source(folder / "a.tdm");
    EXPECT_EQ(source.count(), 3u);
    TrackVtorichka track;
    ASSERT_TRUE(source.next(track));
    expectHead(track, "O", "T", "A");
    EXPECT_EQ(track.Marks.size(), 2u);

    track.NORAD = "28884";
    track.REFERENCE_FRAME = "EME2000";
    track.FindOrb = 1.0;
    track.Marks[0].filtr = "V";
    track.Marks[0].iF = 7;
    track.InterBlobs.resize(2);
    track.Candidates.resize(2);
    track.Cast.resize(2);
    ASSERT_TRUE(source.next(track));
    EXPECT_EQ(source.count(), 1u);
    expectHead(track, "O", "T", "B");
    ASSERT_EQ(track.Marks.size(), 1u);
    expectTheMark(track.Marks[0]);

    ASSERT_TRUE(source.next(track));
    expectHead(track, "O", "T", "B");
    EXPECT_TRUE(track.Marks.empty());
    EXPECT_FALSE(source.next(track));
    EXPECT_EQ(source.count(), 0u);
}

// The segments of one originator, so that the lines go over several pieces of the reader.
TEST(TdmSource, LargeFileGivesTheTracksOfTheList)
{
    constexpr int marksOfATrack = 4000;
    std::string bytes = "ORIGINATOR = O\n";
    for (const char* name : {"A", "B", "C"}) {
        bytes += "META_START\nPARTICIPANT_2 = " + std::string(name) + "\n";
        for (int i = 0; i < marksOfATrack; ++i) {
            bytes += angle1 + "\n" + angle2 + "\nMAG = x " + std::to_string(i) + "\n";
        }
    }
    const TemporaryFolder folder;
    makeFile(folder / "a.tdm", bytes);
    const Tracks list = lTDM(folder / "a.tdm");
    ASSERT_EQ(list.size(), 3u);
    TdmSource source(folder / "a.tdm");
    TrackVtorichka track;
    for (const TrackVtorichka& expected : list) {
        ASSERT_TRUE(source.next(track));
        expectHead(track, "O", "", expected.QRVName);
        ASSERT_EQ(track.Marks.size(), static_cast<std::size_t>(marksOfATrack));
        ASSERT_EQ(expected.Marks.size(), static_cast<std::size_t>(marksOfATrack));
        for (std::size_t i = 0; i < marksOfATrack; ++i) {
            ASSERT_EQ(measured(track.Marks[i]), (Measured{60000, 0.5, 15.0, -0.5, static_cast<double>(i)}));
            ASSERT_EQ(measured(track.Marks[i]), measured(expected.Marks[i]));
        }
    }
    EXPECT_FALSE(source.next(track));
}

TEST(TdmSource, FileMayBeReplacedByASinkOfItsTracks)
{
    const TemporaryFolder folder;
    const std::string path = folder / "a.tdm";
    sTDM(path, {trackNamed("A", {theMark()}), trackNamed("B", {theMark(), theMark()})});
    const std::string bytes = bytesOf(path);
    TdmSource source(path);
    TdmSink sink(path);
    makeFile(path, "gone");
    for (TrackVtorichka track; source.next(track);) {
        sink.add(track);
    }
    EXPECT_TRUE(sink.save());
    EXPECT_EQ(bytesOf(path), bytes);
}
