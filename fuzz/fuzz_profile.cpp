// Profiles: any bytes are a profile, or are refused by a message; what a profile says wins over what was said
// before.

#include "command/profile.h"

#include "input_file.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    const InputFile file(bytes, size);
    try {
        const companion::Observatory profile = companion::profileOf(file.path());
        companion::Observatory observatory;
        observatory.station = "A77";
        companion::putBefore(observatory, profile);
        mustHold(observatory.station == (profile.station.empty() ? "A77" : profile.station));
        mustHold(observatory.bands.size() == profile.bands.size());
    } catch (const companion::WrongUsage& usage) {
        mustHold(!usage.why.text.empty());
    }
    return 0;
}
