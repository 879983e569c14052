#include "base/numbers.h"

#include "base/digits.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <string>

namespace tavelinUtils {
namespace {

__extension__ using WideInteger = unsigned __int128;

constexpr std::string_view whiteSpace = " \t\n\v\f\r";

// Integers up to this one are exact in a double, and so are the powers of ten: their quotient is rounded once
// and is therefore the number that the digits mean.
constexpr std::uint64_t exactInteger = std::uint64_t{1} << 53;

// A product divided by a power of two, rounded to the nearest integer with ties to even; notScaled if the
// result does not fit 64 bits. The product has fewer than 53 + 64 bits, so a larger shift leaves less than a
// half.
std::uint64_t shiftedToEven(WideInteger product, int shift)
{
    if (shift > 117) {
        return 0;
    }
    const WideInteger quotient = product >> shift;
    if (quotient >= notScaled) {
        return notScaled;
    }
    const WideInteger rest = product - (quotient << shift);
    const WideInteger half = WideInteger{1} << (shift - 1);
    const auto whole = static_cast<std::uint64_t>(quotient);
    const bool up = rest > half || (rest == half && (whole & 1) != 0);
    return whole + (up ? 1 : 0);
}

// For what integer arithmetic cannot hold: many decimals, large numbers, infinities.
void appendFixedAtLength(TextBuffer& out, double value, int precision)
{
    constexpr std::size_t longestWhole = std::numeric_limits<double>::max_exponent10 + 3;
    const std::size_t most = longestWhole + static_cast<std::size_t>(precision) + 1;
    char* const to = out.room(most);
    out.endAt(std::to_chars(to, to + most, value, std::chars_format::fixed, precision).ptr);
}

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

// Whether the number in a text of fixed notation is below 10.0.
bool isBelowTen(std::string_view number)
{
    if (number.front() == '-') {
        return number != "-nan";
    }
    return isDigit(number.front()) && (number.size() == 1 || !isDigit(number[1]));
}

constexpr std::uint64_t eachByte = 0x0101010101010101;

// Whether eight characters are digits: neither they nor 6 more than they leave the range from 0x30 to 0x3f.
bool areDigits(std::uint64_t characters)
{
    constexpr std::uint64_t highHalves = 0xf0 * eachByte;
    return (characters & highHalves) == '0' * eachByte &&
           ((characters + 6 * eachByte) & highHalves) == '0' * eachByte;
}

bool eightDigits(const char* text)
{
    std::uint64_t characters = 0;
    std::memcpy(&characters, text, sizeof characters);
    return areDigits(characters);
}

// The number that eight digits mean, the first of which is in the lowest byte: pairs become numbers up to 99,
// then pairs of these, then the whole.
std::uint64_t numberOfDigits(std::uint64_t digits)
{
    constexpr std::uint64_t highest = 0xff;
    digits = (digits & 0x0f * eachByte) * ((10 << 8) + 1) >> 8;
    digits = (digits & (highest << 48 | highest << 32 | highest << 16 | highest)) * ((100 << 16) + 1) >> 16;
    return (digits & 0x0000ffff0000ffff) * ((std::uint64_t{10000} << 32) + 1) >> 32;
}

// Whether eight characters are three pairs of digits with the separator between them. Exclusive or makes
// digits 0 to 9 of digits and 0 of a separator; more leaves the range up to 15 when the rest to it is added.
bool isSeparated(const char* text, char separator)
{
    constexpr std::uint64_t highHalves = 0xf0f0f0f0f0f0f0f0;
    constexpr char rest[] = {6, 6, 15, 6, 6, 15, 6, 6};
    const char form[] = {'0', '0', separator, '0', '0', separator, '0', '0'};
    const auto numberOf = [](const char* eight) {
        std::uint64_t bytes = 0;
        std::memcpy(&bytes, eight, sizeof bytes);
        return bytes;
    };
    const std::uint64_t differences = numberOf(text) ^ numberOf(form);
    return (differences & highHalves) == 0 && ((differences + numberOf(rest)) & highHalves) == 0;
}

// The number of two digits.
int pairAt(std::string_view text, std::size_t place)
{
    return (text[place] - '0') * 10 + (text[place + 1] - '0');
}

// Appends digits to a number; false where the text holds anything else.
bool appendDigits(std::uint64_t& number, std::string_view digits)
{
    for (const char c : digits) {
        if (!isDigit(c)) {
            return false;
        }
        number = number * 10 + static_cast<std::uint64_t>(c - '0');
    }
    return true;
}

std::string_view withoutLeadingSpace(std::string_view text)
{
    return text.substr(std::min(text.find_first_not_of(whiteSpace), text.size()));
}

// The digits of a number in fixed notation. isWhole: they are all of the number, and exact.
struct PlainNumber
{
    std::uint64_t digits = 0;
    std::ptrdiff_t decimals = 0;
    bool negative = false;
    bool isWhole = false;
};

// How many characters are before the first point; 8 where none of the first eight is one.
int placeOfPoint(std::uint64_t characters)
{
    constexpr std::uint64_t lowBits = 0x7f * eachByte;
    const std::uint64_t others = characters ^ '.' * eachByte;
    const std::uint64_t points = ~(((others & lowBits) + lowBits) | others | lowBits);
    return std::countr_zero(points) / 8;
}

// The first and the last eight characters of a text, the first of each in its lowest byte. A shorter text, of
// at least four, has zeros behind it or in front of it.
struct EndsOfText
{
    std::uint64_t front;
    std::uint64_t back;
};

EndsOfText endsOf(std::string_view text)
{
    const auto load = [text]<class Word>(std::size_t place, Word word) {
        std::memcpy(&word, text.data() + place, sizeof word);
        return std::uint64_t{word};
    };
    const std::size_t size = text.size();
    if (size >= 8) {
        return {load(0, std::uint64_t{}), load(size - 8, std::uint64_t{})};
    }
    const std::uint64_t all = load(0, std::uint32_t{}) | load(size - 4, std::uint32_t{}) << 8 * (size - 4);
    return {all, all << 8 * (8 - size)};
}

// Reads a text of one to seven digits, a point, and one to eight digits. False for other texts.
bool readPacked(std::string_view text, PlainNumber& number)
{
    constexpr std::uint64_t zeros = '0' * eachByte;
    if (text.size() < 4 || text.size() > 16) {
        return false;
    }
    const EndsOfText ends = endsOf(text);
    const int whole = placeOfPoint(ends.front);
    const int decimals = static_cast<int>(text.size()) - 1 - whole;
    if (whole == 0 || whole == 8 || decimals < 1 || decimals > 8) {
        return false;
    }
    const std::uint64_t wholeDigits = ends.front << 8 * (8 - whole) | zeros >> 8 * whole;
    const std::uint64_t notDecimals = (std::uint64_t{1} << 8 * (8 - decimals)) - 1;
    const std::uint64_t decimalDigits = (ends.back & ~notDecimals) | (zeros & notDecimals);
    if (!areDigits(wholeDigits) || !areDigits(decimalDigits)) {
        return false;
    }
    number.digits = numberOfDigits(wholeDigits) * powersOfTen[static_cast<std::size_t>(decimals)] +
                    numberOfDigits(decimalDigits);
    number.decimals = decimals;
    number.isWhole = true;
    return true;
}

// Too many digits wrap around here; such a number is not whole.
void readDigits(const char* at, const char* end, PlainNumber& number)
{
    const auto readRun = [&number, &at, end] {
        const char* const begin = at;
        for (; at != end && isDigit(*at); ++at) {
            number.digits = number.digits * 10 + static_cast<std::uint64_t>(*at - '0');
        }
        return at - begin;
    };
    std::ptrdiff_t count = readRun();
    if (at != end && *at == '.') {
        ++at;
        number.decimals = readRun();
        count += number.decimals;
    }
    const bool goesOn = at != end && std::strchr("eExX", *at) != nullptr;
    number.isWhole = count > 0 && count <= 18 && number.digits <= exactInteger && !goesOn;
}

PlainNumber plainNumber(std::string_view text)
{
    PlainNumber number;
    number.negative = text.front() == '-';
    if (number.negative || text.front() == '+') {
        text.remove_prefix(1);
    }
    if (!readPacked(text, number)) {
        readDigits(text.data(), text.data() + text.size(), number);
    }
    return number;
}

// The C library's conversion, which needs a zero byte after the text.
double readByLibrary(std::string_view text)
{
    char shortText[64];
    if (text.size() < sizeof shortText) {
        std::memcpy(shortText, text.data(), text.size());
        shortText[text.size()] = '\0';
        return std::strtod(shortText, nullptr);
    }
    return std::strtod(std::string(text).c_str(), nullptr);
}

} // namespace

std::uint64_t exactScaledMagnitude(double value, int precision)
{
    constexpr int mantissaBits = 52;
    constexpr int exponentBias = 1075;
    const auto bits = std::bit_cast<std::uint64_t>(value);
    const auto exponent = static_cast<int>(bits >> mantissaBits & 0x7ff);
    const int shift = exponentBias - std::max(exponent, 1);
    if (precision < 0 || precision > largestDecimals || shift <= 0) {
        return notScaled;
    }
    std::uint64_t mantissa = bits & ((std::uint64_t{1} << mantissaBits) - 1);
    if (exponent != 0) {
        mantissa |= std::uint64_t{1} << mantissaBits;
    }
    return shiftedToEven(WideInteger{mantissa} * powersOfTen[static_cast<std::size_t>(precision)], shift);
}

void appendFixed(TextBuffer& out, double value, int precision)
{
    const std::uint64_t scaled = scaledMagnitude(value, precision);
    if (scaled == notScaled) {
        appendFixedAtLength(out, value, precision < 0 ? 6 : precision);
        return;
    }
    char* to = out.room(scaledLength);
    if (std::signbit(value)) {
        *to++ = '-';
    }
    out.endAt(writeScaled(to, std::abs(value), scaled, precision));
}

void appendCell(TextBuffer& out, double value, int decimals, char end)
{
    appendFixed(out, value, decimals);
    out += end;
}

void appendOddTwoDigits(TextBuffer& out, double value, int precision)
{
    TextBuffer number;
    appendFixed(number, value, precision);
    out += isBelowTen(number.view()) ? "0" : "";
    out += number.view();
}

void appendOddPacked(TextBuffer& out, double value, int precision)
{
    const std::size_t begin = out.size();
    appendFixedTwoDigits(out, value, precision);
    erasePoint(out, begin);
}

void appendPackedByValue(TextBuffer& out, double value, int precision)
{
    const bool below = value < 10.0;
    const std::uint64_t scaled = scaledMagnitude(value, precision);
    if (scaled == notScaled || std::signbit(value)) {
        out += below ? "0" : "";
        const std::size_t begin = out.size();
        appendFixed(out, value, precision);
        erasePoint(out, begin);
        return;
    }
    char* const to = out.room(scaledLength);
    const int digits = std::max(countDigits(scaled), precision + 1);
    out.endAt(writeDigits(to, scaled, below ? digits + 1 : digits));
}

void appendInt(TextBuffer& out, int value)
{
    char* to = out.room(scaledLength);
    auto magnitude = static_cast<std::uint32_t>(value);
    if (value < 0) {
        *to++ = '-';
        magnitude = 0 - magnitude;
    }
    out.endAt(writeWhole(to, magnitude));
}

void appendOddTwoDigits(TextBuffer& out, int value)
{
    if (value < 0) {
        out += '0';
    }
    appendInt(out, value);
}

void erasePoint(TextBuffer& out, std::size_t begin)
{
    const std::size_t point = out.view().find('.', begin);
    if (point != std::string_view::npos) {
        out.erase(point, 1);
    }
}

void appendPaddedRight(TextBuffer& out, std::string_view text, std::size_t width)
{
    out += text;
    out.append(width - std::min(width, text.size()), ' ');
}

void appendPaddedLeft(TextBuffer& out, std::string_view text, std::size_t width)
{
    out.append(width - std::min(width, text.size()), ' ');
    out += text;
}

std::optional<SexagesimalDigits> packedDigits(std::string_view text)
{
    constexpr std::size_t paired = 8;
    constexpr std::size_t mostFurther = 8;
    if (text.size() < paired || text.size() > paired + mostFurther || !eightDigits(text.data())) {
        return std::nullopt;
    }
    const int hundredths = pairAt(text, 4) * 100 + pairAt(text, 6);
    auto seconds = static_cast<std::uint64_t>(hundredths);
    if (!appendDigits(seconds, text.substr(paired))) {
        return std::nullopt;
    }
    return SexagesimalDigits{pairAt(text, 0), pairAt(text, 2),
                             static_cast<double>(seconds) / exactPowers[2 + text.size() - paired]};
}

std::optional<SexagesimalDigits> separatedDigits(std::string_view text, char separator)
{
    constexpr std::size_t whole = 8;
    constexpr std::size_t mostDecimals = 13;
    if (text.size() < whole || !isSeparated(text.data(), separator)) {
        return std::nullopt;
    }
    const SexagesimalDigits read{pairAt(text, 0), pairAt(text, 3), 0.0};
    auto seconds = static_cast<std::uint64_t>(pairAt(text, 6));
    if (text.size() == whole) {
        return SexagesimalDigits{read.whole, read.minutes, static_cast<double>(seconds)};
    }
    const std::string_view decimals = text.substr(whole + 1);
    if (text[whole] != '.' || decimals.size() > mostDecimals || !appendDigits(seconds, decimals)) {
        return std::nullopt;
    }
    return SexagesimalDigits{read.whole, read.minutes,
                             static_cast<double>(seconds) / exactPowers[decimals.size()]};
}

double toDouble(std::string_view text)
{
    if (!text.empty() && text.front() <= ' ') {
        text = withoutLeadingSpace(text);
    }
    if (text.empty()) {
        return 0;
    }
    const PlainNumber number = plainNumber(text);
    if (!number.isWhole) {
        return readByLibrary(text);
    }
    double magnitude = static_cast<double>(number.digits);
    if (number.decimals > 0 && number.digits != 0) {
        magnitude /= exactPowers[number.decimals];
    }
    return number.negative ? -magnitude : magnitude;
}

int toInt(std::string_view text)
{
    text = withoutLeadingSpace(text);
    const bool negative = !text.empty() && text.front() == '-';
    if (negative || (!text.empty() && text.front() == '+')) {
        text.remove_prefix(1);
    }
    // Like `strtol`, whose answer saturates at the ends of the range of long; its lower 32 bits are the
    // result.
    constexpr std::uint64_t highest = std::numeric_limits<std::int64_t>::max();
    const std::uint64_t limit = negative ? highest + 1 : highest;
    std::uint64_t number = 0;
    for (const char c : text) {
        if (!isDigit(c)) {
            break;
        }
        const auto digit = static_cast<std::uint64_t>(c - '0');
        number = number > (limit - digit) / 10 ? limit : number * 10 + digit;
    }
    return static_cast<int>(static_cast<std::uint32_t>(negative ? 0 - number : number));
}

int cutToNearestInt(double x)
{
    if (std::isnan(x)) {
        return 0;
    }
    return x < 0 ? std::numeric_limits<int>::min() : std::numeric_limits<int>::max();
}

// Halves are rounded up here, and away from zero in RoundDouble.
double roundedTo(double value, int precision)
{
    const std::uint64_t scaled = scaledMagnitude(value, precision);
    if (scaled > exactInteger) {
        TextBuffer text;
        appendFixed(text, value, precision);
        return toDouble(text.view());
    }
    return std::copysign(static_cast<double>(scaled) / exactPowers[precision], value);
}

} // namespace tavelinUtils
