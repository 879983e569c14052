// MPC report: any bytes give tracks or the standard out-of-range exception, the same by list and flow, with a
// watch and without; ordinary tracks are read again as they were written.

#include "files/text_files.h"
#include "formats/mpc_report.h"
#include "input_file.h"
#include "told_lines.h"
#include "track_checks.h"

#include <stdexcept>
#include <utility>

namespace {

using namespace tavelinUtils;

std::string written(const Tracks& tracks)
{
    return bytesWritten([&](const std::string& path) { sMPC(path, tracks); });
}

void checkTracks(const std::string& path, const Tracks& tracks)
{
    mustHold(sameTracks(lMPC(ReadFromFile(path)), tracks));
    mustHandOut(MpcReportSource(path), MpcReportSource(path), tracks);
    mustHold(bytesOfFlow(MpcReportSource(path), [](const std::string& to) { return MpcReportSink(to); }) ==
             written(tracks));
    sMPCAndHorRes("/dev/null", tracks, tracks);
}

// The reader puts the name of an object into MPCChecker, the writer takes it from QRVName where that is
// empty.
Tracks asWritten(Tracks tracks)
{
    for (TrackVtorichka& track : tracks) {
        track.QRVName = track.MPCChecker;
    }
    return tracks;
}

// Tracks whose lines have 80 columns and whose header is only the code.
Tracks wholeTracks(Tracks tracks)
{
    for (TrackVtorichka& track : tracks) {
        for (TRecLabelPervichka_File& mark : track.Marks) {
            mark.filtr = "R";
        }
        track.MPCHeader = {};
        track.MPCChecker = "";
    }
    return southernTracks(std::move(tracks));
}

void checkWritten(const Tracks& tracks)
{
    const WrittenFile file(written(tracks));
    mustBeReadAgain(asWritten(lMPC(file.path())), tracks,
                    {.seconds = 0.432, .RA = 2.1e-5, .DE = 1.4e-5, .magnitude = 0.05});
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    const InputFile file(bytes, size);
    ToldLines told;
    const Tracks watched = lMPC(file.path(), told);
    told.mustBeAllOf(bytes, size);
    checkWritten(wholeTracks(ordinaryTracks(asWritten(watched))));
    try {
        const Tracks tracks = lMPC(file.path());
        mustHold(sameTracks(watched, tracks));
        checkTracks(file.path(), tracks);
    } catch (const std::out_of_range&) {
        // A keyword with nothing after it.
    }
    return 0;
}
