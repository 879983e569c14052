// The bytes of a fuzz input as a file, for readers that take a path.

#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include <sys/mman.h>
#include <unistd.h>

/// A file in memory that holds the bytes as long as the object lives.
class InputFile
{
public:
    InputFile(const std::uint8_t* bytes, std::size_t size) : descriptor(memfd_create("input", 0))
    {
        if (descriptor < 0 || write(descriptor, bytes, size) != static_cast<ssize_t>(size)) {
            std::abort();
        }
    }
    ~InputFile()
    {
        close(descriptor);
    }
    InputFile(const InputFile&) = delete;
    InputFile& operator=(const InputFile&) = delete;

    std::string path() const
    {
        return "/proc/self/fd/" + std::to_string(descriptor);
    }

private:
    int descriptor;
};

/// Ends the process where a statement that must hold does not, so that the fuzzer keeps the input.
inline void mustHold(bool statement)
{
    if (!statement) {
        std::abort();
    }
}
