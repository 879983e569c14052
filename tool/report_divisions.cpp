#include "report_divisions.h"

#include "file_names.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <numeric>
#include <unordered_map>

using tavelinUtils::TConvMea;
using tavelinUtils::TrackVtorichka;

namespace {

// The gap in minutes after a mark. The order of the sum matters to the last digit.
double gapAfter(const ReportTracks& tracks, std::size_t mark)
{
    const double next = tracks.date(mark + 1) + tracks.time(mark + 1);
    return (next - tracks.date(mark) - tracks.time(mark)) * 1440.0;
}

// Adds a file for each stretch of a track. The ends are exclusive, and yet each is set to the last mark
// before a gap, or to the last mark of all: so each stretch of a track that is cut loses its last mark.
// Existing reports depend on it.
void addStretches(const ReportTracks& tracks, const TrackPart& track, double interval, ReportFiles& files)
{
    TrackPart stretch = track;
    for (std::size_t mark = track.first; mark + 1 < track.end; ++mark) {
        if (gapAfter(tracks, mark) >= interval) {
            stretch.end = mark;
            files.add(stretch);
            files.close();
            stretch = {track.track, mark + 1, track.end - 1};
        }
    }
    files.add(stretch);
    files.close();
}

// The place of the object of each track in the order of first occurrence, and the number of objects.
struct ObjectPlaces
{
    std::vector<std::size_t> places;
    std::size_t count = 0;
};

ObjectPlaces objectPlaces(const ReportTracks& tracks)
{
    ObjectPlaces objects;
    std::unordered_map<std::uint64_t, std::size_t> known;
    for (std::size_t track = 0; track < tracks.size(); ++track) {
        objects.places.push_back(known.try_emplace(tracks.objectOf(track), known.size()).first->second);
    }
    objects.count = known.size();
    return objects;
}

// The tracks by the place of their object; those of one object in their order.
std::vector<std::size_t> tracksByPlace(const ObjectPlaces& objects)
{
    std::vector<std::size_t> order(objects.places.size());
    std::vector<std::size_t> next(objects.count + 1);
    for (const std::size_t place : objects.places) {
        ++next[place + 1];
    }
    std::partial_sum(next.begin(), next.end(), next.begin());
    for (std::size_t track = 0; track < order.size(); ++track) {
        order[next[objects.places[track]]++] = track;
    }
    return order;
}

std::optional<std::string> nameOfObject(const TConvMea&, const TrackVtorichka* first, std::size_t)
{
    return objectName(first);
}

constexpr ReportDivision reportDivisions[] = {
    {"eachgroup",
     [](const ReportTracks& tracks, const TConvMea& task, bool& withoutMarks) {
         return stretchesOf(tracks, task.interval, withoutMarks);
     },
     nameOfObject, false},
    {"eachobject", [](const ReportTracks& tracks, const TConvMea&, bool&) { return objectsOf(tracks); },
     nameOfObject, true},
    {"eachseria", [](const ReportTracks& tracks, const TConvMea&, bool&) { return seriesOf(tracks); },
     [](const TConvMea& task, const TrackVtorichka*, std::size_t number) {
         return seriesFolderName(task, number);
     },
     false},
    {"allobjects", [](const ReportTracks& tracks, const TConvMea&, bool&) { return allOf(tracks); },
     [](const TConvMea& task, const TrackVtorichka*, std::size_t) {
         return std::optional(outputFolderName(task));
     },
     false},
};

} // namespace

std::span<const ReportDivision> reportDivisionTable()
{
    return reportDivisions;
}

const ReportDivision* reportDivision(const std::string& word)
{
    for (const ReportDivision& row : reportDivisions) {
        if (row.word == word) {
            return &row;
        }
    }
    return nullptr;
}

ReportFiles stretchesOf(const ReportTracks& tracks, double interval, bool& withoutMarks)
{
    ReportFiles files;
    for (std::size_t track = 0; track < tracks.size(); ++track) {
        const TrackPart whole = tracks.whole(track);
        if (whole.first == whole.end) {
            withoutMarks = true;
        } else {
            addStretches(tracks, whole, interval, files);
        }
    }
    return files;
}

ReportFiles objectsOf(const ReportTracks& tracks)
{
    ReportFiles files;
    const ObjectPlaces objects = objectPlaces(tracks);
    const std::vector<std::size_t> order = tracksByPlace(objects);
    for (std::size_t i = 0; i < order.size(); ++i) {
        files.add(tracks.whole(order[i]));
        if (i + 1 == order.size() || objects.places[order[i]] != objects.places[order[i + 1]]) {
            files.close();
        }
    }
    return files;
}

ReportFiles seriesOf(const ReportTracks& tracks)
{
    ReportFiles files;
    std::size_t track = 0;
    for (std::size_t series = 0; series < tracks.seriesCount(); ++series) {
        for (; track < tracks.size() && tracks.seriesOf(track) == series; ++track) {
            files.add(tracks.whole(track));
        }
        files.close();
    }
    return files;
}

ReportFiles allOf(const ReportTracks& tracks)
{
    ReportFiles files;
    for (std::size_t track = 0; track < tracks.size(); ++track) {
        files.add(tracks.whole(track));
    }
    files.close();
    return files;
}
