// Gnuplot: scripts drawn by gnuplot, in a process of its own.

#pragma once

#include "running/child.h"

#include <functional>
#include <string>

namespace companion {

/// Gives the script that draws into a path.
using ScriptFor = std::function<std::string(const std::string& picture)>;

/// Draws a picture whose name has the suffix, and gives its bytes. Settings of the user do not count. Throws
/// WrongUsage (V470) where gnuplot is missing, takes longer than a minute, or does not draw. A signal that
/// comes meanwhile ends the program, with nothing left behind.
std::string drawnPicture(const std::string& suffix, const ScriptFor& scriptFor);

/// What went wrong in a run of gnuplot that has not drawn, in its words where it said any.
std::string drawingProblem(const EndedChild& ended);

} // namespace companion
