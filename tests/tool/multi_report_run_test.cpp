// Reports of the built tool.

#include "support/child_process.h"
#include "support/report_series.h"
#include "support/task_folder.h"
#include "support/tasks.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>
#include <string>

using namespace report_series;

namespace {

// A folder with a series s1 of those tracks, in which report tasks are run. The keys of a test come first in
// the task, and the first of two equal keys counts.
class ToolBench : public TaskFolder
{
public:
    explicit ToolBench(const std::string& tracks)
    {
        std::filesystem::create_directories(*this / "s1/tavelin/dataVO");
        makeFile(*this / ("s1" + tableInSeries), table(tracks));
    }

    ChildEnd run(TaskKeys keys, const std::string& path, const std::string& inSeria = "")
    {
        const TaskKeys rest{{"inputformat", "vomar"},
                            {"out_dir", "out"},
                            {"outputformat", "mpc"},
                            {"outputextension", "txt"},
                            {"path_res", "out/result.xml"},
                            {"paths", "<seria><path>" + path + "</path>" + inSeria + "</seria>"}};
        keys.insert(keys.end(), rest.begin(), rest.end());
        return TaskFolder::run(taskText(keys));
    }
};

const std::string tableOfTool = "s1" + tableInSeries;

} // namespace

TEST(MultiReportTool, KeysThatAreMissingHaveTheirDefaults)
{
    ToolBench bench(nameless("A"));
    expectQuietEnd(bench.run({{"toSeparateFile", "eachobject"}}, tableOfTool));
    const std::string name = "telescope-A-2023-02-25T12-00-00-filter.txt";
    EXPECT_EQ(bench.written(), (Names{name, "result.xml"}));
    EXPECT_EQ(resultOf(bench / "out/result.xml"), resultDocument(0, "OK", "out/" + name + ";"));
    EXPECT_EQ(bytesOf(bench / ("out/" + name)), "COD 500\n" + line(A, "25.50000", "09.5"));
}

TEST(MultiReportTool, ExclusionsAndStampsOfASeriesAreRead)
{
    ToolBench bench(track("A", "", "", {{"00:00:00", "1"}, {"06:00:00", "2"}, {"12:00:00", "3"}}) +
                    track("B", "", "", {{"00:00:00", "4"}, {"06:00:00", "5"}}));
    expectQuietEnd(bench.run({{"toSeparateFile", "eachseria"}}, tableOfTool,
                             "<filtr>V</filtr><telescope>T9</telescope><excludes>0;0;1 1;1 0;7</excludes>"));
    const std::string name = "T9-s1-2023-02-25T12-00-00-V.txt";
    EXPECT_EQ(resultOf(bench / "out/result.xml"), resultDocument(0, "OK", "out/" + name + ";"));
    EXPECT_EQ(bytesOf(bench / ("out/" + name)),
              "COD 500\n" + line(A, "25.50000", "03.0") + line(B, "25.00000", "04.0"));
}

TEST(MultiReportTool, CodeOfAReportIsInItsResult)
{
    ToolBench bench("---\n" + nameless("B"));
    expectQuietEnd(bench.run({{"toSeparateFile", "eachgroup"}, {"longname", "false"}}, tableOfTool));
    EXPECT_EQ(resultOf(bench / "out/result.xml"), resultDocument(-1, "OK", "out/B.txt;"));
}

TEST(MultiReportTool, ObjectIsOutOfRangeUnlessItIsGiven)
{
    ToolBench bench(nameless("A"));
    expectQuietEnd(bench.run({{"toSeparateFile", "allobjects"}, {"whatSave", "object"}}, tableOfTool));
    EXPECT_EQ(bench.written(), (Names{"result.xml"}));
    const std::string document = resultOf(bench / "out/result.xml");
    EXPECT_NE(document.find("<Code>-1</Code>"), std::string::npos) << document;
    EXPECT_NE(document.find("<Comment>OK</Comment>"), std::string::npos) << document;
}

TEST(MultiReportTool, SlashInTheNameOfAnObjectEndsTheRun)
{
    for (const char* const longname : {"true", "false"}) {
        SCOPED_TRACE(longname);
        ToolBench bench(nameless("A") + nameless("C/2020 F3") + nameless("Z"));
        const ChildEnd end =
            bench.run({{"toSeparateFile", "eachobject"}, {"longname", longname}}, tableOfTool);
        EXPECT_FALSE(end.timedOut);
        EXPECT_EQ(end.signal, SIGABRT);
        // Files written before stay; there is no result file.
        EXPECT_EQ(bench.written(),
                  (Names{longname == std::string("true") ? "telescope-A-2023-02-25T12-00-00-filter.txt"
                                                         : "A.txt"}));
    }
}

TEST(MultiReportTool, SlashInTheNameOfAnObjectIsAFolderWhereItExists)
{
    ToolBench bench(nameless("C/2020 F3"));
    std::filesystem::create_directory(bench / "out/C");
    expectQuietEnd(bench.run({{"toSeparateFile", "eachobject"}, {"longname", "false"}}, tableOfTool));
    EXPECT_EQ(bench.written(), (Names{"C/2020 F3.txt", "result.xml"}));
}

TEST(MultiReportTool, EmptyPathOfASeriesEndsTheRun)
{
    ToolBench bench(nameless("A"));
    const ChildEnd end = bench.run({{"toSeparateFile", "allobjects"}}, "", "<filtr>R</filtr>");
    EXPECT_FALSE(end.timedOut);
    EXPECT_EQ(end.signal, SIGABRT);
    EXPECT_EQ(bench.written(), Names{});
}

TEST(MultiReportTool, NoSeriesIsReported)
{
    ToolBench bench(nameless("A"));
    expectQuietEnd(bench.run({{"paths", ""}, {"toSeparateFile", "allobjects"}}, tableOfTool));
    EXPECT_EQ(bench.written(), (Names{"result.xml"}));
    EXPECT_EQ(resultOf(bench / "out/result.xml"), resultDocument(-1, "OK", "paths.size() == 0"));
}

TEST(MultiReportTool, IntervalIsThirtyMinutesUnlessItIsGiven)
{
    ToolBench bench(
        track("A", "", "", {{"12:00:00", "1"}, {"12:29:00", "2"}, {"13:30:00", "3"}, {"13:59:00", "4"}}));
    const std::string first = "telescope-A-2023-02-25T12-00-00-filter.txt";
    const std::string second = "telescope-A-2023-02-25T13-30-00-filter.txt";
    expectQuietEnd(bench.run({{"toSeparateFile", "eachgroup"}}, tableOfTool));
    EXPECT_EQ(bench.written(), (Names{first, second, "result.xml"}));
    EXPECT_EQ(resultOf(bench / "out/result.xml"),
              resultDocument(0, "OK", "out/" + first + ";out/" + second + ";"));
    EXPECT_EQ(bytesOf(bench / ("out/" + first)), "COD 500\n" + line(A, "25.50000", "01.0"));
    EXPECT_EQ(bytesOf(bench / ("out/" + second)), "COD 500\n" + line(A, "25.56250", "03.0"));
}

TEST(MultiReportTool, IntervalThatIsNoNumberCutsEverywhere)
{
    ToolBench bench(track("A", "", "", {{"12:00:00", "1"}, {"12:01:00", "2"}}) + nameless("B"));
    expectQuietEnd(bench.run({{"toSeparateFile", "eachgroup"}, {"interval", "often"}}, tableOfTool));
    const std::string name = "telescope-B-2023-02-25T12-00-00-filter.txt";
    EXPECT_EQ(bench.written(), (Names{name, "result.xml"}));
    EXPECT_EQ(resultOf(bench / "out/result.xml"), resultDocument(-1, "OK", "out/" + name + ";"));
}

TEST(MultiReportTool, TableOfAShortPathIsReadAndHasNoSeriesName)
{
    // Where there is no folder above, the search for the configuration stays in the one it has reached.
    ToolBench bench("");
    std::filesystem::create_directories(bench / "a/b");
    makeFile(bench / "a/b/obj.txt", table(nameless("A")));
    makeFile(bench / "a/own.conf", configuration("asteroids"));
    expectQuietEnd(bench.run({{"toSeparateFile", "eachobject"}, {"longname", "false"}}, "a/b/obj.txt"));
    EXPECT_EQ(bench.written(), (Names{"AST1000.txt", "result.xml"}));

    expectQuietEnd(bench.run({{"toSeparateFile", "eachseria"}, {"longname", "false"}}, "a/b/obj.txt"));
    EXPECT_EQ(bench.written(), (Names{"AST1000.txt", "result.xml"}));
    EXPECT_NE(resultOf(bench / "out/result.xml").find("<Code>-1</Code>"), std::string::npos);
}

TEST(MultiReportTool, TwoPointsInTheNameOfAnObjectLeadOutOfTheFolder)
{
    ToolBench bench(nameless("../A") + nameless("..") + nameless("Z"));
    expectQuietEnd(bench.run({{"toSeparateFile", "eachobject"}, {"longname", "false"}}, tableOfTool));
    EXPECT_EQ(bench.written(), (Names{"...txt", "Z.txt", "result.xml"}));
    EXPECT_TRUE(exists(bench / "A.txt"));
}

TEST(MultiReportTool, NameOf300CharactersEndsTheRun)
{
    ToolBench bench(nameless("A") + nameless(std::string(300, 'n')) + nameless("Z"));
    const ChildEnd end = bench.run({{"toSeparateFile", "eachobject"}, {"longname", "false"}}, tableOfTool);
    EXPECT_FALSE(end.timedOut);
    EXPECT_EQ(end.signal, SIGABRT);
    EXPECT_EQ(bench.written(), (Names{"A.txt"}));
}
