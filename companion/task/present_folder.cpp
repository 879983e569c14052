#include "task/present_folder.h"

#include "findings/finding.h"

#include <system_error>

namespace companion {

PresentFolderFor::PresentFolderFor(const std::string& folder)
{
    if (folder.empty()) {
        return;
    }
    std::error_code failure;
    before = std::filesystem::current_path();
    std::filesystem::current_path(folder, failure);
    if (failure) {
        throw WrongUsage{finding("V003", {{"file", folder}, {"what", failure.message()}})};
    }
}

PresentFolderFor::~PresentFolderFor()
{
    std::error_code ignored;
    if (!before.empty()) {
        std::filesystem::current_path(before, ignored);
    }
}

} // namespace companion
