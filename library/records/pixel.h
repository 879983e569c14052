// Pixels of a frame.

#pragma once

namespace tavelinUtils {

/// A pixel and its value.
struct pixel
{
    int X = 0;    ///< column
    int Y = 0;    ///< row
    double C = 0; ///< brightness
    double A = 0; ///< an angle or another key
};

/// A place between pixels and its value.
struct pixelD
{
    double X = 0;
    double Y = 0;
    double C = 0;
    double A = 0;
};

/// A pixel of an aperture.
struct pixelAper
{
    int X = 0;
    int Y = 0;
};

} // namespace tavelinUtils

namespace tavelinMath {
using tavelinUtils::pixel;
using tavelinUtils::pixelD;
} // namespace tavelinMath
