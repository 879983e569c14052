// Finding codes: options whose values are codes of findings.

#pragma once

#include "command/subcommand.h"
#include "findings/finding.h"

#include <set>
#include <string_view>

namespace companion {

/// The codes that an option names, with commas between; none where it was not given. Throws WrongUsage for a
/// word that is no code of the table.
std::set<FindingCode> findingCodes(const Arguments& arguments, std::string_view option);

} // namespace companion
