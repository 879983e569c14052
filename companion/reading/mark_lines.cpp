#include "reading/mark_lines.h"

#include "base/lines.h"
#include "formats/track_table_columns.h"
#include "reading/meant_text.h"
#include "receivers/report_columns.h"

#include <algorithm>

namespace companion {

using tavelinUtils::cutIfThere;

namespace {

bool isBlank(std::string_view text)
{
    return text.find_first_not_of(' ') == std::string_view::npos;
}

} // namespace

MarkLines::MarkLines(std::string_view text, const std::string& format, const LineFates& fates)
    : isMea(format == "mea"), isReport(format == "mpc")
{
    stations.numberOf(""); // none
    if (format == "table") {
        takeTableHeader(text);
    }
    hasMagnitudes = hasMagnitudes && format != "horizons";
    std::uint32_t number = 0;
    tavelinUtils::forEachLine(text, [&](std::string_view line) {
        if (fates.fate(++number) == tavelinUtils::LineFate::mark) {
            add(line, number);
        }
    });
    taken.resize(lines.size(), 0);
}

void MarkLines::takeTableHeader(std::string_view text)
{
    const auto columns = tavelinUtils::columnsToRead(tableHeaderOf(text)).ofMarks;
    const auto hasColumn = [&columns](std::string_view name) {
        return std::any_of(columns.begin(), columns.end(),
                           [name](const auto& each) { return each.column->name() == name; });
    };
    hasMagnitudes = hasColumn("m");
    hasBands = hasColumn("filtr");
}

std::string_view MarkLines::objectOf(std::string_view line) const
{
    if (isMea) {
        line.remove_prefix(std::min(line.find_first_not_of(' '), line.size()));
        return line.substr(0, line.find(' '));
    }
    return isReport ? cutIfThere(line, reportColumns::nameField) : std::string_view();
}

MarkLine MarkLines::readLine(std::string_view line, std::uint32_t number)
{
    if (!isReport) {
        return {number, 0, hasMagnitudes, hasBands};
    }
    const std::string_view code = cutIfThere(line, reportColumns::station);
    const auto station = isBlank(code) ? 0 : static_cast<std::uint32_t>(stations.numberOf(code));
    return {number, station, !isBlank(cutIfThere(line, reportColumns::magnitude)),
            !isBlank(cutIfThere(line, reportColumns::bandAndBehind))};
}

void MarkLines::add(std::string_view line, std::uint32_t number)
{
    const std::string_view object = objectOf(line);
    const std::size_t place =
        isReport ? objects.numberOf(tavelinUtils::withoutBlanks(object)) : objects.numberOf(object);
    if (place == lines.size()) {
        lines.emplace_back();
    }
    lines[place].push_back(readLine(line, number));
}

MarkLine MarkLines::next(std::string_view object)
{
    const std::size_t place = objects.numberOf(isMea || isReport ? object : std::string_view());
    if (place >= lines.size() || taken[place] == lines[place].size()) {
        return {0, 0, hasMagnitudes, hasBands};
    }
    return lines[place][taken[place]++];
}

} // namespace companion
