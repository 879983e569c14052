// Angle text: right ascension and declination as sexagesimal text, and back.
//
// Angles are degrees in the records; right ascension is hours in its texts. A packed text is one of digits
// and a sign, without separators and without a point.

#pragma once

#include "../export.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace TAVELIN_API tavelinUtils {

/// Right ascension in degrees as sexagesimal hours, "01:00:00.00" for 15.0 with precision 2 and ":". Without
/// seconds the text ends at the minutes, cut and not rounded. There is no carry and no wrap: seconds that
/// round up are written as 60, and 360.0 gives hour 24.
std::string RAToStr(double degrees, int precision, std::string separator, bool seconds);

/// Declination in degrees as sexagesimal degrees, by the same rules. A positive one has no sign, so its
/// text is one character shorter than that of a negative one.
std::string DEToStr(double degrees, int precision, std::string separator, bool seconds);

/// Degrees of a right ascension in hours, minutes and seconds; text that is no number counts as 0.
double StrToRA(std::string hours, std::string minutes, std::string seconds);

/// Degrees of a declination in degrees, minutes and seconds; negative where the degrees text begins with
/// "-", so that minus zero keeps its sign.
double StrToDE(std::string degrees, std::string minutes, std::string seconds);

/// Degrees of a right ascension in one text: three parts separated by blanks or colons are hours, minutes
/// and seconds; one part is decimal degrees. Any other number of parts gives -100.0.
double StrRAToDecimal(std::string text);

/// Degrees of a declination in one text: three parts separated by blanks or colons, four separated by
/// points, of which the last, the fraction of the seconds, is lost, or decimal degrees. Two blank- or
/// colon-separated parts, or more than three, give -100.0.
double StrDEToDecimal(std::string text);

/// Degrees of a packed right ascension, HHMMSSsss. Throws std::out_of_range below 6 characters.
double pStrTelegrammaToRA(std::string text);

/// Degrees of a packed declination, sDDMMSSsss. The first three characters are sign and degrees whatever they
/// are, so a text without a sign is read wrongly. Throws std::out_of_range below 7 characters.
double pStrTelegrammaToDE(std::string text);

/// The same conversions as above, of views.
double raOf(std::string_view hours, std::string_view minutes, std::string_view seconds);
double deOf(std::string_view degrees, std::string_view minutes, std::string_view seconds);
double raToDecimal(std::string_view text);
double deToDecimal(std::string_view text);
double packedRA(std::string_view text);
double packedDE(std::string_view text);

/// The seconds at the end of a packed time or angle: the two characters from the position, a point, and
/// everything after them. Throws std::out_of_range where the text ends before the two.
double packedSeconds(std::string_view text, std::size_t position);

} // namespace tavelinUtils
