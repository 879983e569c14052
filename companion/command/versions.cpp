#include "command/versions.h"

#include "out/text.h"
#include "running/content_hash.h"
#include "running/evidence.h"
#include "running/tool_path.h"
#include "version.h"

#include <erfaextra.h>
#include <libxml/xmlversion.h>
#include <tinyxml.h>

namespace companion {
namespace {

// It has no option that would print its version, so it is told as receipts tell it.
std::string toolText(const std::string& path)
{
    if (path.empty()) {
        return "not found";
    }
    return path + ", " + counted(fileState(path).size, "byte") + ", XXH3 " +
           fileHash(path).value_or("unknown");
}

} // namespace

std::string versions(bool all)
{
    const std::string version(tavelinUtils::version);
    std::string text = "tavelin " + version + '\n';
    if (all) {
        text += "library " + version + '\n';
        text += "vomar " + toolText(toolPath("")) + '\n';
        text += "TinyXML " + std::to_string(TIXML_MAJOR_VERSION) + '.' + std::to_string(TIXML_MINOR_VERSION) +
                '.' + std::to_string(TIXML_PATCH_VERSION) + '\n';
        text += std::string("ERFA ") + eraVersion() + '\n';
        text += std::string("libxml2 ") + LIBXML_DOTTED_VERSION + '\n';
    }
    return text;
}

} // namespace companion
