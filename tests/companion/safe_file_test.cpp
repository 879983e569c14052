#include "findings/finding.h"
#include "out/safe_file.h"

#include "support/folders.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <functional>

namespace {

namespace fs = std::filesystem;
using companion::SafeFile;
using companion::WrongUsage;
using testing::HasSubstr;

std::string codeOf(const std::function<void()>& work)
{
    try {
        work();
    } catch (const WrongUsage& usage) {
        return usage.why.code.text();
    }
    return "none";
}

TEST(SafeFile, IsThereOnceItIsCommitted)
{
    const TemporaryFolder folder;
    {
        SafeFile file(folder / "a.txt", false, {});
        file.write("whole\n");
        EXPECT_FALSE(exists(folder / "a.txt"));
        file.commit();
        EXPECT_EQ(bytesOf(folder / "a.txt"), "whole\n");
    }
    EXPECT_EQ(namesIn(folder.path()), (Names{"a.txt"}));
}

TEST(SafeFile, IsThereAlsoWhereNobodyWaitsForTheDisk)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.txt", "old\n");
    SafeFile file(folder / "a.txt", true, {});
    file.write("whole\n");
    EXPECT_EQ(bytesOf(folder / "a.txt"), "old\n");
    file.commitUnwaited();
    EXPECT_EQ(bytesOf(folder / "a.txt"), "whole\n");
    EXPECT_EQ(namesIn(folder.path()), (Names{"a.txt"}));
}

TEST(SafeFile, NothingIsLeftOfOneThatIsNotCommitted)
{
    const TemporaryFolder folder;
    {
        SafeFile file(folder / "a.txt", false, {});
        file.write("half");
    }
    EXPECT_TRUE(namesIn(folder.path()).empty());
}

TEST(SafeFile, ReplacesOnlyWhereItIsTold)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.txt", "old");
    fs::permissions(folder / "a.txt", fs::perms(0640));
    EXPECT_EQ(codeOf([&] { SafeFile(folder / "a.txt", false, {}); }), "V004");
    SafeFile file(folder / "a.txt", true, {});
    file.write("new");
    EXPECT_EQ(bytesOf(folder / "a.txt"), "old");
    file.commit();
    EXPECT_EQ(bytesOf(folder / "a.txt"), "new");
    EXPECT_EQ(fs::status(folder / "a.txt").permissions(), fs::perms(0640));
    EXPECT_EQ(namesIn(folder.path()), (Names{"a.txt"}));
}

TEST(SafeFile, FileThatComesInBetweenStays)
{
    const TemporaryFolder folder;
    SafeFile file(folder / "a.txt", false, {});
    file.write("new");
    makeFile(folder / "a.txt", "of another");
    EXPECT_EQ(codeOf([&] { file.commit(); }), "V004");
    EXPECT_EQ(bytesOf(folder / "a.txt"), "of another");
}

TEST(SafeFile, InputsAreNeverReplaced)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.mea", "input");
    fs::create_symlink("a.mea", folder / "link");
    fs::create_hard_link(folder / "a.mea", folder / "second");
    for (const char* name : {"a.mea", "./a.mea", "link", "second"}) {
        EXPECT_EQ(codeOf([&] { SafeFile(folder / name, true, {folder / "a.mea"}); }), "V005") << name;
    }
    EXPECT_EQ(bytesOf(folder / "a.mea"), "input");
}

TEST(SafeFile, InputsThatAreGoneOrElsewhereAreNoneOfItsFiles)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.txt", "old\n");
    EXPECT_NO_THROW(companion::mustBeFree(folder / "a.txt", true, {folder / "missing", "/proc/self/status"}));
}

TEST(SafeFile, FolderThatIsMissingIsTold)
{
    const TemporaryFolder folder;
    EXPECT_EQ(codeOf([&] { SafeFile(folder / "missing/a.txt", false, {}); }), "V003");
    fs::create_directory(folder / "folder");
    {
        SafeFile file(folder / "folder", true, {});
        EXPECT_EQ(codeOf([&] { file.commit(); }), "V003");
    }
    EXPECT_EQ(namesIn(folder.path()), (Names{"folder"}));
}

TEST(MoveInto, GivesAFileItsPlace)
{
    const TemporaryFolder folder;
    makeFile(folder / "whole", "new");
    companion::moveInto(folder / "whole", folder / "a.txt", false);
    EXPECT_EQ(bytesOf(folder / "a.txt"), "new");
    EXPECT_EQ(namesIn(folder.path()), (Names{"a.txt"}));
}

TEST(MoveInto, ReplacesOnlyWhereItIsTold)
{
    const TemporaryFolder folder;
    makeFile(folder / "whole", "new");
    makeFile(folder / "a.txt", "old");
    fs::permissions(folder / "a.txt", fs::perms(0640));
    EXPECT_EQ(codeOf([&] { companion::moveInto(folder / "whole", folder / "a.txt", false); }), "V004");
    EXPECT_EQ(bytesOf(folder / "a.txt"), "old");
    EXPECT_EQ(bytesOf(folder / "whole"), "new");
    companion::moveInto(folder / "whole", folder / "a.txt", true);
    EXPECT_EQ(bytesOf(folder / "a.txt"), "new");
    EXPECT_EQ(fs::status(folder / "a.txt").permissions(), fs::perms(0640));
    EXPECT_EQ(namesIn(folder.path()), (Names{"a.txt"}));
}

TEST(MoveInto, FailureIsTold)
{
    const TemporaryFolder folder;
    makeFile(folder / "whole", "new");
    fs::create_directory(folder / "folder");
    EXPECT_EQ(codeOf([&] { companion::moveInto(folder / "missing", folder / "a.txt", false); }), "V003");
    EXPECT_EQ(codeOf([&] { companion::moveInto(folder / "whole", folder / "missing/a.txt", false); }),
              "V003");
    EXPECT_EQ(codeOf([&] { companion::moveInto(folder / "whole", folder / "folder", true); }), "V003");
    EXPECT_EQ(bytesOf(folder / "whole"), "new");
}

} // namespace
