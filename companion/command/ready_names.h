// Ready names: other names for the objects of a copy.

#pragma once

#include "task/copy_tracks.h"

#include <string>
#include <utility>
#include <vector>

namespace companion {

/// Old and new names.
using NewNames = std::vector<std::pair<std::string, std::string>>;

/// The names of a file of two columns: old and new, with a tab between them, or a blank where a line has no
/// tab. Empty lines and those that begin with # are skipped. Throws WrongUsage for a file that cannot be read
/// (V003) and for a line of other columns or a name that comes twice (V001).
NewNames namesOfFile(const std::string& path);

/// Names for the objects that nobody has identified, and for those whose name no receiver of short names
/// takes: the base and a number in base 36. Names that other objects have are left out. Throws WrongUsage
/// (V001) for a base that no name can begin with, or that leaves no room for the numbers.
NewNames newNames(const CopyInput& input, const std::string& base);

/// Renames objects. Gives a note for each name that is another one now (V424), and for each that no object
/// has (V423).
std::vector<Finding> rename(CopyInput& input, const NewNames& names, const std::string& file);

} // namespace companion
