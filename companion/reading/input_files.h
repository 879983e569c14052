// Input files: the files of a call by the names that it gives them, where "-" is the standard input.

#pragma once

#include <string>

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

    /// The name itself, but for the standard input that of a copy, which nobody else sees and which goes with
    /// the object. Throws WrongUsage (V003) where the standard input cannot be copied.
    std::string pathOf(const std::string& name);

private:
    int copy = -1; // the descriptor of the standard input's copy
};

} // namespace companion
