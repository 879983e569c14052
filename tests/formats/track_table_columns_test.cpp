#include "formats/track_table_columns.h"

#include "formats/track_table.h"

#include "support/temporary_folder.h"
#include "support/track_tables.h"
#include "support/tracks.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

using namespace tavelinUtils;

namespace {

using Track = TrackVtorichka;
using Tracks = std::vector<TrackVtorichka>;
using Mark = TRecLabelPervichka_File;
using Lines = std::vector<std::string>;
using Value = std::variant<double, std::string>;

// A column of the table: what is put into a track of one mark, its text, and what a reader makes of that.
struct Column
{
    std::string description;
    std::function<void(Track&)> put;
    std::string text;
    std::function<Value(const Track&)> field;
    Value back;
};

void nothing(Track&)
{
}

Value none(const Track&)
{
    return 0.0;
}

Column ofHead(const std::string& description, double THeadTrVtor::*field, double put, const std::string& text,
              double back)
{
    return {description, [=](Track& t) { t.*field = put; }, text,
            [=](const Track& t) { return Value(t.*field); }, back};
}

Column ofHead(const std::string& description, int THeadTrVtor::*field, int put, const std::string& text,
              int back)
{
    return {description, [=](Track& t) { t.*field = put; }, text,
            [=](const Track& t) { return Value(double(t.*field)); }, double(back)};
}

Column ofHead(const std::string& description, std::string THeadTrVtor::*field, const std::string& text)
{
    return {description, [=](Track& t) { t.*field = text; }, text,
            [=](const Track& t) { return Value(t.*field); }, text};
}

Column ofMark(const std::string& description, double Mark::*field, double put, const std::string& text,
              double back)
{
    return {description, [=](Track& t) { t.Marks.at(0).*field = put; }, text,
            [=](const Track& t) { return Value(double(t.Marks.at(0).*field)); }, back};
}

Column ofMark(const std::string& description, int Mark::*field, int put, const std::string& text, int back)
{
    return {description, [=](Track& t) { t.Marks.at(0).*field = put; }, text,
            [=](const Track& t) { return Value(double(t.Marks.at(0).*field)); }, double(back)};
}

Column ofMark(const std::string& description, std::string Mark::*field, const std::string& text)
{
    return {description, [=](Track& t) { t.Marks.at(0).*field = text; }, text,
            [=](const Track& t) { return Value(std::string(t.Marks.at(0).*field)); }, text};
}

// A column that no reader takes.
Column constant(const std::string& description, const std::string& text)
{
    return {description, nothing, text, none, 0.0};
}

// 60000 is 2023-02-25. What comes back is never exactly what was put where the text is shorter.
const std::vector<Column> standardColumns = {
    ofHead("N:Int", &Track::N, 12, "12", 12),
    constant("NBl:Int", "1"),
    ofHead("QRVName:Text", &Track::QRVName, "Object 7"),
    ofMark("date:Date", &Mark::date, 60000, "2023-02-25", 60000),
    ofMark("time:Time", &Mark::time, 0.25, "06:00:00.0000000", 0.25),
    {"mjd:Float:day", nothing, "60000.250000000000",
     [](const Track& t) { return Value(std::string(t.Marks.at(0).mjd)); }, "60000.250000000000"},
    ofMark("RA:Float:deg", &Mark::RA, 15.1234567, "15.123457", 15.123457),
    ofMark("DE:Float:deg", &Mark::DE, -0.1234567, "-0.123457", -0.123457),
    ofMark("m:Float:mag", &Mark::m, -1.23456, "-1.2346", -1.2346),
    ofHead("m_m:Float:mag", &Track::m_m, 12.3456, "12.346", 12.346),
    ofHead("m_rms:Float:mag", &Track::m_rms, 0.126, "0.13", 0.13),
    ofMark("mInstr:Float:mag", &Mark::mInstr, -7.65432, "-7.6543", -7.6543),
    ofMark("mInstr1000:Float:mag", &Mark::mInstr1000, 8.76543, "8.7654", 8.7654),
    {"m_MPC:Float:mag", [](Track& t) { t.InterBlobs.at(0).m_MPC = 17.456; }, "17.46",
     [](const Track& t) { return Value(t.InterBlobs.at(0).m_MPC); }, 17.46},
    ofHead("MPCChecker:Text", &Track::MPCChecker, "(433) Eros"),
    ofHead("NORAD:Text", &Track::NORAD, "23533"),
    ofMark("X_bf:Float:pix", &Mark::X_bf, 101.234, "101.23", 101.23),
    ofMark("Y_bf:Float:pix", &Mark::Y_bf, 102.237, "102.24", 102.24),
    ofMark("X_f:Float:pix", &Mark::X_f, 103.999, "104.00", 104.0),
    ofMark("Y_f:Float:pix", &Mark::Y_f, -104.001, "-104.00", -104.0),
    ofHead("FindOrb:Float:arcsec", &Track::FindOrb, 0.376, "0.38", 999.0),
    ofHead("LymX:Float", &Track::LymX, 1.111, "1.11", 1.11),
    ofHead("LymY:Float", &Track::LymY, 2.222, "2.22", 2.22),
    ofHead("LymXY:Float", &Track::LymXY, 3.336, "3.34", 3.34),
    ofHead("DispX:Float:pix", &Track::DispX, 0.12346, "0.1235", 0.1235),
    ofHead("DispY:Float:pix", &Track::DispY, 0.22344, "0.2234", 0.2234),
    ofHead("DispXY:Float:pix", &Track::DispXY, 0.32349, "0.3235", 0.3235),
    ofHead("X0:Float:pix", &Track::X0, 511.567, "511.57", 511.57),
    ofHead("Y0:Float:pix", &Track::Y0, 512.562, "512.56", 512.56),
    ofHead("Vx:Float:pix/fr", &Track::Vx, 1.2346, "1.235", 1.235),
    ofHead("Vy:Float:pix/fr", &Track::Vy, -0.0001, "-0.000", -0.0),
    ofHead("V:Float:arcsec/min", &Track::V, 0.123456, "0.12346", 0.12346),
    ofHead("PA:Float:deg", &Track::PA, 359.9996, "360.000", 360.0),
    ofHead("V_ra:Float:arcsec/min", &Track::V_ra, -30490.3954, "-30490.395", -30490.395),
    ofHead("V_de:Float:arcsec/min", &Track::V_de, 61201.4946, "61201.495", 61201.495),
    ofMark("SNcorrnotnorm:Float", &Mark::SNcorrnotnorm, 4.446, "4.45", 4.45),
    ofMark("corrnorm:Float", &Mark::corrnorm, 0.987, "0.99", 0.99),
    ofMark("A:Float", &Mark::A, 20000.126, "20000.13", 20000.13),
    ofMark("Asegm:Float", &Mark::Asegm, 20001.127, "20001.13", 20001.13),
    ofMark("Astrob:Float", &Mark::Astrob, 20002.128, "20002.13", 20002.13),
    ofMark("SNRafit:Float", &Mark::SNRafit, 10.016, "10.02", 10.02),
    ofMark("SNRasegm:Float", &Mark::SNRasegm, 11.026, "11.03", 11.03),
    ofMark("SNRpeak:Float", &Mark::SNRpeak, 12.036, "12.04", 12.04),
    ofMark("FWHM:Float:pix", &Mark::FWHM, 3.146, "3.15", 3.15),
    ofMark("Radius:Float", &Mark::Radius, 5.506, "5.51", 5.51),
    ofMark("SigFit:Float:pix", &Mark::SigFit, 1.337, "1.34", 1.34),
    ofMark("RMSFit:Float:ADU", &Mark::RMSFit, 25.12347, "25.1235", 25.1235),
    ofMark("Angle:Float", &Mark::Angle, -45.678, "-45.68", -45.68),
    ofHead("Angle_rms:Float", &Track::Angle_rms, 0.567, "0.57", 0.57),
    ofMark("Exc:Float", &Mark::Exc, 0.778, "0.78", 0.78),
    ofMark("Length:Float", &Mark::Length, 9.919, "9.92", 9.92),
    ofHead("Length_rms:Float", &Track::Length_rms, 0.919, "0.92", 0.92),
    ofMark("Width:Float", &Mark::Width, 4.414, "4.41", 4.41),
    ofMark("iF:Int", &Mark::iF, 6, "7", 6),
    ofMark("iB:Int", &Mark::iB, 41, "41", 41),
    ofMark("QRVID:Text", &Mark::QRVID, "V1023 Her_V1021 Her"),
    {"TrMade:Text", [](Track& t) { t.TrMade = THowMakeTr::STACK; }, "STACK",
     [](const Track& t) { return Value(double(t.TrMade)); }, 6.0},
    constant("NEORatio:Float", "0"),
    constant("AccurRaDe:Float:arcsec", "0"),
    constant("MPC_RMS:Float", "0"),
    constant("HA:Float", "0"),
    constant("Draw:Bool", "1"),
};

const std::vector<Column> furtherColumns = {
    {"time_bjd:Time", [](Track& t) { t.Marks.at(0).time_bjd = 0.75; }, "18:00:00.0000000",
     [](const Track& t) { return Value(double(t.Marks.at(0).time_bjd)); }, 0.0},
    {"bjd:Float:day", [](Track& t) { t.Marks.at(0).bjd = 59999; }, "59999.000000000000",
     [](const Track& t) { return Value(double(t.Marks.at(0).bjd)); }, 0.0},
    ofMark("mEnsemble:Float:mag", &Mark::mEnsemble, 13.58204, "13.5820", 13.582),
    ofMark("mInstrComp:Float:mag", &Mark::mInstrComp, -9.00006, "-9.0001", -9.0001),
    ofMark("filtr:Text", &Mark::filtr, "V"),
    ofMark("MTYPE:Text", &Mark::MTYPE, "STD"),
    ofMark("CNAME:Text", &Mark::CNAME, "000-BBV-123"),
    ofMark("KNAME:Text", &Mark::KNAME, "130"),
    ofMark("CHART:Text", &Mark::CHART, "X16140EI"),
    constant("CMAG:Float:mag", "na"),
    constant("KMAG:Float:mag", "na"),
};

std::string nameOf(const Column& column)
{
    return column.description.substr(0, column.description.find(':'));
}

std::vector<Column> allColumns()
{
    std::vector<Column> all = standardColumns;
    all.insert(all.end(), furtherColumns.begin(), furtherColumns.end());
    return all;
}

std::string joined(const Lines& fields)
{
    std::string line;
    for (const std::string& field : fields) {
        line += (line.empty() ? "" : "\t") + field;
    }
    return line;
}

// A track of one new mark.
Track trackOfOne()
{
    Track track;
    track.Marks.resize(1);
    track.InterBlobs.resize(1);
    return track;
}

// A track with the value of every column.
Track filledTrack()
{
    Track track = trackOfOne();
    for (const Column& column : allColumns()) {
        column.put(track);
    }
    return track;
}

} // namespace

TEST(TrackTableColumns, StandardHeaderHas62Columns)
{
    EXPECT_EQ(getHeadTrack(), headerOf62Columns);

    Lines descriptions;
    for (const Column& column : standardColumns) {
        descriptions.push_back(column.description);
    }
    EXPECT_EQ(descriptions.size(), 62U);
    EXPECT_EQ(joined(descriptions), headerOf62Columns);
}

TEST(TrackTableColumns, EveryColumnIsWrittenAsItsTextAndATab)
{
    for (const Column& column : allColumns()) {
        if (nameOf(column) == "N" || nameOf(column) == "QRVName") {
            continue; // these two come from the arguments of sTrack
        }
        SCOPED_TRACE(column.description);
        EXPECT_EQ(GetDataTrack({nameOf(column)}, filledTrack(), 0), column.text + "\t");
    }
}

TEST(TrackTableColumns, EveryColumnIsReadFromATableOfItsOwn)
{
    for (const Column& column : allColumns()) {
        SCOPED_TRACE(column.description);
        const Track track = readTrack(column.description, {column.text});
        ASSERT_EQ(track.Marks.size(), 1U);
        ASSERT_EQ(track.InterBlobs.size(), 1U);
        EXPECT_EQ(column.field(track), column.back);
    }
}

TEST(TrackTableColumns, AColumnFillsItsOwnFieldOnly)
{
    const std::vector<Column> columns = allColumns();
    for (std::size_t i = 0; i < columns.size(); ++i) {
        SCOPED_TRACE(columns[i].description);
        const Track track = readTrack(columns[i].description, {columns[i].text});
        ASSERT_EQ(track.Marks.size(), 1U);
        ASSERT_EQ(track.InterBlobs.size(), 1U);
        for (std::size_t k = 0; k < columns.size(); ++k) {
            if (k != i) {
                EXPECT_EQ(columns[k].field(track), columns[k].field(trackOfOne())) << columns[k].description;
            }
        }
        EXPECT_EQ(track.FindOrb, 999.0);
        EXPECT_EQ(track.NMarks, 1);
        EXPECT_EQ(track.telescope, "telescope");
        EXPECT_EQ(track.Series, "");
        EXPECT_EQ(track.SourceFile, "");
        EXPECT_EQ(int(track.Marks[0].iFRaw), nameOf(columns[i]) == "iF" ? 7 : 0);
        EXPECT_EQ(int(track.Marks[0].LinkIndex), -1);
        EXPECT_EQ(double(track.Marks[0].RefValue1), -1.0);
        EXPECT_EQ(double(track.Marks[0].RefValue9), -1.0);
        EXPECT_EQ(track.InterBlobs[0].Value2, -1.0);
        EXPECT_EQ(track.InterBlobs[0].Value3, -1.0);
        EXPECT_TRUE(track.Candidates.empty());
        EXPECT_TRUE(track.Cast.empty());
    }
}

TEST(TrackTableColumns, ColumnsMayComeInAnyOrder)
{
    const std::vector<Column> columns = allColumns();
    Lines descriptions;
    Lines fields;
    for (const Column& column : columns) {
        descriptions.insert(descriptions.begin(), column.description);
        fields.insert(fields.begin(), column.text);
    }
    const Track track = readTrack(joined(descriptions), {joined(fields)});
    ASSERT_EQ(track.Marks.size(), 1U);
    ASSERT_EQ(track.InterBlobs.size(), 1U);
    for (const Column& column : columns) {
        EXPECT_EQ(column.field(track), column.back) << column.description;
    }
}

TEST(TrackTableColumns, AWholeLineOfTheStandardHeader)
{
    EXPECT_EQ(writtenTable({filledTrack()}, headerOf62Columns),
              "v2\n" + headerOf62Columns +
                  "\n"
                  "12\t1\tObject 7\t2023-02-25\t06:00:00.0000000\t60000.250000000000\t15.123457\t-0.123457\t"
                  "-1.2346\t12.346\t0.13\t-7.6543\t8.7654\t17.46\t(433) Eros\t23533\t101.23\t102.24\t104.00\t"
                  "-104.00\t0.38\t1.11\t2.22\t3.34\t0.1235\t0.2234\t0.3235\t511.57\t512.56\t1.235\t-0.000\t"
                  "0.12346\t360.000\t-30490.395\t61201.495\t4.45\t0.99\t20000.13\t20001.13\t20002.13\t10.02\t"
                  "11.03\t12.04\t3.15\t5.51\t1.34\t25.1235\t-45.68\t0.57\t0.78\t9.92\t0.92\t4.41\t7\t41\t"
                  "V1023 Her_V1021 Her\tSTACK\t0\t0\t0\t0\t1\t\n"
                  "---\n");
}

TEST(TrackTableColumns, AnEmptyTrackHasItsDefaultsInTheLine)
{
    EXPECT_EQ(writtenLines(trackNamed("", {Mark()}), headerOf62Columns),
              "5\t1\tgiven\t1858-11-17\t00:00:00.0000000\t0.000000000000\t0.000000\t0.000000\t0.0000\t0.000\t"
              "0.00\t0.0000\t0.0000\t0.00\t\t\t0.00\t0.00\t0.00\t0.00\t999.00\t0.00\t0.00\t0.00\t0.0000\t"
              "0.0000\t0.0000\t0.00\t0.00\t0.000\t0.000\t0.00000\t0.000\t0.000\t0.000\t0.00\t0.00\t0.00\t"
              "0.00\t0.00\t0.00\t0.00\t0.00\t0.00\t0.00\t0.00\t0.0000\t0.00\t0.00\t0.00\t0.00\t0.00\t0.00\t"
              "1\t0\t\tSTROB\t0\t0\t0\t0\t1\t\n");
}

TEST(TrackTableColumns, NumberOfMarksIsWrittenOnEveryLine)
{
    EXPECT_EQ(writtenLines(trackNamed("A", {{.iB = 1}, {.iB = 2}, {.iB = 3}}), "NBl:Int\tiB:Int"),
              "3\t1\t\n3\t2\t\n3\t3\t\n");
}

TEST(TrackTableColumns, NumberOfMarksIsCountedAndNotRead)
{
    const Track track = readTrack("NBl:Int\tiB:Int", {"77\t1", "77\t2"});
    EXPECT_EQ(track.NMarks, 2);
    EXPECT_EQ(iBsOf(track), (std::vector<int>{1, 2}));
}

TEST(TrackTableColumns, WrittenValuesOfAMarkAreThoseOfItsIndex)
{
    Track track = trackNamed("A", {{.RA = 1.0}, {.RA = 2.0}});
    track.InterBlobs = {{.m_MPC = 11.0}, {.m_MPC = 12.0}};
    EXPECT_EQ(GetDataTrack({"RA"}, track, 1), "2.000000\t");
    EXPECT_EQ(GetDataTrack({"m_MPC"}, track, 0), "11.00\t");
    EXPECT_EQ(GetDataTrack({"m_MPC"}, track, 1), "12.00\t");
}

TEST(TrackTableColumns, WhatATrackLacksCountsAsNew)
{
    Track track = trackNamed("A", {{.iF = 4, .m = 9.5}});
    track.m_m = 9.25;
    EXPECT_EQ(GetDataTrack({"m_MPC"}, track, 0), "0.00\t");
    for (const int index : {1, 1000, -1}) {
        SCOPED_TRACE(index);
        EXPECT_EQ(GetDataTrack({"m"}, track, index), "0.0000\t");
        EXPECT_EQ(GetDataTrack({"iF"}, track, index), "1\t");
        EXPECT_EQ(GetDataTrack({"filtr"}, track, index), "R\t");
        EXPECT_EQ(GetDataTrack({"CNAME"}, track, index), "ENSEMBLE\t");
        EXPECT_EQ(GetDataTrack({"m_MPC"}, track, index), "0.00\t");
        EXPECT_EQ(GetDataTrack({"m_m"}, track, index), "9.250\t");
    }
}

TEST(TrackTableColumns, UnknownNamesAreWrittenAsZero)
{
    for (const char* name :
         {"", "ra", "RA ", " RA", "RA:Float:deg", "mRA", "mDE", "jd", "FrameName", "RefValue4"})
    {
        SCOPED_TRACE(name);
        EXPECT_EQ(GetDataTrack({name}, filledTrack(), 0), "0\t");
    }
}

TEST(TrackTableColumns, NumberAndNameAreTheTracksOwnWhereNoneAreGiven)
{
    Track track = trackNamed("A name of any length", {Mark()});
    track.N = 77;
    EXPECT_EQ(GetDataTrack({"N"}, track, 0), "77\t");
    EXPECT_EQ(GetDataTrack({"QRVName"}, track, 0), "A name of any length\t");
}

TEST(TrackTableColumns, NameCandidatesAndCastBelongToLinesAlone)
{
    Track track = trackNamed("A", {Mark()});
    track.Candidates = {"one"};
    track.Cast = {"1;2;3;4"};
    for (const char* name : {"Name", "Candidates", "Cast"}) {
        SCOPED_TRACE(name);
        EXPECT_EQ(GetDataTrack({name}, track, 0), "0\t");
    }
    EXPECT_EQ(writtenLines(track, "Name\tCandidates\tCast"), "given\tone\t1;2;3;4\n");
}

TEST(TrackTableColumns, ReadOnlyNamesAreWrittenAsZero)
{
    Track track = trackNamed("A", {Mark()});
    track.V_ra = 1.5;
    track.V_de = 2.5;
    EXPECT_EQ(writtenLines(track, "mRA\tV_ra\tmDE\tV_de"), "0\t1.500\t0\t2.500\t\n");
}

TEST(TrackTableColumns, NameOfADescriptionEndsAtItsFirstColon)
{
    EXPECT_EQ(nameIn("RA:Float:deg"), "RA");
    EXPECT_EQ(nameIn("RA"), "RA");
    EXPECT_EQ(nameIn(":Float"), "");
    EXPECT_EQ(nameIn(""), "");
}

TEST(TrackTableColumns, LineIsSplitIntoFieldsAtEveryTab)
{
    const struct
    {
        std::string line;
        std::vector<std::string_view> fields;
    } rows[] = {
        {"", {""}},
        {"\t", {"", ""}},
        {"1", {"1"}},
        {"1\t22\t333", {"1", "22", "333"}},
        {"\t\ta longer field than eight bytes\t", {"", "", "a longer field than eight bytes", ""}},
    };
    std::vector<std::string_view> fields;
    for (const auto& row : rows) {
        SCOPED_TRACE(row.line);
        const std::size_t count = splitFields(row.line, fields);
        ASSERT_LE(count, fields.size());
        EXPECT_EQ(std::vector<std::string_view>(fields.begin(), fields.begin() + std::ptrdiff_t(count)),
                  row.fields);
    }
}

TEST(TrackTableColumns, ListOfFieldsNeverShrinks)
{
    std::vector<std::string_view> fields;
    EXPECT_EQ(splitFields("1\t2\t3\t4", fields), 4U);
    const std::size_t room = fields.size();
    EXPECT_EQ(splitFields("5", fields), 1U);
    EXPECT_EQ(fields.size(), room);
    EXPECT_EQ(fields[0], "5");
}

TEST(TrackTableColumns, ColumnsAreReadInTheOrderOfTheirRows)
{
    const ColumnsToRead columns = columnsToRead("noradid\tQRVName\tiB:Int\tMood\tName\tRA\tNBl\tRA\tNORAD");
    const auto fieldsOf = [](const std::vector<ColumnToRead>& read) {
        std::vector<std::size_t> fields;
        for (const ColumnToRead& column : read) {
            fields.push_back(column.field);
        }
        return fields;
    };
    EXPECT_EQ(fieldsOf(columns.ofHead), (std::vector<std::size_t>{4, 1, 8, 0}));
    EXPECT_EQ(fieldsOf(columns.ofMarks), (std::vector<std::size_t>{5, 2}));
}

TEST(TrackTableColumns, ColumnsAreWrittenInTheOrderOfTheHeader)
{
    std::vector<std::string_view> names;
    for (const TableColumn* column : columnsToWrite("Cast\tMood\tRA:Text\tN\tRA")) {
        names.push_back(column->name());
    }
    EXPECT_EQ(names, (std::vector<std::string_view>{"Cast", "", "RA", "N", "RA"}));
    EXPECT_TRUE(columnsToWrite("").empty());
}

TEST(TrackTableColumns, TimeIsCarriedOverMidnightAndTheDateStays)
{
    const Track track = trackNamed("A", {{.date = 60000, .time = 0.9999999999999}});
    EXPECT_EQ(writtenLines(track, "date:Date\ttime:Time\tmjd:Float:day"),
              "2023-02-25\t00:00:00.0000000\t60001.000000000000\t\n");
}

TEST(TrackTableColumns, TimesAreWrittenWithSevenDecimalsOfSeconds)
{
    // 01:02:03.4567891
    const Track track = trackNamed("A", {{.date = 51544, .time = 3723.4567891 / 86400.0}});
    EXPECT_EQ(writtenLines(track, "date:Date\ttime:Time"), "2000-01-01\t01:02:03.4567891\t\n");
}

TEST(TrackTableColumns, FractionOfTheBarycentricDayIsNotInItsDay)
{
    const Track track = trackNamed("A", {{.date = 60000, .time = 0.5, .bjd = 60000, .time_bjd = 0.5}});
    EXPECT_EQ(writtenLines(track, "mjd\tbjd\ttime_bjd"),
              "60000.500000000000\t60000.000000000000\t12:00:00.0000000\t\n");
}

TEST(TrackTableColumns, FrameIsShownFromOneAndHeldFromZero)
{
    const struct
    {
        std::string text;
        int raw;
        int frame;
    } rows[] = {{"1", 1, 0}, {"0", 0, -1}, {"25", 25, 24}, {"-1", -1, -2}, {"x", 0, -1}, {"3.9", 3, 2}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        const Mark mark = readMark("iF:Int", row.text);
        EXPECT_EQ(int(mark.iFRaw), row.raw);
        EXPECT_EQ(int(mark.iF), row.frame);
    }
    EXPECT_EQ(GetDataTrack({"iF"}, trackNamed("A", {{.iFRaw = 9, .iF = 0}}), 0), "1\t");
    EXPECT_EQ(GetDataTrack({"iF"}, trackNamed("A", {{.iFRaw = 9, .iF = -1}}), 0), "0\t");
}

TEST(TrackTableColumns, ColumnMjdDoesNotSetTheTime)
{
    const Track track = readTrack("mjd:Float:day", {"60000.75", "60000.25 or so"});
    ASSERT_EQ(track.Marks.size(), 2U);
    for (const Mark& mark : track.Marks) {
        EXPECT_EQ(int(mark.date), 0);
        EXPECT_EQ(double(mark.time), 0.0);
    }
    EXPECT_EQ(std::string(track.Marks[0].mjd), "60000.75");
    EXPECT_EQ(std::string(track.Marks[1].mjd), "60000.25 or so");
    EXPECT_FALSE(SortTrackByTime(track.Marks[0], track.Marks[1]));
    EXPECT_FALSE(SortTrackByTime(track.Marks[1], track.Marks[0]));
}

TEST(TrackTableColumns, WrittenMjdIsMadeOfDateAndTime)
{
    const Track track = trackNamed("A", {{.date = 60000, .time = 0.5, .mjd = "59999.75"}});
    EXPECT_EQ(GetDataTrack({"mjd"}, track, 0), "60000.500000000000\t");
}

TEST(TrackTableColumns, WaysOfMakingATrack)
{
    const struct
    {
        std::string word;
        THowMakeTr made;
    } rows[] = {{"STROB", THowMakeTr::STROB}, {"SFAST", THowMakeTr::SFAST}, {"HOUGH", THowMakeTr::HOUGH},
                {"GSOHO", THowMakeTr::GSOHO}, {"MOSKH", THowMakeTr::MOSKH}, {"MANUA", THowMakeTr::MANUA},
                {"STACK", THowMakeTr::STACK}, {"UNKNO", THowMakeTr::UNKNO}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.word);
        EXPECT_EQ(readTrack("TrMade:Text", {row.word}).TrMade, row.made);
        Track track = trackOfOne();
        track.TrMade = row.made;
        EXPECT_EQ(GetDataTrack({"TrMade"}, track, 0), row.word + "\t");
    }
    for (const char* word : {"strob", "STROB ", "0", "ROBOT"}) {
        SCOPED_TRACE(word);
        EXPECT_EQ(readTrack("TrMade:Text", {word}).TrMade, THowMakeTr::UNKNO);
    }
    Track track = trackOfOne();
    track.TrMade = THowMakeTr(8);
    EXPECT_EQ(GetDataTrack({"TrMade"}, track, 0), "UNKNO\t");
}

TEST(TrackTableColumns, DatesAndTimesThatAreRead)
{
    const struct
    {
        std::string date, time;
        int day;
        double fraction;
    } rows[] = {
        {"2023-02-25", "12:00:00.0000000", 60000, 0.5},
        {"2023-2-25", "6:0:0", 60000, 0.25},
        {"2023-02-31", "24:00:00", 60006, 1.0}, // 3 March
        {"2023-13-01", "x", 0, 0.0},
        {"2023", "18", 0, 0.75},
        {"25.02.2023", "00:30", 0, 30.0 / 60.0 / 24.0},
        {"2023-02-25-07", "00:00:43.2:99", 60000, 43.2 / 3600.0 / 24.0},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.date + " " + row.time);
        const Mark mark = readMark("date:Date\ttime:Time", row.date + "\t" + row.time);
        EXPECT_EQ(int(mark.date), row.day);
        EXPECT_DOUBLE_EQ(double(mark.time), row.fraction);
    }
}

TEST(TrackTableColumns, NumbersThatAreRead)
{
    const struct
    {
        std::string text;
        double number;
        int whole;
    } rows[] = {{"1.5", 1.5, 1},  {"-1.5", -1.5, -1}, {"+2", 2.0, 2},      {" 3", 3.0, 3},  {"1e2", 100.0, 1},
                {"4.5x", 4.5, 4}, {"x4.5", 0.0, 0},   {"nothing", 0.0, 0}, {"1,5", 1.0, 1}, {"--1", 0.0, 0},
                {" ", 0.0, 0},    {"-0", 0.0, 0},     {"0x10", 16.0, 0},   {"007", 7.0, 7}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        const Mark mark = readMark("m:Float:mag\tiB:Int", row.text + "\t" + row.text);
        EXPECT_EQ(double(mark.m), row.number);
        EXPECT_EQ(int(mark.iB), row.whole);
    }
}

TEST(TrackTableColumns, WholeNumbersAreCutTo32Bits)
{
    EXPECT_EQ(int(readMark("iB:Int", "4294967297").iB), 1);
    EXPECT_EQ(int(readMark("iB:Int", "2147483648").iB), -2147483647 - 1);
    EXPECT_EQ(int(readMark("iB:Int", "99999999999999999999").iB), -1);
    EXPECT_EQ(readTrack("N:Int", {"4294967298"}).N, 2);
}

TEST(TrackTableColumns, QRVNameWinsOverName)
{
    EXPECT_EQ(readTrack("Name:Text", {"first"}).QRVName, "first");
    EXPECT_EQ(readTrack("Name:Text\tQRVName:Text", {"first\tsecond"}).QRVName, "second");
    EXPECT_EQ(readTrack("QRVName:Text\tName:Text", {"first\tsecond"}).QRVName, "first");
    EXPECT_EQ(readTrack("Name:Text\tQRVName:Text", {"first"}).QRVName, "first");
    EXPECT_EQ(readTrack("Name:Text\tQRVName:Text\tiB:Int", {"first\t\t3"}).QRVName, "");
}

TEST(TrackTableColumns, NoradidWinsOverNORAD)
{
    EXPECT_EQ(readTrack("noradid:Text", {"23533"}).NORAD, "23533");
    EXPECT_EQ(readTrack("NORAD:Text\tnoradid:Text", {"1\t2"}).NORAD, "2");
    EXPECT_EQ(readTrack("noradid:Text\tNORAD:Text", {"1\t2"}).NORAD, "1");
    EXPECT_EQ(readTrack("NORAD:Text\tnoradid:Text", {"1"}).NORAD, "1");
    EXPECT_EQ(readTrack("NORAD:Text\tnoradid:Text", {"1"}).QRVName, "");
    EXPECT_EQ(GetDataTrack({"noradid"}, filledTrack(), 0), "23533\t");
}

TEST(TrackTableColumns, SpeedsCalledMRAAndMDEWin)
{
    const Track alone = readTrack("mRA:Float\tmDE:Float", {"1.5\t-2.5"});
    EXPECT_EQ(alone.V_ra, 1.5);
    EXPECT_EQ(alone.V_de, -2.5);
    for (const auto& [header, line] : std::vector<std::pair<std::string, std::string>>{
             {"V_ra\tV_de\tmRA\tmDE", "1\t2\t3\t4"}, {"mDE\tmRA\tV_de\tV_ra", "4\t3\t2\t1"}})
    {
        SCOPED_TRACE(header);
        const Track track = readTrack(header, {line});
        EXPECT_EQ(track.V_ra, 3.0);
        EXPECT_EQ(track.V_de, 4.0);
    }
    const Track half = readTrack("V_ra\tV_de\tmRA", {"1\t2\t3"});
    EXPECT_EQ(half.V_ra, 3.0);
    EXPECT_EQ(half.V_de, 2.0);
}

TEST(TrackTableColumns, DateAndTimeAloneLeaveAllElseAsNew)
{
    const Track track = readTrack("date:Date\ttime:Time", {"2023-02-25\t12:00:00.0000000"});
    ASSERT_EQ(track.Marks.size(), 1U);
    EXPECT_EQ(int(track.Marks[0].date), 60000);
    EXPECT_EQ(double(track.Marks[0].time), 0.5);
    for (const Column& column : allColumns()) {
        if (nameOf(column) != "date" && nameOf(column) != "time") {
            EXPECT_EQ(column.field(track), column.field(trackOfOne())) << column.description;
        }
    }
}

TEST(TrackTableColumns, StandardTableComesBackAsItsTexts)
{
    const TemporaryFolder folder;
    sListTrack(folder / "a.txt", "", "", {filledTrack(), filledTrack()}, "", false, true, headerOf62Columns);
    const Tracks tracks = lListTrack(folder / "a.txt");
    ASSERT_EQ(tracks.size(), 2U);
    for (const Track& track : tracks) {
        ASSERT_EQ(track.Marks.size(), 1U);
        ASSERT_EQ(track.InterBlobs.size(), 1U);
        for (const Column& column : standardColumns) {
            EXPECT_EQ(column.field(track), column.back) << column.description;
        }
    }
    const std::string once = bytesOf(folder / "a.txt");
    sListTrack(folder / "a.txt", "", "", tracks, "", false, true, headerOf62Columns);
    std::string expected = once;
    for (std::size_t at = expected.find("\t0.38\t"); at != std::string::npos; at = expected.find("\t0.38\t"))
    {
        expected.replace(at, 6, "\t999.00\t"); // FindOrb, which is not read
    }
    EXPECT_EQ(bytesOf(folder / "a.txt"), expected);
}

TEST(TrackTableColumns, FindOrbCandidatesAndCastDoNotComeBack)
{
    Track track = trackNamed("A", {{.iB = 1}});
    track.FindOrb = 0.25;
    track.Candidates = {"one"};
    track.Cast = {"1;2;3;4"};
    const std::string bytes = writtenTable({track}, "FindOrb\tCandidates\tiB\tCast");
    EXPECT_EQ(bytes, "v2\nFindOrb\tCandidates\tiB\tCast\n0.25\tone\t1\t1;2;3;4\n---\n");

    const Tracks tracks = readTable(bytes);
    ASSERT_EQ(tracks.size(), 1U);
    EXPECT_EQ(iBsOf(tracks[0]), (std::vector<int>{1}));
    EXPECT_EQ(tracks[0].FindOrb, 999.0);
    EXPECT_TRUE(tracks[0].Candidates.empty());
    EXPECT_TRUE(tracks[0].Cast.empty());
}

TEST(TrackTableColumns, BarycentricTimesDoNotComeBack)
{
    const Track track = trackNamed("A", {{.bjd = 60000, .time_bjd = 0.5}});
    const Tracks tracks = readTable(writtenTable({track}, "bjd\ttime_bjd"));
    ASSERT_EQ(tracks.size(), 1U);
    ASSERT_EQ(tracks[0].Marks.size(), 1U);
    EXPECT_EQ(int(tracks[0].Marks[0].bjd), 0);
    EXPECT_EQ(double(tracks[0].Marks[0].time_bjd), 0.0);
}
