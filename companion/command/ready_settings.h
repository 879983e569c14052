// Ready settings: what the options of `tavelin ready` ask for.

#pragma once

#include "command/subcommand.h"
#include "receivers/copy_input.h"
#include "receivers/copy_tally.h"
#include "task/copy_tracks.h"

#include <cstddef>
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

/// What settling the observatories came to.
struct SettledObservatories
{
    std::vector<Finding> contradictions{}; ///< V421: of stations
    std::size_t refused = 0;               ///< marks of tracks whose stations contradict each other
    std::vector<std::string> sources{};    ///< who says the station, of each track; empty where nobody does
};

/// Gives each track the observatory that options, profile and its own source say, in this order of weight.
/// Contradictions are in the given file.
SettledObservatories settleObservatories(const Arguments& arguments, CopyInput& input,
                                         const std::string& file);

} // namespace companion
