#include "files/file_operations.h"

#include "files/essentials.h"
#include "files/file_search.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdio>

#include <sys/stat.h>
#include <sys/statvfs.h>

namespace tavelinUtils {
namespace {

constexpr double kibibytesPerByte = 0.0009765625;
constexpr unsigned mebibyteShift = 20;
constexpr mode_t folderMode = 0755;

constexpr std::size_t copiedPiece = 65536;

// The system accepts no longer path.
constexpr std::size_t longestRemovedPath = 4095;

void copyBytes(std::FILE* from, std::FILE* to)
{
    std::array<char, copiedPiece> piece;
    std::size_t count = 0;
    do {
        count = std::fread(piece.data(), 1, piece.size(), from);
        std::fwrite(piece.data(), 1, count, to); // a failed write is not reported, and the rest is tried
    } while (count == piece.size());
}

bool copyContent(const std::string& source, const std::string& destination)
{
    std::FILE* const from = fopen(source, "rb");
    if (from == nullptr) {
        return false;
    }
    std::FILE* const to = fopen(destination, "wb");
    if (to != nullptr) {
        copyBytes(from, to);
        std::fclose(to);
    }
    std::fclose(from);
    return to != nullptr;
}

bool holdsMask(const std::string& path, const std::string& mask)
{
    return !mask.empty() && ExtractFileName(path, Slash).find(mask) != std::string::npos;
}

} // namespace

double get_file_size(std::string path)
{
    std::FILE* const file = fopen(path, "rb");
    if (file == nullptr) {
        return 0.0;
    }
    const long bytes = std::fseek(file, 0, SEEK_END) == 0 ? std::ftell(file) : 0;
    std::fclose(file);
    return static_cast<double>(std::max(bytes, 0L)) * kibibytesPerByte;
}

double FreeDiskSpace(std::string path)
{
    struct statvfs status = {};
    if (statvfs(path.c_str(), &status) != 0) {
        return 0.0;
    }
    // The free blocks, and not those free to ordinary users; the fraction is dropped.
    return static_cast<double>((status.f_bsize * status.f_bfree) >> mebibyteShift);
}

double FileAge(std::string path)
{
    struct stat status = {};
    return stat(path.c_str(), &status) == 0 ? static_cast<double>(status.st_mtime) : 0.0;
}

int deletefile(std::string path)
{
    return std::remove(path.c_str());
}

bool copyfile(std::string source, std::string destination, bool overwrite)
{
    if (source == destination) {
        return true;
    }
    if (FileExists(destination)) {
        if (!overwrite) {
            return true; // the file that exists there is as good as a copy
        }
        deletefile(destination);
    }
    return copyContent(source, destination);
}

bool movefile(std::string source, std::string destination)
{
    if (source == destination) {
        return true;
    }
    // Always a full copy, even where renaming would do.
    const bool copied = copyfile(source, destination, true);
    if (copied) {
        deletefile(source); // a source that stays does not undo the copy
    }
    return copied;
}

bool CrtDir(std::string path, bool normalize)
{
    if (normalize) {
        path = normalizeSeparatorDir(path);
    }
    // The test accepts either spelling; the folder is created under the path as it is.
    return DirectoryExists(path) || mkdir(path.c_str(), folderMode) == 0;
}

bool CreateDir(std::string path, bool normalize)
{
    std::vector<std::string> names;
    Pars9(normalize ? normalizeSeparatorDir(path) : path, names, Slash);
    std::string prefix;
    for (const std::string& name : names) {
        prefix += name + Slash;
        if (!CrtDir(prefix, normalize)) {
            return false;
        }
    }
    return !names.empty();
}

int removedirectoryrecursively(const char* path)
{
    std::vector<FolderEntry> entries;
    if (path == nullptr || !readFolder(path, entries)) {
        return 0;
    }
    for (const FolderEntry& entry : entries) {
        const std::string entryPath = path + Slash + entry.name;
        // Never a shortened path: it may name this folder, the one above it or another entry, which has its
        // own turn.
        if (entryPath.size() > longestRemovedPath) {
            continue;
        }
        if (entry.isFolder) {
            removedirectoryrecursively(entryPath.c_str());
        }
        deletefile(entryPath); // what stays does not stop the walk
    }
    return 1;
}

void DeleteDir(std::string path)
{
    if (!DirectoryExists(path)) {
        return;
    }
    // A list of FindFile must not decide what is removed: a search goes on with shortened paths, and these
    // may lead out of the folder.
    removedirectoryrecursively(path.c_str());
    deletefile(path);
}

void RemFileWithMask(std::vector<std::string>& names, std::string mask)
{
    std::erase_if(names, [&mask](const std::string& name) { return holdsMask(name, mask); });
}

void RemFileWithMask(std::vector<std::string>& names, const std::vector<std::string>& masks)
{
    std::erase_if(names, [&masks](const std::string& name) {
        return std::any_of(masks.begin(), masks.end(),
                           [&name](const std::string& mask) { return holdsMask(name, mask); });
    });
}

} // namespace tavelinUtils
