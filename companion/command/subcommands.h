// The rows of the subcommands; each stands in the source of its name.

#pragma once

#include "command/subcommand.h"

namespace companion {

extern const Subcommand checkCommand;
extern const Subcommand runTasksCommand; // run
extern const Subcommand explainCommand;
extern const Subcommand infoCommand;
extern const Subcommand lintCommand;
extern const Subcommand schemaCommand;
extern const Subcommand plotCommand;

} // namespace companion
