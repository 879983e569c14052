#include "files/paths.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

using namespace tavelinUtils;

namespace {

struct OneText
{
    std::string from, to;
};

struct TwoTexts
{
    std::string first, second, to;
};

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
