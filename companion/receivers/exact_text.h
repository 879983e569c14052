// Exact text: numbers, angles and moments rounded by their exact value. Ties go to the even digit, and what
// rounds up is carried: no seconds of 60, no hour 24, no last half second of the wrong day.
//
//   exactDecimal(0.25, 1)                                   // "0.2"
//   exactHours(179.9999999, 2, ' ')                         // "12 00 00.00"
//   epochText({60000, 0.99999999999}, 3)                    // "2023-02-26T00:00:00.000"

#pragma once

#include <cstdint>
#include <string>

namespace companion {

/// A number times a positive factor, rounded to a whole number by its exact value; ties go to the even one.
/// The number is finite, the factor below 2^60, and their product below 2^62.
std::int64_t exactTimes(double number, std::int64_t factor);

/// 10 to the power of a number of decimals, 0 to 17.
std::int64_t powerOfTen(int decimals);

/// A whole number of the last decimals as text: 1234 with 2 decimals is "12.34"; without decimals there is no
/// point. The whole part has at least so many digits.
std::string decimalText(std::int64_t units, int decimals, int leastDigits = 1);

/// A number with six decimals, whatever it is, in each locale the same: where it is shown because it is
/// refused.
std::string shownNumber(double number);

/// A number rounded to decimals; one that rounds to 0 has no sign.
std::string exactDecimal(double number, int decimals);

/// A right ascension in degrees as hours, minutes and seconds. It is brought to 0 to 24 h, and what rounds up
/// to 24 h is 0 h.
std::string exactHours(double degrees, int decimals, char separator);

/// A declination as sign, degrees, minutes and seconds. The sign of -0 and of what rounds to it stays.
std::string exactDegrees(double degrees, int decimals, char separator);

/// A right ascension in degrees with decimals, from 0 to below 360.
std::string exactCircle(double degrees, int decimals);

/// A day and the fraction of it, as marks have them. The fraction may lie outside of 0 to 1; one from 1 on,
/// of a day with a leap second, is within that second.
struct DayAndFraction
{
    int day = 0; ///< MJD
    double fraction = 0;
};

/// A moment in whole units of a day.
struct RoundedMoment
{
    int day = 0;
    std::int64_t units = 0; ///< of the day, from 0 to below its number of units

    friend bool operator==(const RoundedMoment& a, const RoundedMoment& b) = default;
    friend bool operator<(const RoundedMoment& a, const RoundedMoment& b)
    {
        return a.day != b.day ? a.day < b.day : a.units < b.units;
    }
};

/// A moment rounded to so many units a day, carried into the day.
RoundedMoment roundedMoment(const DayAndFraction& moment, std::int64_t unitsOfADay);

/// Whether a moment lies in a leap second.
bool isInLeapSecond(const DayAndFraction& moment);

/// The day of an MJD with a separator: "2023-02-25".
std::string dayText(int day, char separator);

/// A moment in UTC, "2023-02-25T12:00:00.000"; in a leap second "2016-12-31T23:59:60.500".
std::string epochText(const DayAndFraction& moment, int decimals);

/// How many decimals of the unit show a step, at least and at most so many: 2 for 0.01, 1 for 0.864. The most
/// for a step of 0.
int decimalsOf(double step, int least, int most);

} // namespace companion
