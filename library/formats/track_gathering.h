// Track gathering: observations in the order of a file become tracks, one for each object.
//
// A mark is large: the observations are collected in a small form, and only the track that is handed out has
// marks.

#pragma once

#include "../base/chunked_list.h"
#include "../base/text_index.h"
#include "../records/new_marks.h"
#include "../records/track_stream.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <new>
#include <stdexcept>
#include <string_view>
#include <utility>
#include <vector>

namespace tavelinUtils {

/// The values of a mark that every measurement format holds.
struct MeasuredMark
{
    int date = 0;    ///< whole MJD
    double time = 0; ///< fraction of the day
    double RA = 0;   ///< degrees
    double DE = 0;   ///< degrees
    double m = 0;    ///< magnitude
};

/// Gives a mark its measured values and leaves everything else.
inline void setMeasured(TRecLabelPervichka_File& mark, const MeasuredMark& measured)
{
    mark.date = measured.date;
    mark.time = measured.time;
    mark.RA = measured.RA;
    mark.DE = measured.DE;
    mark.m = measured.m;
}

/// Collects observations by object. Tracks have the order in which their objects were first named, marks the
/// order in which they were added. The tracks are handed out one after the other, once.
template <class Observation>
class TrackGathering
{
public:
    void add(std::string_view object, const Observation& observation)
    {
        const std::size_t track = objects.numberOf(object);
        if (runs.empty() || track != trackOfLastRun) {
            beginRun(track);
        }
        observations.add(observation);
    }

    /// How many tracks are still to come.
    std::size_t count() const
    {
        return tracks.size() - taken;
    }

    /// Gives a track the next one: `fillHead(track, object)` fills its head, `fillMark(mark, observation)`
    /// its marks. False after the last.
    template <class FillHead, class FillMark>
    bool next(TrackVtorichka& track, OldMarks old, FillHead fillHead, FillMark fillMark)
    {
        if (count() == 0) {
            return false;
        }
        resetHead(track);
        fillHead(track, objects[taken]);
        const RunsOfTrack own = tracks[taken++];
        std::size_t marks = 0;
        forEachRun(own, [&](std::size_t begin, std::size_t end) { marks += end - begin; });
        NewMarks newMarks(track, marks, old);
        forEachRun(own, [&](std::size_t begin, std::size_t end) {
            for (std::size_t at = begin; at < end; ++at) {
                fillMark(newMarks.next(), observations[at]);
            }
        });
        return true;
    }

private:
    // Observations of one object that follow one another in the file, up to the first of the next run.
    struct Run
    {
        std::size_t first;
        std::uint32_t nextOfTrack;
    };

    struct RunsOfTrack
    {
        std::uint32_t first;
        std::uint32_t last;
    };

    void beginRun(std::size_t track)
    {
        // A file of more runs would fill a hundred gigabytes.
        if (runs.size() > std::numeric_limits<std::uint32_t>::max()) {
            throw std::length_error("more observations than can be numbered");
        }
        const auto run = static_cast<std::uint32_t>(runs.size());
        if (track == tracks.size()) {
            tracks.push_back({run, run});
        } else {
            runs[tracks[track].last].nextOfTrack = run;
            tracks[track].last = run;
        }
        runs.add({observations.size(), run});
        trackOfLastRun = track;
    }

    // Calls use(begin, end) with the observations of each run.
    template <class Use>
    void forEachRun(RunsOfTrack own, Use use) const
    {
        for (std::size_t run = own.first;; run = runs[run].nextOfTrack) {
            use(runs[run].first, run + 1 == runs.size() ? observations.size() : runs[run + 1].first);
            if (run == own.last) {
                return;
            }
        }
    }

    TextIndex objects;
    std::vector<RunsOfTrack> tracks; // of each object
    ChunkedList<Run> runs;
    ChunkedList<Observation> observations;
    std::size_t trackOfLastRun = 0;
    std::size_t taken = 0;
};

/// Collects measured marks track after track: each goes to the track that was added last. The tracks are
/// handed out one after the other, once. A `Head` is what a format keeps of a track's head: small, texts by
/// their numbers.
template <class Head>
class TrackSequence
{
public:
    void addTrack(const Head& head)
    {
        tracks.add({head, marks.size(), marks.size()});
    }

    /// Whether no track has been added.
    bool empty() const
    {
        return tracks.empty();
    }

    /// The head of the track that was added last.
    Head& lastHead()
    {
        return lastTrack().head;
    }

    void addMark(const MeasuredMark& mark)
    {
        marks.add(mark);
        lastTrack().end = marks.size();
    }

    /// Adds a mark that is in no track yet: for marks that come before it is known whether they make a track.
    void addWaitingMark(const MeasuredMark& mark)
    {
        marks.add(mark);
    }

    /// How many marks have been added.
    std::size_t markCount() const
    {
        return marks.size();
    }

    /// Lets the last track begin with an earlier mark, by the number of marks before it: the marks from there
    /// on are in it, those that waited and those of other tracks, which are repeated.
    void beginLastTrackAt(std::size_t mark)
    {
        lastTrack().begin = mark;
    }

    /// How many marks the tracks have together, repeated ones as often as they come.
    std::size_t marksOfTracks() const
    {
        std::size_t total = 0;
        for (std::size_t i = 0; i < tracks.size(); ++i) {
            total += tracks[i].end - tracks[i].begin;
        }
        return total;
    }

    /// How many tracks are still to come.
    std::size_t count() const
    {
        return tracks.size() - taken;
    }

    /// Gives a track the next one, whose head `fillHead(track, head)` fills. False after the last.
    template <class FillHead>
    bool next(TrackVtorichka& track, OldMarks old, FillHead fillHead)
    {
        if (count() == 0) {
            return false;
        }
        const Entry& entry = tracks[taken++];
        resetHead(track);
        fillHead(track, entry.head);
        NewMarks newMarks(track, entry.end - entry.begin, old);
        for (std::size_t mark = entry.begin; mark < entry.end; ++mark) {
            setMeasured(newMarks.next(), marks[mark]);
        }
        return true;
    }

private:
    // A track and its marks.
    struct Entry
    {
        Head head;
        std::size_t begin;
        std::size_t end;
    };

    Entry& lastTrack()
    {
        return tracks[tracks.size() - 1];
    }

    ChunkedList<Entry> tracks;
    ChunkedList<MeasuredMark> marks;
    std::size_t taken = 0;
};

} // namespace tavelinUtils
