// File operations: measuring, copying, making and removing.
//
// A failure is false, 0 or 0.0, and nothing is tried twice. An operation with a flag for it first normalises
// the path as normalizeSeparatorDir does; without the flag the path is used as it is.

#pragma once

#include "../export.h"

#include <string>
#include <vector>

namespace TAVELIN_API tavelinUtils {

/// The size of a file in kibibytes, with the fraction; 0.0 if it cannot be opened for reading or has no size.
/// A folder can be opened, and has the size that its file system reports.
double get_file_size(std::string path);

/// The free space of the path's file system in whole mebibytes, including what is reserved for the
/// administrator; 0.0 if it is unknown.
double FreeDiskSpace(std::string path);

/// When the file was last written, in whole seconds since 1970; 0.0 for a missing one.
double FileAge(std::string path);

/// Removes a file or an empty folder: 0, or -1 on failure.
int deletefile(std::string path);

/// Copies a file. An existing destination is removed first if it may be overwritten; otherwise it stays,
/// which counts as success. False if one of the two cannot be opened: without a source no destination is
/// created, and a removed one stays removed. A failed write is not reported. The paths are compared as texts:
/// equal ones are a success without a copy, and other spellings of one file are removed before they are read.
bool copyfile(std::string source, std::string destination, bool overwrite);

/// Copies over the destination and then removes the source. Returns the result of the copy; a source that was
/// not copied, or that has the same path, stays.
bool movefile(std::string source, std::string destination);

/// Makes one folder, with mode 0755. True if it exists already, in either spelling of the path.
bool CrtDir(std::string path, bool normalize);

/// Makes a folder and what is missing above it. False for an empty path, and at the first folder that cannot
/// be made; those above it stay.
bool CreateDir(std::string path, bool normalize);

/// Empties a folder, which itself stays: 1, or 0 where it cannot be opened. Links in it go, and what they
/// lead to stays. An entry that cannot be removed, or whose path is longer than 4095 bytes, is skipped.
int removedirectoryrecursively(const char* path);

/// Removes a folder and all that it holds, as far as removedirectoryrecursively does.
void DeleteDir(std::string path);

/// Removes from a list the paths whose file name holds the mask, a plain text. An empty mask removes none.
/// The files themselves stay.
void RemFileWithMask(std::vector<std::string>& names, std::string mask);

/// The same for each of the masks.
void RemFileWithMask(std::vector<std::string>& names, const std::vector<std::string>& masks);

} // namespace tavelinUtils
