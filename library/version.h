// Version: that of the library and of the tool, which go together.

#pragma once

#include "export.h"

#include <string_view>

namespace TAVELIN_API tavelinUtils {

/// The version in three numbers with points between them. The build and the packages take it from this line.
inline constexpr std::string_view version = "0.2.0";

} // namespace tavelinUtils
