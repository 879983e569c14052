#include "exclusions.h"

#include <cstddef>

using tavelinUtils::TExcludBlobs;
using tavelinUtils::TrackVtorichka;
using tavelinUtils::TRecLabelPervichka_File;

namespace {

using Marks = std::vector<TRecLabelPervichka_File>;

constexpr auto excluded = tavelinUtils::BlobCode::bad_parts;

template <class List>
bool holds(const List& list, int index)
{
    return index >= 0 && static_cast<std::size_t>(index) < list.size();
}

void removeMarks(const std::vector<int>& indices, Marks& marks)
{
    for (const int index : indices) {
        if (holds(marks, index)) {
            marks[static_cast<std::size_t>(index)].BlobCode = excluded;
        }
    }
    std::erase_if(marks, [](const auto& mark) { return mark.BlobCode == excluded; });
}

} // namespace

void DeleteBlobs(const std::vector<TExcludBlobs>& excludes, std::vector<TrackVtorichka>& tracks)
{
    for (const TExcludBlobs& entry : excludes) {
        if (holds(tracks, entry.object)) {
            removeMarks(entry.blobs, tracks[static_cast<std::size_t>(entry.object)].Marks);
        }
    }
}
