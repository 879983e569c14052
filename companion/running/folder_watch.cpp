#include "running/folder_watch.h"

#include <filesystem>
#include <optional>

namespace companion {
namespace {

namespace fs = std::filesystem;

std::string placeOfFolder(const fs::path& folder)
{
    std::error_code failure;
    const fs::path place = fs::weakly_canonical(folder.empty() ? "." : folder, failure);
    return failure ? folder.string() : place.string();
}

// The names in a folder; nothing for one that cannot be read or holds too many.
std::optional<std::set<std::string>> namesOf(const std::string& folder)
{
    constexpr std::size_t most = 10'000;
    std::error_code failure;
    std::set<std::string> names;
    for (fs::directory_iterator each(folder, failure), end; !failure && each != end; each.increment(failure))
    {
        names.insert(each->path().filename());
        if (names.size() > most) {
            return std::nullopt;
        }
    }
    return failure ? std::nullopt : std::optional(std::move(names));
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
    if (seen.find(place) == seen.end()) {
        if (auto names = namesOf(place)) {
            seen.emplace(place, std::move(*names));
        }
    }
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
    const auto names = namesOf(place);
    if (!names) {
        seen.erase(known);
        return paths;
    }
    for (const std::string& name : *names) {
        const bool isNew = known->second.insert(name).second;
        if (isNew && expected.find((fs::path(place) / name).string()) == expected.end()) {
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
