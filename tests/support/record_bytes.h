// Bytes of records as files hold them: little-endian integers, floats and doubles, and zeros.

#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

/// The lowest bytes of a number, the lowest first.
inline std::string lowBytes(std::uint64_t number, std::size_t count)
{
    std::string bytes;
    for (std::size_t i = 0; i < count; ++i) {
        bytes += static_cast<char>(number >> (8 * i) & 0xff);
    }
    return bytes;
}

inline std::string int32s(const std::vector<int>& numbers)
{
    std::string bytes;
    for (const int number : numbers) {
        bytes += lowBytes(static_cast<std::uint32_t>(number), 4);
    }
    return bytes;
}

inline std::string floats(const std::vector<float>& numbers)
{
    std::string bytes;
    for (const float number : numbers) {
        bytes += lowBytes(std::bit_cast<std::uint32_t>(number), 4);
    }
    return bytes;
}

inline std::string doubles(const std::vector<double>& numbers)
{
    std::string bytes;
    for (const double number : numbers) {
        bytes += lowBytes(std::bit_cast<std::uint64_t>(number), 8);
    }
    return bytes;
}

inline std::string zeros(std::size_t count)
{
    return std::string(count, '\0');
}
