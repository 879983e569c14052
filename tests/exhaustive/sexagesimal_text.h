// Sexagesimal text of a reference: the digits of times and angles, made of integers.

#pragma once

#include <cstdint>
#include <string>

/// The power of ten by which a number with so many decimals becomes an integer.
inline std::uint64_t unitOf(int decimals)
{
    std::uint64_t unit = 1;
    for (int i = 0; i < decimals; ++i) {
        unit *= 10;
    }
    return unit;
}

/// A number of at least two digits.
inline std::string twoDigits(std::uint64_t number)
{
    return (number <= 9 ? "0" : "") + std::to_string(number);
}

/// A number of units as fixed notation, without a zero in front of what is below 10, and without a point
/// where there are no decimals.
inline std::string fixedText(std::uint64_t scaled, int decimals, const char* point = ".")
{
    const std::uint64_t unit = unitOf(decimals);
    std::string text = std::to_string(scaled / unit);
    if (decimals > 0) {
        const std::string digits = std::to_string(scaled % unit);
        text += point + std::string(static_cast<std::size_t>(decimals) - digits.size(), '0') + digits;
    }
    return text;
}

/// The same with a zero in front where the text means less than 10.
inline std::string fixedTwoDigits(std::uint64_t scaled, int decimals, const char* point = ".")
{
    return (scaled < 10 * unitOf(decimals) ? "0" : "") + fixedText(scaled, decimals, point);
}
