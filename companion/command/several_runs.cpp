#include "command/several_runs.h"

#include <algorithm>
#include <thread>

namespace companion {

RunSettings settingsOfSeveral(const Arguments& arguments)
{
    RunSettings settings = runSettings(arguments);
    const std::size_t jobs = numberOf(arguments, "jobs", 1);
    settings.jobs = jobs != 0 ? jobs : std::max(1U, std::thread::hardware_concurrency());
    settings.anyway = arguments.has("anyway");
    settings.stopAfter = numberOf(arguments, "stop-after", 0);
    return settings;
}

} // namespace companion
