// Task file: any bytes give a task, or a failed load that leaves it.

#include "input_file.h"
#include "task.h"

#include <cstddef>
#include <string>

namespace {

// Such a task is never read to its end, by contract: the walk stays on the empty element.
bool holdsEmptyLaterSeria(const std::string& path)
{
    tavelinUtils::TtavelinXmlDocument document(path);
    if (!document.LoadFile()) {
        return false;
    }
    const TiXmlElement* const paths = document.FirstChildElement()->FirstChildElement("paths");
    const TiXmlElement* seria = paths == nullptr ? nullptr : paths->FirstChildElement("seria");
    while (seria != nullptr) {
        seria = seria->NextSiblingElement("seria");
        if (seria != nullptr && seria->FirstChild() == nullptr) {
            return true;
        }
    }
    return false;
}

// A failed load leaves the task; a good one replaces its series, even by none.
void checkTask(const std::string& path)
{
    tavelinUtils::TConvMea task;
    task.path_res = "used";
    task.paths.resize(2);
    tavelinUtils::TtavelinXmlDocument document(path);
    if (!tavelinUtils::ltaskconv(path, task)) {
        mustHold(!document.LoadFile() && task.path_res == "used" && task.paths.size() == 2);
        return;
    }
    mustHold(document.LoadFile());
    const auto series = tavelinUtils::GetSeriaAndObjects(document.FirstChildElement(), "paths");
    mustHold(task.paths.size() == series.size());
    for (std::size_t i = 0; i < series.size(); ++i) {
        mustHold(task.paths[i].path == series[i].path && task.paths[i].filter == series[i].filter);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    const InputFile file(bytes, size);
    if (!holdsEmptyLaterSeria(file.path())) {
        checkTask(file.path());
    }
    return 0;
}
