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
extern const Subcommand readyCommand;
extern const Subcommand normaliseCommand;
extern const Subcommand batchCommand;
extern const Subcommand diffCommand;
extern const Subcommand convertCommand;
extern const Subcommand reportCommand;
extern const Subcommand plotCommand;
extern const Subcommand pageCommand;

} // namespace companion
