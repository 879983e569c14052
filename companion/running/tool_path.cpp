#include "running/tool_path.h"

#include "base/tokens.h"

#include <cstdlib>
#include <filesystem>
#include <string_view>
#include <unistd.h>

namespace companion {
namespace {

constexpr const char* toolName = "vomar";

bool isProgram(const std::filesystem::path& path)
{
    std::error_code ignored;
    return std::filesystem::is_regular_file(path, ignored) && access(path.c_str(), X_OK) == 0;
}

std::string besideThis()
{
    std::error_code failure;
    const std::filesystem::path own = std::filesystem::read_symlink("/proc/self/exe", failure);
    const std::filesystem::path path = own.parent_path() / toolName;
    return !failure && isProgram(path) ? path.string() : "";
}

} // namespace

std::string toolPath(const std::string& wanted)
{
    if (!wanted.empty()) {
        return isProgram(wanted) ? std::filesystem::absolute(wanted).string() : "";
    }
    const std::string beside = besideThis();
    return beside.empty() ? programInSearchPath(toolName) : beside;
}

std::string programInSearchPath(const std::string& name)
{
    const char* const given = std::getenv("PATH");
    // Tokens have none behind a separator at the end, and folders have one.
    const std::string folders = given == nullptr ? "" : std::string(given) + ':';
    std::string found;
    tavelinUtils::forEachToken(folders, ':', [&](std::string_view folder) {
        const std::filesystem::path path = std::filesystem::path(folder.empty() ? "." : folder) / name;
        if (found.empty() && isProgram(path)) {
            found = std::filesystem::absolute(path).string();
        }
    });
    return found;
}

} // namespace companion
