// Numbers and small texts: fixed-notation numbers, field widths, trims and replacement.
//
// The writers of formats use appending helpers; these functions call the same helpers, so that there is one
// rule for each text.

#pragma once

#include "../export.h"

#include <cstddef>
#include <ios>
#include <string>
#include <string_view>
#include <vector>

namespace TAVELIN_API tavelinUtils {

/// A number in fixed notation with the given number of decimals, rounded as the standard library rounds: the
/// exact value decides, and a tie goes to the even digit. There is no exponent, precision 0 gives no point,
/// and a negative value keeps its sign even if all digits are 0: -0.001 gives "-0.00". A negative precision
/// counts as 6.
std::string Str9(double value, int precision);

/// A number rounded to decimals by way of its text.
double SetPrecision(double value, int precision);

/// An integer in decimal.
std::string IntToStr(int value);

/// A number with six significant digits, in the shorter of the two notations: 1e-05, 0.0001, 123457.
std::string FloatToStr(double value);

/// "true" or "false".
std::string BoolToStr(bool value);

/// True for exactly "true".
bool StrToBool(std::string text);

/// A value in a field: shorter text is padded with blanks to the width, longer text is kept whole. Only
/// the adjust bits of the flags count, right without any; a double has six decimals.
std::string Format(std::string value, std::ios_base::fmtflags adjust, int width);
std::string Format(int value, std::ios_base::fmtflags adjust, int width);
std::string Format(unsigned long value, std::ios_base::fmtflags adjust, int width);
std::string Format(double value, std::ios_base::fmtflags adjust, int width);

/// Splits a text at each occurrence of the whole separator; empty tokens are kept only if asked for. With an
/// empty separator the text is one token.
std::vector<std::string> split(std::string text, std::string separator, bool keepEmpty);

/// The index of the first name that equals the wanted one; -2 if none does, -1 for an empty list.
int GetDataID(const std::vector<std::string>& names, std::string name);

/// The separator of a line: a tab if that gives more tokens than a blank, otherwise a blank.
std::string GetRazd(std::string line);

/// Replaces until no `from` is left, also where a replacement creates a new one. Equal texts change nothing.
/// With an empty `from`, or a `to` that holds `from`, it never returns.
std::string replace(std::string text, std::string from, std::string to);

/// Remove white space from the front, the end, and both.
void myltrim(std::string& text);
void myrtrim(std::string& text);
void mytrim(std::string& text);

/// Removes every character of the set, wherever it occurs.
void DeleteSymbol(std::string& text, std::string set);

/// Removes the last character of the set, and only that one.
void DeleteLastSymbol(std::string& text, std::string set);

/// A text safe as a file name: each of * | ' / " : > < ? becomes the replacement, which may not hold one
/// of them.
std::string DelForbiddenSymbols(std::string text, std::string replacement);

} // namespace tavelinUtils
