// TDM XML: any bytes give one track or a failed load.

#include "formats/tdm_xml.h"
#include "input_file.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    const InputFile file(bytes, size);
    std::vector<tavelinUtils::TrackVtorichka> tracks;
    const bool loaded = tavelinUtils::lTDMxml(file.path(), tracks);
    mustHold(tracks.size() == (loaded ? 1U : 0U));
    mustHold(tavelinUtils::sTDMPOLxml("/dev/null", tracks));
    return 0;
}
