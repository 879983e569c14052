// Report mends: what of a line in 80 columns is other in its copy.

#pragma once

#include <string_view>
#include <vector>

namespace companion {

/// The changes of form between an observation as it was read, 80 columns with a blank for a sign that is
/// missing, and as it is written. The sign itself and the name are not looked at: what read the line, or the
/// designation, tells of them.
std::vector<std::string_view> reportMends(std::string_view read, std::string_view written);

/// Whether columns 72 to 77 of an observation in 80 columns hold anything: only the receiver writes there.
bool fillsReceiverColumns(std::string_view line);

/// Whether columns 13 and 14 hold an asterisk or a note.
bool hasNotes(std::string_view line);

/// What is told where columns 72 to 77 columns are not kept.
constexpr std::string_view receiverColumnsMended = "columns 72 to 77 are blank";

/// What is told where a magnitude is left out.
constexpr std::string_view magnitudeMended = "a magnitude that is none is left blank";

} // namespace companion
