#include "multi_report.h"

#include "support/report_series.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace tavelinUtils;
using namespace report_series;

// The four divisions, with short and long names.

// The time in a name has no carry: 13:20 is 13-19-60.
TEST(MultiReport, EachGroupWithLongNames)
{
    Bench bench;
    bench.task.toSeparateFile = "eachgroup";
    bench.task.longname = true;
    addTwoSeries(bench);
    bench.expectWell({"T1-A-2023-02-25T12-00-00-R.txt", "T1-A-2023-02-25T13-19-60-R.txt",
                      "T1-B-2023-02-25T12-00-00-R.txt", "T2-A-2023-02-25T12-10-00-R.txt"});
    EXPECT_EQ(bench.written(), (Names{"T1-A-2023-02-25T12-00-00-R.txt", "T1-A-2023-02-25T13-19-60-R.txt",
                                      "T1-B-2023-02-25T12-00-00-R.txt", "T2-A-2023-02-25T12-10-00-R.txt"}));
    EXPECT_EQ(bench.bytes("T1-A-2023-02-25T12-00-00-R.txt"),
              "COD 500\n" + line(A, "25.50000", "01.0") + line(A, "25.50694", "02.0"));
    EXPECT_EQ(bench.bytes("T1-A-2023-02-25T13-19-60-R.txt"),
              "COD 500\n" + line(A, "25.55556", "04.0") + line(A, "25.56250", "05.0"));
    EXPECT_EQ(bench.bytes("T1-B-2023-02-25T12-00-00-R.txt"),
              "COD 500\n" + line(B, "25.50000", "07.0") + line(B, "25.50694", "08.0"));
    EXPECT_EQ(bench.bytes("T2-A-2023-02-25T12-10-00-R.txt"), "COD 500\n" + line(A, "25.50694", "09.0"));
}

TEST(MultiReport, EachGroupWithShortNamesKeepsTheLastStretch)
{
    Bench bench;
    bench.task.toSeparateFile = "eachgroup";
    addTwoSeries(bench);
    bench.expectWell({"A.txt", "A.txt", "B.txt", "A.txt"});
    EXPECT_EQ(bench.written(), (Names{"A.txt", "B.txt"}));
    EXPECT_EQ(bench.bytes("A.txt"), "COD 500\n" + line(A, "25.50694", "09.0"));
    EXPECT_EQ(bench.bytes("B.txt"), "COD 500\n" + line(B, "25.50000", "07.0") + line(B, "25.50694", "08.0"));
}

TEST(MultiReport, EachObjectWithLongNames)
{
    Bench bench;
    bench.task.toSeparateFile = "eachobject";
    bench.task.longname = true;
    addTwoSeries(bench);
    bench.expectWell({"T1-A-2023-02-25T12-00-00-R.txt", "T1-B-2023-02-25T12-00-00-R.txt"});
    EXPECT_EQ(bench.written(), (Names{"T1-A-2023-02-25T12-00-00-R.txt", "T1-B-2023-02-25T12-00-00-R.txt"}));
    EXPECT_EQ(bench.bytes("T1-A-2023-02-25T12-00-00-R.txt"),
              "COD 500\n" + line(A, "25.50000", "01.0") + line(A, "25.50694", "09.0") +
                  line(A, "25.50694", "02.0") + line(A, "25.51389", "03.0") + line(A, "25.55556", "04.0") +
                  line(A, "25.56250", "05.0") + line(A, "25.56944", "06.0"));
    EXPECT_EQ(bench.bytes("T1-B-2023-02-25T12-00-00-R.txt"),
              "COD 500\n" + line(B, "25.50000", "07.0") + line(B, "25.50694", "08.0"));
}

TEST(MultiReport, EachObjectWithShortNames)
{
    Bench bench;
    bench.task.toSeparateFile = "eachobject";
    addTwoSeries(bench);
    bench.expectWell({"A.txt", "B.txt"});
    EXPECT_EQ(bench.written(), (Names{"A.txt", "B.txt"}));
}

TEST(MultiReport, EachSeriesWithShortNames)
{
    Bench bench;
    bench.task.toSeparateFile = "eachseria";
    addTwoSeries(bench);
    bench.expectWell({"s1.txt", "s2.txt"});
    EXPECT_EQ(bench.written(), (Names{"s1.txt", "s2.txt"}));
    EXPECT_EQ(bench.bytes("s1.txt"), "COD 500\n" + line(A, "25.50000", "01.0") + line(A, "25.50694", "02.0") +
                                         line(A, "25.51389", "03.0") + line(A, "25.55556", "04.0") +
                                         line(A, "25.56250", "05.0") + line(A, "25.56944", "06.0") +
                                         line(B, "25.50000", "07.0") + line(B, "25.50694", "08.0"));
    EXPECT_EQ(bench.bytes("s2.txt"), "COD 500\n" + line(A, "25.50694", "09.0"));
}

TEST(MultiReport, EachSeriesWithLongNames)
{
    Bench bench;
    bench.task.toSeparateFile = "eachseria";
    bench.task.longname = true;
    addTwoSeries(bench);
    bench.expectWell({"T1-s1-2023-02-25T12-00-00-R.txt", "T2-s2-2023-02-25T12-10-00-R.txt"});
    EXPECT_EQ(bench.written(), (Names{"T1-s1-2023-02-25T12-00-00-R.txt", "T2-s2-2023-02-25T12-10-00-R.txt"}));
}

TEST(MultiReport, AllObjectsWithShortNames)
{
    Bench bench;
    addTwoSeries(bench);
    bench.expectWell({"out.txt"});
    EXPECT_EQ(bench.written(), (Names{"out.txt"}));
    EXPECT_EQ(bench.bytes("out.txt"), "COD 500\n" + line(A, "25.50000", "01.0") +
                                          line(A, "25.50694", "02.0") + line(A, "25.51389", "03.0") +
                                          line(A, "25.55556", "04.0") + line(A, "25.56250", "05.0") +
                                          line(A, "25.56944", "06.0") + line(B, "25.50000", "07.0") +
                                          line(B, "25.50694", "08.0") + line(A, "25.50694", "09.0"));
}

TEST(MultiReport, AllObjectsWithLongNames)
{
    Bench bench;
    bench.task.longname = true;
    addTwoSeries(bench);
    bench.expectWell({"T1-out-2023-02-25T12-00-00-R.txt"});
    EXPECT_EQ(bench.written(), (Names{"T1-out-2023-02-25T12-00-00-R.txt"}));
}

TEST(MultiReport, UnknownDivisionWritesNothing)
{
    for (const char* const division :
         {"", "nothing", "Allobjects", "allobjects ", "eachseries", "eachserias", "EACHGROUP"})
    {
        for (const char* const whatSave : {"", "object"}) {
            SCOPED_TRACE(division);
            Bench bench;
            bench.task.toSeparateFile = division;
            bench.task.whatSave = whatSave;
            bench.task.object = 0;
            addTwoSeries(bench);
            bench.expectWell({});
            EXPECT_EQ(bench.written(), Names{});
        }
    }
}

TEST(MultiReport, ObjectInTwoFiltersIsTwoObjects)
{
    Bench bench;
    bench.task.toSeparateFile = "eachobject";
    bench.add("s1", track("A", "", "", {{"12:00:00", "1"}}));
    bench.add("s2", track("A", "", "", {{"12:00:00", "2"}})).filter = "V";
    bench.add("s3", track("A", "", "", {{"12:00:00", "3"}}));
    bench.task.longname = true;
    bench.expectWell({"T1-A-2023-02-25T12-00-00-R.txt", "T1-A-2023-02-25T12-00-00-V.txt"});
    EXPECT_EQ(bench.bytes("T1-A-2023-02-25T12-00-00-R.txt"),
              "COD 500\n" + line(A, "25.50000", "03.0") + line(A, "25.50000", "01.0"));
    EXPECT_EQ(bench.bytes("T1-A-2023-02-25T12-00-00-V.txt"), "COD 500\n" + line(A, "25.50000", "02.0"));

    // Their short names are equal, so the later file replaces the earlier one.
    bench.task.longname = false;
    bench.expectWell({"A.txt", "A.txt"});
    EXPECT_EQ(bench.bytes("A.txt"), "COD 500\n" + line(A, "25.50000", "02.0"));
}

TEST(MultiReport, ObjectsAreThoseOfTheGivenNames)
{
    // Objects that have only a running number are never joined.
    Bench bench;
    bench.task.toSeparateFile = "eachobject";
    bench.add("s1", nameless("A") + track("B", "K13A01A", "", {{"12:00:00", "1"}}),
              configuration("asteroids"));
    bench.add("s2", nameless("A") + track("C", "K13A01A", "", {{"13:00:00", "2"}}),
              configuration("asteroids"));
    bench.expectWell({"AST1000.txt", "K13A01A.txt", "AST1001.txt"});
    EXPECT_EQ(bench.bytes("K13A01A.txt"), "COD 500\n" + line("     K13A01A", "25.50000", "01.0") +
                                              line("     K13A01A", "25.54167", "02.0"));
}

TEST(MultiReport, AmongEqualTimesTheLatestSeriesComesFirst)
{
    Bench bench;
    bench.task.toSeparateFile = "eachobject";
    bench.add("s1", track("A", "", "", {{"12:00:00", "1.1"}, {"13:00:00", "1.2"}}));
    bench.add("s2", track("A", "", "", {{"12:00:00", "2.1"}, {"13:00:00", "2.2"}}));
    bench.add("s3", track("A", "", "", {{"12:00:00", "3.1"}, {"13:00:00", "3.2"}}));
    bench.expectWell({"A.txt"});
    EXPECT_EQ(bench.bytes("A.txt"), "COD 500\n" + line(A, "25.50000", "03.1") + line(A, "25.50000", "02.1") +
                                        line(A, "25.50000", "01.1") + line(A, "25.54167", "03.2") +
                                        line(A, "25.54167", "02.2") + line(A, "25.54167", "01.2"));
}

TEST(MultiReport, IntervalDecidesWhereATrackIsCut)
{
    const struct
    {
        const char* what;
        double interval;
        std::vector<TableMark> marks;
        std::vector<std::string> names;
        const char* last; // the lines of the last stretch
    } rows[] = {
        {"below the interval",
         30.0,
         {{"12:00:00", "1"}, {"12:29:54", "2"}},
         {"A.txt"},
         "           A  C2023 02 25.50000 01 00 00.00 -00 30 00.0          01.0 R      500\n"
         "           A  C2023 02 25.52076 01 00 00.00 -00 30 00.0          02.0 R      500\n"},
        {"half an hour that is a little more",
         30.0,
         {{"12:00:00", "1"}, {"12:30:00", "2"}},
         {"A.txt", "A.txt"},
         ""},
        {"half an hour that is a little less",
         30.0,
         {{"12:30:00", "1"}, {"13:00:00", "2"}},
         {"A.txt"},
         "           A  C2023 02 25.52083 01 00 00.00 -00 30 00.0          01.0 R      500\n"
         "           A  C2023 02 25.54167 01 00 00.00 -00 30 00.0          02.0 R      500\n"},
        {"exactly the interval", 360.0, {{"06:00:00", "1"}, {"12:00:00", "2"}}, {"A.txt", "A.txt"}, ""},
        {"interval 0",
         0.0,
         {{"12:00:00", "1"}, {"12:00:00", "2"}, {"13:00:00", "3"}},
         {"A.txt", "A.txt", "A.txt"},
         ""},
        {"one mark",
         0.0,
         {{"12:00:00", "1"}},
         {"A.txt"},
         "           A  C2023 02 25.50000 01 00 00.00 -00 30 00.0          01.0 R      500\n"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        Bench bench;
        bench.task.toSeparateFile = "eachgroup";
        bench.task.interval = row.interval;
        bench.add("s1", track("A", "", "", row.marks));
        bench.expectWell(row.names);
        EXPECT_EQ(bench.bytes("A.txt"), "COD 500\n" + std::string(row.last));
    }
}

TEST(MultiReport, PointBeforeTheExtensionIsAdded)
{
    Bench bench;
    bench.task.toSeparateFile = "eachseria";
    bench.task.outputformat = "mea";
    bench.task.outputextension = ".mea";
    bench.add("s1", nameless("A"));
    bench.expectWell({"s1..mea"});
    EXPECT_EQ(bench.bytes("s1..mea"), "T1 2000.0 UTC\n"
                                      "A       250223 1200000000 0100000000 -0030000000 001 09.50\n");

    bench.task.outputextension = "";
    bench.expectWell({"s1."});
    EXPECT_EQ(bench.written(), (Names{"s1..mea", "s1."}));
}

TEST(MultiReport, NameOfASeriesIsTheFourthPartFromTheEnd)
{
    const struct
    {
        const char* path;
        const char* name;
    } rows[] = {{"s1/a/b/table", "s1"},    {"x/s1/a/b/table", "s1"}, {"s1/a/b/table/", "s1"},
                {"s1//b/table", "s1"},     {"s1/a/b/c/table", "a"},  {"s.1 x/a/b/table.txt", "s.1 x"},
                {"s1/a\\b/c/table", "s1"}, {"./s1/a/b/table", "s1"}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.path);
        // There is nothing at these paths; a report without tracks has a name too.
        Bench bench;
        bench.task.toSeparateFile = "eachseria";
        bench.addPath(row.path);
        bench.expectWell({std::string(row.name) + ".txt"});
        EXPECT_EQ(bench.written(), Names{});
    }
}

TEST(MultiReport, NameOfAllObjectsIsTheLastFolderOfTheOutput)
{
    const struct
    {
        const char* folder;
        const char* name;
    } rows[] = {{"/data/out/", "out"}, {"/data/out", "out"}, {"out/", "out"},
                {"a.b/c d/", "c d"},   {"a//", ""},          {"/", ""},
                {"a\\b/", "a\\b"}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.folder);
        // An unknown format writes nothing.
        Bench bench;
        bench.task.outputformat = "nothing";
        bench.task.out_dir = row.folder;
        bench.add("s1", nameless("A"));
        bench.expectWell({std::string(row.name) + ".txt"});
    }
}

// File names that need what is missing.

TEST(MultiReport, NoTracksGiveNoObjectsAndNoGroups)
{
    for (const char* const division : {"eachobject", "eachgroup"}) {
        for (const bool longname : {false, true}) {
            SCOPED_TRACE(division);
            Bench bench;
            bench.task.toSeparateFile = division;
            bench.task.longname = longname;
            bench.add("s1", "");
            bench.addPath(bench / ("missing" + tableInSeries));
            bench.expectWell({});
            EXPECT_EQ(bench.written(), Names{});
        }
    }
}

TEST(MultiReport, NoTracksAreStillAllObjects)
{
    Bench bench;
    bench.add("s1", "");
    bench.expectWell({"out.txt"});
    EXPECT_EQ(bench.written(), Names{});

    bench.task.outputformat = "tdm.xml";
    bench.expectWell({"out.txt"});
    EXPECT_EQ(bench.written(), (Names{"out.txt"}));

    bench.task.longname = true;
    bench.expectLeftOut({});
    EXPECT_EQ(bench.written(), (Names{"out.txt"}));
}

TEST(MultiReport, SeriesWithoutTracksIsStillASeries)
{
    Bench bench;
    bench.task.toSeparateFile = "eachseria";
    bench.add("s1", "");
    bench.add("s2", nameless("B"));
    bench.addPath(bench / ("s3" + tableInSeries));
    bench.expectWell({"s1.txt", "s2.txt", "s3.txt"});
    EXPECT_EQ(bench.written(), (Names{"s2.txt"}));

    bench.task.longname = true;
    bench.expectLeftOut({"T1-s2-2023-02-25T12-00-00-R.txt"});
}

TEST(MultiReport, SeriesOfAShortPathIsLeftOut)
{
    for (const bool longname : {false, true}) {
        SCOPED_TRACE(longname);
        Bench bench;
        bench.task.toSeparateFile = "eachseria";
        bench.task.longname = longname;
        bench.addPath("nowhere/to/go");
        bench.add("s2", nameless("B"));
        bench.addPath("nowhere");
        bench.addPath("nowhere/to/go/");
        bench.addPath("nowhere///");
        bench.add("s3", nameless("C"));
        if (longname) {
            bench.expectLeftOut({"T1-s2-2023-02-25T12-00-00-R.txt", "T1-s3-2023-02-25T12-00-00-R.txt"});
        } else {
            bench.expectLeftOut({"s2.txt", "s3.txt"});
        }
        EXPECT_EQ(bench.written().size(), 2U);
    }
}

TEST(MultiReport, ShortPathMattersToTheNamesOfSeriesAlone)
{
    for (const char* const division : {"allobjects", "eachobject", "eachgroup"}) {
        SCOPED_TRACE(division);
        Bench bench;
        bench.task.toSeparateFile = division;
        bench.add("s1", nameless("out"));
        bench.addPath("nowhere");
        bench.expectWell({"out.txt"});
    }
}

TEST(MultiReport, TrackWithoutMarksGivesNoGroup)
{
    for (const bool longname : {false, true}) {
        SCOPED_TRACE(longname);
        Bench bench;
        bench.task.toSeparateFile = "eachgroup";
        bench.task.longname = longname;
        bench.add("s1", "---\n" + nameless("B"));
        if (longname) {
            bench.expectLeftOut({"T1-B-2023-02-25T12-00-00-R.txt"});
        } else {
            bench.expectLeftOut({"B.txt"});
        }
        EXPECT_EQ(bench.written().size(), 1U);
    }
}

TEST(MultiReport, StretchWithoutMarksHasNoLongName)
{
    // The cut is after the first mark, so the first stretch is empty.
    Bench bench;
    bench.task.toSeparateFile = "eachgroup";
    bench.task.longname = true;
    bench.add("s1", track("A", "", "", {{"12:00:00", "1"}, {"13:00:00", "2"}, {"13:10:00", "3"}}));
    bench.expectLeftOut({"T1-A-2023-02-25T12-59-60-R.txt"});
    EXPECT_EQ(bench.bytes("T1-A-2023-02-25T12-59-60-R.txt"), "COD 500\n" + line(A, "25.54167", "02.0"));

    bench.task.longname = false;
    bench.expectWell({"A.txt", "A.txt"});
    EXPECT_EQ(bench.bytes("A.txt"), "COD 500\n" + line(A, "25.54167", "02.0"));
}

TEST(MultiReport, LastStretchWithoutMarksReplacesTheOneBefore)
{
    Bench bench;
    bench.task.toSeparateFile = "eachgroup";
    bench.add("s1", track("A", "", "", {{"12:00:00", "1"}, {"12:10:00", "2"}, {"13:00:00", "3"}}));
    bench.expectWell({"A.txt", "A.txt"});
    EXPECT_EQ(bench.bytes("A.txt"), "COD 500\n");
}

TEST(MultiReport, ObjectWithoutMarksHasNoLongName)
{
    Bench bench;
    bench.task.toSeparateFile = "eachobject";
    bench.task.longname = true;
    bench.add("s1", nameless("A") + nameless("B")).excludes = {{0, {0}}};
    bench.expectLeftOut({"T1-B-2023-02-25T12-00-00-R.txt"});

    bench.task.longname = false;
    bench.expectWell({"A.txt", "B.txt"});
    EXPECT_EQ(bench.bytes("A.txt"), "COD 500\n");
}

TEST(MultiReport, OnlyTheFirstTrackNamesASeriesOrAllObjects)
{
    for (const char* const division : {"eachseria", "allobjects"}) {
        SCOPED_TRACE(division);
        Bench bench;
        bench.task.toSeparateFile = division;
        bench.task.longname = true;
        const std::string name = division == std::string("eachseria") ? "s1" : "out";
        bench.add("s1", nameless("A") + nameless("B")).excludes = {{1, {0}}};
        bench.expectWell({"T1-" + name + "-2023-02-25T12-00-00-R.txt"});

        bench.task.paths[0].excludes = {{0, {0}}};
        bench.expectLeftOut({});

        bench.task.longname = false;
        bench.expectWell({name + ".txt"});
        EXPECT_EQ(bench.bytes(name + ".txt"), "COD 500\n" + line(B, "25.50000", "09.5"));
    }
}

TEST(MultiReport, SeriesWithoutTracksInFrontLeavesTheFirstTrackOfAllObjects)
{
    Bench bench;
    bench.task.longname = true;
    bench.add("s1", "");
    bench.add("s2", nameless("A")).telescope = "T2";
    bench.expectWell({"T2-out-2023-02-25T12-00-00-R.txt"});
}

TEST(MultiReport, NamelessObjectHasAnEmptyName)
{
    Bench bench;
    bench.task.toSeparateFile = "eachobject";
    bench.add("s1", nameless(""));
    bench.expectWell({".txt"});
    bench.task.longname = true;
    bench.expectWell({"T1--2023-02-25T12-00-00-R.txt"});
}
