#include "out/safe_file.h"

#include "findings/finding.h"
#include "out/system_files.h"

#include <array>
#include <atomic>
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

WrongUsage exists(const std::string& path)
{
    return {finding("V004", {{"file", path}})};
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

// A name beside the target that no other file has: one that was killed may have left its own.
std::string nameBeside(const std::string& path)
{
    const std::string start = path + '.' + std::to_string(getpid());
    std::string name = start + ".part";
    for (int number = 2; isThere(name); ++number) {
        name = start + '-' + std::to_string(number) + ".part";
    }
    return name;
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

// Names of files that are not whole yet. A signal that ends the program takes these files away.
constexpr int endingSignals[] = {SIGHUP, SIGINT, SIGQUIT, SIGPIPE, SIGTERM, SIGXCPU, SIGXFSZ};
constexpr std::size_t mostNames = 16; // at once; more are left where the program is ended
std::array<std::atomic<const char*>, mostNames> unfinished{};
static_assert(std::atomic<const char*>::is_always_lock_free);

void removeAndEnd(int signal)
{
    for (const auto& name : unfinished) {
        if (const char* const path = name; path != nullptr) {
            unlink(path);
        }
    }
    std::signal(signal, SIG_DFL);
    raise(signal); // comes once the handler is left
}

// Signals that the program or its caller has a use for stay as they are.
void catchEndingSignals()
{
    for (const int signal : endingSignals) {
        struct sigaction now = {};
        sigaction(signal, nullptr, &now);
        if (now.sa_handler == SIG_DFL) {
            now.sa_handler = removeAndEnd;
            sigfillset(&now.sa_mask);
            sigaction(signal, &now, nullptr);
        }
    }
}

void exchangeName(const char* from, const char* to)
{
    for (auto& name : unfinished) {
        const char* expected = from;
        if (name.compare_exchange_strong(expected, to)) {
            return;
        }
    }
}

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
    mustBeFree(path, replaces, inputs);
    open();
}

SafeFile::~SafeFile()
{
    close(descriptor);
    if (!beside.empty()) {
        unlink(beside.c_str());
        exchangeName(beside.c_str(), nullptr);
    }
}

void SafeFile::write(std::string_view bytes)
{
    if (!writeAll(descriptor, bytes)) {
        throw failed(path);
    }
}

void SafeFile::commit()
{
    setRights(descriptor, path);
    if (fsync(descriptor) != 0) {
        throw failed(path);
    }
    takeName();
}

void SafeFile::commitUnwaited()
{
    setRights(descriptor, path);
    takeName();
}

void SafeFile::takeName()
{
    const WithoutSignals whole;
    if (!replaces) {
        giveName(path);
        return;
    }
    if (beside.empty()) {
        const std::string name = nameBeside(path);
        giveName(name);
        standBeside(name);
    }
    if (rename(beside.c_str(), path.c_str()) != 0) {
        throw failed(path);
    }
    exchangeName(beside.c_str(), nullptr);
    beside.clear();
}

void SafeFile::open()
{
    constexpr mode_t rights = 0666; // less what the umask takes
    descriptor = ::open(folderOf(path).c_str(), O_TMPFILE | O_WRONLY | O_CLOEXEC, rights);
    if (descriptor < 0) {
        const WithoutSignals whole;
        const std::string name = nameBeside(path);
        descriptor = ::open(name.c_str(), O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC, rights);
        if (descriptor < 0) {
            throw failed(path);
        }
        standBeside(name);
    }
}

void SafeFile::standBeside(const std::string& name)
{
    beside = name;
    catchEndingSignals();
    exchangeName(nullptr, beside.c_str());
}

// A link does not replace: a file that has come in between stays.
void SafeFile::giveName(const std::string& name) const
{
    const std::string source = beside.empty() ? "/proc/self/fd/" + std::to_string(descriptor) : beside;
    if (linkat(AT_FDCWD, source.c_str(), AT_FDCWD, name.c_str(), AT_SYMLINK_FOLLOW) != 0) {
        throw errno == EEXIST ? exists(path) : failed(path);
    }
}

void mustBeFree(const std::string& target, bool force, const std::vector<std::string>& inputs)
{
    for (const std::string& input : inputs) {
        if (isSameFile(target, input)) {
            throw WrongUsage{finding("V005", {{"file", target}})};
        }
    }
    if (!force && isThere(target)) {
        throw exists(target);
    }
}

void moveInto(const std::string& file, const std::string& target, bool force)
{
    const int descriptor = ::open(file.c_str(), O_RDONLY | O_CLOEXEC);
    if (descriptor < 0) {
        throw failed(target);
    }
    setRights(descriptor, target);
    const bool isOnDisk = fsync(descriptor) == 0;
    const int reason = errno;
    close(descriptor);
    errno = reason;
    if (!isOnDisk) {
        throw failed(target);
    }
    // A link does not replace.
    const bool isThereNow =
        force ? rename(file.c_str(), target.c_str()) == 0
              : linkat(AT_FDCWD, file.c_str(), AT_FDCWD, target.c_str(), 0) == 0 && unlink(file.c_str()) == 0;
    if (!isThereNow) {
        throw errno == EEXIST ? exists(target) : failed(target);
    }
}

} // namespace companion
