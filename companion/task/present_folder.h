// Present folder: relative paths count from another folder for a while.

#pragma once

#include <filesystem>
#include <string>

namespace companion {

/// The present folder of the process until the end of the block.
class PresentFolderFor
{
public:
    /// An empty path leaves the folder as it is. Throws WrongUsage (V003) for one that cannot be entered.
    explicit PresentFolderFor(const std::string& folder);
    ~PresentFolderFor();
    PresentFolderFor(const PresentFolderFor&) = delete;
    PresentFolderFor& operator=(const PresentFolderFor&) = delete;

private:
    std::filesystem::path before;
};

} // namespace companion
