// TDM segment: whether the angles of a segment are right ascensions and declinations of an object, and what
// its metadata say in the form that the tool writes.

#pragma once

#include "findings/finding.h"
#include "reading/tdm_clock.h"
#include "reading/tdm_document.h"
#include "reading/true_reading.h"

#include <optional>
#include <string>
#include <vector>

namespace companion {

/// What the metadata of a segment come to.
struct SegmentHead
{
    std::vector<TdmEntry> metadata{};
    std::string observer{};
    std::string object{};
    std::string frame{};
    TdmClock clock = TdmClock::UTC;
    double addedToRA = 0;            ///< corrections, degrees
    double addedToDE = 0;            ///< degrees
    double addedToMagnitude = 0;     ///< magnitudes
    bool isCorrected = false;        ///< the corrections are to be added
    bool isExchanged = false;        ///< the observer is the second participant of the message
    std::vector<Finding> refusals{}; ///< why the segment cannot be taken (V141 to V145)
};

/// Whether the places of a frame are taken for those of ICRF.
bool isFrameOfIcrf(std::string_view word);

/// The head of a segment that has angles.
SegmentHead segmentHeadOf(const TdmSegment& segment, const TrueSettings& settings);

} // namespace companion
