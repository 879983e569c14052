// What lint says of a file as a whole, and which of its findings are wanted.

#include "reading/lint.h"

#include "companion/lint_outputs.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using companion::FileAccount;
using companion::FindingCode;
using companion::LintLayer;
using companion::LintOutput;
using testing::IsEmpty;

// Why a file cannot be looked at.
std::string refusalOf(const std::string& path)
{
    try {
        companion::lintFile(path, "mea", {}, [](const companion::Finding&) {});
    } catch (const companion::WrongUsage& wrong) {
        return wrong.why.text;
    }
    return "";
}

} // namespace

TEST(LintOutput, LayersOfCodes)
{
    EXPECT_EQ(companion::layerOf(FindingCode("V100")), LintLayer::reader);
    EXPECT_EQ(companion::layerOf(FindingCode("V120")), LintLayer::person);
    EXPECT_EQ(companion::layerOf(FindingCode("V140")), LintLayer::reader);
    EXPECT_EQ(companion::layerOf(FindingCode("V310")), LintLayer::receiver);
    EXPECT_EQ(companion::layerOf(FindingCode("V400")), LintLayer::reader);
}

TEST(LintOutput, AnAccountWhoseSumsDoNotAgreeIsToldWhateverIsWanted)
{
    companion::LintSettings nothing;
    nothing.reader = false;
    nothing.person = false;
    const auto toldOf = [&nothing](const FileAccount& account) {
        return lintOutputs::toldBy([&account](LintOutput& out) { out.mustAgree(account); }, nothing);
    };
    FileAccount account;
    account.lines = 3;
    account.head = 1;
    account.marks = 2;
    account.marksRead = 2;
    EXPECT_THAT(toldOf(account), IsEmpty());
    account.marksRead = 3;
    ASSERT_EQ(toldOf(account).size(), 1U);
    EXPECT_EQ(toldOf(account)[0].code.text(), "V490");
    EXPECT_EQ(toldOf(account)[0].file, "night.txt");
    EXPECT_NE(toldOf(account)[0].text.find("3 lines and 3 marks do not come to the fates of the lines"),
              std::string::npos);
    account.repeated = 1;
    EXPECT_THAT(toldOf(account), IsEmpty());
    account.lines = 4;
    EXPECT_EQ(toldOf(account).size(), 1U);
}

TEST(LintOutput, FilesThatCannotBeRead)
{
    const TemporaryFolder folder;
    EXPECT_EQ(refusalOf(folder / "missing"), (folder / "missing") + ": No such file or directory");
    EXPECT_EQ(refusalOf(folder.path()), folder.path() + ": is a folder");
}
