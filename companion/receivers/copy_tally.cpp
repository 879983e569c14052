#include "receivers/copy_tally.h"

#include "out/text.h"

#include <algorithm>
#include <utility>

namespace companion {

CopyTally::CopyTally(const std::vector<CopyTrack>& theTracks, const CopySettings& theSettings)
    : tracks(theTracks), settings(theSettings)
{
    for (const CopyTrack& track : tracks) {
        refused.emplace_back(track.marks.size(), false);
    }
}

void CopyTally::markRefused(const CopyPlace& place)
{
    if (!isRefused(place)) {
        refused[place.track][place.mark] = true;
        ++refusedCount;
    }
}

Finding CopyTally::placed(const CopyPlace& place, Finding why) const
{
    const CopyTrack& track = tracks[place.track];
    const CopyMark& mark = track.marks[place.mark];
    FindingPlace where;
    where.line = mark.line;
    where.mark = track.place;
    where.mark.object = track.track.QRVName;
    where.mark.mark = mark.number;
    const DayAndFraction moment = momentOf(track.track.Marks[place.mark]);
    where.mark.time = momentText(moment.day + moment.fraction);
    why.places.push_back(std::move(where));
    return std::move(why).in(settings.file).at(mark.line, 0);
}

void CopyTally::refuse(const CopyPlace& place, Finding why)
{
    markRefused(place);
    found.push_back(placed(place, std::move(why)));
}

void CopyTally::refuseTrack(std::size_t track, const Finding& why)
{
    for (std::size_t mark = 0; mark < tracks[track].marks.size(); ++mark) {
        refuse({track, mark}, why);
    }
}

void CopyTally::refuseAll(const std::vector<CopyPlace>& places, Finding why)
{
    for (const CopyPlace& place : places) {
        markRefused(place);
    }
    found.push_back(std::move(why).in(settings.file).times(places.size()));
}

void CopyTally::mend(std::string_view what, std::size_t marks)
{
    const auto known = std::find_if(changes.begin(), changes.end(),
                                    [what](const Mended& each) { return each.what == what; });
    if (known == changes.end()) {
        changes.push_back({std::string(what), marks});
    } else {
        known->marks += marks;
    }
}

std::vector<Finding> CopyTally::mended() const
{
    std::vector<Finding> notes;
    for (const Mended& each : changes) {
        notes.push_back(finding("V423", {{"what", each.what}, {"marks", counted(each.marks, "mark")}})
                            .in(settings.file)
                            .times(each.marks));
    }
    return notes;
}

Copy copyOf(std::string text, const CopyTally& tally, const std::vector<CopyTrack>& tracks)
{
    Copy copy;
    copy.text = std::move(text);
    for (const CopyTrack& track : tracks) {
        copy.marks += track.marks.size();
    }
    copy.refused = tally.refusedMarks();
    copy.reasons = tally.reasons();
    copy.mended = tally.mended();
    return copy;
}

Finding notKnown(const std::string& field, const std::string& option)
{
    return finding("V420", {{"field", field}, {"option", option}});
}

} // namespace companion
