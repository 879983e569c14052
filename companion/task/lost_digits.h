// Lost digits: marks with more digits than the format that they are written in has room for.

#pragma once

#include "findings/finding.h"
#include "records/track.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <string_view>

namespace companion {

/// Counts the marks that lose digits. How many digits a mark has is seen at its values, in the unit in which
/// its input gives them: one that another unit brings out a little off, and that comes back right, has lost
/// none.
class LostDigits
{
public:
    /// For a task of these format words; "vomar" is an input of track tables.
    LostDigits(std::string_view input, std::string_view output);
    ~LostDigits();
    LostDigits(const LostDigits&) = delete;
    LostDigits& operator=(const LostDigits&) = delete;

    /// Looks at the marks of a track that is written.
    void see(const tavelinUtils::TrackVtorichka& track);

    /// The finding V075; nothing where no mark loses digits.
    std::optional<Finding> found() const;

private:
    struct State;

    std::unique_ptr<State> state;
};

} // namespace companion
