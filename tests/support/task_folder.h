// A folder in which the built tool runs tasks.

#pragma once

#include "support/child_process.h"
#include "support/tasks.h"
#include "support/temporary_folder.h"

#include <filesystem>
#include <set>
#include <string>

/// A temporary folder with an empty folder out, the working folder of the runs.
class TaskFolder
{
public:
    TaskFolder()
    {
        std::filesystem::create_directory(folder / "out");
    }

    /// Writes the text to task.xml and runs the tool on it.
    ChildEnd run(const std::string& task) const
    {
        makeFile(folder / "task.xml", task);
        return runTool("task.xml", folder.path());
    }

    /// The files below out, by their paths relative to it.
    std::set<std::string> written() const
    {
        return filesBelow(folder / "out");
    }

    /// The path of a name in the folder.
    std::string operator/(const std::string& name) const
    {
        return folder / name;
    }

    /// The folder's own path, without a slash at its end.
    std::string path() const
    {
        return folder.path();
    }

private:
    TemporaryFolder folder;
};
