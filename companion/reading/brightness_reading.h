// Brightness reading: light curves and AAVSO reports as tracks, which no reader of the tool makes of them.

#pragma once

#include "reading/true_reading.h"

#include <functional>
#include <string>
#include <string_view>

namespace companion {

/// Whether a format holds brightness over time and no places: "mag" or "aavso".
bool isOfBrightness(std::string_view format);

/// Reads such a file and gives each track to a user: all marks of one object, in the order in which objects
/// first occur. There are no places. Of a light curve `m` is the apparent magnitude, and the others are where
/// they belong; an AAVSO report has one, which is `m` and `mEnsemble`, with its error as `SNRpeak`. Lines
/// that are no marks are in the findings. Throws WrongUsage (V003) for a file that cannot be read.
TrueOutcome readBrightness(const std::string& path, std::string_view format,
                           const std::function<void(TrueTrack&)>& use);

} // namespace companion
