// Telegram: any bytes give tracks or the standard out-of-range exception, and tracks can be written.

#include "files/text_files.h"
#include "formats/telegram.h"
#include "input_file.h"
#include "told_lines.h"

#include <stdexcept>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    const InputFile file(bytes, size);
    try {
        const auto tracks = tavelinUtils::lTelegramma(file.path());
        mustHold(tracks.size() == tavelinUtils::lTelegramma(tavelinUtils::ReadFromFile(file.path())).size());
        tavelinUtils::sTelegramma("/dev/null", tracks);
    } catch (const std::out_of_range&) {
        // A token that is too short.
    }
    ToldLines told;
    tavelinUtils::lTelegramma(file.path(), told);
    told.mustBeAllOf(bytes, size);
    return 0;
}
