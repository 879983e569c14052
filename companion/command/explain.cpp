#include "command/subcommands.h"
#include "findings/finding_table.h"

#include <ostream>

namespace companion {
namespace {

constexpr OptionRow options[] = {
    {"list", 0, nullptr, "all findings, a line each"},
};

std::string lineOf(const FindingRow& row)
{
    return row.code.text() + ": " + std::string(severityWord(row.severity)) + ": " + std::string(row.text);
}

std::string explained(const FindingRow& row)
{
    std::string text = lineOf(row) + '\n';
    if (!row.happens.empty()) {
        text += "What happens: " + std::string(row.happens) + '\n';
    }
    if (!row.remedy.empty()) {
        text += "What to do: " + std::string(row.remedy) + '\n';
    }
    return text;
}

int explain(const Arguments& arguments, const Console& console)
{
    if (arguments.has("list")) {
        for (const FindingRow& row : findingTable()) {
            console.out << lineOf(row) << '\n';
        }
        return 0;
    }
    for (const std::string& word : arguments.operands()) {
        const auto code = FindingCode::of(word);
        const FindingRow* const row = code ? findingRow(*code) : nullptr;
        if (row == nullptr) {
            throw WrongUsage{finding("V002", {{"kind", "finding"}, {"word", word}, {"question", ""}})};
        }
        console.out << explained(*row);
    }
    return 0;
}

} // namespace

const Subcommand explainCommand{"explain",
                                "[WHAT]",
                                "a task, a result file, a result code or a finding in plain words",
                                {"tavelin explain night.xml", "tavelin explain V240"},
                                options,
                                explain};

} // namespace companion
