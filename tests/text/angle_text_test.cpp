#include "text/angle_text.h"

#include "base/text_buffer.h"
#include "support/locales.h"
#include "support/written.h"
#include "text/written_text.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <stdexcept>
#include <string>
#include <string_view>

using namespace tavelinUtils;

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

struct Written
{
    double degrees;
    int precision;
    const char* separator;
    const char* withSeconds;
    const char* withoutSeconds;
};

const Written rightAscensions[] = {
    {15.0, 2, ":", "01:00:00.00", "01:00"},          {0.0, 2, " ", "00 00 00.00", "00 00"},
    {187.5, 3, ":", "12:30:00.000", "12:30"},        {123.456789, 4, " ", "08 13 49.6294", "08 13"},
    {266.41683708, 3, " ", "17 45 40.041", "17 45"}, {150.0, 2, "", "100000.00", "1000"},
    {2.5, 2, ":", "00:10:00.00", "00:10"},           {0.25, 2, ":", "00:01:00.00", "00:01"},
    {150.0, 1, " h ", "10 h 00 h 00.0", "10 h 00"},
};

const Written declinations[] = {
    {0.5, 1, ":", "00:30:00.0", "00:30"},  {90.0, 1, ":", "90:00:00.0", "90:00"},
    {0.0, 2, " ", "00 00 00.00", "00 00"}, {12.582222, 2, ":", "12:34:56.00", "12:34"},
    {0.01, 1, ":", "00:00:36.0", "00:00"}, {100.25, 1, ":", "100:15:00.0", "100:15"},
    {5.75, 2, "", "054500.00", "0545"},
};

// The rule of the texts a second time, with the printing and reading of the C library.
std::string plainAngle(double degrees, double value, int precision)
{
    const int whole = static_cast<int>(value);
    const double minutes = (value - whole) * 60.0;
    const int minute = static_cast<int>(minutes);
    const std::string seconds = printInC("%.*f", precision, (minutes - minute) * 60.0);
    std::string text = degrees < 0.0 ? "-" : "";
    text += (whole <= 9 ? "0" : "") + std::to_string(whole) + ":";
    text += (minute <= 9 ? "0" : "") + std::to_string(minute) + ":";
    text += readInC(seconds) < 10.0 ? "0" : "";
    return text + seconds;
}

void expectWritten(const Written& row, std::string (*write)(double, int, std::string, bool))
{
    SCOPED_TRACE(row.withSeconds);
    EXPECT_EQ(write(row.degrees, row.precision, row.separator, true), row.withSeconds);
    EXPECT_EQ(write(row.degrees, row.precision, row.separator, false), row.withoutSeconds);
}

} // namespace

TEST(RightAscensionText, DegreesAreWrittenAsHours)
{
    for (const Written& row : rightAscensions) {
        expectWritten(row, RAToStr);
    }
}

TEST(DeclinationText, DegreesAreWrittenAsDegreesWithoutASignWhenPositive)
{
    for (const Written& row : declinations) {
        expectWritten(row, DEToStr);
    }
}

TEST(RightAscensionText, NegativeDegreesHaveAMinus)
{
    EXPECT_EQ(RAToStr(-15.0, 2, ":", true), "-01:00:00.00");
    EXPECT_EQ(RAToStr(-15.0, 2, ":", false), "-01:00");
    EXPECT_EQ(RAToStr(-0.001, 2, ":", true), "-00:00:00.24");
    EXPECT_EQ(RAToStr(-0.0, 2, ":", true), "00:00:00.00");
}

TEST(DeclinationText, NegativeDegreesHaveAMinusAlsoBelowOneDegree)
{
    EXPECT_EQ(DEToStr(-0.5, 1, ":", true), "-00:30:00.0");
    EXPECT_EQ(DEToStr(-0.5, 1, ":", false), "-00:30");
    EXPECT_EQ(DEToStr(-90.0, 0, " ", true), "-90 00 00");
    EXPECT_EQ(DEToStr(-29.00781056, 2, " ", true), "-29 00 28.12");
    EXPECT_EQ(DEToStr(-89.508333333, 3, "", true), "-893030.000");
    EXPECT_EQ(DEToStr(-5.75, 2, ":", true), "-05:45:00.00");
    EXPECT_EQ(DEToStr(-1e-9, 2, ":", true), "-00:00:00.00");
    EXPECT_EQ(DEToStr(-0.0, 2, ":", true), "00:00:00.00");
}

TEST(RightAscensionText, SecondsThatRoundUpStandAs60)
{
    EXPECT_EQ(RAToStr(359.9999999, 2, " ", true), "23 59 60.00");
    EXPECT_EQ(RAToStr(359.9999999, 5, " ", true), "23 59 59.99998");
    EXPECT_EQ(RAToStr(149.99999999, 1, ":", true), "09:59:60.0");
    EXPECT_EQ(RAToStr(14.99999, 2, ":", true), "00:59:60.00");
    EXPECT_EQ(RAToStr(44.9999, 2, ":", true), "02:59:59.98");
}

TEST(DeclinationText, SecondsThatRoundUpStandAs60)
{
    EXPECT_EQ(DEToStr(12.9999999, 1, ":", true), "12:59:60.0");
    EXPECT_EQ(DEToStr(-12.9999999, 1, ":", true), "-12:59:60.0");
    EXPECT_EQ(DEToStr(9.999999999, 3, ":", true), "09:59:60.000");
    EXPECT_EQ(DEToStr(89.999999, 2, ":", true), "89:59:60.00");
    EXPECT_EQ(DEToStr(0.0166666, 0, ":", true), "00:00:60");
}

TEST(RightAscensionText, WithoutSecondsTheMinutesAreCut)
{
    EXPECT_EQ(RAToStr(359.9999999, 2, " ", false), "23 59");
    EXPECT_EQ(RAToStr(149.99999999, 1, ":", false), "09:59");
}

TEST(DeclinationText, WithoutSecondsTheMinutesAreCut)
{
    EXPECT_EQ(DEToStr(12.9999999, 1, ":", false), "12:59");
    EXPECT_EQ(DEToStr(-29.99, 2, ":", false), "-29:59");
}

TEST(RightAscensionText, FullCircleIsHour24AndFurtherOnesAreNotWrapped)
{
    EXPECT_EQ(RAToStr(360.0, 0, ":", true), "24:00:00");
    EXPECT_EQ(RAToStr(375.0, 1, ":", true), "25:00:00.0");
    EXPECT_EQ(RAToStr(1500.0, 2, ":", true), "100:00:00.00");
    EXPECT_EQ(RAToStr(15000.0, 2, ":", false), "1000:00");
}

TEST(RightAscensionText, LeadingZeroOfTheSecondsLooksAtTheRoundedText)
{
    EXPECT_EQ(RAToStr(0.0416499, 2, ":", true), "00:00:10.00");
    EXPECT_EQ(RAToStr(0.0416499, 3, ":", true), "00:00:09.996");
}

TEST(DeclinationText, LeadingZeroOfTheSecondsLooksAtTheRoundedText)
{
    EXPECT_EQ(DEToStr(0.0027766666666666667, 2, ":", true), "00:00:10.00");
    EXPECT_EQ(DEToStr(0.0027766666666666667, 3, ":", true), "00:00:09.996");
}

TEST(AngleText, PrecisionZeroGivesNoPoint)
{
    EXPECT_EQ(RAToStr(0.0104, 0, ":", true), "00:00:02");
    EXPECT_EQ(RAToStr(15.0, 0, ":", true), "01:00:00");
    EXPECT_EQ(DEToStr(-0.5, 0, ":", true), "-00:30:00");
}

TEST(AngleText, TinyAnglesAreZeros)
{
    EXPECT_EQ(RAToStr(1e-300, 3, ":", true), "00:00:00.000");
    EXPECT_EQ(DEToStr(-5e-324, 1, ":", true), "-00:00:00.0");
}

TEST(AngleText, AnglesBeyondTheIntegersStandAtTheirLastOne)
{
    EXPECT_EQ(DEToStr(1e10, 2, ":", true), "2147483647:2147483647:28140209851980.00");
    EXPECT_EQ(DEToStr(-1e10, 2, ":", false), "-2147483647:2147483647");
    EXPECT_EQ(RAToStr(15e10, 2, ":", false), "2147483647:2147483647");
}

TEST(AngleText, NotANumberAndInfinities)
{
    EXPECT_EQ(RAToStr(notANumber, 2, ":", true), "00:00:nan");
    EXPECT_EQ(DEToStr(notANumber, 2, ":", false), "00:00");
    EXPECT_EQ(RAToStr(infinity, 2, ":", true), "2147483647:2147483647:inf");
    EXPECT_EQ(DEToStr(-infinity, 2, ":", true), "-2147483647:2147483647:inf");
}

TEST(AngleText, ManyAnglesKeepTheRules)
{
    std::uint64_t state = 20230225;
    int wrong = 0;
    for (int i = 0; i < 40000 && wrong < 3; ++i) {
        state = state * 6364136223846793005u + 1442695040888963407u;
        // Every second one is a whole number of hundredths of a second, which print close to their ties.
        const double degrees = i % 2 == 0
                                   ? static_cast<double>(state >> 11) / 9007199254740992.0 * 720.0 - 360.0
                                   : static_cast<double>(state >> 40) / 360000.0 - 20.0;
        const int precision = i % 5;
        const std::string ra = RAToStr(degrees, precision, ":", true);
        const std::string de = DEToStr(degrees, precision, ":", true);
        const std::string plainRA = plainAngle(degrees, std::abs(degrees) / 15.0, precision);
        const std::string plainDE = plainAngle(degrees, std::abs(degrees), precision);
        if (ra != plainRA || de != plainDE) {
            ++wrong;
            EXPECT_EQ(ra, plainRA) << degrees;
            EXPECT_EQ(de, plainDE) << degrees;
        }
    }
}

TEST(AngleText, WrittenAnglesAreThoseOfTheTextFunctions)
{
    for (const double degrees :
         {0.0, -0.0, 15.0, -15.0, -0.5, 0.0416499, 123.456789, -29.00781056, 359.9999999, 360.0, 1500.0, 1e10,
          -1e300, 5e-324, notANumber, infinity, -infinity})
    {
        for (const int precision : {0, 1, 2, 3, 6, 12}) {
            for (const char separator : {' ', ':', '.'}) {
                SCOPED_TRACE(degrees);
                const std::string text(1, separator);
                EXPECT_EQ(written([=](char* to) { return writeRA(to, degrees, precision, separator); }),
                          RAToStr(degrees, precision, text, true));
                EXPECT_EQ(written([=](char* to) { return writeDE(to, degrees, precision, separator); }),
                          DEToStr(degrees, precision, text, true));
            }
        }
    }
}

TEST(RightAscensionParts, HoursMinutesAndSecondsGiveDegrees)
{
    const struct
    {
        const char *hours, *minutes, *seconds;
        double degrees;
    } rows[] = {
        {"12", "30", "00", 187.5},
        {"1", "2", "3", 15.5125},
        {"01", "02", "03.456", 15.514400000000002},
        {"23", "59", "59.999", 359.99999583333334},
        {"1.5", "0.5", "0.25", 22.626041666666666},
        {" 12 ", "\t30", "+0", 187.5},
        {"24", "0", "0", 360.0},
        {"-1", "30", "0", -7.5}, // a sign counts for its own part only
        {"5", "-30", "0", 67.5},
        {"12h", "30m", "0s", 187.5},
        {"h", "m", "s", 0.0},
        {"", "", "", 0.0},
        {"12", "", "", 180.0},
        {"", "30", "", 7.5},
        {"", "", "36", 0.15},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.degrees);
        EXPECT_EQ(StrToRA(row.hours, row.minutes, row.seconds), row.degrees);
        EXPECT_EQ(raOf(row.hours, row.minutes, row.seconds), row.degrees);
    }
}

TEST(DeclinationParts, DegreesMinutesAndSecondsGiveDegrees)
{
    const struct
    {
        const char *degrees, *minutes, *seconds;
        double angle;
    } rows[] = {
        {"12", "30", "15", 12.504166666666666},
        {"12", "34", "56.789", 12.582441388888888},
        {"+89", "59", "59.9", 89.99997222222223},
        {"-00", "30", "0", -0.5},
        {"-0", "30", "0", -0.5},
        {"-5", "30", "0", -5.5},
        {"-12", "30", "15.5", -12.504305555555556},
        {"5", "-30", "0", 4.5},
        {"-5", "-30", "0", -4.5},
        {"1.5", "0.5", "0.25", 1.5084027777777778},
        {"-", "30", "0", -0.5},
        {"-x", "30", "0", -0.5},
        {" -5", "30", "0", 5.5}, // the minus does not stand first
        {"", "30", "0", 0.5},
        {"x", "y", "z", 0.0},
        {"", "", "", 0.0},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.degrees);
        EXPECT_EQ(StrToDE(row.degrees, row.minutes, row.seconds), row.angle);
        EXPECT_EQ(deOf(row.degrees, row.minutes, row.seconds), row.angle);
    }
}

TEST(DeclinationParts, MinusZeroKeepsItsSign)
{
    EXPECT_EQ(StrToDE("-00", "00", "00"), 0.0);
    EXPECT_TRUE(std::signbit(StrToDE("-00", "00", "00")));
    EXPECT_FALSE(std::signbit(StrToDE("00", "00", "00")));
}

TEST(AngleParts, ViewsEndWhereTheyEnd)
{
    const std::string_view digits = "123456";
    EXPECT_EQ(raOf(digits.substr(0, 2), digits.substr(2, 2), digits.substr(4, 1)), 188.52083333333331);
    EXPECT_EQ(deOf(digits.substr(0, 1), digits.substr(1, 1), digits.substr(2, 1)), 1.0341666666666667);
}

TEST(RightAscensionOfOneText, TakenTexts)
{
    const struct
    {
        const char* text;
        double degrees;
    } rows[] = {
        {"12:30:00", 187.5},
        {"12 30 00", 187.5},
        {"01 02 03.456", 15.514400000000002},
        {"01:02:03.456", 15.514400000000002},
        {"-1:30:00", -7.5},
        {"12.5", 12.5},
        {"-12.5", -12.5},
        {"+359.75", 359.75},
        {"1e2", 100.0},
        {"12.5deg", 12.5},
        {"12,5", 12.0},
        {"12.30.00", 12.3}, // points part nothing here
        {"12.30.15.5", 12.3},
        {"12  30", 180.125}, // the empty part in the middle is the minutes
        {"12::30", 180.125},
        {"  ", 0.0},             // three empty parts
        {"12:30:00 0 0", 180.0}, // blanks come first: a colon ends the number of the hours
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(StrRAToDecimal(row.text), row.degrees);
        EXPECT_EQ(raToDecimal(row.text), row.degrees);
    }
}

TEST(RightAscensionOfOneText, OneTextThatIsNoNumberIsZeroAndNoFailure)
{
    for (const char* text : {"", "abc", "-", ".", "h12"}) {
        SCOPED_TRACE(text);
        EXPECT_EQ(StrRAToDecimal(text), 0.0);
        EXPECT_EQ(raToDecimal(text), 0.0);
    }
}

TEST(RightAscensionOfOneText, RefusedTexts)
{
    for (const char* text :
         {"12 30", "12:30", "1 2 3 4", "1:2:3:4", "1 2 3 4 5", "12:30 00", "12 30:00", "12 30 00 ",
          " 12 30 00", "12:30:00:", ":12:30:00", " 12.5", "12.5 ", ":12", "12:", " ", "a b"})
    {
        SCOPED_TRACE(text);
        EXPECT_EQ(StrRAToDecimal(text), -100.0);
        EXPECT_EQ(raToDecimal(text), -100.0);
    }
}

TEST(DeclinationOfOneText, TakenTexts)
{
    const struct
    {
        const char* text;
        double degrees;
    } rows[] = {
        {"12 30 15", 12.504166666666666},
        {"12:30:15", 12.504166666666666},
        {"12 30 15.5", 12.504305555555556},
        {"12:30:15.5", 12.504305555555556},
        {"12.30.15.5", 12.504166666666666}, // the fraction of the seconds is lost
        {"12.30.15.9", 12.504166666666666},
        {"12.30.15.", 12.504166666666666},
        {"12.30.15.x", 12.504166666666666},
        {"-00.30.00.0", -0.5},
        {"-00:30:00", -0.5},
        {"-00 30 00", -0.5},
        {"+05 30 00", 5.5},
        {"12.5", 12.5},
        {"-12.5", -12.5},
        {"-12", -12.0},
        {"1e1", 10.0},
        {"12.5deg", 12.5},
        {"1.2.3", 1.2}, // neither four parts nor a failure
        {"1.2.3.4.5", 1.2},
        {"12.", 12.0},
        {".5", 0.5},
        {"12  36", 12.01},
        {"12::36", 12.01},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(StrDEToDecimal(row.text), row.degrees);
        EXPECT_EQ(deToDecimal(row.text), row.degrees);
    }
}

TEST(DeclinationOfOneText, OneTextThatIsNoNumberIsZeroAndNoFailure)
{
    for (const char* text : {"", "abc", "-", ".", "x.y", "d.m.s.f"}) {
        SCOPED_TRACE(text);
        EXPECT_EQ(StrDEToDecimal(text), 0.0);
        EXPECT_EQ(deToDecimal(text), 0.0);
    }
}

TEST(DeclinationOfOneText, RefusedTexts)
{
    for (const char* text :
         {"12 30", "12:30", "1 2 3 4", "1:2:3:4", "12:30 15", "12 30:15", "12 30 15 ", " 12 30 15",
          "12:30:15:", " 12.5", "12.5 ", "12.30.15.5 ", "12.30:15.5", " ", "a b"})
    {
        SCOPED_TRACE(text);
        EXPECT_EQ(StrDEToDecimal(text), -100.0);
        EXPECT_EQ(deToDecimal(text), -100.0);
    }
}

TEST(PackedRightAscension, SecondsHaveAnyNumberOfDecimals)
{
    const struct
    {
        const char* text;
        double degrees;
    } rows[] = {
        {"0100000000", 15.0},
        {"123000", 187.5},
        {"010203456", 15.514400000000002},
        {"01020345600000", 15.514400000000002},
        {"123456789", 188.73662083333332},
        {"120030", 180.125},
        {"240000", 360.0},
        {"-13000", -7.5}, // the hours are the first two characters whatever they are
        {"hhmmss", 0.0},
        {"12mmss", 180.0},
        {"12 0 0", 180.0},
        {"1200003e1", 180.0125},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(pStrTelegrammaToRA(row.text), row.degrees);
        EXPECT_EQ(packedRA(row.text), row.degrees);
    }
}

TEST(PackedRightAscension, BelowSixCharactersIsOutOfRange)
{
    for (const char* text : {"", "0", "01", "010", "0102", "01020"}) {
        SCOPED_TRACE(text);
        EXPECT_THROW(pStrTelegrammaToRA(text), std::out_of_range);
        EXPECT_THROW(packedRA(text), std::out_of_range);
    }
}

TEST(PackedDeclination, FirstThreeCharactersAreSignAndDegrees)
{
    const struct
    {
        const char* text;
        double degrees;
    } rows[] = {
        {"-0030000000", -0.5},
        {"+0030000000", 0.5},
        {"+123015", 12.504166666666666},
        {"-1230155", -12.504305555555556},
        {"+123456789", 12.582441388888888},
        {" 123015", 12.504166666666666},
        {"-003000", -0.5},
        {"+xxyyzz", 0.0},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(pStrTelegrammaToDE(row.text), row.degrees);
        EXPECT_EQ(packedDE(row.text), row.degrees);
    }
}

// The writers give a positive declination without a sign; read as packed text it is another one.
TEST(PackedDeclination, TextWithoutASignReadsWrongly)
{
    EXPECT_EQ(pStrTelegrammaToDE("0030000000"), 3.0);
    EXPECT_EQ(packedDE("0030000000"), 3.0);
}

TEST(PackedDeclination, BelowSevenCharactersIsOutOfRange)
{
    for (const char* text : {"", "-", "-0", "-00", "-003", "-0030", "-00300"}) {
        SCOPED_TRACE(text);
        EXPECT_THROW(pStrTelegrammaToDE(text), std::out_of_range);
        EXPECT_THROW(packedDE(text), std::out_of_range);
    }
}

TEST(PackedSeconds, TwoCharactersAPointAndTheRest)
{
    EXPECT_EQ(packedSeconds("010203456", 4), 3.456);
    EXPECT_EQ(packedSeconds("010203", 4), 3.0);
    EXPECT_EQ(packedSeconds("-0030591", 5), 59.1);
    EXPECT_EQ(packedSeconds("12", 0), 12.0);
    EXPECT_EQ(packedSeconds("99999999", 0), 99.999999);
    EXPECT_EQ(packedSeconds("xx5", 0), 0.0);
    EXPECT_EQ(packedSeconds("12x", 0), 12.0);
    EXPECT_EQ(packedSeconds("-5", 0), -5.0);
    EXPECT_EQ(packedSeconds("005e1", 0), 5.0);
    EXPECT_EQ(packedSeconds("00" + std::string(36, '0') + "1", 0), 1e-37);
}

TEST(PackedSeconds, TextThatEndsBeforeTheTwoCharactersIsOutOfRange)
{
    EXPECT_THROW(packedSeconds("01020", 4), std::out_of_range);
    EXPECT_THROW(packedSeconds("0102", 4), std::out_of_range);
    EXPECT_THROW(packedSeconds("01", 4), std::out_of_range);
    EXPECT_THROW(packedSeconds("", 0), std::out_of_range);
}

TEST(PackedAngles, HaveNeitherSeparatorNorPoint)
{
    EXPECT_EQ(written([](char* to) { return writePackedRA(to, 15.0, 4); }), "0100000000");
    EXPECT_EQ(written([](char* to) { return writePackedDE(to, -0.5, 2); }), "-00300000");
    EXPECT_EQ(written([](char* to) { return writePackedDE(to, 12.0916666, 0); }), "120530");
}
