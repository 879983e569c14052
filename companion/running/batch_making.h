// Batch making: the plan of an archive from a template and patterns. A plan that is there grows: its tasks
// keep their numbers, and new files get new ones.

#pragma once

#include "findings/finding.h"
#include "running/batch_plan.h"
#include "running/byte_locks.h"

#include <map>
#include <string>
#include <vector>

namespace companion {

/// What a plan is made of.
struct BatchOrder
{
    std::string taskTemplate{};
    std::vector<std::string> patterns{};
    std::string group{}; ///< the field of the groups; empty without
    std::map<std::string, std::string> settings{};
};

/// A plan that was made.
struct MadeBatch
{
    BatchPlan plan{};
    std::vector<Finding> findings{}; ///< V036, V050, V451
    std::size_t fresh = 0;           ///< tasks that are new
    std::size_t changed = 0;         ///< tasks that are others than before
    bool isRefused = false;          ///< for an error: nothing was written
};

/// Makes the folder of a batch with the plan and the tasks, and the folders of their outputs and results, or
/// brings them up to date. Throws WrongUsage for a template or a pattern that is wrong (V001 to V003, V450),
/// for a folder that cannot be made (V003) and for one with a plan of another kind (V454). Where it throws
/// and where the plan is refused, nothing that is new is left. No locks of the folder may be held.
MadeBatch makeBatch(const BatchFolder& folder, const BatchOrder& order);

/// Makes the folders of the outputs and the result of a task, where they are missing. Where that fails, the
/// check of the task says so.
void makeOutputFolders(const BatchTask& task);

/// The task of a plan that a word names: its number, its name or its path. Throws WrongUsage (V002).
const BatchTask& taskNamed(const BatchPlan& plan, const std::string& word);

/// Takes tasks out of a plan, with their files and receipts; their outputs stay. Throws WrongUsage for a task
/// that is being run (V453).
void forgetTasks(const BatchFolder& folder, const std::vector<std::string>& words, const ByteLocks& locks);

} // namespace companion
