// Folder entries: stands in for the system's reading of folders in this program, so that tests meet file
// systems of other kinds.

#pragma once

/// How the entries of folders come.
enum class FolderEntries
{
    asTheyAre,
    sorted,      ///< by name, in the order of bytes
    withoutKinds ///< files are not told from folders
};

/// Sets it for the whole program.
void setFolderEntries(FolderEntries entries);
