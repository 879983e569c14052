// Light curve task: any bytes give a task.

#include "formats/light_curve_task.h"
#include "input_file.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    const InputFile file(bytes, size);
    const tavelinUtils::TLCTask task = tavelinUtils::lLCTask(file.path());
    mustHold(task.magType == "DIF");
    for (const auto& object : task.research) {
        mustHold(object.ra.size() == object.de.size());
    }
    return 0;
}
