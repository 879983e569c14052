#include "reading/mend_notes.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace companion {

FindingPlace MendNotes::placeOf(std::string_view part) const
{
    const Stretch stretch = stretchOf(present, part);
    FindingPlace place;
    place.line = line;
    place.column = stretch.column;
    place.length = stretch.length;
    place.snippet = present;
    place.value = part;
    return place;
}

MendNotes::Kind& MendNotes::kindOf(std::vector<Kind>& list, std::string_view what)
{
    const auto known =
        std::find_if(list.begin(), list.end(), [what](const Kind& each) { return each.what == what; });
    return known != list.end() ? *known : list.emplace_back(Kind{what});
}

void MendNotes::skipped(std::string_view kind)
{
    ++kindOf(skips, kind).count;
}

void MendNotes::mended(std::string_view what, std::string_view part)
{
    constexpr std::size_t shownPlaces = 3;
    Kind& kind = kindOf(kinds, what);
    if (++kind.count <= shownPlaces) {
        kind.places.push_back(placeOf(part));
    }
}

void MendNotes::refused(Finding why, std::string_view part)
{
    ++refusals;
    const FindingPlace place = placeOf(part);
    refusalFindings.push_back(std::move(why).at(place.line, place.column));
    refusalFindings.back().places.push_back(place);
}

Finding MendNotes::findingOf(Kind kind)
{
    const FindingPlace& first = kind.places.front();
    Finding found =
        finding("V423", {{"what", std::string(kind.what)}, {"marks", counted(kind.count, "line")}})
            .at(first.line, first.column)
            .times(kind.count);
    found.places = std::move(kind.places);
    return found;
}

std::vector<Finding> MendNotes::findings() &&
{
    std::vector<Finding> all = std::move(refusalFindings);
    for (Kind& kind : kinds) {
        all.push_back(findingOf(std::move(kind)));
    }
    for (const Kind& kind : skips) {
        all.push_back(
            finding("V180", {{"lines", counted(kind.count, "line")}, {"keys", std::string(kind.what)}}));
    }
    std::stable_sort(all.begin(), all.end(), [](const Finding& a, const Finding& b) {
        return a.line != b.line ? a.line < b.line : a.column < b.column;
    });
    return all;
}

} // namespace companion
