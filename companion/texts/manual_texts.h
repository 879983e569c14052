// Manual texts: pages for scdoc whose prose is written by hand and whose tables are made from the rows of the
// subcommands, or from those of keys, codes, columns and formats.
//
//   ; made: options
//   # OPTIONS
//   ...
//   ; end

#pragma once

#include <string>
#include <string_view>

namespace companion {

/// A page with each stretch between "; made: SECTION" and "; end" as the tables make it. Sections are "name",
/// "synopsis", "options" and "examples" of the subcommand, and those that need none: "subcommands", the names
/// of madeTable, and "table PAGE COLUMNS HEADING", those of manualTableOfPage for a page below the present
/// folder. Throws std::runtime_error for an unknown section and for a stretch that does not end.
std::string manualWithTables(std::string_view page, std::string_view subcommand);

} // namespace companion
