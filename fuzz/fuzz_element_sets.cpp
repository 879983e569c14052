// Element sets: any bytes give the sets of a list, whose lines begin with their numbers.

#include "formats/element_sets.h"
#include "input_file.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    using namespace tavelinUtils;
    const InputFile file(bytes, size);
    const std::vector<TTLEstr> sets = l3LEstr(file.path());
    for (const TTLEstr& set : sets) {
        mustHold(set.Line0.empty() || set.Line0.front() == '0');
        mustHold(set.Line1.empty() || set.Line1.front() == '1');
        mustHold(!set.Line2.empty() && set.Line2.front() == '2');
    }
    s3LEstr("/dev/null", sets);
    return 0;
}
