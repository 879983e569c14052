// Names of the tracks in a track table: the given one, or a short one that is made by rules.

#pragma once

#include "../export.h"
#include "../records/track.h"

#include <string>

namespace TAVELIN_API tavelinUtils {

/// The short name of a track: the prefix ("A" where both prefix and suffix are empty), the number in at least
/// two digits, the suffix, and the last two characters of the path's folder, one for a number above 99.
std::string CalcSecondName(std::string path, int number, std::string prefix, std::string suffix);

/// The short name of a satellite's track: the prefix and the number in at least three digits.
std::string CalcSecondNameSat(int number, std::string prefix);

/// The name of a track on the lines of its marks: the given name, if there is one. Otherwise, where long
/// names are not asked for and QRVName has more than 7 characters, 8 of these from the second on. Otherwise
/// the short name of a satellite's track for tracks of GSOHO and MOSKH, and that of a track, with the folder
/// of the source path, for all others.
std::string shownName(const TrackVtorichka& track, const std::string& givenName, const std::string& source,
                      const std::string& prefix, const std::string& suffix, int number, bool longName);

} // namespace tavelinUtils
