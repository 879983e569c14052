#include "running/folder_watch.h"

#include "support/temporary_folder.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <string>

namespace {

namespace fs = std::filesystem;
using companion::FolderWatch;
using companion::placeOfFile;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(FolderWatch, FilesThatNobodyExpectsAreStrangersOnce)
{
    const TemporaryFolder folder;
    makeFile(folder / "old", "");
    FolderWatch watch;
    watch.watch(folder.path());
    watch.expect(folder / "expected");
    for (const char* name : {"expected", "b", "a"}) {
        makeFile(folder / name, "");
    }
    EXPECT_THAT(watch.strangers(folder.path()), ElementsAre(folder / "a", folder / "b"));
    EXPECT_THAT(watch.strangers(folder.path()), IsEmpty());
}

TEST(FolderWatch, FolderThatIsMadeLaterIsNotWatched)
{
    const TemporaryFolder folder;
    FolderWatch watch;
    watch.watch(folder / "out");
    fs::create_directory(folder / "out");
    makeFile(folder / "out/a", "");
    EXPECT_THAT(watch.strangers(folder / "out"), IsEmpty());
}

TEST(FolderWatch, FolderThatWasGoneIsNotWatchedAnyMore)
{
    const TemporaryFolder folder;
    fs::create_directory(folder / "out");
    FolderWatch watch;
    watch.watch(folder / "out");
    fs::remove(folder / "out");
    EXPECT_THAT(watch.strangers(folder / "out"), IsEmpty());
    fs::create_directory(folder / "out");
    makeFile(folder / "out/a", "");
    EXPECT_THAT(watch.strangers(folder / "out"), IsEmpty());
}

TEST(FolderWatch, FolderOfVeryManyNamesIsNotWatched)
{
    const TemporaryFolder folder;
    for (int number = 0; number < 10'000; ++number) {
        makeFile(folder / std::to_string(number), "");
    }
    FolderWatch watch;
    watch.watch(folder.path());
    makeFile(folder / "new", "");
    EXPECT_THAT(watch.strangers(folder.path()), IsEmpty());
}

// Links that lead in a circle lead to no place.
TEST(FolderWatch, PlaceOfAFolderThatCannotBeFollowedIsItsPath)
{
    const TemporaryFolder folder;
    fs::create_symlink("loop", folder / "loop");
    EXPECT_EQ(placeOfFile(folder / "loop/a"), folder / "loop/a");
}

} // namespace
