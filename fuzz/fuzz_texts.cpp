// Texts: any text and any number goes through the conversions, and numbers are those of the C library.

#include "base/numbers.h"
#include "base/tokens.h"
#include "files/essentials.h"
#include "input_file.h"
#include "text/angle_text.h"
#include "text/bad_areas.h"
#include "text/date_text.h"
#include "text/number_text.h"

#include <cmath>
#include <cstdio>
#include <cstring>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using namespace tavelinUtils;

bool sameNumber(double a, double b)
{
    return std::memcmp(&a, &b, sizeof a) == 0 || (std::isnan(a) && std::isnan(b));
}

template <class Convert>
void orOutOfRange(Convert convert)
{
    try {
        convert();
    } catch (const std::out_of_range&) {
        // A packed text that is too short.
    }
}

void checkText(const std::string& text)
{
    mustHold(sameNumber(toDouble(text), std::strtod(text.c_str(), nullptr)));
    mustHold(toInt(text) == static_cast<int>(std::strtol(text.c_str(), nullptr, 10)));

    std::vector<std::string> tokens;
    std::vector<std::string> views;
    Pars9(text, tokens, " ");
    forEachToken(text, ' ', [&views](std::string_view token) { views.emplace_back(token); });
    mustHold(tokens == views);

    StrRAToDecimal(text);
    StrDEToDecimal(text);
    orOutOfRange([&] { pStrTelegrammaToRA(text); });
    orOutOfRange([&] { pStrTelegrammaToDE(text); });
    orOutOfRange([&] { StrTELToDate(text); });
    orOutOfRange([&] { StrTELToTime(text); });
    StrToDateTime(text, text, "-", ":");
    StrDateTimeToDTCode(text, text);

    bool ok = true;
    ParsBadAreaFrame(text, ok);
    split(text, ";", true);
    GetRazd(text);
    mustHold(DelForbiddenSymbols(text, "_").size() == text.size());
    std::string trimmed = text;
    mytrim(trimmed);
    mytrim_r(trimmed);
    normalizeSeparatorDir(text);
    ExtractOnlyFileName(text);
    GetFileExt(text);
}

void checkNumber(double value, int precision)
{
    char printed[512];
    const int size = std::snprintf(printed, sizeof printed, "%.*f", precision, value);
    mustHold(Str9(value, precision) == std::string(printed, static_cast<std::size_t>(size)));
    mustHold(sameNumber(SetPrecision(value, precision), std::strtod(printed, nullptr)));
    std::snprintf(printed, sizeof printed, "%g", value);
    mustHold(FloatToStr(value) == printed);
    RAToStr(value, precision, ":", true);
    DEToStr(value, precision, ":", false);
    DayToTime(value, precision, ":");
    DayToTimeMEA(value, precision, false);
    DayToTimeTEL(value);
    MJDToDateMEA(value);
    MJDToDateTime(value, "-", ":", "T", precision);
    DateOfNight(value, 12.0, "-");
}

} // namespace

// The first nine bytes are a number and a precision, the others a text.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    double value = 0;
    if (size > sizeof value) {
        std::memcpy(&value, bytes, sizeof value);
        checkNumber(value, bytes[sizeof value] % 32);
        bytes += sizeof value + 1;
        size -= sizeof value + 1;
    }
    checkText(std::string(reinterpret_cast<const char*>(bytes), size));
    return 0;
}
