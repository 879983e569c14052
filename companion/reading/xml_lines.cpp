#include "reading/xml_lines.h"

#include "config/xml_nesting.h"

#include <algorithm>

namespace companion {

void XmlLines::add(std::string_view line)
{
    begins.push_back(bytes.size());
    bytes += line;
    bytes += '\n';
}

const TiXmlElement* XmlLines::parse(TiXmlDocument& document) const
{
    constexpr std::size_t zerosBehind = 8; // that the walk over the levels may look at
    const std::string ended = bytes + std::string(zerosBehind, '\0');
    if (tavelinUtils::goesBeyond(ended.c_str(), tavelinUtils::deepestLevel,
                                 tavelinUtils::mostAttributesOfElement))
    {
        return nullptr;
    }
    document.SetTabSize(1);
    document.Parse(bytes.c_str(), nullptr, TIXML_ENCODING_UTF8);
    return document.Error() ? nullptr : document.RootElement();
}

XmlLines::Place XmlLines::placeOf(const TiXmlNode& node) const
{
    const std::size_t number =
        std::clamp<std::size_t>(static_cast<std::size_t>(std::max(node.Row(), 1)), 1, begins.size());
    const std::string_view rest = std::string_view(bytes).substr(begins[number - 1]);
    return {number,
            rest.substr(0, rest.find_first_of("\r\n")),
            {static_cast<std::size_t>(std::max(node.Column(), 1)), 1, {}}};
}

} // namespace companion
