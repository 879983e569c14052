// Track times: whether the marks of tracks stand in the order of time, and which of them share a time.

#pragma once

#include "records/track.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace companion {

class LintOutput;
struct Stretch;

/// What the times of a file's marks are like: found out from its tracks, so that a checker of lines only
/// looks closer where there is something to find.
class TrackTimes
{
public:
    /// Tracks are known by the names of their objects, where a reader gathers marks by them; otherwise by
    /// their numbers, from 0.
    explicit TrackTimes(bool areByName) : byName(areByName)
    {
    }

    /// Takes the next track.
    void add(const tavelinUtils::TrackVtorichka& track);

    /// To be called after the last track.
    void finish();

    /// Whether marks of one object share a time, or do not stand in the order of time.
    bool areOdd() const
    {
        return hasDisorder || !shared.empty();
    }

    /// Whether the marks of a track do not stand in the order of time.
    bool areDisordered() const
    {
        return hasDisorder;
    }

    /// Whether several marks of a track have this date and time.
    bool isShared(std::string_view track, int date, double time) const;

private:
    bool byName;
    std::size_t tracks = 0;
    bool hasDisorder = false;
    std::vector<std::uint64_t> shared{}; // hashes of track, date and time, in order
};

/// Gives the findings of marks that share a time (V131) or stand before an earlier one (V132), line by line.
class TimeFindings
{
public:
    /// Takes the mark of the present line. The track is the name or the number that TrackTimes knows it by.
    void mark(std::string_view track, int date, double time, const Stretch& stretch, LintOutput& out);

private:
    struct Last
    {
        double moment;
        bool told;
    };
    std::unordered_map<std::string, Last> last{};
};

} // namespace companion
