// XSD text: XML schemas of version 1.0 as they are written, element by element.
//
//   XsdText xsd;
//   xsd.open("simpleType", {{"name", "flag"}});
//   xsd.open("restriction", {{"base", "xs:string"}});
//   xsd.empty("enumeration", {{"value", "true"}});
//   xsd.close();
//   xsd.close();
//   xsd.text();

#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace companion {

/// A schema under way. Its names are those of XML Schema, without the prefix, which each of them gets.
class XsdText
{
public:
    /// Attributes of an element; one with an empty value is left out.
    using Attributes = std::initializer_list<std::pair<const char*, std::string>>;

    /// Opens a document and its schema. The comment stands before it, a line each.
    explicit XsdText(const std::vector<std::string>& comment);

    /// Opens an element.
    void open(const char* name, Attributes attributes = {});
    /// An element that holds nothing.
    void empty(const char* name, Attributes attributes);
    /// Closes the element that was opened last.
    void close();
    /// The documentation of the element that is open; nothing for an empty text.
    void documentation(std::string_view text);
    /// Opens an element declaration, with its documentation.
    void openElement(std::string_view name, bool demanded, bool repeated,
                     std::string_view documentation = "");
    /// An element of a type, with its documentation.
    void element(std::string_view name, std::string_view type, bool demanded, bool repeated,
                 std::string_view documentation = "");
    /// A restriction of a type by a pattern, under a name.
    void pattern(std::string_view name, std::string_view base, std::string_view pattern,
                 std::string_view documentation = "");
    /// A text that is one of a few words, under a name.
    void words(std::string_view name, const std::vector<std::string>& words,
               std::string_view documentation = "");

    /// Closes the schema and gives the document.
    std::string text();

private:
    void begin(const char* name, Attributes attributes, const char* end);

    std::string out;
    std::vector<const char*> path;
};

} // namespace companion
