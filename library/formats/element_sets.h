// Element set lists: three lines for each satellite, its name and two lines of elements, kept whole.
//
//   0 ISS (ZARYA)
//   1 25544U 98067A   24001.50000000  .00016717  00000-0  10270-3 0  9991
//   2 25544  51.6400 247.4627 0001013  37.6900 322.4251 15.50030129000011

#pragma once

#include "../export.h"
#include "../records/element_set.h"

#include <string>
#include <vector>

namespace TAVELIN_API tavelinUtils {

/// The element sets of a file; none for a missing one. The first character of a line says what it is: "0" a
/// name, "1" the first line of elements, "2" the second, which ends the set; all others are skipped. A set
/// that lacks its name or its first line has those of the set before it. The rest of a line is not checked.
std::vector<TTLEstr> l3LEstr(std::string path);

/// Replaces the file by the element sets. An empty name is written as "0", so that the set has a name line
/// and is read back as its own. Throws TavelinException with code 7 and the path for a file that cannot be
/// written.
void s3LEstr(std::string path, const std::vector<TTLEstr>& sets);

} // namespace tavelinUtils
