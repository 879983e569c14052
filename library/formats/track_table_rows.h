// Rows of the track table: marks of which a few columns are kept, in 8 bytes each.
//
//   MarkRows rows(columnsOfMarks("date time RA DE m filtr"));
//   rows.add(mark, interBlob);                       // 48 bytes, and the text of filtr where it changes
//   rows.restore(0, newMark, newInterBlob);

#pragma once

#include "../base/kept_texts.h"
#include "../records/track.h"
#include "track_table_columns.h"

#include <bit>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace tavelinUtils {

/// Rows of so many slots each, in chunks that do not move.
class SlotRows
{
public:
    explicit SlotRows(std::size_t slots) : width(slots)
    {
    }

    std::size_t size() const
    {
        return count;
    }

    /// Adds a row, whose slots hold anything.
    Slot* addRow()
    {
        if (count == chunks.size() * rowsOfAChunk) {
            chunks.push_back(std::make_unique_for_overwrite<Slot[]>(rowsOfAChunk * width));
        }
        return row(count++);
    }

    Slot* row(std::size_t index)
    {
        return chunks[index / rowsOfAChunk].get() + index % rowsOfAChunk * width;
    }

    const Slot* row(std::size_t index) const
    {
        return chunks[index / rowsOfAChunk].get() + index % rowsOfAChunk * width;
    }

    /// Gives back the memory of rows before an index, which are not asked for any more, but for the last row.
    void forgetBefore(std::size_t index);

private:
    static constexpr std::size_t rowsOfAChunk = std::size_t{1} << 11;

    std::size_t width;
    std::vector<std::unique_ptr<Slot[]>> chunks;
    std::size_t count = 0;
    std::size_t forgotten = 0; // chunks
};

/// Keeps chosen columns of marks. Date and time are always among them, and the date has AuxInt1 with it, for
/// which there is no column. A text takes memory where it differs from that of the mark before.
class MarkRows
{
public:
    /// Keeps the columns of a list, each of which is one of columnsOfMarks.
    explicit MarkRows(const std::vector<const TableColumn*>& columns);

    std::size_t size() const
    {
        return rows.size();
    }

    /// Keeps the columns of a mark.
    void add(const TRecLabelPervichka_File& mark, const TInterBlob& interBlob);

    /// Sets the fields of a mark that were kept and leaves all others.
    void restore(std::size_t index, TRecLabelPervichka_File& mark, TInterBlob& interBlob) const;

    /// The whole MJD of a mark.
    int date(std::size_t index) const
    {
        return static_cast<int>(static_cast<std::uint32_t>(rows.row(index)[0]));
    }

    /// The fraction of its day.
    double time(std::size_t index) const
    {
        return std::bit_cast<double>(rows.row(index)[1]);
    }

    /// Gives back the memory of marks before an index, which are not asked for any more. Their texts stay.
    void forgetBefore(std::size_t index)
    {
        rows.forgetBefore(index);
    }

private:
    std::vector<MarkValue> values; // of the slots of a row
    SlotRows rows;
    KeptTexts texts;
    std::vector<Slot> newRow; // of a new mark
};

} // namespace tavelinUtils
