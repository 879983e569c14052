// Telegram: any bytes give tracks or the standard out-of-range exception, the same by list and flow, with a
// watch and without; ordinary tracks are read again as they were written.

#include "formats/telegram.h"
#include "track_checks.h"

#include <cmath>
#include <utility>

namespace {

using namespace tavelinUtils;

struct Telegram
{
    static constexpr Exactness exactness{.seconds = 0.005, .RA = 2.1e-5, .DE = 1.4e-6, .magnitude = 0.05};
    static constexpr bool throwsOutOfRange = true;

    template <class... Watch>
    static Tracks read(const std::string& path, Watch&... watch)
    {
        return lTelegramma(path, watch...);
    }
    static Tracks read(const std::vector<std::string>& lines)
    {
        return lTelegramma(lines);
    }
    static void write(const std::string& path, const Tracks& tracks)
    {
        sTelegramma(path, tracks);
    }
    static TelegramSource source(const std::string& path)
    {
        return TelegramSource(path);
    }
    static TelegramSink sink(const std::string& path)
    {
        return TelegramSink(path);
    }
    // Seconds that round to 10 get a digit too many, and so do magnitudes.
    static Tracks writable(Tracks tracks)
    {
        constexpr double secondsOfDay = 86400.0;
        for (TrackVtorichka& track : tracks) {
            for (TRecLabelPervichka_File& mark : track.Marks) {
                const double seconds = std::fmod(mark.time * secondsOfDay, 60.0);
                if (seconds > 9.99 && seconds < 10.001) {
                    mark.time -= 0.02 / secondsOfDay;
                }
                if (mark.m > 9.9 && mark.m < 10.0) {
                    mark.m = 9.9;
                }
            }
        }
        return southernTracks(std::move(tracks));
    }
    static void more(const std::string& /*path*/, const Tracks& /*tracks*/)
    {
    }
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    checkFormat<Telegram>(bytes, size);
    return 0;
}
