#include "task/lost_digits.h"

#include "text/date_text.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

namespace {

using companion::LostDigits;
using tavelinUtils::TrackVtorichka;

constexpr double day = 86400;

struct MarkValues
{
    double seconds = 0;
    double rightAscension = 0; // degrees
    double declination = 0;
    double magnitude = 0;
};

// What marks lose between two formats: the text of the finding.
std::string lost(const std::string& input, const std::string& output, const std::vector<MarkValues>& marks)
{
    TrackVtorichka track;
    for (const MarkValues& each : marks) {
        track.Marks.emplace_back();
        track.Marks.back().time = each.seconds / day;
        track.Marks.back().RA = each.rightAscension;
        track.Marks.back().DE = each.declination;
        track.Marks.back().m = each.magnitude;
    }
    LostDigits digits(input, output);
    digits.see(track);
    const auto found = digits.found();
    return found ? found->text : "";
}

TEST(LostDigits, EachValueIsHeldAgainstTheStepsOfTheFormat)
{
    EXPECT_EQ(lost("mea", "telegram", {{43200.01, 15, -30, 9.5}}), "");
    EXPECT_EQ(lost("mea", "telegram", {{43200.012, 15, -30, 9.5}}),
              "1 of 1 mark would lose digits of time in this format");
    EXPECT_EQ(lost("mea", "telegram", {{43200, 15 + 0.005 / 240, -30, 9.5}, {}}),
              "1 of 2 marks would lose digits of right ascension in this format");
    EXPECT_EQ(lost("mea", "mpc", {{43200, 15, -30.0 - 0.05 / 3600, 9.5}}),
              "1 of 1 mark would lose digits of declination in this format");
    EXPECT_EQ(lost("mea", "ssmas", {{0, 0, 0, 9.55}, {0.001, 0, 0, 9.5}}),
              "2 of 2 marks would lose digits of time and magnitude in this format");
}

TEST(LostDigits, FractionsOfTheDayHaveTheirOwnSteps)
{
    EXPECT_EQ(lost("mea", "mpc", {{43200 + 0.864, 15, -30, 9.5}}), "");
    EXPECT_EQ(lost("mea", "mpc", {{43201, 15, -30, 9.5}}),
              "1 of 1 mark would lose digits of time in this format");
    EXPECT_EQ(lost("vomar", "mag", {{43200 + 0.00864, 1e-9, 1e-9, 9.12345}}), "");
    EXPECT_EQ(lost("vomar", "mag", {{43200, 0, 0, 9.123456}}),
              "1 of 1 mark would lose digits of magnitude in this format");
}

TEST(LostDigits, WhatComesBackRightFromAnotherUnitIsNotLost)
{
    constexpr double stepOfMea = 0.0001 / 240; // not a whole number of the steps of a TDM
    EXPECT_EQ(lost("mea", "tdm", {{0.001, 15 + stepOfMea, 30 + 0.00036 / 3600, 9.55}}), "");
    EXPECT_EQ(lost("mea", "tdm", {{0, 0, 30 + 0.0001 / 3600, 0}}),
              "1 of 1 mark would lose digits of declination in this format");
    EXPECT_EQ(lost("tdm", "mea", {{0, 15.0000001, 0, 0}}),
              "1 of 1 mark would lose digits of right ascension in this format");
    EXPECT_EQ(lost("tdm", "mea", {{0, 15.123, -7.25, 0}}), "");
    EXPECT_EQ(lost("tdm", "tdm", {{0, 15.12345678, 0, 0}}),
              "1 of 1 mark would lose digits of right ascension in this format");
}

TEST(LostDigits, WholeArcsecondsAreWhatTheReaderOfSsmasTakesNotWhatAFileHas)
{
    EXPECT_EQ(lost("mea", "ssmas", {{0, 0, 30 + 0.01 / 3600, 0}}), "");
}

// The writer cuts what the reader has made of 08:33:18.144 down to .143.
TEST(LostDigits, TimesOfMeaAreCut)
{
    const double read = tavelinUtils::packedTime("0833181440") * day;
    EXPECT_EQ(lost("mea", "mea", {{read, 0, 0, 0}}), "1 of 1 mark would lose digits of time in this format");
    EXPECT_EQ(lost("mea", "mea", {{tavelinUtils::packedTime("0849120000") * day, 0, 0, 0}}), "");
}

TEST(LostDigits, ValuesWithMoreDigitsThanAreLookedForLoseThem)
{
    EXPECT_EQ(lost("vomar", "mea", {{0, 123.456789012345, 0, 0}}),
              "1 of 1 mark would lose digits of right ascension in this format");
}

TEST(LostDigits, SeveralMagnitudesAreOneWord)
{
    TrackVtorichka track;
    track.Marks.emplace_back();
    track.Marks.back().m = 9.123456;
    track.Marks.back().mEnsemble = 9.123456;
    LostDigits digits("vomar", "mag");
    digits.see(track);
    ASSERT_TRUE(digits.found());
    EXPECT_EQ(digits.found()->text, "1 of 1 mark would lose digits of magnitude in this format");
}

TEST(LostDigits, WhatIsNoNumberOrNoFormatLosesNone)
{
    EXPECT_EQ(lost("tdm", "mea", {{std::numeric_limits<double>::infinity(), 0, 0, 0}}), "");
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double infinity = std::numeric_limits<double>::infinity();
    EXPECT_EQ(lost("vomar", "telegram", {{nan, nan, infinity, -infinity}}), "");
    EXPECT_EQ(lost("mea", "unknown", {{0.0001, 0, 0, 0}}), "");
    EXPECT_EQ(lost("mea", "mea", {}), "");
}

} // namespace
