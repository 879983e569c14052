// `tavelin explain`: finds out what is asked about, and explains it.

#include "base/bytes.h"
#include "base/numbers.h"
#include "command/explanation.h"
#include "command/subcommands.h"
#include "reading/code_meanings.h"
#include "reading/input_files.h"
#include "reading/signatures.h"

#include <algorithm>
#include <filesystem>
#include <optional>
#include <ostream>
#include <utility>

namespace companion {
namespace {

constexpr OptionRow options[] = {
    {"as", 0, "task|result|code|finding|format", "what WHAT is, where that is in doubt"},
    {"list", 0, nullptr, "all findings, a line each"},
    {"markdown", 0, nullptr, "with --list: all findings as the page docs/findings.md"},
};

std::optional<int> codeIn(const std::string& word)
{
    const std::size_t sign = word.starts_with('-') ? 1 : 0;
    const bool isNumber = word.size() > sign && word.size() < 9 &&
                          word.find_first_not_of("0123456789", sign) == std::string::npos;
    return isNumber ? std::optional(tavelinUtils::toInt(word)) : std::nullopt;
}

Explanation findingNamed(const std::string& word)
{
    const auto code = FindingCode::of(word);
    const FindingRow* const row = code ? findingRow(*code) : nullptr;
    if (row == nullptr) {
        std::vector<std::string> known;
        for (const FindingRow& each : findingTable()) {
            known.push_back(each.code.text());
        }
        throw unknownWord("finding", word, known);
    }
    return explanationOf(*row);
}

Explanation codeNamed(const std::string& word)
{
    const auto code = codeIn(word);
    if (!code || !isResultCode(*code)) {
        throw unknownWord("result code", word, {});
    }
    return explanationOfCode(*code);
}

Explanation formatNamed(const std::string& word)
{
    const FormatFacts* const facts = formatFacts(word);
    if (facts == nullptr) {
        throw unknownWord("format", word, formatNames());
    }
    return explanationOf(*facts);
}

std::vector<ResultEntry> resultsOf(const std::string& path)
{
    std::vector<ResultEntry> entries = resultsOfDocument(path);
    return entries.empty() ? resultsOfLog(path) : entries;
}

Explanation resultIn(const std::string& name, InputFiles& files)
{
    const std::vector<ResultEntry> entries = resultsOf(files.pathOf(name));
    if (entries.empty()) {
        throw WrongUsage{finding("V003", {{"file", name}, {"what", "it holds no result"}})};
    }
    return explanationOfResult(name, entries);
}

TaskDocument documentOf(const std::string& name, InputFiles& files)
{
    const std::string path = files.pathOf(name);
    if (path == name) {
        return readTaskDocument(name);
    }
    tavelinUtils::FileBytes input;
    readBytes(path, input); // a copy that was made just now
    return taskDocumentOf(input.view(), name);
}

Explanation taskIn(const std::string& name, InputFiles& files)
{
    const CheckedTask checked = TaskChecker({}).check(documentOf(name, files));
    if (!checked.isLoaded) {
        throw WrongUsage{
            std::find_if(checked.findings.begin(), checked.findings.end(),
                         [](const Finding& each) { return each.severity == Severity::error; })[0]};
    }
    return explanationOf(checked);
}

// Whether a word is the name of a thing that is no file.
std::string kindOfWord(const std::string& word)
{
    if (FindingCode::of(word)) {
        return "finding";
    }
    if (codeIn(word)) {
        return "code";
    }
    return formatFacts(word) == nullptr ? "" : "format";
}

// A file is a task or a result, by its content.
std::string kindOfFile(const std::string& name, InputFiles& files)
{
    const Recognition form = recognisedFile(files.pathOf(name));
    if (form.format == "task" || form.format == "result") {
        return form.format;
    }
    const std::string what = form.isSure()
                                 ? "it is of the form " + formatTitle(form.format) + "; see tavelin info"
                                 : "it is no task and no result file";
    throw WrongUsage{finding("V003", {{"file", name}, {"what", what}})};
}

std::string kindOf(const std::string& word, InputFiles& files)
{
    if (word == standardInput) {
        return kindOfFile(word, files);
    }
    std::string kind = kindOfWord(word);
    const bool isFile = std::filesystem::is_regular_file(word);
    if (!kind.empty() && isFile) {
        throw WrongUsage{finding("V302", {{"guess", "a " + kind + " or a file?"}})};
    }
    if (!kind.empty()) {
        return kind;
    }
    if (!isFile) {
        throw WrongUsage{finding("V003", {{"file", word}, {"what", "there is no such file"}})};
    }
    return kindOfFile(word, files);
}

Explanation explained(const std::string& word, const std::string& kind, InputFiles& files)
{
    if (kind == "finding") {
        return findingNamed(word);
    }
    if (kind == "code") {
        return codeNamed(word);
    }
    if (kind == "format") {
        return formatNamed(word);
    }
    return kind == "task" ? taskIn(word, files) : resultIn(word, files);
}

int list(const Arguments& arguments, const Console& console)
{
    if (console.look.json) {
        JsonDocument document(console.out, "tavelin.explain/1");
        document.openList("explained");
        for (const FindingRow& row : findingTable()) {
            document.element(explanationOf(row).json);
        }
        document.closeList();
        document.finish();
    } else if (arguments.has("markdown")) {
        console.out << findingsPage();
    } else {
        for (const FindingRow& row : findingTable()) {
            console.out << row.code.text() << ": " << severityWord(row.severity) << ": " << row.text << '\n';
        }
    }
    return 0;
}

int explain(const Arguments& arguments, const Console& console)
{
    if (arguments.has("list")) {
        return list(arguments, console);
    }
    if (arguments.has("markdown")) {
        throw wrongCall("--markdown", "goes with --list only");
    }
    if (arguments.operands().size() != 1) {
        throw wrongCall("explain", "takes one WHAT");
    }
    const std::string& word = arguments.operands().front();
    InputFiles files;
    const Explanation explanation =
        explained(word, arguments.has("as") ? arguments.value("as") : kindOf(word, files), files);
    const int status = explanation.tellsOfFailure ? 1 : 0;
    if (!console.look.json) {
        console.out << explanation.text;
        return status;
    }
    JsonDocument document(console.out, "tavelin.explain/1");
    document.openList("explained");
    document.element(explanation.json);
    document.closeList();
    document.set("exit", status);
    document.finish();
    return status;
}

} // namespace

const Subcommand explainCommand{"explain",
                                "[WHAT]",
                                "a task, a result file, a result code, a finding or a format in plain words",
                                {"tavelin explain night.xml", "tavelin explain V240"},
                                options,
                                explain};

} // namespace companion
