// Bytes of files: opening, reading and writing whole files, presence.

#pragma once

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

/// Opens a file in a mode of the C library. A null pointer if that fails.
OpenFile openFile(const std::string& path, const char* mode);

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

} // namespace tavelinUtils
