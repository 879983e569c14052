// Lint: what is wrong with the lines of a file: what its reader passes over or loses, what a person would
// read and the reader does not, what its receiver would refuse.

#pragma once

#include "findings/finding.h"
#include "reading/file_account.h"
#include "reading/line_fates.h"

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

namespace companion {

/// What lint looks at.
struct LintSettings
{
    bool reader = true;     ///< what the reader does with each line
    bool person = true;     ///< what a person would read there
    std::string receiver{}; ///< "mpc", "ccsds", "aavso" or "ades": its rules; empty: none
    bool forCheck = false;  ///< only findings that the check of a task takes over
    std::string columns{};  ///< of a track table: only these are looked at, with a blank between; empty: all
};

/// A text whose reader has told the fates of its lines.
struct ReadText
{
    std::string_view text;
    const std::string& format; ///< a name of reading/signatures.h
    const LineFates& fates;
    std::function<std::size_t(std::size_t)> numberOf; ///< what a line of the text is called
};

/// Hands out what the reader of a text makes no mark of and what it misreads, in the order of lines, as
/// lintFile does for a file. Gives how many marks are in no track.
std::size_t tellLosses(const ReadText& read, const std::function<void(Finding)>& found);

/// Reads a file as the format and hands out a finding for each place, in the order of lines; each has one
/// place with line, column, length, snippet, field and value. Gives the account of its lines. The format is a
/// name of reading/signatures.h. Throws WrongUsage (V003) for a file that cannot be read.
FileAccount lintFile(const std::string& path, const std::string& format, const LintSettings& settings,
                     const std::function<void(Finding)>& found);

} // namespace companion
