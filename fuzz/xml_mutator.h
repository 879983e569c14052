// Mutator of XML: changes a document as a tree of elements, so that readers see wrong trees and not only torn
// tags.

#pragma once

#include "mutation.h"

#include <string>
#include <string_view>

/// Whether there is an element in the text.
bool holdsElement(std::string_view text);

/// A text that holds an element, with one element or more of it repeated, dropped, moved, swapped, nested,
/// renamed, emptied or given another value or attribute. What is around them, a torn tag too, stays byte for
/// byte. The result may be as long as the text and three of its elements.
std::string changedXml(std::string_view text, Choices& choices);
