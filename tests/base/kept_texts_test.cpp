#include "base/kept_texts.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

using tavelinUtils::KeptTexts;

TEST(KeptTexts, EveryTextIsAtItsPlace)
{
    KeptTexts texts;
    const std::string withZero("a\0b", 3);
    const auto first = texts.keep("first");
    const auto zero = texts.keep(withZero);
    const auto second = texts.keep("second");
    EXPECT_EQ(texts[first], "first");
    EXPECT_EQ(texts[zero], withZero);
    EXPECT_EQ(texts[second], "second");
}

TEST(KeptTexts, ATextOfFourGibibytesIsRefused)
{
    KeptTexts texts;
    const char begin[] = "only its length is looked at";
    EXPECT_THROW(texts.keep({begin, std::size_t{1} << 32}), std::length_error);
    EXPECT_EQ(texts[texts.keep(begin)], begin);
}

TEST(KeptTexts, EmptyTextsShareAPlaceWithoutMemory)
{
    KeptTexts texts;
    EXPECT_EQ(texts[0], "");
    EXPECT_EQ(texts.keep(""), 0U);
    const auto place = texts.keep("a");
    EXPECT_NE(place, 0U);
    EXPECT_EQ(texts.keep("", place), 0U);
    EXPECT_EQ(texts[0], "");
}

TEST(KeptTexts, ALikelyPlaceIsTakenOnlyByItsOwnText)
{
    KeptTexts texts;
    const auto a = texts.keep("a");
    EXPECT_EQ(texts.keep("a", a), a);
    const auto b = texts.keep("b", a);
    EXPECT_NE(b, a);
    EXPECT_EQ(texts[a], "a");
    EXPECT_EQ(texts[b], "b");
    const auto again = texts.keep("a", b);
    EXPECT_NE(again, b);
    EXPECT_EQ(texts[again], "a");
    EXPECT_NE(texts.keep("ab", a), a);
    EXPECT_EQ(texts[texts.keep("c", 0)], "c");
}

TEST(KeptTexts, TextsOfAnyLengthStayWhereTheyAre)
{
    KeptTexts texts;
    const auto first = texts.keep("first");
    const char* const at = texts[first].data();
    std::vector<KeptTexts::Place> places;
    for (const unsigned length : {65531U, 65532U, 65533U, 1U, 200000U, 2U, 65536U, 40000U, 40000U}) {
        places.push_back(texts.keep(std::string(length, static_cast<char>('a' + places.size()))));
    }
    for (std::size_t i = 0; i < 20000; ++i) {
        places.push_back(texts.keep(std::to_string(i)));
    }
    EXPECT_EQ(texts[first].data(), at);
    EXPECT_EQ(texts[first], "first");
    EXPECT_EQ(texts[places[0]], std::string(65531, 'a'));
    EXPECT_EQ(texts[places[2]], std::string(65533, 'c'));
    EXPECT_EQ(texts[places[4]], std::string(200000, 'e'));
    EXPECT_EQ(texts[places[8]], std::string(40000, 'i'));
    for (std::size_t i = 0; i < 20000; ++i) {
        ASSERT_EQ(texts[places[9 + i]], std::to_string(i));
    }
}
