// MEA: any bytes give tracks or the standard out-of-range exception, the same by list and flow, with a watch
// and without; ordinary tracks are read again as they were written.

#include "formats/mea.h"
#include "track_checks.h"

namespace {

using namespace tavelinUtils;

struct Mea
{
    static constexpr Exactness exactness{.seconds = 0.001, .RA = 2.1e-7, .DE = 1.4e-8, .magnitude = 0.005};
    static constexpr bool throwsOutOfRange = true;

    template <class... Watch>
    static Tracks read(const std::string& path, Watch&... watch)
    {
        return plMEATrack(path, "observatory", watch...);
    }
    static Tracks read(const std::vector<std::string>& lines)
    {
        return lMEATrack(lines, "observatory");
    }
    static void write(const std::string& path, const Tracks& tracks)
    {
        sMEA(path, tracks);
    }
    static MeaSource source(const std::string& path)
    {
        return MeaSource(path, "observatory");
    }
    static MeaSink sink(const std::string& path)
    {
        return MeaSink(path);
    }
    static Tracks writable(const Tracks& tracks)
    {
        return southernTracks(tracks);
    }
    static void more(const std::string& /*path*/, const Tracks& tracks)
    {
        for (const TrackVtorichka& track : tracks) {
            mustHold(!track.Marks.empty() && !track.QRVName.empty());
        }
        sMEA_TLE("/dev/null", tracks);
    }
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    checkFormat<Mea>(bytes, size);
    return 0;
}
