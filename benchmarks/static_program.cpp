// static_program OUTPUT BYTES INPUT...: a small task is held against the start of this program, which is
// linked statically, reads its inputs and writes as many bytes, and does nothing else.

#include <cstdlib>

#include <fcntl.h>
#include <unistd.h>

namespace {

constexpr std::size_t bufferSize = 16 * 1024;
char buffer[bufferSize];

} // namespace

int main(int argc, char** argv)
{
    for (int i = 3; i < argc; ++i) {
        const int input = open(argv[i], O_RDONLY | O_CLOEXEC);
        if (input < 0) {
            return 1;
        }
        while (read(input, buffer, bufferSize) > 0) {
        }
        close(input);
    }
    const auto bytes = argc < 3 ? bufferSize + 1 : std::strtoull(argv[2], nullptr, 10);
    if (bytes > bufferSize) {
        return 2;
    }
    const int output = open(argv[1], O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
    return output >= 0 && write(output, buffer, bytes) == static_cast<ssize_t>(bytes) ? 0 : 1;
}
