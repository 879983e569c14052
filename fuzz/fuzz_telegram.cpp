// Telegram: any bytes give tracks or the standard out-of-range exception, the same by list and flow, with a
// watch and without; ordinary tracks are read again as they were written.

#include "files/text_files.h"
#include "formats/telegram.h"
#include "input_file.h"
#include "told_lines.h"
#include "track_checks.h"

#include <stdexcept>

namespace {

using namespace tavelinUtils;

std::string written(const Tracks& tracks)
{
    return bytesWritten([&](const std::string& path) { sTelegramma(path, tracks); });
}

void checkTracks(const std::string& path, const Tracks& tracks)
{
    mustHold(sameTracks(lTelegramma(ReadFromFile(path)), tracks));
    mustHandOut(TelegramSource(path), TelegramSource(path), tracks);
    mustHold(bytesOfFlow(TelegramSource(path), [](const std::string& to) { return TelegramSink(to); }) ==
             written(tracks));
}

void checkWritten(const Tracks& tracks)
{
    const WrittenFile file(written(tracks));
    mustBeReadAgain(lTelegramma(file.path()), tracks,
                    {.seconds = 0.005, .RA = 2.1e-5, .DE = 1.4e-6, .magnitude = 0.05});
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    const InputFile file(bytes, size);
    ToldLines told;
    const Tracks watched = lTelegramma(file.path(), told);
    told.mustBeAllOf(bytes, size);
    checkWritten(southernTracks(ordinaryTracks(watched)));
    try {
        const Tracks tracks = lTelegramma(file.path());
        mustHold(sameTracks(watched, tracks));
        checkTracks(file.path(), tracks);
    } catch (const std::out_of_range&) {
        // A token that is too short.
    }
    return 0;
}
