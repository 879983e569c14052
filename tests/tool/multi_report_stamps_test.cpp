#include "multi_report.h"

#include "support/report_series.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace tavelinUtils;
using namespace report_series;

// Names of objects.

TEST(MultiReport, NumbersOfAsteroidsRunOverAllSeries)
{
    Bench bench;
    bench.add("s1", nameless("A") + nameless("B"), configuration("asteroids"));
    bench.add("s2", nameless("A"), configuration("asteroids"));
    EXPECT_EQ(bench.trackNames(), (Texts{"AST1000", "AST1001", "AST1002"}));
}

TEST(MultiReport, NumbersOfSatellitesRunOverAllSeries)
{
    Bench bench;
    bench.add("s1", nameless("A") + nameless("B"), configuration("satellites"));
    bench.add("s2", nameless("A"), configuration("satellites"));
    EXPECT_EQ(bench.trackNames(), (Texts{"99000", "99001", "99002"}));
}

TEST(MultiReport, EachServiceHasItsOwnNumbers)
{
    Bench bench;
    bench.add("s1", nameless("A"), configuration("asteroids"));
    bench.add("s2", nameless("B"), configuration("satellites"));
    bench.add("s3", nameless("C"), configuration("variablestars"));
    bench.add("s4", nameless("D"), configuration("satellites"));
    bench.add("s5", nameless("E"), configuration("asteroids"));
    EXPECT_EQ(bench.trackNames(), (Texts{"AST1000", "99000", "C", "99001", "AST1001"}));
}

TEST(MultiReport, NumbersStartAgainWithEachRun)
{
    Bench bench;
    bench.add("s1", nameless("A"), configuration("asteroids"));
    bench.add("s2", nameless("B"), configuration("satellites"));
    EXPECT_EQ(bench.trackNames(), (Texts{"AST1000", "99000"}));
    EXPECT_EQ(bench.trackNames(), (Texts{"AST1000", "99000"}));
}

TEST(MultiReport, IdentifiedAsteroidHasTheNameOfTheChecker)
{
    Bench bench;
    bench.add("s1",
              nameless("A") + track("B", "K13A01A", "40001", {{"12:00:00", "9.5"}}) +
                  track("C", "", "40002", {{"12:00:00", "9.5"}}),
              configuration("asteroids"));
    EXPECT_EQ(bench.trackNames(), (Texts{"AST1000", "K13A01A", "AST1001"}));
}

TEST(MultiReport, IdentifiedSatelliteHasItsSecondDesignation)
{
    Bench bench;
    bench.add("s1",
              track("A", "", "40001", {{"12:00:00", "9.5"}}) + nameless("B") +
                  track("C", "K13A01A", "", {{"12:00:00", "9.5"}}),
              configuration("satellites"));
    EXPECT_EQ(bench.trackNames(), (Texts{"40001", "99000", "99001"}));
}

TEST(MultiReport, OtherServicesLeaveTheNamesOfTheTable)
{
    for (const char* const service : {"variablestars", "alignment", "identification", "airfly", "", "nothing",
                                      "Asteroids", "satellites ", "Service_Uncknown", "1", "2"})
    {
        SCOPED_TRACE(service);
        Bench bench;
        bench.add("s1", nameless("A") + track("B", "K13A01A", "40001", {{"12:00:00", "9.5"}}),
                  configuration(service));
        EXPECT_EQ(bench.trackNames(), (Texts{"A", "B"}));
    }
}

TEST(MultiReport, EachSeriesHasItsOwnConfiguration)
{
    Bench bench;
    bench.task.toSeparateFile = "eachseria";
    bench.add("s1", nameless("A"),
              configuration("asteroids",
                            withCode("I41") + "<lightCurves><AAVSOCode>ABC</AAVSOCode></lightCurves>"));
    bench.add("s2", nameless("B"));
    const std::vector<Tracks> reports = bench.tracks();
    ASSERT_EQ(reports.size(), 2U);
    EXPECT_EQ(reports[0].at(0).ObsCode, "ABC");
    EXPECT_EQ(reports[1].at(0).ObsCode, "CODEAAVSO");
    EXPECT_EQ(bench.bytes("s1.txt"), "COD I41\n" + line("     AST1000", "25.50000", "09.5", "I41"));
    EXPECT_EQ(bench.bytes("s2.txt"), "COD 500\n" + line("           B", "25.50000", "09.5"));
}

// Stamps, as the output shows them.

TEST(MultiReport, HeaderOfTheReportIsThatOfTheConfiguration)
{
    Bench bench;
    bench.add("s1", nameless("A"),
              configuration("asteroids",
                            "<ReportSettings><MPCReport><MPCcode>I41</MPCcode><CON>C. Contact</CON>"
                            "<OBS>O. Observer</OBS><MEA>M. Measurer</MEA><COM>comment</COM>"
                            "<TEL>1.2-m Schmidt</TEL><ACK>night</ACK><AC2>a@b.c</AC2><NET>UCAC4</NET>"
                            "<IsMagnitudeValueToReport>false</IsMagnitudeValueToReport>"
                            "<IsImprovedAccuracy>true</IsImprovedAccuracy>"
                            "</MPCReport></ReportSettings>"));
    bench.expectWell({"out.txt"});
    EXPECT_EQ(bench.bytes("out.txt"), "COD I41\nCON C. Contact\nOBS O. Observer\nMEA M. Measurer\n"
                                      "TEL 1.2-m Schmidt\nACK night\nAC2 a@b.c\n" +
                                          line("     AST1000", "25.50000", "09.5", "I41"));

    const std::vector<Tracks> reports = bench.tracks();
    ASSERT_EQ(reports.size(), 1U);
    EXPECT_FALSE(reports[0].at(0).MPCHeader.HeaderOn);
    EXPECT_TRUE(reports[0].at(0).MPCHeader.HeaderFlag2);
}

TEST(MultiReport, EachTrackHasTheCodeOfItsSeries)
{
    Bench bench;
    bench.add("s1", nameless("A"), configuration("", withCode("I41")));
    bench.add("s2", nameless("B"), configuration("", withCode("W84")));
    bench.expectWell({"out.txt"});
    EXPECT_EQ(bench.bytes("out.txt"), "COD I41\n" + line("           A", "25.50000", "09.5", "I41") +
                                          line("           B", "25.50000", "09.5", "W84"));
}

TEST(MultiReport, CheckerNamesALineWhateverTheService)
{
    Bench bench;
    bench.add("s1", track("A", "K13A01A", "40001", {{"12:00:00", "9.5"}}), configuration("satellites"));
    bench.expectWell({"out.txt"});
    EXPECT_EQ(bench.bytes("out.txt"), "COD 500\n" + line("     K13A01A", "25.50000", "09.5"));
    EXPECT_EQ(bench.trackNames(), (Texts{"40001"}));
}

TEST(MultiReport, ObserverCodeOfVariableStarsIsThatOfTheConfiguration)
{
    Bench bench;
    bench.task.outputformat = "aavso";
    bench.add("s1", nameless("V1023 Her"),
              configuration("variablestars", "<lightCurves><AAVSOCode>DERA</AAVSOCode></lightCurves>"));
    bench.expectWell({"out.txt"});
    // MJD 60000.5 is JD 2460001.0; the table has no ensemble magnitude and no signal.
    EXPECT_EQ(bench.bytes("out.txt"),
              "#TYPE=Extended\n#OBSCODE=DERA\n#SOFTWARE=Vomar\n#DELIM=,\n#DATE=JD\n#OBSTYPE=CCD\n"
              "#NAME,DATE,MAG,MAGERR,FILTER,TRANS,MTYPE,CNAME,CMAG,KNAME,KMAG,AIRMASS,GROUP,CHART,NOTES\n"
              "V1023 Her,2460001.0000000,0.000,inf,R,NO,DIF,ENSEMBLE,na,,na,na,na,na,na\n");
}

TEST(MultiReport, TelescopeAndOriginatorAreThoseOfTheTask)
{
    const struct
    {
        bool autoTelescope;
        const char* telescope;
    } rows[] = {{true, "T1"}, {false, "common"}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.autoTelescope);
        Bench bench;
        bench.task.autoTelescope = row.autoTelescope;
        bench.task.PARTICIPANT_1 = "common";
        bench.task.originator = "origin";
        bench.task.REFERENCE_FRAME = "EME2000";
        bench.task.outputformat = "tdm";
        bench.add("s1", nameless("A"));
        bench.expectWell({"out.txt"});
        EXPECT_EQ(bench.bytes("out.txt"), "CCSDS_TDM_VERS = 1.0\n"
                                          "CREATION_DATE = 0-00-00T00:00:00\n"
                                          "ORIGINATOR = origin\n"
                                          "META_START\n"
                                          "TIME_SYSTEM = UTC\n"
                                          "START_TIME = 2023-02-25T12:00:00.00000\n"
                                          "STOP_TIME = 2023-02-25T12:00:00.00000\n"
                                          "PARTICIPANT_1 = " +
                                              std::string(row.telescope) +
                                              "\n"
                                              "PARTICIPANT_2 = A\n"
                                              "MODE = SEQUENTIAL\n"
                                              "PATH = 2,1\n"
                                              "ANGLE_TYPE = RADEC\n"
                                              "REFERENCE_FRAME = ICRF\n"
                                              "META_STOP\n"
                                              "DATA_START\n"
                                              "ANGLE_1 = 2023-02-25T12:00:00.00000 15.0000000\n"
                                              "ANGLE_2 = 2023-02-25T12:00:00.00000 -0.5000000\n"
                                              "MAG = 2023-02-25T12:00:00.00000 9.5000\n"
                                              "DATA_STOP\n");
    }
}

TEST(MultiReport, EachSeriesHasItsOwnTelescopeAndFilter)
{
    Bench bench;
    bench.task.toSeparateFile = "eachobject";
    bench.task.longname = true;
    bench.task.PARTICIPANT_1 = "common";
    bench.add("s1", nameless("A") + nameless("B"));
    TSeria2& second = bench.add("s2", nameless("C"));
    second.telescope = "T2";
    second.filter = "V";
    TSeria2& silent = bench.add("s3", nameless("D"));
    silent.telescope = TSeria2().telescope;
    silent.filter = TSeria2().filter;
    TSeria2& empty = bench.add("s4", nameless("E"));
    empty.telescope = "";
    empty.filter = "";
    bench.expectWell({"T1-A-2023-02-25T12-00-00-R.txt", "T1-B-2023-02-25T12-00-00-R.txt",
                      "T2-C-2023-02-25T12-00-00-V.txt", "telescope-D-2023-02-25T12-00-00-filter.txt",
                      "-E-2023-02-25T12-00-00-.txt"});

    bench.task.autoTelescope = false;
    bench.expectWell({"common-A-2023-02-25T12-00-00-R.txt", "common-B-2023-02-25T12-00-00-R.txt",
                      "common-C-2023-02-25T12-00-00-V.txt", "common-D-2023-02-25T12-00-00-filter.txt",
                      "common-E-2023-02-25T12-00-00-.txt"});
}

TEST(MultiReport, EmptyTextsOfTheTaskAreStampedToo)
{
    Bench bench;
    bench.task.autoTelescope = false;
    bench.task.PARTICIPANT_1 = "";
    bench.task.originator = "";
    bench.add("s1", nameless("A"));
    const std::vector<Tracks> reports = bench.tracks();
    ASSERT_EQ(reports.size(), 1U);
    EXPECT_EQ(reports[0].at(0).telescope, "");
    EXPECT_EQ(reports[0].at(0).originator, "");
}
