// Track record: a track whose marks NumPy arrays show where they are, without a copy.
//
// A mark holds texts between its numbers. Arrays leave them out of their type, but NumPy copies whole records
// where it sorts or shuffles an array in place, and a view of bytes reaches everything. So the texts in the
// memory that arrays show are not relied on: when the first array is made they are kept aside, and from then
// on nothing in the library looks at what is between the numbers. Marks never move either: a track that grows
// is another record.

#pragma once

#include "mark_fields.h"
#include "records/track.h"

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace python {

using tavelinUtils::TrackVtorichka;

/// A text of a mark that differs from that of a new mark.
struct KeptText
{
    std::size_t mark;
    std::size_t field; ///< place in textFields
    std::string text;
};

/// Where a track is copied to for a writer, one after the other.
struct WritingRoom
{
    TrackVtorichka track{};
    bool hasTexts = false; ///< the marks may have other texts than new ones
};

/// A track that Python holds.
class TrackRecord
{
public:
    /// A track without marks.
    TrackRecord() = default;
    ~TrackRecord();
    TrackRecord(const TrackRecord&) = delete;
    TrackRecord& operator=(const TrackRecord&) = delete;

    /// What readers fill: says that the marks come with texts of their own, where the format has them.
    TrackVtorichka& toFill(bool marksBringTexts);
    /// The same for a reader that only sets the fields that its file has: the marks are as new, or as the
    /// same reader left them.
    TrackVtorichka& toRefill(bool marksBringTexts);
    /// Everything but the marks.
    const TrackVtorichka& rest() const
    {
        return track;
    }
    TrackVtorichka& rest()
    {
        return track;
    }
    std::size_t markCount() const
    {
        return track.Marks.size();
    }

    /// The memory of the marks, for arrays.
    std::byte* exposedMarks();
    /// Whether arrays have been made.
    bool hasArrays() const
    {
        return isExposed;
    }
    /// The memory of a mark, whose numbers alone may be looked at.
    std::byte* numbersOf(std::size_t mark);

    /// A text of a mark.
    std::string text(std::size_t mark, std::size_t field) const;
    void setText(std::size_t mark, std::size_t field, std::string text);
    /// The same text of all marks, of which there must be as many.
    void setTexts(std::size_t field, std::vector<std::string> texts);

    /// The track as the library takes it: the track itself, or where arrays have been made a copy in the
    /// room.
    const TrackVtorichka& whole(WritingRoom& room) const;
    /// The same track with so many marks: the first of its own, or new ones after them.
    std::shared_ptr<TrackRecord> withMarks(std::size_t count) const;

    /// How many writers are at work on the track on other threads.
    int writers = 0;

private:
    void copyTo(TrackVtorichka& copy, std::size_t marks) const;
    std::vector<KeptText>::const_iterator keptAt(std::size_t mark, std::size_t field) const;
    void keepTexts();
    void makeMarksNew();

    TrackVtorichka track{};
    std::vector<KeptText> kept{}; // in the order of marks and fields; only where isExposed
    bool isExposed = false;       // the texts in the marks can be anything
    bool hasTexts = false;        // the marks may have other texts than new ones
    bool isChanged = false;       // someone may have set other fields than the reader
};

} // namespace python
