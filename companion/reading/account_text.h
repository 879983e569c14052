// Account text: the account of a file, and totals, as people and programs read them.

#pragma once

#include "findings/finding.h"
#include "out/json.h"
#include "reading/file_account.h"

#include <string>

namespace companion {

/// "12 lines: 1 head, 10 marks, 1 skipped": heads, marks and skipped lines always, the others where there are
/// any.
std::string accountText(const FileAccount& account);

/// The same as an object.
Json accountJson(const FileAccount& account);

/// "2 errors, 1 warning": those that there are; "nothing found" where there are none.
std::string briefTotals(const FindingTotals& totals);

} // namespace companion
