// Explanations: what `tavelin explain` says of a thing, as text and as JSON.

#pragma once

#include "findings/finding_table.h"
#include "out/json.h"
#include "reading/format_facts.h"
#include "reading/result_entries.h"
#include "task/checked_task.h"

#include <string>
#include <vector>

namespace companion {

/// What is said of a thing.
struct Explanation
{
    std::string text{}; ///< whole lines
    Json json = Json::object();
    bool tellsOfFailure = false; ///< of a result file with an entry that is none of success
};

/// Of a finding: text, what happens, what to do, an example, the page.
Explanation explanationOf(const FindingRow& row);

/// Of a code of result files that the library's table has.
Explanation explanationOfCode(int code);

/// Of a format: its digits, what it is recognised by, how its marks are counted.
Explanation explanationOf(const FormatFacts& facts);

/// Of a result file: each entry, what it means, and the files that it names.
Explanation explanationOfResult(const std::string& path, const std::vector<ResultEntry>& entries);

/// Of a task that the tool can load: what it reads, what it does with the tracks, what it writes.
Explanation explanationOf(const CheckedTask& checked);

/// The table of findings as the page docs/findings.md.
std::string findingsPage();

} // namespace companion
