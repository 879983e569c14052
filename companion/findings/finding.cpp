#include "findings/finding.h"

#include "findings/finding_table.h"

#include <algorithm>
#include <map>
#include <stdexcept>
#include <tuple>

namespace companion {
namespace {

// The text of a row with its fields filled.
std::string filled(std::string_view text, FindingValues values)
{
    std::string result;
    while (!text.empty()) {
        const std::size_t open = std::min(text.find('{'), text.size());
        result += text.substr(0, open);
        text.remove_prefix(open);
        if (text.empty()) {
            break;
        }
        const std::size_t close = text.find('}');
        const std::string_view name = text.substr(1, close - 1);
        const auto value = std::find_if(values.begin(), values.end(),
                                        [name](const auto& each) { return each.first == name; });
        if (value == values.end()) {
            throw std::logic_error("a finding has no value for {" + std::string(name) + "}");
        }
        result += value->second;
        text.remove_prefix(close + 1);
    }
    return result;
}

} // namespace

std::string_view severityWord(Severity severity)
{
    switch (severity) {
    case Severity::error: return "error";
    case Severity::warning: return "warning";
    case Severity::note: break;
    }
    return "note";
}

std::optional<FindingCode> FindingCode::of(std::string_view text)
{
    if (text.size() != 4 || text[0] != 'V' || text.find_first_not_of("0123456789", 1) != text.npos) {
        return std::nullopt;
    }
    return FindingCode((text[1] - '0') * 100 + (text[2] - '0') * 10 + (text[3] - '0'));
}

std::string FindingCode::text() const
{
    return {'V', static_cast<char>('0' + number / 100), static_cast<char>('0' + number / 10 % 10),
            static_cast<char>('0' + number % 10)};
}

Finding Finding::in(std::string path) &&
{
    file = std::move(path);
    return std::move(*this);
}

Finding Finding::at(std::size_t atLine, std::size_t atColumn) &&
{
    line = atLine;
    column = atColumn;
    return std::move(*this);
}

Finding Finding::times(std::size_t number) &&
{
    count = number;
    return std::move(*this);
}

Finding finding(FindingCode code, FindingValues values)
{
    const FindingRow* const row = findingRow(code);
    if (row == nullptr) {
        throw std::logic_error("no finding has the code " + code.text());
    }
    return {code, row->severity, filled(row->text, values), {}};
}

bool hasErrors(std::span<const Finding> findings)
{
    return std::any_of(findings.begin(), findings.end(),
                       [](const Finding& each) { return each.severity == Severity::error; });
}

bool isAmong(std::span<const CodeRange> ranges, FindingCode code)
{
    return std::any_of(ranges.begin(), ranges.end(),
                       [code](const CodeRange& each) { return each.first <= code && code <= each.last; });
}

WrongUsage wrongCall(std::string_view name, std::string_view problem)
{
    return {finding("V001", {{"option", std::string(name)}, {"problem", std::string(problem)}})};
}

void sortFindings(std::vector<Finding>& findings, const std::string& firstFile)
{
    std::map<std::string, std::size_t> files{{firstFile, 0}};
    for (const Finding& each : findings) {
        files.try_emplace(each.file, files.size());
    }
    const auto place = [&files](const Finding& each) {
        return std::tuple(files[each.file], each.line == 0, each.line, each.column, each.code);
    };
    std::stable_sort(findings.begin(), findings.end(),
                     [&place](const Finding& a, const Finding& b) { return place(a) < place(b); });
}

void FindingTotals::add(const Finding& found)
{
    switch (found.severity) {
    case Severity::error: ++errors; break;
    case Severity::warning: ++warnings; break;
    case Severity::note: ++notes; break;
    }
}

void FindingTotals::add(const FindingTotals& others)
{
    errors += others.errors;
    warnings += others.warnings;
    notes += others.notes;
}

std::string totalsText(const FindingTotals& totals)
{
    return counted(totals.errors, "error") + ", " + counted(totals.warnings, "warning") + ", " +
           counted(totals.notes, "note");
}

std::string counted(std::size_t number, std::string_view noun)
{
    return counted(number) + ' ' + std::string(noun) + (number == 1 ? "" : "s");
}

std::string counted(std::size_t number)
{
    std::string digits = std::to_string(number);
    for (std::size_t place = digits.size(); place > 3;) {
        place -= 3;
        digits.insert(place, 1, ',');
    }
    return digits;
}

} // namespace companion
