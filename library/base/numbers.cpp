#include "base/numbers.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <optional>

namespace tavelinUtils {
namespace {

__extension__ using WideInteger = unsigned __int128;

constexpr std::string_view whiteSpace = " \t\n\v\f\r";

// The powers of ten that a 64-bit integer holds.
constexpr int largestDecimals = 19;
constexpr auto powersOfTen = [] {
    std::array<std::uint64_t, largestDecimals + 1> powers{};
    std::uint64_t power = 1;
    for (std::uint64_t& each : powers) {
        each = power;
        power *= 10;
    }
    return powers;
}();

// Integers up to this one are exact in a double, and so are these powers of ten: their quotient is rounded
// once and is therefore the number that the digits mean.
constexpr std::uint64_t exactInteger = std::uint64_t{1} << 53;
constexpr int exactDecimals = 22;
constexpr double exactPowers[exactDecimals + 1] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                   1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                                   1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};

// A product divided by a power of two, rounded to the nearest integer with ties to even; nothing if the
// result does not fit 64 bits. The product has fewer than 53 + 64 bits, so a larger shift leaves less than a
// half.
std::optional<std::uint64_t> shiftedToEven(WideInteger product, int shift)
{
    if (shift > 117) {
        return 0;
    }
    const WideInteger quotient = product >> shift;
    if (quotient >= std::numeric_limits<std::uint64_t>::max()) {
        return std::nullopt;
    }
    const WideInteger rest = product - (quotient << shift);
    const WideInteger half = WideInteger{1} << (shift - 1);
    const auto whole = static_cast<std::uint64_t>(quotient);
    const bool up = rest > half || (rest == half && (whole & 1) != 0);
    return whole + (up ? 1 : 0);
}

// |value| times ten to the precision, rounded in integer arithmetic; nothing if the result does not fit 64
// bits.
std::optional<std::uint64_t> scaledMagnitude(double value, int precision)
{
    constexpr int mantissaBits = 52;
    constexpr int exponentBias = 1075;
    const auto bits = std::bit_cast<std::uint64_t>(value);
    const auto exponent = static_cast<int>(bits >> mantissaBits & 0x7ff);
    const int shift = exponentBias - std::max(exponent, 1);
    if (precision < 0 || precision > largestDecimals || shift <= 0) {
        return std::nullopt;
    }
    std::uint64_t mantissa = bits & ((std::uint64_t{1} << mantissaBits) - 1);
    if (exponent != 0) {
        mantissa |= std::uint64_t{1} << mantissaBits;
    }
    return shiftedToEven(WideInteger{mantissa} * powersOfTen[static_cast<std::size_t>(precision)], shift);
}

constexpr char digitPairs[] = "00010203040506070809"
                              "10111213141516171819"
                              "20212223242526272829"
                              "30313233343536373839"
                              "40414243444546474849"
                              "50515253545556575859"
                              "60616263646566676869"
                              "70717273747576777879"
                              "80818283848586878889"
                              "90919293949596979899";

// Writes the digits of a number so that they end at `end`; returns where they start.
char* writeDigitsBefore(char* end, std::uint64_t number)
{
    while (number >= 100) {
        end -= 2;
        std::memcpy(end, digitPairs + number % 100 * 2, 2);
        number /= 100;
    }
    if (number >= 10) {
        end -= 2;
        std::memcpy(end, digitPairs + number * 2, 2);
    } else {
        *--end = static_cast<char>('0' + number);
    }
    return end;
}

void appendScaled(std::string& out, bool negative, std::uint64_t scaled, int precision)
{
    char digits[48];
    char* const end = digits + sizeof digits;
    char* begin = writeDigitsBefore(end, scaled);
    while (end - begin <= precision) {
        *--begin = '0';
    }
    if (precision > 0) {
        // The whole part moves one place to the front and makes room for the point.
        const auto whole = static_cast<std::size_t>(end - begin - precision);
        std::memmove(begin - 1, begin, whole);
        --begin;
        begin[whole] = '.';
    }
    if (negative) {
        *--begin = '-';
    }
    out.append(begin, static_cast<std::size_t>(end - begin));
}

// For what integer arithmetic cannot hold: many decimals, large numbers, infinities.
void appendFixedAtLength(std::string& out, double value, int precision)
{
    constexpr std::size_t longestWhole = std::numeric_limits<double>::max_exponent10 + 3;
    const std::size_t begin = out.size();
    out.resize(begin + longestWhole + static_cast<std::size_t>(precision) + 1);
    char* const first = out.data() + begin;
    const auto written =
        std::to_chars(first, out.data() + out.size(), value, std::chars_format::fixed, precision);
    out.resize(begin + static_cast<std::size_t>(written.ptr - first));
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

// Too many digits wrap around here; such a number is not whole.
PlainNumber plainNumber(std::string_view text)
{
    const char* at = text.data();
    const char* const end = at + text.size();
    PlainNumber number;
    number.negative = *at == '-';
    at += number.negative || *at == '+' ? 1 : 0;
    const auto readDigits = [&number, &at, end] {
        const char* const begin = at;
        for (; at != end && isDigit(*at); ++at) {
            number.digits = number.digits * 10 + static_cast<std::uint64_t>(*at - '0');
        }
        return at - begin;
    };
    std::ptrdiff_t count = readDigits();
    if (at != end && *at == '.') {
        ++at;
        number.decimals = readDigits();
        count += number.decimals;
    }
    const bool goesOn = at != end && std::strchr("eExX", *at) != nullptr;
    number.isWhole = count > 0 && count <= 18 && number.digits <= exactInteger && !goesOn;
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

void appendFixed(std::string& out, double value, int precision)
{
    if (const auto scaled = scaledMagnitude(value, precision)) {
        appendScaled(out, std::signbit(value), *scaled, precision);
    } else {
        appendFixedAtLength(out, value, precision < 0 ? 6 : precision);
    }
}

void appendCell(std::string& out, double value, int decimals, char end)
{
    appendFixed(out, value, decimals);
    out += end;
}

void appendFixedTwoDigits(std::string& out, double value, int precision)
{
    const std::size_t begin = out.size();
    appendFixed(out, value, precision);
    if (isBelowTen(std::string_view(out).substr(begin))) {
        out.insert(begin, 1, '0');
    }
}

void appendInt(std::string& out, int value)
{
    char digits[16];
    const auto written = std::to_chars(digits, digits + sizeof digits, value);
    out.append(digits, written.ptr);
}

void appendTwoDigits(std::string& out, int value)
{
    if (value >= 0 && value < 100) {
        out.append(&digitPairs[static_cast<std::size_t>(value) * 2], 2);
        return;
    }
    if (value < 0) {
        out += '0';
    }
    appendInt(out, value);
}

void erasePoint(std::string& out, std::size_t begin)
{
    const std::size_t point = out.find('.', begin);
    if (point != std::string::npos) {
        out.erase(point, 1);
    }
}

void appendPaddedRight(std::string& out, std::string_view text, std::size_t width)
{
    out += text;
    out.append(width - std::min(width, text.size()), ' ');
}

void appendPaddedLeft(std::string& out, std::string_view text, std::size_t width)
{
    out.append(width - std::min(width, text.size()), ' ');
    out += text;
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

int cutToInt(double x)
{
    if (std::isnan(x)) {
        return 0;
    }
    if (x <= std::numeric_limits<int>::min()) {
        return std::numeric_limits<int>::min();
    }
    if (x >= std::numeric_limits<int>::max()) {
        return std::numeric_limits<int>::max();
    }
    return static_cast<int>(x);
}

// Halves are rounded up here, and away from zero in RoundDouble.
double roundedTo(double value, int precision)
{
    const auto scaled = scaledMagnitude(value, precision);
    if (!scaled || *scaled > exactInteger) {
        std::string text;
        appendFixed(text, value, precision);
        return toDouble(text);
    }
    return std::copysign(static_cast<double>(*scaled) / exactPowers[precision], value);
}

} // namespace tavelinUtils
