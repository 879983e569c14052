// Configuration keys: what a user configuration may hold, as a list, for programs that describe such files.

#pragma once

#include <string>
#include <vector>

namespace tavelinUtils {

/// What the value of a key is.
enum class ConfigurationValue
{
    number,
    integer,
    flag, ///< true for exactly "true"
    text,
    list,     ///< elements with a text each
    converted ///< a text that a conversion takes: a word, an area, a width in one of two units
};

/// A key of a configuration.
struct ConfigurationKey
{
    std::string section; ///< "basicSettings", "intraframeProcessing/ImageDetection"; empty for the root
    std::string key;
    ConfigurationValue value;
    std::string item; ///< the name of a list's elements, else empty
    std::string
        ofNone; ///< what a file without the key has, as the key would say it; empty where it is converted
};

/// The keys of all sections, in the order of the reader's tables; "TLEs/TLE" stands for each element set.
/// Those of "HeaderSettings" are not among them: their names are no fixed keys.
std::vector<ConfigurationKey> configurationKeys();

/// The words that the attribute "name" of a header key may have.
std::vector<std::string> configurationHeaderWords();

/// The elements of filter names.
std::vector<std::string> configurationFilterLetters();

} // namespace tavelinUtils
