// Tokens: a text split at its separators.

#pragma once

#include "separator_bits.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <iterator>
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

/// Calls a function with the position of each separator in a text: for short fields this is several times as
/// fast as one search for each.
template <class Use>
void forEachSeparator(std::string_view text, char separator, Use use)
{
    const SeparatorBits bits(separator);
    for (std::size_t begin = 0; begin < text.size(); begin += SeparatorBits::blockLength) {
        const std::size_t length = std::min(SeparatorBits::blockLength, text.size() - begin);
        for (std::uint64_t found = bits.of(text.data() + begin, length); found != 0; found &= found - 1) {
            use(begin + lowestBit(found));
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

/// cutRuns for a text that is longer than a block.
template <std::size_t wanted>
bool cutLongRuns(std::string_view text, char separator, std::array<std::string_view, wanted>& tokens)
{
    std::size_t count = 0;
    std::size_t begin = 0;
    const auto takeUpTo = [&](std::size_t end) {
        if (end > begin) {
            if (count < wanted) {
                tokens[count] = {text.data() + begin, end - begin};
            }
            ++count;
        }
        begin = end + 1;
    };
    forEachSeparator(text, separator, takeUpTo);
    takeUpTo(text.size());
    return count == wanted;
}

/// Cuts a text at a separator, of which several in a row count as one, and those at the ends not at all.
/// Fills the tokens and is true only if there are as many of them.
template <std::size_t wanted>
bool cutRuns(std::string_view text, char separator, std::array<std::string_view, wanted>& tokens)
{
    if (text.size() >= SeparatorBits::blockLength) {
        return cutLongRuns(text, separator, tokens);
    }
    // The text has a separator at least behind it: each token has a begin and an end.
    const std::uint64_t behind = ~std::uint64_t{0} << text.size();
    const std::uint64_t separators = SeparatorBits(separator).of(text.data(), text.size()) | behind;
    const std::uint64_t before = separators << 1 | 1;
    std::uint64_t begins = ~separators & before;
    std::uint64_t ends = separators & ~before;
    for (std::string_view& token : tokens) {
        if (begins == 0) {
            return false;
        }
        const std::size_t begin = lowestBit(begins);
        token = {text.data() + begin, lowestBit(ends) - begin};
        begins &= begins - 1;
        ends &= ends - 1;
    }
    return begins == 0;
}

} // namespace tavelinUtils
