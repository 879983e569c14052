#include "schema/xsd_text.h"

#include "out/xml_text.h"

#include <string>

namespace companion {

XsdText::XsdText(const std::vector<std::string>& comment)
{
    out = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<!--\n";
    for (const std::string& line : comment) {
        out += (line.empty() ? "" : "    ") + line + '\n';
    }
    out +=
        "-->\n<xs:schema xmlns:xs=\"http://www.w3.org/2001/XMLSchema\" elementFormDefault=\"qualified\">\n";
    path.push_back("schema");
}

void XsdText::begin(const char* name, Attributes attributes, const char* end)
{
    out.append(path.size() * 4, ' ');
    out += std::string("<xs:") + name;
    for (const auto& [key, value] : attributes) {
        if (!value.empty()) {
            out += std::string(" ") + key + "=\"" + xmlText(value) + '"';
        }
    }
    out += end;
}

void XsdText::open(const char* name, Attributes attributes)
{
    begin(name, attributes, ">\n");
    path.push_back(name);
}

void XsdText::empty(const char* name, Attributes attributes)
{
    begin(name, attributes, "/>\n");
}

void XsdText::close()
{
    const char* const name = path.back();
    path.pop_back();
    out.append(path.size() * 4, ' ');
    out += std::string("</xs:") + name + ">\n";
}

void XsdText::documentation(std::string_view text)
{
    if (text.empty()) {
        return;
    }
    open("annotation");
    out.append(path.size() * 4, ' ');
    out += "<xs:documentation>" + xmlText(text) + "</xs:documentation>\n";
    close();
}

void XsdText::openElement(std::string_view name, bool demanded, bool repeated, std::string_view text)
{
    open("element", {{"name", std::string(name)},
                     {"minOccurs", demanded ? "" : "0"},
                     {"maxOccurs", repeated ? "unbounded" : ""}});
    documentation(text);
}

void XsdText::element(std::string_view name, std::string_view type, bool demanded, bool repeated,
                      std::string_view text)
{
    const Attributes attributes = {{"name", std::string(name)},
                                   {"type", std::string(type)},
                                   {"minOccurs", demanded ? "" : "0"},
                                   {"maxOccurs", repeated ? "unbounded" : ""}};
    if (text.empty()) {
        empty("element", attributes);
        return;
    }
    open("element", attributes);
    documentation(text);
    close();
}

void XsdText::pattern(std::string_view name, std::string_view base, std::string_view pattern,
                      std::string_view text)
{
    open("simpleType", {{"name", std::string(name)}});
    documentation(text);
    open("restriction", {{"base", std::string(base)}});
    empty("pattern", {{"value", std::string(pattern)}});
    close();
    close();
}

void XsdText::words(std::string_view name, const std::vector<std::string>& words, std::string_view text)
{
    open("simpleType", {{"name", std::string(name)}});
    documentation(text);
    open("restriction", {{"base", "xs:string"}});
    for (const std::string& word : words) {
        out.append(path.size() * 4, ' ');
        out += "<xs:enumeration value=\"" + xmlText(word) + "\"/>\n";
    }
    close();
    close();
}

std::string XsdText::text()
{
    while (!path.empty()) {
        close();
    }
    return out;
}

} // namespace companion
