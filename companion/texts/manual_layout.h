// Manual layout: pieces of pages for scdoc.

#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace companion {

/// A text as it is, also where it holds marks of emphasis.
std::string plain(std::string_view text);

/// The same in bold; empty for an empty text.
std::string bold(std::string_view text);

/// A term with its description below it, both with their marks.
std::string manualItem(const std::string& term, const std::string& description);

/// A table without rules, from cells with their marks; the first row holds the headings. The last column
/// takes the room that the others leave.
std::string manualTable(const std::vector<std::vector<std::string>>& rows);

} // namespace companion
