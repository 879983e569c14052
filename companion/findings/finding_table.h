// Finding table: every finding of the command, one row each. Messages, `tavelin explain` and docs/findings.md
// come from it. A code is never used for anything else.

#pragma once

#include "findings/finding.h"

#include <span>
#include <string_view>

namespace companion {

/// A row of the table.
struct FindingRow
{
    FindingCode code;
    Severity severity;
    bool refuses;             ///< `tavelin run` does not start a task that has it
    std::string_view by;      ///< who finds it, a letter each: c check, l lint, r run, y ready, n normalise
    std::string_view text;    ///< the sentence, with fields in braces
    std::string_view happens; ///< whole sentences: what the tool makes of it, or why it matters
    std::string_view remedy;  ///< whole sentences: what to do
};

/// All rows, by code.
std::span<const FindingRow> findingTable();

/// The row of a code; a null pointer where there is none.
const FindingRow* findingRow(FindingCode code);

/// The page of the documentation that says more about a code: "docs/task_file.md".
std::string_view pageOf(FindingCode code);

} // namespace companion
