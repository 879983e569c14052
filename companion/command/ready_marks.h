// Ready marks: how many marks a copy holds, counted from its text by the layout of its form and not by what
// wrote it.

#pragma once

#include "findings/finding.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace companion {

/// The marks of the text of a copy, whose format is a name of reading/signatures.h.
std::size_t marksOfCopy(const std::string& text, std::string_view format);

/// The finding (V490, without a file) of a text that holds other marks than it should; nothing where it holds
/// so many.
std::optional<Finding> disagreement(const std::string& text, std::string_view format, std::size_t marks);

} // namespace companion
