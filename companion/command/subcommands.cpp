#include "command/subcommands.h"

namespace companion {
namespace {

constexpr const Subcommand* rows[] = {
    &checkCommand, &runTasksCommand, &explainCommand, &infoCommand,
    &lintCommand,  &schemaCommand,   &plotCommand,
};

} // namespace

std::span<const Subcommand* const> subcommands()
{
    return rows;
}

} // namespace companion
