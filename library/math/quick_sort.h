// Orders for sorting.

#pragma once

#include <string>

namespace tavelinUtils {

/// Whether a sorts before b by plain byte comparison, the shorter first on a common prefix.
inline bool mycomp(std::string a, std::string b)
{
    return a < b;
}

} // namespace tavelinUtils
