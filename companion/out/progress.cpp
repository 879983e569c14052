#include "out/progress.h"

#include <algorithm>
#include <ostream>
#include <utility>

#include <sys/ioctl.h>
#include <unistd.h>

namespace companion {
namespace {

using namespace std::chrono_literals;

constexpr auto untilShown = 1s;
constexpr auto betweenBars = 100ms;
constexpr auto betweenLines = 30s;

// The columns of the terminal of the messages.
std::size_t terminalWidth()
{
    constexpr std::size_t usual = 80;
    winsize size = {};
    return ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0 ? size.ws_col : usual;
}

std::string doneText(std::size_t done, std::size_t total, const std::string& noun)
{
    return std::to_string(done) + " of " + counted(total, noun);
}

// A bar and its numbers in so many columns; the numbers alone where there is no room for both.
std::string barText(std::size_t done, std::size_t total, const std::string& noun, std::size_t columns)
{
    constexpr std::size_t longest = 50;
    constexpr std::size_t shortest = 5;
    const std::string numbers = doneText(done, total, noun);
    if (columns < numbers.size() + shortest + 3) {
        return numbers.substr(0, columns);
    }
    const std::size_t width = std::min(longest, columns - numbers.size() - 3);
    const std::size_t filled = width * std::min(done, total) / std::max<std::size_t>(total, 1);
    return '[' + std::string(filled, '#') + std::string(width - filled, ' ') + "] " + numbers;
}

} // namespace

Progress::Progress(const Console& shownOn, std::string unit, std::size_t steps,
                   std::function<Clock::time_point()> clock)
    : console(shownOn), noun(std::move(unit)), total(steps), now(std::move(clock)), start(now()), shown(start)
{
}

Progress::~Progress()
{
    wipe();
}

void Progress::at(std::size_t done)
{
    if (console.look.progress == ProgressStyle::none || now() - start < untilShown) {
        return;
    }
    if (console.look.progress == ProgressStyle::bar) {
        showBar(done);
    } else {
        showLine(done);
    }
}

void Progress::wipe()
{
    if (barWidth > 0) {
        console.err << '\r' << std::string(barWidth, ' ') << '\r' << std::flush;
        barWidth = 0;
    }
}

void Progress::showBar(std::size_t done)
{
    const bool isFirst = shown == start;
    if (!isFirst && (now() - shown < betweenBars || (done == shownDone && barWidth > 0))) {
        return;
    }
    shown = now();
    shownDone = done;
    const std::string bar = barText(done, total, noun, terminalWidth() - 1);
    const std::size_t rest = barWidth - std::min(barWidth, bar.size());
    console.err << '\r' << bar << std::string(rest, ' ') << std::flush;
    barWidth = bar.size();
}

void Progress::showLine(std::size_t done)
{
    const std::size_t tenths = 10 * done / std::max<std::size_t>(total, 1);
    if (tenths > shownTenths || now() - shown >= betweenLines) {
        shown = now();
        shownTenths = tenths;
        console.err << doneText(done, total, noun) << '\n' << std::flush;
    }
}

} // namespace companion
