#include "base/text_index.h"

#include <gtest/gtest.h>

#include <string>

using tavelinUtils::TextIndex;

TEST(TextIndex, NumbersDifferentTextsInTheOrderOfFirstSight)
{
    TextIndex index;
    EXPECT_EQ(index.size(), 0U);
    EXPECT_EQ(index.numberOf("b"), 0U);
    EXPECT_EQ(index.numberOf(""), 1U);
    EXPECT_EQ(index.numberOf("a"), 2U);
    EXPECT_EQ(index.numberOf("b"), 0U);
    EXPECT_EQ(index.numberOf("b"), 0U);
    EXPECT_EQ(index.numberOf(""), 1U);
    EXPECT_EQ(index.size(), 3U);
    EXPECT_EQ(index[0], "b");
    EXPECT_EQ(index[1], "");
    EXPECT_EQ(index[2], "a");
}

TEST(TextIndex, ManyTextsKeepTheirNumbers)
{
    constexpr std::size_t many = 20000;
    TextIndex index;
    for (int round = 0; round < 2; ++round) {
        for (std::size_t i = 0; i < many; ++i) {
            ASSERT_EQ(index.numberOf("text " + std::to_string(i)), i);
        }
    }
    EXPECT_EQ(index.size(), many);
    EXPECT_EQ(index[many - 1], "text 19999");
}
