// Calendar and MJD: conversions between Modified Julian Date, Julian Date, calendar date and time of day.
//
// The calendar is that of the IAU SOFA routines. Months count from 1. No conversion fails: a year or month
// that the calendar refuses gives 0, and a day outside its month is computed, so that 31 February is 3 March.

#pragma once

#include "../export.h"

#include <chrono>
#include <string>

namespace TAVELIN_API tavelinUtils {

/// A calendar date and a time of day.
struct TDateTime
{
    int year = 0;
    int month = 0;
    int day = 0;
    int hour = 0;
    int minute = 0;
    double seconds = 0;
};

/// MJD to Julian Date, and back.
double MJDtoJD(double mjd);
double JDtoMJD(double jd);

/// The MJD of a calendar date at 0 h; 0 for a year or month that the calendar refuses.
double YMDToMJD(int year, int month, int day);

/// The calendar date of an MJD, whose fraction is dropped. A number that the calendar refuses gives three
/// zeros.
void MJDToYMD(double mjd, int& year, int& month, int& day);

/// Days of a Julian Date since 1899-12-31 00:00:00.
double JDToLazDate(double jd);

/// The MJD of a date and time. No range is tested: hour 24 is the next day.
double DateTimeToMJD(int year, int month, int day, int hour, int minute, double second);
double DateTimeToMJD(const TDateTime& dateTime);

/// The fraction of a day of a time.
double TimeToDay(int hour, int minute, double second);

/// The time of day in the fraction of a day, which may be a whole MJD. Hours are rounded to 12 decimals
/// before they are cut. A fraction within 1e-14 of a whole day gives hour 24.
void DayToTime(double day, int& hour, int& minute, double& second);

/// Date and time of an MJD. The date is that of the unchanged MJD as a Julian Date, so that the last 20
/// microseconds of a day belong to the next; hour 24 does not carry into the date.
void MJDToDateTime(double mjd, int& year, int& month, int& day, int& hour, int& minute, double& second);
TDateTime MJDToDateTime(double mjd);

/// The whole MJD of a date in three texts; text that is no number counts as 0.
int DateToMJD(std::string year, std::string month, std::string day);

/// Seconds since the epoch.
long Now();

/// This moment, and the seconds from one moment to another.
std::chrono::system_clock::time_point GetNow();
double GetDiff(std::chrono::system_clock::time_point begin, std::chrono::system_clock::time_point end);

/// Local date and time of seconds since the epoch; zeros where the system knows none or the year does not
/// fit.
void SysToDateTime(long time, int& year, int& month, int& day, int& hour, int& minute, int& second);

/// Local date and time of this moment, the seconds whole.
void NowToCode(int& year, int& month, int& day, int& hour, int& minute, int& second);
TDateTime NowToCode();

/// The MJD of this moment's local date and time.
double NowToMJD();

} // namespace tavelinUtils
