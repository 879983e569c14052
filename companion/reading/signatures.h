// Signatures: which format a file has, by its content and never by its name.

#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace companion {

/// What a file was recognised as. Formats are the eight words of a task ("mea", "telegram", "tdm", "ssmas",
/// "mpc", "tdm.xml", "mag", "aavso") and "table", "ades.xml", "ades.psv", "horizons", "elements", "task",
/// "configuration", "result".
struct Recognition
{
    std::string format; ///< empty where nothing fits at all
    int points = 0;     ///< of 100
    std::string second; ///< the next best, empty where there is none
    int secondPoints = 0;

    /// Whether the best is sure enough to go on with it.
    bool isSure() const
    {
        return points >= 90;
    }
};

/// The format of bytes.
Recognition recognised(std::string_view bytes);

/// The format of a file by the bytes of its front. Throws WrongUsage (V003) for a file that cannot be read.
Recognition recognisedFile(const std::string& path);

/// Whether a word is the name of a format.
bool isFormatName(std::string_view word);

/// The names of all formats.
std::vector<std::string> formatNames();

/// The name of a format as people write it: "MEA", "track table".
std::string formatTitle(std::string_view format);

} // namespace companion
