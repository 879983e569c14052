#include "text/number_text.h"

#include "base/numbers.h"
#include "base/text_buffer.h"
#include "base/tokens.h"

#include <algorithm>
#include <charconv>
#include <utility>

namespace tavelinUtils {
namespace {

constexpr std::string_view whiteSpace = " \t\n\v\f\r";

std::string padded(std::string text, std::ios_base::fmtflags adjust, int width, bool number)
{
    const std::size_t room = width > 0 ? static_cast<std::size_t>(width) : 0;
    if (text.size() >= room) {
        return text;
    }
    const auto side = adjust & std::ios_base::adjustfield;
    std::size_t place = 0;
    if (side == std::ios_base::left) {
        place = text.size();
    } else if (side == std::ios_base::internal && number && text.front() == '-') {
        place = 1;
    }
    return text.insert(place, room - text.size(), ' ');
}

} // namespace

std::string Str9(double value, int precision)
{
    TextBuffer text;
    appendFixed(text, value, precision);
    return text.str();
}

double SetPrecision(double value, int precision)
{
    return roundedTo(value, precision);
}

std::string IntToStr(int value)
{
    TextBuffer text;
    appendInt(text, value);
    return text.str();
}

std::string FloatToStr(double value)
{
    char text[32];
    const auto written = std::to_chars(text, text + sizeof text, value, std::chars_format::general, 6);
    return {text, written.ptr};
}

std::string BoolToStr(bool value)
{
    return value ? "true" : "false";
}

bool StrToBool(std::string text)
{
    return text == "true";
}

std::string Format(std::string value, std::ios_base::fmtflags adjust, int width)
{
    return padded(std::move(value), adjust, width, false);
}

std::string Format(int value, std::ios_base::fmtflags adjust, int width)
{
    return padded(IntToStr(value), adjust, width, true);
}

std::string Format(unsigned long value, std::ios_base::fmtflags adjust, int width)
{
    return padded(std::to_string(value), adjust, width, true);
}

std::string Format(double value, std::ios_base::fmtflags adjust, int width)
{
    return padded(Str9(value, 6), adjust, width, true);
}

std::vector<std::string> split(std::string text, std::string separator, bool keepEmpty)
{
    std::vector<std::string> tokens;
    const auto keep = [&](std::string token) {
        if (keepEmpty || !token.empty()) {
            tokens.push_back(std::move(token));
        }
    };
    std::size_t begin = 0;
    if (!separator.empty()) {
        for (std::size_t end = text.find(separator); end != std::string::npos;
             end = text.find(separator, begin)) {
            keep(text.substr(begin, end - begin));
            begin = end + separator.size();
        }
    }
    keep(text.substr(begin));
    return tokens;
}

int GetDataID(const std::vector<std::string>& names, std::string name)
{
    if (names.empty()) {
        return -1;
    }
    const auto found = std::find(names.begin(), names.end(), name);
    return found == names.end() ? -2 : static_cast<int>(found - names.begin());
}

std::string GetRazd(std::string line)
{
    return countTokens(line, '\t') > countTokens(line, ' ') ? "\t" : " ";
}

std::string replace(std::string text, std::string from, std::string to)
{
    if (from == to) {
        return text;
    }
    // The outcome is that of a search from the front each time: before the last replacement nothing can match
    // unless it reaches into it.
    std::size_t place = text.find(from);
    while (place != std::string::npos) {
        text.replace(place, from.size(), to);
        place = text.find(from, place - std::min(place, from.size()));
    }
    return text;
}

void myltrim(std::string& text)
{
    text.erase(0, std::min(text.find_first_not_of(whiteSpace), text.size()));
}

void myrtrim(std::string& text)
{
    text.erase(text.find_last_not_of(whiteSpace) + 1);
}

void mytrim(std::string& text)
{
    myrtrim(text);
    myltrim(text);
}

void DeleteSymbol(std::string& text, std::string set)
{
    std::erase_if(text, [&set](char c) { return set.find(c) != std::string::npos; });
}

void DeleteLastSymbol(std::string& text, std::string set)
{
    if (const std::size_t last = text.find_last_of(set); last != std::string::npos) {
        text.erase(last, 1);
    }
}

std::string DelForbiddenSymbols(std::string text, std::string replacement)
{
    for (const char* symbol : {"*", "|", "'", "/", "\"", ":", ">", "<", "?"}) {
        text = replace(std::move(text), symbol, replacement);
    }
    return text;
}

} // namespace tavelinUtils
