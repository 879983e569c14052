// Numbers that are equal to the last bit.

#pragma once

#include <bit>
#include <cstdint>

/// Whether two numbers are the same: 0.0 and -0.0 are not, and a not-a-number is the same as itself.
inline bool sameBits(double a, double b)
{
    return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
}
