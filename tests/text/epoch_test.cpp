#include "base/last_answer.h"
#include "text/date_text.h"

#include "base/text_buffer.h"
#include "support/sexagesimal.h"
#include "text/written_text.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>

using namespace tavelinUtils;

namespace {

struct EpochRow
{
    const char* text;
    int date;
    double time;
};

template <std::size_t count>
void expectRead(const EpochRow (&rows)[count])
{
    DayNumbers days;
    for (const auto& [text, date, time] : rows) {
        SCOPED_TRACE(text);
        int readDate = 1;
        double readTime = 0.125;
        readEpoch(text, days, readDate, readTime);
        EXPECT_EQ(readDate, date);
        EXPECT_DOUBLE_EQ(readTime, time);
    }
}

} // namespace

TEST(Epoch, IsAppendedAndDatesMayAlternate)
{
    TextBuffer text("<");
    DateTexts dates;
    appendEpoch(text, dates, 60000, 0.5);
    text += "|";
    appendEpoch(text, dates, 60000, 0.25);
    text += "|";
    appendEpoch(text, dates, 0, 0.25);
    text += "|";
    appendEpoch(text, dates, 60000, 0.75);
    EXPECT_EQ(text.view(), "<2023-02-25T12:00:00.00000|2023-02-25T06:00:00.00000|1858-11-17T06:00:00.00000|"
                           "2023-02-25T18:00:00.00000");
}

TEST(Epoch, DateAndTimeAreRead)
{
    expectRead({
        {"2023-02-25T12:00:00.00000", 60000, 0.5},
        {"2023-02-25T18:00:00", 60000, 0.75},
        {"2000-01-01T12:34:56.78901", 51544, day(12, 34, 56.78901)},
        {"2023-2-25T6:0:0", 60000, 0.25},
        {"2023-02-25T12:00:00Z", 60000, 0.5},
        {"2023-02-25T24:00:00", 60000, 1.0},
        {"2023-02-31T12:00:00", 60006, 0.5}, // 3 March
    });
}

TEST(Epoch, MissingPartsOfDateAndTimeCountAs0AndAFourthIsNotRead)
{
    expectRead({
        {"2023-02-25T12:00", 60000, 0.5},
        {"2023-02-25T12", 60000, 0.5},
        {"2023-02-25T12:00:00:59", 60000, 0.5},
        {"2023-02-25-99T12:00:00", 60000, 0.5},
        {"2023-02T12:00:00", 59975, 0.5}, // the day before 1 February
    });
}

TEST(Epoch, TextThatIsNoDateOfTheCalendarIs0AndTheTimeIsRead)
{
    expectRead({
        {"2023T12:00:00", 0, 0.5},
        {"2005-159T12:00:00", 0, 0.5}, // a day of the year
        {"2023-13-25T12:00:00", 0, 0.5},
        {"T12:00:00", 0, 0.5},
        {"xTy", 0, 0.0},
    });
}

TEST(Epoch, OfThreePartsAndMoreTheFirstTwoAreRead)
{
    expectRead({
        {"2034-02-22T23:08:33.417T56", 64015, day(23, 8, 33.417)},
        {"2023-02-25T12:00:00UTC", 60000, 0.5},
        {"2023-02-25T12:00:00T18:00:00T", 60000, 0.5},
        {"2023-02-25TT12:00:00", 60000, 0.0},
        {"TTT", 0, 0.0},
        {"TTTT", 0, 0.0},
    });
}

TEST(Epoch, LastTMakesNoFurtherPart)
{
    expectRead({
        {"2023-02-25T12:00:00T", 60000, 0.5},
        {"TT", 0, 0.0},
    });
}

TEST(Epoch, TextOfOnePartLeavesDateAndTime)
{
    expectRead({
        {"", 1, 0.125},
        {"T", 1, 0.125},
        {"=", 1, 0.125},
        {"2023-02-25", 1, 0.125},
        {"2023-02-25T", 1, 0.125},
        {"2023-02-25 12:00:00", 1, 0.125},
        {"2023-02-25t12:00:00", 1, 0.125},
        {"12:00:00", 1, 0.125},
    });
}
