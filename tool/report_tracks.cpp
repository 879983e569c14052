#include "report_tracks.h"

#include "records/new_marks.h"
#include "records/track_stream.h"

#include <algorithm>

using namespace tavelinUtils;

namespace {

// A mark and its time, which puts it in order.
struct TimedMark
{
    double time;
    std::size_t mark;
};

// Whether no time is after the next. A time that is no number is not in order with any: the sort decides.
bool isInOrder(const std::vector<TimedMark>& marks)
{
    return std::adjacent_find(marks.begin(), marks.end(), [](const TimedMark& a, const TimedMark& b) {
               return !(a.time <= b.time);
           }) == marks.end();
}

} // namespace

ReportTracks::ReportTracks(const std::string& columns) : marks(columnsOfMarks(columns))
{
}

void ReportTracks::addSeries(const THeadTrVtor& head)
{
    heads.push_back(head);
    labels.push_back(numberOf(head.Series));
}

void ReportTracks::add(const TrackVtorichka& track)
{
    for (std::size_t i = 0; i < track.Marks.size(); ++i) {
        marks.add(track.Marks[i], i < track.InterBlobs.size() ? track.InterBlobs[i] : TInterBlob{});
    }
    tracks.push_back({numberOf(track.QRVName), numberOf(track.MPCChecker), numberOf(track.NORAD),
                      static_cast<std::uint32_t>(heads.size() - 1), marks.size()});
}

std::uint32_t ReportTracks::numberOf(const std::string& text)
{
    return static_cast<std::uint32_t>(texts.numberOf(text));
}

bool ReportTracks::keepOnly(int track)
{
    const std::size_t number = static_cast<std::size_t>(track);
    if (track < 0 || number >= tracks.size() || tracks[number].series != 0) {
        return false;
    }
    firstMark = whole(number).first;
    tracks = {tracks[number]};
    heads.resize(1);
    return true;
}

TrackPart ReportTracks::whole(std::size_t track) const
{
    return {track, track == 0 ? firstMark : tracks[track - 1].end, tracks[track].end};
}

std::uint64_t ReportTracks::objectOf(std::size_t track) const
{
    return std::uint64_t{tracks[track].name} << 32 | labels[tracks[track].series];
}

void ReportTracks::fill(const TrackPart& part, TrackVtorichka& track) const
{
    fillHead(part.track, track);
    NewMarks newMarks(track, part.end - part.first, OldMarks::kept);
    for (std::size_t mark = part.first; mark < part.end; ++mark) {
        restore(mark, newMarks.next());
    }
}

void ReportTracks::fillJoined(std::span<const TrackPart> parts, TrackVtorichka& track) const
{
    if (parts.size() == 1) {
        fill(parts.front(), track);
        return;
    }
    std::vector<TimedMark> order;
    for (std::size_t i = parts.size(); i-- > 0;) {
        for (std::size_t mark = parts[i].first; mark < parts[i].end; ++mark) {
            order.push_back({date(mark) + time(mark), mark});
        }
    }
    if (!isInOrder(order)) {
        std::stable_sort(order.begin(), order.end(),
                         [](const TimedMark& a, const TimedMark& b) { return a.time < b.time; });
    }
    fillHead(parts.front().track, track);
    NewMarks newMarks(track, order.size(), OldMarks::kept);
    for (const TimedMark& timed : order) {
        restore(timed.mark, newMarks.next());
    }
}

void ReportTracks::fillHead(std::size_t number, TrackVtorichka& track) const
{
    resetHead(track);
    const KeptTrack& kept = tracks[number];
    static_cast<THeadTrVtor&>(track) = heads[kept.series];
    track.QRVName = texts[kept.name];
    track.MPCChecker = texts[kept.checker];
    track.NORAD = texts[kept.norad];
}

void ReportTracks::restore(std::size_t number, TRecLabelPervichka_File& mark) const
{
    TInterBlob unused;
    marks.restore(number, mark, unused);
}
