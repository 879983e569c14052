// XML nesting: how deep a document goes, found before it is parsed.

#pragma once

namespace tavelinUtils {

/// Whether TinyXML, which parses by recursion, would meet more than `deepest` nested elements, or an element
/// with more than `mostAttributes` attributes, which it compares with each other. Reads the bytes by the
/// library's own grammar up to the first zero byte, which seven more zero bytes must follow.
bool goesBeyond(const char* document, int deepest, int mostAttributes);

} // namespace tavelinUtils
