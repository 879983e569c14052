// HTML: pages for browsers, put together element by element, with every text escaped.
//
//   Html page;
//   {
//       const Html::Element item = page.in("li", {{"class", "loss"}});
//       page.add("b", {}, counted(2));
//       page.text(" cut");
//   }

#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

namespace companion {

/// A text as it stands between tags and in the quotes of an attribute. Control characters, and bytes that are
/// not UTF-8 or that a page must not hold, are shown as "\xE9".
std::string escaped(std::string_view text);

/// A page, or a part of one.
class Html
{
public:
    /// An attribute of an element and its value, which is escaped.
    struct Attribute
    {
        std::string_view name;
        std::string value;
    };
    using Attributes = std::initializer_list<Attribute>;

    /// An element that ends with the object.
    class Element
    {
    public:
        Element(Html& page, std::string_view tag);
        ~Element();
        Element(const Element&) = delete;
        Element& operator=(const Element&) = delete;

    private:
        Html& html;
        std::string name;
    };

    /// Opens an element.
    [[nodiscard]] Element in(std::string_view tag, Attributes attributes = {});
    /// Adds an element with a text in it.
    void add(std::string_view tag, Attributes attributes, std::string_view text);
    /// Adds an element of those that have no end: meta, link.
    void addAlone(std::string_view tag, Attributes attributes);
    /// Adds a text.
    void text(std::string_view text);
    /// Adds a name that a file gives: it may be written in any direction and changes that of no other text.
    void name(std::string_view name);
    /// Adds markup as it is. It must not come from a file.
    void markup(std::string_view markup);

    /// All that was added.
    const std::string& bytes() const
    {
        return html;
    }

private:
    void open(std::string_view tag, Attributes attributes);

    std::string html{};
};

} // namespace companion
