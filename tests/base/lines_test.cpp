#include "base/lines.h"

#include "support/temporary_folder.h"

#include <gtest/gtest.h>

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
