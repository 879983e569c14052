#include "base/last_answer.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

using namespace tavelinUtils;

TEST(LastAnswer, ConvertsOnlyForANewQuestion)
{
    LastAnswer<int, int> squares;
    int conversions = 0;
    const auto square = [&conversions](int number) {
        ++conversions;
        return number * number;
    };
    EXPECT_EQ(squares.answerTo(3, square), 9);
    EXPECT_EQ(squares.answerTo(3, square), 9);
    EXPECT_EQ(conversions, 1);
    EXPECT_EQ(squares.answerTo(4, square), 16);
    EXPECT_EQ(conversions, 2);
    EXPECT_EQ(squares.answerTo(3, square), 9);
    EXPECT_EQ(conversions, 3);
}

TEST(LastAnswer, FirstQuestionIsConvertedAlsoWhenItLooksLikeANewRecord)
{
    LastAnswer<int, int> answers;
    EXPECT_EQ(answers.answerTo(0, [](int) { return 7; }), 7);
}

TEST(LastAnswer, KeepsItsOwnCopyOfATextThatWasAskedAsAView)
{
    LastAnswer<std::string, int> answers;
    int conversions = 0;
    const auto length = [&conversions](std::string_view text) {
        ++conversions;
        return static_cast<int>(text.size());
    };
    std::string buffer = "2023-02-25";
    EXPECT_EQ(answers.answerTo(std::string_view(buffer), length), 10);
    buffer = "2023";
    EXPECT_EQ(answers.answerTo(std::string_view(buffer), length), 4);
    EXPECT_EQ(conversions, 2);
    const std::string other = "2023";
    EXPECT_EQ(answers.answerTo(std::string_view(other), length), 4);
    EXPECT_EQ(conversions, 2);
}
