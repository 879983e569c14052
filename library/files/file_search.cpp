#include "files/file_search.h"

#include "base/bytes.h"
#include "files/essentials.h"
#include "results/code_table.h"

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <iterator>
#include <memory>
#include <string_view>

#include <dirent.h>
#include <sys/stat.h>

namespace tavelinUtils {
namespace {

// A walk goes on with at most this much of a folder's path.
constexpr std::size_t longestWalkedPath = 1023;

constexpr std::string_view frameExtensions[] = {".fit", ".FIT", ".fits", ".FITS", ".fts", ".FTS"};

struct CloseFolder
{
    void operator()(DIR* folder) const
    {
        closedir(folder);
    }
};

// A folder of a walk and the folders that led to it.
struct Way
{
    const std::string& folder;
    const Way* above;
};

bool isSameFolder(const std::string& one, const std::string& other)
{
    struct stat first = {};
    struct stat second = {}; // of a folder that has gone meanwhile: no folder has the number 0
    stat(other.c_str(), &second);
    return stat(one.c_str(), &first) == 0 && first.st_dev == second.st_dev && first.st_ino == second.st_ino;
}

bool isOnTheWay(const std::string& folder, const Way* way)
{
    while (way != nullptr && !isSameFolder(folder, way->folder)) {
        way = way->above;
    }
    return way != nullptr;
}

// Calls a function with each entry below a folder and its path; its result says whether the walk enters the
// entry. A folder's entries are read before the first is used: no stream stays open on the way down, so the
// limit of open files does not limit the depth.
template <class Use>
void walk(const std::string& folder, const Way* above, const Use& use)
{
    std::vector<FolderEntry> entries;
    readFolder(folder, entries); // a folder that cannot be opened has none
    const Way here{folder, above};
    for (const FolderEntry& entry : entries) {
        std::string path = folder + Slash + entry.name;
        if (!use(path, entry)) {
            continue;
        }
        const bool isCut = path.size() > longestWalkedPath;
        path.resize(std::min(path.size(), longestWalkedPath));
        // A cut path may end in "/", "/." or "/..", or be the path of the folder itself.
        if (!isCut || !isOnTheWay(path, &here)) {
            walk(path, &here, use);
        }
    }
}

bool isWanted(const std::string& name, const std::string& mask, const std::string& extension)
{
    return (extension.empty() || GetFileExt(name) == extension) && name.find(mask) != std::string::npos;
}

} // namespace

bool readFolder(const std::string& folder, std::vector<FolderEntry>& entries)
{
    const std::unique_ptr<DIR, CloseFolder> stream(opendir(folder.c_str()));
    if (!stream) {
        mustHaveMemory();
        return false;
    }
    entries.clear();
    errno = 0; // an end leaves it, a failure does not
    while (const dirent* entry = readdir(stream.get())) {
        const std::string_view name = entry->d_name;
        if (name != "." && name != "..") {
            entries.push_back({std::string(name), entry->d_type == DT_DIR});
        }
        errno = 0;
    }
    if (errno != 0) {
        throwErrCode(resultCode::unopenedFile, folder);
    }
    return true;
}

void FindFile(std::string root, std::string mask, std::string extension,
              std::vector<std::string>& directories, std::vector<std::string>& files)
{
    pFindFileDirLin(root, mask, extension, directories, files);
    directories.shrink_to_fit();
    files.shrink_to_fit();
}

void FindFile(std::string root, std::string mask, std::string extension, std::vector<std::string>& files)
{
    // The only search that tests its root: the others find nothing below an empty one.
    if (root.empty()) {
        return;
    }
    std::vector<std::string> directories;
    FindFile(root, mask, extension, directories, files);
}

void pFindFileDirLin(std::string root, std::string mask, std::string extension,
                     std::vector<std::string>& directories, std::vector<std::string>& files)
{
    directories.clear();
    files.clear();
    FindFileRecur(root.c_str(), 0, mask, extension, directories, files);
}

void FindFileRecur(const char* folder, int /*depth*/, std::string mask, std::string extension,
                   std::vector<std::string>& directories, std::vector<std::string>& files)
{
    if (folder == nullptr) {
        return;
    }
    walk(folder, nullptr, [&](const std::string& path, const FolderEntry& entry) {
        if (entry.isFolder) {
            directories.push_back(path);
        } else if (isWanted(entry.name, mask, extension)) {
            files.push_back(path);
        }
        return entry.isFolder;
    });
}

void FindFitFile(std::string root, std::string mask, std::vector<std::string>& result)
{
    std::vector<std::string> files;
    FindFile(root, mask, "", files);
    for (const std::string_view extension : frameExtensions) {
        std::copy_if(files.begin(), files.end(), std::back_inserter(result),
                     [extension](const std::string& file) { return GetFileExt(file) == extension; });
    }
}

void FindFitFile(const std::vector<std::string>& roots, std::string mask, std::vector<std::string>& result)
{
    // Collected aside, so that the list of roots may be the result itself.
    std::vector<std::string> frames;
    for (const std::string& root : roots) {
        FindFitFile(root, mask, frames);
    }
    std::move(frames.begin(), frames.end(), std::back_inserter(result));
}

void FindDir(std::string root, std::string name, std::vector<std::string>& directories)
{
    directories.clear();
    FindDirRecur(root.c_str(), 0, name, directories);
}

void pFindDirLin(std::string root, std::string name, std::vector<std::string>& directories)
{
    FindDir(root, name, directories);
}

void FindDirRecur(const char* folder, int /*depth*/, std::string name, std::vector<std::string>& directories)
{
    if (folder == nullptr) {
        return;
    }
    walk(folder, nullptr, [&](const std::string& path, const FolderEntry& entry) {
        if (entry.isFolder) {
            directories.push_back(path); // also one that the walk does not enter because of its name
        }
        return entry.isFolder && (name.empty() || name == entry.name);
    });
}

} // namespace tavelinUtils
