#include "task/path_checks.h"

#include "companion/golden.h"
#include "file_names.h"
#include "support/child_process.h"
#include "support/folders.h"
#include "support/socket_file.h"
#include "support/tasks.h"
#include "support/temporary_folder.h"
#include "task/writable.h"

#include <gtest/gtest.h>

#include <filesystem>

#include <sys/stat.h>

namespace {

using namespace companion;
namespace fs = std::filesystem;

// A folder that a task is checked in.
class PathChecks : public testing::Test
{
protected:
    PathChecks()
    {
        fs::create_directory("out");
        makeFile("night.mea", "T1 2000.0 UTC\n");
    }

    // The findings of a conversion of night.mea with other values of some keys, as codes.
    static std::string told(const TaskKeys& others)
    {
        TaskKeys keys{{"path_in", "./night.mea"},  {"out_dir", "out"},           {"outputextension", ".tel"},
                      {"inputformat", "mea"},      {"outputformat", "telegram"}, {"autoname", "false"},
                      {"path_res", "./result.xml"}};
        keys.insert(keys.begin(), others.begin(), others.end()); // the first of two equal keys counts
        const TaskDocument document = taskDocumentOf(taskText(keys), "task.xml");
        const tavelinUtils::TConvMea written = taskOf(document);
        tavelinUtils::TConvMea task = written;
        task.out_dir = outputFolder(written);
        std::string codes;
        for (const Finding& found : pathFindings(document, written, task, nullptr)) {
            codes += (codes.empty() ? "" : " ") + found.code.text();
        }
        return codes;
    }

private:
    TemporaryFolder folder;
    PresentFolder present{folder.path()};
};

TaskOutputs outputsNamed(const std::string& task, const std::string& result,
                         const std::vector<std::string>& files)
{
    return {task, {3, 5}, result, files};
}

std::string textsOf(const std::vector<Finding>& findings)
{
    std::string text;
    for (const Finding& found : findings) {
        text += found.file + ": " + found.text + '\n';
    }
    return text;
}

} // namespace

TEST_F(PathChecks, TaskWithoutFaultHasNoFinding)
{
    EXPECT_EQ(told({}), "");
}

TEST_F(PathChecks, SocketForAFolderIsTakenAndCannotBeWrittenTo)
{
    makeSocket("socket");
    ASSERT_EQ(outputFolder({.out_dir = "socket"}), "socket/");
    EXPECT_EQ(told({{"out_dir", "socket"}}), "V038");
}

TEST_F(PathChecks, PipeForAnInputIsTold)
{
    ASSERT_EQ(mkfifo("pipe.mea", 0600), 0);
    EXPECT_EQ(told({{"path_in", "./pipe.mea"}}), "V060");
}

TEST_F(PathChecks, PipesAreNotWaitedFor)
{
    ASSERT_EQ(mkfifo("pipe", 0600), 0);
    makeFile("conversion.xml",
             taskText({{"path_in", "./pipe"}, {"inputformat", "mea"}, {"outputformat", "tdm"}}));
    makeFile("report.xml",
             taskText({{"inputformat", "vomar"}, {"paths", "<seria><path>./pipe</path></seria>"}}));
    expectTrueInChild([] { return callCommand({"check", "conversion.xml", "report.xml"}).status == 1; });
}

// A light curve takes the place of a link: the input behind it stays.
TEST_F(PathChecks, LinkToTheInputIsReplacedByALightCurve)
{
    fs::create_symlink("../night.mea", "out/night.mag");
    fs::create_hard_link("night.mea", "out/night.aavso");
    fs::create_symlink("../night.mea", "out/night.tel");
    EXPECT_EQ(told({{"outputformat", "mag"}, {"outputextension", ".mag"}}), "V049 V048");
    EXPECT_EQ(told({{"outputformat", "aavso"}, {"outputextension", ".aavso"}}), "V048");
    EXPECT_EQ(told({}), "V047");
    EXPECT_EQ(told({{"outputformat", "mag"}, {"out_dir", "./out/.."}, {"outputextension", ".mea"}}), "V047");
}

TEST_F(PathChecks, EmptyFolderGivesWayToALightCurve)
{
    fs::create_directory("out/night.mag");
    EXPECT_EQ(told({{"outputformat", "mag"}, {"outputextension", ".mag"}}), "V048");
    makeFile("out/night.mag/a.txt", "a");
    EXPECT_EQ(told({{"outputformat", "mag"}, {"outputextension", ".mag"}}), "V052");
}

TEST_F(PathChecks, FolderBesideTheInputIsLookedAtWhereTheOutDirIsMissing)
{
    EXPECT_EQ(told({{"out_dir", "missing"}}), "V037");
    EXPECT_EQ(told({{"out_dir", "missing"}, {"outputextension", "/x.tel"}}), "V037 V052");
}

TEST_F(PathChecks, PathThatCannotBeAFilesIsNotWritten)
{
    const std::string longName(256, 'n');
    EXPECT_TRUE(canBeWritten("out/a.txt", true));
    EXPECT_FALSE(canBeWritten("out/" + longName, true));
    EXPECT_FALSE(canBeWritten("out/.", true));
    EXPECT_FALSE(canBeWritten("out/", true));
    EXPECT_FALSE(canBeWritten("out/" + longName));
}

TEST_F(PathChecks, LinkIsWrittenThroughWhereItsFolderIsThere)
{
    fs::create_symlink("../nowhere.txt", "out/here");
    fs::create_symlink("../missing/nowhere.txt", "out/gone");
    EXPECT_TRUE(canBeWritten("out/here"));
    EXPECT_FALSE(canBeWritten("out/gone"));
    EXPECT_TRUE(canBeWritten("out/gone", true)); // the link itself is replaced
}

TEST_F(PathChecks, OutputOfAnAutomaticNameIsNotKnownWithoutAPlan)
{
    makeFile("out/night.tel", "an older one\n");
    EXPECT_EQ(told({}), "V048");
    EXPECT_EQ(told({{"autoname", "true"}}), "");
}

TEST_F(PathChecks, ResultOfAnEarlierRunIsNoFault)
{
    makeFile("result.xml", resultDocument(0, "OK", "out/night.tel"));
    EXPECT_EQ(told({}), "");
    makeFile("result.xml", "<other/>\n");
    EXPECT_EQ(told({}), "V035");
    makeFile("result.xml", "");
    EXPECT_EQ(told({}), "");
}

TEST_F(PathChecks, FilesAreTheSameByDeviceAndInode)
{
    fs::create_hard_link("night.mea", "hard.mea");
    fs::create_symlink("night.mea", "soft.mea");
    fs::create_directory_symlink("out", "other");
    EXPECT_TRUE(isSameFile("night.mea", "hard.mea"));
    EXPECT_TRUE(isSameFile("night.mea", "./soft.mea"));
    EXPECT_TRUE(isSameFile("out/new.tel", "other/../other/new.tel"));
    EXPECT_FALSE(isSameFile("out/new.tel", "new.tel"));
    EXPECT_FALSE(isSameFile("night.mea", "new.tel"));
}

TEST_F(PathChecks, TaskThatWritesOverEarlierOnesIsTold)
{
    SharedOutputs shared;
    EXPECT_EQ(textsOf(shared.add(outputsNamed("a.xml", "out/r.xml", {"out/a.tel", "out/a.tel"}))), "");
    EXPECT_EQ(textsOf(shared.add(outputsNamed("b.xml", "", {"out/b.tel"}))), "");
    EXPECT_EQ(textsOf(shared.add(outputsNamed("c.xml", "out/../out/r.xml", {"./out/a.tel"}))),
              "c.xml: the result document out/../out/r.xml is that of 2 tasks, also of a.xml\n"
              "c.xml: ./out/a.tel is written by 2 tasks, also by a.xml\n");
    for (const char* task : {"d.xml", "e.xml"}) {
        shared.add(outputsNamed(task, "", {"out/a.tel"}));
    }
    EXPECT_EQ(textsOf(shared.add(outputsNamed("f.xml", "", {"out/a.tel"}))),
              "f.xml: out/a.tel is written by 5 tasks, also by a.xml, c.xml, d.xml, ...\n");
}
