// Residuals of paths that have few points, or far ones.

#include "reading/residuals.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using companion::MeasuredSeries;
using companion::residualsOf;
using testing::IsEmpty;
using testing::SizeIs;

const MeasuredSeries path{"A", "", {{60000, 10, 20}, {60001, 11, 20}, {60002, 12, 20}}};

} // namespace

TEST(Residuals, APathWithoutPointsHasNone)
{
    EXPECT_THAT(residualsOf(MeasuredSeries{"A"}, 1), IsEmpty());
    EXPECT_THAT(residualsOf(MeasuredSeries{"A"}, path), IsEmpty());
}

TEST(Residuals, AnEphemerisWithoutPointsCoversNothing)
{
    EXPECT_THAT(residualsOf(path, MeasuredSeries{"A"}), IsEmpty());
}

TEST(Residuals, PointsBeyondAQuarterOfACircleAreLeftOut)
{
    MeasuredSeries far = path;
    far.points.push_back({60003, 190, 20});
    EXPECT_THAT(residualsOf(path, 1), SizeIs(3));
    EXPECT_THAT(residualsOf(far, 1), SizeIs(3));
}
