// Paths as texts: moving up, changing extensions, the part below a series. Nothing here touches the disk.
//
// Where an operation takes a flag for it, the path is first brought to the form of normalizeSeparatorDir;
// otherwise it is used as it is.

#pragma once

#include <string>

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

} // namespace tavelinUtils
