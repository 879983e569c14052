// ADES reading: optical observations of the exchange format of the Minor Planet Center as tracks, which no
// reader of the tool makes of them.

#pragma once

#include "reading/true_reading.h"

#include <functional>
#include <string>
#include <string_view>

namespace companion {

/// Reads a file of the format "ades.xml" or "ades.psv" and gives each track to a user: all marks of one
/// object at one station, in the order in which these first occur. The name is the first there is of
/// `permID`, `provID`, `artSat` and `trkSub`. Observations without a time or a place, such as those by radar,
/// are in the findings. Throws WrongUsage (V003) for a file that cannot be read.
TrueOutcome readAdes(const std::string& path, std::string_view format,
                     const std::function<void(TrueTrack&)>& use);

/// Whether a format is one of the two.
bool isAdes(std::string_view format);

} // namespace companion
