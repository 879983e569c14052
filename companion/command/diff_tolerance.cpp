#include "command/diff_tolerance.h"

#include "base/lines.h"
#include "files/text_reading.h"
#include "out/text.h"
#include "out/units.h"
#include "reading/text_front.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

namespace companion {
namespace {

// A plain number that is not negative.
std::optional<double> magnitudesOf(std::string_view text)
{
    double number = 0;
    const auto [end, error] =
        std::from_chars(text.data(), text.data() + text.size(), number, std::chars_format::fixed);
    const bool isWhole = error == std::errc() && end == text.data() + text.size();
    return isWhole && std::isfinite(number) && text[0] != '-' ? std::optional(number) : std::nullopt;
}

// A value of a tolerance: its name as an option and in files, how its texts are read.
struct ToleranceValue
{
    const char* name;
    const char* problem; // with a text that is none
    std::optional<double> (*read)(std::string_view text);
    void (*set)(MarkTolerance& tolerance, double value);
};

constexpr ToleranceValue values[] = {
    {"time", "is no time such as 0.5s", secondsOf,
     [](MarkTolerance& tolerance, double value) { tolerance.time = value; }},
    {"angle", "is no angle such as 0.5 or 200mas", arcsecondsOf,
     [](MarkTolerance& tolerance, double value) { tolerance.angle = value; }},
    {"magnitude", "is no magnitude such as 0.1", magnitudesOf,
     [](MarkTolerance& tolerance, double value) { tolerance.magnitude = value; }},
};

void setValue(const ToleranceValue& value, const std::string& text, const std::string& where,
              MarkTolerance& tolerance)
{
    const std::optional<double> number = value.read(text);
    if (!number) {
        throw wrongCall(where, '"' + text + "\" " + value.problem);
    }
    value.set(tolerance, *number);
}

// The lines of a file: a name and a value each; empty lines, and comments that begin with #.
class ToleranceLines
{
public:
    ToleranceLines(std::string ofFile, MarkTolerance& toFill) : path(std::move(ofFile)), tolerance(toFill)
    {
    }

    void add(std::string_view line)
    {
        constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
        ++number;
        if (number == 1 && line.starts_with(byteOrderMark)) {
            line.remove_prefix(byteOrderMark.size());
        }
        const std::vector<std::string> words = wordsOf(line.substr(0, line.find('#')));
        if (words.empty()) {
            return;
        }
        const std::string where = path + ':' + std::to_string(number);
        if (words.size() != 2) {
            throw wrongCall(where, "a name and a value are wanted");
        }
        setValue(named(words[0]), words[1], where, tolerance);
    }

private:
    static std::vector<std::string> wordsOf(std::string_view text)
    {
        constexpr std::string_view blanks = " \t\r";
        std::vector<std::string> words;
        while (text.find_first_not_of(blanks) != text.npos) {
            text.remove_prefix(text.find_first_not_of(blanks));
            const std::size_t end = std::min(text.find_first_of(blanks), text.size());
            words.emplace_back(text.substr(0, end));
            text.remove_prefix(end);
        }
        return words;
    }

    static const ToleranceValue& named(const std::string& name)
    {
        std::vector<std::string> names;
        for (const ToleranceValue& value : values) {
            if (value.name == name) {
                return value;
            }
            names.emplace_back(value.name);
        }
        throw unknownWord("tolerance", name, names);
    }

    std::string path;
    MarkTolerance& tolerance;
    std::size_t number = 0;
};

MarkTolerance exactTolerance()
{
    MarkTolerance tolerance;
    tolerance.angle = 0;
    return tolerance;
}

// What is neither a word nor a file is more likely a word.
void mustBeThere(const std::string& wanted)
{
    std::error_code ignored;
    const std::vector<std::string> words{"auto", "exact"};
    if (!std::filesystem::exists(wanted, ignored) && !nearestWord(wanted, words).empty()) {
        throw unknownWord("tolerance", wanted, words);
    }
}

void takeFile(const std::string& name, InputFiles& files, MarkTolerance& tolerance)
{
    mustBeThere(name);
    const std::string path = files.pathOf(name);
    frontOfFile(path); // throws for one that cannot be read
    ToleranceLines lines(name, tolerance);
    tavelinUtils::readTextLines(path, lines);
}

} // namespace

MarkTolerance wantedTolerance(const Arguments& arguments, const FormatFacts& a, const FormatFacts& b,
                              InputFiles& files)
{
    const std::string wanted = arguments.value("tolerance", "auto");
    MarkTolerance tolerance = wanted == "exact" ? exactTolerance() : toleranceOf(a, b);
    if (wanted != "exact" && wanted != "auto") {
        takeFile(wanted, files, tolerance);
    }
    for (const ToleranceValue& value : values) {
        if (arguments.has(value.name)) {
            setValue(value, arguments.value(value.name), std::string("--") + value.name, tolerance);
        }
    }
    return tolerance;
}

} // namespace companion
