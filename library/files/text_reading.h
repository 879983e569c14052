// Text reading: the lines and the bytes of text files. A file that is missing has none; one that is there and
// cannot be read to its end is told, so that nobody takes its front for the whole.

#pragma once

#include "../base/bytes.h"
#include "../base/lines.h"

#include <cstdio>
#include <string>

namespace tavelinUtils {

/// Throws TavelinException of code 7 with the path if the stream is that of a regular file. What else cannot
/// be read, such as a folder, has no text.
void mustNotBeRegular(std::FILE* stream, const std::string& path);

/// Reads a text file whole. False for one that cannot be opened, and for a folder; throws TavelinException of
/// code 7 with the path for a regular file that cannot be read to its end.
bool readText(const std::string& path, FileBytes& file);

/// Gives a reader each line of an open text file. False for what is no regular file and cannot be read to its
/// end: a reader that has taken lines of it is not to be used any more. Throws as readText does.
template <class Reader>
bool readTextLines(std::FILE* stream, const std::string& path, Reader& reader)
{
    const bool isWhole = readLines(stream, reader);
    if (!isWhole) {
        mustNotBeRegular(stream, path);
    }
    return isWhole;
}

/// The same for a path. False also for a file that cannot be opened.
template <class Reader>
bool readTextLines(const std::string& path, Reader& reader)
{
    const OpenFile stream = openForReading(path);
    return stream != nullptr && readTextLines(stream.get(), path, reader);
}

} // namespace tavelinUtils
