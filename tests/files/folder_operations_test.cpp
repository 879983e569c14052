#include "files/file_operations.h"

#include "support/child_process.h"
#include "support/folders.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace tavelinUtils;

namespace {

using Texts = std::vector<std::string>;

/// The permissions that the process takes from new files until the end of the block.
class TakenPermissions
{
public:
    explicit TakenPermissions(mode_t mask) : before(umask(mask))
    {
    }
    ~TakenPermissions()
    {
        umask(before);
    }
    TakenPermissions(const TakenPermissions&) = delete;
    TakenPermissions& operator=(const TakenPermissions&) = delete;

private:
    mode_t before;
};

/// Makes a folder with a file in a folder; its own path may be longer than can be named.
void makeFolderWithFileAt(const std::string& parent, const char* name)
{
    const int folder = open(parent.c_str(), O_RDONLY | O_DIRECTORY);
    ASSERT_GE(folder, 0);
    ASSERT_EQ(mkdirat(folder, name, 0755), 0);
    const int made = openat(folder, name, O_RDONLY | O_DIRECTORY);
    const int file = openat(made, "a.txt", O_WRONLY | O_CREAT, 0644);
    EXPECT_GE(file, 0);
    close(file);
    close(made);
    close(folder);
}

} // namespace

TEST(FileOperations, CrtDirMakesOneFolder)
{
    const TemporaryFolder folder;
    for (const bool normalize : {false, true}) {
        const std::string name = normalize ? "a" : "b";
        EXPECT_TRUE(CrtDir(folder / name, normalize));
        EXPECT_TRUE(std::filesystem::is_directory(folder / name));
        EXPECT_TRUE(CrtDir(folder / name, normalize));
        EXPECT_TRUE(CrtDir(folder / name + "/", normalize));
        EXPECT_TRUE(CrtDir(folder / (name + "\\"), normalize));
        EXPECT_TRUE(CrtDir(folder / (name + "/below/"), normalize));
        EXPECT_FALSE(CrtDir(folder / (name + "/missing/below"), normalize));
        EXPECT_EQ(namesIn(folder / name), Names{"below"});
    }
    EXPECT_EQ(namesIn(folder.path()), (Names{"a", "b"}));
}

TEST(FileOperations, CrtDirReadsTheOtherSpellingWithTheFlagOnly)
{
    const TemporaryFolder folder;
    EXPECT_TRUE(CrtDir(folder / "a", false));
    EXPECT_TRUE(CrtDir(folder / "a\\b\\", true));
    EXPECT_TRUE(std::filesystem::is_directory(folder / "a/b"));
    EXPECT_TRUE(CrtDir(folder / "a\\b", false)); // there already, in either spelling
    EXPECT_EQ(namesIn(folder.path()), Names{"a"});
    EXPECT_TRUE(CrtDir(folder / "a\\c", false));
    EXPECT_EQ(namesIn(folder.path()), (Names{"a", "a\\c"}));
    EXPECT_EQ(namesIn(folder / "a"), Names{"b"});
}

TEST(FileOperations, CrtDirFailsWhereAFileStands)
{
    const TemporaryFolder folder;
    const PresentFolder present(folder.path());
    makeFile(folder / "a", "kept");
    for (const bool normalize : {false, true}) {
        EXPECT_FALSE(CrtDir(folder / "a", normalize));
        EXPECT_FALSE(CrtDir(folder / "a/b", normalize));
        EXPECT_FALSE(CrtDir("", normalize));
    }
    EXPECT_EQ(bytesOf(folder / "a"), "kept");
    EXPECT_EQ(namesIn(folder.path()), Names{"a"});
}

TEST(FileOperations, FoldersAreMadeWithMode0755)
{
    const TemporaryFolder folder;
    struct Row
    {
        mode_t taken, expected;
    };
    for (const Row row : {Row{0, 0755}, Row{022, 0755}, Row{027, 0750}, Row{077, 0700}}) {
        const std::string name = std::to_string(row.taken);
        {
            const TakenPermissions taken(row.taken);
            EXPECT_TRUE(CrtDir(folder / name, false));
            EXPECT_TRUE(CreateDir(folder / name + "/below", false));
        }
        for (const std::string& path : {folder / name, folder / name + "/below"}) {
            struct stat status
            {
            };
            ASSERT_EQ(stat(path.c_str(), &status), 0);
            EXPECT_EQ(status.st_mode & 07777, row.expected) << row.taken;
        }
    }
}

TEST(FileOperations, CreateDirMakesWhatIsMissingAbove)
{
    for (const bool normalize : {false, true}) {
        const TemporaryFolder folder;
        const PresentFolder present(folder.path());
        EXPECT_TRUE(CreateDir("a/b/c", normalize));
        EXPECT_TRUE(std::filesystem::is_directory(folder / "a/b/c"));
        EXPECT_TRUE(CreateDir("a/b/c", normalize));
        EXPECT_TRUE(CreateDir(folder / "d/e/", normalize));
        EXPECT_TRUE(CreateDir(folder / "d//e//f", normalize));
        EXPECT_TRUE(std::filesystem::is_directory(folder / "d/e/f"));
        EXPECT_TRUE(CreateDir("c:/data", normalize));
        EXPECT_TRUE(std::filesystem::is_directory(folder / "c:/data"));
        EXPECT_EQ(namesIn(folder.path()), (Names{"a", "c:", "d"}));
    }
}

TEST(FileOperations, CreateDirOfAnEmptyPathIsFalse)
{
    const TemporaryFolder folder;
    const PresentFolder present(folder.path());
    EXPECT_FALSE(CreateDir("", false));
    EXPECT_FALSE(CreateDir("", true));
    EXPECT_EQ(namesIn(folder.path()), Names{});
}

TEST(FileOperations, CreateDirStopsAtTheFirstFailure)
{
    for (const bool normalize : {false, true}) {
        const TemporaryFolder folder;
        std::filesystem::create_directory(folder / "a");
        makeFile(folder / "a/file", "kept");
        EXPECT_FALSE(CreateDir(folder / "a/file/c/d", normalize));
        EXPECT_FALSE(CreateDir(folder / "a/file", normalize));
        EXPECT_EQ(bytesOf(folder / "a/file"), "kept");

        const std::string tooLong(256, 'n');
        EXPECT_FALSE(CreateDir(folder / "b/c/" + tooLong + "/d", normalize));
        EXPECT_TRUE(std::filesystem::is_directory(folder / "b/c"));
        EXPECT_EQ(namesIn(folder / "b/c"), Names{});
    }
}

TEST(FileOperations, CreateDirReadsTheOtherSpellingWithTheFlagOnly)
{
    const TemporaryFolder folder;
    const PresentFolder present(folder.path());
    EXPECT_TRUE(CreateDir("a\\b\\", true));
    EXPECT_TRUE(std::filesystem::is_directory(folder / "a/b"));
    EXPECT_TRUE(CreateDir("a\\b", false)); // there already, in either spelling
    EXPECT_EQ(namesIn(folder.path()), Names{"a"});
    EXPECT_TRUE(CreateDir("c\\d/e", false));
    EXPECT_EQ(namesIn(folder.path()), (Names{"a", "c\\d"}));
    EXPECT_EQ(namesIn(folder / "c\\d"), Names{"e"});
}

TEST(FileOperations, RemovedirectoryrecursivelyEmptiesAFolder)
{
    const TemporaryFolder folder;
    std::filesystem::create_directories(folder / "a/b/c");
    std::filesystem::create_directories(folder / "a/.hidden");
    makeFile(folder / "a/%s%n.txt", "a");
    makeFile(folder / "a/b/c/a.txt", "a");
    makeFile(folder / "a/.hidden/.a", "a");
    ASSERT_EQ(mkfifo((folder / "a/fifo").c_str(), 0600), 0);
    makeFile(folder / "kept.txt", "kept");

    EXPECT_EQ(removedirectoryrecursively((folder / "a").c_str()), 1);
    EXPECT_EQ(namesIn(folder.path()), (Names{"a", "kept.txt"}));
    EXPECT_EQ(namesIn(folder / "a"), Names{});
    EXPECT_EQ(removedirectoryrecursively((folder / "a/").c_str()), 1);
    EXPECT_TRUE(exists(folder / "a"));
}

TEST(FileOperations, RemovedirectoryrecursivelyOfNoFolderIs0)
{
    const TemporaryFolder folder;
    makeFile(folder / "a", "kept");
    EXPECT_EQ(removedirectoryrecursively((folder / "a").c_str()), 0);
    EXPECT_EQ(removedirectoryrecursively((folder / "missing").c_str()), 0);
    EXPECT_EQ(removedirectoryrecursively(""), 0);
    EXPECT_EQ(removedirectoryrecursively(nullptr), 0);
    EXPECT_EQ(bytesOf(folder / "a"), "kept");
}

// A folder that only its owner may change, removed by somebody else.
TEST(FileOperations, WhatCannotBeRemovedIsPassedOver)
{
    const TemporaryFolder folder;
    std::filesystem::permissions(folder.path(), std::filesystem::perms(0777));
    for (const char* const name : {"a", "a/open", "a/locked", "a/open2"}) {
        std::filesystem::create_directory(folder / name);
        makeFile(folder / std::string(name) + "/b.txt", "b");
        std::filesystem::permissions(folder / name, std::filesystem::perms(0777));
    }
    std::filesystem::permissions(folder / "a/locked", std::filesystem::perms(0555));
    expectTrueInChild([&] {
        if (geteuid() == 0 && setuid(65534) != 0) {
            return false;
        }
        return removedirectoryrecursively((folder / "a").c_str()) == 1;
    });
    EXPECT_EQ(namesIn(folder / "a"), Names{"locked"});
    EXPECT_EQ(bytesOf(folder / "a/locked/b.txt"), "b");
    std::filesystem::permissions(folder / "a/locked", std::filesystem::perms(0755));
}

TEST(FileOperations, DeleteDirRemovesAFolderAndAllThatItHolds)
{
    const TemporaryFolder folder;
    for (const char* const end : {"", "/"}) {
        std::filesystem::create_directories(folder / "a/b/c");
        std::filesystem::create_directories(folder / "a/d.fit");
        makeFile(folder / "a/b/c/a.fit", "a");
        makeFile(folder / "a/.hidden", "a");
        makeFile(folder / "a/d.fit/no extension", "a");
        makeFile(folder / "ab", "kept");
        DeleteDir(folder / "a" + end);
        EXPECT_EQ(namesIn(folder.path()), Names{"ab"});
    }
}

TEST(FileOperations, DeleteDirLeavesWhatIsNoFolder)
{
    const TemporaryFolder folder;
    const PresentFolder present(folder.path());
    makeFile(folder / "a", "kept");
    DeleteDir(folder / "a");
    DeleteDir(folder / "missing");
    DeleteDir("");
    EXPECT_EQ(namesIn(folder.path()), Names{"a"});
}

// The test for a folder reads both spellings, the rest does not.
TEST(FileOperations, DeleteDirOfAFolderInTheOtherSpellingRemovesNothing)
{
    const TemporaryFolder folder;
    std::filesystem::create_directories(folder / "a/b");
    makeFile(folder / "a/b/c.txt", "kept");
    DeleteDir(folder / "a\\b");
    EXPECT_EQ(bytesOf(folder / "a/b/c.txt"), "kept");
}

TEST(FileOperations, LinksGoAndWhatTheyLeadToStays)
{
    using Removal = void (*)(const std::string&);
    const Removal removals[] = {[](const std::string& path) { DeleteDir(path); },
                                [](const std::string& path) { removedirectoryrecursively(path.c_str()); }};
    for (const Removal remove : removals) {
        const TemporaryFolder folder;
        std::filesystem::create_directories(folder / "outside/below");
        makeFile(folder / "outside/below/kept.txt", "kept");
        std::filesystem::create_directories(folder / "a/b/c");
        std::filesystem::create_directory_symlink(folder / "outside", folder / "a/folder");
        std::filesystem::create_directory_symlink("../../outside", folder / "a/b/relative");
        std::filesystem::create_symlink(folder / "outside/below/kept.txt", folder / "a/file");
        std::filesystem::create_symlink(folder / "missing", folder / "a/b/nowhere");
        std::filesystem::create_directory_symlink(folder / "a", folder / "a/b/c/loop");
        std::filesystem::create_directory_symlink("..", folder / "a/b/c/above");
        std::filesystem::create_symlink("itself", folder / "a/itself");

        expectTrueInChild([&] {
            remove(folder / "a");
            return true;
        });
        EXPECT_TRUE(!exists(folder / "a") || namesIn(folder / "a").empty());
        EXPECT_EQ(bytesOf(folder / "outside/below/kept.txt"), "kept");
    }
}

TEST(FileOperations, DeleteDirOfALinkEmptiesTheFolderAndRemovesTheLink)
{
    const TemporaryFolder folder;
    std::filesystem::create_directories(folder / "a/b");
    makeFile(folder / "a/b/c.txt", "c");
    std::filesystem::create_directory_symlink(folder / "a", folder / "link");
    DeleteDir(folder / "link");
    EXPECT_EQ(namesIn(folder.path()), Names{"a"});
    EXPECT_EQ(namesIn(folder / "a"), Names{});
}

TEST(FileOperations, DeleteDirOfPathsThatAreLongerThan1023Bytes)
{
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder / "a");
    makeChain(folder / "a", 1900); // some 3800 bytes
    const std::string deep = folderOfLength(folder / "a/b", 1500);
    makeFile(deep + "/a.fit", "a");
    makeFile(folder / "kept.txt", "kept");
    expectTrueInChild([&] {
        DeleteDir(folder / "a");
        return true;
    });
    EXPECT_EQ(namesIn(folder.path()), Names{"kept.txt"});
}

// The search goes on in the neighbour that the cut path of "doomed_one/below" names.
TEST(FileOperations, DeleteDirLeavesANeighbourOfACutName)
{
    const TemporaryFolder folder;
    const std::string parent = folderOfLength(folder / "a", 1015);
    const std::string neighbour = parent + "/doomed_";
    ASSERT_EQ(neighbour.size(), 1023U);
    std::filesystem::create_directory(neighbour);
    makeFile(neighbour + "/kept.txt", "kept");
    std::filesystem::create_directories(parent + "/doomed_one/below");
    makeFile(parent + "/doomed_one/below/a.txt", "a");

    expectTrueInChild([&] {
        DeleteDir(parent + "/doomed_one");
        return true;
    });
    EXPECT_EQ(namesIn(parent), Names{"doomed_"});
    EXPECT_EQ(bytesOf(neighbour + "/kept.txt"), "kept");
}

// The search goes on through the link that the cut path of "abcdefgh_long" names.
TEST(FileOperations, DeleteDirLeavesWhatALinkOfACutNameLeadsTo)
{
    const TemporaryFolder folder;
    std::filesystem::create_directories(folder / "outside/below");
    makeFile(folder / "outside/kept.txt", "kept");
    makeFile(folder / "outside/below/kept.txt", "kept");
    const std::string parent = folderOfLength(folder / "a", 1014);
    const std::string link = parent + "/abcdefgh";
    ASSERT_EQ(link.size(), 1023U);
    std::filesystem::create_directory_symlink(folder / "outside", link);
    std::filesystem::create_directory(link + "_long");
    makeFile(link + "_long/a.txt", "a");

    expectTrueInChild([&] {
        DeleteDir(folder / "a");
        return true;
    });
    EXPECT_EQ(namesIn(folder.path()), Names{"outside"});
    EXPECT_EQ(bytesOf(folder / "outside/kept.txt"), "kept");
    EXPECT_EQ(bytesOf(folder / "outside/below/kept.txt"), "kept");
}

TEST(FileOperations, FoldersBeyond4095BytesStayAndEverythingElseGoes)
{
    for (const std::size_t length : {4000U, 4001U})
    { // the path that reaches the limit ends in a name or a slash
        SCOPED_TRACE(length);
        const TemporaryFolder folder;
        makeChain(folderOfLength(folder / "a", length), 100);
        makeFile(folder / "a/a.txt", "a");
        makeFile(folder / "kept.txt", "kept");
        const std::string below = *namesIn(folder / "a").rbegin();
        expectTrueInChild([&] { return removedirectoryrecursively((folder / "a").c_str()) == 1; });
        EXPECT_EQ(namesIn(folder / "a"), Names{below});
        makeFile(folder / "a/a.txt", "a");
        expectTrueInChild([&] {
            DeleteDir(folder / "a");
            return true;
        });
        EXPECT_EQ(namesIn(folder.path()), (Names{"a", "kept.txt"}));
        EXPECT_EQ(namesIn(folder / "a"), Names{below});
    }
}

TEST(FileOperations, AFolderOfTheLongestPathCanBeNamedAndItsEntriesCannot)
{
    for (const std::size_t length : {4094U, 4095U}) {
        SCOPED_TRACE(length);
        const TemporaryFolder folder;
        const std::string path = folderOfLength(folder / "a", length);
        ASSERT_EQ(path.size(), length);
        makeFolderWithFileAt(path, "below");
        expectTrueInChild([&] { return removedirectoryrecursively(path.c_str()) == 1; });
        EXPECT_EQ(namesIn(path), Names{"below"});
    }
}

// A path that is cut at 4095 bytes may be a link that leads out of the folder.
TEST(FileOperations, WhatALinkOfTheLongestPathLeadsToStays)
{
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder / "outside");
    makeFile(folder / "outside/kept.txt", "kept");
    const std::string parent = folderOfLength(folder / "a", 4086);
    const std::string link = parent + "/abcdefgh";
    ASSERT_EQ(link.size(), 4095U);
    std::filesystem::create_directory_symlink(folder / "outside", link);
    makeFolderWithFileAt(parent, "abcdefgh_long");

    expectTrueInChild([&] {
        DeleteDir(folder / "a");
        return true;
    });
    EXPECT_EQ(bytesOf(folder / "outside/kept.txt"), "kept");
    EXPECT_EQ(namesIn(parent), Names{"abcdefgh_long"});
}

TEST(FileOperations, RemFileWithMaskKeepsNamesWithoutTheMask)
{
    struct Row
    {
        Texts names;
        std::string mask;
        Texts kept;
    };
    const Row rows[] = {
        {{"/x/tmp1/a.txt", "/x/b_tmp.txt"}, "tmp", {"/x/tmp1/a.txt"}},
        {{"tmp", "a", "atmpb", "b"}, "tmp", {"a", "b"}},
        {{"/x/a.TMP", "/x/a.tmp"}, "tmp", {"/x/a.TMP"}},
        {{"/x/tmp\\a.txt", "/x/a\\tmp.txt"}, "tmp", {"/x/tmp\\a.txt"}},
        {{"/x/a.txt", "/x/b*txt"}, "*", {"/x/a.txt"}},
        {{"/x/tmp/", "/x/tmp"}, "tmp", {"/x/tmp/"}},
        {{"b", "a", "b", ""}, "c", {"b", "a", "b", ""}},
        {{"/x/a.txt", "", "b"}, "", {"/x/a.txt", "", "b"}},
        {{"/x/a.txt", "x"}, "x/a", {"/x/a.txt", "x"}},
        {{"a", "b"}, "longer than the names", {"a", "b"}},
        {{}, "tmp", {}},
        {{}, "", {}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.mask);
        Texts names = row.names;
        RemFileWithMask(names, row.mask);
        EXPECT_EQ(names, row.kept);
    }
}

TEST(FileOperations, RemFileWithMasksAppliesEachOfThem)
{
    struct Row
    {
        Texts masks;
        Texts kept;
    };
    const Row rows[] = {
        {{"STEP-", "tmp"}, {"/tmp/a.fit", "c.FIT"}},
        {{"tmp", "STEP-"}, {"/tmp/a.fit", "c.FIT"}},
        {{"", "STEP-", ""}, {"/tmp/a.fit", "/x/a_tmp.fit", "c.FIT"}},
        {{}, {"/tmp/a.fit", "/x/STEP-a.fit", "/x/a_tmp.fit", "c.FIT"}},
        {{"fit", "FIT"}, {}},
    };
    for (const Row& row : rows) {
        Texts names{"/tmp/a.fit", "/x/STEP-a.fit", "/x/a_tmp.fit", "c.FIT"};
        RemFileWithMask(names, row.masks);
        EXPECT_EQ(names, row.kept);
    }
}

TEST(FileOperations, RemFileWithMaskLeavesTheFilesThemselves)
{
    const TemporaryFolder folder;
    makeFile(folder / "tmp.txt", "kept");
    Texts names{folder / "tmp.txt"};
    RemFileWithMask(names, "tmp");
    EXPECT_EQ(names, Texts{});
    EXPECT_EQ(bytesOf(folder / "tmp.txt"), "kept");
}
