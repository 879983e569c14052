#include "formats/mpc_report.h"

#include "support/failed_writes.h"
#include "support/measured_marks.h"
#include "support/mpc_reports.h"
#include "support/temporary_folder.h"
#include "support/tracks.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <vector>

using namespace tavelinUtils;
using namespace mpcReports;

namespace {

using Lines = std::vector<std::string>;
using Tracks = std::vector<TrackVtorichka>;

// The tracks that come back out of their report.
Tracks readBack(const Tracks& tracks)
{
    return readFile(written(tracks));
}

} // namespace

// What is written and read back.

TEST(MpcReport, ComesBackWithinItsPrecision)
{
    TrackVtorichka first = checkedTrack(
        "K23A01B",
        {{.date = 60000, .time = 0.123456789, .RA = 123.456789, .DE = -12.3456789, .m = 15.37, .filtr = "V"},
         {.date = 60001, .time = 0.5, .RA = 0.0, .DE = -0.0001, .m = 0.0}});
    first.MPCHeader = fullHeader();
    const TrackVtorichka second = trackNamed(
        "12345",
        {{.date = 60002, .time = 0.999994, .RA = 359.99999, .DE = -89.99999, .m = 9.96, .filtr = "Vq~0yn5"}});
    const Tracks tracks = readBack({first, second});
    ASSERT_EQ(outline(tracks), (Lines{"K23A01B 2", "12345 1"}));
    EXPECT_EQ(tracks[1].QRVName, "");

    const TRecLabelPervichka_File before[] = {first.Marks[0], first.Marks[1], second.Marks[0]};
    const TRecLabelPervichka_File after[] = {tracks[0].Marks[0], tracks[0].Marks[1], tracks[1].Marks[0]};
    for (std::size_t i = 0; i < 3; ++i) {
        SCOPED_TRACE(i);
        EXPECT_EQ(measured(after[i]).date, measured(before[i]).date);
        EXPECT_NEAR(measured(after[i]).time, measured(before[i]).time, 0.500001e-5);
        EXPECT_NEAR(measured(after[i]).RA, measured(before[i]).RA, 0.005001 / 240.0);
        EXPECT_NEAR(measured(after[i]).DE, measured(before[i]).DE, 0.05001 / 3600.0);
        EXPECT_NEAR(measured(after[i]).m, measured(before[i]).m, 0.05001);
        EXPECT_EQ(std::string(after[i].filtr), std::string(before[i].filtr));
    }
}

TEST(MpcReport, CodesOfLaterTracksDoNotComeBack)
{
    TrackVtorichka first = trackNamed("11111", {theMark()});
    TrackVtorichka second = trackNamed("22222", {theMark()});
    first.MPCHeader = fullHeader();
    second.MPCHeader.COD = "G96";
    const Tracks tracks = readBack({first, second});
    ASSERT_EQ(outline(tracks), (Lines{"11111 1", "22222 1"}));
    expectHeader(tracks[0].MPCHeader, fullHeader());
    expectHeader(tracks[1].MPCHeader, fullHeader());
}

TEST(MpcReport, DayThatIsRoundedUpComesBackADayEarlier)
{
    TRecLabelPervichka_File mark = theMark();
    mark.time = 0.999999;
    const Tracks tracks = readBack({trackNamed("12345", {mark})});
    ASSERT_EQ(tracks.size(), 1U);
    expectMark(tracks[0].Marks[0], {60000, 0.0, 15.0, -0.5, 9.5}, "R");
}

TEST(MpcReport, PositiveDeclinationsDoNotComeBack)
{
    TRecLabelPervichka_File mark = theMark();
    mark.DE = 0.5;
    EXPECT_TRUE(readBack({trackNamed("12345", {mark})}).empty());
    EXPECT_EQ(outline(readBack({trackNamed("12345", {mark, theMark(), mark})})), Lines{"12345 1"});
}

TEST(MpcReport, NegativeMagnitudesDoNotComeBack)
{
    TRecLabelPervichka_File mark = theMark();
    mark.m = -1.0;
    EXPECT_TRUE(readBack({trackNamed("12345", {mark})}).empty());
}

TEST(MpcReport, MissingSignAndNegativeMagnitudeMakeUpForEachOther)
{
    TRecLabelPervichka_File mark = theMark();
    mark.DE = 0.5;
    mark.m = -1.0;
    EXPECT_EQ(GetStringMPC("12345", "500", mark),
              "12345         C2023 02 25.50000 01 00 00.00 00 30 00.0          0-1.0 R      500");
    const Tracks tracks = readBack({trackNamed("12345", {mark})});
    ASSERT_EQ(tracks.size(), 1U);
    expectMark(tracks[0].Marks[0], {60000, 0.5, 15.0, 0.5, -1.0}, "R");
}

TEST(MpcReport, WideNamesBandsAndCodesDoNotComeBack)
{
    TRecLabelPervichka_File band = theMark();
    band.filtr = "B-of-8-l";
    TrackVtorichka code = trackNamed("33333", {theMark()});
    code.MPCHeader.COD = "W855";
    TrackVtorichka noCode = trackNamed("44444", {theMark()});
    noCode.MPCHeader.COD = "";
    EXPECT_TRUE(
        readBack({trackNamed("0123456789abc", {theMark()}), trackNamed("22222", {band}), code, noCode})
            .empty());
}

TEST(MpcReport, ComparisonsDoNotComeBack)
{
    EXPECT_TRUE(readFile(compared({checkedTrack("12345", {theMark()})}, {})).empty());
}

// The table of report marks.

TEST(MpcTable, HasItsColumns)
{
    EXPECT_EQ(getHeadMPC(), "N:Int\tNBl:Int\tdate:Date\ttime:Time\tName:Text\tRA:Float:deg\tDE:Float:deg"
                            "\tm:Float:mag\tNEORatio:Float\tDraw:Bool");
}

TEST(MpcTable, FileHasTheVersionAndTheColumns)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.txt", std::string(10000, 'x'));
    sMPCHeadTrack(folder / "a.txt");
    EXPECT_EQ(bytesOf(folder / "a.txt"),
              "v2\n"
              "N:Int\tNBl:Int\tdate:Date\ttime:Time\tName:Text\tRA:Float:deg\tDE:Float:deg"
              "\tm:Float:mag\tNEORatio:Float\tDraw:Bool\n");
}

TEST(MpcTable, FileThatCannotBeWrittenRaisesCode7)
{
    expectCode7([](const std::string& path) { sMPCHeadTrack(path); });
}
