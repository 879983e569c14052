#include "math/shape_measures.h"

#include "support/pixels.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <limits>
#include <type_traits>
#include <vector>

using namespace tavelinMath;
using tavelinUtils::sortpixelX;
using tavelinUtils::sortpixelY;
using tavelinUtils::TObjKontur;

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr int lowest = std::numeric_limits<int>::min();
constexpr int highest = std::numeric_limits<int>::max();

using Places = std::vector<pixelD>;

struct Centre
{
    double weightedX = -7, weightedY = -7, meanX = -7, meanY = -7;
};

template <class List>
Centre centreOf(const List& pixels, double background)
{
    Centre centre;
    cMathAndWeightXY(pixels, background, centre.weightedX, centre.weightedY, centre.meanX, centre.meanY);
    return centre;
}

void expectCentre(const Centre& centre, double weightedX, double weightedY, double meanX, double meanY)
{
    EXPECT_DOUBLE_EQ(centre.weightedX, weightedX);
    EXPECT_DOUBLE_EQ(centre.weightedY, weightedY);
    EXPECT_DOUBLE_EQ(centre.meanX, meanX);
    EXPECT_DOUBLE_EQ(centre.meanY, meanY);
}

// Every number of the shape differs from what a measurement could give.
strob_params markedShape()
{
    strob_params shape;
    shape.StrobA = 101;
    shape.StrobB = 102;
    shape.Length = 103;
    shape.Width = 104;
    shape.XWeight = 105;
    shape.YWeight = 106;
    shape.XMean = 107;
    shape.YMean = 108;
    shape.XBox = 109;
    shape.YBox = 110;
    shape.Mxy = 111;
    shape.Mxx = 112;
    shape.Myy = 113;
    shape.Angle = 114;
    shape.Exc = 115;
    shape.StrobTail = 116;
    shape.StrobList = {1.5, 2.5};
    return shape;
}

// What no moment touches.
void expectRestIsMarked(const strob_params& shape)
{
    EXPECT_EQ(shape.Length, 103);
    EXPECT_EQ(shape.Width, 104);
    EXPECT_EQ(shape.XWeight, 105);
    EXPECT_EQ(shape.YWeight, 106);
    EXPECT_EQ(shape.XMean, 107);
    EXPECT_EQ(shape.YMean, 108);
    EXPECT_EQ(shape.XBox, 109);
    EXPECT_EQ(shape.YBox, 110);
    EXPECT_EQ(shape.StrobTail, 116);
    EXPECT_EQ(shape.StrobList, (std::vector<double>{1.5, 2.5}));
}

strob_params momentsOf(Pixels pixels, double centreX, double centreY)
{
    strob_params shape = markedShape();
    cMoments(pixels, centreX, centreY, shape);
    expectRestIsMarked(shape);
    return shape;
}

double lengthOf(Pixels pixels)
{
    return calcLength(pixels);
}

} // namespace

static_assert(std::is_same_v<decltype(&cMoments), void (*)(Pixels&, double, double, strob_params&)>);
static_assert(std::is_same_v<decltype(&calcLength), double (*)(Pixels&)>);
static_assert(std::is_same_v<decltype(&calcEccentricityInternal), strob_params (*)(TObjKontur&)>);
static_assert(std::is_same_v<decltype(&CalcEccentricity), void (*)(std::vector<TObjKontur>&)>);
static_assert(std::is_same_v<decltype(&cWeightXY), void (*)(const Places&, double&, double&)>);
static_assert(std::is_same_v<decltype(&calcPSFbrightness), double (*)(const double&, const double&)>);
static_assert(
    std::is_same_v<decltype(&calcGaussRadius), double (*)(const double&, const double&, const double&)>);
static_assert(std::is_same_v<decltype(&sortpixelX), bool (*)(const pixel&, const pixel&)>);
static_assert(std::is_same_v<decltype(&sortpixelY), bool (*)(const pixel&, const pixel&)>);
static_assert(std::is_same_v<strob_params, tavelinUtils::strob_params>);
static_assert(std::is_same_v<decltype(strob_params::StrobList), std::vector<double>>);

TEST(ShapeRecord, NumbersFollowEachOtherInTheirOrder)
{
    const struct
    {
        const char* name;
        std::size_t place, expected;
    } rows[] = {
        {"StrobA", offsetof(strob_params, StrobA), 0},
        {"StrobB", offsetof(strob_params, StrobB), 8},
        {"Length", offsetof(strob_params, Length), 16},
        {"Width", offsetof(strob_params, Width), 24},
        {"XWeight", offsetof(strob_params, XWeight), 32},
        {"YWeight", offsetof(strob_params, YWeight), 40},
        {"XMean", offsetof(strob_params, XMean), 48},
        {"YMean", offsetof(strob_params, YMean), 56},
        {"XBox", offsetof(strob_params, XBox), 64},
        {"YBox", offsetof(strob_params, YBox), 72},
        {"Mxy", offsetof(strob_params, Mxy), 80},
        {"Mxx", offsetof(strob_params, Mxx), 88},
        {"Myy", offsetof(strob_params, Myy), 96},
        {"Angle", offsetof(strob_params, Angle), 104},
        {"Exc", offsetof(strob_params, Exc), 112},
        {"StrobTail", offsetof(strob_params, StrobTail), 120},
        {"StrobList", offsetof(strob_params, StrobList), 128},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(row.place, row.expected);
    }
}

TEST(ShapeRecord, NewShapeIsZeroAndEmpty)
{
    const strob_params shape;
    for (const double number : {shape.StrobA, shape.StrobB, shape.Length, shape.Width, shape.XWeight,
                                shape.YWeight, shape.XMean, shape.YMean, shape.XBox, shape.YBox, shape.Mxy,
                                shape.Mxx, shape.Myy, shape.Angle, shape.Exc, shape.StrobTail})
    {
        EXPECT_EQ(number, 0.0);
    }
    EXPECT_TRUE(shape.StrobList.empty());
}

TEST(ShapeCentre, PlacesWeighWhatTheyHaveAboveTheBackground)
{
    expectCentre(centreOf(Places{{1.0, 2.0, 3.0, 0}, {4.0, 6.0, 5.0, 0}}, 2.0), 3.25, 5.0, 2.5, 4.0);
    expectCentre(centreOf(Places{{1.5, 2.0, 3.0, 0}, {4.0, 6.5, 5.0, 0}}, 0.0), 3.0625, 4.8125, 2.75, 4.25);
}

TEST(ShapeCentre, PlacesOfNoOrNegativeWeightWeighThat)
{
    // Weights 0 and 2.
    expectCentre(centreOf(Places{{1.0, 2.0, 3.0, 0}, {4.0, 6.0, 5.0, 0}}, 3.0), 4.0, 6.0, 2.5, 4.0);
    // Weights -3 and -1.
    expectCentre(centreOf(Places{{1.0, 2.0, 3.0, 0}, {4.0, 6.0, 5.0, 0}}, 6.0), 1.75, 3.0, 2.5, 4.0);
    // Weights -1 and 3.
    expectCentre(centreOf(Places{{1.0, 2.0, 3.0, 0}, {4.0, 6.0, 7.0, 0}}, 4.0), 5.5, 8.0, 2.5, 4.0);
}

TEST(ShapeCentre, PlacesWhoseWeightsCancelHaveNoWeightedCentre)
{
    // Weights -1 and 1: 3 and 4 over 0.
    expectCentre(centreOf(Places{{1.0, 2.0, 3.0, 0}, {4.0, 6.0, 5.0, 0}}, 4.0), infinity, infinity, 2.5, 4.0);
    const Centre none = centreOf(Places{{1.0, 2.0, 3.0, 0}, {4.0, 6.0, 3.0, 0}}, 3.0);
    EXPECT_TRUE(std::isnan(none.weightedX));
    EXPECT_TRUE(std::isnan(none.weightedY));
    EXPECT_EQ(none.meanX, 2.5);
    EXPECT_EQ(none.meanY, 4.0);
}

TEST(ShapeCentre, PixelsWeighWhatTheyHaveAboveTheBackground)
{
    expectCentre(centreOf(Pixels{{1, 2, 3.0, 0}, {4, 6, 5.0, 0}}, 2.0), 3.25, 5.0, 2.5, 4.0);
    // Weights 0.25 and 0.75: less than 1 is kept as long as it is positive.
    expectCentre(centreOf(Pixels{{1, 2, 3.25, 0}, {5, 6, 3.75, 0}}, 3.0), 4.0, 5.0, 3.0, 4.0);
}

TEST(ShapeCentre, PixelsOfNoOrNegativeWeightWeighOne)
{
    // Weights 0 and 3.
    expectCentre(centreOf(Pixels{{1, 2, 3.0, 0}, {5, 6, 6.0, 0}}, 3.0), 4.0, 5.0, 3.0, 4.0);
    // Weights -100 and 3.
    expectCentre(centreOf(Pixels{{1, 2, -97.0, 0}, {5, 6, 6.0, 0}}, 3.0), 4.0, 5.0, 3.0, 4.0);
    // Weights -1 and 1, and two of 0.
    expectCentre(centreOf(Pixels{{1, 2, 3.0, 0}, {4, 6, 5.0, 0}}, 4.0), 2.5, 4.0, 2.5, 4.0);
    expectCentre(centreOf(Pixels{{1, 2, 3.0, 0}, {4, 6, 3.0, 0}}, 3.0), 2.5, 4.0, 2.5, 4.0);
}

TEST(ShapeCentre, NoPixelsHaveNoCentre)
{
    for (const Centre& centre : {centreOf(Pixels{}, 1.0), centreOf(Places{}, 1.0)}) {
        EXPECT_TRUE(std::isnan(centre.weightedX));
        EXPECT_TRUE(std::isnan(centre.weightedY));
        EXPECT_TRUE(std::isnan(centre.meanX));
        EXPECT_TRUE(std::isnan(centre.meanY));
    }
}

TEST(ShapeCentre, BrightnessThatIsNoNumberSpoilsTheWeightedCentreOnly)
{
    const Centre whole = centreOf(Pixels{{1, 2, notANumber, 0}, {3, 4, 5.0, 0}}, 0.0);
    EXPECT_TRUE(std::isnan(whole.weightedX));
    EXPECT_TRUE(std::isnan(whole.weightedY));
    EXPECT_EQ(whole.meanX, 2.0);
    EXPECT_EQ(whole.meanY, 3.0);
    EXPECT_TRUE(std::isnan(centreOf(Places{{1.0, 2.0, infinity, 0}}, 0.0).weightedX));
    EXPECT_TRUE(std::isnan(centreOf(Pixels{{1, 2, 5.0, 0}}, notANumber).weightedX));
    EXPECT_EQ(centreOf(Pixels{{highest, lowest, 5.0, 0}, {highest, lowest, 5.0, 0}}, 0.0).meanX,
              2147483647.0);
}

TEST(ShapeCentre, CentreWithoutBackgroundWeighsByBrightness)
{
    double x = 0, y = 0;
    cWeightXY({{1.0, 2.0, 1.0, 0}, {4.0, 6.0, 3.0, 0}}, x, y);
    EXPECT_DOUBLE_EQ(x, 3.25);
    EXPECT_DOUBLE_EQ(y, 5.0);
    // Weights 0 and -1 are taken as they are.
    cWeightXY({{1.0, 2.0, 0.0, 0}, {4.0, 6.0, -1.0, 0}, {6.0, 9.0, 3.0, 0}}, x, y);
    EXPECT_DOUBLE_EQ(x, 7.0);
    EXPECT_DOUBLE_EQ(y, 10.5);
    cWeightXY({}, x, y);
    EXPECT_TRUE(std::isnan(x));
    EXPECT_TRUE(std::isnan(y));
}

TEST(ShapeBrightness, MeanOfTheValues)
{
    EXPECT_DOUBLE_EQ(cMathBr(Pixels{{9, 9, 1.0, 5}, {9, 9, 2.0, 5}, {9, 9, 6.0, 5}}), 3.0);
    EXPECT_DOUBLE_EQ(cMathBr(Places{{9.0, 9.0, 1.5, 5}, {9.0, 9.0, -4.0, 5}}), -1.25);
    EXPECT_EQ(cMathBr(Pixels{{9, 9, 7.0, 5}}), 7.0);
    EXPECT_EQ(cMathBr(Pixels{}), 0.0);
    EXPECT_EQ(cMathBr(Places{}), 0.0);
    EXPECT_TRUE(std::isnan(cMathBr(Pixels{{0, 0, notANumber, 0}})));
    EXPECT_EQ(cMathBr(Places{{0, 0, infinity, 0}, {0, 0, 1.0, 0}}), infinity);
}

TEST(ShapeBrightness, VolumeUnderAGaussian)
{
    EXPECT_DOUBLE_EQ(calcPSFbrightness(1.0, 1.0), 6.283185307179586);
    EXPECT_DOUBLE_EQ(calcPSFbrightness(2.0, 3.0), 75.39822368615503);
    EXPECT_DOUBLE_EQ(calcPSFbrightness(-2.0, 3.0), 75.39822368615503);
    EXPECT_DOUBLE_EQ(calcPSFbrightness(0.5, -10.0), -15.707963267948966);
    EXPECT_EQ(calcPSFbrightness(0.0, 3.0), 0.0);
    EXPECT_TRUE(std::isnan(calcPSFbrightness(notANumber, 1.0)));
}

TEST(ShapeBrightness, RadiusAtWhichAGaussianFallsToALevel)
{
    // e squared over 1: ln 2 apart, so two sigma.
    EXPECT_DOUBLE_EQ(calcGaussRadius(3.0, 7.38905609893065, 1.0), 6.0);
    EXPECT_DOUBLE_EQ(calcGaussRadius(-3.0, 7.38905609893065, 1.0), 6.0);
    // Half the peak at sigma times the root of 2 ln 2.
    EXPECT_DOUBLE_EQ(calcGaussRadius(1.0, 2.0, 1.0), 1.1774100225154747);
    EXPECT_EQ(calcGaussRadius(3.0, 5.0, 5.0), 0.0);
}

TEST(ShapeBrightness, LevelsThatAGaussianDoesNotReach)
{
    EXPECT_TRUE(std::isnan(calcGaussRadius(3.0, 5.0, 6.0)));
    EXPECT_TRUE(std::isnan(calcGaussRadius(3.0, -5.0, 1.0)));
    EXPECT_TRUE(std::isnan(calcGaussRadius(3.0, 0.0, 0.0)));
    EXPECT_EQ(calcGaussRadius(3.0, 5.0, 0.0), infinity);
    EXPECT_TRUE(std::isnan(calcGaussRadius(notANumber, 5.0, 1.0)));
}

TEST(ShapeMoments, FewerThanTwoPixelsChangeNothing)
{
    for (const Pixels& pixels : {Pixels{}, Pixels{{5, 6, 7.0, 8}}}) {
        const strob_params shape = momentsOf(pixels, 1.0, 2.0);
        EXPECT_EQ(shape.StrobA, 101);
        EXPECT_EQ(shape.StrobB, 102);
        EXPECT_EQ(shape.Mxy, 111);
        EXPECT_EQ(shape.Mxx, 112);
        EXPECT_EQ(shape.Myy, 113);
        EXPECT_EQ(shape.Angle, 114);
        EXPECT_EQ(shape.Exc, 115);
    }
}

TEST(ShapeMoments, TwoPixelsOfARowLieAtNoAngle)
{
    const strob_params shape = momentsOf({{0, 3, 5.0, 0}, {2, 3, 5.0, 0}}, 1.0, 3.0);
    EXPECT_EQ(shape.StrobA, 0.0);
    EXPECT_EQ(shape.StrobB, 0.0);
    EXPECT_EQ(shape.Mxx, 2.0);
    EXPECT_EQ(shape.Mxy, 0.0);
    EXPECT_EQ(shape.Myy, 0.0);
    EXPECT_EQ(shape.Exc, 1.0);
    EXPECT_EQ(shape.Angle, 0.0);
}

TEST(ShapeMoments, TwoPixelsOfAColumnStandAtARightAngle)
{
    const strob_params shape = momentsOf({{3, 0, 5.0, 0}, {3, 2, 5.0, 0}}, 3.0, 1.0);
    EXPECT_EQ(shape.Mxx, 0.0);
    EXPECT_EQ(shape.Mxy, 0.0);
    EXPECT_EQ(shape.Myy, 2.0);
    EXPECT_EQ(shape.Exc, 1.0);
    EXPECT_DOUBLE_EQ(shape.Angle, 90.0);
}

TEST(ShapeMoments, AngleOfASlopingLine)
{
    const strob_params rising = momentsOf({{0, 0, 5.0, 0}, {4, 2, 5.0, 0}}, 2.0, 1.0);
    EXPECT_EQ(rising.Mxx, 8.0);
    EXPECT_EQ(rising.Mxy, 4.0);
    EXPECT_EQ(rising.Myy, 2.0);
    EXPECT_EQ(rising.Exc, 1.0);
    EXPECT_DOUBLE_EQ(rising.Angle, 26.56505117707799);
    const strob_params falling = momentsOf({{0, 2, 5.0, 0}, {4, 0, 5.0, 0}}, 2.0, 1.0);
    EXPECT_EQ(falling.Mxy, -4.0);
    EXPECT_DOUBLE_EQ(falling.Angle, -26.56505117707799);
    // Steeper than half a right angle.
    const strob_params steep = momentsOf({{0, 0, 5.0, 0}, {2, 4, 5.0, 0}}, 1.0, 2.0);
    EXPECT_DOUBLE_EQ(steep.Angle, 63.43494882292201);
}

// A diagonal line is long, yet its angle is not set.
TEST(ShapeMoments, EqualMomentsLeaveTheAngle)
{
    const strob_params diagonal = momentsOf({{0, 0, 5.0, 0}, {2, 2, 5.0, 0}}, 1.0, 1.0);
    EXPECT_EQ(diagonal.Mxx, 2.0);
    EXPECT_EQ(diagonal.Mxy, 2.0);
    EXPECT_EQ(diagonal.Myy, 2.0);
    EXPECT_EQ(diagonal.Exc, 1.0);
    EXPECT_EQ(diagonal.Angle, 114);
    const strob_params cross =
        momentsOf({{1, 0, 5.0, 0}, {-1, 0, 5.0, 0}, {0, 1, 5.0, 0}, {0, -1, 5.0, 0}}, 0.0, 0.0);
    EXPECT_EQ(cross.Mxx, 2.0);
    EXPECT_EQ(cross.Mxy, 0.0);
    EXPECT_EQ(cross.Myy, 2.0);
    EXPECT_EQ(cross.Exc, 0.0);
    EXPECT_EQ(cross.Angle, 114);
}

TEST(ShapeMoments, PixelsInTheCentreHaveNoEccentricity)
{
    const strob_params shape = momentsOf({{4, 5, 1.0, 0}, {4, 5, 9.0, 0}}, 4.0, 5.0);
    EXPECT_EQ(shape.Mxx, 0.0);
    EXPECT_EQ(shape.Mxy, 0.0);
    EXPECT_EQ(shape.Myy, 0.0);
    EXPECT_EQ(shape.Exc, 0.0);
    EXPECT_EQ(shape.Angle, 114);
    EXPECT_EQ(shape.StrobA, 0.0);
    EXPECT_EQ(shape.StrobB, 0.0);
}

TEST(ShapeMoments, SmallestBrightnessCountsAsOne)
{
    // -5, 3, 0 count as 1, 9, 6.
    const strob_params shape = momentsOf({{1, 1, -5.0, 0}, {2, 0, 3.0, 0}, {0, 3, 0.0, 0}}, 0.0, 0.0);
    EXPECT_EQ(shape.Mxx, 37.0);
    EXPECT_EQ(shape.Mxy, 1.0);
    EXPECT_EQ(shape.Myy, 55.0);
    // The root of 18 squared and 4 is 18.110770276274835.
    EXPECT_DOUBLE_EQ(shape.Exc, 0.5735464003095859);
    EXPECT_DOUBLE_EQ(shape.Angle, 86.82990412704505);
}

TEST(ShapeMoments, SumsAreNotDividedByTheBrightness)
{
    const strob_params shape = momentsOf(fourPixels, 11.0, 21.0);
    EXPECT_EQ(shape.Mxx, 22.0);
    EXPECT_EQ(shape.Mxy, 9.0);
    EXPECT_EQ(shape.Myy, 8.0);
    EXPECT_DOUBLE_EQ(shape.Exc, 0.9293610002222602);
    EXPECT_DOUBLE_EQ(shape.Angle, 26.0625081744509);
}

TEST(ShapeMoments, CallersPixelsStay)
{
    Pixels pixels{{1, 1, -5.0, 4}, {0, 0, 3.0, 5}, {2, 2, 0.0, 6}};
    strob_params shape;
    cMoments(pixels, 0.0, 0.0, shape);
    ASSERT_EQ(pixels.size(), 3u);
    EXPECT_EQ(pixels[0].C, -5.0);
    EXPECT_EQ(pixels[1].C, 3.0);
    EXPECT_EQ(pixels[2].C, 0.0);
    EXPECT_EQ(keysOf(pixels), (std::vector<double>{4, 5, 6}));
}

TEST(ShapeMoments, OddNumbersEndInNotANumber)
{
    EXPECT_TRUE(std::isnan(momentsOf(fourPixels, notANumber, 21.0).Mxx));
    EXPECT_TRUE(std::isnan(momentsOf(fourPixels, infinity, 21.0).Exc));
    EXPECT_TRUE(std::isnan(momentsOf({{0, 0, infinity, 0}, {2, 0, infinity, 0}}, 1.0, 0.0).Mxx));
    EXPECT_TRUE(std::isnan(momentsOf({{0, 0, 1.0, 0}, {2, 0, notANumber, 0}}, 1.0, 0.0).Mxx));
    EXPECT_EQ(momentsOf({{lowest, 0, 1.0, 0}, {highest, 0, 1.0, 0}}, -0.5, 0.0).Exc, 1.0);
}

TEST(ShapeLength, OrdersAreDescending)
{
    const pixel low{1, 9, 0, 0}, high{2, 3, 0, 0};
    EXPECT_TRUE(sortpixelX(high, low));
    EXPECT_FALSE(sortpixelX(low, high));
    EXPECT_FALSE(sortpixelX(low, low));
    EXPECT_TRUE(sortpixelY(low, high));
    EXPECT_FALSE(sortpixelY(high, low));
    EXPECT_FALSE(sortpixelY(low, low));
}

TEST(ShapeLength, NoPixelsAndOnePixelHaveNone)
{
    EXPECT_EQ(lengthOf({}), 0.0);
    EXPECT_EQ(lengthOf({{5, 6, 1.0, 0}}), 0.0);
    EXPECT_EQ(lengthOf({{5, 6, 1.0, 0}, {5, 6, 2.0, 0}}), 0.0);
}

TEST(ShapeLength, DistanceBetweenTheEnds)
{
    EXPECT_EQ(lengthOf({{0, 0, 1.0, 0}, {3, 4, 1.0, 0}}), 5.0);
    EXPECT_EQ(lengthOf({{3, -4, 1.0, 0}, {1, -2, 1.0, 0}, {0, 0, 1.0, 0}}), 5.0);
    EXPECT_EQ(lengthOf({{4, 0, 1.0, 0}, {-6, 0, 1.0, 0}, {0, 0, 1.0, 0}}), 10.0);
}

TEST(ShapeLength, GreaterOfBothSortsCounts)
{
    // By X the ends are (10,5) and (0,5), by Y (5,9) and (4,0).
    EXPECT_EQ(lengthOf({{10, 5, 1.0, 0}, {5, 9, 1.0, 0}, {4, 0, 1.0, 0}, {0, 5, 1.0, 0}}), 10.0);
    // By X (5,9) and (0,6), by Y (5,9) and (2,0).
    EXPECT_DOUBLE_EQ(lengthOf({{5, 9, 1.0, 0}, {2, 0, 1.0, 0}, {0, 6, 1.0, 0}}), 9.486832980505138);
}

TEST(ShapeLength, TiesOfTheSecondSortStandAsTheFirstLeftThem)
{
    // By X: (10,0) (10,8) (0,0), 10 apart. By Y then (10,8) (10,0) (0,0), and not (10,8) (0,0) (10,0).
    EXPECT_DOUBLE_EQ(lengthOf({{0, 0, 1.0, 0}, {10, 0, 1.0, 0}, {10, 8, 1.0, 0}}), 12.806248474865697);
}

TEST(ShapeLength, TiesOfTheFirstSortStandAsTheyCame)
{
    // The end of the list by X is (10,0) or (10,8), whichever comes first; (0,3) is the other end.
    EXPECT_DOUBLE_EQ(lengthOf({{10, 0, 1.0, 0}, {10, 8, 1.0, 0}, {0, 3, 1.0, 0}}), 10.44030650891055);
    EXPECT_DOUBLE_EQ(lengthOf({{10, 8, 1.0, 0}, {10, 0, 1.0, 0}, {0, 3, 1.0, 0}}), 11.180339887498949);
}

TEST(ShapeLength, PixelsComeBackByYThenByXThenAsTheyCame)
{
    Pixels pixels{{1, 5, 0, 1},  {9, 2, 0, 2}, {3, 5, 0, 3}, {3, 5, 0, 4},
                  {-2, 7, 0, 5}, {4, 2, 0, 6}, {1, 5, 0, 7}};
    calcLength(pixels);
    EXPECT_EQ(keysOf(pixels), (std::vector<double>{5, 3, 4, 1, 7, 2, 6}));
}

// The squares are summed in 32 bits, the last of which is the sign.
TEST(ShapeLength, SumOfTheSquaresWraps)
{
    const struct
    {
        int dx, dy;
        double length;
    } rows[] = {
        {40000, 0, 40000.0},
        {0, 40000, 40000.0},
        {46340, 0, 46340.0},
        {0, 46340, 46340.0},
        {40000, 20000, 44721.35954999579},
        {65536, 0, 0.0},
        {0, 65536, 0.0},
        {65537, 0, 362.0400530328102}, // 131073
        {65536, 3, 3.0},               // 9
        {65536, 65536, 0.0},
        {100000, 0, 37550.83764711514},     // 10000000000 - 2 * 4294967296 = 1410065408
        {60000, 40000, 30083.761466944256}, // 5200000000 - 4294967296 = 905032704
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::Message() << row.dx << ", " << row.dy);
        EXPECT_DOUBLE_EQ(lengthOf({{0, 0, 1.0, 0}, {row.dx, row.dy, 1.0, 0}}), row.length);
        EXPECT_DOUBLE_EQ(lengthOf({{row.dx, row.dy, 1.0, 0}, {0, 0, 1.0, 0}}), row.length);
    }
}

TEST(ShapeLength, NegativeSumHasNoRoot)
{
    const struct
    {
        int dx, dy;
    } rows[] = {
        {46341, 0},                   // 2147488281 - 4294967296
        {0, 46341},   {32768, 32768}, // 2147483648 - 4294967296
        {50000, 0},                   // 2500000000 - 4294967296
        {60000, 100},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::Message() << row.dx << ", " << row.dy);
        EXPECT_TRUE(std::isnan(lengthOf({{0, 0, 1.0, 0}, {row.dx, row.dy, 1.0, 0}})));
    }
}

TEST(ShapeLength, DifferenceBeyondTheRangeWrapsToo)
{
    EXPECT_EQ(lengthOf({{lowest, 0, 1.0, 0}, {highest, 0, 1.0, 0}}), 1.0);
    EXPECT_EQ(lengthOf({{0, lowest, 1.0, 0}, {0, highest, 1.0, 0}}), 1.0);
    EXPECT_EQ(lengthOf({{lowest, 0, 1.0, 0}, {0, 0, 1.0, 0}}), 0.0);
}
