#include "report_divisions.h"

#include "file_names.h"

#include <algorithm>
#include <cstddef>
#include <functional>
#include <iterator>
#include <unordered_map>
#include <utility>

using tavelinUtils::TConvMea;
using tavelinUtils::THeadTrVtor;
using tavelinUtils::TInterBlob;
using tavelinUtils::TrackVtorichka;
using tavelinUtils::TRecLabelPervichka_File;

namespace {

using Series = std::vector<TrackList>;
using Marks = std::vector<TRecLabelPervichka_File>;

// Marks from the first up to but not including the end.
struct Range
{
    std::size_t first;
    std::size_t end;
};

// The gap in minutes after a mark. The order of the sum matters to the last digit.
double gapAfter(const Marks& marks, std::size_t index)
{
    const double next = marks[index + 1].date + marks[index + 1].time;
    return (next - marks[index].date - marks[index].time) * 1440.0;
}

// The ends are exclusive, and yet each is set to the last mark before a gap, or to the last mark of all: so
// each stretch of a track that is cut loses its last mark. Existing reports depend on it.
std::vector<Range> rangesOf(const Marks& marks, double interval)
{
    std::vector<Range> ranges{{0, marks.size()}};
    for (std::size_t k = 0; k + 1 < marks.size(); ++k) {
        if (gapAfter(marks, k) >= interval) {
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

// The place of the object of each track, in the order of the tracks, and the number of tracks of each object.
struct ObjectPlaces
{
    std::vector<std::size_t> places;
    std::vector<std::size_t> counts;
};

ObjectPlaces objectPlaces(const Series& series)
{
    ObjectIndex index;
    ObjectPlaces objects;
    for (const TrackList& tracks : series) {
        for (const TrackVtorichka& track : tracks) {
            const std::size_t place = index.placeOf(track);
            objects.places.push_back(place);
            objects.counts.resize(std::max(objects.counts.size(), place + 1));
            ++objects.counts[place];
        }
    }
    return objects;
}

// Later tracks come first, and a sort that keeps the order of equal times leaves them so.
Marks marksByTime(TrackList& tracks)
{
    struct Place
    {
        double time;
        TRecLabelPervichka_File* mark;
    };
    std::vector<Place> places;
    for (std::size_t i = tracks.size(); i-- > 0;) {
        for (TRecLabelPervichka_File& mark : tracks[i].Marks) {
            places.push_back({mark.date + mark.time, &mark});
        }
    }
    std::stable_sort(places.begin(), places.end(),
                     [](const Place& a, const Place& b) { return a.time < b.time; });
    Marks marks;
    marks.reserve(places.size());
    for (const Place& place : places) {
        marks.push_back(std::move(*place.mark));
    }
    return marks;
}

std::vector<TInterBlob> interBlobsLaterFirst(const TrackList& tracks)
{
    std::vector<TInterBlob> interBlobs;
    for (std::size_t i = tracks.size(); i-- > 0;) {
        interBlobs.insert(interBlobs.end(), tracks[i].InterBlobs.begin(), tracks[i].InterBlobs.end());
    }
    return interBlobs;
}

std::optional<std::string> nameOfObject(const TConvMea&, const TrackList& report, std::size_t)
{
    return objectName(report);
}

constexpr ReportDivision reportDivisions[] = {
    {"eachgroup",
     [](Series&& series, const TConvMea& task, bool& withoutMarks) {
         return stretchesOf(std::move(series), task.interval, withoutMarks);
     },
     nameOfObject, false},
    {"eachobject", [](Series&& series, const TConvMea&, bool&) { return objectsOf(std::move(series)); },
     nameOfObject, true},
    {"eachseria", [](Series&& series, const TConvMea&, bool&) { return Series(std::move(series)); },
     [](const TConvMea& task, const TrackList&, std::size_t number) {
         return seriesFolderName(task, number);
     },
     false},
    {"allobjects", [](Series&& series, const TConvMea&, bool&) { return allOf(std::move(series)); },
     [](const TConvMea& task, const TrackList&, std::size_t) {
         return std::optional(outputFolderName(task));
     },
     false},
};

} // namespace

const ReportDivision* reportDivision(const std::string& word)
{
    for (const ReportDivision& row : reportDivisions) {
        if (row.word == word) {
            return &row;
        }
    }
    return nullptr;
}

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
    const ObjectPlaces objects = objectPlaces(series);
    std::vector<TrackList> reports(objects.counts.size());
    for (std::size_t i = 0; i < reports.size(); ++i) {
        reports[i].reserve(objects.counts[i]);
    }
    auto place = objects.places.begin();
    for (TrackList& tracks : series) {
        for (TrackVtorichka& track : tracks) {
            reports[*place++].push_back(std::move(track));
        }
        TrackList().swap(tracks); // the heads that are left are large, and an assigned {} keeps their room
    }
    return reports;
}

TrackVtorichka joined(TrackList&& tracks)
{
    if (tracks.size() == 1) {
        return std::move(tracks.front());
    }
    Marks marks = marksByTime(tracks);
    std::vector<TInterBlob> interBlobs = interBlobsLaterFirst(tracks);
    TrackVtorichka track = std::move(tracks.front());
    track.Marks = std::move(marks);
    track.InterBlobs = std::move(interBlobs);
    return track;
}

TrackList joinedAlone(TrackList&& tracks)
{
    TrackList alone;
    alone.push_back(joined(std::move(tracks)));
    return alone;
}

std::vector<TrackList> allOf(std::vector<TrackList>&& series)
{
    std::vector<TrackList> reports(1);
    for (TrackList& tracks : series) {
        std::move(tracks.begin(), tracks.end(), std::back_inserter(reports.front()));
    }
    return reports;
}
