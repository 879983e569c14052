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

#include <locale.h>

#ifdef __FAST_MATH__
#error "-ffast-math changes digits of what is read and written: build without it"
#endif

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
char* writeFixedAtLength(char* to, double value, int precision)
{
    return std::to_chars(to, to + numberRoom(precision), value, std::chars_format::fixed, precision).ptr;
}

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

// Whether the number in a text of fixed notation is below 10.0. A text of one digit never comes here.
bool isBelowTen(std::string_view number)
{
    if (number.front() == '-') {
        return number != "-nan";
    }
    return isDigit(number.front()) && !isDigit(number[1]);
}

constexpr std::uint64_t eachByte = 0x0101010101010101;

// Eight characters, of which digits are their values. The first is in the lowest byte.
std::uint64_t eightAt(const char* text)
{
    std::uint64_t characters = 0;
    std::memcpy(&characters, text, sizeof characters);
    return characters ^ '0' * eachByte;
}

bool areDigits(std::uint64_t values)
{
    return ((values | (values + 0x76 * eachByte)) & 0x80 * eachByte) == 0;
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

// A text of 1 to 8 characters with zeros in front.
std::uint64_t eightOf(std::string_view text)
{
    const std::size_t missing = (8 - text.size()) * 8;
    std::uint64_t bytes = 0;
    if (text.size() >= 4) {
        std::uint32_t first = 0;
        std::uint32_t last = 0;
        std::memcpy(&first, text.data(), sizeof first);
        std::memcpy(&last, text.data() + text.size() - sizeof last, sizeof last);
        bytes = std::uint64_t{last} << 32 | (std::uint64_t{first} << missing & 0xffffffff);
    } else {
        const auto byteAt = [text](std::size_t place) {
            return std::uint64_t{static_cast<unsigned char>(text[place])} << (8 - text.size() + place) * 8;
        };
        bytes = byteAt(0) | byteAt(text.size() / 2) | byteAt(text.size() - 1);
    }
    return bytes ^ '0' * eachByte << missing;
}

// Takes away the first point among eight characters: what precedes it moves up, and the last of those before
// follows. Returns how many characters the point had after it, and 8 where there is none.
int takePointAway(std::uint64_t& characters, std::uint64_t before)
{
    const std::uint64_t bytes = characters ^ ('.' ^ '0') * eachByte;
    // The lowest bit that is set is the highest one of the first byte that is 0.
    const std::uint64_t points = (bytes - eachByte) & ~bytes & 0x80 * eachByte;
    if (points == 0) {
        return 8;
    }
    const std::uint64_t front = points ^ (points - 1); // up to the point
    characters = (characters & ~front) | (characters << 8 & front) | before >> 56;
    return std::countl_zero(front) / 8;
}

// A number without its sign: digits, of which some are decimals.
struct Digits
{
    std::uint64_t number;
    int decimals;
};

// The digits of a text of 1 to 16 characters, which has at most one point besides; nothing for other texts,
// and for more digits than are exact.
std::optional<Digits> shortDigits(std::string_view text)
{
    if (text.empty() || text == "." || text.size() > 16) {
        return std::nullopt;
    }
    if (text.size() <= 8) {
        std::uint64_t back = eightOf(text);
        const int decimals = takePointAway(back, 0);
        // Without a point there are no decimals: 8 becomes 0, and 16 below.
        return areDigits(back) ? std::optional(Digits{numberOfDigits(back), decimals & 7}) : std::nullopt;
    }
    std::uint64_t back = eightAt(text.data() + text.size() - 8);
    std::uint64_t front = eightAt(text.data()) << (16 - text.size()) * 8;
    int decimals = takePointAway(back, front);
    if (decimals < 8) {
        front <<= 8;
    } else {
        decimals += takePointAway(front, 0);
    }
    if (!areDigits(front) || !areDigits(back)) {
        return std::nullopt;
    }
    const std::uint64_t number = numberOfDigits(front) * 100000000 + numberOfDigits(back);
    return number <= exactInteger ? std::optional(Digits{number, decimals & 15}) : std::nullopt;
}

// The digits at the front of a text of any length; nothing where a number does not end with them or has more
// of them than are exact.
std::optional<Digits> longDigits(std::string_view text)
{
    const char* at = text.data();
    const char* const end = at + text.size();
    Digits digits{0, 0};
    const auto readRow = [&digits, &at, end] {
        const char* const begin = at;
        for (; at != end && isDigit(*at); ++at) {
            digits.number = digits.number * 10 + static_cast<std::uint64_t>(*at - '0');
        }
        return at - begin;
    };
    std::ptrdiff_t count = readRow();
    if (at != end && *at == '.') {
        ++at;
        const std::ptrdiff_t decimals = readRow();
        digits.decimals = static_cast<int>(decimals);
        count += decimals;
    }
    // Too many digits wrap around.
    const bool goesOn = at != end && std::strchr("eExX", *at) != nullptr;
    const bool isExact = count > 0 && count <= 18 && digits.number <= exactInteger && !goesOn;
    return isExact ? std::optional(digits) : std::nullopt;
}

// The C library's conversion, which needs a zero byte after the text. In a locale of our own: in that of a
// host the decimal point may be a comma.
double readByLibrary(std::string_view text)
{
    static const locale_t ours = newlocale(LC_ALL_MASK, "C", nullptr);
    char shortText[64];
    if (text.size() < sizeof shortText) {
        std::memcpy(shortText, text.data(), text.size());
        shortText[text.size()] = '\0';
        return strtod_l(shortText, nullptr, ours);
    }
    return strtod_l(std::string(text).c_str(), nullptr, ours);
}

// The text of a number after its sign.
struct UnsignedText
{
    std::string_view text;
    bool negative;

    explicit UnsignedText(std::string_view number) : text(number), negative(number.front() == '-')
    {
        if (negative || number.front() == '+') {
            text.remove_prefix(1);
        }
    }

    double meaning(const Digits& digits) const
    {
        const double magnitude = static_cast<double>(digits.number) / exactPowers[digits.decimals];
        return negative ? -magnitude : magnitude;
    }
};

// A call of its own for what is rare leaves the short way the registers.
[[gnu::noinline]] double readLongText(std::string_view text)
{
    text = withoutLeadingSpace(text);
    if (text.empty()) {
        return 0;
    }
    const UnsignedText number(text);
    const std::optional<Digits> digits = longDigits(number.text);
    return digits ? number.meaning(*digits) : readByLibrary(text);
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

char* writeInt(char* to, int value)
{
    auto magnitude = static_cast<std::uint32_t>(value);
    if (value < 0) {
        *to++ = '-';
        magnitude = 0 - magnitude;
    }
    return writeWhole(to, magnitude);
}

char* writeOddTwoDigits(char* to, int value)
{
    if (value < 0) {
        *to++ = '0';
    }
    return writeInt(to, value);
}

char* writeFixed(char* to, double value, int precision)
{
    const std::uint64_t scaled = scaledMagnitude(value, precision);
    if (scaled == notScaled) {
        return writeFixedAtLength(to, value, precision < 0 ? 6 : precision);
    }
    *to = '-';
    return writeScaled(to + (std::signbit(value) ? 1 : 0), std::abs(value), scaled, precision);
}

char* writeOddTwoDigits(char* to, double value, int precision)
{
    *to = '0';
    char* const number = to + 1;
    char* const end = writeFixed(number, value, precision);
    const std::string_view text(number, static_cast<std::size_t>(end - number));
    return isBelowTen(text) ? end : std::copy(number, end, to);
}

char* writeOddPacked(char* to, double value, int precision)
{
    return withoutPoint(to, writeFixedTwoDigits(to, value, precision));
}

char* writePackedByValue(char* to, double value, int precision)
{
    const bool below = value < 10.0;
    const std::uint64_t scaled = scaledMagnitude(value, precision);
    if (scaled == notScaled || std::signbit(value)) {
        *to = '0';
        char* const number = to + (below ? 1 : 0);
        return withoutPoint(number, writeFixed(number, value, precision));
    }
    const int digits = countDigits(scaled, precision + 1);
    return writeDigits(to, scaled, below ? digits + 1 : digits);
}

char* withoutPoint(char* text, char* end)
{
    char* const point = std::find(text, end, '.');
    return point == end ? end : std::copy(point + 1, end, point);
}

std::optional<SexagesimalDigits> packedDigits(std::string_view text)
{
    constexpr std::size_t eight = 8;
    constexpr std::size_t most = 12;
    if (text.size() < eight || text.size() > most) {
        return std::nullopt;
    }
    const std::uint64_t front = eightAt(text.data());
    const std::uint64_t back = eightAt(text.data() + text.size() - eight);
    if (!areDigits(front) || !areDigits(back)) {
        return std::nullopt;
    }
    const std::uint64_t pairs = front * 10 + (front >> 8); // each in every second byte
    // Of the last eight digits those from the fifth of the text on.
    const std::uint64_t seconds =
        numberOfDigits(back >> 8 * (most - text.size()) << 8 * (most - text.size()));
    return SexagesimalDigits{static_cast<int>(pairs & 0xff), static_cast<int>(pairs >> 16 & 0xff),
                             static_cast<double>(seconds) / exactPowers[text.size() - 6]};
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
    if (!text.empty()) {
        const UnsignedText number(text);
        if (const std::optional<Digits> digits = shortDigits(number.text)) {
            return number.meaning(*digits);
        }
    }
    return readLongText(text);
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
