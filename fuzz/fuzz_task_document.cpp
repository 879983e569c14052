// Task documents: any bytes are told apart into those that the tool loads and ends with and all others, and
// what is found has a place in them, and the values of the keys are those that the tool takes.

#include "task/task_document.h"

#include "config/xml_document.h"
#include "input_file.h"

#include <algorithm>
#include <string>
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

using tavelinUtils::TConvMea;

// A key whose text the tool takes as it is.
struct TextKey
{
    std::string_view name;
    std::string TConvMea::*text;
};

constexpr TextKey textKeys[] = {
    {"path_in", &TConvMea::path_in},
    {"out_dir", &TConvMea::out_dir},
    {"inputformat", &TConvMea::inputformat},
    {"outputformat", &TConvMea::outputformat},
    {"originator", &TConvMea::originator},
    {"PARTICIPANT_1", &TConvMea::PARTICIPANT_1},
    {"path_res", &TConvMea::path_res},
    {"whatSave", &TConvMea::whatSave},
    {"toSeparateFile", &TConvMea::toSeparateFile},
};

// The document holds what the tool's own reader takes from it.
void checkTask(const companion::TaskDocument& document)
{
    const TConvMea task = companion::taskOf(document); // comes back: a walk that does not is told apart
    for (const TextKey& row : textKeys) {
        const companion::DocumentKey* const key = document.key(row.name);
        const bool isSet = key != nullptr && key->first != companion::FirstNode::none;
        mustHold(task.*row.text == (isSet ? key->value : TConvMea{}.*row.text));
    }
    mustHold(task.paths.empty() || task.paths.size() == document.series.size());
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
        checkTask(document);
    }
    return 0;
}
