// Random tasks: a folder with a task, its inputs and what an earlier run left; many tasks are good, many have
// faults, and a few never end.

#pragma once

#include <cstdint>
#include <string>
#include <vector>

/// Something in the folder of a task.
struct FolderEntry
{
    enum class Kind
    {
        file,    ///< of the content's bytes
        folder,  ///< its content is empty
        link,    ///< to the content
        sameFile ///< a further name of the file that the content names
    };

    Kind kind;
    std::string path; ///< below the folder
    std::string content;
};

/// The folder of a task, which is its last entry, "task.xml". Paths in the task count from the folder.
struct RandomTask
{
    std::vector<FolderEntry> entries{};
};

/// The task of a seed. The scratch path is that of a file that is written meanwhile.
RandomTask randomTask(std::uint64_t seed, const std::string& scratchPath);

/// Makes the folder of a task below an existing one. An entry whose place is taken is left out.
void makeFolder(const RandomTask& task, const std::string& folder);
