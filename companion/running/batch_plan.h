// Batch plan: the tasks of an archive, in the folder that a batch works in.
//
//   WORK/plan.json                the plan
//   WORK/tasks/000001_STEM.xml    the tasks
//   WORK/receipts/000001.json     what came of them (running/receipts.h)
//   WORK/lock                     byte n is locked while task n runs, byte 0 while the plan is made

#pragma once

#include "running/evidence.h"

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace companion {

/// A task of a plan. Paths count from the plan's folder.
struct BatchTask
{
    std::size_t number = 0; ///< from 1; one that was used is never used again
    std::string name{};     ///< of its file in tasks/
    std::string group{};    ///< the value of the field of its group; empty without groups
    std::vector<FileStamp> inputs{};
    std::string folder{};                              ///< of the outputs; empty where the task has none
    std::string result{};                              ///< the result file; empty for none
    std::optional<std::vector<std::string>> outputs{}; ///< where they are known before the run

    bool operator==(const BatchTask& other) const = default;
};

/// A plan.
struct BatchPlan
{
    std::string folder{};                        ///< from which it was made, seen from the folder of the work
    std::string taskTemplate{};                  ///< its path
    std::vector<std::string> patterns{};         ///< in their order
    std::string group{};                         ///< the field of the groups; empty without
    std::map<std::string, std::string> settings; ///< of fields and keys
    std::size_t next = 1;                        ///< the number of the next new task
    std::vector<BatchTask> tasks{};              ///< by their numbers

    bool operator==(const BatchPlan& other) const = default;
};

/// The folder of a batch.
class BatchFolder
{
public:
    explicit BatchFolder(std::string path);

    /// Its path, as it was given, less slashes at its end.
    const std::string& path() const
    {
        return folder;
    }
    std::string plan() const
    {
        return folder + "/plan.json";
    }
    std::string lock() const
    {
        return folder + "/lock";
    }
    std::string tasks() const
    {
        return folder + "/tasks";
    }
    std::string receipts() const
    {
        return folder + "/receipts";
    }
    std::string task(const BatchTask& task) const
    {
        return tasks() + '/' + task.name;
    }
    std::string receipt(std::size_t number) const;

private:
    std::string folder;
};

/// The plan as bytes.
std::string planText(const BatchPlan& plan);

/// Reads the plan of a folder. Throws WrongUsage where it cannot be read (V003), and where it is not one of
/// this version, or damaged (V454).
BatchPlan readPlan(const BatchFolder& folder);

/// A batch as it is seen from the folder that its plan was made from: the paths of its tasks count from
/// there.
struct SeenBatch
{
    BatchFolder folder;
    std::string from; ///< the folder to go to; empty where it is the present one
};

/// The batch of a folder that is there.
SeenBatch seenBatch(const BatchFolder& folder, const BatchPlan& plan);

/// Writes a plan, unless it is there with these bytes: its time says when it last changed.
void writePlan(const BatchFolder& folder, const BatchPlan& plan);

} // namespace companion
