// Shown line: a line of a file below a finding, with a caret below the place.

#pragma once

#include "findings/finding.h"

#include <string>

namespace companion {

/// The line of a place and a line with a caret and tildes below it, each indented by four blanks and with a
/// line feed. Bytes that are no printable ASCII are shown as "\xE9". Of a long line only what surrounds the
/// place. Empty where the place has no column.
std::string shownLine(const FindingPlace& place);

} // namespace companion
