// A second program with the library: a table of the objects of a MEA file with their mean magnitude, its
// spread, the time between the first and the last mark, and the motion between the two.
//
//   brightness_of_objects H21_20160611.mea              prints the table
//   brightness_of_objects H21_20160611.mea table.txt    writes it to a file

#include <tavelin/tavelin.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <exception>
#include <ios>
#include <string>
#include <vector>

namespace {

using namespace tavelinUtils;

constexpr double minutesOfDay = 1440.0;
constexpr double radians = 3.14159265358979323846 / 180.0;

std::vector<double> magnitudesOf(const TrackVtorichka& track)
{
    std::vector<double> magnitudes;
    for (const TRecLabelPervichka_File& mark : track.Marks) {
        magnitudes.push_back(mark.m);
    }
    return magnitudes;
}

// Arcseconds between two marks, good for the short ways of one night.
double wayBetween(const TRecLabelPervichka_File& from, const TRecLabelPervichka_File& to)
{
    const double alongRA = std::remainder(to.RA - from.RA, 360.0) * std::cos((from.DE + to.DE) / 2 * radians);
    return std::hypot(alongRA, to.DE - from.DE) * 3600.0;
}

std::string column(const std::string& text, int width)
{
    return Format(text, std::ios_base::right, width);
}

std::string rowOf(const TrackVtorichka& track)
{
    // Marks are in the order of the file, which need not be that of time.
    const auto [first, last] = std::minmax_element(track.Marks.begin(), track.Marks.end(), SortTrackByTime);
    const double minutes = ((last->date + last->time) - (first->date + first->time)) * minutesOfDay;
    const std::vector<double> magnitudes = magnitudesOf(track);
    const double mean = tavelinMath::CalculateAverage(magnitudes);
    const double spread = tavelinMath::CalculateSKO(magnitudes, mean);
    const std::string motion = minutes > 0 ? Str9(wayBetween(*first, *last) / minutes, 3) : "-";
    return Format(track.QRVName, std::ios_base::left, 8) +
           column(IntToStr(static_cast<int>(track.Marks.size())), 6) + column(Str9(mean, 2), 8) +
           column(Str9(spread, 2), 8) + column(Str9(minutes, 1), 9) + column(motion, 12);
}

std::vector<std::string> tableOf(const std::vector<TrackVtorichka>& tracks)
{
    std::vector<std::string> lines{"object   marks    mean  spread  minutes  arcsec/min"};
    for (const TrackVtorichka& track : tracks) {
        lines.push_back(rowOf(track));
    }
    return lines;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2 && argc != 3) {
        std::fprintf(stderr, "brightness_of_objects FILE.mea [TABLE]\n");
        return 1;
    }
    try {
        const std::vector<std::string> table = tableOf(plMEATrack(argv[1], "observatory"));
        if (argc == 3) {
            Write(argv[2], table);
            return 0;
        }
        for (const std::string& line : table) {
            std::printf("%s\n", line.c_str());
        }
        return 0;
    } catch (const TavelinException& failure) {
        // A file that cannot be written: code 7 and its path.
        std::fprintf(stderr, "%s: %s (code %d)\n", failure.getComment().c_str(), failure.what(),
                     failure.getCode());
    } catch (const std::exception& failure) {
        // A date, time or angle that is too short leaves the reader as std::out_of_range.
        std::fprintf(stderr, "%s: %s\n", argv[1], failure.what());
    }
    return 1;
}
