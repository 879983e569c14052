#include "receivers/rule_tally.h"

#include "out/text.h"

#include <utility>

namespace companion {

MarkPlace placeOf(const tavelinUtils::TrackVtorichka& track, std::size_t mark)
{
    const tavelinUtils::TRecLabelPervichka_File& record = track.Marks[mark];
    MarkPlace place;
    place.object = track.QRVName.empty() ? track.MPCChecker : track.QRVName;
    place.mark = static_cast<int>(mark);
    place.number = record.AuxInt1;
    place.time = momentText(record.date + record.time);
    return place;
}

void RuleTally::keep(std::size_t rule, Finding found, MarkPlace place)
{
    entries[rule].kept.push_back({std::move(found), std::move(place)});
}

std::vector<Finding> RuleTally::findings() const
{
    std::vector<Finding> all;
    for (const Entry& entry : entries) {
        if (entry.kept.empty()) {
            continue;
        }
        Finding found = entry.kept.front().found;
        found.count = entry.breaks;
        if (entry.breaks > 1) {
            found.text += ", the first of " + counted(entry.breaks, "such mark");
        }
        for (const Kept& kept : entry.kept) {
            found.places.push_back({});
            found.places.back().mark = kept.place;
        }
        all.push_back(std::move(found));
    }
    return all;
}

} // namespace companion
