#include "out/system_files.h"

#include <cerrno>
#include <cstdlib>
#include <unistd.h>

namespace companion {

std::string temporaryFolder()
{
    const char* const wanted = std::getenv("TMPDIR");
    return wanted == nullptr || *wanted == 0 ? "/tmp" : wanted;
}

std::string kindOf(const struct stat& state)
{
    switch (state.st_mode & S_IFMT) {
    case S_IFREG: return "a file";
    case S_IFDIR: return "a folder";
    case S_IFSOCK: return "a socket";
    case S_IFIFO: return "a pipe";
    default: return "a device";
    }
}

bool writeAll(int descriptor, std::string_view bytes)
{
    while (!bytes.empty()) {
        const ssize_t written = write(descriptor, bytes.data(), bytes.size());
        if (written < 0 && errno != EINTR) {
            return false;
        }
        bytes.remove_prefix(written < 0 ? 0 : static_cast<std::size_t>(written));
    }
    return true;
}

} // namespace companion
