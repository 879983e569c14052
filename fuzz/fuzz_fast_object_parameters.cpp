// Parameters of the search for fast objects: any bytes give values, in both forms of the file.

#include "formats/fast_object_parameters.h"
#include "input_file.h"

namespace {

// A list has the size that the file states, or none where the file is too small for a large one.
void checkSize(std::size_t listSize, int count, std::size_t fileSize)
{
    constexpr std::size_t trustedCount = 65536;
    const std::size_t counted = count < 0 ? 0 : static_cast<std::size_t>(count);
    mustHold(listSize == counted || (listSize == 0 && counted > trustedCount && counted > fileSize));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    using namespace tavelinUtils;
    const InputFile file(bytes, size);
    const TFastSearchParam parameters = LTextParamForSearchFastAstroObj(file.path());
    checkSize(parameters.BlobPaths.size(), parameters.AllFrames, size);
    mustHold(parameters.PathOut.find("//") == std::string::npos);
    sParamFAST("/dev/null", parameters.PathLog, parameters.PathOut, parameters.PathRes, TPorogs{},
               parameters.AllFrames, parameters.FrameWidth, parameters.FrameHeight, parameters.TrackFrames,
               parameters.Exposure, parameters.BlobPaths);

    const TParHOK others = lParHOKv2(file.path());
    checkSize(others.Values.size(), others.Count, size);
    return 0;
}
