// Copy tracks: what a copy for a receiver is made of: the tracks of a file as it is meant, or those of a
// task's plan after exclusion, naming and narrowing and before division.

#pragma once

#include "findings/finding.h"
#include "receivers/copy_input.h"
#include "task/checked_task.h"

#include <cstddef>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace companion {

/// Two stations that the source of a track says.
struct StationsOfTrack
{
    std::string first{};
    std::string source{}; ///< who says the first: "the header"
    std::string second{};
    std::string other{};  ///< who says the second
    std::size_t line = 0; ///< of the second, from 1; 0 where it has none
};

/// The tracks of an input.
struct CopyInput
{
    std::vector<CopyTrack> tracks{};
    std::vector<Finding> findings{};      ///< of the reading
    std::size_t leftOut = 0;              ///< marks of the input that are in no track
    std::set<std::string> unidentified{}; ///< running names of objects without an answer of the checker
    std::vector<std::string> files{};     ///< what was read
    std::map<std::size_t, StationsOfTrack> contradictions{}; ///< by the number of the track, from 0
};

/// The tracks of a file; the observatory of each says what the file says. Findings are in the file's name.
/// Throws WrongUsage (V003) for a file that cannot be read.
CopyInput copyTracksOfFile(const std::string& path, const std::string& format, const std::string& name);

/// The tracks of a task that can be loaded. Nothing is written.
CopyInput copyTracksOfTask(const CheckedTask& checked);

} // namespace companion
