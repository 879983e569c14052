// What a result file says.

#include "command/explanation.h"
#include "out/text.h"
#include "reading/code_meanings.h"
#include "reading/signatures.h"
#include "results/code_table.h"
#include "running/counting.h"

#include <filesystem>

namespace companion {
namespace {

const std::string indent(4, ' ');

// What is said of a code that the tool does not set with these texts.
std::string meaningOfOther(const ResultEntry& entry)
{
    const std::string meaning(libraryMeaning(entry.code));
    if (!meaning.empty()) {
        return "The library says this where " + meaning + ".";
    }
    return isResultCode(entry.code)
               ? "Raised by another module of the pipeline: " + tavelinUtils::GetTextCode(entry.code)
               : "No module of the pipeline has this code.";
}

std::string meaningOf(const ResultEntry& entry)
{
    const CodeMeaning* const meaning = toolMeaning(entry);
    return meaning == nullptr ? meaningOfOther(entry) : std::string(meaning->meaning);
}

std::string remedyOf(const ResultEntry& entry)
{
    const CodeMeaning* const meaning = toolMeaning(entry);
    return meaning == nullptr ? "See the log of that module." : std::string(meaning->remedy);
}

std::string titleOf(const ResultEntry& entry)
{
    std::string line = entry.date.empty() ? "" : entry.date + ": ";
    line += "code " + std::to_string(entry.code);
    for (const std::string& text : {entry.comment, entry.description}) {
        line += text.empty() ? "" : ", " + text;
    }
    return printable(line) + '\n';
}

// What a file that is there holds: ", TDM, 130 marks".
std::string content(const std::string& path, Json& json)
{
    const Recognition form = recognisedFile(path);
    if (!form.isSure()) {
        return "";
    }
    json.set("format", form.format);
    std::string text = ", " + formatTitle(form.format);
    if (const auto held = heldMarks(path, form.format)) {
        json.set("marks", held->marks);
        text += ", " + counted(held->marks, "mark");
        text += held->isWhole ? "" : ", cut off";
    }
    return text;
}

void addFiles(const ResultEntry& entry, std::string& text, Json& json)
{
    Json files = Json::list();
    for (const std::string& path : namedFiles(entry)) {
        std::error_code ignored;
        const bool isThere = std::filesystem::is_regular_file(path, ignored);
        Json file = Json::object();
        setBytes(file, "path", path);
        file.set("exists", isThere);
        text += indent + printable(path) + (isThere ? ": there" + content(path, file) : ": missing") + '\n';
        files.push(file);
    }
    json.set("files", files);
}

} // namespace

Explanation explanationOfResult(const std::string& path, const std::vector<ResultEntry>& entries)
{
    Explanation explained;
    explained.text = printable(path) + ": a result file of " + counted(entries.size(), "outcome") + '\n';
    Json list = Json::list();
    for (const ResultEntry& entry : entries) {
        Json json = Json::object().set("date", entry.date).set("code", entry.code);
        json.set("comment", entry.comment);
        setBytes(json, "description", entry.description);
        json.set("meaning", meaningOf(entry)).set("remedy", remedyOf(entry));
        explained.text += titleOf(entry) + wrapped(indent, meaningOf(entry), indent.size());
        addFiles(entry, explained.text, json);
        explained.text += wrapped(indent, remedyOf(entry), indent.size());
        explained.tellsOfFailure = explained.tellsOfFailure || tellsOfFailure(entry);
        list.push(json);
    }
    explained.json.set("kind", "result");
    setBytes(explained.json, "file", path);
    explained.json.set("entries", list);
    return explained;
}

} // namespace companion
