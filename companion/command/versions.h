// Versions: what `tavelin --version` prints.

#pragma once

#include <string>

namespace companion {

/// "tavelin 0.2.0" and a line feed; with all of them, a line each for the library, the tool that would be
/// started, and the libraries inside.
std::string versions(bool all);

} // namespace companion
