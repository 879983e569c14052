// XML nesting: how deep a document goes, found before it is parsed, and how deep it may go.

#pragma once

#include "../base/bytes.h"

namespace tavelinUtils {

/// What TtavelinXmlDocument takes at most: nested elements, and attributes in one element.
inline constexpr int deepestLevel = 1000;
inline constexpr int mostAttributesOfElement = 10000;

/// Turns the line ends of all systems into line feeds, as the library does when it reads a file itself. The
/// zero bytes after the text move with its end.
void normalizeLineEnds(FileBytes& file);

/// Whether TinyXML, which parses by recursion, would meet more than `deepest` nested elements, or an element
/// with more than `mostAttributes` attributes, which it compares with each other. Reads the bytes by the
/// library's own grammar up to the first zero byte, which seven more zero bytes must follow.
bool goesBeyond(const char* document, int deepest, int mostAttributes);

} // namespace tavelinUtils
