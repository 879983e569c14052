// File search: files of a folder tree by mask and extension, FITS frames, folders.
//
// A mask is a plain text within the file's name, without wildcards; an extension is compared whole, with its
// point and in its case. An empty text means any. An entry is the root as it was given, then "/" and names: a
// root that ends in a separator gives a doubled one. Entries come in the order of the file system, depth
// first, and nothing sorts them. A folder that cannot be opened contributes nothing. Links, and entries whose
// type the file system does not report, count as files and are not followed.
//
// A folder whose path is longer than 1023 bytes is listed, and the walk goes on with the path cut off there.
// That may be another folder, even one outside the root, so no search alone may decide what is removed. A cut
// path that leads back to a folder that the walk is in is not entered, so every walk ends.

#pragma once

#include "../export.h"

#include <string>
#include <vector>

namespace TAVELIN_API tavelinUtils {

/// An entry of a folder.
struct FolderEntry
{
    std::string name{};
    bool isFolder = false; ///< false for a link to one, and if the file system does not report it
};

/// Reads the entries of a folder but "." and "..", in the order of the file system. False when the folder
/// cannot be opened; the list is then untouched.
bool readFolder(const std::string& folder, std::vector<FolderEntry>& entries);

/// Replaces both lists with the folders and the files below the root. Mask and extension select among the
/// files; every folder is listed.
void FindFile(std::string root, std::string mask, std::string extension,
              std::vector<std::string>& directories, std::vector<std::string>& files);

/// Replaces the list by the files below the root. An empty root leaves it as it was.
void FindFile(std::string root, std::string mask, std::string extension, std::vector<std::string>& files);

/// The same as FindFile with two lists, but it does not trim their capacity.
void pFindFileDirLin(std::string root, std::string mask, std::string extension,
                     std::vector<std::string>& directories, std::vector<std::string>& files);

/// Appends the folders and files below the folder to both lists. The depth limits nothing. A null pointer is
/// a folder that cannot be opened.
void FindFileRecur(const char* folder, int depth, std::string mask, std::string extension,
                   std::vector<std::string>& directories, std::vector<std::string>& files);

/// Appends the FITS frames below the root, grouped by the spelling of their extension: .fit, .FIT, .fits,
/// .FITS, .fts, .FTS. A mixed spelling, such as .Fits, is not found.
void FindFitFile(std::string root, std::string mask, std::vector<std::string>& result);

/// Appends the frames of one root after the other. A frame below two of them comes twice.
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
