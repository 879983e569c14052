#include "out/html.h"

#include "out/text.h"

#include <algorithm>

namespace companion {
namespace {

// Characters that are UTF-8 and that no page may hold: the second set of controls, and those that are none.
bool isForbidden(std::string_view character)
{
    const auto at = [character](std::size_t i) { return static_cast<unsigned char>(character[i]); };
    if (character.size() == 2) {
        return at(0) == 0xC2 && at(1) < 0xA0;
    }
    if (character.size() == 3) {
        const bool isOfArabicForms = at(0) == 0xEF && at(1) == 0xB7 && at(2) >= 0x90 && at(2) <= 0xAF;
        return isOfArabicForms || (at(0) == 0xEF && at(1) == 0xBF && at(2) >= 0xBE);
    }
    return character.size() == 4 && (at(1) & 0x0F) == 0x0F && at(2) == 0xBF && at(3) >= 0xBE;
}

std::string inBytes(std::string_view character)
{
    std::string text;
    for (const char c : character) {
        text += "\\x";
        for (const char digit : hexadecimal(std::string_view(&c, 1))) {
            text += digit >= 'a' ? static_cast<char>(digit - 'a' + 'A') : digit;
        }
    }
    return text;
}

std::string_view entityOf(char c)
{
    switch (c) {
    case '&': return "&amp;";
    case '<': return "&lt;";
    case '>': return "&gt;";
    case '"': return "&quot;";
    case '\'': return "&#39;";
    default: return {};
    }
}

// The length of a character of well-formed UTF-8, by its first byte.
std::size_t lengthBy(char first)
{
    const auto lead = static_cast<unsigned char>(first);
    return lead < 0x80 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
}

} // namespace

std::string escaped(std::string_view text)
{
    const std::string shown = printable(text);
    std::string out;
    out.reserve(shown.size());
    for (std::size_t at = 0; at < shown.size();) {
        const std::size_t length = std::min(lengthBy(shown[at]), shown.size() - at);
        const std::string_view character = std::string_view(shown).substr(at, length);
        const std::string_view entity = entityOf(shown[at]);
        if (!entity.empty()) {
            out += entity;
        } else if (isForbidden(character)) {
            out += inBytes(character);
        } else {
            out += character;
        }
        at += length;
    }
    return out;
}

Html::Element::Element(Html& page, std::string_view tag) : html(page), name(tag)
{
}

Html::Element::~Element()
{
    html.html += "</" + name + ">\n";
}

Html::Element Html::in(std::string_view tag, Attributes attributes)
{
    open(tag, attributes);
    return {*this, tag};
}

void Html::add(std::string_view tag, Attributes attributes, std::string_view text)
{
    open(tag, attributes);
    html += escaped(text);
    html += "</";
    html += tag;
    html += '>';
}

void Html::addAlone(std::string_view tag, Attributes attributes)
{
    open(tag, attributes);
    html += '\n';
}

void Html::text(std::string_view text)
{
    html += escaped(text);
}

void Html::name(std::string_view name)
{
    add("bdi", {}, name);
}

void Html::markup(std::string_view markup)
{
    html += markup;
}

void Html::open(std::string_view tag, Attributes attributes)
{
    html += '<';
    html += tag;
    for (const Attribute& each : attributes) {
        html += ' ';
        html += each.name;
        html += "=\"" + escaped(each.value) + '"';
    }
    html += '>';
}

} // namespace companion
