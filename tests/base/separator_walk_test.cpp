#include "base/separator_walk.h"

#include "support/random.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

using tavelinUtils::SeparatorWalk;

namespace {

// Where a text holds a character, and its size twice.
std::vector<std::size_t> positionsIn(std::string_view text, char wanted)
{
    std::vector<std::size_t> positions;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == wanted) {
            positions.push_back(i);
        }
    }
    positions.insert(positions.end(), 2, text.size());
    return positions;
}

} // namespace

TEST(SeparatorWalk, OneSeparatorAfterTheOther)
{
    SeparatorWalk walk("ab\t\tc\t", '\t');
    EXPECT_EQ(walk.next(), 2U);
    EXPECT_EQ(walk.next(), 3U);
    EXPECT_EQ(walk.next(), 5U);
    EXPECT_EQ(walk.next(), 6U);
    EXPECT_EQ(walk.next(), 6U);
    EXPECT_EQ(SeparatorWalk("", '\t').next(), 0U);
    EXPECT_EQ(SeparatorWalk(std::string_view(), '\t').next(3), 0U);
}

TEST(SeparatorWalk, ManyAreFollowedAtOnce)
{
    SeparatorWalk walk("0;2;4;6;8;", ';');
    EXPECT_EQ(walk.next(1), 3U);
    EXPECT_EQ(walk.next(0), 5U);
    EXPECT_EQ(walk.next(1), 9U);
    EXPECT_EQ(walk.next(), 10U);
    EXPECT_EQ(SeparatorWalk("0;2;4;6;8;", ';').next(4), 9U);
    EXPECT_EQ(SeparatorWalk("0;2;4;6;8;", ';').next(5), 10U);
    EXPECT_EQ(SeparatorWalk("0;2;4;6;8;", ';').next(100), 10U);
}

// Bytes next to the separator in value, and with the high bit, in texts of all lengths around whole blocks.
TEST(SeparatorWalk, NoOtherByteCounts)
{
    Random random(5);
    for (const char separator : {'\t', '\0', '\x7f', '\x80', '\xff', ' '}) {
        for (int i = 0; i < 2000; ++i) {
            const std::size_t size = random.below(200U);
            const std::unique_ptr<char[]> bytes(new char[size]); // of exactly its size, for the sanitizers
            for (std::size_t at = 0; at < size; ++at) {
                bytes[at] =
                    static_cast<char>(separator + random.below(3) - 1 + (random.below(2) == 0 ? 128 : 0));
            }
            const std::string_view text(bytes.get(), size);
            const std::vector<std::size_t> expected = positionsIn(text, separator);
            SeparatorWalk each(text, separator);
            for (const std::size_t position : expected) {
                ASSERT_EQ(each.next(), position);
            }
            SeparatorWalk third(text, separator);
            for (std::size_t at = 2; at < expected.size(); at += 3) {
                ASSERT_EQ(third.next(2), expected[at]);
            }
        }
    }
}
