#include "exhaustive/binary_number.h"
#include "exhaustive/sexagesimal_text.h"
#include "exhaustive/sweeps.h"
#include "text/angle_text.h"
#include "text/written_text.h"

#include <cstdint>
#include <string>

using namespace tavelinUtils;

namespace {

constexpr std::uint64_t tenthsOfADegree = 36'000;
constexpr std::uint64_t hoursToDegrees = 15;

struct Sexagesimal
{
    std::uint64_t whole;
    std::uint64_t minutes;
    BinaryNumber seconds;
};

Sexagesimal splitOf(BinaryNumber magnitude)
{
    const BinaryNumber minutes = magnitude.fraction().times(60);
    return {magnitude.whole(), minutes.whole(), minutes.fraction().times(60)};
}

// An angle as text: what its digits say is read again.
struct AngleText
{
    std::uint64_t whole;
    std::uint64_t minutes;
    std::uint64_t scaled; // seconds in units of the last decimal
    int decimals;

    AngleText(const Sexagesimal& angle, int itsDecimals)
        : whole(angle.whole), minutes(angle.minutes), scaled(angle.seconds.scaled(unitOf(itsDecimals))),
          decimals(itsDecimals)
    {
    }

    std::string toMinutes(const char* separator) const
    {
        return twoDigits(whole) + separator + twoDigits(minutes);
    }
    std::string separated(const char* separator) const
    {
        return toMinutes(separator) + separator + seconds();
    }
    std::string packed() const
    {
        return toMinutes("") + fixedTwoDigits(scaled, decimals, "");
    }
    std::string seconds() const
    {
        return fixedTwoDigits(scaled, decimals);
    }

    // The number that the text means, with so many units to a second.
    BinaryNumber meaning(std::uint64_t units) const
    {
        return BinaryNumber::ratio(whole, 1)
            .plus(BinaryNumber::ratio(minutes, 60))
            .plus(BinaryNumber::ratio(scaled, units).over(3600));
    }
    BinaryNumber meaning() const
    {
        return meaning(unitOf(decimals));
    }
};

// A tenth of an arcsecond with its sign, and what is found of its texts.
class Tenth
{
public:
    Tenth(std::uint64_t itsNumber, bool isNegative, Differences& its)
        : number(itsNumber), magnitude(BinaryNumber::ratio(itsNumber, tenthsOfADegree)),
          degrees(signedly(magnitude, isNegative)), sign(isNegative && itsNumber > 0 ? "-" : ""),
          differences(its)
    {
    }

    void sweep()
    {
        const Sexagesimal hours = splitOf(magnitude.over(hoursToDegrees));
        const Sexagesimal angle = splitOf(magnitude);
        for (const int decimals : {0, 1, 2, 3, 4}) {
            sweepRA(AngleText(hours, decimals));
            sweepDE(AngleText(angle, decimals));
        }
        expect(RAToStr(degrees, 2, ":", false), sign + AngleText(hours, 2).toMinutes(":"),
               "RAToStr, without seconds,", 2);
        expect(DEToStr(degrees, 2, ":", false), sign + AngleText(angle, 2).toMinutes(":"),
               "DEToStr, without seconds,", 2);
    }

private:
    static double signedly(BinaryNumber number, bool isNegative)
    {
        return isNegative ? -number.value() : number.value();
    }

    // What writes an angle, each with its name.
    struct Writers
    {
        std::string (*toStr)(double degrees, int precision, std::string separator, bool seconds);
        const char* ofToStr;
        char* (*separated)(char* to, double degrees, int precision, char separator);
        const char* ofSeparated;
        char* (*packed)(char* to, double degrees, int precision);
        const char* ofPacked;
    };

    void sweepWriters(const AngleText& text, const Writers& writers)
    {
        const int decimals = text.decimals;
        expect(writers.toStr(degrees, decimals, ":", true), sign + text.separated(":"), writers.ofToStr,
               decimals);
        char written[sexagesimalRoom];
        const char* end = writers.separated(written, degrees, decimals, ' ');
        expect({written, end}, sign + text.separated(" "), writers.ofSeparated, decimals);
        end = writers.packed(written, degrees, decimals);
        expect({written, end}, sign + text.packed(), writers.ofPacked, decimals);
    }

    void sweepRA(const AngleText& text)
    {
        sweepWriters(text, {RAToStr, "RAToStr", writeRA, "writeRA", writePackedRA, "writePackedRA"});
        if (sign.empty()) {
            sweepReadersOfRA(text);
        }
    }

    void sweepReadersOfRA(const AngleText& text)
    {
        const int decimals = text.decimals;
        const double expected = text.meaning().times(hoursToDegrees).value();
        expect(StrToRA(twoDigits(text.whole), twoDigits(text.minutes), text.seconds()), expected, "StrToRA",
               decimals);
        expect(StrRAToDecimal(text.separated(":")), expected, "StrRAToDecimal, colons,", decimals);
        expect(StrRAToDecimal(text.separated(" ")), expected, "StrRAToDecimal, blanks,", decimals);
        expect(pStrTelegrammaToRA(text.packed()), expected, "pStrTelegrammaToRA", decimals);
    }

    void sweepDE(const AngleText& text)
    {
        sweepWriters(text, {DEToStr, "DEToStr", writeDE, "writeDE", writePackedDE, "writePackedDE"});
        sweepReadersOfDE(text);
    }

    void sweepReadersOfDE(const AngleText& text)
    {
        const int decimals = text.decimals;
        const double expected = signedly(text.meaning(), !sign.empty());
        expect(StrToDE(sign + twoDigits(text.whole), twoDigits(text.minutes), text.seconds()), expected,
               "StrToDE", decimals);
        expect(StrDEToDecimal(sign + text.separated(":")), expected, "StrDEToDecimal, colons,", decimals);
        expect(StrDEToDecimal(sign + text.separated(" ")), expected, "StrDEToDecimal, blanks,", decimals);
        sweepPoints(text);
        sweepPackedDE(text, expected);
    }

    // After points the fraction of the seconds is the fourth part, which is not read.
    void sweepPoints(const AngleText& text)
    {
        if (text.decimals > 0) {
            AngleText cut = text;
            cut.scaled = text.scaled / unitOf(text.decimals);
            expect(StrDEToDecimal(sign + text.separated(".")), signedly(cut.meaning(1), !sign.empty()),
                   "StrDEToDecimal, points,", text.decimals);
        }
    }

    // Sign and degrees have three places, so that only what has a hundred degrees needs no sign.
    void sweepPackedDE(const AngleText& text, double expected)
    {
        if (text.whole < 100) {
            const std::string shown = sign.empty() ? "+" : sign;
            expect(pStrTelegrammaToDE(shown + text.packed()), expected, "pStrTelegrammaToDE", text.decimals);
        } else if (sign.empty()) {
            expect(pStrTelegrammaToDE(text.packed()), expected, "pStrTelegrammaToDE", text.decimals);
        }
    }

    void expect(double found, double expected, const char* operation, int decimals)
    {
        differences.expect(found, expected, operation, decimals, number);
    }
    void expect(std::string_view found, std::string_view expected, const char* operation, int decimals)
    {
        differences.expect(found, expected, operation, decimals, number);
    }

    std::uint64_t number;
    BinaryNumber magnitude;
    double degrees;
    std::string sign;
    Differences& differences;
};

} // namespace

void sweepAngles(const Stretch& stretch, Differences& differences)
{
    for (std::uint64_t number = stretch.begin; number < stretch.end; number += stretch.step) {
        for (const bool isNegative : {false, true}) {
            Tenth(number, isNegative, differences).sweep();
        }
    }
}
