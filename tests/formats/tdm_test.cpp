#include "base/bytes.h"
#include "base/last_answer.h"
#include "formats/tdm.h"
#include "text/date_text.h"

#include "support/failed_writes.h"
#include "support/measured_marks.h"
#include "support/places.h"
#include "support/sexagesimal.h"
#include "support/temporary_folder.h"
#include "support/tracks.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdio>
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

std::string written(const Tracks& tracks)
{
    const TemporaryFolder folder;
    sTDM(folder / "a.tdm", tracks);
    return bytesOf(folder / "a.tdm");
}

Tracks readBytes(const std::string& bytes)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.tdm", bytes);
    return lTDM(folder / "a.tdm");
}

Tracks read(const Lines& lines)
{
    std::string bytes;
    for (const std::string& line : lines) {
        bytes += line + "\n";
    }
    return readBytes(bytes);
}

// The only mark of a segment that consists of the lines.
TRecLabelPervichka_File readMark(const Lines& lines)
{
    Lines all = {"META_START"};
    all.insert(all.end(), lines.begin(), lines.end());
    const Tracks tracks = read(all);
    if (tracks.size() != 1 || tracks[0].Marks.size() != 1) {
        ADD_FAILURE() << "no mark";
        return {};
    }
    return tracks[0].Marks[0];
}

void expectHead(const TrackVtorichka& track, const std::string& originator, const std::string& telescope,
                const std::string& name)
{
    EXPECT_EQ(track.originator, originator);
    EXPECT_EQ(track.telescope, telescope);
    EXPECT_EQ(track.QRVName, name);
    EXPECT_EQ(track.NORAD, "");
    EXPECT_EQ(track.REFERENCE_FRAME, "ICRF");
    EXPECT_EQ(track.MPCChecker, "");
    EXPECT_EQ(track.FindOrb, 999.0);
    EXPECT_TRUE(track.InterBlobs.empty());
    EXPECT_TRUE(track.Candidates.empty());
    EXPECT_TRUE(track.Cast.empty());
}

// The lines that tell the times of a segment.
std::string spanOf(const std::string& first, const std::string& last)
{
    return "\nSTART_TIME = " + first + "\nSTOP_TIME = " + last + "\n";
}

// The data section of a segment with one mark.
std::string dataOf(const std::string& epoch, const std::string& RA, const std::string& DE,
                   const std::string& m)
{
    return "DATA_START\nANGLE_1 = " + epoch + " " + RA + "\nANGLE_2 = " + epoch + " " + DE +
           "\nMAG = " + epoch + " " + m + "\nDATA_STOP\n";
}

std::string epochOf(const TRecLabelPervichka_File& mark)
{
    std::string text;
    DateTexts dates;
    appendEpoch(text, dates, mark.date, mark.time);
    return text;
}

} // namespace

TEST(TdmWriter, SegmentOfATrack)
{
    TrackVtorichka track = trackNamed(
        "12345", {theMark(),
                  {.date = 60001, .time = day(1, 2, 3.456), .RA = 187.51234567, .DE = 45.25, .m = 15.3},
                  {.date = 60002, .time = 0.25, .RA = 359.99999996, .DE = 0.0, .m = -1.23456}});
    track.originator = "MPC";
    track.telescope = "K88";
    track.REFERENCE_FRAME = "EME2000";
    EXPECT_EQ(written({track}), "CCSDS_TDM_VERS = 1.0\n"
                                "CREATION_DATE = 0-00-00T00:00:00\n"
                                "ORIGINATOR = MPC\n"
                                "META_START\n"
                                "TIME_SYSTEM = UTC\n"
                                "START_TIME = 2023-02-25T12:00:00.00000\n"
                                "STOP_TIME = 2023-02-27T06:00:00.00000\n"
                                "PARTICIPANT_1 = K88\n"
                                "PARTICIPANT_2 = 12345\n"
                                "MODE = SEQUENTIAL\n"
                                "PATH = 2,1\n"
                                "ANGLE_TYPE = RADEC\n"
                                "REFERENCE_FRAME = EME2000\n"
                                "META_STOP\n"
                                "DATA_START\n"
                                "ANGLE_1 = 2023-02-25T12:00:00.00000 15.0000000\n"
                                "ANGLE_2 = 2023-02-25T12:00:00.00000 -0.5000000\n"
                                "MAG = 2023-02-25T12:00:00.00000 9.5000\n"
                                "ANGLE_1 = 2023-02-26T01:02:03.45600 187.5123457\n"
                                "ANGLE_2 = 2023-02-26T01:02:03.45600 45.2500000\n"
                                "MAG = 2023-02-26T01:02:03.45600 15.3000\n"
                                "ANGLE_1 = 2023-02-27T06:00:00.00000 360.0000000\n"
                                "ANGLE_2 = 2023-02-27T06:00:00.00000 0.0000000\n"
                                "MAG = 2023-02-27T06:00:00.00000 -1.2346\n"
                                "DATA_STOP\n");
}

TEST(TdmWriter, EachTrackHasItsSegmentUnderTheOriginatorOfTheFirst)
{
    TrackVtorichka first = trackNamed("A", {theMark()});
    first.originator = "O1";
    TrackVtorichka second = trackNamed("A", {{.date = 51544, .time = 0.0, .RA = 1.0, .DE = 2.0, .m = 3.0}});
    second.originator = "O2";
    second.telescope = "T2";
    second.REFERENCE_FRAME = "";
    EXPECT_EQ(written({first, second}), "CCSDS_TDM_VERS = 1.0\n"
                                        "CREATION_DATE = 0-00-00T00:00:00\n"
                                        "ORIGINATOR = O1\n"
                                        "META_START\n"
                                        "TIME_SYSTEM = UTC\n"
                                        "START_TIME = 2023-02-25T12:00:00.00000\n"
                                        "STOP_TIME = 2023-02-25T12:00:00.00000\n"
                                        "PARTICIPANT_1 = telescope\n"
                                        "PARTICIPANT_2 = A\n"
                                        "MODE = SEQUENTIAL\n"
                                        "PATH = 2,1\n"
                                        "ANGLE_TYPE = RADEC\n"
                                        "REFERENCE_FRAME = ICRF\n"
                                        "META_STOP\n"
                                        "DATA_START\n"
                                        "ANGLE_1 = 2023-02-25T12:00:00.00000 15.0000000\n"
                                        "ANGLE_2 = 2023-02-25T12:00:00.00000 -0.5000000\n"
                                        "MAG = 2023-02-25T12:00:00.00000 9.5000\n"
                                        "DATA_STOP\n"
                                        "META_START\n"
                                        "TIME_SYSTEM = UTC\n"
                                        "START_TIME = 2000-01-01T00:00:00.00000\n"
                                        "STOP_TIME = 2000-01-01T00:00:00.00000\n"
                                        "PARTICIPANT_1 = T2\n"
                                        "PARTICIPANT_2 = A\n"
                                        "MODE = SEQUENTIAL\n"
                                        "PATH = 2,1\n"
                                        "ANGLE_TYPE = RADEC\n"
                                        "REFERENCE_FRAME = \n"
                                        "META_STOP\n"
                                        "DATA_START\n"
                                        "ANGLE_1 = 2000-01-01T00:00:00.00000 1.0000000\n"
                                        "ANGLE_2 = 2000-01-01T00:00:00.00000 2.0000000\n"
                                        "MAG = 2000-01-01T00:00:00.00000 3.0000\n"
                                        "DATA_STOP\n");
}

TEST(TdmWriter, TextsStandAsTheyAreAndTheNameIsThatOfTheObject)
{
    TrackVtorichka track = trackNamed("TRACK = 2008 TC3 ", {{.date = 60000}});
    track.NORAD = "28884";
    track.MPCChecker = "checked";
    track.telescope = "T\xC3\x9C";
    track.originator = "";
    const std::string bytes = written({track});
    EXPECT_NE(bytes.find("\nORIGINATOR = \nMETA_START\n"), std::string::npos) << bytes;
    EXPECT_NE(bytes.find("\nPARTICIPANT_1 = T\xC3\x9C\nPARTICIPANT_2 = TRACK = 2008 TC3 \nMODE"),
              std::string::npos)
        << bytes;
}

TEST(TdmWriter, TrackWithoutMarksHasNoSegment)
{
    const std::string head = "CCSDS_TDM_VERS = 1.0\n"
                             "CREATION_DATE = 0-00-00T00:00:00\n"
                             "ORIGINATOR = O1\n";
    const std::string segment = "META_START\n"
                                "TIME_SYSTEM = UTC\n"
                                "START_TIME = 2023-02-25T12:00:00.00000\n"
                                "STOP_TIME = 2023-02-25T12:00:00.00000\n"
                                "PARTICIPANT_1 = telescope\n"
                                "PARTICIPANT_2 = A\n"
                                "MODE = SEQUENTIAL\n"
                                "PATH = 2,1\n"
                                "ANGLE_TYPE = RADEC\n"
                                "REFERENCE_FRAME = ICRF\n"
                                "META_STOP\n"
                                "DATA_START\n"
                                "ANGLE_1 = 2023-02-25T12:00:00.00000 15.0000000\n"
                                "ANGLE_2 = 2023-02-25T12:00:00.00000 -0.5000000\n"
                                "MAG = 2023-02-25T12:00:00.00000 9.5000\n"
                                "DATA_STOP\n";
    TrackVtorichka empty = trackNamed("E", {});
    empty.originator = "O1";
    const TrackVtorichka full = trackNamed("A", {theMark()});
    EXPECT_EQ(written({empty}), head);
    EXPECT_EQ(written({empty, full, empty, full, empty}), head + segment + segment);
}

TEST(TdmWriter, EmptyListMakesNoFile)
{
    const TemporaryFolder folder;
    sTDM(folder / "new.tdm", Tracks{});
    EXPECT_FALSE(exists(folder / "new.tdm"));

    makeFile(folder / "old.tdm", "kept");
    sTDM(folder / "old.tdm", Tracks{});
    EXPECT_EQ(bytesOf(folder / "old.tdm"), "kept");

    forUnwritablePaths([](const std::string& path) { EXPECT_NO_THROW(sTDM(path, Tracks{})); });
}

TEST(TdmWriter, FileIsReplaced)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.tdm", std::string(10000, 'x'));
    sTDM(folder / "a.tdm", Tracks{trackNamed("A", {})});
    EXPECT_EQ(bytesOf(folder / "a.tdm"), "CCSDS_TDM_VERS = 1.0\n"
                                         "CREATION_DATE = 0-00-00T00:00:00\n"
                                         "ORIGINATOR = observatory\n");
}

TEST(TdmWriter, FailedWriteRaisesCode7)
{
    expectCode7([](const std::string& path) { sTDM(path, Tracks{trackNamed("A", {{}})}); });
    expectCode7([](const std::string& path) { sTDM(path, Tracks{trackNamed("A", {})}); });
}

TEST(TdmWriter, AnglesHaveSevenDecimalsAndMagnitudesFour)
{
    const struct
    {
        double value;
        std::string angle;
        std::string m;
    } rows[] = {
        {0.0, "0.0000000", "0.0000"},
        {-0.0, "-0.0000000", "-0.0000"},
        {-1.2, "-1.2000000", "-1.2000"},
        {9.96, "9.9600000", "9.9600"},
        {9.94, "9.9400000", "9.9400"},
        {10.0, "10.0000000", "10.0000"},
        {9.99996, "9.9999600", "10.0000"},
        {0.00000004, "0.0000000", "0.0000"},
        {0.00000006, "0.0000001", "0.0000"},
        {-0.00001, "-0.0000100", "-0.0000"},
        {359.99999999, "360.0000000", "360.0000"},
        {0.03125, "0.0312500", "0.0312"}, // a tie goes to the even digit
        {1e15, "1000000000000000.0000000", "1000000000000000.0000"},
    };
    for (const auto& [value, angle, m] : rows) {
        SCOPED_TRACE(value);
        const std::string bytes =
            written({trackNamed("A", {{.date = 60000, .RA = value, .DE = value, .m = value}})});
        EXPECT_EQ(bytes.substr(bytes.find("DATA_START")),
                  dataOf("2023-02-25T00:00:00.00000", angle, angle, m));
    }
}

TEST(TdmWriter, ListOfManyMarks)
{
    constexpr int count = 20000;
    TrackVtorichka track = trackNamed("A", {});
    std::string data;
    for (int i = 0; i < count; ++i) {
        const int second = i * 4;
        track.Marks.push_back({.date = 60000 + i % 3,
                               .time = day(second / 3600, second / 60 % 60, second % 60),
                               .RA = i * 0.01,
                               .DE = -i * 0.001,
                               .m = i * 0.0005});
        char lines[300];
        std::snprintf(lines, sizeof lines,
                      "ANGLE_1 = 2023-02-%02dT%02d:%02d:%02d.00000 %.7f\n"
                      "ANGLE_2 = 2023-02-%02dT%02d:%02d:%02d.00000 %.7f\n"
                      "MAG = 2023-02-%02dT%02d:%02d:%02d.00000 %.4f\n",
                      25 + i % 3, second / 3600, second / 60 % 60, second % 60, i * 0.01, 25 + i % 3,
                      second / 3600, second / 60 % 60, second % 60, -i * 0.001, 25 + i % 3, second / 3600,
                      second / 60 % 60, second % 60, i * 0.0005);
        data += lines;
    }
    const std::string bytes = written({track});
    EXPECT_TRUE(bytes.substr(bytes.find("DATA_START")) == "DATA_START\n" + data + "DATA_STOP\n");
}

TEST(TdmEpoch, CreationDateIsMadeOfZeros)
{
    EXPECT_EQ(creationDate(), "0-00-00T00:00:00");
}

TEST(TdmEpoch, SecondsThatRoundUpTo60AreCarriedAndTheDateStays)
{
    const struct
    {
        int date;
        double time;
        std::string text;
    } rows[] = {
        {60000, 0.5, "2023-02-25T12:00:00.00000"},
        {60000, 0.0, "2023-02-25T00:00:00.00000"},
        {60000, day(1, 2, 3.456), "2023-02-25T01:02:03.45600"},
        {60000, day(12, 34, 59.996), "2023-02-25T12:34:59.99600"},
        {60000, day(12, 34, 59.999994), "2023-02-25T12:34:59.99999"},
        {60000, day(12, 34, 59.999996), "2023-02-25T12:35:00.00000"},
        {60000, day(12, 59, 59.999996), "2023-02-25T13:00:00.00000"},
        {60000, day(23, 59, 59.999996), "2023-02-25T00:00:00.00000"},
        {60000, 1.0 - 5e-15, "2023-02-25T00:00:00.00000"},
        // The "0" looks at the text.
        {60000, day(12, 0, 9.996), "2023-02-25T12:00:09.99600"},
        {60000, day(12, 0, 9.999996), "2023-02-25T12:00:10.00000"},
        {60000, 60000.25, "2023-02-25T06:00:00.00000"},
        {60000, -0.25, "2023-02-25T18:00:00.00000"},
        {0, 0.5, "1858-11-17T12:00:00.00000"},
        {-315469, 0.5, "995-02-25T12:00:00.00000"},
        {2147483647, 0.5, "0-00-00T12:00:00.00000"},
    };
    for (const auto& [date, time, text] : rows) {
        SCOPED_TRACE(text);
        EXPECT_EQ(epochOf({.date = date, .time = time}), text);
        const std::string bytes = written({trackNamed("A", {{.date = date, .time = time}})});
        EXPECT_NE(bytes.find(spanOf(text, text)), std::string::npos);
        EXPECT_EQ(bytes.substr(bytes.find("DATA_START")), dataOf(text, "0.0000000", "0.0000000", "0.0000"));
    }
}

TEST(TdmEpoch, IsAppendedAndDatesMayAlternate)
{
    std::string text = "<";
    DateTexts dates;
    appendEpoch(text, dates, 60000, 0.5);
    text += "|";
    appendEpoch(text, dates, 60000, 0.25);
    text += "|";
    appendEpoch(text, dates, 0, 0.25);
    text += "|";
    appendEpoch(text, dates, 60000, 0.75);
    EXPECT_EQ(text, "<2023-02-25T12:00:00.00000|2023-02-25T06:00:00.00000|1858-11-17T06:00:00.00000|"
                    "2023-02-25T18:00:00.00000");
}

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
    };
    DayNumbers days;
    for (const auto& [text, date, time] : rows) {
        SCOPED_TRACE(text);
        int readDate = 1;
        double readTime = 0.125;
        readEpoch(text, days, readDate, readTime);
        EXPECT_EQ(readDate, date);
        EXPECT_DOUBLE_EQ(readTime, time);
        expectMark(readMark({"ANGLE_1 = " + std::string(text) + " 15.0", angle2, mag}),
                   {date, time, 15.0, -0.5, 9.5});
    }
}

TEST(TdmEpoch, TextThatIsNotTwoPartsLeavesDateAndTime)
{
    DayNumbers days;
    for (const char* text : {"", "T", "=", "2023-02-25", "2023-02-25T", "2023-02-25 12:00:00",
                             "2023-02-25t12:00:00", "12:00:00", "2023-02-25T12:00:00UTC", "TTT"})
    {
        SCOPED_TRACE(text);
        int date = 1;
        double time = 0.125;
        readEpoch(text, days, date, time);
        EXPECT_EQ(date, 1);
        EXPECT_EQ(time, 0.125);
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
        {"ANGLE_1 = 2023-02-25T12:00:00\t15.0", 51544, 0.25, 2023.0}, // a tab parts nothing
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
        EXPECT_EQ(int(tracks[0].Marks[i].date), int(first.Marks[i].date));
        EXPECT_NEAR(double(tracks[0].Marks[i].time), double(first.Marks[i].time), 0.00001 / 86400.0);
        EXPECT_NEAR(double(tracks[0].Marks[i].RA), double(first.Marks[i].RA), 0.0000001);
        EXPECT_NEAR(double(tracks[0].Marks[i].DE), double(first.Marks[i].DE), 0.0000001);
        EXPECT_NEAR(double(tracks[0].Marks[i].m), double(first.Marks[i].m), 0.0001);
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
    EXPECT_EQ(written(tracks), bytesOf(fixture("tdm/K88_20240120.tdm")));
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
