#include "report_divisions.h"

#include <algorithm>
#include <cstddef>
#include <functional>
#include <iterator>
#include <unordered_map>
#include <utility>

using tavelinUtils::THeadTrVtor;
using tavelinUtils::TInterBlob;
using tavelinUtils::TrackVtorichka;
using tavelinUtils::TRecLabelPervichka_File;

namespace {

using Marks = std::vector<TRecLabelPervichka_File>;

// Marks from the first up to but not including the end.
struct Range
{
    std::size_t first;
    std::size_t end;
};

// The gap in minutes behind a mark, summed in just this order.
double gapBehind(const Marks& marks, std::size_t index)
{
    const double next = marks[index + 1].date + marks[index + 1].time;
    return (next - marks[index].date - marks[index].time) * 1440.0;
}

// The ends are exclusive and yet are the last marks before the gaps, and the last mark of all: so each piece
// of a track that is cut loses its last mark. Reports are what they are by this.
std::vector<Range> rangesOf(const Marks& marks, double interval)
{
    std::vector<Range> ranges{{0, marks.size()}};
    for (std::size_t k = 0; k + 1 < marks.size(); ++k) {
        if (gapBehind(marks, k) >= interval) {
            ranges.back().end = k;
            ranges.push_back({k + 1, marks.size() - 1});
        }
    }
    return ranges;
}

TrackVtorichka stretchOf(TrackVtorichka& track, Range range)
{
    TrackVtorichka stretch;
    static_cast<THeadTrVtor&>(stretch) = track;
    if (range.end - range.first == track.Marks.size()) {
        stretch.Marks = std::move(track.Marks);
    } else if (range.first < range.end) {
        const auto begin = std::make_move_iterator(track.Marks.begin());
        stretch.Marks.assign(begin + static_cast<std::ptrdiff_t>(range.first),
                             begin + static_cast<std::ptrdiff_t>(range.end));
    }
    return stretch;
}

// The place of each object in the order of first occurrence.
class ObjectIndex
{
public:
    std::size_t placeOf(const TrackVtorichka& track)
    {
        return places.try_emplace({track.QRVName, track.Series}, places.size()).first->second;
    }

private:
    struct Hash
    {
        std::size_t operator()(const std::pair<std::string, std::string>& object) const
        {
            const std::hash<std::string> hash;
            return hash(object.first) * 31 + hash(object.second);
        }
    };

    std::unordered_map<std::pair<std::string, std::string>, std::size_t, Hash> places;
};

} // namespace

std::vector<TrackList> stretchesOf(std::vector<TrackList>&& series, double interval, bool& withoutMarks)
{
    std::vector<TrackList> reports;
    for (TrackList& tracks : series) {
        for (TrackVtorichka& track : tracks) {
            if (track.Marks.empty()) {
                withoutMarks = true;
                continue;
            }
            for (const Range range : rangesOf(track.Marks, interval)) {
                reports.emplace_back().push_back(stretchOf(track, range));
            }
        }
    }
    return reports;
}

std::vector<TrackList> objectsOf(std::vector<TrackList>&& series)
{
    ObjectIndex index;
    std::vector<std::size_t> places;
    std::vector<std::size_t> counts;
    for (const TrackList& tracks : series) {
        for (const TrackVtorichka& track : tracks) {
            places.push_back(index.placeOf(track));
            counts.resize(std::max(counts.size(), places.back() + 1));
            ++counts[places.back()];
        }
    }
    std::vector<TrackList> reports(counts.size());
    for (std::size_t i = 0; i < reports.size(); ++i) {
        reports[i].reserve(counts[i]);
    }
    auto place = places.begin();
    for (TrackList& tracks : series) {
        for (TrackVtorichka& track : tracks) {
            reports[*place++].push_back(std::move(track));
        }
        tracks = {}; // the heads that are left behind are large
    }
    return reports;
}

TrackVtorichka joined(TrackList&& tracks)
{
    if (tracks.size() == 1) {
        return std::move(tracks.front());
    }
    // Later tracks stand in front, and the sort keeps the order of equal times.
    struct Place
    {
        double time;
        TRecLabelPervichka_File* mark;
    };
    std::vector<Place> places;
    std::vector<TInterBlob> interBlobs;
    for (std::size_t i = tracks.size(); i-- > 0;) {
        for (TRecLabelPervichka_File& mark : tracks[i].Marks) {
            places.push_back({mark.date + mark.time, &mark});
        }
        interBlobs.insert(interBlobs.end(), tracks[i].InterBlobs.begin(), tracks[i].InterBlobs.end());
    }
    std::stable_sort(places.begin(), places.end(),
                     [](const Place& a, const Place& b) { return a.time < b.time; });
    Marks marks;
    marks.reserve(places.size());
    for (const Place& place : places) {
        marks.push_back(std::move(*place.mark));
    }
    TrackVtorichka track = std::move(tracks.front());
    track.Marks = std::move(marks);
    track.InterBlobs = std::move(interBlobs);
    return track;
}

std::vector<TrackList> allOf(std::vector<TrackList>&& series)
{
    std::vector<TrackList> reports(1);
    for (TrackList& tracks : series) {
        std::move(tracks.begin(), tracks.end(), std::back_inserter(reports.front()));
    }
    return reports;
}
