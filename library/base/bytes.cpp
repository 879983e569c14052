#include "base/bytes.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <new>
#include <utility>

#include <sys/stat.h>

namespace tavelinUtils {
namespace {

constexpr std::size_t spareBytes = FileBytes::spareBytes;

// Gives the bytes larger room.
void moveInto(std::size_t room, FileBytes& file)
{
    auto larger = std::make_unique_for_overwrite<char[]>(room + spareBytes);
    std::memcpy(larger.get(), file.bytes.get(), file.size);
    file.bytes = std::move(larger);
}

// One that the system does not give stays empty: of no kind and no size.
struct stat statusOf(std::FILE* file)
{
    struct stat status = {};
    fstat(fileno(file), &status);
    return status;
}

} // namespace

OpenFile openFile(const std::string& path, const char* mode)
{
    OpenFile file(std::fopen(path.c_str(), mode));
    if (!file && *mode == 'r') {
        mustHaveMemory();
    }
    return file;
}

void mustHaveMemory()
{
    if (errno == ENOMEM) {
        throw std::bad_alloc();
    }
}

bool isRegular(const std::string& path)
{
    struct stat status = {}; // of no kind, where the system gives none
    stat(path.c_str(), &status);
    return S_ISREG(status.st_mode);
}

bool isRegular(std::FILE* file)
{
    return S_ISREG(statusOf(file).st_mode);
}

bool canBeOpened(const std::string& path)
{
    return openFile(path, "rb") != nullptr;
}

OpenFile openForReading(const std::string& path)
{
    OpenFile file = openFile(path, "rb");
    if (file && S_ISDIR(statusOf(file.get()).st_mode)) {
        file = nullptr;
    }
    if (file) {
        std::setvbuf(file.get(), nullptr, _IONBF, 0);
    }
    return file;
}

std::size_t sizeOf(std::FILE* file)
{
    const struct stat status = statusOf(file);
    return S_ISREG(status.st_mode) ? static_cast<std::size_t>(status.st_size) : 0;
}

bool readBytes(std::FILE* stream, FileBytes& file)
{
    // One byte more than the size of the file, so that the first read already meets its end.
    std::size_t room = sizeOf(stream) + 1;
    FileBytes read{std::make_unique_for_overwrite<char[]>(room + spareBytes), 0};
    while (const std::size_t count = std::fread(read.bytes.get() + read.size, 1, room - read.size, stream)) {
        read.size += count;
        if (read.size == room) {
            room *= 2;
            moveInto(room, read);
        }
    }
    if (std::ferror(stream) != 0) {
        return false;
    }
    std::memset(read.bytes.get() + read.size, 0, spareBytes);
    file = std::move(read);
    return true;
}

bool readBytes(const std::string& path, FileBytes& file)
{
    const OpenFile stream = openForReading(path);
    return stream != nullptr && readBytes(stream.get(), file);
}

bool writeBytes(const std::string& path, const char* mode, std::string_view bytes)
{
    OpenFile stream = openFile(path, mode);
    if (!stream) {
        return false;
    }
    std::setvbuf(stream.get(), nullptr, _IONBF, 0);
    const bool written = std::fwrite(bytes.data(), 1, bytes.size(), stream.get()) == bytes.size();
    return std::fclose(stream.release()) == 0 && written;
}

// A small file is one piece, read with the byte that is not there and so tells its end.
LinePieces::LinePieces(std::FILE* file, std::size_t pieceLength)
    : stream(file), room(pieceLength), bytes(std::make_unique_for_overwrite<char[]>(room))
{
}

bool LinePieces::next()
{
    size -= lineEnd;
    std::memmove(bytes.get(), bytes.get() + lineEnd, size);
    lineEnd = 0;
    while (lineEnd == 0 && readMore()) {
    }
    return lineEnd != 0;
}

// Reads as much as there is room for and looks for the last whole line; false at the end of the file, where a
// line without a line feed is whole too.
bool LinePieces::readMore()
{
    if (size == room) {
        auto larger = std::make_unique_for_overwrite<char[]>(2 * room);
        std::memcpy(larger.get(), bytes.get(), size);
        bytes = std::move(larger);
        room *= 2;
    }
    const std::size_t count = std::fread(bytes.get() + size, 1, room - size, stream);
    const std::string_view read(bytes.get() + size, count);
    const std::size_t feed = read.rfind('\n');
    size += count;
    if (feed != std::string_view::npos) {
        lineEnd = size - count + feed + 1;
    } else if (count == 0 && !failed()) {
        lineEnd = size;
    }
    return count != 0;
}

bool LinePieces::failed() const
{
    return std::ferror(stream) != 0;
}

PieceFile::PieceFile(std::string filePath, Old oldFile) : path(std::move(filePath)), old(oldFile)
{
    constexpr std::size_t longestAddition = std::size_t{1} << 13;
    buffer.reserve(pieceLength + longestAddition);
}

bool PieceFile::writePieces()
{
    while (buffer.size() > pieceLength) {
        write(buffer.view().substr(0, pieceLength));
        buffer.erase(0, pieceLength);
    }
    return complete;
}

bool PieceFile::close()
{
    writePieces();
    write(buffer.view());
    buffer.clear();
    return file && std::fclose(file.release()) == 0 && complete;
}

void PieceFile::write(std::string_view bytes)
{
    if (!opened) {
        open();
    }
    complete = complete && file && std::fwrite(bytes.data(), 1, bytes.size(), file.get()) == bytes.size();
}

void PieceFile::open()
{
    opened = true;
    if (old == Old::removed || old == Old::removedAndAppendedTo) {
        std::remove(path.c_str());
    }
    const bool appends = old == Old::appendedTo || old == Old::removedAndAppendedTo;
    file = openFile(path, appends ? "a" : "w");
    if (file) {
        std::setvbuf(file.get(), nullptr, _IONBF, 0);
    }
}

} // namespace tavelinUtils
