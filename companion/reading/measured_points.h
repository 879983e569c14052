// Measured points: what pictures are drawn of, the light curves and the paths in a measurement file.

#pragma once

#include <string>
#include <vector>

namespace companion {

/// A measurement of one moment. What is not known is 0, but for the position, which is then not drawn.
struct MeasuredPoint
{
    double mjd = 0;       ///< UTC, days
    double ra = 0;        ///< right ascension, degrees
    double de = 0;        ///< declination, degrees
    double magnitude = 0; ///< 0 for none
    double error = 0;     ///< of the magnitude; 0 for none
};

/// The points of one object, in the order of time.
struct MeasuredSeries
{
    std::string object;
    std::string filter{}; ///< empty where the format has none
    std::vector<MeasuredPoint> points{};
};

/// The path of each track of a file; none where the format has no positions. Points without a finite time or
/// position are left out. Throws WrongUsage (V003) for a file that cannot be read.
std::vector<MeasuredSeries> pathsIn(const std::string& path, const std::string& format);

/// The light curve of each object in each filter, in the order of the file. Points without a finite time or a
/// magnitude are left out, limits, and dates that are not Julian ones. Of a light curve table the apparent
/// magnitudes are taken, and the ensemble ones where those are 0. Throws WrongUsage (V003) for a file that
/// cannot be read.
std::vector<MeasuredSeries> lightCurvesIn(const std::string& path, const std::string& format);

} // namespace companion
