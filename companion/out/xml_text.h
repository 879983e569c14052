// XML text: how a text stands in a document.

#pragma once

#include <string>
#include <string_view>

namespace companion {

/// A text as the content of an element or the value of an attribute: what has a meaning in XML, and control
/// characters, which parsers change, as references. All other bytes stay.
std::string xmlText(std::string_view text);

} // namespace companion
