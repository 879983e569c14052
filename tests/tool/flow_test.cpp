// Random tasks in two ways: plainly on lists, and as the tool does them, track after track. Both leave the
// same bytes in every file and give the same result, also where a writer throws.

#include "conversion.h"
#include "multi_report.h"

#include "support/list_works.h"
#include "support/random_works.h"
#include "support/tasks.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <map>
#include <stdexcept>
#include <string>
#include <utility>

using namespace tavelinUtils;

namespace {

using Files = std::map<std::string, std::string>;

// Lets temporary folders be in memory, where the system has a folder for that: on a disk, files that are made
// and removed by the thousand take most of the time of a test.
class FoldersInMemory
{
public:
    FoldersInMemory()
    {
        const char* const set = std::getenv("TMPDIR");
        before = set == nullptr ? "" : set;
        if (std::filesystem::is_directory("/dev/shm")) {
            setenv("TMPDIR", "/dev/shm", 1);
        }
    }
    ~FoldersInMemory()
    {
        before.empty() ? unsetenv("TMPDIR") : setenv("TMPDIR", before.c_str(), 1);
    }
    FoldersInMemory(const FoldersInMemory&) = delete;
    FoldersInMemory& operator=(const FoldersInMemory&) = delete;

private:
    std::string before;
};

// A folder whose files are put back after each work.
class Room
{
public:
    static constexpr std::size_t series = 4;

    explicit Room(RandomWorks& works)
    {
        std::filesystem::create_directory(folder / "out");
        for (const char* word : {"mea", "telegram", "tdm", "ssmas"}) {
            add(std::string("in/c.") + word, works.input(word));
        }
        for (std::size_t i = 0; i < series; ++i) {
            add(RandomWorks::tablePath(i), works.table());
            if (works.chance(80)) {
                add(RandomWorks::configurationPath(i), works.configuration());
            }
        }
        add("out/c.txt", "of a run before\n");
    }

    std::string path() const
    {
        return folder.path();
    }

    // The files of the folders that a work writes into, and what was there before again in its place.
    Files take() const
    {
        Files found;
        for (const char* name : {"out/", "in/", "s0/", "s1/tavelin/dataVO/"}) {
            for (const auto& entry : std::filesystem::directory_iterator(folder / name)) {
                if (!entry.is_directory()) {
                    const std::string file = name + entry.path().filename().string();
                    found[file] = bytesOf(entry.path().string());
                }
            }
        }
        putBack(found);
        return found;
    }

    void expectEveryFileInItsPlace() const
    {
        EXPECT_EQ(filesBelow(folder.path()).size(), files.size());
        for (const auto& [name, bytes] : files) {
            EXPECT_EQ(bytesOf(folder / name), bytes) << name;
        }
    }

    const Files& before() const
    {
        return files;
    }

private:
    void add(const std::string& name, const std::string& bytes)
    {
        const std::string file = folder / name;
        std::filesystem::create_directories(std::filesystem::path(file).parent_path());
        makeFile(file, bytes);
        files[name] = bytes;
    }

    void putBack(const Files& found) const
    {
        for (const auto& [name, bytes] : found) {
            const auto before = files.find(name);
            if (before == files.end() || before->second != bytes) {
                std::filesystem::remove(folder / name);
            }
        }
        for (const auto& [name, bytes] : files) {
            if (!exists(folder / name)) {
                makeFile(folder / name, bytes);
            }
        }
    }

    TemporaryFolder folder;
    Files files;
};

// How a work ended, and the files that it left.
struct Outcome
{
    std::string end;
    Files files;
};

using Work = std::function<TFuncRes(const TConvMea&)>;

std::string endOf(const Work& work, const TConvMea& task)
{
    try {
        const TFuncRes result = work(task);
        std::string text =
            "code " + std::to_string(result.Code) + "|" + result.Comment + "|" + result.Description;
        for (const std::string& detail : result.Details) {
            text += "|" + detail;
        }
        return text;
    } catch (const TavelinException& failure) {
        return "thrown " + std::to_string(failure.getCode()) + "|" + failure.what() + "|" +
               failure.getComment();
    } catch (const std::out_of_range&) {
        return "thrown out of range";
    }
}

Outcome outcomeOf(const Room& room, const Work& work, const TConvMea& task)
{
    std::string end = endOf(work, task);
    return {std::move(end), room.take()};
}

TFuncRes convertedByTheTool(const TConvMea& task)
{
    return converter(task.path_in, task.out_dir, task.outputextension, task.inputformat, task.outputformat,
                     task.originator, task.REFERENCE_FRAME, task.PARTICIPANT_1, task.autoname);
}

std::string described(const TConvMea& task)
{
    std::string text = task.inputformat + " to " + task.outputformat + ", " + task.toSeparateFile + " " +
                       task.whatSave + (task.longname ? " long names" : "") +
                       (task.autoname ? " autoname" : "") + "\n" + task.path_in + " to " + task.out_dir +
                       " " + task.outputextension + "\n";
    for (const TSeria2& seria : task.paths) {
        text += seria.path + " " + seria.filter + " " + seria.telescope + "\n";
    }
    return text;
}

// How often what happened, so that the tasks are known to be of all kinds.
class Tally
{
public:
    void count(const Outcome& outcome, const Files& before)
    {
        ++(outcome.end.starts_with("code 0") ? well : outcome.end.starts_with("thrown") ? thrown : refused);
        std::size_t news = 0;
        for (const auto& [name, bytes] : outcome.files) {
            const auto old = before.find(name);
            news += old == before.end() || old->second != bytes ? 1u : 0u;
        }
        ++(news == 0 ? withoutFiles : news == 1 ? withAFile : withFiles);
    }

    int well = 0;
    int refused = 0;
    int thrown = 0;
    int withoutFiles = 0;
    int withAFile = 0;
    int withFiles = 0;
};

void expectSameFiles(const Files& files, const Files& expected)
{
    for (const auto& [name, bytes] : expected) {
        const auto found = files.find(name);
        ASSERT_NE(found, files.end()) << name << " is missing";
        EXPECT_EQ(found->second, bytes) << name;
    }
    EXPECT_EQ(files.size(), expected.size());
}

// Runs a task both ways.
void expectSame(const Room& room, const TConvMea& task, const Work& asLists, const Work& byTheTool,
                Tally& tally)
{
    SCOPED_TRACE(described(task));
    const Outcome expected = outcomeOf(room, asLists, task);
    const Outcome outcome = outcomeOf(room, byTheTool, task);
    EXPECT_EQ(outcome.end, expected.end);
    expectSameFiles(outcome.files, expected.files);
    tally.count(expected, room.before());
}

using NextTask = std::function<TConvMea(RandomWorks& works, const std::string& folder)>;

// Runs tasks in rooms of their own until one differs.
Tally runBothWays(std::uint64_t seed, const NextTask& next, const Work& asLists, const Work& byTheTool)
{
    constexpr int rooms = 100;
    constexpr int tasksOfARoom = 15;
    const FoldersInMemory inMemory;
    RandomWorks works(seed);
    Tally tally;
    for (int i = 0; i < rooms && !testing::Test::HasFailure(); ++i) {
        const Room room(works);
        for (int task = 0; task < tasksOfARoom; ++task) {
            expectSame(room, next(works, room.path()), asLists, byTheTool, tally);
        }
        room.expectEveryFileInItsPlace();
    }
    return tally;
}

} // namespace

TEST(Flow, ConversionsGiveWhatListsGive)
{
    const Tally tally = runBothWays(
        11, [](RandomWorks& works, const std::string& folder) { return works.conversion(folder); },
        convertedAsLists, convertedByTheTool);
    EXPECT_GT(tally.well, 600);
    EXPECT_GT(tally.refused, 100);
    EXPECT_GT(tally.thrown, 50);
    EXPECT_GT(tally.withoutFiles, 300);
    EXPECT_GT(tally.withAFile, 500);
}

TEST(Flow, ReportsGiveWhatListsGive)
{
    const Tally tally = runBothWays(
        12, [](RandomWorks& works, const std::string& folder) { return works.report(folder, Room::series); },
        reportedAsLists, [](const TConvMea& task) { return CreateMultiReport(task); });
    EXPECT_GT(tally.well, 500);
    EXPECT_GT(tally.refused, 100);
    EXPECT_GT(tally.thrown, 100);
    EXPECT_GT(tally.withoutFiles, 300);
    EXPECT_GT(tally.withAFile, 200);
    EXPECT_GT(tally.withFiles, 400);
}
