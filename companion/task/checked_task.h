// Checked task: all that `check` finds out about a task, for those that go on with it.

#pragma once

#include "findings/finding.h"
#include "reading/lint.h"
#include "task/plan.h"

#include <set>
#include <string>
#include <vector>

namespace companion {

/// How a task is checked.
struct CheckSettings
{
    bool quick = false;              ///< looks at the task and at the states of files only
    std::string receiver{};          ///< whose rules of form are listed in full
    std::set<std::string> only{};    ///< codes; empty: all
    std::set<std::string> ignored{}; ///< codes
};

/// An input of a task and what was read of it.
struct CheckedInput
{
    std::string path;
    std::string format;
    FileAccount account;
};

/// A task and all that was found out about it. Relative paths count from the present folder.
struct CheckedTask
{
    std::string path;
    bool isLoaded = false; ///< the tool can load it, and its walk ends
    bool isReport = false;
    tavelinUtils::TConvMea task{}; ///< with the folder that the tool would take as out_dir
    std::vector<CheckedInput> inputs{};
    std::vector<std::string> configurations{}; ///< that were taken, for the series of a report
    bool hasPlan = false;
    Plan plan{};
    std::vector<Finding> findings{}; ///< in the order in which they are shown

    /// Whether the run of the task is refused; codes that are allowed do not count.
    bool isRefused(const std::set<std::string>& allowed) const;
};

/// Checks one task. Nothing is written.
CheckedTask checkTask(const std::string& path, const CheckSettings& settings);

} // namespace companion
