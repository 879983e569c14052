#include "files/essentials.h"

#include <algorithm>
#include <chrono>
#include <cstring>
#include <ctime>
#include <thread>

#include <sys/stat.h>
#include <sys/time.h>

namespace tavelinUtils {
namespace {

constexpr std::size_t spareBytes = FileBytes::spareBytes;

std::string behindLastOf(const std::string& path, const std::string& separators)
{
    const std::size_t last = path.find_last_of(separators);
    return last == std::string::npos ? path : path.substr(last + 1);
}

} // namespace

std::string normalizeSeparatorDir(const std::string& path)
{
    std::string canonical = path;
    std::replace(canonical.begin(), canonical.end(), '\\', '/');
    canonical.erase(canonical.find_last_not_of('/') + 1);
    return canonical.empty() && !path.empty() ? Slash : canonical;
}

void AddSlash(std::string& path, std::string separator)
{
    if (!path.empty() && !path.ends_with(separator)) {
        path += separator;
    }
}

std::string GetFileExt(std::string name)
{
    const std::size_t point = name.rfind('.');
    return point == std::string::npos ? "" : name.substr(point);
}

std::string ExtractOnlyFileName(std::string path)
{
    const std::string name = behindLastOf(path, "/\\");
    return name.substr(0, name.rfind('.'));
}

std::string ExtractFileName(std::string path, std::string separator)
{
    return behindLastOf(path, "\\" + separator);
}

std::string ExtractPath(std::string path)
{
    return path.substr(0, path.find_last_of("\\" + Slash));
}

std::FILE* fopen(std::string path, std::string mode)
{
    return std::fopen(path.c_str(), mode.c_str());
}

bool FileExists(std::string path)
{
    return OpenFile(fopen(path, "rb")) != nullptr;
}

bool DirectoryExists(std::string path)
{
    constexpr unsigned directoryBit = 0x4000;
    struct stat status = {};
    return !path.empty() && stat(normalizeSeparatorDir(path).c_str(), &status) == 0 &&
           (status.st_mode & directoryBit) != 0;
}

void Pars9(std::string text, std::vector<std::string>& tokens, std::string separator)
{
    if (text.empty()) {
        return;
    }
    // A longer separator is appended even where the text ends in it, which makes one more empty token.
    if (separator.size() != 1 || text.back() != separator.front()) {
        text += separator;
    }
    tokens.clear();
    if (separator.empty()) {
        return;
    }
    std::size_t begin = 0;
    for (std::size_t end = text.find(separator); end != std::string::npos; end = text.find(separator, begin))
    {
        tokens.push_back(text.substr(begin, end - begin));
        begin = end + separator.size();
    }
}

void mytrim_r(std::string& text)
{
    text.resize(withoutLineEnd(text).size());
}

std::string NowToDateTimeLin()
{
    timeval now = {};
    gettimeofday(&now, nullptr);
    const std::tm* local = std::localtime(&now.tv_sec);
    char text[128];
    const int size = std::snprintf(text, sizeof text, "%d-%02d-%02d %02d:%02d:%02d.%06ld",
                                   local->tm_year + 1900, local->tm_mon + 1, local->tm_mday, local->tm_hour,
                                   local->tm_min, local->tm_sec, static_cast<long>(now.tv_usec));
    return {text, static_cast<std::size_t>(size)};
}

std::string NowToDateTime(std::string /*separator*/)
{
    return NowToDateTimeLin();
}

void stayForever()
{
    for (;;) {
        std::this_thread::sleep_for(std::chrono::hours(1));
    }
}

OpenFile openForReading(const std::string& path)
{
    OpenFile file(fopen(path, "rb"));
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

bool readBytes(const std::string& path, FileBytes& file)
{
    const OpenFile stream = openForReading(path);
    if (!stream) {
        return false;
    }
    // One byte more than the file is said to hold, so that its end is met without a second round.
    std::size_t room = sizeOf(stream.get()) + 1;
    FileBytes read{std::make_unique_for_overwrite<char[]>(room + spareBytes), 0};
    while (const std::size_t count =
               std::fread(read.bytes.get() + read.size, 1, room - read.size, stream.get())) {
        read.size += count;
        if (read.size == room) {
            room *= 2;
            auto larger = std::make_unique_for_overwrite<char[]>(room + spareBytes);
            std::memcpy(larger.get(), read.bytes.get(), read.size);
            read.bytes = std::move(larger);
        }
    }
    if (std::ferror(stream.get()) != 0) {
        return false;
    }
    std::memset(read.bytes.get() + read.size, 0, spareBytes);
    file = std::move(read);
    return true;
}

bool writeBytes(const std::string& path, const std::string& mode, std::string_view bytes)
{
    OpenFile stream(fopen(path, mode));
    if (!stream) {
        return false;
    }
    std::setvbuf(stream.get(), nullptr, _IONBF, 0);
    const bool written = std::fwrite(bytes.data(), 1, bytes.size(), stream.get()) == bytes.size();
    return std::fclose(stream.release()) == 0 && written;
}

} // namespace tavelinUtils
