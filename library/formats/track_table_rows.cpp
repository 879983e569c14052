#include "formats/track_table_rows.h"

#include <algorithm>

namespace tavelinUtils {
namespace {

// Date and time first: they are asked for without their mark.
std::vector<MarkValue> valuesOf(const std::vector<const TableColumn*>& columns)
{
    std::vector<MarkValue> values;
    for (const TableColumn* const column : columnsOfMarks("date time")) {
        values.push_back(column->ofMark);
    }
    for (const TableColumn* const column : columns) {
        if (column->name() != "date" && column->name() != "time") {
            values.push_back(column->ofMark);
        }
    }
    return values;
}

} // namespace

void SlotRows::forgetBefore(std::size_t index)
{
    const std::size_t firstWanted = std::min(index, count == 0 ? 0 : count - 1);
    for (; forgotten < firstWanted / rowsOfAChunk; ++forgotten) {
        chunks[forgotten].reset();
    }
}

MarkRows::MarkRows(const std::vector<const TableColumn*>& columns)
    : values(valuesOf(columns)), rows(values.size()), newRow(values.size())
{
    const TRecLabelPervichka_File newMark;
    const TInterBlob newBlob;
    for (std::size_t i = 0; i < values.size(); ++i) {
        newRow[i] = values[i].keep({newMark, newBlob}, texts, 0);
    }
}

void MarkRows::add(const TRecLabelPervichka_File& mark, const TInterBlob& interBlob)
{
    const Slot* const before = rows.size() == 0 ? newRow.data() : rows.row(rows.size() - 1);
    Slot* const row = rows.addRow();
    for (std::size_t i = 0; i < values.size(); ++i) {
        row[i] = values[i].keep({mark, interBlob}, texts, before[i]);
    }
}

void MarkRows::restore(std::size_t index, TRecLabelPervichka_File& mark, TInterBlob& interBlob) const
{
    const Slot* const row = rows.row(index);
    for (std::size_t i = 0; i < values.size(); ++i) {
        values[i].restore({mark, interBlob}, row[i], texts);
    }
}

} // namespace tavelinUtils
