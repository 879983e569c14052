#include "reading/memory_file.h"

#include "findings/finding.h"

#include <cerrno>
#include <cstddef>
#include <cstring>

#include <sys/mman.h>
#include <unistd.h>

namespace companion {
namespace {

[[noreturn]] void fail(int error)
{
    throw WrongUsage{finding("V003", {{"file", "a file in memory"}, {"what", std::strerror(error)}})};
}

} // namespace

MemoryFile::MemoryFile(std::string_view text) : descriptor(memfd_create("tavelin", MFD_CLOEXEC))
{
    if (descriptor < 0) {
        fail(errno);
    }
    while (!text.empty()) {
        const ssize_t written = write(descriptor, text.data(), text.size());
        if (written < 0 && errno != EINTR) {
            const int error = errno;
            close(descriptor);
            fail(error);
        }
        text.remove_prefix(written < 0 ? 0 : static_cast<std::size_t>(written));
    }
}

MemoryFile::~MemoryFile()
{
    close(descriptor);
}

std::string MemoryFile::path() const
{
    return "/proc/self/fd/" + std::to_string(descriptor);
}

} // namespace companion
