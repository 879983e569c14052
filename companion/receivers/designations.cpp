#include "receivers/designations.h"
#include "out/characters.h"

#include <algorithm>
#include <cstddef>

namespace companion {
namespace {

constexpr std::size_t numberWidth = 5;
constexpr std::size_t nameWidth = 7;
constexpr std::string_view base62 = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
constexpr std::string_view halfMonths = "ABCDEFGHJKLMNOPQRSTUVWXY";
constexpr std::string_view orderLetters = "ABCDEFGHJKLMNOPQRSTUVWXYZ";

bool isUpper(char c)
{
    return c >= 'A' && c <= 'Z';
}

bool isLower(char c)
{
    return c >= 'a' && c <= 'z';
}

bool isLetterOrDigit(char c)
{
    return isDigit(c) || isUpper(c) || isLower(c);
}

bool isOneOf(char c, std::string_view these)
{
    return these.find(c) != std::string_view::npos;
}

template <class Is>
bool areAll(std::string_view text, Is is)
{
    return std::all_of(text.begin(), text.end(), is);
}

// I, J or K for 18, 19, 20, and two digits.
bool beginsWithPackedYear(std::string_view text)
{
    return isOneOf(text[0], "IJK") && areDigits(text.substr(1, 2));
}

// A year, a half-month, and an order of two characters: tens in base 62, units.
bool beginsAsProvisional(std::string_view text)
{
    return beginsWithPackedYear(text) && isOneOf(text[3], halfMonths) && isLetterOrDigit(text[4]) &&
           isDigit(text[5]);
}

// The years 2010 to 2035, in one letter.
bool isExtended(std::string_view seven)
{
    return seven[0] == '_' && isOneOf(seven[1], "ABCDEFGHIJKLMNOPQRSTUVWXYZ") &&
           isOneOf(seven[2], halfMonths) && areAll(seven.substr(3), isLetterOrDigit);
}

bool isSurvey(std::string_view seven)
{
    const std::string_view survey = seven.substr(0, 3);
    return (survey == "PLS" || survey == "T1S" || survey == "T2S" || survey == "T3S") &&
           areDigits(seven.substr(3));
}

// A comet's number, or that of a satellite of a planet.
bool isOtherNumber(std::string_view five)
{
    const bool isComet = areDigits(five.substr(0, 4)) && isOneOf(five[4], "PDI");
    const bool isSatellite = isOneOf(five[0], "JSUN") && areDigits(five.substr(1, 3)) && five[4] == 'S';
    return isComet || isSatellite;
}

// One small letter in column 12, or two in 11 and 12.
bool isFragment(std::string_view seven)
{
    const std::string_view letters = trimmed(seven);
    return seven.ends_with(letters) && letters.size() <= 2 && areAll(letters, isLower);
}

// "2024YR4": the letters of the half-month and of the order, and the cycle.
bool isYearAndLetters(std::string_view text)
{
    return text.size() >= 6 && areDigits(text.substr(0, 4)) && isOneOf(text[4], halfMonths) &&
           isOneOf(text[5], orderLetters) && areAll(text.substr(6), isDigit);
}

// "C/2023 A3", "S/2020 J 1".
bool isCometOfYear(std::string_view text)
{
    return text.size() > 5 && isOneOf(text[0], "CPDXIAS") && text[1] == '/' && areDigits(text.substr(2, 4));
}

// "73P", "73P-C", "1P/Halley".
bool isNumberedComet(std::string_view text)
{
    const std::size_t letter = text.find_first_of("PDI");
    if (letter == std::string_view::npos || !areDigits(text.substr(0, letter))) {
        return false;
    }
    const std::string_view rest = text.substr(letter + 1);
    return rest.empty() || rest[0] == '-' || rest[0] == '/';
}

// "433", "203289", "(433)"; and what goes on after a blank: "433 Eros", "2024 YR4", "2040 P-L". Five digits
// are packed as they are.
bool beginsWithNumber(std::string_view text)
{
    if (text.starts_with('(') && text.ends_with(')')) {
        text = text.substr(1, text.size() - 2);
    }
    return areDigits(text.substr(0, text.find(' ')));
}

NameVerdict verdictOnTemporary(std::string_view seven)
{
    const std::string_view name = trimmed(seven);
    if (isUnpackedDesignation(name)) {
        return {NameFault::notPacked, ""};
    }
    if (!areAll(name, isLetterOrDigit)) {
        return {NameFault::notTaken, "has more than letters and digits"};
    }
    if (seven.front() == ' ') {
        return {NameFault::notPlaced,
                "begins in column " + std::to_string(seven.find(name.front()) + numberWidth + 1)};
    }
    return {};
}

NameVerdict verdictBesideNumber(std::string_view seven)
{
    const bool isComet = isPackedComet('C' + std::string(seven));
    if (trimmed(seven).empty() || isPackedProvisional(seven) || isComet || isFragment(seven)) {
        return {};
    }
    return {NameFault::notTaken, "stands beside a permanent number"};
}

} // namespace

std::optional<std::int64_t> packedNumber(std::string_view five)
{
    if (five.size() != numberWidth) {
        return std::nullopt;
    }
    if (five[0] == '~' && areAll(five.substr(1), isLetterOrDigit)) {
        std::int64_t number = 0;
        for (const char c : five.substr(1)) {
            number = number * 62 + static_cast<std::int64_t>(base62.find(c));
        }
        return 620'000 + number;
    }
    if (!isLetterOrDigit(five[0]) || !areDigits(five.substr(1))) {
        return std::nullopt;
    }
    std::int64_t number = static_cast<std::int64_t>(base62.find(five[0]));
    for (const char c : five.substr(1)) {
        number = number * 10 + (c - '0');
    }
    return number == 0 ? std::nullopt : std::optional(number);
}

bool isPackedProvisional(std::string_view seven)
{
    if (seven.size() != nameWidth) {
        return false;
    }
    return isExtended(seven) || isSurvey(seven) ||
           (beginsAsProvisional(seven) && isOneOf(seven[6], orderLetters));
}

bool isPackedComet(std::string_view eight)
{
    if (eight.size() != nameWidth + 1) {
        return false;
    }
    const std::string_view seven = eight.substr(1);
    if (eight[0] == 'S') {
        return beginsWithPackedYear(seven) && isOneOf(seven[3], "MJSUN") && isLetterOrDigit(seven[4]) &&
               isDigit(seven[5]) && seven[6] == '0';
    }
    const bool isComet = beginsAsProvisional(seven) && (seven[6] == '0' || isLower(seven[6]));
    return isOneOf(eight[0], "CPDXIA") && (isComet || isPackedProvisional(seven));
}

bool isUnpackedDesignation(std::string_view text)
{
    return beginsWithNumber(text) || isYearAndLetters(text) || isCometOfYear(text) || isNumberedComet(text);
}

bool isLaunchDesignation(std::string_view text)
{
    const std::size_t dash = text.find('-');
    const std::size_t digits = dash == 4 ? 8 : 5; // 2016-033, 16033
    if (text.size() <= digits || text.size() > digits + 3) {
        return false;
    }
    const bool begins = dash == 4 ? areDigits(text.substr(0, 4)) && areDigits(text.substr(5, 3))
                                  : areDigits(text.substr(0, digits));
    return begins && areAll(text.substr(digits), isUpper);
}

std::string longLaunchDesignation(std::string_view text)
{
    if (!isLaunchDesignation(text) || text[4] == '-') {
        return std::string(text);
    }
    const std::string_view year = text.substr(0, 2);
    return (year < "57" ? "20" : "19") + std::string(year) + '-' + std::string(text.substr(2));
}

bool isNameOfObject(std::string_view name)
{
    return name != "UNKNOWN";
}

NameVerdict verdictOnName(std::string_view twelve)
{
    const std::string_view five = twelve.substr(0, numberWidth);
    const std::string_view seven = twelve.substr(numberWidth);
    const std::string_view name = trimmed(twelve);
    if (name.empty()) {
        return {NameFault::notTaken, "is blank"};
    }
    if (trimmed(five).empty()) {
        return isPackedProvisional(seven) ? NameVerdict{} : verdictOnTemporary(seven);
    }
    if (packedNumber(five) || isOtherNumber(five)) {
        return verdictBesideNumber(seven);
    }
    if (trimmed(five).size() == 1 && isPackedComet(twelve.substr(numberWidth - 1))) {
        return {};
    }
    if (isUnpackedDesignation(name)) {
        return {NameFault::notPacked, ""};
    }
    return {NameFault::notPlaced, "begins in column " + std::to_string(twelve.find(name.front()) + 1)};
}

} // namespace companion
