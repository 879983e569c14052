// What a finding is, and the page of all findings.

#include "command/explanation.h"
#include "findings/finding_examples.h"
#include "out/text.h"

#include <algorithm>
#include <string_view>

namespace companion {
namespace {

struct Finder
{
    char letter;
    std::string_view name;
};

constexpr Finder finders[] = {
    {'c', "check"}, {'l', "lint"}, {'r', "run"}, {'y', "ready"}, {'n', "normalise"}, {'p', "plot"},
};

std::vector<std::string_view> findersOf(const FindingRow& row)
{
    std::vector<std::string_view> names;
    for (const Finder& each : finders) {
        if (row.by == "all" || row.by.find(each.letter) != std::string_view::npos) {
            names.push_back(each.name);
        }
    }
    return names;
}

// "check, lint and ready", or all of them in a word.
std::string foundBy(const FindingRow& row)
{
    if (row.by == "all") {
        return "every subcommand";
    }
    std::string text;
    const std::vector<std::string_view> names = findersOf(row);
    for (std::size_t i = 0; i < names.size(); ++i) {
        text += i == 0 ? "" : i + 1 == names.size() ? " and " : ", ";
        text += names[i];
    }
    return text;
}

std::string kindOf(const FindingRow& row)
{
    return std::string(severityWord(row.severity)) + " of " + foundBy(row) +
           (row.refuses ? "; run does not start a task that has it" : "");
}

// Each line of a text with four blanks in front.
std::string indented(std::string_view lines)
{
    std::string text;
    while (!lines.empty()) {
        const std::size_t end = std::min(lines.find('\n'), lines.size());
        text += "    " + std::string(lines.substr(0, end)) + '\n';
        lines.remove_prefix(std::min(end + 1, lines.size()));
    }
    return text;
}

Json jsonOf(const FindingRow& row)
{
    Json by = Json::list();
    for (const std::string_view name : findersOf(row)) {
        by.push(name);
    }
    Json json = Json::object();
    json.set("kind", "finding").set("code", row.code.text()).set("severity", severityWord(row.severity));
    json.set("refuses", row.refuses).set("by", by).set("text", row.text);
    json.set("happens", row.happens).set("remedy", row.remedy);
    if (const FindingExample* const example = findingExample(row.code)) {
        json.set("example", Json::object().set("call", example->call).set("lines", example->lines));
    }
    return json.set("page", pageOf(row.code));
}

// A text in which Markdown finds nothing to format.
std::string plainMarkdown(std::string_view text)
{
    std::string plain;
    for (const char c : text) {
        if (c == '&' || c == '<') {
            plain += c == '&' ? "&amp;" : "&lt;";
        } else {
            plain += std::string_view("\\`*[]").find(c) == std::string_view::npos ? "" : "\\";
            plain += c;
        }
    }
    return plain;
}

std::string sectionOf(const FindingRow& row)
{
    std::string text = "\n## " + row.code.text() + "\n\n`" + std::string(row.text) + "`\n\n";
    std::string kind = kindOf(row); // which begins with the severity
    kind[0] = static_cast<char>(kind[0] - 'a' + 'A');
    text += kind + ".\n\n";
    text += plainMarkdown(row.happens) + "\n\n";
    text += "What to do: " + plainMarkdown(row.remedy) + "\n\n";
    if (const FindingExample* const example = findingExample(row.code)) {
        text += "<!-- case: " + std::string(example->place) + " -->\n```text\n$ tavelin " +
                std::string(example->call) + '\n' + std::string(example->lines) + "\n```\n\n";
    }
    const std::string page(pageOf(row.code).substr(std::string_view("docs/").size()));
    return text + "More: [" + page + "](" + page + ")\n";
}

} // namespace

Explanation explanationOf(const FindingRow& row)
{
    Explanation explained;
    explained.json = jsonOf(row);
    std::string& text = explained.text;
    text = row.code.text() + ": " + kindOf(row) + '\n' + indented(row.text);
    text += wrapped("What happens:", row.happens, 0) + wrapped("What to do:", row.remedy, 0);
    if (const FindingExample* const example = findingExample(row.code)) {
        text += "Example:\n    $ tavelin " + std::string(example->call) + '\n' + indented(example->lines);
    }
    text += "More: " + std::string(pageOf(row.code)) + '\n';
    return explained;
}

std::string findingsPage()
{
    std::string text =
        "# Findings\n\n"
        "What `tavelin` tells about tasks, files and runs. Words in braces are filled in. Each "
        "example is a case of the\n"
        "tests. `tavelin explain` shows a section of this page, which "
        "`scripts/make_companion_texts` makes from the same table.\n";
    for (const FindingRow& row : findingTable()) {
        text += sectionOf(row);
    }
    return text;
}

} // namespace companion
