// Task file: any bytes give a task or a failed load.

#include "input_file.h"
#include "task.h"

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

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    const InputFile file(bytes, size);
    if (!holdsEmptyLaterSeria(file.path())) {
        tavelinUtils::TConvMea task;
        tavelinUtils::ltaskconv(file.path(), task); // either outcome is right
    }
    return 0;
}
