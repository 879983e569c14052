// Files of pixels: any bytes give pixels, segments, objects and doubles, the same when written and read
// again.

#include "exchange/pixel_files.h"
#include "written_bytes.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

namespace {

using namespace tavelinUtils;

std::string segmentsWritten(std::vector<DTSegment>& segments)
{
    return bytesWritten([&](const std::string& path) { SaveSegment(path, segments); });
}

std::string objectsWritten(std::vector<TObjKontur>& objects)
{
    return bytesWritten([&](const std::string& path) { SavePixelObj(path, objects); });
}

void checkBadPixels(const std::string& path, const std::uint8_t* bytes, std::size_t size)
{
    std::vector<pixel> pixels(1);
    mustHold(lBadPix(path, pixels) == 0);
    mustHold(bytesWritten([&](const std::string& copy) { mustHold(sBadPix(copy, pixels) == 0); }) ==
             std::string(reinterpret_cast<const char*>(bytes), size / 8 * 8));
}

void checkSegments(const std::string& path)
{
    std::vector<DTSegment> segments;
    LoadSegment(path, segments);
    if (!isShort(segments.size())) {
        return;
    }
    const std::string written = segmentsWritten(segments);
    const WrittenFile file(written);
    std::vector<DTSegment> again;
    LoadSegment(file.path(), again);
    mustHold(again.size() == segments.size() && segmentsWritten(again) == written);
}

void checkObjects(const std::string& path)
{
    std::vector<TObjKontur> objects;
    const int result = LoadPixelObj(path, objects);
    mustHold(result == 0 || (result == 1 && objects.empty()));
    if (!isShort(objects.size())) {
        return;
    }
    const std::string written = objectsWritten(objects);
    const WrittenFile file(written);
    std::vector<TObjKontur> again;
    mustHold(LoadPixelObj(file.path(), again) == 0 && again.size() == objects.size());
    mustHold(objectsWritten(again) == written);

    // Blobs that name the objects back to front turn the file over.
    std::vector<VihodExt> blobs(objects.size());
    for (std::size_t i = 0; i < blobs.size(); ++i) {
        blobs[i].Index = static_cast<int>(blobs.size() - 1 - i);
    }
    const std::string turned =
        bytesWritten([&](const std::string& copy) { SavePixelObj(copy, blobs, objects); });
    std::reverse(again.begin(), again.end());
    mustHold(objectsWritten(again) == turned);
}

void checkDoubles(const std::string& path, const std::uint8_t* bytes, std::size_t size, int n)
{
    const std::vector<double> numbers = ReadArrayFromFileDbl(path, n);
    std::vector<double> expected(static_cast<std::size_t>(std::max(n, 0)));
    const std::size_t held = std::min(size / 8, expected.size());
    if (held != 0) {
        std::memcpy(expected.data(), bytes, 8 * held);
    }
    mustHold(numbers.size() == expected.size());
    mustHold(numbers.empty() || std::memcmp(numbers.data(), expected.data(), 8 * numbers.size()) == 0);
}

} // namespace

// The first byte is also the number of doubles, from -3 on.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    const InputFile file(bytes, size);
    TRecPeak::idCounter = 0; // it would run over its end after long
    checkBadPixels(file.path(), bytes, size);
    checkSegments(file.path());
    checkObjects(file.path());
    checkDoubles(file.path(), bytes, size, size == 0 ? 2 : bytes[0] - 3);
    return 0;
}
