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

TEST(DateTexts, RememberNightsThatComeAgain)
{
    DateTexts dates;
    int conversions = 0;
    const auto text = [&conversions](int date) {
        ++conversions;
        return std::to_string(date);
    };
    for (int round = 0; round < 3; ++round) {
        for (const int date : {60000, 60001, 60031, -5, 7}) {
            EXPECT_EQ(dates.answerTo(date, text), std::to_string(date));
        }
    }
    EXPECT_EQ(conversions, 6); // the first night once more: alone it is not kept
}

TEST(DateTexts, NightsAMonthApartTakeTurns)
{
    DateTexts dates;
    const auto text = [](int date) { return std::to_string(date); };
    for (int date = 60000; date < 60200; ++date) {
        EXPECT_EQ(dates.answerTo(date, text), std::to_string(date));
        EXPECT_EQ(dates.answerTo(date - 32, text), std::to_string(date - 32));
    }
}
