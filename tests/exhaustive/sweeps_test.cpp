// A thin sample of each sweep; the program `exhaustive` goes through all values.

#include "exhaustive/sweeps.h"

#include "support/locales.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using Sweep = void(const Stretch& stretch, Differences& differences);

std::string differencesIn(Sweep& sweep, const Stretch& stretch)
{
    Differences differences;
    sweep(stretch, differences);
    std::string sentences;
    for (const std::string& sentence : differences.first()) {
        sentences += sentence + "\n";
    }
    return sentences;
}

} // namespace

TEST(Sweeps, TimesAreThoseOfTheReference)
{
    EXPECT_EQ(differencesIn(sweepTimes, {0, millisecondsOfADay, 19'997}), "");
    EXPECT_EQ(differencesIn(sweepTimes, {millisecondsOfADay - 10, millisecondsOfADay, 1}), "");
}

TEST(Sweeps, TimesAboutWholeMinutesAreThoseOfTheReference)
{
    EXPECT_EQ(differencesIn(sweepTimes, {0, millisecondsOfADay, 180'000}), "");
    EXPECT_EQ(differencesIn(sweepTimes, {59'999, millisecondsOfADay, 180'000}), "");
    EXPECT_EQ(differencesIn(sweepTimes, {3'599'999, millisecondsOfADay, 3'600'000}), "");
}

TEST(Sweeps, AnglesAreThoseOfTheReference)
{
    EXPECT_EQ(differencesIn(sweepAngles, {0, tenthsOfTheCircle, 9973}), "");
    EXPECT_EQ(differencesIn(sweepAngles, {tenthsOfTheCircle - 10, tenthsOfTheCircle, 1}), "");
}

TEST(Sweeps, FloatsAreThoseOfTheLibraryOfC)
{
    const ReferenceLocale reference;
    EXPECT_EQ(differencesIn(sweepFloats, {0, magnitudesOfFloats, 65521}), "");
    EXPECT_EQ(differencesIn(sweepFloats, {magnitudesOfFloats - 10, magnitudesOfFloats, 1}), "");
}

TEST(Sweeps, DifferencesAreCountedAndTheFirstOfThemTold)
{
    Differences differences;
    for (std::uint64_t value = 0; value < 25; ++value) {
        differences.expect("1.0", value == 3 ? "1.0" : "1.1", "print", 1, value);
    }
    differences.expect(0.0, -0.0, "read", 2, 7);
    EXPECT_EQ(differences.count(), 25U);
    ASSERT_EQ(differences.first().size(), 20U);
    EXPECT_EQ(differences.first().front(), "print with 1 decimals of 0: \"1.0\", expected \"1.1\"");
}
