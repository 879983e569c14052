// Task witness: what a run of the tool has done of what was planned for its task.

#pragma once

#include "findings/finding.h"
#include "running/child.h"
#include "running/evidence.h"
#include "running/folder_watch.h"
#include "task/plan.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace companion {

/// How files are verified.
enum class Verification
{
    none,
    count, ///< how many marks they hold
    full   ///< each mark
};

/// A planned file after the run.
struct WitnessedFile
{
    std::string path;
    std::string format;                 ///< the output word
    std::size_t planned = 0;            ///< marks
    std::optional<std::size_t> found{}; ///< marks; nothing where they were not counted
    FileChange change = FileChange::missing;
    FileState state{};
};

/// What a run has done.
struct TaskEvidence
{
    EndedChild ended{};
    std::vector<ResultEntry> results{}; ///< that are new
    std::vector<WitnessedFile> files{}; ///< that were to stand at the end
    std::vector<FileStamp> inputs{};    ///< as they were before the run
    std::vector<Finding> findings{};

    /// The marks in the files that the run has written.
    std::size_t foundMarks() const;
};

/// What is known of a task before its run. Paths count from the present folder.
struct WitnessedTask
{
    std::string path;                  ///< of the task
    tavelinUtils::TConvMea task{};     ///< with the folder that the tool takes as out_dir
    std::vector<std::string> inputs{}; ///< the task, and all that it is made of
    const Plan* plan = nullptr;        ///< a null pointer where there is none
};

/// Looks at the files of a task before its run and after it.
class TaskWitness
{
public:
    /// Before the run. The folders of the outputs are watched by the folder watch, which must outlive the
    /// witness.
    TaskWitness(WitnessedTask ofTask, FolderWatch& folderWatch);
    ~TaskWitness();
    TaskWitness(const TaskWitness&) = delete;
    TaskWitness& operator=(const TaskWitness&) = delete;

    /// After the run of that call.
    TaskEvidence evidence(const ChildCall& call, EndedChild ended, Verification verification);

    /// The paths that the run may write, with links of their folders followed.
    std::vector<std::string> writtenPlaces() const;

private:
    struct Before
    {
        std::string path;
        FileState state;
    };

    void lookAtEnd(const ChildCall& call, TaskEvidence& evidence) const;
    void lookAtResults(const ChildCall& call, TaskEvidence& evidence) const;
    ResultEntry plannedResult() const;
    void lookAtFiles(TaskEvidence& evidence, Verification verification) const;
    void lookAtInputs(TaskEvidence& evidence) const;
    void lookForStrangers(TaskEvidence& evidence) const;
    std::vector<std::string> outputFolders() const;

    WitnessedTask task;
    FolderWatch& folders;
    ResultEvidence results;
    std::vector<Before> inputs;
    std::vector<const PlannedFile*> files; // that stand at the end
    std::vector<FileState> before;         // of these
    std::vector<std::string> outputs;      // their folders, or that of a task without files
};

} // namespace companion
