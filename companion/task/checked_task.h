// Checked task: all that `check` finds out about a task, for those that go on with it.

#pragma once

#include "findings/finding.h"
#include "reading/lint.h"
#include "task/configuration_checks.h"
#include "task/path_checks.h"
#include "task/plan.h"
#include "task/task_document.h"

#include <memory>
#include <set>
#include <string>
#include <vector>

namespace companion {

class InputReader;

/// How tasks are checked.
struct CheckSettings
{
    bool quick = false;     ///< looks at the task and at the states of files only
    std::string receiver{}; ///< whose rules of form are listed in full
    std::string folder{};   ///< from which relative paths count; empty: the present one
};

/// An input of a task and what was read of it.
struct CheckedInput
{
    std::string path;
    std::string format;
    FileAccount account;
};

/// A task and all that was found out about it.
struct CheckedTask
{
    std::string path;
    bool isLoaded = false; ///< the tool can load it, and its walk ends
    bool isReport = false;
    TaskDocument document{};
    tavelinUtils::TConvMea written{}; ///< as the file says
    tavelinUtils::TConvMea task{};    ///< with the folder that the tool would take as out_dir
    std::vector<CheckedInput> inputs{};
    std::vector<std::string> configurations{}; ///< that the series of a report take, each once
    bool hasPlan = false;
    Plan plan{};
    std::vector<Finding> findings{}; ///< in the order in which they are shown

    /// The lines of all inputs by their fates.
    FileAccount lines() const;
    /// Whether the run of the task is refused for a finding whose code is not allowed.
    bool isRefused(const std::set<FindingCode>& allowed) const;
};

/// Checks tasks. What several tasks read is looked at once.
class TaskChecker
{
public:
    explicit TaskChecker(CheckSettings settings);
    ~TaskChecker();
    TaskChecker(const TaskChecker&) = delete;
    TaskChecker& operator=(const TaskChecker&) = delete;

    /// Checks one task. Nothing is written.
    CheckedTask check(const std::string& path);

    /// The same for a task that was read already.
    CheckedTask check(TaskDocument document);

private:
    CheckSettings settings;
    std::unique_ptr<InputReader> reader;
    SeriesSettings series;
    SharedOutputs outputs;
};

} // namespace companion
