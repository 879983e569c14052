#include "running/folder_watch.h"

#include <algorithm>
#include <filesystem>
#include <memory>
#include <utility>

#include <dirent.h>

namespace companion {
namespace {

namespace fs = std::filesystem;

std::string placeOfFolder(const fs::path& folder)
{
    std::error_code failure;
    const fs::path place = fs::weakly_canonical(folder.empty() ? "." : folder, failure);
    return failure ? folder.string() : place.string();
}

struct CloseFolder
{
    void operator()(DIR* folder) const
    {
        closedir(folder);
    }
};

// Calls a function with each name in a folder. False for a folder that cannot be read or holds too many.
template <class Use>
bool forEachName(const std::string& folder, Use use)
{
    constexpr std::size_t most = 10'000;
    const std::unique_ptr<DIR, CloseFolder> stream(opendir(folder.c_str()));
    if (stream == nullptr) {
        return false;
    }
    std::size_t count = 0;
    for (const dirent* entry = readdir(stream.get()); entry != nullptr; entry = readdir(stream.get())) {
        use(std::string_view(entry->d_name));
        if (++count > most) {
            return false;
        }
    }
    return true;
}

} // namespace

std::string placeOfFile(const std::string& path)
{
    const fs::path file(path);
    return (fs::path(placeOfFolder(file.parent_path())) / file.filename()).string();
}

void FolderWatch::watch(const std::string& folder)
{
    const std::string& place = placeOf(folder);
    ++watchers[place];
    Names names;
    if (seen.find(place) == seen.end() &&
        forEachName(place, [&names](std::string_view name) { names.emplace(name); }))
    {
        seen.emplace(place, std::move(names));
    }
}

void FolderWatch::leave(const std::string& folder)
{
    --watchers[placeOf(folder)];
}

bool FolderWatch::isShared(const std::string& folder)
{
    return watchers[placeOf(folder)] > 1;
}

void FolderWatch::expect(const std::string& path)
{
    const fs::path file(path);
    expected.insert((fs::path(placeOf(file.parent_path())) / file.filename()).string());
}

std::vector<std::string> FolderWatch::strangers(const std::string& folder)
{
    std::vector<std::string> paths;
    const std::string& place = placeOf(folder);
    const auto known = seen.find(place);
    if (known == seen.end()) {
        return paths;
    }
    Names& names = known->second;
    std::vector<std::string> fresh;
    const bool isRead = forEachName(place, [&names, &fresh](std::string_view name) {
        if (names.find(name) == names.end()) {
            fresh.emplace_back(name);
        }
    });
    if (!isRead) {
        seen.erase(known);
        return paths;
    }
    std::sort(fresh.begin(), fresh.end());
    for (const std::string& name : fresh) {
        names.insert(name);
        if (expected.find((fs::path(place) / name).string()) == expected.end()) {
            paths.push_back((fs::path(folder) / name).string());
        }
    }
    return paths;
}

const std::string& FolderWatch::placeOf(const std::string& folder)
{
    const auto known = places.find(folder);
    return known != places.end() ? known->second
                                 : places.emplace(folder, placeOfFolder(folder)).first->second;
}

} // namespace companion
