#include "reading/track_times.h"

#include "reading/line_checker.h"
#include "text/date_text.h"

#include <algorithm>
#include <bit>
#include <functional>

namespace companion {
namespace {

std::uint64_t hashOf(std::string_view track, int date, double time)
{
    constexpr std::uint64_t factor = 0x9E3779B97F4A7C15;
    std::uint64_t hash = std::hash<std::string_view>()(track);
    for (const std::uint64_t each : {static_cast<std::uint64_t>(date), std::bit_cast<std::uint64_t>(time)}) {
        hash = (hash ^ each) * factor;
        hash ^= hash >> 32;
    }
    return hash;
}

// A mark of day 0 has no time: its date could not be read.
bool hasTime(int date)
{
    return date != 0;
}

} // namespace

void TrackTimes::add(const tavelinUtils::TrackVtorichka& track)
{
    const std::string name = byName ? track.QRVName : std::to_string(tracks);
    ++tracks;
    bool isIncreasing = true;
    for (std::size_t i = 1; i < track.Marks.size(); ++i) {
        const auto& a = track.Marks[i - 1];
        const auto& b = track.Marks[i];
        isIncreasing = isIncreasing && (a.date < b.date || (a.date == b.date && a.time < b.time));
    }
    if (isIncreasing) {
        return;
    }
    std::vector<std::pair<int, double>> moments;
    for (const auto& mark : track.Marks) {
        if (hasTime(mark.date)) {
            moments.emplace_back(mark.date, mark.time);
        }
    }
    hasDisorder = hasDisorder || !std::is_sorted(moments.begin(), moments.end());
    std::sort(moments.begin(), moments.end());
    for (std::size_t i = 1; i < moments.size(); ++i) {
        const bool isFirstPair = i == 1 || moments[i - 2] != moments[i];
        if (moments[i] == moments[i - 1] && isFirstPair) {
            shared.push_back(hashOf(name, moments[i].first, moments[i].second));
        }
    }
}

void TrackTimes::finish()
{
    std::sort(shared.begin(), shared.end());
}

bool TrackTimes::isShared(std::string_view track, int date, double time) const
{
    return std::binary_search(shared.begin(), shared.end(), hashOf(track, date, time));
}

void TimeFindings::mark(std::string_view track, int date, double time, const Stretch& stretch,
                        LintOutput& out)
{
    const TrackTimes& times = out.times();
    if (!hasTime(date)) {
        return;
    }
    if (times.isShared(track, date, time)) {
        out.add("V131", stretch);
    }
    if (!times.areDisordered()) {
        return;
    }
    const double moment = date + time;
    const auto [place, isNew] = last.try_emplace(std::string(track), Last{moment, false});
    Last& before = place->second;
    if (!isNew && moment < before.moment && !before.told) {
        before.told = true;
        out.add("V132", stretch);
    }
    before.moment = moment;
}

} // namespace companion
