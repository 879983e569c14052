// Columns of the track table: a row for each, which the reader and the writer of the table both walk.

#pragma once

#include "../base/kept_texts.h"
#include "../base/last_answer.h"
#include "../base/text_buffer.h"
#include "../records/track.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tavelinUtils {

/// A mark that is written, with everything that a field of its line may show.
struct MarkToWrite
{
    const TrackVtorichka& track;
    std::size_t index; ///< of the mark in the track
    const TRecLabelPervichka_File& mark;
    const TInterBlob& interBlob;
    std::string_view name; ///< the name and number under which the table has the track
    int number;
    DateTexts& dates;
};

/// A mark of a track, to be written. A mark or an entry of InterBlobs that the track does not have at the
/// index is a new one.
MarkToWrite markToWrite(const TrackVtorichka& track, std::size_t index, std::string_view name, int number,
                        DateTexts& dates);

/// What is kept of a column of a mark or a track: the bits of a number, or the place of a text.
using Slot = std::uint64_t;

/// What the fields of lines are read with.
struct FieldReading
{
    KeptTexts& texts;
    DayNumbers& days;
};

/// How a value of a record goes into a slot and back. All are null pointers for a value that no reader sets.
/// A text that equals the one of the last slot, which the same column filled before, shares its place.
template <class From, class To>
struct KeptValue
{
    Slot (*read)(std::string_view field, const FieldReading& with, Slot last) = nullptr;
    Slot (*keep)(From from, KeptTexts& texts, Slot last) = nullptr;
    void (*restore)(To to, Slot slot, const KeptTexts& texts) = nullptr;
};

/// A mark whose columns are kept.
struct MarkToKeep
{
    const TRecLabelPervichka_File& mark;
    const TInterBlob& interBlob;
};

/// A mark that gets back what was kept.
struct MarkToRestore
{
    TRecLabelPervichka_File& mark;
    TInterBlob& interBlob;
};

using MarkValue = KeptValue<const MarkToKeep&, const MarkToRestore&>;
using HeadValue = KeptValue<const THeadTrVtor&, THeadTrVtor&>;

/// The name in a description of a column: what precedes the first colon.
constexpr std::string_view nameIn(std::string_view description)
{
    return description.substr(0, description.find(':'));
}

/// A column of the table.
struct TableColumn
{
    std::string_view description; ///< "name", "name:type" or "name:type:unit"
    void (*write)(TextBuffer& out, const MarkToWrite& mark) = nullptr;
    MarkValue ofMark{}; ///< of a column that sets a value of the mark
    HeadValue ofHead{}; ///< of a column that sets a value of the track, which every line repeats
    bool hasTab = true; ///< a tab follows the field

    constexpr std::string_view name() const
    {
        return nameIn(description);
    }

    /// Whether a reader takes the column.
    constexpr bool isRead() const
    {
        return ofMark.read != nullptr || ofHead.read != nullptr;
    }

    /// Appends the field of a mark and its tab.
    void append(TextBuffer& out, const MarkToWrite& mark) const
    {
        write(out, mark);
        if (hasTab) {
            out += '\t';
        }
    }
};

/// A column that is read, and the index of its field in a line.
struct ColumnToRead
{
    std::size_t field;
    const TableColumn* column;
};

/// The columns of a header that are read, in the order of reading: where several set one value, the last
/// wins.
struct ColumnsToRead
{
    std::vector<ColumnToRead> ofHead;
    std::vector<ColumnToRead> ofMarks;
};

/// Splits a line at its tabs into fields; a line that ends in a tab has an empty last one. Returns how many
/// fields there are: the list keeps them at its front and never shrinks, so that it serves many lines.
std::size_t splitFields(std::string_view line, std::vector<std::string_view>& fields);

/// The columns of a header that are read. Other names are skipped, and so is the second of two equal ones.
ColumnsToRead columnsToRead(std::string_view header);

/// The columns of blank-separated names that are read and set values of marks. Other names are skipped, and
/// so is a name that comes again.
std::vector<const TableColumn*> columnsOfMarks(std::string_view names);

/// The columns that are written under a header, in its order; none under an empty header. The column of a
/// name that is not known holds zeros.
std::vector<const TableColumn*> columnsToWrite(std::string_view header);

/// All columns that have a name: the standard ones in their order, then those of other headers.
std::vector<const TableColumn*> knownColumns();

/// The descriptions of the standard columns, with tabs between them.
std::string standardHeader();

/// The column of a name among those that need no more than a track and a mark; one of zeros for any other
/// name.
const TableColumn& columnOfTrack(std::string_view name);

} // namespace tavelinUtils
