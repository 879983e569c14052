// MPC report: any bytes give tracks or the standard out-of-range exception, the same by list and flow, with a
// watch and without; ordinary tracks are read again as they were written.

#include "formats/mpc_report.h"
#include "track_checks.h"

#include <utility>

namespace {

using namespace tavelinUtils;

struct MpcReport
{
    static constexpr Exactness exactness{.seconds = 0.432, .RA = 2.1e-5, .DE = 1.4e-5, .magnitude = 0.05};
    static constexpr bool throwsOutOfRange = true; // for a keyword with nothing after it

    template <class... Watch>
    static Tracks read(const std::string& path, Watch&... watch)
    {
        return lMPC(path, watch...);
    }
    static Tracks read(const std::vector<std::string>& lines)
    {
        return lMPC(lines);
    }
    static void write(const std::string& path, const Tracks& tracks)
    {
        sMPC(path, tracks);
    }
    static MpcReportSource source(const std::string& path)
    {
        return MpcReportSource(path);
    }
    static MpcReportSink sink(const std::string& path)
    {
        return MpcReportSink(path);
    }
    // The reader puts the name of an object into MPCChecker, the writer takes it from QRVName where that is
    // empty.
    static Tracks named(Tracks tracks)
    {
        for (TrackVtorichka& track : tracks) {
            track.QRVName = track.MPCChecker;
        }
        return tracks;
    }
    // Tracks whose lines have 80 columns and whose header is only the code.
    static Tracks writable(Tracks tracks)
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
    static void more(const std::string& /*path*/, const Tracks& tracks)
    {
        sMPCAndHorRes("/dev/null", tracks, tracks);
    }
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    checkFormat<MpcReport>(bytes, size);
    return 0;
}
