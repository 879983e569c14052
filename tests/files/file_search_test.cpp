#include "files/file_search.h"

#include "results/result.h"
#include "support/child_process.h"
#include "support/folders.h"
#include "support/system_faults.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <filesystem>
#include <limits>
#include <string>
#include <vector>

#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

using namespace tavelinUtils;

namespace {

using Texts = std::vector<std::string>;

/// What a search found.
struct Found
{
    Texts directories{}, files{};
};

Found find(const std::string& root, const std::string& mask = "", const std::string& extension = "")
{
    Found found;
    FindFile(root, mask, extension, found.directories, found.files);
    return found;
}

/// A list without its order, which is the file system's. Entries that came twice are there twice.
Texts sorted(Texts texts)
{
    std::sort(texts.begin(), texts.end());
    return texts;
}

/// The names below the root as paths, without an order.
Texts below(const std::string& root, const Texts& names)
{
    Texts paths;
    for (const std::string& name : names) {
        paths.push_back(root + "/" + name);
    }
    return sorted(paths);
}

/// A tree with files at three levels.
void makeTree(const std::string& root)
{
    std::filesystem::create_directories(root + "/a/b");
    std::filesystem::create_directory(root + "/c.fit");
    for (const char* const name : {"1.fit", "a/2.fit", "a/2.txt", "a/b/3.fit", "a/b/dataPO.bin", "c.fit/4"}) {
        makeFile(root + '/' + name, "");
    }
}

} // namespace

TEST(FileSearch, EveryFolderAndFileOfTheTreeIsListed)
{
    const TemporaryFolder folder;
    makeTree(folder.path());
    const Found found = find(folder.path());
    EXPECT_EQ(sorted(found.directories), below(folder.path(), {"a", "a/b", "c.fit"}));
    EXPECT_EQ(sorted(found.files), below(folder.path(), {"1.fit", "a/2.fit", "a/2.txt", "a/b/3.fit",
                                                         "a/b/dataPO.bin", "c.fit/4"}));
}

TEST(FileSearch, MaskAndExtensionChooseAmongTheFilesOnly)
{
    const TemporaryFolder folder;
    makeTree(folder.path());
    struct Row
    {
        std::string mask, extension;
        Texts files;
    };
    const Row rows[] = {
        {"", ".fit", {"1.fit", "a/2.fit", "a/b/3.fit"}},
        {"2", "", {"a/2.fit", "a/2.txt"}},
        {"2", ".fit", {"a/2.fit"}},
        {"b", "", {"a/b/dataPO.bin"}},
        {"a/", "", {}},
        {"c.fit", "", {}},
        {"none", "", {}},
        {"", ".none", {}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE("mask " + row.mask + ", extension " + row.extension);
        const Found found = find(folder.path(), row.mask, row.extension);
        EXPECT_EQ(sorted(found.directories), below(folder.path(), {"a", "a/b", "c.fit"}));
        EXPECT_EQ(sorted(found.files), below(folder.path(), row.files));

        Texts files{"before"};
        FindFile(folder.path(), row.mask, row.extension, files);
        EXPECT_EQ(sorted(files), below(folder.path(), row.files));
    }
}

TEST(FileSearch, AnExtensionIsComparedWholeWithItsPointAndInItsCase)
{
    const TemporaryFolder folder;
    const Texts names{"a.fit.txt", "b.fit", "c.FIT",        "d.fits", "noextension",
                      "e.",        ".fit",  ".hidden.conf", "f.Conf"};
    for (const std::string& name : names) {
        makeFile(folder / name, "");
    }
    struct Row
    {
        std::string extension;
        Texts files;
    };
    const Row rows[] = {
        {".txt", {"a.fit.txt"}},
        {".fit", {"b.fit", ".fit"}},
        {".FIT", {"c.FIT"}},
        {".fits", {"d.fits"}},
        {".fit.txt", {}},
        {"fit", {}},
        {".fi", {}},
        {"noextension", {}},
        {".", {"e."}},
        {".conf", {".hidden.conf"}},
        {".*", {}},
        {"", names},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(sorted(find(folder.path(), "", row.extension).files), below(folder.path(), row.files))
            << row.extension;
    }
}

TEST(FileSearch, AMaskIsAPlainPartOfTheName)
{
    const TemporaryFolder folder;
    const Texts names{"dataPO.bin", "POINT.txt", "data.PO", "point.txt", "Po.bin", "P-O.txt", "a*b", "aab"};
    for (const std::string& name : names) {
        makeFile(folder / name, "");
    }
    struct Row
    {
        std::string mask;
        Texts files;
    };
    const Row rows[] = {
        {"PO", {"dataPO.bin", "POINT.txt", "data.PO"}},
        {"point.txt", {"point.txt"}},
        {".bin", {"dataPO.bin", "Po.bin"}},
        {"a*b", {"a*b"}},
        {"*", {"a*b"}},
        {"?", {}},
        {"point.txt.", {}},
        {"vomar_test", {}}, // in the root's path only
        {"", names},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(sorted(find(folder.path(), row.mask).files), below(folder.path(), row.files)) << row.mask;
    }
}

TEST(FileSearch, ARootThatCannotBeOpenedContributesNothing)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.txt", "");
    for (const std::string& root : {folder / "missing", folder / "a.txt", std::string()}) {
        SCOPED_TRACE(root);
        Texts directories{"before"};
        Texts files{"before"};
        FindFile(root, "", "", directories, files);
        EXPECT_EQ(directories, Texts{});
        EXPECT_EQ(files, Texts{});

        directories = files = {"before"};
        pFindFileDirLin(root, "", "", directories, files);
        EXPECT_EQ(directories, Texts{});
        EXPECT_EQ(files, Texts{});

        FindFileRecur(root.c_str(), 0, "", "", directories, files);
        EXPECT_EQ(directories, Texts{});
        EXPECT_EQ(files, Texts{});
    }
}

TEST(FileSearch, AnEmptyRootLeavesTheOneList)
{
    Texts files{"before"};
    FindFile("", "", "", files);
    EXPECT_EQ(files, Texts{"before"});

    const TemporaryFolder folder;
    FindFile(folder / "missing", "", "", files);
    EXPECT_EQ(files, Texts{});
}

TEST(FileSearch, ListsAreReplacedAndTrimmed)
{
    const TemporaryFolder folder;
    makeTree(folder.path());
    Texts directories(50, "before");
    Texts files(50, "before");
    FindFile(folder.path(), "", ".fit", directories, files);
    EXPECT_EQ(directories.size(), 3U);
    EXPECT_EQ(files.size(), 3U);
    EXPECT_EQ(directories.capacity(), 3U);
    EXPECT_EQ(files.capacity(), 3U);

    files.assign(50, "before");
    FindFile(folder.path(), "", ".fit", files);
    EXPECT_EQ(files.size(), 3U);
    EXPECT_EQ(files.capacity(), 3U);
}

TEST(FileSearch, PFindFileDirLinReplacesBothLists)
{
    const TemporaryFolder folder;
    makeTree(folder.path());
    Texts directories(50, "before");
    Texts files(50, "before");
    pFindFileDirLin(folder.path(), "3", ".fit", directories, files);
    EXPECT_EQ(sorted(directories), below(folder.path(), {"a", "a/b", "c.fit"}));
    EXPECT_EQ(files, Texts{folder / "a/b/3.fit"});
    EXPECT_GE(files.capacity(), 50U);
}

TEST(FileSearch, FindFileRecurAppends)
{
    const TemporaryFolder folder;
    makeTree(folder.path());
    for (const int depth : {0, 1, -7, 100000, std::numeric_limits<int>::max()}) {
        SCOPED_TRACE(depth);
        Texts directories{"before"};
        Texts files{"before"};
        FindFileRecur(folder.path().c_str(), depth, "", ".fit", directories, files);
        ASSERT_EQ(directories.size(), 4U);
        ASSERT_EQ(files.size(), 4U);
        EXPECT_EQ(directories.front(), "before");
        EXPECT_EQ(files.front(), "before");
        EXPECT_EQ(sorted({files.begin() + 1, files.end()}),
                  below(folder.path(), {"1.fit", "a/2.fit", "a/b/3.fit"}));
    }
}

TEST(FileSearch, ANullPointerIsAFolderThatCannotBeOpened)
{
    Texts directories{"before"};
    Texts files{"before"};
    FindFileRecur(nullptr, 0, "", "", directories, files);
    FindDirRecur(nullptr, 0, "", directories);
    EXPECT_EQ(directories, Texts{"before"});
    EXPECT_EQ(files, Texts{"before"});
}

TEST(FileSearch, AFolderStandsBeforeWhatItHolds)
{
    const TemporaryFolder folder;
    std::filesystem::create_directories(folder / "z/m/a/k");
    const Texts expected{folder / "z", folder / "z/m", folder / "z/m/a", folder / "z/m/a/k"};
    EXPECT_EQ(find(folder.path()).directories, expected);
    Texts directories;
    FindDir(folder.path(), "", directories);
    EXPECT_EQ(directories, expected);
}

// Entries come as the system delivers them: a folder's own at the place where it was met.
TEST(FileSearch, EntriesComeDepthFirstInTheOrderOfTheFileSystem)
{
    const TemporaryFolder folder;
    for (const char* const name : {"q", "b", "x", "a", "m"}) {
        std::filesystem::create_directory(folder / name);
        makeFile(folder / std::string(name) + "/1.fit", "");
        makeFile(folder / std::string(name) + ".fit", "");
    }
    Texts directories;
    Texts files;
    for (const auto& entry : std::filesystem::directory_iterator(folder.path())) {
        const std::string path = entry.path().string();
        if (entry.is_directory()) {
            directories.push_back(path);
            files.push_back(path + "/1.fit");
        } else {
            files.push_back(path);
        }
    }
    const Found found = find(folder.path());
    EXPECT_EQ(found.directories, directories);
    EXPECT_EQ(found.files, files);
    Texts found2;
    FindDir(folder.path(), "", found2);
    EXPECT_EQ(found2, directories);
}

TEST(FileSearch, TheRootStandsInTheEntriesAsItWasGiven)
{
    const TemporaryFolder folder;
    std::filesystem::create_directories(folder / "a\\b/c");
    makeFile(folder / "a\\b/c/1.txt", "");
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(folder.path());
    for (const std::string& root :
         Texts{folder / "a\\b", folder / "a\\b/", folder / "a\\b//", "a\\b", "./a\\b", folder / "./a\\b"})
    {
        SCOPED_TRACE(root);
        const Found found = find(root);
        EXPECT_EQ(found.directories, Texts{root + "/c"});
        EXPECT_EQ(found.files, Texts{root + "/c/1.txt"});
        Texts directories;
        FindDir(root, "", directories);
        EXPECT_EQ(directories, Texts{root + "/c"});
    }
    const Found found = find(".");
    EXPECT_EQ(sorted(found.directories), (Texts{"./a\\b", "./a\\b/c"}));
    EXPECT_EQ(found.files, Texts{"./a\\b/c/1.txt"});
    std::filesystem::current_path(before);
}

// Arguments are copies: the root may be an entry of the list that is replaced.
TEST(FileSearch, TheRootMayStandInTheList)
{
    const TemporaryFolder folder;
    makeTree(folder.path());
    Texts files{folder / "a/b"};
    FindFile(files[0], "", ".fit", files);
    EXPECT_EQ(files, Texts{folder / "a/b/3.fit"});
    Texts directories{folder / "a"};
    FindDir(directories[0], "", directories);
    EXPECT_EQ(directories, Texts{folder / "a/b"});
}

TEST(FileSearch, LinksCountAsFilesAndAreNotFollowed)
{
    const TemporaryFolder folder;
    std::filesystem::create_directories(folder / "outside/below");
    makeFile(folder / "outside/1.fit", "");
    std::filesystem::create_directories(folder / "a/b");
    std::filesystem::create_directory_symlink(folder / "outside", folder / "a/link");
    std::filesystem::create_directory_symlink(folder / "outside", folder / "a/link.fit");
    std::filesystem::create_symlink(folder / "outside/1.fit", folder / "a/b/file.fit");
    std::filesystem::create_symlink(folder / "missing", folder / "a/nowhere");
    ASSERT_EQ(mkfifo((folder / "a/fifo").c_str(), 0600), 0);

    const Found found = find(folder / "a");
    EXPECT_EQ(found.directories, Texts{folder / "a/b"});
    EXPECT_EQ(sorted(found.files),
              below(folder / "a", {"link", "link.fit", "b/file.fit", "nowhere", "fifo"}));
    EXPECT_EQ(sorted(find(folder / "a", "", ".fit").files), below(folder / "a", {"link.fit", "b/file.fit"}));
    EXPECT_EQ(find(folder / "a", "no").files, Texts{folder / "a/nowhere"});
    Texts directories;
    FindDir(folder / "a", "", directories);
    EXPECT_EQ(directories, Texts{folder / "a/b"});
    Texts frames;
    FindFitFile(folder / "a", "", frames);
    EXPECT_EQ(sorted(frames), below(folder / "a", {"link.fit", "b/file.fit"}));
}

TEST(FileSearch, ARootThatIsALinkIsOpened)
{
    const TemporaryFolder folder;
    makeTree(folder.path());
    std::filesystem::create_directory_symlink(folder / "a", folder / "link");
    const Found found = find(folder / "link");
    EXPECT_EQ(found.directories, Texts{folder / "link/b"});
    EXPECT_EQ(sorted(found.files), below(folder / "link", {"2.fit", "2.txt", "b/3.fit", "b/dataPO.bin"}));
}

TEST(FileSearch, FoldersThatLoopThroughLinksAreWalkedOnce)
{
    const TemporaryFolder folder;
    std::filesystem::create_directories(folder / "a/b");
    std::filesystem::create_directory_symlink(folder / "a", folder / "a/b/loop");
    std::filesystem::create_directory_symlink("..", folder / "a/b/above");
    std::filesystem::create_directory_symlink(".", folder / "a/here");
    std::filesystem::create_symlink("itself", folder / "a/itself");
    expectTrueInChild([&] {
        const Found found = find(folder / "a");
        Texts directories;
        FindDir(folder / "a", "", directories);
        return found.directories == Texts{folder / "a/b"} && directories == found.directories &&
               sorted(found.files) == below(folder / "a", {"b/loop", "b/above", "here", "itself"});
    });
}

TEST(FileSearch, AFolderThatCannotBeOpenedContributesNothing)
{
    const TemporaryFolder folder;
    makeTree(folder.path());
    std::filesystem::permissions(folder.path(), std::filesystem::perms(0755));
    std::filesystem::permissions(folder / "a/b", std::filesystem::perms(0000));
    expectTrueInChild([&] {
        if (geteuid() == 0 && setuid(65534) != 0) {
            return false;
        }
        const Found found = find(folder.path());
        return sorted(found.directories) == below(folder.path(), {"a", "a/b", "c.fit"}) &&
               sorted(found.files) == below(folder.path(), {"1.fit", "a/2.fit", "a/2.txt", "c.fit/4"});
    });
    std::filesystem::permissions(folder / "a/b", std::filesystem::perms(0755));
}

TEST(FileSearch, ADeepTreeIsWalkedToPathsOf1023Bytes)
{
    const TemporaryFolder folder;
    const std::string deepest = folderOfLength(folder / "a", 1023);
    ASSERT_EQ(deepest.size(), 1023U);
    makeFile(deepest + "/1.fit", "");
    const Found found = find(folder.path());
    ASSERT_FALSE(found.directories.empty());
    EXPECT_EQ(found.directories.back(), deepest);
    EXPECT_EQ(found.files, Texts{deepest + "/1.fit"});
}

// The path that is listed is whole, the path that is walked is cut: what lies below is not found.
TEST(FileSearch, AFolderWithALongerPathIsListedAndNotEntered)
{
    const TemporaryFolder folder;
    const std::string parent = folderOfLength(folder / "a", 1000);
    const std::string longFolder = parent + "/" + std::string(30, 'x');
    std::filesystem::create_directories(longFolder + "/below");
    makeFile(longFolder + "/1.fit", "");
    makeFile(parent + "/2.fit", "");
    const Found found = find(folder.path());
    ASSERT_FALSE(found.directories.empty());
    EXPECT_EQ(found.directories.back(), longFolder);
    EXPECT_EQ(found.files, Texts{parent + "/2.fit"});
    Texts directories;
    FindDir(folder.path(), "", directories);
    EXPECT_EQ(directories, found.directories);
}

TEST(FileSearch, TheCutPathMayLeadToAnotherFileSystem)
{
    const TemporaryFolder folder;
    const std::string neighbour = folderOfLength(folder / "a", 1014) + "/abcdefgh";
    std::filesystem::create_directory_symlink("/proc/sys/vm", neighbour);
    std::filesystem::create_directory(neighbour + "_long");
    const Found found = find(folder.path());
    EXPECT_EQ(found.directories.back(), neighbour + "_long");
    EXPECT_EQ(std::count(found.files.begin(), found.files.end(), neighbour + "/overcommit_memory"), 1);
}

TEST(FileSearch, TheWalkGoesOnInTheFolderThatTheCutPathNames)
{
    const TemporaryFolder folder;
    const std::string parent = folderOfLength(folder / "a", 1014);
    const std::string neighbour = parent + "/abcdefgh";
    ASSERT_EQ(neighbour.size(), 1023U);
    std::filesystem::create_directory(neighbour);
    makeFile(neighbour + "/1.fit", "");
    std::filesystem::create_directory(neighbour + "_long");
    makeFile(neighbour + "_long/2.fit", "");

    const Found found = find(parent);
    EXPECT_EQ(sorted(found.directories), (Texts{neighbour, neighbour + "_long"}));
    EXPECT_EQ(found.files, (Texts{neighbour + "/1.fit", neighbour + "/1.fit"}));
}

TEST(FileSearch, EveryWalkEndsHoweverDeepTheTree)
{
    for (const char* const above : {"a", "ab"}) { // an odd and an even length of the path that is cut
        SCOPED_TRACE(above);
        const TemporaryFolder folder;
        const std::string root = folder / above;
        std::filesystem::create_directory(root);
        makeChain(root, 700);
        makeFile(root + "/1.fit", "");

        Texts expected; // the last one has a path of 1024 or 1025 bytes
        for (std::string path = root; path.size() <= 1023;) {
            path += "/n";
            expected.push_back(path);
        }
        expectTrueInChild([&] {
            Texts directories;
            FindDir(root, "", directories);
            Texts named;
            FindDir(root, "n", named);
            Texts frames;
            FindFitFile(root, "", frames);
            const Found found = find(root);
            return found.directories == expected && found.files == Texts{root + "/1.fit"} &&
                   directories == expected && named == expected && frames == found.files;
        });
    }
}

TEST(FileSearch, ARootOfALongPathIsListed)
{
    for (const std::size_t length : {1022U, 1023U, 1024U, 2000U, 4093U}) {
        SCOPED_TRACE(length);
        const TemporaryFolder folder;
        const std::string root = folderOfLength(folder / "a", length);
        ASSERT_EQ(root.size(), length);
        std::filesystem::create_directory(root + "/b");
        makeFile(folder / "a/1.fit", "");
        expectTrueInChild([&] {
            Texts directories;
            FindDir(root, "", directories);
            const Found found = find(root);
            return !directories.empty() && directories.front() == root + "/b" && !found.directories.empty() &&
                   found.directories.front() == root + "/b";
        });
    }
}

TEST(FileSearch, ARootWithoutANameIsEmpty)
{
    const TemporaryFolder folder;
    const std::string tooLong = folder.path() + std::string(3000, '/') + std::string(3000, 'a');
    expectTrueInChild([&] {
        const Found found = find(tooLong);
        Texts frames;
        FindFitFile(tooLong, "", frames);
        return found.directories.empty() && found.files.empty() && frames.empty();
    });
}

TEST(FileSearch, FramesAreGroupedByTheSpellingOfTheirExtension)
{
    const TemporaryFolder folder;
    std::filesystem::create_directories(folder / "a/b");
    std::filesystem::create_directory(folder / "folder.fit");
    for (const char* const name : {"6.FTS", "a/5.fts", "4.FITS", "a/b/3.fits", "2.FIT", "a/1.fit", "0.Fits",
                                   "0.Fit", "0.fTS", "0.fit.txt", "0.fitsx", "fit", "0fit"})
    {
        makeFile(folder / name, "");
    }
    const Texts expected{folder / "a/1.fit", folder / "2.FIT",   folder / "a/b/3.fits",
                         folder / "4.FITS",  folder / "a/5.fts", folder / "6.FTS"};
    Texts frames;
    FindFitFile(folder.path(), "", frames);
    EXPECT_EQ(frames, expected);

    makeFile(folder / "a/b/7.fit", "");
    frames.clear();
    FindFitFile(folder.path(), "", frames);
    ASSERT_EQ(frames.size(), 7U);
    EXPECT_EQ(sorted({frames.begin(), frames.begin() + 2}), below(folder.path(), {"a/1.fit", "a/b/7.fit"}));
    EXPECT_EQ(frames[2], folder / "2.FIT");
}

TEST(FileSearch, FindFitFileAppends)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.fit", "");
    makeFile(folder / "b.FTS", "");
    Texts frames;
    for (const std::size_t count : {2U, 4U}) {
        FindFitFile(folder.path(), "", frames);
        EXPECT_EQ(frames.size(), count);
    }
    const Texts twice{folder / "a.fit", folder / "b.FTS", folder / "a.fit", folder / "b.FTS"};
    EXPECT_EQ(frames, twice);
    FindFitFile("", "", frames);
    FindFitFile(folder / "missing", "", frames);
    EXPECT_EQ(frames, twice);
}

TEST(FileSearch, FramesAreChosenByTheMask)
{
    const TemporaryFolder folder;
    for (const char* const name : {"STEP-a.fit", "a.fit", "STEP-b.FITS", "step-c.fts"}) {
        makeFile(folder / name, "");
    }
    Texts frames;
    FindFitFile(folder.path(), "STEP-", frames);
    EXPECT_EQ(frames, (Texts{folder / "STEP-a.fit", folder / "STEP-b.FITS"}));
    FindFitFile(Texts{folder.path()}, "step-", frames);
    EXPECT_EQ(frames, (Texts{folder / "STEP-a.fit", folder / "STEP-b.FITS", folder / "step-c.fts"}));
}

TEST(FileSearch, FramesOfSeveralRootsComeRootAfterRoot)
{
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder / "z");
    std::filesystem::create_directory(folder / "y");
    makeFile(folder / "z/1.fit", "");
    makeFile(folder / "z/2.fts", "");
    makeFile(folder / "y/3.fit", "");

    Texts frames{"before"};
    FindFitFile(Texts{}, "", frames);
    EXPECT_EQ(frames, Texts{"before"});
    FindFitFile(Texts{folder / "z", folder / "missing", "", folder / "y"}, "", frames);
    EXPECT_EQ(frames, (Texts{"before", folder / "z/1.fit", folder / "z/2.fts", folder / "y/3.fit"}));
}

TEST(FileSearch, AFrameBelowTwoRootsComesTwice)
{
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder / "a");
    makeFile(folder / "a/1.fit", "");
    Texts frames;
    FindFitFile(Texts{folder / "a", folder.path()}, "", frames);
    EXPECT_EQ(frames, (Texts{folder / "a/1.fit", folder / "a/1.fit"}));
}

TEST(FileSearch, FindDirEntersOnlyFoldersOfExactlyTheName)
{
    const TemporaryFolder folder;
    for (const char* const name : {"stacked/stacked/below/stacked", "stacked/other/below", "Stacked/below",
                                   "stacked2/below", "a/stacked"})
    {
        std::filesystem::create_directories(folder / name);
    }
    makeFile(folder / "stacked/file", "");
    struct Row
    {
        std::string name;
        Texts directories;
    };
    const Row rows[] = {
        {"stacked",
         {"stacked", "Stacked", "stacked2", "a", "stacked/stacked", "stacked/other",
          "stacked/stacked/below"}},
        {"a", {"stacked", "Stacked", "stacked2", "a", "a/stacked"}},
        {"none", {"stacked", "Stacked", "stacked2", "a"}},
        {"below", {"stacked", "Stacked", "stacked2", "a"}},
        {"",
         {"stacked", "stacked/stacked", "stacked/stacked/below", "stacked/stacked/below/stacked",
          "stacked/other", "stacked/other/below", "Stacked", "Stacked/below", "stacked2", "stacked2/below",
          "a", "a/stacked"}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        Texts directories{"before"};
        FindDir(folder.path(), row.name, directories);
        EXPECT_EQ(sorted(directories), below(folder.path(), row.directories));
        directories = {"before"};
        pFindDirLin(folder.path(), row.name, directories);
        EXPECT_EQ(sorted(directories), below(folder.path(), row.directories));
        for (const int depth : {0, -7, std::numeric_limits<int>::max()}) {
            directories = {"before"};
            FindDirRecur(folder.path().c_str(), depth, row.name, directories);
            ASSERT_EQ(directories.size(), row.directories.size() + 1);
            EXPECT_EQ(directories.front(), "before");
            EXPECT_EQ(sorted({directories.begin() + 1, directories.end()}),
                      below(folder.path(), row.directories));
        }
    }
}

TEST(FileSearch, FindDirOfNoFolderIsEmpty)
{
    const TemporaryFolder folder;
    makeFile(folder / "a", "");
    for (const std::string& root : {folder / "missing", folder / "a", std::string()}) {
        Texts directories{"before"};
        FindDir(root, "", directories);
        EXPECT_EQ(directories, Texts{}) << root;
        directories = {"before"};
        pFindDirLin(root, "", directories);
        EXPECT_EQ(directories, Texts{}) << root;
    }
}

TEST(FileSearch, ReadFolderTellsFoldersFromTheRest)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.txt", "");
    makeFile(folder / ".hidden", "");
    std::filesystem::create_directories(folder / "b/below");
    std::filesystem::create_directory_symlink(folder / "b", folder / "link");
    std::vector<FolderEntry> entries;
    EXPECT_TRUE(readFolder(folder.path(), entries));
    Texts found;
    for (const FolderEntry& entry : entries) {
        found.push_back(entry.name + (entry.isFolder ? " folder" : " file"));
    }
    EXPECT_EQ(sorted(found), sorted({"a.txt file", ".hidden file", "b folder", "link file"}));

    EXPECT_FALSE(readFolder(folder / "missing", entries));
    EXPECT_FALSE(readFolder(folder / "a.txt", entries));
    EXPECT_EQ(entries.size(), 4U);
}

// What it has not read must not pass for what is not there.
TEST(FileSearch, FolderThatBreaksOffIsTold)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.txt", "");
    const int status = statusOfChild([&folder] {
        setFaults({{SYS_getdents64, EIO}});
        try {
            std::vector<FolderEntry> entries;
            readFolder(folder.path(), entries);
        } catch (const TavelinException& failure) {
            _exit(failure.getComment() == folder.path() ? 0 : 2);
        }
        _exit(3);
    });
    EXPECT_EQ(status, 0);
}
