// Paths as texts: moving up, changing extensions, the part below a series. Nothing here touches the disk.
//
// An operation with a flag for it first normalises the path as normalizeSeparatorDir does; without the flag
// the path is used as it is.

#pragma once

#include "../export.h"

#include <string>

namespace TAVELIN_API tavelinUtils {

/// Removes the last character where it is one of the separators, and only that one: "a//" becomes "a/".
void DeleteLastSlash(std::string& path, std::string separators);

/// The path without one slash at its end.
std::string DeleteLastSlash(const std::string& path);

/// The first three characters, or a shorter path whole. Whether they are a drive is not tested.
std::string GetDrive(std::string path);

/// The folder above, with a slash at its end: "/a/b/c" and "/a/b/c/" give "/a/b/". A name without a parent
/// stays where it is: "a" gives "a/", and "/a" gives "/". An empty path throws std::out_of_range.
std::string calcpathlevelup(std::string path, bool normalize);

/// The path with the extension of its last component replaced, or appended to a name without one. The new
/// extension includes its point. Only "/" separates, and one at the end is lost; an empty path stays empty.
std::string ChangeFileExt(std::string path, std::string extension);

/// The text with the first occurrence of the old part replaced: "a.fit.fit" gives "a.txt.fit". The new part
/// is appended to a text without the old one, and goes in front if the old one is empty.
std::string replaceFileNameExtension(std::string name, std::string oldText, std::string newText);

/// The part of a full path below the folder of a series, in the form of normalizeSeparatorDir. Every
/// occurrence of the series' path is removed, compared byte by byte; an empty one removes every slash.
std::string GetInSeriaPath(std::string seriesPath, std::string fullPath);

} // namespace tavelinUtils
