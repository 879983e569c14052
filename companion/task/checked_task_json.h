// Checked task JSON: the plan and the accounts of a checked task as JSON values.

#pragma once

#include "out/json.h"
#include "task/checked_task.h"

namespace companion {

/// The plan: the path of the result file, the code that it would hold, or "dies", and the files in the order
/// of writing.
Json planJson(const CheckedTask& checked);

/// The accounts: the lines of all inputs by their fates, and the marks by what becomes of them.
Json accountingJson(const CheckedTask& checked);

} // namespace companion
