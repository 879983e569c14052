// Lists of reference positions: two text files of where an object was, its name in that of the file.
//
// A missing file has no lines and is not reported; the head is filled all the same. A missing field is empty
// and counts as 0.

#pragma once

#include "../export.h"
#include "../records/track.h"

#include <string>

namespace TAVELIN_API tavelinUtils {

/// Appends a mark for each line after the first to the track. Date, time, right ascension and declination,
/// both in degrees, have fixed columns; what a line is too short for counts as 0. Sets NORAD to what precedes
/// the first "_" of the file's name, and ResidFile to the path.
void loadAMU(std::string path, TrackVtorichka& track);

/// Appends a mark for each line that does not begin with "#" to the track: epoch, right ascension in hours,
/// declination in degrees, with one blank between them. An epoch of a single part leaves date and time at 0.
/// Sets NORAD to what precedes the first "-" of the file's name without its "radec_", and ResidFile to the
/// path.
void loadEtalonAMU(std::string path, TrackVtorichka& track);

} // namespace tavelinUtils
