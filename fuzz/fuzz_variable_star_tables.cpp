// Tables of the variable-star branch: any bytes give a light curve and lists of instrumental magnitudes, the
// same when they are written, read and written again.

#include "formats/variable_star_tables.h"
#include "written_bytes.h"

#include <string>
#include <vector>

namespace {

using namespace tavelinUtils;

void checkLightCurve(const std::string& path, bool withHeader)
{
    std::vector<TLocPhotoBlob> blobs;
    lVarSLightCurvesVO(path, withHeader, blobs);
    const WrittenFile copy(
        bytesWritten([&](const std::string& to) { sVarSLightCurvesVO(to, blobs, "JD", withHeader); }));
    std::vector<TLocPhotoBlob> again;
    lVarSLightCurvesVO(copy.path(), withHeader, again);
    mustHold(again.size() == blobs.size());
}

// What a writer makes of the lists in a file.
std::string rewritten(const std::string& path)
{
    double value = 0;
    std::vector<TFrameBrightnes> frames;
    lInstrMag(path, value, frames);
    return bytesWritten([&](const std::string& to) { sInstrMag(to, value, frames); });
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    const InputFile file(bytes, size);
    checkLightCurve(file.path(), size % 2 == 0);
    const std::string written = rewritten(file.path());
    const WrittenFile copy(written);
    mustHold(rewritten(copy.path()) == written);
    return 0;
}
