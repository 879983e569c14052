#include "base/numbers.h"
#include "base/tokens.h"
#include "out/characters.h"
#include "out/text.h"
#include "reading/line_checker.h"
#include "receivers/aavso_rules.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <string>
#include <vector>

namespace companion {

using tavelinUtils::toDouble;

namespace {

constexpr std::size_t fieldCount = 15;
constexpr const char* parameters[] = {"TYPE", "OBSCODE", "SOFTWARE", "DELIM", "DATE", "OBSTYPE"};

// The fields of a record in their order.
struct FieldRow
{
    const char* name;
    std::size_t longest;
    bool (*isTaken)(std::string_view text);
    const char* wanted;
};

bool isNa(std::string_view text)
{
    return upper(text) == "NA";
}

// A sign, digits and a point with digits on one side at least.
bool isDecimal(std::string_view text)
{
    text = withoutSign(text);
    const std::size_t point = std::min(text.find('.'), text.size());
    const std::string_view whole = text.substr(0, point);
    const std::string_view decimals = text.substr(std::min(point + 1, text.size()));
    return (areDigits(whole) || areDigits(decimals)) && (whole.empty() || areDigits(whole)) &&
           (decimals.empty() || areDigits(decimals));
}

bool isName(std::string_view text)
{
    return !text.empty() && !isNa(text);
}

bool isMagnitude(std::string_view text)
{
    text.remove_prefix(text.starts_with('<') ? 1 : 0);
    return isDecimal(text) && text.find('.') != std::string_view::npos;
}

bool isError(std::string_view text)
{
    return isNa(text) || (isDecimal(text) && toDouble(text) >= 0.0 && toDouble(text) < 1.0);
}

bool isYesOrNo(std::string_view text)
{
    return upper(text) == "YES" || upper(text) == "NO";
}

bool isKind(std::string_view text)
{
    return upper(text) == "STD" || upper(text) == "DIF" || upper(text) == "ABS";
}

bool isThere(std::string_view text)
{
    return !text.empty();
}

bool isInstrumental(std::string_view text)
{
    return isNa(text) || isDecimal(text);
}

bool isGroup(std::string_view text)
{
    return isNa(text) || areDigits(text);
}

constexpr const char* orNa = "a number is wanted, or na";
constexpr const char* notEmpty = "empty, where na is wanted";
constexpr FieldRow fields[fieldCount] = {
    {"NAME", 30, isName, "a name is wanted"},
    {"DATE", 16, isDecimal, "a date is wanted"},
    {"MAG", 8, isMagnitude, "a number with a point is wanted"},
    {"MERR", 6, isError, "a number from 0 to below 1 is wanted, or na"},
    {"FILT", 5, isAavsoFilter, "not in the receiver's list"},
    {"TRANS", 3, isYesOrNo, "YES or NO is wanted"},
    {"MTYPE", 3, isKind, "STD, DIF or ABS is wanted"},
    {"CNAME", 20, isThere, notEmpty},
    {"CMAG", 8, isInstrumental, orNa},
    {"KNAME", 20, isThere, notEmpty},
    {"KMAG", 8, isInstrumental, orNa},
    {"AMASS", 7, isInstrumental, orNa},
    {"GROUP", 5, isGroup, "an integer is wanted, or na"},
    {"CHART", 20, isThere, notEmpty},
    {"NOTES", 4000, isThere, notEmpty},
};
// Under #DATE=EXCEL: spreadsheets write a date as their users set it.
constexpr FieldRow spreadsheetDate = {"DATE", std::string_view::npos, isThere, "a date is wanted"};
constexpr std::size_t date = 1;
constexpr std::size_t magnitude = 2;
constexpr std::size_t filter = 4;
constexpr std::size_t kind = 6;
constexpr std::size_t comparison = 7;
constexpr std::size_t checkStar = 9;

class AavsoReceiver final : public LineChecker
{
public:
    void line(const CheckedLine& line, LintOutput& out) override
    {
        if (line.number == 1 && !isAavsoFileName(out.file())) {
            out.add("V364", {}, {{"what", "the name of the file ends in none of .txt, .csv and .tsv"}});
        }
        const std::string_view text = line.text;
        if (trimmed(text).empty()) {
            out.add("V364", {}, {{"what", "an empty line"}});
        } else if (text.starts_with('#')) {
            takeHead(line, out);
        } else {
            takeRecord(line, out);
        }
    }

    void end(LintOutput& out) override
    {
        if (!isToldOfHead) {
            tellMissing(out);
        }
    }

private:
    void takeHead(const CheckedLine& line, LintOutput& out)
    {
        const std::size_t sign = line.text.find('=');
        if (sign == std::string_view::npos) {
            return; // a comment
        }
        const std::string key = upper(trimmed(line.text.substr(1, sign - 1)));
        const std::string_view value = trimmed(line.text.substr(sign + 1));
        if (std::find(std::begin(parameters), std::end(parameters), key) == std::end(parameters)) {
            return;
        }
        seen.push_back(key);
        const char* const why = faultOf(key, value);
        if (why != nullptr) {
            out.add("V361", stretchOf(line.text, value, "parameter"),
                    {{"field", '#' + key}, {"text", std::string(value)}, {"why", why}});
        }
    }

    // Why the value of a parameter is not taken; a null pointer where it is.
    const char* faultOf(const std::string& key, std::string_view value)
    {
        const std::string word = upper(value);
        if (key == "TYPE") {
            return word == "EXTENDED" ? nullptr : "Extended is wanted";
        }
        if (key == "OBSCODE") {
            return isObserverCode(value) ? nullptr : "the code of an observer is wanted";
        }
        if (key == "SOFTWARE") {
            return value.empty() || value.size() > 255 ? "a name of up to 255 characters is wanted" : nullptr;
        }
        if (key == "DATE") {
            isJulian = word == "JD" || word == "HJD";
            isOfSpreadsheet = word == "EXCEL";
            return isJulian || isOfSpreadsheet ? nullptr : "JD, HJD or EXCEL is wanted";
        }
        if (key == "OBSTYPE") {
            return word == "CCD" || word == "DSLR" || word == "PEP" ? nullptr : "CCD, DSLR or PEP is wanted";
        }
        const std::optional<char> told = aavsoDelimiter(value);
        delimiter = told.value_or(delimiter);
        return told ? nullptr : "a character other than # and blank is wanted, or tab or comma";
    }

    void tellMissing(LintOutput& out)
    {
        isToldOfHead = true;
        for (const char* key : parameters) {
            if (std::find(seen.begin(), seen.end(), key) == seen.end()) {
                out.add("V361", {},
                        {{"field", '#' + std::string(key)},
                         {"text", ""},
                         {"why", "the line is missing at the top"}});
            }
        }
    }

    void takeRecord(const CheckedLine& line, LintOutput& out)
    {
        if (!isToldOfHead) {
            tellMissing(out);
        }
        std::vector<std::string_view> values;
        std::string_view rest = line.text;
        for (std::size_t end = rest.find(delimiter); end != rest.npos; end = rest.find(delimiter)) {
            values.push_back(trimmed(rest.substr(0, end)));
            rest.remove_prefix(end + 1);
        }
        values.push_back(trimmed(rest));
        if (values.size() != fieldCount) {
            out.add(
                "V360", {1, line.text.size()},
                {{"n", std::to_string(values.size())}, {"field", "NAME"}, {"text", std::string(values[0])}});
            return;
        }
        for (std::size_t i = 0; i < fieldCount; ++i) {
            lookAt(i, line, values[i], out);
        }
        lookAtRecord(line, values, out);
    }

    void lookAt(std::size_t place, const CheckedLine& line, std::string_view value, LintOutput& out) const
    {
        const FieldRow& row = place == date && isOfSpreadsheet ? spreadsheetDate : fields[place];
        const Stretch stretch = stretchOf(line.text, value, row.name);
        const bool isTaken = row.isTaken(value);
        if (!isTaken) {
            const bool isOfList = place == filter || place == checkStar;
            out.add(isOfList ? FindingCode("V363") : FindingCode("V361"), stretch,
                    {{"field", row.name}, {"text", std::string(value)}, {"why", row.wanted}});
        } else if (value.size() > row.longest) {
            out.add(
                "V361", stretch,
                {{"field", row.name},
                 {"text", std::string(value)},
                 {"why", counted(value.size(), "character") + ", at most " + std::to_string(row.longest)}});
        }
    }

    void lookAtRecord(const CheckedLine& line, const std::vector<std::string_view>& values,
                      LintOutput& out) const
    {
        constexpr double leastJulian = 2'000'000.0; // in 763; a modified one is far below
        if (isJulian && isDecimal(values[date]) && toDouble(values[date]) < leastJulian) {
            out.add(
                "V364", stretchOf(line.text, values[date], "DATE"),
                {{"what", "the date " + std::string(values[date]) + " is no Julian date; a modified one?"}});
        }
        if (isMagnitude(values[magnitude]) && toDouble(values[magnitude]) == 0.0 &&
            values[magnitude][0] != '<') {
            out.add("V362", stretchOf(line.text, values[magnitude], "MAG"));
        }
        if (upper(values[kind]) == "DIF" && isNa(values[comparison])) {
            out.add("V361", stretchOf(line.text, values[comparison], "CNAME"),
                    {{"field", "CNAME"},
                     {"text", std::string(values[comparison])},
                     {"why", "MTYPE DIF wants a comparison star"}});
        }
    }

    std::vector<std::string> seen{}; // parameters
    bool isToldOfHead = false;
    bool isJulian = true; // the dates
    bool isOfSpreadsheet = false;
    char delimiter = ',';
};

} // namespace

std::unique_ptr<LineChecker> aavsoReceiverLines()
{
    return std::make_unique<AavsoReceiver>();
}

} // namespace companion
