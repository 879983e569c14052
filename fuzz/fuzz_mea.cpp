// MEA: any bytes give tracks or the standard out-of-range exception, and tracks can be written.

#include "formats/mea.h"
#include "input_file.h"
#include "told_lines.h"

#include <stdexcept>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    const InputFile file(bytes, size);
    try {
        const auto tracks = tavelinUtils::plMEATrack(file.path(), "observatory");
        for (const auto& track : tracks) {
            mustHold(!track.Marks.empty() && !track.QRVName.empty());
        }
        tavelinUtils::sMEA("/dev/null", tracks);
        tavelinUtils::sMEA_TLE("/dev/null", tracks);
    } catch (const std::out_of_range&) {
        // A token that is too short.
    }
    ToldLines told;
    tavelinUtils::plMEATrack(file.path(), "observatory", told);
    told.mustBeAllOf(bytes, size);
    return 0;
}
