#include "formats/variable_star_tables.h"

#include "support/failed_writes.h"
#include "support/no_room.h"
#include "support/temporary_folder.h"
#include "support/tracks.h"

#include <gtest/gtest.h>

#include <cstddef>
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

// What a write leaves in a file.
std::string written(const std::function<void(const std::string&)>& write)
{
    const TemporaryFolder folder;
    write(folder / "a.txt");
    return bytesOf(folder / "a.txt");
}

TLocPhotoBlob blob(const TRecLabelPervichka_File& mark, const std::string& pathFit = "")
{
    TLocPhotoBlob result;
    result.Head.PathFit = pathFit;
    result.Mark = mark;
    return result;
}

// A blob of that instrumental magnitude.
TLocPhotoBlob star(double magnitude)
{
    return blob({.Spare1 = magnitude});
}

const TrackVtorichka oneTrack = trackNamed("N", {{.mInstr = -7.125, .date = 60000, .time = 0.5, .m = 9.5}});
const Blobs oneBlob = {blob({.date = 60000,
                             .time = 0.5,
                             .Spare1 = -7.125,
                             .mEnsemble = 9.5,
                             .Spare5 = 0.25,
                             .SpareText = "V1",
                             .KNAME = "K1"},
                            "/data/a.fit")};

// Writers that remove the old file and pass over what they cannot write.
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

// A light curve of one star, read into a list.
Blobs readCurve(const std::string& bytes, bool withHeader, Blobs blobs = {})
{
    const TemporaryFolder folder;
    makeFile(folder / "a.txt", bytes);
    lVarSLightCurvesVO(folder / "a.txt", withHeader, blobs);
    return blobs;
}

void expectBlob(const TLocPhotoBlob& read, int date, double time, double magnitude)
{
    EXPECT_EQ(int(read.Mark.date), date);
    EXPECT_EQ(double(read.Mark.time), time);
    EXPECT_EQ(double(read.Mark.mEnsemble), magnitude);
}

void expectEntry(const TBrightnesEntry& entry, int I1, int I2, double D1, double D2, double D3)
{
    EXPECT_EQ(entry.I1, I1);
    EXPECT_EQ(entry.I2, I2);
    EXPECT_EQ(entry.D1, D1);
    EXPECT_EQ(entry.D2, D2);
    EXPECT_EQ(entry.D3, D3);
}

struct InstrumentalTable
{
    double value;
    Frames frames;
};

// An instrumental table, read over what was there.
InstrumentalTable readInstrumental(const std::string& bytes, InstrumentalTable table = {})
{
    const TemporaryFolder folder;
    makeFile(folder / "a.txt", bytes);
    lInstrMag(folder / "a.txt", table.value, table.frames);
    return table;
}

const InstrumentalTable oldTable = {7.5, {{"old", {{1, 2, 3.0, 4.0, 5.0}}}}};

void expectOldTable(const InstrumentalTable& table)
{
    EXPECT_EQ(table.value, 7.5);
    ASSERT_EQ(table.frames.size(), 1u);
    EXPECT_EQ(table.frames[0].name, "old");
    ASSERT_EQ(table.frames[0].entries.size(), 1u);
    expectEntry(table.frames[0].entries[0], 1, 2, 3.0, 4.0, 5.0);
}

} // namespace

TEST(VariableStarTables, NewRecords)
{
    expectEntry(TBrightnesEntry{}, 0, 0, 0.0, 0.0, 0.0);
    const TFrameBrightnes frame;
    EXPECT_EQ(frame.name, "");
    EXPECT_TRUE(frame.entries.empty());
}

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
    EXPECT_EQ(written([](const std::string& path) { SaveManyInstr(path, oneTrack); }),
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
    EXPECT_EQ(written([&](const std::string& path) { SaveManyInstr(path, track); }),
              "JD+time\tm_cat\tmi_psf\tmi_strobe\tm_apert\tmi_apert\n"
              "2457878.7654320998\t-0.000\t12.346\n"
              "2460000.6234567799\t100.000\t0.000\n"
              "2400000.5000000000\t0.000\t-1.500\n");
}

TEST(SaveManyInstr, TrackWithoutMarksIsTheColumnLineAlone)
{
    EXPECT_EQ(written([](const std::string& path) {
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
        EXPECT_EQ(written([&](const std::string& path) { SaveInstrVO(path, track, row.factor); }),
                  std::string("JD\tmi_apert\n") + row.time + "\t-7.126\n");
    }
}

TEST(SaveInstrVO, EachMarkHasItsLine)
{
    const TrackVtorichka track = trackNamed(
        "N", {{.mInstr = 2.0, .date = 60001, .time = 0.5}, {.mInstr = 1.0, .date = 60000, .time = 0.0}});
    EXPECT_EQ(written([&](const std::string& path) { SaveInstrVO(path, track, 1.0); }),
              "JD\tmi_apert\n"
              "2460002.0000000000\t2.000\n"
              "2460000.5000000000\t1.000\n");
    EXPECT_EQ(written([](const std::string& path) {
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
    EXPECT_EQ(written([&](const std::string& path) { smI(path, blobs); }),
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
    EXPECT_EQ(written([&](const std::string& path) { sVarSLightCurvesVO(path, blobs, "MJD", true); }),
              "MJD\tMag\tErrMag\tPathFit\n" + lines);
    EXPECT_EQ(written([&](const std::string& path) { sVarSLightCurvesVO(path, blobs, "", true); }),
              "\tMag\tErrMag\tPathFit\n" + lines);
    EXPECT_EQ(written([&](const std::string& path) { sVarSLightCurvesVO(path, blobs, "MJD", false); }),
              lines);
}

TEST(VarSLightCurvesVO, EmptyList)
{
    EXPECT_EQ(written([](const std::string& path) { sVarSLightCurvesVO(path, {}, "JD", true); }),
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
    EXPECT_EQ(written([&](const std::string& path) { sVarSLightCurvesVO(path, {one}, "JD", false); }),
              "60000.5000000\t0.00000\t0.00000\t\n");
}

TEST(VarSLightCurvesVOReader, LinesWithAndWithoutHeader)
{
    const std::string lines = "57878.2654321\t12.34568\t0.01000\ta.fit\n"
                              "60001.0000000\t-1.50000\t0.00000\tb.fit\n";
    for (const bool withHeader : {true, false}) {
        SCOPED_TRACE(withHeader);
        const Blobs blobs = readCurve(withHeader ? "MJD\tMag\tErrMag\tPathFit\n" + lines : lines, withHeader);
        ASSERT_EQ(blobs.size(), 2u);
        expectBlob(blobs[0], 57878, 57878.2654321 - 57878, 12.34568);
        expectBlob(blobs[1], 60001, 0.0, -1.5);
        // Error and frame are not read.
        EXPECT_EQ(double(blobs[0].Mark.Spare5), 0.0);
        EXPECT_EQ(blobs[0].Head.PathFit, "");
        EXPECT_EQ(double(blobs[0].Mark.m), 0.0);
        EXPECT_EQ(blobs[0].Head.date, 0);
        EXPECT_EQ(std::string(blobs[0].Mark.filtr), "R");
    }
}

TEST(VarSLightCurvesVOReader, HeaderTakenForALineReadsAsZeros)
{
    const Blobs blobs = readCurve("MJD\tMag\tErrMag\tPathFit\n60000.5\t9.5\t0\ta.fit\n", false);
    ASSERT_EQ(blobs.size(), 2u);
    expectBlob(blobs[0], 0, 0.0, 0.0);
    expectBlob(blobs[1], 60000, 0.5, 9.5);
}

TEST(VarSLightCurvesVOReader, LineTakenForTheHeaderIsLost)
{
    const Blobs blobs = readCurve("60000.5\t9.5\n60001.5\t8.5\n", true);
    ASSERT_EQ(blobs.size(), 1u);
    expectBlob(blobs[0], 60001, 0.5, 8.5);
}

TEST(VarSLightCurvesVOReader, WithoutDataLinesTheListIsEmpty)
{
    const Blobs old = {star(1.0), star(2.0)};
    EXPECT_TRUE(readCurve("MJD\tMag\tErrMag\tPathFit\n", true, old).empty());
    EXPECT_TRUE(readCurve("MJD\tMag\tErrMag\tPathFit", true, old).empty());
    EXPECT_TRUE(readCurve("", true, old).empty());
    EXPECT_TRUE(readCurve("", false, old).empty());
    const TemporaryFolder folder;
    for (const bool withHeader : {true, false}) {
        Blobs blobs = old;
        lVarSLightCurvesVO(folder / "missing.txt", withHeader, blobs);
        EXPECT_TRUE(blobs.empty());
        blobs = old;
        lVarSLightCurvesVO(folder.path(), withHeader, blobs);
        EXPECT_TRUE(blobs.empty());
    }
}

TEST(VarSLightCurvesVOReader, ListIsResizedAndKeepsWhatIsNotRead)
{
    const Blobs old = {
        blob({.date = 1, .time = 0.125, .Spare1 = 1.5, .mEnsemble = 7.0, .KNAME = "K"}, "old.fit"), star(2.5),
        star(3.5)};
    const Blobs fewer = readCurve("60000.5\t9.5\t0.25\tnew.fit\n60001.25\t8.5\n", false, old);
    ASSERT_EQ(fewer.size(), 2u);
    expectBlob(fewer[0], 60000, 0.5, 9.5);
    EXPECT_EQ(double(fewer[0].Mark.Spare1), 1.5);
    EXPECT_EQ(std::string(fewer[0].Mark.KNAME), "K");
    EXPECT_EQ(fewer[0].Head.PathFit, "old.fit");
    expectBlob(fewer[1], 60001, 0.25, 8.5);
    EXPECT_EQ(double(fewer[1].Mark.Spare1), 2.5);

    const Blobs more = readCurve("1.5\t1\n2.5\t2\n3.5\t3\n4.5\t4\n", false, old);
    ASSERT_EQ(more.size(), 4u);
    expectBlob(more[3], 4, 0.5, 4.0);
    EXPECT_EQ(double(more[2].Mark.Spare1), 3.5);
    EXPECT_EQ(double(more[3].Mark.Spare1), 0.0);
}

TEST(VarSLightCurvesVOReader, ShortAndOddLines)
{
    const struct
    {
        const char* line;
        int date;
        double time;
        double magnitude;
    } rows[] = {
        {"60000.5", 60000, 0.5, 0.0},
        {"60000.5\t", 60000, 0.5, 0.0},
        {"\t9.5", 0, 0.0, 9.5},
        {"60000.5\t\t0.25", 60000, 0.5, 0.0},
        {"", 0, 0.0, 0.0},
        {"\t\t", 0, 0.0, 0.0},
        {"abc\tdef", 0, 0.0, 0.0},
        {"60000.5abc\t9.5mag", 60000, 0.5, 9.5},
        {" 60000.5 \t 9.5 ", 60000, 0.5, 9.5},
        {"60000,5\t9,5", 60000, 0.0, 9.0},
        {"60000.5 9.5", 60000, 0.5, 0.0},
        {"6.00005e4\t95e-1", 60000, 0.5, 9.5},
        {"60000.5\t9.5\r", 60000, 0.5, 9.5},
        {"60000.5\t9.5\tx\ty\tz\tw", 60000, 0.5, 9.5},
        {"0.25\t0", 0, 0.25, 0.0},
        // Beyond the range of a day number: the nearest end.
        {"1e12\t1", 2147483647, 0.0, 1.0},
        {"2147483648.5\t1", 2147483647, 0.5, 1.0},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.line);
        const Blobs old = {blob({.date = 1, .time = 0.125, .mEnsemble = 7.0}),
                           blob({.date = 1, .time = 0.125, .mEnsemble = 7.0})};
        const Blobs blobs = readCurve(std::string("50000.25\t5.5\n") + row.line + "\n", false, old);
        ASSERT_EQ(blobs.size(), 2u);
        expectBlob(blobs[0], 50000, 0.25, 5.5);
        expectBlob(blobs[1], row.date, row.time, row.magnitude);
    }
}

TEST(VarSLightCurvesVOReader, ReadsWhatWasWritten)
{
    const TemporaryFolder folder;
    const Blobs blobs = {blob({.date = 57878, .time = 0.2654321, .mEnsemble = 12.34567}),
                         blob({.date = 60000, .time = 0.5, .mEnsemble = -1.5})};
    sVarSLightCurvesVO(folder / "a.txt", blobs, "MJD", true);
    Blobs read;
    lVarSLightCurvesVO(folder / "a.txt", true, read);
    ASSERT_EQ(read.size(), 2u);
    EXPECT_EQ(int(read[0].Mark.date), 57878);
    EXPECT_NEAR(double(read[0].Mark.time), 0.2654321, 1e-10);
    EXPECT_EQ(double(read[0].Mark.mEnsemble), 12.34567);
    expectBlob(read[1], 60000, 0.5, -1.5);
}

TEST(VarSLightCurvesVE, LinesBelowTheColumnLine)
{
    const Blobs blobs = {
        blob({.date = 57878, .time = 0.2654321, .m = 1.0, .mEnsemble = 12.3456789, .Spare5 = 0.01}, "a.fit"),
        blob({.date = 60000, .time = 0.99999999, .mEnsemble = -1.5}), blob({})};
    const std::string lines = "57878.2654321\t12.34568\n"
                              "60001.0000000\t-1.50000\n"
                              "0.0000000\t0.00000\n";
    EXPECT_EQ(written([&](const std::string& path) { sVarSLightCurvesVE(path, blobs, "JD"); }),
              "JD\tMag\n" + lines);
    EXPECT_EQ(written([&](const std::string& path) { sVarSLightCurvesVE(path, blobs, ""); }),
              "\tMag\n" + lines);
    EXPECT_EQ(written([](const std::string& path) { sVarSLightCurvesVE(path, {}, "MJD"); }), "MJD\tMag\n");
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
    EXPECT_EQ(written([&](const std::string& path) { sInstrMag(path, 1.005, frames); }),
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
        EXPECT_EQ(written([&](const std::string& path) { sInstrMag(path, row.value, {}); }), row.text);
    }
}

TEST(SInstrMag, EmptyListIsTheFirstLineAlone)
{
    EXPECT_EQ(written([](const std::string& path) {
                  makeFile(path, "old\nold\n");
                  sInstrMag(path, 2.5, Frames{});
              }),
              "2.50\n");
}

TEST(LInstrMag, ValueAndFrames)
{
    const InstrumentalTable table =
        readInstrumental("1.25\n"
                         "a.fit:1;2;0.500000;0.250000;0.125000\t-3;4;-1.5;12.5;0\n"
                         "b.fit:5;6;7;8;9\n"
                         "c.fit:\n");
    EXPECT_EQ(table.value, 1.25);
    ASSERT_EQ(table.frames.size(), 3u);
    EXPECT_EQ(table.frames[0].name, "a.fit");
    ASSERT_EQ(table.frames[0].entries.size(), 2u);
    expectEntry(table.frames[0].entries[0], 1, 2, 0.5, 0.25, 0.125);
    expectEntry(table.frames[0].entries[1], -3, 4, -1.5, 12.5, 0.0);
    EXPECT_EQ(table.frames[1].name, "b.fit");
    ASSERT_EQ(table.frames[1].entries.size(), 1u);
    expectEntry(table.frames[1].entries[0], 5, 6, 7.0, 8.0, 9.0);
    EXPECT_EQ(table.frames[2].name, "c.fit");
    EXPECT_TRUE(table.frames[2].entries.empty());
}

TEST(LInstrMag, MissingFileLeavesBoth)
{
    const TemporaryFolder folder;
    InstrumentalTable table = oldTable;
    lInstrMag(folder / "missing.txt", table.value, table.frames);
    expectOldTable(table);
}

TEST(LInstrMag, OneLineSetsTheValueAlone)
{
    for (const char* bytes : {"7.5\n", "7.5", "7.5\r\n", "  7.5 mag\n"}) {
        SCOPED_TRACE(bytes);
        InstrumentalTable table = oldTable;
        table.value = 1.0;
        expectOldTable(readInstrumental(bytes, table));
    }
    InstrumentalTable odd = readInstrumental("abc\n", oldTable);
    EXPECT_EQ(odd.value, 0.0);
    odd.value = 7.5;
    expectOldTable(odd);
}

TEST(LInstrMag, EmptyFileLeavesTheList)
{
    const InstrumentalTable table = readInstrumental("", oldTable);
    ASSERT_EQ(table.frames.size(), 1u);
    EXPECT_EQ(table.frames[0].name, "old");
    EXPECT_EQ(table.frames[0].entries.size(), 1u);
}

TEST(LInstrMag, FramesAreReplaced)
{
    InstrumentalTable old = oldTable;
    old.frames.resize(3);
    const InstrumentalTable table = readInstrumental("1\na.fit:5;6;7;8;9\n", old);
    EXPECT_EQ(table.value, 1.0);
    ASSERT_EQ(table.frames.size(), 1u);
    EXPECT_EQ(table.frames[0].name, "a.fit");
    ASSERT_EQ(table.frames[0].entries.size(), 1u);
    expectEntry(table.frames[0].entries[0], 5, 6, 7.0, 8.0, 9.0);
}

TEST(LInstrMag, OddLines)
{
    const struct
    {
        const char* line;
        const char* name;
        std::size_t entries;
    } rows[] = {
        {"", "", 0},
        {"a.fit", "a.fit", 0},
        {"a.fit:", "a.fit", 0},
        {":1;2;3;4;5", "", 1},
        {":", "", 0},
        {"a.fit:\t\t", "a.fit", 0},
        {"a.fit:1;2;3;4;5\t", "a.fit", 1},
        {"a.fit:1;2;3;4;5\t1;2;3;4;5\t1;2;3;4;5", "a.fit", 3},
        {"a.fit:1;2;3;4;5\r", "a.fit", 1},
        {" a.fit : 1;2;3;4;5", " a.fit ", 1},
        {"1;2;3;4;5", "1;2;3;4;5", 0},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.line);
        const InstrumentalTable table =
            readInstrumental(std::string("1.5\nfirst.fit:9;9;9;9;9\n") + row.line + "\nlast.fit:5;6;7;8;9\n");
        ASSERT_EQ(table.frames.size(), 3u);
        EXPECT_EQ(table.frames[0].name, "first.fit");
        EXPECT_EQ(table.frames[1].name, row.name);
        ASSERT_EQ(table.frames[1].entries.size(), row.entries);
        for (const TBrightnesEntry& entry : table.frames[1].entries) {
            expectEntry(entry, 1, 2, 3.0, 4.0, 5.0);
        }
        EXPECT_EQ(table.frames[2].name, "last.fit");
        EXPECT_EQ(table.frames[2].entries.size(), 1u);
    }
}

// A colon in the name ends it, and what stands before the next is taken for the entries.
TEST(LInstrMag, NameEndsAtItsFirstColon)
{
    const InstrumentalTable table = readInstrumental("1.5\nC:a.fit:1;2;3;4;5\n");
    ASSERT_EQ(table.frames.size(), 1u);
    EXPECT_EQ(table.frames[0].name, "C");
    ASSERT_EQ(table.frames[0].entries.size(), 1u);
    expectEntry(table.frames[0].entries[0], 0, 0, 0.0, 0.0, 0.0);
}

TEST(LInstrMag, ReadsWhatWasWritten)
{
    const TemporaryFolder folder;
    sInstrMag(folder / "a.txt", -0.25,
              {{"/d/a.fit", {{1, 2, 0.5, 0.25, 0.125}, {3, 4, 5.5, 6.5, 7.5}}}, {"b", {}}});
    InstrumentalTable table = oldTable;
    lInstrMag(folder / "a.txt", table.value, table.frames);
    EXPECT_EQ(table.value, -0.25);
    ASSERT_EQ(table.frames.size(), 2u);
    EXPECT_EQ(table.frames[0].name, "a.fit");
    ASSERT_EQ(table.frames[0].entries.size(), 2u);
    expectEntry(table.frames[0].entries[0], 1, 2, 0.5, 0.25, 0.125);
    expectEntry(table.frames[0].entries[1], 3, 4, 5.5, 6.5, 7.5);
    EXPECT_EQ(table.frames[1].name, "b");
    EXPECT_TRUE(table.frames[1].entries.empty());
}

TEST(PutInstrMag, OneEntry)
{
    const struct
    {
        const char* text;
        TBrightnesEntry entry;
    } rows[] = {
        {"1;2;0.5;0.25;0.125", {1, 2, 0.5, 0.25, 0.125}},
        {"1;2;0.5;0.25;0.125\t", {1, 2, 0.5, 0.25, 0.125}},
        {"1;2;0.5;0.25;0.125;", {1, 2, 0.5, 0.25, 0.125}},
        {"1;2;0.5;0.25;0.125;6;7", {1, 2, 0.5, 0.25, 0.125}},
        {"-1;+2;-0.5;+0.25;1e3", {-1, 2, -0.5, 0.25, 1000.0}},
        {" 1; 2; 0.5; 0.25; 0.125", {1, 2, 0.5, 0.25, 0.125}},
        {"1.9;2abc;0.5mag;.25;5.", {1, 2, 0.5, 0.25, 5.0}},
        {"a;b;c;d;e", {}},
        {";;;;", {}},
        {";2;;0.25;", {0, 2, 0.0, 0.25, 0.0}},
        {"1", {1, 0, 0.0, 0.0, 0.0}},
        {"1;2;0.5", {1, 2, 0.5, 0.0, 0.0}},
        {"1;2;0.5;0.25", {1, 2, 0.5, 0.25, 0.0}},
        {"1,2,0.5", {1, 0, 0.0, 0.0, 0.0}},
        {" ", {}},
        // Integers are cut to 32 bits.
        {"5000000000;-5000000000;1;1;1", {705032704, -705032704, 1.0, 1.0, 1.0}},
        {"4294967295;2147483648;1;1;1", {-1, -2147483647 - 1, 1.0, 1.0, 1.0}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        TFrameBrightnes frame{"a.fit", {{7, 7, 7.0, 7.0, 7.0}, {8, 8, 8.0, 8.0, 8.0}}};
        PutInstrMag(row.text, frame);
        EXPECT_EQ(frame.name, "a.fit");
        ASSERT_EQ(frame.entries.size(), 1u);
        const TBrightnesEntry& wanted = row.entry;
        expectEntry(frame.entries[0], wanted.I1, wanted.I2, wanted.D1, wanted.D2, wanted.D3);
    }
}

TEST(PutInstrMag, SeveralEntries)
{
    TFrameBrightnes frame;
    PutInstrMag("1;2;3;4;5\t\t6;7\tx\t", frame);
    ASSERT_EQ(frame.entries.size(), 4u);
    expectEntry(frame.entries[0], 1, 2, 3.0, 4.0, 5.0);
    expectEntry(frame.entries[1], 0, 0, 0.0, 0.0, 0.0);
    expectEntry(frame.entries[2], 6, 7, 0.0, 0.0, 0.0);
    expectEntry(frame.entries[3], 0, 0, 0.0, 0.0, 0.0);
}

TEST(PutInstrMag, EmptyTextHasNoEntries)
{
    TFrameBrightnes frame{"a.fit", {{7, 7, 7.0, 7.0, 7.0}}};
    PutInstrMag("", frame);
    EXPECT_TRUE(frame.entries.empty());
    EXPECT_EQ(frame.name, "a.fit");
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
        EXPECT_EQ(written([&](const std::string& path) {
                      sV_C_FormatMuniwin(path, "V", objects, {stars, stars});
                  }),
                  row.head + second + row.lines);
    }
}

TEST(SVCFormatMuniwin, FirstFrameNamesTheColumnsOfAll)
{
    const Blobs objects = {star(10.0), star(10.0), star(10.0)};
    const Series series = {{star(11.0)}, {star(12.0), star(13.0)}, {}};
    EXPECT_EQ(written([&](const std::string& path) { sV_C_FormatMuniwin(path, "", objects, series); }),
              "JD\tV-C\t\n"
              "Aperture: N * FWHM, Filter : , JD : geocentric\n"
              "0.0000000\t-1.00000\t\n"
              "0.0000000\t-2.00000\t-3.00000\t-1.00000\t\n"
              "0.0000000\t\n");
}

TEST(SVCFormatMuniwin, NoObjectsAreTheTwoLinesAlone)
{
    EXPECT_EQ(written([](const std::string& path) {
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
    EXPECT_EQ(written([&](const std::string& path) { sFormatMuniwin(path, objects, series); }),
              "JD\tV 1\tC\tK 1\t\n"
              "57878.2654321\t-7.12500\t-8.50000\t-9.50000\t\n"
              "60001.0000000\t12.34568\t-8.25000\t0.00000\t\n");
}

TEST(SFormatMuniwin, FrameWithoutStarsLeavesTheirColumnsAway)
{
    const Blobs objects = {blob({.date = 1, .Spare1 = 1.0, .SpareText = "V"}),
                           blob({.date = 2, .Spare1 = 2.0}), blob({.date = 3, .Spare1 = 3.0})};
    const TLocPhotoBlob one = blob({.Spare1 = 5.0, .KNAME = "C"});
    EXPECT_EQ(written([&](const std::string& path) {
                  sFormatMuniwin(path, objects, {{one}, {}, {one, one}});
              }),
              "JD\tV\tC\t\n"
              "1.0000000\t1.00000\t5.00000\t\n"
              "2.0000000\t2.00000\t\n"
              "3.0000000\t3.00000\t5.00000\t5.00000\t\n");
    EXPECT_EQ(written([&](const std::string& path) {
                  sFormatMuniwin(path, objects, {{}, {one}});
              }),
              "JD\tV\t\n"
              "1.0000000\t1.00000\t\n"
              "2.0000000\t2.00000\t5.00000\t\n"
              "3.0000000\t3.00000\t\n");
}
