// File search: files of a folder tree by mask and extension, FITS frames, folders.
//
// A mask is a plain part of the file's name, without wildcards; an extension is compared whole, with its
// point and in its case. An empty text means any. An entry is the root as it was given, then "/" and names:
// a root that ends in a separator gives a doubled one. Entries come in the order of the file system, depth
// first, and nothing sorts them. A folder that cannot be opened contributes nothing. Links, and what the
// file system does not tell the type of, count as files and are not followed.
//
// A folder whose path is longer than 1023 bytes is listed, and the walk goes on with the path cut there. That
// may be another folder, one outside the root too, so nothing may be removed by the word of a search alone.
// A cut path that leads back to a folder that the walk is in is not entered, so every walk ends.

#pragma once

#include <string>
#include <vector>

namespace tavelinUtils {

/// An entry of a folder.
struct FolderEntry
{
    std::string name{};
    bool isFolder = false; ///< false for a link to one, and where the file system does not tell
};

/// Reads the entries of a folder but "." and "..", in the order of the file system. False when the folder
/// cannot be opened; the list is then untouched.
bool readFolder(const std::string& folder, std::vector<FolderEntry>& entries);

/// Replaces both lists by the folders and the files below the root. Mask and extension choose among the
/// files; every folder is listed.
void FindFile(std::string root, std::string mask, std::string extension,
              std::vector<std::string>& directories, std::vector<std::string>& files);

/// Replaces the list by the files below the root. An empty root leaves it as it was.
void FindFile(std::string root, std::string mask, std::string extension, std::vector<std::string>& files);

/// The same as FindFile with two lists, whose capacity it does not trim.
void pFindFileDirLin(std::string root, std::string mask, std::string extension,
                     std::vector<std::string>& directories, std::vector<std::string>& files);

/// Appends what stands below the folder to both lists. The depth limits nothing. A null pointer is a
/// folder that cannot be opened.
void FindFileRecur(const char* folder, int depth, std::string mask, std::string extension,
                   std::vector<std::string>& directories, std::vector<std::string>& files);

/// Appends the FITS frames below the root, grouped by the spelling of their extension: .fit, .FIT, .fits,
/// .FITS, .fts, .FTS. A mixed spelling, such as .Fits, is not found.
void FindFitFile(std::string root, std::string mask, std::vector<std::string>& result);

/// Appends the frames of root after root. A frame below two of them comes twice.
void FindFitFile(const std::vector<std::string>& roots, std::string mask, std::vector<std::string>& result);

/// Replaces the list by the folders of the tree. With a name, every folder that is met is listed, and only
/// those of exactly that name are entered.
void FindDir(std::string root, std::string name, std::vector<std::string>& directories);

/// The same as FindDir.
void pFindDirLin(std::string root, std::string name, std::vector<std::string>& directories);

/// Appends the folders that FindDir lists. The depth limits nothing. A null pointer is a folder that cannot
/// be opened.
void FindDirRecur(const char* folder, int depth, std::string name, std::vector<std::string>& directories);

} // namespace tavelinUtils
