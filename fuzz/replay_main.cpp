// Hands each file of the folders and files named by the arguments to the fuzz target that it is linked with.

#include "base/bytes.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size);

int main(int argc, char** argv)
{
    namespace fs = std::filesystem;
    std::size_t count = 0;
    const auto replay = [&count](const fs::path& path) {
        tavelinUtils::FileBytes file;
        if (tavelinUtils::readBytes(path.string(), file)) {
            LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(file.bytes.get()), file.size);
            ++count;
        }
    };
    for (int i = 1; i < argc; ++i) {
        if (!fs::is_directory(argv[i])) {
            replay(argv[i]);
            continue;
        }
        for (const auto& entry : fs::directory_iterator(argv[i])) {
            replay(entry.path());
        }
    }
    std::printf("%zu inputs\n", count);
    return count == 0 ? 1 : 0;
}
