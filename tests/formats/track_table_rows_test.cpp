#include "formats/track_table_rows.h"

#include "formats/track_table.h"

#include "support/same_bits.h"
#include "support/track_tables.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

using namespace tavelinUtils;

namespace {

using Mark = TRecLabelPervichka_File;

// All columns of marks.
constexpr std::string_view allNames =
    "date time mjd RA DE m mInstr mInstr1000 m_MPC X_bf Y_bf X_f Y_f SNcorrnotnorm corrnorm A Asegm Astrob "
    "SNRafit SNRasegm SNRpeak FWHM Radius SigFit RMSFit Angle Exc Length Width iF iB QRVID mEnsemble "
    "mInstrComp filtr MTYPE CNAME KNAME CHART";

// A mark and its entry of InterBlobs.
struct MarkWithBlob
{
    Mark mark{};
    TInterBlob blob{};
};

// What a row gives a new mark.
MarkWithBlob restored(const MarkRows& rows, std::size_t index)
{
    MarkWithBlob back;
    rows.restore(index, back.mark, back.blob);
    return back;
}

// A column of a mark as its text. That of mjd is made of date and time.
std::string textOf(const TableColumn& column, const MarkWithBlob& from)
{
    TrackVtorichka track;
    track.Marks = {from.mark};
    track.InterBlobs = {from.blob};
    return GetDataTrack({std::string(column.name())}, track, 0);
}

// Every column of a mark.
std::string textsOf(const MarkWithBlob& from)
{
    std::string texts = from.mark.mjd + '\t';
    for (const TableColumn* const column : columnsOfMarks(allNames)) {
        texts += textOf(*column, from);
    }
    return texts;
}

// A mark whose columns all differ from those of a new one, and from those of a mark with another number.
MarkWithBlob markOfNumber(int number)
{
    std::string header;
    std::string line;
    for (const TableColumn* const column : columnsOfMarks(allNames)) {
        header += std::string(column->name()) + '\t';
        line += (column->name() == "date"   ? "2023-02-0" + std::to_string(number)
                 : column->name() == "time" ? "0" + std::to_string(number) + ":00:00"
                                            : std::to_string(number * 100 + int(line.size()))) +
                '\t';
    }
    const TrackVtorichka track = readTrack(header, {line});
    MarkWithBlob made{track.Marks.at(0), track.InterBlobs.at(0)};
    made.mark.AuxInt1 = -number;
    return made;
}

} // namespace

TEST(TrackTableRows, NamesOfColumnsThatMarksAreReadFrom)
{
    EXPECT_EQ(columnsOfMarks(allNames).size(), 39U);
    const auto columns = columnsOfMarks("m  filtr QRVName bjd CMAG Candidates mood RA:Float m");
    ASSERT_EQ(columns.size(), 2U);
    EXPECT_EQ(columns[0]->name(), "m");
    EXPECT_EQ(columns[1]->name(), "filtr");
    EXPECT_TRUE(columnsOfMarks("").empty());
}

TEST(TrackTableRows, EveryColumnComesBack)
{
    MarkRows rows(columnsOfMarks(allNames));
    const MarkWithBlob first = markOfNumber(1);
    const MarkWithBlob second = markOfNumber(2);
    rows.add(first.mark, first.blob);
    rows.add(second.mark, second.blob);
    ASSERT_EQ(rows.size(), 2U);
    EXPECT_NE(textsOf(first), textsOf(second));
    EXPECT_EQ(textsOf(restored(rows, 0)), textsOf(first));
    EXPECT_EQ(textsOf(restored(rows, 1)), textsOf(second));
    EXPECT_EQ(int(restored(rows, 0).mark.iFRaw), int(first.mark.iFRaw));
    EXPECT_EQ(int(restored(rows, 0).mark.AuxInt1), -1);
    EXPECT_EQ(int(restored(rows, 1).mark.AuxInt1), -2);
}

TEST(TrackTableRows, EachColumnComesBackAlone)
{
    const MarkWithBlob made = markOfNumber(3);
    for (const TableColumn* const column : columnsOfMarks(allNames)) {
        SCOPED_TRACE(column->name());
        MarkRows rows({column});
        rows.add(made.mark, made.blob);
        const MarkWithBlob back = restored(rows, 0);
        EXPECT_EQ(back.mark.mjd, column->name() == "mjd" ? made.mark.mjd : "");
        for (const TableColumn* const other : columnsOfMarks(allNames)) {
            const bool alwaysKept =
                other->name() == "date" || other->name() == "time" || other->name() == "mjd";
            EXPECT_EQ(textOf(*other, back),
                      textOf(*other, alwaysKept || other == column ? made : MarkWithBlob()))
                << other->name();
        }
    }
}

TEST(TrackTableRows, WhatIsNotKeptStays)
{
    MarkRows rows(columnsOfMarks("RA"));
    rows.add({.AuxInt1 = 4, .date = 60000, .time = 0.5, .RA = 15.0, .DE = 1.0, .filtr = "V"}, {.m_MPC = 9.0});
    Mark mark{.AuxInt1 = 1, .AuxInt2 = 2, .DE = 3.0, .filtr = "B"};
    TInterBlob blob{.m_MPC = 5.0, .Value2 = 6.0};
    rows.restore(0, mark, blob);
    EXPECT_EQ(int(mark.AuxInt1), 4);
    EXPECT_EQ(int(mark.date), 60000);
    EXPECT_EQ(double(mark.time), 0.5);
    EXPECT_EQ(double(mark.RA), 15.0);
    EXPECT_EQ(int(mark.AuxInt2), 2);
    EXPECT_EQ(double(mark.DE), 3.0);
    EXPECT_EQ(mark.filtr, "B");
    EXPECT_EQ(blob.m_MPC, 5.0);
    EXPECT_EQ(blob.Value2, 6.0);
}

TEST(TrackTableRows, ValuesComeBackToTheLastBit)
{
    MarkRows rows(columnsOfMarks("RA DE m iF iB filtr mjd"));
    constexpr int lowest = std::numeric_limits<int>::min();
    const Mark mark{.AuxInt1 = lowest,
                    .iFRaw = lowest,
                    .iF = -1,
                    .iB = -7,
                    .date = lowest,
                    .time = -0.0,
                    .RA = std::numeric_limits<double>::quiet_NaN(),
                    .DE = std::numeric_limits<double>::denorm_min(),
                    .m = -std::numeric_limits<double>::infinity(),
                    .filtr = std::string("V\0\n", 3),
                    .mjd = std::string(70000, 'x')};
    rows.add(mark, {});
    const Mark back = restored(rows, 0).mark;
    EXPECT_EQ(int(back.AuxInt1), lowest);
    EXPECT_EQ(int(back.iFRaw), lowest);
    EXPECT_EQ(int(back.iF), -1);
    EXPECT_EQ(int(back.iB), -7);
    EXPECT_EQ(rows.date(0), lowest);
    EXPECT_TRUE(sameBits(rows.time(0), -0.0));
    EXPECT_TRUE(sameBits(back.RA, mark.RA));
    EXPECT_TRUE(sameBits(back.DE, mark.DE));
    EXPECT_TRUE(sameBits(back.m, mark.m));
    EXPECT_EQ(back.filtr, mark.filtr);
    EXPECT_EQ(back.mjd, mark.mjd);
}

TEST(TrackTableRows, DateAndTimeAreKnownWithoutAMark)
{
    MarkRows rows(columnsOfMarks(""));
    for (int i = 0; i < 5000; ++i) {
        rows.add({.AuxInt1 = 9, .date = 60000 - i, .time = i / 8192.0}, {});
    }
    ASSERT_EQ(rows.size(), 5000U);
    for (int i = 0; i < 5000; ++i) {
        ASSERT_EQ(rows.date(std::size_t(i)), 60000 - i);
        ASSERT_EQ(rows.time(std::size_t(i)), i / 8192.0);
    }
}

TEST(TrackTableRows, TextsMayChangeFromMarkToMark)
{
    MarkRows rows(columnsOfMarks("filtr CNAME"));
    const std::string names[] = {"V", "V", "B", "V", "", "R", "R", "VV"};
    for (const std::string& name : names) {
        rows.add({.filtr = name, .CNAME = "C" + name}, {});
    }
    for (std::size_t i = 0; i < std::size(names); ++i) {
        EXPECT_EQ(restored(rows, i).mark.filtr, names[i]);
        EXPECT_EQ(restored(rows, i).mark.CNAME, "C" + names[i]);
    }
}

TEST(TrackTableRows, MarksAfterTheForgottenStay)
{
    MarkRows rows(columnsOfMarks("iB filtr"));
    const auto add = [&rows](int count) {
        for (int i = 0; i < count; ++i) {
            const int number = int(rows.size());
            rows.add({.iB = number, .filtr = std::to_string(number / 3)}, {});
        }
    };
    rows.forgetBefore(0);
    add(4096);
    // All of them are forgotten, and the next mark still finds the texts of the last.
    rows.forgetBefore(4096);
    add(5904);
    rows.forgetBefore(7001);
    add(1);
    for (std::size_t i = 7001; i < rows.size(); ++i) {
        ASSERT_EQ(int(restored(rows, i).mark.iB), int(i));
        ASSERT_EQ(restored(rows, i).mark.filtr, std::to_string(i / 3));
    }
}
