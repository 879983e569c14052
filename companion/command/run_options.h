// Run options: what the subcommands that start the tool say about its runs.

#pragma once

#include "command/subcommand.h"
#include "command/task_runner.h"

#include <cstddef>
#include <string>

namespace companion {

inline constexpr OptionRow timeLimitRow{"time-limit", 0, "T",
                                        "end each run after this time: 90s, 10m, 2h; default 1h"};
inline constexpr OptionRow memoryLimitRow{"memory-limit", 0, "M",
                                          "memory of each run: 500M, 2G; default none"};
inline constexpr OptionRow verifyRow{"verify", 0, "count|full|none",
                                     "the files: count their marks, compare each, or neither; default count"};
inline constexpr OptionRow toolRow{"vomar", 0, "PATH",
                                   "the tool; default: beside this program, then in the search path"};

/// The settings by these options and by "allow". Throws WrongUsage for a value that cannot be taken, and
/// where there is no tool (V402).
RunSettings runSettings(const Arguments& arguments);

/// A whole number from 0 to 10,000 that an option gives, or the other one where it was not given. Throws
/// WrongUsage for another text.
std::size_t numberOf(const Arguments& arguments, const std::string& option, std::size_t otherwise);

/// A call with an option whose value cannot be taken: the problem follows the option's name.
WrongUsage wrongValue(const std::string& option, const std::string& problem);

} // namespace companion
