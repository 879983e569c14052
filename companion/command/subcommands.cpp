#include "command/subcommands.h"

namespace companion {
namespace {

constexpr const Subcommand* rows[] = {
    &checkCommand,   &runTasksCommand, &explainCommand,   &infoCommand,  &lintCommand,
    &schemaCommand,  &readyCommand,    &normaliseCommand, &batchCommand, &diffCommand,
    &convertCommand, &reportCommand,   &plotCommand,      &pageCommand,
};

} // namespace

std::span<const Subcommand* const> subcommands()
{
    return rows;
}

} // namespace companion
