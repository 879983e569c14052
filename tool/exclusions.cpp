#include "exclusions.h"

#include <algorithm>
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

Exclusions::Exclusions(const std::vector<TExcludBlobs>& excludes)
{
    for (const TExcludBlobs& entry : excludes) {
        if (entry.object >= 0) {
            entries.push_back(&entry);
        }
    }
    std::stable_sort(entries.begin(), entries.end(),
                     [](const TExcludBlobs* a, const TExcludBlobs* b) { return a->object < b->object; });
}

void Exclusions::applyTo(std::size_t number, TrackVtorichka& track) const
{
    const auto trackOf = [](const TExcludBlobs* entry) { return static_cast<std::size_t>(entry->object); };
    auto entry = std::lower_bound(
        entries.begin(), entries.end(), number,
        [trackOf](const TExcludBlobs* each, std::size_t wanted) { return trackOf(each) < wanted; });
    for (; entry != entries.end() && trackOf(*entry) == number; ++entry) {
        removeMarks((*entry)->blobs, track.Marks);
    }
}

void DeleteBlobs(const std::vector<TExcludBlobs>& excludes, std::vector<TrackVtorichka>& tracks)
{
    const Exclusions exclusions(excludes);
    for (std::size_t number = 0; number < tracks.size(); ++number) {
        exclusions.applyTo(number, tracks[number]);
    }
}
