#include "out/axis.h"

#include "out/text.h"
#include "text/number_text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <iterator>

namespace companion {
namespace {

constexpr double secondsOfDay = 86400;

// Decimals that tell multiples of a step apart.
int decimalsOf(double step)
{
    return std::clamp(static_cast<int>(-std::floor(std::log10(step) + 1e-9)), 0, 9);
}

// The multiples of a step in a span.
std::vector<double> multiples(double from, double to, double step)
{
    constexpr std::size_t enough = 30; // a step that is lost in its number would give no end of them
    std::vector<double> values;
    const double slack = step * 1e-6;
    double factor = std::ceil((from - slack) / step);
    while (factor * step <= to + slack && values.size() < enough) {
        values.push_back(factor * step);
        factor += 1.0;
    }
    return values;
}

// Steps of a clock, in seconds.
constexpr double clockSteps[] = {1,   2,   5,    10,   15,   30,    60,    120,  300,
                                 600, 900, 1800, 3600, 7200, 10800, 21600, 43200};

double clockStep(double seconds)
{
    if (seconds <= clockSteps[0]) {
        return std::max(roundAbove(seconds), 0.001);
    }
    // The last for whatever is longer.
    return *std::find_if(std::begin(clockSteps), std::prev(std::end(clockSteps)),
                         [seconds](double each) { return each >= seconds; });
}

// A part of "2010-11-06T04:30:13.824"; a number where the moment is of no calendar.
std::string cutMoment(double mjd, std::size_t from, std::size_t length)
{
    const std::string text = momentText(mjd);
    return text.empty() ? numberText(mjd, 0) : text.substr(from, length);
}

Axis dates(double from, double to)
{
    constexpr int most = 4; // labels are long
    constexpr std::size_t day = 10;
    Axis axis;
    const double step = std::max(1.0, roundAbove((to - from) / most));
    for (const double value : multiples(from, to, step)) {
        axis.ticks.push_back({value, cutMoment(value, 0, day)});
    }
    axis.title = "UTC";
    return axis;
}

Axis clockTimes(double from, double to)
{
    constexpr int most = 5;
    constexpr std::size_t day = 10;
    constexpr std::size_t clock = 11;
    const double midnight = std::floor(from);
    const double step = clockStep((to - from) * secondsOfDay / most);
    const std::size_t length = step >= 60.0 ? 5 : step >= 1.0 ? 8 : 12;
    Axis axis;
    for (const double seconds :
         multiples((from - midnight) * secondsOfDay, (to - midnight) * secondsOfDay, step)) {
        const double value = midnight + seconds / secondsOfDay;
        axis.ticks.push_back({value, cutMoment(value, clock, length)});
    }
    axis.title = "UTC, " + std::string(std::floor(to) > midnight ? "from " : "") + cutMoment(from, 0, day);
    return axis;
}

} // namespace

double roundAbove(double number)
{
    const double power = std::pow(10.0, std::floor(std::log10(number)));
    for (const double digit : {1.0, 2.0, 5.0}) {
        if (number <= digit * power * (1.0 + 1e-9)) {
            return digit * power;
        }
    }
    return 10.0 * power;
}

std::string numberText(double number, int decimals)
{
    constexpr double large = 1e7;
    if (std::abs(number) < large) {
        std::string text = tavelinUtils::Str9(number, decimals);
        const bool isZero = text.find_first_not_of("-0.") == std::string::npos;
        return isZero && text.starts_with('-') ? text.substr(1) : text;
    }
    char text[32];
    const auto end =
        std::to_chars(std::begin(text), std::end(text), number, std::chars_format::scientific, 2);
    return {std::begin(text), end.ptr};
}

std::vector<Tick> numberTicks(double from, double to, int most)
{
    std::vector<Tick> ticks;
    const double span = to - from;
    if (!std::isfinite(span) || span <= 0.0) {
        return ticks;
    }
    const double step = roundAbove(span / most);
    for (const double value : multiples(from, to, step)) {
        ticks.push_back({value, numberText(value, decimalsOf(step))});
    }
    return ticks;
}

Axis timeAxis(double from, double to)
{
    constexpr double twoDays = 2.0;
    return to - from > twoDays ? dates(from, to) : clockTimes(from, to);
}

} // namespace companion
