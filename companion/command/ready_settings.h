// Ready settings: what the options of `tavelin ready` ask for.

#pragma once

#include "command/subcommand.h"
#include "receivers/copy_input.h"
#include "receivers/copy_tally.h"
#include "task/copy_tracks.h"

#include <span>
#include <string>
#include <vector>

namespace companion {

/// A receiver, by its word.
struct Receiver
{
    const char* word;   ///< of --for
    const char* format; ///< of the copy, a name of reading/signatures.h
    Copy (*copy)(const std::vector<CopyTrack>& tracks, const CopySettings& settings);
    std::span<const char* const> howToSend; ///< lines; FILE stands for the copy
};

/// The receiver of a word.
const Receiver& receiverNamed(const std::string& word);

/// What the options say about the form of the copy. Throws WrongUsage (V001) for a value that is not taken.
CopySettings copySettings(const Arguments& arguments, const std::string& input);

/// Gives each track the observatory that options, profile and its own source say, in this order of weight.
/// Gives findings (V421) of stations that contradict each other.
std::vector<Finding> settleObservatories(const Arguments& arguments, CopyInput& input,
                                         const std::string& file);

} // namespace companion
