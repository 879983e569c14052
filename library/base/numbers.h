// Numbers as text: printed into a buffer and read from a view, as printf, strtod and strtol do in the "C"
// locale.

#pragma once

#include "digits.h"
#include "text_buffer.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <string_view>

namespace tavelinUtils {

/// The number at the front of a text, as `strtod` reads it: leading white space is skipped, the longest
/// valid prefix counts, and a text without one gives 0.
double toDouble(std::string_view text);

/// The same for an integer, as `strtol` reads it in base 10, cut to 32 bits.
int toInt(std::string_view text);

/// A time or an angle that was read from digits.
struct SexagesimalDigits
{
    int whole; ///< hours or degrees
    int minutes;
    double seconds;
};

/// The numbers of HHMMSSff and up to eight further decimals; nothing where the text is of another length or
/// holds anything but digits.
std::optional<SexagesimalDigits> packedDigits(std::string_view text);

/// The numbers of HH:MM:SS and up to 13 decimals after a point, with that separator; nothing where the text
/// has another form.
std::optional<SexagesimalDigits> separatedDigits(std::string_view text, char separator);

/// Appends a number in fixed notation with the given number of decimals: the exact value decides, a tie goes
/// to the even digit, and a negative number keeps its sign where all digits are 0. A negative precision
/// counts as 6.
void appendFixed(TextBuffer& out, double value, int precision);

/// Appends the same number and the character that ends its cell: a tab, a comma, a line feed.
void appendCell(TextBuffer& out, double value, int decimals, char end);

/// Appends the same number with a "0" in front if the rounded text means a number below 10.0, so a negative
/// number has the "0" before its sign.
void appendOddTwoDigits(TextBuffer& out, double value, int precision);
inline void appendFixedTwoDigits(TextBuffer& out, double value, int precision)
{
    const std::uint64_t scaled = scaledMagnitude(value, precision);
    const bool isUsual = scaled != notScaled && !std::signbit(value) &&
                         scaled / 100 < powersOfTen[static_cast<std::size_t>(precision)];
    if (isUsual) {
        out.endAt(writeScaledPair(out.room(scaledLength), value, scaled, precision));
    } else {
        appendOddTwoDigits(out, value, precision);
    }
}

/// The same without the point: "0950" for 9.5 with two decimals.
void appendOddPacked(TextBuffer& out, double value, int precision);
inline void appendFixedPacked(TextBuffer& out, double value, int precision)
{
    const std::uint64_t scaled = scaledMagnitude(value, precision);
    if (scaled == notScaled || std::signbit(value)) {
        appendOddPacked(out, value, precision);
        return;
    }
    const int digits = std::max(countDigits(scaled), precision + 2);
    out.endAt(writeDigits(out.room(scaledLength), scaled, digits));
}

/// The same, but with the "0" in front of a value below 10.0, whatever its text: "0100" for 9.96 with one
/// decimal, "0-12" for -1.2.
void appendPackedByValue(TextBuffer& out, double value, int precision);

/// Appends an integer in decimal.
void appendInt(TextBuffer& out, int value);

/// Appends an integer with a "0" in front of a value of at most 9.
void appendOddTwoDigits(TextBuffer& out, int value);
inline void appendTwoDigits(TextBuffer& out, int value)
{
    if (value >= 0 && value < 100) {
        out.endAt(writePair(out.room(2), static_cast<std::uint64_t>(value)));
    } else {
        appendOddTwoDigits(out, value);
    }
}

/// Removes the first point at or after the position, if there is one.
void erasePoint(TextBuffer& out, std::size_t begin);

/// Append a text padded with blanks on its right, or on its left, to the width.
void appendPaddedRight(TextBuffer& out, std::string_view text, std::size_t width);
void appendPaddedLeft(TextBuffer& out, std::string_view text, std::size_t width);

/// A double truncated to an integer: 0 for not-a-number, and the nearest end of the range for a value that
/// does not fit.
int cutToNearestInt(double x);
inline int cutToInt(double x)
{
    const bool fits = x > std::numeric_limits<int>::min() && x < std::numeric_limits<int>::max();
    return fits ? static_cast<int>(x) : cutToNearestInt(x);
}

/// A number rounded to decimals by way of its text.
double roundedTo(double value, int precision);

} // namespace tavelinUtils
