// Text file: a text of any length, written in pieces to a file whose failures are told.

#pragma once

#include "../base/bytes.h"

#include <string>

namespace tavelinUtils {

/// A text file that is written in pieces. Throws TavelinException with code 7 and the path where the file
/// cannot be opened, written or closed, as writeText does.
class TextFile
{
public:
    explicit TextFile(std::string path, PieceFile::Old old = PieceFile::Old::replaced);

    /// What has not been written yet, to be appended to.
    TextBuffer& text()
    {
        return file.text();
    }

    /// Writes out full pieces.
    void writeFull()
    {
        if (!file.writeFull()) {
            fail();
        }
    }

    /// Writes the rest and closes the file.
    void close();

private:
    [[noreturn]] void fail() const;

    std::string path;
    PieceFile file;
};

} // namespace tavelinUtils
