// The page of files and tasks beside its golden cases: what it is written to, and which objects it shows.

#include "command/page_calendar.h"
#include "companion/golden.h"
#include "support/folders.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>

#include <cstdio>
#include <cstdlib>
#include <regex>
#include <string>

namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

const std::string project = VOMAR_PROJECT;
const std::string night = project + "/tests/companion/page/one_night/interleaved_objects.mea";

// A night of so many objects of two marks each; the last has three.
std::string nightOf(int objects)
{
    std::string text = "T1 2000.0 UTC\n";
    for (int i = 0; i < objects; ++i) {
        for (int mark = 0; mark < (i + 1 == objects ? 3 : 2); ++mark) {
            char line[512];
            std::snprintf(line, sizeof line,
                          "A%05d  250223 12%02d000000 0100%02d0000 -0030000000 001 09.50\n", i, mark, mark);
            text += line;
        }
    }
    return text;
}

std::size_t countOf(const std::string& text, const std::string& part)
{
    std::size_t count = 0;
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) {
        ++count;
    }
    return count;
}

// The page of a call that writes to standard output.
std::string pageOf(std::vector<std::string> arguments)
{
    arguments.insert(arguments.begin(), "page");
    arguments.insert(arguments.end(), {"-o", "-"});
    const CommandEnd end = callCommand(arguments);
    EXPECT_LE(end.status, 1) << end.err;
    return end.out;
}

TEST(Page, AFileIsWrittenAndTheSummaryShown)
{
    const std::string source = project + "/tests/companion/page_file/one_night/";
    const TemporaryFolder folder;
    makeFile(folder / "interleaved_objects.mea", bytesOf(source + "interleaved_objects.mea"));
    const PresentFolder present(folder.path());
    ASSERT_EQ(bytesOf(source + "call"), "page interleaved_objects.mea -o night.html\n");
    const CommandEnd text = callCommand({"page", "interleaved_objects.mea", "-o", "night.html"});
    EXPECT_EQ(text.out, bytesOf(source + "text"));
    EXPECT_EQ(text.err, "");
    EXPECT_EQ(text.status, 0);
    EXPECT_EQ(bytesOf("night.html"), bytesOf(project + "/tests/companion/page/one_night/text"));
    const CommandEnd json =
        callCommand({"page", "interleaved_objects.mea", "-o", "night.html", "-f", "--json"});
    EXPECT_EQ(json.out, bytesOf(source + "json"));
    EXPECT_EQ(namesIn(folder.path()), (Names{"interleaved_objects.mea", "night.html"}));
}

TEST(Page, APageThatExistsIsRefusedWithoutForce)
{
    const TemporaryFolder folder;
    makeFile(folder / "night.html", "old");
    const CommandEnd refused = callCommand({"page", night, "-o", folder / "night.html"});
    EXPECT_EQ(refused.status, 2);
    EXPECT_THAT(refused.err, HasSubstr("[V004]"));
    EXPECT_EQ(bytesOf(folder / "night.html"), "old");
    EXPECT_EQ(callCommand({"page", night, "-o", folder / "night.html", "--force"}).status, 0);
    EXPECT_THAT(bytesOf(folder / "night.html"), StartsWith("<!DOCTYPE html>\n"));
}

TEST(Page, AnInputIsNeverWrittenOver)
{
    const TemporaryFolder folder;
    makeFile(folder / "night.mea", bytesOf(night));
    const CommandEnd end =
        callCommand({"page", folder / "night.mea", "-o", folder / "./night.mea", "--force"});
    EXPECT_EQ(end.status, 2);
    EXPECT_THAT(end.err, HasSubstr("[V005]"));
    EXPECT_EQ(bytesOf(folder / "night.mea"), bytesOf(night));
}

TEST(Page, WithoutAnOutputNothingIsRead)
{
    const CommandEnd end = callCommand({"page", "missing.mea"});
    EXPECT_EQ(end.status, 2);
    EXPECT_THAT(end.err, HasSubstr("--output: is missing"));
}

TEST(Page, JsonAndThePageDoNotShareAStream)
{
    const CommandEnd end = callCommand({"page", night, "-o", "-", "--json"});
    EXPECT_EQ(end.status, 2);
    EXPECT_EQ(end.out, "");
}

TEST(Page, AnInputThatCannotBeReadLeavesNoPage)
{
    const TemporaryFolder folder;
    const CommandEnd end = callCommand({"page", night, folder / "missing.mea", "-o", folder / "night.html"});
    EXPECT_EQ(end.status, 2);
    EXPECT_THAT(end.err, HasSubstr("[V003]"));
    EXPECT_EQ(namesIn(folder.path()), Names{});
}

TEST(Page, ResultsAndConfigurationsAreNoInputs)
{
    const CommandEnd end =
        callCommand({"page", project + "/tests/companion/page/task_run/good/result.xml", "-o", "-"});
    EXPECT_EQ(end.status, 2);
    EXPECT_THAT(end.err, HasSubstr("is a result, and no measurement file or task [V001]"));
}

TEST(Page, OfManyObjectsThoseWithTheMostMarksHavePictures)
{
    const TemporaryFolder folder;
    makeFile(folder / "night.mea", nightOf(250));
    const std::string page = pageOf({folder / "night.mea"});
    EXPECT_EQ(countOf(page, "<tr><th scope=\"row\"><"), 251U); // with that of the file
    EXPECT_EQ(countOf(page, "<article class=\"card\""), 200U);
    EXPECT_EQ(countOf(page, "role=\"img\""), 400U);
    EXPECT_THAT(page, HasSubstr("<a href=\"#o250\"><bdi>A00249</bdi></a>"));
    EXPECT_THAT(page, Not(HasSubstr("<a href=\"#o249\">")));
    EXPECT_THAT(page, HasSubstr("200 objects of 250 have pictures; their names lead to them."));
}

TEST(Page, ObjectsThatAreNamedHavePictures)
{
    const std::string page = pageOf({night, "--object", "Z4218", "--object=K11V22U"});
    EXPECT_EQ(countOf(page, "<article class=\"card\""), 2U);
    EXPECT_THAT(page, Not(HasSubstr("Light curve of K11Ue6X")));
    const CommandEnd end = callCommand({"page", night, "--object", "Z4219", "-o", "-"});
    EXPECT_EQ(end.status, 2);
    EXPECT_THAT(end.err, HasSubstr("no object \"Z4219\"; did you mean \"Z4218\"? [V002]"));
}

TEST(Page, AnObjectWithoutANameCanBeSeen)
{
    const TemporaryFolder folder;
    makeFile(folder / "night.txt",
             "v2\nQRVName:Text\tdate:Date\ttime:Time\tRA:Float:deg\tDE:Float:deg\tm:Float:mag\n"
             "\t2023-02-25\t12:00:00.0\t15.0\t-0.5\t9.5\n---\n");
    const std::string page = pageOf({folder / "night.txt", "--as", "table"});
    EXPECT_THAT(page, HasSubstr("<a href=\"#o1\"><bdi>(no name)</bdi></a>"));
    EXPECT_THAT(page, HasSubstr("Light curve of (no name)"));
}

TEST(Page, NothingIsLoadedFromAnywhere)
{
    const std::string page = pageOf({night});
    EXPECT_THAT(page, HasSubstr("default-src &#39;none&#39;;"));
    EXPECT_THAT(page, Not(HasSubstr("http:")));
    EXPECT_THAT(page, Not(HasSubstr("https:")));
    EXPECT_THAT(page, Not(HasSubstr("src=")));
    EXPECT_THAT(page, Not(HasSubstr("@import")));
    EXPECT_THAT(page, Not(HasSubstr("url(")));
    EXPECT_THAT(page, EndsWith("</html>\n"));
}

// The present folder becomes the archive of a case, with the folder of its batch.
class ArchiveOfCase
{
public:
    explicit ArchiveOfCase(const std::string& name) : present(folder.path())
    {
        setenv("TAVELIN", VOMAR_COMMAND, 1);
        setenv("VOMAR", VOMAR_STAND_IN, 1);
        const std::string source = project + "/tests/companion/page/" + name;
        makeFile("t.xml", bytesOf(source + "/t.xml"));
        makeFile("night.mea", bytesOf(source + "/night.mea"));
        const std::string command = "sh -eu '" + source + "/prepare'";
        EXPECT_EQ(std::system(command.c_str()), 0);
    }

private:
    TemporaryFolder folder;
    PresentFolder present;
};

TEST(Page, TheStatesOfABatchAreInTheSummary)
{
    setenv("TAVELIN", VOMAR_COMMAND, 1);
    setenv("VOMAR", VOMAR_STAND_IN, 1);
    expectGoldenMade("page_file", "batch");
}

TEST(Page, NothingOfABatchIsWrittenOver)
{
    const ArchiveOfCase archive("batch_of_another_folder");
    for (const char* path :
         {"survey/first/plan.json", "survey/first/tasks/000001_T9.xml", "survey/first/receipts/000001.json",
          "survey/archive/2025-02-23/T9.mea", "survey/reports/2025-02-23/T9.txt"})
    {
        const std::string before = bytesOf(path);
        ASSERT_NE(before, "") << path;
        const CommandEnd end = callCommand({"page", "survey/first", "-o", path, "--force"});
        EXPECT_EQ(end.status, 2) << path;
        EXPECT_THAT(end.err, HasSubstr("[V005]")) << path;
        EXPECT_EQ(bytesOf(path), before) << path;
    }
}

TEST(Page, ABatchMayStandBesideItsFiles)
{
    const ArchiveOfCase archive("batch");
    const std::string page = pageOf({"work", "archive/2025-02-23/T9.mea", "work/tasks/000001_T9.xml"});
    EXPECT_THAT(page, HasSubstr("<dt>tasks</dt><dd>8</dd>"));
    EXPECT_THAT(page, HasSubstr("<dt>files</dt><dd>6</dd>"));
    EXPECT_THAT(page, HasSubstr("7 tasks: 3 up to date, 1 failed, 1 without input, 2 to run."));
    EXPECT_THAT(page, HasSubstr("<h2 id=\"tasks\">Tasks</h2>"));
    EXPECT_EQ(countOf(page, "<tr id=\"night-"), 7U);
}

TEST(Page, ABatchWithoutTasksIsAPage)
{
    const ArchiveOfCase archive("batch_of_another_folder");
    ASSERT_EQ(callCommand({"batch", "survey/first", "--forget", "1"}).status, 0);
    const CommandEnd end = callCommand({"page", "survey/first", "-o", "-"});
    EXPECT_EQ(end.status, 0);
    EXPECT_THAT(end.out, HasSubstr("The batch has no tasks."));
}

TEST(Page, ANightIsNamedByThePathOfItsFile)
{
    struct Row
    {
        const char* path;
        const char* first;
        const char* night;
    };
    const Row rows[] = {
        {"archive/2024-01-20/T9.mea", "2024-01-20T21:48:27.0", "2024-01-20"},
        {"archive/2024-01-20/T9.mea", "2024-01-21T00:48:27.0", "2024-01-20"}, // the evening before
        {"archive/2024-01-20/T9.mea", "2024-01-19T23:48:27.0", "2024-01-20"},
        {"archive/2024-01-20/T9.mea", "2024-01-22T00:48:27.0", "2024-01-22"}, // a date of something else
        {"K88_20240120.mea", "2024-01-21T00:48:27.0", "2024-01-20"},
        {"2024/01/20/T9.mea", "2024-01-21T00:48:27.0", "2024-01-20"},
        {"20231231/K88_20240101.mea", "2024-01-01T00:48:27.0", "2024-01-01"},
        {"K88_20240120.mea", "", "2024-01-20"},
        {"K88_120240120.mea", "", ""},
        {"K88_202401200.mea", "", ""},
        {"K88_20240230.mea", "", ""},
        {"K88_2024-01_20.mea", "", ""},
        {"K88_2024x01x20.mea", "", ""},
        {"2024", "", ""},
        {"2024-01-", "", ""},
        {"2024-1.mea", "", ""},
        {"", "", ""},
        {"night.mea", "2024-01-21T00:48:27.0", "2024-01-21"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(companion::nightOf(row.path, row.first), row.night) << row.path << ' ' << row.first;
    }
}

TEST(Page, AFileThatSeveralTasksReadCountsOnce)
{
    const PresentFolder present(project + "/tests/companion/page/task_run");
    const std::string page = pageOf({"good.xml", "old.xml"});
    EXPECT_THAT(page, HasSubstr("<dt>marks</dt><dd>3</dd>"));
    EXPECT_THAT(page, HasSubstr("<b>6</b> marks read by the tasks"));
}

TEST(Page, MarksThatNoPictureCanHoldAreCounted)
{
    const TemporaryFolder folder;
    makeFile(folder / "night.mea", "T1 2000.0 UTC\n"
                                   "A000001 250223 1200000000 0100000000 -0030000000 001 09.50\n"
                                   "A000001 250223 1201000000 0100000000 -0030000000 001 1e300\n");
    const std::string page = pageOf({folder / "night.mea"});
    EXPECT_THAT(page, HasSubstr("1 mark without a time or a magnitude that can be is in no light curve."));
    EXPECT_THAT(page, HasSubstr("Light curve: 1 mark, magnitude 9.50<"));
}

TEST(Page, OneObjectOfManyMarksIsASmallPage)
{
    const TemporaryFolder folder;
    std::string text = "T1 2000.0 UTC\n";
    for (int i = 0; i < 50'000; ++i) {
        char line[512];
        std::snprintf(line, sizeof line, "A000001 250223 %02d%02d%02d%04d 0100%06d -0030%06d 001 %05.2f\n",
                      i / 3600, i / 60 % 60, i % 60, 0, i, i, 9.0 + i % 100 / 50.0);
        text += line;
    }
    makeFile(folder / "night.mea", text);
    const std::string page = pageOf({folder / "night.mea"});
    EXPECT_THAT(page, HasSubstr("Light curve: 50,000 marks"));
    EXPECT_LT(page.size(), 80'000U);
}

} // namespace
