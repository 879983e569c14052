// Measures of a blob's shape: centres, moments, length, width, brightness.

#pragma once

#include "../export.h"
#include "../records/blob.h"
#include "../records/pixel.h"

#include <cstddef>
#include <vector>

namespace TAVELIN_API tavelinUtils {

/// The shape of one blob.
struct strob_params
{
    double StrobA = 0;    ///< 0 after cMoments; carried
    double StrobB = 0;    ///< 0 after cMoments; carried
    double Length = 0;    ///< pixels
    double Width = 0;     ///< pixels
    double XWeight = 0;   ///< centre weighted by brightness, X, pixels
    double YWeight = 0;   ///< centre weighted by brightness, Y, pixels
    double XMean = 0;     ///< plain centre, X, pixels
    double YMean = 0;     ///< plain centre, Y, pixels
    double XBox = 0;      ///< centre of the bounding box, X, pixels
    double YBox = 0;      ///< centre of the bounding box, Y, pixels
    double Mxy = 0;       ///< mixed second moment, brightness times square pixels: a sum, not divided
    double Mxx = 0;       ///< second moment along X, likewise
    double Myy = 0;       ///< second moment along Y, likewise
    double Angle = 0;     ///< direction of the major axis, degrees
    double Exc = 0;       ///< eccentricity
    double StrobTail = 0; ///< carried
    std::vector<double> StrobList{}; ///< carried
};

static_assert(offsetof(strob_params, StrobList) == 16 * sizeof(double), "the numbers have no gap");

/// The orders of pixels by column and by row, descending.
bool sortpixelX(const pixel& a, const pixel& b);
bool sortpixelY(const pixel& a, const pixel& b);

} // namespace tavelinUtils

namespace TAVELIN_API tavelinMath {

using tavelinUtils::strob_params;

/// Second moments, eccentricity and angle in degrees about a centre in pixels. The brightness of the pixels
/// is lifted so that the smallest is 1; the caller's pixels stay. Fewer than two pixels change nothing; with
/// equal Mxx and Myy the angle stays as it was.
void cMoments(std::vector<pixel>& pixels, double centreX, double centreY, strob_params& shape);

/// The length of a blob in pixels: the greater of the distances between the ends of its pixels sorted by X
/// and sorted by Y. The pixels come back sorted. Squares are summed in 32 bits: a sum from 2 to the power 31
/// on wraps, which makes the length wrong, or not-a-number where the sum turns negative. 0.0 for no pixels.
double calcLength(std::vector<pixel>& pixels);

/// Measures one object and writes centre, width and length in pixels, angle in degrees and eccentricity into
/// it. Its area comes back sorted.
strob_params calcEccentricityInternal(tavelinUtils::TObjKontur& object);

/// Measures all objects, and numbers them; a ValueB of 0 takes ValueA.
void CalcEccentricity(std::vector<tavelinUtils::TObjKontur>& objects);

/// The centre weighted by brightness above the background, and the plain centre, both in pixels; not-a-number
/// without pixels. The background has the unit of the brightness. A `pixel` at or below the background weighs
/// 1; the weight of a `pixelD` stays what it is, also 0 or negative.
void cMathAndWeightXY(std::vector<pixelD> pixels, double background, double& weightedX, double& weightedY,
                      double& meanX, double& meanY);
void cMathAndWeightXY(std::vector<pixel> pixels, double background, double& weightedX, double& weightedY,
                      double& meanX, double& meanY);

/// The centre weighted by C, in pixels; not-a-number without pixels.
void cWeightXY(const std::vector<pixelD>& pixels, double& x, double& y);

/// The mean brightness C, in its unit; 0.0 without pixels.
double cMathBr(const std::vector<pixelD>& pixels);
double cMathBr(const std::vector<pixel>& pixels);

/// The volume under a round Gaussian, in the unit of the amplitude times the square of that of sigma.
double calcPSFbrightness(const double& sigma, const double& amplitude);

/// The radius, in the unit of sigma, at which a Gaussian falls to a level; not-a-number for a level above the
/// peak. Peak and level have the same unit.
double calcGaussRadius(const double& sigma, const double& peak, const double& level);

} // namespace tavelinMath
