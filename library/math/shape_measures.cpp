#include "math/shape_measures.h"

#include "math/statistics.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

namespace tavelinUtils {

bool sortpixelX(const pixel& a, const pixel& b)
{
    return a.X > b.X;
}

bool sortpixelY(const pixel& a, const pixel& b)
{
    return a.Y > b.Y;
}

} // namespace tavelinUtils

namespace tavelinMath {
namespace {

using tavelinUtils::TObjKontur;

constexpr double pi = 3.141592653589793;

struct Point
{
    double X = 0;
    double Y = 0;
};

double squareOf(double value)
{
    return value * value;
}

// The distance between two pixels, with squares summed in 32 bits: a sum beyond them wraps.
double wrappedDistance(const pixel& a, const pixel& b)
{
    const auto square = [](int from, int to) {
        const std::uint32_t difference = static_cast<std::uint32_t>(from) - static_cast<std::uint32_t>(to);
        return difference * difference;
    };
    return std::sqrt(static_cast<double>(static_cast<std::int32_t>(square(a.X, b.X) + square(a.Y, b.Y))));
}

double distanceOfEnds(const std::vector<pixel>& pixels)
{
    return wrappedDistance(pixels.front(), pixels.back());
}

// The centre of pixels whose weights a function gives.
template <class Pixels, class Weight>
Point centreOf(const Pixels& pixels, Weight weight)
{
    Point sum;
    double total = 0;
    for (const auto& point : pixels) {
        const double w = weight(point);
        sum.X += point.X * w;
        sum.Y += point.Y * w;
        total += w;
    }
    return {sum.X / total, sum.Y / total};
}

template <class Pixels>
Point plainCentreOf(const Pixels& pixels)
{
    return centreOf(pixels, [](const auto&) { return 1.0; });
}

template <class Pixels>
double meanBrightness(const Pixels& pixels)
{
    double sum = 0;
    for (const auto& point : pixels) {
        sum += point.C;
    }
    return pixels.empty() ? 0.0 : sum / static_cast<double>(pixels.size());
}

double widthAbout(double x, double y, const std::vector<pixel>& contour)
{
    constexpr double onePixel = 1.0;
    double nearest = std::numeric_limits<double>::infinity();
    for (const pixel& point : contour) {
        // Not-a-number, the distance from a centre that is not-a-number, is kept.
        nearest = std::min(std::sqrt(squareOf(point.X - x) + squareOf(point.Y - y)), nearest);
    }
    if (contour.empty()) {
        return onePixel;
    }
    return nearest * 2.0 + onePixel; // so never narrower than a pixel
}

// The middle between the limits of a coordinate.
double middleOf(const std::vector<pixel>& area, int pixel::*coordinate)
{
    const auto [lowest, highest] =
        std::minmax_element(area.begin(), area.end(), [coordinate](const pixel& a, const pixel& b) {
            return a.*coordinate < b.*coordinate;
        });
    const double lower = (*lowest).*coordinate;
    return lower + ((*highest).*coordinate - lower) / 2.0;
}

void sumMoments(std::vector<pixel>& pixels, double centreX, double centreY, strob_params& shape)
{
    const double base = cMinC(pixels);
    double mxx = 0;
    double mxy = 0;
    double myy = 0;
    for (const pixel& point : pixels) {
        const double lifted = point.C - base + 1.0;
        const double dx = point.X - centreX;
        const double dy = point.Y - centreY;
        mxx += dx * dx * lifted;
        mxy += dx * dy * lifted;
        myy += dy * dy * lifted;
    }
    shape.Mxx = mxx;
    shape.Mxy = mxy;
    shape.Myy = myy;
}

// The stored centre where the object's kind asks for it and there is one, otherwise that of the area.
void setCentre(TObjKontur& object, strob_params& shape)
{
    constexpr int hasCentre = 1;
    if (object.Kind == hasCentre && object.XWeight != 0.0) {
        shape.XWeight = object.XWeight;
        shape.YWeight = object.YWeight;
        shape.XMean = object.XMean;
        shape.YMean = object.YMean;
    } else {
        const double background = cMinC(object.Area);
        cMathAndWeightXY(object.Area, background, shape.XWeight, shape.YWeight, shape.XMean, shape.YMean);
    }
    if (shape.XMean == 0.0 || shape.YMean == 0.0) {
        shape.XMean = shape.XWeight;
        shape.YMean = shape.YWeight;
    }
}

void store(const strob_params& shape, TObjKontur& object)
{
    object.Width = shape.Width;
    object.Length = shape.Length;
    object.Angle = shape.Angle;
    object.Exc = shape.Exc;
    object.XWeight = shape.XWeight;
    object.YWeight = shape.YWeight;
    object.XMean = shape.XMean;
    object.YMean = shape.YMean;
}

} // namespace

void cMoments(std::vector<pixel>& pixels, double centreX, double centreY, strob_params& shape)
{
    if (pixels.size() < 2) {
        return;
    }
    shape.StrobA = 0;
    shape.StrobB = 0;
    sumMoments(pixels, centreX, centreY, shape);
    const double sum = shape.Mxx + shape.Myy;
    const double difference = shape.Mxx - shape.Myy;
    const double root = std::sqrt(squareOf(difference) + 4.0 * squareOf(shape.Mxy));
    shape.Exc = sum + root != 0.0 ? std::sqrt(1.0 - (sum - root) / (sum + root)) : 0.0;
    if (difference != 0.0) {
        shape.Angle = 0.5 * std::atan2(2.0 * shape.Mxy, difference) * (180.0 / pi);
    }
}

double calcLength(std::vector<pixel>& pixels)
{
    if (pixels.empty()) {
        return 0.0;
    }
    std::stable_sort(pixels.begin(), pixels.end(), tavelinUtils::sortpixelX);
    const double alongX = distanceOfEnds(pixels);
    // Applied to the order by X, so ties in Y stay in that order.
    std::stable_sort(pixels.begin(), pixels.end(), tavelinUtils::sortpixelY);
    const double alongY = distanceOfEnds(pixels);
    return alongY > alongX ? alongY : alongX;
}

strob_params calcEccentricityInternal(TObjKontur& object)
{
    strob_params shape;
    setCentre(object, shape);
    cMoments(object.Area, shape.XWeight, shape.YWeight, shape);
    shape.Length = calcLength(object.Area);
    shape.Width = widthAbout(shape.XMean, shape.YMean, object.Contour);
    if (!object.Area.empty()) {
        shape.XBox = middleOf(object.Area, &pixel::X);
        shape.YBox = middleOf(object.Area, &pixel::Y);
    }
    store(shape, object);
    return shape;
}

void CalcEccentricity(std::vector<TObjKontur>& objects)
{
    int index = 0;
    for (TObjKontur& object : objects) {
        if (object.ValueB == 0.0) {
            object.ValueB = object.ValueA;
        }
        object.Index = index++;
        calcEccentricityInternal(object); // the object takes what it measures
    }
}

void cMathAndWeightXY(std::vector<pixelD> pixels, double background, double& weightedX, double& weightedY,
                      double& meanX, double& meanY)
{
    const Point weighted =
        centreOf(pixels, [background](const pixelD& point) { return point.C - background; });
    const Point mean = plainCentreOf(pixels);
    weightedX = weighted.X;
    weightedY = weighted.Y;
    meanX = mean.X;
    meanY = mean.Y;
}

void cMathAndWeightXY(std::vector<pixel> pixels, double background, double& weightedX, double& weightedY,
                      double& meanX, double& meanY)
{
    // Whole pixels at or below the background still count; those with fractions do not get this floor.
    const Point weighted = centreOf(pixels, [background](const pixel& point) {
        const double weight = point.C - background;
        return weight <= 0.0 ? 1.0 : weight;
    });
    const Point mean = plainCentreOf(pixels);
    weightedX = weighted.X;
    weightedY = weighted.Y;
    meanX = mean.X;
    meanY = mean.Y;
}

void cWeightXY(const std::vector<pixelD>& pixels, double& x, double& y)
{
    const Point centre = centreOf(pixels, [](const pixelD& point) { return point.C; });
    x = centre.X;
    y = centre.Y;
}

double cMathBr(const std::vector<pixelD>& pixels)
{
    return meanBrightness(pixels);
}

double cMathBr(const std::vector<pixel>& pixels)
{
    return meanBrightness(pixels);
}

double calcPSFbrightness(const double& sigma, const double& amplitude)
{
    return 2.0 * pi * amplitude * (sigma * sigma);
}

double calcGaussRadius(const double& sigma, const double& peak, const double& level)
{
    return std::sqrt(2.0 * (sigma * sigma) * (std::log(peak) - std::log(level)));
}

} // namespace tavelinMath
