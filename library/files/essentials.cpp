#include "files/essentials.h"

#include "base/bytes.h"
#include "base/lines.h"
#include "base/local_time.h"
#include "base/tokens.h"

#include <algorithm>
#include <ctime>

#include <sys/stat.h>
#include <sys/time.h>

namespace tavelinUtils {
namespace {

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
    return canBeOpened(path);
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
    tokens.clear();
    forEachToken(text, separator, [&tokens](std::string_view token) { tokens.emplace_back(token); });
}

void mytrim_r(std::string& text)
{
    text.resize(withoutLineEnd(text).size());
}

std::string NowToDateTimeLin()
{
    timeval now = {};
    gettimeofday(&now, nullptr);
    const std::optional<std::tm> local = localTime(now.tv_sec);
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

} // namespace tavelinUtils
