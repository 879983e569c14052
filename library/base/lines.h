// Lines: line ends, fields at fixed columns, and the lines of a whole file.

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

/// A field at fixed columns of a line, counted from 0.
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

/// Calls a function with each line of a file's bytes, without its line end and the tabs before that. A line
/// feed at the end of the bytes starts no further line.
template <class Use>
void forEachLine(std::string_view bytes, Use use)
{
    forEachToken(bytes, '\n', [&use](std::string_view line) { use(withoutLineEnd(line)); });
}

/// The number of lines that the bytes of a file hold at most.
inline std::size_t countLines(std::string_view bytes)
{
    return static_cast<std::size_t>(std::count(bytes.begin(), bytes.end(), '\n')) + 1;
}

/// Calls reader.reserve with the number of lines of a file, then reader.add for each line. False for a file
/// that cannot be read.
template <class Reader>
bool readLines(const std::string& path, Reader& reader)
{
    FileBytes file;
    if (!readBytes(path, file)) {
        return false;
    }
    reader.reserve(countLines(file.view()));
    forEachLine(file.view(), [&reader](std::string_view line) { reader.add(line); });
    return true;
}

} // namespace tavelinUtils
