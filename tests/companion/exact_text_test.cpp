#include "receivers/exact_text.h"

#include "support/locales.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <string>

using companion::DayAndFraction;
using companion::decimalsOf;
using companion::epochText;
using companion::exactCircle;
using companion::exactDecimal;
using companion::exactDegrees;
using companion::exactHours;
using companion::exactTimes;
using companion::isInLeapSecond;
using companion::RoundedMoment;
using companion::roundedMoment;
using companion::shownNumber;

TEST(ExactText, RefusedNumbersAreShownWithSixDecimals)
{
    EXPECT_EQ(shownNumber(2e6), "2000000.000000");
    EXPECT_EQ(shownNumber(-0.5), "-0.500000");
    EXPECT_EQ(shownNumber(INFINITY), "inf");
    EXPECT_EQ(shownNumber(NAN), "nan");
    EXPECT_EQ(shownNumber(-1.7e308).size(), 1U + 309U + 7U);
}

TEST(ExactText, TiesGoToTheEvenDigit)
{
    EXPECT_EQ(exactDecimal(0.125, 2), "0.12");
    EXPECT_EQ(exactDecimal(0.375, 2), "0.38");
    EXPECT_EQ(exactDecimal(-2.5, 0), "-2");
    EXPECT_EQ(exactDecimal(3.5, 0), "4");
}

TEST(ExactText, TheExactValueOfANumberDecidesAndNotItsShortestText)
{
    EXPECT_EQ(exactDecimal(1.005, 2), "1.00"); // 1.00499999999999989...
    EXPECT_EQ(exactDecimal(2.675, 2), "2.67"); // 2.67499999999999982...
    EXPECT_EQ(exactDecimal(1.115, 2), "1.11"); // 1.11499999999999999...
    EXPECT_EQ(exactDecimal(0.145, 2), "0.14"); // 0.14499999999999999...
    EXPECT_EQ(exactDecimal(0.155, 2), "0.15"); // 0.155 and a little less
}

TEST(ExactText, DecimalsAreThoseOfTheCLibraryWhichIsExactToo)
{
    std::mt19937_64 random(20250223);
    std::uniform_real_distribution<double> number(-1e6, 1e6);
    for (int i = 0; i < 20000; ++i) {
        const double value = std::ldexp(std::round(number(random) * 16), -4 - i % 3); // ties are frequent
        const std::string text = printInC("%.*f", i % 4, value);
        const bool isZero = text.find_first_of("123456789") == std::string::npos;
        EXPECT_EQ(exactDecimal(value, i % 4), isZero && text[0] == '-' ? text.substr(1) : text);
    }
}

TEST(ExactText, ProductsAreExactWhereTheProductOfDoublesIsNot)
{
    EXPECT_EQ(exactTimes(0.1, 10), 1); // 0.1 is a little more
    EXPECT_EQ(exactTimes(0.15, 10),
              1); // 0.15 is a little less: 1.4999..., where the product of doubles is 1.5
    EXPECT_EQ(exactTimes(0.25, 10), 2);
    EXPECT_EQ(exactTimes(-0.35, 10), -3); // -0.34999...
    EXPECT_EQ(exactTimes(1e-300, 1000), 0);
    EXPECT_EQ(exactTimes(12.0, 1'000'000'000), 12'000'000'000);
    EXPECT_EQ(exactTimes(9007199254740994.0, 100),
              900'719'925'474'099'400); // 2 more than 2 to the power of 53
}

TEST(ExactText, SecondsOf60AreCarriedIntoMinutesAndHours)
{
    EXPECT_EQ(exactHours(15.0 - 1e-7, 2, ' '), "01 00 00.00");
    EXPECT_EQ(exactHours(15.0 * (12 + 59.0 / 60 + 59.994 / 3600), 2, ' '), "12 59 59.99");
    EXPECT_EQ(exactDegrees(1.0 - 1e-6, 1, ' '), "+01 00 00.0");
    EXPECT_EQ(exactDegrees(-29.999999, 1, ' '), "-30 00 00.0");
}

TEST(ExactText, ARightAscensionOf24HoursIs0Hours)
{
    EXPECT_EQ(exactHours(359.99999999, 2, ' '), "00 00 00.00");
    EXPECT_EQ(exactHours(360.0, 3, ' '), "00 00 00.000");
    EXPECT_EQ(exactHours(-15.0, 2, ' '), "23 00 00.00");
    EXPECT_EQ(exactCircle(359.9999999, 6), "0.000000");
    EXPECT_EQ(exactCircle(-0.5, 1), "359.5");
}

TEST(ExactText, ADeclinationBelow0KeepsItsSignWhereItRoundsTo0)
{
    EXPECT_EQ(exactDegrees(-0.0, 1, ' '), "-00 00 00.0");
    EXPECT_EQ(exactDegrees(-0.5 / 3600, 1, ' '), "-00 00 00.5");
    EXPECT_EQ(exactDegrees(0.0, 1, ' '), "+00 00 00.0");
    EXPECT_EQ(exactDegrees(90.0, 2, ' '), "+90 00 00.00");
}

TEST(ExactText, WhatRoundsUpToADayIsThatOfTheNextDay)
{
    EXPECT_EQ(roundedMoment({60729, 0.999999}, 100'000), (RoundedMoment{60730, 0}));
    EXPECT_EQ(roundedMoment({60729, 0.99999}, 100'000), (RoundedMoment{60729, 99'999}));
    EXPECT_EQ(roundedMoment({60729, -0.25}, 100'000), (RoundedMoment{60728, 75'000}));
    EXPECT_NE(roundedMoment({60729, 0.25}, 100'000), roundedMoment({60730, 0.25}, 100'000));
    EXPECT_NE(roundedMoment({60729, 0.25}, 100'000), roundedMoment({60729, 0.75}, 100'000));
    EXPECT_EQ(epochText({60675, 0.9999999999}, 3), "2025-01-01T00:00:00.000"); // 2024-12-31
    EXPECT_EQ(epochText({60729, 0.5}, 0), "2025-02-23T12:00:00");
}

TEST(ExactText, ALeapSecondIsWrittenOnItsDaysAlone)
{
    const double half = 86400.5 / 86400;
    EXPECT_TRUE(isInLeapSecond({57753, half})); // 2016-12-31
    EXPECT_EQ(epochText({57753, half}, 1), "2016-12-31T23:59:60.5");
    EXPECT_FALSE(isInLeapSecond({57754, half}));
    EXPECT_EQ(epochText({57754, half}, 1), "2017-01-02T00:00:00.5");
    EXPECT_FALSE(isInLeapSecond({57753, 0.999}));
    EXPECT_EQ(epochText({57753, 86400.97 / 86400}, 1), "2017-01-01T00:00:00.0");
}

TEST(ExactText, DecimalsShowTheStepOfASource)
{
    EXPECT_EQ(decimalsOf(0.001, 0, 6), 3);
    EXPECT_EQ(decimalsOf(0.864, 0, 6), 1);
    EXPECT_EQ(decimalsOf(0.0000001, 0, 6), 6);
    EXPECT_EQ(decimalsOf(0.1, 1, 2), 1);
    EXPECT_EQ(decimalsOf(1.0, 1, 2), 1);
    EXPECT_EQ(decimalsOf(0.0, 1, 2), 2);
}
