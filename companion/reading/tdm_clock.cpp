#include "reading/tdm_clock.h"

#include "base/numbers.h"
#include "receivers/tdm_keys.h"
#include "text/calendar.h"

#include <erfa.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>

namespace companion {
namespace {

constexpr std::int64_t millisecondsOfDay = 86400000;
constexpr int secondsOfDay = 86400;
constexpr int firstDay = 41317; // 1972-01-01, of the first leap seconds

struct ClockRow
{
    std::string_view word;
    TdmClock clock;
    std::int64_t behindTAI; // milliseconds
};
constexpr ClockRow clocks[] = {
    {"UTC", TdmClock::UTC, 0},
    {"TAI", TdmClock::TAI, 0},
    {"GPS", TdmClock::GPS, 19000},
    {"TT", TdmClock::TT, -32184},
};

// The seconds by which TAI is ahead of UTC on a day since there have been leap seconds.
std::int64_t leapSeconds(int day)
{
    int year = 0;
    int month = 0;
    int dayOfMonth = 0;
    tavelinUtils::MJDToYMD(day, year, month, dayOfMonth);
    double seconds = 0;
    eraDat(year, month, dayOfMonth, 0.0, &seconds); // it refuses dates alone that are none
    return std::lround(seconds);
}

// A time of a message as its numbers.
struct ReadEpoch
{
    int day = 0;
    int second = 0;
    std::string_view fraction{};
    bool isPlain = true; // as the tool's reader takes it
};

bool isMidnightAtEnd(std::string_view time)
{
    constexpr std::string_view midnight = "24:00:00";
    return time.starts_with(midnight) &&
           time.substr(midnight.size()).find_first_not_of(".0") == std::string_view::npos;
}

std::optional<ReadEpoch> readEpoch(std::string_view text)
{
    constexpr std::size_t ofCalendar = 10;
    ReadEpoch epoch;
    if (text.ends_with('Z')) {
        text.remove_suffix(1);
        epoch.isPlain = false;
    }
    const std::size_t middle = std::min(text.find('T'), text.size());
    const std::string_view time = text.substr(std::min(middle + 1, text.size()));
    const bool isNextDay = isMidnightAtEnd(time);
    const std::string looked =
        isNextDay ? std::string(text.substr(0, middle)).append("T00:00:00") : std::string(text);
    if (!faultOfEpoch(looked).empty()) {
        return std::nullopt;
    }
    const TdmMoment moment = tdmMomentOf(looked.substr(0, looked.find('.')));
    epoch.day = moment.day + (isNextDay ? 1 : 0);
    epoch.second = static_cast<int>(moment.seconds);
    const std::size_t point = time.find('.');
    epoch.fraction = point == std::string_view::npos ? std::string_view() : time.substr(point + 1);
    epoch.isPlain = epoch.isPlain && !isNextDay && middle == ofCalendar;
    return epoch;
}

void appendTwo(std::string& text, int number)
{
    text += {static_cast<char>('0' + number / 10), static_cast<char>('0' + number % 10)};
}

std::string dateText(int day)
{
    int year = 0;
    int month = 0;
    int dayOfMonth = 0;
    tavelinUtils::MJDToYMD(day, year, month, dayOfMonth);
    std::string text;
    appendTwo(text, year / 100);
    appendTwo(text, year % 100);
    text += '-';
    appendTwo(text, month);
    text += '-';
    appendTwo(text, dayOfMonth);
    return text;
}

// Seconds of a day from 86400 on are those of its last minute.
std::string epochText(int day, int second, std::string_view fraction)
{
    const int minutes = std::min(second, secondsOfDay - 1) / 60;
    std::string text = dateText(day) + 'T';
    appendTwo(text, minutes / 60);
    text += ':';
    appendTwo(text, minutes % 60);
    text += ':';
    appendTwo(text, second - minutes * 60);
    return fraction.empty() ? text : text.append(".").append(fraction);
}

// The number of a fraction's first three decimals.
int milliseconds(std::string_view fraction)
{
    std::string three(fraction.substr(0, 3));
    three.resize(3, '0');
    return tavelinUtils::toInt(three);
}

std::string withMilliseconds(std::string_view fraction, int number, bool needsThree)
{
    std::string text = std::to_string(1000 + number).substr(1);
    text += fraction.substr(std::min<std::size_t>(3, fraction.size()));
    return needsThree ? text : text.substr(0, fraction.size());
}

// A time of TAI, to the millisecond, as day and milliseconds of that day in UTC: the last day that has begun.
struct UtcTime
{
    int day;
    std::int64_t milliseconds;
};

std::optional<UtcTime> utcOf(int day, std::int64_t millisecondsOfTAI)
{
    for (int candidate = day + 1; candidate >= firstDay; --candidate) {
        const std::int64_t ofDay =
            (day - candidate) * millisecondsOfDay + millisecondsOfTAI - leapSeconds(candidate) * 1000;
        if (ofDay >= 0) {
            return UtcTime{candidate, ofDay};
        }
    }
    return std::nullopt;
}

std::string withoutLastZeros(std::string_view fraction)
{
    return std::string(fraction.substr(0, fraction.find_last_not_of('0') + 1));
}

} // namespace

std::optional<TdmClock> tdmClockOf(std::string_view word)
{
    const auto* const row = std::find_if(std::begin(clocks), std::end(clocks),
                                         [word](const ClockRow& each) { return each.word == word; });
    return row == std::end(clocks) ? std::nullopt : std::optional(row->clock);
}

std::optional<MeantEpoch> meantEpoch(std::string_view text, TdmClock clock)
{
    const std::optional<ReadEpoch> read = readEpoch(text);
    if (!read) {
        return std::nullopt;
    }
    if (clock == TdmClock::UTC) {
        return MeantEpoch{read->isPlain ? std::string(text)
                                        : epochText(read->day, read->second, read->fraction),
                          read->day, read->second, withoutLastZeros(read->fraction)};
    }
    const auto* const row = std::find_if(std::begin(clocks), std::end(clocks),
                                         [clock](const ClockRow& each) { return each.clock == clock; });
    const std::int64_t ofTAI =
        std::int64_t{read->second} * 1000 + milliseconds(read->fraction) + row->behindTAI;
    const std::optional<UtcTime> utc = utcOf(read->day, ofTAI);
    if (!utc) {
        return std::nullopt;
    }
    const auto second = static_cast<int>(utc->milliseconds / 1000);
    const std::string fraction =
        withMilliseconds(read->fraction, static_cast<int>(utc->milliseconds % 1000), clock == TdmClock::TT);
    return MeantEpoch{epochText(utc->day, second, fraction), utc->day, second, withoutLastZeros(fraction)};
}

} // namespace companion
