// Mutator of tables: changes a text as lines of tokens, so that readers see whole lines of wrong fields.

#pragma once

#include "mutation.h"

#include <string>
#include <string_view>

/// A text with one line, token or column or more of it repeated, dropped, moved, swapped, joined or given
/// another value. Line ends and separators stay what they are, and a value that takes the place of another
/// one may keep its width, for formats with fixed columns. The result may be three times as long as the text,
/// and some lines.
std::string changedTable(std::string_view text, Choices& choices);
