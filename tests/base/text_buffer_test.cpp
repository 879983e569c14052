#include "base/text_buffer.h"

#include <gtest/gtest.h>

#include <string>

using tavelinUtils::TextBuffer;

TEST(TextBuffer, GrowsAtItsEnd)
{
    TextBuffer text("a");
    std::string expected = "a";
    for (int i = 0; i < 1000; ++i) {
        text += 'b';
        text += "cd";
        text.append(2, 'e');
        expected += "bcdee";
    }
    EXPECT_EQ(text.view(), expected);
    EXPECT_EQ(text.str(), expected);
    EXPECT_EQ(text.size(), 5001U);
}

TEST(TextBuffer, WhatIsWrittenIntoItsRoomBecomesPartOfIt)
{
    TextBuffer text("<");
    char* const to = text.room(300);
    to[0] = 'x';
    to[1] = '>';
    EXPECT_EQ(text.view(), "<");
    text.endAt(to + 2);
    EXPECT_EQ(text.view(), "<x>");
}

TEST(TextBuffer, RoomThatIsReservedIsNotMoved)
{
    TextBuffer text("a");
    text.reserve(10000);
    const char* const begin = text.view().data();
    text.append(9999, 'b');
    EXPECT_EQ(text.view().data(), begin);
}

TEST(TextBuffer, PartsOfItAreTakenAway)
{
    TextBuffer text("abcdef");
    EXPECT_FALSE(text.empty());
    text.erase(1, 2);
    EXPECT_EQ(text.view(), "adef");
    text.shorten(3);
    EXPECT_EQ(text.view(), "ade");
    text.erase(0, 3);
    EXPECT_TRUE(text.empty());
    text += "x";
    text.clear();
    EXPECT_EQ(text.view(), "");
}
