#include "reading/mark_comparison.h"

#include "out/characters.h"
#include "reading/sky_angle.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>
#include <limits>
#include <numbers>
#include <set>
#include <span>
#include <string>
#include <tuple>
#include <utility>

namespace companion {
namespace {

constexpr double secondsOfDay = 86400;

// What calculation with doubles leaves: a value that is read in one unit and compared in another is off by a
// hair.
constexpr double hairOfTime = 2e-8;  // seconds
constexpr double hairOfAngle = 1e-7; // arcseconds
constexpr double hairOfMagnitude = 1e-9;

double secondsBetween(const ComparedMark& a, const ComparedMark& b)
{
    return (static_cast<double>(b.day - a.day) + (b.fraction - a.fraction)) * secondsOfDay;
}

bool isSameNumber(double a, double b)
{
    return a == b || (std::isnan(a) && std::isnan(b));
}

// Numbers that are none are at no distance from themselves and infinitely far from all others.
double distanceBetween(double a, double b)
{
    if (isSameNumber(a, b)) {
        return 0;
    }
    return std::isfinite(a) && std::isfinite(b) ? b - a : std::numeric_limits<double>::infinity();
}

double angleOf(const ComparedMark& a, const ComparedMark& b)
{
    if (isSameNumber(a.RA, b.RA) && isSameNumber(a.DE, b.DE)) {
        return 0;
    }
    const double angle = angleBetween(a.RA, a.DE, b.RA, b.DE);
    return std::isnan(angle) ? std::numeric_limits<double>::infinity() : angle;
}

bool isEarlier(const ComparedMark& a, const ComparedMark& b)
{
    return a.day < b.day || (a.day == b.day && a.fraction < b.fraction);
}

// Marks of a file are in their order as a rule, and to see that costs less than to move them.
template <class Before>
void sortMarks(std::vector<ComparedMark>& marks, Before before)
{
    if (!std::is_sorted(marks.begin(), marks.end(), before)) {
        std::stable_sort(marks.begin(), marks.end(), before);
    }
}

void sortPairs(std::vector<ComparedPair>& pairs)
{
    std::stable_sort(pairs.begin(), pairs.end(), [](const ComparedPair& a, const ComparedPair& b) {
        return isEarlier(a.mark(), b.mark());
    });
}

// "K88": the code of an observatory, which cannot be mistaken for the name of a telescope.
bool isObservatoryCode(const std::string& text)
{
    return text.size() == 3 && (isDigit(text[0]) || (text[0] >= 'A' && text[0] <= 'Z')) && isDigit(text[1]) &&
           isDigit(text[2]);
}

// Marks of one object in the order of time, matched by two pointers.
class TimeMatching
{
public:
    TimeMatching(const MarkComparison& markComparison, double timeTolerance,
                 std::span<const ComparedMark> ofA, std::span<const ComparedMark> ofB)
        : comparison(markComparison), tolerance(timeTolerance + hairOfTime), a(ofA), b(ofB),
          isTakenOfA(ofA.size()), isTakenOfB(ofB.size())
    {
    }

    std::vector<ComparedPair> pairs()
    {
        while (i < a.size() || j < b.size()) {
            if (i < a.size() && isTakenOfA[i]) {
                ++i;
            } else if (j < b.size() && isTakenOfB[j]) {
                ++j;
            } else if (j == b.size() || (i < a.size() && secondsBetween(a[i], b[j]) > tolerance)) {
                found.push_back({&a[i++], nullptr, {}});
            } else if (i == a.size() || secondsBetween(a[i], b[j]) < -tolerance) {
                found.push_back({nullptr, &b[j++], {}});
            } else {
                matchAtOnce();
            }
        }
        sortPairs(found);
        return std::move(found);
    }

private:
    // Where several marks are within the tolerance, those that agree belong together.
    void matchAtOnce()
    {
        constexpr std::size_t farthest = 16;
        for (std::size_t step = 0; step <= farthest; ++step) {
            if (agree(i, j + step)) {
                match(i, j + step);
                return;
            }
            if (agree(i + step, j)) {
                match(i + step, j);
                return;
            }
        }
        match(i, j);
    }

    bool agree(std::size_t ofA, std::size_t ofB) const
    {
        return ofA < a.size() && ofB < b.size() && !isTakenOfA[ofA] && !isTakenOfB[ofB] &&
               std::abs(secondsBetween(a[ofA], b[ofB])) <= tolerance &&
               !comparison.difference(a[ofA], b[ofB]).any();
    }

    void match(std::size_t ofA, std::size_t ofB)
    {
        isTakenOfA[ofA] = true;
        isTakenOfB[ofB] = true;
        found.push_back({&a[ofA], &b[ofB], comparison.difference(a[ofA], b[ofB])});
    }

    const MarkComparison& comparison;
    double tolerance;
    std::span<const ComparedMark> a;
    std::span<const ComparedMark> b;
    std::vector<bool> isTakenOfA;
    std::vector<bool> isTakenOfB;
    std::size_t i = 0;
    std::size_t j = 0;
    std::vector<ComparedPair> found{};
};

// A direction as a point of the unit sphere: the nearest point is the nearest place.
std::array<double, 3> directionOf(const ComparedMark& mark)
{
    constexpr double degree = std::numbers::pi / 180;
    const double cosine = std::cos(mark.DE * degree);
    return {cosine * std::cos(mark.RA * degree), cosine * std::sin(mark.RA * degree),
            std::sin(mark.DE * degree)};
}

// Marks that may be near a place: those within the time tolerance, by their declinations.
class NearPlaces
{
public:
    explicit NearPlaces(std::span<const ComparedMark> sorted) : marks(sorted)
    {
        directions.reserve(marks.size());
        std::transform(marks.begin(), marks.end(), std::back_inserter(directions), directionOf);
    }

    // Keeps the marks that are within so many seconds of a mark; times never go back.
    void moveTo(const ComparedMark& mark, double seconds)
    {
        for (; last < marks.size() && secondsBetween(mark, marks[last]) <= seconds; ++last) {
            if (hasPlace(marks[last])) {
                places.insert(placeOf(last));
            }
        }
        for (; first < last && secondsBetween(mark, marks[first]) < -seconds; ++first) {
            if (hasPlace(marks[first])) {
                places.erase(placeOf(first));
            }
        }
    }

    // Takes the nearest mark within an angle; a null pointer where there is none.
    const ComparedMark* take(const ComparedMark& mark, double angle)
    {
        if (!hasPlace(mark)) {
            return nullptr;
        }
        const Search search{mark.DE, directionOf(mark)};
        nearest = places.end();
        best = chordOf(angle);
        looks = 0;
        const auto middle = places.lower_bound({mark.DE, 0, 0});
        lookUp(search, middle);
        lookDown(search, middle);
        if (nearest == places.end()) {
            return nullptr;
        }
        const ComparedMark* const found = &marks[nearest->index];
        places.erase(nearest);
        return found;
    }

private:
    struct Place
    {
        double DE;
        double RA;
        std::size_t index;

        friend bool operator<(const Place& a, const Place& b)
        {
            return std::tie(a.DE, a.RA, a.index) < std::tie(b.DE, b.RA, b.index);
        }
    };
    using Places = std::set<Place>;

    struct Search
    {
        double DE;
        std::array<double, 3> direction;
    };

    static bool hasPlace(const ComparedMark& mark)
    {
        return std::isfinite(mark.RA) && std::isfinite(mark.DE);
    }

    Place placeOf(std::size_t index) const
    {
        return {marks[index].DE, marks[index].RA, index};
    }

    // The distance through the sphere of an angle along it, squared.
    static double chordOf(double angle)
    {
        constexpr double arcsecond = std::numbers::pi / 180 / 3600;
        const double sine = std::sin(std::min(angle * arcsecond, std::numbers::pi) / 2);
        return 4 * sine * sine;
    }

    // Of several marks at one place one look is enough.
    void lookUp(const Search& search, Places::iterator place)
    {
        while (place != places.end() && look(search, place)) {
            place = places.upper_bound({place->DE, place->RA, marks.size()});
        }
    }

    void lookDown(const Search& search, Places::iterator place)
    {
        while (place != places.begin() && look(search, std::prev(place))) {
            --place;
            place = places.lower_bound({place->DE, place->RA, 0});
        }
    }

    // Looks at a place; false where those behind it are no nearer. Of very many in one strip of the sky not
    // all are looked at.
    bool look(const Search& search, Places::iterator place)
    {
        constexpr std::size_t most = 1000;
        constexpr double arcseconds = 3600;
        if (chordOf(std::abs(place->DE - search.DE) * arcseconds) > best || ++looks > most) {
            return false;
        }
        const auto& [x, y, z] = directions[place->index];
        const auto& [toX, toY, toZ] = search.direction;
        const double chord = (x - toX) * (x - toX) + (y - toY) * (y - toY) + (z - toZ) * (z - toZ);
        if (chord < best || (chord == best && nearest == places.end())) {
            best = chord;
            nearest = place;
        }
        return best > 0;
    }

    std::span<const ComparedMark> marks;
    std::vector<std::array<double, 3>> directions{};
    std::size_t first = 0;
    std::size_t last = 0;
    Places places{};
    Places::iterator nearest{};
    double best = 0;
    std::size_t looks = 0;
};

// Sorts marks by the places of their objects, then by time.
void sortByObject(std::vector<ComparedMark>& marks, const std::vector<std::uint32_t>& order)
{
    sortMarks(marks, [&order](const ComparedMark& a, const ComparedMark& b) {
        return a.object != b.object ? order[a.object] < order[b.object] : isEarlier(a, b);
    });
}

// The marks of the object at the front of marks that are sorted by objects.
std::span<const ComparedMark> frontObject(std::span<const ComparedMark> marks, std::uint32_t object)
{
    const auto end = std::find_if(marks.begin(), marks.end(),
                                  [object](const ComparedMark& each) { return each.object != object; });
    return marks.first(static_cast<std::size_t>(end - marks.begin()));
}

} // namespace

double MarkTolerance::angleAt(double DE) const
{
    return angle ? *angle : std::hypot(rightAscension * std::cos(DE * std::numbers::pi / 180), declination);
}

MarkTolerance toleranceOf(const FormatFacts& a, const FormatFacts& b)
{
    const auto half = [&a, &b](double FormatFacts::*step) { return std::max(a.*step, b.*step) / 2; };
    MarkTolerance tolerance;
    tolerance.time = half(&FormatFacts::timeStep);
    tolerance.rightAscension = half(&FormatFacts::rightAscensionStep);
    tolerance.declination = half(&FormatFacts::declinationStep);
    tolerance.magnitude = half(&FormatFacts::magnitudeStep);
    return tolerance;
}

// The name of a telescope and the code of an observatory are not held against each other, unless both are
// codes; 500 is what the tool writes where it knows none.
bool MarkComparison::stationsDiffer(const ComparedMark& ofA, const ComparedMark& ofB) const
{
    if (ofA.station == ofB.station || ofA.station == 0 || ofB.station == 0) {
        return false;
    }
    if (a.stations == b.stations) {
        return true;
    }
    const std::string& first = texts.others.text(ofA.station);
    const std::string& second = texts.others.text(ofB.station);
    return isObservatoryCode(first) && isObservatoryCode(second) && first != "500" && second != "500";
}

MarkDifference MarkComparison::difference(const ComparedMark& ofA, const ComparedMark& ofB) const
{
    MarkDifference result;
    result.time = secondsBetween(ofA, ofB);
    if (a.hasPlaces && b.hasPlaces) {
        result.angle = angleOf(ofA, ofB);
        result.inAngle = result.angle > tolerance.angleAt(ofA.DE) + hairOfAngle;
    }
    const double most = tolerance.magnitude + hairOfMagnitude;
    const bool isFar = std::abs(distanceBetween(ofA.magnitude, ofB.magnitude)) > most;
    if (ofA.hasMagnitude() && ofB.hasMagnitude()) {
        result.magnitude = distanceBetween(ofA.magnitude, ofB.magnitude);
        result.inMagnitude = isFar;
    } else {
        result.inKnownMagnitude = isFar;
    }
    result.inBand = a.hasBands && b.hasBands && ofA.band != ofB.band;
    result.inStation = stationsDiffer(ofA, ofB);
    result.inFrame = a.hasFrames && b.hasFrames && ofA.frame != ofB.frame;
    return result;
}

void MarkComparison::byObject(std::vector<ComparedMark>& ofA, std::vector<ComparedMark>& ofB,
                              const Use& use) const
{
    const std::vector<std::uint32_t> order = texts.objects.order();
    sortByObject(ofA, order);
    sortByObject(ofB, order);
    std::span<const ComparedMark> restOfA = ofA;
    std::span<const ComparedMark> restOfB = ofB;
    while (!restOfA.empty() || !restOfB.empty()) {
        const bool isOfA =
            restOfB.empty() || (!restOfA.empty() && order[restOfA[0].object] <= order[restOfB[0].object]);
        const std::uint32_t object = isOfA ? restOfA[0].object : restOfB[0].object;
        const auto marksOfA = frontObject(restOfA, object);
        const auto marksOfB = frontObject(restOfB, object);
        const auto pairs = TimeMatching(*this, tolerance.time, marksOfA, marksOfB).pairs();
        std::for_each(pairs.begin(), pairs.end(), use);
        restOfA = restOfA.subspan(marksOfA.size());
        restOfB = restOfB.subspan(marksOfB.size());
    }
}

void MarkComparison::byPosition(std::vector<ComparedMark>& ofA, std::vector<ComparedMark>& ofB,
                                const Use& use) const
{
    sortMarks(ofA, isEarlier);
    sortMarks(ofB, isEarlier);
    NearPlaces places(ofB);
    std::vector<ComparedPair> pairs;
    std::vector<bool> isTaken(ofB.size());
    for (const ComparedMark& mark : ofA) {
        places.moveTo(mark, tolerance.time + hairOfTime);
        const ComparedMark* const near = places.take(mark, tolerance.angleAt(mark.DE) + hairOfAngle);
        pairs.push_back({&mark, near, near == nullptr ? MarkDifference() : difference(mark, *near)});
        if (near != nullptr) {
            isTaken[static_cast<std::size_t>(near - ofB.data())] = true;
        }
    }
    for (std::size_t i = 0; i < ofB.size(); ++i) {
        if (!isTaken[i]) {
            pairs.push_back({nullptr, &ofB[i], {}});
        }
    }
    sortPairs(pairs);
    std::for_each(pairs.begin(), pairs.end(), use);
}

} // namespace companion
