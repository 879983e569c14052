#include "command/ready_marks.h"

#include "base/tokens.h"
#include "out/characters.h"

#include <algorithm>

namespace companion {
namespace {

// How many lines of a text a counter takes for marks.
template <class Counter>
std::size_t linesTakenBy(Counter counter, const std::string& text)
{
    std::size_t count = 0;
    tavelinUtils::forEachToken(text, '\n', [&](std::string_view line) { count += counter(line) ? 1U : 0U; });
    return count;
}

// Observations in 80 columns: the date is in columns 16 to 25, and a point follows it. A header line, which
// may be as long and hold a date, has a blank behind the three letters that it begins with.
bool isObservation(std::string_view line)
{
    constexpr std::size_t length = 80;
    constexpr std::size_t date = 15;
    constexpr std::string_view form = "dddd dd dd.";
    if (line.size() != length || (line[0] != ' ' && line[3] == ' ')) {
        return false;
    }
    return std::equal(form.begin(), form.end(), line.begin() + date,
                      [](char wanted, char c) { return wanted == 'd' ? isDigit(c) : c == wanted; });
}

// Blocks of lines with bars: lines of # and !, a line that names the columns, and a row for each mark.
class BarredRows
{
public:
    bool operator()(std::string_view line)
    {
        const bool isOfHeader = line.empty() || line[0] == '#' || line[0] == '!';
        const bool isRow = !isOfHeader && isHeaded;
        isHeaded = !isOfHeader;
        return isRow;
    }

private:
    bool isHeaded = false; // the names of the columns came before
};

bool isReported(std::string_view line)
{
    return !line.empty() && line[0] != '#';
}

std::size_t timesIn(const std::string& text, std::string_view word)
{
    std::size_t count = 0;
    for (std::size_t at = text.find(word); at != std::string::npos; at = text.find(word, at + 1)) {
        ++count;
    }
    return count;
}

} // namespace

std::size_t marksOfCopy(const std::string& text, std::string_view format)
{
    if (format == "tdm" || format == "tdm.xml") {
        return timesIn(text, format == "tdm" ? "\nANGLE_1 = " : "<ANGLE_1>");
    }
    if (format == "ades.xml") {
        return timesIn(text, "<optical>");
    }
    if (format == "ades.psv") {
        return linesTakenBy(BarredRows(), text);
    }
    return format == "mpc" ? linesTakenBy(isObservation, text) : linesTakenBy(isReported, text);
}

std::optional<Finding> disagreement(const std::string& text, std::string_view format, std::size_t marks)
{
    if (marksOfCopy(text, format) == marks) {
        return std::nullopt;
    }
    return finding("V490", {{"sum", "the marks of the input and of the copy"}});
}

} // namespace companion
