// Format suffixes: which format the name of a file asks for.

#pragma once

#include <string>
#include <string_view>

namespace companion {

/// A suffix with its point, and the format word that it stands for.
struct FormatSuffix
{
    std::string_view suffix;
    std::string_view word;
};

/// The row of a file's suffix; a null pointer where it has none that names a format. Suffixes are compared
/// exactly.
const FormatSuffix* formatSuffixOf(std::string_view path);

/// The suffix that files of a format word usually have, with its point; empty for a word that is not known.
std::string usualSuffix(std::string_view word);

/// All suffixes that are known, with blanks between.
std::string knownSuffixes();

} // namespace companion
