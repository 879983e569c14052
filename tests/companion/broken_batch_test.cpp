// A batch that is killed at random moments and started again leaves the tree of one that was not broken.
// tests/companion/batch_tree_test.py does the same with more nights.

#include "support/child_process.h"
#include "support/places.h"
#include "support/random.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <iterator>
#include <map>
#include <regex>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;
using testing::IsEmpty;

using Tree = std::map<std::string, std::string>; // bytes by paths; none of folders

constexpr int nights = 12;
constexpr int marks = 5;

const char* const conversion = "<task><path_in>{path}</path_in><out_dir>reports/{night}</out_dir>"
                               "<outputextension>.mpc.txt</outputextension><inputformat>mea</inputformat>"
                               "<outputformat>mpc</outputformat><originator>MPC</originator>"
                               "<PARTICIPANT_1>K88</PARTICIPANT_1><REFERENCE_FRAME>ICRF</REFERENCE_FRAME>"
                               "<autoname>false</autoname>"
                               "<path_res>reports/{night}/{stem}.result.xml</path_res></task>\n";

void makeArchive(const fs::path& folder)
{
    fs::create_directory(folder);
    makeFile(folder / "t.xml", conversion);
    for (int night = 10; night < 10 + nights; ++night) {
        const fs::path path = folder / "archive" / ("n" + std::to_string(night));
        fs::create_directories(path);
        std::string text = "K88 2000.0 UTC\n";
        for (int mark = 0; mark < marks; ++mark) {
            text += "K24B" + std::to_string(night) + "X 200124 210" + std::to_string(mark) +
                    "000000 0746286600 +4523283000 001 18.00\n";
        }
        makeFile(path / "K88.mea", text);
    }
}

// Plan, tasks and outputs as they are, receipts less their times and seconds, results less their dates.
Tree treeOf(const fs::path& folder)
{
    static const std::regex times("\"(time|began|seconds)\":[-+.e0-9]+");
    static const std::regex dates("<Date>[^<]*</Date>");
    Tree tree;
    for (const auto& entry : fs::recursive_directory_iterator(folder)) {
        const std::string path = entry.path().lexically_relative(folder);
        std::string bytes = entry.is_regular_file() ? bytesOf(entry.path()) : "";
        if (path.starts_with("work/receipts/")) {
            bytes = std::regex_replace(bytes, times, "\"$1\":0");
        } else if (path.ends_with(".result.xml")) {
            bytes = std::regex_replace(bytes, dates, "<Date/>");
        }
        tree.emplace(path, std::move(bytes));
    }
    return tree;
}

// The paths that are in one tree alone, or with other bytes.
std::vector<std::string> differences(const Tree& one, const Tree& other)
{
    Tree differing;
    std::set_symmetric_difference(one.begin(), one.end(), other.begin(), other.end(),
                                  std::inserter(differing, differing.end()));
    std::vector<std::string> paths;
    for (const auto& [path, bytes] : differing) {
        paths.push_back(path);
    }
    return paths;
}

// Makes the plan, or takes it up, and runs it; killed at the end of the time. A call that is killed leaves
// its own temporary folder.
ChildEnd batch(const fs::path& folder, double seconds = 60)
{
    return runProgram("/usr/bin/env",
                      {"TMPDIR=" + folder.parent_path().string(), VOMAR_COMMAND, "batch", "t.xml", "--over",
                       "archive/{night}/*.mea", "--into", "work", "-j2", "--vomar", builtTool()},
                      folder, seconds);
}

std::string totals(const std::string& tasks)
{
    const std::string sum = std::to_string(nights * marks);
    return "batch: " + std::to_string(nights) + " tasks: " + tasks + "; " + sum + " of " + sum + " marks\n";
}

// The inputs keep the times that plans and receipts know them by.
void copyArchive(const fs::path& from, const fs::path& to)
{
    fs::remove_all(to);
    fs::create_directory(to);
    fs::copy(from / "archive", to / "archive", fs::copy_options::recursive);
    fs::copy_file(from / "t.xml", to / "t.xml");
    for (const auto& entry : fs::recursive_directory_iterator(to / "archive")) {
        fs::last_write_time(entry, fs::last_write_time(from / entry.path().lexically_relative(to)));
    }
}

TEST(BrokenBatch, LeavesTheTreeOfAWholeOne)
{
    const TemporaryFolder folder;
    const fs::path whole = folder / "whole";
    const fs::path broken = folder / "broken";
    makeArchive(whole);
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(batch(whole).output, totals("12 good"));
    const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
    const auto expected = treeOf(whole);
    EXPECT_EQ(expected.size(), 8 + 7 * nights); // folders of all, and of each night 5 files and 2 folders
    Random random(1);
    int killed = 0;
    for (int i = 0; i < 40 && killed < 8; ++i) {
        copyArchive(whole, broken);
        killed += batch(broken, random.fraction() * taken.count()).timedOut ? 1 : 0;
        killed += batch(broken, random.fraction() * taken.count()).timedOut ? 1 : 0;
        EXPECT_EQ(batch(broken).exitStatus, 0);
        EXPECT_EQ(batch(broken).output, totals("12 up to date"));
        EXPECT_THAT(differences(treeOf(broken), expected), IsEmpty());
    }
    EXPECT_GE(killed, 8);
}

} // namespace
