#include "base/bytes.h"
#include "base/lines.h"
#include "base/tokens.h"
#include "files/essentials.h"

#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <filesystem>
#include <optional>
#include <regex>
#include <string>
#include <string_view>
#include <vector>

#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/time.h>
#include <sys/un.h>
#include <unistd.h>

using namespace tavelinUtils;

namespace {

using Texts = std::vector<std::string>;

struct Pair
{
    std::string from, to;
};

struct Cut
{
    std::string text, separator;
    Texts tokens;
};

/// A time zone of the process until the end of the block.
class TimeZone
{
public:
    explicit TimeZone(const char* zone)
    {
        if (const char* present = std::getenv("TZ")) {
            before = present;
        }
        setenv("TZ", zone, 1);
        tzset();
    }
    ~TimeZone()
    {
        if (before) {
            setenv("TZ", before->c_str(), 1);
        } else {
            unsetenv("TZ");
        }
        tzset();
    }
    TimeZone(const TimeZone&) = delete;
    TimeZone& operator=(const TimeZone&) = delete;

private:
    std::optional<std::string> before;
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

/// A file that exists and that nobody can open: the address of a socket.
void makeSocket(const std::string& path)
{
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    ASSERT_LT(path.size(), sizeof address.sun_path);
    std::memcpy(address.sun_path, path.c_str(), path.size() + 1);
    const int end = socket(AF_UNIX, SOCK_STREAM, 0);
    ASSERT_GE(end, 0);
    EXPECT_EQ(bind(end, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    close(end);
}

Texts linesOf(std::string_view bytes)
{
    Texts lines;
    forEachLine(bytes, [&lines](std::string_view line) { lines.emplace_back(line); });
    return lines;
}

// What a separator of one character makes of a text, for both tokenisers.
const Cut cutsAtOneCharacter[] = {
    {"/a/b", "/", {"", "a", "b"}},
    {"/a/b/", "/", {"", "a", "b"}},
    {"a/b//", "/", {"a", "b", ""}},
    {"one two", " ", {"one", "two"}},
    {"one two ", " ", {"one", "two"}},
    {"one  two", " ", {"one", "", "two"}},
    {" ", " ", {""}},
    {"  ", " ", {"", ""}},
    {"whole", " ", {"whole"}},
    {"a\tb c\t", "\t", {"a", "b c"}},
    {"\xd1\x81;\xe9", ";", {"\xd1\x81", "\xe9"}},
    {std::string("a\0b;c\0", 6), ";", {std::string("a\0b", 3), std::string("c\0", 2)}},
};

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
    for (const Cut& row : cutsAtOneCharacter) {
        SCOPED_TRACE(row.text);
        Texts tokens{"old", "older"};
        Pars9(row.text, tokens, row.separator);
        EXPECT_EQ(tokens, row.tokens);
    }
}

TEST(Pars9, SeparatorMayBeOfAnyLength)
{
    const Cut rows[] = {
        {"aXYbXYc", "XY", {"a", "b", "c"}}, {"aXbYc", "XY", {"aXbYc"}},
        {"XYa", "XY", {"", "a"}},           {"a---b", "--", {"a", "-b"}},
        {"a----b", "--", {"a", "", "b"}},   {"{\"id\":1},{\"id\":2}", "},{", {"{\"id\":1", "\"id\":2}"}},
    };
    for (const Cut& row : rows) {
        SCOPED_TRACE(row.text);
        Texts tokens{"old"};
        Pars9(row.text, tokens, row.separator);
        EXPECT_EQ(tokens, row.tokens);
    }
}

// A separator of several characters is put behind every text, also behind one that ends in it.
TEST(Pars9, LongSeparatorAtTheEndLeavesAnEmptyToken)
{
    const Cut rows[] = {
        {"aXY", "XY", {"a", ""}},
        {"XY", "XY", {"", ""}},
        {"XYXY", "XY", {"", "", ""}},
    };
    for (const Cut& row : rows) {
        SCOPED_TRACE(row.text);
        Texts tokens{"old"};
        Pars9(row.text, tokens, row.separator);
        EXPECT_EQ(tokens, row.tokens);
    }
}

// What stands at the end may make a separator together with the one that is put behind it.
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

TEST(ReadBytes, GivesEveryByteAndSpareZerosBehindTheLast)
{
    const TemporaryFolder folder;
    std::string many;
    for (int i = 0; i < 1000003; ++i) {
        many += static_cast<char>(i * 7 + i / 256);
    }
    const std::string contents[] = {"",
                                    "a",
                                    "one\r\ntwo\n",
                                    std::string("a\0b\0\0", 5),
                                    "\xff\xfe\xe0",
                                    std::string(4096, 'x'),
                                    std::string(65536, 'y'),
                                    many};
    for (const std::string& content : contents) {
        SCOPED_TRACE(content.size());
        makeFile(folder / "a.bin", content);
        FileBytes file;
        ASSERT_TRUE(readBytes(folder / "a.bin", file));
        ASSERT_EQ(file.size, content.size());
        EXPECT_TRUE(file.view() == content);
        for (std::size_t i = 0; i < 8; ++i) {
            EXPECT_EQ(file.bytes[content.size() + i], '\0') << i;
        }
    }
}

TEST(ReadBytes, ReadsToTheEndWhateverSizeTheSystemTells)
{
    ASSERT_EQ(std::filesystem::file_size("/proc/sys/kernel/ostype"), 0u);
    FileBytes file;
    ASSERT_TRUE(readBytes("/proc/sys/kernel/ostype", file));
    EXPECT_EQ(file.view(), "Linux\n");
}

TEST(ReadBytes, ReplacesWhatTheTargetHeld)
{
    const TemporaryFolder folder;
    makeFile(folder / "long", "a longer one");
    makeFile(folder / "short", "b");
    FileBytes file;
    ASSERT_TRUE(readBytes(folder / "long", file));
    ASSERT_TRUE(readBytes(folder / "short", file));
    EXPECT_EQ(file.view(), "b");
}

TEST(ReadBytes, FailureLeavesTheTarget)
{
    const TemporaryFolder folder;
    makeFile(folder / "a", "kept");
    makeSocket(folder / "s");
    FileBytes file;
    ASSERT_TRUE(readBytes(folder / "a", file));
    EXPECT_FALSE(readBytes(folder / "missing", file));
    EXPECT_FALSE(readBytes(folder.path(), file));
    EXPECT_FALSE(readBytes(folder / "s", file));
    EXPECT_FALSE(readBytes("", file));
    EXPECT_EQ(file.view(), "kept");
}

TEST(WriteBytes, WritesInTheMode)
{
    const TemporaryFolder folder;
    EXPECT_TRUE(writeBytes(folder / "a", "w", std::string_view("a\0\r\nb", 5)));
    EXPECT_EQ(bytesOf(folder / "a"), std::string("a\0\r\nb", 5));
    EXPECT_TRUE(writeBytes(folder / "a", "a", "more"));
    EXPECT_EQ(bytesOf(folder / "a"), std::string("a\0\r\nbmore", 9));
    EXPECT_TRUE(writeBytes(folder / "a", "w", ""));
    EXPECT_EQ(bytesOf(folder / "a"), "");
    EXPECT_TRUE(writeBytes(folder / "new", "a", ""));
    EXPECT_EQ(bytesOf(folder / "new"), "");
    const std::string large(3000001, 'z');
    EXPECT_TRUE(writeBytes(folder / "large", "w", large));
    EXPECT_TRUE(bytesOf(folder / "large") == large);
}

TEST(WriteBytes, IsFalseWhereOpeningOrWritingFails)
{
    const TemporaryFolder folder;
    EXPECT_FALSE(writeBytes(folder.path(), "w", "x"));
    EXPECT_FALSE(writeBytes(folder / "missing/a", "w", "x"));
    EXPECT_FALSE(writeBytes("", "w", "x"));
    EXPECT_FALSE(writeBytes("/dev/full", "w", "x"));
    EXPECT_FALSE(writeBytes("/dev/full", "a", "x"));
    EXPECT_FALSE(writeBytes("/dev/full", "w", std::string(3000001, 'z')));
    EXPECT_FALSE(exists(folder / "missing"));
}

TEST(ForEachToken, CutsAsTheTokeniserDoes)
{
    for (const Cut& row : cutsAtOneCharacter) {
        SCOPED_TRACE(row.text);
        Texts tokens;
        forEachToken(row.text, row.separator[0],
                     [&tokens](std::string_view token) { tokens.emplace_back(token); });
        EXPECT_EQ(tokens, row.tokens);
    }
}

TEST(ForEachToken, EmptyTextHasNone)
{
    int count = 0;
    forEachToken("", ';', [&count](std::string_view) { ++count; });
    EXPECT_EQ(count, 0);
}

TEST(CutParts, SeparatorAtTheEndHasAnEmptyPartBehindIt)
{
    std::array<std::string_view, 4> parts{"w", "x", "y", "z"};
    EXPECT_EQ(cutParts("a;b;", ';', parts), 3u);
    EXPECT_EQ(parts, (std::array<std::string_view, 4>{"a", "b", "", "z"}));
}

TEST(CutParts, EmptyTextIsOneEmptyPart)
{
    std::array<std::string_view, 2> parts{"x", "y"};
    EXPECT_EQ(cutParts("", ';', parts), 1u);
    EXPECT_EQ(parts, (std::array<std::string_view, 2>{"", "y"}));
}

TEST(CutParts, CountsPartsBeyondTheRoom)
{
    std::array<std::string_view, 2> parts;
    EXPECT_EQ(cutParts("a;;c;d", ';', parts), 4u);
    EXPECT_EQ(parts, (std::array<std::string_view, 2>{"a", ""}));
}

TEST(ForEachLine, LinesLoseTheirEndsAndTheTabsBeforeThem)
{
    EXPECT_EQ(linesOf("a\nb\n"), (Texts{"a", "b"}));
    EXPECT_EQ(linesOf("a\r\nb \t\r\n\n\tc"), (Texts{"a", "b ", "", "\tc"}));
    EXPECT_EQ(linesOf("a\rb\n"), (Texts{"a\rb"}));
    EXPECT_EQ(linesOf("\n\n"), (Texts{"", ""}));
    EXPECT_EQ(linesOf("a\n\r"), (Texts{"a", ""}));
    EXPECT_EQ(linesOf(""), Texts{});
}

TEST(CountLines, IsNeverBelowTheLines)
{
    EXPECT_EQ(countLines(""), 1u);
    EXPECT_EQ(countLines("a"), 1u);
    EXPECT_EQ(countLines("a\n"), 2u);
    EXPECT_EQ(countLines("a\r\n\nb"), 3u);
}

TEST(CutParts, GivesWhatTheTokeniserGivesWithTheSeparatorBehind)
{
    struct Row
    {
        std::string text;
        std::size_t count;
        std::string first, second;
    };
    const Row rows[] = {
        {"", 1, "", "?"},         {" ", 2, "", ""},         {"a", 1, "a", "?"},     {"a ", 2, "a", ""},
        {" a", 2, "", "a"},       {"a b", 2, "a", "b"},     {"a b c", 3, "a", "b"}, {"  ", 3, "", ""},
        {"a  b c d", 5, "a", ""}, {"a\tb", 1, "a\tb", "?"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.text);
        std::array<std::string_view, 2> parts{"?", "?"};
        EXPECT_EQ(cutParts(row.text, ' ', parts), row.count);
        EXPECT_EQ(parts[0], row.first);
        EXPECT_EQ(parts[1], row.second);
    }
}

TEST(ForEachSeparator, FindsEachOneWhereverItStands)
{
    // Bytes beside the separator's value, and with their high bit set, lie in wait for a look at eight at
    // once.
    const std::string letters = std::string("\t\t\ta\x08\x0a\x89\x8a\xff") + '\0';
    unsigned state = 7;
    for (int i = 0; i < 20000; ++i) {
        std::string text;
        for (int length = i % 40; length > 0; --length) {
            state = state * 1664525U + 1013904223U;
            text += letters[(state >> 16) % letters.size()];
        }
        std::vector<std::size_t> expected;
        for (std::size_t at = text.find('\t'); at != std::string::npos; at = text.find('\t', at + 1)) {
            expected.push_back(at);
        }
        std::vector<std::size_t> found;
        forEachSeparator(text, '\t', [&found](std::size_t at) { found.push_back(at); });
        ASSERT_EQ(found, expected) << i;
    }
}

TEST(ReadLines, ReservesRoomAndGivesEachLine)
{
    struct Lines
    {
        std::size_t room = 0;
        std::vector<std::string> taken;

        void reserve(std::size_t count)
        {
            room = count;
        }
        void add(std::string_view line)
        {
            taken.emplace_back(line);
        }
    };
    const TemporaryFolder folder;
    makeFile(folder / "a.txt", "one\r\n\ntwo\t\n three");
    Lines lines;
    EXPECT_TRUE(readLines(folder / "a.txt", lines));
    EXPECT_GE(lines.room, 4U);
    EXPECT_EQ(lines.taken, (std::vector<std::string>{"one", "", "two", " three"}));
    EXPECT_FALSE(readLines(folder / "none.txt", lines));
    EXPECT_EQ(lines.taken.size(), 4U);
}
