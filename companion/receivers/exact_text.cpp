#include "receivers/exact_text.h"

#include "receivers/ades_fields.h"
#include "text/calendar.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <iterator>
#include <limits>

namespace companion {
namespace {

__extension__ using WideInteger = unsigned __int128;

constexpr int mantissaBits = 53;
constexpr int wideBits = 128;
constexpr std::int64_t secondsOfADay = 86400;

// A product of a mantissa and a factor, divided by a power of two.
WideInteger halvedAndRounded(WideInteger product, int halvings)
{
    if (halvings >= wideBits) {
        return 0;
    }
    const WideInteger whole = product >> halvings;
    const WideInteger rest = product - (whole << halvings);
    const WideInteger half = WideInteger{1} << (halvings - 1);
    const bool isUp = rest > half || (rest == half && whole % 2 == 1);
    return whole + (isUp ? 1U : 0U);
}

std::int64_t roundedDown(std::int64_t number, std::int64_t divisor)
{
    return number / divisor - (number % divisor < 0 ? 1 : 0);
}

// Units of a second as hours or degrees, minutes and seconds.
std::string sexagesimal(std::int64_t units, int decimals, char separator)
{
    const std::int64_t minute = 60 * powerOfTen(decimals);
    std::string text = decimalText(units / (60 * minute), 0, 2);
    text += separator;
    text += decimalText(units / minute % 60, 0, 2);
    text += separator;
    return text + decimalText(units % minute, decimals, 2);
}

} // namespace

std::int64_t exactTimes(double number, std::int64_t factor)
{
    int exponent = 0;
    const double fraction = std::frexp(std::abs(number), &exponent);
    const auto mantissa = static_cast<std::uint64_t>(std::ldexp(fraction, mantissaBits));
    const WideInteger product = WideInteger{mantissa} * static_cast<std::uint64_t>(factor);
    const int halvings = mantissaBits - exponent;
    const WideInteger rounded =
        halvings > 0 ? halvedAndRounded(product, halvings) : product << static_cast<unsigned>(-halvings);
    const auto result = static_cast<std::int64_t>(rounded);
    return std::signbit(number) ? -result : result;
}

std::int64_t powerOfTen(int decimals)
{
    std::int64_t power = 1;
    for (int i = 0; i < decimals; ++i) {
        power *= 10;
    }
    return power;
}

std::string decimalText(std::int64_t units, int decimals, int leastDigits)
{
    std::string digits = std::to_string(units < 0 ? -units : units);
    const auto least = static_cast<std::size_t>(leastDigits) + static_cast<std::size_t>(decimals);
    digits.insert(0, digits.size() < least ? least - digits.size() : 0, '0');
    if (decimals > 0) {
        digits.insert(digits.size() - static_cast<std::size_t>(decimals), 1, '.');
    }
    return units < 0 ? '-' + digits : digits;
}

std::string shownNumber(double number)
{
    char room[std::numeric_limits<double>::max_exponent10 + 20];
    const auto [end, error] =
        std::to_chars(std::begin(room), std::end(room), number, std::chars_format::fixed, 6);
    return {room, end};
}

std::string exactDecimal(double number, int decimals)
{
    return decimalText(exactTimes(number, powerOfTen(decimals)), decimals);
}

std::string exactHours(double degrees, int decimals, char separator)
{
    const std::int64_t scale = powerOfTen(decimals);
    const std::int64_t circle = secondsOfADay * scale;
    const std::int64_t units = exactTimes(degrees, secondsOfADay / 360 * scale);
    return sexagesimal(units - roundedDown(units, circle) * circle, decimals, separator);
}

std::string exactDegrees(double degrees, int decimals, char separator)
{
    const std::int64_t units = exactTimes(std::abs(degrees), 3600 * powerOfTen(decimals));
    return (std::signbit(degrees) ? '-' : '+') + sexagesimal(units, decimals, separator);
}

std::string exactCircle(double degrees, int decimals)
{
    const std::int64_t circle = 360 * powerOfTen(decimals);
    const std::int64_t units = exactTimes(degrees, powerOfTen(decimals));
    return decimalText(units - roundedDown(units, circle) * circle, decimals);
}

RoundedMoment roundedMoment(const DayAndFraction& moment, std::int64_t unitsOfADay)
{
    const std::int64_t units = exactTimes(moment.fraction, unitsOfADay);
    const std::int64_t days = roundedDown(units, unitsOfADay);
    return {moment.day + static_cast<int>(days), units - days * unitsOfADay};
}

bool isInLeapSecond(const DayAndFraction& moment)
{
    const std::int64_t seconds = exactTimes(moment.fraction, secondsOfADay * 10);
    if (moment.fraction < 1.0 || seconds > secondsOfADay * 10 + 10) {
        return false;
    }
    const auto days = adesLeapDays();
    return std::find(days.begin(), days.end(), dayText(moment.day, '-')) != days.end();
}

std::string dayText(int day, char separator)
{
    int year = 0;
    int month = 0;
    int dayOfMonth = 0;
    tavelinUtils::MJDToYMD(day, year, month, dayOfMonth);
    std::string text = decimalText(year, 0, 4);
    text += separator;
    text += decimalText(month, 0, 2);
    text += separator;
    return text + decimalText(dayOfMonth, 0, 2);
}

std::string epochText(const DayAndFraction& moment, int decimals)
{
    const std::int64_t day = secondsOfADay * powerOfTen(decimals);
    if (isInLeapSecond(moment)) {
        const std::int64_t units = exactTimes(moment.fraction, day) - day;
        if (units < powerOfTen(decimals)) {
            return dayText(moment.day, '-') +
                   "T23:59:" + decimalText(units + 60 * powerOfTen(decimals), decimals, 2);
        }
        return dayText(moment.day + 1, '-') + 'T' + sexagesimal(0, decimals, ':');
    }
    const RoundedMoment rounded = roundedMoment(moment, day);
    return dayText(rounded.day, '-') + 'T' + sexagesimal(rounded.units, decimals, ':');
}

int decimalsOf(double step, int least, int most)
{
    constexpr double tolerance = 1e-9; // of what a decimal step is as a double
    int decimals = least;
    for (double unit = 1.0 / static_cast<double>(powerOfTen(least));
         decimals < most && unit > step * (1.0 + tolerance); unit /= 10.0)
    {
        ++decimals;
    }
    return decimals;
}

} // namespace companion
