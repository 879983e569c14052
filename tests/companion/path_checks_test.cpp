#include "task/path_checks.h"

#include "companion/golden.h"
#include "file_names.h"
#include "support/child_process.h"
#include "support/folders.h"
#include "support/socket_file.h"
#include "support/system_faults.h"
#include "support/tasks.h"
#include "support/temporary_folder.h"
#include "task/writable.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>
#include <string>
#include <vector>

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

    // The findings of a conversion of night.mea with other values of some keys.
    static std::vector<Finding> findingsOf(const TaskKeys& others)
    {
        TaskKeys keys{{"path_in", "./night.mea"},  {"out_dir", "out"},           {"outputextension", ".tel"},
                      {"inputformat", "mea"},      {"outputformat", "telegram"}, {"autoname", "false"},
                      {"path_res", "./result.xml"}};
        keys.insert(keys.begin(), others.begin(), others.end()); // the first of two equal keys counts
        const TaskDocument document = taskDocumentOf(taskText(keys), "task.xml");
        const tavelinUtils::TConvMea written = taskOf(document);
        tavelinUtils::TConvMea task = written;
        task.out_dir = outputFolder(written);
        return pathFindings(document, written, task, nullptr);
    }

    // Their codes.
    static std::string told(const TaskKeys& others)
    {
        std::string codes;
        for (const Finding& found : findingsOf(others)) {
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

TEST_F(PathChecks, PathBelowAFileCannotBeRead)
{
    const std::vector<Finding> found = findingsOf({{"path_in", "./night.mea/a.mea"}});
    ASSERT_EQ(found.size(), 1u);
    EXPECT_EQ(found[0].text, "the input ./night.mea/a.mea cannot be read: Not a directory");
}

TEST_F(PathChecks, BlanksAtTheEndsOfAPathAreSeen)
{
    EXPECT_EQ(findingsOf({{"path_in", "./night.mea "}}).at(0).text,
              "the input \"./night.mea \" does not exist");
    EXPECT_EQ(findingsOf({{"path_in", " ./night.mea"}}).at(0).text,
              "the input \" ./night.mea\" does not exist");
}

TEST_F(PathChecks, WithoutRightsNothingIsReadOrWritten)
{
    expectTrueInChild([] {
        setFaults(faultsOfAccess(EACCES));
        const std::vector<Finding> found = findingsOf({});
        return found.size() == 3 && found[0].code == "V032" && found[1].code == "V038" &&
               found[1].text.find("is not writable") != std::string::npos && found[2].code == "V060" &&
               found[2].text == "the input ./night.mea cannot be read: Permission denied";
    });
}

TEST_F(PathChecks, NeitherFolderNorInputIsNamed)
{
    EXPECT_EQ(told({{"out_dir", "<![CDATA[]]>"}, {"path_in", "<![CDATA[]]>"}}), "V037 V060");
}

TEST_F(PathChecks, OutputThatIsTheInputIsTold)
{
    makeFile("out/night.mea", "T1 2000.0 UTC\n");
    EXPECT_EQ(told({{"path_in", "out/night.mea"}, {"outputextension", ".mea"}, {"outputformat", "mea"}}),
              "V046");
}

TEST_F(PathChecks, OutputThatIsTooLongForTheSystemIsTold)
{
    std::string deep = "out";
    while (deep.size() < 4084) {
        deep += "/.";
    }
    EXPECT_EQ(told({{"out_dir", deep}, {"outputextension", ".t"}}), "");
    EXPECT_EQ(told({{"out_dir", deep}, {"outputextension", ".telegram"}}), "V052");
}

TEST_F(PathChecks, BackslashesAreToldWhereTheyAre)
{
    EXPECT_EQ(told({{"out_dir", "o\\ut"}}), "V037 V054");
    EXPECT_EQ(told({{"inputformat", "vomar"}, {"paths", "<seria><path>a\\b</path></seria>"}}), "V200 V054");
}

TEST_F(PathChecks, ResultThatIsTheOutputUnderAnotherNameIsTold)
{
    makeFile("out/night.tel", "older\n");
    fs::create_hard_link("out/night.tel", "result.xml");
    EXPECT_EQ(told({}), "V034 V048");
}

TEST_F(PathChecks, ResultInAPipeIsNotLookedInto)
{
    ASSERT_EQ(mkfifo("result.xml", 0600), 0);
    EXPECT_EQ(told({}), "");
}

TEST_F(PathChecks, ResultWithANameThatIsTooLongCannotBeWritten)
{
    EXPECT_EQ(told({{"path_res", "./" + std::string(252, 'r') + ".xml"}}), "V032");
}

TEST_F(PathChecks, NothingIsSaidOfATaskThatCannotBeLoaded)
{
    EXPECT_TRUE(pathFindings(taskDocumentOf("<task", "task.xml"), {}, {}, nullptr).empty());
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
    EXPECT_FALSE(canBeWritten("out/..", true));
    std::string longPath;
    while (longPath.size() < 4092) {
        longPath += "./";
    }
    EXPECT_TRUE(canBeWritten(longPath + "abc"));
    EXPECT_FALSE(canBeWritten(longPath + "abcd"));
    EXPECT_FALSE(canBeWritten("out/" + longName));
}

TEST_F(PathChecks, PathWithoutAFolderIsInThePresentOne)
{
    EXPECT_TRUE(canBeWritten("a.txt"));
    EXPECT_TRUE(canBeWritten("night.mea", true));
}

TEST_F(PathChecks, OnlyAnEmptyFolderThatMayBeRemovedGivesWay)
{
    fs::create_directories("out/empty");
    fs::create_directories("out/full/a");
    EXPECT_TRUE(canBeWritten("out/empty", true));
    EXPECT_FALSE(canBeWritten("out/full", true));
    EXPECT_FALSE(canBeWritten("out/empty"));
    expectTrueInChild([] {
        setFaults(faultsOfAccess(EACCES));
        return !canBeWritten("out/empty", true);
    });
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
    EXPECT_FALSE(isSameFile("night.mea", "/proc/self/status"));
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
