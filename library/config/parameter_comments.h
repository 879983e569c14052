// Comment lines of parameter files: where the values come from, a note on them, and their chart.
//
//   #Source>catalogue
//   #Note>by hand, twice
//   #Sequenceid>X16140EI

#pragma once

#include "../export.h"

#include <string>

namespace TAVELIN_API tavelinUtils {

/// Reads a comment line into the argument that its key names. The text ends at a second ">"; a line of any
/// other key changes nothing.
void ParsComment(std::string line, std::string& source, std::string& note, std::string& sequenceid);

} // namespace tavelinUtils
