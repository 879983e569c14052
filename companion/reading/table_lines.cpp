#include "base/tokens.h"
#include "formats/track_table.h"
#include "formats/track_table_columns.h"
#include "formats/track_table_lines.h"
#include "reading/strict_fields.h"
#include "text/date_text.h"

#include <algorithm>
#include <set>
#include <string>
#include <vector>

namespace companion {

using tavelinUtils::ColumnToRead;
using tavelinUtils::LineFate;

namespace {

constexpr std::string_view demandedColumns[] = {"date", "time", "RA", "DE"};

// Columns that are only written: for other tools, or with nothing behind them.
constexpr std::string_view writtenColumns[] = {"time_bjd", "bjd", "CMAG", "KMAG", "Candidates", "Cast"};

struct SharedValue
{
    std::string_view column;
    std::string_view winner;
};

// Columns that set one value of a track, and which of the two wins.
constexpr SharedValue sharedValues[] = {
    {"NORAD", "noradid"}, {"Name", "QRVName"}, {"V_ra", "mRA"}, {"V_de", "mDE"}};

// A column that is looked at, and its place in a line.
struct PlacedField
{
    std::size_t place;
    std::string name;
    FieldForm form;
};

bool contains(const std::vector<std::string>& names, std::string_view name)
{
    return std::find(names.begin(), names.end(), name) != names.end();
}

// Whether the table itself knows a column.
bool isKnown(std::string_view name)
{
    static const auto standard = [] {
        std::set<std::string, std::less<>> names(std::begin(writtenColumns), std::end(writtenColumns));
        const std::string header = tavelinUtils::getHeadTrack();
        tavelinUtils::forEachToken(header, '\t', [&names](std::string_view description) {
            names.emplace(tavelinUtils::nameIn(description));
        });
        return names;
    }();
    if (standard.contains(name)) {
        return true;
    }
    const tavelinUtils::ColumnsToRead columns = tavelinUtils::columnsToRead(name);
    return !columns.ofHead.empty() || !columns.ofMarks.empty();
}

class TableChecker final : public LineChecker
{
public:
    void line(const CheckedLine& line, LintOutput& out) override
    {
        if (line.fate == LineFate::head) {
            takeHead(line, out);
        }
        if (line.fate == LineFate::mark) {
            checkMark(line, out);
        }
        if (line.fate == LineFate::lost) {
            tellLost(line, out);
        }
        if (line.fate == LineFate::end) {
            takeEnd(line, out);
        }
    }

private:
    // The version line, or the header.
    void takeHead(const CheckedLine& line, LintOutput& out)
    {
        if (line.number == 1 && line.text == tavelinUtils::tableVersion) {
            return;
        }
        tavelinUtils::forEachToken(line.text, '\t', [this](std::string_view description) {
            names.emplace_back(tavelinUtils::nameIn(description));
        });
        chooseFields(line.text, out);
        tellHeader(line, out);
        if (out.fates().count(LineFate::end) == 0 && out.fates().count(LineFate::mark) > 0) {
            out.add("V202", {});
        }
    }

    void chooseFields(std::string_view header, const LintOutput& out)
    {
        std::set<std::string, std::less<>> wanted;
        tavelinUtils::forEachToken(out.settings().columns, ' ',
                                   [&wanted](std::string_view name) { wanted.emplace(name); });
        const tavelinUtils::ColumnsToRead columns = tavelinUtils::columnsToRead(header);
        for (const auto* const list : {&columns.ofHead, &columns.ofMarks}) {
            for (const ColumnToRead& column : *list) {
                const std::string_view name = column.column->name();
                const FieldForm form = formOfTableColumn(name);
                if (form != FieldForm::text && (wanted.empty() || wanted.contains(name))) {
                    fields.push_back({column.field, std::string(name), form});
                }
            }
        }
        std::sort(fields.begin(), fields.end(),
                  [](const PlacedField& a, const PlacedField& b) { return a.place < b.place; });
        dateField = placeOf("date");
        timeField = placeOf("time");
        hasTimes = std::max(dateField, timeField) < names.size();
        parts.resize(std::max(fields.empty() ? 0 : fields.back().place + 1,
                              hasTimes ? std::max(dateField, timeField) + 1 : 0));
    }

    // The place of a column among the names; behind them all where there is none.
    std::size_t placeOf(std::string_view name) const
    {
        return static_cast<std::size_t>(std::find(names.begin(), names.end(), name) - names.begin());
    }

    void tellHeader(const CheckedLine& line, LintOutput& out)
    {
        if (line.text.starts_with("\xEF\xBB\xBF")) {
            return; // the version line, which the mark in front of it makes the header
        }
        if (names.size() == 1 && line.text.find(' ') != std::string_view::npos) {
            out.add("V207", {1, line.text.size()});
            return;
        }
        for (const std::string_view column : demandedColumns) {
            if (!contains(names, column)) {
                out.add("V203", {}, {{"column", std::string(column)}});
            }
        }
        tellUnknown(line, out);
        tellTwice(line, out);
    }

    void tellUnknown(const CheckedLine& line, LintOutput& out)
    {
        std::string unknown;
        for (const std::string& name : names) {
            if (!name.empty() && !isKnown(name)) {
                unknown += (unknown.empty() ? "" : ", ") + name;
            }
        }
        if (!unknown.empty()) {
            out.add("V208", {1, line.text.size()}, {{"names", unknown}});
        }
    }

    void tellTwice(const CheckedLine& line, LintOutput& out)
    {
        const Stretch whole{1, line.text.size()};
        std::set<std::string_view> seen;
        for (const std::string& name : names) {
            if (!name.empty() && !seen.insert(name).second) {
                out.add("V209", whole, {{"name", name}, {"problem", "stands twice; the first wins"}});
            }
        }
        for (const SharedValue& shared : sharedValues) {
            if (contains(names, shared.column) && contains(names, shared.winner)) {
                out.add("V209", whole,
                        {{"name", std::string(shared.winner)},
                         {"problem", "stands beside " + std::string(shared.column) + " and wins"}});
            }
        }
    }

    void checkMark(const CheckedLine& line, LintOutput& out)
    {
        ++marks;
        if (line.text.empty()) {
            out.add("V205", {});
            return;
        }
        if (line.text.starts_with(tavelinUtils::trackEnd)) {
            out.add("V206", {1, line.text.size()});
            return;
        }
        cut(line.text);
        checkCount(line, out);
        if (!out.wants(LintLayer::person)) {
            return;
        }
        for (const PlacedField& field : fields) {
            if (field.place < count) {
                checkField({field.name, field.form}, line.text, parts[field.place], out);
            }
        }
        if (out.times().areOdd() && hasTimes && std::max(dateField, timeField) < count) {
            checkTimes(line, out);
        }
    }

    void checkTimes(const CheckedLine& line, LintOutput& out)
    {
        const std::string_view time = parts[timeField];
        times.mark(std::to_string(track), tavelinUtils::DateToMJD(std::string(parts[dateField]), "-"),
                   tavelinUtils::timeToDay(time, ':'), stretchOf(line.text, time, "time"), out);
    }

    // Cuts a line, and keeps the fields that are looked at.
    void cut(std::string_view text)
    {
        std::size_t begin = 0;
        std::size_t place = 0;
        const auto take = [&](std::size_t end) {
            if (place < parts.size()) {
                parts[place] = text.substr(begin, end - begin);
            }
            ++place;
            begin = end + 1;
        };
        tavelinUtils::forEachSeparator(text, '\t', take);
        take(text.size());
        count = place;
    }

    // Tabs at the end of a line, which the reader takes off, separate fields that are empty. Writers put one
    // after the last field.
    void checkCount(const CheckedLine& line, LintOutput& out)
    {
        if (count == names.size()) {
            return;
        }
        const std::string_view end = line.bytes.substr(line.text.size());
        const std::size_t tabs = static_cast<std::size_t>(std::count(end.begin(), end.end(), '\t'));
        if (count > names.size() || count + tabs < names.size()) {
            out.add("V204", {1, line.text.size()},
                    {{"fields", counted(count, "field")}, {"columns", counted(names.size(), "column")}});
        }
    }

    // Lost lines are those after the last end of a track, up to the end of the file.
    void tellLost(const CheckedLine& line, LintOutput& out)
    {
        if (!toldLost) {
            toldLost = true;
            const std::size_t lost = out.fates().count(LineFate::lost);
            out.add("V201", {1, line.text.size()}, {{"marks", counted(lost, "mark")}});
            out.lose(lost);
        }
    }

    void takeEnd(const CheckedLine& line, LintOutput& out)
    {
        if (marks == 0) {
            out.add("V210", {1, line.text.size()}, {{"track", std::to_string(track)}});
        }
        marks = 0;
        ++track;
    }

    std::vector<std::string> names{};
    std::vector<PlacedField> fields{}; // that are looked at, in the order of a line
    std::size_t dateField = 0;
    std::size_t timeField = 0;
    bool hasTimes = false;
    std::vector<std::string_view> parts{}; // of the line, up to the last that is looked at
    std::size_t count = 0;                 // of all fields of the line
    std::size_t marks = 0;                 // of the track
    std::size_t track = 0;                 // from 0
    bool toldLost = false;
    TimeFindings times{};
};

} // namespace

std::unique_ptr<LineChecker> tableLines()
{
    return std::make_unique<TableChecker>();
}

} // namespace companion
