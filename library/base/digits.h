// Digits: the small steps of printing a number, in the headers so that they become part of their callers.

#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>

namespace tavelinUtils {

/// The powers of ten that a 64-bit integer holds.
inline constexpr int largestDecimals = 19;
inline constexpr auto powersOfTen = [] {
    std::array<std::uint64_t, largestDecimals + 1> powers{};
    std::uint64_t power = 1;
    for (std::uint64_t& each : powers) {
        each = power;
        power *= 10;
    }
    return powers;
}();

/// The same as doubles, as far as these are exact.
inline constexpr int exactDecimals = 22;
inline constexpr double exactPowers[exactDecimals + 1] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                          1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                                          1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};

inline constexpr char pairsOfDigits[] = "00010203040506070809"
                                        "10111213141516171819"
                                        "20212223242526272829"
                                        "30313233343536373839"
                                        "40414243444546474849"
                                        "50515253545556575859"
                                        "60616263646566676869"
                                        "70717273747576777879"
                                        "80818283848586878889"
                                        "90919293949596979899";

/// The room that a number of 64 bits takes with sign, point and a zero before it.
inline constexpr std::size_t scaledLength = 32;

/// Writes a number below 100 in two digits and returns their end.
inline char* writePair(char* to, std::uint64_t number)
{
    std::memcpy(to, pairsOfDigits + number * 2, 2);
    return to + 2;
}

/// The eight digits of a number below 100,000,000, the first of them in the lowest byte: the number becomes
/// two of four digits, then four of two, then eight of one.
inline std::uint64_t eightDigitsOf(std::uint64_t number)
{
    const std::uint64_t fours = number / 10000 | number % 10000 << 32;
    const std::uint64_t hundreds = fours * 10486 >> 20 & 0x0000007f0000007f;
    const std::uint64_t pairs = hundreds | (fours - hundreds * 100) << 16;
    const std::uint64_t tens = pairs * 103 >> 10 & 0x000f000f000f000f;
    return (tens | (pairs - tens * 10) << 8) + 0x3030303030303030;
}

/// Writes the lowest digits of a number, with zeros in front where it has fewer, and returns their end. Takes
/// the room of eight at least.
inline char* writeDigits(char* to, std::uint64_t number, int digits)
{
    constexpr int eight = 8;
    if (digits == 2 && number < 100) {
        return writePair(to, number);
    }
    if (digits > 0 && digits <= eight && number < powersOfTen[eight]) {
        const std::uint64_t lowest = eightDigitsOf(number) >> eight * (eight - digits);
        std::memcpy(to, &lowest, sizeof lowest);
        return to + digits;
    }
    char* at = to + digits;
    while (at - to >= 2) {
        at -= 2;
        writePair(at, number % 100);
        number /= 100;
    }
    if (at != to) {
        *to = static_cast<char>('0' + number % 10);
    }
    return to + digits;
}

/// How many digits a number has, 1 for 0.
inline int countDigits(std::uint64_t number)
{
    constexpr int logarithm = 1233; // of 2 to base 10, times 4096
    const int fewest = static_cast<int>(std::bit_width(number | 1)) * logarithm >> 12;
    return fewest + (number >= powersOfTen[static_cast<std::size_t>(fewest)] ? 1 : 0) + (number == 0 ? 1 : 0);
}

/// The same, but at least as many as are given, which is mostly the answer.
inline int countDigits(std::uint64_t number, int fewest)
{
    const bool areEnough =
        fewest <= largestDecimals && number < powersOfTen[static_cast<std::size_t>(fewest)];
    return areEnough ? fewest : std::max(countDigits(number), fewest);
}

/// Writes a number and returns its end.
inline char* writeWhole(char* to, std::uint64_t number)
{
    if (number < 10) {
        *to = static_cast<char>('0' + number);
        return to + 1;
    }
    return number < 100 ? writePair(to, number) : writeDigits(to, number, countDigits(number));
}

/// Writes a number with at least two digits before its point from what scaledMagnitude gives of its
/// magnitude; returns its end. The number is below 100.
inline char* writeScaledPair(char* to, double magnitude, std::uint64_t scaled, int decimals)
{
    const std::uint64_t unit = powersOfTen[static_cast<std::size_t>(decimals)];
    auto whole = static_cast<std::uint64_t>(magnitude);
    whole += scaled - whole * unit >= unit ? 1 : 0;
    to = writePair(to, whole);
    if (decimals == 0) {
        return to;
    }
    *to = '.';
    return writeDigits(to + 1, scaled - whole * unit, decimals);
}

/// Writes a number with its point from what scaledMagnitude gives of its magnitude; returns its end.
inline char* writeScaled(char* to, double magnitude, std::uint64_t scaled, int decimals)
{
    if (decimals == 0) {
        return writeWhole(to, scaled);
    }
    // The whole part is that of the number, but where it was rounded up to the next: a division takes longer.
    const std::uint64_t unit = powersOfTen[static_cast<std::size_t>(decimals)];
    auto whole = static_cast<std::uint64_t>(magnitude);
    std::uint64_t rest = scaled - whole * unit;
    if (rest >= unit) {
        ++whole;
        rest = 0;
    }
    to = writeWhole(to, whole);
    *to = '.';
    return writeDigits(to + 1, rest, decimals);
}

/// What scaledMagnitude gives of a value that it cannot scale.
inline constexpr std::uint64_t notScaled = std::numeric_limits<std::uint64_t>::max();

/// scaledMagnitude in integer arithmetic, whatever the value.
std::uint64_t exactScaledMagnitude(double value, int precision);

/// |value| times ten to the precision, rounded to the nearest integer as printf rounds: the exact value
/// decides, and a tie goes to the even integer. notScaled if the precision is negative or the result does not
/// fit 64 bits: a number of its own, since an optional one would go through memory.
inline std::uint64_t scaledMagnitude(double value, int precision)
{
    // The product is rounded itself, which can mislead only next to a half.
    constexpr double trusted = 0x1p50;
    constexpr double twiceTheError = 0x1p-52;
    if (precision >= 0 && precision <= largestDecimals) {
        const double product = std::abs(value) * exactPowers[precision];
        if (product < trusted) {
            const auto whole = static_cast<std::int64_t>(product);
            const double overHalf = product - static_cast<double>(whole) - 0.5;
            if (std::abs(overHalf) > product * twiceTheError) {
                return static_cast<std::uint64_t>(whole + (overHalf > 0 ? 1 : 0));
            }
        }
    }
    return exactScaledMagnitude(value, precision);
}

} // namespace tavelinUtils
