#include "companion/copied_examples.h"
#include "companion/golden.h"

#include "support/folders.h"
#include "support/places.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

namespace {

// The examples as they are in a fresh copy, with a folder for the output.
class Examples : public testing::Test
{
protected:
    Examples()
    {
        copyExamples(folder / "examples");
        std::filesystem::current_path(folder / "examples");
    }

private:
    TemporaryFolder folder;
    PresentFolder present{folder.path()};
};

using CheckOfExamples = Examples;

TEST_F(CheckOfExamples, ReportByGroupsNamesTheMarksThatItLoses)
{
    const CommandEnd end = callCommand({"check", "report_eachgroup.xml"});
    EXPECT_EQ(
        end.out,
        "report_eachgroup.xml:12:5: warning: 2 of 23 marks would be in no file: each piece of a track that "
        "is "
        "cut loses its last mark [V240]\n"
        "    series 2 ptf_i41_20101106, track 0 Z6433, mark 1, 2010-11-06T04:30:13.824\n"
        "    series 2 ptf_i41_20101106, track 0 Z6433, mark 3, 2010-11-06T10:37:24.960\n"
        "report_eachgroup.xml: note: 2 objects without a name get a running one, another in the next run: "
        "AST1000, AST1001 [V244]\n"
        "report_eachgroup.xml: note: tdm files are not for sending as they are (V340, V341); see tavelin "
        "ready "
        "--for ccsds [V301]\n"
        "report_eachgroup.xml: 7 files, 21 of 23 marks; code 0 in out/result.xml; 0 errors, 1 warning, 2 "
        "notes\n");
    EXPECT_EQ(end.err, "");
    EXPECT_EQ(end.status, 0);
}

TEST_F(CheckOfExamples, StrictlyAWarningIsAnError)
{
    EXPECT_EQ(callCommand({"check", "--strict", "report_eachgroup.xml"}).status, 1);
}

TEST_F(CheckOfExamples, IgnoredCodesAreNeitherShownNorCounted)
{
    const CommandEnd end =
        callCommand({"check", "--strict", "--ignore", "V240,V244,V301", "report_eachgroup.xml"});
    EXPECT_EQ(
        end.out,
        "report_eachgroup.xml: 7 files, 21 of 23 marks; code 0 in out/result.xml; 0 errors, 0 warnings, "
        "0 notes\n");
    EXPECT_EQ(end.status, 0);
}

TEST_F(CheckOfExamples, OnlyTheCodesThatAreAskedForAreShown)
{
    EXPECT_EQ(callCommand({"check", "--only=V301", "report_eachgroup.xml"}).out,
              "report_eachgroup.xml: note: tdm files are not for sending as they are (V340, V341); see "
              "tavelin ready "
              "--for ccsds [V301]\n"
              "report_eachgroup.xml: 7 files, 21 of 23 marks; code 0 in out/result.xml; 0 errors, 0 "
              "warnings, 1 note\n");
}

TEST_F(CheckOfExamples, PlanListsTheFilesInTheOrderOfWriting)
{
    const std::string text = callCommand({"check", "--plan", "report_eachgroup.xml"}).out;
    EXPECT_EQ(text.substr(text.find("marks  tracks")),
              "marks  tracks  file\n"
              "    3       1  out/PTF48-Z6433-2010-11-04T07-04-09-R.tdm\n"
              "    3       1  out/PTF48-K10VK8K-2010-11-04T02-07-08-R.tdm\n"
              "    5       1  out/PTF48-AST1000-2010-11-04T02-42-22-R.tdm\n"
              "    1       1  out/PTF48-Z6433-2010-11-06T02-36-54-R.tdm\n"
              "    1       1  out/PTF48-Z6433-2010-11-06T08-40-44-R.tdm\n"
              "    4       1  out/PTF48-AST1001-2010-11-06T02-25-06-R.tdm\n"
              "    4       1  out/PTF48-K10VL4H-2010-11-06T03-33-21-R.tdm\n");
}

TEST_F(CheckOfExamples, FirstPageShowsWhatTheCommandPrints)
{
    std::string shown;
    for (const std::string subcommand : {"check", "run", "explain"}) {
        std::vector<std::string> call{subcommand, "report_eachgroup.xml"};
        shown += "$ tavelin " + subcommand + " report_eachgroup.xml\n";
        if (subcommand == "run") {
            call.push_back("--vomar=" + builtTool());
        }
        shown += callCommand(call).out;
    }
    EXPECT_NE(bytesOf(VOMAR_PROJECT "/README.md").find("\n" + shown + "```"), std::string::npos) << shown;
}

TEST_F(CheckOfExamples, NothingIsWritten)
{
    callCommand({"check", "report_eachgroup.xml", "mea_to_mpc.xml"});
    EXPECT_TRUE(std::filesystem::is_empty("out"));
}

TEST_F(CheckOfExamples, TaskThatIsGivenTwiceIsCheckedOnce)
{
    EXPECT_EQ(callCommand({"check", "mea_to_tdm.xml", "mea_to_tdm.xml"}).out,
              callCommand({"check", "mea_to_tdm.xml"}).out);
}

TEST_F(CheckOfExamples, RelativePathsCountFromTheFolderThatIsGiven)
{
    std::filesystem::create_directory("tasks");
    std::filesystem::copy("report_eachgroup.xml", "tasks/t.xml");
    EXPECT_EQ(callCommand({"check", "--folder", "examples", "tasks/t.xml"}).status, 2); // there is none here
    std::filesystem::current_path("..");
    const CommandEnd there = callCommand({"check", "--folder", "examples", "examples/tasks/t.xml"});
    EXPECT_EQ(there.status, 0);
    EXPECT_NE(there.out.find("7 files, 21 of 23 marks"), std::string::npos);
}

} // namespace
