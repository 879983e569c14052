// Writable: whether a file can be written, found out without touching it.

#pragma once

#include <string>

namespace companion {

/// Whether a file of the path can be written, as far as kinds and rights say. `removesFirst`: the writer
/// removes what is at the path before it writes.
bool canBeWritten(const std::string& path, bool removesFirst = false);

} // namespace companion
