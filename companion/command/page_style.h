// Page style: what a page looks like, and the script by which its table is sorted and searched.

#pragma once

#include <string_view>

namespace companion {

/// The style sheet: light and dark as the reader's system is, for wide and narrow windows and for paper.
std::string_view pageStyle();

/// The script. The page says all without it.
std::string_view pageScript();

} // namespace companion
