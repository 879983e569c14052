#include "command/subcommand.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <iostream>
#include <string>
#include <unistd.h>
#include <vector>

namespace {

bool showsColor()
{
    const char* const terminal = std::getenv("TERM");
    const char* const noColor = std::getenv("NO_COLOR");
    const bool isDumb = terminal != nullptr && std::strcmp(terminal, "dumb") == 0;
    return isatty(STDOUT_FILENO) == 1 && !isDumb && (noColor == nullptr || *noColor == 0);
}

} // namespace

int main(int argc, char** argv)
{
    std::ios::sync_with_stdio(false);
    companion::Console console{std::cout, std::cerr};
    console.look.color = showsColor();
    console.look.progress =
        isatty(STDERR_FILENO) == 1 ? companion::ProgressStyle::bar : companion::ProgressStyle::none;
    return companion::runCommand(std::vector<std::string>(argv + std::min(argc, 1), argv + argc), console);
}
