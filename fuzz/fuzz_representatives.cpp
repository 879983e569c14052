// Representatives: any bytes give members and positions, and what was read is the same when written and read.

#include "exchange/representatives.h"
#include "written_bytes.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace {

using namespace tavelinUtils;
using Representatives = std::vector<TRepresent>;

std::string membersWritten(int frames, const Representatives& list)
{
    return bytesWritten([&](const std::string& path) { mustHold(sIndVKBin(path, frames, list) == 0); });
}

std::string positionsWritten(const Representatives& list)
{
    return bytesWritten([&](const std::string& path) { mustHold(sXYIndVKBin(path, list) == 0); });
}

void checkMembers(int frames, const Representatives& list)
{
    const std::string written = membersWritten(frames, list);
    const WrittenFile file(written);
    int framesAgain = 0;
    Representatives again;
    mustHold(lIndVKBin(file.path(), framesAgain, again) == 0);
    mustHold(framesAgain == frames && again.size() == list.size());
    mustHold(membersWritten(framesAgain, again) == written);

    // What lies in memory has no companion beside it.
    Representatives pair;
    plIndVKBin(file.path(), framesAgain, pair);
    mustHold(framesAgain == frames && membersWritten(frames, pair) == written);
}

// As many positions as the bytes hold are those bytes; the others stay 0.
void checkPositions(const std::string& path, const std::uint8_t* bytes, std::size_t size, std::size_t count)
{
    Representatives list(count);
    mustHold(lXYIndVKBin(path, list) == 0);
    std::string expected(16 * count, '\0');
    std::copy_n(bytes, std::min(size / 16 * 16, expected.size()), expected.begin());
    mustHold(positionsWritten(list) == expected);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    const InputFile file(bytes, size);
    int frames = -1;
    Representatives list;
    const int result = lIndVKBin(file.path(), frames, list);
    mustHold(result == 0 || (result == 1 && frames == -1 && list.empty()));
    if (result == 0 && isShort(list.size())) {
        checkMembers(frames, list);
    }
    checkPositions(file.path(), bytes, size, size / 16 + 2);
    checkPositions(file.path(), bytes, size, size / 32);
    return 0;
}
