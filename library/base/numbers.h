// Numbers as text: printed into a buffer and read from a view, as printf, strtod and strtol do in the "C"
// locale.

#pragma once

#include "digits.h"
#include "text_buffer.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
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

/// The numbers of HHMMSSff and up to four further decimals; nothing where the text is of another length or
/// holds anything but digits.
std::optional<SexagesimalDigits> packedDigits(std::string_view text);

/// The numbers of HH:MM:SS and up to 13 decimals after a point, with that separator; nothing where the text
/// has another form.
std::optional<SexagesimalDigits> separatedDigits(std::string_view text, char separator);

// The functions from here on write a text to where it stays and return its end. What they write to has room
// for them: a line asks for it once, for all its fields.

/// The room that a number takes with so many decimals, whatever its value: the largest has 309 digits before
/// its point, and there may be a sign, a zero in front and a character behind it.
constexpr std::size_t numberRoom(int precision)
{
    return 320 + static_cast<std::size_t>(std::max(precision, 6));
}

/// Writes a character, or a text as it is.
inline char* writeText(char* to, char character)
{
    *to = character;
    return to + 1;
}
inline char* writeText(char* to, std::string_view text)
{
    // Most texts are short: two steps that may overlap take less time than a call.
    const std::size_t size = text.size();
    if (size >= 8 && size <= 16) {
        std::memcpy(to, text.data(), 8);
        std::memcpy(to + size - 8, text.data() + size - 8, 8);
    } else if (size >= 4 && size < 8) {
        std::memcpy(to, text.data(), 4);
        std::memcpy(to + size - 4, text.data() + size - 4, 4);
    } else {
        std::copy(text.begin(), text.end(), to);
    }
    return to + size;
}

/// Writes a text padded with blanks on its right, or on its left, to the width. Takes the room of a multiple
/// of sixteen characters.
inline void writeBlanks(char* to, std::size_t width)
{
    constexpr std::size_t step = 16;
    for (std::size_t at = 0; at < width; at += step) {
        std::memset(to + at, ' ', step);
    }
}
inline char* writePaddedRight(char* to, std::string_view text, std::size_t width)
{
    writeBlanks(to, width);
    return std::max(writeText(to, text), to + width);
}
inline char* writePaddedLeft(char* to, std::string_view text, std::size_t width)
{
    writeBlanks(to, width);
    return writeText(to + (width - std::min(width, text.size())), text);
}

/// Writes an integer in decimal; it takes scaledLength at most.
char* writeInt(char* to, int value);

/// Writes an integer with a "0" in front of a value of at most 9.
char* writeOddTwoDigits(char* to, int value);
inline char* writeTwoDigits(char* to, int value)
{
    return value >= 0 && value < 100 ? writePair(to, static_cast<std::uint64_t>(value))
                                     : writeOddTwoDigits(to, value);
}

/// Writes a number in fixed notation with the given number of decimals: the exact value decides, a tie goes
/// to the even digit, and a negative number keeps its sign where all digits are 0. A negative precision
/// counts as 6.
char* writeFixed(char* to, double value, int precision);

/// Writes the same number and the character that ends its cell: a tab, a comma, a line feed.
inline char* writeCell(char* to, double value, int precision, char end)
{
    to = writeFixed(to, value, precision);
    *to = end;
    return to + 1;
}

/// Writes the same number with a "0" in front if the rounded text means a number below 10.0, so a negative
/// number has the "0" before its sign.
char* writeOddTwoDigits(char* to, double value, int precision);
inline char* writeFixedTwoDigits(char* to, double value, int precision)
{
    const std::uint64_t scaled = scaledMagnitude(value, precision);
    const bool isUsual = !std::signbit(value) && value < 99.0 && scaled != notScaled;
    return isUsual ? writeScaledPair(to, value, scaled, precision) : writeOddTwoDigits(to, value, precision);
}

/// The same without the point: "0950" for 9.5 with two decimals.
char* writeOddPacked(char* to, double value, int precision);
inline char* writeFixedPacked(char* to, double value, int precision)
{
    const std::uint64_t scaled = scaledMagnitude(value, precision);
    if (scaled == notScaled || std::signbit(value)) {
        return writeOddPacked(to, value, precision);
    }
    return writeDigits(to, scaled, countDigits(scaled, precision + 2));
}

/// The same, but with the "0" in front of a value below 10.0, whatever its text: "0100" for 9.96 with one
/// decimal, "0-12" for -1.2.
char* writePackedByValue(char* to, double value, int precision);

/// Takes the first point out of a text that was written, and returns its new end.
char* withoutPoint(char* text, char* end);

/// Appends what the function of the same name writes.
inline void appendInt(TextBuffer& out, int value)
{
    out.endAt(writeInt(out.room(scaledLength), value));
}
inline void appendFixed(TextBuffer& out, double value, int precision)
{
    out.endAt(writeFixed(out.room(numberRoom(precision)), value, precision));
}
inline void appendCell(TextBuffer& out, double value, int precision, char end)
{
    out.endAt(writeCell(out.room(numberRoom(precision)), value, precision, end));
}

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
