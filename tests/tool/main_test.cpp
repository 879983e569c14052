// The built tool as a program.

#include "support/child_process.h"
#include "support/places.h"
#include "support/task_folder.h"
#include "support/tasks.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>
#include <set>
#include <string>
#include <vector>

namespace {

const std::string night = "T1 2000.0 UTC\n"
                          "12345   250223 1200000000 0100000000 -0030000000 001 09.50\n";

const std::string nightInMpc =
    "COD 500\n"
    "12345         C2023 02 25.50000 01 00 00.00 -00 30 00.0          09.5 R      500\n";

// The task that the tool reads unless it is started with exactly one argument. On this system it is the name
// of a file in the working folder.
const std::string defaultTask = "f:\\vomar\\binwindows64\\thresh.xml";

// A task from night.mea to an MPC report, with some of its keys replaced or more keys added.
std::string taskWith(const TaskKeys& others)
{
    TaskKeys keys{{"path_in", "night.mea"}, {"out_dir", "out"},      {"outputextension", ".txt"},
                  {"inputformat", "mea"},   {"outputformat", "mpc"}, {"autoname", "false"},
                  {"path_res", "./r.xml"}};
    for (const auto& other : others) {
        bool known = false;
        for (auto& key : keys) {
            if (key.first == other.first) {
                key.second = other.second;
                known = true;
            }
        }
        if (!known) {
            keys.push_back(other);
        }
    }
    return taskText(keys);
}

// A folder with night.mea, in which tasks are run.
class Bench : public TaskFolder
{
public:
    Bench()
    {
        makeFile(*this / "night.mea", night);
    }
    ChildEnd run(const TaskKeys& others)
    {
        return TaskFolder::run(taskWith(others));
    }
    std::set<std::string> files() const
    {
        return filesBelow(path());
    }
};

using Names = std::set<std::string>;
using Lines = std::vector<std::string>;

} // namespace

TEST(Main, ConvertsAndSavesTheResult)
{
    Bench bench;
    expectQuietEnd(bench.run({}));
    EXPECT_EQ(bytesOf(bench / "out/night.txt"), nightInMpc);
    EXPECT_EQ(resultOf(bench / "r.xml"), resultDocument(0, "OK", "out/night.txt"));
    EXPECT_EQ(bytesOf(bench / "night.mea"), night);
    EXPECT_EQ(bench.files(), (Names{"night.mea", "out/night.txt", "r.xml", "task.xml"}));
}

TEST(Main, AbsolutePathsNeedNoFolder)
{
    Bench bench;
    makeFile(bench / "task.xml", taskWith({{"path_in", bench / "night.mea"},
                                           {"out_dir", bench / "out"},
                                           {"path_res", bench / "r.xml"}}));
    expectQuietEnd(runTool(bench / "task.xml"));
    EXPECT_EQ(bytesOf(bench / "out/night.txt"), nightInMpc);
    EXPECT_EQ(resultOf(bench / "r.xml"), resultDocument(0, "OK", bench / "out/night.txt"));
}

TEST(Main, TaskReachesTheConversionWhole)
{
    Bench bench;
    expectQuietEnd(bench.run({{"outputextension", ".mea"},
                              {"outputformat", "mea"},
                              {"PARTICIPANT_1", "T9"},
                              {"originator", "O"},
                              {"REFERENCE_FRAME", "F"},
                              {"autoname", "true"}}));
    EXPECT_EQ(bytesOf(bench / "out/T9-12345-2023-02-25T12-00-00-.mea"),
              "T9 2000.0 UTC\n12345   250223 1200000000 0100000000 -0030000000 001 09.50\n");
    EXPECT_EQ(resultOf(bench / "r.xml"), resultDocument(0, "OK", "out/T9-12345-2023-02-25T12-00-00-.mea"));
}

TEST(Main, SilentTaskHasTheDefaults)
{
    Bench bench;
    makeFile(bench / "task.xml", "<t><path_in>night.mea</path_in><out_dir>out</out_dir>"
                                 "<inputformat>mea</inputformat><outputformat>mea</outputformat>"
                                 "<path_res>./r.xml</path_res></t>");
    expectQuietEnd(runTool("task.xml", bench.path()));
    // There is no automatic name and no extension, and the telescope has its default.
    EXPECT_EQ(bytesOf(bench / "out/night"),
              "telescope 2000.0 UTC\n12345   250223 1200000000 0100000000 -0030000000 001 09.50\n");
    EXPECT_EQ(resultOf(bench / "r.xml"), resultDocument(0, "OK", "out/night"));
}

TEST(Main, EmptyTaskLeavesNoTrace)
{
    Bench bench;
    makeFile(bench / "task.xml", "<task/>");
    expectQuietEnd(runTool("task.xml", bench.path()));
    EXPECT_EQ(bench.files(), (Names{"night.mea", "task.xml"}));
}

// The path of the task.

TEST(Main, NoArgumentReadsTheDefaultTask)
{
    Bench bench;
    makeFile(bench / defaultTask, taskWith({}));
    expectQuietEnd(runProgram(builtTool(), std::vector<std::string>{}, bench.path()));
    EXPECT_EQ(bytesOf(bench / "out/night.txt"), nightInMpc);
    EXPECT_EQ(resultOf(bench / "r.xml"), resultDocument(0, "OK", "out/night.txt"));
}

TEST(Main, SeveralArgumentsReadTheDefaultTask)
{
    Bench bench;
    makeFile(bench / defaultTask, taskWith({{"outputextension", ".default"}}));
    makeFile(bench / "task.xml", taskWith({{"outputextension", ".first"}}));
    makeFile(bench / "task2.xml", taskWith({{"outputextension", ".second"}}));
    expectQuietEnd(runProgram(builtTool(), std::vector<std::string>{"task.xml", "task2.xml"}, bench.path()));
    EXPECT_EQ(bytesOf(bench / "out/night.default"), nightInMpc);
    EXPECT_FALSE(exists(bench / "out/night.first"));
    EXPECT_FALSE(exists(bench / "out/night.second"));
}

TEST(Main, NoArgumentAndNoDefaultTaskGoToTheLogBesideTheTool)
{
    Bench bench;
    const TemporaryFolder bin;
    const std::string tool = copyOfTool(bin / "vomar");
    expectQuietEnd(runProgram(tool, std::vector<std::string>{}, bench.path()));
    EXPECT_EQ(logOf(bin / "vomar.log"), (Lines{"Code=7//Error opening file//" + defaultTask}));
    EXPECT_EQ(bench.files(), (Names{"night.mea"}));
}

TEST(Main, SeveralArgumentsAreAllIgnored)
{
    Bench bench;
    const TemporaryFolder bin;
    const std::string tool = copyOfTool(bin / "vomar");
    makeFile(bench / "task.xml", taskWith({}));
    expectQuietEnd(runProgram(tool, std::vector<std::string>{"task.xml", "task.xml"}, bench.path()));
    expectQuietEnd(runProgram(tool, std::vector<std::string>{"task.xml", ""}, bench.path()));
    expectQuietEnd(runProgram(tool, std::vector<std::string>{"--help", "-v", "task.xml"}, bench.path()));
    const std::string line = "Code=7//Error opening file//" + defaultTask;
    EXPECT_EQ(logOf(bin / "vomar.log"), (Lines{line, line, line}));
    EXPECT_EQ(bench.files(), (Names{"night.mea", "task.xml"}));
}

TEST(Main, TaskThatCannotBeLoadedGoesToTheLogBesideTheTool)
{
    Bench bench;
    const TemporaryFolder bin;
    const std::string tool = copyOfTool(bin / "vomar");
    makeFile(bench / "broken.xml", "<task><path_res>./r.xml</path_res>");
    for (const std::string task :
         {"missing.xml", "no/folder.xml", "broken.xml", "out", "night.mea", "--help", "a//b.xml"})
    {
        SCOPED_TRACE(task);
        expectQuietEnd(runProgram(tool, std::vector<std::string>{task}, bench.path()));
    }
    EXPECT_EQ(logOf(bin / "vomar.log"),
              (Lines{"Code=7//Error opening file//missing.xml", "Code=7//Error opening file//no/folder.xml",
                     "Code=7//Error opening file//broken.xml", "Code=7//Error opening file//out",
                     "Code=7//Error opening file//night.mea", "Code=7//Error opening file//--help",
                     "Code=7//Error opening file//a//b.xml"}));
    EXPECT_EQ(bench.files(), (Names{"broken.xml", "night.mea"}));
    EXPECT_EQ(filesBelow(bin.path()), (Names{"vomar", "vomar.log"}));
}

TEST(Main, EmptyArgumentIsDescribedByTheComment)
{
    const TemporaryFolder bin;
    const std::string tool = copyOfTool(bin / "vomar");
    expectQuietEnd(runProgram(tool, std::vector<std::string>{""}, bin.path()));
    EXPECT_EQ(logOf(bin / "vomar.log"), (Lines{"Code=7//Error opening file//Error opening file"}));
}

TEST(Main, LogHasTheNameByWhichTheToolWasStarted)
{
    const TemporaryFolder bin;
    copyOfTool(bin / "vomar");
    std::filesystem::create_directory(bin / "links");
    std::filesystem::create_symlink("../vomar", bin / "links/other.tool");
    expectQuietEnd(runProgram("./vomar", std::vector<std::string>{"missing.xml"}, bin.path()));
    expectQuietEnd(runProgram("links/other.tool", std::vector<std::string>{"missing.xml"}, bin.path()));
    const Lines line{"Code=7//Error opening file//missing.xml"};
    EXPECT_EQ(logOf(bin / "vomar.log"), line);
    EXPECT_EQ(logOf(bin / "links/other.tool.log"), line);
    EXPECT_EQ(filesBelow(bin.path()),
              (Names{"links/other.tool", "links/other.tool.log", "vomar", "vomar.log"}));
}

TEST(Main, BareNameThroughThePathLeavesNoLog)
{
    const TemporaryFolder folder;
    const TemporaryFolder bin;
    copyOfTool(bin / "vomar");
    const std::vector<std::string> arguments{"PATH=" + bin.path(), "vomar", "missing.xml"};
    expectQuietEnd(runProgram("/usr/bin/env", arguments, folder.path()));
    EXPECT_EQ(filesBelow(folder.path()), Names{});
    EXPECT_EQ(filesBelow(bin.path()), (Names{"vomar"}));
}

TEST(Main, BareNameThroughThePathConverts)
{
    Bench bench;
    const TemporaryFolder bin;
    copyOfTool(bin / "vomar");
    makeFile(bench / "task.xml", taskWith({}));
    const std::vector<std::string> arguments{"PATH=" + bin.path(), "vomar", "task.xml"};
    expectQuietEnd(runProgram("/usr/bin/env", arguments, bench.path()));
    EXPECT_EQ(bytesOf(bench / "out/night.txt"), nightInMpc);
}

TEST(Main, LogBesideTheToolIsForTasksThatDoNotLoadOnly)
{
    Bench bench;
    const TemporaryFolder bin;
    const std::string tool = copyOfTool(bin / "vomar");
    for (const TaskKeys& others :
         {TaskKeys{{"path_res", ""}}, TaskKeys{{"path_res", "missing/r.xml"}},
          TaskKeys{{"inputformat", "unknown"}, {"path_res", ""}}, TaskKeys{{"inputformat", "unknown"}}})
    {
        makeFile(bench / "task.xml", taskWith(others));
        expectQuietEnd(runProgram(tool, std::vector<std::string>{"task.xml"}, bench.path()));
    }
    EXPECT_EQ(filesBelow(bin.path()), (Names{"vomar"}));
}

// The output folder.

TEST(Main, OutputFolderMayHaveItsSlash)
{
    const struct
    {
        const char* outDir;
        const char* output;
    } rows[] = {{"out", "out/night.txt"},
                {"out/", "out/night.txt"},
                {"out//", "out//night.txt"},
                {"./out", "./out/night.txt"},
                {".", "./night.txt"},
                {"out/..", "out/../night.txt"},
                {"out/../out", "out/../out/night.txt"}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.outDir);
        Bench bench;
        expectQuietEnd(bench.run({{"out_dir", row.outDir}}));
        EXPECT_EQ(bytesOf(bench / row.output), nightInMpc);
        EXPECT_EQ(resultOf(bench / "r.xml"), resultDocument(0, "OK", row.output));
    }
}

TEST(Main, OutputFolderThatIsNoneIsReplacedByThatOfTheInput)
{
    const struct
    {
        const char* what;
        const char* outDir;
    } rows[] = {{"empty", ""},
                {"missing", "missing"},
                {"missing with a slash", "missing/"},
                {"missing below one that is there", "out/missing"},
                {"a file", "in/night.mea"},
                {"a file with a slash", "in/night.mea/"},
                {"blanks around a folder", " out "}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        Bench bench;
        std::filesystem::create_directory(bench / "in");
        std::filesystem::rename(bench / "night.mea", bench / "in/night.mea");
        expectQuietEnd(bench.run({{"path_in", "in/night.mea"}, {"out_dir", row.outDir}}));
        EXPECT_EQ(bytesOf(bench / "in/night.txt"), nightInMpc);
        EXPECT_EQ(resultOf(bench / "r.xml"), resultDocument(0, "OK", "in/night.txt"));
        EXPECT_EQ(bench.files(), (Names{"in/night.mea", "in/night.txt", "r.xml", "task.xml"}));
        EXPECT_FALSE(exists(bench / "missing"));
        EXPECT_FALSE(exists(bench / "out/missing"));
    }
}

TEST(Main, FolderOfTheInputIsCutAtEitherSeparator)
{
    // The folder of a path ends at its last separator of either kind, although to this system a backslash is
    // a character of a name.
    Bench bench;
    std::filesystem::rename(bench / "night.mea", bench / "in\\night.mea");
    std::filesystem::create_directory(bench / "in");
    expectQuietEnd(bench.run({{"path_in", "in\\night.mea"}, {"out_dir", ""}}));
    EXPECT_EQ(bytesOf(bench / "in/night.txt"), nightInMpc);
    EXPECT_EQ(resultOf(bench / "r.xml"), resultDocument(0, "OK", "in/night.txt"));
}

TEST(Main, BackslashAtTheEndOfTheOutputFolderStays)
{
    // The folder is looked for without its backslash, and used with it.
    Bench bench;
    std::filesystem::create_directory(bench / "out\\");
    expectQuietEnd(bench.run({{"out_dir", "out\\"}}));
    EXPECT_EQ(bytesOf(bench / "out\\/night.txt"), nightInMpc);
    EXPECT_EQ(resultOf(bench / "r.xml"), resultDocument(0, "OK", "out\\/night.txt"));
    EXPECT_FALSE(exists(bench / "out/night.txt"));
}

TEST(Main, BareInputNameIsItsOwnOutputFolder)
{
    Bench bench;
    expectQuietEnd(bench.run({{"path_in", "missing.mea"}, {"out_dir", ""}}));
    EXPECT_EQ(resultOf(bench / "r.xml"), resultDocument(0, "OK", "missing.mea/missing.txt"));
    EXPECT_EQ(bench.files(), (Names{"night.mea", "r.xml", "task.xml"}));
}

TEST(Main, EmptyInputPathGoesToTheRoot)
{
    Bench bench;
    expectQuietEnd(bench.run({{"path_in", ""}, {"out_dir", ""}}));
    EXPECT_EQ(resultOf(bench / "r.xml"), resultDocument(0, "OK", "/.txt"));
    EXPECT_EQ(bench.files(), (Names{"night.mea", "r.xml", "task.xml"}));
}

// The results of a conversion.

TEST(Main, UnknownInputWordIsAResult)
{
    for (const char* word : {"MEA", "unknown", "Vomar", "vomar ", ""}) {
        SCOPED_TRACE(word);
        Bench bench;
        expectQuietEnd(bench.run({{"inputformat", word}}));
        EXPECT_EQ(resultOf(bench / "r.xml"), resultDocument(-1, "unknown input format", "format_in"));
        EXPECT_EQ(bench.files(), (Names{"night.mea", "r.xml", "task.xml"}));
    }
}

TEST(Main, UnknownOutputWordIsNoFailure)
{
    for (const char* word : {"MPC", "unknown", "vomar", ""}) {
        SCOPED_TRACE(word);
        Bench bench;
        expectQuietEnd(bench.run({{"outputformat", word}}));
        EXPECT_EQ(resultOf(bench / "r.xml"), resultDocument(0, "OK", "out/night.txt"));
        EXPECT_EQ(bench.files(), (Names{"night.mea", "r.xml", "task.xml"}));
    }
}

TEST(Main, OutputThatIsTheInputIsAResult)
{
    Bench bench;
    expectQuietEnd(bench.run({{"path_in", "./night.mea"},
                              {"out_dir", "missing"},
                              {"outputextension", ".mea"},
                              {"outputformat", "mea"}}));
    EXPECT_EQ(resultOf(bench / "r.xml"),
              resultDocument(-3, "input file = output file", "./night.mea = ./night.mea"));
    EXPECT_EQ(bytesOf(bench / "night.mea"), night);
}

TEST(Main, BrokenInputIsAResult)
{
    Bench bench;
    makeFile(bench / "night.mea", "T1\nA 2 3 4 5 6 7\n");
    expectQuietEnd(bench.run({}));
    EXPECT_EQ(resultOf(bench / "r.xml"), resultDocument(-1, "night.mea", "night.mea"));
    EXPECT_EQ(bench.files(), (Names{"night.mea", "r.xml", "task.xml"}));
}

TEST(Main, AutomaticNameWithoutATrackIsAResult)
{
    Bench bench;
    expectQuietEnd(bench.run({{"path_in", "missing.mea"}, {"autoname", "true"}}));
    EXPECT_EQ(resultOf(bench / "r.xml"), resultDocument(-1, "missing.mea", "missing.mea"));
    EXPECT_EQ(bench.files(), (Names{"night.mea", "r.xml", "task.xml"}));
}

TEST(Main, ReportSavesAResult)
{
    Bench bench;
    expectQuietEnd(bench.run({{"inputformat", "vomar"}, {"toSeparateFile", "allobjects"}}));
    const std::string result = resultOf(bench / "r.xml");
    const std::string begin = "<?xml version=\"1.0\" ?>\n<ResultsList>\n    <Result>\n        <Code>";
    EXPECT_EQ(result.substr(0, begin.size()), begin);
    EXPECT_EQ(result.find("unknown input format"), std::string::npos);
    EXPECT_EQ(result.find("<Result>"), result.rfind("<Result>"));
}

// The result file.

TEST(Main, FormOfTheResultFollowsItsName)
{
    const struct
    {
        const char* path;
        bool xml;
    } rows[] = {{"./r.xml", true},   {"./r.result", true},    {"out/a.b.xml", true}, {"./.xml", true},
                {"./r.XML", false},  {"./r.RESULT", false},   {"./r.log", false},    {"./r.txt", false},
                {"./r", false},      {"./r.xml.log", false},  {"./rxml", false},     {"./r.results", false},
                {"./r.xml ", false}, {"out/../r.txt", false}, {"./r.", false},       {"./xml", false}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.path);
        Bench bench;
        expectQuietEnd(bench.run({{"path_res", row.path}}));
        if (row.xml) {
            EXPECT_EQ(resultOf(bench / row.path), resultDocument(0, "OK", "out/night.txt"));
        } else {
            EXPECT_EQ(logOf(bench / row.path), (Lines{"Code=0//OK//out/night.txt"}));
        }
    }
}

TEST(Main, DocumentHoldsTheLastResultAndTheLogAll)
{
    Bench bench;
    for (const char* path : {"./r.xml", "./r.result", "./r.log"}) {
        expectQuietEnd(bench.run({{"path_res", path}}));
        expectQuietEnd(bench.run({{"path_res", path}, {"inputformat", "unknown"}}));
    }
    EXPECT_EQ(resultOf(bench / "r.xml"), resultDocument(-1, "unknown input format", "format_in"));
    EXPECT_EQ(resultOf(bench / "r.result"), resultDocument(-1, "unknown input format", "format_in"));
    EXPECT_EQ(logOf(bench / "r.log"),
              (Lines{"Code=0//OK//out/night.txt", "Code=-1//unknown input format//format_in"}));
}

TEST(Main, ResultWithoutAFolderIsLost)
{
    for (const char* path : {"", "r.xml", "r.log", "missing/r.xml", "missing/r.log", "night.mea/r.xml"}) {
        SCOPED_TRACE(path);
        Bench bench;
        expectQuietEnd(bench.run({{"path_res", path}}));
        EXPECT_EQ(bytesOf(bench / "out/night.txt"), nightInMpc);
        EXPECT_EQ(bench.files(), (Names{"night.mea", "out/night.txt", "task.xml"}));
    }
}

TEST(Main, FolderInThePlaceOfTheResultIsLeftAlone)
{
    for (const char* path : {"./r.xml", "./r.log"}) {
        SCOPED_TRACE(path);
        Bench bench;
        std::filesystem::create_directory(bench / path);
        expectQuietEnd(bench.run({{"path_res", path}}));
        EXPECT_EQ(bytesOf(bench / "out/night.txt"), nightInMpc);
        EXPECT_EQ(bench.files(), (Names{"night.mea", "out/night.txt", "task.xml"}));
        EXPECT_TRUE(std::filesystem::is_directory(bench / path));
    }
}

TEST(Main, NamesOfAnyLettersPassThrough)
{
    Bench bench;
    const std::string name = "\xD0\xBD\xD0\xBE\xD1\x87\xD1\x8C a'b";
    std::filesystem::rename(bench / "night.mea", bench / (name + "&<c>.mea"));
    expectQuietEnd(bench.run({{"path_in", name + "&amp;&lt;c&gt;.mea"}}));
    EXPECT_EQ(bytesOf(bench / ("out/" + name + "&<c>.txt")), nightInMpc);
    EXPECT_EQ(resultOf(bench / "r.xml"),
              resultDocument(0, "OK", "out/\xD0\xBD\xD0\xBE\xD1\x87\xD1\x8C a&apos;b&amp;&lt;c&gt;.txt"));
}

// Runs that do not return.

TEST(Main, FailedWriteEndsTheProcessWithoutAResult)
{
    const struct
    {
        const char* what;
        TaskKeys others;
    } rows[] = {{"mpc", {}},
                {"mea", {{"outputformat", "mea"}}},
                {"result as a line of a log", {{"path_res", "./r.log"}}}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        Bench bench;
        std::filesystem::create_directory(bench / "out/night.txt");
        const ChildEnd end = bench.run(row.others);
        EXPECT_FALSE(end.timedOut);
        EXPECT_EQ(end.signal, SIGABRT);
        EXPECT_EQ(bench.files(), (Names{"night.mea", "task.xml"}));
        EXPECT_TRUE(std::filesystem::is_directory(bench / "out/night.txt"));
        EXPECT_EQ(bytesOf(bench / "night.mea"), night);
    }
}

TEST(Main, FailedWriteLeavesTheResultOfTheRunBefore)
{
    Bench bench;
    expectQuietEnd(bench.run({}));
    const std::string before = bytesOf(bench / "r.xml");
    std::filesystem::remove(bench / "out/night.txt");
    std::filesystem::create_directory(bench / "out/night.txt");
    EXPECT_EQ(bench.run({}).signal, SIGABRT);
    EXPECT_EQ(bytesOf(bench / "r.xml"), before);
}

TEST(Main, BareInputNameThatIsAFileCannotBeAFolder)
{
    // The output would be night.mea/night.txt.
    Bench bench;
    EXPECT_EQ(bench.run({{"out_dir", ""}}).signal, SIGABRT);
    EXPECT_EQ(bytesOf(bench / "night.mea"), night);
    EXPECT_EQ(bench.files(), (Names{"night.mea", "task.xml"}));
}

TEST(Main, LaterSeriesWithoutAnyNodeNeverEnds)
{
    Bench bench;
    makeFile(bench / "task.xml", taskWith({{"paths", "<seria><path>a</path></seria><seria/>"}}));
    const ChildEnd end =
        runProgram(builtTool(), std::vector<std::string>{"task.xml"}, bench.path(), endlessAfter);
    EXPECT_TRUE(end.timedOut) << end.output;
    EXPECT_EQ(bench.files(), (Names{"night.mea", "task.xml"}));
}
