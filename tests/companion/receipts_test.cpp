#include "running/receipts.h"

#include "running/content_hash.h"
#include "support/folders.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>

#include <filesystem>

namespace {

using namespace companion;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

// The folder of a batch, which is the present one.
class Work
{
public:
    Work() : present(temporary.path())
    {
        std::filesystem::create_directory("receipts");
        makeFile("task.xml", "<task/>");
        makeFile("input.mea", "bytes");
    }

    const BatchFolder folder{"."};

private:
    TemporaryFolder temporary;
    PresentFolder present;
};

FileRecord recordOfFile(const std::string& path)
{
    return recordOf(stampOf(path, fileState(path)));
}

// Of a run that ended well.
Receipt goodReceipt()
{
    Receipt receipt;
    receipt.number = 1;
    receipt.task = "task.xml";
    receipt.taskHash = contentHash("<task/>");
    receipt.status = "good";
    receipt.code = 0;
    receipt.inputs = {recordOfFile("input.mea")};
    receipt.findings = Json::list();
    return receipt;
}

Receipt withFindings(std::vector<ReceiptError> errors)
{
    Receipt receipt;
    receipt.status = "findings";
    receipt.code = 0;
    receipt.errors = std::move(errors);
    return receipt;
}

TEST(Receipts, OfATaskThatWasNotStartedHasNeitherCodeNorResult)
{
    const Work work;
    const BatchTask task{.number = 1, .name = "task.xml"};
    const CheckedTask unplanned{};
    const Receipt receipt = receiptOf({task, unplanned, nullptr, "refused"}, "task.xml", {});
    EXPECT_EQ(receipt.code, std::nullopt);
    EXPECT_EQ(receipt.found, 0u);
    writeReceipt(work.folder, receipt);
    const std::string text = bytesOf("receipts/000001.json");
    EXPECT_THAT(text, HasSubstr("\"code\":null"));
    EXPECT_THAT(text, HasSubstr("\"result\":null"));
    EXPECT_THAT(text, HasSubstr("\"accounting\":null"));
    const auto read = readReceipt(work.folder, 1);
    ASSERT_TRUE(read);
    EXPECT_EQ(read->code, std::nullopt);
    EXPECT_EQ(read->result, "");
    EXPECT_EQ(read->status, "refused");
    EXPECT_EQ(read->taskHash, contentHash("<task/>"));
}

TEST(Receipts, OfAnotherTaskIsNone)
{
    const Work work;
    writeReceipt(work.folder, goodReceipt());
    std::filesystem::rename("receipts/000001.json", "receipts/000002.json");
    EXPECT_FALSE(readReceipt(work.folder, 2));
    EXPECT_FALSE(readReceipt(work.folder, 1));
}

TEST(Receipts, StandWhileNothingHasChanged)
{
    const Work work;
    const Receipt receipt = goodReceipt();
    EXPECT_EQ(whyStale(receipt, "task.xml", {}), "");
    makeFile("input.mea", "other bytes");
    EXPECT_EQ(whyStale(receipt, "task.xml", {}), "an input has changed");
    EXPECT_EQ(whyStale(receipt, "input.mea", {}), "the task has changed");
    EXPECT_EQ(whyStale(withFindings({{"V490", "text"}}), "task.xml", {}), "it did not end well");
}

TEST(Receipts, ResultThatIsGoneIsAnOutputThatDoesNotStand)
{
    const Work work;
    Receipt receipt = goodReceipt();
    receipt.result = "result.log";
    EXPECT_EQ(whyStale(receipt, "task.xml", {}), "an output is not as it was written");
    makeFile("result.log", "");
    EXPECT_EQ(whyStale(receipt, "task.xml", {}), "");
}

TEST(Receipts, ConfigurationsAreComparedAsTheyAreAndAsTheyWouldBeTaken)
{
    const Work work;
    std::filesystem::create_directories("s1/tavelin/dataVO");
    makeFile("s1/tavelin/dataVO/obj.txt", "v2\n");
    makeFile("s1/s1.conf", "<root/>");
    Receipt receipt = goodReceipt();
    receipt.isReport = true;
    receipt.inputs = {recordOfFile("s1/tavelin/dataVO/obj.txt")};
    receipt.configurations = {recordOfFile("s1/s1.conf")};
    EXPECT_EQ(whyStale(receipt, "task.xml", {}), "");
    makeFile("s1/s1.conf", "<root></root>");
    EXPECT_EQ(whyStale(receipt, "task.xml", {}), "a configuration has changed");
    receipt.configurations.clear();
    EXPECT_EQ(whyStale(receipt, "task.xml", {}), "a configuration has changed");
}

// What is written of a task that failed is not all, whatever the findings.
TEST(Receipts, FindingsAloneAreAGoodEndWhereTheResultIsThatOfTheTool)
{
    EXPECT_TRUE(hasEndedWell(withFindings({{"V311", "text"}})));
    Receipt failed = withFindings({});
    failed.code = -1;
    EXPECT_FALSE(hasEndedWell(failed));
    failed.code.reset();
    EXPECT_FALSE(hasEndedWell(failed));
    EXPECT_FALSE(hasEndedWell(withFindings({{"V490", "text"}})));
}

TEST(Receipts, ThreeErrorsAreShownOfThoseThatAreNotAllowed)
{
    const Receipt receipt = withFindings(
        {{"V311", "one"}, {"V302", "two"}, {"other", "three"}, {"V319", "four"}, {"V315", "five"}});
    EXPECT_THAT(firstErrorsBut({"V302"}, receipt), ElementsAre("one [V311]", "three [other]", "four [V319]"));
    EXPECT_FALSE(isGoodButFor(receipt, {"V302", "V311", "V319", "V315"}));
    EXPECT_TRUE(isGoodButFor(withFindings({{"V311", "one"}}), {"V311"}));
    EXPECT_THAT(firstErrorsBut({}, withFindings({})), IsEmpty());
}

} // namespace
