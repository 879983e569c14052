// Element sets: any bytes give the sets of a list, whose lines begin with their numbers, and which are the
// same when written and read again.

#include "formats/element_sets.h"
#include "written_bytes.h"

#include <string>
#include <vector>

namespace {

using namespace tavelinUtils;

std::string written(const std::vector<TTLEstr>& sets)
{
    return bytesWritten([&](const std::string& path) { s3LEstr(path, sets); });
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    const InputFile file(bytes, size);
    const std::vector<TTLEstr> sets = l3LEstr(file.path());
    for (const TTLEstr& set : sets) {
        mustHold(set.Line0.empty() || set.Line0.front() == '0');
        mustHold(set.Line1.empty() || set.Line1.front() == '1');
        mustHold(!set.Line2.empty() && set.Line2.front() == '2');
    }
    const WrittenFile copy(written(sets));
    const std::vector<TTLEstr> again = l3LEstr(copy.path());
    mustHold(again.size() == sets.size() && written(again) == written(sets));
    return 0;
}
