#include "base/numbers.h"
#include "text/number_text.h"

#include "base/text_buffer.h"
#include "support/child_process.h"
#include "support/locales.h"
#include "support/random.h"
#include "support/same_bits.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ios>
#include <limits>
#include <string>
#include <vector>

using namespace tavelinUtils;

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr int lowest = -2147483647 - 1;
constexpr int highest = 2147483647;

using Texts = std::vector<std::string>;

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
        TextBuffer out("before");
        appendFixed(out, value, precision);
        ASSERT_EQ(out.view(), "before" + Str9(value, precision));
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
        const std::string text = printInC("%.*f", precision, value);
        const double expected = readInC(text);
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
        TextBuffer out("before");
        appendInt(out, value);
        EXPECT_EQ(out.view(), "before" + IntToStr(value));
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
        const std::string text = printInC("%.*g", 6, value);
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
    EXPECT_EQ(Format("-ab", std::ios_base::internal, 6), "   -ab");
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
