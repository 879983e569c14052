// Pipes: every command that looks into a file takes one that can be read only once.

#include "companion/golden.h"
#include "support/folders.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>
#include <vector>

#include <sys/stat.h>

namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;

const std::string night = "K88 2000.0 UTC\n"
                          "X1 061110 0430138240 0255387401 -0313126984 001 18.87\n"
                          "X1 061110 0431138240 0255387501 -0313126984 001 18.97\n";

// What a call gives, and what it makes.
struct Outcome
{
    CommandEnd end{};
    std::string made{};
};

// A call in a folder of its own, where night.mea and other.mea are files or pipes.
Outcome outcomeOf(const std::vector<std::string>& arguments, bool arePipes)
{
    const TemporaryFolder folder;
    const PresentFolder present(folder.path());
    std::vector<std::thread> writers;
    for (const char* name : {"night.mea", "other.mea"}) {
        if (!arePipes) {
            makeFile(name, night);
        } else if (std::find(arguments.begin(), arguments.end(), name) != arguments.end()) {
            EXPECT_EQ(mkfifo(name, 0600), 0);
            writers.emplace_back([name] { std::ofstream(name) << night; });
        }
    }
    Outcome outcome{callCommand(arguments)};
    for (std::thread& writer : writers) {
        writer.join();
    }
    for (const char* made : {"copy.mea", "copy.tdm", "page.html"}) {
        outcome.made += fs::exists(made) ? bytesOf(made) : "";
    }
    return outcome;
}

class Pipes : public testing::TestWithParam<std::vector<std::string>>
{
};

TEST_P(Pipes, AreReadAsFilesAre)
{
    const Outcome ofFile = outcomeOf(GetParam(), false);
    const Outcome ofPipe = outcomeOf(GetParam(), true);
    EXPECT_EQ(ofPipe.end.out, ofFile.end.out);
    EXPECT_EQ(ofPipe.end.err, ofFile.end.err);
    EXPECT_EQ(ofPipe.end.status, ofFile.end.status);
    EXPECT_EQ(ofPipe.made, ofFile.made);
    EXPECT_EQ(ofFile.end.status, 0) << ofFile.end.err;
    EXPECT_FALSE((ofFile.end.out + ofFile.made).empty());
}

using Call = std::vector<std::string>;

INSTANTIATE_TEST_SUITE_P(Commands, Pipes,
                         testing::Values(Call{"info", "night.mea"}, Call{"lint", "night.mea"},
                                         Call{"page", "night.mea", "-o", "page.html"},
                                         Call{"normalise", "night.mea", "-o", "copy.mea"},
                                         Call{"diff", "night.mea", "other.mea"},
                                         Call{"ready", "night.mea", "--for", "ccsds", "--creation-date",
                                              "2025-02-24T00:00:00", "-o", "copy.tdm"},
                                         Call{"plot", "--script", "night.mea"}),
                         [](const testing::TestParamInfo<Call>& call) { return call.param.front(); });

TEST(NamedPipe, OneThatIsNamedTwiceIsReadOnce)
{
    const Outcome outcome = outcomeOf({"diff", "-s", "night.mea", "night.mea"}, true);
    EXPECT_EQ(outcome.end.out,
              "night.mea night.mea: 2 equal, 0 differ, 0 only in night.mea, 0 only in night.mea\n");
    EXPECT_EQ(outcome.end.status, 0);
}

TEST(Devices, OneThatNeverEndsIsRefused)
{
    const CommandEnd end = callCommand({"info", "/dev/zero"});
    EXPECT_EQ(end.err, "tavelin: /dev/zero: is a device that gives more than 64 MiB [V003]\n");
    EXPECT_EQ(end.status, 2);
}

TEST(Devices, OneThatEndsIsAFile)
{
    const TemporaryFolder folder;
    makeFile(folder / "empty", "");
    const CommandEnd ofDevice = callCommand({"info", "/dev/null"});
    const CommandEnd ofFile = callCommand({"info", folder / "empty"});
    EXPECT_EQ(ofDevice.status, ofFile.status);
    EXPECT_THAT(ofDevice.out + ofDevice.err, HasSubstr("/dev/null"));
}

TEST(Devices, FolderStaysAFolder)
{
    const TemporaryFolder folder;
    const CommandEnd end = callCommand({"diff", folder.path(), folder.path()});
    EXPECT_THAT(end.err, HasSubstr("is a folder [V003]"));
    EXPECT_EQ(end.status, 2);
}

} // namespace
