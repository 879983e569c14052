#include "reading/input_files.h"

#include "findings/finding.h"
#include "out/system_files.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <optional>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace companion {
namespace {

// What a device may give: one that never ends must not fill the disk.
constexpr std::size_t mostOfDevice = std::size_t{64} << 20;

[[noreturn]] void fail(const std::string& name, const std::string& what)
{
    throw WrongUsage{finding("V003", {{"file", name}, {"what", what}})};
}

[[noreturn]] void fail(const std::string& name)
{
    fail(name, std::strerror(errno));
}

// An open file, which is closed with the object.
struct Descriptor
{
    explicit Descriptor(int number) : file(number)
    {
    }
    ~Descriptor()
    {
        if (file >= 0) {
            close(file);
        }
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    // The number, which the object closes no more.
    int release()
    {
        const int number = file;
        file = -1;
        return number;
    }

    int file;
};

// A file without a name.
int newFile(const std::string& name)
{
    std::string path = temporaryFolder() + "/tavelin-XXXXXX";
    const int file = mkostemp(path.data(), O_CLOEXEC);
    if (file < 0) {
        fail(name);
    }
    unlink(path.c_str());
    return file;
}

void copyAll(int from, bool isDevice, int to, const std::string& name)
{
    std::vector<char> piece(std::size_t{1} << 16);
    std::size_t done = 0;
    for (ssize_t count = 0; (count = read(from, piece.data(), piece.size())) != 0;) {
        const std::size_t length = count < 0 ? 0 : static_cast<std::size_t>(count);
        if ((count < 0 && errno != EINTR) || !writeAll(to, {piece.data(), length})) {
            fail(name);
        }
        done += length;
        if (isDevice && done > mostOfDevice) {
            fail(name, "is a device that gives more than 64 MiB");
        }
    }
}

// The copy of a file, or of the standard input, which must be there.
int copied(const std::string& name, bool isDevice)
{
    const bool isStandard = name == standardInput;
    const Descriptor opened(isStandard ? -1 : open(name.c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY));
    if (!isStandard && opened.file < 0) {
        fail(name);
    }
    Descriptor copy(newFile(name));
    copyAll(isStandard ? STDIN_FILENO : opened.file, isDevice, copy.file, name);
    return copy.release();
}

// What a name stands for; nothing where there is none, of which its reader tells.
std::optional<struct stat> stateOf(const std::string& name)
{
    struct stat state
    {
    };
    if (name == standardInput) {
        if (fstat(STDIN_FILENO, &state) != 0) {
            fail(name);
        }
        return state;
    }
    return stat(name.c_str(), &state) == 0 ? std::optional(state) : std::nullopt;
}

// Whether a file gives what it holds as often as it is read.
bool isReadAgain(const std::string& name, const struct stat& state)
{
    if (S_ISBLK(state.st_mode)) {
        fail(name, "is a disk");
    }
    return name != standardInput && !S_ISFIFO(state.st_mode) && !S_ISCHR(state.st_mode);
}

} // namespace

InputFiles::~InputFiles()
{
    std::for_each(copies.begin(), copies.end(), [](const Copy& each) { close(each.file); });
}

std::string InputFiles::pathOf(const std::string& name)
{
    const std::optional<struct stat> state = stateOf(name);
    if (!state || isReadAgain(name, *state)) {
        return name;
    }
    auto known = std::find_if(copies.begin(), copies.end(), [&state](const Copy& each) {
        return each.device == state->st_dev && each.inode == state->st_ino;
    });
    if (known == copies.end()) {
        const int file = copied(name, S_ISCHR(state->st_mode));
        known = copies.insert(known, {state->st_dev, state->st_ino, file});
    }
    return "/proc/self/fd/" + std::to_string(known->file);
}

} // namespace companion
