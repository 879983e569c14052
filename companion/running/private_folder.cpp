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
    const std::string parent = temporaryFolder();
    folder = parent + "/tavelin-XXXXXX";
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
