// Manual tables: the parts of manual pages that say which keys, codes, columns and words there are.

#pragma once

#include <string>
#include <string_view>

namespace companion {

/// A made part of a page, for scdoc; empty for a name that no table has:
///
/// task-keys           the keys of a conversion; a report takes some of them
/// report-keys         those of a report alone
/// series-keys         those of a series of a report
/// configuration-keys  those of a configuration, section by section
/// header-words        the words of its header keys
/// filter-letters      the elements of its filter names
/// tool-codes          what the tool says with its own codes
/// library-codes       what the library means by the codes that it sets
/// codes               all codes with their texts
/// standard-columns    the columns of a track table's standard header
/// further-columns     those of other headers
/// formats             the formats, and which of them a task reads and writes
/// format NAME         what a format keeps
std::string madeTable(std::string_view name);

} // namespace companion
