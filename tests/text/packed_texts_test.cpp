// Packed fields, dates of the day and angles are read and printed as integers where they can be. Here each
// goes the long way too: cut into texts, read and printed by the C library.

#include "base/numbers.h"
#include "base/text_buffer.h"
#include "text/angle_text.h"
#include "text/calendar.h"
#include "text/date_text.h"

#include "support/locales.h"
#include "support/random.h"
#include "support/same_bits.h"
#include "support/written.h"
#include "text/written_text.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <stdexcept>
#include <string>
#include <vector>

using namespace tavelinUtils;

namespace {

double longNumber(const std::string& text)
{
    return readInC(text);
}

double longSeconds(const std::string& text, std::size_t position)
{
    return longNumber(text.substr(position, 2) + "." + text.substr(position + 2));
}

double longRA(const std::string& text)
{
    const double seconds = longSeconds(text, 4);
    return (longNumber(text.substr(0, 2)) + longNumber(text.substr(2, 2)) / 60.0 + seconds / 3600.0) * 15.0;
}

double longDE(const std::string& text)
{
    const double seconds = longSeconds(text, 5);
    const double degrees = std::abs(longNumber(text.substr(0, 3)));
    const double magnitude = degrees + longNumber(text.substr(3, 2)) / 60.0 + seconds / 3600.0;
    return text[0] == '-' ? -magnitude : magnitude;
}

double longTime(const std::string& text)
{
    const double second = longSeconds(text, 4);
    const double minute = longNumber(text.substr(2, 2));
    return (second / 3600.0 + (minute / 60.0 + longNumber(text.substr(0, 2)))) / 24.0;
}

// Whether both ways give the same bits, or both throw.
template <class Short, class Long>
bool agree(const std::string& text, Short shortWay, Long longWay)
{
    double expected = 0;
    try {
        expected = longWay(text);
    } catch (const std::out_of_range&) {
        EXPECT_THROW(shortWay(text), std::out_of_range) << text;
        return true;
    }
    return sameBits(shortWay(text), expected);
}

void expectReadTheLongWay(const std::string& text)
{
    ASSERT_TRUE(agree(text, packedRA, longRA)) << text;
    ASSERT_TRUE(agree(text, packedDE, longDE)) << text;
    ASSERT_TRUE(agree(text, packedTime, longTime)) << text;
}

std::string printed(double value, int precision)
{
    return printInC("%.*f", precision, value);
}

std::string withoutPoint(std::string text)
{
    const std::size_t point = text.find('.');
    return point == std::string::npos ? text : text.erase(point, 1);
}

// The "0" looks at the printed text.
std::string padded(const std::string& number)
{
    return longNumber(number) < 10.0 ? "0" + number : number;
}

std::string padded(int number)
{
    return (number <= 9 ? "0" : "") + std::to_string(number);
}

std::string longAngle(double degrees, double unit, int precision, const std::string& separator)
{
    const double value = std::abs(degrees) / unit;
    const int whole = cutToInt(value);
    const double minutes = (value - whole) * 60.0;
    const int minute = cutToInt(minutes);
    return (degrees < 0.0 ? "-" : "") + padded(whole) + separator + padded(minute) + separator +
           padded(printed((minutes - minute) * 60.0, precision));
}

// The "0" looks at the value.
std::string byValue(double seconds, int precision)
{
    return (seconds < 10.0 ? "0" : "") + printed(seconds, precision);
}

void expectAngleTheLongWay(double degrees, int precision)
{
    const std::string colon = written([=](char* to) { return writeRA(to, degrees, precision, ':'); });
    ASSERT_EQ(colon, longAngle(degrees, 15.0, precision, ":"));
    const std::string packed = written([=](char* to) { return writePackedDE(to, degrees, precision); });
    ASSERT_EQ(packed, withoutPoint(longAngle(degrees, 1.0, precision, "")));
}

void expectTimeTheLongWay(double day, int precision)
{
    int hour = 0;
    int minute = 0;
    double second = 0;
    DayToTime(day, hour, minute, second);
    const std::string front = padded(hour) + padded(minute);
    ASSERT_EQ(written([=](char* to) { return writeTimeMEA(to, day, precision, true); }),
              front + withoutPoint(byValue(second, precision)));
    const std::string cut = withoutPoint(byValue(second, 15));
    ASSERT_EQ(written([=](char* to) { return writeTimeMEA(to, day, precision, false); }),
              front + cut.substr(0, static_cast<std::size_t>(precision) + 2));
    if (printed(second, precision).starts_with("60")) {
        return; // the carry, which tests of its own hold
    }
    ASSERT_EQ(written([=](char* to) { return writeTime(to, day, precision, ':'); }),
              padded(hour) + ":" + padded(minute) + ":" + padded(printed(second, precision)));
}

} // namespace

TEST(PackedTexts, DigitsReadAsTheLongWay)
{
    Random random(5);
    std::string text;
    for (int i = 0; i < 100000; ++i) {
        text.assign(random.below(3) == 0 ? "-" : "");
        for (int left = 4 + random.below(15); left > 0; --left) {
            text += static_cast<char>('0' + random.below(10));
        }
        expectReadTheLongWay(text);
        if (HasFatalFailure()) {
            return;
        }
    }
}

TEST(PackedTexts, OddOnesReadAsTheLongWay)
{
    const std::string characters = "00123456789999 .-+eEx:T\t";
    Random random(6);
    std::string text;
    for (int i = 0; i < 100000; ++i) {
        text.clear();
        for (int left = random.below(24); left > 0; --left) {
            text += random.below(8) == 0 ? characters[random.below(characters.size())]
                                         : static_cast<char>('0' + random.below(10));
        }
        expectReadTheLongWay(text);
        if (HasFatalFailure()) {
            return;
        }
    }
}

TEST(PackedTexts, AnglesPrintAsTheLongWay)
{
    Random random(7);
    for (int i = 0; i < 80000; ++i) {
        // Random angles, and such whose seconds are at or next to a half of the last digit.
        const double rounded = static_cast<double>(random.below(72000000)) / 200000.0;
        const double degrees = i % 2 == 0 ? random.fraction() * 720.0 - 360.0 : rounded - 180.0;
        expectAngleTheLongWay(degrees, random.below(7));
        if (HasFatalFailure()) {
            return;
        }
    }
}

TEST(PackedTexts, OddAnglesPrintAsTheLongWay)
{
    for (const double degrees : {0.0, -0.0, 1e-300, 5e-324, -1e-9, 1500.0, 1e6, 1e10, -1e15, 1e300,
                                 359.99999999999994, 59.99999999999999, 10.0, 9.999999999999998})
    {
        for (const int precision : {0, 1, 2, 4, 12, 19, 25}) {
            SCOPED_TRACE(degrees);
            expectAngleTheLongWay(degrees, precision);
        }
    }
}

TEST(PackedTexts, TimesPrintAsTheLongWay)
{
    Random random(8);
    for (int i = 0; i < 80000; ++i) {
        const double whole = static_cast<double>(random.below(864000)) / 864000.0;
        const double day = i % 3 == 0 ? random.fraction() : i % 3 == 1 ? whole : 60000.0 + whole;
        expectTimeTheLongWay(day, random.below(8));
        if (HasFatalFailure()) {
            return;
        }
    }
}
