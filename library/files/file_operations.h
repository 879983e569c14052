// Paths and file operations: moving up, changing extensions, measuring, copying, making and removing.
//
// A failure is false, 0, 0.0 or an unchanged text, and nothing is tried twice. Where an operation takes a
// flag for it, the path is first brought to the form of normalizeSeparatorDir; otherwise it is used as it is.

#pragma once

#include <string>
#include <vector>

namespace tavelinUtils {

/// Removes the last character where it is one of the separators, and only that one: "a//" becomes "a/".
void DeleteLastSlash(std::string& path, std::string separators);

/// The path without one slash at its end.
std::string DeleteLastSlash(const std::string& path);

/// The first three characters, or a shorter path whole. Nothing tests that they are a drive.
std::string GetDrive(std::string path);

/// The folder above, with a slash at its end: "/a/b/c" and "/a/b/c/" give "/a/b/". A name without a parent
/// stays where it is: "a" gives "a/", and "/a" gives "/". An empty path raises std::out_of_range.
std::string calcpathlevelup(std::string path, bool normalize);

/// The path with the extension of its last component replaced, or put behind a name without one. The new
/// extension brings its own point. Only "/" separates, and one at the end is lost; an empty path stays empty.
std::string ChangeFileExt(std::string path, std::string extension);

/// The text with the first occurrence of the old part replaced: "a.fit.fit" gives "a.txt.fit". The new part
/// goes behind a text without the old one, and in front where the old one is empty.
std::string replaceFileNameExtension(std::string name, std::string oldText, std::string newText);

/// The part of a full path below the folder of a series, in the form of normalizeSeparatorDir. Every
/// occurrence of the series' path goes, compared byte by byte; an empty one takes every slash out.
std::string GetInSeriaPath(std::string seriesPath, std::string fullPath);

/// The size of a file in kibibytes, with the fraction; 0.0 where it cannot be opened for reading or has no
/// size. A folder opens, and has the size that its file system tells.
double get_file_size(std::string path);

/// The free space of the path's file system in whole mebibytes, with what is kept for the administrator;
/// 0.0 where it cannot be told.
double FreeDiskSpace(std::string path);

/// When the file was last written, in whole seconds since 1970; 0.0 for a missing one.
double FileAge(std::string path);

/// Removes a file or an empty folder: 0, or -1 on failure.
int deletefile(std::string path);

/// Copies a file. An existing destination is removed first where it may be overwritten, and otherwise counts
/// as a success and stays. False when one of the two cannot be opened: without a source no destination is
/// made, and a removed one stays removed. A failed write is not told. The paths are compared as texts: equal
/// ones are a success without a copy, and other spellings of one file are removed before they are read.
bool copyfile(std::string source, std::string destination, bool overwrite);

/// Copies over the destination and then removes the source. What it returns is what the copy gives; a source
/// that was not copied, or that has the same path, stays.
bool movefile(std::string source, std::string destination);

/// Makes one folder, with mode 0755. True where it stands already, in either spelling of the path.
bool CrtDir(std::string path, bool normalize);

/// Makes a folder and what is missing above it. False for an empty path, and at the first folder that cannot
/// be made; those above it stay.
bool CreateDir(std::string path, bool normalize);

/// Empties a folder, which itself stays: 1, or 0 where it cannot be opened. Links in it go, and what they
/// lead to stays. What cannot be removed is passed over, and so is an entry whose path is longer than 4095
/// bytes.
int removedirectoryrecursively(const char* path);

/// Removes a folder and all that it holds, as far as removedirectoryrecursively does.
void DeleteDir(std::string path);

/// Takes out of a list of paths those whose file name holds the mask, a plain text. An empty mask takes
/// none. The files themselves stay.
void RemFileWithMask(std::vector<std::string>& names, std::string mask);

/// The same for each of the masks.
void RemFileWithMask(std::vector<std::string>& names, const std::vector<std::string>& masks);

} // namespace tavelinUtils
