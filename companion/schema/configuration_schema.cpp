#include "config/configuration_keys.h"
#include "schema/converted_keys.h"
#include "schema/xml_schemas.h"
#include "schema/xsd_text.h"

#include <set>
#include <string_view>
#include <vector>

namespace companion {
namespace {

using tavelinUtils::ConfigurationKey;
using tavelinUtils::configurationKeys;
using tavelinUtils::ConfigurationValue;

// Of any key but a list.
const char* typeOf(const ConfigurationKey& key)
{
    switch (key.value) {
    case ConfigurationValue::number: return "number";
    case ConfigurationValue::integer: return "integer";
    case ConfigurationValue::flag: return "flag";
    case ConfigurationValue::text: return "xs:string";
    default: return convertedKey(key.key).type;
    }
}

// A list whose items are not empty: the reader never returns from an empty one.
void writeList(XsdText& xsd, const std::string& item)
{
    xsd.open("complexType");
    xsd.open("sequence");
    xsd.element(item, "nonEmpty", false, true);
    xsd.close();
    xsd.close();
}

void writeKey(XsdText& xsd, const ConfigurationKey& key)
{
    if (key.value != ConfigurationValue::list) {
        xsd.element(key.key, typeOf(key), false, false);
        return;
    }
    xsd.openElement(key.key, false, false);
    writeList(xsd, key.item);
    xsd.close();
}

// The name of the section just below another; empty where the section is not below it.
std::string childOf(const std::string& section, const std::string& parent)
{
    const std::string front = parent.empty() ? "" : parent + '/';
    if (section.size() <= front.size() || section.compare(0, front.size(), front) != 0) {
        return "";
    }
    return section.substr(front.size(), section.find('/', front.size()) - front.size());
}

std::vector<std::string> sectionsBelow(const std::string& parent)
{
    std::vector<std::string> sections;
    for (const ConfigurationKey& key : configurationKeys()) {
        const std::string child = childOf(key.section, parent);
        if (!child.empty() && (sections.empty() || sections.back() != child)) {
            sections.push_back(child);
        }
    }
    return sections;
}

// Element sets come one after the other; all else is in any order.
void writeSection(XsdText& xsd, const std::string& section)
{
    const bool repeats = section == "TLEs";
    xsd.open("complexType", {{"name", section.empty() ? "settings" : ""}});
    xsd.open(repeats ? "sequence" : "all");
    for (const ConfigurationKey& key : configurationKeys()) {
        if (key.section == section) {
            writeKey(xsd, key);
        }
    }
    const std::string path = section.empty() ? "" : section + '/';
    for (const std::string& child : sectionsBelow(section)) {
        xsd.openElement(child, false, repeats);
        writeSection(xsd, std::string(path).append(child));
        xsd.close();
    }
    if (section.empty()) {
        xsd.element("HeaderSettings", "headerSettings", false, false,
                    "The spellings of frame headers, and the names of filters.");
    }
    xsd.close();
    xsd.close();
}

void writeHeaderSettings(XsdText& xsd)
{
    xsd.open("complexType", {{"name", "headerSettings"}});
    xsd.open("all");
    xsd.openElement("headerKeys", false, false);
    xsd.open("complexType");
    xsd.open("sequence");
    xsd.openElement("key", false, true, "The keywords of FITS that may carry a value.");
    xsd.open("complexType");
    xsd.open("sequence");
    xsd.element("string", "xs:string", false, true);
    xsd.close();
    xsd.empty("attribute", {{"name", "name"}, {"type", "headerWord"}, {"use", "required"}});
    for (int i = 0; i < 5; ++i) {
        xsd.close();
    }
    xsd.openElement("filterKeys", false, false);
    xsd.open("complexType");
    xsd.open("sequence");
    xsd.empty("any", {{"processContents", "lax"}, {"minOccurs", "0"}, {"maxOccurs", "unbounded"}});
    for (int i = 0; i < 5; ++i) {
        xsd.close();
    }
}

// Their parents may have any name, so they are declared for themselves.
void writeFilterLetters(XsdText& xsd)
{
    for (const std::string& letter : tavelinUtils::configurationFilterLetters()) {
        xsd.openElement(letter, true, false, "The names of a filter, below an element of filterKeys.");
        writeList(xsd, "string");
        xsd.close();
    }
}

void writeTypes(XsdText& xsd)
{
    xsd.pattern("number", "xs:string", R"(([+\-]?[0-9]+(\.[0-9]*)?([eE][+\-]?[0-9]{1,3})?)?)",
                "A number; the default where it is empty.");
    xsd.pattern("integer", "xs:string", R"(([+\-]?[0-9]{1,9})?)",
                "An integer; the default where it is empty.");
    xsd.words("flag", {"true", "false", ""}, "Exactly true or false; the default where it is empty.");
    xsd.pattern("nonEmpty", "xs:string", R"(\s*\S(.|\s)*)");
    xsd.pattern("areas", "xs:string", R"((\([0-9]+;[0-9]+-[0-9]+;[0-9]+\))*)",
                "Rectangles, two corners each: (1;2-30;40)(5;6-70;80)");
    std::set<std::string_view> written;
    for (const ConvertedKey& row : convertedKeyTable()) {
        std::vector<std::string> words = wordsOf(row);
        if (!words.empty() && written.insert(row.type).second) {
            words.emplace_back();
            xsd.words(row.type, words);
        }
    }
    xsd.words("headerWord", tavelinUtils::configurationHeaderWords());
}

} // namespace

std::string configurationSchema(std::string_view /*name*/)
{
    XsdText xsd(
        {"The configuration of a series, a file with the extension .conf. Its root may have any name; root",
         "is the usual one. Made by tavelin schema config."});
    for (const char* name : {"root", "configuration"}) {
        xsd.element(name, "settings", true, false, "The settings of a series.");
    }
    writeFilterLetters(xsd);
    writeSection(xsd, "");
    writeHeaderSettings(xsd);
    writeTypes(xsd);
    return xsd.text();
}

} // namespace companion
