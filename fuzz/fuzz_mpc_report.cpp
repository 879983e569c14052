// MPC report: any bytes give tracks or the standard out-of-range exception, and tracks can be written.

#include "files/text_files.h"
#include "formats/mpc_report.h"
#include "input_file.h"
#include "told_lines.h"

#include <stdexcept>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    const InputFile file(bytes, size);
    try {
        const auto tracks = tavelinUtils::lMPC(file.path());
        mustHold(tracks.size() == tavelinUtils::lMPC(tavelinUtils::ReadFromFile(file.path())).size());
        tavelinUtils::sMPC("/dev/null", tracks);
        tavelinUtils::sMPCAndHorRes("/dev/null", tracks, tracks);
    } catch (const std::out_of_range&) {
        // A keyword with nothing after it.
    }
    ToldLines told;
    tavelinUtils::lMPC(file.path(), told);
    told.mustBeAllOf(bytes, size);
    return 0;
}
