#include "base/same_text.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>

using tavelinUtils::isSameText;

TEST(IsSameText, OneOtherCharacterIsEnoughToDiffer)
{
    for (std::size_t length = 0; length < 40; ++length) {
        const std::string text(length, 'a');
        EXPECT_TRUE(isSameText(text, std::string(text)));
        EXPECT_FALSE(isSameText(text, text + "a"));
        for (std::size_t place = 0; place < length; ++place) {
            std::string other = text;
            other[place] = 'b';
            EXPECT_FALSE(isSameText(text, other)) << other;
        }
    }
}
