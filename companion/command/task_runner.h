// Task runner: checks tasks, runs the tool on them, some at once, and hands out what came of each in the
// order of the tasks.

#pragma once

#include "command/task_outcome.h"
#include "running/child.h"
#include "running/interrupts.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace companion {

/// How tasks are run.
struct RunSettings
{
    std::string tool{};   ///< its full path
    std::size_t jobs = 1; ///< children at once
    std::chrono::milliseconds timeLimit{0};
    bool hasTimeLimit = false;     ///< it was given, and is not the default
    std::uint64_t memoryLimit = 0; ///< bytes; none where it is 0
    bool anyway = false;           ///< no finding refuses a task, but for a walk that never ends
    std::set<FindingCode> allowed{};
    Verification verification = Verification::count;
    std::string jobLog{}; ///< its path; empty: none
    bool resumes = false;
    std::size_t stopAfter = 0; ///< failures; never where it is 0
};

/// Takes what came of a task.
using TakeOutcome = std::function<void(TaskOutcome outcome)>;

/// Is told how many tasks are settled, some times a second.
using TellSettled = std::function<void(std::size_t settled)>;

/// Keeps account of tasks while they are run. Tasks are told by their places in the list, from 0.
class TaskKeeper
{
public:
    TaskKeeper() = default;
    virtual ~TaskKeeper() = default;
    TaskKeeper(const TaskKeeper&) = delete;
    TaskKeeper& operator=(const TaskKeeper&) = delete;

    /// Right before the turn of a task: why it is left out, or empty where it is to be run. It may be asked
    /// again of a task that has to wait for another.
    virtual std::string reasonToLeaveOut(std::size_t place) = 0;

    /// As soon as a task has ended or was refused, also while others before it still run. Gives the status by
    /// which it counts.
    virtual RunStatus ended(std::size_t place, const TaskOutcome& outcome) = 0;
};

/// Runs tasks.
class TaskRunner
{
public:
    TaskRunner(RunSettings settings, const Interrupts& interrupts, TakeOutcome take, TellSettled tell,
               TaskKeeper* keeper = nullptr);
    ~TaskRunner();
    TaskRunner(const TaskRunner&) = delete;
    TaskRunner& operator=(const TaskRunner&) = delete;

    /// Runs all tasks. An interrupt ends the children; the tasks that were not started are left out.
    void run(const std::vector<std::string>& tasks);

private:
    struct State;
    std::unique_ptr<State> state;
};

} // namespace companion
