#include "base/digits.h"

#include "support/written.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

using namespace tavelinUtils;

namespace {

// The last digits of a number the long way.
std::string lastDigits(std::uint64_t number, int digits)
{
    const std::string text = std::string(20, '0') + std::to_string(number);
    return text.substr(text.size() - static_cast<std::size_t>(digits));
}

} // namespace

TEST(Digits, LowestOnesAreWrittenWithZerosInFront)
{
    std::uint64_t state = 1;
    for (int i = 0; i < 200000; ++i) {
        state = state * 6364136223846793005U + 1442695040888963407U;
        const std::uint64_t number = state >> (i % 64);
        const int digits = i % 20;
        ASSERT_EQ(written([=](char* to) { return writeDigits(to, number, digits); }),
                  lastDigits(number, digits))
            << number;
    }
}

TEST(Digits, EachNumberOfEightDigitsHasItsOwn)
{
    constexpr std::uint64_t limit = 100000000;
    constexpr std::uint64_t step = 997; // with it each pair of digits meets each other
    for (std::uint64_t number = 0; number < limit; number += step) {
        ASSERT_EQ(written([=](char* to) { return writeDigits(to, number, 8); }), lastDigits(number, 8));
    }
    EXPECT_EQ(written([](char* to) { return writeDigits(to, 99999999, 8); }), "99999999");
}

TEST(Digits, TheSmallestMagnitudesAreScaledToZero)
{
    for (const double value : {0.0, -0.0, 5e-324, -5e-324, 1e-300, 1e-30}) {
        EXPECT_EQ(exactScaledMagnitude(value, 9), 0U) << value;
    }
    EXPECT_EQ(exactScaledMagnitude(-1e-9, 9), 1U);
}

TEST(Digits, WholeNumberHasNoZeroInFront)
{
    for (const std::uint64_t number :
         {std::uint64_t{0}, std::uint64_t{9}, std::uint64_t{10}, std::uint64_t{99}, std::uint64_t{100},
          std::uint64_t{99999999}, std::uint64_t{100000000}, UINT64_MAX})
    {
        EXPECT_EQ(written([=](char* to) { return writeWhole(to, number); }), std::to_string(number));
    }
}
