// Page flow: the accounts of a page, from the lines of its files to the marks in those that were written.

#pragma once

#include "command/page_contents.h"
#include "out/html.h"

namespace companion {

/// Adds a step for each account: of lines, of the marks that they made, and where there are tasks of what
/// becomes of these and of what the files hold.
void addFlow(Html& page, const PageContents& contents);

} // namespace companion
