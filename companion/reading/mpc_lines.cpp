#include "base/last_answer.h"
#include "base/lines.h"
#include "base/numbers.h"
#include "base/tokens.h"
#include "out/characters.h"
#include "reading/sexagesimal_fields.h"
#include "reading/strict_fields.h"
#include "receivers/report_columns.h"
#include "text/angle_text.h"
#include "text/date_text.h"

#include <algorithm>
#include <string>

namespace companion {

using tavelinUtils::cut;
using tavelinUtils::LineFate;
using tavelinUtils::toDouble;

namespace {

using namespace reportColumns;

constexpr std::string_view stationKeyword = "COD";

// Whether a person takes a line for an observation, perhaps one whose columns are a little out of place: it
// has the month between blanks, and a length about that of all observations.
bool looksLikeObservation(std::string_view line)
{
    constexpr std::size_t shortest = 70;
    if (line.size() < shortest) {
        return false;
    }
    for (std::size_t first = 17; first < 22; ++first) {
        const std::string_view month = line.substr(first, 4);
        if (month[0] == ' ' && isDigit(month[1]) && isDigit(month[2]) && month[3] == ' ' &&
            isDigit(line[first - 1])) {
            return true;
        }
    }
    return false;
}

class MpcChecker final : public LineChecker
{
public:
    void line(const CheckedLine& line, LintOutput& out) override
    {
        switch (line.fate) {
        case LineFate::head: takeHead(line, out); break;
        case LineFate::mark: takeMark(line, out); break;
        case LineFate::passed: takePassed(line, out); break;
        case LineFate::refused:
            out.add("V197", {1, line.text.size()}, {{"what", "a keyword with nothing behind it"}});
            break;
        default: break;
        }
    }

    void end(LintOutput& out) override
    {
        if (skipped > 0) {
            out.addOfFile("V180",
                          {{"lines", counted(skipped, "line")}, {"keys", "other kinds than observations"}});
        }
    }

private:
    void takeHead(const CheckedLine& line, LintOutput& out)
    {
        if (looksLikeObservation(line.text)) {
            out.add("V197", {1, line.text.size()},
                    {{"what",
                      "an observation that begins with the keyword " + std::string(line.text.substr(0, 3))}});
            out.lose(1);
            return;
        }
        if (!line.text.starts_with(stationKeyword)) {
            return;
        }
        const std::string_view code = trimmed(line.text.substr(stationKeyword.size()));
        if (!station.empty() && code != station) {
            out.add("V196", stretchOf(line.text, code, "COD"),
                    {{"code", std::string(code)}, {"first", station}});
        }
        station = code;
    }

    void takePassed(const CheckedLine& line, LintOutput& out)
    {
        if (looksLikeObservation(line.text)) {
            out.add("V195", {1, line.text.size()}, {{"n", std::to_string(line.text.size())}});
            out.lose(1);
        } else {
            ++skipped;
        }
    }

    void takeMark(const CheckedLine& line, LintOutput& out)
    {
        if (trimmed(line.text).empty()) {
            out.add("V123", {1, line.text.size()}, {{"text", ""}, {"number", "a mark of zeros"}});
            return;
        }
        checkDateOf(line, out);
        checkFraction(line, out);
        checkAngles(line, out);
        checkMagnitudeOf(line, out);
        if (out.times().areOdd()) {
            const std::string_view date = cut(line.text, dateField);
            times.mark(tavelinUtils::withoutBlanks(cut(line.text, nameField)), days.answerTo(date, dateOf),
                       timeOf(line.text), stretchOf(line.text, trimmed(date), "date"), out);
        }
    }

    static int dateOf(std::string_view text)
    {
        return tavelinUtils::DateToMJD(std::string(text), " ");
    }

    static double timeOf(std::string_view line)
    {
        return toDouble(std::string("0").append(tavelinUtils::withoutBlanks(cut(line, dayFraction))));
    }

    static void checkDateOf(const CheckedLine& line, LintOutput& out)
    {
        const std::string_view text = cut(line.text, dateField);
        checkDay(stretchOf(line.text, text, "date"), text, tavelinUtils::threeParts(text, ' '), out);
    }

    static void checkFraction(const CheckedLine& line, LintOutput& out)
    {
        const std::string_view text = trimmed(cut(line.text, dayFraction));
        const bool isBlank = text.empty();
        const bool isFraction =
            !isBlank && text[0] == '.' && std::all_of(text.begin() + 1, text.end(), isDigit);
        if (!isBlank && !isFraction) {
            tellMisreadNumber(stretchOf(line.text, text, "day"), text, timeOf(line.text), out);
        }
    }

    static void checkAngles(const CheckedLine& line, LintOutput& out)
    {
        const std::string_view raText = cut(line.text, rightAscension);
        const std::string_view deText = cut(line.text, declination);
        const auto [hours, minutes, seconds] = tavelinUtils::threeParts(raText, ' ');
        const auto [degrees, arcminutes, arcseconds] = tavelinUtils::threeParts(deText, ' ');
        const std::string_view ra = trimmed(raText);
        const std::string_view de = trimmed(deText);
        checkSexagesimal(AngleKind::rightAscension, stretchOf(line.text, ra, "RA"), ra, ' ',
                         tavelinUtils::raOf(hours, minutes, seconds), out);
        checkSexagesimal(AngleKind::declination, stretchOf(line.text, de, "DE"), de, ' ',
                         tavelinUtils::deOf(degrees, arcminutes, arcseconds), out);
    }

    static void checkMagnitudeOf(const CheckedLine& line, LintOutput& out)
    {
        const std::string_view text = trimmed(cut(line.text, magnitude));
        if (text.empty()) {
            return; // none was measured
        }
        const std::string joined = tavelinUtils::withoutBlanks(text);
        if (joined != text) {
            tellMisreadNumber(stretchOf(line.text, text, "magnitude"), text, toDouble(joined), out);
        } else {
            checkField({"magnitude", FieldForm::magnitude}, line.text, text, out);
        }
    }

    std::string station{};
    std::size_t skipped = 0;
    tavelinUtils::DayNumbers days{};
    TimeFindings times{};
};

} // namespace

std::unique_ptr<LineChecker> mpcLines()
{
    return std::make_unique<MpcChecker>();
}

} // namespace companion
