#include "formats/light_curve.h"

#include "support/no_room.h"
#include "support/temporary_folder.h"
#include "support/texts.h"
#include "support/tracks.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <limits>
#include <string>
#include <vector>

using namespace tavelinUtils;

namespace {

using Tracks = std::vector<TrackVtorichka>;

const std::string columnLine =
    "JD geocentric\tapparent\tensemble\tinstrumental\tinstr1000km\tinstrComp\tobject\n";

std::string written(const Tracks& tracks, const std::string& timeLabel = "JD geocentric")
{
    return writtenBy([&](const std::string& path) { SaveLightCurve(path, tracks, timeLabel); });
}

// The line of a track N that has this one mark.
std::string lineOf(const TRecLabelPervichka_File& mark)
{
    return between(columnLine, written({trackNamed("N", {mark})}), "");
}

} // namespace

TEST(LightCurve, OneMarkIsOneLineOfSevenFields)
{
    EXPECT_EQ(written({trackNamed("12345", {{.mInstr = -7.125,
                                             .mInstr1000 = 11.0,
                                             .date = 60000,
                                             .time = 0.5,
                                             .m = 9.5,
                                             .mEnsemble = 9.25,
                                             .mInstrComp = -6.5}})}),
              "JD geocentric\tapparent\tensemble\tinstrumental\tinstr1000km\tinstrComp\tobject\n"
              "2460001.0000000\t9.50000\t9.25000\t-7.12500\t11.00000\t-6.50000\t12345\t\n");
}

TEST(LightCurve, EachColumnHasItsField)
{
    TrackVtorichka track = trackNamed("SS Cyg", {{.SNRpeak = 1.0,
                                                  .A = 2.0,
                                                  .mInstr = 3.5,
                                                  .mInstr1000 = 4.5,
                                                  .date = 51544,
                                                  .time = 0.25,
                                                  .bjd = 51545,
                                                  .time_bjd = 0.75,
                                                  .RA = 5.0,
                                                  .DE = 6.0,
                                                  .m = 1.5,
                                                  .mjd = "51544.9",
                                                  .Spare1 = 7.0,
                                                  .mEnsemble = 2.5,
                                                  .Spare2 = 8.0,
                                                  .Spare3 = 9.0,
                                                  .mInstrComp = 5.5,
                                                  .Spare4 = 10.0,
                                                  .Spare5 = 11.0,
                                                  .SpareText = "spare"}});
    track.NORAD = "99001";
    track.MPCChecker = "checker";
    track.Series = "series";
    EXPECT_EQ(written({track}),
              columnLine + "2451544.7500000\t1.50000\t2.50000\t3.50000\t4.50000\t5.50000\tSS Cyg\t\n");
}

TEST(LightCurve, DefaultMarkOfADefaultTrack)
{
    TrackVtorichka track;
    track.Marks.resize(1);
    EXPECT_EQ(written({track}),
              columnLine + "2400000.5000000\t0.00000\t0.00000\t0.00000\t0.00000\t0.00000\t\t\n");
}

TEST(LightCurve, TabsEndEachFieldOfAMarkAndPartThoseOfTheColumnLine)
{
    const std::string bytes = written({trackNamed("N", {{.m = 9.5}})});
    const std::size_t end = bytes.find('\n');
    ASSERT_NE(end, std::string::npos);
    EXPECT_EQ(std::count(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(end), '\t'), 6);
    EXPECT_EQ(std::count(bytes.begin() + static_cast<std::ptrdiff_t>(end), bytes.end(), '\t'), 7);
    EXPECT_EQ(bytes.substr(end - 1, 2), "t\n");
    EXPECT_EQ(bytes.substr(bytes.size() - 2), "\t\n");
}

TEST(LightCurve, TimesAreJulianDatesWithSevenDecimals)
{
    const struct
    {
        int date;
        double time;
        const char* text;
    } rows[] = {
        {57878, 0.2654321, "2457878.7654321"},
        {60000, 0.0, "2460000.5000000"},
        {0, 0.0, "2400000.5000000"},
        {60000, 0.12345678, "2460000.6234568"},
        {60000, 0.99999999, "2460001.5000000"},
        {60000, 1.5, "2460002.0000000"},
        {60000, -0.25, "2460000.2500000"},
        {-1, 0.25, "2399999.7500000"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(lineOf({.date = row.date, .time = row.time}),
                  row.text + std::string("\t0.00000\t0.00000\t0.00000\t0.00000\t0.00000\tN\t\n"));
    }
}

TEST(LightCurve, MagnitudesHaveFiveDecimals)
{
    const struct
    {
        double magnitude;
        const char* text;
    } rows[] = {
        {9.5, "9.50000"},        {12.3456789, "12.34568"},
        {-1.2, "-1.20000"},      {0.000004, "0.00000"},
        {-0.000004, "-0.00000"}, {99.999996, "100.00000"},
        {1e6, "1000000.00000"},  {std::numeric_limits<double>::infinity(), "inf"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        const std::string text = row.text;
        EXPECT_EQ(lineOf({.m = row.magnitude}),
                  "2400000.5000000\t" + text + "\t0.00000\t0.00000\t0.00000\t0.00000\tN\t\n");
        EXPECT_EQ(lineOf({.mEnsemble = row.magnitude}),
                  "2400000.5000000\t0.00000\t" + text + "\t0.00000\t0.00000\t0.00000\tN\t\n");
        EXPECT_EQ(lineOf({.mInstr = row.magnitude}),
                  "2400000.5000000\t0.00000\t0.00000\t" + text + "\t0.00000\t0.00000\tN\t\n");
        EXPECT_EQ(lineOf({.mInstr1000 = row.magnitude}),
                  "2400000.5000000\t0.00000\t0.00000\t0.00000\t" + text + "\t0.00000\tN\t\n");
        EXPECT_EQ(lineOf({.mInstrComp = row.magnitude}),
                  "2400000.5000000\t0.00000\t0.00000\t0.00000\t0.00000\t" + text + "\tN\t\n");
    }
}

TEST(LightCurve, TracksAndMarksStandInTheirOrder)
{
    EXPECT_EQ(written({trackNamed("B", {{.date = 60002, .m = 3.0}, {.date = 60000, .m = 1.0}}),
                       trackNamed("empty", {}), trackNamed("A\tA", {{.date = 60001, .m = 2.0}})}),
              columnLine + "2460002.5000000\t3.00000\t0.00000\t0.00000\t0.00000\t0.00000\tB\t\n"
                           "2460000.5000000\t1.00000\t0.00000\t0.00000\t0.00000\t0.00000\tB\t\n"
                           "2460001.5000000\t2.00000\t0.00000\t0.00000\t0.00000\t0.00000\tA\tA\t\n");
}

TEST(LightCurve, NoTracksAreTheColumnLineAlone)
{
    EXPECT_EQ(written({}), columnLine);
    EXPECT_EQ(written({trackNamed("A", {}), trackNamed("B", {})}), columnLine);
}

TEST(LightCurve, LabelOpensTheColumnLine)
{
    const std::string rest = "\tapparent\tensemble\tinstrumental\tinstr1000km\tinstrComp\tobject\n";
    EXPECT_EQ(written({}, "BJD"), "BJD" + rest);
    EXPECT_EQ(written({}, ""), rest);
    EXPECT_EQ(written({}, "a\tb "), "a\tb " + rest);
}

// The old file goes and a new one comes: another name of the old file still shows the old bytes.
TEST(LightCurve, OldFileIsRemovedFirst)
{
    const TemporaryFolder folder;
    const std::string path = folder / "a.txt";
    makeFile(path, std::string(5000, 'x'));
    std::filesystem::create_hard_link(path, folder / "same.txt");
    SaveLightCurve(path, {}, "JD geocentric");
    EXPECT_EQ(bytesOf(path), columnLine);
    EXPECT_EQ(bytesOf(folder / "same.txt"), std::string(5000, 'x'));
}

TEST(LightCurve, WhatCannotBeWrittenIsPassedOver)
{
    expectSilence([](const std::string& path) {
        SaveLightCurve(path, {trackNamed("N", {{.m = 9.5}})}, "JD geocentric");
    });
}

TEST(LightCurve, ColumnHeaderOfATrackTable)
{
    EXPECT_EQ(getHeadLightCurve(),
              "N:Int\tNBl:Int\tName:Text\tdate:Date\ttime:Time\tmjd:Float:day\ttime_bjd:Time\tbjd:Float:day\t"
              "RA:Float:deg\tDE:Float:deg\tX_f:Float:pix\tY_f:Float:pix\t"
              "m:Float:mag\tmEnsemble:Float:mag\tmInstr:Float:mag\tmInstrComp:Float:mag\t"
              "A:Float\tAsegm:Float\tAstrob:Float\t"
              "SNRafit:Float\tSNRasegm:Float\tSNRpeak:Float\t"
              "filtr:Text\tMTYPE:Text\tCNAME:Text\tCMAG:Text\tKNAME:Text\tKMAG:Text\tCHART:Text\t"
              "FWHM:Float:pix\tRadius:Float\tSigFit:Float:pix\tRMSFit:Float:ADU\t"
              "Exc:Float\tWidth:Float\tiF:Int\tiB:Int\tQRVID:Text\t"
              "Draw:Bool");
}

TEST(LightCurveSink, NothingIsRemovedBeforeItIsSaved)
{
    const TemporaryFolder folder;
    const std::string path = folder / "a.txt";
    makeFile(path, "old");
    std::filesystem::create_hard_link(path, folder / "same.txt");
    LightCurveSink sink(path, "JD geocentric");
    const TrackVtorichka track = trackNamed("N", {{.m = 9.5}});
    sink.add(track);
    EXPECT_EQ(bytesOf(path), "old");
    EXPECT_TRUE(sink.save());
    EXPECT_EQ(bytesOf(path), written({track}));
    EXPECT_EQ(bytesOf(folder / "same.txt"), "old");
}

TEST(LightCurveSink, WithoutATrackItWritesTheColumnLine)
{
    EXPECT_EQ(
        writtenBy([](const std::string& path) { EXPECT_TRUE(LightCurveSink(path, "JD geocentric").save()); }),
        columnLine);
}

TEST(LightCurveSink, MegabytesGoOutBeforeItIsSaved)
{
    const TemporaryFolder folder;
    const std::string path = folder / "a.txt";
    makeFile(path, std::string(5000000, 'x'));
    LightCurveSink sink(path, "JD geocentric");
    TrackVtorichka track = trackNamed("N", {});
    track.Marks.resize(20000);
    sink.add(track);
    EXPECT_EQ(bytesOf(path).size(), std::size_t{1} << 20);
    EXPECT_TRUE(sink.save());
    const std::string line = "2400000.5000000\t0.00000\t0.00000\t0.00000\t0.00000\t0.00000\tN\t\n";
    EXPECT_TRUE(bytesOf(path) == columnLine + repeated(line, 20000));
}

TEST(LightCurveSink, WhatCannotBeWrittenIsPassedOver)
{
    expectSilence([](const std::string& path) {
        LightCurveSink sink(path, "JD geocentric");
        TrackVtorichka track = trackNamed("N", {});
        track.Marks.resize(20000);
        sink.add(track);
        EXPECT_TRUE(sink.save());
    });
}
