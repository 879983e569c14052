// Observation notes: how a position was observed, by the letter of column 15 in 80 columns and by the word
// that ADES has for it.

#pragma once

#include "findings/finding.h"

#include <optional>
#include <string>
#include <string_view>

namespace companion {

/// The word for a letter of column 15; empty for one that ADES has no word for.
std::string modeOfNote(char letter);

/// The letter for a word, a C for an empty one; nothing for a word that has none.
std::optional<char> noteOfMode(std::string_view mode);

/// The letter of a copy: that of the report the observation comes from where the mode is still the same, and
/// that of the mode otherwise. Nothing for a mode that has none.
std::optional<char> noteOfCopy(char ofReport, std::string_view mode);

/// Why an observation with this letter cannot be written again on a line of its own; nothing for one that
/// can.
std::optional<Finding> faultOfNote(char letter);

} // namespace companion
