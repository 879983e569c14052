// Folders: the names in them, the present one, and trees near the longest path that can be named.

#pragma once

#include <cstddef>
#include <filesystem>
#include <set>
#include <string>

using Names = std::set<std::string>;

/// The names in a folder.
Names namesIn(const std::string& folder);

/// The present folder of the process until the end of the block.
class PresentFolder
{
public:
    explicit PresentFolder(const std::string& folder) : before(std::filesystem::current_path())
    {
        std::filesystem::current_path(folder);
    }
    ~PresentFolder()
    {
        std::error_code ignored;
        std::filesystem::current_path(before, ignored);
    }
    PresentFolder(const PresentFolder&) = delete;
    PresentFolder& operator=(const PresentFolder&) = delete;

private:
    std::filesystem::path before;
};

/// Makes folders below the root, down to one whose path has that length, and returns its path.
std::string folderOfLength(std::string path, std::size_t length);

/// Makes a chain of folders of the name "n" below the root, also beyond the longest path that can be named.
void makeChain(const std::string& root, int levels);
