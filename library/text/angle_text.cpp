#include "text/angle_text.h"

#include "base/numbers.h"
#include "base/text_buffer.h"
#include "base/tokens.h"
#include "text/written_text.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstring>
#include <optional>

namespace tavelinUtils {
namespace {

constexpr double hoursToDegrees = 15.0;
constexpr double notReadable = -100.0;
constexpr std::string_view noSeparator;

struct Sexagesimal
{
    int whole;
    int minutes;
    double seconds;
};

Sexagesimal sexagesimalOf(double value)
{
    const int whole = cutToInt(value);
    const double minutes = (value - whole) * 60.0;
    const int minute = cutToInt(minutes);
    return {whole, minute, (minutes - minute) * 60.0};
}

// Sign, whole part and minutes with the separator, a character or a text, between them.
template <class Separator>
char* writeToMinutes(char* to, bool negative, const Sexagesimal& parts, Separator separator)
{
    *to = '-';
    to = writeTwoDigits(to + (negative ? 1 : 0), parts.whole);
    return writeTwoDigits(writeText(to, separator), parts.minutes);
}

template <class Separator>
char* writeAngle(char* to, bool negative, double magnitude, int precision, Separator separator)
{
    const Sexagesimal parts = sexagesimalOf(magnitude);
    to = writeToMinutes(to, negative, parts, separator);
    return writeFixedTwoDigits(writeText(to, separator), parts.seconds, precision);
}

char* writePacked(char* to, bool negative, double magnitude, int precision)
{
    const Sexagesimal parts = sexagesimalOf(magnitude);
    return writeFixedPacked(writeToMinutes(to, negative, parts, noSeparator), parts.seconds, precision);
}

std::string angleText(bool negative, double magnitude, int precision, std::string_view separator,
                      bool seconds)
{
    TextBuffer text;
    char* const to = text.room(sexagesimalRoom + numberRoom(precision) + 2 * separator.size());
    text.endAt(seconds ? writeAngle(to, negative, magnitude, precision, separator)
                       : writeToMinutes(to, negative, sexagesimalOf(magnitude), separator));
    return text.str();
}

double raFrom(double hours, double minutes, double seconds)
{
    return (hours + minutes / 60.0 + seconds / 3600.0) * hoursToDegrees;
}

double deFrom(bool negative, double degrees, double minutes, double seconds)
{
    const double magnitude = std::abs(degrees) + minutes / 60.0 + seconds / 3600.0;
    return negative ? -magnitude : magnitude;
}

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

// The declination of DD.MM.SS.ss or DD:MM:SS.ss, which may have a sign; nothing where the text has another
// form. After points the fraction of the seconds is not used.
std::optional<double> declinationOfDigits(std::string_view text)
{
    constexpr std::size_t whole = 8;
    const bool negative = text.starts_with('-');
    if (negative || text.starts_with('+')) {
        text.remove_prefix(1);
    }
    auto digits = separatedDigits(text, ':');
    if (!digits && text.size() > whole && text[whole] == '.') {
        const std::string_view fraction = text.substr(whole + 1);
        if (std::all_of(fraction.begin(), fraction.end(), isDigit)) {
            digits = separatedDigits(text.substr(0, whole), '.');
        }
    }
    if (!digits) {
        return std::nullopt;
    }
    return deFrom(negative, digits->whole, digits->minutes, digits->seconds);
}

} // namespace

char* writeRA(char* to, double degrees, int precision, char separator)
{
    return writeAngle(to, degrees < 0.0, std::abs(degrees) / hoursToDegrees, precision, separator);
}

char* writeDE(char* to, double degrees, int precision, char separator)
{
    return writeAngle(to, degrees < 0.0, std::abs(degrees), precision, separator);
}

char* writePackedRA(char* to, double degrees, int precision)
{
    return writePacked(to, degrees < 0.0, std::abs(degrees) / hoursToDegrees, precision);
}

char* writePackedDE(char* to, double degrees, int precision)
{
    return writePacked(to, degrees < 0.0, std::abs(degrees), precision);
}

std::string RAToStr(double degrees, int precision, std::string separator, bool seconds)
{
    return angleText(degrees < 0.0, std::abs(degrees) / hoursToDegrees, precision, separator, seconds);
}

std::string DEToStr(double degrees, int precision, std::string separator, bool seconds)
{
    return angleText(degrees < 0.0, std::abs(degrees), precision, separator, seconds);
}

double raOf(std::string_view hours, std::string_view minutes, std::string_view seconds)
{
    return raFrom(toDouble(hours), toDouble(minutes), toDouble(seconds));
}

double deOf(std::string_view degrees, std::string_view minutes, std::string_view seconds)
{
    return deFrom(degrees.starts_with('-'), toDouble(degrees), toDouble(minutes), toDouble(seconds));
}

double StrToRA(std::string hours, std::string minutes, std::string seconds)
{
    return raOf(hours, minutes, seconds);
}

double StrToDE(std::string degrees, std::string minutes, std::string seconds)
{
    return deOf(degrees, minutes, seconds);
}

double raToDecimal(std::string_view text)
{
    if (const auto digits = separatedDigits(text, ':')) {
        return raFrom(digits->whole, digits->minutes, digits->seconds);
    }
    for (const char separator : {' ', ':'}) {
        std::array<std::string_view, 3> parts;
        const std::size_t count = cutParts(text, separator, parts);
        if (count >= 2) {
            return count == 3 ? raOf(parts[0], parts[1], parts[2]) : notReadable;
        }
    }
    return toDouble(text);
}

double deToDecimal(std::string_view text)
{
    if (const auto angle = declinationOfDigits(text)) {
        return *angle;
    }
    std::array<std::string_view, 3> parts;
    for (const char separator : {' ', ':'}) {
        const std::size_t count = cutParts(text, separator, parts);
        if (count >= 2) {
            return count == 3 ? deOf(parts[0], parts[1], parts[2]) : notReadable;
        }
    }
    if (cutParts(text, '.', parts) == 4) {
        // The fourth part, the fraction of the seconds, is not used.
        return deOf(parts[0], parts[1], parts[2]);
    }
    return toDouble(text);
}

double StrRAToDecimal(std::string text)
{
    return raToDecimal(text);
}

double StrDEToDecimal(std::string text)
{
    return deToDecimal(text);
}

double packedSeconds(std::string_view text, std::size_t position)
{
    const std::string_view fraction = text.substr(position + 2);
    const std::string_view whole = text.substr(position, 2);
    char joined[32];
    if (fraction.size() > sizeof joined - 3) {
        return toDouble(std::string(whole).append(1, '.').append(fraction));
    }
    std::memcpy(joined, whole.data(), 2);
    joined[2] = '.';
    std::memcpy(joined + 3, fraction.data(), fraction.size());
    return toDouble({joined, 3 + fraction.size()});
}

double packedRA(std::string_view text)
{
    if (const auto packed = packedDigits(text)) {
        return raFrom(packed->whole, packed->minutes, packed->seconds);
    }
    const double seconds = packedSeconds(text, 4);
    return raFrom(toDouble(text.substr(0, 2)), toDouble(text.substr(2, 2)), seconds);
}

double packedDE(std::string_view text)
{
    // The first character is a sign, or the first of three digits.
    const bool negative = text.starts_with('-');
    if (negative || (!text.empty() && isDigit(text.front()))) {
        if (const auto packed = packedDigits(text.substr(1))) {
            const int hundreds = negative ? 0 : text.front() - '0';
            return deFrom(negative, hundreds * 100 + packed->whole, packed->minutes, packed->seconds);
        }
    }
    const double seconds = packedSeconds(text, 5);
    return deFrom(negative, toDouble(text.substr(0, 3)), toDouble(text.substr(3, 2)), seconds);
}

double pStrTelegrammaToRA(std::string text)
{
    return packedRA(text);
}

double pStrTelegrammaToDE(std::string text)
{
    return packedDE(text);
}

} // namespace tavelinUtils
