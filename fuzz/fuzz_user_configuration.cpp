// Configurations of a series and of the programs: any bytes give settings or a failed load.

#include "config/range_checks.h"
#include "config/settings.h"
#include "config/user_configuration.h"
#include "config/xml_document.h"
#include "input_file.h"

namespace {

// An empty item of a list is never left, by contract: such a file is not read to its end.
bool holdsEmptyElement(const TiXmlNode& document)
{
    const TiXmlNode* node = &document;
    for (;;) {
        if (node->ToElement() != nullptr && node->FirstChild() == nullptr) {
            return true;
        }
        if (node->FirstChild() != nullptr) {
            node = node->FirstChild();
            continue;
        }
        while (node != &document && node->NextSibling() == nullptr) {
            node = node->Parent();
        }
        if (node == &document) {
            return false;
        }
        node = node->NextSibling();
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    using namespace tavelinUtils;
    const InputFile file(bytes, size);
    TtavelinXmlDocument document(file.path());
    if (!document.LoadFile() || !holdsEmptyElement(document)) {
        TPorogs porogs;
        const TFuncRes result = LoadUserConfXML(file.path(), porogs, true);
        mustHold(result.Code == 0 || result.Code == 139);
    }
    TExe programs;
    const TFuncRes result = lConfig(file.path(), programs);
    mustHold(result.Code == 0 || result.Code == 139);
    return 0;
}
