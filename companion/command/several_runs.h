// Several runs: the options of subcommands that run many tasks, some at once.

#pragma once

#include "command/run_options.h"

namespace companion {

inline constexpr OptionRow jobsRow{"jobs", 'j', "N",
                                   "so many tasks at once, 0 for as many as there are processors; default 1"};
inline constexpr OptionRow allowRow{"allow", 0, "CODES",
                                    "run a task in spite of findings of these codes, with commas between"};
inline constexpr OptionRow anywayRow{
    "anyway", 0, nullptr, "run a task whatever the check finds; one that never ends needs --time-limit too"};
inline constexpr OptionRow stopAfterRow{"stop-after", 0, "N",
                                        "start no more tasks after N that failed; default never"};

/// The settings by these options and by those of each run. Throws WrongUsage as runSettings does.
RunSettings settingsOfSeveral(const Arguments& arguments);

} // namespace companion
