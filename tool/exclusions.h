// Excluded marks: those that a task leaves out of a report.

#pragma once

#include "records/track.h"
#include "task.h"

#include <cstddef>
#include <vector>

/// Removes the excluded marks, one entry after the other: the indices of an entry count in the marks that the
/// entries before it left. A mark with the code "bad_parts" goes with the first entry for its track, even if
/// that entry has no indices. Tracks and marks that do not exist are skipped. InterBlobs, Candidates and Cast
/// keep their length.
void DeleteBlobs(const std::vector<tavelinUtils::TExcludBlobs>& excludes,
                 std::vector<tavelinUtils::TrackVtorichka>& tracks);

/// The same for one track of a list, counted from 0.
class Exclusions
{
public:
    /// The entries must outlive the object.
    explicit Exclusions(const std::vector<tavelinUtils::TExcludBlobs>& excludes);

    void applyTo(std::size_t number, tavelinUtils::TrackVtorichka& track) const;

private:
    std::vector<const tavelinUtils::TExcludBlobs*> entries; // by track, those of one in their order
};
