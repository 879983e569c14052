#include "files/text_files.h"

#include "results/result.h"

#include "support/failed_writes.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <limits>
#include <string>
#include <utility>
#include <vector>

using namespace tavelinUtils;

namespace {

using Texts = std::vector<std::string>;
using Numbers = std::vector<double>;
using Rows = std::vector<std::vector<double>>;

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

struct FileOfLines
{
    std::string bytes;
    Texts lines;
};

const FileOfLines filesOfLines[] = {
    {"", {}},
    {"\n", {""}},
    {"\n\n", {"", ""}},
    {"a\nb\n", {"a", "b"}},
    {"a\nb", {"a", "b"}},
    {"a\n\nb\n\n", {"a", "", "b", ""}},
    {"a\r\nb\r\n", {"a", "b"}},
    {"a\r\n\r\nb", {"a", "", "b"}},
    {"a\t\nb\t\t\r\n", {"a", "b"}},
    {"a\r\t\r\n", {"a"}},
    {"a \nb  \r\n", {"a ", "b  "}},
    {"a\t \n", {"a\t "}},
    {"a \t\n", {"a "}},
    {"\ta\tb\n", {"\ta\tb"}},
    {"\t\t\n", {""}},
    {"a\rb\n", {"a\rb"}},
    {"a\rb\r", {"a\rb"}},
    {"a\n\r", {"a", ""}},
    {"a\n\t", {"a", ""}},
    {"a\n ", {"a", " "}},
    {"a\v\f\n", {"a\v\f"}},
    {std::string("a\0b\n\0\nc\0", 8), {std::string("a\0b", 3), std::string("\0", 1), std::string("c\0", 2)}},
    {"\xef\xbb\xbf"
     "a\n",
     {"\xef\xbb\xbf"
      "a"}},
    {"\xd1\x81\n\xe9\n\xe0", {"\xd1\x81", "\xe9", "\xe0"}},
    {std::string(100000, 'x') + "\n" + std::string(70000, 'y'),
     {std::string(100000, 'x'), std::string(70000, 'y')}},
};

} // namespace

TEST(ReadFromFile, LinesComeWithoutLineEndsAndTabsAtTheirEnds)
{
    const TemporaryFolder folder;
    for (const FileOfLines& file : filesOfLines) {
        SCOPED_TRACE(file.bytes.substr(0, 40));
        makeFile(folder / "a.txt", file.bytes);
        EXPECT_EQ(ReadFromFile(folder / "a.txt"), file.lines);
    }
}

TEST(ReadFromFile, MissingFileHasNoLines)
{
    const TemporaryFolder folder;
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    EXPECT_EQ(ReadFromFile(folder / "missing"), Texts{});
    EXPECT_EQ(ReadFromFile(folder / "missing/a.txt"), Texts{});
    EXPECT_EQ(ReadFromFile(""), Texts{});
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    EXPECT_FALSE(exists(folder / "missing"));
}

TEST(ReadFromFile, FolderHasNoLines)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.txt", "a\n");
    EXPECT_EQ(ReadFromFile(folder.path()), Texts{});
}

TEST(ReadFromFile, BackslashIsPartOfTheName)
{
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder / "in");
    makeFile(folder / "in/a.txt", "folder\n");
    EXPECT_EQ(ReadFromFile(folder / "in\\a.txt"), Texts{});
    makeFile(folder / "in\\a.txt", "name\n");
    EXPECT_EQ(ReadFromFile(folder / "in\\a.txt"), Texts{"name"});
}

TEST(ReadFromFileInt, TakesTheNumberAtTheFrontOfALine)
{
    const TemporaryFolder folder;
    const std::pair<std::string, int> rows[] = {
        {"12", 12},
        {"-5", -5},
        {"+7", 7},
        {"  3", 3},
        {"\t8\t", 8},
        {"12abc", 12},
        {"4 5", 4},
        {"3.9", 3},
        {"0x10", 0},
        {"010", 10},
        {"abc", 0},
        {"", 0},
        {"- 1", 0},
        {"9\r", 9},
        {"2147483647", 2147483647},
        {"-2147483648", -2147483647 - 1},
        {"2147483648", -2147483647 - 1}, // cut to 32 bits
        {"4294967297", 1},
        {"5000000000", 705032704},
        {"99999999999999999999", -1}, // the greatest long, cut
        {"-99999999999999999999", 0},
    };
    std::string bytes;
    std::vector<int> expected;
    for (const auto& [line, number] : rows) {
        bytes += line + "\n";
        expected.push_back(number);
    }
    makeFile(folder / "a.txt", bytes);
    EXPECT_EQ(ReadFromFileInt(folder / "a.txt"), expected);
}

TEST(ReadFromFileInt, LastLineNeedsNoLineFeed)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.txt", "1\r\n2");
    EXPECT_EQ(ReadFromFileInt(folder / "a.txt"), (std::vector<int>{1, 2}));
}

TEST(ReadFromFileInt, MissingFileFolderAndEmptyFileHaveNoNumbers)
{
    const TemporaryFolder folder;
    makeFile(folder / "empty", "");
    EXPECT_EQ(ReadFromFileInt(folder / "missing"), std::vector<int>{});
    EXPECT_EQ(ReadFromFileInt(folder.path()), std::vector<int>{});
    EXPECT_EQ(ReadFromFileInt(folder / "empty"), std::vector<int>{});
}

TEST(Write, TextBecomesTheOneLineOfTheFile)
{
    const TemporaryFolder folder;
    Write(folder / "a.txt", std::string("a longer line"));
    EXPECT_EQ(bytesOf(folder / "a.txt"), "a longer line\n");
    Write(folder / "a.txt", "short");
    EXPECT_EQ(bytesOf(folder / "a.txt"), "short\n");
    Write(folder / "a.txt", "with\r\nline feeds\n");
    EXPECT_EQ(bytesOf(folder / "a.txt"), "with\r\nline feeds\n\n");
    Write(folder / "a.txt", "");
    EXPECT_EQ(bytesOf(folder / "a.txt"), "\n");
    Write(folder / "a.txt", std::string("\0\xe9", 2));
    EXPECT_EQ(bytesOf(folder / "a.txt"), std::string("\0\xe9\n", 3));
}

TEST(Write, EachTextOfAListIsALine)
{
    const TemporaryFolder folder;
    Write(folder / "a.txt", Texts{"one", "", " two\t", std::string("\0\xd1\x81", 3)});
    EXPECT_EQ(bytesOf(folder / "a.txt"), std::string("one\n\n two\t\n\0\xd1\x81\n", 15));
    Write(folder / "a.txt", Texts{"x"});
    EXPECT_EQ(bytesOf(folder / "a.txt"), "x\n");
}

TEST(Write, EmptyListLeavesAnEmptyFile)
{
    const TemporaryFolder folder;
    makeFile(folder / "old.txt", "old\n");
    Write(folder / "old.txt", Texts{});
    EXPECT_EQ(bytesOf(folder / "old.txt"), "");
    Write(folder / "new.txt", Texts{});
    EXPECT_EQ(bytesOf(folder / "new.txt"), "");
    makeFile(folder / "old.txt", "old\n");
    Write(folder / "old.txt", Numbers{});
    EXPECT_EQ(bytesOf(folder / "old.txt"), "");
    makeFile(folder / "old.txt", "old\n");
    Write(folder / "old.txt", Rows{});
    EXPECT_EQ(bytesOf(folder / "old.txt"), "");
}

TEST(Write, NumbersHaveFiveDecimalsAndNoExponent)
{
    const TemporaryFolder folder;
    Write(folder / "a.txt", Numbers{0.0, 1.0, -0.5, 60000.123456, 0.000005, -0.000001, 1e20, 1e-300});
    EXPECT_EQ(bytesOf(folder / "a.txt"), "0.00000\n"
                                         "1.00000\n"
                                         "-0.50000\n"
                                         "60000.12346\n"
                                         "0.00001\n"
                                         "-0.00000\n"
                                         "100000000000000000000.00000\n"
                                         "0.00000\n");
    Write(folder / "a.txt", Numbers{infinity, -infinity, notANumber});
    EXPECT_EQ(bytesOf(folder / "a.txt"), "inf\n-inf\nnan\n");
}

TEST(Write, RowsHaveATabBetweenTheirNumbersOnly)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.txt", "old\nold\nold\nold\nold\nold\n");
    Write(folder / "a.txt", Rows{{1.0, -2.5, 1e6}, {}, {0.25}});
    EXPECT_EQ(bytesOf(folder / "a.txt"), "1.00000\t-2.50000\t1000000.00000\n"
                                         "\n"
                                         "0.25000\n");
}

TEST(Write, TruncatesTheFileThatIsThere)
{
    const TemporaryFolder folder;
    const auto write = [](const std::string& path, int form) {
        switch (form) {
        case 0: Write(path, "new"); break;
        case 1: Write(path, Texts{"new"}); break;
        case 2: Write(path, Numbers{1.0}); break;
        default: Write(path, Rows{{1.0}}); break;
        }
    };
    const std::string expected[] = {"new\n", "new\n", "1.00000\n", "1.00000\n"};
    for (int form = 0; form < 4; ++form) {
        SCOPED_TRACE(form);
        const std::string path = folder / ("a" + std::to_string(form));
        makeFile(path, "old old old old\n");
        std::filesystem::create_hard_link(path, path + ".same");
        write(path, form);
        EXPECT_EQ(bytesOf(path), expected[form]);
        EXPECT_EQ(bytesOf(path + ".same"), expected[form]);
    }
}

TEST(Write, ListOfTextsThatCannotBeWrittenRaisesCode7WithThePath)
{
    expectCode7([](const std::string& path) { Write(path, Texts{"x"}); });
    expectCode7([](const std::string& path) { Write(path, Texts(300000, "a line of some length")); });
}

TEST(Write, EmptyListOfTextsRaisesWhereTheFileDoesNotOpen)
{
    const TemporaryFolder folder;
    try {
        Write(folder / "missing/a.txt", Texts{});
        ADD_FAILURE() << "nothing was thrown";
    } catch (const TavelinException& failure) {
        EXPECT_EQ(failure.getCode(), 7);
        EXPECT_STREQ(failure.what(), "Error opening file");
        EXPECT_EQ(failure.getComment(), folder / "missing/a.txt");
    }
}

TEST(Write, EveryOtherFormIsSilent)
{
    forUnwritablePaths([](const std::string& path) {
        EXPECT_NO_THROW(Write(path, "x"));
        EXPECT_NO_THROW(Write(path, Numbers{1.0}));
        EXPECT_NO_THROW(Write(path, Rows{{1.0}}));
    });
}

TEST(Append, AddsLinesAndMakesTheFile)
{
    const TemporaryFolder folder;
    append(folder / "a.txt", "one");
    EXPECT_EQ(bytesOf(folder / "a.txt"), "one\n");
    append(folder / "a.txt", "one");
    append(folder / "a.txt", std::string());
    append(folder / "a.txt", Texts{"two", "", "three\t"});
    append(folder / "a.txt", 0.5);
    append(folder / "a.txt", Numbers{1.0, -2.0});
    EXPECT_EQ(bytesOf(folder / "a.txt"), "one\none\n\ntwo\n\nthree\t\n0.5\n1\n-2\n");
}

TEST(Append, LooksAtNothingThatIsThere)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.txt", "no line feed");
    append(folder / "a.txt", "x");
    EXPECT_EQ(bytesOf(folder / "a.txt"), "no line feedx\n");
}

TEST(Append, NumberHasSixSignificantDigits)
{
    const TemporaryFolder folder;
    const std::pair<double, std::string> rows[] = {
        {0.0, "0"},
        {-0.0, "-0"},
        {1.0, "1"},
        {-2.5, "-2.5"},
        {0.1, "0.1"},
        {1.0 / 3.0, "0.333333"},
        {60000.123456, "60000.1"},
        {100000.0, "100000"},
        {999999.0, "999999"},
        {999999.5, "1e+06"},
        {1234567.0, "1.23457e+06"},
        {0.0001, "0.0001"},
        {0.00001, "1e-05"},
        {1e300, "1e+300"},
        {infinity, "inf"},
        {-infinity, "-inf"},
        {notANumber, "nan"},
    };
    std::string expected;
    Numbers values;
    for (const auto& [value, text] : rows) {
        append(folder / "single.txt", value);
        values.push_back(value);
        expected += text + "\n";
    }
    append(folder / "list.txt", values);
    EXPECT_EQ(bytesOf(folder / "single.txt"), expected);
    EXPECT_EQ(bytesOf(folder / "list.txt"), expected);
    rewrite(folder / "list.txt", values);
    EXPECT_EQ(bytesOf(folder / "list.txt"), expected);
    rewrite(folder / "single.txt", 1234567.0);
    EXPECT_EQ(bytesOf(folder / "single.txt"), "1.23457e+06\n");
}

TEST(Append, EmptyListAddsNothingAndMakesTheFile)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.txt", "old\n");
    append(folder / "a.txt", Texts{});
    append(folder / "a.txt", Numbers{});
    EXPECT_EQ(bytesOf(folder / "a.txt"), "old\n");
    append(folder / "texts.txt", Texts{});
    append(folder / "numbers.txt", Numbers{});
    EXPECT_EQ(bytesOf(folder / "texts.txt"), "");
    EXPECT_EQ(bytesOf(folder / "numbers.txt"), "");
}

TEST(Append, WhatCannotBeWrittenIsPassedOver)
{
    forUnwritablePaths([](const std::string& path) {
        EXPECT_NO_THROW(append(path, "x"));
        EXPECT_NO_THROW(append(path, 1.0));
        EXPECT_NO_THROW(append(path, Texts{"x"}));
        EXPECT_NO_THROW(append(path, Numbers{1.0}));
    });
}

TEST(Rewrite, ReplacesTheFile)
{
    const TemporaryFolder folder;
    rewrite(folder / "a.txt", "one");
    EXPECT_EQ(bytesOf(folder / "a.txt"), "one\n");
    rewrite(folder / "a.txt", "two");
    EXPECT_EQ(bytesOf(folder / "a.txt"), "two\n");
    append(folder / "a.txt", "two");
    EXPECT_EQ(bytesOf(folder / "a.txt"), "two\ntwo\n");
    rewrite(folder / "a.txt", 0.5);
    EXPECT_EQ(bytesOf(folder / "a.txt"), "0.5\n");
    rewrite(folder / "a.txt", Texts{"x", "", "y"});
    EXPECT_EQ(bytesOf(folder / "a.txt"), "x\n\ny\n");
    rewrite(folder / "a.txt", Numbers{1.0, 2.5});
    EXPECT_EQ(bytesOf(folder / "a.txt"), "1\n2.5\n");
    rewrite(folder / "a.txt", Texts{});
    EXPECT_EQ(bytesOf(folder / "a.txt"), "");
    makeFile(folder / "a.txt", "old\n");
    rewrite(folder / "a.txt", Numbers{});
    EXPECT_EQ(bytesOf(folder / "a.txt"), "");
}

// The old file goes and a new one comes: another name of the old file still shows the old bytes.
TEST(Rewrite, RemovesTheOldFileFirst)
{
    const TemporaryFolder folder;
    const auto work = [](const std::string& path, int form) {
        switch (form) {
        case 0: rewrite(path, "new"); break;
        case 1: rewrite(path, 1.0); break;
        case 2: rewrite(path, Texts{"new"}); break;
        case 3: rewrite(path, Numbers{1.0}); break;
        default: rewriteText(path, "new\n"); break;
        }
    };
    const std::string expected[] = {"new\n", "1\n", "new\n", "1\n", "new\n"};
    for (int form = 0; form < 5; ++form) {
        SCOPED_TRACE(form);
        const std::string path = folder / ("a" + std::to_string(form));
        makeFile(path, "old\n");
        std::filesystem::create_hard_link(path, path + ".same");
        work(path, form);
        EXPECT_EQ(bytesOf(path), expected[form]);
        EXPECT_EQ(bytesOf(path + ".same"), "old\n");
    }
}

TEST(Rewrite, FilledFolderInTheFilesPlaceStays)
{
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder / "in");
    makeFile(folder / "in/a.txt", "kept");
    EXPECT_NO_THROW(rewrite(folder / "in", "x"));
    EXPECT_NO_THROW(rewrite(folder / "in", 1.0));
    EXPECT_NO_THROW(rewrite(folder / "in", Texts{"x"}));
    EXPECT_NO_THROW(rewrite(folder / "in", Numbers{1.0}));
    EXPECT_NO_THROW(rewriteText(folder / "in", "x\n"));
    EXPECT_EQ(bytesOf(folder / "in/a.txt"), "kept");
}

// The C library's remove removes an empty folder as it does a file.
TEST(Rewrite, EmptyFolderInTheFilesPlaceBecomesTheFile)
{
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder / "in");
    rewrite(folder / "in", "x");
    EXPECT_EQ(bytesOf(folder / "in"), "x\n");
}

TEST(Rewrite, NamesInAMissingFolderArePassedOver)
{
    const TemporaryFolder folder;
    EXPECT_NO_THROW(rewrite(folder / "missing/a.txt", "x"));
    EXPECT_NO_THROW(rewrite(folder / "missing/a.txt", 1.0));
    EXPECT_NO_THROW(rewrite(folder / "missing/a.txt", Texts{"x"}));
    EXPECT_NO_THROW(rewrite(folder / "missing/a.txt", Numbers{1.0}));
    EXPECT_NO_THROW(rewriteText(folder / "missing/a.txt", "x\n"));
    EXPECT_NO_THROW(rewrite("", "x"));
    EXPECT_FALSE(exists(folder / "missing"));
}

TEST(WriteText, ReplacesTheFileByTheText)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.txt", "old old old\n");
    writeText(folder / "a.txt", "one\ntwo\n");
    EXPECT_EQ(bytesOf(folder / "a.txt"), "one\ntwo\n");
    writeText(folder / "a.txt", "");
    EXPECT_EQ(bytesOf(folder / "a.txt"), "");
}

TEST(WriteText, RaisesCode7WithThePath)
{
    expectCode7([](const std::string& path) { writeText(path, "x\n"); });
}

TEST(RewriteText, ReplacesTheFileByTheText)
{
    const TemporaryFolder folder;
    rewriteText(folder / "a.txt", "one\ntwo\n");
    EXPECT_EQ(bytesOf(folder / "a.txt"), "one\ntwo\n");
    rewriteText(folder / "a.txt", "");
    EXPECT_EQ(bytesOf(folder / "a.txt"), "");
}

TEST(AppendText, AddsTheTextAndMakesTheFile)
{
    const TemporaryFolder folder;
    appendText(folder / "a.txt", "one\n");
    appendText(folder / "a.txt", "two\nthree\n");
    appendText(folder / "a.txt", "");
    EXPECT_EQ(bytesOf(folder / "a.txt"), "one\ntwo\nthree\n");
}

TEST(AppendText, WhatCannotBeWrittenIsPassedOver)
{
    forUnwritablePaths([](const std::string& path) { EXPECT_NO_THROW(appendText(path, "x\n")); });
}
