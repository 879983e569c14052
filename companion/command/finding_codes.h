// Finding codes: options that choose among findings, by their codes and by how many there are of each.

#pragma once

#include "command/subcommand.h"
#include "findings/finding.h"

#include <cstddef>
#include <iosfwd>
#include <set>
#include <string>
#include <string_view>

namespace companion {

/// The codes that an option names, with commas between; none where it was not given. Throws WrongUsage for a
/// word that is no code of the table.
std::set<FindingCode> findingCodes(const Arguments& arguments, std::string_view option);

inline constexpr OptionRow mostPlacesRow{
    "max", 0, "N", "show at most so many places of each code; the others are counted. Default 100"};

/// How many places of each code are shown. Throws WrongUsage for a value that is no whole number.
std::size_t mostPlaces(const Arguments& arguments);

/// Says in a line how many more findings of a code a file has than are shown.
void showMore(std::ostream& out, const std::string& file, std::size_t count, FindingCode code);

} // namespace companion
