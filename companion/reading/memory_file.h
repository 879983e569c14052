// Memory file: a text that readers of files can read, without a place on a disk.

#pragma once

#include <string>
#include <string_view>

namespace companion {

/// A file in memory, which goes with the object.
class MemoryFile
{
public:
    /// With the text. Throws WrongUsage (V003) where the system has no room for it.
    explicit MemoryFile(std::string_view text);
    ~MemoryFile();
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;

    /// The path from which it is read, as often as it is wanted.
    std::string path() const;

private:
    int descriptor;
};

} // namespace companion
