#include "companion/golden.h"

#include "running/batch_plan.h"
#include "running/byte_locks.h"
#include "running/receipts.h"
#include "support/folders.h"
#include "support/places.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>

#include <cstdlib>
#include <filesystem>

#include <sys/wait.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

class GoldenBatch : public testing::TestWithParam<std::string>
{
};

// A case may run the command before its call.
TEST_P(GoldenBatch, PrintsWhatStandsInItsFolder)
{
    setenv("TAVELIN", VOMAR_COMMAND, 1);
    setenv("VOMAR", VOMAR_STAND_IN, 1);
    expectGoldenRun(GetParam(), VOMAR_STAND_IN, "batch");
}

INSTANTIATE_TEST_SUITE_P(Cases, GoldenBatch, testing::ValuesIn(goldenCases("batch")),
                         [](const auto& each) { return each.param; });

const char* const night = "T9 2000.0 UTC\n"
                          "12345   250223 1200000000 0100000000 -0030000000 001 09.50\n";

const char* const conversion = "<task><path_in>{path}</path_in><out_dir>reports/{night}</out_dir>"
                               "<outputextension>.txt</outputextension><inputformat>mea</inputformat>"
                               "<outputformat>mea</outputformat><originator>K88</originator>"
                               "<PARTICIPANT_1>T9</PARTICIPANT_1><REFERENCE_FRAME>ICRF</REFERENCE_FRAME>"
                               "<autoname>false</autoname>"
                               "<path_res>reports/{night}/{stem}.result.xml</path_res></task>\n";

// An archive of nights with a template, which is the present folder.
class Archive
{
public:
    explicit Archive(const std::vector<std::string>& names) : present(folder.path())
    {
        makeFile("t.xml", conversion);
        for (const std::string& name : names) {
            add(name);
        }
    }

    static void add(const std::string& name)
    {
        fs::create_directories("archive/" + name);
        makeFile("archive/" + name + "/T9.mea", night);
    }

    static CommandEnd make(std::vector<std::string> options = {})
    {
        std::vector<std::string> call{"batch", "t.xml", "--over", "archive/{night}/*.mea", "--into", "work"};
        call.insert(call.end(), options.begin(), options.end());
        call.insert(call.end(), {"--vomar", VOMAR_STAND_IN});
        return callCommand(call);
    }

    static CommandEnd run(std::vector<std::string> options = {}, const std::string& tool = VOMAR_STAND_IN)
    {
        std::vector<std::string> call{"batch", "work"};
        call.insert(call.end(), options.begin(), options.end());
        call.insert(call.end(), {"--vomar", tool});
        return callCommand(call);
    }

private:
    TemporaryFolder folder;
    PresentFolder present;
};

companion::Receipt receipt(std::size_t number)
{
    return companion::readReceipt(companion::BatchFolder("work"), number).value();
}

// Another process has the lock of a byte as long as the object lives.
class LockElsewhere
{
public:
    LockElsewhere(const std::string& path, std::size_t byte)
    {
        int ready[2];
        EXPECT_EQ(pipe(ready), 0);
        child = fork();
        if (child == 0) {
            const companion::ByteLocks locks(path);
            locks.wait(byte);
            [[maybe_unused]] const auto written = write(ready[1], "x", 1);
            pause();
            _exit(0);
        }
        char got = 0;
        EXPECT_EQ(read(ready[0], &got, 1), 1);
    }
    ~LockElsewhere()
    {
        kill(child, SIGKILL);
        waitpid(child, nullptr, 0);
    }
    LockElsewhere(const LockElsewhere&) = delete;
    LockElsewhere& operator=(const LockElsewhere&) = delete;

private:
    pid_t child;
};

TEST(Batch, RunsTheToolItself)
{
    const Archive archive({"n1", "n2"});
    EXPECT_EQ(archive.make({"--only-make"}).status, 0);
    const CommandEnd end = archive.run({"--verify=full", "-j2"}, builtTool());
    EXPECT_EQ(end.out, "batch: 2 tasks: 2 good; 2 of 2 marks\n");
    EXPECT_THAT(bytesOf("reports/n2/T9.txt"), HasSubstr("12345"));
}

TEST(Batch, TaskThatIsRunElsewhereIsLeftOut)
{
    const Archive archive({"n1", "n2"});
    archive.make({"--only-make"});
    {
        const LockElsewhere lock("work/lock", 2);
        const CommandEnd end = archive.run();
        EXPECT_EQ(end.status, 1);
        EXPECT_EQ(end.out, "work/tasks/000002_T9.xml: warning: task 2 is being run elsewhere [V453]\n"
                           "batch: 2 tasks: 1 good, 1 run elsewhere; 1 of 1 mark\n");
        EXPECT_FALSE(exists("reports/n2/T9.txt"));
        EXPECT_EQ(archive.run({"--forget=2"}).err, "tavelin: task 2 is being run elsewhere [V453]\n");
    }
    EXPECT_EQ(archive.run().out, "batch: 2 tasks: 1 up to date, 1 good; 2 of 2 marks\n");
}

// The tool notes each of its runs.
TEST(Batch, CallsAtOnceRunEachTaskOnce)
{
    std::vector<std::string> nights;
    for (int i = 10; i < 40; ++i) {
        nights.push_back("n" + std::to_string(i));
    }
    const Archive archive(nights);
    archive.make({"--only-make"});
    makeFile("tool", "#!/bin/sh\necho \"$1\" >>runs\nexec " + std::string(VOMAR_STAND_IN) + " \"$1\"\n");
    fs::permissions("tool", fs::perms::owner_all);
    const std::string call = std::string(VOMAR_COMMAND) + " batch work --vomar ./tool >/dev/null";
    EXPECT_NE(std::system((call + " & " + call + " & " + call + "; wait").c_str()), -1);
    EXPECT_EQ(archive.run({}, "./tool").out, "batch: 30 tasks: 30 up to date; 30 of 30 marks\n");
    const std::string runs = bytesOf("runs");
    EXPECT_EQ(std::count(runs.begin(), runs.end(), '\n'), 30);
}

TEST(Batch, PlanThatStaysIsNotWrittenAgain)
{
    const Archive archive({"n1", "n2"});
    archive.make();
    const auto old = fs::file_time_type::clock::now() - std::chrono::hours(1);
    fs::last_write_time("work/plan.json", old);
    archive.make();
    EXPECT_EQ(fs::last_write_time("work/plan.json"), old);
    makeFile("archive/n1/T9.mea",
             std::string(night) + "12345   250223 1200010000 0100000000 -0030000000 001 09.50\n");
    EXPECT_EQ(archive.make().out, "batch: 2 tasks: 1 up to date, 1 good; 3 of 3 marks\n");
    EXPECT_NE(fs::last_write_time("work/plan.json"), old);
}

TEST(Batch, NumbersAreNeverUsedAgain)
{
    const Archive archive({"n1", "n2"});
    archive.make();
    archive.run({"--forget=000002_T9.xml"});
    EXPECT_FALSE(exists("work/tasks/000002_T9.xml"));
    EXPECT_FALSE(exists("work/receipts/000002.json"));
    EXPECT_TRUE(exists("reports/n2/T9.txt"));
    Archive::add("n0");
    EXPECT_EQ(archive.make().out, "batch: 3 tasks: 1 up to date, 2 good; 3 of 3 marks\n");
    EXPECT_EQ(receipt(1).inputs.at(0).stamp.path, "archive/n1/T9.mea");
    EXPECT_EQ(receipt(3).inputs.at(0).stamp.path, "archive/n0/T9.mea");
    EXPECT_EQ(receipt(4).inputs.at(0).stamp.path, "archive/n2/T9.mea");
}

TEST(Batch, ReceiptHasWhatTheRunWasMadeOf)
{
    const Archive archive({"n1"});
    archive.make();
    const companion::Receipt receipt = ::receipt(1);
    EXPECT_EQ(receipt.status, "good");
    EXPECT_EQ(receipt.task, "000001_T9.xml");
    EXPECT_EQ(receipt.tool.stamp.path, VOMAR_STAND_IN);
    EXPECT_EQ(receipt.tool.stamp.size, fs::file_size(VOMAR_STAND_IN));
    ASSERT_EQ(receipt.outputs.size(), 1U);
    EXPECT_EQ(receipt.outputs[0].file.stamp.path, "reports/n1/T9.txt");
    EXPECT_EQ(receipt.outputs[0].file.stamp.size, fs::file_size("reports/n1/T9.txt"));
    EXPECT_EQ(receipt.outputs[0].marks, 1U);
    EXPECT_EQ(receipt.result, "reports/n1/T9.result.xml");
}

TEST(Batch, ChangedTaskOrToolRunsAgain)
{
    const Archive archive({"n1"});
    archive.make();
    makeFile("work/tasks/000001_T9.xml", bytesOf("work/tasks/000001_T9.xml") + "\n");
    EXPECT_EQ(archive.run({"--summary"}).out, "work/tasks/000001_T9.xml: to run: the task has changed\n"
                                              "batch: 1 task: 1 to run; 1 of 1 mark\n");
    EXPECT_EQ(archive.run().out, "batch: 1 task: 1 good; 1 of 1 mark\n");
    fs::copy_file(VOMAR_STAND_IN, "tool");
    EXPECT_EQ(archive.run({"--by-content"}, "./tool").out, "batch: 1 task: 1 up to date; 1 of 1 mark\n");
    EXPECT_EQ(archive.run({}, "./tool").out, "batch: 1 task: 1 good; 1 of 1 mark\n");
}

TEST(Batch, DamagedReceiptIsNone)
{
    const Archive archive({"n1", "n2", "n3"});
    archive.make();
    makeFile("work/receipts/000001.json", "");
    makeFile("work/receipts/000002.json", bytesOf("work/receipts/000002.json").substr(0, 300));
    fs::copy_file("work/receipts/000002.json", "work/receipts/000003.json",
                  fs::copy_options::overwrite_existing);
    EXPECT_EQ(archive.run().out, "batch: 3 tasks: 3 good; 3 of 3 marks\n");
}

TEST(Batch, FilesOfAKilledCallAreRemoved)
{
    const Archive archive({"n1", "n2"});
    archive.make();
    makeFile("work/receipts/000002.json.77.part", "{");
    makeFile("work/tasks/000002_T9.xml.77.part", "<");
    makeFile("work/plan.json.77.part", "{");
    archive.make();
    EXPECT_EQ(namesIn("work"), (Names{"lock", "plan.json", "receipts", "tasks"}));
    EXPECT_EQ(namesIn("work/receipts"), (Names{"000001.json", "000002.json"}));
    EXPECT_EQ(namesIn("work/tasks"), (Names{"000001_T9.xml", "000002_T9.xml"}));
}

TEST(Batch, OddNamesAreTakenAsTheyAre)
{
    const Archive archive(
        {" a  b", "\xC3\xBC", "line\nfeed", "-minus", "latin\xE9_1", "a&b;<c>", "{x}", "'q'"});
    const CommandEnd end = archive.make({"--json"});
    EXPECT_EQ(end.status, 0) << end.out;
    EXPECT_THAT(end.out, EndsWith(R"("read":8,"found":8},"exit":0})"
                                  "\n"));
    EXPECT_EQ(archive.make().out, "batch: 8 tasks: 8 up to date; 8 of 8 marks\n");
    EXPECT_TRUE(exists("reports/line\nfeed/T9.txt"));
    EXPECT_TRUE(exists("reports/latin\xE9_1/T9.txt"));
}

TEST(Batch, RunsFromAnyFolder)
{
    const Archive archive({"n1"});
    archive.make({"--only-make"});
    const std::string here = fs::current_path();
    const PresentFolder elsewhere("/");
    const CommandEnd end = callCommand({"batch", here + "/work", "--vomar", VOMAR_STAND_IN});
    EXPECT_EQ(end.out, "batch: 1 task: 1 good; 1 of 1 mark\n");
    EXPECT_TRUE(exists(here + "/reports/n1/T9.txt"));
    EXPECT_EQ(fs::current_path(), "/");
}

TEST(Batch, PlanOfAnotherFolderIsNotGrown)
{
    const Archive archive({"n1"});
    archive.make();
    fs::create_directory("below");
    const PresentFolder below("below");
    fs::create_directory_symlink("../archive", "archive");
    fs::create_directory_symlink("../work", "first");
    const CommandEnd end = callCommand({"batch", "../t.xml", "--over", "archive/{night}/*.mea", "--into",
                                        "first", "--vomar", VOMAR_STAND_IN});
    EXPECT_EQ(end.status, 2);
    EXPECT_EQ(end.err, "tavelin: the plan first/plan.json was made from another folder [V454]\n");
}

// A name that comes from the contents of two nights is found before anything runs, also when one is new.
TEST(Batch, NewNightThatCollidesIsRefused)
{
    const Archive archive({"n1"});
    std::string text = conversion;
    text.replace(text.find("{night}</out_dir>"), 7, "all");
    text.replace(text.find("false"), 5, "true");
    makeFile("t.xml", text);
    EXPECT_EQ(archive.make().status, 0);
    Archive::add("n2");
    const CommandEnd end = archive.make();
    EXPECT_EQ(end.status, 1);
    EXPECT_THAT(end.out, HasSubstr("work/tasks/000002_T9.xml: error: reports/all/"));
    EXPECT_THAT(end.out, HasSubstr("also by work/tasks/000001_T9.xml [V050]\n"));
    EXPECT_FALSE(exists("work/tasks/000002_T9.xml"));
}

TEST(Batch, ConfigurationThatComesRunsAReportAgain)
{
    const TemporaryFolder folder;
    const PresentFolder present(folder.path());
    const std::string project = VOMAR_PROJECT;
    fs::create_directories("s1/tavelin/dataVO");
    fs::copy_file(project + "/tests/companion/batch/groups/table.txt", "s1/tavelin/dataVO/table.txt");
    fs::copy_file(project + "/tests/companion/batch/groups/report.xml", "report.xml");
    const auto run = [] {
        return callCommand({"batch", "report.xml", "--over", "{night}/tavelin/dataVO/table.txt", "--into",
                            "work", "--group", "night", "--vomar", VOMAR_STAND_IN})
            .out;
    };
    EXPECT_THAT(run(), StartsWith("batch: 1 task: 1 good; "));
    EXPECT_THAT(run(), StartsWith("batch: 1 task: 1 up to date; "));
    fs::copy_file(project + "/tests/companion/run/settings_changed/series/night1/night1.conf", "s1/s1.conf");
    EXPECT_THAT(run(), StartsWith("batch: 1 task: 1 good; "));
    EXPECT_EQ(receipt(1).configurations.at(0).stamp.path, "s1/s1.conf");
}

TEST(Batch, NothingIsLeftWhereNothingWasMade)
{
    const Archive archive({"n1", "n2"});
    const Names before = namesIn(".");
    const auto made = [](const std::string& pattern, std::vector<std::string> options = {}) {
        options.insert(options.begin(), {"batch", "t.xml", "--over", pattern, "--into", "new/work", "--vomar",
                                         VOMAR_STAND_IN});
        return callCommand(options);
    };
    EXPECT_EQ(made("none/{night}.mea").err,
              "tavelin: the pattern \"none/{night}.mea\" matches nothing [V450]\n");
    EXPECT_EQ(namesIn("."), before);
    EXPECT_THAT(made("archive/{nite}/*.mea").err, HasSubstr("no field \"night\""));
    EXPECT_EQ(namesIn("."), before);
    EXPECT_THAT(made("archive/{night}/*.mea", {"--group=nite"}).err, EndsWith("[V001]\n"));
    EXPECT_EQ(namesIn("."), before);
    EXPECT_THAT(made("archive/{night}/*.mea", {"--set=unknown=x"}).err, EndsWith("[V002]\n"));
    EXPECT_EQ(namesIn("."), before);
    makeFile("t.xml", std::string(conversion).replace(std::string(conversion).find("{night}"), 7, "all"));
    EXPECT_THAT(made("archive/{night}/*.mea").out, HasSubstr("[V050]"));
    EXPECT_EQ(namesIn("."), before);
}

TEST(Batch, RefusedPlanLeavesTheOneBefore)
{
    const Archive archive({"n1"});
    archive.make();
    const Names before = namesIn("work/tasks");
    const std::string plan = bytesOf("work/plan.json");
    makeFile("t.xml", std::string(conversion).replace(std::string(conversion).find("{night}"), 7, "all"));
    Archive::add("n2");
    EXPECT_THAT(archive.make().out, HasSubstr("[V050]"));
    EXPECT_EQ(namesIn("work/tasks"), before);
    EXPECT_EQ(bytesOf("work/plan.json"), plan);
    EXPECT_EQ(namesIn("reports"), Names{"n1"});
}

TEST(Batch, TemplateThatIsAFolderIsToldAsOne)
{
    const Archive archive({"n1"});
    const CommandEnd end = callCommand({"batch", "archive", "--over", "x", "--into", "work"});
    EXPECT_EQ(end.status, 2);
    EXPECT_EQ(end.err, "tavelin: archive: is a folder [V003]\n");
}

// A name that stands where numbers of minor planets stand is an error of what is in the file.
void writeReports()
{
    std::string text = conversion;
    text.replace(text.find("<outputformat>mea"), 17, "<outputformat>mpc");
    makeFile("t.xml", text);
}

TEST(Batch, TaskWithFindingsAloneIsNotRunAgain)
{
    const Archive archive({"n1"});
    writeReports();
    makeFile("tool", "#!/bin/sh\necho \"$1\" >>runs\nexec " + std::string(VOMAR_STAND_IN) + " \"$1\"\n");
    fs::permissions("tool", fs::perms::owner_all);
    EXPECT_EQ(archive.make({"--only-make"}).status, 0);
    EXPECT_THAT(archive.run({}, "./tool").out, EndsWith("batch: 1 task: 1 with findings; 1 of 1 mark\n"));
    const CommandEnd again = archive.run({}, "./tool");
    EXPECT_EQ(again.status, 1);
    EXPECT_THAT(again.out, EndsWith("batch: 1 task: 1 with findings; 1 of 1 mark\n"));
    EXPECT_EQ(bytesOf("runs"), "work/tasks/000001_T9.xml\n");
    archive.run({"--again"}, "./tool");
    fs::remove("reports/n1/T9.txt");
    EXPECT_THAT(archive.run({"--summary"}, "./tool").out,
                HasSubstr("to run: an output is not as it was written"));
    archive.run({}, "./tool");
    const std::string runs = bytesOf("runs");
    EXPECT_EQ(std::count(runs.begin(), runs.end(), '\n'), 3);
}

TEST(Batch, AllowedFindingsAreTakenOutOfTheStatusOfAnOlderReceipt)
{
    const Archive archive({"n1"});
    writeReports();
    const std::string codes = "--allow=V302,V311,V315,V319";
    EXPECT_EQ(archive.make().status, 1);
    const CommandEnd end = archive.run({codes});
    EXPECT_EQ(end.status, 0) << end.out;
    EXPECT_EQ(end.out, "batch: 1 task: 1 up to date; 1 of 1 mark\n");
    EXPECT_EQ(archive.run({codes, "--summary"}).status, 0);
    EXPECT_EQ(archive.run({codes, "--failed"}).out, "batch: 0 tasks; 0 of 0 marks\n");
    EXPECT_EQ(archive.run({codes, "--again"}).out, "batch: 1 task: 1 good; 1 of 1 mark\n");
    EXPECT_EQ(receipt(1).status, "findings");
    EXPECT_EQ(archive.run().status, 1);
}

// What a run did wrong is no matter of the files.
TEST(Batch, FailuresCannotBeAllowed)
{
    const Archive archive({"n1"});
    fs::rename("archive/n1/T9.mea", "archive/n1/exits-1.mea");
    EXPECT_EQ(archive.make({"--allow=V410,V415"}).status, 1);
    EXPECT_THAT(archive.run({"--allow=V410,V415"}).out, HasSubstr("1 failed"));
}

TEST(Batch, DocumentGoesWithALineInTheLogForEachTaskThatIsNotGood)
{
    const Archive archive({"n1", "n2", "n3"});
    fs::rename("archive/n2/T9.mea", "archive/n2/exits-1.mea");
    archive.make({"--only-make"});
    fs::remove("archive/n3/T9.mea");
    const CommandEnd end = archive.run({"--json"});
    EXPECT_THAT(end.out, StartsWith("{\"schema\":\"tavelin.batch/1\""));
    EXPECT_EQ(end.err, "work/tasks/000002_exits-1.xml: failed: the run died with status 3; it said \"no more "
                       "room\" [V410] (work/receipts/000002.json)\n"
                       "work/tasks/000003_T9.xml: warning: the input of task 3 is gone [V452]\n");
}

TEST(Batch, SummaryNeedsNoTool)
{
    const Archive archive({"n1"});
    archive.make();
    EXPECT_EQ(archive.run({"--summary"}, "./missing").out, "batch: 1 task: 1 up to date; 1 of 1 mark\n");
}

TEST(Batch, TasksAfterTooManyFailuresAreLeftOut)
{
    const Archive archive({"n1", "n2"});
    fs::rename("archive/n1/T9.mea", "archive/n1/exits-1.mea");
    archive.make({"--only-make"});
    EXPECT_THAT(archive.run({"--stop-after=1"}).out,
                EndsWith("batch: 2 tasks: 1 failed (work/receipts/000001.json), 1 left out; 0 of 1 mark\n"));
}

TEST(Batch, RefusedTasksAreAmongThoseThatFailed)
{
    const Archive archive({"n1"});
    archive.make({"--only-make"});
    makeFile("archive/n1/T9.mea", "");
    EXPECT_THAT(archive.run().out, EndsWith("batch: 1 task: 1 refused; 0 of 0 marks\n"));
    EXPECT_THAT(archive.run({"--failed"}).out, EndsWith("batch: 1 task: 1 refused; 0 of 0 marks\n"));
}

TEST(Batch, TasksWithFindingsAreAmongThoseThatFailed)
{
    const Archive archive({"n1"});
    writeReports();
    archive.make();
    EXPECT_THAT(archive.run({"--failed"}).out, EndsWith("batch: 1 task: 1 with findings; 1 of 1 mark\n"));
}

TEST(Batch, UnfinishedReceiptOfATaskThatIsRunElsewhereStays)
{
    const Archive archive({"n1", "n2"});
    archive.make();
    makeFile("work/receipts/000001.json.77.part", "{");
    makeFile("work/receipts/000002.json.77.part", "{");
    const LockElsewhere lock("work/lock", 2);
    archive.run();
    EXPECT_EQ(namesIn("work/receipts"), (Names{"000001.json", "000002.json", "000002.json.77.part"}));
}

TEST(Batch, SignalEndsItAfterItsTotals)
{
    const Archive archive({"n1", "n2"});
    archive.make({"--only-make"});
    makeFile("tool", "#!/bin/sh\nkill -INT $PPID\nexec sleep 600\n");
    fs::permissions("tool", fs::perms::owner_all);
    const int status = std::system("exec " VOMAR_COMMAND " batch work --vomar ./tool >shown");
    ASSERT_TRUE(WIFSIGNALED(status));
    EXPECT_EQ(WTERMSIG(status), SIGINT);
    EXPECT_THAT(bytesOf("shown"), HasSubstr("batch: 2 tasks: 1 failed"));
}

// Both sides of a sum come from different ways. A command that counts a mark too many in one of them has no
// task that is good, nor one that is done.
TEST(Batch, AccountsThatDisagreeAreAnError)
{
    const Archive archive({"n1"});
    archive.make({"--only-make"});
    const std::string command = VOMAR_MISCOUNTING_COMMAND " batch work --allow V490 --vomar " VOMAR_STAND_IN;
    for (int start = 0; start < 2; ++start) {
        EXPECT_EQ(WEXITSTATUS(std::system((command + " >shown").c_str())), 1);
        EXPECT_EQ(bytesOf("shown"),
                  "work/tasks/000001_T9.xml: findings: 1 of 2 marks in 1 file; 2 errors, see "
                  "tavelin check work/tasks/000001_T9.xml\n"
                  "batch: 1 task: 1 with findings; 1 of 2 marks\n");
    }
    EXPECT_THAT(bytesOf("work/receipts/000001.json"), HasSubstr("\"code\":\"V490\""));
    EXPECT_EQ(archive.run().out, "batch: 1 task: 1 good; 1 of 1 mark\n");
}

std::size_t linesOf(const std::string& path)
{
    const std::string bytes = bytesOf(path);
    return static_cast<std::size_t>(std::count(bytes.begin(), bytes.end(), '\n'));
}

// Real nights, by the tool itself: a mark is a line, behind a head of one line.
TEST(Batch, SummaryHasTheMarksOfEachNight)
{
    const Archive archive({});
    const fs::path nights = fs::path(VOMAR_PROJECT) / "tests/fixtures/mea_nights";
    fs::create_directory("archive");
    for (const char* name : {"073_20240120", "K88_20240120", "568_20080516", "F51_20121223"}) {
        fs::create_directory(std::string("archive/") + name);
        fs::copy_file(nights / (std::string(name) + ".mea"), std::string("archive/") + name + "/T9.mea");
    }
    archive.make({"--only-make"});
    archive.run({}, builtTool());
    const CommandEnd end = archive.run({"--summary", "--json"}, builtTool());
    const companion::ReadJson json(end.out);
    const companion::JsonView tasks = json.root()["tasks"];
    ASSERT_EQ(tasks.size(), 4U);
    std::size_t number = 0;
    for (const std::string& name : namesIn("archive")) {
        const auto read = static_cast<std::size_t>(tasks[number]["read"].integer());
        EXPECT_EQ(read, linesOf("archive/" + name + "/T9.mea") - 1) << name;
        EXPECT_EQ(tasks[number]["found"].integer(), tasks[number]["read"].integer()) << name;
        EXPECT_EQ(linesOf("reports/" + name + "/T9.txt") - 1, read) << name;
        ++number;
    }
}

TEST(Batch, WrongCallsAreUsage)
{
    const Archive archive({"n1"});
    archive.make();
    for (const std::vector<std::string>& options :
         std::vector<std::vector<std::string>>{{"--into", "w"},
                                               {"--group=night"},
                                               {"--set=a=b"},
                                               {"--only-make"},
                                               {"--over=x"},
                                               {"--summary", "--failed"},
                                               {"--part=0/3"},
                                               {"--part=1"},
                                               {"--part=1/2x"},
                                               {"--part=1x2"},
                                               {"--part=1/x"},
                                               {"--part=a/b"},
                                               {"--forget=9"},
                                               {"second"},
                                               {"--jobs=x"}})
    {
        const CommandEnd end = archive.run(options);
        EXPECT_EQ(end.status, 2) << testing::PrintToString(options);
        EXPECT_THAT(end.err, StartsWith("tavelin: ")) << testing::PrintToString(options);
        EXPECT_THAT(end.out, IsEmpty());
    }
    EXPECT_EQ(archive.make({"--set=x"}).err, "tavelin: --set: \"x\" is not of the form KEY=VALUE [V001]\n");
    EXPECT_EQ(archive.make({"--set==x"}).err, "tavelin: --set: \"=x\" is not of the form KEY=VALUE [V001]\n");
}

} // namespace
