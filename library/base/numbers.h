// Numbers as text: printed into a buffer and read from a view, as printf, strtod and strtol do in the "C"
// locale.

#pragma once

#include "text_buffer.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace tavelinUtils {

/// The number at the front of a text, as `strtod` reads it: leading white space is skipped, the longest
/// valid prefix counts, and a text without one gives 0.
double toDouble(std::string_view text);

/// The same for an integer, as `strtol` reads it in base 10, cut to 32 bits.
int toInt(std::string_view text);

/// A time or an angle that is packed into digits.
struct PackedDigits
{
    int whole; ///< hours or degrees
    int minutes;
    double seconds;
};

/// The numbers of HHMMSSff and up to eight further decimals; nothing where the text is of another length or
/// holds anything but digits.
std::optional<PackedDigits> packedDigits(std::string_view text);

/// The number between 0 and 99 of a text of two digits; nothing for any other text.
std::optional<int> twoDigits(std::string_view text);

/// Appends a number in fixed notation with the given number of decimals: the exact value decides, a tie goes
/// to the even digit, and a negative number keeps its sign where all digits are 0. A negative precision
/// counts as 6.
void appendFixed(TextBuffer& out, double value, int precision);

/// Appends the same number and the character that ends its cell: a tab, a comma, a line feed.
void appendCell(TextBuffer& out, double value, int decimals, char end);

/// Appends the same number with a "0" in front if the rounded text means a number below 10.0, so a negative
/// number has the "0" before its sign.
void appendFixedTwoDigits(TextBuffer& out, double value, int precision);

/// The same without the point: "0950" for 9.5 with two decimals.
void appendFixedPacked(TextBuffer& out, double value, int precision);

/// Appends an integer in decimal.
void appendInt(TextBuffer& out, int value);

/// Appends an integer with a "0" in front of a value of at most 9.
void appendTwoDigits(TextBuffer& out, int value);

/// |value| times ten to the precision, rounded as appendFixed rounds; nothing if the precision is negative or
/// the result does not fit 64 bits.
std::optional<std::uint64_t> scaledMagnitude(double value, int precision);

/// Ten to the exponent, which is at most 19.
std::uint64_t powerOfTen(int exponent);

/// Writes a number in exactly so many digits, with zeros in front, and returns their end.
char* writeDigits(char* to, std::uint64_t number, int digits);

/// Removes the first point at or after the position, if there is one.
void erasePoint(TextBuffer& out, std::size_t begin);

/// Append a text padded with blanks on its right, or on its left, to the width.
void appendPaddedRight(TextBuffer& out, std::string_view text, std::size_t width);
void appendPaddedLeft(TextBuffer& out, std::string_view text, std::size_t width);

/// A double truncated to an integer: 0 for not-a-number, and the nearest end of the range for a value that
/// does not fit.
int cutToInt(double x);

/// A number rounded to decimals by way of its text.
double roundedTo(double value, int precision);

} // namespace tavelinUtils
