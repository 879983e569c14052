#include "base/local_time.h"

#include <mutex>

namespace tavelinUtils {

std::optional<std::tm> localTime(std::time_t moment)
{
    static std::mutex zone; // to read TZ anew changes what the process knows of its zone
    const std::lock_guard<std::mutex> lock(zone);
    tzset(); // a TZ that was changed counts at once, as for std::localtime
    std::tm local = {};
    if (localtime_r(&moment, &local) == nullptr) {
        return std::nullopt;
    }
    return local;
}

} // namespace tavelinUtils
