#include "base/tokens.h"

#include "support/cut_texts.h"

#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

using namespace tavelinUtils;

namespace {

using Texts = std::vector<std::string>;

template <class Separator>
Texts tokensOf(std::string_view text, const Separator& separator)
{
    Texts tokens;
    forEachToken(text, separator, [&tokens](std::string_view token) { tokens.emplace_back(token); });
    return tokens;
}

} // namespace

TEST(ForEachToken, CutsAsTheTokeniserDoes)
{
    for (const CutText& row : cutsAtOneCharacter) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(tokensOf(row.text, row.separator[0]), row.tokens);
    }
}

TEST(ForEachToken, EmptyTextHasNone)
{
    int count = 0;
    forEachToken("", ';', [&count](std::string_view) { ++count; });
    EXPECT_EQ(count, 0);
}

TEST(ForEachToken, SeparatorMayBeAText)
{
    for (const CutText& row : cutsAtOneCharacter) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(tokensOf(row.text, row.separator), row.tokens);
    }
    const std::string two = "--";
    EXPECT_EQ(tokensOf("a--b", two), (Texts{"a", "b"}));
    EXPECT_EQ(tokensOf("a---b", two), (Texts{"a", "-b"}));
    EXPECT_EQ(tokensOf("a-b", two), Texts{"a-b"});
    EXPECT_EQ(tokensOf("", two), Texts{});
    EXPECT_EQ(tokensOf("a", std::string()), Texts{});
}

// A separator of several characters is appended to every text, also to one that ends in it.
TEST(ForEachToken, LongSeparatorAtTheEndLeavesAnEmptyToken)
{
    EXPECT_EQ(tokensOf("a--", std::string("--")), (Texts{"a", ""}));
    EXPECT_EQ(tokensOf("--", std::string("--")), (Texts{"", ""}));
    EXPECT_EQ(tokensOf("a-", std::string("--")), Texts{"a"});
}

TEST(CountTokens, IsTheNumberOfTokens)
{
    for (const CutText& row : cutsAtOneCharacter) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(countTokens(row.text, row.separator[0]), row.tokens.size());
    }
    EXPECT_EQ(countTokens("", ' '), 0u);
}

TEST(CutParts, SeparatorAtTheEndHasAnEmptyPartBehindIt)
{
    std::array<std::string_view, 4> parts{"w", "x", "y", "z"};
    EXPECT_EQ(cutParts("a;b;", ';', parts), 3u);
    EXPECT_EQ(parts, (std::array<std::string_view, 4>{"a", "b", "", "z"}));
}

TEST(CutParts, EmptyTextIsOneEmptyPart)
{
    std::array<std::string_view, 2> parts{"x", "y"};
    EXPECT_EQ(cutParts("", ';', parts), 1u);
    EXPECT_EQ(parts, (std::array<std::string_view, 2>{"", "y"}));
}

TEST(CutParts, CountsPartsBeyondTheRoom)
{
    std::array<std::string_view, 2> parts;
    EXPECT_EQ(cutParts("a;;c;d", ';', parts), 4u);
    EXPECT_EQ(parts, (std::array<std::string_view, 2>{"a", ""}));
}

TEST(CutParts, GivesWhatTheTokeniserGivesWithTheSeparatorBehind)
{
    struct Row
    {
        std::string text;
        std::size_t count;
        std::string first, second;
    };
    const Row rows[] = {
        {"", 1, "", "?"},         {" ", 2, "", ""},         {"a", 1, "a", "?"},     {"a ", 2, "a", ""},
        {" a", 2, "", "a"},       {"a b", 2, "a", "b"},     {"a b c", 3, "a", "b"}, {"  ", 3, "", ""},
        {"a  b c d", 5, "a", ""}, {"a\tb", 1, "a\tb", "?"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.text);
        std::array<std::string_view, 2> parts{"?", "?"};
        EXPECT_EQ(cutParts(row.text, ' ', parts), row.count);
        EXPECT_EQ(parts[0], row.first);
        EXPECT_EQ(parts[1], row.second);
    }
}

TEST(ThreeParts, PartsThatAreMissingAreEmpty)
{
    using Parts = std::array<std::string_view, 3>;
    EXPECT_EQ(threeParts("a-b-c", '-'), (Parts{"a", "b", "c"}));
    EXPECT_EQ(threeParts("a-b-c-d", '-'), (Parts{"a", "b", "c"}));
    EXPECT_EQ(threeParts("a--c", '-'), (Parts{"a", "", "c"}));
    EXPECT_EQ(threeParts("a-", '-'), (Parts{"a", "", ""}));
    EXPECT_EQ(threeParts("", '-'), (Parts{"", "", ""}));
}

TEST(ForEachSeparator, FindsEachOneWhereverItStands)
{
    // Bytes next to the separator's value, and with their high bit set, could mislead a look at many at once.
    const std::string letters = std::string("\t\t\ta\x08\x0a\x89\x8a\xff") + '\0';
    unsigned state = 7;
    for (int i = 0; i < 20000; ++i) {
        std::string text;
        for (int length = i % 200; length > 0; --length) {
            state = state * 1664525U + 1013904223U;
            text += letters[(state >> 16) % letters.size()];
        }
        std::vector<std::size_t> expected;
        for (std::size_t at = text.find('\t'); at != std::string::npos; at = text.find('\t', at + 1)) {
            expected.push_back(at);
        }
        std::vector<std::size_t> found;
        forEachSeparator(text, '\t', [&found](std::size_t at) { found.push_back(at); });
        ASSERT_EQ(found, expected) << i;
    }
}

TEST(CutRuns, SeveralSeparatorsCountAsOneAndThoseAtTheEndsNotAtAll)
{
    using Tokens = std::array<std::string_view, 3>;
    for (const char* text : {"a bc d", "  a   bc d ", "a bc  d   "}) {
        Tokens tokens;
        EXPECT_TRUE(cutRuns(text, ' ', tokens)) << text;
        EXPECT_EQ(tokens, (Tokens{"a", "bc", "d"})) << text;
    }
    for (const char* text : {"", " ", "a", "a b", " a b ", "a b c d", "a b c d "}) {
        Tokens tokens;
        EXPECT_FALSE(cutRuns(text, ' ', tokens)) << text;
    }
}

// A text of a block and more is cut another way.
TEST(CutRuns, LengthOfTheTextDoesNotMatter)
{
    unsigned state = 11;
    int whole = 0;
    for (int i = 0; i < 40000; ++i) {
        std::string text;
        Texts expected;
        for (int length = i % 140; length > 0; --length) {
            state = state * 1664525U + 1013904223U;
            const bool blank = (state >> 16) % (i % 2 == 0 ? 3 : 40) == 0;
            if (!blank && (text.empty() || text.back() == ' ')) {
                expected.emplace_back();
            }
            text += blank ? ' ' : static_cast<char>('a' + (state >> 24) % 26);
            if (!blank) {
                expected.back() += text.back();
            }
        }
        std::array<std::string_view, 4> tokens;
        ASSERT_EQ(cutRuns(text, ' ', tokens), expected.size() == tokens.size()) << text;
        if (expected.size() == tokens.size()) {
            ++whole;
            ASSERT_EQ(Texts(tokens.begin(), tokens.end()), expected) << text;
        }
    }
    EXPECT_GT(whole, 1000);
}
