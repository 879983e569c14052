#include "formats/variable_star_tables.h"

#include "support/failed_writes.h"
#include "support/no_room.h"
#include "support/photo_blobs.h"
#include "support/temporary_folder.h"
#include "support/tracks.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <limits>
#include <string>
#include <vector>

using namespace tavelinUtils;

namespace {

using Blobs = std::vector<TLocPhotoBlob>;
using Series = std::vector<std::vector<TLocPhotoBlob>>;
using Frames = std::vector<TFrameBrightnes>;

const TrackVtorichka oneTrack = trackNamed("N", {{.mInstr = -7.125, .date = 60000, .time = 0.5, .m = 9.5}});
const Blobs oneBlob = {blob({.date = 60000,
                             .time = 0.5,
                             .Spare1 = -7.125,
                             .mEnsemble = 9.5,
                             .Spare5 = 0.25,
                             .SpareText = "V1",
                             .KNAME = "K1"},
                            "/data/a.fit")};

// Writers that remove the old file and ignore what they cannot write.
struct SilentWriter
{
    const char* name;
    std::function<void(const std::string&)> write;
    std::string bytes;
};

const std::vector<SilentWriter> silentWriters = {
    {"smI", [](const std::string& path) { smI(path, oneBlob); }, "-7.12500\n"},
    {"sVarSLightCurvesVO", [](const std::string& path) { sVarSLightCurvesVO(path, oneBlob, "MJD", true); },
     "MJD\tMag\tErrMag\tPathFit\n60000.5000000\t9.50000\t0.25000\ta.fit\n"},
    {"sVarSLightCurvesVE", [](const std::string& path) { sVarSLightCurvesVE(path, oneBlob, "MJD"); },
     "MJD\tMag\n60000.5000000\t9.50000\n"},
    {"sInstrMag",
     [](const std::string& path) {
         sInstrMag(path, 1.5, {{"/d/a.fit", {{1, 2, 0.5, 0.25, 0.125}}}});
     },
     "1.50\na.fit:1;2;0.500000;0.250000;0.125000\n"},
    {"sFormatMuniwin", [](const std::string& path) { sFormatMuniwin(path, oneBlob, {oneBlob}); },
     "JD\tV1\tK1\t\n60000.5000000\t-7.12500\t-7.12500\t\n"},
    {"sV_C_FormatMuniwin", [](const std::string& path) { sV_C_FormatMuniwin(path, "V", oneBlob, {oneBlob}); },
     "JD\tV-C\t\nAperture: N * FWHM, Filter : V, JD : geocentric\n60000.5000000\t0.00000\t\n"},
};

} // namespace

TEST(VariableStarTables, WriterRemovesTheOldFileFirst)
{
    for (const SilentWriter& writer : silentWriters) {
        SCOPED_TRACE(writer.name);
        const TemporaryFolder folder;
        const std::string path = folder / "a.txt";
        writer.write(path);
        EXPECT_EQ(bytesOf(path), writer.bytes);
        makeFile(path, std::string(5000, 'x'));
        std::filesystem::create_hard_link(path, folder / "same.txt");
        writer.write(path);
        EXPECT_EQ(bytesOf(path), writer.bytes);
        EXPECT_EQ(bytesOf(folder / "same.txt"), std::string(5000, 'x'));
    }
}

TEST(VariableStarTables, WhatCannotBeWrittenIsPassedOver)
{
    for (const SilentWriter& writer : silentWriters) {
        SCOPED_TRACE(writer.name);
        expectSilence(writer.write);
    }
}

TEST(SaveManyInstr, ThreeFieldsBelowSixColumns)
{
    EXPECT_EQ(writtenBy([](const std::string& path) { SaveManyInstr(path, oneTrack); }),
              "JD+time\tm_cat\tmi_psf\tmi_strobe\tm_apert\tmi_apert\n"
              "2460001.0000000000\t9.500\t-7.125\n");
}

TEST(SaveManyInstr, DigitsOfEachField)
{
    const TrackVtorichka track = trackNamed("N", {{.mInstr = 12.3456,
                                                   .mInstr1000 = 1.0,
                                                   .date = 57878,
                                                   .time = 0.2654321,
                                                   .m = -0.0001,
                                                   .mEnsemble = 2.0},
                                                  {.date = 60000, .time = 0.12345678, .m = 99.9996},
                                                  {.mInstr = -1.5, .date = 0, .time = 0.0}});
    EXPECT_EQ(writtenBy([&](const std::string& path) { SaveManyInstr(path, track); }),
              "JD+time\tm_cat\tmi_psf\tmi_strobe\tm_apert\tmi_apert\n"
              "2457878.7654320998\t-0.000\t12.346\n"
              "2460000.6234567799\t100.000\t0.000\n"
              "2400000.5000000000\t0.000\t-1.500\n");
}

TEST(SaveManyInstr, TrackWithoutMarksIsTheColumnLineAlone)
{
    EXPECT_EQ(writtenBy([](const std::string& path) {
                  makeFile(path, std::string(5000, 'x'));
                  SaveManyInstr(path, trackNamed("N", {}));
              }),
              "JD+time\tm_cat\tmi_psf\tmi_strobe\tm_apert\tmi_apert\n");
}

TEST(SaveManyInstr, WhatCannotBeWrittenIsRaised)
{
    expectCode7([](const std::string& path) { SaveManyInstr(path, oneTrack); });
    expectCode7([](const std::string& path) { SaveManyInstr(path, TrackVtorichka{}); });
}

TEST(SaveInstrVO, TimeIsMultipliedByTheFactor)
{
    const struct
    {
        double factor;
        const char* time;
    } rows[] = {
        {1.0, "2457878.7654320998"}, {2.0, "4915757.5308641996"},   {0.001, "2457.8787654321"},
        {0.0, "0.0000000000"},       {-1.0, "-2457878.7654320998"},
    };
    const TrackVtorichka track =
        trackNamed("N", {{.mInstr = -7.1256, .date = 57878, .time = 0.2654321, .m = 9.5}});
    for (const auto& row : rows) {
        SCOPED_TRACE(row.time);
        EXPECT_EQ(writtenBy([&](const std::string& path) { SaveInstrVO(path, track, row.factor); }),
                  std::string("JD\tmi_apert\n") + row.time + "\t-7.126\n");
    }
}

TEST(SaveInstrVO, EachMarkHasItsLine)
{
    const TrackVtorichka track = trackNamed(
        "N", {{.mInstr = 2.0, .date = 60001, .time = 0.5}, {.mInstr = 1.0, .date = 60000, .time = 0.0}});
    EXPECT_EQ(writtenBy([&](const std::string& path) { SaveInstrVO(path, track, 1.0); }),
              "JD\tmi_apert\n"
              "2460002.0000000000\t2.000\n"
              "2460000.5000000000\t1.000\n");
    EXPECT_EQ(writtenBy([](const std::string& path) {
                  makeFile(path, std::string(5000, 'x'));
                  SaveInstrVO(path, trackNamed("N", {}), 1.0);
              }),
              "JD\tmi_apert\n");
}

TEST(SaveInstrVO, WhatCannotBeWrittenIsRaised)
{
    expectCode7([](const std::string& path) { SaveInstrVO(path, oneTrack, 1.0); });
    expectCode7([](const std::string& path) { SaveInstrVO(path, TrackVtorichka{}, 1.0); });
}

TEST(SmI, OneMagnitudeALine)
{
    const Blobs blobs = {blob({.mInstr = 1.0, .m = 2.0, .Spare1 = -7.125, .mEnsemble = 3.0, .Spare2 = 4.0}),
                         star(12.3456789), star(0.0), star(-0.000001), star(100.0)};
    EXPECT_EQ(writtenBy([&](const std::string& path) { smI(path, blobs); }),
              "-7.12500\n12.34568\n0.00000\n-0.00000\n100.00000\n");
}

TEST(SmI, EmptyListLeavesNoOldLines)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.txt", "old\n");
    smI(folder / "a.txt", {});
    EXPECT_TRUE(!exists(folder / "a.txt") || bytesOf(folder / "a.txt").empty());
}

TEST(VarSLightCurvesVO, LinesBelowTheHeader)
{
    const Blobs blobs = {
        blob({.date = 57878,
              .time = 0.2654321,
              .m = 1.0,
              .mEnsemble = 12.3456789,
              .Spare2 = 2.0,
              .Spare5 = 0.01},
             "/data/night/a.fit"),
        blob({.date = 60000, .time = 0.99999999, .mEnsemble = -1.5, .Spare5 = 0.0000049}, "C:\\data\\b.fit"),
        blob({}, "c.fit"), blob({.date = -1, .time = 0.25}, "/data/"), blob({.Spare5 = -1.0}, "")};
    const std::string lines = "57878.2654321\t12.34568\t0.01000\ta.fit\n"
                              "60001.0000000\t-1.50000\t0.00000\tb.fit\n"
                              "0.0000000\t0.00000\t0.00000\tc.fit\n"
                              "-0.7500000\t0.00000\t0.00000\t\n"
                              "0.0000000\t0.00000\t-1.00000\t\n";
    EXPECT_EQ(writtenBy([&](const std::string& path) { sVarSLightCurvesVO(path, blobs, "MJD", true); }),
              "MJD\tMag\tErrMag\tPathFit\n" + lines);
    EXPECT_EQ(writtenBy([&](const std::string& path) { sVarSLightCurvesVO(path, blobs, "", true); }),
              "\tMag\tErrMag\tPathFit\n" + lines);
    EXPECT_EQ(writtenBy([&](const std::string& path) { sVarSLightCurvesVO(path, blobs, "MJD", false); }),
              lines);
}

TEST(VarSLightCurvesVO, EmptyList)
{
    EXPECT_EQ(writtenBy([](const std::string& path) { sVarSLightCurvesVO(path, {}, "JD", true); }),
              "JD\tMag\tErrMag\tPathFit\n");
    const TemporaryFolder folder;
    makeFile(folder / "a.txt", "old\n");
    sVarSLightCurvesVO(folder / "a.txt", {}, "JD", false);
    EXPECT_TRUE(!exists(folder / "a.txt") || bytesOf(folder / "a.txt").empty());
}

TEST(VarSLightCurvesVO, TimeIsNotThatOfTheHead)
{
    TLocPhotoBlob one = blob({.date = 60000, .time = 0.5, .bjd = 60001, .time_bjd = 0.25});
    one.Head.date = 50000;
    one.Head.time = 0.125;
    EXPECT_EQ(writtenBy([&](const std::string& path) { sVarSLightCurvesVO(path, {one}, "JD", false); }),
              "60000.5000000\t0.00000\t0.00000\t\n");
}

TEST(VarSLightCurvesVE, LinesBelowTheColumnLine)
{
    const Blobs blobs = {
        blob({.date = 57878, .time = 0.2654321, .m = 1.0, .mEnsemble = 12.3456789, .Spare5 = 0.01}, "a.fit"),
        blob({.date = 60000, .time = 0.99999999, .mEnsemble = -1.5}), blob({})};
    const std::string lines = "57878.2654321\t12.34568\n"
                              "60001.0000000\t-1.50000\n"
                              "0.0000000\t0.00000\n";
    EXPECT_EQ(writtenBy([&](const std::string& path) { sVarSLightCurvesVE(path, blobs, "JD"); }),
              "JD\tMag\n" + lines);
    EXPECT_EQ(writtenBy([&](const std::string& path) { sVarSLightCurvesVE(path, blobs, ""); }),
              "\tMag\n" + lines);
    EXPECT_EQ(writtenBy([](const std::string& path) { sVarSLightCurvesVE(path, {}, "MJD"); }), "MJD\tMag\n");
}

TEST(SInstrMag, ValueAndALineForEachFrame)
{
    const Frames frames = {
        {"/data/night/a.fit", {{1, 2, 0.5, 0.25, 0.125}, {-3, 2147483647, -1.5, 12.3456789, 0.0}}},
        {"C:\\data\\b.fit", {{0, 0, 0.0, -0.0000001, 1e6}}},
        {"c.fit", {}},
        {"/data/", {{4, 5, 6.0, 7.0, 8.0}}},
        {"", {}},
    };
    EXPECT_EQ(writtenBy([&](const std::string& path) { sInstrMag(path, 1.005, frames); }),
              "1.00\n"
              "a.fit:1;2;0.500000;0.250000;0.125000\t-3;2147483647;-1.500000;12.345679;0.000000\n"
              "b.fit:0;0;0.000000;-0.000000;1000000.000000\n"
              "c.fit:\n"
              ":4;5;6.000000;7.000000;8.000000\n"
              ":\n");
}

TEST(SInstrMag, ValueHasTwoDecimals)
{
    const struct
    {
        double value;
        const char* text;
    } rows[] = {
        {0.0, "0.00\n"}, {-1.5, "-1.50\n"}, {12.346, "12.35\n"}, {-0.001, "-0.00\n"}, {1e6, "1000000.00\n"}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(writtenBy([&](const std::string& path) { sInstrMag(path, row.value, {}); }), row.text);
    }
}

TEST(SInstrMag, EmptyListIsTheFirstLineAlone)
{
    EXPECT_EQ(writtenBy([](const std::string& path) {
                  makeFile(path, "old\nold\n");
                  sInstrMag(path, 2.5, Frames{});
              }),
              "2.50\n");
}

TEST(SetHeadVC, NamesOfTheDifferences)
{
    const struct
    {
        int count;
        const char* text;
    } rows[] = {
        {0, ""},
        {1, ""},
        {2, "V-C\t"},
        {3, "V-C\tV-K1\tC-K1\t"},
        {4, "V-C\tV-K1\tV-K2\tC-K1\tC-K2\tK1-K2\t"},
        {5, "V-C\tV-K1\tV-K2\tV-K3\tC-K1\tC-K2\tC-K3\tK1-K2\tK1-K3\tK2-K3\t"},
        {-1, ""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.count);
        EXPECT_EQ(setHeadV_C(row.count), row.text);
    }
}

TEST(SetHeadVC, SmallestCountNamesNothing)
{
    EXPECT_EQ(setHeadV_C(std::numeric_limits<int>::min()), "");
}

TEST(SetHeadVC, ManyStars)
{
    const std::string text = setHeadV_C(13);
    EXPECT_EQ(text.substr(0, 9), "V-C\tV-K1\t");
    const std::string end = "\tK9-K10\tK9-K11\tK10-K11\t";
    EXPECT_EQ(text.substr(text.size() - end.size()), end);
}

TEST(GetDataVC, DifferencesOfTheInstrumentalMagnitudes)
{
    const TLocPhotoBlob object = blob({.m = 1.0, .Spare1 = 10.0, .mEnsemble = 2.0});
    EXPECT_EQ(GetDataV_C(object, {}), "");
    EXPECT_EQ(GetDataV_C(object, {star(12.5)}), "-2.50000\t");
    EXPECT_EQ(GetDataV_C(object, {star(12.5), star(8.25)}), "-2.50000\t1.75000\t4.25000\t");
    EXPECT_EQ(GetDataV_C(object, {star(9.0), star(9.0), star(-1.0), star(10.000004)}),
              "1.00000\t1.00000\t11.00000\t-0.00000\t"
              "0.00000\t10.00000\t-1.00000\t"
              "10.00000\t-1.00000\t"
              "-11.00000\t");
}

TEST(SVCFormatMuniwin, TablesOfSoManyStars)
{
    const std::string second = "Aperture: N * FWHM, Filter : V, JD : geocentric\n";
    const Blobs objects = {blob({.date = 57878, .time = 0.2654321, .Spare1 = 10.0}),
                           blob({.date = 60000, .time = 0.99999999, .Spare1 = 10.5})};
    const struct
    {
        int stars;
        const char* head;
        const char* lines;
    } rows[] = {
        {0, "JD\t\n", "57878.2654321\t\n60001.0000000\t\n"},
        {1, "JD\tV-C\t\n", "57878.2654321\t-2.00000\t\n60001.0000000\t-1.50000\t\n"},
        {2, "JD\tV-C\tV-K1\tC-K1\t\n",
         "57878.2654321\t-2.00000\t-3.00000\t-1.00000\t\n60001.0000000\t-1.50000\t-2.50000\t-1.00000\t\n"},
        {4, "JD\tV-C\tV-K1\tV-K2\tV-K3\tC-K1\tC-K2\tC-K3\tK1-K2\tK1-K3\tK2-K3\t\n",
         "57878.2654321\t-2.00000\t-3.00000\t-4.00000\t-5.00000\t-1.00000\t-2.00000\t-3.00000\t-1.00000\t"
         "-2.00000\t-1.00000\t\n"
         "60001.0000000\t-1.50000\t-2.50000\t-3.50000\t-4.50000\t-1.00000\t-2.00000\t-3.00000\t-1.00000\t"
         "-2.00000\t-1.00000\t\n"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.stars);
        Blobs stars;
        for (int i = 0; i < row.stars; ++i) {
            stars.push_back(star(12.0 + i));
        }
        EXPECT_EQ(writtenBy([&](const std::string& path) {
                      sV_C_FormatMuniwin(path, "V", objects, {stars, stars});
                  }),
                  row.head + second + row.lines);
    }
}

TEST(SVCFormatMuniwin, FirstFrameNamesTheColumnsOfAll)
{
    const Blobs objects = {star(10.0), star(10.0), star(10.0)};
    const Series series = {{star(11.0)}, {star(12.0), star(13.0)}, {}};
    EXPECT_EQ(writtenBy([&](const std::string& path) { sV_C_FormatMuniwin(path, "", objects, series); }),
              "JD\tV-C\t\n"
              "Aperture: N * FWHM, Filter : , JD : geocentric\n"
              "0.0000000\t-1.00000\t\n"
              "0.0000000\t-2.00000\t-3.00000\t-1.00000\t\n"
              "0.0000000\t\n");
}

TEST(SVCFormatMuniwin, NoObjectsAreTheTwoLinesAlone)
{
    EXPECT_EQ(writtenBy([](const std::string& path) {
                  sV_C_FormatMuniwin(path, "Clear", {}, {{star(1.0), star(2.0)}});
              }),
              "JD\tV-C\tV-K1\tC-K1\t\n"
              "Aperture: N * FWHM, Filter : Clear, JD : geocentric\n");
}

TEST(SFormatMuniwin, ObjectAndStarsOfEachFrame)
{
    const Blobs objects = {
        blob({.date = 57878,
              .time = 0.2654321,
              .Spare1 = -7.125,
              .mEnsemble = 1.0,
              .SpareText = "V 1",
              .KNAME = "x"}),
        blob({.date = 60000, .time = 0.99999999, .Spare1 = 12.3456789, .SpareText = "other"})};
    const Series series = {
        {blob({.Spare1 = -8.5, .SpareText = "y", .KNAME = "C"}), blob({.Spare1 = -9.5, .KNAME = "K 1"})},
        {blob({.Spare1 = -8.25, .KNAME = "D"}), blob({.Spare1 = 0.0, .KNAME = "E"})}};
    EXPECT_EQ(writtenBy([&](const std::string& path) { sFormatMuniwin(path, objects, series); }),
              "JD\tV 1\tC\tK 1\t\n"
              "57878.2654321\t-7.12500\t-8.50000\t-9.50000\t\n"
              "60001.0000000\t12.34568\t-8.25000\t0.00000\t\n");
}

TEST(SFormatMuniwin, NoObjectsAreTheColumnLineWithoutTheirName)
{
    const TLocPhotoBlob star = blob({.Spare1 = 5.0, .KNAME = "C"});
    EXPECT_EQ(writtenBy([&](const std::string& path) { sFormatMuniwin(path, {}, {{star}}); }), "JD\t\tC\t\n");
    EXPECT_EQ(writtenBy([&](const std::string& path) { sFormatMuniwin(path, {}, {}); }), "JD\t\t\n");
}

TEST(SFormatMuniwin, FrameWithoutStarsLeavesTheirColumnsAway)
{
    const Blobs objects = {blob({.date = 1, .Spare1 = 1.0, .SpareText = "V"}),
                           blob({.date = 2, .Spare1 = 2.0}), blob({.date = 3, .Spare1 = 3.0})};
    const TLocPhotoBlob one = blob({.Spare1 = 5.0, .KNAME = "C"});
    EXPECT_EQ(writtenBy([&](const std::string& path) {
                  sFormatMuniwin(path, objects, {{one}, {}, {one, one}});
              }),
              "JD\tV\tC\t\n"
              "1.0000000\t1.00000\t5.00000\t\n"
              "2.0000000\t2.00000\t\n"
              "3.0000000\t3.00000\t5.00000\t5.00000\t\n");
    EXPECT_EQ(writtenBy([&](const std::string& path) {
                  sFormatMuniwin(path, objects, {{}, {one}});
              }),
              "JD\tV\t\n"
              "1.0000000\t1.00000\t\n"
              "2.0000000\t2.00000\t5.00000\t\n"
              "3.0000000\t3.00000\t\n");
}
