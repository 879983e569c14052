// Gnuplot script: a chart as a text that gnuplot draws, with its data inside.

#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace companion {

/// A point of a chart.
struct ChartPoint
{
    double x = 0;
    double y = 0;
    double error = 0; ///< of y; 0 for none
};

/// Points that belong together.
struct ChartSeries
{
    std::string title; ///< any bytes; shown as `printable` gives them
    std::vector<ChartPoint> points{};
};

/// A chart.
struct Chart
{
    std::string title; ///< any bytes
    std::string xLabel;
    std::string yLabel;
    bool xFalls = false;  ///< the axis runs from right to left
    bool yFalls = false;  ///< the axis runs from top to bottom
    bool isPath = false;  ///< points are joined, with an arrow in the direction of the last
    bool hasZero = false; ///< a line is drawn where y is 0
    std::vector<ChartSeries> series{};
};

/// Whether the name of a picture has one of the two suffixes, .png and .svg.
bool isPictureName(std::string_view name);

/// The script that draws a chart into a picture, whose name tells PNG from SVG. It reads nothing, and no text
/// of the chart is taken for a command.
std::string gnuplotScript(const Chart& chart, std::string_view picture);

} // namespace companion
