// Numbers as text: printed into a buffer and read from a view, as printf, strtod and strtol do in the "C"
// locale.

#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tavelinUtils {

/// The number at the front of a text, as `strtod` reads it: leading white space is skipped, the longest
/// valid prefix counts, and a text without one gives 0.
double toDouble(std::string_view text);

/// The same for an integer, as `strtol` reads it in base 10, cut to 32 bits.
int toInt(std::string_view text);

/// Appends a number in fixed notation with the given number of decimals: the exact value decides, a tie goes
/// to the even digit, and a negative number keeps its sign where all digits are 0. A negative precision
/// counts as 6.
void appendFixed(std::string& out, double value, int precision);

/// Appends the same number and the character that ends its cell: a tab, a comma, a line feed.
void appendCell(std::string& out, double value, int decimals, char end);

/// Appends the same number with a "0" in front if the rounded text means a number below 10.0, so a negative
/// number has the "0" before its sign.
void appendFixedTwoDigits(std::string& out, double value, int precision);

/// Appends an integer in decimal.
void appendInt(std::string& out, int value);

/// Appends an integer with a "0" in front of a value of at most 9.
void appendTwoDigits(std::string& out, int value);

/// Removes the first point at or after the position, if there is one.
void erasePoint(std::string& out, std::size_t begin);

/// Append a text padded with blanks on its right, or on its left, to the width.
void appendPaddedRight(std::string& out, std::string_view text, std::size_t width);
void appendPaddedLeft(std::string& out, std::string_view text, std::size_t width);

/// A double truncated to an integer: 0 for not-a-number, and the nearest end of the range for a value that
/// does not fit.
int cutToInt(double x);

/// A number rounded to decimals by way of its text.
double roundedTo(double value, int precision);

} // namespace tavelinUtils
