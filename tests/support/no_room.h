// Disks without room, for writers that remove what is at their path: a device would be gone after them.

#pragma once

#include "support/child_process.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>
#include <functional>
#include <string>

#include <sys/resource.h>

/// How a child process ends in which `work(path)` ran and no file could take a byte.
inline ChildEnd runWithoutRoom(const std::function<void(const std::string&)>& work)
{
    const TemporaryFolder folder;
    const std::string path = folder / "a.txt";
    return runInChild(
        [&] {
            std::signal(SIGXFSZ, SIG_IGN);
            const rlimit none{0, 0};
            setrlimit(RLIMIT_FSIZE, &none);
            work(path);
        },
        10.0);
}

/// Checks that `write(path)` passes over in silence what it cannot write: a folder that holds a file, a name
/// in a folder that is missing, a disk without room.
inline void expectSilence(const std::function<void(const std::string&)>& write)
{
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder / "folder");
    makeFile(folder / "folder/kept.txt", "kept\n");
    EXPECT_NO_THROW(write(folder / "folder"));
    EXPECT_EQ(bytesOf(folder / "folder/kept.txt"), "kept\n");
    EXPECT_NO_THROW(write(folder / "missing/a.txt"));
    EXPECT_FALSE(exists(folder / "missing"));

    const ChildEnd end = runWithoutRoom(write);
    EXPECT_FALSE(end.timedOut);
    EXPECT_EQ(end.signal, 0);
    EXPECT_EQ(end.exitStatus, 0);
    EXPECT_EQ(end.output, "");
}
