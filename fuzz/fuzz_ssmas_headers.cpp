// Headers of SSMAS: any bytes bring records or none.

#include "formats/ssmas.h"
#include "input_file.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    const InputFile file(bytes, size);
    std::vector<tavelinUtils::TSSMASHAED> headers;
    tavelinUtils::lHeadersSSMAS(file.path(), headers);
    mustHold(headers.size() <= 1'000'000);
    return 0;
}
