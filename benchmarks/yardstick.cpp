// yardstick INPUT MARKS OUTPUT BYTES: the least work of a run whose reader returns whole records. It reads
// the input once, builds as many default marks in a list with room reserved, and writes as many bytes as the
// output has. It takes nothing down at its end, as the tool does not.

#include "base/bytes.h"
#include "records/mark.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <string>
#include <vector>

int main(int argc, char** argv)
{
    using namespace tavelinUtils;
    if (argc < 6) {
        return 2;
    }
    const auto marks = std::strtoull(argv[1], nullptr, 10);
    const auto files = std::max(std::strtoull(argv[3], nullptr, 10), 1ULL);
    const auto bytes = std::strtoull(argv[4], nullptr, 10) / files;
    FileBytes input;
    for (int i = 5; i < argc; ++i) {
        if (!readBytes(argv[i], input)) {
            return 1;
        }
    }
    static auto& list = *new std::vector<TRecLabelPervichka_File>;
    list.reserve(marks);
    for (std::size_t i = 0; i < marks; ++i) {
        list.emplace_back();
    }
    std::string output;
    output.reserve(bytes);
    while (output.size() < bytes) {
        output += input.view().substr(0, bytes - output.size());
    }
    for (std::size_t file = 0; file < files; ++file) {
        if (!writeBytes(argv[2] + std::to_string(file), "w", output)) {
            return 1;
        }
    }
    return 0;
}
