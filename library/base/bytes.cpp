#include "base/bytes.h"

#include <cstring>
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

} // namespace

OpenFile openFile(const std::string& path, const char* mode)
{
    return OpenFile(std::fopen(path.c_str(), mode));
}

bool canBeOpened(const std::string& path)
{
    return openFile(path, "rb") != nullptr;
}

OpenFile openForReading(const std::string& path)
{
    OpenFile file = openFile(path, "rb");
    struct stat status = {};
    if (file && fstat(fileno(file.get()), &status) == 0 && S_ISDIR(status.st_mode)) {
        file = nullptr;
    }
    if (file) {
        std::setvbuf(file.get(), nullptr, _IONBF, 0);
    }
    return file;
}

std::size_t sizeOf(std::FILE* file)
{
    struct stat status = {};
    const bool known = fstat(fileno(file), &status) == 0 && S_ISREG(status.st_mode);
    return known ? static_cast<std::size_t>(status.st_size) : 0;
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

} // namespace tavelinUtils
