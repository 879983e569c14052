#include "command/versions.h"

#include "running/tool_path.h"
#include "version.h"

#include <erfaextra.h>
#include <libxml/xmlversion.h>
#include <tinyxml.h>

namespace companion {

std::string versions(bool all)
{
    const std::string version(tavelinUtils::version);
    std::string text = "tavelin " + version + '\n';
    if (all) {
        const std::string tool = toolPath("");
        text += "library " + version + '\n';
        text += "vomar " + (tool.empty() ? std::string("not found") : tool) + '\n';
        text += "TinyXML " + std::to_string(TIXML_MAJOR_VERSION) + '.' + std::to_string(TIXML_MINOR_VERSION) +
                '.' + std::to_string(TIXML_PATCH_VERSION) + '\n';
        text += std::string("ERFA ") + eraVersion() + '\n';
        text += std::string("libxml2 ") + LIBXML_DOTTED_VERSION + '\n';
    }
    return text;
}

} // namespace companion
