// Progress: how far long work has come, on the stream of messages.
//
// A bar is a line that is written anew at most ten times a second and wiped at the end. The plain style is a
// line each tenth of the work or each half minute, for logs. Work of up to a second shows none.

#pragma once

#include "out/text.h"

#include <chrono>
#include <cstddef>
#include <functional>
#include <string>

namespace companion {

/// Shows the progress of one piece of work.
class Progress
{
public:
    using Clock = std::chrono::steady_clock;

    /// Work of so many steps, "tasks", which begins now.
    Progress(const Console& console, std::string noun, std::size_t total,
             std::function<Clock::time_point()> now = Clock::now);
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    /// So many steps are done. May be called as often as one likes.
    void at(std::size_t done);

    /// Takes the bar off, so that other lines may follow on the same terminal; it comes back with its next
    /// change.
    void wipe();

private:
    void showBar(std::size_t done);
    void showLine(std::size_t done);

    const Console& console;
    std::string noun;
    std::size_t total;
    std::function<Clock::time_point()> now;
    Clock::time_point start;
    Clock::time_point shown;
    std::size_t shownTenths = 0;
    std::size_t shownDone = 0;
    std::size_t barWidth = 0;
};

} // namespace companion
