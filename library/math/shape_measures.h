// Measures of a blob's shape: centres, moments, length, width, brightness.

#pragma once

#include "../records/blob.h"
#include "../records/pixel.h"

#include <cstddef>
#include <vector>

namespace tavelinUtils {

/// The shape of one blob.
struct strob_params
{
    double StrobA = 0;
    double StrobB = 0;
    double Length = 0;  ///< pixels
    double Width = 0;   ///< pixels
    double XWeight = 0; ///< centre weighted by brightness
    double YWeight = 0;
    double XMean = 0; ///< plain centre
    double YMean = 0;
    double XBox = 0; ///< centre of the bounding box
    double YBox = 0;
    double Mxy = 0; ///< second moments: sums, not divided by the total brightness
    double Mxx = 0;
    double Myy = 0;
    double Angle = 0; ///< direction of the major axis, degrees
    double Exc = 0;   ///< eccentricity
    double StrobTail = 0;
    std::vector<double> StrobList{};
};

static_assert(offsetof(strob_params, StrobList) == 16 * sizeof(double), "the numbers have no gap");

/// The orders by X and by Y, descending.
bool sortpixelX(const pixel& a, const pixel& b);
bool sortpixelY(const pixel& a, const pixel& b);

} // namespace tavelinUtils

namespace tavelinMath {

using tavelinUtils::strob_params;

/// Second moments, eccentricity and angle about a centre. The values of the pixels are lifted so that the
/// smallest is 1; the caller's pixels stay. Fewer than two pixels change nothing; with equal Mxx and Myy the
/// angle stays as it was.
void cMoments(std::vector<pixel>& pixels, double centreX, double centreY, strob_params& shape);

/// The length of a blob: the greater of the distances between the ends of its pixels sorted by X and sorted
/// by Y. The pixels come back sorted. Squares are summed in 32 bits: a sum from 2 to the power 31 on wraps,
/// which makes the length wrong, or not-a-number where the sum turns negative. 0.0 for no pixels.
double calcLength(std::vector<pixel>& pixels);

/// Measures one object and writes centre, width, length, angle and eccentricity into it. Its area comes back
/// sorted.
strob_params calcEccentricityInternal(tavelinUtils::TObjKontur& object);

/// Measures all objects, and numbers them; a ValueB of 0 takes ValueA.
void CalcEccentricity(std::vector<tavelinUtils::TObjKontur>& objects);

/// The centre weighted by brightness above the background, and the plain centre; not-a-number without pixels.
/// Whole pixels of no weight or a negative one weigh 1; those with fractions weigh what they weigh.
void cMathAndWeightXY(std::vector<pixelD> pixels, double background, double& weightedX, double& weightedY,
                      double& meanX, double& meanY);
void cMathAndWeightXY(std::vector<pixel> pixels, double background, double& weightedX, double& weightedY,
                      double& meanX, double& meanY);

/// The centre weighted by C; not-a-number without pixels.
void cWeightXY(const std::vector<pixelD>& pixels, double& x, double& y);

/// The mean of C; 0.0 without pixels.
double cMathBr(const std::vector<pixelD>& pixels);
double cMathBr(const std::vector<pixel>& pixels);

/// The volume under a round Gaussian.
double calcPSFbrightness(const double& sigma, const double& amplitude);

/// The radius at which a Gaussian falls to a level; not-a-number for a level above the peak.
double calcGaussRadius(const double& sigma, const double& peak, const double& level);

} // namespace tavelinMath
