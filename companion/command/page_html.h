// Page HTML: the contents of a page as one document that needs nothing else.

#pragma once

#include "command/page_contents.h"

#include <string>

namespace companion {

/// The document. The same contents give the same bytes.
std::string pageDocument(const PageContents& contents);

} // namespace companion
