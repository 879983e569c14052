#include "running/byte_locks.h"

#include "findings/finding.h"
#include "running/uninterrupted.h"

#include <cerrno>
#include <cstring>

#include <fcntl.h>
#include <unistd.h>

namespace companion {
namespace {

WrongUsage failed(const std::string& path)
{
    return {finding("V003", {{"file", path}, {"what", std::strerror(errno)}})};
}

} // namespace

ByteLocks::ByteLocks(const std::string& ofPath)
    : path(ofPath), descriptor(open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0666))
{
    if (descriptor < 0) {
        throw failed(path);
    }
}

ByteLocks::~ByteLocks()
{
    close(descriptor);
}

bool ByteLocks::take(std::size_t byte) const
{
    return set(byte, F_WRLCK, F_SETLK);
}

void ByteLocks::wait(std::size_t byte) const
{
    set(byte, F_WRLCK, F_SETLKW);
}

void ByteLocks::leave(std::size_t byte) const
{
    set(byte, F_UNLCK, F_SETLK);
}

bool ByteLocks::set(std::size_t byte, short type, int command) const
{
    struct flock lock = {};
    lock.l_type = type;
    lock.l_whence = SEEK_SET;
    lock.l_start = static_cast<off_t>(byte);
    lock.l_len = 1;
    if (uninterrupted([&] { return fcntl(descriptor, command, &lock); }) == 0) {
        return true;
    }
    if (errno != EACCES && errno != EAGAIN) {
        throw failed(path);
    }
    return false;
}

} // namespace companion
