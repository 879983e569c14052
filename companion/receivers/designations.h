// Designations: the twelve columns of an object's name in an 80-column record, and the packed forms that the
// Minor Planet Center takes there.
//
//   columns 1-5      permanent number, packed: 00433, A0345, ~000z; comet 0073P; satellite of a planet J013S
//   columns 6-12     provisional designation, packed: K24Y04R; or the name that an observer gives
//   column 5         the kind of a comet before its packed designation: CK23A030

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace companion {

/// The number of a minor planet from its five packed characters; nothing for other texts. Any text of that
/// shape is a number to the receiver.
std::optional<std::int64_t> packedNumber(std::string_view five);

/// Whether the text is the packed provisional designation of a minor planet, seven characters.
bool isPackedProvisional(std::string_view seven);

/// Whether the text is a packed comet or satellite of a planet, eight characters from column 5 on.
bool isPackedComet(std::string_view eight);

/// Whether the text is a designation as people write it, which a record wants packed: "2024 YR4", "433",
/// "C/2023 A3", "73P".
bool isUnpackedDesignation(std::string_view text);

/// Whether the text is the designation of an artificial satellite: "2016-033A", "16033A".
bool isLaunchDesignation(std::string_view text);

/// The designation of a launch with the whole year, as "2016-033A" of "16033A". The years of two digits are
/// those from 1957 on, the first launch.
std::string longLaunchDesignation(std::string_view text);

/// Whether a name is that of an object: "UNKNOWN" stands for none.
bool isNameOfObject(std::string_view name);

/// What is wrong with the name of a record.
enum class NameFault
{
    none,
    notPacked, ///< a designation that is not packed
    notPlaced, ///< a name that is not where the receiver reads names
    notTaken   ///< no name, or one of characters or a length that the receiver does not take
};

/// A fault and what it is, as the end of a sentence: "begins in column 7".
struct NameVerdict
{
    NameFault fault = NameFault::none;
    std::string why{};
};

/// Looks at the text of columns 1 to 12.
NameVerdict verdictOnName(std::string_view twelve);

} // namespace companion
