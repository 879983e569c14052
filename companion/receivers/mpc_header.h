// MPC header: the lines of a station before its observations.

#pragma once

#include "receivers/copy_input.h"

#include <string>
#include <string_view>
#include <vector>

namespace companion {

/// The names of a list, which has commas between them; what is blank is none.
std::vector<std::string> namesOf(std::string_view list);

/// The telescope of an observatory as the header has it: "0.60-m f/4.0 reflector + CCD"; empty where it is
/// not known.
std::string telescopeLine(const Observatory& observatory);

/// Fills design, aperture, focal ratio and detector of an observatory that are empty from its telescope line,
/// as far as that tells them.
void readTelescopeLine(Observatory& observatory);

/// The lines of a station, each with its line feed. The acknowledgement is the given one where the
/// observatory has none.
std::string mpcHeader(const Observatory& observatory, const std::string& acknowledgement);

/// What the receiver would refuse of the header: a finding each. Headers after the first inherit nothing and
/// need telescope and catalogue too.
std::vector<Finding> mpcHeaderFaults(const Observatory& observatory, bool isFirst);

} // namespace companion
