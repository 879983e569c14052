// TDM copy: tracks as a CCSDS Tracking Data Message of version 2.0, a segment for each track and band.

#pragma once

#include "receivers/copy_tally.h"

#include <vector>

namespace companion {

/// The two forms of a message.
enum class TdmForm
{
    text,
    xml
};

/// The message of all marks that are not refused; those of a segment are in the order of time.
Copy tdmCopy(const std::vector<CopyTrack>& tracks, const CopySettings& settings, TdmForm form);

} // namespace companion
