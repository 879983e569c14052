// Residuals: how far the points of a path are from a smooth one, or from an ephemeris.

#pragma once

#include "reading/measured_points.h"

#include <vector>

namespace companion {

/// The distance of a point from where it was expected, in arcseconds along the great circles of right
/// ascension and declination.
struct Residual
{
    double mjd = 0;
    double ra = 0; ///< with the cosine of the declination applied
    double de = 0;
};

/// The highest degree of a polynomial that is fitted.
inline constexpr int highestDegree = 9;

/// Residuals of a path against polynomials in time of the degree, at most `highestDegree`, fitted by least
/// squares on the plane that touches the sky at the first point. A path with fewer different times gets the
/// degree that it allows. Points more than a quarter of a circle from the first are left out.
std::vector<Residual> residualsOf(const MeasuredSeries& path, int degree);

/// Residuals of a path against an ephemeris, interpolated between its four nearest points. Points outside the
/// time that it covers are left out.
std::vector<Residual> residualsOf(const MeasuredSeries& path, const MeasuredSeries& ephemeris);

} // namespace companion
