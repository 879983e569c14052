#include "task/writable.h"

#include <filesystem>
#include <unistd.h>

namespace companion {
namespace {

namespace fs = std::filesystem;

bool takesNames(const std::string& path)
{
    const fs::path folder = fs::path(path).parent_path();
    return access(folder.empty() ? "." : folder.c_str(), W_OK | X_OK) == 0;
}

// Whether a file can have the path: one that ends in a slash or a point alone is that of a folder, also where
// the folder is removed first.
bool isNameable(const std::string& path)
{
    constexpr std::size_t longestName = 255;
    constexpr std::size_t longestPath = 4095;
    const std::string name = path.substr(path.rfind('/') + 1);
    const bool isOfFolder = name.empty() || name == "." || name == "..";
    return !isOfFolder && name.size() <= longestName && path.size() <= longestPath;
}

} // namespace

bool removesFirst(const std::string& format)
{
    return format == "mag" || format == "aavso";
}

bool canBeWritten(const std::string& path, bool removes)
{
    if (!isNameable(path)) {
        return false;
    }
    std::error_code failure;
    const fs::file_status status = removes ? fs::symlink_status(path, failure) : fs::status(path, failure);
    if (status.type() == fs::file_type::not_found) {
        const fs::path target = removes ? fs::path() : fs::read_symlink(path, failure);
        return target.empty() ? takesNames(path) : canBeWritten(fs::path(path).parent_path() / target);
    }
    if (status.type() == fs::file_type::directory) {
        return removes && fs::is_empty(path, failure) && takesNames(path);
    }
    return removes ? takesNames(path) : access(path.c_str(), W_OK) == 0;
}

} // namespace companion
