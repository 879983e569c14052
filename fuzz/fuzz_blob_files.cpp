// Files of blobs: any bytes give records, and those of a file without a count are its bytes but for the gaps.

#include "exchange/blob_files.h"
#include "written_bytes.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace {

using namespace tavelinUtils;
using Gaps = std::vector<std::pair<std::size_t, std::size_t>>;

// The whole records of the bytes, with zero in the gaps (offset and size) of each.
std::string wholeRecords(const std::uint8_t* bytes, std::size_t size, std::size_t sizeOfRecord,
                         const Gaps& gaps)
{
    const std::size_t count = size / sizeOfRecord;
    std::string records(reinterpret_cast<const char*>(bytes), count * sizeOfRecord);
    for (std::size_t i = 0; i < count; ++i) {
        for (const auto& [offset, width] : gaps) {
            records.replace(i * sizeOfRecord + offset, width, width, '\0');
        }
    }
    return records;
}

std::string objectsWritten(const std::vector<TBranch>& objects)
{
    return bytesWritten([&](const std::string& path) { mustHold(SaveFastObj(path, objects) == 0); });
}

std::string blobsWritten(const std::string& path)
{
    const std::vector<VihodExt> blobs = LoadFromFile(path);
    return bytesWritten([&](const std::string& copy) { SaveToFile(copy, blobs); });
}

void checkBlobs(const std::string& path, std::size_t size)
{
    TRecPeak::idCounter = 0; // it would run over its end after long
    const std::size_t count = LoadFromFile(path).size();
    mustHold(count == size / 272 && TRecPeak::idCounter == static_cast<int>(2 * count));
    const std::string written = blobsWritten(path);
    mustHold(written.size() == 272 * count);
    const WrittenFile file(written);
    mustHold(blobsWritten(file.path()) == written);
}

void checkObjects(const std::string& path)
{
    std::vector<TBranch> objects;
    const int result = LoadObjects(path, objects);
    mustHold(result == 0 || (result == 2 && objects.empty()));
    if (!isShort(objects.size())) {
        return;
    }
    const std::string written = objectsWritten(objects);
    const WrittenFile file(written);
    std::vector<TBranch> again;
    mustHold(LoadObjects(file.path(), again) == 0 && again.size() == objects.size());
    mustHold(objectsWritten(again) == written);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    const InputFile file(bytes, size);
    const auto fitted = lVihodFullBranch_file(file.path());
    mustHold(bytesWritten([&](const std::string& path) { SaveToFile(path, fitted); }) ==
             wholeRecords(bytes, size, 272, {{80, 16}, {140, 4}, {180, 4}, {204, 4}}));
    const auto stars = lRecCatLight(file.path());
    mustHold(bytesWritten([&](const std::string& path) { sRecCatLight(path, stars); }) ==
             wholeRecords(bytes, size, 56, {}));
    const auto marks = lBlobFastVO(file.path());
    mustHold(bytesWritten([&](const std::string& path) { sBlobFastVO(path, marks); }) ==
             wholeRecords(bytes, size, 56, {{44, 4}}));
    checkBlobs(file.path(), size);
    checkObjects(file.path());
    return 0;
}
