// The codes of results, shared by all modules of the pipeline, and their texts.

#pragma once

#include "result.h"

#include <string>

namespace tavelinUtils {

/// The text of a code; "UnknownErr" for a code without a row. The texts of codes 138, 142 and 1901 end
/// in a blank and that of 149 in "$", because the caller puts a name or a time behind them.
std::string GetTextCode(int code);

/// A result of the code, its text as comment and the given text as description. An empty description
/// becomes a copy of the comment.
TFuncRes GetErrCode(int code, std::string description);

/// Throws the TavelinException that is made of the same result.
[[noreturn]] void throwErrCode(int code, const std::string& description);

} // namespace tavelinUtils
