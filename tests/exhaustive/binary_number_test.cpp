#include "exhaustive/binary_number.h"

#include "support/locales.h"
#include "support/random.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

// A number of the sizes that times and angles have, as a quotient of integers.
struct Quotient
{
    std::uint64_t numerator;
    std::uint64_t denominator;

    explicit Quotient(Random& random)
        : numerator(random.below(std::uint64_t{1} << (1 + random.below(52)))),
          denominator(1 + random.below(std::uint64_t{100'000'000'000'000}))
    {
    }

    double value() const
    {
        return static_cast<double>(numerator) / static_cast<double>(denominator);
    }
    BinaryNumber binary() const
    {
        return BinaryNumber::ratio(numerator, denominator);
    }
};

std::uint64_t printedDigits(double number, int decimals)
{
    char text[400];
    std::snprintf(text, sizeof text, "%.*f", decimals, number);
    std::string digits(text);
    digits.erase(digits.find('.'), 1);
    return std::strtoull(digits.c_str(), nullptr, 10);
}

constexpr int trials = 100'000;

} // namespace

TEST(BinaryNumber, CountsAsTheProcessorDoes)
{
    Random random(1);
    for (int i = 0; i < trials; ++i) {
        const Quotient quotient(random);
        const auto factor = 1 + random.below(std::uint64_t{4000});
        const auto number = static_cast<double>(factor);
        ASSERT_EQ(quotient.binary().value(), quotient.value());
        ASSERT_EQ(quotient.binary().times(factor).value(), quotient.value() * number);
        ASSERT_EQ(quotient.binary().over(factor).value(), quotient.value() / number);
    }
}

TEST(BinaryNumber, AddsAsTheProcessorDoes)
{
    Random random(2);
    for (int i = 0; i < trials; ++i) {
        const Quotient one(random);
        const auto whole = random.below(std::uint64_t{100'000});
        const BinaryNumber sum = BinaryNumber::ratio(whole, 1).plus(BinaryNumber::ratio(1, 3));
        ASSERT_EQ(sum.value(), static_cast<double>(whole) + 1.0 / 3.0);
        ASSERT_EQ(one.binary().plus(one.binary()).value(), 2 * one.value());
        ASSERT_EQ(one.binary().plus(BinaryNumber()).value(), one.value());
    }
}

TEST(BinaryNumber, IsCutAtItsPoint)
{
    Random random(3);
    for (int i = 0; i < trials; ++i) {
        const Quotient quotient(random);
        const double whole = std::trunc(quotient.value());
        ASSERT_EQ(static_cast<double>(quotient.binary().whole()), whole);
        ASSERT_EQ(quotient.binary().fraction().value(), quotient.value() - whole);
    }
}

TEST(BinaryNumber, IsRoundedAsFixedNotationRounds)
{
    const ReferenceLocale reference;
    Random random(4);
    for (int i = 0; i < trials; ++i) {
        const auto numerator = random.below(std::uint64_t{24'000'000});
        const BinaryNumber number = BinaryNumber::ratio(numerator, 1'000'003);
        ASSERT_EQ(number.scaled(1'000'000'000'000), printedDigits(number.value(), 12));
        ASSERT_EQ(number.scaled(10), printedDigits(number.value(), 1));
    }
    EXPECT_EQ(BinaryNumber::ratio(5, 2).scaled(1), 2U); // ties
    EXPECT_EQ(BinaryNumber::ratio(7, 2).scaled(1), 4U);
}
