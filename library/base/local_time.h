// Local time: a moment in the time zone of the process.

#pragma once

#include <ctime>
#include <optional>

namespace tavelinUtils {

/// The local date and time of a moment, as std::localtime gives them, but not in the buffer that all threads
/// share; none where the year does not fit.
std::optional<std::tm> localTime(std::time_t moment);

} // namespace tavelinUtils
