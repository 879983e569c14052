#include "base/bytes.h"

#include "support/socket_file.h"
#include "support/system_faults.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cstddef>
#include <cstdio>
#include <filesystem>
#include <new>
#include <string>
#include <string_view>

#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace tavelinUtils;

TEST(OpenFile, IsNullWhereTheFileCannotBeOpened)
{
    const TemporaryFolder folder;
    EXPECT_EQ(openFile(folder / "missing", "rb"), nullptr);
    EXPECT_EQ(openFile(folder / "missing/a", "w"), nullptr);
    EXPECT_EQ(openFile(folder.path(), "w"), nullptr);
    EXPECT_EQ(openFile("", "rb"), nullptr);
    EXPECT_FALSE(exists(folder / "missing"));
}

// A file that is there must not pass for one that is missing.
TEST(OpenFile, ThrowsWhereTheSystemHasNoMemoryForAnInput)
{
    const TemporaryFolder folder;
    makeFile(folder / "a", "one");
    const int status = statusOfChild([&folder] {
        setFaults({{SYS_openat, ENOMEM}});
        const bool isNull = openFile(folder / "b", "w") == nullptr;
        try {
            openFile(folder / "a", "rb");
        } catch (const std::bad_alloc&) {
            _exit(isNull ? 0 : 2);
        }
        _exit(3);
    });
    EXPECT_EQ(status, 0);
}

TEST(OpenFile, FilesWithoutAStatusAreOfNoKindAndNoSize)
{
    const TemporaryFolder folder;
    makeFile(folder / "a", "one");
    const int status = statusOfChild([&folder] {
        setFaults({{SYS_fstat, EIO}, {SYS_newfstatat, EIO}});
        const OpenFile file = openForReading(folder / "a");
        _exit(file != nullptr && !isRegular(file.get()) && sizeOf(file.get()) == 0 ? 0 : 1);
    });
    EXPECT_EQ(status, 0);
}

TEST(OpenFile, ClosesItself)
{
    const TemporaryFolder folder;
    {
        const OpenFile file = openFile(folder / "a", "w");
        ASSERT_NE(file, nullptr);
        EXPECT_EQ(std::fputs("one", file.get()), 1);
    }
    EXPECT_EQ(bytesOf(folder / "a"), "one");
}

// As where a file system keeps bytes back and only then finds no room for them.
TEST(WriteBytes, AFileThatDoesNotCloseIsNotWritten)
{
    const TemporaryFolder folder;
    const int status = statusOfChild([&folder] {
        PieceFile pieces(folder / "b", PieceFile::Old::replaced);
        pieces.text() += "pieces";
        setFaults({{SYS_close, EIO}});
        const bool written = writeBytes(folder / "a", "w", "bytes");
        _exit((written ? 1 : 0) + (pieces.close() ? 2 : 0));
    });
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << status;
    EXPECT_EQ(bytesOf(folder / "a"), "bytes");
    EXPECT_EQ(bytesOf(folder / "b"), "pieces");
}

TEST(CanBeOpened, FilesAndFoldersCan)
{
    const TemporaryFolder folder;
    makeFile(folder / "a", "x");
    makeSocket(folder / "s");
    EXPECT_TRUE(canBeOpened(folder / "a"));
    EXPECT_TRUE(canBeOpened(folder.path()));
    EXPECT_FALSE(canBeOpened(folder / "missing"));
    EXPECT_FALSE(canBeOpened(folder / "s"));
    EXPECT_FALSE(canBeOpened(""));
}

TEST(OpenForReading, FolderIsNotOpened)
{
    const TemporaryFolder folder;
    makeFile(folder / "a", "x");
    EXPECT_NE(openForReading(folder / "a"), nullptr);
    EXPECT_EQ(openForReading(folder.path()), nullptr);
    EXPECT_EQ(openForReading(folder / "missing"), nullptr);
}

TEST(SizeOf, IsThatOfARegularFile)
{
    const TemporaryFolder folder;
    makeFile(folder / "a", "12345");
    EXPECT_EQ(sizeOf(openForReading(folder / "a").get()), 5u);
    EXPECT_EQ(sizeOf(openForReading("/dev/null").get()), 0u);
}

TEST(ReadBytes, GivesEveryByteAndSpareZerosBehindTheLast)
{
    const TemporaryFolder folder;
    std::string many;
    for (int i = 0; i < 1000003; ++i) {
        many += static_cast<char>(i * 7 + i / 256);
    }
    const std::string contents[] = {"",
                                    "a",
                                    "one\r\ntwo\n",
                                    std::string("a\0b\0\0", 5),
                                    "\xff\xfe\xe0",
                                    std::string(4096, 'x'),
                                    std::string(65536, 'y'),
                                    many};
    for (const std::string& content : contents) {
        SCOPED_TRACE(content.size());
        makeFile(folder / "a.bin", content);
        FileBytes file;
        ASSERT_TRUE(readBytes(folder / "a.bin", file));
        ASSERT_EQ(file.size, content.size());
        EXPECT_TRUE(file.view() == content);
        for (std::size_t i = 0; i < 8; ++i) {
            EXPECT_EQ(file.bytes[content.size() + i], '\0') << i;
        }
    }
}

TEST(ReadBytes, ReadsToTheEndWhateverSizeTheSystemTells)
{
    ASSERT_EQ(std::filesystem::file_size("/proc/sys/kernel/ostype"), 0u);
    FileBytes file;
    ASSERT_TRUE(readBytes("/proc/sys/kernel/ostype", file));
    EXPECT_EQ(file.view(), "Linux\n");
}

TEST(ReadBytes, ReplacesWhatTheTargetHeld)
{
    const TemporaryFolder folder;
    makeFile(folder / "long", "a longer one");
    makeFile(folder / "short", "b");
    FileBytes file;
    ASSERT_TRUE(readBytes(folder / "long", file));
    ASSERT_TRUE(readBytes(folder / "short", file));
    EXPECT_EQ(file.view(), "b");
}

TEST(ReadBytes, FailureLeavesTheTarget)
{
    const TemporaryFolder folder;
    makeFile(folder / "a", "kept");
    makeSocket(folder / "s");
    FileBytes file;
    ASSERT_TRUE(readBytes(folder / "a", file));
    EXPECT_FALSE(readBytes(folder / "missing", file));
    EXPECT_FALSE(readBytes(folder.path(), file));
    EXPECT_FALSE(readBytes(folder / "s", file));
    EXPECT_FALSE(readBytes("", file));
    EXPECT_EQ(file.view(), "kept");
}

TEST(WriteBytes, WritesInTheMode)
{
    const TemporaryFolder folder;
    EXPECT_TRUE(writeBytes(folder / "a", "w", std::string_view("a\0\r\nb", 5)));
    EXPECT_EQ(bytesOf(folder / "a"), std::string("a\0\r\nb", 5));
    EXPECT_TRUE(writeBytes(folder / "a", "a", "more"));
    EXPECT_EQ(bytesOf(folder / "a"), std::string("a\0\r\nbmore", 9));
    EXPECT_TRUE(writeBytes(folder / "a", "w", ""));
    EXPECT_EQ(bytesOf(folder / "a"), "");
    EXPECT_TRUE(writeBytes(folder / "new", "a", ""));
    EXPECT_EQ(bytesOf(folder / "new"), "");
    const std::string large(3000001, 'z');
    EXPECT_TRUE(writeBytes(folder / "large", "w", large));
    EXPECT_TRUE(bytesOf(folder / "large") == large);
}

TEST(WriteBytes, IsFalseWhereOpeningOrWritingFails)
{
    const TemporaryFolder folder;
    EXPECT_FALSE(writeBytes(folder.path(), "w", "x"));
    EXPECT_FALSE(writeBytes(folder / "missing/a", "w", "x"));
    EXPECT_FALSE(writeBytes("", "w", "x"));
    EXPECT_FALSE(writeBytes("/dev/full", "w", "x"));
    EXPECT_FALSE(writeBytes("/dev/full", "a", "x"));
    EXPECT_FALSE(writeBytes("/dev/full", "w", std::string(3000001, 'z')));
    EXPECT_FALSE(exists(folder / "missing"));
}
