#include "out/text.h"

#include "out/characters.h"
#include "text/date_text.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <numeric>
#include <ostream>
#include <utility>

namespace companion {
namespace {

constexpr std::size_t shownPlaces = 3;
constexpr std::size_t width = 80;

// The length of the UTF-8 character at the front of a text; 0 where there is none. Overlong forms, surrogates
// and what is above U+10FFFF are none.
std::size_t characterLength(std::string_view text)
{
    const auto at = [text](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const unsigned char lead = at(0);
    if (lead < 0x80) {
        return 1;
    }
    const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    if (lead < 0xC2 || lead > 0xF4 || text.size() < length) {
        return 0;
    }
    for (std::size_t i = 1; i < length; ++i) {
        if ((at(i) & 0xC0) != 0x80) {
            return 0;
        }
    }
    const bool isOutside = (lead == 0xE0 && at(1) < 0xA0) || (lead == 0xED && at(1) > 0x9F) ||
                           (lead == 0xF0 && at(1) < 0x90) || (lead == 0xF4 && at(1) > 0x8F);
    return isOutside ? 0 : length;
}

constexpr const char* digits = "0123456789ABCDEF";

std::string_view colorOf(Severity severity)
{
    return severity == Severity::error     ? "\x1b[1;31m"
           : severity == Severity::warning ? "\x1b[1;35m"
                                           : "\x1b[1;36m";
}

char lower(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

// How many letters must be changed, put in or taken out to make one word of the other.
std::size_t distance(std::string_view a, std::string_view b)
{
    std::vector<std::size_t> row(b.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 0; i < a.size(); ++i) {
        std::size_t diagonal = std::exchange(row[0], i + 1);
        for (std::size_t j = 0; j < b.size(); ++j) {
            const std::size_t changed = diagonal + (lower(a[i]) == lower(b[j]) ? 0 : 1);
            diagonal = row[j + 1];
            row[j + 1] = std::min({changed, diagonal + 1, row[j] + 1});
        }
    }
    return row.back();
}

// The first word that begins with another one, which is not too short to tell; empty where there is none.
std::string longerWord(std::string_view word, const std::vector<std::string>& known)
{
    constexpr std::size_t enough = 3;
    const auto longer = std::find_if(known.begin(), known.end(),
                                     [word](const std::string& each) { return each.starts_with(word); });
    return word.size() < enough || longer == known.end() ? "" : *longer;
}

} // namespace

bool isUtf8(std::string_view bytes)
{
    while (!bytes.empty()) {
        const std::size_t length = characterLength(bytes);
        if (length == 0) {
            return false;
        }
        bytes.remove_prefix(length);
    }
    return true;
}

std::string hexadecimal(std::string_view bytes)
{
    std::string text;
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        text += {lower(digits[byte >> 4]), lower(digits[byte & 15])};
    }
    return text;
}

std::string printable(std::string_view bytes)
{
    std::string text;
    while (!bytes.empty()) {
        const std::size_t length = characterLength(bytes);
        const auto byte = static_cast<unsigned char>(bytes[0]);
        if (length == 0 || byte < 0x20 || byte == 0x7F) {
            text += {'\\', 'x', digits[byte >> 4], digits[byte & 15]};
            bytes.remove_prefix(1);
        } else {
            text += bytes.substr(0, length);
            bytes.remove_prefix(length);
        }
    }
    return text;
}

std::string wrapped(std::string line, std::string_view words, std::size_t indent)
{
    std::string text;
    while (!words.empty()) {
        const std::size_t end = std::min(words.find(' '), words.size());
        if (line.size() + 1 + end > width && line.size() > indent) {
            text += line + '\n';
            line.assign(indent, ' ');
        }
        line += (line.size() > indent ? " " : "") + std::string(words.substr(0, end));
        words.remove_prefix(std::min(end + 1, words.size()));
    }
    return text + line + '\n';
}

std::string findingLine(const Finding& found, bool color)
{
    std::string line = printable(found.file);
    if (found.line != 0) {
        line += ':' + std::to_string(found.line);
    }
    if (found.column != 0) {
        line += ':' + std::to_string(found.column);
    }
    line += line.empty() ? "" : ": ";
    line += color ? colorOf(found.severity) : "";
    line += severityWord(found.severity);
    line += color ? "\x1b[0m" : "";
    return line + ": " + printable(found.text) + " [" + found.code.text() + ']';
}

std::string markPlaceText(const MarkPlace& place)
{
    std::string text;
    const auto add = [&text](const std::string& part) { text += (text.empty() ? "" : ", ") + part; };
    if (place.series > 0) {
        add("series " + std::to_string(place.series) + (place.folder.empty() ? "" : ' ' + place.folder));
    }
    if (place.track >= 0) {
        add("track " + std::to_string(place.track) + (place.object.empty() ? "" : ' ' + place.object));
    } else if (!place.object.empty()) {
        add(place.object);
    }
    if (place.mark >= 0) {
        add("mark " + std::to_string(place.mark));
    }
    if (!place.time.empty()) {
        add(place.time);
    }
    return text;
}

std::string momentText(double mjd)
{
    constexpr double firstDay = -678575.0;
    constexpr double lastDay = 2973483.0;
    constexpr std::int64_t dayLength = 86'400'000;
    if (!(mjd >= firstDay && mjd < lastDay)) {
        return "";
    }
    const double day = std::floor(mjd);
    const std::int64_t all = std::llround((mjd - day) * static_cast<double>(dayLength));
    const std::int64_t carriedDays = all / dayLength;
    const std::int64_t time = all % dayLength;
    char text[32];
    std::snprintf(text, sizeof text, "T%02d:%02d:%02d.%03d", static_cast<int>(time / 3'600'000),
                  static_cast<int>(time / 60'000 % 60), static_cast<int>(time / 1000 % 60),
                  static_cast<int>(time % 1000));
    return tavelinUtils::MJDToDate(day + static_cast<double>(carriedDays), "-") + text;
}

void showFinding(const Console& console, const Finding& found)
{
    if (console.look.quiet && found.severity != Severity::error) {
        return;
    }
    console.out << findingLine(found, console.look.color) << '\n';
    for (std::size_t i = 0; i < std::min(shownPlaces, found.places.size()); ++i) {
        const std::string text = markPlaceText(found.places[i].mark);
        if (!text.empty()) {
            console.out << "    " << printable(text) << '\n';
        }
    }
}

std::string nearestWord(std::string_view word, const std::vector<std::string>& known)
{
    const std::string* nearest = nullptr;
    std::size_t least = std::max<std::size_t>(1, word.size() / 3) + 1;
    for (const std::string& each : known) {
        const std::size_t steps = distance(word, each);
        if (steps < least) {
            least = steps;
            nearest = &each;
        }
    }
    return nearest == nullptr ? longerWord(word, known) : *nearest;
}

std::string nearestQuestion(std::string_view word, const std::vector<std::string>& known)
{
    const std::string near = nearestWord(word, known);
    return near.empty() ? "" : "; did you mean \"" + near + "\"?";
}

} // namespace companion
