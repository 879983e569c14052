// The nearest of many marks on the sky.

#include "reading/near_places.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <vector>

namespace {

using companion::chordOf;
using companion::ComparedMark;
using companion::NearPlaces;

ComparedMark markAt(double RA, double DE, double seconds = 0)
{
    ComparedMark mark{};
    mark.day = 60000;
    mark.fraction = seconds / 86400;
    mark.RA = RA;
    mark.DE = DE;
    return mark;
}

const double unknown = std::nan("");
constexpr double degree = 3600;

// The nearest of marks at one time within some degrees.
std::size_t nearestOf(const std::vector<ComparedMark>& marks, const ComparedMark& mark, double degrees)
{
    NearPlaces places(marks, [](std::size_t) { return true; });
    places.moveTo(mark, 1);
    return places.nearest(mark, chordOf(degrees * degree)).mark;
}

} // namespace

TEST(NearPlaces, WhatHasNoPlaceIsNearNothing)
{
    EXPECT_EQ(nearestOf({markAt(10, unknown), markAt(unknown, 20), markAt(11, 20)}, markAt(10, 20), 5), 2U);
    EXPECT_EQ(nearestOf({markAt(10, 20)}, markAt(unknown, 20), 5), NearPlaces::none);
    EXPECT_EQ(nearestOf({markAt(10, 20)}, markAt(10, unknown), 5), NearPlaces::none);
}

TEST(NearPlaces, OfTwoThatAreEquallyNearTheOneInTheNorthIsTaken)
{
    EXPECT_EQ(nearestOf({markAt(0, -2), markAt(0, 2)}, markAt(0, 0), 5), 1U);
    EXPECT_EQ(nearestOf({markAt(0, 2), markAt(0, -2)}, markAt(0, 0), 5), 0U);
}

TEST(NearPlaces, MarksThatAreTakenAwayAreFoundNoMore)
{
    const std::vector<ComparedMark> marks{markAt(10, 20), markAt(11, 20), markAt(10, unknown)};
    NearPlaces places(marks, [](std::size_t) { return true; });
    places.moveTo(marks[0], 1);
    places.take(0);
    places.take(2);
    places.take(NearPlaces::none);
    EXPECT_EQ(places.nearest(marks[0], chordOf(5 * degree)).mark, 1U);
}

TEST(NearPlaces, MarksAreLeftBehindInTime)
{
    const std::vector<ComparedMark> marks{markAt(10, 20), markAt(10, 20, 1)};
    NearPlaces places(marks, [](std::size_t) { return true; });
    places.moveTo(markAt(10, 20, 0.5), 1);
    EXPECT_EQ(places.nearest(marks[0], chordOf(degree)).mark, 0U);
    places.moveTo(markAt(10, 20, 100), 1);
    EXPECT_EQ(places.nearest(marks[0], chordOf(degree)).mark, NearPlaces::none);
}

TEST(NearPlaces, OfVeryManyInOneStripNotAllAreLookedAt)
{
    std::vector<ComparedMark> marks;
    for (int i = 0; i < 1000; ++i) {
        marks.push_back(markAt(10 + 0.1 * i, 20));
    }
    marks.push_back(markAt(200, 20));
    EXPECT_EQ(nearestOf(marks, markAt(200, 20), 1), NearPlaces::none);
    marks.erase(marks.begin());
    EXPECT_EQ(nearestOf(marks, markAt(200, 20), 1), 999U);
}
