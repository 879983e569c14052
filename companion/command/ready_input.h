// Ready input: what `tavelin ready` copies: the tracks of a file or of a task, and what is against copying
// them.

#pragma once

#include "command/subcommand.h"
#include "reading/input_files.h"
#include "task/copy_tracks.h"

#include <string>

namespace companion {

/// What was read of the input of a call.
struct ReadyInput
{
    std::string format{}; ///< empty where it is not known
    std::string file{};   ///< that the lines of marks are of, as findings name it
    CopyInput copy{};     ///< with the findings, also where there is nothing to copy
    bool goesOn = true;   ///< nothing is against a copy
    bool isRead = true;   ///< false where nothing can be read of it at all
};

/// Reads the input of a call. Of a task the findings about its inputs are given, and their errors are against
/// a copy, but none about where a run would write and how it would name and divide that. Throws WrongUsage
/// for a file that cannot be read or whose format has no marks that are read (V003), and for an unknown word
/// of
/// --as (V002).
ReadyInput readyInput(const Arguments& arguments, const std::string& name, InputFiles& files);

/// How many marks an input has, with those that are in no track.
std::size_t marksOf(const CopyInput& input);

} // namespace companion
