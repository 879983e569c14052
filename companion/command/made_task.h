// Made task: a task that a subcommand makes of its options. It runs in a folder of its own, and what it
// writes takes its place once it is whole: no input is written over, and no half file appears.

#pragma once

#include "command/subcommand.h"
#include "command/task_runner.h"
#include "out/json.h"
#include "task/new_task.h"

#include <string>
#include <vector>

namespace companion {

/// A task to run, and where its files are to stand.
struct MadeTask
{
    NewTask task{};         ///< without out_dir and path_res
    std::string name{};     ///< of what it makes: findings of the task are shown under it
    std::string folder{};   ///< of its files; empty where they go nowhere but into memory
    std::string file{};     ///< the path of its only file; empty where each keeps its name, in the folder
    std::string baseName{}; ///< the last part of out_dir, after which a report may name its file
    std::vector<std::string> inputs{}; ///< which no file replaces
    std::string copied{};              ///< a file whose copy is to be the path_in; empty: path_in is set
    bool replaces = false;             ///< files that exist
};

/// What came of it.
struct MadeOutcome
{
    TaskOutcome outcome{}; ///< with the places that its files have, or would have
    std::string bytes{};   ///< of the file, where there is no folder for it
    int signal = 0;        ///< that has come meanwhile; else 0
};

/// Checks a task, runs it, verifies its files, and gives them their places where no error was found in the
/// run. Findings that let a name lead out of the folder cannot be allowed. Throws WrongUsage for files that
/// exist and are not to be replaced (V004), that are inputs (V005), or that cannot be moved (V003); then none
/// has its place. The console shows the progress.
MadeOutcome runMade(const MadeTask& made, RunSettings settings, const Console& console);

/// The task as it may stand alone, saved under a path that no input has; an existing file only if forced.
/// Throws WrongUsage as SafeFile does.
void keepTask(const NewTask& task, const std::string& path, bool force,
              const std::vector<std::string>& inputs);

/// A folder as paths of files begin with it: without slashes at its end.
std::string folderWithoutSlash(std::string folder);

/// The exit status: 0 for a task that is good, 1 for any other, 128 and its number for a signal.
int statusOf(const MadeOutcome& result);

/// Ends the call when all is shown: by the signal that has come meanwhile, else with the exit status, which
/// is returned.
int endMade(const MadeOutcome& result, const Console& console);

/// Writes what came of a made task as members of a document: "outcome", and "kept" where the task was saved.
void showMadeMembers(JsonDocument& document, const std::string& keptTask, const TaskOutcome& outcome,
                     bool times);

/// Writes what came of a made task as text: errors and warnings of the check, then what `tavelin run` says.
void showMade(const Console& console, const TaskOutcome& outcome);

} // namespace companion
