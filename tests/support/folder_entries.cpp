#include "support/folder_entries.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <map>
#include <mutex>
#include <vector>

#include <dirent.h>
#include <dlfcn.h>

namespace {

FolderEntries present = FolderEntries::asTheyAre;

// The entries of an open folder, read ahead, and how many of them were given.
struct SortedFolder
{
    std::vector<dirent> entries{};
    std::size_t given = 0;
};

std::map<DIR*, SortedFolder> folders;
std::mutex guard;

// The function of the system that this program's own stands in front of.
template <class Function>
Function* systemsOwn(const char* name)
{
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

dirent* systemsEntry(DIR* folder)
{
    static auto* const own = systemsOwn<dirent*(DIR*)>("readdir");
    return own(folder);
}

dirent* sortedEntry(DIR* folder)
{
    const std::lock_guard lock(guard);
    const auto [place, isNew] = folders.try_emplace(folder);
    SortedFolder& sorted = place->second;
    if (isNew) {
        while (const dirent* entry = systemsEntry(folder)) {
            sorted.entries.push_back(*entry);
        }
        std::sort(sorted.entries.begin(), sorted.entries.end(),
                  [](const dirent& a, const dirent& b) { return std::strcmp(a.d_name, b.d_name) < 0; });
    }
    return sorted.given < sorted.entries.size() ? &sorted.entries[sorted.given++] : nullptr;
}

} // namespace

void setFolderEntries(FolderEntries entries)
{
    present = entries;
}

extern "C" dirent* readdir(DIR* folder)
{
    if (present == FolderEntries::sorted) {
        return sortedEntry(folder);
    }
    dirent* const entry = systemsEntry(folder);
    if (entry != nullptr && present == FolderEntries::withoutKinds) {
        entry->d_type = DT_UNKNOWN;
    }
    return entry;
}

extern "C" int closedir(DIR* folder)
{
    static auto* const own = systemsOwn<int(DIR*)>("closedir");
    {
        const std::lock_guard lock(guard);
        folders.erase(folder);
    }
    return own(folder);
}
