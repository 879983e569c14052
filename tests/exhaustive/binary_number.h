// Binary numbers: the arithmetic of doubles done with integers, so that sweeps have a reference that shares
// nothing with what they test. None is negative, and none is outside the range of normal doubles.

#pragma once

#include <bit>
#include <cmath>
#include <cstdint>
#include <stdexcept>
#include <utility>

/// A number that a double holds exactly. Each operation is rounded once, to the nearest, a tie to the even.
class BinaryNumber
{
public:
    BinaryNumber() = default;

    /// The double next to a quotient.
    static BinaryNumber ratio(std::uint64_t numerator, std::uint64_t denominator)
    {
        return quotient(numerator, 0, denominator);
    }

    BinaryNumber plus(BinaryNumber other) const
    {
        if (mantissa == 0 || other.mantissa == 0) {
            return mantissa == 0 ? other : *this;
        }
        BinaryNumber larger = *this;
        if (larger.exponent < other.exponent) {
            std::swap(larger, other);
        }
        const int distance = larger.exponent - other.exponent;
        if (distance > wideBits - mantissaBits - 2) {
            throw std::range_error("binary numbers too far from each other");
        }
        return rounded((Wide{larger.mantissa} << distance) + other.mantissa, other.exponent, false);
    }

    BinaryNumber times(std::uint64_t factor) const
    {
        return rounded(Wide{mantissa} * factor, exponent, false);
    }

    BinaryNumber over(std::uint64_t divisor) const
    {
        return quotient(mantissa, exponent, divisor);
    }

    /// The digits before the binary point, and those after it; both are exact.
    std::uint64_t whole() const
    {
        return static_cast<std::uint64_t>(exponent >= 0 ? Wide{mantissa} << exponent
                                                        : cut(mantissa, -exponent));
    }
    BinaryNumber fraction() const
    {
        BinaryNumber rest = *this;
        rest.mantissa -= exponent >= 0 ? mantissa : static_cast<std::uint64_t>(Wide{whole()} << -exponent);
        return rest;
    }

    /// The number times an integer, rounded to a whole one: how fixed notation rounds.
    std::uint64_t scaled(std::uint64_t unit) const
    {
        const Wide product = Wide{mantissa} * unit;
        if (exponent >= 0) {
            return static_cast<std::uint64_t>(product << exponent);
        }
        return -exponent >= wideBits ? 0 : static_cast<std::uint64_t>(shifted(product, -exponent, false));
    }

    double value() const
    {
        return std::ldexp(static_cast<double>(mantissa), exponent);
    }

private:
    __extension__ using Wide = unsigned __int128;
    static constexpr int wideBits = 128;
    static constexpr int mantissaBits = 53;

    BinaryNumber(std::uint64_t itsMantissa, int itsExponent) : mantissa(itsMantissa), exponent(itsExponent)
    {
    }

    static int width(Wide number)
    {
        const auto high = static_cast<std::uint64_t>(number >> 64);
        return high != 0 ? 64 + static_cast<int>(std::bit_width(high))
                         : static_cast<int>(std::bit_width(static_cast<std::uint64_t>(number)));
    }

    static Wide cut(Wide number, int bits)
    {
        return bits >= wideBits ? 0 : number >> bits;
    }

    // A number without its last bits, rounded. There may be more of it than these hold.
    static Wide shifted(Wide number, int bits, bool hasMore)
    {
        const Wide kept = number >> bits;
        const Wide rest = number - (kept << bits);
        const Wide half = Wide{1} << (bits - 1);
        const bool up = rest > half || (rest == half && (hasMore || (kept & 1) != 0));
        return kept + (up ? 1 : 0);
    }

    static BinaryNumber rounded(Wide number, int itsExponent, bool hasMore)
    {
        const int excess = width(number) - mantissaBits;
        if (excess <= 0) {
            return {static_cast<std::uint64_t>(number), itsExponent};
        }
        return {static_cast<std::uint64_t>(shifted(number, excess, hasMore)), itsExponent + excess};
    }

    // The quotient has more bits than a mantissa, so that what is left of it decides ties alone.
    static BinaryNumber quotient(std::uint64_t numerator, int itsExponent, std::uint64_t denominator)
    {
        if (numerator == 0) {
            return {};
        }
        const int shift = wideBits - static_cast<int>(std::bit_width(numerator));
        const Wide dividend = Wide{numerator} << shift;
        const Wide whole = dividend / denominator;
        return rounded(whole, itsExponent - shift, whole * denominator != dividend);
    }

    std::uint64_t mantissa = 0; // up to 2 to the power 53, which it is where rounding carries
    int exponent = 0;
};
