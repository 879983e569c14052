// Writable: whether a file can be written, found out without touching it.

#pragma once

#include <string>

namespace companion {

/// Whether the writer of a format removes what is at its path before it writes.
bool removesFirst(const std::string& format);

/// Whether a file of the path can be written, as far as kinds and rights say. `removes`: the writer
/// removes what is at the path before it writes.
bool canBeWritten(const std::string& path, bool removes = false);

} // namespace companion
