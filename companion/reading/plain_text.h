// Plain text: the text of a file as UTF-8, without a byte order mark and with line feeds, whatever it was
// saved as.

#pragma once

#include <string>
#include <vector>

namespace companion {

/// The text of a file.
struct PlainText
{
    std::string text{};
    std::vector<std::string> mended{}; ///< what is other than in the file, for people
    std::string broken{}; ///< which encoding it breaks, as in "broken UTF-16"; empty where it is whole
};

/// The text of a file. Of a byte a character nothing is changed but a byte order mark and, where there are no
/// line feeds at all, carriage returns. Throws WrongUsage (V003) for a file that cannot be read.
PlainText plainText(const std::string& path);

} // namespace companion
