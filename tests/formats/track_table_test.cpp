#include "base/bytes.h"
#include "formats/track_table.h"

#include "results/result.h"

#include "support/no_room.h"
#include "support/places.h"
#include "support/temporary_folder.h"
#include "support/tracks.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <filesystem>
#include <functional>
#include <iterator>
#include <string>
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

const std::string standardHeader =
    "N:Int\tNBl:Int\tQRVName:Text\tdate:Date\ttime:Time\tmjd:Float:day\tRA:Float:deg\tDE:Float:deg\t"
    "m:Float:mag\tm_m:Float:mag\tm_rms:Float:mag\tmInstr:Float:mag\tmInstr1000:Float:mag\tm_MPC:Float:mag\t"
    "MPCChecker:Text\tNORAD:Text\tX_bf:Float:pix\tY_bf:Float:pix\tX_f:Float:pix\tY_f:Float:pix\t"
    "FindOrb:Float:arcsec\tLymX:Float\tLymY:Float\tLymXY:Float\tDispX:Float:pix\tDispY:Float:pix\t"
    "DispXY:Float:pix\tX0:Float:pix\tY0:Float:pix\tVx:Float:pix/fr\tVy:Float:pix/fr\tV:Float:arcsec/min\t"
    "PA:Float:deg\tV_ra:Float:arcsec/min\tV_de:Float:arcsec/min\tSNcorrnotnorm:Float\tcorrnorm:Float\t"
    "A:Float\tAsegm:Float\tAstrob:Float\tSNRafit:Float\tSNRasegm:Float\tSNRpeak:Float\tFWHM:Float:pix\t"
    "Radius:Float\tSigFit:Float:pix\tRMSFit:Float:ADU\tAngle:Float\tAngle_rms:Float\tExc:Float\t"
    "Length:Float\tLength_rms:Float\tWidth:Float\tiF:Int\tiB:Int\tQRVID:Text\tTrMade:Text\tNEORatio:Float\t"
    "AccurRaDe:Float:arcsec\tMPC_RMS:Float\tHA:Float\tDraw:Bool";

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

// The only track of a table of this header and these lines.
Track readTrack(const std::string& header, Lines lines)
{
    lines.insert(lines.begin(), {"v2", header});
    lines.push_back("---");
    const Tracks tracks = lListTrack(lines);
    EXPECT_EQ(tracks.size(), 1U);
    return tracks.empty() ? Track() : tracks[0];
}

// The only mark of a table of this header and this line.
Mark readMark(const std::string& header, const std::string& line)
{
    const Track track = readTrack(header, {line});
    EXPECT_EQ(track.Marks.size(), 1U);
    return track.Marks.empty() ? Mark() : track.Marks[0];
}

Tracks readBytes(const std::string& bytes)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.txt", bytes);
    return lListTrack(folder / "a.txt");
}

std::vector<int> iBsOf(const Track& track)
{
    std::vector<int> values;
    for (const Mark& mark : track.Marks) {
        values.push_back(mark.iB);
    }
    return values;
}

// The iB of all marks, a list for each track.
std::vector<std::vector<int>> iBsOf(const Tracks& tracks)
{
    std::vector<std::vector<int>> values;
    for (const Track& track : tracks) {
        values.push_back(iBsOf(track));
    }
    return values;
}

using Blobs = std::vector<std::vector<int>>;

// What sTrack writes under the name "given" and number 5.
std::string writtenLines(const Track& track, const std::string& header)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.txt", "");
    sTrack(folder / "a.txt", "/data/night25/t.txt", "", "", 5, false, track, "given", header, false);
    return bytesOf(folder / "a.txt");
}

// What sListTrack writes, with the rewrite flag and without prefix and suffix.
std::string writtenTable(const Tracks& tracks, const std::string& header)
{
    const TemporaryFolder folder;
    sListTrack(folder / "a.txt", "/data/night25/t.txt", "", tracks, "", false, true, header);
    return bytesOf(folder / "a.txt");
}

} // namespace

TEST(TrackTable, StandardHeaderHas62Columns)
{
    EXPECT_EQ(getHeadTrack(), standardHeader);

    Lines descriptions;
    for (const Column& column : standardColumns) {
        descriptions.push_back(column.description);
    }
    EXPECT_EQ(descriptions.size(), 62U);
    EXPECT_EQ(joined(descriptions), standardHeader);
}

TEST(TrackTable, EveryColumnIsWrittenAsItsTextAndATab)
{
    for (const Column& column : allColumns()) {
        if (nameOf(column) == "N" || nameOf(column) == "QRVName") {
            continue; // these two come from the arguments of sTrack
        }
        SCOPED_TRACE(column.description);
        EXPECT_EQ(GetDataTrack({nameOf(column)}, filledTrack(), 0), column.text + "\t");
    }
}

TEST(TrackTable, EveryColumnIsReadFromATableOfItsOwn)
{
    for (const Column& column : allColumns()) {
        SCOPED_TRACE(column.description);
        const Track track = readTrack(column.description, {column.text});
        ASSERT_EQ(track.Marks.size(), 1U);
        ASSERT_EQ(track.InterBlobs.size(), 1U);
        EXPECT_EQ(column.field(track), column.back);
    }
}

TEST(TrackTable, AColumnFillsItsOwnFieldOnly)
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

TEST(TrackTable, ColumnsStandInAnyOrder)
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

TEST(TrackTable, AWholeLineOfTheStandardHeader)
{
    EXPECT_EQ(writtenTable({filledTrack()}, standardHeader),
              "v2\n" + standardHeader +
                  "\n"
                  "12\t1\tObject 7\t2023-02-25\t06:00:00.0000000\t60000.250000000000\t15.123457\t-0.123457\t"
                  "-1.2346\t12.346\t0.13\t-7.6543\t8.7654\t17.46\t(433) Eros\t23533\t101.23\t102.24\t104.00\t"
                  "-104.00\t0.38\t1.11\t2.22\t3.34\t0.1235\t0.2234\t0.3235\t511.57\t512.56\t1.235\t-0.000\t"
                  "0.12346\t360.000\t-30490.395\t61201.495\t4.45\t0.99\t20000.13\t20001.13\t20002.13\t10.02\t"
                  "11.03\t12.04\t3.15\t5.51\t1.34\t25.1235\t-45.68\t0.57\t0.78\t9.92\t0.92\t4.41\t7\t41\t"
                  "V1023 Her_V1021 Her\tSTACK\t0\t0\t0\t0\t1\t\n"
                  "---\n");
}

TEST(TrackTable, AnEmptyTrackHasItsDefaultsInTheLine)
{
    EXPECT_EQ(writtenLines(trackNamed("", {Mark()}), standardHeader),
              "5\t1\tgiven\t1858-11-17\t00:00:00.0000000\t0.000000000000\t0.000000\t0.000000\t0.0000\t0.000\t"
              "0.00\t0.0000\t0.0000\t0.00\t\t\t0.00\t0.00\t0.00\t0.00\t999.00\t0.00\t0.00\t0.00\t0.0000\t"
              "0.0000\t0.0000\t0.00\t0.00\t0.000\t0.000\t0.00000\t0.000\t0.000\t0.000\t0.00\t0.00\t0.00\t"
              "0.00\t0.00\t0.00\t0.00\t0.00\t0.00\t0.00\t0.00\t0.0000\t0.00\t0.00\t0.00\t0.00\t0.00\t0.00\t"
              "1\t0\t\tSTROB\t0\t0\t0\t0\t1\t\n");
}

TEST(TrackTable, NumberOfMarksIsWrittenOnEveryLine)
{
    EXPECT_EQ(writtenLines(trackNamed("A", {{.iB = 1}, {.iB = 2}, {.iB = 3}}), "NBl:Int\tiB:Int"),
              "3\t1\t\n3\t2\t\n3\t3\t\n");
}

TEST(TrackTable, NumberOfMarksIsCountedAndNotRead)
{
    const Track track = readTrack("NBl:Int\tiB:Int", {"77\t1", "77\t2"});
    EXPECT_EQ(track.NMarks, 2);
    EXPECT_EQ(iBsOf(track), (std::vector<int>{1, 2}));
}

TEST(TrackTable, WrittenValuesOfAMarkAreThoseOfItsIndex)
{
    Track track = trackNamed("A", {{.RA = 1.0}, {.RA = 2.0}});
    track.InterBlobs = {{.m_MPC = 11.0}, {.m_MPC = 12.0}};
    EXPECT_EQ(GetDataTrack({"RA"}, track, 1), "2.000000\t");
    EXPECT_EQ(GetDataTrack({"m_MPC"}, track, 0), "11.00\t");
    EXPECT_EQ(GetDataTrack({"m_MPC"}, track, 1), "12.00\t");
}

TEST(TrackTable, WhatATrackLacksCountsAsNew)
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

TEST(TrackTable, UnknownNamesAreWrittenAsZero)
{
    for (const char* name :
         {"", "ra", "RA ", " RA", "RA:Float:deg", "mRA", "mDE", "jd", "FrameName", "RefValue4"})
    {
        SCOPED_TRACE(name);
        EXPECT_EQ(GetDataTrack({name}, filledTrack(), 0), "0\t");
    }
}

TEST(TrackTable, TimeIsCarriedOverMidnightAndTheDateStays)
{
    const Track track = trackNamed("A", {{.date = 60000, .time = 0.9999999999999}});
    EXPECT_EQ(writtenLines(track, "date:Date\ttime:Time\tmjd:Float:day"),
              "2023-02-25\t00:00:00.0000000\t60001.000000000000\t\n");
}

TEST(TrackTable, TimesAreWrittenWithSevenDecimalsOfSeconds)
{
    // 01:02:03.4567891
    const Track track = trackNamed("A", {{.date = 51544, .time = 3723.4567891 / 86400.0}});
    EXPECT_EQ(writtenLines(track, "date:Date\ttime:Time"), "2000-01-01\t01:02:03.4567891\t\n");
}

TEST(TrackTable, FractionOfTheBarycentricDayIsNotInItsDay)
{
    const Track track = trackNamed("A", {{.date = 60000, .time = 0.5, .bjd = 60000, .time_bjd = 0.5}});
    EXPECT_EQ(writtenLines(track, "mjd\tbjd\ttime_bjd"),
              "60000.500000000000\t60000.000000000000\t12:00:00.0000000\t\n");
}

TEST(TrackTable, FrameIsShownFromOneAndHeldFromZero)
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

TEST(TrackTable, ColumnMjdDoesNotSetTheTime)
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

TEST(TrackTable, WrittenMjdIsMadeOfDateAndTime)
{
    const Track track = trackNamed("A", {{.date = 60000, .time = 0.5, .mjd = "59999.75"}});
    EXPECT_EQ(GetDataTrack({"mjd"}, track, 0), "60000.500000000000\t");
}

TEST(TrackTable, WaysOfMakingATrack)
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

TEST(TrackTable, DatesAndTimesThatAreRead)
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

TEST(TrackTable, NumbersThatAreRead)
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

TEST(TrackTable, WholeNumbersAreCutTo32Bits)
{
    EXPECT_EQ(int(readMark("iB:Int", "4294967297").iB), 1);
    EXPECT_EQ(int(readMark("iB:Int", "2147483648").iB), -2147483647 - 1);
    EXPECT_EQ(int(readMark("iB:Int", "99999999999999999999").iB), -1);
    EXPECT_EQ(readTrack("N:Int", {"4294967298"}).N, 2);
}

TEST(TrackTable, QRVNameWinsOverName)
{
    EXPECT_EQ(readTrack("Name:Text", {"first"}).QRVName, "first");
    EXPECT_EQ(readTrack("Name:Text\tQRVName:Text", {"first\tsecond"}).QRVName, "second");
    EXPECT_EQ(readTrack("QRVName:Text\tName:Text", {"first\tsecond"}).QRVName, "first");
    EXPECT_EQ(readTrack("Name:Text\tQRVName:Text", {"first"}).QRVName, "first");
    EXPECT_EQ(readTrack("Name:Text\tQRVName:Text\tiB:Int", {"first\t\t3"}).QRVName, "");
}

TEST(TrackTable, NoradidWinsOverNORAD)
{
    EXPECT_EQ(readTrack("noradid:Text", {"23533"}).NORAD, "23533");
    EXPECT_EQ(readTrack("NORAD:Text\tnoradid:Text", {"1\t2"}).NORAD, "2");
    EXPECT_EQ(readTrack("noradid:Text\tNORAD:Text", {"1\t2"}).NORAD, "1");
    EXPECT_EQ(readTrack("NORAD:Text\tnoradid:Text", {"1"}).NORAD, "1");
    EXPECT_EQ(readTrack("NORAD:Text\tnoradid:Text", {"1"}).QRVName, "");
    EXPECT_EQ(GetDataTrack({"noradid"}, filledTrack(), 0), "23533\t");
}

TEST(TrackTable, SpeedsCalledMRAAndMDEWin)
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

TEST(TrackTable, HeadValuesAreThoseOfTheLastLine)
{
    const Track track = readTrack("N:Int\tQRVName:Text\tV:Float\tTrMade:Text\tm:Float",
                                  {"1\tA\t1.5\tSTROB\t9", "2\tB\t2.5\tHOUGH\t8", "3\tC\t3.5\tMANUA\t7"});
    EXPECT_EQ(track.N, 3);
    EXPECT_EQ(track.QRVName, "C");
    EXPECT_EQ(track.V, 3.5);
    EXPECT_EQ(track.TrMade, THowMakeTr::MANUA);
    EXPECT_EQ(track.NMarks, 3);
    ASSERT_EQ(track.Marks.size(), 3U);
    EXPECT_EQ(double(track.Marks[0].m), 9.0);
    EXPECT_EQ(double(track.Marks[2].m), 7.0);
}

TEST(TrackTable, ValuesOfATrackDoNotReachTheNext)
{
    const Tracks tracks = lListTrack(
        Lines{"v2", "iB:Int\tV:Float\tQRVName:Text\tfiltr:Text", "1\t2.5\tA\tV", "---", "2", "---"});
    ASSERT_EQ(tracks.size(), 2U);
    EXPECT_EQ(tracks[1].V, 0.0);
    EXPECT_EQ(tracks[1].QRVName, "");
    ASSERT_EQ(tracks[1].Marks.size(), 1U);
    EXPECT_EQ(int(tracks[1].Marks[0].iB), 2);
    EXPECT_EQ(std::string(tracks[1].Marks[0].filtr), "R");
}

TEST(TrackTable, MissingFieldsLeaveTheirValues)
{
    const Track track = readTrack("iB:Int\tV:Float\tQRVName:Text\tTrMade:Text\tfiltr:Text\tiF:Int",
                                  {"1\t2.5\tA\tGSOHO\tV\t7", "2"});
    EXPECT_EQ(track.V, 2.5);
    EXPECT_EQ(track.QRVName, "A");
    EXPECT_EQ(track.TrMade, THowMakeTr::GSOHO);
    ASSERT_EQ(track.Marks.size(), 2U);
    EXPECT_EQ(std::string(track.Marks[1].filtr), "R");
    EXPECT_EQ(int(track.Marks[1].iF), 0);
    EXPECT_EQ(int(track.Marks[1].iFRaw), 0);
}

TEST(TrackTable, EmptyFieldsBeforeOthersAreRead)
{
    const Track track = readTrack("V:Float\tQRVName:Text\tTrMade:Text\tfiltr:Text\tiF:Int\tiB:Int",
                                  {"2.5\tA\tGSOHO\tV\t7\t1", "\t\t\t\t\t2"});
    EXPECT_EQ(track.V, 0.0);
    EXPECT_EQ(track.QRVName, "");
    EXPECT_EQ(track.TrMade, THowMakeTr::UNKNO);
    ASSERT_EQ(track.Marks.size(), 2U);
    EXPECT_EQ(std::string(track.Marks[1].filtr), "");
    EXPECT_EQ(int(track.Marks[1].iF), -1);
    EXPECT_EQ(int(track.Marks[1].iB), 2);
}

TEST(TrackTable, EmptyFieldsAtTheEndOfALineOfAFileAreMissing)
{
    const Tracks tracks = readBytes("v2\niB:Int\tCHART:Text\tiF:Int\t\n1\t\t\t\n2\tX\t\n3\t\t5\n---\t\t\n");
    ASSERT_EQ(tracks.size(), 1U);
    const Track& track = tracks[0];
    ASSERT_EQ(track.Marks.size(), 3U);
    EXPECT_EQ(iBsOf(track), (std::vector<int>{1, 2, 3}));
    EXPECT_EQ(std::string(track.Marks[0].CHART), "na");
    EXPECT_EQ(int(track.Marks[0].iF), 0);
    EXPECT_EQ(std::string(track.Marks[1].CHART), "X");
    EXPECT_EQ(int(track.Marks[1].iF), 0);
    EXPECT_EQ(std::string(track.Marks[2].CHART), "");
    EXPECT_EQ(int(track.Marks[2].iF), 4);
}

TEST(TrackTable, FieldsBeyondTheHeaderAreNotRead)
{
    const Track track = readTrack("iB:Int", {"1\t2\t3", "4\t---"});
    EXPECT_EQ(iBsOf(track), (std::vector<int>{1, 4}));
}

TEST(TrackTable, DateAndTimeAloneLeaveAllElseAsNew)
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

TEST(TrackTable, AMarkAndItsInterBlobGrowTogether)
{
    const Track track = readTrack("iB:Int\tm_MPC:Float", {"1\t17.25", "2", "3\tx"});
    ASSERT_EQ(track.Marks.size(), 3U);
    ASSERT_EQ(track.InterBlobs.size(), 3U);
    EXPECT_EQ(track.InterBlobs[0].m_MPC, 17.25);
    EXPECT_EQ(track.InterBlobs[1].m_MPC, 0.0);
    EXPECT_EQ(track.InterBlobs[2].m_MPC, 0.0);
    for (const TInterBlob& blob : track.InterBlobs) {
        EXPECT_EQ(blob.Value2, -1.0);
        EXPECT_EQ(blob.Value3, -1.0);
    }
}

TEST(TrackTable, VersionLineMayBeMissing)
{
    EXPECT_EQ(iBsOf(lListTrack(Lines{"iB:Int", "1", "2", "---", "3", "---"})), (Blobs{{1, 2}, {3}}));
    EXPECT_EQ(iBsOf(lListTrack(Lines{"v2", "iB:Int", "1", "2", "---", "3", "---"})), (Blobs{{1, 2}, {3}}));
}

TEST(TrackTable, OtherVersionLinesAreHeaders)
{
    for (const char* version : {"v1", "V2", "v2 ", " v2", "v2:Int", ""}) {
        SCOPED_TRACE(version);
        const Tracks tracks = lListTrack(Lines{version, "iB:Int", "7", "---"});
        ASSERT_EQ(tracks.size(), 1U);
        ASSERT_EQ(tracks[0].Marks.size(), 2U);
        EXPECT_EQ(iBsOf(tracks[0]), (std::vector<int>{0, 0}));
    }
}

TEST(TrackTable, TablesWithoutTracks)
{
    EXPECT_TRUE(lListTrack(Lines{}).empty());
    EXPECT_TRUE(lListTrack(Lines{"v2"}).empty());
    EXPECT_TRUE(lListTrack(Lines{"v2", "iB:Int"}).empty());
    EXPECT_TRUE(lListTrack(Lines{"iB:Int"}).empty());
    EXPECT_TRUE(lListTrack(Lines{""}).empty());
    EXPECT_TRUE(lListTrack(Lines{"v2", ""}).empty());
    EXPECT_TRUE(lListTrack(Lines{"---"}).empty()); // a header
    EXPECT_TRUE(lListTrack(Lines{"v2", "---"}).empty());
}

TEST(TrackTable, EndsOfTracks)
{
    const struct
    {
        Lines lines;
        Blobs blobs;
    } rows[] = {
        {{"1", "2"}, {{1, 2}}},
        {{"1", "2", "---"}, {{1, 2}}},
        {{"1", "---", "2", "3"}, {{1}}},
        {{"1", "---", "2", "---", "3"}, {{1}, {2}}},
        {{"---"}, {{}}},
        {{"---", "1"}, {{}}},
        {{"---", "1", "---"}, {{}, {1}}},
        {{"1", "---", "---", "2", "---"}, {{1}, {}, {2}}},
        {{"1", "--- ", "2", "---"}, {{1, 0, 2}}},
        {{"1", "----", "2", "---"}, {{1, 0, 2}}},
        {{"1", "--", "---\t", "2", "---"}, {{1, 0, 0, 2}}},
        {{"1", "---\r", "2", "---"}, {{1, 0, 2}}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(joined(row.lines));
        Lines lines = {"v2", "iB:Int"};
        lines.insert(lines.end(), row.lines.begin(), row.lines.end());
        const Tracks tracks = lListTrack(lines);
        EXPECT_EQ(iBsOf(tracks), row.blobs);
        for (const Track& track : tracks) {
            EXPECT_EQ(track.NMarks, int(track.Marks.size()));
            EXPECT_EQ(track.InterBlobs.size(), track.Marks.size());
        }
    }
}

TEST(TrackTable, AnEmptyLineIsAMark)
{
    const Track track = readTrack("iB:Int\tfiltr:Text", {"1\tV", "", "2\tB", ""});
    EXPECT_EQ(iBsOf(track), (std::vector<int>{1, 0, 2, 0}));
    EXPECT_EQ(std::string(track.Marks.at(1).filtr), "R");
    EXPECT_EQ(track.NMarks, 4);
}

TEST(TrackTable, ALineOfBlanksOrOfACommentIsAMark)
{
    EXPECT_EQ(iBsOf(readTrack("iB:Int", {"1", "  ", "#Source>5", "2"})), (std::vector<int>{1, 0, 0, 2}));
}

TEST(TrackTable, UnknownColumnsArePassedOver)
{
    const Track track = readTrack("Mood:Text\tiB:Int\tra:Float\tRA :Float\tRA:Float", {"9\t1\t2\t3\t4"});
    ASSERT_EQ(track.Marks.size(), 1U);
    EXPECT_EQ(int(track.Marks[0].iB), 1);
    EXPECT_EQ(double(track.Marks[0].RA), 4.0);

    const Track unknown = readTrack("Mood:Text", {"9", "8"});
    EXPECT_EQ(iBsOf(unknown), (std::vector<int>{0, 0}));
}

TEST(TrackTable, OnlyTheNameOfADescriptionMatters)
{
    for (const char* header : {"iB", "iB:", "iB:Int", "iB:Text:parsec", "iB::", "iB:RA:DE"}) {
        SCOPED_TRACE(header);
        EXPECT_EQ(int(readMark(header, "41").iB), 41);
    }
    EXPECT_EQ(int(readMark(":iB", "41").iB), 0);
    EXPECT_EQ(int(readMark("iB Int", "41").iB), 0);
    EXPECT_EQ(int(readMark("\tiB:Int", "40\t41").iB), 41);
}

TEST(TrackTable, FirstOfTwoEqualColumnsIsRead)
{
    const Track track = readTrack("iB:Int\tQRVName:Text\tiB:Float\tQRVName:Text", {"1\tA\t2\tB"});
    EXPECT_EQ(iBsOf(track), (std::vector<int>{1}));
    EXPECT_EQ(track.QRVName, "A");
}

TEST(TrackTable, BothOfTwoEqualColumnsAreWritten)
{
    EXPECT_EQ(writtenLines(trackNamed("A", {{.iB = 3}}), "iB:Int\tN:Int\tiB:Float\tN:Text"),
              "3\t5\t3\t5\t\n");
}

TEST(TrackTable, LinesMayEndInCarriageReturns)
{
    const Tracks tracks = readBytes("v2\r\niB:Int\tfiltr:Text\r\n1\tV\r\n2\tB\t\r\n---\r\n3\r\n---\r\n");
    EXPECT_EQ(iBsOf(tracks), (Blobs{{1, 2}, {3}}));
    EXPECT_EQ(std::string(tracks.at(0).Marks.at(0).filtr), "V");
    EXPECT_EQ(std::string(tracks.at(0).Marks.at(1).filtr), "B");
}

TEST(TrackTable, LastLineNeedsNoLineFeed)
{
    EXPECT_EQ(iBsOf(readBytes("v2\niB:Int\n1\n---\n2\n---")), (Blobs{{1}, {2}}));
    EXPECT_EQ(iBsOf(readBytes("v2\niB:Int\n1\n---\n2")), (Blobs{{1}}));
    EXPECT_EQ(iBsOf(readBytes("v2\niB:Int\n1\n2")), (Blobs{{1, 2}}));
}

TEST(TrackTable, FilesWithoutTracks)
{
    for (const char* bytes : {"", "\n", "v2", "v2\n", "v2\niB:Int\n", "\t\t\n", "v2\n\t\n"}) {
        SCOPED_TRACE(bytes);
        EXPECT_TRUE(readBytes(bytes).empty());
    }
    const TemporaryFolder folder;
    EXPECT_TRUE(lListTrack(folder / "missing.txt").empty());
    EXPECT_FALSE(exists(folder / "missing.txt"));
    EXPECT_TRUE(lListTrack(folder.path()).empty());
}

TEST(TrackTable, TracksOfAFileKnowTheirFile)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.txt", "v2\niB:Int\n1\n---\n---\n2\n---\n");
    const Tracks tracks = lListTrack(folder / "a.txt");
    ASSERT_EQ(tracks.size(), 3U);
    for (const Track& track : tracks) {
        EXPECT_EQ(track.SourceFile, folder / "a.txt");
    }
    EXPECT_EQ(lListTrack(Lines{"iB", "1"}).at(0).SourceFile, "");
}

TEST(TrackTable, HeadIsAppendedUnderTheFlag)
{
    const TemporaryFolder folder;
    sHeadTrack(folder / "none.txt", false, "iB:Int");
    EXPECT_FALSE(exists(folder / "none.txt"));

    sHeadTrack(folder / "a.txt", true, "");
    EXPECT_EQ(bytesOf(folder / "a.txt"), "v2\n" + standardHeader + "\n");

    makeFile(folder / "b.txt", "before\n");
    sHeadTrack(folder / "b.txt", true, "iB:Int\tQRVName:Text");
    sHeadTrack(folder / "b.txt", false, "RA:Float");
    EXPECT_EQ(bytesOf(folder / "b.txt"), "before\nv2\niB:Int\tQRVName:Text\n");
}

TEST(TrackTable, HeadOfSatelliteTablesReplacesTheFile)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.txt", "before\n");
    for (int i = 0; i < 2; ++i) {
        sHeadSatTrack(folder / "a.txt");
        EXPECT_EQ(bytesOf(folder / "a.txt"), "v2\nN:Int\tNBl:Int\tdate:Date\ttime:Time\tnoradid:Text\tRA:"
                                             "Float:deg\tDE:Float:degt\tDraw:Bool\n");
    }
}

TEST(TrackTable, HeadOfSatelliteTablesThatCannotBeWrittenRaisesCode7)
{
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder / "folder");
    makeFile(folder / "folder/kept.txt", "kept\n");
    for (const std::string& path : {folder / "folder", folder / "missing/a.txt"}) {
        SCOPED_TRACE(path);
        try {
            sHeadSatTrack(path);
            ADD_FAILURE() << "nothing was raised";
        } catch (const TavelinException& failure) {
            EXPECT_EQ(failure.getCode(), 7);
            EXPECT_EQ(failure.getComment(), path);
        }
    }
    EXPECT_EQ(bytesOf(folder / "folder/kept.txt"), "kept\n");
    EXPECT_FALSE(exists(folder / "missing"));
}

TEST(TrackTable, LinesOfATrackAreAppended)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.txt", "before\n");
    const Track track = trackNamed("A", {{.iB = 1}, {.iB = 2}});
    sTrack(folder / "a.txt", "", "", "", 3, false, track, "X", "iB:Int\tN:Int\tName:Text\tQRVName:Text",
           false);
    sTrack(folder / "a.txt", "", "", "", 4, false, track, "Y", "iB:Int\tN:Int\tName:Text\tQRVName:Text",
           true);
    EXPECT_EQ(bytesOf(folder / "a.txt"), "before\n1\t3\tX\tX\t\n2\t3\tX\tX\t\n1\t4\tY\tY\t\n2\t4\tY\tY\t\n");
}

TEST(TrackTable, TrackWithoutMarksOpensNoFile)
{
    const TemporaryFolder folder;
    sTrack(folder / "a.txt", "", "", "", 1, false, Track(), "A", "iB:Int", false);
    EXPECT_FALSE(exists(folder / "a.txt"));
}

TEST(TrackTable, UnknownColumnsOfAHeaderAreWrittenAsZero)
{
    EXPECT_EQ(writtenLines(trackNamed("A", {{.iB = 1}}), "Mood:Text\tiB\t:Int\tMood"), "0\t1\t0\t0\t\n");
}

TEST(TrackTable, WithoutHeaderTheLinesAreEmpty)
{
    EXPECT_EQ(writtenLines(trackNamed("A", {{.iB = 1}, {.iB = 2}}), ""), "\n\n");
    EXPECT_EQ(writtenTable({trackNamed("A", {{.iB = 1}, {.iB = 2}}), trackNamed("B", {Mark()})}, ""),
              "v2\n" + standardHeader + "\n\n\n---\n\n---\n");
}

TEST(TrackTable, CandidatesAreWrittenWithATab)
{
    Track track = trackNamed("A", {{.iB = 1}, {.iB = 2}});
    track.Candidates = {"one two", "three"};
    EXPECT_EQ(writtenLines(track, "Candidates:Text\tiB:Int"), "one two\t1\t\nthree\t2\t\n");
}

TEST(TrackTable, CastIsWrittenWithoutATab)
{
    Track track = trackNamed("A", {{.iB = 1}, {.iB = 2}});
    track.Cast = {"2460000.5;15.25;-0.5;1", "c"};
    EXPECT_EQ(writtenLines(track, "iB:Int\tCast:Float:jd_ra_de_tag"), "1\t2460000.5;15.25;-0.5;1\n2\tc\n");
    EXPECT_EQ(writtenLines(track, "Cast\tiB"), "2460000.5;15.25;-0.5;11\t\nc2\t\n");
    EXPECT_EQ(writtenLines(track, "Cast"), "2460000.5;15.25;-0.5;1\nc\n");
}

TEST(TrackTable, MissingCandidatesAndCastAreEmpty)
{
    Track track = trackNamed("A", {{.iB = 1}, {.iB = 2}});
    EXPECT_EQ(writtenLines(track, "Candidates\tiB\tCast"), "\t1\t\n\t2\t\n");
    track.Candidates = {"one"};
    track.Cast = {"c"};
    EXPECT_EQ(writtenLines(track, "Candidates\tiB\tCast"), "one\t1\tc\n\t2\t\n");
}

TEST(TrackTable, NamesInTheLines)
{
    const struct
    {
        std::string given, qrvName;
        bool longName;
        THowMakeTr made;
        int number;
        std::string prefix, suffix, written;
    } rows[] = {
        {"given", "ABCDEFGHIJ", false, THowMakeTr::GSOHO, 7, "P", "S", "given"},
        {"a given long name", "A", true, THowMakeTr::STROB, 7, "", "", "a given long name"},
        {"", "ABCDEFGH", false, THowMakeTr::STROB, 7, "", "", "BCDEFGH"},
        {"", "ABCDEFGHI", false, THowMakeTr::STROB, 7, "", "", "BCDEFGHI"},
        {"", "ABCDEFGHIJKL", false, THowMakeTr::STROB, 7, "P", "S", "BCDEFGHI"},
        {"", "ABCDEFGHIJKL", false, THowMakeTr::GSOHO, 7, "", "", "BCDEFGHI"},
        {"", "ABCDEFGHIJKL", true, THowMakeTr::STROB, 7, "", "", "A0725"},
        {"", "ABCDEFGHIJKL", true, THowMakeTr::GSOHO, 7, "P", "S", "P007"},
        {"", "ABCDEFG", false, THowMakeTr::STROB, 7, "", "", "A0725"},
        {"", "ABCDEFG", true, THowMakeTr::STROB, 7, "", "", "A0725"},
        {"", "", false, THowMakeTr::STROB, 7, "", "", "A0725"},
        {"", "", false, THowMakeTr::SFAST, 12, "P", "", "P1225"},
        {"", "", false, THowMakeTr::HOUGH, 12, "", "S", "12S25"},
        {"", "", false, THowMakeTr::GSOHO, 12, "P", "S", "P012"},
        {"", "", false, THowMakeTr::MOSKH, 7, "", "", "007"},
        {"", "", false, THowMakeTr::MANUA, 123, "P", "S", "P123S5"},
        {"", "", false, THowMakeTr::STACK, 7, "", "", "A0725"},
        {"", "", false, THowMakeTr::UNKNO, 7, "", "", "A0725"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.given + "," + row.qrvName + "," + std::to_string(int(row.made)));
        Track track = trackNamed(row.qrvName, {Mark()});
        track.TrMade = row.made;
        track.N = 99;
        for (const bool flag : {false, true}) {
            const TemporaryFolder folder;
            sTrack(folder / "a.txt", "/data/night25/t.txt", row.prefix, row.suffix, row.number, row.longName,
                   track, row.given, "QRVName:Text\tN:Int\tName:Text", flag);
            EXPECT_EQ(bytesOf(folder / "a.txt"),
                      row.written + "\t" + std::to_string(row.number) + "\t" + row.written + "\t\n");
        }
    }
}

TEST(TrackTable, TableIsAddedOrReplaces)
{
    const TemporaryFolder folder;
    const Tracks tracks = {trackNamed("A", {{.iB = 1}}), trackNamed("B", {{.iB = 2}, {.iB = 3}})};
    const std::string table = "v2\nName\tiB\nA\t1\t\n---\nB\t2\t\nB\t3\t\n---\n";

    makeFile(folder / "a.txt", "before\n");
    sListTrack(folder / "a.txt", "", "", tracks, "", false, false, "Name\tiB");
    EXPECT_EQ(bytesOf(folder / "a.txt"), "before\n" + table);
    sListTrack(folder / "a.txt", "", "", tracks, "", false, true, "Name\tiB");
    EXPECT_EQ(bytesOf(folder / "a.txt"), table);
    sListTrack(folder / "a.txt", "", "", tracks, "", false, false, "Name\tiB");
    EXPECT_EQ(bytesOf(folder / "a.txt"), table + table);

    sListTrack(folder / "new.txt", "", "", tracks, "", false, false, "Name\tiB");
    EXPECT_EQ(bytesOf(folder / "new.txt"), table);
}

TEST(TrackTable, TracksStandUnderTheirOwnNumbersAndNames)
{
    Track longNamed = trackNamed("ABCDEFGHIJKL", {Mark()});
    longNamed.N = 3;
    longNamed.TrMade = THowMakeTr::GSOHO;
    Track nameless = trackNamed("", {Mark()});
    nameless.N = 8;
    Track satellite = nameless;
    satellite.TrMade = THowMakeTr::MOSKH;
    const Tracks tracks = {longNamed, nameless, satellite};

    const TemporaryFolder folder;
    for (const bool longName : {false, true}) {
        sListTrack(folder / "a.txt", "/data/night25/t.txt", "P", tracks, "S", longName, true,
                   "N\tName\tQRVName");
        EXPECT_EQ(bytesOf(folder / "a.txt"), "v2\nN\tName\tQRVName\n"
                                             "3\tABCDEFGHIJKL\tABCDEFGHIJKL\t\n---\n"
                                             "8\tP08S25\tP08S25\t\n---\n"
                                             "8\tP008\tP008\t\n---\n");
    }
}

TEST(TrackTable, EmptyListLeavesAHeaderAlone)
{
    EXPECT_EQ(writtenTable({}, "iB:Int"), "v2\niB:Int\n");
    EXPECT_EQ(writtenTable({}, ""), "v2\n" + standardHeader + "\n");
}

TEST(TrackTable, TracksWithoutMarksAreAnEndAlone)
{
    const std::string bytes = writtenTable({Track(), trackNamed("A", {{.iB = 1}}), Track()}, "iB:Int");
    EXPECT_EQ(bytes, "v2\niB:Int\n---\n1\t\n---\n---\n");
    EXPECT_EQ(iBsOf(readBytes(bytes)), (Blobs{{}, {1}, {}}));
}

TEST(TrackTable, WhatCannotBeWrittenIsPassedOver)
{
    const Tracks tracks = {trackNamed("A", {{.iB = 1}})};
    for (const bool rewrite : {false, true}) {
        SCOPED_TRACE(rewrite);
        expectSilence(
            [&](const std::string& path) { sListTrack(path, "", "", tracks, "", false, rewrite, "iB:Int"); });
    }
    expectSilence(
        [&](const std::string& path) { sTrack(path, "", "", "", 1, false, tracks[0], "", "iB:Int", false); });
    expectSilence([](const std::string& path) { sHeadTrack(path, true, ""); });
}

TEST(TrackTable, ShortNames)
{
    const struct
    {
        std::string path;
        int number;
        std::string prefix, suffix, name;
    } rows[] = {
        {"/data/night25/t.txt", 7, "", "", "A0725"},
        {"/data/night25/t.txt", 0, "", "", "A0025"},
        {"/data/night25/t.txt", 9, "", "", "A0925"},
        {"/data/night25/t.txt", 10, "", "", "A1025"},
        {"/data/night25/t.txt", 99, "", "", "A9925"},
        {"/data/night25/t.txt", 100, "", "", "A1005"},
        {"/data/night25/t.txt", 1234, "", "", "A12345"},
        {"/data/night25/t.txt", -3, "", "", "A0-325"},
        {"/data/night25/t.txt", 7, "B", "", "B0725"},
        {"/data/night25/t.txt", 7, "", "z", "07z25"},
        {"/data/night25/t.txt", 7, "B", "z", "B07z25"},
        {"/data/night25/t.txt", 100, "Bc", "yz", "Bc100yz5"},
        {"/data/night25/", 7, "", "", "A0725"},
        {"/data/night25", 7, "", "", "A07ta"},
        {"c:\\data\\night25\\t.txt", 7, "", "", "A0725"},
        {"t.txt", 7, "", "", "A07xt"},
        {"t.txt", 100, "", "", "A100t"},
        {"5/t.txt", 7, "", "", "A075"},
        {"5/t.txt", 100, "", "", "A1005"},
        {"/t.txt", 7, "", "", "A07"},
        {"", 7, "", "", "A07"},
        {"", 100, "", "", "A100"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.path + " " + std::to_string(row.number));
        EXPECT_EQ(CalcSecondName(row.path, row.number, row.prefix, row.suffix), row.name);
    }
}

TEST(TrackTable, ShortNamesOfSatellites)
{
    const struct
    {
        int number;
        std::string prefix, name;
    } rows[] = {{0, "S", "S000"},  {1, "S", "S001"},     {9, "S", "S009"},        {10, "S", "S010"},
                {99, "S", "S099"}, {100, "S", "S100"},   {999, "S", "S999"},      {1000, "S", "S1000"},
                {7, "", "007"},    {54321, "", "54321"}, {7, "long-", "long-007"}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(CalcSecondNameSat(row.number, row.prefix), row.name);
    }
}

TEST(TrackTable, TextsOfCast)
{
    const struct
    {
        std::string text;
        double JD, RA, DE;
    } rows[] = {
        {"", 0, 0, 0},
        {"2460000.5;15.25;-0.5;1", 2460000.5, 15.25, -0.5},
        {"2460000.5;15.25;-0.5;", 2460000.5, 15.25, -0.5},
        {"2460000.5;15.25;-0.5", 2460000.5, 15.25, -0.5},
        {"2460000.5;15.25", 2460000.5, 15.25, 0},
        {"2460000.5", 2460000.5, 0, 0},
        {"2460000.5;;-0.5", 2460000.5, 0, -0.5},
        {";15.25;-0.5;1", 0, 15.25, -0.5},
        {";", 0, 0, 0},
        {";;;", 0, 0, 0},
        {"1;2;3;4;5;6", 1, 2, 3},
        {" 1; 2 ;+3x;tag", 1, 2, 3},
        {"a;b;c;d", 0, 0, 0},
        {"1,2,3", 1, 0, 0},
        {"1e3;1e1;-1e1", 1000, 10, -10},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        const TCasts cast = StrToCast(row.text);
        EXPECT_EQ(cast.JD, row.JD);
        EXPECT_EQ(cast.RA, row.RA);
        EXPECT_EQ(cast.DE, row.DE);
    }
}

TEST(TrackTable, StandardTableComesBackAsItsTexts)
{
    const TemporaryFolder folder;
    sListTrack(folder / "a.txt", "", "", {filledTrack(), filledTrack()}, "", false, true, standardHeader);
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
    sListTrack(folder / "a.txt", "", "", tracks, "", false, true, standardHeader);
    std::string expected = once;
    for (std::size_t at = expected.find("\t0.38\t"); at != std::string::npos; at = expected.find("\t0.38\t"))
    {
        expected.replace(at, 6, "\t999.00\t"); // FindOrb, which is not read
    }
    EXPECT_EQ(bytesOf(folder / "a.txt"), expected);
}

TEST(TrackTable, FindOrbCandidatesAndCastDoNotComeBack)
{
    Track track = trackNamed("A", {{.iB = 1}});
    track.FindOrb = 0.25;
    track.Candidates = {"one"};
    track.Cast = {"1;2;3;4"};
    const std::string bytes = writtenTable({track}, "FindOrb\tCandidates\tiB\tCast");
    EXPECT_EQ(bytes, "v2\nFindOrb\tCandidates\tiB\tCast\n0.25\tone\t1\t1;2;3;4\n---\n");

    const Tracks tracks = readBytes(bytes);
    ASSERT_EQ(tracks.size(), 1U);
    EXPECT_EQ(iBsOf(tracks[0]), (std::vector<int>{1}));
    EXPECT_EQ(tracks[0].FindOrb, 999.0);
    EXPECT_TRUE(tracks[0].Candidates.empty());
    EXPECT_TRUE(tracks[0].Cast.empty());
}

TEST(TrackTable, BarycentricTimesDoNotComeBack)
{
    const Track track = trackNamed("A", {{.bjd = 60000, .time_bjd = 0.5}});
    const Tracks tracks = readBytes(writtenTable({track}, "bjd\ttime_bjd"));
    ASSERT_EQ(tracks.size(), 1U);
    ASSERT_EQ(tracks[0].Marks.size(), 1U);
    EXPECT_EQ(int(tracks[0].Marks[0].bjd), 0);
    EXPECT_EQ(double(tracks[0].Marks[0].time_bjd), 0.0);
}

TEST(TrackTable, LinesOfALightCurveTable)
{
    // V1021 Her on 2017-05-05, MJD 57878
    const Track track =
        readTrack("N:Int\tNBl:Int\tName:Text\tdate:Date\ttime:Time\tmjd:Float:day\ttime_bjd:Time\tbjd:Float:"
                  "day\tRA:Float:deg\t"
                  "DE:Float:deg\tm:Float:mag\tmEnsemble:Float:mag\tfiltr:Text\tMTYPE:Text\tCNAME:Text\tCMAG:"
                  "Text\tKNAME:Text\t"
                  "KMAG:Text\tCHART:Text\tiF:Int\tQRVID:Text\tDraw:Bool",
                  {"1\t23\tV1021 "
                   "Her\t2017-05-05\t05:17:01.8240000\t57878.220159999997\t00:00:00.0000000\t0.000000000000\t"
                   "239.439220\t49.465640\t13.5820\t13.5810\tV\tSTD\tENSEMBLE\tna\t130\t13.069\tX16140EI\t0\t"
                   "V1023 Her_V1021 Her\t1\t",
                   "1\t23\tV1021 "
                   "Her\t2017-05-05\t05:24:40.6080000\t57878.225469999998\t00:00:00.0000000\t0.000000000000\t"
                   "239.439220\t49.465640\t13.5840\t13.5830\tV\tSTD\tENSEMBLE\tna\t130\t13.071\tX16140EI\t0\t"
                   "V1023 Her_V1021 Her\t1\t"});
    EXPECT_EQ(track.N, 1);
    EXPECT_EQ(track.NMarks, 2);
    EXPECT_EQ(track.QRVName, "V1021 Her");
    EXPECT_EQ(track.NORAD, "");
    ASSERT_EQ(track.Marks.size(), 2U);
    const Mark& mark = track.Marks[1];
    EXPECT_EQ(int(mark.date), 57878);
    EXPECT_NEAR(double(mark.time), 0.22547, 1e-12);
    EXPECT_EQ(std::string(mark.mjd), "57878.225469999998");
    EXPECT_EQ(double(mark.RA), 239.43922);
    EXPECT_EQ(double(mark.DE), 49.46564);
    EXPECT_EQ(double(mark.m), 13.584);
    EXPECT_EQ(double(mark.mEnsemble), 13.583);
    EXPECT_EQ(std::string(mark.filtr), "V");
    EXPECT_EQ(std::string(mark.MTYPE), "STD");
    EXPECT_EQ(std::string(mark.CNAME), "ENSEMBLE");
    EXPECT_EQ(std::string(mark.KNAME), "130");
    EXPECT_EQ(std::string(mark.CHART), "X16140EI");
    EXPECT_EQ(std::string(mark.QRVID), "V1023 Her_V1021 Her");
    EXPECT_EQ(int(mark.iF), -1);
}

namespace {

const std::string satelliteTable =
    fixture("series/sat_seesat_20031120/tavelin/dataVO/obj-satellites-cat.txt");

} // namespace

TEST(TrackTable, SatellitesOfAVisualObserver)
{
    // The observer's own list: UTC, right ascension in hours and minutes, declination in degrees.
    const struct
    {
        std::size_t track;
        int hour, minute;
        double second;
        int raHour;
        double raMinute;
        double DE;
    } observed[] = {
        {0, 1, 10, 47.59, 20, 27.142, -28.9077}, {0, 1, 13, 5.07, 19, 19.261, 9.0806},
        {0, 1, 13, 21.87, 19, 8.590, 14.4352},   {0, 1, 13, 49.78, 18, 49.582, 22.9539},
        {0, 1, 14, 19.46, 18, 27.490, 31.1236},  {1, 1, 46, 55.2, 23, 43.335, -21.7095},
        {1, 1, 47, 9.03, 23, 38.166, -25.2211},  {1, 1, 47, 53.75, 23, 23.296, -34.5679},
    };
    const Tracks tracks = lListTrack(satelliteTable);
    ASSERT_EQ(tracks.size(), 2U);
    ASSERT_EQ(tracks[0].Marks.size(), 5U);
    ASSERT_EQ(tracks[1].Marks.size(), 3U);

    for (std::size_t i = 0; i < std::size(observed); ++i) {
        SCOPED_TRACE(i);
        const auto& row = observed[i];
        const Mark& mark = tracks[row.track].Marks[row.track == 0 ? i : i - 5];
        EXPECT_EQ(int(mark.date), 52963); // 2003-11-20
        EXPECT_NEAR(double(mark.time) * 86400.0, row.hour * 3600.0 + row.minute * 60.0 + row.second, 1e-6);
        EXPECT_NEAR(double(mark.RA), (row.raHour + row.raMinute / 60.0) * 15.0, 6e-7);
        EXPECT_DOUBLE_EQ(double(mark.DE), row.DE);
        EXPECT_EQ(double(mark.m), 0.0);
        EXPECT_EQ(int(mark.iF), int(i));
        EXPECT_EQ(int(mark.iFRaw), int(i) + 1);
        EXPECT_EQ(std::string(mark.filtr), "R");
        EXPECT_EQ(std::string(mark.QRVID), "");
    }
    EXPECT_EQ(std::string(tracks[0].Marks[0].mjd), "52963.049161921299");

    EXPECT_EQ(tracks[0].QRVName, "23533");
    EXPECT_EQ(tracks[0].NORAD, "23533");
    EXPECT_EQ(tracks[0].N, 1);
    EXPECT_EQ(tracks[0].NMarks, 5);
    EXPECT_EQ(tracks[0].V, 68376.07194);
    EXPECT_EQ(tracks[0].PA, 333.518);
    EXPECT_EQ(tracks[0].V_ra, -30490.395);
    EXPECT_EQ(tracks[0].V_de, 61201.495);
    EXPECT_EQ(tracks[1].QRVName, "07816");
    EXPECT_EQ(tracks[1].NORAD, "07816");
    EXPECT_EQ(tracks[1].N, 2);
    EXPECT_EQ(tracks[1].NMarks, 3);
    for (const Track& track : tracks) {
        EXPECT_EQ(track.MPCChecker, "");
        EXPECT_EQ(track.TrMade, THowMakeTr::MANUA);
        EXPECT_EQ(track.FindOrb, 999.0);
        EXPECT_EQ(track.SourceFile, satelliteTable);
        EXPECT_EQ(track.InterBlobs.size(), track.Marks.size());
    }
}

TEST(TrackTable, ARealTableIsWrittenAsItWas)
{
    EXPECT_EQ(writtenTable(lListTrack(satelliteTable), standardHeader), bytesOf(satelliteTable));
}
