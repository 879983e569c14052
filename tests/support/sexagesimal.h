// Times of day and angles of a test as they are read aloud.

#pragma once

/// A time of day as a fraction of the day.
inline double day(int hour, int minute, double second)
{
    return (second / 3600.0 + (minute / 60.0 + hour)) / 24.0;
}

/// Degrees, minutes and seconds of arc as degrees.
inline double degrees(double whole, double minute, double second)
{
    return whole + minute / 60.0 + second / 3600.0;
}

/// Hours, minutes and seconds of right ascension as degrees.
inline double hours(double hour, double minute, double second)
{
    return degrees(hour, minute, second) * 15.0;
}
