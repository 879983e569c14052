// Tables of the variable-star branch: any bytes give a light curve and lists of instrumental magnitudes.

#include "formats/variable_star_tables.h"
#include "input_file.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    using namespace tavelinUtils;
    const InputFile file(bytes, size);
    std::vector<TLocPhotoBlob> blobs;
    lVarSLightCurvesVO(file.path(), size % 2 == 0, blobs);
    mustHold(size != 0 || blobs.empty());

    double value = 0;
    std::vector<TFrameBrightnes> frames;
    lInstrMag(file.path(), value, frames);
    for (TFrameBrightnes& frame : frames) {
        PutInstrMag(frame.name, frame);
    }
    return 0;
}
