#include "running/private_folder.h"

#include "findings/finding.h"
#include "out/system_files.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>

namespace companion {

PrivateFolder::PrivateFolder()
{
    make(temporaryFolder(), "/tavelin-XXXXXX");
}

PrivateFolder::PrivateFolder(const std::string& parent)
{
    make(parent, "/.tavelin-XXXXXX");
}

void PrivateFolder::make(const std::string& parent, const char* name)
{
    folder = parent + name;
    if (mkdtemp(folder.data()) == nullptr) {
        throw WrongUsage{finding("V003", {{"file", parent}, {"what", std::strerror(errno)}})};
    }
}

PrivateFolder::~PrivateFolder()
{
    std::error_code ignored;
    std::filesystem::remove_all(folder, ignored);
}

} // namespace companion
