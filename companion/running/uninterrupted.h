// Uninterrupted: calls of the system that are made again where a signal came first.

#pragma once

#include <cerrno>

namespace companion {

/// Makes a call until no signal interrupts it; gives what the last one gives.
template <class Call>
auto uninterrupted(Call call)
{
    auto result = call();
    while (result < 0 && errno == EINTR) {
        result = call();
    }
    return result;
}

} // namespace companion
