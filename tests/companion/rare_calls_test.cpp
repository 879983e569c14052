// Calls that are rarely made: words of options that are none, files that hold nothing, and what is said then.

#include "command/measurement_files.h"
#include "command/profile.h"
#include "command/subcommand.h"
#include "companion/golden.h"
#include "support/folders.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>

#include <cstdlib>
#include <filesystem>
#include <sstream>

#include <sys/wait.h>

namespace {

using namespace companion;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

using Words = std::vector<std::string>;

// A night of two marks, one without marks and a file of no known format, in the present folder.
class RareCalls : public testing::Test
{
protected:
    RareCalls()
    {
        makeFile("night.mea", "K88 2000.0 UTC\n"
                              "A 250223 1200000000 0100000000 +0030000000 001 09.50\n"
                              "A 250223 1300000000 0100000000 +0030000000 001 09.50\n");
        makeFile("empty.mea", "K88 2000.0 UTC\n");
        makeFile("odd.txt", "what is this?\n");
    }

    TemporaryFolder folder;
    PresentFolder present{folder.path()};
};

struct WrongCall
{
    Words call;
    const char* said;
};

TEST_F(RareCalls, WrongWordsAreUsage)
{
    makeFile("tolerance", "time 1s 2s\n");
    const WrongCall all[] = {
        {{"-"}, "no subcommand \"-\""},
        {{"--wrong"}, "no option \"--wrong\""},
        {{"check"}, "check: TASK... is missing [V001]"},
        {{"explain", "--as=code", "abc"}, "no result code \"abc\" [V002]"},
        {{"explain", "--as=code", "-"}, "no result code \"-\" [V002]"},
        {{"explain", "--as=finding", "abc"}, "no finding \"abc\""},
        {{"explain", "--as=result", "night.mea"}, "night.mea: it holds no result [V003]"},
        {{"lint", "--max", "", "night.mea"}, "--max: \"\" is no number [V001]"},
        {{"lint", "--max=1234567890", "night.mea"}, "--max: \"1234567890\" is no number [V001]"},
        {{"run", "--jobs=10001", "t.xml"}, "--jobs: \"10001\" is no number from 0 to 10,000 [V001]"},
        {{"run", "--verify=some", "t.xml"}, "no word of --verify \"some\""},
        {{"diff", "--as=mea", "--as=mea", "--as=mea", "night.mea", "night.mea"},
         "--as: is taken twice at most: there are two files [V001]"},
        {{"diff", "--magnitude=x", "night.mea", "night.mea"}, "\"x\" is no magnitude such as 0.1 [V001]"},
        {{"diff", "--magnitude=1x", "night.mea", "night.mea"}, "\"1x\" is no magnitude such as 0.1 [V001]"},
        {{"diff", "--magnitude=inf", "night.mea", "night.mea"}, "\"inf\" is no magnitude such as 0.1 [V001]"},
        {{"diff", "--magnitude=-1", "night.mea", "night.mea"}, "\"-1\" is no magnitude such as 0.1 [V001]"},
        {{"diff", "--tolerance=tolerance", "night.mea", "night.mea"},
         "tolerance:1: a name and a value are wanted [V001]"},
        {{"diff", "--tolerance=nothing/there", "night.mea", "night.mea"},
         "nothing/there: No such file or directory [V003]"},
        {{"diff", "--tolerance=exakt", "night.mea", "night.mea"}, "did you mean \"exact\"? [V002]"},
        {{"info", "--get=xyzzy", "night.mea"}, "no key \"xyzzy\" [V002]"},
        {{"info", "--get=mark", "night.mea"}, "did you mean \"marks\"? [V002]"},
        {{"normalise", "--magnitude=x", "-o", "a.tdm", "night.mea"},
         "--magnitude: \"x\" is no number [V001]"},
        {{"normalise", "--magnitude=inf", "-o", "a.tdm", "night.mea"},
         "--magnitude: \"inf\" is no number [V001]"},
        {{"normalise", "--json", "-o", "-", "night.mea"}, "--json: the copy has the standard output [V001]"},
        {{"plot", "--degree=x", "-o", "a.svg", "night.mea"}, "--degree: \"x\" is not 0 to 9 [V001]"},
        {{"plot", "-o", "a.svg", "odd.txt"}, "[V302]"},
        {{"plot", "--against=night.mea", "-o", "a.svg", "night.mea"},
         "--against: night.mea has no position [V001]"},
        {{"plot", "-o", "a.svg", "empty.mea"}, "FILE: empty.mea has no marks to draw [V001]"},
        {{"convert", "--from=aavso", "night.mea", "a.tdm"}, "can be written but not read"},
        {{"convert", "--from=table", "night.mea", "a.tdm"}, "; tavelin report takes track tables [V040]"},
        {{"convert", "--from=horizons", "night.mea", "a.tdm"},
         "unknown input format \"Horizons ephemeris\" [V040]"},
        {{"convert", "--json", "--to=tdm", "night.mea", "-"},
         "convert: the output and --json cannot both go to the standard output [V001]"},
        {{"convert", "--keep-task=t.xml", "--to=tdm", "night.mea", "-"},
         "--keep-task: a task cannot name the standard input or output [V001]"},
        {{"ready", "night.mea", "odd.txt", "--for=mpc", "-o", "a.txt"},
         "ready: takes one input, not \"odd.txt\" too [V001]"},
        {{"batch", "empty.mea", "--part=1x2"}, "[V003]"},
    };
    for (const WrongCall& each : all) {
        const CommandEnd end = callCommand(each.call);
        EXPECT_EQ(end.status, 2) << testing::PrintToString(each.call);
        EXPECT_THAT(end.err, HasSubstr(each.said)) << testing::PrintToString(each.call);
    }
}

TEST_F(RareCalls, HelpHasAShortOption)
{
    const CommandEnd end = callCommand({"-h"});
    EXPECT_EQ(end.status, 0);
    EXPECT_EQ(end.out, callCommand({"--help"}).out);
    EXPECT_EQ(callCommand({"--version", "--verbose"}).out, callCommand({"--version", "-v"}).out);
}

TEST_F(RareCalls, PlainProgressIsForLogs)
{
    EXPECT_EQ(callCommand({"--progress=plain", "info", "night.mea"}).out,
              callCommand({"info", "night.mea"}).out);
}

// The stream says that it failed, and nothing tells why.
TEST_F(RareCalls, OutputThatFailedWithoutAReasonIsTold)
{
    std::ostringstream out;
    std::ostringstream err;
    out.setstate(std::ios::badbit);
    EXPECT_EQ(runCommand({"explain", "V005"}, {out, err}), 2);
    EXPECT_EQ(err.str(), "tavelin: standard output: Input/output error [V003]\n");
}

TEST_F(RareCalls, InfoGivesSingleValues)
{
    makeFile("unsorted.mea", "K88 2000.0 UTC\n"
                             "A 250223 1300000000 0100000000 +0030000000 001 09.50\n"
                             "A 250223 1200000000 0100000000 +0030000000 001 09.50\n");
    makeFile("skipped.mea", bytesOf("night.mea") + "nonsense\n");
    EXPECT_EQ(callCommand({"info", "--get=sorted", "night.mea", "unsorted.mea"}).out, "true\nfalse\n");
    EXPECT_EQ(callCommand({"info", "--get=marks", "--table", "night.mea"}).out, "2\n");
    EXPECT_EQ(callCommand({"info", "--as=mea", "--get=format", "odd.txt"}).out, "mea\n");
    EXPECT_EQ(callCommand({"info", "--strict", "night.mea"}).status, 0);
    EXPECT_EQ(callCommand({"info", "--strict", "skipped.mea"}).status, 1);
}

TEST_F(RareCalls, InfoNamesEachReasonWhyLinesAreSkipped)
{
    makeFile("night.tdm", "nonsense = 1\nMETA_START\nPARTICIPANT_2 = A\nMETA_STOP\nDATA_START\n"
                          "ANGLE_1 = 2023-02-25T12:00:00 15.0\nMAG = 2023-02-25T12:00:00 9.5\n"
                          "ANGLE_2 = 2023-02-25T12:00:00 -0.5\nDATA_STOP\n");
    const std::string passed = callCommand({"info", "--as=tdm", "--get=passed", "night.tdm"}).out;
    EXPECT_THAT(passed, HasSubstr(", V180: 4 lines from line 1 on"));
}

TEST_F(RareCalls, InfoShowsTheEncodingThatIsNotTheUsualOne)
{
    EXPECT_THAT(callCommand({"info", "night.mea"}).out, Not(HasSubstr("bytes")));
    makeFile("night.mea", "K\xc3\xa4 2000.0 UTC\nA 250223 1200000000 0100000000 +0030000000 001 09.50\n");
    EXPECT_THAT(callCommand({"info", "night.mea"}).out, HasSubstr("UTF-8, line ends LF\n"));
}

TEST_F(RareCalls, InfoLeavesOutWhatATrackHasNot)
{
    makeFile("table.txt", "v2\nQRVName:Text\tdate:Date\ttime:Time\tRA:Float:deg\tDE:Float:deg\tm:Float:mag\n"
                          "A\t2023-02-25\t12:00:00\t15.0\t-0.5\t0\n---\n");
    EXPECT_THAT(callCommand({"info", "--as=table", "--tracks", "table.txt"}).out,
                EndsWith("2023-02-25T12:00:00.000" + std::string(22, ' ') + "\n"));
    EXPECT_THAT(callCommand({"info", "--as=table", "--tracks", "--json", "table.txt"}).out,
                HasSubstr("\"magnitude\":null,\"motion\":null"));
}

TEST_F(RareCalls, NormalFormOfAFileWithoutMarksIsWritten)
{
    const CommandEnd end = callCommand({"normalise", "--from=mea", "-o", "a.mea", "empty.mea"});
    EXPECT_THAT(end.out, HasSubstr("0 marks in, 0 out, 0 left out"));
    EXPECT_TRUE(std::filesystem::exists("a.mea"));
}

TEST_F(RareCalls, OfManyLossesOfAPlottedFileThreeAreShown)
{
    std::string lines = bytesOf("night.mea");
    for (int line = 0; line < 5; ++line) {
        lines += "A 250223 12\n";
    }
    makeFile("broken.mea", lines);
    const auto plot = [](const std::string& option) {
        return callCommand({"plot", "--script", "--as=mea", "broken.mea", option});
    };
    EXPECT_EQ(plot("--force").status, 1);
    EXPECT_THAT(plot("--force").err, HasSubstr("broken.mea: 2 more of V"));
    EXPECT_THAT(plot("--quiet").err, Not(HasSubstr("more of")));
    EXPECT_EQ(plot("--json").err, "");
    EXPECT_THAT(plot("--json").out, HasSubstr("\"totals\":{\"errors\":5,"));
}

TEST_F(RareCalls, PictureOfManyObjectsTellsHowManyAreDrawn)
{
    std::string lines = "K88 2000.0 UTC\n";
    for (char name = 'A'; name <= 'M'; ++name) {
        lines += name + std::string(" 250223 1200000000 0100000000 +0030000000 001 09.50\n");
    }
    makeFile("many.mea", lines);
    EXPECT_EQ(callCommand({"plot", "-o", "a.svg", "many.mea"}).out,
              "a.svg: sky, 12 of 13 objects, 12 points\n");
}

TEST_F(RareCalls, PictureAgainstAnEphemerisIsDrawn)
{
    const std::string source = std::string(VOMAR_PROJECT) + "/tests/companion/plot/against_an_ephemeris/";
    makeFile("night.mea",
             bytesOf(source + "night.mea") + "A 010922 0002000000 2058027900 -0043532500 001 13.80\n");
    makeFile("a.svg", bytesOf(source + "fixed_columns.txt"));
    EXPECT_THAT(callCommand({"plot", "-o", "b.svg", "--against=a.svg", "night.mea"}).out,
                StartsWith("b.svg: residuals, "));
    const CommandEnd end = callCommand({"plot", "-o", "a.svg", "--force", "--against=a.svg", "night.mea"});
    EXPECT_THAT(end.err, HasSubstr("[V005]")); // it is an input too
    EXPECT_EQ(bytesOf("a.svg"), bytesOf(source + "fixed_columns.txt"));
}

TEST_F(RareCalls, PageOfTheStandardInputIsMade)
{
    const char* const command = "exec " VOMAR_COMMAND " page - --as mea -o a.html <night.mea >shown";
    EXPECT_EQ(std::system(command), 0);
    EXPECT_THAT(bytesOf("shown"), StartsWith("a.html: 1 file, 1 object, 2 marks; "));
}

TEST_F(RareCalls, PageOfATaskAloneHasNoStates)
{
    std::filesystem::create_directory("out");
    makeFile("t.xml", "<task><path_in>./night.mea</path_in><out_dir>out</out_dir>"
                      "<outputextension>.txt</outputextension><inputformat>mea</inputformat>"
                      "<outputformat>mea</outputformat><autoname>false</autoname></task>\n");
    EXPECT_THAT(callCommand({"page", "t.xml", "-o", "a.html"}).out,
                StartsWith("a.html: 1 file, 1 task, 1 object, 2 marks; "));
}

TEST_F(RareCalls, PageOfAnOddNameIsToldByItsBytes)
{
    EXPECT_THAT(callCommand({"page", "--json", "night.mea", "-o", "a\xE9.html"}).out,
                HasSubstr("\"path\":{\"bytes\":\"61e92e68746d6c\"}"));
}

TEST_F(RareCalls, StandardInputThatIsClosedCannotBeRead)
{
    const char* const command = "exec " VOMAR_COMMAND " lint --as mea - <&- 2>shown";
    EXPECT_EQ(WEXITSTATUS(std::system(command)), 2);
    EXPECT_THAT(bytesOf("shown"), HasSubstr("Bad file descriptor"));
}

// Letters beyond ASCII are no control characters.
TEST_F(RareCalls, ProfileMayHaveAnyLetters)
{
    makeFile("k88.json", R"({"schema": "tavelin.profile/1", "station": "K88", "observers": ["B. M)"
                         "\u00fc"
                         R"(ller"]})");
    EXPECT_EQ(profileOf("k88.json").observers, "B. M\u00fcller");
    makeFile("k88.json", R"({"schema": "tavelin.profile/1", "station": "K\n88"})");
    EXPECT_THROW(profileOf("k88.json"), WrongUsage);
}

TEST(UncertainFormat, NamesTheTwoNearest)
{
    EXPECT_THAT(uncertainFormat("a", {"mea", 50, "telegram", 40}).text,
                HasSubstr("MEA (50 of 100) or telegram (40 of 100)"));
    EXPECT_THAT(uncertainFormat("a", {"mea", 50, "", 0}).text,
                HasSubstr("MEA (50 of 100) or none that is known"));
    EXPECT_THAT(uncertainFormat("a", {}).text, HasSubstr("none that is known"));
}

} // namespace
