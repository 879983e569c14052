// Schemas: XML schemas of the files that the tool reads and writes, and JSON schemas of what the command
// prints. The XML schemas are made from the tables of keys.

#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace companion {

/// A schema that can be printed.
struct Schema
{
    std::string name;     ///< "task", "json check"
    std::string language; ///< "XSD 1.0" or "JSON Schema 2020-12"
    std::string of;       ///< what it describes
    std::string (*make)(std::string_view name);

    /// The schema itself.
    std::string text() const
    {
        return make(name);
    }
};

/// All schemas, XML first.
const std::vector<Schema>& allSchemas();

/// The schema of a name; a null pointer where there is none.
const Schema* schemaOf(std::string_view name);

} // namespace companion
