// Inputs that are there and cannot be read: no subcommand takes the front of a file for the whole.

#include "companion/golden.h"
#include "support/broken_files.h"
#include "support/folders.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

class UnreadableInputs : public testing::TestWithParam<std::vector<std::string>>
{
};

INSTANTIATE_TEST_SUITE_P(Subcommands, UnreadableInputs,
                         testing::Values(std::vector<std::string>{"lint", "night.mea"},
                                         std::vector<std::string>{"lint", "--as", "mea", "night.mea"},
                                         std::vector<std::string>{"info", "night.mea"},
                                         std::vector<std::string>{"normalise", "night.mea", "-o", "copy.mea"},
                                         std::vector<std::string>{"ready", "night.mea", "--for", "mpc", "-o",
                                                                  "copy.mea"},
                                         std::vector<std::string>{"diff", "night.mea", "night.mea"},
                                         std::vector<std::string>{"plot", "night.mea", "-o", "copy.svg"},
                                         std::vector<std::string>{"page", "night.mea", "-o", "copy.html"}),
                         [](const testing::TestParamInfo<std::vector<std::string>>& call) {
                             return call.param[0] + std::to_string(call.index);
                         });

} // namespace

TEST_P(UnreadableInputs, AreToldAndNothingIsWritten)
{
    const TemporaryFolder folder;
    const PresentFolder present(folder.path());
    fs::create_symlink(brokenFile, "night.mea");
    const CommandEnd end = callCommand(GetParam());
    EXPECT_EQ(end.status, 2);
    EXPECT_EQ(end.err, "tavelin: night.mea: cannot be read to its end [V003]\n");
    EXPECT_EQ(end.out, "");
    EXPECT_EQ(std::distance(fs::directory_iterator("."), fs::directory_iterator()), 1);
}
