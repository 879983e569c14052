// Dictionaries: the words of a format in the form of libFuzzer, for mutators that put them in places of their
// own.

#pragma once

#include <string>
#include <string_view>
#include <vector>

/// The words of a dictionary, in its order: of each line what is between the first quote and the last, with
/// "\\", "\"" and "\xAB" read as what they stand for. Lines without two quotes, and remarks, have none.
std::vector<std::string> wordsOfDictionary(std::string_view text);
