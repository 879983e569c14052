// Track gathering: observations in the order of a file become tracks, one for each object.
//
// A mark is large, so the lists of marks are made at once in their final size: the observations are
// collected in a small form first, and marks are filled when their numbers are known.

#pragma once

#include "../records/track.h"

#include <cstddef>
#include <deque>
#include <string>
#include <string_view>
#include <unordered_map>
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

/// Collects observations by object. Tracks have the order in which their objects were first named,
/// marks the order in which they were added.
template <class Observation>
class TrackGathering
{
public:
    /// Makes room for so many observations.
    void reserve(std::size_t observations)
    {
        entries.reserve(observations);
    }

    void add(std::string_view object, Observation observation)
    {
        const std::size_t track = trackOf(object);
        ++counts[track];
        entries.emplace_back(track, std::move(observation));
    }

    /// The tracks, whose heads `fillHead(track, name)` fills and whose new marks `fillMark(mark,
    /// observation)`.
    template <class FillHead, class FillMark>
    std::vector<TrackVtorichka> tracks(FillHead fillHead, FillMark fillMark) const
    {
        std::vector<TrackVtorichka> gathered(names.size());
        for (std::size_t i = 0; i < gathered.size(); ++i) {
            fillHead(gathered[i], names[i]);
            gathered[i].Marks.reserve(counts[i]);
        }
        for (const auto& [track, observation] : entries) {
            fillMark(gathered[track].Marks.emplace_back(), observation);
        }
        return gathered;
    }

private:
    std::size_t trackOf(std::string_view object)
    {
        // As a rule the lines of an object follow each other.
        if (!names.empty() && names[last] == object) {
            return last;
        }
        const auto known = indices.find(object);
        if (known != indices.end()) {
            return last = known->second;
        }
        last = names.size();
        indices.emplace(names.emplace_back(object), last);
        counts.push_back(0);
        return last;
    }

    std::deque<std::string> names; // stays in place as it grows: the index refers to it
    std::unordered_map<std::string_view, std::size_t> indices;
    std::vector<std::size_t> counts;
    std::vector<std::pair<std::size_t, Observation>> entries;
    std::size_t last = 0;
};

/// Collects measured marks track after track: each goes to the track that was added last.
class TrackSequence
{
public:
    /// Makes room for so many marks.
    void reserve(std::size_t count)
    {
        marks.reserve(count);
    }

    /// Adds a track, whose head may be filled until the tracks are taken.
    TrackVtorichka& addTrack()
    {
        spans.push_back({marks.size(), marks.size()});
        return heads.emplace_back();
    }

    bool empty() const
    {
        return heads.empty();
    }

    TrackVtorichka& lastTrack()
    {
        return heads.back();
    }

    void addMark(const MeasuredMark& mark)
    {
        marks.push_back(mark);
        spans.back().end = marks.size();
    }

    /// How many marks have been added.
    std::size_t markCount() const
    {
        return marks.size();
    }

    /// Lets the last track begin with an earlier mark, by the number of marks before it: the marks from there
    /// on are repeated in it.
    void beginLastTrackAt(std::size_t mark)
    {
        spans.back().begin = mark;
    }

    /// How many marks the tracks have together, repeated ones as often as they come.
    std::size_t marksOfTracks() const
    {
        std::size_t total = 0;
        for (const Span& span : spans) {
            total += span.end - span.begin;
        }
        return total;
    }

    /// The tracks with their marks; the sequence is empty afterwards.
    std::vector<TrackVtorichka> takeTracks()
    {
        for (std::size_t i = 0; i < heads.size(); ++i) {
            heads[i].Marks.reserve(spans[i].end - spans[i].begin);
            for (std::size_t mark = spans[i].begin; mark < spans[i].end; ++mark) {
                setMeasured(heads[i].Marks.emplace_back(), marks[mark]);
            }
        }
        spans.clear();
        marks.clear();
        return std::exchange(heads, {});
    }

private:
    // The marks of a track.
    struct Span
    {
        std::size_t begin;
        std::size_t end;
    };

    std::vector<TrackVtorichka> heads;
    std::vector<Span> spans; // of each track
    std::vector<MeasuredMark> marks;
};

} // namespace tavelinUtils
