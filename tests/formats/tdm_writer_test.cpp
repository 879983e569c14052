#include "base/last_answer.h"
#include "formats/tdm.h"
#include "text/date_text.h"

#include "base/text_buffer.h"
#include "support/failed_writes.h"
#include "support/locales.h"
#include "support/measured_marks.h"
#include "support/sexagesimal.h"
#include "support/temporary_folder.h"
#include "support/texts.h"
#include "support/tracks.h"
#include "text/written_text.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdio>
#include <string>
#include <vector>

using namespace tavelinUtils;

namespace {

using Tracks = std::vector<TrackVtorichka>;

std::string written(const Tracks& tracks)
{
    return writtenBy([&tracks](const std::string& path) { sTDM(path, tracks); });
}

// The lines with the times of a segment.
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
    TextBuffer text;
    DateTexts dates;
    appendEpoch(text, dates, mark.date, mark.time);
    return text.str();
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
        const ReferenceLocale reference;
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
    EXPECT_EQ(zeroCreationDate(), "0-00-00T00:00:00");
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

TEST(TdmSink, NothingIsOpenedBeforeItIsSaved)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.tdm", "old");
    TdmSink sink(folder / "a.tdm");
    const TrackVtorichka track = trackNamed("A", {theMark()});
    sink.add(track);
    EXPECT_EQ(bytesOf(folder / "a.tdm"), "old");
    EXPECT_TRUE(sink.save());
    EXPECT_EQ(bytesOf(folder / "a.tdm"), written({track}));
}

TEST(TdmSink, WithoutATrackTheFileStays)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.tdm", "old");
    EXPECT_TRUE(TdmSink(folder / "a.tdm").save());
    EXPECT_EQ(bytesOf(folder / "a.tdm"), "old");
    EXPECT_TRUE(TdmSink(folder / "new.tdm").save());
    EXPECT_FALSE(exists(folder / "new.tdm"));
}

TEST(TdmSink, OriginatorIsThatOfTheFirstTrackAlsoOfOneWithoutMarks)
{
    const TemporaryFolder folder;
    TdmSink sink(folder / "a.tdm");
    TrackVtorichka track = trackNamed("A", {});
    track.originator = "O1";
    sink.add(track);
    track.originator = "O2";
    track.Marks = {theMark()};
    sink.add(track);
    EXPECT_TRUE(sink.save());
    const std::string bytes = bytesOf(folder / "a.tdm");
    EXPECT_EQ(bytes.substr(0, bytes.find("TIME_SYSTEM")), "CCSDS_TDM_VERS = 1.0\n"
                                                          "CREATION_DATE = 0-00-00T00:00:00\n"
                                                          "ORIGINATOR = O1\n"
                                                          "META_START\n");
}

TEST(TdmSink, MegabytesGoOutBeforeItIsSaved)
{
    constexpr int count = 8000;
    const TemporaryFolder folder;
    TdmSink sink(folder / "a.tdm");
    TrackVtorichka track = trackNamed("A", {});
    track.Marks.assign(count, theMark());
    sink.add(track);
    EXPECT_EQ(bytesOf(folder / "a.tdm").size(), std::size_t{1} << 20);
    EXPECT_TRUE(sink.save());
    const std::string bytes = bytesOf(folder / "a.tdm");
    const std::string mark = "ANGLE_1 = 2023-02-25T12:00:00.00000 15.0000000\n"
                             "ANGLE_2 = 2023-02-25T12:00:00.00000 -0.5000000\n"
                             "MAG = 2023-02-25T12:00:00.00000 9.5000\n";
    EXPECT_TRUE(bytes.substr(bytes.find("DATA_START")) ==
                "DATA_START\n" + repeated(mark, count) + "DATA_STOP\n");
}
