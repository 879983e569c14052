// Lines of SSMAS.

#pragma once

#include <string>

namespace ssmasLines {

/// The line above the marks of an object.
inline const std::string columnLine = "   Data        UT           CU           DE      RMS  m";
/// The line of the mark of `theMark`.
inline const std::string markLine = "25.02.2023 12:00:00.00  01:00:00.00 -00.30.00.00 001 09.5";

/// That line with another magnitude.
inline std::string markOf(const std::string& m)
{
    return "25.02.2023 12:00:00.00  01:00:00.00 -00.30.00.00 001 " + m;
}

} // namespace ssmasLines
