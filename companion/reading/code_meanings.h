// Code meanings: what the codes of result files say. The tool's own -1, -2, -3, 0 and 7 are told apart by
// their texts; all others are those of the library's table, which other modules of the pipeline use.

#pragma once

#include "reading/result_entries.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace companion {

/// What the tool says with a code and texts of a kind.
struct CodeMeaning
{
    int code;
    std::string_view texts; ///< which comment and description come with it
    std::string_view meaning;
    std::string_view remedy;
    bool (*isOf)(const ResultEntry& entry); ///< whether an entry of the code has these texts
};

/// All meanings of the tool's own codes.
std::span<const CodeMeaning> toolMeanings();

/// Those of one code.
std::vector<CodeMeaning> toolMeaningsOf(int code);

/// What the tool says with an entry; a null pointer for an entry that the tool does not make.
const CodeMeaning* toolMeaning(const ResultEntry& entry);

/// What the library means by a code that it sets itself; empty for the codes of other modules.
std::string_view libraryMeaning(int code);

/// Whether the library's table has a code.
bool isResultCode(int code);

/// Whether an entry tells of a failure. Other modules also use 100 for success.
bool tellsOfFailure(const ResultEntry& entry);

/// The files that an entry of the tool says it tried to write.
std::vector<std::string> namedFiles(const ResultEntry& entry);

} // namespace companion
