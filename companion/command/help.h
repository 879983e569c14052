// Help: the texts of `--help`, made from the rows of the subcommands.

#pragma once

#include "command/subcommand.h"

#include <string>

namespace companion {

/// The help of the command: its subcommands, a line each.
std::string helpOfAll();

/// The help of a subcommand: two examples, the synopsis, its options and those that all subcommands have.
std::string helpOf(const Subcommand& subcommand);

} // namespace companion
