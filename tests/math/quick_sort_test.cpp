#include "math/quick_sort.h"

#include "tool.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

TEST(Mycomp, ShorterTextComesFirstOnACommonPrefix)
{
    EXPECT_TRUE(tavelinUtils::mycomp("ab", "abc"));
    EXPECT_FALSE(tavelinUtils::mycomp("abc", "ab"));
    EXPECT_TRUE(tavelinUtils::mycomp("", "a"));
    EXPECT_FALSE(tavelinUtils::mycomp("a", ""));
}

TEST(Mycomp, EqualTextsHaveNoOrder)
{
    EXPECT_FALSE(tavelinUtils::mycomp("abc", "abc"));
    EXPECT_FALSE(tavelinUtils::mycomp("", ""));
}

TEST(Mycomp, FirstDifferentByteDecidesWhateverTheLengths)
{
    EXPECT_TRUE(tavelinUtils::mycomp("abcd", "abd"));
    EXPECT_FALSE(tavelinUtils::mycomp("b", "abc"));
    EXPECT_TRUE(tavelinUtils::mycomp("AST10", "AST9"));
    EXPECT_TRUE(tavelinUtils::mycomp("B", "a"));
    EXPECT_FALSE(tavelinUtils::mycomp("a", "B"));
}

TEST(Mycomp, BytesAboveAsciiComeBehindAscii)
{
    EXPECT_TRUE(tavelinUtils::mycomp("z", "\xc3\xa9"));
    EXPECT_FALSE(tavelinUtils::mycomp("\xc3\xa9", "z"));
    EXPECT_TRUE(tavelinUtils::mycomp("\x7f", "\x80"));
}

TEST(Mycomp, ZeroByteCountsLikeAnyOther)
{
    EXPECT_TRUE(tavelinUtils::mycomp(std::string("a\0a", 3), std::string("a\0b", 3)));
    EXPECT_TRUE(tavelinUtils::mycomp("a", std::string("a\0", 2)));
    EXPECT_TRUE(tavelinUtils::mycomp(std::string("a\0z", 3), "aa"));
}

TEST(Mycomp, SortsTexts)
{
    std::vector<std::string> texts{"b", "abc", "", "ab", "B", "ab"};
    std::sort(texts.begin(), texts.end(), tavelinUtils::mycomp);
    EXPECT_EQ(texts, (std::vector<std::string>{"", "B", "ab", "ab", "abc", "b"}));
}

TEST(Mycomp, OneDefinitionServesBothNamespaces)
{
    using namespace tavelinUtils;
    EXPECT_TRUE(mycomp("ab", "abc"));
    EXPECT_EQ(&::mycomp, &tavelinUtils::mycomp);
}
