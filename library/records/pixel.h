// Pixels of a frame.

#pragma once

#include "../export.h"

namespace TAVELIN_API tavelinUtils {

/// A pixel and its value.
struct pixel
{
    int X = 0;    ///< column
    int Y = 0;    ///< row
    double C = 0; ///< brightness
    double A = 0; ///< an angle or another key to sort by
};

/// A place between pixels and its value.
struct pixelD
{
    double X = 0; ///< column, with fraction
    double Y = 0; ///< row, with fraction
    double C = 0; ///< brightness
    double A = 0; ///< an angle or another key to sort by
};

/// A pixel of an aperture.
struct pixelAper
{
    int X = 0; ///< column
    int Y = 0; ///< row
};

} // namespace tavelinUtils

namespace TAVELIN_API tavelinMath {
using tavelinUtils::pixel;
using tavelinUtils::pixelD;
} // namespace tavelinMath
