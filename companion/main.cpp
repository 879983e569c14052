#include "command/subcommand.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <iostream>
#include <string>
#include <vector>

#include <fcntl.h>
#include <unistd.h>

namespace {

bool showsColor()
{
    const char* const terminal = std::getenv("TERM");
    const char* const noColor = std::getenv("NO_COLOR");
    const bool isDumb = terminal != nullptr && std::strcmp(terminal, "dumb") == 0;
    return isatty(STDOUT_FILENO) == 1 && !isDumb && (noColor == nullptr || *noColor == 0);
}

// A file that is opened must not take the place of a standard stream that the caller has closed: what is
// printed would go into it. Writing to what stands there fails as it does to a closed one.
void fillClosedStreams()
{
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        if (fcntl(stream, F_GETFD) < 0) {
            open("/dev/null", stream == STDIN_FILENO ? O_WRONLY : O_RDONLY);
        }
    }
}

} // namespace

int main(int argc, char** argv)
{
    fillClosedStreams();
    std::ios::sync_with_stdio(false);
    companion::Console console{std::cout, std::cerr};
    console.look.color = showsColor();
    console.look.progress =
        isatty(STDERR_FILENO) == 1 ? companion::ProgressStyle::bar : companion::ProgressStyle::none;
    return companion::runCommand(std::vector<std::string>(argv + std::min(argc, 1), argv + argc), console);
}
