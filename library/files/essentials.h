// Run essentials: the path separator, the tokeniser, files and folders, parts of a path, the clock text.
//
// Arguments may use either separator, "/" or "\"; results use "/". Paths are plain byte strings: nothing
// resolves ".", "..", links or drive letters.

#pragma once

#include "../export.h"

#include <cstdio>
#include <string>
#include <vector>

namespace TAVELIN_API tavelinUtils {

/// The separator that is appended to paths and that they are split on.
inline const std::string Slash = "/";
/// The same, under the name that other modules know.
inline const std::string PathSeparator = "/";

/// The canonical form of a folder's path: backslashes become slashes, and slashes at the end are removed. A
/// path of separators only is "/"; an empty one stays empty.
std::string normalizeSeparatorDir(const std::string& path);

/// Appends the separator to a path that does not end in it. An empty path stays empty.
void AddSlash(std::string& path, std::string separator);

/// From the last "." of the whole text to its end, the point included, or "" if there is none. Not limited to
/// the last component: "a.d/file" gives ".d/file".
std::string GetFileExt(std::string name);

/// The last component, cut at its last ".": ".hidden" gives "".
std::string ExtractOnlyFileName(std::string path);

/// Everything after the last backslash or character of the separator text; the whole path if there is none.
std::string ExtractFileName(std::string path, std::string separator);

/// Everything before the last separator of either spelling. A bare name is returned whole, not as ""; "/name"
/// gives "".
std::string ExtractPath(std::string path);

/// Opens a file with the C library: nothing is translated. A null pointer if that fails.
std::FILE* fopen(std::string path, std::string mode);

/// Whether the path can be opened for reading. An unreadable file counts as absent, and a folder, which
/// opens, as present.
bool FileExists(std::string path);

/// Whether the path, in either spelling, is a folder. False for an empty path.
bool DirectoryExists(std::string path);

/// Splits a text at each separator, which may be of any length. Each separator ends a token, empty tokens are
/// kept, and what follows the last separator is lost only if it is empty: "/a/b" at "/" gives "", "a", "b".
/// An empty text leaves the tokens as they were; an empty separator gives none.
void Pars9(std::string text, std::vector<std::string>& tokens, std::string separator);

/// Removes line feeds, carriage returns and tabs from the end. Blanks stay.
void mytrim_r(std::string& text);

/// The local date and time of this moment, to the microsecond: "2024-03-09 04:05:06.000789".
std::string NowToDateTimeLin();

/// The same text. The argument is not used: the middle separator is always a blank.
std::string NowToDateTime(std::string separator);

} // namespace tavelinUtils
