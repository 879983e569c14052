#include "formats/variable_star_tables.h"

#include "support/measured_marks.h"
#include "support/photo_blobs.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <vector>

using namespace tavelinUtils;

namespace {

using Blobs = std::vector<TLocPhotoBlob>;
using Frames = std::vector<TFrameBrightnes>;

// A light curve of one star, read into a list.
Blobs readCurve(const std::string& bytes, bool withHeader, Blobs blobs = {})
{
    readBy([&](const std::string& path) { lVarSLightCurvesVO(path, withHeader, blobs); }, bytes);
    return blobs;
}

void expectBlob(const TLocPhotoBlob& read, int date, double time, double magnitude)
{
    EXPECT_EQ(measured(read.Mark).date, date);
    EXPECT_EQ(measured(read.Mark).time, time);
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
    readBy([&](const std::string& path) { lInstrMag(path, table.value, table.frames); }, bytes);
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
        EXPECT_EQ(measured(blobs[0].Mark).m, 0.0);
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
    EXPECT_EQ(measured(read[0].Mark).date, 57878);
    EXPECT_NEAR(measured(read[0].Mark).time, 0.2654321, 1e-10);
    EXPECT_EQ(double(read[0].Mark.mEnsemble), 12.34567);
    expectBlob(read[1], 60000, 0.5, -1.5);
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

// A colon in the name ends it, and the text before the next colon is taken for the entries.
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
