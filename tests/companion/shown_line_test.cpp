#include "command/shown_line.h"

#include <gtest/gtest.h>

namespace {

using companion::shownLine;

TEST(ShownLine, PlaceThatTheLineHasNotIsNotShown)
{
    const auto shown = [](std::size_t column, const std::string& line) {
        return shownLine({1, column, 1, line, "", "", {}});
    };
    EXPECT_EQ(shown(6, "a line"), "    a line\n         ^\n");
    EXPECT_EQ(shown(7, "a line"), "    a line\n          ^\n");
    EXPECT_EQ(shown(8, "a line"), "");
    EXPECT_EQ(shown(0, "a line"), "");
    EXPECT_EQ(shown(1, ""), "");
}

} // namespace
