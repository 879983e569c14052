// Mark lines: the line of each mark of a file, in the order in which the reader of its format hands the marks
// out, and what that line says besides.

#pragma once

#include "base/text_index.h"
#include "reading/line_fates.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace companion {

/// A mark's line.
struct MarkLine
{
    std::uint32_t number = 0;  ///< of the text, from 1; 0 where none is known
    std::uint32_t station = 0; ///< the number of its station's code, 0 where it names none
    bool hasMagnitude = false;
    bool hasBand = false;
};

/// The lines of the marks of a text.
class MarkLines
{
public:
    /// Of a text of a format, whose lines have the fates that its reader told.
    MarkLines(std::string_view text, const std::string& format, const LineFates& fates);

    /// The line of the next mark of an object, by the name that the reader gives the track.
    MarkLine next(std::string_view object);

    /// The code of a station's number.
    std::string stationOf(std::uint32_t number) const
    {
        return std::string(stations[number]);
    }

private:
    void add(std::string_view line, std::uint32_t number);
    std::string_view objectOf(std::string_view line) const;
    MarkLine readLine(std::string_view line, std::uint32_t number);
    void takeTableHeader(std::string_view text);

    bool isMea;
    bool isReport;
    bool hasMagnitudes = true; // in each line
    bool hasBands = false;
    tavelinUtils::TextIndex objects{}; // where the reader gathers the marks of an object
    tavelinUtils::TextIndex stations{};
    std::vector<std::vector<MarkLine>> lines{}; // by objects
    std::vector<std::size_t> taken{};
};

} // namespace companion
