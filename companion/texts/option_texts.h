// Option texts: what completions and manual pages take from the rows of options.

#pragma once

#include "command/subcommand.h"

#include <string>
#include <string_view>
#include <vector>

namespace companion {

/// The options of a subcommand and those that all have.
std::vector<OptionRow> allOptionsOf(const Subcommand& subcommand);

/// The words that an option takes; none where it takes any value, or none at all.
std::vector<std::string> wordsOf(const OptionRow& row);

/// Whether the value of an option is the name of a file or folder.
bool takesPath(const OptionRow& row);

/// The operands that a subcommand knows by name; none where they are files.
std::vector<std::string> operandWords(const Subcommand& subcommand);

/// A text with a backslash before each of some characters.
std::string backslashed(std::string_view text, std::string_view characters);

} // namespace companion
