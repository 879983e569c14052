// ADES document: the rules of a submission for its blocks and observations, whichever form it has, by the
// table of receivers/ades_fields.h.

#pragma once

#include "reading/line_checker.h"
#include "reading/seen_texts.h"

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace companion {

/// An element with its text and its place.
struct AdesElement
{
    std::string name{};
    std::string text{};
    std::size_t line = 0;
    std::string_view lineText{};
    Stretch stretch{};
};

/// Takes a document block by block and gives findings of what the receiver does not take.
class AdesDocument
{
public:
    explicit AdesDocument(LintOutput& output) : out(output)
    {
    }

    /// How many bytes the document has.
    void size(std::size_t bytes);
    /// The version that the document states.
    void version(const AdesElement& element);
    /// A block begins.
    void openBlock();
    /// An element of the context, or of one of its children.
    void context(const std::string& parent, const AdesElement& element);
    /// The context is complete.
    void closeContext(const AdesElement& at);
    /// An optical observation. Elements that are empty are left out of it; the order counts in XML alone.
    void observation(const std::vector<AdesElement>& elements, const AdesElement& at, bool inOrder);

    /// Gives the finding of an element that the schema refuses.
    void tell(const AdesElement& at, const std::string& element, const std::string& rule);
    /// Gives the warning of something that the schema takes.
    void warn(const AdesElement& at, const std::string& what);

private:
    void checkName(const AdesElement& element, bool inOrder, std::span<const AdesElement> before);
    void checkIdentification(const std::vector<AdesElement>& elements, const AdesElement& at);
    void checkGroups(const std::vector<AdesElement>& elements, const AdesElement& at);
    void checkText(const AdesElement& element);
    void checkStation(const std::vector<AdesElement>& elements);
    void checkTime(const std::vector<AdesElement>& elements);

    LintOutput& out;
    std::vector<std::string> seen{}; // elements of the context, as "telescope/design"
    std::string station{};
    SeenTexts times{}; // with station and object
};

} // namespace companion
