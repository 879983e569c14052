#include "formats/mea.h"

#include "support/failed_writes.h"
#include "support/measured_marks.h"
#include "support/sexagesimal.h"
#include "support/temporary_folder.h"
#include "support/texts.h"
#include "support/tracks.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

using namespace tavelinUtils;

namespace {

using Tracks = std::vector<TrackVtorichka>;

std::string written(const Tracks& tracks)
{
    return writtenBy([&tracks](const std::string& path) { sMEA(path, tracks); });
}

// The line of a track's only mark.
std::string writtenLine(const std::string& name, const TRecLabelPervichka_File& mark)
{
    const std::vector<std::string> lines = linesOf(written({trackNamed(name, {mark})}));
    EXPECT_EQ(lines.size(), 2U);
    return lines.size() == 2 ? lines[1] : "";
}

// The file of the tracks with the comparison after each line.
std::string writtenWithEphemeris(const Tracks& tracks)
{
    return writtenBy([&tracks](const std::string& path) { sMEA_TLE(path, tracks); });
}

const std::string ephemerisSite = " 2000.0 UTC\tMJD\tRAmea\tDEmea\tRAtle\tDEtle\tresRA\tresDE\n";

} // namespace

// Writing.

TEST(Mea, WritesTheSiteLineAndAMark)
{
    TrackVtorichka track = trackNamed("12345", {theMark()});
    track.telescope = "T1";
    track.originator = "somebody";
    track.MPCChecker = "K23A01B";
    track.NORAD = "99999";
    EXPECT_EQ(written({track}), "T1 2000.0 UTC\n"
                                "12345   250223 1200000000 0100000000 -0030000000 001 09.50\n");
}

TEST(Mea, PositiveDeclinationIsWrittenWithoutSign)
{
    EXPECT_EQ(written({trackNamed("12345", {{.date = 60000, .time = 0.5, .RA = 15.0, .DE = 0.5, .m = 9.5}})}),
              "telescope 2000.0 UTC\n"
              "12345   250223 1200000000 0100000000 0030000000 001 09.50\n");
}

TEST(Mea, SiteLineIsThatOfTheFirstTrack)
{
    TrackVtorichka first =
        trackNamed("A", {{.date = 60000, .DE = -1.0, .m = 10.0}, {.date = 60001, .m = 11.0}});
    TrackVtorichka second = trackNamed("B", {{.date = 60002, .m = 12.0}});
    first.telescope = "Zeiss 1000";
    second.telescope = "T2";
    EXPECT_EQ(written({first, second}), "Zeiss 1000 2000.0 UTC\n"
                                        "A       250223 0000000000 0000000000 -0100000000 001 10.00\n"
                                        "A       260223 0000000000 0000000000 0000000000 001 11.00\n"
                                        "B       270223 0000000000 0000000000 0000000000 001 12.00\n");
    first.telescope = "";
    EXPECT_EQ(written({first, second}).substr(0, 12), " 2000.0 UTC\n");
}

TEST(Mea, TracksWithoutMarksAddNothing)
{
    TrackVtorichka empty = trackNamed("A", {});
    empty.telescope = "T1";
    EXPECT_EQ(written({empty}), "T1 2000.0 UTC\n");
    EXPECT_EQ(written({empty, trackNamed("B", {{.date = 60000, .m = 12.0}}), empty}),
              "T1 2000.0 UTC\n"
              "B       250223 0000000000 0000000000 0000000000 001 12.00\n");
}

TEST(Mea, ShortNamesArePaddedAndLongNamesKeptWhole)
{
    const std::string fields = " 250223 1200000000 0100000000 0030000000 001 09.50";
    const struct
    {
        const char* name;
        const char* padded;
    } rows[] = {
        {"", "       "},
        {"1", "1      "},
        {"NAME", "NAME   "},
        {"123456", "123456 "},
        {"1234567", "1234567"},
        {"12345678", "12345678"},
        {"123456789", "123456789"},
        {"2019 AB1", "2019 AB1"},
        {"\xc3\x89ros", "\xc3\x89ros  "},
        {"C\xc3\xa9r\xc3\xa8s", "C\xc3\xa9r\xc3\xa8s"},
    };
    for (const auto& [name, padded] : rows) {
        SCOPED_TRACE(name);
        EXPECT_EQ(writtenLine(name, {.date = 60000, .time = 0.5, .RA = 15.0, .DE = 0.5, .m = 9.5}),
                  padded + fields);
    }
}

TEST(Mea, WritesDatesWithTwoDigitsOfTheYear)
{
    const struct
    {
        int date;
        const char* text;
    } rows[] = {
        {60000, "250223"}, {51544, "010100"}, {51543, "311299"},   {60369, "290224"},  {88068, "311299"},
        {88128, "010300"}, {0, "171158"},     {-671581, "250220"}, {-677049, "07035"}, // the year 5
    };
    for (const auto& [date, text] : rows) {
        SCOPED_TRACE(date);
        EXPECT_EQ(writtenLine("N", {.date = date, .time = 0.5}),
                  std::string("N       ") + text + " 1200000000 0000000000 0000000000 001 00.00");
    }
}

TEST(Mea, CutsTheSecondsOfTheTime)
{
    const struct
    {
        double time;
        const char* text;
    } rows[] = {
        {0.0, "0000000000"},
        {0.5, "1200000000"},
        {0.25, "0600000000"},
        {day(12, 30, 0.0), "1230000000"},
        {day(12, 34, 56.0), "1234559990"},
        {day(23, 59, 59.9996), "2359599990"},
        {day(23, 59, 59.999), "2359599980"},
        {day(0, 0, 1.0), "0000010000"},
        {day(0, 0, 9.996), "0000099960"},
        {1e-9, "0000000000"},
        {0.123456789, "0257466660"},
        {0.999999999999999, "2400000000"}, // within the guard of a whole day
        {0.9999999999999, "2359599990"},
        {1.5, "1200000000"},
        {-0.25, "1800000000"},
    };
    for (const auto& [time, text] : rows) {
        SCOPED_TRACE(text);
        EXPECT_EQ(writtenLine("N", {.date = 60000, .time = time}),
                  std::string("N       250223 ") + text + " 0000000000 0000000000 001 00.00");
    }
}

TEST(Mea, RoundsTheSecondsOfRightAscensionWithoutACarry)
{
    const struct
    {
        double RA;
        const char* text;
    } rows[] = {
        {0.0, "0000000000"},
        {15.0, "0100000000"},
        {187.5, "1230000000"},
        {123.456789, "0813496294"},
        {0.000001, "0000000002"},
        {9.99996 / 240.0, "0000100000"},
        {14.99999999999, "0059600000"},
        {359.9999999, "2359600000"},
        {360.0, "2400000000"},
        {-15.0, "-0100000000"},
    };
    for (const auto& [RA, text] : rows) {
        SCOPED_TRACE(text);
        EXPECT_EQ(writtenLine("N", {.date = 60000, .RA = RA}),
                  std::string("N       250223 0000000000 ") + text + " 0000000000 001 00.00");
    }
}

TEST(Mea, RoundsTheSecondsOfDeclinationWithoutACarry)
{
    const struct
    {
        double DE;
        const char* text;
    } rows[] = {
        {0.0, "0000000000"},
        {-0.0, "0000000000"},
        {0.5, "0030000000"},
        {-0.5, "-0030000000"},
        {12.091700944444445, "1205301234"},
        {-12.091700944444445, "-1205301234"},
        {-0.0001, "-0000003600"},
        {89.99999999, "8959600000"},
        {-89.99999999, "-8959600000"},
        {-9.99999999, "-0959600000"},
        {-90.0, "-9000000000"},
        {100.25, "10015000000"},
    };
    for (const auto& [DE, text] : rows) {
        SCOPED_TRACE(text);
        EXPECT_EQ(writtenLine("N", {.date = 60000, .DE = DE}),
                  std::string("N       250223 0000000000 0000000000 ") + text + " 001 00.00");
    }
}

TEST(Mea, WritesMagnitudesWithTheSignBeforeThePadding)
{
    const struct
    {
        double m;
        const char* text;
    } rows[] = {
        {15.37, "15.37"}, {9.5, "09.50"},    {-1.2, "-01.20"},    {0.0, "00.00"},
        {-0.0, "00.00"},  {10.0, "10.00"},   {9.96, "09.96"},     {9.94, "09.94"},
        {9.994, "09.99"}, {9.996, "010.00"}, {-9.996, "-010.00"}, {-0.004, "-00.00"},
        {0.004, "00.00"}, {-10.0, "-10.00"}, {-12.3, "-12.30"},   {100.5, "100.50"},
    };
    for (const auto& [m, text] : rows) {
        SCOPED_TRACE(text);
        EXPECT_EQ(writtenLine("N", {.date = 60000, .m = m}),
                  std::string("N       250223 0000000000 0000000000 0000000000 001 ") + text);
    }
}

TEST(Mea, WritesWhatIsNoNumberAsItIs)
{
    constexpr double none = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(writtenLine("N", {.date = 60000, .time = 0.5, .RA = none, .DE = none, .m = none}),
              "N       250223 1200000000 0000nan 0000nan 001 nan");
}

TEST(Mea, ReplacesTheFile)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.mea", std::string(10000, 'x'));
    sMEA(folder / "a.mea", {trackNamed("A", {})});
    EXPECT_EQ(bytesOf(folder / "a.mea"), "telescope 2000.0 UTC\n");
}

TEST(Mea, EmptyListLeavesTheFileAsItIs)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.mea", "before");
    sMEA(folder / "a.mea", {});
    EXPECT_EQ(bytesOf(folder / "a.mea"), "before");
    sMEA(folder / "b.mea", {});
    EXPECT_FALSE(exists(folder / "b.mea"));
    EXPECT_NO_THROW(sMEA(folder / "missing/b.mea", {}));
    EXPECT_FALSE(exists(folder / "missing"));
}

TEST(Mea, FileThatCannotBeWrittenRaisesCode7)
{
    expectCode7([](const std::string& path) { sMEA(path, {trackNamed("A", {{.date = 60000}})}); });
}

// With the comparison against an ephemeris.

TEST(MeaWithEphemeris, WritesSevenFieldsBehindTheMagnitude)
{
    TrackVtorichka track = trackNamed("12345", {theMark()});
    track.telescope = "T1";
    track.InterBlobs = {{.m_MPC = 17.0, .Value2 = 14.99, .Value3 = -0.4999}};
    EXPECT_EQ(
        writtenWithEphemeris({track}),
        "T1" + ephemerisSite +
            "12345   250223 1200000000 0100000000 -0030000000 001 9.50\t60000.5000000\t15.0000000\t-0.5000000"
            "\t14.9900000\t-0.4999000\t36.0000000\t-0.3600000\n");
}

TEST(MeaWithEphemeris, MagnitudeHasNoPadding)
{
    const struct
    {
        double m;
        const char* text;
    } rows[] = {
        {15.37, "15.37"}, {9.5, "9.50"},  {-1.2, "-1.20"},  {0.0, "0.00"},     {10.0, "10.00"},
        {9.96, "9.96"},   {9.94, "9.94"}, {9.996, "10.00"}, {-0.004, "-0.00"},
    };
    for (const auto& [m, text] : rows) {
        SCOPED_TRACE(text);
        TrackVtorichka track = trackNamed("X", {{.date = 60002, .time = 0.75, .m = m}});
        track.InterBlobs = {{.m_MPC = 0.0, .Value2 = 0.0, .Value3 = 0.0}};
        EXPECT_EQ(writtenWithEphemeris({track}),
                  "telescope" + ephemerisSite + "X       270223 1800000000 0000000000 0000000000 001 " +
                      text +
                      "\t60002.7500000\t0.0000000\t0.0000000\t0.0000000\t0.0000000\t0.0000000\t0.0000000\n");
    }
}

TEST(MeaWithEphemeris, MarkWithoutAnEphemerisIsComparedWithTheUnsetOne)
{
    TrackVtorichka first =
        trackNamed("12345", {{.date = 60001, .time = 0.25, .RA = 187.5, .DE = 12.5, .m = -1.2},
                             {.date = 60001, .time = 0.25, .RA = 187.5, .DE = 12.5, .m = -1.2}});
    first.InterBlobs = {{.m_MPC = 0.0, .Value2 = 187.5000001, .Value3 = 12.4}};
    const TrackVtorichka second = trackNamed("X", {{.date = 60002, .time = 0.75}});
    EXPECT_EQ(
        writtenWithEphemeris({first, second}),
        "telescope" + ephemerisSite +
            "12345   260223 0600000000 1230000000 1230000000 001 "
            "-1.20\t60001.2500000\t187.5000000\t12.5000000"
            "\t187.5000001\t12.4000000\t-0.0003600\t360.0000000\n"
            "12345   260223 0600000000 1230000000 1230000000 001 "
            "-1.20\t60001.2500000\t187.5000000\t12.5000000"
            "\t-1.0000000\t-1.0000000\t678600.0000000\t48600.0000000\n"
            "X       270223 1800000000 0000000000 0000000000 001 0.00\t60002.7500000\t0.0000000\t0.0000000"
            "\t-1.0000000\t-1.0000000\t3600.0000000\t3600.0000000\n");
}

TEST(MeaWithEphemeris, EachTrackHasItsOwnEphemeris)
{
    TrackVtorichka first = trackNamed("A", {{.date = 60000}, {.date = 60000}});
    TrackVtorichka second = trackNamed("B", {{.date = 60000}});
    first.InterBlobs = {{.m_MPC = 0.0, .Value2 = 1.0, .Value3 = 2.0},
                        {.m_MPC = 0.0, .Value2 = 3.0, .Value3 = 4.0}};
    second.InterBlobs = {{.m_MPC = 0.0, .Value2 = 5.0, .Value3 = 6.0},
                         {.m_MPC = 0.0, .Value2 = 7.0, .Value3 = 8.0}};
    const std::string fields =
        "250223 0000000000 0000000000 0000000000 001 0.00\t60000.0000000\t0.0000000\t0.0000000";
    EXPECT_EQ(writtenWithEphemeris({first, second}),
              "telescope" + ephemerisSite + "A       " + fields +
                  "\t1.0000000\t2.0000000\t-3600.0000000\t-7200.0000000\n" + "A       " + fields +
                  "\t3.0000000\t4.0000000\t-10800.0000000\t-14400.0000000\n" + "B       " + fields +
                  "\t5.0000000\t6.0000000\t-18000.0000000\t-21600.0000000\n");
}

TEST(MeaWithEphemeris, ResidualsKnowNoCircleAndNoCosine)
{
    TrackVtorichka track =
        trackNamed("25544", {{.date = 60002, .time = 0.75, .RA = 359.9999999, .DE = -0.0001, .m = 9.996}});
    track.InterBlobs = {{.m_MPC = 0.0, .Value2 = 0.0000001, .Value3 = 0.0}};
    EXPECT_EQ(writtenWithEphemeris({track}), "telescope" + ephemerisSite +
                                                 "25544   270223 1800000000 2359600000 -0000003600 001 "
                                                 "10.00\t60002.7500000\t359.9999999\t-0.0001000"
                                                 "\t0.0000001\t0.0000000\t1295999.9992800\t-0.3600000\n");
    track.Marks = {{.RA = 10.0, .DE = -80.0}};
    track.InterBlobs = {{.m_MPC = 0.0, .Value2 = 9.0, .Value3 = -80.0}};
    EXPECT_EQ(
        writtenWithEphemeris({track}),
        "telescope" + ephemerisSite +
            "25544   171158 0000000000 0040000000 -8000000000 001 0.00\t0.0000000\t10.0000000\t-80.0000000"
            "\t9.0000000\t-80.0000000\t3600.0000000\t0.0000000\n");
}

TEST(MeaWithEphemeris, TracksWithoutMarksAddNothing)
{
    TrackVtorichka track = trackNamed("A", {});
    track.InterBlobs = {{.m_MPC = 0.0, .Value2 = 1.0, .Value3 = 2.0}};
    EXPECT_EQ(writtenWithEphemeris({track}), "telescope" + ephemerisSite);
}

TEST(MeaWithEphemeris, EmptyListLeavesTheFileAsItIs)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.mea", "before");
    sMEA_TLE(folder / "a.mea", {});
    EXPECT_EQ(bytesOf(folder / "a.mea"), "before");
    sMEA_TLE(folder / "b.mea", {});
    EXPECT_FALSE(exists(folder / "b.mea"));
}

TEST(MeaWithEphemeris, ReplacesTheFile)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.mea", std::string(10000, 'x'));
    sMEA_TLE(folder / "a.mea", {trackNamed("A", {})});
    EXPECT_EQ(bytesOf(folder / "a.mea"), "telescope" + ephemerisSite);
}

TEST(MeaWithEphemeris, FileThatCannotBeWrittenRaisesCode7)
{
    expectCode7([](const std::string& path) { sMEA_TLE(path, {trackNamed("A", {{.date = 60000}})}); });
}
