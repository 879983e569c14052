#include "companion/truth/text_faults.h"

#include <algorithm>
#include <iterator>
#include <string_view>

namespace {

const RandomChoices::Words oddFields = {
    "",           "abc",    "1e400", "nan", "-inf",   "0x1F", "1.5.2",      "99999999999999999999",
    ".5",         "5.",     "+5",    "--5", "5,5",    "-0",   "2023-02-31", "2023-13-01",
    "25:61:61.5", "310223", "12",    "1",   "000000", "1_0",  "\x01",       "2023-056T12:00:00"};

std::size_t lineStart(const std::string& text, std::size_t inside)
{
    const std::size_t feed = inside == 0 ? std::string::npos : text.rfind('\n', inside - 1);
    return feed == std::string::npos ? 0 : feed + 1;
}

// A line of a text: its first byte, and the one after its last, which is that of the line feed.
struct LineBounds
{
    std::size_t first;
    std::size_t end;
};

LineBounds someLine(const std::string& text, RandomChoices& choices)
{
    const std::size_t first = lineStart(text, choices.place(text.size() + 1));
    return {first, std::min(text.find('\n', first), text.size())};
}

std::size_t someByte(const LineBounds& line, RandomChoices& choices)
{
    return line.first + choices.place(line.end - line.first + 1);
}

void replaceField(std::string& text, RandomChoices& choices)
{
    const LineBounds line = someLine(text, choices);
    const std::size_t at = someByte(line, choices);
    const auto isSeparator = [](char c) { return c == ' ' || c == '\t' || c == '\n'; };
    std::size_t first = at;
    while (first > line.first && !isSeparator(text[first - 1])) {
        --first;
    }
    std::size_t end = at;
    while (end < line.end && !isSeparator(text[end])) {
        ++end;
    }
    text.replace(first, end - first, choices.pick(oddFields));
}

void removeLine(std::string& text, RandomChoices& choices)
{
    const LineBounds line = someLine(text, choices);
    text.erase(line.first, std::min(line.end + 1, text.size()) - line.first);
}

void repeatLine(std::string& text, RandomChoices& choices)
{
    const LineBounds line = someLine(text, choices);
    const std::string copy = text.substr(line.first, line.end - line.first) + "\n";
    text.insert(lineStart(text, choices.place(text.size() + 1)), copy);
}

void cutLine(std::string& text, RandomChoices& choices)
{
    const LineBounds line = someLine(text, choices);
    const std::size_t at = someByte(line, choices);
    text.erase(at, line.end - at);
}

void insertText(std::string& text, RandomChoices& choices)
{
    const LineBounds line = someLine(text, choices);
    text.insert(someByte(line, choices), choices.pick({" ", "\t", "\r", "-", ".", "9", ";", ":", "  ", " x",
                                                       std::string(1, '\0'), "\xff"}));
}

void eraseByte(std::string& text, RandomChoices& choices)
{
    if (!text.empty()) {
        text.erase(choices.place(text.size()), 1);
    }
}

void insertLine(std::string& text, RandomChoices& choices)
{
    text.insert(lineStart(text, choices.place(text.size() + 1)),
                choices.pick({"\n", " \n", "END\n", "---\n", "\t\n", "1\n", "A B\n", "a b c\n",
                              "META_START\n", "a b c d e f g\n", "COMMENT x\n"}));
}

void cutFile(std::string& text, RandomChoices& choices)
{
    text.resize(choices.place(text.size() + 1));
}

void changeDigits(std::string& text, RandomChoices& choices)
{
    const LineBounds line = someLine(text, choices);
    for (std::size_t i = line.first; i < line.end; ++i) {
        if (text[i] >= '0' && text[i] <= '9') {
            text[i] = static_cast<char>('0' + choices.between(0, 9));
        }
    }
}

void replaceAll(std::string& text, std::string_view from, std::string_view to)
{
    std::string changed;
    for (std::size_t at = 0; at < text.size();) {
        const bool here = text.compare(at, from.size(), from) == 0;
        changed += here ? to : std::string_view(text).substr(at, 1);
        at += here ? from.size() : 1;
    }
    text = changed;
}

void removeSigns(std::string& text, RandomChoices& choices)
{
    const LineBounds line = choices.chance(50) ? LineBounds{0, text.size()} : someLine(text, choices);
    std::string part = text.substr(line.first, line.end - line.first);
    std::erase(part, '-');
    text.replace(line.first, line.end - line.first, part);
}

void widenText(std::string& text)
{
    std::string wide = "\xff\xfe";
    for (const char c : text) {
        wide += c;
        wide += '\0';
    }
    text = wide;
}

using Fault = void (*)(std::string&, RandomChoices&);

constexpr Fault lineFaults[] = {replaceField, removeLine, repeatLine,   cutLine,     insertText,
                                eraseByte,    insertLine, changeDigits, removeSigns, replaceField};

constexpr Fault fileFaults[] = {
    cutFile,
    [](std::string& text, RandomChoices&) { text.insert(0, "\xef\xbb\xbf"); },
    [](std::string& text, RandomChoices&) { replaceAll(text, "\n", "\r\n"); },
    [](std::string& text, RandomChoices&) { replaceAll(text, "\n", "\r"); },
    [](std::string& text, RandomChoices&) { replaceAll(text, ".", ","); },
    [](std::string& text, RandomChoices&) { replaceAll(text, "\t", " "); },
    [](std::string& text, RandomChoices&) { replaceAll(text, " ", "  "); },
    [](std::string& text, RandomChoices&) { widenText(text); },
    [](std::string& text, RandomChoices&) { text.erase(text.find_last_not_of('\n') + 1); },
};

} // namespace

void putFault(std::string& text, RandomChoices& choices)
{
    if (choices.chance(80)) {
        lineFaults[choices.place(std::size(lineFaults))](text, choices);
    } else {
        fileFaults[choices.place(std::size(fileFaults))](text, choices);
    }
}
