// Folders on file systems that do not tell files from folders: every entry is a file to the library.

#include "files/file_operations.h"
#include "files/file_search.h"

#include "support/folder_entries.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

using namespace tavelinUtils;

namespace {

using Texts = std::vector<std::string>;

class EntryKinds : public testing::Test
{
protected:
    EntryKinds()
    {
        std::filesystem::create_directories(folder / "night/raw");
        makeFile(folder / "night/raw/1.fit", "");
        makeFile(folder / "night/2.fit", "");
        setFolderEntries(FolderEntries::withoutKinds);
    }
    ~EntryKinds() override
    {
        setFolderEntries(FolderEntries::asTheyAre);
    }

    const TemporaryFolder folder{};
};

} // namespace

TEST_F(EntryKinds, SearchFindsFoldersAsFilesAndEntersNone)
{
    Texts directories;
    Texts files;
    FindFile(folder / "night", "", "", directories, files);
    std::sort(files.begin(), files.end());
    EXPECT_EQ(directories, Texts{});
    EXPECT_EQ(files, (Texts{folder / "night/2.fit", folder / "night/raw"}));
}

TEST_F(EntryKinds, SearchForFoldersFindsNone)
{
    Texts directories;
    FindDir(folder.path(), "night", directories);
    EXPECT_EQ(directories, Texts{});
}

TEST_F(EntryKinds, FoldersAreReadWithEachEntryAsAFile)
{
    std::vector<FolderEntry> entries;
    ASSERT_TRUE(readFolder(folder / "night", entries));
    ASSERT_EQ(entries.size(), 2u);
    EXPECT_FALSE(entries[0].isFolder || entries[1].isFolder);
}

// A folder with entries cannot be removed as a file is: it stays, with what is above it.
TEST_F(EntryKinds, RemovalLeavesFilledFolders)
{
    removedirectoryrecursively((folder / "night").c_str());
    EXPECT_FALSE(exists(folder / "night/2.fit"));
    EXPECT_TRUE(exists(folder / "night/raw/1.fit"));
}
