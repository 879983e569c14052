// TDM: any bytes give tracks, and tracks can be written, as text and as XML.

#include "formats/tdm.h"
#include "formats/tdm_xml.h"
#include "input_file.h"
#include "told_lines.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    const InputFile file(bytes, size);
    const auto tracks = tavelinUtils::lTDM(file.path());
    tavelinUtils::sTDM("/dev/null", tracks);
    mustHold(tavelinUtils::sTDMPOLxml("/dev/null", tracks));
    mustHold(tavelinUtils::sTDMxml("/dev/null", tracks));
    ToldLines told;
    tavelinUtils::lTDM(file.path(), told);
    told.mustBeAllOf(bytes, size);
    return 0;
}
