// Lint: what is wrong with the lines of a file: what its reader passes over or loses, what a person would
// read and the reader does not, what its receiver would refuse.

#pragma once

#include "findings/finding.h"

#include <cstddef>
#include <functional>
#include <string>

namespace companion {

/// The lines of a file by their fates (formats/line_watch.h), and the tracks and marks that the reader made
/// of them.
struct FileAccount
{
    std::size_t lines = 0;
    std::size_t head = 0;
    std::size_t blank = 0;
    std::size_t marks = 0; ///< lines that made a mark
    std::size_t parts = 0;
    std::size_t ends = 0;
    std::size_t passed = 0;
    std::size_t lost = 0;
    std::size_t refused = 0;
    std::size_t tracks = 0;    ///< of the reader
    std::size_t marksRead = 0; ///< of its tracks
    std::size_t repeated = 0;  ///< of these, those that no line of their own made (SSMAS, TDM)
};

/// What lint looks at.
struct LintSettings
{
    bool reader = true;     ///< what the reader does with each line
    bool person = true;     ///< what a person would read there
    std::string receiver{}; ///< "mpc", "ccsds", "aavso" or "ades": its rules; empty: none
    bool forCheck = false;  ///< only findings that the check of a task takes over
    std::string columns{};  ///< of a track table: only these are looked at, with a blank between; empty: all
};

/// Reads a file as the format and hands out a finding for each place, in the order of lines; each has one
/// place with line, column, length, snippet, field and value. Gives the account of its lines. The format is a
/// name of reading/signatures.h. Throws WrongUsage (V003) for a file that cannot be read.
FileAccount lintFile(const std::string& path, const std::string& format, const LintSettings& settings,
                     const std::function<void(Finding)>& found);

} // namespace companion
