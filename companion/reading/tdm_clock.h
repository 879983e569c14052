// TDM clock: the times of messages by UTC and the calendar, as the tool's reader takes them.
//
//   meantEpoch("2005-160T20:15:19.5Z", TdmClock::GPS)->text   // 2005-06-09T20:15:06.5

#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace companion {

/// The clocks that a table of leap seconds relates to UTC.
enum class TdmClock
{
    UTC,
    TAI,
    GPS,
    TT
};

/// The clock of the word of TIME_SYSTEM; nothing for any other.
std::optional<TdmClock> tdmClockOf(std::string_view word);

/// A time of a message.
struct MeantEpoch
{
    std::string text{};     ///< the calendar date, T, and the time in UTC
    int day = 0;            ///< whole MJD
    int second = 0;         ///< of the day
    std::string fraction{}; ///< the decimals of the second, without zeros at the end

    friend bool operator==(const MeantEpoch& a, const MeantEpoch& b)
    {
        return a.day == b.day && a.second == b.second && a.fraction == b.fraction;
    }
    friend bool operator<(const MeantEpoch& a, const MeantEpoch& b)
    {
        return a.day != b.day         ? a.day < b.day
               : a.second != b.second ? a.second < b.second
                                      : a.fraction < b.fraction;
    }
};

/// A time by the calendar or the day of the year, perhaps with a Z, in UTC with all its decimals. Hour 24 is
/// the next day, and a leap second stays second 60. A text that is right as it is comes back as it is.
/// Nothing for a text that is no time, and for one of another clock than UTC before 1972, where there are no
/// leap seconds.
std::optional<MeantEpoch> meantEpoch(std::string_view text, TdmClock clock);

} // namespace companion
