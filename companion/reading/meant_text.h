// Meant text: the text of a file with each line as it is meant, in the form that the reader of its format
// takes for that.

#pragma once

#include "findings/finding.h"
#include "reading/line_menders.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace companion {

/// A text, and what is other in it.
struct MeantText
{
    std::string text{};
    std::vector<Finding> findings{};    ///< what is mended (V423), what is left out; without a file
    std::size_t leftOut = 0;            ///< marks of the file that are not in the text
    std::vector<std::size_t> missing{}; ///< lines of the file that are not in the text, in their order
    bool isRefused = false;             ///< nothing can be read, and a finding says why

    /// The line of the file that a line of the text comes from.
    std::size_t lineOf(std::size_t line) const;
};

/// The text of a file of a format, a name of reading/signatures.h, as it is meant. Messages of TDM stay as
/// they are: see reading/tdm_meaning.h.
MeantText meantText(std::string_view text, const std::string& format, MendUse use);

/// The header of a track table: its first line, or the one after that of the version.
std::string_view tableHeaderOf(std::string_view text);

} // namespace companion
