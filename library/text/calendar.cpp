#include "text/calendar.h"

#include "base/numbers.h"
#include "math/scalars.h"
#include "text/number_text.h"

#include <erfa.h>

#include <cmath>
#include <ctime>
#include <limits>
#include <mutex>

namespace tavelinUtils {
namespace {

constexpr double mjdZero = 2400000.5;

} // namespace

double MJDtoJD(double mjd)
{
    return mjd + mjdZero;
}

double JDtoMJD(double jd)
{
    return jd - mjdZero;
}

double YMDToMJD(int year, int month, int day)
{
    double whole = 0;
    double rest = 0;
    const int status = eraCal2jd(year, month, day, &whole, &rest);
    const bool refused = status == -1 || status == -2;
    return refused ? 0 : whole + rest - mjdZero;
}

void MJDToYMD(double mjd, int& year, int& month, int& day)
{
    year = month = day = 0;
    double fraction = 0;
    if (!std::isnan(mjd)) {
        eraJd2cal(mjd + mjdZero, 0.0, &year, &month, &day, &fraction);
    }
}

double JDToLazDate(double jd)
{
    return jd - mjdZero - YMDToMJD(1899, 12, 31);
}

double DateTimeToMJD(int year, int month, int day, int hour, int minute, double second)
{
    return YMDToMJD(year, month, day) + (minute / 60.0 + hour + second / 3600.0) / 24.0;
}

double DateTimeToMJD(const TDateTime& dateTime)
{
    return DateTimeToMJD(dateTime.year, dateTime.month, dateTime.day, dateTime.hour, dateTime.minute,
                         dateTime.seconds);
}

double TimeToDay(int hour, int minute, double second)
{
    return (second / 3600.0 + (minute / 60.0 + hour)) / 24.0;
}

void DayToTime(double day, int& hour, int& minute, double& second)
{
    // The guard and the rounded hours keep 12:00:00 from coming out as 11:59:59.999.
    constexpr double guard = 1e-14;
    const double hours = SetPrecision((tavelinMath::Frac(day) + guard) * 24.0, 12);
    hour = cutToInt(hours);
    const double minutes = (hours - hour) * 60.0;
    minute = cutToInt(minutes);
    second = (minutes - minute) * 60.0;
}

void MJDToDateTime(double mjd, int& year, int& month, int& day, int& hour, int& minute, double& second)
{
    MJDToYMD(mjd, year, month, day);
    DayToTime(mjd, hour, minute, second);
}

TDateTime MJDToDateTime(double mjd)
{
    TDateTime dateTime;
    MJDToDateTime(mjd, dateTime.year, dateTime.month, dateTime.day, dateTime.hour, dateTime.minute,
                  dateTime.seconds);
    return dateTime;
}

int DateToMJD(std::string year, std::string month, std::string day)
{
    return cutToInt(YMDToMJD(toInt(year), toInt(month), toInt(day)));
}

long Now()
{
    return std::time(nullptr);
}

std::chrono::system_clock::time_point GetNow()
{
    return std::chrono::system_clock::now();
}

double GetDiff(std::chrono::system_clock::time_point begin, std::chrono::system_clock::time_point end)
{
    return std::chrono::duration<double>(end - begin).count();
}

void SysToDateTime(long time, int& year, int& month, int& day, int& hour, int& minute, int& second)
{
    year = month = day = hour = minute = second = 0;
    constexpr int firstYear = 1900;
    const std::time_t seconds = time;
    static std::mutex zone; // the C library locks it too, but the thread sanitizer does not see that
    const std::lock_guard<std::mutex> lock(zone);
    std::tm local = {};
    tzset(); // which localtime_r, in memory of the caller's, need not do
    if (localtime_r(&seconds, &local) != nullptr &&
        local.tm_year <= std::numeric_limits<int>::max() - firstYear) {
        year = local.tm_year + firstYear;
        month = local.tm_mon + 1;
        day = local.tm_mday;
        hour = local.tm_hour;
        minute = local.tm_min;
        second = local.tm_sec;
    }
}

void NowToCode(int& year, int& month, int& day, int& hour, int& minute, int& second)
{
    SysToDateTime(Now(), year, month, day, hour, minute, second);
}

TDateTime NowToCode()
{
    TDateTime now;
    int second = 0;
    NowToCode(now.year, now.month, now.day, now.hour, now.minute, second);
    now.seconds = second;
    return now;
}

double NowToMJD()
{
    return DateTimeToMJD(NowToCode());
}

} // namespace tavelinUtils
