// Task document: the bytes of a task, parsed for the places of its keys, and the reasons why the tool cannot
// load it or would never end with it.

#pragma once

#include "findings/finding.h"
#include "task.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace companion {

/// Where a start tag is, as TinyXML counts: from 1, a character of several bytes as one.
struct SourcePlace
{
    std::size_t line = 0;
    std::size_t column = 0;
};

/// What the first node of an element is: that one counts as its value.
enum class FirstNode
{
    none,
    text,
    comment,
    element,
    other
};

/// An element of a task that is a key, or stands where keys do.
struct DocumentKey
{
    std::string name{};
    SourcePlace place{};
    FirstNode first = FirstNode::none;
    std::string value{};                 ///< that of the first node, as the tool takes it; empty for none
    std::vector<DocumentKey> children{}; ///< the elements in it, without their own children
};

/// A seria: the first `paths` of a task has them.
struct DocumentSeria
{
    SourcePlace place{};
    bool isEmpty = false;            ///< without any node: the walk of the tool does not get past it
    std::vector<DocumentKey> keys{}; ///< in their order
};

/// A task file as its bytes are.
struct TaskDocument
{
    std::string path{}; ///< as it was given; "-" is the standard input
    std::string file{}; ///< the whole path, also after a change of folder; empty for none
    std::string bytes{};
    std::vector<Finding> findings{}; ///< V010 to V016 and V230, in the file of that path
    bool canBeLoaded = false;        ///< by the tool
    bool walkEnds = true;            ///< false: the tool would never end with it
    bool isTooDeep = false;          ///< all keys are one level below those that count
    std::vector<DocumentKey> keys{}; ///< the elements in the root, in their order
    SourcePlace root{};
    std::vector<DocumentSeria> series{}; ///< the seria elements that the tool walks through

    /// Whether it makes sense to look at its keys.
    bool goesOn() const
    {
        return canBeLoaded && walkEnds && !isTooDeep;
    }

    /// The first key of a name, which counts; a null pointer where there is none.
    const DocumentKey* key(std::string_view name) const;
};

/// The first key of a name among keys; a null pointer where there is none.
const DocumentKey* firstKey(const std::vector<DocumentKey>& keys, std::string_view name);

/// Reads a task file. Whatever it is, the call ends and does not throw: the findings say what is wrong.
TaskDocument readTaskDocument(const std::string& path);

/// The same for bytes that were read from a path.
TaskDocument taskDocumentOf(std::string_view bytes, const std::string& path);

/// The task of a document, read from its bytes by the tool's own reader. Throws std::logic_error for one that
/// cannot be loaded or whose walk does not end.
tavelinUtils::TConvMea taskOf(const TaskDocument& document);

/// A finding of the document at the first key of a name below its root; without a place where there is none.
Finding atKey(const TaskDocument& document, Finding found, std::string_view key);

/// A finding at the first key of a name in a seria, counted from 0, or at the seria where it has none. Throws
/// std::out_of_range where the document has no such seria.
Finding atKeyOfSeria(const TaskDocument& document, Finding found, std::size_t seria, std::string_view key);

/// The same at a place.
Finding findingAt(const TaskDocument& document, SourcePlace place, Finding found);

} // namespace companion
