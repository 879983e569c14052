#include "formats/horizons.h"

#include "support/measured_marks.h"
#include "support/places.h"
#include "support/temporary_folder.h"
#include "support/texts.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <map>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

using namespace tavelinUtils;

namespace {

using Lines = std::vector<std::string>;

// 29 February 2024, 6 h: 157.5 and 20.26 degrees.
const std::string leapDay =
    " 2024-Feb-29 06:00:00.000 *m  10 30 00.00 +20 15 36.0        n.a.       n.a.   13.761   4.967"
    "   1.2500000   288.26854";
// 1 September 2022, a minute after midnight: 0 and -0.5 degrees.
const std::string autumn =
    " 2022-Sep-01 00:01:00.000 Cm  00 00 00.00 -00 30 00.0        n.a.       n.a.   -1.460   4.967"
    "   0.3174311    12.50000";

TrackVtorichka trackOf(const Lines& lines)
{
    TrackVtorichka track;
    EXPECT_EQ(lHorizons(lines, track), 0);
    return track;
}

TRecLabelPervichka_File markOf(const std::string& line)
{
    const TrackVtorichka track = trackOf({"$$SOE", line, "$$EOE"});
    if (track.Marks.size() != 1) {
        ADD_FAILURE() << track.Marks.size() << " marks of " << line;
        return {};
    }
    return track.Marks[0];
}

TEST(Horizons, MonthsAreTwoDigits)
{
    const std::map<std::string, std::string> months = {
        {"Jan", "01"}, {"Feb", "02"}, {"Mar", "03"}, {"Apr", "04"}, {"May", "05"}, {"Jun", "06"},
        {"Jul", "07"}, {"Aug", "08"}, {"Sep", "09"}, {"Oct", "10"}, {"Nov", "11"}, {"Dec", "12"},
    };
    EXPECT_EQ(GetMonthCount(), months);
}

TEST(Horizons, LineGivesEachColumn)
{
    const TrackVtorichka track = trackOf({"$$SOE", leapDay, "$$EOE"});
    ASSERT_EQ(track.Marks.size(), 1U);
    const TRecLabelPervichka_File& mark = track.Marks[0];
    EXPECT_TRUE(isAbout(measured(mark), {60369, 0.25, 157.5, 20.26, 13.761}));
    EXPECT_DOUBLE_EQ(track.V, 1.25);
    EXPECT_DOUBLE_EQ(track.PA, 288.26854);
}

TEST(Horizons, WhatNoColumnTellsKeepsItsDefault)
{
    const TrackVtorichka track = trackOf({"$$SOE", leapDay, "$$EOE"});
    ASSERT_EQ(track.Marks.size(), 1U);
    EXPECT_DOUBLE_EQ(track.Marks[0].RefValue4, -1.0);
    EXPECT_DOUBLE_EQ(track.Marks[0].X_f, 0.0);
    EXPECT_EQ(std::string(track.Marks[0].filtr), "R");
    EXPECT_EQ(track.QRVName, "");
    EXPECT_EQ(track.NORAD, "");
    EXPECT_DOUBLE_EQ(track.V_ra, 0.0);
}

TEST(Horizons, MinusZeroDegreesKeepTheirSign)
{
    const TRecLabelPervichka_File mark = markOf(autumn);
    EXPECT_TRUE(isAbout(measured(mark), {59823, 1.0 / 1440.0, 0.0, -0.5, -1.46}));
}

TEST(Horizons, NothingBetweenTheColumnsCounts)
{
    std::string line(130, '9');
    line = with(line, 1, "2024-Feb-29");
    line = with(line, 13, "06:00:00.000");
    line = with(line, 30, "10 30 00.00");
    line = with(line, 42, "-20 15 36.0");
    line = with(line, 79, "13.761");
    line = with(line, 95, " 1.2500000");
    line = with(line, 107, " 288.26854");
    const TrackVtorichka track = trackOf({"$$SOE", line, "$$EOE"});
    ASSERT_EQ(track.Marks.size(), 1U);
    EXPECT_TRUE(isAbout(measured(track.Marks[0]), {60369, 0.25, 157.5, -20.26, 13.761}));
    EXPECT_DOUBLE_EQ(track.V, 1.25);
    EXPECT_DOUBLE_EQ(track.PA, 288.26854);
}

TEST(Horizons, ColumnsAreAsWideAsTheyAre)
{
    std::string line(130, ' ');
    line = with(line, 1, "2024-Feb-29");
    line = with(line, 13, "00:00:08.64012345");
    line = with(line, 30, "00 00 36.001234");
    line = with(line, 42, "00 00 36.00123");
    line = with(line, 79, "13.7612345");
    line = with(line, 95, "1.2345678912");
    line = with(line, 107, "123.456789123");
    const TrackVtorichka track = trackOf({"$$SOE", line, "$$EOE"});
    ASSERT_EQ(track.Marks.size(), 1U);
    EXPECT_DOUBLE_EQ(track.Marks[0].time, 8.640 / 86400.0);
    EXPECT_DOUBLE_EQ(track.Marks[0].RA, 0.15);
    EXPECT_DOUBLE_EQ(track.Marks[0].DE, 0.01);
    EXPECT_DOUBLE_EQ(track.Marks[0].m, 13.761);
    EXPECT_DOUBLE_EQ(track.V, 1.23456789);
    EXPECT_DOUBLE_EQ(track.PA, 123.456789);
}

TEST(Horizons, EachMonthIsKnown)
{
    const std::pair<std::string, int> firstDays[] = {
        {"Jan", 60310}, {"Feb", 60341}, {"Mar", 60370}, {"Apr", 60401}, {"May", 60431}, {"Jun", 60462},
        {"Jul", 60492}, {"Aug", 60523}, {"Sep", 60554}, {"Oct", 60584}, {"Nov", 60615}, {"Dec", 60645},
    };
    for (const auto& [month, mjd] : firstDays) {
        SCOPED_TRACE(month);
        EXPECT_EQ(measured(markOf(with(leapDay, 1, "2024-" + month + "-01"))).date, mjd);
    }
}

TEST(Horizons, UnknownMonthIsOutOfRange)
{
    for (const char* date : {"2024-feb-29", "2024-FEB-29", "2024-02-29 ", "2024-   -29", "2024 Feb 29",
                             "           ", "2024-Febr-2"})
    {
        SCOPED_TRACE(date);
        TrackVtorichka track;
        EXPECT_THROW(lHorizons(Lines{"$$SOE", with(leapDay, 1, date), "$$EOE"}, track), std::out_of_range);
        EXPECT_TRUE(track.Marks.empty());
    }
}

TEST(Horizons, LineThatEndsBeforeAColumnIsOutOfRange)
{
    const std::size_t lengths[] = {0, 1, 12, 13, 29, 30, 41, 42, 53, 78, 79, 94, 95, 105, 106};
    for (const std::size_t length : lengths) {
        SCOPED_TRACE(length);
        TrackVtorichka track;
        EXPECT_THROW(lHorizons(Lines{"$$SOE", leapDay.substr(0, length), "$$EOE"}, track), std::out_of_range);
        EXPECT_TRUE(track.Marks.empty());
    }
}

TEST(Horizons, LineMayEndWithinTheLastColumn)
{
    const std::pair<std::size_t, double> lengths[] = {
        {107, 0.0}, {108, 0.0}, {111, 288.0}, {112, 288.0}, {113, 288.2}, {116, 288.2685}, {117, 288.26854},
    };
    for (const auto& [length, angle] : lengths) {
        SCOPED_TRACE(length);
        TrackVtorichka track;
        track.PA = 7.0;
        EXPECT_EQ(lHorizons(Lines{"$$SOE", leapDay.substr(0, length), "$$EOE"}, track), 0);
        EXPECT_DOUBLE_EQ(track.PA, angle);
    }
}

TEST(Horizons, MarksBeforeALineThatIsTooShortStay)
{
    TrackVtorichka track;
    EXPECT_THROW(lHorizons(Lines{"$$SOE", leapDay, "", autumn, "$$EOE"}, track), std::out_of_range);
    ASSERT_EQ(track.Marks.size(), 1U);
    EXPECT_EQ(measured(track.Marks[0]).date, 60369);
}

TEST(Horizons, LineThatEndsBeforeTheAngleHasSetTheSpeed)
{
    TrackVtorichka track;
    track.V = 3.0;
    track.PA = 4.0;
    EXPECT_THROW(lHorizons(Lines{"$$SOE", with(leapDay, 95, "      12.5").substr(0, 106), "$$EOE"}, track),
                 std::out_of_range);
    EXPECT_DOUBLE_EQ(track.V, 12.5);
    EXPECT_DOUBLE_EQ(track.PA, 4.0);
    EXPECT_TRUE(track.Marks.empty());
}

TEST(Horizons, WhatIsNoNumberCountsAsZero)
{
    std::string line = leapDay;
    line = with(line, 13, "n.a.        ");
    line = with(line, 30, "       n.a.");
    line = with(line, 42, "           ");
    line = with(line, 79, "  n.a.");
    line = with(line, 95, "      n.a.");
    line = with(line, 107, "          ");
    TrackVtorichka track;
    track.V = 3.0;
    track.PA = 4.0;
    EXPECT_EQ(lHorizons(Lines{"$$SOE", line, "$$EOE"}, track), 0);
    ASSERT_EQ(track.Marks.size(), 1U);
    EXPECT_TRUE(isAbout(measured(track.Marks[0]), {60369, 0.0, 0.0, 0.0, 0.0}));
    EXPECT_DOUBLE_EQ(track.V, 0.0);
    EXPECT_DOUBLE_EQ(track.PA, 0.0);
}

TEST(Horizons, BlankBeforeAnAngleShiftsItsParts)
{
    std::string line = leapDay;
    line = with(line, 30, " 1 30 00.00");
    line = with(line, 42, " -3 45 00.0");
    const TRecLabelPervichka_File mark = markOf(line);
    EXPECT_DOUBLE_EQ(mark.RA, 0.375);
    // The empty degrees have no "-"; the minutes have.
    EXPECT_DOUBLE_EQ(mark.DE, -0.0375);
}

TEST(Horizons, PartsOfAnAngleBeyondTheThirdDoNotCount)
{
    std::string line = leapDay;
    line = with(line, 30, "10 30 0 9 9");
    line = with(line, 42, "20 15 36 99");
    const TRecLabelPervichka_File mark = markOf(line);
    EXPECT_DOUBLE_EQ(mark.RA, 157.5);
    EXPECT_DOUBLE_EQ(mark.DE, 20.26);
}

TEST(Horizons, TimeWithoutSecondsIsATime)
{
    EXPECT_DOUBLE_EQ(markOf(with(leapDay, 13, "06:30       ")).time, 6.5 / 24.0);
}

TEST(Horizons, HeadHasSpeedAndAngleOfTheLastLine)
{
    const TrackVtorichka track = trackOf({"$$SOE", leapDay, autumn, "$$EOE"});
    EXPECT_EQ(track.Marks.size(), 2U);
    EXPECT_DOUBLE_EQ(track.V, 0.3174311);
    EXPECT_DOUBLE_EQ(track.PA, 12.5);
}

TEST(Horizons, MarksAreAppended)
{
    TrackVtorichka track;
    track.QRVName = "Apollo";
    track.Marks.resize(2);
    EXPECT_EQ(lHorizons(Lines{"$$SOE", leapDay, "$$EOE"}, track), 0);
    ASSERT_EQ(track.Marks.size(), 3U);
    EXPECT_EQ(measured(track.Marks[0]).date, 0);
    EXPECT_EQ(measured(track.Marks[1]).date, 0);
    EXPECT_EQ(measured(track.Marks[2]).date, 60369);
    EXPECT_EQ(track.QRVName, "Apollo");
}

TEST(Horizons, OrderOfTheTwoWordsDecides)
{
    struct Case
    {
        const char* what;
        Lines lines;
        int result;
        std::size_t marks;
    };
    const Case cases[] = {
        {"no lines", {}, -1, 0},
        {"neither", {leapDay}, -1, 0},
        {"nothing between", {"$$SOE", "$$EOE"}, 0, 0},
        {"text around", {"Ephemeris", "", leapDay, "$$SOE", leapDay, "$$EOE", autumn, "", "***"}, 0, 1},
        {"no end", {"$$SOE", leapDay, autumn}, -1, 2},
        {"start alone", {"$$SOE"}, -1, 0},
        {"no start", {leapDay, autumn, "$$EOE"}, -1, 0},
        {"end first", {"$$EOE", "$$SOE", leapDay}, -1, 0},
        {"end first and last", {"$$EOE", "$$SOE", leapDay, "$$EOE"}, -1, 0},
        {"second start behind the end", {"$$SOE", leapDay, "$$EOE", "$$SOE", autumn, "$$EOE"}, 0, 1},
        {"second end", {"$$SOE", leapDay, "$$EOE", "$$EOE"}, 0, 1},
        {"start with a blank behind", {"$$SOE ", leapDay, "$$EOE"}, -1, 0},
        {"start with a blank in front", {" $$SOE", leapDay, "$$EOE"}, -1, 0},
        {"start in small letters", {"$$soe", leapDay, "$$EOE"}, -1, 0},
        {"start with more behind", {"$$SOE$$", leapDay, "$$EOE"}, -1, 0},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        TrackVtorichka track;
        EXPECT_EQ(lHorizons(c.lines, track), c.result);
        EXPECT_EQ(track.Marks.size(), c.marks);
    }
}

TEST(Horizons, SecondStartBeforeTheEndIsALineOfTheTable)
{
    TrackVtorichka track;
    EXPECT_THROW(lHorizons(Lines{"$$SOE", leapDay, "$$SOE", autumn, "$$EOE"}, track), std::out_of_range);
    EXPECT_EQ(track.Marks.size(), 1U);
}

TEST(Horizons, EndThatIsNotExactIsALineOfTheTable)
{
    for (const char* end : {"$$EOE ", " $$EOE", "$$eoe", "$$EO"}) {
        SCOPED_TRACE(end);
        TrackVtorichka track;
        EXPECT_THROW(lHorizons(Lines{"$$SOE", leapDay, end}, track), std::out_of_range);
        EXPECT_EQ(track.Marks.size(), 1U);
    }
}

TEST(Horizons, TableWithoutLinesLeavesSpeedAndAngle)
{
    TrackVtorichka track;
    track.V = 3.0;
    track.PA = 4.0;
    EXPECT_EQ(lHorizons(Lines{"$$SOE", "$$EOE"}, track), 0);
    EXPECT_DOUBLE_EQ(track.V, 3.0);
    EXPECT_DOUBLE_EQ(track.PA, 4.0);
}

TEST(Horizons, LinesOfAFileAreRead)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.txt", "head\n$$SOE\n" + leapDay + "\n" + autumn + "\n$$EOE\n");
    TrackVtorichka track;
    EXPECT_EQ(lHorizons(folder / "a.txt", track), 0);
    ASSERT_EQ(track.Marks.size(), 2U);
    EXPECT_DOUBLE_EQ(track.Marks[0].RA, 157.5);
    EXPECT_DOUBLE_EQ(track.Marks[1].DE, -0.5);
    EXPECT_DOUBLE_EQ(track.PA, 12.5);
}

TEST(Horizons, FileMayEndItsLinesInTwoBytes)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.txt", "$$SOE\r\n" + leapDay + "\r\n$$EOE\t\r\n");
    TrackVtorichka track;
    EXPECT_EQ(lHorizons(folder / "a.txt", track), 0);
    EXPECT_EQ(track.Marks.size(), 1U);
}

TEST(Horizons, FileWithoutItsEndKeepsTheMarks)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.txt", "$$SOE\n" + leapDay + "\n");
    TrackVtorichka track;
    EXPECT_EQ(lHorizons(folder / "a.txt", track), -1);
    EXPECT_EQ(track.Marks.size(), 1U);
}

TEST(Horizons, MissingOrEmptyFileIsMinusOne)
{
    const TemporaryFolder folder;
    makeFile(folder / "empty.txt", "");
    for (const std::string& path : {folder / "missing.txt", folder / "empty.txt", folder.path()}) {
        SCOPED_TRACE(path);
        TrackVtorichka track;
        track.V = 3.0;
        EXPECT_EQ(lHorizons(path, track), -1);
        EXPECT_TRUE(track.Marks.empty());
        EXPECT_DOUBLE_EQ(track.V, 3.0);
    }
}

TEST(Horizons, RealTableOfTheseColumnsReadsAsItStands)
{
    TrackVtorichka track;
    EXPECT_EQ(lHorizons(fixture("horizons/fixed_columns.txt"), track), 0);
    ASSERT_EQ(track.Marks.size(), 20U);
    for (int minute = 0; minute < 20; ++minute) {
        SCOPED_TRACE(minute);
        // From 20 58 02.84 and -00 43 53.4 on, a minute of time is 0.02 seconds and 0.1 arcseconds.
        const TRecLabelPervichka_File& mark = track.Marks[static_cast<std::size_t>(minute)];
        EXPECT_EQ(measured(mark).date, 59823);
        EXPECT_NEAR(mark.time, minute / 1440.0, 1e-14);
        EXPECT_NEAR(mark.RA, (20.0 + 58.0 / 60.0 + (2.84 - 0.02 * minute) / 3600.0) * 15.0, 1e-10);
        EXPECT_NEAR(mark.DE, -(43.0 / 60.0 + (53.4 - 0.1 * minute) / 3600.0), 1e-10);
        EXPECT_DOUBLE_EQ(mark.m, 13.761);
    }
    EXPECT_DOUBLE_EQ(track.V, 0.3190756);
    EXPECT_DOUBLE_EQ(track.PA, 288.15311);
}

TEST(Horizons, TableOfOtherQuantitiesIsCutAtTheSameColumns)
{
    TrackVtorichka track;
    EXPECT_EQ(lHorizons(fixture("horizons/other_quantities.txt"), track), 0);
    ASSERT_EQ(track.Marks.size(), 2U);
    // The columns of the first line hold "00:00     00", "8.99 +05 57", "08.9  18.89" and "26.923".
    EXPECT_TRUE(isAbout(measured(track.Marks[0]), {59009, 0.0, (8.99 + 5.0 / 60.0 + 57.0 / 3600.0) * 15.0,
                                                   8.9 + 18.89 / 3600.0, 26.923}));
    // Those of the second "4.81 +05 57", "51.0  18.89", "27.087", "015 /L   2" and "113".
    EXPECT_TRUE(isAbout(measured(track.Marks[1]), {59010, 0.0, (4.81 + 5.0 / 60.0 + 57.0 / 3600.0) * 15.0,
                                                   51.0 + 18.89 / 3600.0, 27.087}));
    EXPECT_DOUBLE_EQ(track.V, 15.0);
    EXPECT_DOUBLE_EQ(track.PA, 113.0);
}

TEST(Horizons, RealLinesOfOtherTablesGiveWhatStandsInTheColumns)
{
    const struct
    {
        const char* what;
        std::string line;
        int date;
        double ra;
        double de;
        double m;
        double v;
        double pa;
    } cases[] = {
        {"digits of angles",
         " 2025-Nov-12 00:00:00.000 *   08 21 31.081989 +02 30 58.71040  -1.30923  -0.86932    n.a.   n.a.   "
         "25.573  29.085",
         60991, (8.0 + 21.0 / 60.0 + 31.08 / 3600.0) * 15.0, 989.0 + 2.0 / 60.0 + 30.0 / 3600.0, 32.0, 0.0,
         29.085},
        {"no blank in front of the date",
         "2025-May-02 00:00:00.000 *m  08 09 46.797665 +03 21 19.54244  0.585974  1.072429   1.931  0.210   "
         "25.598  29.111",
         -669688, (8.0 + 9.0 / 60.0 + 46.797 / 3600.0) * 15.0, 65.0 + 3.0 / 60.0 + 21.0 / 3600.0, 9.0, 25.598,
         9.111},
        {"air mass",
         " 2022-Sep-01 00:00 Cm  20 58 02.84 -00 43 53.4   2.182  0.527   13.761   4.967  0.83358292175713   "
         "7.6409061  153.5691 /T   14.4959   0.3173359   288.26854   67.291192         n.a.     n.a.",
         59823, (2.84 + 43.0 / 3600.0) * 15.0, 53.4, 0.833, 3.0, 1.0},
        {"comet",
         " 2025-Oct-01 00:00     14 25 29.17 -10 53 52.5   15.337    n.a.  2.49999438619914  -6.2599258   "
         "30.0711 /T   17.0886   1.2270293   284.47654   -9.577563         n.a.     n.a.",
         60949, (9.17 - 10.0 / 60.0 + 53.0 / 3600.0) * 15.0, 52.5, 14.0, 30.0711, 17.0886},
        {"asteroid",
         " 2026-May-01 00:00     03 26 45.52 +17 31 56.5   15.855   2.394  1.70183714785570 -17.9659181   "
         "13.5270 /T   18.0648   2.5482833   72.671010   -18.92231         n.a.     n.a.",
         61161, (5.52 + 17.0 / 60.0 + 31.0 / 3600.0) * 15.0, 56.5, 70.0, 13.527, 18.0648},
        {"degrees and rates",
         " 2021-Feb-03 00:00 *    40.75836  17.16791 75.15571  25.61352 131.8839  65.2758   663.55    548.66 "
         "1.21164331503552  16.7926932",
         59248, (36.0 + 17.1679 / 3600.0) * 15.0, 75.15571 / 60.0, 663.0, 0.66, 31503552.0},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        const TrackVtorichka track = trackOf({"$$SOE", c.line, "$$EOE"});
        ASSERT_EQ(track.Marks.size(), 1U);
        EXPECT_TRUE(isAbout(measured(track.Marks[0]), {c.date, 0.0, c.ra, c.de, c.m}));
        EXPECT_DOUBLE_EQ(track.V, c.v);
        EXPECT_DOUBLE_EQ(track.PA, c.pa);
    }
}

TEST(Horizons, RealTableOfShorterLinesIsOutOfRange)
{
    for (const char* name : {"lines_too_short.txt", "state_vectors.txt"}) {
        SCOPED_TRACE(name);
        TrackVtorichka track;
        EXPECT_THROW(lHorizons(fixture(std::string("horizons/") + name), track), std::out_of_range);
        EXPECT_TRUE(track.Marks.empty());
    }
}

} // namespace
