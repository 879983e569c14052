#include "task/template.h"

#include "findings/finding.h"
#include "support/temporary_folder.h"
#include "task/task_document.h"

#include <gmock/gmock.h>

namespace {

using namespace companion;
using testing::ElementsAre;
using testing::HasSubstr;

using Settings = std::map<std::string, std::string>;

// The task that a template gives for one file.
std::string taskFor(const std::string& text, const std::string& path, const FieldValues& values = {},
                    const Settings& settings = {})
{
    std::vector<Finding> findings;
    const std::vector<ArchiveFile> files{archiveFile(path, values)};
    return TaskTemplate("t.xml", text, settings).task(47, path, files, findings);
}

std::string refusalOf(const std::string& text, const Settings& settings = {})
{
    try {
        taskFor(text, "a/n.mea", {{"night", "n"}}, settings);
    } catch (const WrongUsage& wrong) {
        return wrong.why.text + ' ' + wrong.why.code.text();
    }
    return "";
}

TEST(TaskTemplate, FieldsOfThePatternAndFixedOnesAreFilledIn)
{
    EXPECT_EQ(taskFor("{path}|{folder}|{name}|{stem}|{number}|{night}", "a/b/T9.x.mea", {{"night", "n1"}}),
              "a/b/T9.x.mea|a/b|T9.x.mea|T9.x|000047|n1");
    EXPECT_EQ(taskFor("{folder}/{name}", "T9.mea"), "./T9.mea");
    EXPECT_EQ(taskFor("{{path}} {{}} }", "T9.mea"), "{path}} {}} }");
}

TEST(TaskTemplate, ValuesAreEscapedForXml)
{
    EXPECT_EQ(taskFor("<a>{stem}</a>", "<&>\"\n.mea"), "<a>&lt;&amp;&gt;&quot;&#xA;</a>");
}

// The tool reads the name of the file as it is.
TEST(TaskTemplate, AnyNameComesThroughTheTask)
{
    for (const std::string name : {" two  blanks .mea", "\xC3\xBC.mea", "line\nfeed.mea", "-minus.mea",
                                   "caf\xE9_1.mea", "a&b;<c>.mea", "tab\t.mea", "re\rturn.mea", "{x}.mea"})
    {
        const std::string text =
            taskFor("<?xml version=\"1.0\"?>\n<task><path_in>{path}</path_in></task>\n", "a/" + name);
        EXPECT_EQ(taskOf(taskDocumentOf(text, "t.xml")).path_in, "a/" + name);
    }
}

TEST(TaskTemplate, SettingGivesAFieldOrAKeyItsValue)
{
    const Settings settings{{"who", "a<b{night}"}, {"originator", "{night}"}, {"out_dir", "o"}};
    EXPECT_EQ(taskFor("<task>\n    <!-- <originator>x</originator> -->\n    <originator>K88</originator>\n"
                      "    <path_res>{who}</path_res>\n</task>\n",
                      "n.mea", {{"night", "n1"}}, settings),
              "<task>\n    <!-- <originator>x</originator> -->\n    <originator>n1</originator>\n"
              "    <path_res>a&lt;b{night}</path_res>\n    <out_dir>o</out_dir>\n</task>\n");
    EXPECT_EQ(taskFor("<task><originator/></task>", "n.mea", {}, {{"originator", "T"}}),
              "<task><originator>T</originator></task>");
}

TEST(TaskTemplate, WrongOnesAreRefused)
{
    EXPECT_EQ(refusalOf("<task>\n{nigt}</task>"), "no field \"nigt\"; did you mean \"night\"? V002");
    EXPECT_EQ(refusalOf("<task>\n\n{night</task>"),
              "t.xml: line 3 of t.xml has a brace that is neither a field nor doubled V001");
    EXPECT_EQ(refusalOf("<task></task>", {{"out_di", "x"}}),
              "no field or key \"out_di\"; did you mean \"out_dir\"? V002");
}

struct GroupTask
{
    std::string text{};
    std::vector<std::string> findings{};
};

GroupTask groupTask(const std::string& text)
{
    TaskTemplate taskTemplate("t.xml", text, {});
    taskTemplate.divideForGroups();
    std::vector<Finding> findings;
    const std::vector<ArchiveFile> files{archiveFile("n1/a.txt", {{"night", "n1"}, {"s", "1"}}),
                                         archiveFile("n1/b.txt", {{"night", "n1"}, {"s", "2"}})};
    GroupTask task{taskTemplate.task(3, "n1", files, findings)};
    for (const Finding& each : findings) {
        task.findings.push_back(each.file + ": " + each.text);
    }
    return task;
}

TEST(TaskTemplate, SeriaIsRepeatedForEachFileOfAGroup)
{
    const GroupTask task =
        groupTask("<task>\n<out_dir>{night}</out_dir>\n<paths>\n    <!-- <seria> -->\n"
                  "    <seria>\n        <path>{path}</path>\n    </seria>\n</paths>\n</task>\n");
    EXPECT_EQ(task.text, "<task>\n<out_dir>n1</out_dir>\n<paths>\n    <!-- <seria> -->\n"
                         "    <seria>\n        <path>n1/a.txt</path>\n    </seria>\n"
                         "    <seria>\n        <path>n1/b.txt</path>\n    </seria>\n</paths>\n</task>\n");
    EXPECT_THAT(task.findings, ElementsAre());
    EXPECT_EQ(groupTask("<paths><seria ><path>{s}</path></seria></paths>").text,
              "<paths><seria ><path>1</path></seria><seria ><path>2</path></seria></paths>");
}

TEST(TaskTemplate, AnyWhiteSpaceMayFollowTheNameOfSeria)
{
    for (const std::string blank : {" ", "\t", "\r\n", "\n"}) {
        const std::string tag = "<seria" + blank + ">";
        EXPECT_EQ(groupTask("<paths>" + tag + "{s}</seria></paths>").text,
                  "<paths>" + tag + "1</seria>" + tag + "2</seria></paths>");
    }
}

TEST(TaskTemplate, FieldOutsideTheSeriaThatDiffersIsAFinding)
{
    EXPECT_THAT(groupTask("<task><out_dir>{s}</out_dir><seria>{s}</seria></task>").findings,
                ElementsAre("t.xml: field {s} has 2 values in group n1"));
}

TEST(TaskTemplate, GroupsNeedJustOneSeria)
{
    for (const char* const text :
         {"<task></task>", "<seria></seria><seria></seria>", "<seria>", "<serial></serial>"})
    {
        EXPECT_THROW(groupTask(text), WrongUsage) << text;
    }
}

TEST(ArchiveFiles, FirstPatternOfAFileGivesItsFields)
{
    const TemporaryFolder folder;
    makeFile(folder / "a_1.mea", "");
    makeFile(folder / "b_1.mea", "");
    const std::vector<Pattern> patterns{Pattern(folder / "{x}_1.mea"), Pattern(folder / "b{x}.mea")};
    const auto files = archiveFiles(patterns);
    ASSERT_EQ(files.size(), 2U);
    EXPECT_EQ(*files[0].value("x"), "a");
    EXPECT_EQ(*files[1].value("x"), "b");
    EXPECT_EQ(files[1].value("y"), nullptr);
    const std::vector<Pattern> none{Pattern(folder / "*.tel")};
    EXPECT_THROW(archiveFiles(none), WrongUsage);
}

} // namespace
