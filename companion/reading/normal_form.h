// Normal form: a file in the form that the tool reads right.

#pragma once

#include "findings/finding.h"
#include "reading/true_reading.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace companion {

/// A copy of a file.
struct NormalForm
{
    std::string text{};
    bool isChanged = false;          ///< it is not the file byte for byte
    std::vector<Finding> findings{}; ///< what is mended, left out or refused, by lines; without a file
    std::size_t marks = 0;           ///< that the reader of the library makes of the copy
    std::size_t leftOut = 0;         ///< marks of the file that are not in the copy
    bool isRefused = false;          ///< there is nothing to write
};

/// Whether files of a format have a normal form: a name of reading/signatures.h.
bool hasNormalForm(std::string_view format);

/// The normal form of a file; a message in XML becomes text. Throws WrongUsage (V003) for a file that cannot
/// be read.
NormalForm normalFormOf(const std::string& path, const std::string& format, const TrueSettings& settings);

} // namespace companion
