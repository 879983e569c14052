#include "base/local_time.h"

namespace tavelinUtils {

std::optional<std::tm> localTime(std::time_t moment)
{
    tzset(); // a TZ that was changed counts at once, as for std::localtime
    std::tm local = {};
    if (localtime_r(&moment, &local) == nullptr) {
        return std::nullopt;
    }
    return local;
}

} // namespace tavelinUtils
