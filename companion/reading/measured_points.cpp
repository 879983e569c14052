#include "reading/measured_points.h"

#include "base/lines.h"
#include "base/numbers.h"
#include "base/tokens.h"
#include "reading/line_fates.h"
#include "receivers/aavso_rules.h"
#include "text/calendar.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <exception>
#include <functional>
#include <map>
#include <string_view>
#include <utility>

namespace companion {

using tavelinUtils::JDtoMJD;
using tavelinUtils::toDouble;
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

std::string nameOf(const TrackVtorichka& track)
{
    return track.QRVName.empty() ? track.NORAD : track.QRVName;
}

MeasuredPoint pointOf(const TRecLabelPervichka_File& mark)
{
    const double error = mark.SNRpeak > 0.0 ? 1.0 / mark.SNRpeak : 0.0;
    return {mark.date + mark.time, mark.RA, mark.DE, mark.m, error};
}

// An error that can be drawn; 0 for none.
double errorIn(std::string_view text)
{
    const double error = toDouble(text);
    return std::isfinite(error) && error > 0.0 ? error : 0.0;
}

// The lines of the tool's light curve table.
class LightCurveLines
{
public:
    void add(std::string_view line)
    {
        constexpr std::size_t columns = 7;
        std::array<std::string_view, columns> parts{};
        const bool isHead = std::exchange(isFirst, false);
        if (isHead || tavelinUtils::cutParts(line, '\t', parts) < columns) {
            return;
        }
        const double apparent = toDouble(parts[1]);
        const double magnitude = apparent != 0.0 ? apparent : toDouble(parts[2]);
        curves.add(parts[6], "", {JDtoMJD(toDouble(parts[0])), 0, 0, magnitude, 0});
    }

    Curves curves{};

private:
    bool isFirst = true;
};

// The lines of an AAVSO report.
class AavsoLines
{
public:
    void add(std::string_view line)
    {
        constexpr std::string_view key = "#DELIM=";
        if (line.starts_with(key)) {
            delimiter = aavsoDelimiter(line.substr(key.size())).value_or(delimiter);
        } else if (!line.starts_with('#')) {
            addRecord(line);
        }
    }

    Curves curves{};

private:
    // A date that is no Julian one, and a limit such as "<13.7", are no points.
    void addRecord(std::string_view line)
    {
        std::array<std::string_view, 5> parts{};
        if (tavelinUtils::cutParts(line, delimiter, parts) < parts.size()) {
            return;
        }
        const double date = toDouble(parts[1]);
        if (date > 0.0 && !parts[2].starts_with('<')) {
            curves.add(parts[0], parts[4], {JDtoMJD(date), 0, 0, toDouble(parts[2]), errorIn(parts[3])});
        }
    }

    char delimiter = ',';
};

template <class Lines>
std::vector<MeasuredSeries> curvesOfLines(const std::string& path)
{
    Lines lines;
    tavelinUtils::readLines(path, lines);
    return std::move(lines.curves.all);
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

std::vector<MeasuredSeries> curvesOfTracks(const std::string& path, const std::string& format)
{
    Curves curves;
    const bool areFiltered = hasFilters(format);
    readTracks(path, format, [&](const TrackVtorichka& track) {
        for (const TRecLabelPervichka_File& mark : track.Marks) {
            curves.add(nameOf(track), areFiltered ? mark.filtr : "", pointOf(mark));
        }
    });
    return std::move(curves.all);
}

} // namespace

std::vector<MeasuredSeries> pathsIn(const std::string& path, const std::string& format)
{
    std::vector<MeasuredSeries> paths;
    readTracks(path, format, [&paths](const TrackVtorichka& track) {
        MeasuredSeries series{nameOf(track)};
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
    std::vector<MeasuredSeries> curves = format == "mag"     ? curvesOfLines<LightCurveLines>(path)
                                         : format == "aavso" ? curvesOfLines<AavsoLines>(path)
                                                             : curvesOfTracks(path, format);
    sortByTime(curves);
    return curves;
}

} // namespace companion
