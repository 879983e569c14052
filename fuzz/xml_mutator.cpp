#include "xml_mutator.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <vector>

namespace {

enum class Kind
{
    text, // also remarks, declarations and what is no tag
    open,
    close,
    empty // an element that is one tag
};

struct Piece
{
    Kind kind;
    std::string text;
};
using Pieces = std::vector<Piece>;

// The pieces of one element: from its tag to behind its closing tag, or to behind its tag where there is
// none.
struct Range
{
    std::size_t first;
    std::size_t end;
};

bool isText(std::string_view tag)
{
    return tag.size() < 3 || tag[1] == '!' || tag[1] == '?' || tag.back() != '>';
}

Kind kindOf(std::string_view tag)
{
    if (isText(tag)) {
        return Kind::text;
    }
    if (tag[1] == '/') {
        return Kind::close;
    }
    return tag[tag.size() - 2] == '/' ? Kind::empty : Kind::open;
}

// The front of a text up to its next tag, or that tag.
std::string_view nextPiece(std::string_view text)
{
    if (text.front() != '<') {
        return text.substr(0, text.find('<'));
    }
    const bool isRemark = text.starts_with("<!--");
    const std::size_t end = text.find(isRemark ? "-->" : ">");
    return end == std::string_view::npos ? text : text.substr(0, end + (isRemark ? 3 : 1));
}

Pieces piecesOf(std::string_view text)
{
    Pieces pieces;
    while (!text.empty()) {
        const std::string_view piece = nextPiece(text);
        pieces.push_back({piece.front() == '<' ? kindOf(piece) : Kind::text, std::string(piece)});
        text.remove_prefix(piece.size());
    }
    return pieces;
}

std::string textOf(const Pieces& pieces)
{
    std::string text;
    for (const Piece& piece : pieces) {
        text += piece.text;
    }
    return text;
}

bool beginsElement(const Piece& piece)
{
    return piece.kind == Kind::open || piece.kind == Kind::empty;
}

Range elementAt(const Pieces& pieces, std::size_t first)
{
    int depth = 0;
    for (std::size_t i = first; i < pieces.size(); ++i) {
        depth += pieces[i].kind == Kind::open ? 1 : 0;
        depth -= pieces[i].kind == Kind::close ? 1 : 0;
        if (depth == 0) {
            return {first, i + 1};
        }
    }
    return {first, first + 1};
}

std::vector<std::size_t> elementsOf(const Pieces& pieces)
{
    std::vector<std::size_t> places;
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        if (beginsElement(pieces[i])) {
            places.push_back(i);
        }
    }
    return places;
}

Range anyElement(const Pieces& pieces, Choices& choices)
{
    return elementAt(pieces, choices.oneOf(elementsOf(pieces)));
}

Pieces copyOf(const Pieces& pieces, Range range)
{
    return {pieces.begin() + static_cast<std::ptrdiff_t>(range.first),
            pieces.begin() + static_cast<std::ptrdiff_t>(range.end)};
}

void put(Pieces& pieces, std::size_t place, const Pieces& added)
{
    pieces.insert(pieces.begin() + static_cast<std::ptrdiff_t>(place), added.begin(), added.end());
}

void drop(Pieces& pieces, Range range)
{
    pieces.erase(pieces.begin() + static_cast<std::ptrdiff_t>(range.first),
                 pieces.begin() + static_cast<std::ptrdiff_t>(range.end));
}

std::string_view nameOf(const Piece& tag)
{
    const std::string_view text = std::string_view(tag.text).substr(tag.kind == Kind::close ? 2 : 1);
    return text.substr(0, text.find_first_of(" \t\r\n/>"));
}

void rename(Piece& tag, const std::string& name)
{
    const std::string_view old = nameOf(tag);
    tag.text.replace(static_cast<std::size_t>(old.data() - tag.text.data()), old.size(), name);
}

// A word of the dictionary that can be the name of an element.
std::string anyName(Choices& choices)
{
    const std::string word = choices.word();
    const std::size_t first = word.find_first_not_of("</");
    const std::string name = first == std::string::npos ? "" : word.substr(first);
    return name.substr(0, name.find_first_of(" \t\r\n/<>=\""));
}

Pieces element(const std::string& name, const Pieces& content)
{
    Pieces pieces{{Kind::open, "<" + name + ">"}};
    pieces.insert(pieces.end(), content.begin(), content.end());
    pieces.push_back({Kind::close, "</" + name + ">"});
    return pieces;
}

void repeatElement(Pieces& pieces, Choices& choices)
{
    const Range range = anyElement(pieces, choices);
    put(pieces, range.end, copyOf(pieces, range));
}

void dropElement(Pieces& pieces, Choices& choices)
{
    drop(pieces, anyElement(pieces, choices));
}

// Two elements change places, unless one holds the other: then the inner one takes the outer one's place.
void swapElements(Pieces& pieces, Choices& choices)
{
    Range one = anyElement(pieces, choices);
    Range other = anyElement(pieces, choices);
    if (other.first < one.first) {
        std::swap(one, other);
    }
    const Pieces later = copyOf(pieces, other);
    if (other.first >= one.end) {
        const Pieces earlier = copyOf(pieces, one);
        drop(pieces, other);
        put(pieces, other.first, earlier);
    }
    drop(pieces, one);
    put(pieces, one.first, later);
}

// A copy of an element goes into another.
void nestElement(Pieces& pieces, Choices& choices)
{
    const Pieces nested = copyOf(pieces, anyElement(pieces, choices));
    const Range around = anyElement(pieces, choices);
    put(pieces, around.first + 1, nested);
}

void wrapElement(Pieces& pieces, Choices& choices)
{
    const Range range = anyElement(pieces, choices);
    const Pieces wrapped = element(anyName(choices), copyOf(pieces, range));
    drop(pieces, range);
    put(pieces, range.first, wrapped);
}

// The content of an element takes the element's place.
void unwrapElement(Pieces& pieces, Choices& choices)
{
    const Range range = anyElement(pieces, choices);
    if (range.end - range.first > 1) {
        drop(pieces, {range.end - 1, range.end});
    }
    drop(pieces, {range.first, range.first + 1});
}

void renameElement(Pieces& pieces, Choices& choices)
{
    const Range range = anyElement(pieces, choices);
    const std::string name = anyName(choices);
    rename(pieces[range.first], name);
    if (range.end - range.first > 1) {
        rename(pieces[range.end - 1], name);
    }
}

void addElement(Pieces& pieces, Choices& choices)
{
    const Range around = anyElement(pieces, choices);
    put(pieces, around.first + 1, element(anyName(choices), {{Kind::text, choices.value()}}));
}

// The first text of an element, or its place where it has none.
void changeValue(Pieces& pieces, Choices& choices)
{
    const Range range = anyElement(pieces, choices);
    const Piece value{Kind::text, choices.value()};
    if (range.first + 1 < pieces.size() && pieces[range.first + 1].kind == Kind::text) {
        pieces[range.first + 1] = value;
    } else {
        put(pieces, range.first + 1, {value});
    }
}

void emptyElement(Pieces& pieces, Choices& choices)
{
    const Range range = anyElement(pieces, choices);
    const std::string name(nameOf(pieces[range.first]));
    drop(pieces, range);
    put(pieces, range.first,
        choices.onceIn(2) ? element(name, {}) : Pieces{{Kind::empty, "<" + name + "/>"}});
}

// An attribute more, before those that are there, or none at all.
void changeAttributes(Pieces& pieces, Choices& choices)
{
    Piece& tag = pieces[anyElement(pieces, choices).first];
    const std::string name(nameOf(tag));
    if (choices.onceIn(4)) {
        tag.text = "<" + name + (tag.kind == Kind::empty ? "/>" : ">");
    } else {
        tag.text.insert(name.size() + 1, " " + anyName(choices) + "=\"" + choices.value() + "\"");
    }
}

constexpr void (*changes[])(Pieces& pieces, Choices& choices) = {
    repeatElement, dropElement, swapElements, nestElement, wrapElement, unwrapElement, renameElement,
    addElement,    addElement,  changeValue,  changeValue, changeValue, emptyElement,  changeAttributes};

} // namespace

bool holdsElement(std::string_view text)
{
    const Pieces pieces = piecesOf(text);
    return std::any_of(pieces.begin(), pieces.end(), beginsElement);
}

std::string changedXml(std::string_view text, Choices& choices)
{
    Pieces pieces = piecesOf(text);
    for (std::size_t left = 1 + choices.below(3); left > 0 && !elementsOf(pieces).empty(); --left) {
        choices.oneOf(changes)(pieces, choices);
    }
    return textOf(pieces);
}
