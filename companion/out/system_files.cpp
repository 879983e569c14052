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
