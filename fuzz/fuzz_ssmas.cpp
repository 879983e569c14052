// SSMAS: any bytes give tracks, the same by list and flow, with a watch and without; ordinary tracks are read
// again as they were written.

#include "files/text_files.h"
#include "formats/ssmas.h"
#include "input_file.h"
#include "told_lines.h"
#include "track_checks.h"

namespace {

using namespace tavelinUtils;

// Objects without a name repeat the marks before them, by contract; in number they would fill the memory.
bool holdsManyNamelessObjects(const std::uint8_t* bytes, std::size_t size)
{
    std::size_t count = 0;
    for (std::size_t i = 0; i < size; ++i) {
        const bool atLineStart = i == 0 || bytes[i - 1] == '\n';
        count += atLineStart && bytes[i] == ' ' ? 1 : 0;
    }
    return count > 100;
}

SsmasSource sourceOf(const std::string& path)
{
    return SsmasSource(path, "observatory");
}

std::string written(const Tracks& tracks)
{
    return bytesWritten([&](const std::string& path) { sSSMAS(path, tracks); });
}

void checkTracks(const std::string& path, const Tracks& tracks)
{
    mustHold(sameTracks(lckako_meas(ReadFromFile(path), "observatory"), tracks));
    mustHandOut(sourceOf(path), sourceOf(path), tracks);
    mustHold(bytesOfFlow(sourceOf(path), [](const std::string& to) { return SsmasSink(to); }) ==
             written(tracks));
}

// Without numbers of its own an object has its name in both places. A declination has points between its
// parts, so that the fraction of its seconds is one part more, which is not read.
void checkWritten(Tracks tracks)
{
    for (TrackVtorichka& track : tracks) {
        track.HeadText2 = track.HeadText3 = "";
    }
    const WrittenFile file(written(tracks));
    mustBeReadAgain(lckako_meas(file.path(), "observatory"), tracks,
                    {.seconds = 0.01, .RA = 2.1e-5, .DE = 1.0 / 3600, .magnitude = 0.05});
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    if (holdsManyNamelessObjects(bytes, size)) {
        return 0;
    }
    const InputFile file(bytes, size);
    ToldLines told;
    const Tracks watched = lckako_meas(file.path(), "observatory", told);
    told.mustBeAllOf(bytes, size);
    const Tracks tracks = lckako_meas(file.path(), "observatory");
    mustHold(sameTracks(watched, tracks));
    checkTracks(file.path(), tracks);
    checkWritten(ordinaryTracks(tracks));
    return 0;
}
