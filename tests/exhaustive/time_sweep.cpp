#include "exhaustive/binary_number.h"
#include "exhaustive/sexagesimal_text.h"
#include "exhaustive/sweeps.h"
#include "text/date_text.h"
#include "text/written_text.h"

#include <cstdint>
#include <string>

using namespace tavelinUtils;

namespace {

constexpr std::uint64_t daysBefore = 60000; // 2023-02-25
constexpr int milli = 3;                    // decimals of a second

struct TimeOfDay
{
    std::uint64_t hour;
    std::uint64_t minute;
    BinaryNumber seconds;
};

// A fraction of a day, with a guard of 1e-14 of a day, becomes hours of 12 decimals before it is cut.
TimeOfDay splitOf(BinaryNumber fraction)
{
    constexpr std::uint64_t hourDecimals = 1'000'000'000'000;
    const BinaryNumber guard = BinaryNumber::ratio(1, 100'000'000'000'000);
    const BinaryNumber hours =
        BinaryNumber::ratio(fraction.plus(guard).times(24).scaled(hourDecimals), hourDecimals);
    const BinaryNumber minutes = hours.fraction().times(60);
    return {hours.whole(), minutes.whole(), minutes.fraction().times(60)};
}

std::string hourAndMinute(const TimeOfDay& time, const char* separator)
{
    return twoDigits(time.hour) + separator + twoDigits(time.minute) + separator;
}

std::string uncarriedText(const TimeOfDay& time, int decimals)
{
    return hourAndMinute(time, ":") + fixedTwoDigits(time.seconds.scaled(unitOf(decimals)), decimals);
}

// Seconds that round up to 60 make a minute, 60 minutes an hour, and hour 24 is hour 0.
std::string carriedText(TimeOfDay time, int decimals)
{
    std::uint64_t scaled = time.seconds.scaled(unitOf(decimals));
    if (scaled == 60 * unitOf(decimals)) {
        scaled = 0;
        ++time.minute;
    }
    if (time.minute == 60) {
        time.minute = 0;
        ++time.hour;
    }
    time.hour = time.hour == 24 ? 0 : time.hour;
    return hourAndMinute(time, ":") + fixedTwoDigits(scaled, decimals);
}

// The zero in front is that of a value below 10, whatever its text.
std::string secondsByValue(const TimeOfDay& time, int decimals, const char* point)
{
    return (time.seconds.whole() < 10 ? "0" : "") +
           fixedText(time.seconds.scaled(unitOf(decimals)), decimals, point);
}

std::string roundedMeaText(const TimeOfDay& time, int decimals)
{
    return hourAndMinute(time, "") + secondsByValue(time, decimals, "");
}

std::string cutMeaText(const TimeOfDay& time, int decimals)
{
    constexpr int many = 15;
    return hourAndMinute(time, "") +
           secondsByValue(time, many, "").substr(0, static_cast<std::size_t>(decimals) + 2);
}

// A millisecond of the day, and what is found of its texts.
class Millisecond
{
public:
    Millisecond(std::uint64_t itsNumber, Differences& its) : number(itsNumber), differences(its)
    {
    }

    void sweep()
    {
        const BinaryNumber quotient = BinaryNumber::ratio(number, millisecondsOfADay);
        sweepWriters(quotient);
        sweepWholeDays();
        const BinaryNumber read = readTime();
        sweepReaders(read);
        if (read.value() != quotient.value()) {
            sweepWriters(read);
        }
        sweepParts();
    }

private:
    // Hour, minute and seconds as they are said, without a day.
    TimeOfDay exactTime() const
    {
        return {number / 3'600'000, number / 60'000 % 60, BinaryNumber::ratio(number % 60'000, 1000)};
    }

    void sweepWriters(BinaryNumber fraction)
    {
        const TimeOfDay time = splitOf(fraction);
        const double day = fraction.value();
        for (const int decimals : {0, 1, 2, 3, 5}) {
            expect(DayToTime(day, decimals, ":"), carriedText(time, decimals), "DayToTime", decimals);
            expect(DayToTimeMEA(day, decimals, true), roundedMeaText(time, decimals),
                   "DayToTimeMEA, rounded,", decimals);
            expect(DayToTimeMEA(day, decimals, false), cutMeaText(time, decimals), "DayToTimeMEA", decimals);
        }
        const std::string telegram = hourAndMinute(time, ":") + secondsByValue(time, 2, ".");
        expect(DayToTimeTEL(day), telegram, "DayToTimeTEL", 2);
        char written[sexagesimalRoom];
        const char* const end = writeTime(written, day, 5, ':');
        expect({written, end}, carriedText(time, 5), "writeTime", 5);
    }

    // The date is that of the whole days, since the last millisecond is too far from the next.
    void sweepWholeDays()
    {
        const BinaryNumber mjd =
            BinaryNumber::ratio(daysBefore * millisecondsOfADay + number, millisecondsOfADay);
        const TimeOfDay time = splitOf(mjd.fraction());
        for (const int decimals : {0, 3}) {
            expect(MJDToDateTime(mjd.value(), "-", ":", "T", decimals),
                   "2023-02-25T" + uncarriedText(time, decimals), "MJDToDateTime", decimals);
        }
    }

    void sweepParts()
    {
        const TimeOfDay time = exactTime();
        const int hour = static_cast<int>(time.hour);
        const int minute = static_cast<int>(time.minute);
        for (const int decimals : {0, 1, 2, 3, 5}) {
            expect(DayToTime(hour, minute, time.seconds.value(), decimals, ":"), carriedText(time, decimals),
                   "DayToTime, of parts,", decimals);
            expect(DateTimeToStr(2023, 2, 25, hour, minute, time.seconds.value(), "-", ":", "T", decimals),
                   "2023-02-25T" + uncarriedText(time, decimals), "DateTimeToStr", decimals);
        }
    }

    BinaryNumber readTime() const
    {
        const TimeOfDay time = exactTime();
        const BinaryNumber hours =
            BinaryNumber::ratio(time.minute, 60).plus(BinaryNumber::ratio(time.hour, 1));
        return time.seconds.over(3600).plus(hours).over(24);
    }

    void sweepReaders(BinaryNumber read)
    {
        const TimeOfDay time = exactTime();
        const std::string separated = hourAndMinute(time, ":") + fixedTwoDigits(number % 60'000, milli);
        const std::string packed = hourAndMinute(time, "") + fixedTwoDigits(number % 60'000, milli, "");
        expect(TimeToDay(separated, ":"), read.value(), "TimeToDay", milli);
        expect(timeToDay(separated, ':'), read.value(), "timeToDay", milli);
        expect(StrTELToTime(packed), read.value(), "StrTELToTime", milli);
        expect(StrToDateTime("2023-02-25", separated, "-", ":"),
               BinaryNumber::ratio(daysBefore, 1).plus(read).value(), "StrToDateTime", milli);
    }

    void expect(double found, double expected, const char* operation, int decimals)
    {
        differences.expect(found, expected, operation, decimals, number);
    }
    void expect(std::string_view found, std::string_view expected, const char* operation, int decimals)
    {
        differences.expect(found, expected, operation, decimals, number);
    }

    std::uint64_t number;
    Differences& differences;
};

} // namespace

void sweepTimes(const Stretch& stretch, Differences& differences)
{
    for (std::uint64_t number = stretch.begin; number < stretch.end; number += stretch.step) {
        Millisecond(number, differences).sweep();
    }
}
