// Near places: the marks that are near a mark in time, by their places on the sky.
//
//   NearPlaces places(marks, [](std::size_t) { return true; });
//   places.moveTo(mark, 0.5);
//   const std::size_t nearest = places.nearest(mark, chordOf(1.0)).mark;

#pragma once

#include "reading/compared_marks.h"

#include <array>
#include <cstddef>
#include <functional>
#include <set>
#include <span>
#include <tuple>
#include <vector>

namespace companion {

/// The distance through the sphere of an angle along it in arcseconds, squared.
double chordOf(double angle);

/// Marks in the order of time, of which those are looked at that are near a moment.
class NearPlaces
{
public:
    static constexpr std::size_t none = static_cast<std::size_t>(-1);

    /// A mark by its place in the list, and how far away it is as chordOf has it.
    struct Near
    {
        std::size_t mark = none;
        double chord = 0;
    };

    /// Of the marks of a list those that are wanted, by their places in it.
    NearPlaces(std::span<const ComparedMark> sorted, std::function<bool(std::size_t)> wanted);

    /// Keeps the marks that are within so many seconds of a mark; times never go back.
    void moveTo(const ComparedMark& mark, double seconds);

    /// The nearest mark within a chord; with none, and the chord, where there is none.
    Near nearest(const ComparedMark& mark, double chord);

    /// Takes a mark away, if it is one.
    void take(std::size_t mark);

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
    using Direction = std::array<double, 3>;

    struct Search
    {
        double DE;
        Direction direction;
    };

    bool isLookedAt(std::size_t index) const;
    Place placeOf(std::size_t index) const;
    void lookUp(const Search& search, Places::iterator place);
    void lookDown(const Search& search, Places::iterator place);
    bool look(const Search& search, Places::iterator place);

    std::span<const ComparedMark> marks;
    std::function<bool(std::size_t)> isWanted;
    std::vector<Direction> directions; // of those that were looked at
    std::size_t first = 0;
    std::size_t last = 0;
    Places places{};
    Near found{};
    std::size_t looks = 0;
};

} // namespace companion
