#include "reading/sky_angle.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace companion {
namespace {

double squareOfSine(double angle)
{
    const double sine = std::sin(angle);
    return sine * sine;
}

} // namespace

double angleBetween(double RA, double DE, double otherRA, double otherDE)
{
    constexpr double degree = std::numbers::pi / 180.0;
    const double cosines = std::cos(DE * degree) * std::cos(otherDE * degree);
    const double square =
        squareOfSine((otherDE - DE) * degree / 2.0) + cosines * squareOfSine((otherRA - RA) * degree / 2.0);
    return 2.0 * std::asin(std::sqrt(std::clamp(square, 0.0, 1.0))) / degree * 3600.0;
}

} // namespace companion
