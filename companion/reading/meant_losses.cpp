#include "reading/meant_losses.h"

#include "base/lines.h"
#include "reading/lint.h"

#include <algorithm>
#include <iterator>
#include <utility>
#include <vector>

namespace companion {
namespace {

// The lines of a text, to be asked for in their order.
class LinesInOrder
{
public:
    explicit LinesInOrder(std::string_view text) : rest(text)
    {
    }

    std::string_view line(std::size_t wanted)
    {
        while (number < wanted) {
            const std::size_t end = std::min(rest.find('\n'), rest.size());
            present = tavelinUtils::withoutLineEnd(rest.substr(0, end));
            rest.remove_prefix(std::min(end + 1, rest.size()));
            ++number;
        }
        return present;
    }

private:
    std::string_view rest;
    std::string_view present{};
    std::size_t number = 0;
};

// Where a part stands in a line: of several places the one that is nearest to a column.
std::size_t placeNear(std::string_view line, std::string_view part, std::size_t column)
{
    const std::size_t wanted = column - 1;
    const std::size_t before = line.rfind(part, wanted);
    const std::size_t behind = line.find(part, wanted);
    if (before == line.npos || behind == line.npos) {
        return std::min(before, behind);
    }
    return wanted - before <= behind - wanted ? before : behind;
}

// Puts a place in a line that was mended into the line as it is in the file. False for a value that was
// mended itself, which its reader reads right.
bool putBack(FindingPlace& place, std::string_view line)
{
    constexpr std::size_t longestSnippet = 4096;
    const std::string_view shown = line.substr(0, longestSnippet);
    if (place.snippet == shown) {
        return true;
    }
    if (place.value == place.snippet) {
        place.column = 1;
        place.value = shown;
    } else {
        std::size_t at = placeNear(line, place.value, place.column);
        if (at == line.npos && place.value.starts_with('+')) {
            place.value.erase(0, 1); // the sign that is put in front of a declination
            at = placeNear(line, place.value, place.column);
        }
        if (at == line.npos) {
            return false;
        }
        place.column = at + 1;
    }
    place.length = place.value.size();
    place.snippet = shown;
    return true;
}

void sortByPlace(std::vector<Finding>& findings)
{
    std::stable_sort(findings.begin(), findings.end(), [](const Finding& a, const Finding& b) {
        return a.line != b.line ? a.line < b.line : a.column < b.column;
    });
}

} // namespace

void addLosses(std::string_view textOfFile, const std::string& format, const LineFates& fates,
               MeantText& meant)
{
    const bool isMended = meant.text != textOfFile;
    const std::size_t before = meant.findings.size();
    LinesInOrder lines(textOfFile);
    const auto add = [&](Finding found) {
        if (isMended && !found.places.empty()) {
            if (!putBack(found.places.front(), lines.line(found.line))) {
                return;
            }
            found.column = found.places.front().column;
        }
        meant.findings.push_back(std::move(found));
    };
    const auto numberOf = [&meant](std::size_t line) { return meant.lineOf(line); };
    meant.leftOut += tellLosses({meant.text, format, fates, numberOf}, add);
    if (meant.findings.size() > before) {
        sortByPlace(meant.findings);
    }
}

} // namespace companion
