#include "running/batch_making.h"

#include "support/folders.h"
#include "support/system_faults.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>

#include <chrono>
#include <filesystem>
#include <functional>
#include <thread>

#include <unistd.h>

namespace {

namespace fs = std::filesystem;
using namespace companion;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

const char* const night = "T9 2000.0 UTC\n"
                          "12345   250223 1200000000 0100000000 -0030000000 001 09.50\n";

// The template of a conversion with these keys more.
std::string conversion(const std::string& keys)
{
    return "<task><path_in>{path}</path_in><outputextension>.txt</outputextension>"
           "<inputformat>mea</inputformat><outputformat>mea</outputformat><originator>K88</originator>"
           "<PARTICIPANT_1>T9</PARTICIPANT_1><REFERENCE_FRAME>ICRF</REFERENCE_FRAME>" +
           keys + "</task>\n";
}

const std::string named = "<autoname>false</autoname>";

// Files of nights with a template, in the present folder.
class Archive
{
public:
    explicit Archive(const std::string& taskTemplate, const std::vector<std::string>& names = {"n1", "n2"})
        : present(folder.path())
    {
        fs::create_directory("in");
        makeFile("t.xml", taskTemplate);
        for (const std::string& name : names) {
            makeFile(name + ".mea", night);
        }
    }

    static BatchOrder order(const std::string& pattern = "{night}.mea")
    {
        return {"t.xml", {pattern}, "", {}};
    }

    static MadeBatch make(const std::string& pattern = "{night}.mea")
    {
        return makeBatch(BatchFolder("work"), order(pattern));
    }

private:
    TemporaryFolder folder;
    PresentFolder present;
};

// What a call throws.
std::string problemOf(const std::function<void()>& call)
{
    try {
        call();
    } catch (const WrongUsage& wrong) {
        return wrong.why.text;
    }
    return "";
}

TEST(BatchMaking, TemplateThatIsMissingIsTold)
{
    const Archive archive(conversion(named));
    fs::remove("t.xml");
    EXPECT_EQ(problemOf([&] { archive.make(); }), "t.xml: No such file or directory");
}

TEST(BatchMaking, FolderThatCannotBeMadeIsTold)
{
    const Archive archive(conversion(named));
    EXPECT_EQ(problemOf([&] { makeBatch(BatchFolder("t.xml/batch"), archive.order()); }),
              "t.xml/batch/tasks: Not a directory");
}

TEST(BatchMaking, TasksThatNameNoFolderWriteBesideTheirInputs)
{
    const Archive archive(conversion(named), {"in/n1", "in/n2"});
    const MadeBatch made = archive.make("in/{night}.mea");
    EXPECT_THAT(made.findings, IsEmpty());
    ASSERT_EQ(made.plan.tasks.size(), 2u);
    EXPECT_EQ(made.plan.tasks[0].folder, "");
    EXPECT_EQ(made.plan.tasks[0].result, "");
    EXPECT_THAT(made.plan.tasks[1].outputs.value(), ElementsAre("in/n2.txt"));
}

// The tool takes the name of an input without a folder as the folder.
TEST(BatchMaking, TasksOfThePresentFolderDoNotShareOne)
{
    const Archive archive(conversion("<autoname>true</autoname>"));
    const MadeBatch made = archive.make();
    EXPECT_THAT(made.findings, IsEmpty());
    ASSERT_EQ(made.plan.tasks.size(), 2u);
    EXPECT_THAT(made.plan.tasks[1].outputs.value(), ElementsAre("n2.mea/T9-12345-2023-02-25T12-00-00-.txt"));
}

TEST(BatchMaking, NamesOfFilesAreReadWhereTwoTasksShareTheFolderOfTheirInputs)
{
    const Archive archive(conversion("<autoname>true</autoname>"), {"in/n1", "in/n2"});
    const MadeBatch made = archive.make("in/{night}.mea");
    EXPECT_TRUE(made.isRefused);
    ASSERT_EQ(made.findings.size(), 1u);
    EXPECT_EQ(made.findings[0].code.text(), "V050");
}

// All keys are a level too deep.
TEST(BatchMaking, TaskThatTheToolDoesNotReadHasNoOutputs)
{
    const Archive archive("<root>" + conversion(named) + "</root>", {"n1"});
    const MadeBatch made = archive.make();
    ASSERT_EQ(made.plan.tasks.size(), 1u);
    ASSERT_TRUE(made.plan.tasks[0].outputs);
    EXPECT_THAT(*made.plan.tasks[0].outputs, IsEmpty());
}

// Logs grow, and many tasks may share one.
TEST(BatchMaking, LogOfTheResultsMayBeShared)
{
    const Archive archive(conversion(named + "<path_res>all.log</path_res>"));
    EXPECT_THAT(archive.make().findings, IsEmpty());
    makeFile("t.xml", conversion(named + "<path_res>all.xml</path_res>"));
    const MadeBatch made = archive.make();
    ASSERT_EQ(made.findings.size(), 1u);
    EXPECT_EQ(made.findings[0].code.text(), "V036");
}

TEST(BatchMaking, TaskWhoseFileIsGoneIsKeptAsItWas)
{
    const Archive archive(conversion("<out_dir>out</out_dir><autoname>true</autoname>"), {"n1"});
    EXPECT_EQ(archive.make().fresh, 1u);
    fs::remove("n1.mea");
    makeFile("n3.mea", "T9 2000.0 UTC\n"
                       "54321   250223 1200000000 0100000000 -0030000000 001 09.50\n");
    const MadeBatch made = archive.make();
    EXPECT_FALSE(made.isRefused);
    ASSERT_EQ(made.plan.tasks.size(), 2u);
    EXPECT_EQ(made.plan.tasks[0].outputs, std::nullopt);
    EXPECT_EQ(made.plan.tasks[1].outputs.value().size(), 1u);
}

TEST(BatchMaking, PlanWithoutGroupsGetsNone)
{
    const Archive archive("<task><inputformat>vomar</inputformat><out_dir>out</out_dir>"
                          "<paths><seria><path>{path}</path></seria></paths></task>");
    archive.make();
    BatchOrder order = archive.order();
    order.group = "night";
    EXPECT_EQ(problemOf([&] { makeBatch(BatchFolder("work"), order); }),
              "the plan work/plan.json has no groups");
}

TEST(BatchMaking, TaskHasThreeNames)
{
    const Archive archive(conversion(named));
    const BatchPlan plan = archive.make().plan;
    for (const char* word : {"2", "000002", "000002_n2.xml", "work/tasks/000002_n2.xml"}) {
        EXPECT_EQ(taskNamed(plan, word).number, 2u) << word;
    }
    EXPECT_THAT(problemOf([&] { taskNamed(plan, "02"); }), HasSubstr("no task \"02\""));
    EXPECT_THAT(problemOf([&] { taskNamed(plan, "3"); }), HasSubstr("no task \"3\""));
}

// The folder of the tasks is made once the plan is prepared; who has the lock then writes another.
TEST(BatchMaking, PlanThatComesMeanwhileGrows)
{
    const Archive archive(conversion(named));
    archive.make();
    fs::rename("work", "other");
    fs::create_directory("work");
    BatchPlan other = readPlan(BatchFolder("other"));
    other.next = 12;
    other.tasks.back().number = 11;
    const auto write = [&other] {
        const ByteLocks locks("work/lock");
        locks.wait(0);
        fs::create_directory("ready");
        while (!fs::exists("work/receipts")) {
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
        writePlan(BatchFolder("work"), other);
    };
    const int writer = startChild(write);
    while (!fs::exists("ready")) {
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    const MadeBatch made = archive.make();
    EXPECT_EQ(waitForChild(writer), 0);
    EXPECT_EQ(made.fresh, 0u);
    ASSERT_EQ(made.plan.tasks.size(), 2u);
    EXPECT_EQ(made.plan.tasks[1].number, 11u);
}

} // namespace
