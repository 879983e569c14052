#include "task/task_checks.h"

#include "support/tasks.h"

#include <gtest/gtest.h>

namespace {

using namespace companion;

// The findings of a task whose root has the keys, as codes with their places: "3:5 V025".
std::string told(const TaskKeys& keys)
{
    const TaskDocument document = taskDocumentOf(taskText(keys), "task.xml");
    EXPECT_TRUE(document.goesOn());
    std::string codes;
    for (const Finding& found : taskFindings(document, taskOf(document))) {
        codes += (codes.empty() ? "" : ", ") + std::to_string(found.line) + ':' +
                 std::to_string(found.column) + ' ' + found.code.text();
    }
    return codes;
}

// The same for one key of a conversion that is without fault.
std::string toldOf(const std::string& key, const std::string& value)
{
    return told({{"inputformat", "mea"},
                 {"outputformat", "mea"},
                 {"outputextension", ".mea"},
                 {"autoname", "false"},
                 {key, value}});
}

// And of a report.
std::string toldOfReport(const std::string& key, const std::string& value)
{
    return told({{"inputformat", "vomar"},
                 {"outputformat", "mea"},
                 {"outputextension", "mea"},
                 {"toSeparateFile", "eachgroup"},
                 {key, value},
                 {"paths", "<seria><path>a/b/c/d</path><filtr>R</filtr><telescope>T1</telescope></seria>"}});
}

// The findings of a report whose one seria has further keys, as codes.
std::string toldOfSeria(const std::string& keys)
{
    const std::string seria =
        "<seria><path>a/b/c/d</path><filtr>R</filtr><telescope>T1</telescope>" + keys + "</seria>";
    const TaskDocument document = taskDocumentOf(taskText({{"inputformat", "vomar"},
                                                           {"outputformat", "mea"},
                                                           {"outputextension", "mea"},
                                                           {"toSeparateFile", "eachgroup"},
                                                           {"paths", seria}}),
                                                 "task.xml");
    std::string codes;
    for (const Finding& found : taskFindings(document, taskOf(document))) {
        codes += (codes.empty() ? "" : ", ") + found.code.text();
    }
    return codes;
}

Plan planWithTracks(const std::vector<ReadTrack>& tracks)
{
    Plan plan;
    plan.tracks = tracks;
    return plan;
}

// The findings of exclusions in the one series of a report, as texts.
std::string toldOfExclusions(const std::string& excludes, const Plan* plan)
{
    const std::string seria = "<seria><path>a/b/c/d</path><excludes>" + excludes + "</excludes></seria>";
    const TaskDocument document =
        taskDocumentOf(taskText({{"inputformat", "vomar"}, {"paths", seria}}), "task.xml");
    std::string texts;
    for (const Finding& found : trackFindings(document, taskOf(document), plan)) {
        texts += found.text + '\n';
    }
    return texts;
}

} // namespace

TEST(TaskChecks, TasksWithoutFaultHaveNoFinding)
{
    EXPECT_EQ(toldOf("originator", "T1"), "");
    EXPECT_EQ(toldOfReport("originator", "T1"), "");
}

TEST(TaskChecks, NumbersThatAreReadAsTheyStandAreNotTold)
{
    for (const char* text : {"30", "30.0", "+30", " 30 ", "3e1", ".5", "5.", "inf"}) {
        EXPECT_EQ(toldOfReport("interval", text).find("V026"), std::string::npos) << text;
    }
    for (const char* text : {"0", "-1", "+7", " 7\n", "007", "2147483647", "-2147483648"}) {
        EXPECT_EQ(toldOfReport("object", text), "") << text;
    }
}

TEST(TaskChecks, NumbersThatAreReadOtherwiseAreTold)
{
    for (const char* text : {"30 min", "30,5", "half", "0x1E", "1e999", "--30"}) {
        EXPECT_NE(toldOfReport("interval", text).find("7:5 V026"), std::string::npos) << text;
    }
    for (const char* text : {"1.5", "first", "2147483648", "7;8", "+-7"}) {
        EXPECT_EQ(toldOfReport("object", text), "7:5 V026") << text;
    }
}

TEST(TaskChecks, OnlyTheTwoWordsOfABoolAreNotTold)
{
    EXPECT_EQ(toldOfReport("longname", "true"), "");
    EXPECT_EQ(toldOfReport("longname", "false"), "");
    for (const char* text : {"True", "TRUE", "1", "yes", " true", "true\n", "False", "<![CDATA[]]>"}) {
        EXPECT_EQ(toldOfReport("longname", text), "7:5 V025") << text;
    }
}

TEST(TaskChecks, EmptyTextIsNoEmptyKey)
{
    EXPECT_EQ(toldOf("originator", "  "), "7:5 V024");
    EXPECT_EQ(toldOf("originator", "<![CDATA[]]>"), "");
}

TEST(TaskChecks, EmptyKeyIsToldWhateverItsDefault)
{
    EXPECT_EQ(toldOf("out_dir", ""), "7:5 V024");
    EXPECT_EQ(toldOf("originator", ""), "7:5 V024");
}

TEST(TaskChecks, NumberThatIsNoTextIsToldOnce)
{
    EXPECT_EQ(toldOfReport("interval", "<b>30</b>"), "7:5 V023, 7:5 V242"); // it is read as 0
    EXPECT_EQ(toldOfReport("object", "<!-- first -->"), "7:5 V023");
}

TEST(TaskChecks, KeyOfASeriaBesideItIsTold)
{
    const std::string seria = "<seria><path>a/b/c/d</path><filtr>R</filtr><telescope>T1</telescope></seria>";
    EXPECT_EQ(told({{"inputformat", "vomar"},
                    {"outputformat", "mea"},
                    {"outputextension", "mea"},
                    {"toSeparateFile", "eachgroup"},
                    {"paths", seria + "<filtr>R</filtr>"}}),
              "7:" + std::to_string(5 + 7 + seria.size()) + " V020");
}

TEST(TaskChecks, ExclusionsAreNumbersInEachPlace)
{
    EXPECT_EQ(toldOfSeria("<excludes>0;1  2;0</excludes>"), "");
    for (const char* text : {"0;x", "x;0;1", "one"}) {
        EXPECT_EQ(toldOfSeria("<excludes>" + std::string(text) + "</excludes>"), "V235") << text;
    }
    EXPECT_EQ(toldOfSeria("<excludes>3 3;1</excludes>"), "V236");
    EXPECT_EQ(toldOfSeria("<excludes><b>x</b></excludes>"), "V023");
}

TEST(TaskChecks, ReportsWithoutTheirTelescopeKeepADefaultWord)
{
    const std::string seria = "<seria><path>a/b/c/d</path><filtr>R</filtr></seria>";
    const TaskKeys keys{{"inputformat", "vomar"},   {"outputformat", "mea"},
                        {"outputextension", "mea"}, {"toSeparateFile", "eachgroup"},
                        {"autoTelescope", "false"}, {"paths", seria}};
    EXPECT_EQ(told(keys), "0:0 V252");
    TaskKeys named = keys;
    named.emplace_back("PARTICIPANT_1", "T1");
    EXPECT_EQ(told(named), "");
}

TEST(TaskChecks, FirstNodeOtherThanTextIsTold)
{
    EXPECT_EQ(toldOf("originator", "<!-- ours -->T1"), "7:5 V023");
    EXPECT_EQ(toldOf("originator", "<b>T1</b>"), "7:5 V023");
    EXPECT_EQ(toldOf("originator", "<?T1?>"), "7:5 V023");
    EXPECT_EQ(toldOf("originator", "T1<!-- ours -->"), "");
    EXPECT_EQ(toldOf("originator", "<path_res>./r.xml</path_res>"), "7:17 V029");
    EXPECT_EQ(toldOf("originator", "T1<path>a</path>"), "7:19 V029");
}

TEST(TaskChecks, IntervalCountsUnderEachGroupAlone)
{
    EXPECT_EQ(toldOfReport("interval", "0"), "7:5 V242");
    EXPECT_EQ(toldOfReport("interval", "-30"), "7:5 V242");
    EXPECT_EQ(toldOfReport("interval", "-inf"), "7:5 V242");
    EXPECT_EQ(toldOfReport("interval", "nan"), "7:5 V242");
    EXPECT_EQ(toldOf("interval", "0"), "7:5 V027");
}

TEST(TaskChecks, ExclusionsAreHeldAgainstThePlan)
{
    const Plan plan = planWithTracks({{0, 0, "", 0, 2}, {1, 0, "", 2, 9}});
    EXPECT_EQ(toldOfExclusions("0;0;1", &plan), "");
    EXPECT_EQ(toldOfExclusions("0;2", &plan), "the exclusion 0;2 names a mark that does not exist\n");
    EXPECT_EQ(toldOfExclusions("1;0 -1;0", &plan), "the exclusion 1;0 names a track that does not exist\n"
                                                   "the exclusion -1;0 names a track that does not exist\n");
}

TEST(TaskChecks, WithoutAPlanOnlyNegativeExclusionsAreTold)
{
    EXPECT_EQ(toldOfExclusions("7;99", nullptr), "");
    EXPECT_EQ(toldOfExclusions("7;-1", nullptr), "the exclusion 7;-1 names a mark that does not exist\n");
}

TEST(TaskChecks, NothingIsSaidOfADocumentThatDoesNotGoOn)
{
    const TaskDocument document =
        taskDocumentOf("<root><task><path_in>a</path_in></task></root>", "task.xml");
    EXPECT_TRUE(taskFindings(document, taskOf(document)).empty());
}

TEST(TaskChecks, FormatThatIsOnlyWrittenNamesReadyWhereThatReadsIt)
{
    EXPECT_EQ(companion::writtenOnly("tdm.xml").text,
              "the format \"tdm.xml\" can be written but not read; tavelin ready reads it");
    EXPECT_EQ(companion::writtenOnly("mag").text, "the format \"mag\" can be written but not read");
}
