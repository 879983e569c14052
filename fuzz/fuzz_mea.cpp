// MEA: any bytes give tracks or the standard out-of-range exception, the same by list and flow, with a watch
// and without; ordinary tracks are read again as they were written.

#include "files/text_files.h"
#include "formats/mea.h"
#include "input_file.h"
#include "told_lines.h"
#include "track_checks.h"

#include <stdexcept>

namespace {

using namespace tavelinUtils;

MeaSource sourceOf(const std::string& path)
{
    return MeaSource(path, "observatory");
}

std::string written(const Tracks& tracks)
{
    return bytesWritten([&](const std::string& path) { sMEA(path, tracks); });
}

void checkTracks(const std::string& path, const Tracks& tracks)
{
    for (const TrackVtorichka& track : tracks) {
        mustHold(!track.Marks.empty() && !track.QRVName.empty());
    }
    mustHold(sameTracks(lMEATrack(ReadFromFile(path), "observatory"), tracks));
    mustHandOut(sourceOf(path), sourceOf(path), tracks);
    mustHold(bytesOfFlow(sourceOf(path), [](const std::string& to) { return MeaSink(to); }) ==
             written(tracks));
    sMEA_TLE("/dev/null", tracks);
}

void checkWritten(const Tracks& tracks)
{
    const WrittenFile file(written(tracks));
    mustBeReadAgain(plMEATrack(file.path(), "observatory"), tracks,
                    {.seconds = 0.001, .RA = 2.1e-7, .DE = 1.4e-8, .magnitude = 0.005});
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    const InputFile file(bytes, size);
    ToldLines told;
    const Tracks watched = plMEATrack(file.path(), "observatory", told);
    told.mustBeAllOf(bytes, size);
    checkWritten(southernTracks(ordinaryTracks(watched)));
    try {
        const Tracks tracks = plMEATrack(file.path(), "observatory");
        mustHold(sameTracks(watched, tracks));
        checkTracks(file.path(), tracks);
    } catch (const std::out_of_range&) {
        // A token that is too short.
    }
    return 0;
}
