// Task operands: the tasks that a call names.

#pragma once

#include "command/subcommand.h"

#include <string>
#include <vector>

namespace companion {

/// The tasks of a call in their order, each once.
std::vector<std::string> taskOperands(const Arguments& arguments);

} // namespace companion
