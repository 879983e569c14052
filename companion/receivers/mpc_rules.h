// MPC rules: what the Minor Planet Center refuses, or takes for something else, of 80-column records.

#pragma once

#include "receivers/track_rules.h"

#include <memory>
#include <string>
#include <string_view>

namespace companion {

/// What is wrong with a band of several letters.
inline constexpr std::string_view bandOfSeveral = "the band is one letter, and columns 72 to 77 are blank";

/// Why the text of columns 71 to 77 is no band, as the end of a sentence; empty where it is one, or blank.
std::string_view faultOfBand(std::string_view band);

/// Whether a name is written as the receiver asks for it: initials with points, a blank after each, and a
/// surname that is not all in capitals: "J. R. Tolkien".
bool isPersonName(std::string_view name);

/// The rules for tracks that are to be written as an MPC report.
std::unique_ptr<TrackRules> mpcTrackRules();

} // namespace companion
