// Sky angle: how far two places are from each other on the sky.

#pragma once

namespace companion {

/// The angle between two places, given in degrees, in arcseconds: along the great circle, so that right
/// ascensions of 359.9999 and 0.0001 are near each other.
double angleBetween(double RA, double DE, double otherRA, double otherDE);

} // namespace companion
