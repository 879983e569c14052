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
#include <numeric>
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
        const auto track = static_cast<std::uint32_t>(objects.numberOf(object));
        if (lastRun == nullptr || lastRun->track != track || lastRun->count == longestRun) {
            lastRun = &runs.add({track, 0});
        }
        ++lastRun->count;
        observations.add(observation);
    }

    /// How many tracks are still to come.
    std::size_t count() const
    {
        return objects.size() - taken;
    }

    /// Gives a track the next one: `fillHead(track, object)` fills its head, `fillMark(mark, observation)`
    /// its marks. False after the last.
    template <class FillHead, class FillMark>
    bool next(TrackVtorichka& track, OldMarks old, FillHead fillHead, FillMark fillMark)
    {
        if (count() == 0) {
            return false;
        }
        if (taken == 0) {
            putRunsInOrder();
        }
        resetHead(track);
        fillHead(track, objects[taken]);
        const std::size_t end = endsOfTracks[taken++];
        fillMarks(track, end, old, fillMark);
        nextRun = end;
        return true;
    }

private:
    // Observations of one track that follow one another in the file.
    struct Run
    {
        std::uint32_t track;
        std::uint32_t count;
    };
    static constexpr std::uint32_t longestRun = std::numeric_limits<std::uint32_t>::max();

    // The same where runs are in the order of their tracks.
    struct OrderedRun
    {
        std::size_t first;
        std::uint32_t count;
    };

    // Gives each track its runs, in the order in which they were added.
    void putRunsInOrder()
    {
        std::vector<std::size_t> places(objects.size() + 1);
        for (std::size_t i = 0; i < runs.size(); ++i) {
            ++places[runs[i].track + 1];
        }
        std::partial_sum(places.begin(), places.end(), places.begin());
        orderedRuns.resize(runs.size());
        std::size_t first = 0;
        for (std::size_t i = 0; i < runs.size(); ++i) {
            orderedRuns[places[runs[i].track]++] = {first, runs[i].count};
            first += runs[i].count;
        }
        places.pop_back(); // each of the others is the end of its track now
        endsOfTracks = std::move(places);
        runs = {};
    }

    // Marks of the runs from the next one to an end.
    template <class FillMark>
    void fillMarks(TrackVtorichka& track, std::size_t end, OldMarks old, FillMark fillMark)
    {
        constexpr std::size_t ahead = 8; // runs: in mixed lines each observation is far from the one before
        std::size_t marks = 0;
        for (std::size_t run = nextRun; run < end; ++run) {
            marks += orderedRuns[run].count;
        }
        NewMarks newMarks(track, marks, old);
        for (std::size_t run = nextRun; run < end; ++run) {
            __builtin_prefetch(&observations[orderedRuns[std::min(run + ahead, end - 1)].first]);
            const OrderedRun& own = orderedRuns[run];
            for (std::size_t at = own.first; at < own.first + own.count; ++at) {
                fillMark(newMarks.next(), observations[at]);
            }
        }
    }

    TextIndex objects;
    ChunkedList<Observation> observations;
    ChunkedList<Run> runs;
    Run* lastRun = nullptr;
    std::vector<OrderedRun> orderedRuns;
    std::vector<std::size_t> endsOfTracks; // among these
    std::size_t nextRun = 0;
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
