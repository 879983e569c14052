#include "base/lines.h"
#include "base/numbers.h"
#include "base/tokens.h"
#include "out/characters.h"
#include "reading/line_checker.h"
#include "reading/seen_texts.h"
#include "receivers/designations.h"
#include "receivers/mpc_rules.h"
#include "receivers/report_columns.h"
#include "receivers/tdm_keys.h"

#include <algorithm>
#include <span>
#include <string>
#include <vector>

namespace companion {

using tavelinUtils::cut;
using tavelinUtils::Field;
using tavelinUtils::toDouble;

namespace {

using namespace reportColumns;

constexpr std::string_view headerWords[] = {"COD", "CON", "OBS", "MEA", "TEL", "NET",
                                            "BND", "COM", "NUM", "ACK", "AC2"};
// Of the first header, and of those after it.
constexpr std::string_view demandedFirst[] = {"OBS", "ACK"};
constexpr std::string_view demandedLater[] = {"OBS", "MEA", "TEL", "NET"};

// Second columns of records that the receiver fills in itself, or that stand for what was withdrawn.
constexpr std::string_view reservedNotes = "cXxDZWwQqt";
constexpr std::string_view pairedNotes = "SVR"; // the second line of a pair has the small letter

// A keyword and a blank, or the keyword alone.
std::string_view headerWordOf(std::string_view line)
{
    for (const std::string_view word : headerWords) {
        if (line.starts_with(word) && (line.size() == word.size() || line[word.size()] == ' ')) {
            return word;
        }
    }
    return {};
}

// So many digits, alone or with a point and so many decimals at most.
bool isFixed(std::string_view text, std::size_t whole, std::size_t mostDecimals)
{
    const std::size_t point = std::min(text.find('.'), text.size());
    if (point != whole || !areDigits(text.substr(0, point))) {
        return false;
    }
    if (point == text.size()) {
        return true;
    }
    const std::string_view decimals = text.substr(point + 1);
    return areDigits(decimals) && decimals.size() <= mostDecimals;
}

// Looks at the columns of one observation.
class Observation
{
public:
    Observation(std::string_view observationLine, LintOutput& output) : line(observationLine), out(output)
    {
    }

    void look() const
    {
        lookAtName();
        lookAtNote();
        lookAtDate();
        lookAtRightAscension();
        lookAtDeclination();
        if (!trimmed(cut(line, unset)).empty()) {
            tell(unset, "they are blank");
        }
        lookAtMagnitude();
        const std::string_view code = cut(line, station);
        const auto isCode = [](char c) { return isDigit(c) || (c >= 'A' && c <= 'Z'); };
        if (!std::all_of(code.begin(), code.end(), isCode)) {
            tell(station, "a station has three capital letters or digits");
        } else if (code == "500") {
            tell(station, "500 is the geocentre and no station");
        }
    }

private:
    void tell(Field field, const std::string& why) const
    {
        const std::string columns = field.width == 1 ? "column " + std::to_string(field.first)
                                                     : "columns " + std::to_string(field.first) + " to " +
                                                           std::to_string(field.first + field.width - 1);
        out.add("V316", {field.first, field.width},
                {{"columns", columns}, {"text", std::string(cut(line, field))}, {"why", why}});
    }

    void lookAtName() const
    {
        const std::string_view columns = cut(line, nameField);
        const std::string name(trimmed(columns));
        const NameVerdict verdict = verdictOnName(columns);
        if (isLaunchDesignation(name)) {
            out.add("V318", {nameField.first, nameField.width}, {{"name", name}});
        } else if (verdict.fault == NameFault::notPacked) {
            out.add("V319", {nameField.first, nameField.width}, {{"name", name}});
        } else if (verdict.fault != NameFault::none) {
            out.add("V312", {nameField.first, nameField.width}, {{"name", name}, {"why", verdict.why}});
        }
    }

    void lookAtNote() const
    {
        const char note = cut(line, note2)[0];
        if (reservedNotes.find(note) != std::string_view::npos) {
            tell(note2, "the note is not for new observations");
        }
    }

    void lookAtDate() const
    {
        std::string date(cut(line, dateField));
        const bool isSpaced = date[4] == ' ' && date[7] == ' ';
        date[4] = '-';
        date[7] = '-';
        if (!isSpaced || !faultOfEpoch(date + "T00:00:00").empty()) {
            tell(dateField, "no date");
        }
        const std::string_view fraction = trimmed(cut(line, dayFraction));
        const bool isFraction = line[dayFraction.first - 1] == '.' && areDigits(fraction.substr(1));
        if (!isFraction) {
            tell(dayFraction, "a point and up to six decimals of the day are wanted");
        }
    }

    // The parts of an angle, two or three, at fixed places; the last may have decimals.
    bool isSexagesimal(std::string_view text, const char* name) const
    {
        const std::size_t second = 6;
        const std::string_view angle = text.substr(0, text.find_last_not_of(' ') + 1);
        const bool isPlaced = angle.size() >= 5 && areDigits(angle.substr(0, 2)) && angle[2] == ' ';
        const bool hasSeconds = angle.size() > second && angle[second - 1] == ' ';
        const bool isGood =
            isPlaced && (hasSeconds ? areDigits(angle.substr(3, 2)) && isFixed(angle.substr(second), 2, 3)
                                    : isFixed(angle.substr(3), 2, 2));
        if (!isGood) {
            return false;
        }
        const bool isOver =
            toDouble(angle.substr(3, 2)) >= 60.0 || (hasSeconds && toDouble(angle.substr(second)) >= 60.0);
        if (isOver) {
            out.add("V313", stretchOf(line, angle, name), {{"field", name}, {"text", std::string(angle)}});
        }
        return true;
    }

    void lookAtRightAscension() const
    {
        const std::string_view text = cut(line, rightAscension);
        if (!isSexagesimal(text, "right ascension")) {
            tell(rightAscension, "hours, minutes and seconds are wanted in their columns");
        } else if (toDouble(text.substr(0, 2)) >= 24.0) {
            tell(rightAscension, "hours are below 24");
        }
    }

    void lookAtDeclination() const
    {
        const std::string_view text = cut(line, declination);
        if (text[0] != '+' && text[0] != '-') {
            out.add("V314", {declination.first, 1});
            return;
        }
        const std::string_view angle = text.substr(1);
        if (!isSexagesimal(angle, "declination")) {
            tell(declination, "sign, degrees, minutes and seconds are wanted in their columns");
        } else if (toDouble(angle.substr(0, 2)) + toDouble(angle.substr(3, 2)) / 60.0 +
                       toDouble(angle.substr(std::min<std::size_t>(6, angle.size()))) / 3600.0 >
                   90.0)
        {
            tell(declination, "a declination is at most 90 degrees");
        }
    }

    void lookAtMagnitude() const
    {
        const std::string_view text = cut(line, magnitude);
        const std::string_view value = trimmed(text);
        const std::string_view bandText = cut(line, bandAndBehind);
        const std::string_view fault = faultOfBand(bandText);
        if (!fault.empty()) {
            tell(bandAndBehind, std::string(fault));
        } else if (value.empty() && bandText[0] != ' ') {
            tell(bandAndBehind, "a band without a magnitude");
        }
        if (value.empty()) {
            return;
        }
        const std::string_view digits = value.substr(value[0] == '-' ? 1 : 0);
        const std::size_t point = text.find('.');
        const bool isWhole =
            point == std::string_view::npos && text[1] != ' ' && trimmed(text.substr(2)).empty();
        const bool isPlaced = isWhole || point == 2 || (point == 3 && value[0] == '-');
        const std::size_t whole = std::min(digits.find('.'), digits.size());
        if (!isPlaced || !isFixed(digits, whole, 2)) {
            tell(magnitude, "a number with its point in column 68 is wanted");
        } else if (toDouble(value) == 0.0) {
            out.add("V315", stretchOf(line, value, "magnitude"));
        }
    }

    std::string_view line;
    LintOutput& out;
};

class MpcReceiver final : public LineChecker
{
public:
    void line(const CheckedLine& line, LintOutput& out) override
    {
        lookAtBytes(line, out);
        if (trimmed(line.text).empty()) {
            return;
        }
        const std::string_view word = headerWordOf(line.text);
        if (isFirst && word != "COD") {
            out.add("V320", {1, line.text.size()}, {{"what", "it does not begin with a COD line"}});
        }
        isFirst = false;
        if (!word.empty()) {
            lookAtHeader(line, word, out);
        } else {
            lookAtObservation(line, out);
        }
    }

    void end(LintOutput& out) override
    {
        tellUnpaired(out);
    }

private:
    void lookAtBytes(const CheckedLine& line, LintOutput& out)
    {
        const auto odd = std::find_if(line.bytes.begin(), line.bytes.end(), [](char c) {
            return c == '\t' || static_cast<unsigned char>(c) >= 0x80;
        });
        if (odd != line.bytes.end()) {
            const auto column = static_cast<std::size_t>(odd - line.bytes.begin()) + 1;
            out.add("V321", {column, 1},
                    {{"what", *odd == '\t' ? "a tab" : "a character that is not ASCII"}});
        }
    }

    void lookAtHeader(const CheckedLine& line, std::string_view word, LintOutput& out)
    {
        const std::string_view text = trimmed(line.text.substr(word.size()));
        if (line.text.size() > lineLength) {
            out.add("V320", {lineLength + 1, line.text.size() - lineLength},
                    {{"what", "a line of " + std::to_string(line.text.size()) + " columns, at most 80"}});
        }
        if (text.empty()) {
            out.add("V320", {1, word.size()}, {{"what", std::string(word) + " says nothing"}});
        }
        if (word == "COD") {
            code = text.substr(0, text.find(' '));
            ++headers;
            headerWordsSeen.clear();
            isToldOfHeader = false;
        }
        headerWordsSeen.emplace_back(word);
        if (word == "OBS" || word == "MEA") {
            lookAtNames(line, text, out);
        }
    }

    static void lookAtNames(const CheckedLine& line, std::string_view names, LintOutput& out)
    {
        tavelinUtils::forEachToken(names, ',', [&](std::string_view each) {
            const std::string_view name = trimmed(each);
            if (!name.empty() && !isPersonName(name)) {
                out.add(
                    "V320", stretchOf(line.text, name, "name"),
                    {{"what", "the name \"" + std::string(name) + "\" is not written as \"J. R. Tolkien\""}});
            }
        });
    }

    void lookAtObservation(const CheckedLine& line, LintOutput& out)
    {
        const std::string_view text = line.text;
        tellMissingHeader(line, out);
        if (!isOf80Columns(line, out)) {
            return;
        }
        if (isSecondLine(text)) {
            pairNote = 0;
            return;
        }
        tellUnpaired(out);
        const char note = cut(text, note2)[0];
        if (note == 's' || note == 'v' || note == 'r') {
            out.add("V316", {note2.first, 1},
                    {{"columns", "column 15"},
                     {"text", std::string(1, note)},
                     {"why", "no first line is before it"}});
            return;
        }
        if (pairedNotes.find(note) != std::string_view::npos) {
            pairNote = note;
            first = line;
            firstText = text;
            out.hold();
        }
        if (note != 'R') {
            Observation(text, out).look();
        }
        lookAtPlace(line, out);
    }

    // What the reader drops at the end of a line counts for the receiver.
    bool isOf80Columns(const CheckedLine& line, LintOutput& out)
    {
        const std::string_view text = line.text;
        std::string_view whole = line.bytes;
        if (whole.ends_with('\r')) {
            whole.remove_suffix(1);
        }
        if (whole.size() == lineLength) {
            return true;
        }
        tellUnpaired(out);
        out.add("V310", {1, text.size()}, {{"n", std::to_string(whole.size())}});
        const std::size_t sign = declination.first - 1;
        if (text.size() == lineLength - 1 && isDigit(text[sign])) {
            out.add("V314", {declination.first, 1});
        }
        return false;
    }

    // A second line repeats name, time and station of the first one.
    bool isSecondLine(std::string_view text) const
    {
        if (pairNote == 0 || cut(text, note2)[0] != pairNote - 'A' + 'a') {
            return false;
        }
        const Field equal[] = {nameField, dateAndFraction, station};
        return std::all_of(std::begin(equal), std::end(equal),
                           [&](Field field) { return cut(text, field) == cut(firstText, field); });
    }

    void tellUnpaired(LintOutput& out)
    {
        if (pairNote != 0) {
            first.text = firstText;
            out.addAt(first, "V316", {note2.first, 1},
                      {{"columns", "column 15"},
                       {"text", std::string(1, pairNote)},
                       {"why", "no second line follows"}});
        }
        pairNote = 0;
    }

    void tellMissingHeader(const CheckedLine& line, LintOutput& out)
    {
        if (isToldOfHeader || code.empty()) {
            return;
        }
        isToldOfHeader = true;
        const std::span<const std::string_view> demanded =
            headers == 1 ? std::span<const std::string_view>(demandedFirst)
                         : std::span<const std::string_view>(demandedLater);
        for (const std::string_view word : demanded) {
            if (std::find(headerWordsSeen.begin(), headerWordsSeen.end(), word) == headerWordsSeen.end()) {
                out.add("V320", {1, line.text.size()},
                        {{"what", "no line " + std::string(word) + " before the observations"}});
            }
        }
    }

    // Station and time against the header and the line before.
    void lookAtPlace(const CheckedLine& line, LintOutput& out)
    {
        const std::string_view own = cut(line.text, station);
        if (!code.empty() && own != code) {
            out.add("V320", {station.first, station.width},
                    {{"what", "the station is " + std::string(own) + ", and COD says " + code}});
        }
        const std::string name(cut(line.text, nameField));
        const std::string date(cut(line.text, dateField));
        const double fraction = toDouble(trimmed(cut(line.text, dayFraction)));
        if (name == lastName && date == lastDate && fraction == 0.0 && lastFraction > 0.5) {
            out.add("V317", {dateAndFraction.first, dateAndFraction.width}, {{"date", date}});
        }
        lastName = name;
        lastDate = date;
        lastFraction = fraction;
        lookAtTime(line, out);
    }

    // Of two positions of an object at one time.
    void lookAtTime(const CheckedLine& line, LintOutput& out)
    {
        constexpr std::string_view besideOthers = "RXx"; // echoes and what was replaced
        const bool isBeside = besideOthers.find(cut(line.text, note2)) != std::string_view::npos;
        const std::string key = std::string(cut(line.text, station)).append(cut(line.text, nameField));
        const std::string time =
            std::string(cut(line.text, dateField)) + withoutZeros(cut(line.text, dayFraction));
        if (isBeside || times.insert(key + time)) {
            return;
        }
        out.add("V316", {dateAndFraction.first, dateAndFraction.width},
                {{"columns", "columns 16 to 32"},
                 {"text", std::string(trimmed(cut(line.text, dateAndFraction)))},
                 {"why", "another position of the object has this time"}});
    }

    static std::string withoutZeros(std::string_view fraction)
    {
        return std::string(fraction.substr(0, fraction.find_last_not_of(" 0") + 1));
    }

    bool isFirst = true;
    std::string code{};
    std::size_t headers = 0;
    std::vector<std::string> headerWordsSeen{}; // of the present one
    bool isToldOfHeader = false;
    char pairNote = 0;
    CheckedLine first{};
    std::string firstText{};
    std::string lastName{};
    std::string lastDate{};
    double lastFraction = 0;
    SeenTexts times{}; // with station and object
};

} // namespace

std::unique_ptr<LineChecker> mpcReceiverLines()
{
    return std::make_unique<MpcReceiver>();
}

} // namespace companion
