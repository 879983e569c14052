// JSON schema texts: the documents below schema/json, which the build puts into the program.

#pragma once

#include <span>
#include <string_view>

namespace companion {

/// A JSON schema.
struct JsonSchemaText
{
    std::string_view subcommand;
    std::string_view text;
};

/// All of them, by the bytes of their names.
std::span<const JsonSchemaText> jsonSchemaTexts();

} // namespace companion
