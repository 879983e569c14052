// Finding JSON: findings as JSON values.

#pragma once

#include "findings/finding.h"
#include "out/json.h"

#include <optional>

namespace companion {

/// A finding as an object: code, severity, file, line and column where there are any, text, count, and its
/// places. A place has the members that are known: of a file line, column, length, snippet, field and value,
/// of a mark series, folder, track, object, mark and time.
Json findingJson(const Finding& found);

/// The finding of such an object, less its places; nothing for another value.
std::optional<Finding> findingIn(const JsonView& object);

/// Totals as an object: errors, warnings, notes.
Json totalsJson(const FindingTotals& totals);

} // namespace companion
