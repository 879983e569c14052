// Input files: the files of a call by the names that it gives them, where "-" is the standard input. What can
// be read only once is copied.

#pragma once

#include <string>
#include <sys/types.h>
#include <vector>

namespace companion {

/// The name of the standard input where a call names a file.
inline constexpr const char* standardInput = "-";

/// Gives the path from which a file is read, as often as it is wanted.
class InputFiles
{
public:
    InputFiles() = default;
    ~InputFiles();
    InputFiles(const InputFiles&) = delete;
    InputFiles& operator=(const InputFiles&) = delete;

    /// The name itself, but for the standard input, a pipe or a device that of a copy, which nobody else sees
    /// and which goes with the object. Throws WrongUsage (V003) for one that cannot be copied, and for a
    /// device that gives more than any file of measurements has.
    std::string pathOf(const std::string& name);

private:
    struct Copy
    {
        dev_t device; // of what was copied
        ino_t inode;
        int file; // the descriptor of the copy
    };

    std::vector<Copy> copies{};
};

} // namespace companion
