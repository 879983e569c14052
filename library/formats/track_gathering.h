// Track gathering: observations in the order of a file become tracks, one for each object.
//
// A mark is large: the observations are collected in a small form, and only the track that is handed out has
// marks.

#pragma once

#include "../base/chunked_list.h"
#include "../base/text_index.h"
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
    int AuxInt1 = 0; ///< carried
    double time = 0; ///< fraction of the day
    double RA = 0;   ///< degrees
    double DE = 0;   ///< degrees
    double m = 0;    ///< magnitude
};

/// Gives a mark its measured values and leaves everything else.
inline void setMeasured(TRecLabelPervichka_File& mark, const MeasuredMark& measured)
{
    mark.date = measured.date;
    mark.AuxInt1 = measured.AuxInt1;
    mark.time = measured.time;
    mark.RA = measured.RA;
    mark.DE = measured.DE;
    mark.m = measured.m;
}

/// New marks for a track, one after the other in the places of those that it has. A mark spans a dozen cache
/// lines: this one goes over each once, where clearing all marks and adding new ones would go over them
/// twice.
class NewMarks
{
public:
    /// The track is to have so many marks: as many calls of next have to follow.
    NewMarks(TrackVtorichka& track, std::size_t count) : marks(track.Marks)
    {
        if (marks.capacity() < count) {
            std::vector<TRecLabelPervichka_File>().swap(marks); // so that never two such lists are there
            marks.reserve(count);
        }
        marks.erase(marks.begin() + static_cast<std::ptrdiff_t>(std::min(count, marks.size())), marks.end());
    }

    /// The next mark, as constructed.
    TRecLabelPervichka_File& next()
    {
        if (renewed++ == marks.size()) {
            return marks.emplace_back();
        }
        TRecLabelPervichka_File* const mark = &marks[renewed - 1];
        std::destroy_at(mark);
        // Not std::construct_at, which fills the mark with zeros before its own values.
        return *::new (static_cast<void*>(mark)) TRecLabelPervichka_File;
    }

private:
    std::vector<TRecLabelPervichka_File>& marks;
    std::size_t renewed = 0;
};

/// Collects observations by object. Tracks have the order in which their objects were first named, marks the
/// order in which they were added. The tracks are handed out one after the other, once.
template <class Observation>
class TrackGathering
{
public:
    void add(std::string_view object, const Observation& observation)
    {
        const std::size_t track = objects.numberOf(object);
        if (track == spans.size()) {
            spans.push_back({number(observations.size()), 0, 0});
        } else {
            following[spans[track].last] = number(observations.size());
        }
        spans[track].last = number(observations.size());
        ++spans[track].count;
        observations.add(observation);
        following.add(0);
    }

    /// How many tracks are still to come.
    std::size_t count() const
    {
        return spans.size() - taken;
    }

    /// Gives a track the next one: `fillHead(track, object)` fills its head, `fillMark(mark, observation)`
    /// its marks. False after the last.
    template <class FillHead, class FillMark>
    bool next(TrackVtorichka& track, FillHead fillHead, FillMark fillMark)
    {
        if (count() == 0) {
            return false;
        }
        resetHead(track);
        fillHead(track, objects[taken]);
        const Span span = spans[taken++];
        NewMarks newMarks(track, span.count);
        for (std::size_t left = span.count, at = span.first; left > 0; --left, at = following[at]) {
            fillMark(newMarks.next(), observations[at]);
        }
        return true;
    }

private:
    // A file of more observations would fill a hundred gigabytes.
    static std::uint32_t number(std::size_t index)
    {
        if (index > std::numeric_limits<std::uint32_t>::max()) {
            throw std::length_error("more observations than can be numbered");
        }
        return static_cast<std::uint32_t>(index);
    }

    // The observations of a track, of which each leads to the next.
    struct Span
    {
        std::uint32_t first;
        std::uint32_t last;
        std::uint32_t count;
    };

    TextIndex objects;
    std::vector<Span> spans; // of each object
    ChunkedList<Observation> observations;
    ChunkedList<std::uint32_t> following; // the next observation of the same object
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
    bool next(TrackVtorichka& track, FillHead fillHead)
    {
        if (count() == 0) {
            return false;
        }
        const Entry& entry = tracks[taken++];
        resetHead(track);
        fillHead(track, entry.head);
        NewMarks newMarks(track, entry.end - entry.begin);
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
