#include "reading/memory_file.h"

#include "findings/finding.h"
#include "out/system_files.h"

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
    if (!writeAll(descriptor, text)) {
        const int error = errno;
        close(descriptor);
        fail(error);
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
