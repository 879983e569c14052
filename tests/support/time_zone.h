// The time zone of a test.

#pragma once

#include <cstdlib>
#include <ctime>
#include <optional>
#include <string>

/// Puts the process into a time zone until the end of the block.
class TimeZone
{
public:
    explicit TimeZone(const char* zone)
    {
        if (const char* present = std::getenv("TZ")) {
            before = present;
        }
        setenv("TZ", zone, 1);
        tzset();
    }
    ~TimeZone()
    {
        if (before) {
            setenv("TZ", before->c_str(), 1);
        } else {
            unsetenv("TZ");
        }
        tzset();
    }
    TimeZone(const TimeZone&) = delete;
    TimeZone& operator=(const TimeZone&) = delete;

private:
    std::optional<std::string> before;
};
