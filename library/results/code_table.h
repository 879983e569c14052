// The codes of results, shared by all modules of the pipeline, and their texts.

#pragma once

#include "../export.h"
#include "result.h"

#include <string>
#include <vector>

namespace TAVELIN_API tavelinUtils {

/// The codes that the library and the converter set themselves. The other rows of the table belong to other
/// modules of the pipeline.
namespace resultCode {

// The converter's own: their comments are set by hand, the table has other texts for these numbers.
inline constexpr int outputIsInput = -3;       ///< the output path is the input path
inline constexpr int unknownOutputFormat = -2; ///< no format has the task's output word
inline constexpr int runFailed = -1;           ///< nothing was converted, or a report lacks something

inline constexpr int noResultFile = -1;               ///< there is no result file to read
inline constexpr int success = 0;                     ///< all is well
inline constexpr int noParameterFile = 1;             ///< a parameter file does not exist
inline constexpr int emptyFile = 2;                   ///< a file holds too little to be read
inline constexpr int noFile = 4;                      ///< a file does not exist
inline constexpr int unreadableFile = 5;              ///< a file exists and its content cannot be read
inline constexpr int noFolder = 6;                    ///< the folder of an output does not exist
inline constexpr int unopenedFile = 7;                ///< a file cannot be opened, read or written
inline constexpr int undeterminedConfiguration = 123; ///< no configuration was found for a series
inline constexpr int noConfiguration = 138;           ///< a configuration file does not exist
inline constexpr int brokenConfiguration = 139;       ///< a configuration file cannot be loaded
inline constexpr int settingOutOfRange = 142;         ///< settings lie outside the range of allowed values

} // namespace resultCode

/// The text of a code; "UnknownErr" for a code without a row. The texts of codes 138, 142 and 1901 end
/// in a blank and that of 149 in "$", because the caller adds a name or a time.
std::string GetTextCode(int code);

/// The codes that have a row, in ascending order.
std::vector<int> codesWithText();

/// A result of the code, its text as comment and the given text as description. An empty description
/// becomes a copy of the comment.
TFuncRes GetErrCode(int code, std::string description);

/// Throws the TavelinException that is made of the same result.
[[noreturn]] void throwErrCode(int code, const std::string& description);

} // namespace tavelinUtils
