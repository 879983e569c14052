// What cannot be written to the standard output is no success, whatever subcommand prints it.

#include "command/subcommand.h"
#include "support/folders.h"
#include "support/places.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>

#include <cstdlib>
#include <filesystem>
#include <map>
#include <set>
#include <string>

#include <sys/wait.h>

namespace {

namespace fs = std::filesystem;

// Calls that print something, at least one of each subcommand, below a folder with the files of WithFiles.
const std::multimap<std::string, std::string> calls{
    {"check", "night.xml"},
    {"run", "night.xml --vomar " VOMAR_STAND_IN},
    {"explain", "V120"},
    {"info", "night.mea"},
    {"lint", "night.mea"},
    {"schema", "task"},
    {"ready", "night.mea --for ccsds --creation-date 2025-02-24T00:00:00 -o -"},
    {"normalise", "message.tdm -o -"},
    {"batch", "work --json --vomar " VOMAR_STAND_IN},
    {"batch", "work --summary --vomar " VOMAR_STAND_IN},
    {"diff", "night.mea night.mea"},
    {"convert", "night.mea - --to tdm --vomar " VOMAR_STAND_IN},
    {"convert", "night.mea new.tdm --vomar " VOMAR_STAND_IN},
    {"report",
     "--make --to mpc --by object --filter R --telescope T1 new table.txt --json --vomar " VOMAR_STAND_IN},
    {"plot", "night.mea --json -o new.svg"},
    {"page", "night.mea --json -o new.html"},
    {"help", ""},
    {"--version", ""},
};

// A folder with a night, a task and a batch, which is the present one.
class WithFiles : public testing::Test
{
protected:
    WithFiles() : present(folder.path())
    {
        const fs::path project = VOMAR_PROJECT;
        fs::copy_file(project / "examples/K88_20240120.mea", "night.mea");
        fs::copy_file(project / "examples/TFRM_20121029.tdm", "message.tdm");
        fs::copy_file(project / "tests/companion/batch/groups/table.txt", "table.txt");
        makeFile("night.xml", task("./night.mea"));
        makeFile("t.xml", task("{path}"));
        fs::create_directory("new");
        EXPECT_EQ(statusOf("batch t.xml --over '*.mea' --into work --vomar " VOMAR_STAND_IN, ">/dev/null"),
                  0);
    }

    static std::string task(const std::string& input)
    {
        return "<task><path_in>" + input +
               "</path_in><out_dir>out</out_dir><outputextension>.txt</outputextension>"
               "<inputformat>mea</inputformat><outputformat>mea</outputformat><originator>K88</originator>"
               "<PARTICIPANT_1>K88</PARTICIPANT_1><REFERENCE_FRAME>ICRF</REFERENCE_FRAME>"
               "<autoname>false</autoname><path_res>out/result.xml</path_res></task>\n";
    }

    static int statusOf(const std::string& call, const std::string& redirected)
    {
        const std::string command =
            std::string(VOMAR_COMMAND) + ' ' + call + ' ' + redirected + " 2>messages";
        const int status = std::system(command.c_str());
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

private:
    TemporaryFolder folder;
    PresentFolder present;
};

using FullOutput = WithFiles;
using ClosedOutput = WithFiles;

TEST_F(FullOutput, EndsEachSubcommandWithStatusTwo)
{
    for (const auto& [name, rest] : calls) {
        SCOPED_TRACE(name + ' ' + rest);
        EXPECT_EQ(statusOf(name + ' ' + rest, ">/dev/full"), 2);
        EXPECT_THAT(bytesOf("messages"),
                    testing::EndsWith("tavelin: standard output: No space left on device [V003]\n"));
    }
}

TEST_F(FullOutput, CallsAreOfAllSubcommands)
{
    for (const companion::Subcommand* each : companion::subcommands()) {
        EXPECT_TRUE(calls.contains(each->name)) << each->name;
    }
}

TEST_F(ClosedOutput, EndsEachSubcommandWithStatusTwo)
{
    for (const auto& [name, rest] : calls) {
        SCOPED_TRACE(name + ' ' + rest);
        EXPECT_EQ(statusOf(name + ' ' + rest, ">&-"), 2);
        EXPECT_THAT(bytesOf("messages"),
                    testing::EndsWith("tavelin: standard output: Bad file descriptor [V003]\n"));
    }
}

// The first file that is opened would else get the number of the closed stream.
TEST_F(ClosedOutput, DoesNotGoIntoAFileThatIsWritten)
{
    EXPECT_EQ(statusOf("normalise message.tdm -o closed.tdm", ">&-"), 2);
    EXPECT_EQ(statusOf("normalise message.tdm -o open.tdm", ">/dev/null"), 0);
    EXPECT_EQ(bytesOf("closed.tdm"), bytesOf("open.tdm"));
}

// Output that is longer than what is kept for writing fails in the middle of the work.
TEST_F(FullOutput, IsToldAlsoOfLongOutput)
{
    EXPECT_EQ(statusOf("lint --for mpc night.mea --json --max 100000", ">/dev/full"), 2);
    EXPECT_EQ(statusOf("explain --list --json", ">/dev/full"), 2);
    EXPECT_THAT(bytesOf("messages"),
                testing::EndsWith("tavelin: standard output: No space left on device [V003]\n"));
}

TEST_F(FullOutput, CountsOnlyWhereThereIsSomethingToWrite)
{
    EXPECT_EQ(statusOf("lint missing.mea", ">/dev/full"), 2);
    EXPECT_EQ(bytesOf("messages"), "tavelin: missing.mea: No such file or directory [V003]\n");
}

} // namespace
