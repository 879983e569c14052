// TDM: any bytes give tracks, the same by list and flow, with a watch and without, and these can be written,
// as text and as XML; ordinary tracks are read again as they were written.

#include "formats/tdm.h"
#include "formats/tdm_xml.h"
#include "input_file.h"
#include "told_lines.h"
#include "track_checks.h"

namespace {

using namespace tavelinUtils;

std::string written(const Tracks& tracks)
{
    return bytesWritten([&](const std::string& path) { sTDM(path, tracks); });
}

void checkFlows(const std::string& path, const Tracks& tracks)
{
    mustHandOut(TdmSource(path), TdmSource(path), tracks);
    mustHold(bytesOfFlow(TdmSource(path), [](const std::string& to) { return TdmSink(to); }) ==
             written(tracks));
    mustHold(bytesOfFlow(TdmSource(path), [](const std::string& to) { return TdmXmlSink(to); }) ==
             bytesWritten([&](const std::string& to) { mustHold(sTDMPOLxml(to, tracks)); }));
    mustHold(bytesOfFlow(TdmSource(path), [](const std::string& to) { return TdmMarkXmlSink(to); }) ==
             bytesWritten([&](const std::string& to) { mustHold(sTDMxml(to, tracks)); }));
}

void checkWritten(const Tracks& tracks)
{
    const WrittenFile file(written(tracks));
    mustBeReadAgain(lTDM(file.path()), tracks, {.seconds = 5e-6, .RA = 5e-8, .DE = 5e-8, .magnitude = 5e-5});
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    const InputFile file(bytes, size);
    ToldLines told;
    const Tracks watched = lTDM(file.path(), told);
    told.mustBeAllOf(bytes, size);
    const Tracks tracks = lTDM(file.path());
    mustHold(sameTracks(watched, tracks));
    checkFlows(file.path(), tracks);
    checkWritten(ordinaryTracks(tracks));
    return 0;
}
