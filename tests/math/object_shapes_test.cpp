#include "math/shape_measures.h"

#include "support/pixels.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

using namespace tavelinMath;
using tavelinUtils::TObjKontur;

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr int lowest = std::numeric_limits<int>::min();
constexpr int highest = std::numeric_limits<int>::max();

TObjKontur objectOf(const Pixels& area, const Pixels& contour)
{
    TObjKontur object;
    object.Kind = 0;
    object.X = 31;
    object.Y = 32;
    object.Value = 33.5;
    object.ValueA = 34.5;
    object.ValueB = 35.5;
    object.Index = 36;
    object.Contour = contour;
    object.Area = area;
    object.XWeight = 11.0;
    object.YWeight = 21.0;
    object.XMean = 12.0;
    object.YMean = 22.0;
    object.Width = 41.0;
    object.Length = 42.0;
    object.Angle = 43.0;
    object.Exc = 44.0;
    return object;
}

} // namespace

TEST(ShapeOfObject, CentresAreThoseAboveTheSmallestBrightness)
{
    TObjKontur object = objectOf(fourPixels, {});
    const strob_params shape = calcEccentricityInternal(object);
    EXPECT_DOUBLE_EQ(shape.XWeight, 11.9);
    EXPECT_DOUBLE_EQ(shape.YWeight, 21.0);
    EXPECT_DOUBLE_EQ(shape.XMean, 11.5);
    EXPECT_DOUBLE_EQ(shape.YMean, 20.75);
}

TEST(ShapeOfObject, MomentsAreTakenAboutTheWeightedCentre)
{
    TObjKontur object = objectOf(fourPixels, {});
    const strob_params shape = calcEccentricityInternal(object);
    EXPECT_DOUBLE_EQ(shape.Mxx, 10.93);
    EXPECT_DOUBLE_EQ(shape.Mxy, 9.0);
    EXPECT_DOUBLE_EQ(shape.Myy, 8.0);
    EXPECT_NEAR(shape.Exc, 0.9906321067448414, 1e-12);
    EXPECT_NEAR(shape.Angle, 40.3773042002729, 1e-12);
    EXPECT_EQ(shape.StrobA, 0.0);
    EXPECT_EQ(shape.StrobB, 0.0);
    EXPECT_EQ(shape.StrobTail, 0.0);
    EXPECT_TRUE(shape.StrobList.empty());
}

TEST(ShapeOfObject, LengthAndBoxAreThoseOfTheArea)
{
    TObjKontur object = objectOf(fourPixels, {{100, 200, 1.0, 0}, {0, 0, 1.0, 0}});
    const strob_params shape = calcEccentricityInternal(object);
    EXPECT_DOUBLE_EQ(shape.Length, 3.605551275463989); // (13,22) to (10,20)
    EXPECT_EQ(shape.XBox, 11.5);
    EXPECT_EQ(shape.YBox, 21.0);
}

TEST(ShapeOfObject, BoxOfNegativePlacesAndOddExtents)
{
    TObjKontur object = objectOf({{-3, 4, 1.0, 0}, {2, -7, 1.0, 0}, {0, 0, 1.0, 0}}, {});
    const strob_params shape = calcEccentricityInternal(object);
    EXPECT_EQ(shape.XBox, -0.5);
    EXPECT_EQ(shape.YBox, -1.5);
}

TEST(ShapeOfObject, StoredCentreIsTakenWhereTheKindSaysSo)
{
    TObjKontur object = objectOf(fourPixels, {{12, 24, 1.0, 0}, {16, 22, 1.0, 0}, {15, 26, 1.0, 0}});
    object.Kind = 1;
    const strob_params shape = calcEccentricityInternal(object);
    EXPECT_EQ(shape.XWeight, 11.0);
    EXPECT_EQ(shape.YWeight, 21.0);
    EXPECT_EQ(shape.XMean, 12.0);
    EXPECT_EQ(shape.YMean, 22.0);
    EXPECT_EQ(shape.Mxx, 22.0);
    EXPECT_EQ(shape.Mxy, 9.0);
    EXPECT_EQ(shape.Myy, 8.0);
    EXPECT_DOUBLE_EQ(shape.Exc, 0.9293610002222602);
    EXPECT_DOUBLE_EQ(shape.Angle, 26.0625081744509);
    EXPECT_EQ(shape.Width, 5.0); // (12,24) is 2 from the plain centre
    EXPECT_EQ(object.XWeight, 11.0);
    EXPECT_EQ(object.YWeight, 21.0);
    EXPECT_EQ(object.XMean, 12.0);
    EXPECT_EQ(object.YMean, 22.0);
}

TEST(ShapeOfObject, StoredCentreWithoutWeightedXIsNotTaken)
{
    TObjKontur object = objectOf(fourPixels, {});
    object.Kind = 1;
    object.XWeight = 0.0;
    const strob_params shape = calcEccentricityInternal(object);
    EXPECT_DOUBLE_EQ(shape.XWeight, 11.9);
    EXPECT_DOUBLE_EQ(shape.YWeight, 21.0);
    EXPECT_DOUBLE_EQ(shape.XMean, 11.5);
    EXPECT_DOUBLE_EQ(shape.YMean, 20.75);
}

TEST(ShapeOfObject, StoredWeightedYMayBeZero)
{
    TObjKontur object = objectOf(fourPixels, {});
    object.Kind = 1;
    object.YWeight = 0.0;
    const strob_params shape = calcEccentricityInternal(object);
    EXPECT_EQ(shape.XWeight, 11.0);
    EXPECT_EQ(shape.YWeight, 0.0);
    EXPECT_EQ(shape.XMean, 12.0);
    EXPECT_EQ(shape.YMean, 22.0);
}

TEST(ShapeOfObject, StoredCentreOfAnotherKindIsNotTaken)
{
    for (const int kind : {0, 2, -1}) {
        SCOPED_TRACE(kind);
        TObjKontur object = objectOf(fourPixels, {});
        object.Kind = kind;
        EXPECT_DOUBLE_EQ(calcEccentricityInternal(object).XWeight, 11.9);
    }
}

TEST(ShapeOfObject, PlainCentreWithAZeroIsReplacedAsAPair)
{
    const struct
    {
        double x, y;
    } stored[] = {{0.0, 22.0}, {12.0, 0.0}, {0.0, 0.0}, {-0.0, 22.0}};
    for (const auto& plain : stored) {
        SCOPED_TRACE(testing::Message() << plain.x << ", " << plain.y);
        TObjKontur object = objectOf(fourPixels, {{11, 24, 1.0, 0}, {20, 22, 1.0, 0}});
        object.Kind = 1;
        object.XMean = plain.x;
        object.YMean = plain.y;
        const strob_params shape = calcEccentricityInternal(object);
        EXPECT_EQ(shape.XMean, 11.0);
        EXPECT_EQ(shape.YMean, 21.0);
        EXPECT_EQ(shape.Width, 7.0); // (11,24) is 3 from the weighted centre
        EXPECT_EQ(object.XMean, 11.0);
        EXPECT_EQ(object.YMean, 21.0);
    }
}

// A row 0 has a plain centre of Y 0, though it was measured.
TEST(ShapeOfObject, MeasuredPlainCentreWithAZeroIsReplacedToo)
{
    TObjKontur object = objectOf({{10, 0, 5.0, 0}, {12, 0, 9.0, 0}, {11, 0, 7.0, 0}}, {});
    const strob_params shape = calcEccentricityInternal(object);
    EXPECT_DOUBLE_EQ(shape.XWeight, 11.428571428571429);
    EXPECT_DOUBLE_EQ(shape.XMean, 11.428571428571429);
    EXPECT_EQ(shape.YMean, 0.0);
    EXPECT_DOUBLE_EQ(shape.Mxx, 4.224489795918368);
    EXPECT_EQ(shape.Exc, 1.0);
    EXPECT_EQ(shape.Angle, 0.0);
}

TEST(ShapeOfObject, WidthIsTwiceTheNearestOutlineAndOne)
{
    TObjKontur object =
        objectOf({{10, 20, 5.0, 0}, {12, 20, 5.0, 0}}, {{8, 24, 1.0, 0}, {14, 24, 1.0, 0}, {11, 26, 1.0, 0}});
    EXPECT_EQ(calcEccentricityInternal(object).Width, 11.0); // 5 from (11,20)
    object.Contour.push_back({11, 20, 1.0, 0});
    EXPECT_EQ(calcEccentricityInternal(object).Width, 1.0);
}

TEST(ShapeOfObject, WidthWithoutOutlineIsOne)
{
    TObjKontur object = objectOf(fourPixels, {});
    EXPECT_EQ(calcEccentricityInternal(object).Width, 1.0);
    EXPECT_EQ(object.Width, 1.0);
}

TEST(ShapeOfObject, WrittenBackAreShapeAndCentreOnly)
{
    TObjKontur object = objectOf(fourPixels, {{13, 22, 1.5, 1}, {10, 20, 2.5, 2}});
    const strob_params shape = calcEccentricityInternal(object);
    // (10,20) is the root of 2.8125 from (11.5,20.75), (13,22) that of 3.8125.
    EXPECT_DOUBLE_EQ(shape.Width, 4.354101966249685);
    EXPECT_DOUBLE_EQ(object.Width, shape.Width);
    EXPECT_DOUBLE_EQ(object.Length, 3.605551275463989);
    EXPECT_NEAR(object.Angle, 40.3773042002729, 1e-12);
    EXPECT_NEAR(object.Exc, 0.9906321067448414, 1e-12);
    EXPECT_DOUBLE_EQ(object.XWeight, 11.9);
    EXPECT_DOUBLE_EQ(object.YWeight, 21.0);
    EXPECT_DOUBLE_EQ(object.XMean, 11.5);
    EXPECT_DOUBLE_EQ(object.YMean, 20.75);
    EXPECT_EQ(object.Kind, 0);
    EXPECT_EQ(object.X, 31);
    EXPECT_EQ(object.Y, 32);
    EXPECT_EQ(object.Value, 33.5);
    EXPECT_EQ(object.ValueA, 34.5);
    EXPECT_EQ(object.ValueB, 35.5);
    EXPECT_EQ(object.Index, 36);
    EXPECT_EQ(keysOf(object.Contour), (std::vector<double>{1, 2}));
    // The area is ordered by Y, then by X, both descending, with the values that it had.
    EXPECT_EQ(keysOf(object.Area), (std::vector<double>{4, 2, 3, 1}));
    EXPECT_EQ(object.Area[0].C, 8.0);
    EXPECT_EQ(object.Area[3].C, 5.0);
}

TEST(ShapeOfObject, AngleThatNoMomentSetsIsZero)
{
    TObjKontur object = objectOf({{1, 1, 5.0, 0}, {3, 3, 5.0, 0}}, {});
    const strob_params shape = calcEccentricityInternal(object);
    EXPECT_EQ(shape.Angle, 0.0);
    EXPECT_EQ(shape.Exc, 1.0);
    EXPECT_EQ(object.Angle, 0.0);
}

TEST(ShapeOfObject, OnePixelHasACentreAndNoShape)
{
    TObjKontur object = objectOf({{7, 8, 100.0, 0}}, {{7, 8, 100.0, 0}});
    const strob_params shape = calcEccentricityInternal(object);
    EXPECT_EQ(shape.XWeight, 7.0);
    EXPECT_EQ(shape.YWeight, 8.0);
    EXPECT_EQ(shape.XMean, 7.0);
    EXPECT_EQ(shape.YMean, 8.0);
    EXPECT_EQ(shape.XBox, 7.0);
    EXPECT_EQ(shape.YBox, 8.0);
    EXPECT_EQ(shape.Length, 0.0);
    EXPECT_EQ(shape.Width, 1.0);
    EXPECT_EQ(shape.Exc, 0.0);
    EXPECT_EQ(object.Exc, 0.0);
    EXPECT_EQ(object.Angle, 0.0);
}

TEST(ShapeOfObject, EmptyAreaHasNoCentre)
{
    TObjKontur object = objectOf({}, {});
    const strob_params shape = calcEccentricityInternal(object);
    EXPECT_TRUE(std::isnan(shape.XWeight));
    EXPECT_TRUE(std::isnan(shape.YWeight));
    EXPECT_TRUE(std::isnan(shape.XMean));
    EXPECT_TRUE(std::isnan(shape.YMean));
    EXPECT_EQ(shape.Length, 0.0);
    EXPECT_EQ(shape.Width, 1.0);
    EXPECT_EQ(shape.XBox, 0.0);
    EXPECT_EQ(shape.YBox, 0.0);
    EXPECT_EQ(shape.Mxx, 0.0);
    EXPECT_EQ(shape.Exc, 0.0);
    EXPECT_TRUE(std::isnan(object.XWeight));
    EXPECT_TRUE(std::isnan(object.YMean));
    EXPECT_EQ(object.Width, 1.0);
    EXPECT_EQ(object.Length, 0.0);
    EXPECT_EQ(object.Angle, 0.0);
    EXPECT_EQ(object.Exc, 0.0);
}

TEST(ShapeOfObject, EmptyAreaKeepsAStoredCentre)
{
    TObjKontur object = objectOf({}, {{12, 25, 1.0, 0}});
    object.Kind = 1;
    const strob_params shape = calcEccentricityInternal(object);
    EXPECT_EQ(shape.XWeight, 11.0);
    EXPECT_EQ(shape.XMean, 12.0);
    EXPECT_EQ(shape.Width, 7.0);
    EXPECT_EQ(shape.Length, 0.0);
    EXPECT_EQ(shape.XBox, 0.0);
    EXPECT_EQ(object.YWeight, 21.0);
    EXPECT_EQ(object.Exc, 0.0);
}

TEST(ShapeOfObject, OddNumbersAreMeasuredToo)
{
    TObjKontur lost = objectOf({}, {{12, 25, 1.0, 0}});
    EXPECT_TRUE(std::isnan(calcEccentricityInternal(lost).XMean));
    EXPECT_TRUE(std::isnan(lost.Width));
    TObjKontur dark = objectOf({{1, 2, notANumber, 0}, {5, 2, 3.0, 0}}, {{1, 2, 1.0, 0}});
    EXPECT_EQ(calcEccentricityInternal(dark).Length, 4.0);
    TObjKontur bright = objectOf({{1, 2, infinity, 0}, {5, 2, 3.0, 0}}, {{1, 2, 1.0, 0}});
    EXPECT_EQ(calcEccentricityInternal(bright).XBox, 3.0);
    TObjKontur wide = objectOf({{lowest, 2, 1.0, 0}, {highest, 2, 3.0, 0}}, {{highest, lowest, 1.0, 0}});
    EXPECT_EQ(calcEccentricityInternal(wide).YBox, 2.0);
}

TEST(ShapesOfObjects, EachIsMeasuredAndNumbered)
{
    std::vector<TObjKontur> objects{objectOf(fourPixels, {}), objectOf({{7, 8, 1.0, 0}}, {}),
                                    objectOf({}, {})};
    CalcEccentricity(objects);
    ASSERT_EQ(objects.size(), 3u);
    EXPECT_EQ(objects[0].Index, 0);
    EXPECT_EQ(objects[1].Index, 1);
    EXPECT_EQ(objects[2].Index, 2);
    EXPECT_DOUBLE_EQ(objects[0].XWeight, 11.9);
    EXPECT_DOUBLE_EQ(objects[0].Length, 3.605551275463989);
    EXPECT_NEAR(objects[0].Angle, 40.3773042002729, 1e-12);
    EXPECT_EQ(objects[1].XWeight, 7.0);
    EXPECT_EQ(objects[1].YMean, 8.0);
    EXPECT_TRUE(std::isnan(objects[2].XWeight));
    EXPECT_EQ(objects[2].Width, 1.0);
}

TEST(ShapesOfObjects, SecondValueOfZeroTakesTheFirst)
{
    std::vector<TObjKontur> objects(4, objectOf({{7, 8, 1.0, 0}}, {}));
    objects[0].ValueB = 0.0;
    objects[1].ValueB = -2.0;
    objects[2].ValueB = -0.0;
    objects[3].ValueB = notANumber;
    CalcEccentricity(objects);
    EXPECT_EQ(objects[0].ValueB, 34.5);
    EXPECT_EQ(objects[1].ValueB, -2.0);
    EXPECT_EQ(objects[2].ValueB, 34.5);
    EXPECT_TRUE(std::isnan(objects[3].ValueB));
    for (const TObjKontur& object : objects) {
        EXPECT_EQ(object.ValueA, 34.5);
    }
}

TEST(ShapesOfObjects, NoObjects)
{
    std::vector<TObjKontur> objects;
    CalcEccentricity(objects);
    EXPECT_TRUE(objects.empty());
}
