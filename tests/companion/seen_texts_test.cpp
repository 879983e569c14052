#include "reading/seen_texts.h"

#include <gtest/gtest.h>

#include <string>

TEST(SeenTexts, ATextIsNewOnce)
{
    companion::SeenTexts seen;
    constexpr int many = 10000; // the set grows several times
    for (int i = 0; i < many; ++i) {
        EXPECT_TRUE(seen.insert("K88 AST" + std::to_string(i))) << i;
    }
    for (int i = 0; i < many; ++i) {
        EXPECT_FALSE(seen.insert("K88 AST" + std::to_string(i))) << i;
    }
    EXPECT_TRUE(seen.insert(""));
    EXPECT_FALSE(seen.insert(""));
}
