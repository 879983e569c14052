// Runs that end in rare ways, and conversions whose runs do.

#include "command/made_task.h"
#include "command/task_runner.h"
#include "companion/golden.h"
#include "support/folders.h"
#include "support/places.h"
#include "support/system_faults.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <sstream>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;
using namespace companion;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

const char* const night = "T9 2000.0 UTC\n"
                          "12345   250223 1200000000 0100000000 +0030000000 001 09.50\n";

// Conversions in the present folder.
class RareRuns : public testing::Test
{
protected:
    RareRuns()
    {
        makeFile("night.mea", night);
        fs::create_directory("out");
    }

    static void makeTask(const std::string& name, const std::string& input = "night.mea",
                         const std::string& keys = "")
    {
        makeFile(name, "<task><path_in>./" + input +
                           "</path_in><out_dir>out</out_dir><outputextension>.txt</outputextension>"
                           "<inputformat>mea</inputformat><outputformat>mea</outputformat>"
                           "<originator>K88</originator><PARTICIPANT_1>T9</PARTICIPANT_1>"
                           "<REFERENCE_FRAME>ICRF</REFERENCE_FRAME><autoname>false</autoname>" +
                           keys + "</task>\n");
    }

    static void makeTool(const std::string& script)
    {
        makeFile("tool", "#!/bin/sh\n" + script);
        fs::permissions("tool", fs::perms::owner_all);
    }

    static CommandEnd run(std::vector<std::string> arguments)
    {
        arguments.insert(arguments.begin(), {"run", "--vomar", VOMAR_STAND_IN});
        return callCommand(arguments);
    }

    static CommandEnd convert(std::vector<std::string> arguments)
    {
        arguments.insert(arguments.begin(), {"convert", "--vomar", "./tool"});
        return callCommand(arguments);
    }

    TemporaryFolder folder;
    PresentFolder present{folder.path()};
};

TEST_F(RareRuns, WithoutVerificationFilesAreNotOpened)
{
    makeTask("half-1.xml");
    EXPECT_THAT(run({"--verify=none", "half-1.xml"}).out, HasSubstr("half-1.xml: good: 1 of 1 mark"));
    fs::remove("out/night.txt");
    EXPECT_THAT(run({"half-1.xml"}).out, HasSubstr("[V416]"));
}

TEST_F(RareRuns, JobLogHasTheTimeLimitAsGnuParallelHasIt)
{
    makeTask("hangs-1.xml");
    EXPECT_EQ(run({"--time-limit=1s", "--joblog=log", "hangs-1.xml"}).status, 1);
    EXPECT_THAT(bytesOf("log"), HasSubstr("\t-1\t15\t"));
}

TEST_F(RareRuns, JobLogHasRefusedTasksAsFailures)
{
    makeFile("night.mea", "");
    makeTask("a.xml");
    EXPECT_EQ(run({"--joblog=log", "a.xml"}).status, 1);
    EXPECT_THAT(bytesOf("log"), HasSubstr("\t0.000\t     0.000\t0\t0\t1\t0\t"));
}

TEST_F(RareRuns, JobLogMayBeOnAnotherDevice)
{
    makeTask("a.xml");
    EXPECT_EQ(run({"--joblog=/dev/null", "a.xml"}).err,
              "tavelin: /dev/null exists; --force would replace it [V004]\n");
    EXPECT_EQ(run({"--joblog=/dev/null", "-f", "a.xml"}).status, 0);
}

// By its log a task that a signal ended has an exit value of 0, and did not end well.
TEST_F(RareRuns, TaskThatASignalEndedIsRunAgain)
{
    makeTask("a.xml");
    run({"--joblog=log", "a.xml"});
    EXPECT_THAT(run({"--joblog=log", "--resume", "a.xml"}).out, StartsWith("a.xml: left out: "));
    std::string log = bytesOf("log");
    log.replace(log.find("\t0\t0\t0\t0\t"), 9, "\t0\t0\t0\t9\t");
    makeFile("log", log);
    EXPECT_THAT(run({"--joblog=log", "--resume", "a.xml"}).out, StartsWith("a.xml: good: "));
}

TEST_F(RareRuns, TaskThatCannotBePlannedAnyMoreIsNotUpToDate)
{
    makeTask("a.xml");
    run({"--joblog=log", "a.xml"});
    makeFile("a.xml", "<task>");
    EXPECT_THAT(run({"--joblog=log", "--resume", "a.xml"}).out, HasSubstr("a.xml: refused: "));
}

// The second is checked for what it reads alone before its turn, and writes what the first one writes.
TEST_F(RareRuns, TaskThatWritesWhatAnotherWritesWaitsForIt)
{
    fs::create_directory("other");
    const std::string other = std::string(night).replace(std::string(night).find("12345"), 5, "67890");
    makeFile("other/night.mea", other);
    makeTask("slow-1.xml");
    makeTask("b.xml", "other/night.mea");
    EXPECT_EQ(run({"-j2", "--allow=V050", "slow-1.xml", "b.xml"}).out,
              "slow-1.xml: good: 1 of 1 mark in 1 file\n"
              "b.xml: good: 1 of 1 mark in 1 file\n"
              "2 tasks: 2 good, 0 failed, 0 refused; 2 of 2 marks written\n");
    EXPECT_THAT(bytesOf("out/night.txt"), HasSubstr("67890"));
}

TEST_F(RareRuns, TaskOfTheStandardInputNeedsRoomForItsCopy)
{
    makeTask("a.xml");
    const auto start = [] {
        EXPECT_NE(std::freopen("a.xml", "r", stdin), nullptr);
        const Interrupts interrupts;
        const auto take = [](const TaskOutcome&) {};
        TaskRunner runner(RunSettings{.tool = VOMAR_STAND_IN}, interrupts, take, [](std::size_t) {});
        setFaults({{SYS_openat, ENOSPC, O_CREAT}});
        try {
            runner.run({"-"});
        } catch (const WrongUsage& wrong) {
            _exit(wrong.why.text.ends_with("/task.xml: No space left on device") ? 10 : 1);
        }
    };
    EXPECT_EQ(WEXITSTATUS(statusOfChild(start)), 10);
}

TEST_F(RareRuns, SignalBetweenTwoTasksLeavesTheSecondOut)
{
    std::vector<RunStatus> statuses;
    const Interrupts interrupts;
    const auto take = [&statuses](const TaskOutcome& outcome) {
        statuses.push_back(outcome.status);
        std::raise(SIGINT);
    };
    TaskRunner(RunSettings{.tool = VOMAR_STAND_IN}, interrupts, take, [](std::size_t) {
    }).run({"missing1.xml", "missing2.xml"});
    EXPECT_THAT(statuses, ElementsAre(RunStatus::refused, RunStatus::leftOut));
}

TEST_F(RareRuns, ConversionThatFailsPrintsNothing)
{
    makeTool("exit 3\n");
    const CommandEnd end = convert({"--to=tdm", "night.mea", "-"});
    EXPECT_EQ(end.status, 1);
    EXPECT_EQ(end.out, "");
    EXPECT_THAT(end.err, HasSubstr("the run died with status 3"));
}

// What is there in the place of the file is a folder.
TEST_F(RareRuns, ConvertedFileThatCannotBeReadIsTold)
{
    makeTool(std::string(VOMAR_STAND_IN) + " \"$1\"\n" +
             "for file in \"${1%/*}\"/out/*; do rm \"$file\"; mkdir \"$file\"; done\n");
    const CommandEnd end = convert({"--verify=none", "--to=tdm", "night.mea", "-"});
    EXPECT_EQ(end.status, 2);
    EXPECT_THAT(end.err, EndsWith(": Is a directory [V003]\n"));
}

TEST_F(RareRuns, FolderMayHaveTheSuffixOfAFile)
{
    fs::create_directory("out.tdm");
    const CommandEnd end =
        callCommand({"convert", "--vomar", VOMAR_STAND_IN, "--autoname", "--to=mea", "night.mea", "out.tdm"});
    EXPECT_EQ(end.status, 0) << end.out << end.err;
    EXPECT_THAT(namesIn("out.tdm"), ElementsAre("T9-12345-2023-02-25T12-00-00-.mea"));
}

TEST_F(RareRuns, KeptTaskMakesAFileOfAnySuffix)
{
    const CommandEnd end = callCommand(
        {"convert", "--vomar", VOMAR_STAND_IN, "--keep-task=t.xml", "--to=mea", "night.mea", "night.xyz"});
    EXPECT_EQ(end.status, 0) << end.out << end.err;
    EXPECT_THAT(bytesOf("t.xml"), HasSubstr("<outputextension>.xyz</outputextension>"));
    EXPECT_THAT(bytesOf("t.xml"), HasSubstr("night.xyz.result.xml"));
}

TEST_F(RareRuns, FirstTrackOfAnotherTelescopeIsNamed)
{
    makeFile("night.tel", "K88 T1 A\n250223 12000000 01000000 00300000 001095\nEND\n\n"
                          "K88 T2 B\n250223 12000000 01000000 00300000 001095\nEND\n\n"
                          "K88 T3 C\n250223 12000000 01000000 00300000 001095\nEND\n\n");
    const CommandEnd end =
        callCommand({"convert", "--vomar", VOMAR_STAND_IN, "--to=tdm", "night.tel", "night.tdm"});
    EXPECT_EQ(end.status, 2);
    EXPECT_THAT(end.err, HasSubstr("T1"));
    EXPECT_THAT(end.err, HasSubstr("T2"));
    EXPECT_THAT(end.err, testing::Not(HasSubstr("T3")));
}

// What a task that cannot be prepared throws.
std::string problemOf(const MadeTask& made)
{
    std::ostringstream out;
    try {
        runMade(made, RunSettings{.tool = VOMAR_STAND_IN}, Console{out, out});
    } catch (const WrongUsage& wrong) {
        return wrong.why.text;
    }
    return "";
}

TEST_F(RareRuns, TaskThatCannotBePreparedIsTold)
{
    EXPECT_EQ(problemOf({.name = "a", .copied = "missing"}), "-: No such file or directory");
    EXPECT_THAT(problemOf({.name = "a", .baseName = std::string(300, 'a')}),
                EndsWith(": File name too long"));
    const auto prepare = [] {
        std::signal(SIGXFSZ, SIG_IGN);
        const rlimit none{0, 0};
        setrlimit(RLIMIT_FSIZE, &none);
        _exit(problemOf({.name = "a"}).ends_with("/a.xml: File too large") ? 0 : 1);
    };
    EXPECT_EQ(statusOfChild(prepare), 0);
}

TEST(MadeOutcome, SignalGivesTheStatus)
{
    MadeOutcome made;
    made.outcome.status = RunStatus::good;
    EXPECT_EQ(statusOf(made), 0);
    made.signal = SIGTERM;
    EXPECT_EQ(statusOf(made), 128 + SIGTERM);
}

} // namespace
