// Rule tally: how often the tracks of a work break each rule of a receiver. A finding's text and places are
// those of the first marks that break the rule; others are only counted.
//
//   if (tally.count(Rule::seconds)) {
//       tally.keep(Rule::seconds, finding("V313", ...), placeOf(track, index));
//   }

#pragma once

#include "findings/finding.h"
#include "records/track.h"

#include <cstddef>
#include <vector>

namespace companion {

/// The place of a mark of a track: object, number and time.
MarkPlace placeOf(const tavelinUtils::TrackVtorichka& track, std::size_t mark);

/// Counts by rule. Rules are numbered from 0 in the order in which their findings are wanted.
class RuleTally
{
public:
    /// Counts breaks of a rule. Says whether the finding is to be kept, which is so for the first few.
    bool count(std::size_t rule, std::size_t breaks = 1)
    {
        if (rule >= entries.size()) {
            entries.resize(rule + 1);
        }
        entries[rule].breaks += breaks;
        return entries[rule].kept.size() < mostPlaces;
    }

    /// Keeps the finding of a mark that breaks the rule.
    void keep(std::size_t rule, Finding found, MarkPlace place);

    /// A finding for each rule that was broken: the first one's text, with the number of all.
    std::vector<Finding> findings() const;

private:
    static constexpr std::size_t mostPlaces = 3;

    struct Kept
    {
        Finding found;
        MarkPlace place;
    };
    struct Entry
    {
        std::size_t breaks = 0;
        std::vector<Kept> kept{};
    };

    std::vector<Entry> entries;
};

} // namespace companion
