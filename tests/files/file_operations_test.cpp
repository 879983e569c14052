#include "files/file_operations.h"

#include "support/child_process.h"
#include "support/folders.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <csignal>
#include <cstdint>
#include <filesystem>
#include <string>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/statvfs.h>
#include <unistd.h>

using namespace tavelinUtils;

TEST(FileOperations, SizeIsInKibibytesWithTheFraction)
{
    const TemporaryFolder folder;
    struct Row
    {
        std::uintmax_t bytes;
        double size;
    };
    const Row rows[] = {{0, 0.0},          {1, 0.0009765625},         {512, 0.5}, {1024, 1.0}, {1536, 1.5},
                        {1000, 0.9765625}, {1048575, 1023.9990234375}};
    for (const Row& row : rows) {
        makeFile(folder / "a.bin", std::string(row.bytes, '\n'));
        EXPECT_EQ(get_file_size(folder / "a.bin"), row.size) << row.bytes;
    }
    std::filesystem::resize_file(folder / "a.bin", std::uintmax_t(5) * 1024 * 1024 * 1024 + 512);
    EXPECT_EQ(get_file_size(folder / "a.bin"), 5242880.5);
    EXPECT_EQ(get_file_size(folder / "missing"), 0.0);
    EXPECT_EQ(get_file_size(""), 0.0);
}

TEST(FileOperations, SizeOfAPipeIsZeroWhateverItHolds)
{
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    ASSERT_EQ(write(ends[1], "12345", 5), 5);
    EXPECT_EQ(get_file_size("/proc/self/fd/" + std::to_string(ends[0])), 0.0);
    close(ends[0]);
    close(ends[1]);
}

TEST(FileOperations, FreeSpaceIsInWholeMebibytes)
{
    const TemporaryFolder folder;
    bool undisturbed = false; // others write to the disk meanwhile
    for (int i = 0; i < 1000 && !undisturbed; ++i) {
        struct statvfs before
        {
        };
        struct statvfs after
        {
        };
        ASSERT_EQ(statvfs(folder.path().c_str(), &before), 0);
        const double space = FreeDiskSpace(folder.path());
        ASSERT_EQ(statvfs(folder.path().c_str(), &after), 0);
        undisturbed = before.f_bfree == after.f_bfree;
        if (undisturbed) {
            EXPECT_EQ(space, static_cast<double>((before.f_bsize * before.f_bfree) >> 20));
        }
    }
    EXPECT_TRUE(undisturbed);
    EXPECT_EQ(FreeDiskSpace(folder / "missing"), 0.0);
    EXPECT_EQ(FreeDiskSpace(""), 0.0);
}

TEST(FileOperations, AgeIsTheTimeOfTheLastWriteInWholeSeconds)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.txt", "a");
    std::filesystem::create_directory(folder / "b");
    for (const char* const name : {"a.txt", "b"}) {
        const timespec times[2] = {{1, 0}, {1234567890, 750000000}};
        ASSERT_EQ(utimensat(AT_FDCWD, (folder / name).c_str(), times, 0), 0);
        EXPECT_EQ(FileAge(folder / name), 1234567890.0) << name;
    }
    std::filesystem::create_symlink(folder / "a.txt", folder / "link");
    EXPECT_EQ(FileAge(folder / "link"), 1234567890.0);
    EXPECT_EQ(FileAge(folder / "missing"), 0.0);
    EXPECT_EQ(FileAge(""), 0.0);
}

TEST(FileOperations, DeletefileRemovesAFileOrAnEmptyFolder)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.txt", "a");
    makeFile(folder / "kept.txt", "kept");
    std::filesystem::create_symlink(folder / "kept.txt", folder / "link");
    std::filesystem::create_directory(folder / "empty");
    std::filesystem::create_directory(folder / "full");
    makeFile(folder / "full/b.txt", "b");

    EXPECT_EQ(deletefile(folder / "a.txt"), 0);
    EXPECT_EQ(deletefile(folder / "a.txt"), -1);
    EXPECT_EQ(deletefile(folder / "link"), 0);
    EXPECT_EQ(deletefile(folder / "empty"), 0);
    EXPECT_EQ(deletefile(folder / "full"), -1);
    EXPECT_EQ(deletefile(folder / "full\\b.txt"), -1);
    EXPECT_EQ(deletefile(""), -1);
    EXPECT_EQ(namesIn(folder.path()), (Names{"kept.txt", "full"}));
    EXPECT_EQ(bytesOf(folder / "full/b.txt"), "b");
}

TEST(FileOperations, CopyfileCopiesEveryByte)
{
    const TemporaryFolder folder;
    std::string bytes;
    for (int i = 0; i < 300000; ++i) {
        bytes += static_cast<char>(i % 256);
    }
    bytes += "\r\n\x1a\xff";
    makeFile(folder / "a.bin", bytes);
    for (const bool overwrite : {false, true}) {
        const std::string name = overwrite ? "b.bin" : "c.bin";
        EXPECT_TRUE(copyfile(folder / "a.bin", folder / name, overwrite));
        EXPECT_EQ(bytesOf(folder / name), bytes);
    }
    EXPECT_EQ(bytesOf(folder / "a.bin"), bytes);

    makeFile(folder / "empty", "");
    EXPECT_TRUE(copyfile(folder / "empty", folder / "d.bin", false));
    EXPECT_EQ(bytesOf(folder / "d.bin"), "");
}

TEST(FileOperations, CopyfileWithoutOverwritingLeavesTheDestination)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.txt", "new");
    makeFile(folder / "b.txt", "old");
    EXPECT_TRUE(copyfile(folder / "a.txt", folder / "b.txt", false));
    EXPECT_EQ(bytesOf(folder / "b.txt"), "old");
    EXPECT_TRUE(copyfile(folder / "missing", folder / "b.txt", false));
    EXPECT_EQ(bytesOf(folder / "b.txt"), "old");

    std::filesystem::create_directory(folder / "c");
    EXPECT_TRUE(copyfile(folder / "a.txt", folder / "c", false));
    EXPECT_EQ(namesIn(folder.path()), (Names{"a.txt", "b.txt", "c"}));
    EXPECT_EQ(namesIn(folder / "c"), Names{});
}

TEST(FileOperations, CopyfileOverwritesAShorterOrLongerDestination)
{
    const TemporaryFolder folder;
    for (const char* const old : {"", "o", "an old and longer text"}) {
        makeFile(folder / "a.txt", "new");
        makeFile(folder / "b.txt", old);
        EXPECT_TRUE(copyfile(folder / "a.txt", folder / "b.txt", true));
        EXPECT_EQ(bytesOf(folder / "b.txt"), "new");
        EXPECT_EQ(bytesOf(folder / "a.txt"), "new");
    }
}

// The destination is removed, not written over: what else leads to its bytes keeps them.
TEST(FileOperations, CopyfileReplacesALinkAndLeavesItsTarget)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.txt", "new");
    makeFile(folder / "target.txt", "old");
    std::filesystem::create_symlink(folder / "target.txt", folder / "link");
    std::filesystem::create_hard_link(folder / "target.txt", folder / "hard");
    for (const char* const name : {"link", "hard"}) {
        SCOPED_TRACE(name);
        EXPECT_TRUE(copyfile(folder / "a.txt", folder / name, true));
        EXPECT_FALSE(std::filesystem::is_symlink(folder / name));
        EXPECT_EQ(bytesOf(folder / name), "new");
        EXPECT_EQ(bytesOf(folder / "target.txt"), "old");
    }
}

TEST(FileOperations, CopyfileToTheSamePathIsASuccessWithoutACopy)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.txt", "kept");
    for (const bool overwrite : {false, true}) {
        EXPECT_TRUE(copyfile(folder / "a.txt", folder / "a.txt", overwrite));
        EXPECT_EQ(bytesOf(folder / "a.txt"), "kept");
        EXPECT_TRUE(copyfile(folder / "missing", folder / "missing", overwrite));
        EXPECT_TRUE(copyfile("", "", overwrite));
    }
    EXPECT_EQ(namesIn(folder.path()), Names{"a.txt"});
}

// Paths are compared as texts, so the one file is removed as the destination before it is read.
TEST(FileOperations, CopyfileToAnotherSpellingOfTheSamePathLosesTheFile)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.txt", "lost");
    EXPECT_TRUE(copyfile(folder / "a.txt", folder / "./a.txt", false));
    EXPECT_EQ(bytesOf(folder / "a.txt"), "lost");
    EXPECT_FALSE(copyfile(folder / "a.txt", folder / "./a.txt", true));
    EXPECT_EQ(namesIn(folder.path()), Names{});
}

TEST(FileOperations, CopyfileOfAMissingSourceLeavesTheDestinationRemoved)
{
    const TemporaryFolder folder;
    makeFile(folder / "b.txt", "old");
    EXPECT_FALSE(copyfile(folder / "missing", folder / "b.txt", true));
    EXPECT_FALSE(copyfile(folder / "missing", folder / "c.txt", true));
    EXPECT_FALSE(copyfile(folder / "missing", folder / "c.txt", false));
    EXPECT_FALSE(copyfile("", folder / "c.txt", true));
    EXPECT_EQ(namesIn(folder.path()), Names{});
}

TEST(FileOperations, CopyfileToAPathThatCannotBeOpenedIsFalse)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.txt", "a");
    std::filesystem::create_directory(folder / "full");
    makeFile(folder / "full/b.txt", "b");
    EXPECT_FALSE(copyfile(folder / "a.txt", folder / "missing/c.txt", true));
    EXPECT_FALSE(copyfile(folder / "a.txt", folder / "missing/c.txt", false));
    EXPECT_FALSE(copyfile(folder / "a.txt", folder / "a.txt/c.txt", true));
    EXPECT_FALSE(copyfile(folder / "a.txt", folder / "full", true));
    EXPECT_FALSE(copyfile(folder / "a.txt", "", true));
    EXPECT_EQ(namesIn(folder.path()), (Names{"a.txt", "full"}));
    EXPECT_EQ(bytesOf(folder / "a.txt"), "a");
    EXPECT_EQ(bytesOf(folder / "full/b.txt"), "b");
}

// An empty folder is as good a destination as a file: it exists, and it can be removed.
TEST(FileOperations, CopyfileReplacesAnEmptyFolder)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.txt", "a");
    std::filesystem::create_directory(folder / "b");
    EXPECT_TRUE(copyfile(folder / "a.txt", folder / "b", true));
    EXPECT_EQ(bytesOf(folder / "b"), "a");
}

// A folder opens for reading, and ends at once.
TEST(FileOperations, CopyfileOfAFolderMakesAnEmptyFile)
{
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder / "a");
    makeFile(folder / "a/b.txt", "b");
    EXPECT_TRUE(copyfile(folder / "a", folder / "c", true));
    EXPECT_TRUE(std::filesystem::is_regular_file(folder / "c"));
    EXPECT_EQ(bytesOf(folder / "c"), "");
    EXPECT_EQ(bytesOf(folder / "a/b.txt"), "b");
}

TEST(FileOperations, CopyfileDoesNotTellAFailedWrite)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.txt", std::string(100000, 'a'));
    expectTrueInChild([&] {
        std::signal(SIGXFSZ, SIG_IGN);
        const rlimit none{0, 0};
        setrlimit(RLIMIT_FSIZE, &none);
        return copyfile(folder / "a.txt", folder / "b.txt", true);
    });
    EXPECT_EQ(bytesOf(folder / "b.txt"), "");
    EXPECT_EQ(bytesOf(folder / "a.txt"), std::string(100000, 'a'));
}

TEST(FileOperations, MovefileCopiesAndRemovesTheSource)
{
    const TemporaryFolder folder;
    for (const char* const old : {"", "an old and longer text"}) {
        makeFile(folder / "a.txt", "new\r\n\xff");
        makeFile(folder / "b.txt", old);
        EXPECT_TRUE(movefile(folder / "a.txt", folder / "b.txt"));
        EXPECT_EQ(bytesOf(folder / "b.txt"), "new\r\n\xff");
        EXPECT_EQ(namesIn(folder.path()), Names{"b.txt"});
    }
    EXPECT_TRUE(movefile(folder / "b.txt", folder / "c.txt"));
    EXPECT_EQ(bytesOf(folder / "c.txt"), "new\r\n\xff");
    EXPECT_EQ(namesIn(folder.path()), Names{"c.txt"});
}

// A move is a full copy even within one file system.
TEST(FileOperations, MovefileMakesAFileOfItsOwn)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.txt", "a");
    std::filesystem::create_hard_link(folder / "a.txt", folder / "hard");
    EXPECT_TRUE(movefile(folder / "a.txt", folder / "b.txt"));
    EXPECT_EQ(namesIn(folder.path()), (Names{"b.txt", "hard"}));
    EXPECT_FALSE(std::filesystem::equivalent(folder / "b.txt", folder / "hard"));
    EXPECT_EQ(bytesOf(folder / "b.txt"), "a");
}

TEST(FileOperations, MovefileToTheSamePathKeepsTheFile)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.txt", "kept");
    EXPECT_TRUE(movefile(folder / "a.txt", folder / "a.txt"));
    EXPECT_EQ(bytesOf(folder / "a.txt"), "kept");
}

TEST(FileOperations, MovefileThatCannotCopyKeepsTheSource)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.txt", "kept");
    makeFile(folder / "b.txt", "old");
    EXPECT_FALSE(movefile(folder / "a.txt", folder / "missing/c.txt"));
    EXPECT_EQ(bytesOf(folder / "a.txt"), "kept");
    EXPECT_FALSE(movefile(folder / "missing", folder / "b.txt"));
    EXPECT_EQ(namesIn(folder.path()), Names{"a.txt"});
}

// Writes are not looked at, so a source whose copy found no room is gone like any other.
TEST(FileOperations, MovefileRemovesASourceWhoseCopyCouldNotBeWritten)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.txt", std::string(100000, 'a'));
    expectTrueInChild([&] {
        std::signal(SIGXFSZ, SIG_IGN);
        const rlimit none{0, 0};
        setrlimit(RLIMIT_FSIZE, &none);
        return movefile(folder / "a.txt", folder / "b.txt");
    });
    EXPECT_EQ(namesIn(folder.path()), Names{"b.txt"});
    EXPECT_EQ(bytesOf(folder / "b.txt"), "");
}
