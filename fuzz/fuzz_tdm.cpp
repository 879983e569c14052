// TDM: any bytes give tracks, the same by list and flow, with a watch and without, and these can be written,
// as text and as XML; ordinary tracks are read again as they were written.

#include "formats/tdm.h"
#include "formats/tdm_xml.h"
#include "track_checks.h"

namespace {

using namespace tavelinUtils;

struct Tdm
{
    static constexpr Exactness exactness{.seconds = 5e-6, .RA = 5e-8, .DE = 5e-8, .magnitude = 5e-5};

    template <class... Watch>
    static Tracks read(const std::string& path, Watch&... watch)
    {
        return lTDM(path, watch...);
    }
    static void write(const std::string& path, const Tracks& tracks)
    {
        sTDM(path, tracks);
    }
    static TdmSource source(const std::string& path)
    {
        return TdmSource(path);
    }
    static TdmSink sink(const std::string& path)
    {
        return TdmSink(path);
    }
    static Tracks writable(const Tracks& tracks)
    {
        return tracks;
    }
    static void more(const std::string& path, const Tracks& tracks)
    {
        mustHold(bytesOfFlow(source(path), [](const std::string& to) { return TdmXmlSink(to); }) ==
                 bytesWritten([&](const std::string& to) { mustHold(sTDMPOLxml(to, tracks)); }));
        mustHold(bytesOfFlow(source(path), [](const std::string& to) { return TdmMarkXmlSink(to); }) ==
                 bytesWritten([&](const std::string& to) { mustHold(sTDMxml(to, tracks)); }));
    }
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    checkFormat<Tdm>(bytes, size);
    return 0;
}
