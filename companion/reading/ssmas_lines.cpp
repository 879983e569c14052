#include "base/last_answer.h"
#include "base/numbers.h"
#include "base/tokens.h"
#include "reading/sexagesimal_fields.h"
#include "reading/strict_fields.h"
#include "text/angle_text.h"
#include "text/date_text.h"

#include <algorithm>
#include <array>
#include <string>

namespace companion {

using tavelinUtils::LineFate;

namespace {

// The lines before the first object's, and the words of a mark.
constexpr std::size_t linesInFront = 6;
constexpr std::size_t wordsOfMark = 7;
using Words = std::array<std::string_view, wordsOfMark>;

constexpr std::string_view numbersTitle = "#SSMAS";

// The fields of a mark by their places in the line.
enum Field : std::size_t
{
    date,
    time,
    nothing,
    rightAscension,
    declination,
    rms,
    magnitude
};

// DD.MM.YYYY, as a person finds it at the front of a mark.
bool isDateLike(std::string_view word)
{
    return std::count(word.begin(), word.end(), '.') == 2 &&
           word.find_first_not_of("0123456789.") == word.npos;
}

std::string_view firstWord(std::string_view line)
{
    line.remove_prefix(std::min(line.find_first_not_of(' '), line.size()));
    return line.substr(0, line.find(' '));
}

// Whether a person takes a line for a mark: for its date, or for all the numbers behind a date that is none.
bool looksLikeMark(std::string_view line)
{
    return hasManyNumbers(line) || isDateLike(firstWord(line));
}

class SsmasChecker final : public LineChecker
{
public:
    void line(const CheckedLine& line, LintOutput& out) override
    {
        const bool isAfterTitle = afterTitle;
        afterTitle = line.text.starts_with(numbersTitle);
        if (line.number <= linesInFront) {
            if (isAfterTitle) {
                lose(line, "V185", out);
            } else if (looksLikeMark(line.text)) {
                out.add("V164", {1, line.text.size()});
                out.lose(1);
            }
            return;
        }
        const std::size_t count = tavelinUtils::cutParts(line.text, ' ', words);
        switch (line.fate) {
        case LineFate::mark: takeMark(line, out); break;
        case LineFate::head: takeObject(line, out); break;
        case LineFate::end: takeEnd(line, isAfterTitle, out); break;
        case LineFate::passed: takePassed(line, count, isAfterTitle, out); break;
        default: break;
        }
    }

    void end(LintOutput& out) override
    {
        tellLoss(out);
        if (!out.thrown.empty()) {
            out.addOfFile("V190");
        }
    }

private:
    // An object that is lost with the marks that follow it. How many, what comes after them tells.
    void lose(const CheckedLine& line, FindingCode code, LintOutput& out)
    {
        tellLoss(out);
        isLosing = true;
        lostBy = code;
        lostText = line.text;
        lostLine = line.number;
        lostMarks = looksLikeMark(line.text) ? 1 : 0;
        out.hold();
    }

    void tellLoss(LintOutput& out)
    {
        const bool isHarmless = lostBy == FindingCode("V187") && lostMarks == 0;
        if (isLosing && !isHarmless) {
            const CheckedLine line{lostLine, lostText, lostText};
            out.addAt(line, lostBy, {1, lostText.size()}, {{"marks", counted(lostMarks, "mark")}});
            out.lose(lostMarks);
        }
        isLosing = false;
    }

    // Whether a mark follows before the next object.
    static bool hasMarks(std::size_t objectLine, const LineFates& fates)
    {
        for (std::size_t line = objectLine + 1; line <= fates.size(); ++line) {
            const LineFate fate = fates.fate(line);
            if (fate == LineFate::mark || fate == LineFate::head) {
                return fate == LineFate::mark;
            }
        }
        return false;
    }

    // The line of an object. The object before it stays open where this one has no name, or where it has no
    // mark itself.
    void takeObject(const CheckedLine& line, LintOutput& out)
    {
        tellLoss(out);
        ++objects;
        if (isOpen && marks > 0 && !words[0].empty()) {
            isOpen = false;
            marks = 0;
            lose(line, "V186", out);
            return;
        }
        if (isOpen && marks > 0) {
            out.add("V189", {1, line.text.size()}, {{"marks", counted(marks, "mark")}});
        }
        isOpen = true;
        if (!hasMarks(line.number, out.fates())) {
            out.add("V168", {1, line.text.size()}, {{"what", "an object without marks"}});
        }
    }

    // The number of the next block closes an object; any other line that does loses marks.
    void takeEnd(const CheckedLine& line, bool isAfterTitle, LintOutput& out)
    {
        isOpen = false;
        marks = 0;
        if (line.text.find_first_not_of("0123456789") != std::string_view::npos) {
            lose(line, isAfterTitle ? FindingCode("V188") : FindingCode("V187"), out);
        }
    }

    void takePassed(const CheckedLine& line, std::size_t count, bool isAfterTitle, LintOutput& out)
    {
        if (!looksLikeMark(line.text)) {
            if (isAfterTitle) {
                lose(line, "V188", out);
            }
        } else if (isLosing && !isOpen) {
            ++lostMarks;
        } else if (isOpen) {
            out.add("V166", {1, line.text.size()}, {{"words", counted(count, "word")}});
            out.lose(1);
        } else {
            out.add("V164", {1, line.text.size()});
            out.lose(1);
        }
    }

    void takeMark(const CheckedLine& line, LintOutput& out)
    {
        ++marks;
        checkDate(line, out);
        checkField({"time", FieldForm::time}, line.text, words[time], out);
        checkRightAscension(line, out);
        checkDeclination(line, out);
        checkMagnitudeOf(line, out);
        if (out.times().areOdd()) {
            times.mark(std::to_string(objects - 1), days.answerTo(words[date], dateOf),
                       tavelinUtils::timeToDay(words[time], ':'), stretchOf(line.text, words[time], "time"),
                       out);
        }
    }

    static int dateOf(std::string_view text)
    {
        const auto [day, month, year] = tavelinUtils::threeParts(text, '.');
        return tavelinUtils::DateToMJD(std::string(year), std::string(month), std::string(day));
    }

    void checkDate(const CheckedLine& line, LintOutput& out) const
    {
        const auto [day, month, year] = tavelinUtils::threeParts(words[date], '.');
        checkDay(stretchOf(line.text, words[date], "date"), words[date], {year, month, day}, out);
    }

    void checkRightAscension(const CheckedLine& line, LintOutput& out) const
    {
        const std::string_view text = words[rightAscension];
        const Stretch stretch = stretchOf(line.text, text, "RA");
        const double read = tavelinUtils::raToDecimal(text);
        if (text.find(':') != std::string_view::npos) {
            checkSexagesimal(AngleKind::rightAscension, stretch, text, ':', read, out);
        } else {
            checkDegrees(AngleKind::rightAscension, stretch, text, read, out);
        }
    }

    void checkDeclination(const CheckedLine& line, LintOutput& out)
    {
        const std::string_view text = words[declination];
        const Stretch stretch = stretchOf(line.text, text, "DE");
        const double read = tavelinUtils::deToDecimal(text);
        const auto points = std::count(text.begin(), text.end(), '.');
        if (text.find(':') != std::string_view::npos) {
            checkSexagesimal(AngleKind::declination, stretch, text, ':', read, out);
        } else if (points == 3) {
            const std::string_view whole = text.substr(0, text.rfind('.'));
            tellDropped(stretch, text, text.substr(whole.size() + 1), out);
            checkSexagesimal(AngleKind::declination, stretch, whole, '.', read, out);
        } else {
            checkDegrees(AngleKind::declination, stretch, text, read, out);
        }
    }

    // Once: the format itself has this fraction.
    void tellDropped(const Stretch& stretch, std::string_view text, std::string_view fraction,
                     LintOutput& out)
    {
        if (!isToldOfFraction && fraction.find_first_not_of('0') != std::string_view::npos) {
            isToldOfFraction = true;
            out.add("V191", stretch, {{"text", std::string(text)}});
        }
    }

    void checkMagnitudeOf(const CheckedLine& line, LintOutput& out) const
    {
        const std::string_view text = words[magnitude];
        const Stretch stretch = stretchOf(line.text, text, "m");
        if (text.starts_with("0-")) {
            out.add("V192", stretch, {{"text", std::string(text)}});
        } else {
            checkField({"m", FieldForm::magnitude}, line.text, text, out);
        }
    }

    Words words{};
    bool afterTitle = false;
    bool isOpen = false;
    std::size_t marks = 0;   // of the open object
    std::size_t objects = 0; // tracks of the reader
    bool isLosing = false;
    FindingCode lostBy = "V188";
    std::size_t lostLine = 0;
    std::string lostText{};
    std::size_t lostMarks = 0;
    bool isToldOfFraction = false;
    tavelinUtils::DayNumbers days{};
    TimeFindings times{};
};

} // namespace

std::unique_ptr<LineChecker> ssmasLines()
{
    return std::make_unique<SsmasChecker>();
}

} // namespace companion
