// TDM XML: any bytes give one track or a failed load; what is read can be written and read again.

#include "formats/tdm_xml.h"
#include "input_file.h"
#include "track_checks.h"

namespace {

using namespace tavelinUtils;

Tracks tracksOf(const std::string& path)
{
    Tracks tracks;
    const bool loaded = lTDMxml(path, tracks);
    mustHold(tracks.size() == (loaded ? 1U : 0U));
    return tracks;
}

// The reader puts the name of the object into NORAD, the writer takes it from QRVName.
Tracks asWritten(Tracks tracks)
{
    for (TrackVtorichka& track : tracks) {
        track.QRVName = track.NORAD;
    }
    return tracks;
}

std::string written(const Tracks& tracks)
{
    return bytesWritten([&](const std::string& path) { mustHold(sTDMPOLxml(path, tracks)); });
}

// One segment of a document is read.
void checkWritten(const Tracks& tracks)
{
    const WrittenFile file(written(tracks));
    if (!tracks.empty()) {
        mustBeReadAgain(asWritten(tracksOf(file.path())), tracks,
                        {.seconds = 5e-6, .RA = 5e-8, .DE = 5e-8, .magnitude = 5e-5});
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    const InputFile file(bytes, size);
    const Tracks tracks = tracksOf(file.path());
    const WrittenFile copy(written(tracks));
    mustHold(tracksOf(copy.path()).size() <= 1);
    checkWritten(ordinaryTracks(asWritten(tracks)));
    return 0;
}
