// Text front: the front of a file in one form, whatever its encoding and line ends, and what these are.

#pragma once

#include <cstddef>
#include <cstdio>
#include <string>
#include <string_view>

namespace companion {

/// Throws WrongUsage (V003) with the path where the stream could not be read to its end: its front is not to
/// be taken for the whole.
void mustHaveBeenRead(std::FILE* stream, const std::string& path);

/// How the text of a file is written down.
struct TextForm
{
    std::string encoding; ///< "ASCII", "UTF-8", "UTF-16", "UTF-32" or "other"
    bool hasMark = false; ///< a byte order mark at its front
    std::size_t bytes = 0;
    std::string lineEnds; ///< "LF", "CRLF", "CR", "mixed" or "none"
};

/// The encoding of a text of two or four bytes a character, "UTF-16" or "UTF-32"; empty for any other.
std::string wideEncoding(std::string_view front);

/// The front of the bytes of a file as text: without a byte order mark, of wide encodings the first byte of
/// each character alone, with line feeds where carriage returns alone end the lines.
std::string textFront(std::string_view bytes);

/// The bytes at the front of a file: as many as tell its format. Throws WrongUsage (V003) for a file that
/// cannot be read.
std::string frontOfFile(const std::string& path);

/// How the text of a file is written down, by all its bytes. Throws WrongUsage as frontOfFile does.
TextForm textFormOf(const std::string& path);

} // namespace companion
