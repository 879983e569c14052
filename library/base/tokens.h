// Tokens: a text split at its separators.

#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

namespace tavelinUtils {

/// Calls a function with each token of a text, by the rule of Pars9 for a separator of one character.
template <class Use>
void forEachToken(std::string_view text, char separator, Use use)
{
    while (!text.empty()) {
        const std::size_t end = text.find(separator);
        use(text.substr(0, end));
        if (end == std::string_view::npos) {
            return;
        }
        text.remove_prefix(end + 1);
    }
}

/// The same for a separator of any length; an empty one gives none. A longer one is appended even where the
/// text ends in it, which makes one more empty token; where the end of the text and the appended separator
/// together form one, the token ends early.
template <class Use>
void forEachToken(std::string_view text, const std::string& separator, Use use)
{
    if (separator.size() == 1) {
        forEachToken(text, separator.front(), use);
        return;
    }
    if (text.empty() || separator.empty()) {
        return;
    }
    const std::string ended = std::string(text) + separator;
    std::string_view rest = ended;
    for (std::size_t end = rest.find(separator); end != std::string_view::npos; end = rest.find(separator)) {
        use(rest.substr(0, end));
        rest.remove_prefix(end + separator.size());
    }
}

/// How many tokens forEachToken finds.
inline std::size_t countTokens(std::string_view text, char separator)
{
    std::size_t count = 0;
    forEachToken(text, separator, [&count](std::string_view /*token*/) { ++count; });
    return count;
}

/// Calls a function with the position of each separator in a text. Examines eight bytes at a time, which for
/// short fields is several times as fast as one search for each.
template <class Use>
void forEachSeparator(std::string_view text, char separator, Use use)
{
    constexpr std::uint64_t ones = 0x0101010101010101;
    constexpr std::uint64_t lowBits = 0x7f * ones;
    constexpr std::size_t width = sizeof ones;
    const std::uint64_t wanted = ones * static_cast<unsigned char>(separator);
    const auto useThoseIn = [&](std::size_t at, std::size_t seen) {
        std::uint64_t bytes = 0;
        std::memcpy(&bytes, text.data() + at, width);
        bytes ^= wanted;
        // The high bit of each byte that is 0 now, and of no other.
        std::uint64_t found = ~(((bytes & lowBits) + lowBits) | bytes | lowBits);
        for (found = found >> 8 * seen << 8 * seen; found != 0; found &= found - 1) {
            use(at + static_cast<std::size_t>(std::countr_zero(found)) / 8);
        }
    };
    std::size_t at = 0;
    for (; at + width <= text.size(); at += width) {
        useThoseIn(at, 0);
    }
    if (at != 0 && at != text.size()) {
        useThoseIn(text.size() - width, at + width - text.size());
        return;
    }
    for (; at < text.size(); ++at) {
        if (text[at] == separator) {
            use(at);
        }
    }
}

/// Splits a text at a separator as Pars9 splits the text with the separator appended, so that a text that
/// ends in the separator has an empty last part. Keeps as many parts as fit into the array, leaves its other
/// elements as they were, and returns how many parts there are.
template <std::size_t room>
std::size_t cutParts(std::string_view text, char separator, std::array<std::string_view, room>& parts)
{
    std::size_t count = 0;
    std::size_t begin = 0;
    const auto takeUpTo = [&](std::size_t end) {
        if (count < room) {
            parts[count] = {text.data() + begin, end - begin};
        }
        ++count;
        begin = end + 1;
    };
    forEachSeparator(text, separator, takeUpTo);
    takeUpTo(text.size());
    return count;
}

/// The first three parts of a text, by the rule of cutParts; a missing part is empty.
inline std::array<std::string_view, 3> threeParts(std::string_view text, char separator)
{
    std::array<std::string_view, 3> parts;
    cutParts(text, separator, parts);
    return parts;
}

} // namespace tavelinUtils
