// SSMAS: any bytes give tracks, the same by list and flow, with a watch and without; ordinary tracks are read
// again as they were written.

#include "formats/ssmas.h"
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

struct Ssmas
{
    // A declination has points between its parts, so that the fraction of its seconds is one part more, which
    // is not read.
    static constexpr Exactness exactness{.seconds = 0.01, .RA = 2.1e-5, .DE = 1.0 / 3600, .magnitude = 0.05};

    template <class... Watch>
    static Tracks read(const std::string& path, Watch&... watch)
    {
        return lckako_meas(path, "observatory", watch...);
    }
    static Tracks read(const std::vector<std::string>& lines)
    {
        return lckako_meas(lines, "observatory");
    }
    static void write(const std::string& path, const Tracks& tracks)
    {
        sSSMAS(path, tracks);
    }
    static SsmasSource source(const std::string& path)
    {
        return SsmasSource(path, "observatory");
    }
    static SsmasSink sink(const std::string& path)
    {
        return SsmasSink(path);
    }
    // Without numbers of its own an object has its name in both places.
    static Tracks writable(Tracks tracks)
    {
        for (TrackVtorichka& track : tracks) {
            track.HeadText2 = track.HeadText3 = "";
        }
        return tracks;
    }
    static void more(const std::string& /*path*/, const Tracks& /*tracks*/)
    {
    }
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    if (!holdsManyNamelessObjects(bytes, size)) {
        checkFormat<Ssmas>(bytes, size);
    }
    return 0;
}
