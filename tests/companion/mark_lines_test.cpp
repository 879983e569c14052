// The lines of the marks of an object.

#include "reading/mark_lines.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using companion::LineFates;
using companion::MarkLines;
using tavelinUtils::LineFate;
using tavelinUtils::PassedReason;

} // namespace

TEST(MarkLines, AnObjectHasItsLinesInTheirOrderAndNoMore)
{
    LineFates fates;
    for (const std::size_t line : {2U, 3U, 4U}) {
        fates.settled({line, LineFate::mark, PassedReason::none});
    }
    const std::string text = "K88 2000.0 UTC\n A 1 2\nB 1 2\nA 1 2\nA 1 2\n"; // the last is of no fate
    MarkLines lines(text, "mea", fates);
    EXPECT_EQ(lines.next("A").number, 2U);
    EXPECT_EQ(lines.next("B").number, 3U);
    EXPECT_EQ(lines.next("A").number, 4U);
    EXPECT_EQ(lines.next("A").number, 0U);
    EXPECT_EQ(lines.next("C").number, 0U);
}
