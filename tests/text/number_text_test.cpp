#include "base/numbers.h"
#include "text/number_text.h"

#include "support/child_process.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ios>
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

using Texts = std::vector<std::string>;

/// A plain generator of random bits: fast also where nothing is optimised.
class Random
{
public:
    explicit Random(std::uint64_t seed) : state(seed)
    {
    }
    std::uint64_t bits()
    {
        state += 0x9e3779b97f4a7c15u;
        std::uint64_t z = state;
        z = (z ^ (z >> 30)) * 0xbf58476d1ce4e5b9u;
        z = (z ^ (z >> 27)) * 0x94d049bb133111ebu;
        return z ^ (z >> 31);
    }
    int below(int end)
    {
        return static_cast<int>(bits() % static_cast<unsigned>(end));
    }
    /// At least 0 and below 1.
    double fraction()
    {
        return static_cast<double>(bits() >> 11) / 9007199254740992.0;
    }

private:
    std::uint64_t state;
};

/// Compares a fixed-notation number with that of the C library, and stops a test after a few differences.
class FixedComparison
{
public:
    void compare(double value, int precision)
    {
        const int size = std::snprintf(expected, sizeof expected, "%.*f", precision, value);
        text.clear();
        appendFixed(text, value, precision);
        if (text.size() != static_cast<std::size_t>(size) ||
            std::memcmp(text.data(), expected, text.size()) != 0) {
            ADD_FAILURE() << "precision " << precision << ": " << text << " instead of " << expected;
            ++differences;
        }
    }
    bool goesOn() const
    {
        return differences < 5;
    }

private:
    char expected[512] = {};
    std::string text;
    int differences = 0;
};

/// What the process reads at the front of a text up to its first zero byte.
double readByStrtod(const std::string& text)
{
    return std::strtod(text.c_str(), nullptr);
}

int readByStrtol(const std::string& text)
{
    return static_cast<int>(std::strtol(text.c_str(), nullptr, 10));
}

bool sameBits(double a, double b)
{
    return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
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
                                 "9223372036854775807",
                                 "9223372036854775808",
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

TEST(Str9, RoundsAsTheExactValueDecides)
{
    const struct
    {
        double value;
        int precision;
        const char* text;
    } rows[] = {
        {0.0, 2, "0.00"},
        {1.0, 3, "1.000"},
        {1.005, 2, "1.00"}, // the number is a little below 1.005
        {2.675, 2, "2.67"},
        {9.995, 2, "9.99"},
        {0.045, 2, "0.04"},
        {99.9999, 2, "100.00"},
        {123456789.987654321, 3, "123456789.988"},
        {9.5, 2, "9.50"},
        {-29.00781056, 7, "-29.0078106"},
        {4503599627370495.5, 1, "4503599627370495.5"},
        {9007199254740993.0, 1, "9007199254740992.0"},
        {0.1, 25, "0.1000000000000000055511151"},
        {0.1, 60, "0.100000000000000005551115123125782702118158340454101562500000"},
        {5e-324, 2, "0.00"},
        {1e-300, 19, "0.0000000000000000000"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(Str9(row.value, row.precision), row.text);
    }
}

TEST(Str9, TiesGoToTheEvenDigit)
{
    EXPECT_EQ(Str9(0.125, 2), "0.12");
    EXPECT_EQ(Str9(0.375, 2), "0.38");
    EXPECT_EQ(Str9(0.625, 2), "0.62");
    EXPECT_EQ(Str9(0.5, 0), "0");
    EXPECT_EQ(Str9(1.5, 0), "2");
    EXPECT_EQ(Str9(2.5, 0), "2");
    EXPECT_EQ(Str9(-0.5, 0), "-0");
    EXPECT_EQ(Str9(-2.5, 0), "-2");
    EXPECT_EQ(Str9(4503599627370495.5, 0), "4503599627370496");
    EXPECT_EQ(Str9(1000000000000000.5, 0), "1000000000000000");
}

TEST(Str9, NegativeValueKeepsItsSignAlsoBeforeZeros)
{
    EXPECT_EQ(Str9(-0.001, 2), "-0.00");
    EXPECT_EQ(Str9(-0.0, 2), "-0.00");
    EXPECT_EQ(Str9(-0.0, 0), "-0");
    EXPECT_EQ(Str9(-1.5, 1), "-1.5");
    EXPECT_EQ(Str9(-5e-324, 3), "-0.000");
}

TEST(Str9, PrecisionZeroGivesNoPoint)
{
    EXPECT_EQ(Str9(0.0, 0), "0");
    EXPECT_EQ(Str9(7.4, 0), "7");
    EXPECT_EQ(Str9(-60000.6, 0), "-60001");
}

TEST(Str9, NegativePrecisionCountsAsSix)
{
    EXPECT_EQ(Str9(1.5, -1), "1.500000");
    EXPECT_EQ(Str9(-1.23456789, -100), "-1.234568");
}

TEST(Str9, HugeValuesHaveNoExponent)
{
    EXPECT_EQ(Str9(1e22, 0), "10000000000000000000000");
    EXPECT_EQ(Str9(1e23, 0), "99999999999999991611392");
    EXPECT_EQ(Str9(1e21, 2), "1000000000000000000000.00");
    EXPECT_EQ(
        Str9(-1.7976931348623157e308, 1),
        "-179769313486231570814527423731704356798070567525844996598917476803157260780028538760589558632766878"
        "171540458953514382464234321326889464182768467546703537516986049910576551282076245490090389328944075"
        "868508455133942304583236903222948165808559332123348274797826204144723168738177180919299881250404026"
        "184124858368.0");
}

TEST(Str9, ValuesThatAreNoFiniteNumber)
{
    EXPECT_EQ(Str9(notANumber, 2), "nan");
    EXPECT_EQ(Str9(infinity, 2), "inf");
    EXPECT_EQ(Str9(-infinity, 0), "-inf");
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

TEST(FixedNotation, AppendedNumbersAreThoseOfTheTextFunction)
{
    Random random(7);
    std::vector<double> values{0.0,   -0.0,    1.005,      -0.001,   9.996,
                               1e300, -1e-300, notANumber, infinity, -infinity};
    for (int i = 0; i < 2000; ++i) {
        values.push_back((random.fraction() - 0.5) * 1e6);
        values.push_back(std::bit_cast<double>(random.bits()));
    }
    int precision = -1;
    for (const double value : values) {
        precision = precision == 25 ? -1 : precision + 1;
        std::string out = "before";
        appendFixed(out, value, precision);
        ASSERT_EQ(out, "before" + Str9(value, precision));
    }
}

TEST(SetPrecision, RoundsThroughTheText)
{
    EXPECT_EQ(SetPrecision(1.23456, 2), 1.23);
    EXPECT_EQ(SetPrecision(1.005, 2), 1.0);
    EXPECT_EQ(SetPrecision(2.5, 0), 2.0);
    EXPECT_EQ(SetPrecision(0.1 + 0.2, 1), 0.3);
    EXPECT_EQ(SetPrecision(11.9999999999999, 12), 12.0);
    EXPECT_EQ(SetPrecision(12.345678901234567, 12), 12.345678901235);
    EXPECT_EQ(SetPrecision(1e300, 3), 1e300);
    EXPECT_EQ(SetPrecision(1.23456789, -1), 1.234568);
    EXPECT_TRUE(sameBits(SetPrecision(-0.001, 2), -0.0));
    EXPECT_TRUE(sameBits(SetPrecision(0.001, 2), 0.0));
}

TEST(SetPrecision, ValuesThatAreNoFiniteNumberStay)
{
    EXPECT_TRUE(std::isnan(SetPrecision(notANumber, 12)));
    EXPECT_EQ(SetPrecision(infinity, 12), infinity);
    EXPECT_EQ(SetPrecision(-infinity, 12), -infinity);
}

TEST(SetPrecision, ManyNumbersAreReadBackAsTheCLibraryReadsThem)
{
    Random random(8);
    int differences = 0;
    const auto compare = [&differences](double value, int precision) {
        char text[512];
        std::snprintf(text, sizeof text, "%.*f", precision, value);
        const double expected = std::strtod(text, nullptr);
        const double rounded = SetPrecision(value, precision);
        if (!sameBits(rounded, expected) && !(std::isnan(rounded) && std::isnan(expected))) {
            ADD_FAILURE() << "precision " << precision << ": " << text;
            ++differences;
        }
    };
    for (int i = 0; i < 100000 && differences < 5; ++i) {
        compare(random.fraction() * 24.0, 12);
        compare((random.fraction() - 0.5) * std::pow(10.0, random.below(30) - 10), random.below(20));
        compare(random.below(86400000) / 3600000.0 + 1e-14, 12);
    }
    for (int i = 0; i < 10000 && differences < 5; ++i) {
        compare(std::bit_cast<double>(random.bits()), i % 21 == 20 ? 25 : i % 21);
        compare(std::ldexp(static_cast<double>(random.bits() >> 40), -random.below(20)), random.below(20));
    }
}

TEST(IntToStr, WritesDecimals)
{
    EXPECT_EQ(IntToStr(0), "0");
    EXPECT_EQ(IntToStr(7), "7");
    EXPECT_EQ(IntToStr(-7), "-7");
    EXPECT_EQ(IntToStr(99000), "99000");
    EXPECT_EQ(IntToStr(highest), "2147483647");
    EXPECT_EQ(IntToStr(lowest), "-2147483648");
}

TEST(IntToStr, AppendedIntegersAreThoseOfTheTextFunction)
{
    for (const int value : {0, 1, -1, 9, 10, -10, 99, 100, 60000, highest, lowest}) {
        std::string out = "before";
        appendInt(out, value);
        EXPECT_EQ(out, "before" + IntToStr(value));
    }
}

TEST(FloatToStr, SixSignificantDigitsInTheShorterNotation)
{
    const struct
    {
        double value;
        const char* text;
    } rows[] = {
        {0.0, "0"},
        {-0.0, "-0"},
        {1.0, "1"},
        {-1.5, "-1.5"},
        {0.1, "0.1"},
        {0.1 + 0.2, "0.3"},
        {1.0 / 3.0, "0.333333"},
        {0.0001, "0.0001"},
        {0.00001, "1e-05"},
        {0.00012345678, "0.000123457"},
        {100000.0, "100000"},
        {123456.0, "123456"},
        {123456.5, "123456"},
        {123456.7, "123457"},
        {123457.5, "123458"},
        {999999.0, "999999"},
        {999999.5, "1e+06"},
        {1000000.0, "1e+06"},
        {1234567.0, "1.23457e+06"},
        {15019.25, "15019.2"},
        {1e300, "1e+300"},
        {1e-300, "1e-300"},
        {5e-324, "4.94066e-324"},
        {infinity, "inf"},
        {-infinity, "-inf"},
        {notANumber, "nan"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(FloatToStr(row.value), row.text);
    }
}

TEST(FloatToStr, ManyNumbersPrintAsTheCLibraryPrintsThem)
{
    Random random(9);
    int differences = 0;
    for (int i = 0; i < 20000 && differences < 5; ++i) {
        const double value = i % 2 == 0 ? std::bit_cast<double>(random.bits())
                                        : (random.fraction() - 0.5) * std::pow(10.0, random.below(20) - 8);
        char text[64];
        std::snprintf(text, sizeof text, "%g", value);
        if (FloatToStr(value) != text) {
            ++differences;
            EXPECT_EQ(FloatToStr(value), text);
        }
    }
}

TEST(BoolText, TrueIsExactlyTheWord)
{
    EXPECT_EQ(BoolToStr(true), "true");
    EXPECT_EQ(BoolToStr(false), "false");
    EXPECT_TRUE(StrToBool("true"));
    for (const char* text :
         {"", "false", "true ", " true", "True", "TRUE", "tru", "truee", "true\n", "1", "yes"}) {
        SCOPED_TRACE(text);
        EXPECT_FALSE(StrToBool(text));
    }
    EXPECT_FALSE(StrToBool(std::string("true\0", 5)));
}

TEST(Format, TextIsPaddedToTheWidthAtTheSideThatIsAskedFor)
{
    EXPECT_EQ(Format("ab", std::ios_base::left, 5), "ab   ");
    EXPECT_EQ(Format("ab", std::ios_base::right, 5), "   ab");
    EXPECT_EQ(Format("ab", std::ios_base::internal, 5), "   ab");
    EXPECT_EQ(Format("ab", std::ios_base::fmtflags{}, 5), "   ab");
    EXPECT_EQ(Format("", std::ios_base::left, 3), "   ");
    EXPECT_EQ(Format(std::string("ab"), std::ios_base::left, 3), "ab ");
}

TEST(Format, LongerTextIsKeptWhole)
{
    EXPECT_EQ(Format("abcdefg", std::ios_base::left, 5), "abcdefg");
    EXPECT_EQ(Format("abcdefg", std::ios_base::right, 5), "abcdefg");
    EXPECT_EQ(Format("abcde", std::ios_base::right, 5), "abcde");
    EXPECT_EQ(Format("abc", std::ios_base::right, 0), "abc");
    EXPECT_EQ(Format("abc", std::ios_base::right, -5), "abc");
    EXPECT_EQ(Format(123456, std::ios_base::left, 5), "123456");
    EXPECT_EQ(Format(1.5, std::ios_base::left, 5), "1.500000");
}

TEST(Format, WidthCountsBytes)
{
    EXPECT_EQ(Format("\xc3\xa9", std::ios_base::left, 3), "\xc3\xa9 ");
}

TEST(Format, IntegersArePadded)
{
    EXPECT_EQ(Format(42, std::ios_base::left, 5), "42   ");
    EXPECT_EQ(Format(42, std::ios_base::right, 5), "   42");
    EXPECT_EQ(Format(-42, std::ios_base::right, 5), "  -42");
    EXPECT_EQ(Format(-42, std::ios_base::internal, 5), "-  42");
    EXPECT_EQ(Format(42, std::ios_base::internal, 5), "   42");
    EXPECT_EQ(Format(42, std::ios_base::fmtflags{}, 5), "   42");
    EXPECT_EQ(Format(lowest, std::ios_base::right, 12), " -2147483648");
}

TEST(Format, UnsignedLongsArePadded)
{
    EXPECT_EQ(Format(42ul, std::ios_base::left, 5), "42   ");
    EXPECT_EQ(Format(42ul, std::ios_base::right, 5), "   42");
    EXPECT_EQ(Format(42ul, std::ios_base::internal, 5), "   42");
    EXPECT_EQ(Format(18446744073709551615ul, std::ios_base::right, 22), "  18446744073709551615");
}

TEST(Format, DoublesHaveSixDecimals)
{
    EXPECT_EQ(Format(1.5, std::ios_base::left, 10), "1.500000  ");
    EXPECT_EQ(Format(1.5, std::ios_base::right, 10), "  1.500000");
    EXPECT_EQ(Format(-1.5, std::ios_base::internal, 11), "-  1.500000");
    EXPECT_EQ(Format(-1.5, std::ios_base::fmtflags{}, 11), "  -1.500000");
    EXPECT_EQ(Format(1e10, std::ios_base::left, 3), "10000000000.000000");
    EXPECT_EQ(Format(-1e-9, std::ios_base::right, 10), " -0.000000");
    EXPECT_EQ(Format(notANumber, std::ios_base::right, 5), "  nan");
    EXPECT_EQ(Format(-infinity, std::ios_base::left, 6), "-inf  ");
    EXPECT_EQ(Format(-infinity, std::ios_base::internal, 6), "-  inf");
}

TEST(Format, OnlyTheAdjustBitsOfTheFlagsCount)
{
    using Flags = std::ios_base;
    EXPECT_EQ(Format(255, Flags::left | Flags::hex | Flags::showbase | Flags::showpos, 5), "255  ");
    EXPECT_EQ(Format(255ul, Flags::right | Flags::oct, 5), "  255");
    EXPECT_EQ(Format(1.5, Flags::left | Flags::scientific | Flags::showpos, 10), "1.500000  ");
    EXPECT_EQ(Format(1.5, Flags::scientific | Flags::uppercase, 10), "  1.500000");
}

TEST(Split, CutsAtEachWholeSeparator)
{
    EXPECT_EQ(split("a,b,c", ",", true), (Texts{"a", "b", "c"}));
    EXPECT_EQ(split("a--b-c", "--", true), (Texts{"a", "b-c"}));
    EXPECT_EQ(split("a---b", "--", true), (Texts{"a", "-b"}));
    EXPECT_EQ(split("abc", ",", true), (Texts{"abc"}));
    EXPECT_EQ(split("abc", ",", false), (Texts{"abc"}));
    EXPECT_EQ(split("aXXb", "XX", false), (Texts{"a", "b"}));
}

TEST(Split, EmptyTokensStayWhereTheyAreAskedFor)
{
    EXPECT_EQ(split(",a,,b,", ",", true), (Texts{"", "a", "", "b", ""}));
    EXPECT_EQ(split("a,", ",", true), (Texts{"a", ""}));
    EXPECT_EQ(split(",", ",", true), (Texts{"", ""}));
    EXPECT_EQ(split("aaa", "aa", true), (Texts{"", "a"}));
}

TEST(Split, EmptyTokensGoElsewhere)
{
    EXPECT_EQ(split(",a,,b,", ",", false), (Texts{"a", "b"}));
    EXPECT_EQ(split(",,,", ",", false), Texts{});
    EXPECT_EQ(split("", ",", false), Texts{});
}

TEST(Split, EmptySeparatorGivesTheWholeText)
{
    EXPECT_EQ(split("a,b", "", true), (Texts{"a,b"}));
    EXPECT_EQ(split("a,b", "", false), (Texts{"a,b"}));
}

TEST(GetDataID, FirstEqualNameOrANegativeNumber)
{
    const Texts names{"RA", "DE", "m", "DE", ""};
    EXPECT_EQ(GetDataID(names, "RA"), 0);
    EXPECT_EQ(GetDataID(names, "DE"), 1);
    EXPECT_EQ(GetDataID(names, "m"), 2);
    EXPECT_EQ(GetDataID(names, ""), 4);
    EXPECT_EQ(GetDataID(names, "ra"), -2);
    EXPECT_EQ(GetDataID(names, "RA "), -2);
    EXPECT_EQ(GetDataID(names, "R"), -2);
    EXPECT_EQ(GetDataID(Texts{}, "RA"), -1);
    EXPECT_EQ(GetDataID(Texts{}, ""), -1);
}

TEST(GetRazd, TabWhereItGivesMoreTokensThanABlank)
{
    EXPECT_EQ(GetRazd("a\tb"), "\t");
    EXPECT_EQ(GetRazd("a b\tc\td"), "\t");
    EXPECT_EQ(GetRazd("\ta"), "\t");
    EXPECT_EQ(GetRazd("\t\t"), "\t");
}

TEST(GetRazd, BlankOtherwise)
{
    EXPECT_EQ(GetRazd(""), " ");
    EXPECT_EQ(GetRazd("abc"), " ");
    EXPECT_EQ(GetRazd("a b c"), " ");
    EXPECT_EQ(GetRazd("a b\tc"), " "); // two tokens each
    EXPECT_EQ(GetRazd("a b c\td"), " ");
    EXPECT_EQ(GetRazd("a\t"), " "); // a separator at the end begins no token
}

TEST(Replace, EveryOccurrenceGoes)
{
    EXPECT_EQ(replace("a.b.c", ".", ""), "abc");
    EXPECT_EQ(replace("a.b.c", ".", "--"), "a--b--c");
    EXPECT_EQ(replace("....", "..", "x"), "xx");
    EXPECT_EQ(replace("abc", "abc", ""), "");
    EXPECT_EQ(replace("abc", "abcd", "x"), "abc");
    EXPECT_EQ(replace("abc", "x", "y"), "abc");
    EXPECT_EQ(replace("", "x", "y"), "");
}

TEST(Replace, ReplacementsThatMakeTheTextAnewAreReplacedToo)
{
    EXPECT_EQ(replace("aabb", "ab", ""), "");
    EXPECT_EQ(replace("a    b", "  ", " "), "a b");
    EXPECT_EQ(replace("abb", "ab", "ba"), "bba");
    EXPECT_EQ(replace("aaabbb", "ab", "ba"), "bbbaaa");
    EXPECT_EQ(replace("xaay", "aa", "a"), "xay");
}

TEST(Replace, EqualTextsChangeNothing)
{
    EXPECT_EQ(replace("a.b", ".", "."), "a.b");
    EXPECT_EQ(replace("abc", "", ""), "abc");
    EXPECT_EQ(replace("", "", ""), "");
}

TEST(Replace, ATextThatDoesNotOccurEndsWhateverItsReplacement)
{
    EXPECT_EQ(replace("xyz", "a", "aa"), "xyz");
}

TEST(Replace, EmptyTextToReplaceNeverEnds)
{
    EXPECT_TRUE(runInChild([] { replace("abc", "", "x"); }, endlessAfter).timedOut);
}

TEST(Replace, ReplacementThatHoldsWhatItReplacesNeverEnds)
{
    EXPECT_TRUE(runInChild([] { replace("a.b", ".", ".."); }, endlessAfter).timedOut);
    EXPECT_TRUE(runInChild([] { replace("xay", "a", "bab"); }, endlessAfter).timedOut);
}

TEST(Trim, WhiteSpaceGoesFromTheSideThatIsAskedFor)
{
    const struct
    {
        const char *text, *left, *right, *both;
    } rows[] = {
        {"", "", "", ""},
        {"abc", "abc", "abc", "abc"},
        {"  a b  ", "a b  ", "  a b", "a b"},
        {" \t\n\v\f\rx \t\n\v\f\r", "x \t\n\v\f\r", " \t\n\v\f\rx", "x"},
        {" \t\n\v\f\r", "", "", ""},
        {"\xa0x\xa0", "\xa0x\xa0", "\xa0x\xa0", "\xa0x\xa0"},
        {" \xc3\xa9 ", "\xc3\xa9 ", " \xc3\xa9", "\xc3\xa9"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        std::string text = row.text;
        myltrim(text);
        EXPECT_EQ(text, row.left);
        text = row.text;
        myrtrim(text);
        EXPECT_EQ(text, row.right);
        text = row.text;
        mytrim(text);
        EXPECT_EQ(text, row.both);
    }
}

TEST(DeleteSymbol, EveryCharacterOfTheSetGoes)
{
    const struct
    {
        const char *text, *set, *rest;
    } rows[] = {
        {"a-b-c", "-", "abc"}, {"-a--", "-", "a"}, {"a-b_c", "_-", "abc"}, {"---", "-", ""},
        {"abc", "xyz", "abc"}, {"abc", "", "abc"}, {"", "-", ""},          {"", "", ""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        std::string text = row.text;
        DeleteSymbol(text, row.set);
        EXPECT_EQ(text, row.rest);
    }
}

TEST(DeleteLastSymbol, OnlyTheLastCharacterOfTheSetGoes)
{
    const struct
    {
        const char *text, *set, *rest;
    } rows[] = {
        {"a-b-c", "-", "a-bc"}, {"a-b_c", "-_", "a-bc"}, {"a_b-c", "-_", "a_bc"},
        {"--", "-", "-"},       {"-abc", "-", "abc"},    {"abc", "xyz", "abc"},
        {"abc", "", "abc"},     {"", "-", ""},           {"", "", ""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        std::string text = row.text;
        DeleteLastSymbol(text, row.set);
        EXPECT_EQ(text, row.rest);
    }
}

TEST(DelForbiddenSymbols, NineCharactersBecomeTheReplacement)
{
    for (const char symbol : {'*', '|', '\'', '/', '"', ':', '>', '<', '?'}) {
        SCOPED_TRACE(symbol);
        EXPECT_EQ(DelForbiddenSymbols(std::string("a") + symbol + "b" + symbol, "_"), "a_b_");
    }
    EXPECT_EQ(DelForbiddenSymbols("*|'/\":><?", "_"), "_________");
    EXPECT_EQ(DelForbiddenSymbols("2011 HP: \"a/b\"", ""), "2011 HP ab");
    EXPECT_EQ(DelForbiddenSymbols("a:b", "--"), "a--b");
}

TEST(DelForbiddenSymbols, OtherCharactersStay)
{
    std::string others;
    for (int byte = 1; byte < 256; ++byte) {
        if (std::strchr("*|'/\":><?", byte) == nullptr) {
            others += static_cast<char>(byte);
        }
    }
    EXPECT_EQ(others.size(), 246u);
    EXPECT_EQ(DelForbiddenSymbols(others, "_"), others);
    EXPECT_EQ(DelForbiddenSymbols("", "_"), "");
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
        EXPECT_TRUE(sameBits(toDouble(text), readByStrtod(text))) << toDouble(text);
        EXPECT_EQ(toInt(text), readByStrtol(text));
    }
}

TEST(TextToNumber, RandomTextsReadAsTheCLibraryReadsThem)
{
    Random random(10);
    int differences = 0;
    for (int i = 0; i < 300000 && differences < 5; ++i) {
        const std::string text = randomText(random);
        if (!sameBits(toDouble(text), readByStrtod(text)) || toInt(text) != readByStrtol(text)) {
            ADD_FAILURE() << '"' << text << "\": " << toDouble(text) << ", " << toInt(text);
            ++differences;
        }
    }
}

TEST(TextToNumber, PrintedNumbersReadAsTheCLibraryReadsThem)
{
    Random random(11);
    int differences = 0;
    const auto compare = [&differences](const char* text) {
        if (!sameBits(toDouble(text), std::strtod(text, nullptr))) {
            ADD_FAILURE() << text;
            ++differences;
        }
    };
    for (int i = 0; i < 60000 && differences < 5; ++i) {
        char text[64];
        std::snprintf(text, sizeof text, "%.*f", random.below(18), random.fraction() * 360.0);
        compare(text);
        std::snprintf(text, sizeof text, "%.*e", random.below(25), std::bit_cast<double>(random.bits()));
        compare(text);
    }
}

// A view into a longer text ends where it ends: nothing behind it is read, not even to look.
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
        EXPECT_TRUE(sameBits(toDouble(view), readByStrtod(text)));
        EXPECT_EQ(toInt(view), readByStrtol(text));
    }
}

TEST(AppendFixedTwoDigits, ZeroInFrontOfWhatRoundsBelowTen)
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
        std::string out = "before";
        appendFixedTwoDigits(out, row.value, row.precision);
        EXPECT_EQ(out, std::string("before") + row.text);
    }
}

TEST(AppendTwoDigits, ZeroInFrontOfAValueOfAtMostNine)
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
        std::string out = "before";
        appendTwoDigits(out, row.value);
        EXPECT_EQ(out, std::string("before") + row.text);
    }
}

TEST(ErasePoint, FirstPointAtOrBehindThePositionGoes)
{
    const struct
    {
        const char* text;
        std::size_t position;
        const char* rest;
    } rows[] = {
        {"12.5", 0, "125"},    {"1.2.3", 0, "12.3"},  {"1.2.3", 1, "12.3"}, {"1.2.3", 2, "1.23"},
        {"1.2.3", 4, "1.2.3"}, {"1.2.3", 5, "1.2.3"}, {"125", 0, "125"},    {"", 0, ""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        std::string out = row.text;
        erasePoint(out, row.position);
        EXPECT_EQ(out, row.rest);
    }
}

TEST(AppendPadded, BlanksFillTheWidthOnTheSideOfTheName)
{
    std::string out = "|";
    appendPaddedRight(out, "ab", 5);
    EXPECT_EQ(out, "|ab   ");
    out = "|";
    appendPaddedLeft(out, "ab", 5);
    EXPECT_EQ(out, "|   ab");
    out = "|";
    appendPaddedRight(out, "", 2);
    appendPaddedLeft(out, "", 3);
    EXPECT_EQ(out, "|     ");
}

TEST(AppendPadded, LongerTextIsKeptWhole)
{
    std::string out = "|";
    appendPaddedRight(out, "abcdefg", 5);
    appendPaddedLeft(out, "hijklmn", 5);
    appendPaddedRight(out, "opq", 3);
    appendPaddedLeft(out, "rst", 3);
    appendPaddedRight(out, "u", 0);
    EXPECT_EQ(out, "|abcdefghijklmnopqrstu");
}
