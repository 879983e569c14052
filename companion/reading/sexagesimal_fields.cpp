#include "reading/sexagesimal_fields.h"

#include "base/numbers.h"
#include "base/tokens.h"
#include "out/characters.h"
#include "reading/strict_fields.h"
#include "text/calendar.h"
#include "text/date_text.h"
#include "text/number_text.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <string>

namespace companion {

using tavelinUtils::toDouble;
using tavelinUtils::toInt;

namespace {

constexpr double degreesOfHour = 15.0;

struct Sexagesimal
{
    bool isNegative;
    double whole;
    double minutes;
    double seconds;
};

// Digits, and more behind a point.
bool isUnsigned(std::string_view text)
{
    const std::size_t point = std::min(text.find('.'), text.size());
    const std::string_view fraction = text.substr(std::min(point + 1, text.size()));
    return areDigits(text.substr(0, point)) && (fraction.empty() || areDigits(fraction));
}

// The parts that a person reads; only the last may have a fraction.
std::optional<Sexagesimal> partsOf(std::string_view text, char separator)
{
    const bool isSigned = !text.empty() && (text[0] == '-' || text[0] == '+');
    const bool isNegative = isSigned && text[0] == '-';
    if (isSigned) {
        text.remove_prefix(1);
    }
    std::array<std::string_view, 3> parts;
    const std::size_t count = tavelinUtils::cutParts(text, separator, parts);
    if (count < 2 || count > parts.size()) {
        return std::nullopt;
    }
    for (std::size_t i = 0; i < count; ++i) {
        if (!(i + 1 == count ? isUnsigned(parts[i]) : areDigits(parts[i]))) {
            return std::nullopt;
        }
    }
    return Sexagesimal{isNegative, toDouble(parts[0]), toDouble(parts[1]), toDouble(parts[2])};
}

double degreesOf(AngleKind kind, const Sexagesimal& parts)
{
    const double magnitude = parts.whole + parts.minutes / 60.0 + parts.seconds / 3600.0;
    return (parts.isNegative ? -magnitude : magnitude) *
           (kind == AngleKind::rightAscension ? degreesOfHour : 1.0);
}

void checkRange(AngleKind kind, const Stretch& stretch, double degrees, LintOutput& out)
{
    if (kind == AngleKind::declination && std::abs(degrees) > 90.0) {
        out.add("V121", stretch, {{"value", shortest(degrees)}, {"problem", "is outside -90 to 90"}});
    } else if (kind == AngleKind::rightAscension && !(degrees >= 0.0 && degrees <= 360.0)) {
        out.add("V129", stretch, {{"value", shortest(degrees)}});
    }
}

bool hasDecimalComma(std::string_view text)
{
    const std::size_t comma = text.find(',');
    const auto isDigitAt = [text](std::size_t i) { return i < text.size() && areDigits(text.substr(i, 1)); };
    return comma != std::string_view::npos && text.find(',', comma + 1) == std::string_view::npos &&
           comma > 0 && isDigitAt(comma - 1) && isDigitAt(comma + 1);
}

void tellMisread(const Stretch& stretch, std::string_view text, double read, const std::string& number,
                 LintOutput& out)
{
    const std::string shown(text);
    if (!std::isfinite(read)) {
        out.add("V125", stretch, {{"text", shown}});
    } else if (hasDecimalComma(text)) {
        out.add("V124", stretch, {{"text", shown}, {"number", number}});
    } else if (read == 0.0) {
        out.add("V122", stretch, {{"text", shown}});
    } else {
        out.add("V123", stretch, {{"text", shown}, {"number", number}});
    }
}

void tellMisreadAngle(const Stretch& stretch, std::string_view text, double read, LintOutput& out)
{
    tellMisread(stretch, text, read, tavelinUtils::Str9(read, 5) + " degrees", out);
}

} // namespace

void tellMisreadNumber(const Stretch& stretch, std::string_view text, double read, LintOutput& out)
{
    tellMisread(stretch, text, read, shortest(read), out);
}

void checkSexagesimal(AngleKind kind, const Stretch& stretch, std::string_view text, char separator,
                      double read, LintOutput& out)
{
    const std::optional<Sexagesimal> parts = partsOf(text, separator);
    constexpr double lessThanAnyDigit = 1e-9;
    if (!parts || !(std::abs(degreesOf(kind, *parts) - read) < lessThanAnyDigit)) {
        tellMisreadAngle(stretch, text, read, out);
        return;
    }
    if (parts->minutes >= 60.0 || parts->seconds >= 60.0) {
        out.add("V128", stretch, {{"text", std::string(text)}});
    }
    checkRange(kind, stretch, read, out);
}

void checkDegrees(AngleKind kind, const Stretch& stretch, std::string_view text, double read, LintOutput& out)
{
    const std::string_view digits = text.substr(text.starts_with('-') || text.starts_with('+') ? 1 : 0);
    if (!isUnsigned(digits)) {
        tellMisreadAngle(stretch, text, read, out);
        return;
    }
    checkRange(kind, stretch, read, out);
}

void checkDay(const Stretch& stretch, std::string_view text,
              const std::array<std::string_view, 3>& yearMonthDay, LintOutput& out)
{
    const auto& [yearText, monthText, dayText] = yearMonthDay;
    const bool isDate = areDigits(yearText) && areDigits(monthText) && areDigits(dayText);
    const int year = toInt(yearText);
    const int month = toInt(monthText);
    const int day = toInt(dayText);
    if (!isDate || month < 1 || month > 12) {
        out.add("V126", stretch, {{"text", std::string(text)}});
        return;
    }
    int countedYear = 0;
    int countedMonth = 0;
    int countedDay = 0;
    tavelinUtils::MJDToYMD(tavelinUtils::YMDToMJD(year, month, day), countedYear, countedMonth, countedDay);
    if (countedDay != day || countedMonth != month) {
        out.add("V127", stretch,
                {{"text", std::string(text)},
                 {"date", tavelinUtils::DateToStr(countedYear, countedMonth, countedDay, "-")}});
    }
}

} // namespace companion
