// A safe file where things go wrong: what stands at its path is the old file or the new one, always whole.

#include "findings/finding.h"
#include "out/safe_file.h"

#include "support/folders.h"
#include "support/system_faults.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>

#include <cerrno>
#include <csignal>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include <sys/resource.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using companion::SafeFile;

const std::string oldText = "old\n";
const std::string newText(100'000, 'n');

// Writes the new text in two halves, over an old file or not. Faults come before the file or between the
// halves.
void replaceFile(const std::string& path, bool force, const std::vector<SystemFault>& before,
                 const std::vector<SystemFault>& between)
{
    setFaults(before);
    SafeFile file(path, force, {});
    file.write(std::string_view(newText).substr(0, newText.size() / 2));
    setFaults(between);
    file.write(std::string_view(newText).substr(newText.size() / 2));
    file.commit();
}

struct Step
{
    std::string name;
    std::vector<SystemFault> faults;
};

// The steps of a file behind its first half, each with what goes wrong in it.
std::vector<Step> steps(int error)
{
    return {{"write", {{SYS_write, error}}},
            {"fsync", {{SYS_fsync, error}}},
            {"linkat", {{SYS_linkat, error}}},
            {"rename", faultsOfRename(error)}};
}

// With the first file system files without a name are there, with the second not.
const std::vector<std::vector<SystemFault>> fileSystems{{}, {noFilesWithoutNames()}};

// An old file, or none, in a folder of its own.
struct Target
{
    explicit Target(bool withOld) : hasOld(withOld)
    {
        if (hasOld) {
            makeFile(path, oldText);
        }
    }

    bool isUntouched() const
    {
        return hasOld ? bytesOf(path) == oldText : !std::filesystem::exists(path);
    }

    bool isOldOrNew() const
    {
        return isUntouched() || bytesOf(path) == newText;
    }

    // The names beside it.
    Names others() const
    {
        Names names = namesIn(folder.path());
        names.erase("a.txt");
        return names;
    }

    bool hasOld;
    TemporaryFolder folder{};
    std::string path = folder / "a.txt";
};

// Does a thing for each file system, with an old file and without.
template <class Work>
void forEachTarget(Work work)
{
    for (const auto& system : fileSystems) {
        for (const bool hasOld : {false, true}) {
            SCOPED_TRACE(std::string(system.empty() ? "" : "no files without names, ") +
                         (hasOld ? "over an old file" : "new"));
            work(Target(hasOld), system);
        }
    }
}

TEST(SafeFileFaults, WithoutAnyTheNewFileIsThere)
{
    forEachTarget([](const Target& target, const auto& system) {
        EXPECT_EQ(statusOfChild([&] { replaceFile(target.path, target.hasOld, system, {}); }), 0);
        EXPECT_EQ(bytesOf(target.path), newText);
        EXPECT_EQ(target.others(), Names{});
    });
}

// Whether a step is taken: a new file gets its name at once, an old one is replaced in two steps, of which a
// file that has a name already needs the second alone.
bool isTaken(const Step& step, bool hasOld, bool hasName)
{
    if (step.name == "linkat") {
        return !(hasOld && hasName);
    }
    return step.name != "rename" || hasOld;
}

TEST(SafeFileFaults, StepThatFailsLeavesTheOldFileAndNothingElse)
{
    for (const int error : {ENOSPC, EIO, EDQUOT}) {
        for (const Step& step : steps(error)) {
            SCOPED_TRACE(step.name + " fails with " + std::to_string(error));
            forEachTarget([&step](const Target& target, const auto& system) {
                const bool fails = isTaken(step, target.hasOld, !system.empty());
                const int status =
                    statusOfChild([&] { replaceFile(target.path, target.hasOld, system, step.faults); });
                EXPECT_EQ(WEXITSTATUS(status), fails ? 1 : 0);
                EXPECT_TRUE(fails ? target.isUntouched() : bytesOf(target.path) == newText);
                EXPECT_EQ(target.others(), Names{});
            });
        }
    }
}

TEST(SafeFileFaults, FileThatGetsTooLargeLeavesTheOldOne)
{
    forEachTarget([](const Target& target, const auto& system) {
        for (const bool isIgnored : {true, false}) {
            const int status = statusOfChild([&] {
                std::signal(SIGXFSZ, isIgnored ? SIG_IGN : SIG_DFL);
                const rlimit limit{60'000, 60'000};
                setrlimit(RLIMIT_FSIZE, &limit);
                replaceFile(target.path, target.hasOld, system, {});
            });
            EXPECT_EQ(isIgnored ? WEXITSTATUS(status) : WTERMSIG(status), isIgnored ? 1 : SIGXFSZ);
            EXPECT_TRUE(target.isUntouched());
            EXPECT_EQ(target.others(), Names{});
        }
    });
}

// What a process that is killed leaves beside the file has the name of the file, its own number and ".part".
TEST(SafeFileFaults, KilledInAnyStepItLeavesAWholeFile)
{
    for (const Step& step : steps(0)) {
        SCOPED_TRACE("killed in " + step.name);
        forEachTarget([&step](const Target& target, const auto& system) {
            const int child =
                startChild([&] { replaceFile(target.path, target.hasOld, system, step.faults); });
            const int status = waitForChild(child);
            const bool isKilled = isTaken(step, target.hasOld, !system.empty());
            EXPECT_EQ(WIFSIGNALED(status), isKilled);
            EXPECT_TRUE(isKilled ? target.isUntouched() : bytesOf(target.path) == newText);
            const Names part{"a.txt." + std::to_string(child) + ".part"};
            const bool hasPart = isKilled && (!system.empty() || step.name == "rename");
            EXPECT_EQ(target.others(), hasPart ? part : Names{});
        });
    }
}

TEST(SafeFileFaults, SignalInTheMiddleLeavesNothing)
{
    for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGQUIT}) {
        forEachTarget([signal](const Target& target, const auto& system) {
            const int status = statusOfChild([&] {
                setFaults(system);
                SafeFile file(target.path, target.hasOld, {});
                file.write("half");
                raise(signal);
            });
            EXPECT_TRUE(WIFSIGNALED(status));
            EXPECT_EQ(WTERMSIG(status), signal);
            EXPECT_TRUE(target.isUntouched());
            EXPECT_EQ(target.others(), Names{});
        });
    }
}

TEST(SafeFileFaults, SignalAtAnyTimeLeavesAWholeFileAndNothingElse)
{
    for (int round = 0; round < 100; ++round) {
        forEachTarget([round](const Target& target, const auto& system) {
            const int child = startChild([&] {
                setFaults(system);
                for (;;) {
                    SafeFile file(target.path, true, {});
                    file.write(newText);
                    file.commit();
                }
            });
            usleep(static_cast<useconds_t>(round * 37 % 3000));
            kill(child, SIGINT);
            EXPECT_EQ(WTERMSIG(waitForChild(child)), SIGINT);
            EXPECT_TRUE(target.isOldOrNew());
            EXPECT_EQ(target.others(), Names{});
        });
    }
}

TEST(SafeFileFaults, WhatAKilledProcessOfTheSameNumberHasLeftDoesNotMatter)
{
    forEachTarget([](const Target& target, const auto& system) {
        const auto left = [&target] { return target.path + '.' + std::to_string(getpid()) + ".part"; };
        const int child = startChild([&] {
            makeFile(left(), "left");
            replaceFile(target.path, target.hasOld, system, {});
        });
        EXPECT_EQ(waitForChild(child), 0);
        EXPECT_EQ(bytesOf(target.path), newText);
        EXPECT_EQ(target.others(), Names{"a.txt." + std::to_string(child) + ".part"});
    });
}

// A program with a use of its own for the signal goes on with it.
TEST(SafeFileFaults, HandlerOfTheProgramStays)
{
    static volatile std::sig_atomic_t seen = 0;
    const Target target(true);
    const int status = statusOfChild([&] {
        std::signal(SIGINT, [](int) { seen = 1; });
        setFaults({noFilesWithoutNames()});
        SafeFile file(target.path, true, {});
        raise(SIGINT);
        file.write(newText);
        file.commit();
        _exit(seen == 1 ? 7 : 8);
    });
    EXPECT_EQ(WEXITSTATUS(status), 7);
    EXPECT_EQ(bytesOf(target.path), newText);
}

TEST(SafeFileFaults, ManyFilesAtOnceGetTheirNames)
{
    const TemporaryFolder folder;
    constexpr int files = 20; // more than a signal would take away
    const int status = statusOfChild([&folder] {
        setFaults({noFilesWithoutNames()});
        std::vector<std::unique_ptr<SafeFile>> open;
        for (int i = 0; i < files; ++i) {
            open.push_back(
                std::make_unique<SafeFile>(folder / std::to_string(i), false, std::vector<std::string>{}));
            open.back()->write(newText);
        }
        for (const auto& file : open) {
            file->commit();
        }
    });
    EXPECT_EQ(status, 0);
    EXPECT_EQ(namesIn(folder.path()).size(), std::size_t{files});
    EXPECT_EQ(bytesOf(folder / "19"), newText);
}

TEST(MoveIntoFaults, AFileThatKeepsItsOldNameTooIsTold)
{
    const TemporaryFolder folder;
    makeFile(folder / "whole", newText);
    const int status = statusOfChild([&folder] {
        setFaults({{SYS_unlink, EACCES}});
        companion::moveInto(folder / "whole", folder / "a.txt", false);
    });
    EXPECT_EQ(WEXITSTATUS(status), 1);
    EXPECT_EQ(bytesOf(folder / "whole"), newText);
    EXPECT_EQ(bytesOf(folder / "a.txt"), newText);
}

TEST(MoveIntoFaults, StepThatFailsLeavesTheOldFile)
{
    for (const int error : {ENOSPC, EIO}) {
        for (const Step& step : {Step{"fsync", {{SYS_fsync, error}}}, Step{"link", {{SYS_linkat, error}}},
                                 Step{"rename", faultsOfRename(error)}})
        {
            for (const bool hasOld : {false, true}) {
                SCOPED_TRACE(step.name + (hasOld ? " over an old file" : " new"));
                const Target target(hasOld);
                const TemporaryFolder other;
                makeFile(other / "whole", newText);
                const bool fails = step.name == "fsync" || hasOld == (step.name == "rename");
                const int status = statusOfChild([&] {
                    setFaults(step.faults);
                    companion::moveInto(other / "whole", target.path, hasOld);
                });
                EXPECT_EQ(WEXITSTATUS(status), fails ? 1 : 0);
                EXPECT_TRUE(fails ? target.isUntouched() : bytesOf(target.path) == newText);
                EXPECT_EQ(exists(other / "whole"), fails);
            }
        }
    }
}

} // namespace
