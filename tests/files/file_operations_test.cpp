#include "files/file_operations.h"
#include "files/paths.h"

#include "support/child_process.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <csignal>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

using namespace tavelinUtils;

namespace {

using Texts = std::vector<std::string>;

struct OneText
{
    std::string from, to;
};

struct TwoTexts
{
    std::string first, second, to;
};

/// The present folder of the process until the end of the block.
class PresentFolder
{
public:
    explicit PresentFolder(const std::string& folder) : before(std::filesystem::current_path())
    {
        std::filesystem::current_path(folder);
    }
    ~PresentFolder()
    {
        std::error_code ignored;
        std::filesystem::current_path(before, ignored);
    }
    PresentFolder(const PresentFolder&) = delete;
    PresentFolder& operator=(const PresentFolder&) = delete;

private:
    std::filesystem::path before;
};

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

/// Makes folders below the root, down to one whose path has that length, and returns its path.
std::string folderOfLength(std::string path, std::size_t length)
{
    std::filesystem::create_directory(path);
    while (path.size() < length) {
        std::size_t left = length - path.size() - 1;
        if (left > 200) {
            left = left > 201 ? 200 : 199;
        }
        path += '/' + std::string(left, 'n');
        std::filesystem::create_directory(path);
    }
    return path;
}

/// Makes a chain of folders of the name "n" below the root, also beyond the longest path that can be named.
void makeChain(const std::string& root, int levels)
{
    int folder = open(root.c_str(), O_RDONLY | O_DIRECTORY);
    for (int i = 0; i < levels; ++i) {
        ASSERT_EQ(mkdirat(folder, "n", 0755), 0);
        const int next = openat(folder, "n", O_RDONLY | O_DIRECTORY);
        ASSERT_GE(next, 0);
        close(folder);
        folder = next;
    }
    close(folder);
}

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

/// Whether a work comes back true, within the time and without a crash.
void expectTrueInChild(const std::function<bool()>& work)
{
    const ChildEnd end = runInChild([&] { _exit(work() ? 0 : 1); }, 30.0);
    EXPECT_FALSE(end.timedOut);
    EXPECT_EQ(end.signal, 0);
    EXPECT_EQ(end.exitStatus, 0) << end.output;
}

/// The names in a folder.
std::set<std::string> namesIn(const std::string& folder)
{
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        names.insert(entry.path().filename().string());
    }
    return names;
}

using Names = std::set<std::string>;

} // namespace

TEST(FileOperations, DeleteLastSlashRemovesOneCharacterOfTheSet)
{
    const TwoTexts rows[] = {
        {"a/", "/", "a"},    {"a//", "/", "a/"},    {"a\\", "/", "a\\"},  {"a\\", "\\/", "a"},
        {"a/", "\\/", "a"},  {"a/\\", "/\\", "a/"}, {"/", "/", ""},       {"", "/", ""},
        {"a/", "", "a/"},    {"", "", ""},          {"boy", "xyz", "bo"}, {"/a", "/", "/a"},
        {"a/b", "/", "a/b"}, {"a/ ", "/", "a/ "},
    };
    for (const auto& [path, separators, expected] : rows) {
        SCOPED_TRACE(path + " without one of " + separators);
        std::string changed = path;
        DeleteLastSlash(changed, separators);
        EXPECT_EQ(changed, expected);
    }
}

TEST(FileOperations, DeleteLastSlashOfACopy)
{
    const OneText rows[] = {{"a/", "a"}, {"a//", "a/"}, {"a", "a"}, {"a\\", "a\\"}, {"/", ""}, {"", ""}};
    for (const auto& [path, expected] : rows) {
        SCOPED_TRACE(path);
        const std::string before = path;
        EXPECT_EQ(DeleteLastSlash(before), expected);
        EXPECT_EQ(before, path);
    }
}

TEST(FileOperations, GetDriveIsTheFirstThreeCharacters)
{
    const OneText rows[] = {{"c:\\data\\a", "c:\\"},
                            {"c:/data", "c:/"},
                            {"/data", "/da"},
                            {"abc", "abc"},
                            {"ab", "ab"},
                            {"a", "a"},
                            {"", ""}};
    for (const auto& [path, expected] : rows) {
        EXPECT_EQ(GetDrive(path), expected) << path;
    }
}

TEST(FileOperations, CalcpathlevelupOfThePathAsItIs)
{
    const OneText rows[] = {
        {"/a/b/c", "/a/b/"}, {"/a/b/c/", "/a/b/"}, {"/a", "/"},
        {"/a/", "/"},        {"/", "/"},           {"a", "a/"},
        {"a/", "a/"},        {"a/b", "a/"},        {"a//", "a/"},
        {"/a//b", "/a//"},   {"a\\b", "a/"},       {"c:\\a\\b", "c:\\a/"},
        {"a\\b\\", "a\\b/"}, {"/a/..", "/a/"},     {"a/b\\c/d", "a/b\\c/"},
        {" ", " /"},
    };
    for (const auto& [path, expected] : rows) {
        EXPECT_EQ(calcpathlevelup(path, false), expected) << path;
    }
}

TEST(FileOperations, CalcpathlevelupOfTheNormalisedPath)
{
    const OneText rows[] = {
        {"/a/b/c", "/a/b/"}, {"/a/b/c/", "/a/b/"},
        {"/a", "/"},         {"/", "/"},
        {"a", "a/"},         {"a//", "a/"},
        {"a\\b\\", "a/"},    {"c:\\a\\b\\", "c:/a/"},
        {"\\a", "/"},        {"/d/n/tavelin///", "/d/n/"},
        {"\\\\", "/"},
    };
    for (const auto& [path, expected] : rows) {
        EXPECT_EQ(calcpathlevelup(path, true), expected) << path;
    }
}

TEST(FileOperations, ThreeLevelsAboveATrackTableLiesItsSeries)
{
    std::string path = "/d/night1/tavelin/dataVO/t.txt";
    const char* const above[] = {"/d/night1/tavelin/dataVO/", "/d/night1/tavelin/", "/d/night1/"};
    for (const char* const expected : above) {
        path = calcpathlevelup(path, true);
        EXPECT_EQ(path, expected);
    }
}

TEST(FileOperations, CalcpathlevelupOfAnEmptyPathRaises)
{
    EXPECT_THROW(calcpathlevelup("", false), std::out_of_range);
    EXPECT_THROW(calcpathlevelup("", true), std::out_of_range);
}

TEST(FileOperations, ChangeFileExtReplacesTheExtensionOfTheLastComponent)
{
    const TwoTexts rows[] = {
        {"/d/x.y/f.tar.gz", ".txt", "/d/x.y/f.tar.txt"},
        {"/d/x.y/f", ".txt", "/d/x.y/f.txt"},
        {"f.fit", ".txt", "f.txt"},
        {"f", ".txt", "f.txt"},
        {"f.", ".txt", "f.txt"},
        {".hidden", ".txt", ".txt"},
        {"f.fit", "txt", "ftxt"},
        {"f.fit", "", "f"},
        {"f", "", "f"},
        {"/a/b/", ".x", "/a/b.x"},
        {"/a.d/", ".x", "/a.x"},
        {"a//b", ".x", "a//b.x"},
        {"a//", ".x", "a/.x"},
        {"/", ".x", ".x"},
        {"/d/..", ".txt", "/d/..txt"},
        {"c:\\d.x\\f", ".txt", "c:\\d.txt"},
        {"c:\\d.x\\f.fit", ".txt", "c:\\d.x\\f.txt"},
        {"", ".txt", ""},
    };
    for (const auto& [path, extension, expected] : rows) {
        EXPECT_EQ(ChangeFileExt(path, extension), expected) << path;
    }
}

TEST(FileOperations, ReplaceFileNameExtensionChangesTheFirstOccurrence)
{
    struct Row
    {
        std::string name, from, to, expected;
    };
    const Row rows[] = {
        {"a.fit.fit", ".fit", ".txt", "a.txt.fit"},
        {"a.fit", ".fit", ".txt", "a.txt"},
        {"/d.fit/a.fit", ".fit", ".txt", "/d.txt/a.fit"},
        {"a.fits", ".fit", ".txt", "a.txts"},
        {"a.bin", ".fit", ".txt", "a.bin.txt"},
        {"a.FIT", ".fit", ".txt", "a.FIT.txt"},
        {"a.fit", ".fit", "", "a"},
        {"a.fit", ".fit", ".fit", "a.fit"},
        {"a.fit", ".fit", ".fit.fit", "a.fit.fit"},
        {"a.fit", "", "STEP-", "STEP-a.fit"},
        {"a.fit", "", "", "a.fit"},
        {"", ".fit", ".txt", ".txt"},
        {"", "", "x", "x"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name + ": " + row.from + " by " + row.to);
        EXPECT_EQ(replaceFileNameExtension(row.name, row.from, row.to), row.expected);
    }
}

TEST(FileOperations, GetInSeriaPathTakesThePathOfTheSeriesOut)
{
    const TwoTexts rows[] = {
        {"/d/n", "/d/n/tavelin/t.txt", "tavelin/t.txt"},
        {"/d/n/", "/d/n/tavelin/t.txt", "tavelin/t.txt"},
        {"/d/n", "/d/n/tavelin/", "tavelin"},
        {"/d/n", "/d/n/", ""},
        {"/d/n", "/d/n", "/d/n"},
        {"/d/n", "/d/n/a/d/n/b", "ab"},
        {"/d/n", "/d/n2/a", "/d/n2/a"},
        {"/d/n", "/e/d/n/a", "/ea"},
        {"n", "/d/run/n/a", "/d/rua"},
        {"a", "aa//x", "x"},
        {"/d/n//", "/d/n/x", "/d/n/x"},
        {"/d/n", "\\d\\n\\x", "/d/n/x"},
        {"\\d\\n", "/d/n/x", "/d/n/x"},
        {"\\d\\n", "\\d\\n\\x", "/d/n/x"},
        {"\\d\\n", "\\d\\n/x\\y", "x/y"},
        {"", "/a/b", "ab"},
        {"/", "/a/b", "ab"},
        {"/d/n", "", ""},
    };
    for (const auto& [series, full, expected] : rows) {
        EXPECT_EQ(GetInSeriaPath(series, full), expected) << full << " in " << series;
    }
}

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

// A move is a full copy within one file system too.
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
    EXPECT_EQ(bytesOf(folder / "a"), "kept");
}

// A folder that only its owner may change, met by somebody else.
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

// The search goes on behind the link that the cut path of "abcdefgh_long" names.
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
