// TDM meaning: the marks that a tracking data message tells of, by the standard: angles that are right
// ascension and declination, paired by their times, in UTC, of an observer and an object.

#pragma once

#include "findings/finding.h"
#include "reading/tdm_clock.h"
#include "reading/tdm_document.h"
#include "reading/true_reading.h"

#include <cstddef>
#include <string>
#include <vector>

namespace companion {

/// A mark; its numbers as the message writes them, in degrees and magnitudes.
struct TdmMark
{
    std::size_t line = 0; ///< of the first of its records
    MeantEpoch epoch{};
    std::string RA{};
    std::string DE{};
    std::string magnitude{}; ///< empty where there is none
};

/// The marks of a segment.
struct TdmTrack
{
    std::vector<TdmEntry> metadata{}; ///< in UTC, with the observer as the first participant
    std::vector<std::string> comments{};
    std::string observer{};
    std::string object{};
    std::string frame{};
    std::vector<TdmMark> marks{};
};

/// What a message tells.
struct TdmMeaning
{
    std::vector<TdmEntry> header{};
    std::vector<TdmTrack> tracks{};
    std::vector<Finding> findings{}; ///< V140 to V147 and what else is not taken, by lines
    std::size_t leftOut = 0;         ///< marks, or angles without their pair, that are in no track
};

/// The meaning of a message. Segments that cannot be taken are in the findings alone.
TdmMeaning tdmMeaningOf(const TdmDocument& document, const TrueSettings& settings);

/// What marks without a magnitude come to in a copy: a finding (V147) for each track that has some; they are
/// taken out, and counted as left out.
void leaveOutWithoutMagnitude(TdmMeaning& meaning);

/// The message as the text that the tool's reader takes.
std::string tdmText(const TdmMeaning& meaning);

} // namespace companion
