#include "reading/measured_points.h"

#include "reading/brightness_reading.h"
#include "reading/line_fates.h"
#include "reading/track_names.h"

#include <algorithm>
#include <cmath>
#include <exception>
#include <functional>
#include <map>
#include <string_view>
#include <utility>

namespace companion {

using tavelinUtils::TrackVtorichka;
using tavelinUtils::TRecLabelPervichka_File;

namespace {

// Series by object and filter, in the order in which they come.
class Curves
{
public:
    void add(std::string_view object, std::string_view filter, const MeasuredPoint& point)
    {
        const bool isKnown =
            std::isfinite(point.mjd) && std::isfinite(point.magnitude) && point.magnitude != 0.0;
        if (!isKnown) {
            return;
        }
        const auto [place, isNew] =
            places.try_emplace({std::string(object), std::string(filter)}, all.size());
        if (isNew) {
            all.push_back({std::string(object), std::string(filter), {}});
        }
        all[place->second].points.push_back(point);
    }

    std::vector<MeasuredSeries> all{};

private:
    std::map<std::pair<std::string, std::string>, std::size_t> places{};
};

void sortByTime(std::vector<MeasuredSeries>& all)
{
    for (MeasuredSeries& series : all) {
        std::stable_sort(series.points.begin(), series.points.end(),
                         [](const MeasuredPoint& a, const MeasuredPoint& b) { return a.mjd < b.mjd; });
    }
}

MeasuredPoint pointOf(const TRecLabelPervichka_File& mark)
{
    const double error = mark.SNRpeak > 0.0 ? 1.0 / mark.SNRpeak : 0.0;
    return {mark.date + mark.time, mark.RA, mark.DE, mark.m, error};
}

// Formats whose marks have a filter.
bool hasFilters(std::string_view format)
{
    return format == "mpc" || format == "table";
}

// What a reader throws ends its tracks: those before stay.
void readTracks(const std::string& path, const std::string& format,
                const std::function<void(const TrackVtorichka&)>& use)
{
    LineFates fates;
    try {
        readWithFates({path, format, "", use}, fates);
    } catch (const std::exception&) {
        return;
    }
}

// Of a light curve table the ensemble magnitudes count where the apparent ones are 0.
std::vector<MeasuredSeries> curvesOfBrightness(const std::string& path, const std::string& format)
{
    Curves curves;
    readBrightness(path, format, [&](const TrueTrack& series) {
        for (const TRecLabelPervichka_File& mark : series.track.Marks) {
            MeasuredPoint point = pointOf(mark);
            point.magnitude = mark.m != 0.0 ? mark.m : mark.mEnsemble;
            curves.add(series.track.QRVName, format == "aavso" ? mark.filtr : "", point);
        }
    });
    return std::move(curves.all);
}

std::vector<MeasuredSeries> curvesOfTracks(const std::string& path, const std::string& format)
{
    Curves curves;
    const bool areFiltered = hasFilters(format);
    readTracks(path, format, [&](const TrackVtorichka& track) {
        for (const TRecLabelPervichka_File& mark : track.Marks) {
            curves.add(objectOf(track), areFiltered ? mark.filtr : "", pointOf(mark));
        }
    });
    return std::move(curves.all);
}

} // namespace

std::vector<MeasuredSeries> pathsIn(const std::string& path, const std::string& format)
{
    std::vector<MeasuredSeries> paths;
    readTracks(path, format, [&paths](const TrackVtorichka& track) {
        MeasuredSeries series{objectOf(track)};
        for (const TRecLabelPervichka_File& mark : track.Marks) {
            const MeasuredPoint point = pointOf(mark);
            if (std::isfinite(point.mjd) && std::isfinite(point.ra) && std::abs(point.de) <= 90.0) {
                series.points.push_back(point);
            }
        }
        if (!series.points.empty()) {
            paths.push_back(std::move(series));
        }
    });
    sortByTime(paths);
    return paths;
}

std::vector<MeasuredSeries> lightCurvesIn(const std::string& path, const std::string& format)
{
    std::vector<MeasuredSeries> curves =
        isOfBrightness(format) ? curvesOfBrightness(path, format) : curvesOfTracks(path, format);
    sortByTime(curves);
    return curves;
}

} // namespace companion
