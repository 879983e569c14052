// Input reading: the inputs of a checked task, read anew, to hold the accounts of the check against.

#pragma once

#include "task/checked_task.h"

#include <cstddef>
#include <string>
#include <vector>

/// What readers make of the inputs.
struct InputReading
{
    std::size_t linesLost = 0;                ///< lost, refused, or a mark's line that was skipped
    std::vector<std::string> disagreements{}; ///< sentences; none: the accounts of the check are right
};

/// Reads the inputs of a task that was loaded, with a watch and without one.
InputReading readInputs(const companion::CheckedTask& checked);
