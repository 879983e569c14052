#include "running/batch_plan.h"

#include "findings/finding.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <functional>

namespace {

using namespace companion;

BatchPlan twoTasks()
{
    BatchPlan plan;
    plan.folder = "..";
    plan.taskTemplate = "t.xml";
    plan.patterns = {"archive/{night}/*.mea"};
    plan.settings = {{"filter", "R"}, {"telescope", "T\xE9"}};
    plan.next = 3;
    plan.tasks = {{1, "000001_a.xml", "", {{"archive/n1/a.mea", 5, 7}}, "out", "out/a.log", {{"out/a.txt"}}},
                  {2, "000002_b.xml", "", {{"archive/n2/b.mea", 6, 8}}, "out", "", {}}};
    return plan;
}

TEST(BatchPlan, IsReadAsItWasWritten)
{
    const TemporaryFolder folder;
    const BatchFolder work(folder.path());
    writePlan(work, twoTasks());
    EXPECT_EQ(readPlan(work), twoTasks());
}

TEST(BatchPlan, FolderIsTakenWithoutTheSlashesAtItsEnd)
{
    EXPECT_EQ(BatchFolder("work//").path(), "work");
    EXPECT_EQ(BatchFolder("//").path(), "/");
    EXPECT_EQ(BatchFolder("").path(), "");
}

// What reading a plan of these bytes throws.
std::string problemOf(const std::string& bytes)
{
    const TemporaryFolder folder;
    makeFile(folder / "plan.json", bytes);
    try {
        readPlan(BatchFolder(folder.path()));
    } catch (const WrongUsage& wrong) {
        const std::string front = "the plan " + folder / "plan.json" + " ";
        EXPECT_EQ(wrong.why.text.substr(0, front.size()), front);
        return wrong.why.text.substr(std::min(front.size(), wrong.why.text.size()));
    }
    return "";
}

TEST(BatchPlan, DamagedOneIsNotTaken)
{
    const std::function<void(BatchPlan&)> damages[] = {
        [](BatchPlan& plan) { plan.tasks[0].number = 0; },
        [](BatchPlan& plan) { plan.tasks[1].number = 1; },
        [](BatchPlan& plan) { plan.tasks[0].name = ""; },
        [](BatchPlan& plan) { plan.tasks[1].name = "../000002_b.xml"; },
        [](BatchPlan& plan) { plan.tasks[1].inputs.clear(); },
        [](BatchPlan& plan) { plan.next = 2; },
    };
    EXPECT_EQ(problemOf(planText(twoTasks())), "");
    for (const auto& damage : damages) {
        BatchPlan plan = twoTasks();
        damage(plan);
        EXPECT_EQ(problemOf(planText(plan)), "is damaged");
    }
    EXPECT_EQ(problemOf("{"), "is damaged");
    EXPECT_EQ(problemOf(R"({"schema":"tavelin.plan/9"})"), "was made by another version");
}

} // namespace
