#include "command/page_findings.h"

#include "findings/finding_table.h"
#include "out/text.h"
#include "reading/account_text.h"

#include <algorithm>
#include <string>
#include <string_view>

namespace companion {
namespace {

constexpr std::size_t longestSnippet = 200;

// Up to so many bytes of a text; a character that would be torn is left out.
std::string_view cutTo(std::string_view text, std::size_t length)
{
    if (text.size() <= length) {
        return text;
    }
    while (length > 0 && (static_cast<unsigned char>(text[length]) & 0xC0) == 0x80) {
        --length;
    }
    return text.substr(0, length);
}

// The line of a file, with the place of the finding marked.
void addSnippet(Html& page, const FindingPlace& place)
{
    const std::string_view line = cutTo(place.snippet, longestSnippet);
    const Html::Element snippet = page.in("pre");
    const std::size_t from = place.column == 0 ? line.size() : std::min(place.column - 1, line.size());
    const std::size_t length = std::min(place.length, line.size() - from);
    page.text(line.substr(0, from));
    if (length > 0) {
        page.add("mark", {}, line.substr(from, length));
    }
    page.text(line.substr(from + length));
    if (line.size() < place.snippet.size()) {
        page.text(" \u2026");
    }
}

// "night.mea:3:5".
std::string placeText(const Finding& found)
{
    std::string text = found.file;
    for (const std::size_t number : {found.line, found.column}) {
        if (number > 0) {
            text += ':' + std::to_string(number);
        }
    }
    return text;
}

void addFinding(Html& page, const Finding& found)
{
    const Html::Element item = page.in("li");
    if (!found.file.empty()) {
        page.name(placeText(found));
        page.text(": ");
    }
    page.name(found.text);
    if (found.count > 1) {
        page.text(" (" + counted(found.count) + " times)");
    }
    for (const FindingPlace& place : found.places) {
        const std::string mark = markPlaceText(place.mark);
        if (!mark.empty()) {
            page.add("div", {{"class", "soft"}}, mark);
        }
        if (!place.snippet.empty()) {
            addSnippet(page, place);
        }
    }
}

void addMeaning(Html& page, FindingCode code)
{
    const FindingRow* const row = findingRow(code);
    if (row == nullptr) {
        return;
    }
    const Html::Element details = page.in("details");
    page.add("summary", {}, "What it means");
    page.add("p", {}, row->happens);
    page.add("p", {}, row->remedy);
}

void addGroup(Html& page, Severity severity, FindingCode code, const FindingGroup& group)
{
    const Html::Element card = page.in("li", {{"class", "card"}});
    {
        const Html::Element title = page.in("h3");
        page.add("span", {{"class", std::string(severityWord(severity))}}, severityWord(severity));
        page.text(' ' + code.text() + (group.count > 1 ? ", " + counted(group.count) + " times" : ""));
    }
    {
        const Html::Element list = page.in("ul");
        for (const Finding& found : group.first) {
            addFinding(page, found);
        }
    }
    if (group.count > group.first.size()) {
        page.add("p", {{"class", "soft"}}, "and " + counted(group.count - group.first.size()) + " more");
    }
    addMeaning(page, code);
}

} // namespace

void addFindings(Html& page, const PageContents& contents)
{
    if (contents.findings.empty()) {
        page.add("p", {}, "Nothing was found.");
        return;
    }
    page.add("p", {}, briefTotals(contents.totals) + '.');
    const Html::Element list = page.in("ul", {{"class", "findings"}});
    for (const auto& [key, group] : contents.findings) {
        addGroup(page, key.first, key.second, group);
    }
}

} // namespace companion
