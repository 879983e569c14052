// Folder states: all that lies below a folder, and what changed there.

#pragma once

#include <ctime>
#include <map>
#include <string>
#include <vector>

#include <sys/stat.h>

/// A file, link or folder as it was at a moment.
struct EntryState
{
    struct stat status = {};
    std::string content; ///< the bytes of a file, the target of a link

    /// Which file it is, whatever its name.
    std::pair<dev_t, ino_t> identity() const
    {
        return {status.st_dev, status.st_ino};
    }
};

/// What lies below a folder, by paths that begin with the folder's.
using FolderStates = std::map<std::string, EntryState>;

/// All below a folder.
FolderStates statesBelow(const std::string& folder);

/// Puts the times of all files below a folder into the past, so that each later write changes them.
void ageFiles(const FolderStates& states);

/// Paths of what is new, gone, written or another file than before; of folders, only what is new or gone.
std::vector<std::string> changedPaths(const FolderStates& before, const FolderStates& after);
