#include "out/safe_file.h"

#include "findings/finding.h"

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace companion {
namespace {

WrongUsage failed(const std::string& path)
{
    return {finding("V003", {{"file", path}, {"what", std::strerror(errno)}})};
}

std::string folderOf(const std::string& path)
{
    const std::string folder = std::filesystem::path(path).parent_path();
    return folder.empty() ? "." : folder;
}

bool isSameFile(const std::string& a, const std::string& b)
{
    struct stat first = {};
    struct stat second = {};
    return stat(a.c_str(), &first) == 0 && stat(b.c_str(), &second) == 0 && first.st_dev == second.st_dev &&
           first.st_ino == second.st_ino;
}

bool isThere(const std::string& path)
{
    struct stat state = {};
    return lstat(path.c_str(), &state) == 0;
}

// A name beside the target that no other file has.
std::string nameBeside(const std::string& path)
{
    return path + '.' + std::to_string(getpid()) + ".part";
}

// Holds back signals that would end the program between two steps.
class WithoutSignals
{
public:
    WithoutSignals()
    {
        sigset_t all;
        sigfillset(&all);
        sigprocmask(SIG_BLOCK, &all, &before);
    }
    ~WithoutSignals()
    {
        sigprocmask(SIG_SETMASK, &before, nullptr);
    }
    WithoutSignals(const WithoutSignals&) = delete;
    WithoutSignals& operator=(const WithoutSignals&) = delete;

private:
    sigset_t before;
};

// The rights of a new file: those of the file that it replaces.
void setRights(int descriptor, const std::string& path)
{
    struct stat old = {};
    if (stat(path.c_str(), &old) == 0) {
        fchmod(descriptor, old.st_mode & 07777);
    }
}

} // namespace

SafeFile::SafeFile(std::string target, bool force, const std::vector<std::string>& inputs)
    : path(std::move(target)), replaces(force)
{
    for (const std::string& input : inputs) {
        if (isSameFile(path, input)) {
            throw WrongUsage{finding("V005", {{"file", path}})};
        }
    }
    if (!replaces && isThere(path)) {
        throw WrongUsage{finding("V004", {{"file", path}})};
    }
    open();
}

SafeFile::~SafeFile()
{
    if (descriptor >= 0) {
        close(descriptor);
    }
    if (!beside.empty()) {
        unlink(beside.c_str());
    }
}

void SafeFile::write(std::string_view bytes)
{
    while (!bytes.empty()) {
        const ssize_t written = ::write(descriptor, bytes.data(), bytes.size());
        if (written < 0 && errno != EINTR) {
            throw failed(path);
        }
        bytes.remove_prefix(written < 0 ? 0 : static_cast<std::size_t>(written));
    }
}

void SafeFile::commit()
{
    setRights(descriptor, path);
    if (fsync(descriptor) != 0) {
        throw failed(path);
    }
    const WithoutSignals whole;
    if (!replaces) {
        giveName(path);
        return;
    }
    if (beside.empty()) {
        const std::string name = nameBeside(path);
        giveName(name);
        beside = name;
    }
    if (rename(beside.c_str(), path.c_str()) != 0) {
        throw failed(path);
    }
    beside.clear();
}

void SafeFile::open()
{
    constexpr mode_t rights = 0666; // less what the umask takes
    descriptor = ::open(folderOf(path).c_str(), O_TMPFILE | O_WRONLY | O_CLOEXEC, rights);
    if (descriptor < 0) {
        const std::string name = nameBeside(path);
        descriptor = ::open(name.c_str(), O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC, rights);
        if (descriptor < 0) {
            throw failed(path);
        }
        beside = name;
    }
}

// A link does not replace: a file that has come in between stays.
void SafeFile::giveName(const std::string& name) const
{
    const std::string source = beside.empty() ? "/proc/self/fd/" + std::to_string(descriptor) : beside;
    if (linkat(AT_FDCWD, source.c_str(), AT_FDCWD, name.c_str(), AT_SYMLINK_FOLLOW) != 0) {
        throw errno == EEXIST ? WrongUsage{finding("V004", {{"file", path}})} : failed(path);
    }
}

} // namespace companion
