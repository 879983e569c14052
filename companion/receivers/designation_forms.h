// Designation forms: official designations in the packed form of 80-column records and in the form of ADES,
// whichever of the two a name has.
//
//   designationOf("K24Y04R")->provisional     // "2024 YR4"
//   packedColumns(*designationOf("73P-C"))    // "0073P      c"

#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace companion {

/// An official designation as people write it; at least one of the two is there.
struct Designation
{
    std::string number{};      ///< "433", "73P-C", "1I", "Jupiter 13"
    std::string provisional{}; ///< "2024 YR4", "2040 P-L", "C/2023 A3", "S/2020 J 1"
};

/// The designation that a name is, packed or not, with its blanks or without them; nothing for any other
/// name.
std::optional<Designation> designationOf(std::string_view name);

/// Columns 1 to 12 of a designation; nothing for one that has no packed form.
std::optional<std::string> packedColumns(const Designation& designation);

/// Whether a name can stand as that of an observer: 1 to 7 letters and digits, a letter first.
bool isTemporaryName(std::string_view name);

} // namespace companion
