// xmllint: an independent judge of documents and of our schemas.

#pragma once

#include <string>

/// What xmllint says of a document by the schema of a name: "" where it takes it, else its first message.
std::string refusalByXmllint(const std::string& schema, const std::string& document);

/// A text with its only place of a piece replaced; fails the test where the piece is not there, or twice.
std::string withReplaced(const std::string& text, const std::string& piece, const std::string& other);
