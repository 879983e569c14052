// Byte locks: a lock on each byte of a file, one for each task, that processes on one machine or on several
// of a shared folder keep from each other. The system takes them back when a process ends, however it does.

#pragma once

#include <cstddef>
#include <string>

namespace companion {

/// The locks of a file. There is one object for a file in a process: the locks are the process's own.
class ByteLocks
{
public:
    /// Opens the file, which is made where it is missing; it stays empty. Throws WrongUsage (V003) where that
    /// fails.
    explicit ByteLocks(const std::string& path);
    ~ByteLocks();
    ByteLocks(const ByteLocks&) = delete;
    ByteLocks& operator=(const ByteLocks&) = delete;

    /// Locks a byte; false where another process has it. Throws WrongUsage (V003) where the file system has
    /// no locks.
    bool take(std::size_t byte) const;
    /// Locks a byte once no other process has it.
    void wait(std::size_t byte) const;
    /// Unlocks a byte.
    void leave(std::size_t byte) const;

private:
    bool set(std::size_t byte, short type, int command) const;

    std::string path;
    int descriptor;
};

} // namespace companion
