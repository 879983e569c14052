// AAVSO rules: what an upload of the AAVSO Extended File Format refuses, or takes for something else.

#pragma once

#include "receivers/track_rules.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace companion {

/// Whether a word is a filter for new work; case means nothing.
bool isAavsoFilter(std::string_view word);

/// Whether a text is the code of an observer, and none of the words that stand for one.
bool isObserverCode(std::string_view code);
/// The character that the value of #DELIM stands for: the words comma and tab, one character, or the decimal
/// code of one; nothing for a value that the receiver refuses.
std::optional<char> aavsoDelimiter(std::string_view value);

/// Whether a file name has one of the extensions that the upload takes.
bool isAavsoFileName(const std::string& path);

/// The rules for tracks that are to be written as an AAVSO report.
std::unique_ptr<TrackRules> aavsoTrackRules();

} // namespace companion
