#include "reading/input_files.h"

#include "findings/finding.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <string_view>
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
    const char* const wanted = std::getenv("TMPDIR");
    std::string path = wanted == nullptr || *wanted == 0 ? "/tmp" : wanted;
    path += "/tavelin-XXXXXX";
    const int file = mkostemp(path.data(), O_CLOEXEC);
    if (file < 0) {
        fail();
    }
    unlink(path.c_str());
    return file;
}

void writeAll(int file, std::string_view bytes)
{
    while (!bytes.empty()) {
        const ssize_t written = write(file, bytes.data(), bytes.size());
        if (written < 0 && errno != EINTR) {
            fail();
        }
        bytes.remove_prefix(written < 0 ? 0 : static_cast<std::size_t>(written));
    }
}

void copyStandardInput(int file)
{
    std::vector<char> piece(std::size_t{1} << 16);
    for (;;) {
        const ssize_t count = read(STDIN_FILENO, piece.data(), piece.size());
        if (count == 0) {
            return;
        }
        if (count < 0 && errno != EINTR) {
            fail();
        }
        writeAll(file, {piece.data(), count < 0 ? 0 : static_cast<std::size_t>(count)});
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
