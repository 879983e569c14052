#include "files/paths.h"

#include "files/essentials.h"
#include "text/number_text.h"

#include <cstddef>

namespace tavelinUtils {

void DeleteLastSlash(std::string& path, std::string separators)
{
    if (!path.empty() && separators.find(path.back()) != std::string::npos) {
        path.pop_back();
    }
}

std::string DeleteLastSlash(const std::string& path)
{
    std::string shorter = path;
    DeleteLastSlash(shorter, Slash);
    return shorter;
}

std::string GetDrive(std::string path)
{
    return path.substr(0, 3);
}

std::string calcpathlevelup(std::string path, bool normalize)
{
    std::string folder = normalize ? normalizeSeparatorDir(path) : path;
    // An empty path has no last character: at() throws std::out_of_range.
    if (folder.at(folder.size() - 1) != Slash.front()) {
        folder += Slash;
    }
    // The second cut returns a bare name whole, so it is its own parent.
    return ExtractPath(ExtractPath(folder)) + Slash;
}

std::string ChangeFileExt(std::string path, std::string extension)
{
    if (path.empty()) {
        return path;
    }
    DeleteLastSlash(path, Slash);
    // A backslash separates nothing here: a path in that spelling is one name.
    const std::size_t name = path.rfind(Slash) + 1;
    const std::size_t point = path.rfind('.');
    if (point != std::string::npos && point >= name) {
        path.erase(point);
    }
    return path + extension;
}

std::string replaceFileNameExtension(std::string name, std::string oldText, std::string newText)
{
    if (oldText.empty()) {
        return newText + name;
    }
    const std::size_t place = name.find(oldText);
    return place == std::string::npos ? name + newText : name.replace(place, oldText.size(), newText);
}

std::string GetInSeriaPath(std::string seriesPath, std::string fullPath)
{
    return normalizeSeparatorDir(replace(fullPath, DeleteLastSlash(seriesPath) + Slash, ""));
}

} // namespace tavelinUtils
