// Page findings: what was found in the files and tasks of a page, errors first.

#pragma once

#include "command/page_contents.h"
#include "out/html.h"

namespace companion {

/// Adds the findings of each code with their first places, and what the code means.
void addFindings(Html& page, const PageContents& contents);

} // namespace companion
