// Profile: what an observatory says in each of its reports, as a JSON file.
//
//   {"schema": "tavelin.profile/1", "station": "K88", "observers": ["A. B. Sender"],
//    "telescope": {"design": "reflector", "aperture": 0.6, "detector": "CCD"}}

#pragma once

#include "receivers/copy_input.h"

#include <string>

namespace companion {

/// The observatory of a profile. Throws WrongUsage for a file that cannot be read (V003), that is no profile
/// (V001), or that has a key which is not known (V002).
Observatory profileOf(const std::string& path);

/// Puts what one observatory says in front of what another says: texts that are there replace the other's.
/// A telescope that has a part replaces a line that says it all.
void putBefore(Observatory& observatory, const Observatory& first);

} // namespace companion
