// Meant losses: what the reader of a format makes no mark of, or misreads, in a text as it is meant, told by
// the lines of the file.

#pragma once

#include "reading/line_fates.h"
#include "reading/meant_text.h"

#include <string>
#include <string_view>

namespace companion {

/// Adds to the findings of a text those of the lines that its reader passed over, lost or misread, with the
/// lines and columns of the text that the file has; and what is lost to the marks that are left out.
void addLosses(std::string_view textOfFile, const std::string& format, const LineFates& fates,
               MeantText& meant);

} // namespace companion
