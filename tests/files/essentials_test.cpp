#include "base/lines.h"
#include "files/essentials.h"

#include "support/cut_texts.h"
#include "support/socket_file.h"
#include "support/temporary_folder.h"
#include "support/time_zone.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <ctime>
#include <filesystem>
#include <regex>
#include <string>
#include <vector>

#include <sys/stat.h>
#include <sys/time.h>

using namespace tavelinUtils;

namespace {

using Texts = std::vector<std::string>;

struct Pair
{
    std::string from, to;
};

/// Microseconds since 1970.
long long clockNow()
{
    timeval now{};
    gettimeofday(&now, nullptr);
    return now.tv_sec * 1000000LL + now.tv_usec;
}

/// The same of a clock text, which is taken as a text of UTC.
long long clockOf(const std::string& text)
{
    std::tm parts{};
    int microseconds = -1;
    EXPECT_EQ(std::sscanf(text.c_str(), "%d-%d-%d %d:%d:%d.%d", &parts.tm_year, &parts.tm_mon, &parts.tm_mday,
                          &parts.tm_hour, &parts.tm_min, &parts.tm_sec, &microseconds),
              7)
        << text;
    parts.tm_year -= 1900;
    parts.tm_mon -= 1;
    return timegm(&parts) * 1000000LL + microseconds;
}

} // namespace

TEST(Separators, BothConstantsAreTheForwardSlash)
{
    EXPECT_EQ(Slash, "/");
    EXPECT_EQ(PathSeparator, "/");
}

TEST(NormalizeSeparatorDir, BackslashesTurnAndSlashesAtTheEndGo)
{
    const Pair pairs[] = {
        {"c:\\data\\series1\\", "c:/data/series1"},
        {"a\\b\\", "a/b"},
        {"/a/b/", "/a/b"},
        {"a\\/\\/", "a"},
        {"/a//b//", "/a//b"},
        {"\\\\host\\share", "//host/share"},
        {"name", "name"},
        {"/", "/"},
        {"//", "/"},
        {"\\", "/"},
        {"\\\\", "/"},
        {"/\\/", "/"},
        {"", ""},
        {" ", " "},
        {"/a/ /", "/a/ "},
        {"/a/./b/..", "/a/./b/.."},
        {"C:/Data", "C:/Data"},
    };
    for (const Pair& pair : pairs) {
        SCOPED_TRACE(pair.from);
        EXPECT_EQ(normalizeSeparatorDir(pair.from), pair.to);
    }
}

TEST(AddSlash, StandsOnceBehindAPath)
{
    struct Row
    {
        std::string path, separator, expected;
    };
    const Row rows[] = {
        {"a", "/", "a/"},     {"a/", "/", "a/"},          {"/", "/", "/"},      {"a//", "/", "a//"},
        {"a\\", "/", "a\\/"}, {"a\\", "\\", "a\\"},       {"a/", "\\", "a/\\"}, {"", "/", ""},
        {"", "\\", ""},       {"c:/d e", "/", "c:/d e/"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.path + " at " + row.separator);
        std::string path = row.path;
        AddSlash(path, row.separator);
        EXPECT_EQ(path, row.expected);
    }
}

TEST(GetFileExt, BeginsAtTheLastPointOfTheWholeText)
{
    const Pair pairs[] = {
        {"a.tar.gz", ".gz"},
        {"name", ""},
        {"", ""},
        {"a.d/file", ".d/file"},
        {"a.d\\file", ".d\\file"},
        {"/x/r.result", ".result"},
        {"R.RESULT", ".RESULT"},
        {".hidden", ".hidden"},
        {"a.", "."},
        {"..", "."},
        {"a.d/file.x", ".x"},
    };
    for (const Pair& pair : pairs) {
        SCOPED_TRACE(pair.from);
        EXPECT_EQ(GetFileExt(pair.from), pair.to);
    }
}

TEST(ExtractOnlyFileName, IsTheLastComponentCutAtItsLastPoint)
{
    const Pair pairs[] = {
        {"/a/b.c", "b"},       {"b", "b"},        {"b.c", "b"},       {"a.tar.gz", "a.tar"},
        {"c:\\d\\n.txt", "n"}, {"a\\b/c.d", "c"}, {"a/b\\c.d", "c"},  {"a.d/file", "file"},
        {"a.d\\file", "file"}, {".hidden", ""},   {"/a/.hidden", ""}, {"/a/", ""},
        {"a\\", ""},           {"", ""},          {"name.", "name"},  {"a/..", "."},
    };
    for (const Pair& pair : pairs) {
        SCOPED_TRACE(pair.from);
        EXPECT_EQ(ExtractOnlyFileName(pair.from), pair.to);
    }
}

TEST(ExtractFileName, StandsBehindTheLastBackslashOrSeparator)
{
    struct Row
    {
        std::string path, separator, expected;
    };
    const Row rows[] = {
        {"n.txt", "/", "n.txt"},
        {"/a/n.txt", "/", "n.txt"},
        {"a\\n.txt", "/", "n.txt"},
        {"a/b\\n.txt", "/", "n.txt"},
        {"a\\b/n.txt", "/", "n.txt"},
        {"/a/", "/", ""},
        {"a\\", "/", ""},
        {"", "/", ""},
        {"a/b:c", ":", "c"},
        {"a/b", ":", "a/b"},
        {"a\\b", ":", "b"},
        {"a\\b/c", "\\", "b/c"},
        {"a\\b/c", "", "b/c"},
        {"a/b:c/d", ":/", "d"},
        {"a/b/c:d", ":/", "d"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.path + " at " + row.separator);
        EXPECT_EQ(ExtractFileName(row.path, row.separator), row.expected);
    }
}

TEST(ExtractPath, StandsBeforeTheLastSeparatorOfEitherSpelling)
{
    const Pair pairs[] = {
        {"/a/n.txt", "/a"}, {"a\\b\\n", "a\\b"}, {"a/b\\n", "a/b"}, {"a\\b/n", "a\\b"}, {"a/b/", "a/b"},
        {"a//n", "a/"},     {"c:\\n", "c:"},     {"/n", ""},        {"\\n", ""},        {"/", ""},
    };
    for (const Pair& pair : pairs) {
        SCOPED_TRACE(pair.from);
        EXPECT_EQ(ExtractPath(pair.from), pair.to);
    }
}

TEST(ExtractPath, GivesABareNameWhole)
{
    EXPECT_EQ(ExtractPath("n.txt"), "n.txt");
    EXPECT_EQ(ExtractPath(""), "");
}

TEST(Fopen, ReadsWhatItWroteUntranslated)
{
    const TemporaryFolder folder;
    std::FILE* file = tavelinUtils::fopen(folder / "a.bin", "w");
    ASSERT_NE(file, nullptr);
    EXPECT_EQ(std::fputs("one\r\ntwo\n", file), 1);
    EXPECT_EQ(std::fclose(file), 0);
    EXPECT_EQ(bytesOf(folder / "a.bin"), "one\r\ntwo\n");

    file = tavelinUtils::fopen(folder / "a.bin", "rb");
    ASSERT_NE(file, nullptr);
    char bytes[16] = {};
    EXPECT_EQ(std::fread(bytes, 1, sizeof bytes, file), 9u);
    EXPECT_STREQ(bytes, "one\r\ntwo\n");
    EXPECT_EQ(std::fputs("x", file), EOF) << "opened for reading only";
    EXPECT_EQ(std::fclose(file), 0);
}

TEST(Fopen, PassesTheModeOn)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.txt", "one");
    std::FILE* file = tavelinUtils::fopen(folder / "a.txt", "a");
    ASSERT_NE(file, nullptr);
    std::fputs("two", file);
    std::fclose(file);
    EXPECT_EQ(bytesOf(folder / "a.txt"), "onetwo");
    file = tavelinUtils::fopen(folder / "a.txt", "w");
    ASSERT_NE(file, nullptr);
    std::fclose(file);
    EXPECT_EQ(bytesOf(folder / "a.txt"), "");
}

TEST(Fopen, BackslashIsPartOfTheName)
{
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder / "in");
    std::FILE* file = tavelinUtils::fopen(folder / "in\\a.txt", "w");
    ASSERT_NE(file, nullptr);
    std::fclose(file);
    EXPECT_TRUE(exists(folder / "in\\a.txt"));
    EXPECT_FALSE(exists(folder / "in/a.txt"));
}

TEST(Fopen, GivesANullPointerWhereItFails)
{
    const TemporaryFolder folder;
    EXPECT_EQ(tavelinUtils::fopen(folder / "missing", "rb"), nullptr);
    EXPECT_EQ(tavelinUtils::fopen(folder / "missing/a.txt", "w"), nullptr);
    EXPECT_EQ(tavelinUtils::fopen(folder.path(), "w"), nullptr);
    EXPECT_EQ(tavelinUtils::fopen("", "rb"), nullptr);
    EXPECT_FALSE(exists(folder / "missing"));
}

TEST(FileExists, WhatOpensForReadingIsThere)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.txt", "x");
    makeFile(folder / "empty", "");
    std::filesystem::create_symlink(folder / "a.txt", folder / "link");
    EXPECT_TRUE(FileExists(folder / "a.txt"));
    EXPECT_TRUE(FileExists(folder / "empty"));
    EXPECT_TRUE(FileExists(folder / "link"));
    EXPECT_TRUE(FileExists("/dev/null"));
}

TEST(FileExists, FolderCountsAsPresent)
{
    const TemporaryFolder folder;
    EXPECT_TRUE(FileExists(folder.path()));
    EXPECT_TRUE(FileExists(folder.path() + "/"));
}

TEST(FileExists, WhatDoesNotOpenIsAbsent)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.txt", "x");
    makeSocket(folder / "s");
    std::filesystem::create_symlink(folder / "round", folder / "round");
    std::filesystem::create_symlink(folder / "nowhere", folder / "dangling");
    std::filesystem::create_directory(folder / "in");
    makeFile(folder / "in/b.txt", "x");
    const std::string absent[] = {
        folder / "missing",
        folder / "s",
        folder / "round",
        folder / "dangling",
        folder / "a.txt/b.txt",
        folder / "A.TXT",
        folder / "in\\b.txt",
        folder / std::string(300, 'n'),
        "",
    };
    for (const std::string& path : absent) {
        EXPECT_FALSE(FileExists(path)) << path;
    }
    EXPECT_FALSE(exists(folder / "missing"));
}

TEST(DirectoryExists, TakesEitherSpelling)
{
    const TemporaryFolder folder;
    std::filesystem::create_directories(folder / "in/deep");
    std::filesystem::create_directory_symlink(folder / "in", folder / "link");
    const std::string folders[] = {
        folder.path(),
        folder.path() + "/",
        folder.path() + "\\",
        folder / "in\\deep",
        folder / "in\\deep\\",
        folder / "in//deep//",
        folder / "link",
        folder / "in/..",
        "/",
        "//",
        "\\",
        ".",
    };
    for (const std::string& path : folders) {
        EXPECT_TRUE(DirectoryExists(path)) << path;
    }
}

TEST(DirectoryExists, IsFalseForFilesForNothingAndForAnEmptyPath)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.txt", "x");
    ASSERT_EQ(mkfifo((folder / "queue").c_str(), 0600), 0);
    const std::string others[] = {
        folder / "a.txt",
        folder / "a.txt/",
        folder / "missing",
        folder / "queue",
        "/dev/null",
        "",
        "n.txt",
        " ",
    };
    for (const std::string& path : others) {
        EXPECT_FALSE(DirectoryExists(path)) << path;
    }
}

// One bit of the mode is looked at, and sockets bear it too.
TEST(DirectoryExists, TakesASocketForAFolder)
{
    const TemporaryFolder folder;
    makeSocket(folder / "s");
    EXPECT_TRUE(DirectoryExists(folder / "s"));
}

TEST(Pars9, EachSeparatorEndsAToken)
{
    for (const CutText& row : cutsAtOneCharacter) {
        SCOPED_TRACE(row.text);
        Texts tokens{"old", "older"};
        Pars9(row.text, tokens, row.separator);
        EXPECT_EQ(tokens, row.tokens);
    }
}

TEST(Pars9, SeparatorMayBeOfAnyLength)
{
    const CutText rows[] = {
        {"aXYbXYc", "XY", {"a", "b", "c"}}, {"aXbYc", "XY", {"aXbYc"}},
        {"XYa", "XY", {"", "a"}},           {"a---b", "--", {"a", "-b"}},
        {"a----b", "--", {"a", "", "b"}},   {"{\"id\":1},{\"id\":2}", "},{", {"{\"id\":1", "\"id\":2}"}},
    };
    for (const CutText& row : rows) {
        SCOPED_TRACE(row.text);
        Texts tokens{"old"};
        Pars9(row.text, tokens, row.separator);
        EXPECT_EQ(tokens, row.tokens);
    }
}

// A separator of several characters is appended to every text, also to one that ends in it.
TEST(Pars9, LongSeparatorAtTheEndLeavesAnEmptyToken)
{
    const CutText rows[] = {
        {"aXY", "XY", {"a", ""}},
        {"XY", "XY", {"", ""}},
        {"XYXY", "XY", {"", "", ""}},
    };
    for (const CutText& row : rows) {
        SCOPED_TRACE(row.text);
        Texts tokens{"old"};
        Pars9(row.text, tokens, row.separator);
        EXPECT_EQ(tokens, row.tokens);
    }
}

// The end of a text may make a separator together with the one that is appended.
TEST(Pars9, BeginningOfALongSeparatorAtTheEndIsLost)
{
    Texts tokens;
    Pars9("a-", tokens, "--");
    EXPECT_EQ(tokens, (Texts{"a"}));
}

TEST(Pars9, EmptyTextLeavesTheOldTokens)
{
    Texts tokens{"old", "older"};
    Pars9("", tokens, " ");
    EXPECT_EQ(tokens, (Texts{"old", "older"}));
    Pars9("", tokens, "--");
    EXPECT_EQ(tokens, (Texts{"old", "older"}));
    Pars9("", tokens, "");
    EXPECT_EQ(tokens, (Texts{"old", "older"}));
}

TEST(Pars9, EmptySeparatorGivesNoTokens)
{
    Texts tokens{"old"};
    Pars9("a b", tokens, "");
    EXPECT_EQ(tokens, Texts{});
}

TEST(Pars9, LongTextsComeApartInTime)
{
    std::string text;
    for (int i = 0; i < 200000; ++i) {
        text += "x;";
    }
    Texts tokens;
    Pars9(text, tokens, ";");
    EXPECT_EQ(tokens, Texts(200000, "x"));
}

TEST(MytrimR, TakesLineEndsAndTabsAndLeavesBlanks)
{
    const Pair pairs[] = {
        {"a\n", "a"},
        {"a\r\n", "a"},
        {"a\t", "a"},
        {"a\t\r\n\n\t", "a"},
        {"a ", "a "},
        {"a \n", "a "},
        {"a\t \t", "a\t "},
        {"\ta\tb", "\ta\tb"},
        {"a\nb\n", "a\nb"},
        {"a\v", "a\v"},
        {"a\f\n", "a\f"},
        {"\n\r\t", ""},
        {"", ""},
        {"a", "a"},
        {std::string("a\0\n", 3), std::string("a\0", 2)},
    };
    for (const Pair& pair : pairs) {
        SCOPED_TRACE(pair.from);
        std::string text = pair.from;
        mytrim_r(text);
        EXPECT_EQ(text, pair.to);
        EXPECT_EQ(withoutLineEnd(pair.from), pair.to);
    }
}

TEST(NowToDateTimeLin, HasSixDigitsOfMicrosecondsAndTwoOfAllButTheYear)
{
    const std::regex form("[0-9]{4}-[0-9]{2}-[0-9]{2} [0-9]{2}:[0-9]{2}:[0-9]{2}\\.[0-9]{6}");
    for (int i = 0; i < 100; ++i) {
        const std::string text = NowToDateTimeLin();
        ASSERT_TRUE(std::regex_match(text, form)) << text;
    }
}

TEST(NowToDateTimeLin, TellsTheLocalTimeOfThisMoment)
{
    struct Row
    {
        const char* zone;
        long long secondsEastOfGreenwich;
    };
    const Row rows[] = {{"UTC0", 0}, {"<+0530>-05:30", 19800}, {"<-0930>09:30", -34200}, {"<+14>-14", 50400}};
    for (const Row& row : rows) {
        SCOPED_TRACE(row.zone);
        const TimeZone zone(row.zone);
        const long long before = clockNow();
        const long long told = clockOf(NowToDateTimeLin()) - row.secondsEastOfGreenwich * 1000000;
        const long long after = clockNow();
        EXPECT_LE(before, told);
        EXPECT_LE(told, after);
    }
}

TEST(NowToDateTime, HasABlankInTheMiddleWhateverTheArgument)
{
    for (const std::string separator : {" ", "T", "", "--"}) {
        SCOPED_TRACE(separator);
        const TimeZone zone("<+0300>-03:00");
        const long long before = clockNow();
        const std::string text = NowToDateTime(separator);
        const long long after = clockNow();
        ASSERT_EQ(text.size(), 26u) << text;
        EXPECT_EQ(text[10], ' ');
        const long long told = clockOf(text) - 10800LL * 1000000;
        EXPECT_LE(before, told);
        EXPECT_LE(told, after);
    }
}
