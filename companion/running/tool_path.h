// Tool path: which `vomar` is started, and other programs.

#pragma once

#include <string>

namespace companion {

/// The path of the tool: the wanted one, else the one beside this program, else the first of the search path;
/// empty where there is none that may be executed.
std::string toolPath(const std::string& wanted);

/// The path of the first program of a name in the search path; empty where there is none.
std::string programInSearchPath(const std::string& name);

} // namespace companion
