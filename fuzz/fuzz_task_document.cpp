// Task documents: any bytes are told apart into those that the tool loads and ends with and all others, and
// what is found has a place in them.

#include "task/task_document.h"

#include "config/xml_document.h"
#include "input_file.h"

#include <algorithm>
#include <string_view>

namespace {

// A place is in a line of the text, or nowhere.
void checkPlaces(const companion::TaskDocument& document, std::string_view bytes)
{
    const auto lineEnds =
        std::count_if(bytes.begin(), bytes.end(), [](char c) { return c == '\n' || c == '\r'; });
    const auto lines = static_cast<std::size_t>(lineEnds) + 1;
    for (const companion::Finding& found : document.findings) {
        mustHold(found.line <= lines && found.column <= bytes.size() + 1);
    }
    for (const companion::DocumentKey& key : document.keys) {
        mustHold(key.place.line >= 1 && key.place.line <= lines && key.place.column >= 1);
    }
    for (const companion::DocumentSeria& seria : document.series) {
        mustHold(seria.place.line >= 1 && seria.place.line <= lines);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    const std::string_view text(reinterpret_cast<const char*>(bytes), size);
    const companion::TaskDocument document = companion::taskDocumentOf(text, "task.xml");
    checkPlaces(document, text);

    const InputFile file(bytes, size);
    tavelinUtils::TtavelinXmlDocument loaded(file.path());
    mustHold(document.canBeLoaded == loaded.LoadFile());
    mustHold(document.canBeLoaded || !document.findings.empty());
    if (document.canBeLoaded && document.walkEnds) {
        companion::taskOf(document); // comes back: a walk that does not is told apart
    }
    return 0;
}
