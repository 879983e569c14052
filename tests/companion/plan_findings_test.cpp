// What the plan of a task lets one see, of plans that a test makes up.

#include "task/plan_findings.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace {

using namespace companion;
using tavelinUtils::TConvMea;
using tavelinUtils::TrackVtorichka;
using testing::HasSubstr;
using testing::IsEmpty;

// The findings of a plan: "autoname V065 text".
std::vector<std::string> told(const TConvMea& task, const Plan& plan)
{
    std::vector<std::string> found;
    const PlanInspection inspection(task);
    inspection.findings(plan, [&found](Finding each, std::string_view key) {
        found.push_back(std::string(key) + ' ' + each.code.text() + ' ' + each.text);
        return each;
    });
    return found;
}

TConvMea conversion()
{
    TConvMea task;
    task.inputformat = "mea";
    task.outputformat = "ssmas";
    task.out_dir = "out/";
    task.autoname = true;
    return task;
}

TConvMea report(const std::string& division)
{
    TConvMea task;
    task.inputformat = "vomar";
    task.outputformat = "mea";
    task.out_dir = "out/";
    task.toSeparateFile = division;
    return task;
}

// A plan of one track of one mark in a file.
Plan planOf(const std::string& path)
{
    Plan plan;
    plan.tracks = {{0, 0, "A", 0, 1}};
    plan.files = {{path, "mea", 1, 1}};
    return plan;
}

MissingMark missing(int series, const std::string& folder)
{
    MissingMark mark;
    mark.place.series = series;
    mark.place.folder = folder;
    return mark;
}

TEST(PlanFindings, AutomaticNamesOfOddTimesAreTold)
{
    EXPECT_THAT(told(conversion(), planOf("out/T1-A-2023-02-25T12-00-00.txt")), IsEmpty());
    const std::pair<const char*, const char*> names[] = {{"T1-A-2023-02-25T12-00-60-R.txt", "60 seconds"},
                                                         {"T1-A-2023-02-25T24-00-00.txt", "hour 24"}};
    for (const auto& [name, what] : names) {
        const auto found = told(conversion(), planOf("out/" + std::string(name)));
        ASSERT_EQ(found.size(), 1u) << name;
        EXPECT_TRUE(found[0].starts_with("autoname V066 ")) << found[0];
        EXPECT_NE(found[0].find(what), std::string::npos) << found[0];
    }
}

TEST(PlanFindings, AConversionOfNothingLacksTracksAndNotTheirFirstMark)
{
    const auto found = told(conversion(), {});
    ASSERT_EQ(found.size(), 1u);
    EXPECT_TRUE(found[0].starts_with("path_in V062 "));
    Plan plan;
    plan.tracks = {{-1, 0, "A", 0, 0}};
    const auto withTrack = told(conversion(), plan);
    ASSERT_EQ(withTrack.size(), 1u);
    EXPECT_TRUE(withTrack[0].starts_with("autoname V064 "));
}

TEST(PlanFindings, AWordOfTheFileThatTheTaskEmptiesIsNotTold)
{
    TConvMea task = conversion();
    task.inputformat = "telegram";
    task.outputformat = "telegram";
    task.originator = "";
    Plan plan = planOf("out/a.txt");
    plan.fileWords.originator = "ISON";
    EXPECT_THAT(told(task, plan), IsEmpty());
    task.originator = "other";
    const auto found = told(task, plan);
    ASSERT_EQ(found.size(), 1u);
    EXPECT_TRUE(found[0].starts_with("originator V070 "));
}

TEST(PlanFindings, LongRunningNamesHaveNoRoomInReportsOf80Columns)
{
    Plan plan = planOf("out/a.txt");
    plan.runningNames = {"AST9999", "AST10000"};
    TConvMea task = report("eachobject");
    ASSERT_EQ(told(task, plan).size(), 1u);
    EXPECT_TRUE(told(task, plan)[0].starts_with(" V244 "));
    task.outputformat = "mpc";
    ASSERT_EQ(told(task, plan).size(), 2u);
    EXPECT_TRUE(told(task, plan)[1].starts_with(" V245 "));
}

TEST(PlanFindings, NamesThatLeadOutOfTheFolderAreTold)
{
    for (const char* name : {"..", "../a.txt", "a/../b.txt"}) {
        const auto found = told(report("eachobject"), planOf("out/" + std::string(name)));
        ASSERT_EQ(found.size(), 1u) << name;
        EXPECT_TRUE(found[0].starts_with(" V248 ")) << found[0];
    }
    EXPECT_TRUE(told(report("eachobject"), planOf("out/a/b.txt")).at(0).starts_with(" V247 "));
    EXPECT_THAT(told(report("eachobject"), planOf("out/a..b.txt")), IsEmpty());
}

TEST(PlanFindings, MarksOfUnnamedFilesAreToldForEachFile)
{
    Plan plan = planOf("out/a.txt");
    plan.unnamedMarks = {missing(1, "night1"), missing(2, "night2"), missing(2, "night2"), missing(3, "")};
    const auto bySeries = told(report("eachseria"), plan);
    ASSERT_EQ(bySeries.size(), 2u);
    EXPECT_THAT(bySeries[0],
                HasSubstr(" V250 the first track of the file of series 1 has no mark, so 1 mark "));
    EXPECT_THAT(bySeries[1],
                HasSubstr(" V250 the first track of the file of series 2 has no mark, so 2 marks "));
    const auto ofAll = told(report("allobjects"), plan);
    ASSERT_EQ(ofAll.size(), 1u);
    EXPECT_THAT(ofAll[0], HasSubstr(" V250 the first track of the file has no mark, so 4 marks "));
}

TEST(PlanFindings, NamesThatAReaderWouldCutAreCounted)
{
    TConvMea task = report("allobjects");
    task.outputformat = "telegram";
    PlanInspection inspection(task);
    for (const char* name : {"", "a b", "ab"}) {
        TrackVtorichka track;
        track.QRVName = name;
        inspection.see({"out/a.txt", "telegram", 1, 0}, track);
    }
    const auto found =
        inspection.findings(planOf("out/a.txt"), [](Finding each, std::string_view) { return each; });
    ASSERT_EQ(found.size(), 1u);
    EXPECT_EQ(found[0].code.text(), "V074");
    EXPECT_EQ(found[0].count, 2u);
}

} // namespace
