// Characters: those of ASCII, whatever the locale, for all who look into lines.

#pragma once

#include <algorithm>
#include <concepts>
#include <string>
#include <string_view>

namespace companion {

/// Whether a character is one of the ten digits.
constexpr bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

/// Whether a text has digits alone, and at least one.
inline bool areDigits(std::string_view text)
{
    return !text.empty() && std::all_of(text.begin(), text.end(), isDigit);
}

/// A text without the characters at its ends that count as blanks; an empty one stands where the text ends.
template <std::predicate<char> IsBlank>
std::string_view trimmed(std::string_view text, IsBlank isBlank)
{
    while (!text.empty() && isBlank(text.front())) {
        text.remove_prefix(1);
    }
    while (!text.empty() && isBlank(text.back())) {
        text.remove_suffix(1);
    }
    return text;
}

/// A text without the blanks at its ends.
inline std::string_view trimmed(std::string_view text, std::string_view blanks = " ")
{
    return trimmed(text, [blanks](char c) { return blanks.find(c) != blanks.npos; });
}

/// A number's text without the sign in front of it.
inline std::string_view withoutSign(std::string_view text)
{
    return text.substr(text.starts_with('-') || text.starts_with('+') ? 1 : 0);
}

/// A text with the small letters as capital ones.
inline std::string upper(std::string_view text)
{
    std::string result(text);
    std::transform(result.begin(), result.end(), result.begin(),
                   [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; });
    return result;
}

/// A text with the capital letters as small ones.
inline std::string lower(std::string_view text)
{
    std::string result(text);
    std::transform(result.begin(), result.end(), result.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
    return result;
}

} // namespace companion
