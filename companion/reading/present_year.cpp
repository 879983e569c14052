#include "reading/present_year.h"

#include "base/numbers.h"

#include <cstdlib>
#include <ctime>

namespace companion {
namespace {

constexpr int firstYear = 1900;

int yearOfNow()
{
    const char* const given = std::getenv("SOURCE_DATE_EPOCH");
    const std::time_t seconds =
        given != nullptr ? static_cast<std::time_t>(tavelinUtils::toDouble(given)) : std::time(nullptr);
    std::tm parts{};
    return gmtime_r(&seconds, &parts) != nullptr ? firstYear + parts.tm_year : firstYear;
}

} // namespace

int presentYear()
{
    static const int year = yearOfNow();
    return year;
}

} // namespace companion
