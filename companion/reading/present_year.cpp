#include "reading/present_year.h"

#include <cstdlib>
#include <ctime>

namespace companion {

int yearOf(const char* epoch)
{
    constexpr int firstYear = 1900;
    const std::time_t seconds = epoch != nullptr ? std::strtoll(epoch, nullptr, 10) : std::time(nullptr);
    std::tm parts{};
    return gmtime_r(&seconds, &parts) != nullptr ? firstYear + parts.tm_year : firstYear;
}

int presentYear()
{
    static const int year = yearOf(std::getenv("SOURCE_DATE_EPOCH"));
    return year;
}

} // namespace companion
