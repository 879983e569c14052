// SSMAS: any bytes give tracks, and tracks can be written.

#include "formats/ssmas.h"
#include "input_file.h"
#include "told_lines.h"

namespace {

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

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    if (holdsManyNamelessObjects(bytes, size)) {
        return 0;
    }
    const InputFile file(bytes, size);
    tavelinUtils::sSSMAS("/dev/null", tavelinUtils::lckako_meas(file.path(), "observatory"));
    ToldLines told;
    tavelinUtils::lckako_meas(file.path(), "observatory", told);
    told.mustBeAllOf(bytes, size);
    return 0;
}
