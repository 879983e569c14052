// Path checks: where a task reads and writes, held against what is there. Files are the same where device and
// inode are, however their paths are spelled.

#pragma once

#include "findings/finding.h"
#include "task/plan.h"
#include "task/task_document.h"

#include <memory>
#include <string>
#include <vector>

namespace companion {

/// The findings of a task's paths: V030 to V035, V037 to V039, V046 to V049, V051 to V054, V060, V200, V251
/// and V253. The task as it was read from the document, and with the folder that the tool takes as out_dir.
/// Without a plan only those outputs are looked at whose name does not depend on what is read. The
/// configurations are those that the series take.
std::vector<Finding> pathFindings(const TaskDocument& document, const tavelinUtils::TConvMea& asWritten,
                                  const tavelinUtils::TConvMea& withFolder, const Plan* plan,
                                  const std::vector<std::string>& configurations = {});

/// The files that a task writes, for comparison with those of other tasks.
struct TaskOutputs
{
    std::string task{};               ///< its path
    SourcePlace resultPlace{};        ///< of its key path_res
    std::string result{};             ///< the result, if it is a document
    std::vector<std::string> files{}; ///< of the plan, or what is known without it
};

/// The outputs of a task with its folder.
TaskOutputs outputsOf(const TaskDocument& document, const tavelinUtils::TConvMea& withFolder,
                      const Plan* plan);

/// What several tasks of one call write over each other.
class SharedOutputs
{
public:
    SharedOutputs();
    ~SharedOutputs();
    SharedOutputs(const SharedOutputs&) = delete;
    SharedOutputs& operator=(const SharedOutputs&) = delete;

    /// Takes a task and gives what it writes over tasks that were taken before: V036 and V050.
    std::vector<Finding> add(const TaskOutputs& task);

private:
    struct State;

    std::unique_ptr<State> state;
};

/// Whether two paths are one file: of the same device and inode, or where a file is missing, of the same name
/// in the same folder.
bool isSameFile(const std::string& one, const std::string& other);

} // namespace companion
