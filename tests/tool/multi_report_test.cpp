#include "multi_report.h"

#include "support/report_series.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

using namespace tavelinUtils;
using namespace report_series;

// The series and their configurations.

TEST(MultiReport, NoSeriesIsReported)
{
    for (const char* const whatSave : {"", "object"}) {
        for (const char* const division : {"", "allobjects", "eachseria", "eachobject", "eachgroup"}) {
            SCOPED_TRACE(division);
            Bench bench;
            bench.task.whatSave = whatSave;
            bench.task.toSeparateFile = division;
            const TFuncRes result = CreateMultiReport(bench.task);
            EXPECT_EQ(result.Code, -1);
            EXPECT_EQ(result.Comment, "OK");
            EXPECT_EQ(result.Description, "paths.size() == 0");
            EXPECT_EQ(bench.written(), Names{});
        }
    }
}

TEST(MultiReport, MissingTableGivesNoTracks)
{
    Bench bench;
    bench.addPath(bench / ("missing" + tableInSeries));
    bench.add("s1", nameless("12345"));
    bench.expectWell({"out.txt"});
    EXPECT_EQ(bench.bytes("out.txt"), "COD 500\n" + line("12345       ", "25.50000", "09.5"));
}

TEST(MultiReport, EmptyPathOfASeriesThrows)
{
    Bench bench;
    bench.add("s1", nameless("12345"));
    bench.addPath("");
    EXPECT_THROW(CreateMultiReport(bench.task), std::out_of_range);
    EXPECT_EQ(bench.written(), Names{});
}

TEST(MultiReport, SeriesWithoutConfigurationHasTheDefaults)
{
    Bench bench;
    bench.task.originator = "origin";
    bench.add("s1", track("12345", "K13A01A", "40001", {{"12:00:00", "9.5"}}));
    const std::vector<Tracks> reports = bench.tracks();
    ASSERT_EQ(reports.size(), 1U);
    ASSERT_EQ(reports[0].size(), 1U);
    const TrackVtorichka& one = reports[0][0];
    EXPECT_EQ(one.QRVName, "12345");
    EXPECT_EQ(one.ObsCode, "CODEAAVSO");
    EXPECT_EQ(one.MPCHeader.COD, "500");
    EXPECT_EQ(one.MPCHeader.CON + one.MPCHeader.OBS + one.MPCHeader.MEA + one.MPCHeader.COM +
                  one.MPCHeader.TEL + one.MPCHeader.ACK + one.MPCHeader.AC2 + one.MPCHeader.NET,
              "");
    EXPECT_TRUE(one.MPCHeader.HeaderOn);
    EXPECT_FALSE(one.MPCHeader.HeaderFlag2);
    EXPECT_EQ(one.Series, "R");
    EXPECT_EQ(one.telescope, "T1");
    EXPECT_EQ(one.originator, "origin");
}

TEST(MultiReport, BrokenConfigurationLeavesTheDefaults)
{
    for (const char* const text : {"<root><Service>asteroids</Service>", "no XML", "<!-- nothing -->",
                                   "<root><Service>asteroids</Service></toor>"})
    {
        SCOPED_TRACE(text);
        Bench bench;
        bench.add("s1", nameless("12345"), text);
        bench.expectWell({"out.txt"});
        EXPECT_EQ(bench.bytes("out.txt"), "COD 500\n" + line("12345       ", "25.50000", "09.5"));
    }
}

TEST(MultiReport, ConfigurationIsFoundAnywhereBelowTheSeries)
{
    for (const char* const name :
         {"/a.conf", "/.conf", "/a.b.conf", "/tavelin/a.conf", "/tavelin/dataVO/a.conf", "/x/y/z/a.conf"})
    {
        SCOPED_TRACE(name);
        Bench bench;
        bench.add("s1", nameless("A"));
        const std::string path = bench / ("s1" + std::string(name));
        std::filesystem::create_directories(std::filesystem::path(path).parent_path());
        makeFile(path, configuration("asteroids"));
        EXPECT_EQ(bench.trackNames(), (Texts{"AST1000"}));
    }
}

TEST(MultiReport, OtherNamesAreNoConfiguration)
{
    for (const char* const name : {"/a.CONF", "/a.conf.bak", "/conf", "/aconf", "/a.config"}) {
        SCOPED_TRACE(name);
        Bench bench;
        bench.add("s1", nameless("A"));
        makeFile(bench / ("s1" + std::string(name)), configuration("asteroids"));
        // This one is beside the series, not in it.
        makeFile(bench / "beside.conf", configuration("asteroids"));
        std::filesystem::create_directory(bench / "s1/folder.conf");
        EXPECT_EQ(bench.trackNames(), (Texts{"A"}));
    }
}

TEST(MultiReport, OfTwoConfigurationsTheFirstInTheFolderCounts)
{
    Bench bench;
    bench.add("s1", nameless("A"), "empty");
    makeFile(bench / "s1/a.conf", "");
    // The order is that of the folder, regardless of names.
    std::vector<std::string> found;
    for (const auto& entry : std::filesystem::directory_iterator(bench / "s1")) {
        if (entry.path().extension() == ".conf") {
            found.push_back(entry.path().string());
        }
    }
    ASSERT_EQ(found.size(), 2U);
    makeFile(found[0], configuration("asteroids", withCode("I41")));
    makeFile(found[1], configuration("satellites", withCode("I42")));
    bench.expectWell({"out.txt"});
    EXPECT_EQ(bench.bytes("out.txt"), "COD I41\n" + line("     AST1000", "25.50000", "09.5", "I41"));

    // A broken one is not skipped in favour of the next.
    makeFile(found[0], "<root>");
    bench.expectWell({"out.txt"});
    EXPECT_EQ(bench.bytes("out.txt"), "COD 500\n" + line("           A", "25.50000", "09.5"));
}

TEST(MultiReport, BrokenTablesGiveWhatTheyHold)
{
    struct Row
    {
        const char* what;
        std::string bytes;
        std::size_t tracks;
    };
    const Row rows[] = {
        {"empty", "", 0},
        {"version alone", "v2\n", 0},
        {"header alone", "v2\nQRVName:Text\tm:Float\n", 0},
        {"unknown columns", "x\ty:Int\n1\t2\n---\n", 1},
        {"short lines", "v2\nQRVName:Text\tm:Float\nA\n\n---\n", 1},
        {"no end of a track", "v2\nQRVName:Text\nA\nB\n", 1},
        {"ends alone", "v2\nQRVName:Text\n---\n---\n", 2},
        {"huge numbers", "iF:Int\tm:Float\n99999999999999999999\t1e999\n---\n", 1},
        {"binary", std::string("\0\xff\x01\t\xfe\n\0\n---\n", 11), 1},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        Bench bench;
        bench.task.outputformat = "tdm.xml";
        bench.add("s1", "");
        makeFile(bench.task.paths.back().path, row.bytes);
        ASSERT_EQ(bench.tracks().size(), 1U);
        EXPECT_EQ(bench.tracks().front().size(), row.tracks);
    }
}

// Exclusions.

TEST(MultiReport, ExcludedMarksAreGone)
{
    Bench bench;
    bench
        .add("s1", track("A", "", "", {{"12:00:00", "1"}, {"13:00:00", "2"}, {"14:00:00", "3"}}) +
                       track("B", "", "", {{"12:00:00", "4"}, {"13:00:00", "5"}}))
        .excludes = {{1, {0}}, {0, {0, 2}}};
    bench.expectWell({"out.txt"});
    EXPECT_EQ(bench.bytes("out.txt"), "COD 500\n" + line("           A", "25.54167", "02.0") +
                                          line("           B", "25.54167", "05.0"));
}

TEST(MultiReport, EachExclusionCountsInWhatTheOneBeforeLeft)
{
    const std::string four =
        track("A", "", "", {{"00:00:00", "1"}, {"06:00:00", "2"}, {"12:00:00", "3"}, {"18:00:00", "4"}});
    Bench together;
    together.add("s1", four).excludes = {{0, {0, 1}}};
    together.expectWell({"out.txt"});
    EXPECT_EQ(together.bytes("out.txt"), "COD 500\n" + line("           A", "25.50000", "03.0") +
                                             line("           A", "25.75000", "04.0"));

    Bench apart;
    apart.add("s1", four).excludes = {{0, {0}}, {0, {1}}};
    apart.expectWell({"out.txt"});
    EXPECT_EQ(apart.bytes("out.txt"), "COD 500\n" + line("           A", "25.25000", "02.0") +
                                          line("           A", "25.75000", "04.0"));

    Bench twice;
    twice.add("s1", four).excludes = {{0, {0}}, {0, {0}}, {0, {}}, {0, {0}}};
    twice.expectWell({"out.txt"});
    EXPECT_EQ(twice.bytes("out.txt"), "COD 500\n" + line("           A", "25.75000", "04.0"));
}

TEST(MultiReport, ExclusionsOfWhatDoesNotExistAreSkipped)
{
    Bench bench;
    bench.add("s1", nameless("A")).excludes = {
        {1, {0}}, {-1, {0}}, {0, {1, -1, 2147483647}}, {2147483647, {0}}};
    bench.add("s2", "").excludes = {{0, {0}}};
    bench.expectWell({"out.txt"});
    EXPECT_EQ(bench.bytes("out.txt"), "COD 500\n" + line("           A", "25.50000", "09.5"));
}

TEST(MultiReport, ExclusionsBelongToTheirSeries)
{
    const std::string two = track("A", "", "", {{"00:00:00", "1"}, {"06:00:00", "2"}});
    Bench bench;
    bench.add("s1", two).excludes = {{0, {0}}};
    bench.add("s2", two).excludes = {{0, {1}}};
    bench.expectWell({"out.txt"});
    EXPECT_EQ(bench.bytes("out.txt"), "COD 500\n" + line("           A", "25.25000", "02.0") +
                                          line("           A", "25.00000", "01.0"));
}

TEST(MultiReport, TrackThatLostItsMarksStillTakesItsNumber)
{
    Bench bench;
    bench.add("s1", nameless("A") + nameless("B") + nameless("C"), configuration("asteroids")).excludes = {
        {1, {0}}};
    bench.expectWell({"out.txt"});
    EXPECT_EQ(bench.bytes("out.txt"), "COD 500\n" + line("     AST1000", "25.50000", "09.5") +
                                          line("     AST1002", "25.50000", "09.5"));
    EXPECT_EQ(bench.trackNames(), (Texts{"AST1000", "AST1001", "AST1002"}));
}

TEST(MultiReport, ExclusionsComeBeforeTheDivision)
{
    // Without the second mark there is a gap after the first.
    Bench bench;
    bench.task.toSeparateFile = "eachgroup";
    bench
        .add("s1", track("A", "", "",
                         {{"12:00:00", "1"},
                          {"12:20:00", "2"},
                          {"12:40:00", "3"},
                          {"13:00:00", "4"},
                          {"13:20:00", "5"}}))
        .excludes = {{0, {1}}};
    bench.expectWell({"A.txt", "A.txt"});
    EXPECT_EQ(bench.bytes("A.txt"), "COD 500\n" + line("           A", "25.52778", "03.0") +
                                        line("           A", "25.54167", "04.0"));
}

TEST(MultiReport, ExcludedMarksAreNotWritten)
{
    Bench bench;
    bench.add("s1", track("A", "", "", {{"12:00:00", "1"}, {"13:00:00", "2"}, {"14:00:00", "3"}}))
        .excludes = {{0, {1}}};
    const std::vector<Tracks> reports = bench.tracks();
    ASSERT_EQ(reports.size(), 1U);
    ASSERT_EQ(reports[0].at(0).Marks.size(), 2U);
    EXPECT_EQ(double(reports[0].at(0).Marks[0].m), 1.0);
    EXPECT_EQ(double(reports[0].at(0).Marks[1].m), 3.0);
}

// A single object.

TEST(MultiReport, OneObjectUnderEachWay)
{
    const struct
    {
        const char* division;
        bool longname;
        std::vector<std::string> names;
    } rows[] = {
        {"allobjects", false, {"out.txt"}},
        {"allobjects", true, {"T1-out-2023-02-25T11-00-00-R.txt"}},
        {"eachobject", false, {"AST1001.txt"}},
        {"eachobject", true, {"T1-AST1001-2023-02-25T11-00-00-R.txt"}},
        {"eachseria", false, {"s1.txt"}},
        {"eachseria", true, {"T1-s1-2023-02-25T11-00-00-R.txt"}},
        {"eachgroup", false, {"AST1001.txt"}},
        {"eachgroup", true, {"T1-AST1001-2023-02-25T11-00-00-R.txt"}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.division);
        SCOPED_TRACE(row.longname);
        Bench bench;
        bench.task.whatSave = "object";
        bench.task.object = 2;
        bench.task.toSeparateFile = row.division;
        bench.task.longname = row.longname;
        bench.add("s1",
                  nameless("A") + track("B", "K13A01A", "", {{"12:00:00", "1"}}) +
                      track("C", "", "", {{"11:00:00", "3"}, {"11:10:00", "2"}}) + nameless("D"),
                  configuration("asteroids", withCode("I41")));
        bench.add("s2", nameless("A"), configuration("asteroids"));
        bench.expectWell(row.names);
        EXPECT_EQ(bench.written(), Names(row.names.begin(), row.names.end()));
        // It keeps the number that it has among all tracks.
        EXPECT_EQ(bench.bytes(row.names[0]), "COD I41\n" + line("     AST1001", "25.45833", "03.0", "I41") +
                                                 line("     AST1001", "25.46528", "02.0", "I41"));
    }
}

TEST(MultiReport, OneObjectIsNotJoinedWithItsLikes)
{
    Bench bench;
    bench.task.whatSave = "object";
    bench.task.object = 0;
    bench.task.toSeparateFile = "eachobject";
    bench.add("s1", track("A", "", "", {{"12:00:00", "1"}}) + track("A", "", "", {{"13:00:00", "2"}}));
    bench.add("s2", track("A", "", "", {{"14:00:00", "3"}}));
    bench.expectWell({"A.txt"});
    EXPECT_EQ(bench.bytes("A.txt"), "COD 500\n" + line(A, "25.50000", "01.0"));
}

TEST(MultiReport, OneObjectCutIntoItsStretches)
{
    Bench bench;
    bench.task.whatSave = "object";
    bench.task.object = 0;
    bench.task.toSeparateFile = "eachgroup";
    bench.task.longname = true;
    addTwoSeries(bench);
    bench.expectWell({"T1-A-2023-02-25T12-00-00-R.txt", "T1-A-2023-02-25T13-19-60-R.txt"});
}

TEST(MultiReport, OtherWordsKeepAllTracks)
{
    for (const char* const whatSave : {"", "all", "Object", "objects", "object "}) {
        SCOPED_TRACE(whatSave);
        Bench bench;
        bench.task.whatSave = whatSave;
        bench.task.object = 1;
        addTwoSeries(bench);
        EXPECT_EQ(bench.trackNames(), (Texts{"A", "B", "A"}));
    }
}

TEST(MultiReport, ObjectThatDoesNotExistIsReported)
{
    for (const char* const division : {"allobjects", "eachseria", "eachobject", "eachgroup"}) {
        for (const int object : {-1, 1, 2, 2147483647, -2147483647 - 1}) {
            SCOPED_TRACE(division);
            SCOPED_TRACE(object);
            Bench bench;
            bench.task.whatSave = "object";
            bench.task.object = object;
            bench.task.toSeparateFile = division;
            bench.add("s1", nameless("A"));
            // Objects of later series do not count.
            bench.add("s2", nameless("B") + nameless("C") + nameless("D"));
            bench.expectLeftOut({});
            EXPECT_EQ(bench.written(), Names{});
        }
    }
}

TEST(MultiReport, FirstSeriesWithoutTracksHasNoObject)
{
    Bench bench;
    bench.task.whatSave = "object";
    bench.task.object = 0;
    bench.addPath(bench / ("missing" + tableInSeries));
    bench.add("s2", nameless("B"));
    bench.expectLeftOut({});
    EXPECT_EQ(bench.written(), Names{});
}

// Formats and their writers.

TEST(MultiReport, UnknownFormatIsNotReported)
{
    for (const char* const word : {"", "nothing", "vomar", "MPC"}) {
        SCOPED_TRACE(word);
        Bench bench;
        bench.task.outputformat = word;
        bench.task.toSeparateFile = "eachseria";
        addTwoSeries(bench);
        bench.expectWell({"s1.txt", "s2.txt"});
        EXPECT_EQ(bench.written(), Names{});
    }
}

TEST(MultiReport, EveryWordWrites)
{
    for (const char* const word : {"mea", "telegram", "tdm", "ssmas", "mpc", "tdm.xml", "mag", "aavso"}) {
        SCOPED_TRACE(word);
        Bench bench;
        bench.task.outputformat = word;
        bench.add("s1", nameless("12345"));
        bench.expectWell({"out.txt"});
        EXPECT_EQ(bench.written(), (Names{"out.txt"}));
        EXPECT_NE(bench.bytes("out.txt"), "");
    }
}

TEST(MultiReport, FailureOfAWriterIsPassedOn)
{
    Bench bench;
    bench.task.toSeparateFile = "eachseria";
    addTwoSeries(bench);
    std::filesystem::create_directory(bench / "out/s2.txt");
    try {
        CreateMultiReport(bench.task);
        ADD_FAILURE() << "nothing was thrown";
    } catch (const TavelinException& failure) {
        EXPECT_EQ(failure.getCode(), 7);
        EXPECT_EQ(failure.getComment(), bench.task.out_dir + "s2.txt");
    }
    EXPECT_NE(bench.bytes("s1.txt"), "");
}

TEST(MultiReport, TaskIsLeftAsItWas)
{
    Bench bench;
    addTwoSeries(bench);
    bench.task.toSeparateFile = "eachobject";
    bench.expectWell({"A.txt", "B.txt"});
    bench.expectWell({"A.txt", "B.txt"});
    EXPECT_EQ(bench.task.paths.size(), 2U);
    EXPECT_EQ(bytesOf(bench.task.paths[1].path), table(track("A", "", "", {{"12:10:00", "9"}})));
}
