#include "reading/mark_comparison.h"

#include "reading/near_places.h"
#include "reading/sky_angle.h"
#include "receivers/mpc_copy.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>
#include <numbers>
#include <span>
#include <string>
#include <tuple>
#include <utility>

namespace companion {
namespace {

// What calculation with doubles leaves: a value that is read in one unit and compared in another is off by a
// hair.
constexpr double hairOfTime = 2e-8;  // seconds
constexpr double hairOfAngle = 1e-7; // arcseconds
constexpr double hairOfMagnitude = 1e-9;

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

// Marks of one object in the order of time.
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
        matchEqualTimes();
        restOfA = untaken(isTakenOfA);
        restOfB = untaken(isTakenOfB);
        constexpr int rounds = 2;
        for (int round = 0; round < rounds && !restOfA.empty() && !restOfB.empty(); ++round) {
            matchNearest();
            restOfA = untaken(isTakenOfA);
            restOfB = untaken(isTakenOfB);
        }
        matchRest();
        sortPairs(found);
        return std::move(found);
    }

private:
    // Two marks that may belong together.
    struct Candidate
    {
        double distance; // seconds
        std::size_t a;
        std::size_t b;
        bool isEqual;

        friend bool operator<(const Candidate& one, const Candidate& other)
        {
            return std::tuple(other.isEqual, one.distance, one.a, one.b) <
                   std::tuple(one.isEqual, other.distance, other.a, other.b);
        }
    };

    static std::vector<std::size_t> untaken(const std::vector<bool>& isTaken)
    {
        std::vector<std::size_t> rest;
        for (std::size_t i = 0; i < isTaken.size(); ++i) {
            if (!isTaken[i]) {
                rest.push_back(i);
            }
        }
        return rest;
    }

    // Marks of one time that agree are each other's, whatever is near them.
    void matchEqualTimes()
    {
        constexpr std::size_t farthest = 16;
        std::size_t j = 0;
        for (std::size_t i = 0; i < a.size(); ++i) {
            while (j < b.size() && (isTakenOfB[j] || secondsBetween(a[i], b[j]) < -hairOfTime)) {
                ++j;
            }
            const std::size_t end = std::min(b.size(), j + farthest);
            for (std::size_t other = j; other < end && secondsBetween(a[i], b[other]) <= hairOfTime; ++other)
            {
                if (!isTakenOfB[other] && !comparison.difference(a[i], b[other]).any()) {
                    match(i, other);
                    break;
                }
            }
        }
    }

    // Of the marks that are left those belong together that agree, and then those whose times are nearest.
    void matchNearest()
    {
        constexpr std::size_t most = std::size_t{1} << 20;
        std::size_t middle = 0; // the first of the second file that is not before the present one
        for (std::size_t i = 0; i < restOfA.size(); ++i) {
            const ComparedMark& mark = a[restOfA[i]];
            while (middle < restOfB.size() && secondsBetween(mark, b[restOfB[middle]]) < 0) {
                ++middle;
            }
            addCandidates(restOfA[i], middle);
            const bool isLast =
                i + 1 == restOfA.size() || secondsBetween(mark, a[restOfA[i + 1]]) > 2 * tolerance;
            if (isLast || candidates.size() > most) {
                settle();
            }
        }
    }

    void addCandidates(std::size_t ofA, std::size_t middle)
    {
        constexpr std::size_t farthest = 16;
        for (std::size_t place = middle; place-- > middle - std::min(middle, farthest);) {
            if (!addCandidate(ofA, restOfB[place])) {
                break;
            }
        }
        for (std::size_t place = middle; place < std::min(restOfB.size(), middle + farthest); ++place) {
            if (!addCandidate(ofA, restOfB[place])) {
                break;
            }
        }
    }

    // False for one that is too far away in time.
    bool addCandidate(std::size_t ofA, std::size_t ofB)
    {
        const double distance = std::abs(secondsBetween(a[ofA], b[ofB]));
        if (distance > tolerance) {
            return false;
        }
        if (!isTakenOfB[ofB]) {
            candidates.push_back({distance, ofA, ofB, !comparison.difference(a[ofA], b[ofB]).any()});
        }
        return true;
    }

    void settle()
    {
        if (candidates.size() > 1) {
            std::sort(candidates.begin(), candidates.end());
        }
        for (const Candidate& each : candidates) {
            if (!isTakenOfA[each.a] && !isTakenOfB[each.b]) {
                match(each.a, each.b);
            }
        }
        candidates.clear();
    }

    // Where very many are near each other, those that are left belong together in their order.
    void matchRest()
    {
        auto i = restOfA.begin();
        auto j = restOfB.begin();
        while (i != restOfA.end() || j != restOfB.end()) {
            const bool hasBoth = i != restOfA.end() && j != restOfB.end();
            const double seconds = hasBoth ? secondsBetween(a[*i], b[*j]) : 0;
            if (j == restOfB.end() || seconds > tolerance) {
                found.push_back({&a[*i++], nullptr, {}});
            } else if (i == restOfA.end() || seconds < -tolerance) {
                found.push_back({nullptr, &b[*j++], {}});
            } else {
                match(*i++, *j++);
            }
        }
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
    std::vector<std::size_t> restOfA{};
    std::vector<std::size_t> restOfB{};
    std::vector<Candidate> candidates{};
    std::vector<ComparedPair> found{};
};

// Marks of all objects by their places: pairs of which neither has a nearer one.
class PlaceMatching
{
public:
    PlaceMatching(const MarkTolerance& allowed, std::span<const ComparedMark> ofA,
                  std::span<const ComparedMark> ofB)
        : tolerance(allowed), a(ofA), b(ofB), partners(ofA.size(), none), isTakenOfB(ofB.size())
    {
    }

    // For each mark of the first file its partner in the second one; `none` where it has none.
    const std::vector<std::size_t>& match()
    {
        for (std::size_t i = 0; i < a.size(); ++i) {
            rest.push_back(i);
        }
        constexpr int rounds = 8;
        for (int round = 0; round < rounds && !rest.empty(); ++round) {
            if (!matchMutual()) {
                return partners;
            }
        }
        matchInOrder();
        return partners;
    }

    static constexpr std::size_t none = NearPlaces::none;

private:
    // One that wants to be the partner of a mark of the second file.
    struct Suitor
    {
        std::size_t mark = none;
        double chord = 0;
    };

    double seconds() const
    {
        return tolerance.time + hairOfTime;
    }

    double chordAt(double DE) const
    {
        return chordOf(tolerance.angleAt(DE) + hairOfAngle);
    }

    NearPlaces freePlaces() const
    {
        return {b, [this](std::size_t mark) { return !isTakenOfB[mark]; }};
    }

    // False where no mark that is left has one near it.
    bool matchMutual()
    {
        std::vector<Suitor> suitors(b.size());
        std::vector<std::size_t> wooing;
        NearPlaces places = freePlaces();
        for (const std::size_t mark : rest) {
            places.moveTo(a[mark], seconds());
            const NearPlaces::Near near = places.nearest(a[mark], chordAt(a[mark].DE));
            if (near.mark == none) {
                continue;
            }
            wooing.push_back(mark);
            Suitor& suitor = suitors[near.mark];
            if (suitor.mark == none || near.chord < suitor.chord) {
                suitor = {mark, near.chord};
            }
        }
        accept(suitors, wooing);
        rest.clear();
        std::copy_if(wooing.begin(), wooing.end(), std::back_inserter(rest),
                     [this](std::size_t mark) { return partners[mark] == none; });
        return !wooing.empty();
    }

    void accept(const std::vector<Suitor>& suitors, const std::vector<std::size_t>& wooing)
    {
        std::vector<bool> isWooing(a.size());
        for (const std::size_t mark : wooing) {
            isWooing[mark] = true;
        }
        NearPlaces places(a, [&isWooing](std::size_t mark) { return isWooing[mark]; });
        for (std::size_t mark = 0; mark < b.size(); ++mark) {
            const Suitor& suitor = suitors[mark];
            if (suitor.mark == none) {
                continue;
            }
            bool isNearest = suitor.chord == 0;
            if (!isNearest) {
                places.moveTo(b[mark], seconds());
                isNearest = !(places.nearest(b[mark], suitor.chord).chord < suitor.chord);
            }
            if (isNearest) {
                partners[suitor.mark] = mark;
                isTakenOfB[mark] = true;
            }
        }
    }

    // Each that is left, in the order of time, with the nearest that is left.
    void matchInOrder()
    {
        NearPlaces places = freePlaces();
        for (const std::size_t mark : rest) {
            places.moveTo(a[mark], seconds());
            partners[mark] = places.nearest(a[mark], chordAt(a[mark].DE)).mark;
            places.take(partners[mark]);
        }
    }

    const MarkTolerance& tolerance;
    std::span<const ComparedMark> a;
    std::span<const ComparedMark> b;
    std::vector<std::size_t> partners;
    std::vector<bool> isTakenOfB;
    std::vector<std::size_t> rest{}; // of the first file: those that have no partner yet
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
    tolerance.declination =
        std::max(writtenDeclinationStep(a), writtenDeclinationStep(b)) / 2; // as they are meant
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
    return isOnlyStationCode(first) && isOnlyStationCode(second);
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
    PlaceMatching matching(tolerance, ofA, ofB);
    const std::vector<std::size_t>& partners = matching.match();
    std::vector<ComparedPair> pairs;
    std::vector<bool> isTaken(ofB.size());
    for (std::size_t i = 0; i < ofA.size(); ++i) {
        if (partners[i] == PlaceMatching::none) {
            pairs.push_back({&ofA[i], nullptr, {}});
        } else {
            const ComparedMark& near = ofB[partners[i]];
            pairs.push_back({&ofA[i], &near, difference(ofA[i], near)});
            isTaken[partners[i]] = true;
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
