// Pixels of an object.

#pragma once

#include "math/shape_measures.h"

#include <vector>

using Pixels = std::vector<tavelinMath::pixel>;

/// The keys of pixels, which show the order of a list.
inline std::vector<double> keysOf(const Pixels& pixels)
{
    std::vector<double> keys;
    for (const tavelinMath::pixel& one : pixels) {
        keys.push_back(one.A);
    }
    return keys;
}

/// Their weights above the smallest value: 1 (its own would be 0), 4, 2, 3.
inline const Pixels fourPixels{{10, 20, 5.0, 1}, {12, 21, 9.0, 2}, {11, 20, 7.0, 3}, {13, 22, 8.0, 4}};
