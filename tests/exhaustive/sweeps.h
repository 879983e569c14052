// Sweeps: operations held against a reference over each value that there is.

#pragma once

#include "differences.h"

#include <cstdint>

/// Some of the values of a sweep: from the begin on, below the end, by steps.
struct Stretch
{
    std::uint64_t begin = 0;
    std::uint64_t end = 0;
    std::uint64_t step = 1;
};

/// Each millisecond of a day through the writers and readers of times.
constexpr std::uint64_t millisecondsOfADay = 86'400'000;
void sweepTimes(const Stretch& stretch, Differences& differences);

/// Each tenth of an arcsecond of the circle, with both signs, through the writers and readers of angles.
constexpr std::uint64_t tenthsOfTheCircle = 12'960'000;
void sweepAngles(const Stretch& stretch, Differences& differences);

/// The magnitude of each float, widened and with both signs, through what prints and reads numbers. The
/// expected text of a negative one is that of its magnitude after a minus.
constexpr std::uint64_t magnitudesOfFloats = std::uint64_t{1} << 31;
void sweepFloats(const Stretch& stretch, Differences& differences);
