// XML lines: a document that is put together from its lines, and the places of its elements in them.

#pragma once

#include "config/xml_document.h"
#include "reading/line_checker.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace companion {

/// The lines of a document.
class XmlLines
{
public:
    /// The place of an element: its line and its column.
    struct Place
    {
        std::size_t line = 0;
        std::string_view text{}; ///< of the line
        Stretch stretch{};
    };

    /// Adds a line.
    void add(std::string_view line);

    /// All lines.
    const std::string& text() const
    {
        return bytes;
    }

    /// Parses the document; its root, or a null pointer where it cannot be parsed or goes deeper than the
    /// library takes.
    const TiXmlElement* parse(TiXmlDocument& document) const;

    /// Where an element of the document begins.
    Place placeOf(const TiXmlNode& node) const;

private:
    std::string bytes{};
    std::vector<std::size_t> begins{};
};

} // namespace companion
