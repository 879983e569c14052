#include "companion/truth/folder_states.h"

#include <array>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <utility>

#include <fcntl.h>

namespace {

EntryState stateOf(const std::filesystem::path& path)
{
    EntryState state;
    lstat(path.c_str(), &state.status);
    if (S_ISLNK(state.status.st_mode)) {
        std::error_code ignored;
        state.content = std::filesystem::read_symlink(path, ignored).string();
    } else if (S_ISREG(state.status.st_mode)) {
        std::ifstream file(path, std::ios::binary);
        state.content.assign(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
    }
    return state;
}

bool isSame(const EntryState& a, const EntryState& b)
{
    if (a.identity() != b.identity() || a.status.st_mode != b.status.st_mode) {
        return false;
    }
    return S_ISDIR(a.status.st_mode) ||
           (a.content == b.content && a.status.st_mtim.tv_sec == b.status.st_mtim.tv_sec &&
            a.status.st_mtim.tv_nsec == b.status.st_mtim.tv_nsec);
}

} // namespace

FolderStates statesBelow(const std::string& folder)
{
    FolderStates states;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
        states.emplace(entry.path().string(), stateOf(entry.path()));
    }
    return states;
}

void ageFiles(const FolderStates& states)
{
    constexpr time_t longAgo = 1'000'000'000;
    const std::array<timespec, 2> times{{{longAgo, 0}, {longAgo, 0}}};
    for (const auto& [path, state] : states) {
        if (S_ISREG(state.status.st_mode)) {
            utimensat(AT_FDCWD, path.c_str(), times.data(), 0);
        }
    }
}

std::vector<std::string> changedPaths(const FolderStates& before, const FolderStates& after)
{
    std::vector<std::string> changed;
    for (const auto& [path, state] : after) {
        const auto old = before.find(path);
        if (old == before.end() || !isSame(old->second, state)) {
            changed.push_back(path);
        }
    }
    for (const auto& [path, state] : before) {
        if (!after.contains(path)) {
            changed.push_back(path);
        }
    }
    return changed;
}
