// Task outcome: what came of a task of `tavelin run`, as text and as JSON.

#pragma once

#include "out/json.h"
#include "out/text.h"
#include "running/task_witness.h"
#include "task/checked_task.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace companion {

/// How a task came out.
enum class RunStatus
{
    good,
    findings, ///< as planned, and the check had found errors
    failed,
    refused, ///< by the check, and not started
    limit,   ///< ended at a limit
    signal,  ///< ended by a signal
    leftOut
};

/// A task and what came of it.
struct TaskOutcome
{
    std::unique_ptr<CheckedTask> task; ///< its path alone where it was left out unchecked
    RunStatus status = RunStatus::leftOut;
    std::optional<TaskEvidence> evidence{}; ///< of a task that was started
    std::string reason{};                   ///< why it was left out
    bool isMade = false;                    ///< the task was made for this run: nobody can look at its file
};

/// The status by the check and the evidence of a run.
RunStatus statusOf(const CheckedTask& task, const TaskEvidence& evidence);

/// "good", "findings", "failed", "refused", "limit", "signal" or "left out".
std::string_view statusWord(RunStatus status);

/// Writes what came of a task: a line, and one for each error of the run.
void showOutcome(const Console& console, const TaskOutcome& outcome);

/// The same as members of an object, without the task. Times and memory are there where they are wanted.
void setOutcome(Json& object, const TaskOutcome& outcome, bool times);

/// The same as an element of the list of tasks.
Json outcomeJson(const TaskOutcome& outcome, bool times);

/// What came of all tasks.
class RunTotals
{
public:
    /// Counts a task.
    void add(const TaskOutcome& outcome);

    /// How many tasks were counted.
    std::size_t count() const
    {
        return tasks;
    }
    /// 0 where all tasks are good or were left out for being done already, else 1.
    int exitStatus() const;
    /// "3 tasks: 1 good, 1 failed, 1 refused; 130 of 160 marks written".
    std::string text() const;
    /// The same as an object, with the totals of findings.
    Json json() const;

private:
    std::size_t tasks = 0;
    std::size_t good = 0;
    std::size_t withFindings = 0;
    std::size_t failed = 0;
    std::size_t refused = 0;
    std::size_t leftOut = 0;
    std::size_t marks = 0;
    std::size_t written = 0;
    FindingTotals findings{};
};

} // namespace companion
