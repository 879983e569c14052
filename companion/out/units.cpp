#include "out/units.h"

#include "out/characters.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <iterator>

namespace companion {
namespace {

struct Unit
{
    std::string_view name;
    double size;
};

constexpr Unit durations[] = {{"d", 86'400'000}, {"h", 3'600'000}, {"m", 60'000}, {"s", 1000}, {"ms", 1}};
constexpr Unit angles[] = {{"mas", 0.001}, {"arcsec", 1}, {"arcmin", 60}, {"deg", 3600}};
constexpr Unit amounts[] = {{"T", 0x1p40}, {"G", 0x1p30}, {"M", 0x1p20}, {"K", 0x1p10}};

// A number with a unit at its end, times the size of that unit.
template <std::size_t count>
std::optional<double> valueOf(std::string_view text, const Unit (&units)[count], double otherwise)
{
    double number = 0;
    const auto [end, error] =
        std::from_chars(text.data(), text.data() + text.size(), number, std::chars_format::fixed);
    const std::string_view name = text.substr(static_cast<std::size_t>(end - text.data()));
    const auto* const unit = std::find_if(std::begin(units), std::end(units),
                                          [name](const Unit& each) { return each.name == name; });
    const bool isKnown = name.empty() || unit != std::end(units);
    const bool beginsWithDigit = !text.empty() && isDigit(text[0]); // no sign, no "inf"
    if (error != std::errc() || !isKnown || !beginsWithDigit) {
        return std::nullopt;
    }
    return number * (name.empty() ? otherwise : unit->size);
}

// The number of the largest unit that a value is a whole number of.
template <std::size_t count>
std::string textOf(double value, const Unit (&units)[count], std::string_view gap)
{
    for (const Unit& unit : units) {
        if (std::fmod(value, unit.size) == 0.0) {
            return std::to_string(static_cast<std::uint64_t>(value / unit.size))
                .append(gap)
                .append(unit.name);
        }
    }
    return std::to_string(static_cast<std::uint64_t>(value));
}

} // namespace

std::optional<std::chrono::milliseconds> durationOf(std::string_view text)
{
    constexpr double longest = 10'000 * 86'400'000.0;
    const auto value = valueOf(text, durations, 1000);
    const bool fits = value && *value >= 1 && *value <= longest;
    return fits ? std::optional(std::chrono::milliseconds(std::llround(*value))) : std::nullopt;
}

std::optional<double> secondsOf(std::string_view text)
{
    constexpr double milliseconds = 1000;
    const auto value = valueOf(text, durations, milliseconds);
    return value ? std::optional(*value / milliseconds) : std::nullopt;
}

std::optional<double> arcsecondsOf(std::string_view text)
{
    return valueOf(text, angles, 1);
}

std::string durationText(std::chrono::milliseconds duration)
{
    return textOf(static_cast<double>(duration.count()), durations, " ");
}

std::optional<std::uint64_t> memoryOf(std::string_view text)
{
    const auto value = valueOf(text, amounts, 1);
    const bool fits = value && *value >= 1 && *value < 0x1p63;
    return fits ? std::optional(static_cast<std::uint64_t>(*value)) : std::nullopt;
}

std::string memoryText(std::uint64_t bytes)
{
    return textOf(static_cast<double>(bytes), amounts, "");
}

} // namespace companion
