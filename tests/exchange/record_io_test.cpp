#include "exchange/record_io.h"

#include "support/failed_writes.h"
#include "support/record_bytes.h"
#include "support/system_faults.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <climits>
#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include <sys/syscall.h>
#include <unistd.h>

using namespace tavelinUtils;

namespace {

struct Pair
{
    int First = -1;
    int Second = -1;
};

/// Makes a file of the bytes and calls the work with a reader of it.
template <class Work>
void withReader(const std::string& bytes, Work work)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.bin", bytes);
    RecordReader reader(folder / "a.bin");
    ASSERT_TRUE(reader.isOpen());
    work(reader);
}

} // namespace

TEST(RecordIo, HeadCountIsBelievedUpToALimitOrTheSizeOfTheFile)
{
    const struct
    {
        int count;
        std::size_t fileSize;
        std::optional<std::size_t> size;
    } rows[] = {
        {0, 4, 0},
        {1, 4, 1},
        {1000, 4, 1000},
        {65536, 0, 65536},
        {65537, 65536, std::nullopt},
        {65537, 65537, 65537},
        {65537, 65538, 65537},
        {INT_MAX, 0, std::nullopt},
        {INT_MAX, 2147483646, std::nullopt},
        {INT_MAX, 2147483647, 2147483647},
        {-1, 4, 0},
        {-65537, 4, 0},
        {INT_MIN, 0, 0},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(std::to_string(row.count) + " in " + std::to_string(row.fileSize));
        EXPECT_EQ(headCount(row.count, row.fileSize), row.size);
    }
}

TEST(RecordIo, ImagesFollowEachOther)
{
    const TemporaryFolder folder;
    RecordWriter file(folder / "a.bin");
    file.write(258);
    file.write(Pair{-2, 3});
    file.write(1.0);
    file.writeCount(7);
    file.write(std::vector<Pair>{{4, 5}, {6, 7}});
    file.write(std::vector<Pair>{});
    EXPECT_TRUE(file.close());
    using namespace std::string_literals;
    EXPECT_EQ(bytesOf(folder / "a.bin"), "\x02\x01\x00\x00"
                                         "\xfe\xff\xff\xff\x03\x00\x00\x00"
                                         "\x00\x00\x00\x00\x00\x00\xf0\x3f"
                                         "\x07\x00\x00\x00"
                                         "\x04\x00\x00\x00\x05\x00\x00\x00\x06\x00\x00\x00\x07\x00\x00\x00"s);
}

TEST(RecordIo, WriterReplacesAFile)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.bin", "longer than what comes");
    RecordWriter file(folder / "a.bin");
    file.write(1);
    EXPECT_TRUE(file.close());
    EXPECT_EQ(bytesOf(folder / "a.bin"), int32s({1}));
}

TEST(RecordIo, WriterWithoutRecordsLeavesAnEmptyFile)
{
    const TemporaryFolder folder;
    RecordWriter file(folder / "a.bin");
    EXPECT_TRUE(file.close());
    EXPECT_EQ(bytesOf(folder / "a.bin"), "");
}

TEST(RecordIo, FailedWriteIsToldWhenTheFileIsClosed)
{
    forUnwritablePaths([](const std::string& path) {
        RecordWriter file(path);
        file.write(1);
        EXPECT_FALSE(file.close());
    });
}

TEST(RecordIo, FailedWriteOfALargeFileIsTold)
{
    forUnwritablePaths(
        [](const std::string& path) { EXPECT_FALSE(writeRecords(path, std::vector<Pair>(100000))); });
}

TEST(RecordIo, ReaderOfAMissingFileOrAFolderIsNotOpen)
{
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder / "folder");
    EXPECT_FALSE(RecordReader(folder / "missing.bin").isOpen());
    EXPECT_FALSE(RecordReader(folder / "missing/a.bin").isOpen());
    EXPECT_FALSE(RecordReader(folder / "folder").isOpen());
    EXPECT_FALSE(RecordReader("").isOpen());
}

TEST(RecordIo, ReaderTakesRecordAfterRecord)
{
    withReader(int32s({258}) + doubles({-0.5}) + int32s({4, 5, 6, 7}), [](RecordReader& reader) {
        int number = 0;
        reader.read(number);
        EXPECT_EQ(number, 258);
        double value = 0.0;
        reader.read(value);
        EXPECT_EQ(value, -0.5);
        std::vector<Pair> pairs(2);
        EXPECT_FALSE(reader.atEnd());
        reader.read(pairs);
        EXPECT_EQ(pairs[0].First, 4);
        EXPECT_EQ(pairs[0].Second, 5);
        EXPECT_EQ(pairs[1].First, 6);
        EXPECT_EQ(pairs[1].Second, 7);
        EXPECT_TRUE(reader.atEnd());
    });
}

TEST(RecordIo, RecordThatTheFileDoesNotHoldWholeStaysAndEndsTheFile)
{
    withReader(int32s({1, 2, 3}), [](RecordReader& reader) {
        Pair first, second;
        reader.read(first);
        EXPECT_EQ(first.Second, 2);
        EXPECT_FALSE(reader.atEnd());
        reader.read(second);
        EXPECT_EQ(second.First, -1);
        EXPECT_EQ(second.Second, -1);
        EXPECT_TRUE(reader.atEnd());
        int rest = 9;
        reader.read(rest);
        EXPECT_EQ(rest, 9);
    });
}

TEST(RecordIo, ListKeepsWhatTheFileLacks)
{
    withReader(int32s({1, 2, 3}), [](RecordReader& reader) {
        std::vector<Pair> pairs(3);
        reader.read(pairs);
        ASSERT_EQ(pairs.size(), 3u);
        EXPECT_EQ(pairs[0].First, 1);
        EXPECT_EQ(pairs[0].Second, 2);
        EXPECT_EQ(pairs[1].First, -1);
        EXPECT_EQ(pairs[1].Second, -1);
        EXPECT_EQ(pairs[2].First, -1);
    });
}

TEST(RecordIo, CountsAreReadAsTheyStand)
{
    withReader(int32s({3, -3, INT_MAX}) + "\x01", [](RecordReader& reader) {
        EXPECT_EQ(reader.readCount(), 3u);
        EXPECT_EQ(reader.readCount(), 0u);
        EXPECT_EQ(reader.readCount(), 2147483647u);
        EXPECT_EQ(reader.readCount(), 0u);
        EXPECT_EQ(reader.readCount(), 0u);
    });
}

TEST(RecordIo, HeadCountIsHeldAgainstTheWholeFile)
{
    withReader(int32s({65537}) + zeros(65533), [](RecordReader& reader) {
        EXPECT_EQ(reader.readHeadCount(), std::optional<std::size_t>(65537));
    });
    withReader(int32s({65537}) + zeros(65532),
               [](RecordReader& reader) { EXPECT_EQ(reader.readHeadCount(), std::nullopt); });
    withReader(int32s({1, 65537}) + zeros(65529), [](RecordReader& reader) {
        reader.readCount();
        EXPECT_EQ(reader.readHeadCount(), std::optional<std::size_t>(65537));
    });
    withReader(int32s({-1}), [](RecordReader& reader) {
        EXPECT_EQ(reader.readHeadCount(), std::optional<std::size_t>(0));
    });
    withReader("abc", [](RecordReader& reader) {
        EXPECT_EQ(reader.readHeadCount(), std::optional<std::size_t>(0));
    });
    withReader(
        "", [](RecordReader& reader) { EXPECT_EQ(reader.readHeadCount(), std::optional<std::size_t>(0)); });
}

TEST(RecordIo, LaterCountIsHeldAgainstTheRestOfTheFile)
{
    withReader(zeros(8 * 65537 + 7), [](RecordReader& reader) {
        EXPECT_TRUE(reader.believes(0, 8));
        EXPECT_TRUE(reader.believes(65536, 16));
        EXPECT_TRUE(reader.believes(65537, 8));
        EXPECT_FALSE(reader.believes(65538, 8));
        EXPECT_FALSE(reader.believes(65537, 16));
        EXPECT_TRUE(reader.believes(65538, 4));
        double taken = 0.0;
        reader.read(taken);
        EXPECT_FALSE(reader.believes(65537, 8));
        EXPECT_TRUE(reader.believes(65536, 8));
    });
}

TEST(RecordIo, FileWithoutCountHoldsAsManyRecordsAsFit)
{
    const TemporaryFolder folder;
    for (std::size_t size = 0; size <= 25; ++size) {
        SCOPED_TRACE(size);
        makeFile(folder / "a.bin", int32s({1, 2, 3, 4, 5, 6, 7}).substr(0, size));
        std::vector<Pair> pairs(9);
        EXPECT_TRUE(readRecords(folder / "a.bin", pairs));
        ASSERT_EQ(pairs.size(), size / 8);
        for (int i = 0; i < static_cast<int>(pairs.size()); ++i) {
            EXPECT_EQ(pairs[static_cast<std::size_t>(i)].First, 2 * i + 1);
            EXPECT_EQ(pairs[static_cast<std::size_t>(i)].Second, 2 * i + 2);
        }
    }
}

TEST(RecordIo, RecordsStayWhereAFileCannotBeRead)
{
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder / "folder");
    std::vector<Pair> pairs(2);
    for (const std::string& path : {folder / "missing.bin", folder / "folder", folder / "missing/a.bin"}) {
        SCOPED_TRACE(path);
        EXPECT_FALSE(readRecords(path, pairs));
        EXPECT_EQ(pairs.size(), 2u);
    }
}

TEST(RecordIo, RecordsWrittenAreReadAgain)
{
    const TemporaryFolder folder;
    EXPECT_TRUE(writeRecords(folder / "a.bin", std::vector<Pair>{{1, 2}, {INT_MIN, INT_MAX}}));
    EXPECT_EQ(bytesOf(folder / "a.bin"), int32s({1, 2, INT_MIN, INT_MAX}));
    std::vector<Pair> pairs;
    EXPECT_TRUE(readRecords(folder / "a.bin", pairs));
    ASSERT_EQ(pairs.size(), 2u);
    EXPECT_EQ(pairs[1].First, INT_MIN);
    EXPECT_EQ(pairs[1].Second, INT_MAX);
}

TEST(RecordIo, FileThatCannotBeReadLeavesTheRecords)
{
    const TemporaryFolder folder;
    const std::string path = folder / "a.bin";
    makeFile(path, std::string(2 * sizeof(Pair), 'x'));
    const int status = statusOfChild([&path] {
        setFaults({{SYS_read, EIO}});
        std::vector<Pair> pairs{{1, 2}};
        const bool isRead = readRecords(path, pairs);
        const bool isOpen = RecordReader(path).isOpen();
        _exit(!isRead && !isOpen && pairs.size() == 1 && pairs[0].Second == 2 ? 0 : 3);
    });
    EXPECT_EQ(status, 0);
}
