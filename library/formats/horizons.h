// Ephemeris of JPL Horizons: an observer table of fixed columns between two marks, as one track.
//
//   $$SOE
//    2022-Sep-01 00:00:00.000 Cm  20 58 02.84 -00 43 53.4 ...   13.761   4.967   0.3173359   288.26854
//    date        time             RA          DE                m                V           PA
//   $$EOE

#pragma once

#include "../export.h"
#include "../records/track.h"

#include <map>
#include <string>
#include <vector>

namespace TAVELIN_API tavelinUtils {

/// The months: "Jan" gives "01", and so on to "Dec" and "12".
std::map<std::string, std::string> GetMonthCount();

/// Appends a mark for each line between "$$SOE" and "$$EOE" to the track, and sets V and PA of its head to
/// those of the last line. Returns 0, or -1 where one of the two is missing, or "$$EOE" comes first, which
/// gives no marks; without "$$EOE" all lines after "$$SOE" are read. Throws std::out_of_range for a line
/// that is too short for one of the columns and for a month that is none; marks of the lines before it stay
/// in the track. Text that is no number counts as 0.
int lHorizons(const std::vector<std::string>& lines, TrackVtorichka& track);

/// The same with the lines of a file; -1 for a missing one.
int lHorizons(std::string path, TrackVtorichka& track);

} // namespace tavelinUtils
