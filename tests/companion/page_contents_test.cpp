// What a page is gathered from: files and tasks in states that the golden cases do not have.

#include "command/page_contents.h"

#include "running/batch_plan.h"
#include "running/content_hash.h"
#include "running/receipts.h"
#include "support/folders.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <sstream>

namespace {

namespace fs = std::filesystem;
using namespace companion;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

const char* const night = "T9 2000.0 UTC\n"
                          "12345   250223 1200000000 0100000000 -0030000000 001 09.50\n"
                          "12345   250223 1201000000 0100000000 -0030000000 001 09.50\n";

// Gathers in a folder of its own, which is the present one.
class Gathered
{
public:
    Gathered() : present(folder.path())
    {
        makeFile("night.mea", night);
        fs::create_directory("out");
    }

    // A conversion of the night without a result file.
    void makeConversion(const std::string& word)
    {
        makeFile("t.xml", "<task><path_in>./night.mea</path_in><out_dir>out</out_dir>"
                          "<outputextension>.txt</outputextension><inputformat>mea</inputformat>"
                          "<outputformat>" +
                              word +
                              "</outputformat><originator>K88</originator><PARTICIPANT_1>T9</PARTICIPANT_1>"
                              "<REFERENCE_FRAME>ICRF</REFERENCE_FRAME><autoname>false</autoname></task>\n");
    }

    PageContents add(const std::string& path, const std::string& format,
                     const std::vector<std::string>& pictured = {})
    {
        PageGatherer gatherer(console);
        gatherer.add(path, path, format);
        return gatherer.finish(pictured);
    }

    PageContents addBatch(const std::string& path)
    {
        PageGatherer gatherer(console);
        gatherer.addBatch(path);
        return gatherer.finish({});
    }

    std::ostringstream out;
    Console console{out, out};

private:
    TemporaryFolder folder;
    PresentFolder present;
};

std::vector<std::string> codesOf(const PageContents& contents)
{
    std::vector<std::string> codes;
    for (const auto& [key, group] : contents.findings) {
        codes.push_back(key.second.text());
    }
    return codes;
}

std::string tableOf(const std::string& lines)
{
    return "v2\nQRVName:Text\tdate:Date\ttime:Time\tRA:Float:deg\tDE:Float:deg\tm:Float:mag\n" + lines;
}

TEST(PageContents, MarksOfNoCalendarAreInNoPicture)
{
    Gathered gathered;
    makeFile("night.txt", tableOf("A\tnonsense\t12:00:00\t15.0\t-0.5\t9.5\n"
                                  "A\t12000-01-01\t12:00:00\t15.0\t-0.5\t9.5\n"
                                  "A\t2023-02-25\t12:00:00\t15.0\t-0.5\t9.5\n---\n"
                                  "B\tnonsense\t12:00:00\t15.0\t-0.5\t9.5\n---\n"));
    const PageContents contents = gathered.add("night.txt", "table");
    EXPECT_EQ(contents.undrawn, 3u);
    ASSERT_EQ(contents.objects.at("A").paths.size(), 1u);
    EXPECT_EQ(contents.objects.at("A").paths[0].size(), 1u);
    EXPECT_THAT(contents.objects.at("B").paths, IsEmpty());
    EXPECT_FALSE(contents.objects.at("B").isPictured);
    EXPECT_TRUE(contents.objects.at("A").isPictured);
}

TEST(PageContents, ObjectThatIsNamedTwiceHasItsPicturesOnce)
{
    Gathered gathered;
    EXPECT_EQ(gathered.add("night.mea", "mea", {"12345", "12345"}).pictured(), 1u);
}

TEST(PageContents, OfManyFindingsTheFirstTenAreKept)
{
    Gathered gathered;
    PageGatherer gatherer(gathered.console);
    for (int number = 0; number < 11; ++number) {
        const std::string path = "odd" + std::to_string(number);
        makeFile(path, "what is this?\n");
        gatherer.add(path, path, "");
    }
    const PageContents contents = gatherer.finish({});
    ASSERT_EQ(contents.findings.size(), 1u);
    EXPECT_EQ(contents.findings.begin()->second.count, 11u);
    EXPECT_EQ(contents.findings.begin()->second.first.size(), 10u);
}

TEST(PageContents, ConfigurationIsNoInput)
{
    Gathered gathered;
    makeFile("a.conf", "<root/>");
    EXPECT_THROW(gathered.add("a.conf", "configuration"), WrongUsage);
    EXPECT_THROW(gathered.add("a.conf", "result"), WrongUsage);
}

TEST(PageContents, TaskThatCannotBeLoadedHasItsFindings)
{
    Gathered gathered;
    makeFile("t.xml", "<task><path_in>");
    const PageContents contents = gathered.add("t.xml", "task");
    ASSERT_EQ(contents.tasks.size(), 1u);
    EXPECT_FALSE(contents.tasks[0].hasPlan);
    ASSERT_FALSE(contents.findings.empty());
    EXPECT_EQ(contents.findings.begin()->second.first.at(0).file, "t.xml");
}

TEST(PageContents, FilesThatAreNotMadeAreNotLookedFor)
{
    Gathered gathered;
    gathered.makeConversion("nonsense");
    EXPECT_THAT(gathered.add("t.xml", "task").tasks.at(0).outputs, IsEmpty());
}

TEST(PageContents, OutputThatIsAsPlannedIsComplete)
{
    Gathered gathered;
    gathered.makeConversion("mea");
    EXPECT_FALSE(gathered.add("t.xml", "task").tasks.at(0).wasRun());
    makeFile("out/night.txt", night);
    const PageContents contents = gathered.add("t.xml", "task");
    EXPECT_TRUE(contents.tasks.at(0).wasRun());
    EXPECT_EQ(contents.tasks.at(0).found(), 2u);
    EXPECT_THAT(contents.tasks.at(0).results, IsEmpty());
    EXPECT_THAT(codesOf(contents), Not(Contains("V417")));
}

TEST(PageContents, OutputOfOtherMarksIsTold)
{
    Gathered gathered;
    gathered.makeConversion("mea");
    std::string other = night;
    other.replace(other.find("1200000000"), 10, "1100000000");
    makeFile("out/night.txt", other);
    EXPECT_THAT(codesOf(gathered.add("t.xml", "task")), Contains("V417"));
}

TEST(PageContents, OutputThatBreaksOffIsTold)
{
    Gathered gathered;
    gathered.makeConversion("telegram");
    const std::string marks = "250223 12000000 01000000 -00300000 001095\n"
                              "250223 12010000 01000000 -00300000 001095\n";
    makeFile("out/night.txt", "K88 T9 12345\n" + marks);
    EXPECT_THAT(codesOf(gathered.add("t.xml", "task")), Contains("V416"));
    makeFile("out/night.txt", "K88 T9 12345\n" + marks + "END\n\n");
    EXPECT_THAT(codesOf(gathered.add("t.xml", "task")), Not(Contains("V416")));
}

// The tool would remove an empty folder that has the name.
TEST(PageContents, OutputThatCannotBeReadIsTold)
{
    Gathered gathered;
    gathered.makeConversion("mag");
    fs::create_directory("out/night.txt");
    EXPECT_THAT(codesOf(gathered.add("t.xml", "task")), Contains("V003"));
}

// A report of two objects, each in a file of its own.
void makeReport(const std::string& series, const std::string& division = "eachobject")
{
    fs::create_directories("s1/tavelin/dataVO");
    makeFile("s1/tavelin/dataVO/obj.txt", tableOf("A\t2023-02-25\t12:00:00\t15.0\t-0.5\t9.5\n---\n"
                                                  "B\t2023-02-25\t12:00:00\t15.0\t-0.5\t9.5\n---\n"));
    makeFile("t.xml", "<task><out_dir>out</out_dir><outputextension>txt</outputextension>"
                      "<inputformat>vomar</inputformat><outputformat>mea</outputformat>"
                      "<originator>K88</originator><longname>false</longname>"
                      "<toSeparateFile>" +
                          division + "</toSeparateFile><paths>" + series + "</paths></task>\n");
}

const std::string seria = "<seria><path>s1/tavelin/dataVO/obj.txt</path><filtr>R</filtr>"
                          "<telescope>T9</telescope></seria>";

TEST(PageContents, OneOfSeveralFilesMayBeMissing)
{
    Gathered gathered;
    makeReport(seria);
    const PageContents before = gathered.add("t.xml", "task");
    ASSERT_EQ(before.tasks.at(0).outputs.size(), 2u);
    EXPECT_THAT(codesOf(before), Not(Contains("V415")));
    makeFile(before.tasks[0].outputs[1].path, "T9 2000.0 UTC\n");
    const PageContents after = gathered.add("t.xml", "task");
    EXPECT_THAT(codesOf(after), Contains("V415"));
    EXPECT_THAT(codesOf(after), Contains("V416"));
}

TEST(PageContents, FileThatALaterOneReplacesIsNoOutput)
{
    Gathered gathered;
    makeReport(seria + seria, "eachseria");
    const PageContents contents = gathered.add("t.xml", "task");
    EXPECT_EQ(contents.tasks.at(0).outputs.size(), 1u);
    EXPECT_EQ(contents.marks.overwritten, 2u);
}

// The receipt of a task that failed; its findings are those that its run had.
Receipt failedReceipt(const Json& findings)
{
    Receipt receipt;
    receipt.number = 1;
    receipt.task = "000001_a.xml";
    receipt.taskHash = contentHash("<task><path_in>");
    receipt.status = "failed";
    receipt.findings = findings;
    return receipt;
}

Json findingOf(const std::string& code, const std::string& file)
{
    return Json::object()
        .set("code", code)
        .set("severity", "error")
        .set("text", code + " text")
        .set("file", file);
}

// What is known of the task already is not said again.
TEST(PageContents, FindingsOfARunAreThoseThatItsFilesDoNotShow)
{
    Gathered gathered;
    fs::create_directories("work/tasks");
    fs::create_directories("work/receipts");
    makeFile("work/tasks/000001_a.xml", "<task><path_in>");
    const BatchFolder work("work");
    BatchPlan plan;
    plan.folder = "..";
    plan.next = 2;
    plan.tasks = {{1, "000001_a.xml", "", {{"night.mea", 1, 1}}, "", "", {}}};
    writePlan(work, plan);
    const PageContents before = gathered.addBatch("work");
    ASSERT_EQ(before.findings.size(), 1u);
    const std::string known = codesOf(before).front();
    writeReceipt(work, failedReceipt(Json::list()
                                         .push(findingOf(known, ""))
                                         .push(findingOf("nonsense", ""))
                                         .push(findingOf("V411", ""))
                                         .push(findingOf("V419", "night.mea"))));
    const PageContents contents = gathered.addBatch("work");
    EXPECT_TRUE(contents.tasks.at(0).wasRun());
    EXPECT_THAT(codesOf(contents), testing::UnorderedElementsAre(known, "V411", "V419"));
    EXPECT_EQ(contents.findings.at({Severity::error, FindingCode("V411")}).first[0].file,
              "work/tasks/000001_a.xml");
    EXPECT_EQ(contents.findings.at({Severity::error, FindingCode("V419")}).first[0].file, "night.mea");
}

} // namespace
