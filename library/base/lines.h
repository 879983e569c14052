// Lines: their ends, their fields of fixed place, and the lines of a whole file.

#pragma once

#include "bytes.h"
#include "tokens.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>

namespace tavelinUtils {

/// A text without the line feeds, carriage returns and tabs at its end.
inline std::string_view withoutLineEnd(std::string_view line)
{
    while (!line.empty() && (line.back() == '\n' || line.back() == '\r' || line.back() == '\t')) {
        line.remove_suffix(1);
    }
    return line;
}

/// A field of fixed place in a line, 0-based.
struct LineColumn
{
    std::size_t first;
    std::size_t width;
};

/// The text of a field. Throws std::out_of_range where the line ends before the field; where it ends within
/// the field, the text is shorter.
inline std::string_view cutColumn(std::string_view line, LineColumn column)
{
    return line.substr(column.first, column.width);
}

/// Hands each line of a file's bytes to a function, without its line end and without the tabs before
/// that. A line feed at the end of the bytes makes no further line.
template <class Use>
void forEachLine(std::string_view bytes, Use use)
{
    forEachToken(bytes, '\n', [&use](std::string_view line) { use(withoutLineEnd(line)); });
}

/// How many lines the bytes of a file hold at most.
inline std::size_t countLines(std::string_view bytes)
{
    return static_cast<std::size_t>(std::count(bytes.begin(), bytes.end(), '\n')) + 1;
}

/// Hands each line of a file to a reading that takes lines one after the other, after it has reserved room
/// for them. False for a file that cannot be read.
template <class Reading>
bool readLines(const std::string& path, Reading& reading)
{
    FileBytes file;
    if (!readBytes(path, file)) {
        return false;
    }
    reading.reserve(countLines(file.view()));
    forEachLine(file.view(), [&reading](std::string_view line) { reading.add(line); });
    return true;
}

} // namespace tavelinUtils
