#include "base/numbers.h"

#include "base/text_buffer.h"
#include "support/locales.h"
#include "support/random.h"
#include "support/same_bits.h"
#include "support/texts.h"
#include "support/written.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <iterator>
#include <limits>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

using namespace tavelinUtils;

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr int lowest = -2147483647 - 1;
constexpr int highest = 2147483647;

/// Compares a fixed-notation number with that of the C library, and stops a test after a few differences.
class FixedComparison
{
public:
    void compare(double value, int precision)
    {
        const int size = print(value, precision);
        text.clear();
        appendFixed(text, value, precision);
        if (text.size() != static_cast<std::size_t>(size) ||
            std::memcmp(text.view().data(), expected, text.size()) != 0)
        {
            ADD_FAILURE() << "precision " << precision << ": " << text.view() << " instead of " << expected;
            ++differences;
        }
    }
    bool goesOn() const
    {
        return differences < 5;
    }

private:
    int print(double value, int precision)
    {
        const ReferenceLocale reference;
        return std::snprintf(expected, sizeof expected, "%.*f", precision, value);
    }

    char expected[512] = {};
    TextBuffer text;
    int differences = 0;
};

int readByStrtol(const std::string& text)
{
    return static_cast<int>(std::strtol(text.c_str(), nullptr, 10));
}

// Signs, blanks, exponents, other bases, words, and more digits than a number holds.
const char* const shortTexts[] = {
    "",         "0",        "-0",     "+0",       "00",       "1",        "-1",      "+1",       "7",
    "12",       "007",      "-007",   "+-1",      "-+1",      "--1",      "++1",     "- 1",      "+ 1",
    "-",        "+",        ".",      "-.",       "+.",       "..",       "1.",      ".5",       "-.5",
    "+.5",      "5.",       "-5.",    "1.5",      "-1.5",     "+1.5",     "1..5",    "1.5.2",    "1.-5",
    "1-5",      "1+5",      "0.1",    "0.10",     "00.1",     "0.000001", "1e",      "1e+",      "1e-",
    "1E",       "e1",       ".e1",    "1e1",      "1E1",      "1e+1",     "1e-1",    "1e01",     "1e 1",
    "1 e1",     "1.e1",     ".1e1",   "-1.5e-3x", "1e1.5",    "1e1e1",    "1d1",     "1f",       "12abc",
    "abc12",    "12 34",    "1,5",    "1;5",      "1:5",      "1/2",      "1_000",   "0x",       "0X",
    "0x1",      "0X1F",     "0x1p4",  "0x1P-4",   "0x.8",     "0x.8p1",   "0x1.",    "0xg",      "-0x10",
    "0x1p",     "0x1p+",    "x1",     "00x1",     "1x1",      "0b1",      "010",     "inf",      "INF",
    "Inf",      "-inf",     "+inf",   "infinity", "INFINITY", "infinit",  "infx",    "in",       "i",
    "-in",      "nan",      "NAN",    "NaN",      "-nan",     "nan(",     "nan()",   "nan(1)",   "nan(x1)y",
    "na",       "n",        " 1",     "  1",      "1 ",       "\t1",      "\n1",     "\v1",      "\f1",
    "\r1",      " -1",      " +1",    " .5",      "_1",       "1\t2",     "1\n",     "1\r\n",    "1e22",
    "1e23",     "1e308",    "1e309",  "-1e309",   "1e400",    "-1e400",   "1e99999", "1e-99999", "5e-324",
    "4.9e-324", "2e-324",   "1e-324", "1e-400",   "-1e-400",  "0.3",      "0.7",     "2.675",    "1.005",
    "60000.5",  "12:34:56", "8.5"};

const char* const longTexts[] = {" \t\n\v\f\r1",
                                 "2147483647",
                                 "2147483648",
                                 "-2147483648",
                                 "-2147483649",
                                 "4294967295",
                                 "4294967296",
                                 "4294967297",
                                 "-4294967296",
                                 "9223372036854775806",
                                 "9223372036854775807",
                                 "9223372036854775808",
                                 "-9223372036854775807",
                                 "-9223372036854775808",
                                 "-9223372036854775809",
                                 "18446744073709551615",
                                 "18446744073709551616",
                                 "99999999999999999999",
                                 "-99999999999999999999",
                                 "123456789012345",
                                 "1234567890123456",
                                 "12345678901234567",
                                 "123456789012345678",
                                 "1234567890123456789",
                                 "12345678901234567890",
                                 "123456789012345678901",
                                 "9007199254740991",
                                 "9007199254740992",
                                 "9007199254740993",
                                 "9007199254740994",
                                 "9007199254740995",
                                 "900719925474099.3",
                                 "90071992547409.93",
                                 "0.9007199254740993",
                                 "1.7976931348623157e308",
                                 "1.7976931348623158e308",
                                 "1.7976931348623159e308",
                                 "-1e-99999",
                                 "1e99999999999999999999",
                                 "1e-99999999999999999999",
                                 "0e99999999999999999999",
                                 "2.2250738585072014e-308",
                                 "2.2250738585072011e-308",
                                 "2.2250738585072012e-308",
                                 "2.4703282292062327e-324",
                                 "2.4703282292062328e-324",
                                 "60000.52425925926",
                                 "2023-02-25",
                                 "6.62607015e-34",
                                 "179.99999999999997",
                                 "123456.789",
                                 "99999.999999999999",
                                 "0.30000000000000004"};

const char* const longestTexts[] = {"100000000000000000000000000000",
                                    "000000000000000000000000000012",
                                    "0.00000000000000000000000000000000000000012",
                                    "12345678901234567890123456789",
                                    "9007199254740993.0000000000000000000001",
                                    "1.00000000000000011102230246251565",
                                    "1.00000000000000011102230246251566",
                                    "1.000000000000000111022302462515654042363166809082031250",
                                    "1.000000000000000111022302462515654042363166809082031249",
                                    "1.000000000000000111022302462515654042363166809082031251",
                                    "0.1000000000000000055511151231257827021181583404541015625",
                                    "3.14159265358979323846264338327950288",
                                    "1.7976931348623157081452742373170435e+308"};

std::vector<std::string> makeOddTexts()
{
    std::vector<std::string> all(std::begin(shortTexts), std::end(shortTexts));
    all.insert(all.end(), std::begin(longTexts), std::end(longTexts));
    all.insert(all.end(), std::begin(longestTexts), std::end(longestTexts));
    all.push_back("\2401");
    all.push_back("\302\2401");
    for (const std::size_t digits : {15u, 16u, 17u, 18u, 19u, 20u, 25u, 50u, 400u, 5000u}) {
        all.push_back(std::string(digits, '9'));
        all.push_back("-" + std::string(digits, '1'));
        all.push_back("0." + std::string(digits, '3'));
        all.push_back("0." + std::string(digits, '0') + "7");
        all.push_back("1" + std::string(digits, '0') + ".5");
        all.push_back(std::string(digits, '0') + "12.5");
        all.push_back(std::string(digits, ' ') + "12.5");
        all.push_back("1" + std::string(digits, '0') + "e-" + std::to_string(digits));
        all.push_back("0." + std::string(digits, '0') + "1e" + std::to_string(digits));
        all.push_back("12345" + std::string(digits, 'x'));
    }
    all.push_back(std::string("1\0002", 3));
    all.push_back(std::string("\0001", 2));
    all.push_back(std::string("1.5\0", 4));
    all.push_back(std::string("1.\0005", 4));
    all.push_back(std::string("1e\0005", 4));
    all.push_back(std::string(" \0005", 3));
    all.push_back(std::string("-\0005", 3));
    return all;
}

const std::vector<std::string>& oddTexts()
{
    static const std::vector<std::string> texts = makeOddTexts();
    return texts;
}

/// A short random text of the characters of numbers.
std::string randomText(Random& random)
{
    static const char alphabet[] = "0123456789+-.eExX in";
    std::string text;
    for (int size = random.below(13); size > 0; --size) {
        text += alphabet[random.below(static_cast<int>(sizeof alphabet - 1))];
    }
    return text;
}

} // namespace

TEST(Numbers, DoublesAreCutTowardsZero)
{
    struct
    {
        double number;
        int cut;
    } const rows[] = {
        {0.0, 0},
        {-0.0, 0},
        {0.999999, 0},
        {-0.999999, 0},
        {1.0, 1},
        {1.9, 1},
        {-1.9, -1},
        {2.5, 2},
        {-2.5, -2},
        {60000.999, 60000},
        {-1.0, -1},
        {1e-300, 0},
        {123456.7, 123456},
        {-2147483647.5, -2147483647},
        {2147483646.5, 2147483646},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.number);
        EXPECT_EQ(cutToInt(row.number), row.cut);
    }
}

TEST(Numbers, DoublesBesideTheEndsOfTheRangeAreCutInsideIt)
{
    EXPECT_EQ(cutToInt(2147483647.0), highest);
    EXPECT_EQ(cutToInt(2147483647.9), highest);
    EXPECT_EQ(cutToInt(std::nextafter(2147483648.0, 0.0)), highest);
    EXPECT_EQ(cutToInt(-2147483648.0), lowest);
    EXPECT_EQ(cutToInt(-2147483648.9), lowest);
    EXPECT_EQ(cutToInt(std::nextafter(-2147483648.0, 0.0)), -2147483647);
}

TEST(Numbers, DoublesBeyondTheRangeGiveItsNearestEnd)
{
    EXPECT_EQ(cutToInt(2147483648.0), highest);
    EXPECT_EQ(cutToInt(4294967296.0), highest);
    EXPECT_EQ(cutToInt(1e19), highest);
    EXPECT_EQ(cutToInt(1e300), highest);
    EXPECT_EQ(cutToInt(infinity), highest);
    EXPECT_EQ(cutToInt(-2147483649.0), lowest);
    EXPECT_EQ(cutToInt(-4294967296.0), lowest);
    EXPECT_EQ(cutToInt(-1e19), lowest);
    EXPECT_EQ(cutToInt(-1e300), lowest);
    EXPECT_EQ(cutToInt(-infinity), lowest);
}

TEST(Numbers, NotANumberIsCutToZero)
{
    EXPECT_EQ(cutToInt(notANumber), 0);
    EXPECT_EQ(cutToInt(-notANumber), 0);
}

TEST(FixedNotation, RandomBitPatternsPrintAsTheCLibraryPrints)
{
    Random random(1);
    FixedComparison comparison;
    for (int i = 0; i < 60000 && comparison.goesOn(); ++i) {
        comparison.compare(std::bit_cast<double>(random.bits()), i % 21 == 20 ? 25 : i % 21);
    }
}

TEST(FixedNotation, RandomMagnitudesPrintAsTheCLibraryPrints)
{
    double powers[41];
    for (int i = 0; i < 41; ++i) {
        powers[i] = std::pow(10.0, i - 20);
    }
    Random random(2);
    FixedComparison comparison;
    for (int i = 0; i < 440000 && comparison.goesOn(); ++i) {
        const double value = (random.fraction() * 2.0 - 1.0) * powers[random.below(41)];
        comparison.compare(value, i % 21 == 20 ? 25 : i % 21);
    }
}

TEST(FixedNotation, TiesAndTheirNeighboursPrintAsTheCLibraryPrints)
{
    double powers[31];
    for (int i = 0; i < 31; ++i) {
        powers[i] = std::ldexp(1.0, -i);
    }
    Random random(3);
    FixedComparison comparison;
    for (int i = 0; i < 200000 && comparison.goesOn(); ++i) {
        // An odd multiple of 2^-n has n decimals, the last a 5: a tie for every precision of n - 1.
        const int n = 1 + random.below(20);
        const std::uint64_t odd = (random.bits() >> (20 + random.below(40))) | 1;
        const double tie = static_cast<double>(odd) * powers[n] * (i % 2 == 0 ? 1.0 : -1.0);
        comparison.compare(tie, n - 1);
        comparison.compare(std::nextafter(tie, infinity), n - 1);
        comparison.compare(std::nextafter(tie, -infinity), n - 1);
        comparison.compare(tie, random.below(20));
    }
}

TEST(FixedNotation, DecimalNumbersPrintAsTheCLibraryPrints)
{
    double powers[16];
    for (int i = 0; i < 16; ++i) {
        powers[i] = std::pow(10.0, i);
    }
    Random random(4);
    FixedComparison comparison;
    for (int i = 0; i < 300000 && comparison.goesOn(); ++i) {
        // Decimal numbers of which one more digit is held than is printed, often a 5.
        const int decimals = 1 + random.below(15);
        const std::uint64_t number = (random.bits() >> (14 + random.below(40))) / 10 * 10 + 5;
        const double value = static_cast<double>(number) / powers[decimals];
        comparison.compare(value, decimals - 1);
        comparison.compare(-value, random.below(20));
    }
}

TEST(FixedNotation, NumbersBesideRoundOnesPrintAsTheCLibraryPrints)
{
    Random random(5);
    FixedComparison comparison;
    for (int i = 0; i < 70000 && comparison.goesOn(); ++i) {
        const double round = std::pow(10.0, random.below(18)) * (1 + random.below(9));
        const int precision = random.below(20);
        comparison.compare(round, precision);
        comparison.compare(std::nextafter(round, 0.0), precision);
        comparison.compare(std::nextafter(round, infinity), precision);
        comparison.compare(round - std::pow(10.0, -random.below(20)), precision);
    }
}

TEST(FixedNotation, MarksPrintAsTheCLibraryPrints)
{
    Random random(6);
    FixedComparison comparison;
    for (int i = 0; i < 100000 && comparison.goesOn(); ++i) {
        comparison.compare(random.fraction() * 360.0, 7);
        comparison.compare(random.fraction() * 60.0, 15);
        comparison.compare(random.fraction() * 24.0, 12);
        comparison.compare(60000.0 + random.fraction() * 1000.0, 6);
    }
}

TEST(ToDouble, TakenTexts)
{
    const struct
    {
        const char* text;
        double number;
    } rows[] = {
        {"1.5", 1.5},
        {"+1.5", 1.5},
        {"-1.5", -1.5},
        {"  1.5", 1.5},
        {"\t\n\v\f\r 7", 7.0},
        {".5", 0.5},
        {"5.", 5.0},
        {"-.5e1", -5.0},
        {"1e3", 1000.0},
        {"1E-3", 0.001},
        {"1e", 1.0},
        {"1e+", 1.0},
        {"1.5abc", 1.5},
        {"1 2", 1.0},
        {"1,5", 1.0},
        {"1.5.2", 1.5},
        {"12:34:56", 12.0},
        {"2023-02-25", 2023.0},
        {"0x10", 16.0},
        {"0x1p-1", 0.5},
        {"0x", 0.0},
        {"inf", infinity},
        {"-Infinity", -infinity},
        {"infinit", infinity},
        {"1e400", infinity},
        {"-1e400", -infinity},
        {"1e-400", 0.0},
        {"007", 7.0},
        {"99999999999999999999", 1e20},
        {"9007199254740993", 9007199254740992.0},
        {"5e-324", 5e-324},
        {"1.7976931348623157e308", 1.7976931348623157e308},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(toDouble(row.text), row.number);
    }
    EXPECT_TRUE(std::isnan(toDouble("nan")));
    EXPECT_TRUE(std::isnan(toDouble("NaN(1)x")));
    EXPECT_TRUE(std::signbit(toDouble("-0")));
}

TEST(ToDouble, RefusedTextsAreZero)
{
    for (const char* text : {"", " ", "abc", "-", "+", ".", "-.", "e5", ".e5", "--1", "+-1", "- 1", "x10",
                             "na", "in", ",5", "_1", "\2401"})
    {
        SCOPED_TRACE(text);
        EXPECT_TRUE(sameBits(toDouble(text), 0.0));
    }
}

TEST(ToInt, TakenTexts)
{
    const struct
    {
        const char* text;
        int number;
    } rows[] = {
        {"12", 12},
        {"+12", 12},
        {"-12", -12},
        {"  12", 12},
        {"\t\n\v\f\r 7", 7},
        {"12.9", 12},
        {"-12.9", -12},
        {"12abc", 12},
        {"1e3", 1},
        {"0x10", 0},
        {"00012", 12},
        {"010", 10},
        {"1 2", 1},
        {"2147483647", highest},
        {"-2147483648", lowest},
        {"-0", 0},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(toInt(row.text), row.number);
    }
}

TEST(ToInt, NumbersOfMoreThan32BitsLoseTheUpperOnes)
{
    EXPECT_EQ(toInt("2147483648"), lowest);
    EXPECT_EQ(toInt("-2147483649"), highest);
    EXPECT_EQ(toInt("4294967295"), -1);
    EXPECT_EQ(toInt("4294967296"), 0);
    EXPECT_EQ(toInt("4294967297"), 1);
    EXPECT_EQ(toInt("9223372036854775807"), -1);
    EXPECT_EQ(toInt("9223372036854775808"), -1);
    EXPECT_EQ(toInt("99999999999999999999"), -1);
    EXPECT_EQ(toInt("-9223372036854775808"), 0);
    EXPECT_EQ(toInt("-99999999999999999999"), 0);
}

TEST(ToInt, RefusedTextsAreZero)
{
    for (const char* text :
         {"", " ", "abc", "-", "+", ".", ".5", "--1", "+-1", "- 1", "x1", "inf", "nan", "e5"}) {
        SCOPED_TRACE(text);
        EXPECT_EQ(toInt(text), 0);
    }
}

TEST(TextToNumber, OddTextsReadAsTheCLibraryReadsThem)
{
    for (const std::string& text : oddTexts()) {
        SCOPED_TRACE(text.substr(0, 60));
        EXPECT_TRUE(sameBits(toDouble(text), readInC(text))) << toDouble(text);
        EXPECT_EQ(toInt(text), readByStrtol(text));
    }
}

TEST(TextToNumber, RandomTextsReadAsTheCLibraryReadsThem)
{
    Random random(10);
    int differences = 0;
    for (int i = 0; i < 300000 && differences < 5; ++i) {
        const std::string text = randomText(random);
        if (!sameBits(toDouble(text), readInC(text)) || toInt(text) != readByStrtol(text)) {
            ADD_FAILURE() << '"' << text << "\": " << toDouble(text) << ", " << toInt(text);
            ++differences;
        }
    }
}

TEST(TextToNumber, PrintedNumbersReadAsTheCLibraryReadsThem)
{
    Random random(11);
    int differences = 0;
    const auto compare = [&differences](const std::string& text) {
        if (!sameBits(toDouble(text), readInC(text))) {
            ADD_FAILURE() << text;
            ++differences;
        }
    };
    for (int i = 0; i < 60000 && differences < 5; ++i) {
        compare(printInC("%.*f", random.below(18), random.fraction() * 360.0));
        compare(printInC("%.*e", random.below(25), std::bit_cast<double>(random.bits())));
    }
}

// Digits with a point at each place, and with another character at each other place.
TEST(TextToNumber, DigitsAroundAPointReadAsTheCLibraryReadsThem)
{
    Random random(12);
    int differences = 0;
    const auto compare = [&differences](const std::string& text) {
        if (differences < 5 && !sameBits(toDouble(text), readInC(text))) {
            ADD_FAILURE() << '"' << text << "\": " << toDouble(text);
            ++differences;
        }
    };
    for (std::size_t size = 1; size <= 20; ++size) {
        for (std::size_t point = 0; point < size; ++point) {
            std::string text;
            while (text.size() < size) {
                text += static_cast<char>('0' + random.below(10));
            }
            text[point] = '.';
            compare(text);
            compare("-" + text);
            for (std::size_t place = 0; place < size; ++place) {
                for (const char odd : std::string("/:.eEx -+\0\260", 11)) {
                    compare(with(text, place, std::string(1, odd)));
                }
            }
        }
    }
}

// Texts of digits are read eight at a time: every length, with the point at every place.
TEST(TextToNumber, RandomDigitsReadAsTheCLibraryReadsThem)
{
    Random random(13);
    int differences = 0;
    for (int i = 0; i < 1200000 && differences < 5; ++i) {
        char text[32];
        const std::size_t size = 1 + random.below(std::size_t{20});
        std::uint64_t bits = random.bits();
        for (std::size_t at = 0; at < size; ++at, bits = at == 16 ? random.bits() : bits >> 4) {
            text[at] = static_cast<char>('0' + (bits & 15) % 10);
        }
        const std::uint64_t form = random.bits();
        text[form % (size + 4) % 32] = '.';
        if (form >> 60 < 4) {
            text[0] = (form >> 59 & 1) != 0 ? '+' : '-';
        }
        text[size] = '\0';
        if (!sameBits(toDouble({text, size}), readInC(text))) {
            ADD_FAILURE() << text;
            ++differences;
        }
    }
}

// Any byte at any place of a number of any length takes the long way and means there what it means.
TEST(TextToNumber, OneOtherByteReadsAsTheCLibraryReadsIt)
{
    const std::string digits = "12345678901234567";
    int differences = 0;
    for (std::size_t size = 1; size <= digits.size(); ++size) {
        for (std::size_t point = 0; point <= size; ++point) {
            for (std::size_t place = 0; place < size; ++place) {
                for (int byte = 1; byte < 256 && differences < 5; ++byte) {
                    std::string text = digits.substr(0, size);
                    text.replace(std::min(point, size - 1), 1, point == size ? "7" : ".");
                    text[place] = static_cast<char>(byte);
                    if (!sameBits(toDouble(text), readInC(text))) {
                        ADD_FAILURE() << '"' << text << '"';
                        ++differences;
                    }
                }
            }
        }
    }
}

// A view into a longer text ends where it ends: nothing after it is read, not even to look ahead.
TEST(TextToNumber, ViewsEndWhereTheyEnd)
{
    EXPECT_EQ(toDouble(std::string_view("123456", 3)), 123.0);
    EXPECT_EQ(toDouble(std::string_view("1e5", 2)), 1.0);
    EXPECT_EQ(toDouble(std::string_view("1.5", 2)), 1.0);
    EXPECT_EQ(toDouble(std::string_view("0x1F", 3)), 1.0);
    EXPECT_EQ(toDouble(std::string_view("12", 0)), 0.0);
    EXPECT_EQ(toDouble(std::string_view("infinity", 2)), 0.0);
    EXPECT_EQ(toInt(std::string_view("123456", 3)), 123);
    EXPECT_EQ(toInt(std::string_view("-5", 1)), 0);
    EXPECT_EQ(toInt(std::string_view("12", 0)), 0);
    EXPECT_EQ(toDouble(std::string_view()), 0.0);
    EXPECT_EQ(toInt(std::string_view()), 0);

    for (const std::string& text : oddTexts()) {
        const std::unique_ptr<char[]> bytes(new char[text.size()]);
        std::memcpy(bytes.get(), text.data(), text.size());
        const std::string_view view(bytes.get(), text.size());
        SCOPED_TRACE(text.substr(0, 60));
        EXPECT_TRUE(sameBits(toDouble(view), readInC(text)));
        EXPECT_EQ(toInt(view), readByStrtol(text));
    }
}

TEST(FixedTwoDigits, ZeroInFrontOfWhatRoundsBelowTen)
{
    const struct
    {
        double value;
        int precision;
        const char* text;
    } rows[] = {
        {0.0, 2, "00.00"},    {9.5, 2, "09.50"},       {9.994, 2, "09.99"},    {9.996, 2, "10.00"},
        {10.0, 2, "10.00"},   {123.4, 1, "123.4"},     {9.4, 0, "09"},         {9.5, 0, "10"},
        {-5.0, 2, "0-5.00"},  {-0.0, 1, "0-0.0"},      {-123.4, 1, "0-123.4"}, {notANumber, 2, "nan"},
        {infinity, 2, "inf"}, {-infinity, 2, "0-inf"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(written([&row](char* to) { return writeFixedTwoDigits(to, row.value, row.precision); }),
                  row.text);
    }
}

TEST(FixedPacked, ZeroInFrontOfWhatRoundsBelowTenAndNoPoint)
{
    const struct
    {
        double value;
        int precision;
        const char* text;
    } rows[] = {
        {0.0, 2, "0000"},   {9.5, 2, "0950"},       {9.996, 2, "1000"},
        {123.4, 1, "1234"}, {-9.5, 2, "0-950"},     {-123.4, 1, "0-1234"},
        {-0.0, 1, "0-00"},  {notANumber, 2, "nan"}, {9.5, -1, "09500000"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(written([&row](char* to) { return writeFixedPacked(to, row.value, row.precision); }),
                  row.text);
    }
}

TEST(PackedByValue, ZeroInFrontOfAValueBelowTenAndNoPoint)
{
    const struct
    {
        double value;
        int precision;
        const char* text;
    } rows[] = {
        {0.0, 2, "0000"},        {9.5, 2, "0950"},
        {9.994, 2, "0999"},      {9.996, 2, "01000"},
        {10.0, 2, "1000"},       {59.996, 2, "6000"},
        {123.4, 1, "1234"},      {9.4, 0, "09"},
        {9.5, 0, "010"},         {0.25, 1, "002"},
        {-1.2, 1, "0-12"},       {-0.0, 1, "0-00"},
        {-10.0, 1, "0-100"},     {-123.4, 1, "0-1234"},
        {9.5, -1, "09500000"},   {1e25, 1, "100000000000000009059696640"},
        {notANumber, 2, "nan"},  {infinity, 2, "inf"},
        {-infinity, 2, "0-inf"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(written([&row](char* to) { return writePackedByValue(to, row.value, row.precision); }),
                  row.text);
    }
}

TEST(TwoDigits, ZeroInFrontOfAValueOfAtMostNine)
{
    const struct
    {
        int value;
        const char* text;
    } rows[] = {
        {0, "00"},
        {9, "09"},
        {10, "10"},
        {99, "99"},
        {100, "100"},
        {-5, "0-5"},
        {-12, "0-12"},
        {highest, "2147483647"},
        {lowest, "0-2147483648"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(written([&row](char* to) { return writeTwoDigits(to, row.value); }), row.text);
    }
}

TEST(WithoutPoint, FirstPointGoes)
{
    const struct
    {
        const char* text;
        const char* rest;
    } rows[] = {{"12.5", "125"}, {"1.2.3", "12.3"}, {".5", "5"}, {"5.", "5"}, {"125", "125"}, {"", ""}};
    for (const auto& row : rows) {
        EXPECT_EQ(written([&row](char* to) { return withoutPoint(to, writeText(to, row.text)); }), row.rest);
    }
}

TEST(Texts, AreWrittenAsTheyAreWhateverTheirLength)
{
    const std::string letters = "abcdefghijklmnopqrstuvwxyz";
    for (std::size_t length = 0; length <= letters.size(); ++length) {
        const std::string text = letters.substr(0, length);
        EXPECT_EQ(written([&text](char* to) { return writeText(to, text); }), text);
    }
}

TEST(Padded, BlanksFillTheWidthOnTheSideOfTheName)
{
    EXPECT_EQ(written([](char* to) { return writePaddedRight(to, "ab", 5); }), "ab   ");
    EXPECT_EQ(written([](char* to) { return writePaddedLeft(to, "ab", 5); }), "   ab");
    EXPECT_EQ(written([](char* to) { return writePaddedRight(to, "", 2); }), "  ");
    EXPECT_EQ(written([](char* to) { return writePaddedLeft(to, "", 3); }), "   ");
    EXPECT_EQ(written([](char* to) { return writePaddedRight(to, "ab", 20); }), "ab                  ");
    EXPECT_EQ(written([](char* to) { return writePaddedLeft(to, "ab", 20); }), "                  ab");
}

TEST(Padded, LongerTextIsKeptWhole)
{
    EXPECT_EQ(written([](char* to) { return writePaddedRight(to, "abcdefg", 5); }), "abcdefg");
    EXPECT_EQ(written([](char* to) { return writePaddedLeft(to, "hijklmn", 5); }), "hijklmn");
    EXPECT_EQ(written([](char* to) { return writePaddedRight(to, "opq", 3); }), "opq");
    EXPECT_EQ(written([](char* to) { return writePaddedLeft(to, "rst", 3); }), "rst");
    EXPECT_EQ(written([](char* to) { return writePaddedRight(to, "u", 0); }), "u");
}

TEST(Numbers, CellIsTheNumberAndWhatEndsIt)
{
    TextBuffer text("a\t");
    appendCell(text, 1.005, 2, '\t');
    appendCell(text, -0.0, 1, ',');
    appendCell(text, 12.0, 0, '\n');
    EXPECT_EQ(text.view(), "a\t1.00\t-0.0,12\n");
}
