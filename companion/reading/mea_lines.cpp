#include "base/tokens.h"
#include "reading/strict_fields.h"
#include "text/date_text.h"

#include <array>
#include <iterator>
#include <string>

namespace companion {

using tavelinUtils::LineFate;

namespace {

constexpr std::size_t fieldCount = 7;
using Tokens = std::array<std::string_view, fieldCount>;

// The fields by their places in the line.
constexpr std::size_t name = 0;
constexpr std::size_t date = 1;
constexpr std::size_t time = 2;
constexpr std::size_t declination = 4;

// How many characters the reader needs of each field.
constexpr std::size_t shortestFields[fieldCount] = {1, 4, 6, 6, 7, 1, 1};

std::size_t countWords(std::string_view line)
{
    std::size_t words = 0;
    char before = ' ';
    for (const char c : line) {
        words += c != ' ' && before == ' ' ? 1U : 0U;
        before = c;
    }
    return words;
}

class MeaChecker final : public LineChecker
{
public:
    void line(const CheckedLine& line, LintOutput& out) override
    {
        switch (line.fate) {
        case LineFate::mark: checkMark(line, out); break;
        case LineFate::passed:
            out.add("V150", {1, line.text.size()}, {{"words", counted(countWords(line.text), "word")}});
            out.lose(1);
            break;
        case LineFate::refused: tellShortField(line, out); break;
        case LineFate::head:
            if (hasManyNumbers(line.text)) {
                out.add("V151", {1, line.text.size()});
                out.lose(1);
            }
            break;
        default: break;
        }
    }

private:
    void checkMark(const CheckedLine& line, LintOutput& out)
    {
        if (!out.wants(LintLayer::person)) {
            return;
        }
        tavelinUtils::cutRuns(line.text, ' ', tokens);
        for (std::size_t i = date; i < fieldCount; ++i) {
            checkField(meaFields()[i], line.text, tokens[i], out);
        }
        if (out.times().areOdd()) {
            times.mark(tokens[name], tavelinUtils::packedDate(tokens[date]),
                       tavelinUtils::packedTime(tokens[time]), stretchOf(line.text, tokens[time], "time"),
                       out);
        }
    }

    // The reader refuses a line for a short field alone: without another one it is the declination.
    void tellShortField(const CheckedLine& line, LintOutput& out)
    {
        out.lose(1);
        tavelinUtils::cutRuns(line.text, ' ', tokens);
        std::size_t i = date;
        while (i < declination && tokens[i].size() >= shortestFields[i]) {
            ++i;
        }
        const std::string_view field = meaFields()[i].name;
        out.add("V061", stretchOf(line.text, tokens[i], field),
                {{"line", std::to_string(line.number)},
                 {"token", std::string(tokens[i])},
                 {"field", std::string(field)}});
    }

    Tokens tokens{};
    TimeFindings times{};
};

} // namespace

std::unique_ptr<LineChecker> meaLines()
{
    return std::make_unique<MeaChecker>();
}

} // namespace companion
