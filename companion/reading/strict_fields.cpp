#include "reading/strict_fields.h"

#include "base/numbers.h"
#include "base/tokens.h"
#include "formats/track_table.h"
#include "out/characters.h"
#include "reading/present_year.h"
#include "text/angle_text.h"
#include "text/calendar.h"
#include "text/date_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <functional>
#include <limits>
#include <map>
#include <optional>
#include <string>

namespace companion {

using tavelinUtils::toDouble;
using tavelinUtils::toInt;

namespace {

constexpr double faintest = 35.0;
constexpr double brightest = -30.0;

// A mark's line of MEA. Its sixth field, a number that nothing reads, may hold anything.
constexpr StrictField ofMea[] = {
    {"name", FieldForm::text},   {"date", FieldForm::packedDate}, {"time", FieldForm::packedTime},
    {"RA", FieldForm::packedRA}, {"DE", FieldForm::packedDE},     {"number", FieldForm::text},
    {"m", FieldForm::magnitude},
};

// A mark's line of a telegram. The magnitude has rules of its own.
constexpr StrictField ofTelegram[] = {
    {"date", FieldForm::packedDate}, {"time", FieldForm::packedTime}, {"RA", FieldForm::packedRA},
    {"DE", FieldForm::packedDE},     {"m", FieldForm::text},
};

struct TypeForm
{
    std::string_view type;
    FieldForm form;
};

// The types that the descriptions of columns name.
constexpr TypeForm typeForms[] = {
    {"Int", FieldForm::integer}, {"Float", FieldForm::number}, {"Date", FieldForm::date},
    {"Time", FieldForm::time},   {"Text", FieldForm::text},
};

// Columns with a range, and columns outside the standard header. `mjd` is kept as the text that it is.
constexpr StrictField ofTable[] = {
    {"RA", FieldForm::degreesRA}, {"DE", FieldForm::degreesDE},     {"m", FieldForm::magnitude},
    {"mjd", FieldForm::text},     {"mEnsemble", FieldForm::number}, {"mInstrComp", FieldForm::number},
    {"mRA", FieldForm::number},   {"mDE", FieldForm::number},
};

bool allDigits(std::string_view text)
{
    bool all = true;
    for (const char c : text) {
        all &= isDigit(c);
    }
    return all;
}

// Two digits that are there, as a number.
int pairAt(std::string_view text, std::size_t place)
{
    return (text[place] - '0') * 10 + (text[place + 1] - '0');
}

// A number as people write it, taken apart: digits, with a point among them or not, after a sign or none.
struct PlainDecimal
{
    bool isOne = false;
    bool isNegative = false;
    bool hasPoint = false;
    bool isZero = true;
    unsigned whole = 0; // what stands before the point; the largest there is where that has many digits
};

constexpr std::size_t manyDigits = 9;
// A longer text may be a number beyond all numbers, or so small that it is zero.
constexpr std::size_t longestPlain = 300;

PlainDecimal plainDecimal(std::string_view text)
{
    PlainDecimal number;
    const char* at = text.data();
    const char* const end = at + text.size();
    if (at != end && (*at == '-' || *at == '+')) {
        number.isNegative = *at++ == '-';
    }
    const char* const first = at;
    unsigned digits = 0; // all of them, or-ed: which ones does not matter
    for (; at != end && isDigit(*at); ++at) {
        digits |= static_cast<unsigned>(*at - '0');
        number.whole = number.whole * 10 + static_cast<unsigned>(*at - '0');
    }
    std::ptrdiff_t count = at - first;
    if (count > static_cast<std::ptrdiff_t>(manyDigits)) {
        number.whole = std::numeric_limits<unsigned>::max();
    }
    if (at != end && *at == '.') {
        number.hasPoint = true;
        const char* const fraction = ++at;
        for (; at != end && isDigit(*at); ++at) {
            digits |= static_cast<unsigned>(*at - '0');
        }
        count += at - fraction;
    }
    number.isOne = at == end && count > 0;
    number.isZero = digits == 0;
    return number;
}

bool isPlainDecimal(std::string_view text)
{
    return plainDecimal(text).isOne;
}

// The same, perhaps with an exponent.
bool isDecimal(std::string_view text)
{
    const std::size_t e = text.find_first_of("eE");
    if (e == std::string_view::npos) {
        return isPlainDecimal(text);
    }
    const std::string_view power = text.substr(e + 1);
    return isPlainDecimal(text.substr(0, e)) && power.find('.') == std::string_view::npos &&
           isPlainDecimal(power);
}

bool isPlainWhole(std::string_view text)
{
    const PlainDecimal number = plainDecimal(text);
    return number.isOne && !number.hasPoint && text.size() <= manyDigits;
}

// Whether the number is not zero, and well within the bounds of magnitudes.
bool isPlainMagnitude(std::string_view text)
{
    const PlainDecimal number = plainDecimal(text);
    const double bound = number.isNegative ? -brightest : faintest;
    return number.isOne && !number.isZero && number.whole < bound && text.size() <= longestPlain;
}

// Whether the number is below a bound, up or down.
bool isPlainBelow(std::string_view text, unsigned bound)
{
    const PlainDecimal number = plainDecimal(text);
    return number.isOne && number.whole < bound;
}

bool isPlainAngle(std::string_view text, unsigned fullCircle)
{
    return isPlainBelow(text, fullCircle) && text[0] != '-';
}

bool isPlainPackedDate(std::string_view text)
{
    constexpr int daysOfEachMonth = 28;
    if (text.size() != 6 || !allDigits(text)) {
        return false;
    }
    const int day = pairAt(text, 0);
    const int month = pairAt(text, 2);
    return day >= 1 && day <= daysOfEachMonth && month >= 1 && month <= 12 &&
           2000 + pairAt(text, 4) <= presentYear();
}

// HHMMSS and decimals of which hours and degrees have a limit.
bool isPlainPacked(std::string_view text, int limit)
{
    return text.size() >= 6 && allDigits(text) && pairAt(text, 0) < limit && pairAt(text, 2) < 60 &&
           pairAt(text, 4) < 60;
}

bool hasSign(std::string_view text)
{
    return !text.empty() && (text[0] == '-' || text[0] == '+');
}

bool isPlainDate(std::string_view text)
{
    constexpr std::size_t length = 10;
    return text.size() == length && text[4] == '-' && text[7] == '-' && allDigits(text.substr(0, 4)) &&
           allDigits(text.substr(5, 2)) && allDigits(text.substr(8)) && pairAt(text, 5) >= 1 &&
           pairAt(text, 5) <= 12 && pairAt(text, 8) >= 1 && pairAt(text, 8) <= 28;
}

bool isPlainTime(std::string_view text)
{
    constexpr std::size_t whole = 8;
    if (text.size() < whole || text[2] != ':' || text[5] != ':') {
        return false;
    }
    const std::string_view fraction = text.substr(whole);
    return allDigits(text.substr(0, 2)) && allDigits(text.substr(3, 2)) && allDigits(text.substr(6, 2)) &&
           (fraction.empty() || (fraction[0] == '.' && allDigits(fraction.substr(1)))) &&
           pairAt(text, 0) < 24 && pairAt(text, 3) < 60 && pairAt(text, 6) < 60;
}

// Tells of the fields of one line.
class Teller
{
public:
    Teller(const StrictField& strictField, std::string_view line, std::string_view fieldText,
           LintOutput& output)
        : field(strictField), text(fieldText), stretch(stretchOf(line, fieldText, strictField.name)),
          out(output)
    {
    }

    void tell()
    {
        switch (field.form) {
        case FieldForm::packedDate: tellPackedDate(); break;
        case FieldForm::packedTime: tellPackedTime(); break;
        case FieldForm::packedRA: tellPackedRA(); break;
        case FieldForm::packedDE: tellPackedDE(); break;
        case FieldForm::date: tellDate(); break;
        case FieldForm::time: tellTime(); break;
        default: tellNumber(); // a text is always plain
        }
    }

private:
    void add(FindingCode code, FindingValues values = {})
    {
        out.add(code, stretch, values);
    }

    std::string shown() const
    {
        return std::string(text);
    }

    // A text that is no number as people write it, and what the reader makes of it: nothing, something,
    // or no number at all.
    void tellMisread(double value, const std::string& read)
    {
        if (!std::isfinite(value)) {
            add("V125", {{"text", shown()}});
        } else if (hasDecimalComma()) {
            add("V124", {{"text", shown()}, {"number", read}});
        } else if (value == 0.0) {
            add("V122", {{"text", shown()}});
        } else {
            add("V123", {{"text", shown()}, {"number", read}});
        }
    }

    // One comma, between digits that are enough for a number.
    bool hasDecimalComma() const
    {
        std::string pointed(text);
        std::replace(pointed.begin(), pointed.end(), ',', '.');
        std::erase(pointed, ':');
        return std::count(text.begin(), text.end(), ',') == 1 && isDecimal(pointed);
    }

    void tellNumber()
    {
        const bool isInteger = field.form == FieldForm::integer;
        const double value = isInteger ? toInt(text) : toDouble(text);
        const bool isMisread = isInteger ? !isExactInteger(value) : !isDecimal(text);
        if (isMisread || !std::isfinite(value)) {
            tellMisread(value, shortest(value));
        } else if (field.form == FieldForm::degreesDE && !(value >= -90.0 && value <= 90.0)) {
            add("V121", {{"value", shown()}, {"problem", "is outside -90 to 90"}});
        } else if (field.form == FieldForm::degreesRA && !(value >= 0.0 && value <= 360.0)) {
            add("V129", {{"value", shown()}});
        } else if (field.form == FieldForm::magnitude) {
            checkMagnitude(value, stretch, out);
        }
    }

    // Whole, and of 32 bits.
    bool isExactInteger(double value) const
    {
        return isPlainDecimal(text) && text.find('.') == std::string_view::npos && toDouble(text) == value;
    }

    void tellPackedDate()
    {
        const bool isDate = text.size() == 6 && allDigits(text);
        if (!isDate || pairAt(text, 2) < 1 || pairAt(text, 2) > 12) {
            add("V126", {{"text", shown()}});
            return;
        }
        const int year = 2000 + pairAt(text, 4);
        tellDay(year, pairAt(text, 2), pairAt(text, 0));
        if (year > presentYear()) {
            add("V133", {{"year", std::to_string(year)}});
        }
    }

    // A day that its month does not have.
    void tellDay(int year, int month, int day)
    {
        const double mjd = tavelinUtils::YMDToMJD(year, month, day);
        int countedYear = 0;
        int countedMonth = 0;
        int countedDay = 0;
        tavelinUtils::MJDToYMD(mjd, countedYear, countedMonth, countedDay);
        if (countedDay != day) {
            add("V127", {{"text", shown()},
                         {"date", tavelinUtils::DateToStr(countedYear, countedMonth, countedDay, "-")}});
        }
    }

    void tellPackedTime()
    {
        const double time = tavelinUtils::packedTime(text);
        if (!allDigits(text)) {
            tellMisread(time, timeText(time));
        } else {
            add("V128", {{"text", shown()}});
        }
    }

    void tellPackedRA()
    {
        const double ra = tavelinUtils::packedRA(text);
        if (!allDigits(text)) {
            tellMisread(ra, finiteText(ra, [](double x) { return tavelinUtils::RAToStr(x, 2, ":", true); }));
            return;
        }
        if (pairAt(text, 2) > 59 || pairAt(text, 4) > 59) {
            add("V128", {{"text", shown()}});
        }
        if (ra > 360.0) {
            add("V129", {{"value", shortest(ra)}});
        } else if (pairAt(text, 0) > 23) {
            add("V128", {{"text", shown()}});
        }
    }

    void tellPackedDE()
    {
        const double de = tavelinUtils::packedDE(text);
        if (allDigits(text)) {
            add("V120", {{"digits", std::string(text.substr(0, 3))}});
            return;
        }
        if (!hasSign(text) || !allDigits(text.substr(1))) {
            tellMisread(de, finiteText(de, [](double x) { return tavelinUtils::DEToStr(x, 1, ":", true); }));
            return;
        }
        if (pairAt(text, 3) > 59 || pairAt(text, 5) > 59) {
            add("V128", {{"text", shown()}});
        }
        if (std::abs(de) > 90.0) {
            add("V121", {{"value", shortest(de)}, {"problem", "is outside -90 to 90"}});
        }
    }

    void tellDate()
    {
        const std::array<std::string_view, 3> parts = tavelinUtils::threeParts(text, '-');
        const int mjd = tavelinUtils::DateToMJD(std::string(text), "-");
        const int month = toInt(parts[1]);
        if (month < 1 || month > 12 || mjd == 0) {
            add("V126", {{"text", shown()}});
            return;
        }
        constexpr std::size_t digitsOfYear = 4;
        const bool isStrict = std::count(text.begin(), text.end(), '-') == 2 &&
                              parts[0].size() == digitsOfYear && allDigits(parts[0]) && isShort(parts[1]) &&
                              isShort(parts[2]);
        if (isStrict) {
            tellDay(toInt(parts[0]), month, toInt(parts[2]));
        } else {
            add("V123", {{"text", shown()}, {"number", tavelinUtils::MJDToDate(mjd, "-")}});
        }
    }

    void tellTime()
    {
        const std::array<std::string_view, 3> parts = tavelinUtils::threeParts(text, ':');
        const double time = tavelinUtils::timeToDay(text, ':');
        const std::size_t separators = static_cast<std::size_t>(std::count(text.begin(), text.end(), ':'));
        const bool isStrict =
            isShort(parts[0]) && isShort(parts[1]) &&
            (separators == 1 || (separators == 2 && isPlainDecimal(parts[2]) && !hasSign(parts[2])));
        if (!isStrict) {
            tellMisread(time, timeText(time));
        } else if (toInt(parts[0]) > 23 || toInt(parts[1]) > 59 || toDouble(parts[2]) >= 60.0) {
            add("V128", {{"text", shown()}});
        }
    }

    // One digit or two.
    static bool isShort(std::string_view part)
    {
        return (part.size() == 1 || part.size() == 2) && allDigits(part);
    }

    template <class ToText>
    static std::string finiteText(double value, ToText toText)
    {
        return std::isfinite(value) ? toText(value) : shortest(value);
    }

    static std::string timeText(double time)
    {
        return finiteText(time, [](double x) { return tavelinUtils::DayToTime(x, 3, ":"); });
    }

    const StrictField& field;
    std::string_view text;
    Stretch stretch;
    LintOutput& out;
};

// The forms of the columns of a table, by their names.
std::map<std::string, FieldForm, std::less<>> formsOfTable()
{
    std::map<std::string, FieldForm, std::less<>> forms;
    for (const StrictField& row : ofTable) {
        forms.emplace(row.name, row.form);
    }
    const std::string header = tavelinUtils::getHeadTrack();
    tavelinUtils::forEachToken(header, '\t', [&forms](std::string_view description) {
        const auto [name, type, unit] = tavelinUtils::threeParts(description, ':');
        for (const TypeForm& row : typeForms) {
            if (row.type == type) {
                forms.emplace(name, row.form);
            }
        }
    });
    return forms;
}

} // namespace

std::span<const StrictField> meaFields()
{
    return ofMea;
}

std::span<const StrictField> telegramFields()
{
    return ofTelegram;
}

FieldForm formOfTableColumn(std::string_view name)
{
    static const auto forms = formsOfTable();
    const auto form = forms.find(name);
    return form == forms.end() ? FieldForm::text : form->second;
}

bool isPlain(FieldForm form, std::string_view text)
{
    switch (form) {
    case FieldForm::text: break; // any
    case FieldForm::number: return isPlainDecimal(text) && text.size() <= longestPlain;
    case FieldForm::integer: return isPlainWhole(text);
    case FieldForm::magnitude: return isPlainMagnitude(text);
    case FieldForm::packedDate: return isPlainPackedDate(text);
    case FieldForm::packedTime:
    case FieldForm::packedRA: return isPlainPacked(text, 24);
    case FieldForm::packedDE: return hasSign(text) && isPlainPacked(text.substr(1), 90);
    case FieldForm::date: return isPlainDate(text);
    case FieldForm::time: return isPlainTime(text);
    case FieldForm::degreesRA: return isPlainAngle(text, 360);
    case FieldForm::degreesDE: return isPlainBelow(text, 90);
    }
    return true;
}

void tellField(const StrictField& field, std::string_view line, std::string_view text, LintOutput& out)
{
    Teller(field, line, text, out).tell();
}

bool hasManyNumbers(std::string_view line)
{
    constexpr int many = 4;
    int numbers = 0;
    tavelinUtils::forEachToken(line, ' ', [&numbers](std::string_view word) {
        word.remove_prefix(hasSign(word) ? 1 : 0);
        numbers += !word.empty() && isDigit(word.front()) ? 1 : 0;
    });
    return numbers >= many;
}

void checkMagnitude(double magnitude, const Stretch& stretch, LintOutput& out)
{
    if (magnitude == 0.0) {
        out.add("V130", stretch, {{"value", "0"}, {"what", "the tool writes 0 where none is known"}});
    } else if (!(magnitude >= brightest && magnitude <= faintest)) {
        out.add("V130", stretch, {{"value", shortest(magnitude)}, {"what", "outside -30 to 35"}});
    }
}

std::string shortest(double number)
{
    std::array<char, 32> room;
    const auto [end, error] = std::to_chars(room.data(), room.data() + room.size(), number);
    return {room.data(), end};
}

} // namespace companion
