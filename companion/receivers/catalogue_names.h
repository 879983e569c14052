// Catalogue names: star catalogues as the line NET of an 80-column report names them, and as ADES does.

#pragma once

#include <string>
#include <string_view>

namespace companion {

/// The name for the line NET of a catalogue's name in either form; the name itself where it is not known.
std::string catalogueForNet(std::string_view name);

/// The word of ADES of a catalogue's name in either form; the name itself where it is not known.
std::string catalogueForAdes(std::string_view name);

} // namespace companion
