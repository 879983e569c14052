#include "base/lines.h"

#include "support/temporary_folder.h"
#include "support/written.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

using namespace tavelinUtils;

namespace {

using Texts = std::vector<std::string>;

Texts linesOf(std::string_view bytes)
{
    Texts lines;
    forEachLine(bytes, [&lines](std::string_view line) { lines.emplace_back(line); });
    return lines;
}

struct Person
{
    std::string name;
    int age = 0;
};

constexpr TokenField<Person, Person> personFields[] = {
    {[](Person& to, std::string_view text) { to.name = text; },
     [](char* to, const Person& from) { return writeText(to, from.name); }},
    {takeNothing, [](char* to, const Person& /*from*/) { return writeText(to, "aged"); }},
    {[](Person& to, std::string_view text) { to.age = static_cast<int>(text.size()); },
     [](char* to, const Person& from) { return std::fill_n(to, from.age, 'I'); }},
};

// Keeps what it is given.
struct KeptLines
{
    std::vector<std::string> taken;

    void add(std::string_view line)
    {
        taken.emplace_back(line);
    }
};

} // namespace

TEST(WithoutLineEnd, LineEndsAndTabsGoAndBlanksStay)
{
    EXPECT_EQ(withoutLineEnd("a\r\n"), "a");
    EXPECT_EQ(withoutLineEnd("a\t\r\n\n\t"), "a");
    EXPECT_EQ(withoutLineEnd("a \n"), "a ");
    EXPECT_EQ(withoutLineEnd("\ta\tb"), "\ta\tb");
    EXPECT_EQ(withoutLineEnd("\n\r\t"), "");
    EXPECT_EQ(withoutLineEnd(""), "");
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

TEST(ReadLines, GivesEachLine)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.txt", "one\r\n\ntwo\t\n three");
    KeptLines lines;
    EXPECT_TRUE(readLines(openForReading(folder / "a.txt").get(), lines));
    EXPECT_EQ(lines.taken, (std::vector<std::string>{"one", "", "two", " three"}));
}

TEST(Field, IsCutFromItsFirstColumnCountedFrom1)
{
    EXPECT_EQ(cut("abcdef", {1, 2}), "ab");
    EXPECT_EQ(cut("abcdef", {3, 3}), "cde");
    EXPECT_EQ(cut("abcdef", {6, 1}), "f");
}

TEST(Field, ThatTheLineEndsInIsShorter)
{
    EXPECT_EQ(cut("abcdef", {5, 9}), "ef");
    EXPECT_EQ(cut("abcdef", {7, 1}), "");
    EXPECT_EQ(cut("", {1, 1}), "");
}

TEST(Field, AfterTheEndOfTheLineThrows)
{
    EXPECT_THROW(cut("abcdef", {8, 1}), std::out_of_range);
    EXPECT_THROW(cut("", {2, 1}), std::out_of_range);
}

TEST(Field, ThatMayBeMissingIsEmptyAfterTheEndOfTheLine)
{
    EXPECT_EQ(cutIfThere("abcdef", {2, 2}), "bc");
    EXPECT_EQ(cutIfThere("abcdef", {6, 4}), "f");
    EXPECT_EQ(cutIfThere("abcdef", {7, 1}), "");
    EXPECT_EQ(cutIfThere("abcdef", {8, 1}), "");
    EXPECT_EQ(cutIfThere("", {1, 1}), "");
}

TEST(Field, AllOfALineLeaveNoGapAndNoRest)
{
    constexpr Field whole[] = {{1, 2}, {3, 1}, {4, 3}};
    constexpr Field withGap[] = {{1, 2}, {4, 3}};
    constexpr Field overlapping[] = {{1, 2}, {2, 5}};
    constexpr Field late[] = {{2, 5}};
    EXPECT_TRUE(fillLine(whole, 6));
    EXPECT_FALSE(fillLine(whole, 5));
    EXPECT_FALSE(fillLine(whole, 7));
    EXPECT_FALSE(fillLine(withGap, 6));
    EXPECT_FALSE(fillLine(overlapping, 6));
    EXPECT_FALSE(fillLine(late, 6));
}

TEST(Field, BlankOneIsWrittenInItsWidth)
{
    EXPECT_EQ(written([](char* to) { return writeBlank(to, {2, 3}); }), "   ");
    EXPECT_EQ(written([](char* to) { return writeBlank(to, {5, 0}); }), "");
}

TEST(TextWithoutBlanks, KeepsAllElse)
{
    EXPECT_EQ(withoutBlanks(" 1 2\t 3 "), "12\t3");
    EXPECT_EQ(withoutBlanks("   "), "");
    EXPECT_EQ(withoutBlanks(""), "");
}

TEST(TokenFields, AreReadInTheirOrder)
{
    const std::array<std::string_view, 4> tokens{"Ann", "x", "IIII", "not read"};
    Person person;
    readFields<personFields>(tokens, person);
    EXPECT_EQ(person.name, "Ann");
    EXPECT_EQ(person.age, 4);
}

TEST(TokenFields, AreWrittenWithABlankBetweenThem)
{
    EXPECT_EQ(written([](char* to) {
                  return writeFields<personFields>(to, Person{"Ann", 2});
              }),
              "Ann aged II");
}

TEST(TakeLines, GivesEachLineOfAListAsItIs)
{
    KeptLines kept;
    takeLines(std::vector<std::string>{"one", "", "two\t"}, kept);
    EXPECT_EQ(kept.taken, (std::vector<std::string>{"one", "", "two\t"}));
}

TEST(TakeLines, GivesTheLinesOfBytesWithoutTheirEnds)
{
    KeptLines kept;
    takeLines(std::string_view("one\r\n\ntwo\t\n"), kept);
    EXPECT_EQ(kept.taken, (std::vector<std::string>{"one", "", "two"}));
}

TEST(ReadLines, TakesAnOpenFile)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.txt", "one\ntwo\n");
    const OpenFile file = openFile(folder / "a.txt", "rb");
    KeptLines kept;
    ASSERT_NE(file, nullptr);
    EXPECT_TRUE(readLines(file.get(), kept));
    EXPECT_EQ(kept.taken, (std::vector<std::string>{"one", "two"}));
}

TEST(ReadLines, LinesAreWholeWhereverAPieceEnds)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.txt", "one\n\ntwo and a half\r\nthree");
    const std::vector<std::string> lines{"one", "", "two and a half", "three"};
    for (std::size_t pieceLength = 1; pieceLength < 40; ++pieceLength) {
        SCOPED_TRACE(pieceLength);
        const OpenFile file = openFile(folder / "a.txt", "rb");
        KeptLines kept;
        EXPECT_TRUE(readLines(file.get(), kept, pieceLength));
        EXPECT_EQ(kept.taken, lines);
    }
}

TEST(ReadLines, FolderGivesNoLinesAlsoWhereItIsOpen)
{
    const TemporaryFolder folder;
    KeptLines kept;
    EXPECT_EQ(openForReading(folder.path()), nullptr);
    const OpenFile file = openFile(folder.path(), "rb");
    ASSERT_NE(file, nullptr);
    EXPECT_FALSE(readLines(file.get(), kept));
    EXPECT_TRUE(kept.taken.empty());
}
