// ADES copy: tracks as a document of ADES 2022 that the Minor Planet Center takes, a block for each station.

#pragma once

#include "receivers/copy_tally.h"

#include <vector>

namespace companion {

/// The two forms of a document.
enum class AdesForm
{
    xml,
    psv
};

/// The document of all marks that are not refused, in the order of station and time.
Copy adesCopy(const std::vector<CopyTrack>& tracks, const CopySettings& settings, AdesForm form);

} // namespace companion
