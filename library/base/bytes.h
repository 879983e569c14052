// Bytes of files: opening, reading and writing whole files, presence.

#pragma once

#include "text_buffer.h"

#include <cstddef>
#include <cstdio>
#include <memory>
#include <string>
#include <string_view>

namespace tavelinUtils {

/// Closes the stream of an OpenFile.
struct CloseFile
{
    void operator()(std::FILE* file) const
    {
        std::fclose(file);
    }
};

/// A stream that closes itself.
using OpenFile = std::unique_ptr<std::FILE, CloseFile>;

/// Opens a file in a mode of the C library. A null pointer if that fails; std::bad_alloc is thrown where a
/// file is to be read and there is no memory to open it.
OpenFile openFile(const std::string& path, const char* mode);

/// Throws std::bad_alloc where the last call of the C library failed for lack of memory: what it was to open
/// is not missing.
void mustHaveMemory();

/// Whether the path leads to a regular file, in place of a folder, a device or a pipe.
bool isRegular(const std::string& path);

/// The same for an open file.
bool isRegular(std::FILE* file);

/// Whether the path can be opened for reading; a folder can.
bool canBeOpened(const std::string& path);

/// Opens a file for reading as an unbuffered stream of bytes. A null pointer if it cannot be opened or is a
/// folder.
OpenFile openForReading(const std::string& path);

/// The size of an open file in bytes; 0 for anything but a regular file.
std::size_t sizeOf(std::FILE* file);

/// The bytes of a file.
struct FileBytes
{
    /// Zero bytes after the last, so that a scanner may look a few bytes ahead at the end.
    static constexpr std::size_t spareBytes = 8;

    std::unique_ptr<char[]> bytes;
    std::size_t size = 0;

    std::string_view view() const
    {
        return {bytes.get(), size};
    }
};

/// Reads an open file to its end in one step and adds spare zero bytes. False for a file that cannot be read,
/// such as a folder; the target is then untouched.
bool readBytes(std::FILE* stream, FileBytes& file);

/// The same for a path. False also for a file that cannot be opened.
bool readBytes(const std::string& path, FileBytes& file);

/// Opens a file in the mode and writes the bytes in one call. False when opening, writing or closing fails.
bool writeBytes(const std::string& path, const char* mode, std::string_view bytes);

/// The bytes of an open file in pieces, each of whole lines. Memory does not grow with the file, but for a
/// line that is longer than a piece.
class LinePieces
{
public:
    static constexpr std::size_t usualLength = std::size_t{1} << 18;

    explicit LinePieces(std::FILE* stream, std::size_t pieceLength = usualLength);

    /// Takes the next piece; false after the last one and where the file cannot be read.
    bool next();

    /// The lines of the piece with their ends, which the last line of the file may lack.
    std::string_view lines() const
    {
        return {bytes.get(), lineEnd};
    }

    /// Whether the file could not be read to its end.
    bool failed() const;

private:
    bool readMore();

    std::FILE* stream;
    std::size_t room;
    std::unique_ptr<char[]> bytes;
    std::size_t size = 0;    // of the bytes that are there
    std::size_t lineEnd = 0; // of the last whole line among them
};

/// A file that is written in pieces through one buffer. It is opened when the first piece goes out, so that
/// what comes to at most one piece is one write.
class PieceFile
{
public:
    static constexpr std::size_t pieceLength = std::size_t{1} << 20;

    /// What happens to a file that is there already.
    enum class Old
    {
        replaced,
        removed,
        appendedTo,
        removedAndAppendedTo
    };

    PieceFile(std::string path, Old old);

    /// What has not been written yet, to be appended to.
    TextBuffer& text()
    {
        return buffer;
    }

    /// Writes out full pieces. False when opening or writing has failed, now or before.
    bool writeFull()
    {
        return buffer.size() <= pieceLength ? complete : writePieces();
    }

    /// Writes the rest and closes the file. False when anything has failed.
    bool close();

private:
    bool writePieces();
    void write(std::string_view bytes);
    void open();

    std::string path;
    Old old;
    OpenFile file;
    bool opened = false;
    bool complete = true;
    TextBuffer buffer;
};

} // namespace tavelinUtils
