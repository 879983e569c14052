#include "reading/meant_text.h"

#include "base/lines.h"
#include "formats/track_table.h"
#include "formats/track_table_lines.h"

#include <algorithm>
#include <memory>
#include <utility>

namespace companion {
namespace {

constexpr std::string_view endMark = "---";

std::unique_ptr<LineMender> menderOf(const std::string& format, std::string_view text, MendUse use)
{
    if (format == "mea") {
        return meaMender(text);
    }
    if (format == "telegram") {
        return telegramMender(text);
    }
    if (format == "ssmas") {
        return ssmasMender(use);
    }
    return format == "mpc" ? mpcMender(use) : nullptr;
}

// Takes the line at the front of a text away, with its line feed.
std::string_view takeLine(std::string_view& text)
{
    const std::string_view line = text.substr(0, std::min(text.find('\n'), text.size()));
    text.remove_prefix(std::min(line.size() + 1, text.size()));
    return line;
}

MeantText withMendedLines(std::string_view text, LineMender& mender)
{
    MeantText meant;
    MendNotes notes;
    meant.text.reserve(text.size() + text.size() / 16);
    while (!text.empty()) {
        const bool isEnded = text.find('\n') != std::string_view::npos;
        const std::string_view whole = takeLine(text);
        const std::string_view line = tavelinUtils::withoutLineEnd(whole);
        notes.begin(line);
        if (mender.mend(line, meant.text, notes)) {
            meant.text.append(whole.substr(line.size())).append(isEnded ? "\n" : "");
        } else {
            meant.missing.push_back(notes.number());
        }
    }
    meant.leftOut = notes.leftOut();
    meant.findings = std::move(notes).findings();
    return meant;
}

// A text without the line ends at its end.
std::string_view withoutLastFeeds(std::string_view text)
{
    return text.substr(0, text.find_last_not_of("\r\n") + 1); // nothing where there is nothing else
}

MeantText table(std::string_view text)
{
    MeantText meant;
    const std::string_view header = tableHeaderOf(text);
    if (header.find('\t') == std::string_view::npos && header.find(' ') != std::string_view::npos) {
        meant.findings.push_back(finding("V207"));
        meant.isRefused = true;
        return meant;
    }
    meant.text = text;
    const std::string_view filled = withoutLastFeeds(text);
    const std::size_t lastFeed = filled.rfind('\n');
    const bool hasMarks = header.data() + header.size() < filled.data() + filled.size();
    if (!hasMarks || tavelinUtils::withoutLineEnd(filled.substr(lastFeed + 1)) == endMark) {
        return meant;
    }
    const std::string feed = text.find("\r\n") == std::string_view::npos ? "\n" : "\r\n";
    meant.text.resize(filled.size());
    meant.text.append(feed).append(endMark).append(feed);
    meant.findings.push_back(
        finding("V423", {{"what", "an end mark after the last track"}, {"marks", "1 line"}}));
    return meant;
}

} // namespace

std::string_view tableHeaderOf(std::string_view text)
{
    const std::string_view first = tavelinUtils::withoutLineEnd(takeLine(text));
    return first == tavelinUtils::tableVersion ? tavelinUtils::withoutLineEnd(takeLine(text)) : first;
}

std::size_t MeantText::lineOf(std::size_t line) const
{
    // Before the missing line i there are missing[i] - 1 - i lines of the text.
    std::size_t low = 0;
    std::size_t high = missing.size();
    while (low < high) {
        const std::size_t middle = low + (high - low) / 2;
        const bool isBefore = missing[middle] - 1 - middle < line;
        (isBefore ? low : high) = isBefore ? middle + 1 : middle;
    }
    return line + low;
}

MeantText meantText(std::string_view text, const std::string& format, MendUse use)
{
    if (format == "table") {
        return table(text);
    }
    if (const std::unique_ptr<LineMender> mender = menderOf(format, text, use)) {
        return withMendedLines(text, *mender);
    }
    MeantText meant;
    meant.text = text;
    return meant;
}

} // namespace companion
