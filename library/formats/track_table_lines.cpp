#include "formats/track_table_lines.h"

#include "base/separator_walk.h"

#include <algorithm>
#include <array>
#include <utility>

namespace tavelinUtils {
namespace {

constexpr std::array<std::string_view, 5> namingColumns = {"QRVName", "Name", "NORAD", "noradid",
                                                           "MPCChecker"};

template <class Column>
bool comesBefore(const Column& a, const Column& b)
{
    return a.field < b.field;
}

} // namespace

ColumnsToRead WantedColumns::in(std::string_view header) const
{
    ColumnsToRead columns = columnsToRead(header);
    for (std::vector<ColumnToRead>* const list : {&columns.ofHead, &columns.ofMarks}) {
        std::erase_if(*list, [this](const ColumnToRead& column) { return !contain(*column.column); });
    }
    return columns;
}

bool WantedColumns::contain(const TableColumn& column) const
{
    const bool namesTrack =
        std::find(namingColumns.begin(), namingColumns.end(), column.name()) != namingColumns.end();
    return all || namesTrack || std::find(ofMarks.begin(), ofMarks.end(), &column) != ofMarks.end();
}

// The fields of a line, from the front to its end.
class TrackTableLines::Fields
{
public:
    explicit Fields(std::string_view splitLine) : line(splitLine), tabs(splitLine, '\t')
    {
    }

    // Whether the line has the field of an index, which is higher than the last one.
    bool reach(std::size_t index)
    {
        if (index != next) {
            begin = tabs.next(index - next - 1) + 1;
        }
        next = index + 1;
        if (begin > line.size()) {
            return false;
        }
        end = tabs.next();
        reached = line.substr(begin, end - begin);
        begin = end + 1;
        return true;
    }

    // The field that was reached last.
    std::string_view field() const
    {
        return reached;
    }

    // The line up to the end of it.
    std::string_view front() const
    {
        return line.substr(0, end);
    }

private:
    std::string_view line;
    SeparatorWalk tabs;
    std::size_t begin = 0; // of the next field
    std::size_t end = 0;
    std::size_t next = 0;
    std::string_view reached{};
};

TableLine TrackTableLines::add(std::string_view line)
{
    if (!opened) {
        if (!versionPassed && line == tableVersion) {
            versionPassed = true;
        } else {
            open(line);
        }
        return TableLine::front;
    }
    if (line == trackEnd) {
        endTrack();
        return TableLine::end;
    }
    addMark(line);
    return TableLine::mark;
}

bool TrackTableLines::finish()
{
    const bool areOneTrack = kept.ends.empty() && kept.marks.size() > 0;
    if (areOneTrack) {
        endTrack();
    }
    return areOneTrack;
}

void TrackTableLines::open(std::string_view header)
{
    opened = true;
    const ColumnsToRead columns = wanted.in(header);
    chooseHead(columns.ofHead);
    chooseMarks(columns.ofMarks);
    kept.heads.addNew();
}

void TrackTableLines::chooseHead(const std::vector<ColumnToRead>& columns)
{
    std::vector<HeadValue> values;
    for (const ColumnToRead& column : columns) {
        // Columns that set one value share its place, so that the one that is read last wins.
        const HeadValue& value = column.column->ofHead;
        const auto place = std::find_if(values.begin(), values.end(), [&value](const HeadValue& other) {
            return other.restore == value.restore;
        });
        ofHead.push_back({column.field, static_cast<std::size_t>(place - values.begin())});
        if (place == values.end()) {
            values.push_back(value);
        }
        headFields = std::max(headFields, column.field + 1);
    }
    chooseWinners(values.size());
    kept.heads = ValueRows<HeadValue>(std::move(values), THeadTrVtor());
}

// The last column of each place, in the order of the header.
void TrackTableLines::chooseWinners(std::size_t places)
{
    winners.resize(places);
    for (const FieldToRead& column : ofHead) {
        winners[column.place] = column;
    }
    std::sort(winners.begin(), winners.end(), comesBefore<FieldToRead>);
}

void TrackTableLines::chooseMarks(std::vector<ColumnToRead> columns)
{
    std::vector<const TableColumn*> list;
    list.reserve(columns.size());
    for (const ColumnToRead& column : columns) {
        list.push_back(column.column);
    }
    kept.marks = MarkRows(list);
    // Each sets a value of its own, so they may be read in the order of the header.
    std::sort(columns.begin(), columns.end(), comesBefore<ColumnToRead>);
    for (const ColumnToRead& column : columns) {
        (column.field < headFields ? beforeHead : afterHead)
            .push_back({column.field, kept.marks.placeOf(*column.column)});
    }
}

void TrackTableLines::addMark(std::string_view line)
{
    kept.marks.addNew();
    Fields fields(line);
    readFields(fields, beforeHead, kept.marks);
    if (headFields > 0) {
        if (fields.reach(headFields - 1)) {
            front.assign(fields.front());
            frontWaits = true;
        } else {
            readFront();
            readShortLine(line);
        }
    }
    readFields(fields, afterHead, kept.marks);
}

// Reads the fields that the line has.
template <class Rows>
void TrackTableLines::readFields(Fields& fields, const std::vector<FieldToRead>& columns, Rows& rows)
{
    for (const FieldToRead& column : columns) {
        if (!fields.reach(column.field)) {
            return;
        }
        rows.read(column.place, fields.field(), days);
    }
}

void TrackTableLines::readFront()
{
    if (frontWaits) {
        Fields fields(front);
        readFields(fields, winners, kept.heads);
        frontWaits = false;
    }
}

void TrackTableLines::readShortLine(std::string_view line)
{
    const std::size_t count = splitFields(line, shortLine);
    for (const FieldToRead& column : ofHead) {
        if (column.field < count) {
            kept.heads.read(column.place, shortLine[column.field], days);
        }
    }
}

void TrackTableLines::endTrack()
{
    readFront();
    kept.ends.add(kept.marks.size());
    kept.heads.addNew();
}

} // namespace tavelinUtils
