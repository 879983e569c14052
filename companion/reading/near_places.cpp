#include "reading/near_places.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <numbers>
#include <utility>

namespace companion {
namespace {

// A direction as a point of the unit sphere: the nearest point is the nearest place.
std::array<double, 3> directionOf(const ComparedMark& mark)
{
    constexpr double degree = std::numbers::pi / 180;
    const double cosine = std::cos(mark.DE * degree);
    return {cosine * std::cos(mark.RA * degree), cosine * std::sin(mark.RA * degree),
            std::sin(mark.DE * degree)};
}

bool hasPlace(const ComparedMark& mark)
{
    return std::isfinite(mark.RA) && std::isfinite(mark.DE);
}

} // namespace

double chordOf(double angle)
{
    constexpr double arcsecond = std::numbers::pi / 180 / 3600;
    const double sine = std::sin(std::min(angle * arcsecond, std::numbers::pi) / 2);
    return 4 * sine * sine;
}

NearPlaces::NearPlaces(std::span<const ComparedMark> sorted, std::function<bool(std::size_t)> wanted)
    : marks(sorted), isWanted(std::move(wanted)), directions(marks.size())
{
}

void NearPlaces::moveTo(const ComparedMark& mark, double seconds)
{
    for (; last < marks.size() && secondsBetween(mark, marks[last]) <= seconds; ++last) {
        if (isLookedAt(last)) {
            directions[last] = directionOf(marks[last]);
            places.insert(placeOf(last));
        }
    }
    for (; first < last && secondsBetween(mark, marks[first]) < -seconds; ++first) {
        take(first);
    }
}

NearPlaces::Near NearPlaces::nearest(const ComparedMark& mark, double chord)
{
    found = {none, chord};
    if (hasPlace(mark)) {
        const Search search{mark.DE, directionOf(mark)};
        looks = 0;
        const auto middle = places.lower_bound({mark.DE, 0, 0});
        lookUp(search, middle);
        lookDown(search, middle);
    }
    return found;
}

void NearPlaces::take(std::size_t mark)
{
    if (mark < marks.size() && hasPlace(marks[mark])) {
        places.erase(placeOf(mark));
    }
}

bool NearPlaces::isLookedAt(std::size_t index) const
{
    return hasPlace(marks[index]) && isWanted(index);
}

NearPlaces::Place NearPlaces::placeOf(std::size_t index) const
{
    return {marks[index].DE, marks[index].RA, index};
}

// Of several marks at one place one look is enough.
void NearPlaces::lookUp(const Search& search, Places::iterator place)
{
    while (place != places.end() && look(search, place)) {
        place = places.upper_bound({place->DE, place->RA, marks.size()});
    }
}

void NearPlaces::lookDown(const Search& search, Places::iterator place)
{
    while (place != places.begin() && look(search, std::prev(place))) {
        --place;
        place = places.lower_bound({place->DE, place->RA, 0});
    }
}

// Looks at a place; false where those behind it are no nearer. Of very many in one strip of the sky not all
// are looked at.
bool NearPlaces::look(const Search& search, Places::iterator place)
{
    constexpr std::size_t most = 1000;
    constexpr double arcseconds = 3600;
    if (chordOf(std::abs(place->DE - search.DE) * arcseconds) > found.chord || ++looks > most) {
        return false;
    }
    const auto& [x, y, z] = directions[place->index];
    const auto& [toX, toY, toZ] = search.direction;
    const double chord = (x - toX) * (x - toX) + (y - toY) * (y - toY) + (z - toZ) * (z - toZ);
    if (chord < found.chord || (chord == found.chord && found.mark == none)) {
        found = {place->index, chord};
    }
    return found.chord > 0;
}

} // namespace companion
