// Units: durations, angles and amounts of memory as options take them and messages show them.

#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace companion {

/// The duration of a text: a number of seconds, or a number and one of ms, s, m, h, d: "90", "1.5h". Nothing
/// for any other text, for 0 and for more than 10,000 days.
std::optional<std::chrono::milliseconds> durationOf(std::string_view text);

/// The seconds of a text: a number of seconds, or a number and one of ms, s, m, h, d. Nothing for any other
/// text.
std::optional<double> secondsOf(std::string_view text);

/// The arcseconds of a text: a number of arcseconds, or a number and one of mas, arcsec, arcmin, deg. Nothing
/// for any other text.
std::optional<double> arcsecondsOf(std::string_view text);

/// A duration in the largest unit that gives a whole number: "90 s", "2 h".
std::string durationText(std::chrono::milliseconds duration);

/// The bytes of a text: a number of bytes, or a number and one of K, M, G, T, powers of 1,024: "500M".
/// Nothing for any other text, for 0 and for more than 8 exbibytes.
std::optional<std::uint64_t> memoryOf(std::string_view text);

/// An amount of memory in the largest unit that gives a whole number: "500M".
std::string memoryText(std::uint64_t bytes);

} // namespace companion
