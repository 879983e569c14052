// New marks: places for the marks of a track that is filled again.

#pragma once

#include "../base/large_room.h"
#include "track_stream.h"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <new>
#include <vector>

namespace tavelinUtils {

/// What becomes of the marks that a track has when it is filled again.
enum class OldMarks
{
    renewed, ///< they become as constructed
    kept     ///< they stay as they are, for a reader that has set the same fields in them before
};

/// Marks for a track, one after the other in the places of those that it has. A mark spans a dozen cache
/// lines: this one goes over each once, where clearing all marks and adding new ones would go over them
/// twice, and not at all where the old marks are kept.
class NewMarks
{
public:
    /// The track is to have so many marks: as many calls of next have to follow.
    NewMarks(TrackVtorichka& track, std::size_t count, OldMarks oldMarks) : marks(track.Marks), old(oldMarks)
    {
        if (marks.capacity() < count) {
            std::vector<TRecLabelPervichka_File>().swap(marks); // so that never two such lists are there
            marks.reserve(count);
            wishForLargePages(marks.data(), count * sizeof(TRecLabelPervichka_File));
        }
        marks.erase(marks.begin() + static_cast<std::ptrdiff_t>(std::min(count, marks.size())), marks.end());
    }

    /// The next mark.
    TRecLabelPervichka_File& next()
    {
        const std::size_t place = taken++;
        if (place == marks.size()) {
            return marks.emplace_back();
        }
        TRecLabelPervichka_File* const mark = &marks[place];
        if (old == OldMarks::kept) {
            return *mark;
        }
        std::destroy_at(mark);
        // Not std::construct_at, which fills the mark with zeros before its own values.
        return *::new (static_cast<void*>(mark)) TRecLabelPervichka_File;
    }

private:
    std::vector<TRecLabelPervichka_File>& marks;
    OldMarks old;
    std::size_t taken = 0;
};

} // namespace tavelinUtils
