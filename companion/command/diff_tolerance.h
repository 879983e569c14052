// Diff tolerance: how far marks of two files may differ, by the options of a call.

#pragma once

#include "command/subcommand.h"
#include "reading/input_files.h"
#include "reading/mark_comparison.h"

namespace companion {

/// The tolerance of two formats that a call asks for: "tolerance" is auto, exact, or a file with a line for
/// each value, and "time", "angle" and "magnitude" win over it. Throws WrongUsage for what is none (V001,
/// V002), and for a file that cannot be read (V003).
MarkTolerance wantedTolerance(const Arguments& arguments, const FormatFacts& a, const FormatFacts& b,
                              InputFiles& files);

} // namespace companion
