// What a code of result files says.

#include "command/explanation.h"
#include "out/text.h"
#include "reading/code_meanings.h"
#include "results/code_table.h"

namespace companion {
namespace {

const std::string indent(4, ' ');

// Who says a code: the tool itself, the library, or another module of the pipeline.
std::string_view raisedBy(int code)
{
    if (!toolMeaningsOf(code).empty()) {
        return "tool";
    }
    return libraryMeaning(code).empty() ? "another module" : "library";
}

std::string meaningLines(int code)
{
    std::string text;
    for (const CodeMeaning& each : toolMeaningsOf(code)) {
        text += "The tool says it with " + std::string(each.texts) + ":\n";
        text += wrapped(indent, each.meaning, indent.size()) + wrapped(indent, each.remedy, indent.size());
    }
    return text;
}

// What the library's table makes of a code.
std::string tableLine(int code, const std::string& text)
{
    const std::string meaning(libraryMeaning(code));
    if (!meaning.empty()) {
        return "The library says \"" + text + "\" where " + meaning + ".";
    }
    if (raisedBy(code) == "tool") {
        return "Raised by another module of the pipeline it means: " + text;
    }
    return "Raised by another module of the pipeline; the tool and the library never say it.";
}

Json meaningsJson(int code)
{
    Json list = Json::list();
    for (const CodeMeaning& each : toolMeaningsOf(code)) {
        list.push(
            Json::object().set("texts", each.texts).set("meaning", each.meaning).set("remedy", each.remedy));
    }
    return list;
}

} // namespace

Explanation explanationOfCode(int code)
{
    const std::string tableText = tavelinUtils::GetTextCode(code);
    Explanation explained;
    explained.text = "Code " + std::to_string(code);
    explained.text += raisedBy(code) == "tool" ? ":\n" : ": " + tableText + '\n';
    explained.text += meaningLines(code) + wrapped("", tableLine(code, tableText), 0);
    explained.json.set("kind", "code").set("code", code).set("text", tableText);
    explained.json.set("raisedBy", raisedBy(code)).set("meanings", meaningsJson(code));
    explained.json.set("library", libraryMeaning(code));
    return explained;
}

} // namespace companion
