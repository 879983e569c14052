// AAVSO copy: tracks as a report of variable stars in the Extended File Format.

#pragma once

#include "receivers/copy_tally.h"

#include <string>
#include <vector>

namespace companion {

/// The report of all marks that are not refused, in their order.
Copy aavsoCopy(const std::vector<CopyTrack>& tracks, const CopySettings& settings);

} // namespace companion
