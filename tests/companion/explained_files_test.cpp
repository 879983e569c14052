// What is said of results and tasks in states that the golden cases do not have.

#include "command/explanation.h"
#include "companion/golden.h"
#include "support/folders.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <string>

namespace {

using companion::ResultEntry;
using testing::HasSubstr;

// A night of two marks and a file of no known format, in the present folder.
class Explained : public testing::Test
{
protected:
    Explained()
    {
        makeFile("night.mea", "K88 2000.0 UTC\n"
                              "A 250223 1200000000 0100000000 +0030000000 001 09.50\n"
                              "A 250223 1300000000 0100000000 +0030000000 001 09.50\n");
        makeFile("odd.txt", "what is this?\n");
    }

    TemporaryFolder folder;
    PresentFolder present{folder.path()};
};

// What is said of a single entry of a result file.
std::string explained(const ResultEntry& entry)
{
    return companion::explanationOfResult("a.result", {entry}).text;
}

TEST_F(Explained, ResultWithoutTextsHasItsCodeAlone)
{
    EXPECT_THAT(explained({-999, "", "", ""}), HasSubstr("\ncode -999\n    No module of the pipeline has"));
    EXPECT_THAT(explained({-999, "", "text", "2024-01-20"}), HasSubstr("\n2024-01-20: code -999, text\n"));
}

// The tool writes code 0 with the comment "OK" only.
TEST_F(Explained, CodeOfTheLibraryWithOtherTextsIsExplainedByIt)
{
    EXPECT_THAT(explained({0, "well", "done", ""}), HasSubstr("The library says this where all is well."));
}

TEST_F(Explained, FilesOfAResultAreToldByWhatTheyHold)
{
    makeFile("cut.tel", "K88 T1 A\n250223 12000000 01000000 00300000 001095\n");
    makeFile("whole.tel", "K88 T1 A\n250223 12000000 01000000 00300000 001095\nEND\n\n");
    makeFile("a.conf", bytesOf(std::string(VOMAR_PROJECT) +
                               "/tests/companion/run/settings_changed/series/night1/night1.conf"));
    const std::string text = explained({0, "OK", "cut.tel;whole.tel;odd.txt;a.conf;missing;", ""});
    EXPECT_THAT(text, HasSubstr("    cut.tel: there, telegram, 1 mark, cut off\n"
                                "    whole.tel: there, telegram, 1 mark\n"
                                "    odd.txt: there\n"
                                "    a.conf: there, configuration\n"));
    EXPECT_THAT(text, HasSubstr("    missing: missing\n"));
}

// The sentences of a task of these keys.
std::string sentencesOf(const std::string& keys)
{
    makeFile("t.xml", "<task>" + keys + "</task>\n");
    return callCommand({"explain", "--as=task", "t.xml"}).out;
}

std::string conversionTo(const std::string& word)
{
    return "<path_in>./night.mea</path_in><out_dir>out</out_dir><outputextension>.txt</outputextension>"
           "<inputformat>mea</inputformat><outputformat>" +
           word + "</outputformat><autoname>false</autoname>";
}

TEST_F(Explained, TaskOfUnknownWordsIsExplainedWithThem)
{
    EXPECT_THAT(sentencesOf("<path_in>./night.mea</path_in><inputformat>nonsense</inputformat>"),
                HasSubstr("It reads ./night.mea as \"nonsense\" (0 tracks, 0 marks).\n"));
}

TEST_F(Explained, TaskOfALightCurveIsExplainedWithoutTheWordFile)
{
    std::filesystem::create_directory("out");
    EXPECT_THAT(sentencesOf(conversionTo("mag")),
                HasSubstr("It writes the light curve out/night.txt: 2 marks.\n"));
}

TEST_F(Explained, TaskWhoseRunDiesIsExplainedWithItsEnd)
{
    std::filesystem::create_directories("out/night.txt");
    EXPECT_THAT(sentencesOf(conversionTo("mea")),
                HasSubstr("The run would die with status 134, without a result.\n"));
}

// A report of two objects, the first of two marks, with these keys.
std::string reportOf(const std::string& keys, const std::string& excludes = "")
{
    std::filesystem::create_directories("s1/tavelin/dataVO");
    std::filesystem::create_directory("out");
    makeFile("s1/tavelin/dataVO/obj.txt",
             "v2\nQRVName:Text\tdate:Date\ttime:Time\tRA:Float:deg\tDE:Float:deg\tm:Float:mag\n"
             "A\t2023-02-25\t12:00:00\t15.0\t-0.5\t9.5\nA\t2023-02-25\t12:00:30\t15.0\t-0.5\t9.5\n---\n"
             "B\t2023-02-25\t12:00:00\t15.0\t-0.5\t9.5\n---\n");
    return "<out_dir>out</out_dir><outputextension>txt</outputextension><inputformat>vomar</inputformat>"
           "<outputformat>mea</outputformat><originator>K88</originator>" +
           keys + "<paths><seria><path>s1/tavelin/dataVO/obj.txt</path><filtr>R</filtr>" + excludes +
           "<telescope>T9</telescope></seria></paths>";
}

TEST_F(Explained, ReportWithoutConfigurationsNamesItsTablesAlone)
{
    const std::string text =
        sentencesOf(reportOf("<toSeparateFile>eachgroup</toSeparateFile><interval>1</interval>"));
    EXPECT_THAT(text, HasSubstr("It reads 1 track table (2 tracks, 3 marks).\n"));
    EXPECT_THAT(text, HasSubstr("it is cut where two marks are 1 minute or more apart.\n"));
}

TEST_F(Explained, ReportOfNoKnownDivisionWritesNothing)
{
    const std::string text = sentencesOf(reportOf("<toSeparateFile>nonsense</toSeparateFile>"));
    EXPECT_THAT(text, HasSubstr("The tracks are not divided into files: toSeparateFile is no known word.\n"));
    EXPECT_THAT(text, HasSubstr("It would write no file.\n"));
}

TEST_F(Explained, MarksThatAreExcludedAreCounted)
{
    const std::string keys = "<toSeparateFile>allobjects</toSeparateFile>";
    EXPECT_THAT(sentencesOf(reportOf(keys, "<excludes>1;0</excludes>")),
                HasSubstr("1 mark is left out by excludes.\n"));
    EXPECT_THAT(sentencesOf(reportOf(keys, "<excludes>0;0;1</excludes>")),
                HasSubstr("2 marks are left out by excludes.\n"));
}

} // namespace
