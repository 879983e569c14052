// Lines of the track table, read into a small form: a row for each mark and for the head of each track.

#pragma once

#include "../base/chunked_list.h"
#include "../base/last_answer.h"
#include "../records/track.h"
#include "track_table_columns.h"
#include "track_table_rows.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tavelinUtils {

/// The line that a table may begin with, and the line that ends a track.
inline constexpr std::string_view tableVersion = "v2";
inline constexpr std::string_view trackEnd = "---";

/// What is kept of a table.
struct KeptTable
{
    MarkRows marks{{}};
    ValueRows<HeadValue> heads{{}, THeadTrVtor()}; // one more than there are tracks
    ChunkedList<std::size_t> ends;                 // of the marks of each track
};

/// The columns that the user of a table looks at.
class WantedColumns
{
public:
    /// All that are read.
    WantedColumns() = default;

    /// These columns of marks, with blanks between their names. Of the head, what names the track.
    explicit WantedColumns(std::string_view names) : all(false), ofMarks(columnsOfMarks(names))
    {
    }

    /// Those that a header has.
    ColumnsToRead in(std::string_view header) const;

private:
    bool contain(const TableColumn& column) const;

    bool all = true;
    std::vector<const TableColumn*> ofMarks{};
};

/// What a line of a table is.
enum class TableLine
{
    front, ///< the version line, or the header
    mark,
    end ///< of a track
};

/// Takes the lines of a table one after the other.
class TrackTableLines
{
public:
    TrackTableLines(KeptTable& keptTable, const WantedColumns& wantedColumns)
        : kept(keptTable), wanted(wantedColumns)
    {
    }

    TableLine add(std::string_view line);

    /// To be called after the last line. Lines after the last end of a track belong to no track, unless the
    /// table has none: then all of them are one, and it is true.
    bool finish();

private:
    // A column that is read, and its place in a row.
    struct FieldToRead
    {
        std::size_t field;
        std::size_t place;
    };
    class Fields;

    template <class Rows>
    void readFields(Fields& fields, const std::vector<FieldToRead>& columns, Rows& rows);
    void open(std::string_view header);
    void chooseHead(const std::vector<ColumnToRead>& columns);
    void chooseWinners(std::size_t places);
    void chooseMarks(std::vector<ColumnToRead> columns);
    void addMark(std::string_view line);
    void readFront();
    void readShortLine(std::string_view line);
    void endTrack();

    KeptTable& kept;
    WantedColumns wanted;
    bool versionPassed = false;
    bool opened = false;                   // by a header
    std::vector<FieldToRead> ofHead{};     // in the order of reading
    std::vector<FieldToRead> winners{};    // those of them that are enough where a line has all, in its order
    std::size_t headFields = 0;            // of such a line, up to the last one of the head
    std::vector<FieldToRead> beforeHead{}; // columns of marks, before the last field of the head
    std::vector<FieldToRead> afterHead{};
    // The front of the last line that has all of the head. It waits for the end of its track, since the last
    // line wins.
    std::string front{};
    bool frontWaits = false;
    std::vector<std::string_view> shortLine{}; // its fields, at the front of the list
    DayNumbers days{};
};

} // namespace tavelinUtils
