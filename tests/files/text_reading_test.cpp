#include "files/text_reading.h"

#include "results/result.h"

#include "support/failed_reads.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace tavelinUtils;

namespace {

struct KeptLines
{
    void add(std::string_view line)
    {
        taken.emplace_back(line);
    }

    std::vector<std::string> taken;
};

} // namespace

TEST(ReadText, GivesTheBytesOfAFile)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.txt", "one\r\ntwo");
    FileBytes file;
    EXPECT_TRUE(readText(folder / "a.txt", file));
    EXPECT_EQ(file.view(), "one\r\ntwo");
}

TEST(ReadText, MissingFilesAndFoldersHaveNone)
{
    const TemporaryFolder folder;
    FileBytes file;
    EXPECT_FALSE(readText(folder / "none.txt", file));
    EXPECT_FALSE(readText(folder.path(), file));
}

TEST(ReadText, FileThatCannotBeReadToItsEndThrows)
{
    expectUnreadable([](const std::string& path) {
        FileBytes file;
        readText(path, file);
    });
}

TEST(ReadTextLines, GivesEachLine)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.txt", "one\r\n\ntwo\t\n three");
    KeptLines lines;
    EXPECT_TRUE(readTextLines(folder / "a.txt", lines));
    EXPECT_EQ(lines.taken, (std::vector<std::string>{"one", "", "two", " three"}));
}

TEST(ReadTextLines, MissingFilesAndFoldersHaveNone)
{
    const TemporaryFolder folder;
    KeptLines lines;
    EXPECT_FALSE(readTextLines(folder / "none.txt", lines));
    EXPECT_FALSE(readTextLines(folder.path(), lines));
    const OpenFile opened = openFile(folder.path(), "rb");
    EXPECT_FALSE(readTextLines(opened.get(), folder.path(), lines));
    EXPECT_TRUE(lines.taken.empty());
}

TEST(ReadTextLines, FileThatCannotBeReadToItsEndThrows)
{
    expectUnreadable([](const std::string& path) {
        KeptLines lines;
        readTextLines(path, lines);
    });
}
