// Completion texts: what shells read to complete the command's subcommands, options and words.

#pragma once

#include <string>
#include <string_view>

namespace companion {

/// The completion of "bash", "zsh" or "fish"; empty for another shell.
std::string completionOf(std::string_view shell);

} // namespace companion
