// Lines: their ends, their fields, and the lines of a list or of a file given to a reader.

#pragma once

#include "bytes.h"
#include "numbers.h"
#include "tokens.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdio>
#include <iterator>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tavelinUtils {

/// A text without the line feeds, carriage returns and tabs at its end.
inline std::string_view withoutLineEnd(std::string_view line)
{
    while (!line.empty() && (line.back() == '\n' || line.back() == '\r' || line.back() == '\t')) {
        line.remove_suffix(1);
    }
    return line;
}

/// A field of a line of fixed columns: its first column, counted from 1, and how many columns it has.
struct Field
{
    std::size_t first;
    std::size_t width;
};

/// Whether the fields follow each other without a gap from column 1 to the end of a line of that length.
template <std::size_t count>
constexpr bool fillLine(const Field (&fields)[count], std::size_t lineLength)
{
    std::size_t next = 1;
    for (const Field& field : fields) {
        if (field.first != next) {
            return false;
        }
        next += field.width;
    }
    return next == lineLength + 1;
}

/// The text of a field. Throws std::out_of_range where the line ends before the column in front of the field;
/// where it ends within the field, the text is shorter.
inline std::string_view cut(std::string_view line, Field field)
{
    return line.substr(field.first - 1, field.width);
}

/// The same, but an empty text where the line ends before the field.
inline std::string_view cutIfThere(std::string_view line, Field field)
{
    return line.size() < field.first ? std::string_view() : cut(line, field);
}

/// A text without its blanks.
inline std::string withoutBlanks(std::string_view text)
{
    std::string rest(text);
    std::erase(rest, ' ');
    return rest;
}

/// Writes a field that holds nothing, and returns its end.
inline char* writeBlank(char* to, Field field)
{
    return std::fill_n(to, field.width, ' ');
}

/// A field of a line whose fields have one blank between them: how a reader takes its text, and how a writer
/// writes it, which returns the end of what it has written. A reader that passes a field over has takeNothing
/// there.
template <class Target, class Source>
struct TokenField
{
    void (*read)(Target& target, std::string_view text);
    char* (*write)(char* to, const Source& source);
};

/// The read of a field whose text is not used.
template <class Target>
void takeNothing(Target& /*target*/, std::string_view /*text*/)
{
}

/// Gives each field the token of its place, from the first on. Unrolled by the compiler, so that a table of
/// fields costs no more than calls in a row.
template <const auto& fields, class Target, std::size_t room>
void readFields(const std::array<std::string_view, room>& tokens, Target& target)
{
    static_assert(room >= std::size(fields));
    [&]<std::size_t... place>(std::index_sequence<place...>)
    {
        (fields[place].read(target, tokens[place]), ...);
    }
    (std::make_index_sequence<std::size(fields)>());
}

/// Writes the fields with a blank between them, and returns their end.
template <const auto& fields, class Source>
char* writeFields(char* to, const Source& source)
{
    [&]<std::size_t... place>(std::index_sequence<place...>)
    {
        ((to = fields[place].write(place == 0 ? to : writeText(to, ' '), source)), ...);
    }
    (std::make_index_sequence<std::size(fields)>());
    return to;
}

/// Calls use(line) for each line of a file's bytes, without its line end and without the tabs before that.
/// A line feed at the end of the bytes makes no further line.
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

/// Gives each line of a list to a reader, by add(line).
template <class Reader>
void takeLines(const std::vector<std::string>& lines, Reader& reader)
{
    for (const std::string& line : lines) {
        reader.add(line);
    }
}

/// The same for each line of the bytes of a file.
template <class Reader>
void takeLines(std::string_view bytes, Reader& reader)
{
    forEachLine(bytes, [&reader](std::string_view line) { reader.add(line); });
}

/// The same for each line of an open file. False for a file that cannot be read to its end: a reader that has
/// taken lines of it is not to be used any more.
template <class Reader>
bool readLines(std::FILE* stream, Reader& reader, std::size_t pieceLength = LinePieces::usualLength)
{
    LinePieces pieces(stream, pieceLength);
    while (pieces.next()) {
        takeLines(pieces.lines(), reader);
    }
    return !pieces.failed();
}

} // namespace tavelinUtils
