// System files: what all who write files below the level of the library need.

#pragma once

#include <string>
#include <string_view>

#include <sys/stat.h>

namespace companion {

/// The folder for temporary files: the environment's TMPDIR, or /tmp. Without a slash at its end unless the
/// environment gives one.
std::string temporaryFolder();

/// What a path is, as people call it: "a file", "a folder", "a pipe".
std::string kindOf(const struct stat& state);

/// Writes all bytes to a descriptor, also where signals come in between. False where that fails, with errno
/// set.
bool writeAll(int descriptor, std::string_view bytes);

} // namespace companion
