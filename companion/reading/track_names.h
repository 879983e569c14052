// Track names: what the object of a track is called.

#pragma once

#include "records/track.h"

#include <string>

namespace companion {

/// The first there is of the name, the designation, which is what a report in 80 columns has, and the number
/// of the satellite.
inline const std::string& objectOf(const tavelinUtils::TrackVtorichka& track)
{
    if (!track.QRVName.empty()) {
        return track.QRVName;
    }
    return track.MPCChecker.empty() ? track.NORAD : track.MPCChecker;
}

} // namespace companion
