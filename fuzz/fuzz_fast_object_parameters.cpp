// Parameters of the search for fast objects: any bytes give values, in both forms of the file. What a file
// holds of frames is read again as it was written.

#include "formats/fast_object_parameters.h"
#include "written_bytes.h"

#include <string>

namespace {

using namespace tavelinUtils;

// A list has the size that the file states, or none where the file is too small for a large one.
void checkSize(std::size_t listSize, int count, std::size_t fileSize)
{
    constexpr std::size_t trustedCount = 65536;
    const std::size_t counted = count < 0 ? 0 : static_cast<std::size_t>(count);
    mustHold(listSize == counted || (listSize == 0 && counted > trustedCount && counted > fileSize));
}

void write(const std::string& path, const TFastSearchParam& parameters)
{
    sParamFAST(path, parameters.PathLog, parameters.PathOut, parameters.PathRes, TPorogs{},
               parameters.AllFrames, parameters.FrameWidth, parameters.FrameHeight, parameters.TrackFrames,
               parameters.Exposure, parameters.BlobPaths);
}

void checkWritten(const TFastSearchParam& parameters)
{
    const WrittenFile copy(bytesWritten([&](const std::string& path) { write(path, parameters); }));
    const TFastSearchParam again = LTextParamForSearchFastAstroObj(copy.path());
    mustHold(again.AllFrames == parameters.AllFrames && again.TrackFrames == parameters.TrackFrames);
    mustHold(again.FrameWidth == parameters.FrameWidth && again.FrameHeight == parameters.FrameHeight);
    mustHold(again.PathOut == parameters.PathOut && again.PathRes == parameters.PathRes);
    mustHold(again.BlobPaths == parameters.BlobPaths);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    const InputFile file(bytes, size);
    const TFastSearchParam parameters = LTextParamForSearchFastAstroObj(file.path());
    checkSize(parameters.BlobPaths.size(), parameters.AllFrames, size);
    mustHold(parameters.PathOut.find("//") == std::string::npos);
    if (isShort(parameters.BlobPaths.size())) {
        checkWritten(parameters);
    }

    const TParHOK others = lParHOKv2(file.path());
    checkSize(others.Values.size(), others.Count, size);
    return 0;
}
