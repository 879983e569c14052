#include "reading/input_files.h"

#include "findings/finding.h"
#include "out/system_files.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <vector>

#include <fcntl.h>
#include <unistd.h>

namespace companion {
namespace {

[[noreturn]] void fail()
{
    throw WrongUsage{finding("V003", {{"file", standardInput}, {"what", std::strerror(errno)}})};
}

// A file without a name.
int newFile()
{
    std::string path = temporaryFolder() + "/tavelin-XXXXXX";
    const int file = mkostemp(path.data(), O_CLOEXEC);
    if (file < 0) {
        fail();
    }
    unlink(path.c_str());
    return file;
}

void copyStandardInput(int file)
{
    std::vector<char> piece(std::size_t{1} << 16);
    for (;;) {
        const ssize_t count = read(STDIN_FILENO, piece.data(), piece.size());
        if (count == 0) {
            return;
        }
        const std::size_t length = count < 0 ? 0 : static_cast<std::size_t>(count);
        if ((count < 0 && errno != EINTR) || !writeAll(file, {piece.data(), length})) {
            fail();
        }
    }
}

} // namespace

InputFiles::~InputFiles()
{
    if (copy >= 0) {
        close(copy);
    }
}

std::string InputFiles::pathOf(const std::string& name)
{
    if (name != standardInput) {
        return name;
    }
    if (copy < 0) {
        copy = newFile();
        copyStandardInput(copy);
    }
    return "/proc/self/fd/" + std::to_string(copy);
}

} // namespace companion
