#include "formats/track_table_rows.h"

#include <algorithm>
#include <iterator>

namespace tavelinUtils {
namespace {

// Date and time first: they are asked for without their mark.
std::vector<const TableColumn*> inOrderOfSlots(const std::vector<const TableColumn*>& columns)
{
    std::vector<const TableColumn*> ordered = columnsOfMarks("date time");
    std::copy_if(columns.begin(), columns.end(), std::back_inserter(ordered), [](const TableColumn* column) {
        return column->name() != "date" && column->name() != "time";
    });
    return ordered;
}

std::vector<MarkValue> valuesOf(const std::vector<const TableColumn*>& columns)
{
    std::vector<MarkValue> values;
    values.reserve(columns.size());
    for (const TableColumn* const column : columns) {
        values.push_back(column->ofMark);
    }
    return values;
}

} // namespace

void SlotRows::forgetBefore(std::size_t index)
{
    for (; forgotten < index / rowsOfAChunk; ++forgotten) {
        chunks[forgotten].reset();
    }
}

MarkRows::MarkRows(const std::vector<const TableColumn*>& columns)
    : kept(inOrderOfSlots(columns)), rows(valuesOf(kept), MarkToKeep{TRecLabelPervichka_File(), TInterBlob()})
{
}

std::size_t MarkRows::placeOf(const TableColumn& column) const
{
    return static_cast<std::size_t>(std::find(kept.begin(), kept.end(), &column) - kept.begin());
}

} // namespace tavelinUtils
