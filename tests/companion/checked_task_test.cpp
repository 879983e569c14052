// What the check of a task finds out, where no kept case shows it.

#include "task/checked_task.h"

#include "support/child_process.h"
#include "support/folders.h"
#include "support/system_faults.h"
#include "support/tasks.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace {

using namespace companion;

// A conversion of a night with two northern marks, in a folder of its own.
class CheckOfAConversion : public testing::Test
{
protected:
    CheckOfAConversion()
    {
        std::filesystem::create_directory("out");
        makeFile("night.mea", "T1 2000.0 UTC\n"
                              "AST1000 250223 1200000000 0100000000 +0030000000 001 09.50\n"
                              "AST1000 250223 1300000000 0100000000 +0030000000 001 09.50\n");
    }

    static CheckedTask checkedTo(const std::string& format, const std::string& extension,
                                 const CheckSettings& settings = {})
    {
        makeFile("task.xml", taskText({{"path_in", "./night.mea"},
                                       {"out_dir", "out"},
                                       {"inputformat", "mea"},
                                       {"outputformat", format},
                                       {"outputextension", extension},
                                       {"PARTICIPANT_1", "T1"},
                                       {"autoname", "false"},
                                       {"path_res", "./result.xml"}}));
        return TaskChecker(settings).check("task.xml");
    }

    static const Finding* findingOf(const CheckedTask& checked, const std::string& code)
    {
        const auto found = std::find_if(checked.findings.begin(), checked.findings.end(),
                                        [&code](const Finding& each) { return each.code.text() == code; });
        return found == checked.findings.end() ? nullptr : &*found;
    }

private:
    TemporaryFolder folder;
    PresentFolder present{folder.path()};
};

TEST_F(CheckOfAConversion, RulesOfFormAreListedForTheReceiverThatIsAskedFor)
{
    CheckSettings settings;
    const CheckedTask brief = checkedTo("mpc", ".txt", settings);
    EXPECT_NE(findingOf(brief, "V301"), nullptr);
    EXPECT_EQ(findingOf(brief, "V314"), nullptr);
    settings.receiver = "mpc";
    const CheckedTask whole = checkedTo("mpc", ".txt", settings);
    EXPECT_EQ(findingOf(whole, "V301"), nullptr);
    ASSERT_NE(findingOf(whole, "V314"), nullptr); // declinations without a sign
    EXPECT_EQ(findingOf(whole, "V314")->count, 2u);
    settings.receiver = "ades";
    EXPECT_NE(findingOf(checkedTo("mpc", ".txt", settings), "V301"), nullptr);
}

TEST_F(CheckOfAConversion, AFaultOfTheFileIsAtNoMark)
{
    const CheckedTask checked = checkedTo("aavso", ".dat");
    const Finding* const found = findingOf(checked, "V364");
    ASSERT_NE(found, nullptr);
    EXPECT_EQ(found->file, "task.xml");
    ASSERT_EQ(found->places.size(), 1u);
    EXPECT_EQ(found->places[0].mark.track, -1);
    const Finding* const ofMarks = findingOf(checked, "V362"); // of no ensemble magnitude
    ASSERT_NE(ofMarks, nullptr);
    EXPECT_EQ(ofMarks->places.at(1).mark.mark, 1);
}

TEST_F(CheckOfAConversion, AnInputWithoutRightsIsNotRead)
{
    EXPECT_EQ(checkedTo("mea", ".txt").inputs.size(), 1u);
    expectTrueInChild([] {
        setFaults(faultsOfAccess(EACCES));
        const CheckedTask checked = checkedTo("mea", ".txt");
        return checked.inputs.empty() && findingOf(checked, "V060") != nullptr;
    });
}

} // namespace
