// Schema validation: an XML document held against a schema that somebody else publishes.

#pragma once

#include "findings/finding.h"

#include <functional>
#include <memory>
#include <string>

namespace companion {

/// A schema. Nothing is fetched from a network.
class XmlSchema
{
public:
    /// Loads a schema and what it includes. Throws WrongUsage (V003) for a file that is no schema.
    explicit XmlSchema(const std::string& path);
    ~XmlSchema();
    XmlSchema(const XmlSchema&) = delete;
    XmlSchema& operator=(const XmlSchema&) = delete;

    /// Hands out a finding (V440) for each message about a document, with its line.
    void validate(const std::string& path, const std::function<void(Finding)>& found) const;

private:
    struct State;
    std::unique_ptr<State> state;
};

} // namespace companion
