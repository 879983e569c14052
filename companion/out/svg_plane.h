// SVG plane: the area of a chart with its axes, and marks upon it.

#pragma once

#include "out/axis.h"
#include "out/html.h"

#include <cstddef>
#include <string>
#include <vector>

namespace companion {

/// A place of a picture, in its units from the left and from the top.
struct PicturePoint
{
    double x = 0;
    double y = 0;
};

/// Where the area of a chart is in its picture.
struct PictureArea
{
    double left;
    double top;
    double right;
    double bottom;

    double width() const
    {
        return right - left;
    }
    double height() const
    {
        return bottom - top;
    }
};

/// A length of an axis and where it lies in the picture. Values may grow to either side.
struct AxisScale
{
    double from;
    double to;
    double start;
    double end;

    /// The place of a value.
    double at(double value) const
    {
        return start + (value - from) / (to - from) * (end - start);
    }
};

/// The size of all pictures.
inline constexpr double pictureWidth = 440;
inline constexpr double pictureHeight = 300;

/// A coordinate with a tenth of a unit: "12", "12.5".
std::string coordinate(double value);

/// A point as "12.5 40".
std::string pointText(const PicturePoint& point);

/// Of many points those that bound what all cover: in each column, or row where they spread further up and
/// down, the two outermost. The order stays. Up to a thousand points stay as they are.
std::vector<PicturePoint> boundingPoints(const std::vector<PicturePoint>& points);

/// Adds an element of SVG that is drawn along a path; nothing where the path is empty.
void addPath(Html& page, const std::string& style, const std::string& path);

/// Adds a dot for each point. There are some shapes; their number is that of the style as well.
void addDots(Html& page, std::size_t shape, const std::vector<PicturePoint>& points);

/// The character that looks like a dot of that shape.
std::string shapeSign(std::size_t shape);

/// How many shapes there are.
inline constexpr std::size_t shapeCount = 5;

/// Adds the frame of an area, the lines and labels of its two axes and their titles.
void addAxes(Html& page, const PictureArea& area, const Axis& across, const AxisScale& acrossScale,
             const Axis& upwards, const AxisScale& upwardsScale);

} // namespace companion
