// MPC copy: tracks as a report in 80 columns that the Minor Planet Center takes, with a header for each
// station.

#pragma once

#include "receivers/copy_tally.h"

#include <string_view>
#include <vector>

namespace companion {

/// The report of all marks that are not refused, in the order of station, object and time.
Copy mpcCopy(const std::vector<CopyTrack>& tracks, const CopySettings& settings);

/// Whether a text is the code of a station: three capital letters or digits, and not the geocentre.
bool isStationCode(std::string_view text);

/// Whether a text can only be such a code, and not the name of a telescope: it has two digits at its end.
bool isOnlyStationCode(std::string_view text);

} // namespace companion
