#include "receivers/designation_forms.h"

#include "base/numbers.h"
#include "out/characters.h"
#include "receivers/designations.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <regex>

namespace companion {
namespace {

constexpr std::string_view base62 = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
constexpr std::string_view orderLetters = "ABCDEFGHJKLMNOPQRSTUVWXYZ"; // in their order
constexpr std::size_t numberWidth = 5;
constexpr std::size_t nameWidth = 7;

// Planets by the letter that their satellites have.
struct Planet
{
    char letter;
    std::string_view name;
};
constexpr Planet planets[] = {{'J', "Jupiter"}, {'S', "Saturn"}, {'U', "Uranus"}, {'N', "Neptune"}};

// Surveys by their three packed letters.
struct Survey
{
    std::string_view packed;
    std::string_view name;
};
constexpr Survey surveys[] = {{"PLS", "P-L"}, {"T1S", "T-1"}, {"T2S", "T-2"}, {"T3S", "T-3"}};

constexpr int firstExtendedCycle = 620;
constexpr int firstExtended = firstExtendedCycle * 25;
constexpr int mostExtended = 62 * 62 * 62 * 62;

std::string padded(std::int64_t number, std::size_t width)
{
    const std::string digits = std::to_string(number);
    return std::string(width - std::min(width, digits.size()), '0') + digits;
}

int numberOf(const std::string& digits)
{
    return digits.empty() ? 0 : tavelinUtils::toInt(digits);
}

// Four digits in base 62.
std::string inBase62(std::int64_t number)
{
    std::string text(4, '0');
    for (std::size_t i = text.size(); i-- > 0; number /= 62) {
        text[i] = base62[static_cast<std::size_t>(number % 62)];
    }
    return text;
}

std::int64_t fromBase62(std::string_view text)
{
    std::int64_t number = 0;
    for (const char c : text) {
        number = number * 62 + static_cast<std::int64_t>(base62.find(c));
    }
    return number;
}

// Tens in base 62 and units.
std::optional<std::string> packedOrder(int number)
{
    if (number >= firstExtendedCycle) {
        return std::nullopt;
    }
    return std::string{base62[static_cast<std::size_t>(number / 10)], static_cast<char>('0' + number % 10)};
}

int unpackedOrder(std::string_view two)
{
    return static_cast<int>(base62.find(two[0])) * 10 + (two[1] - '0');
}

// The letter of the century and two digits.
std::optional<std::string> packedYear(int year)
{
    if (year < 1800 || year > 2099) {
        return std::nullopt;
    }
    return "IJK"[year / 100 - 18] + padded(year % 100, 2);
}

std::string unpackedYear(std::string_view three)
{
    return std::to_string(18 + static_cast<int>(std::string_view("IJK").find(three[0]))) +
           std::string(three.substr(1, 2));
}

std::optional<std::string> packedNumberOf(std::int64_t number)
{
    constexpr std::int64_t firstOfLetters = 100'000;
    constexpr std::int64_t firstOfTilde = 620'000;
    if (number < 1 || number >= firstOfTilde + mostExtended) {
        return std::nullopt;
    }
    if (number < firstOfLetters) {
        return padded(number, numberWidth);
    }
    if (number < firstOfTilde) {
        return base62[static_cast<std::size_t>(number / 10'000)] + padded(number % 10'000, 4);
    }
    return '~' + inBase62(number - firstOfTilde);
}

// "2024 YR4": seven characters.
std::optional<std::string> packedMinorPlanet(int year, char halfMonth, char order, int cycle)
{
    if (cycle < firstExtendedCycle) {
        const auto packed = packedYear(year);
        return packed ? std::optional(*packed + halfMonth + *packedOrder(cycle) + order) : std::nullopt;
    }
    const std::int64_t place =
        std::int64_t{25} * cycle + static_cast<std::int64_t>(orderLetters.find(order)) - firstExtended;
    if (year < 2010 || year > 2035 || place >= mostExtended) {
        return std::nullopt;
    }
    return std::string{'_', base62[static_cast<std::size_t>(year - 2000)], halfMonth} + inBase62(place);
}

std::string unpackedMinorPlanet(std::string_view seven)
{
    for (const Survey& survey : surveys) {
        if (seven.substr(0, 3) == survey.packed) {
            return std::string(seven.substr(3)) + ' ' + std::string(survey.name);
        }
    }
    int cycle = unpackedOrder(seven.substr(4, 2));
    std::string year = "0000";
    char order = seven[6];
    if (seven[0] == '_') {
        const std::int64_t place = fromBase62(seven.substr(3)) + firstExtended;
        year = std::to_string(2000 + static_cast<int>(base62.find(seven[1])));
        order = orderLetters[static_cast<std::size_t>(place % 25)];
        cycle = static_cast<int>(place / 25);
    } else {
        year = unpackedYear(seven);
    }
    const char halfMonth = seven[0] == '_' ? seven[2] : seven[3];
    return year + ' ' + halfMonth + order + (cycle == 0 ? "" : std::to_string(cycle));
}

// Eight characters: the kind of a comet, or S of a satellite, and the designation.
std::string unpackedComet(std::string_view eight)
{
    const std::string_view seven = eight.substr(1);
    std::string text{eight[0], '/'};
    if (isPackedProvisional(seven)) {
        return text + unpackedMinorPlanet(seven);
    }
    const std::string order = std::to_string(unpackedOrder(seven.substr(4, 2)));
    text += unpackedYear(seven) + ' ' + seven[3];
    if (eight[0] == 'S') {
        return text + ' ' + order;
    }
    text += order;
    return seven[6] == '0' ? text : text + '-' + static_cast<char>(seven[6] - 'a' + 'A');
}

std::string unpackedNumber(std::string_view five)
{
    if (const auto number = packedNumber(five)) {
        return std::to_string(*number);
    }
    for (const Planet& planet : planets) {
        if (five[0] == planet.letter) {
            return std::string(planet.name) + ' ' + std::to_string(numberOf(std::string(five.substr(1, 3))));
        }
    }
    return std::to_string(numberOf(std::string(five.substr(0, 4)))) + five[4];
}

// The packed forms. Blanks of a record's columns may be gone.
std::optional<Designation> ofPackedName(const std::string& name)
{
    static const std::regex numbered(R"(((?:\d{4}[PDI])|(?:[JSUN]\d{3}S))\s*([a-z]{0,2}))");
    std::smatch parts;
    if (packedNumber(name)) {
        return Designation{unpackedNumber(name), ""};
    }
    if (std::regex_match(name, parts, numbered)) {
        const std::string fragment = upper(parts[2].str());
        return Designation{unpackedNumber(parts[1].str()) + (fragment.empty() ? "" : '-' + fragment), ""};
    }
    if (isPackedProvisional(name)) {
        return Designation{"", unpackedMinorPlanet(name)};
    }
    if (isPackedComet(name)) {
        return Designation{"", unpackedComet(name)};
    }
    const bool isBoth = name.size() == numberWidth + nameWidth && packedNumber(name.substr(0, numberWidth)) &&
                        isPackedProvisional(name.substr(numberWidth));
    if (isBoth) {
        return Designation{unpackedNumber(name.substr(0, numberWidth)),
                           unpackedMinorPlanet(name.substr(numberWidth))};
    }
    return std::nullopt;
}

// "433", "(433)", "433 Eros", "73P", "73P-C", "1P/Halley", "Jupiter 13".
std::optional<Designation> ofNumber(const std::string& name)
{
    static const std::regex minorPlanet(R"(\(0*([1-9]\d*)\)(?: [^\d].*)?|0*([1-9]\d*)(?: [A-Z][a-z].*)?)");
    static const std::regex comet( // "2040P-L" is of the Palomar-Leiden survey
        R"((?!\d{4}P-L$)0*([1-9]\d{0,3}[PDI])(-[A-Z]{1,2})?(?:/[A-Z].*)?)");
    static const std::regex satellite(R"((Jupiter|Saturn|Uranus|Neptune) ?0*([1-9]\d{0,2}))");
    std::smatch parts;
    if (std::regex_match(name, parts, minorPlanet)) {
        return Designation{parts[1].matched ? parts[1].str() : parts[2].str(), ""};
    }
    if (std::regex_match(name, parts, comet)) {
        return Designation{parts[1].str() + parts[2].str(), ""};
    }
    if (std::regex_match(name, parts, satellite)) {
        return Designation{parts[1].str() + ' ' + parts[2].str(), ""};
    }
    return std::nullopt;
}

// "2024 YR4", "2040 P-L", "A904 OA", "C/2023 A3", "P/1998 QP54", "S/2020 J 1".
std::optional<Designation> ofProvisional(const std::string& name)
{
    static const std::regex minorPlanet(R"(([12A]\d{3}) ?([A-HJ-Y][A-HJ-Z])0*(\d{0,6}))");
    static const std::regex survey(R"((\d{4}) ?(P-L|T-[123]))");
    static const std::regex comet(
        R"(([CPDXIA])/(\d{4}) ?([A-HJ-Y][A-HJ-Z]?)0*(\d{0,6})(-[A-Z]{1,2})?(?: ?\(.*\))?)");
    static const std::regex satellite(R"(S/(\d{4}) ?([JSUN]) ?0*([1-9]\d{0,2}))");
    std::smatch parts;
    if (std::regex_match(name, parts, minorPlanet)) {
        std::string year = parts[1];
        year[0] = year[0] == 'A' ? '1' : year[0];
        return Designation{"", year + ' ' + parts[2].str() + parts[3].str()};
    }
    if (std::regex_match(name, parts, survey)) {
        return Designation{"", parts[1].str() + ' ' + parts[2].str()};
    }
    if (std::regex_match(name, parts, comet)) {
        return Designation{"", parts[1].str() + '/' + parts[2].str() + ' ' + parts[3].str() + parts[4].str() +
                                   parts[5].str()};
    }
    if (std::regex_match(name, parts, satellite)) {
        return Designation{"", "S/" + parts[1].str() + ' ' + parts[2].str() + ' ' + parts[3].str()};
    }
    return std::nullopt;
}

// The columns of a number: five, or twelve for a fragment of a comet.
std::optional<std::string> columnsOfNumber(const std::string& number)
{
    static const std::regex comet(R"((\d+)([PDI])(?:-([A-Z]{1,2}))?)");
    std::smatch parts;
    if (std::regex_match(number, parts, comet)) {
        const std::string five = padded(numberOf(parts[1]), 4) + parts[2].str();
        const std::string fragment = lower(parts[3].str());
        return fragment.empty() ? five : five + std::string(nameWidth - fragment.size(), ' ') + fragment;
    }
    for (const Planet& planet : planets) {
        if (number.starts_with(planet.name)) {
            return planet.letter + padded(numberOf(number.substr(planet.name.size() + 1)), 3) + 'S';
        }
    }
    constexpr std::size_t mostDigits = 8;
    return number.size() > mostDigits ? std::nullopt : packedNumberOf(numberOf(number));
}

// Eight characters, the kind of a comet in front, blank for a minor planet.
std::optional<std::string> columnsOfComet(const std::smatch& parts)
{
    const auto year = packedYear(numberOf(parts[2]));
    const std::string letters = parts[3];
    const std::string fragment = lower(parts[5].matched ? parts[5].str().substr(1) : "");
    if (letters.size() == 2) {
        const auto seven = packedMinorPlanet(numberOf(parts[2]), letters[0], letters[1], numberOf(parts[4]));
        return seven && fragment.empty() ? std::optional(parts[1].str() + *seven) : std::nullopt;
    }
    const auto order = packedOrder(numberOf(parts[4]));
    if (!year || !order || fragment.size() > 1) {
        return std::nullopt;
    }
    return parts[1].str() + *year + letters + *order + (fragment.empty() ? "0" : fragment);
}

std::optional<std::string> columnsOfProvisional(const std::string& text)
{
    static const std::regex minorPlanet(R"((\d{4}) ([A-Z])([A-Z])(\d*))");
    static const std::regex comet(R"(([CPDXIA])/(\d{4}) ([A-Z]{1,2})(\d*)(-[A-Z]{1,2})?)");
    static const std::regex satellite(R"(S/(\d{4}) ([A-Z]) (\d+))");
    std::smatch parts;
    for (const Survey& survey : surveys) {
        if (text.ends_with(' ' + std::string(survey.name))) {
            return ' ' + std::string(survey.packed) + text.substr(0, 4);
        }
    }
    if (std::regex_match(text, parts, minorPlanet)) {
        const auto seven =
            packedMinorPlanet(numberOf(parts[1]), parts[2].str()[0], parts[3].str()[0], numberOf(parts[4]));
        return seven ? std::optional(' ' + *seven) : std::nullopt;
    }
    if (std::regex_match(text, parts, comet)) {
        return columnsOfComet(parts);
    }
    if (std::regex_match(text, parts, satellite)) {
        const auto year = packedYear(numberOf(parts[1]));
        const auto order = packedOrder(numberOf(parts[3]));
        return year && order ? std::optional('S' + *year + parts[2].str() + *order + '0') : std::nullopt;
    }
    return std::nullopt;
}

} // namespace

std::optional<Designation> designationOf(std::string_view name)
{
    constexpr std::size_t longest = 100; // with the name of a discoverer
    if (name.size() > longest) {
        return std::nullopt;
    }
    const std::string text(name);
    if (auto packed = ofPackedName(text)) {
        return packed;
    }
    if (auto number = ofNumber(text)) {
        return number;
    }
    return ofProvisional(text);
}

std::optional<std::string> packedColumns(const Designation& designation)
{
    constexpr std::size_t width = numberWidth + nameWidth;
    const auto number =
        designation.number.empty() ? std::optional<std::string>("") : columnsOfNumber(designation.number);
    const auto eight = designation.provisional.empty() ? std::optional<std::string>("")
                                                       : columnsOfProvisional(designation.provisional);
    if (!number || !eight) {
        return std::nullopt;
    }
    if (eight->empty()) {
        return *number + std::string(width - number->size(), ' ');
    }
    return number->empty() ? std::string(numberWidth - 1, ' ') + *eight : *number + eight->substr(1);
}

bool isTemporaryName(std::string_view name)
{
    const auto isLetter = [](char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); };
    const auto isTaken = [isLetter](char c) { return isLetter(c) || isDigit(c); };
    return !name.empty() && name.size() <= nameWidth && isLetter(name[0]) &&
           std::all_of(name.begin(), name.end(), isTaken);
}

} // namespace companion
