// Converted keys: the keys of a configuration whose text a conversion takes, and what it takes.

#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace companion {

/// A key whose text is one of a few words, or the type of another text.
struct ConvertedKey
{
    std::string_view key;
    const char* type;  ///< its name in the schema
    const char* words; ///< with blanks between; empty where the text is none of a few words
    const char*
        ofNone; ///< what a file without the key has, as the key would say it; empty for no word, no area
};

/// All rows.
std::span<const ConvertedKey> convertedKeyTable();

/// The row of a key. Throws std::logic_error where there is none.
const ConvertedKey& convertedKey(std::string_view key);

/// The words of a row.
std::vector<std::string> wordsOf(const ConvertedKey& row);

} // namespace companion
