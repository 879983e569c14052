// Rows of the track table: marks, or heads of tracks, of which a few columns are kept, in 8 bytes each.
//
//   MarkRows rows(columnsOfMarks("date time RA DE m filtr"));
//   rows.add(mark, interBlob);                       // 48 bytes, and the text of filtr where it changes
//   rows.restore(0, newMark, newInterBlob);

#pragma once

#include "../base/kept_texts.h"
#include "../base/last_answer.h"
#include "../records/track.h"
#include "track_table_columns.h"

#include <bit>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>
#include <utility>
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
        ++count;
        return chunks.back().get() + (count - 1) % rowsOfAChunk * width;
    }

    const Slot* operator[](std::size_t index) const
    {
        return chunks[index / rowsOfAChunk].get() + index % rowsOfAChunk * width;
    }

    /// Gives back the memory of rows before an index, which are not asked for any more.
    void forgetBefore(std::size_t index);

private:
    static constexpr std::size_t rowsOfAChunk = std::size_t{1} << 11;

    std::size_t width;
    std::vector<std::unique_ptr<Slot[]>> chunks;
    std::size_t count = 0;
    std::size_t forgotten = 0; // chunks
};

/// Keeps values of many records. A text takes memory where it differs from the one before.
template <class Value>
class ValueRows
{
public:
    /// Keeps these values; those of a new record are in a row that is added by addNew.
    template <class From>
    ValueRows(std::vector<Value> keptValues, const From& newRecord)
        : values(std::move(keptValues)), rows(values.size()), newRow(values.size())
    {
        for (std::size_t i = 0; i < values.size(); ++i) {
            newRow[i] = values[i].keep(newRecord, texts, 0);
        }
        last = newRow;
    }

    std::size_t size() const
    {
        return rows.size();
    }

    template <class From>
    void add(const From& record)
    {
        Slot* const row = rows.addRow();
        for (std::size_t i = 0; i < values.size(); ++i) {
            row[i] = last[i] = values[i].keep(record, texts, last[i]);
        }
    }

    /// Adds a new record, whose values may be read from fields now.
    void addNew()
    {
        added = rows.addRow();
        for (std::size_t i = 0; i < newRow.size(); ++i) {
            added[i] = newRow[i];
        }
    }

    /// Reads a value of the record that addNew has added, by its place among the values.
    void read(std::size_t place, std::string_view field, DayNumbers& days)
    {
        added[place] = last[place] = values[place].read(field, {texts, days}, last[place]);
    }

    template <class To>
    void restore(std::size_t index, To&& record) const
    {
        const Slot* const slots = rows[index];
        for (std::size_t i = 0; i < values.size(); ++i) {
            values[i].restore(record, slots[i], texts);
        }
    }

    Slot slot(std::size_t index, std::size_t place) const
    {
        return rows[index][place];
    }

    /// Gives back the memory of records before an index, which are not asked for any more. Their texts stay.
    void forgetBefore(std::size_t index)
    {
        rows.forgetBefore(index);
    }

private:
    std::vector<Value> values; // of the slots of a row
    SlotRows rows;
    KeptTexts texts;
    std::vector<Slot> newRow;
    std::vector<Slot> last; // of each place
    Slot* added = nullptr;  // by addNew
};

/// Keeps chosen columns of marks. Date and time are always among them, and the date has AuxInt1 with it, for
/// which there is no column.
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
    void add(const TRecLabelPervichka_File& mark, const TInterBlob& interBlob)
    {
        rows.add(MarkToKeep{mark, interBlob});
    }

    /// Adds a new mark, whose columns may be read from fields now.
    void addNew()
    {
        rows.addNew();
    }

    /// The place of a column that is kept.
    std::size_t placeOf(const TableColumn& column) const;

    /// Reads a column of the mark that addNew has added, by its place.
    void read(std::size_t place, std::string_view field, DayNumbers& days)
    {
        rows.read(place, field, days);
    }

    /// Sets the fields of a mark that were kept and leaves all others.
    void restore(std::size_t index, TRecLabelPervichka_File& mark, TInterBlob& interBlob) const
    {
        rows.restore(index, MarkToRestore{mark, interBlob});
    }

    /// The whole MJD of a mark.
    int date(std::size_t index) const
    {
        return static_cast<int>(static_cast<std::uint32_t>(rows.slot(index, 0)));
    }

    /// The fraction of its day.
    double time(std::size_t index) const
    {
        return std::bit_cast<double>(rows.slot(index, 1));
    }

    /// Gives back the memory of marks before an index, which are not asked for any more. Their texts stay.
    void forgetBefore(std::size_t index)
    {
        rows.forgetBefore(index);
    }

private:
    std::vector<const TableColumn*> kept;
    ValueRows<MarkValue> rows;
};

} // namespace tavelinUtils
