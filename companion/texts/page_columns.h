// Page columns: tables of the pages in docs/ as tables of manual pages, so that both say the same.

#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace companion {

/// Some columns, counted from 1, of the first table of a page in Markdown whose first heading is the given
/// one, for scdoc. Code becomes bold, and a link is its text alone. Throws std::runtime_error where the page
/// has no such table, and std::out_of_range where a row lacks a column.
std::string manualTableOfPage(std::string_view page, const std::vector<int>& columns,
                              std::string_view heading);

} // namespace companion
