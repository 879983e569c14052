#include "base/lines.h"
#include "base/tokens.h"
#include "out/characters.h"
#include "reading/strict_fields.h"
#include "text/date_text.h"

#include <algorithm>
#include <array>
#include <string>

namespace companion {

using tavelinUtils::LineFate;
using tavelinUtils::PassedReason;
using tavelinUtils::toDouble;

namespace {

constexpr std::string_view blockEnd = "END";
constexpr std::size_t wordsOfHead = 3;
constexpr std::size_t wordsOfMark = 5;
using Words = std::array<std::string_view, wordsOfMark>;

// The fields of a mark by their places in the line.
constexpr std::size_t date = 0;
constexpr std::size_t time = 1;
constexpr std::size_t magnitude = 4;

// How many characters the reader needs of each field.
constexpr std::size_t shortestFields[wordsOfMark] = {4, 6, 6, 7, 3};

// Where the tenths of a magnitude stand in their field.
constexpr tavelinUtils::Field tenths{4, 3};
constexpr std::size_t magnitudeLength = 6;

bool allDigits(std::string_view text)
{
    return std::all_of(text.begin(), text.end(), isDigit);
}

std::string_view withoutOuterBlanks(std::string_view text)
{
    const std::size_t begin = std::min(text.find_first_not_of(' '), text.size());
    text.remove_prefix(begin);
    return text.substr(0, text.find_last_not_of(' ') + 1);
}

bool isOnlyEnd(std::string_view line)
{
    return withoutOuterBlanks(line) == blockEnd;
}

// Whether a person takes a line for a mark: it begins with a date.
bool looksLikeMark(std::string_view line)
{
    const std::string_view rest = withoutOuterBlanks(line);
    const std::string_view first = rest.substr(0, rest.find(' '));
    return first.size() >= shortestFields[date] && allDigits(first);
}

class TelegramChecker final : public LineChecker
{
public:
    void line(const CheckedLine& line, LintOutput& out) override
    {
        const std::size_t count = tavelinUtils::cutParts(line.text, ' ', words);
        switch (line.fate) {
        case LineFate::end: takeEnd(line, out); break;
        case LineFate::passed: tellPassed(line, count, out); break;
        case LineFate::refused: tellShortField(line, out); break;
        case LineFate::head:
        case LineFate::mark:
        case LineFate::lost: takeOfBlock(line, count, out); break;
        default: break;
        }
    }

    void end(LintOutput& out) override
    {
        if (isLost) {
            const CheckedLine line{headLine, headText, headText};
            out.addAt(line, "V160", {1, headText.size()}, {{"marks", counted(marks, "mark")}});
            out.lose(marks);
        }
    }

private:
    void takeOfBlock(const CheckedLine& line, std::size_t count, LintOutput& out)
    {
        if (count == wordsOfHead) {
            takeHead(line, out);
        } else {
            ++marks;
            checkMark(line, out);
        }
    }

    void takeHead(const CheckedLine& line, LintOutput& out)
    {
        if (isOnlyEnd(line.text)) {
            out.add("V163", {1, line.text.size()});
        } else if (inBlock) {
            out.add("V161", {1, line.text.size()});
        } else if (std::find(words.begin(), words.begin() + wordsOfHead, "") != words.begin() + wordsOfHead) {
            out.add("V105", {1, line.text.size()},
                    {{"what", "a blank too many: a word of the head is empty"}});
        }
        if (inBlock) {
            return;
        }
        inBlock = true;
        marks = 0;
        if (line.fate == LineFate::lost) {
            isLost = true;
            headLine = line.number;
            headText = line.text;
            out.hold();
        }
    }

    void takeEnd(const CheckedLine& line, LintOutput& out)
    {
        if (line.text != blockEnd) {
            out.add("V162", {1, line.text.size()}, {{"word", std::string(line.text)}});
        }
        if (!inBlock || marks == 0) {
            out.add("V168", {1, line.text.size()},
                    {{"what", inBlock ? "a block without marks" : "the end of a block without a head"}});
        }
        inBlock = false;
        marks = 0;
        track = std::to_string(++ends);
    }

    void tellPassed(const CheckedLine& line, std::size_t count, LintOutput& out)
    {
        const Stretch whole{1, line.text.size()};
        if (line.reason == PassedReason::outsideBlock) {
            out.add("V164", whole);
            out.lose(1);
        } else if (isOnlyEnd(line.text)) {
            out.add("V163", whole);
        } else {
            const bool isMark = looksLikeMark(line.text) || inBlock;
            out.add(isMark ? FindingCode("V166") : FindingCode("V165"), whole,
                    {{"words", counted(count, "word")}});
            out.lose(isMark ? 1 : 0);
        }
    }

    void checkMark(const CheckedLine& line, LintOutput& out)
    {
        for (std::size_t i = date; i < magnitude; ++i) {
            checkField(telegramFields()[i], line.text, words[i], out);
        }
        checkMagnitudeField(line, out);
        if (out.times().areOdd() && line.fate == LineFate::mark) {
            times.mark(track, tavelinUtils::packedDate(words[date]), tavelinUtils::packedTime(words[time]),
                       stretchOf(line.text, words[time], "time"), out);
        }
    }

    void checkMagnitudeField(const CheckedLine& line, LintOutput& out)
    {
        const std::string_view text = words[magnitude];
        const double value = toDouble(tavelinUtils::cut(text, tenths)) / 10.0;
        const Stretch stretch = stretchOf(line.text, text, telegramFields()[magnitude].name);
        if (text.size() == magnitudeLength && allDigits(text)) {
            checkMagnitude(value, stretch, out);
        } else if (value - value != 0.0) {
            out.add("V125", stretch, {{"text", std::string(text)}});
        } else {
            out.add("V167", stretch, {{"text", std::string(text)}, {"number", shortest(value)}});
        }
    }

    // The reader refuses a line for a short field alone: without another one it is the magnitude.
    void tellShortField(const CheckedLine& line, LintOutput& out)
    {
        out.lose(1);
        std::size_t i = date;
        while (i < magnitude && words[i].size() >= shortestFields[i]) {
            ++i;
        }
        const std::string_view field = telegramFields()[i].name;
        out.add("V061", stretchOf(line.text, words[i], field),
                {{"line", std::to_string(line.number)},
                 {"token", std::string(words[i])},
                 {"field", std::string(field)}});
    }

    Words words{};
    bool inBlock = false;
    std::size_t marks = 0; // of the block
    std::size_t ends = 0;  // of blocks
    std::string track = "0";
    bool isLost = false; // the block, which nothing closes
    std::size_t headLine = 0;
    std::string headText{};
    TimeFindings times{};
};

} // namespace

std::unique_ptr<LineChecker> telegramLines()
{
    return std::make_unique<TelegramChecker>();
}

} // namespace companion
