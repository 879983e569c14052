#include "table_mutator.h"

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

namespace {

using Lines = std::vector<std::string>;
using Parts = std::vector<std::string>;

constexpr std::string_view separators = " \t|,;=:";

// The parts of a text, each with the separator after it.
Parts partsOf(std::string_view text, std::string_view ends)
{
    Parts parts;
    while (!text.empty()) {
        const std::size_t end = text.find_first_of(ends);
        const std::size_t size = end == std::string_view::npos ? text.size() : end + 1;
        parts.emplace_back(text.substr(0, size));
        text.remove_prefix(size);
    }
    return parts;
}

std::string textOf(const Parts& parts)
{
    std::string text;
    for (const std::string& part : parts) {
        text += part;
    }
    return text;
}

auto at(Parts& parts, std::size_t place)
{
    return parts.begin() + static_cast<std::ptrdiff_t>(place);
}

// Lines and tokens are changed by the same operations, which take lists that are not empty.
void repeatPart(Parts& parts, Choices& choices)
{
    const std::string part = choices.oneOf(parts);
    const std::size_t times = choices.onceIn(16) ? choices.below(200) : 1;
    parts.insert(at(parts, choices.below(parts.size() + 1)), times, part);
}

void dropPart(Parts& parts, Choices& choices)
{
    parts.erase(at(parts, choices.below(parts.size())));
}

void swapParts(Parts& parts, Choices& choices)
{
    const std::size_t one = choices.below(parts.size());
    std::swap(parts[one], parts[choices.below(parts.size())]);
}

void movePart(Parts& parts, Choices& choices)
{
    const std::size_t from = choices.below(parts.size());
    const std::string part = parts[from];
    parts.erase(at(parts, from));
    parts.insert(at(parts, choices.below(parts.size() + 1)), part);
}

// The part without its end becomes one with the next.
void joinPart(Parts& parts, Choices& choices)
{
    std::string& part = parts[choices.below(parts.size())];
    part.pop_back();
}

constexpr void (*partChanges[])(Parts& parts, Choices& choices) = {repeatPart, dropPart, swapParts, movePart,
                                                                   joinPart};

// A token without its separator.
std::size_t widthOf(const std::string& token)
{
    const bool isEnded = (separators.find(token.back()) != std::string_view::npos) || token.back() == '\n';
    return token.size() - (isEnded ? 1 : 0);
}

void changeToken(std::string& token, Choices& choices)
{
    const std::size_t width = widthOf(token);
    std::string value = choices.value();
    if (choices.onceIn(2)) {
        value.resize(width, choices.onceIn(2) ? '0' : ' ');
    }
    token.replace(0, width, value);
}

// A digit of the token becomes another; a token without digits gets another value.
void changeDigit(std::string& token, Choices& choices)
{
    const std::size_t digit = token.find_first_of("0123456789", choices.below(token.size()));
    if (digit == std::string::npos) {
        changeToken(token, choices);
    } else {
        token[digit] = "0123456789 -+.e"[choices.below(15)];
    }
}

void changeLine(std::string& line, Choices& choices)
{
    Parts tokens = partsOf(line, separators);
    if (tokens.empty()) {
        return;
    }
    switch (choices.below(3)) {
    case 0: choices.oneOf(partChanges)(tokens, choices); break;
    case 1: changeToken(tokens[choices.below(tokens.size())], choices); break;
    default: changeDigit(tokens[choices.below(tokens.size())], choices);
    }
    line = textOf(tokens);
}

// The same change for the same token of all lines. The last token of a line, which holds the line's end,
// stays.
void changeColumn(Lines& lines, Choices& choices)
{
    const std::string_view separator = separators.substr(choices.below(separators.size()), 1);
    const std::size_t column = choices.below(12);
    const std::size_t other = choices.below(12);
    const bool isDropped = choices.onceIn(2);
    for (std::string& line : lines) {
        Parts tokens = partsOf(line, separator);
        if (std::max(column, other) + 1 >= tokens.size()) {
            continue;
        }
        if (isDropped) {
            tokens.erase(at(tokens, column));
        } else {
            std::swap(tokens[column], tokens[other]);
        }
        line = textOf(tokens);
    }
}

void changeLines(Lines& lines, Choices& choices)
{
    switch (choices.below(8)) {
    case 0: changeColumn(lines, choices); break;
    case 1: lines.insert(at(lines, choices.below(lines.size() + 1)), choices.word() + "\n"); break;
    case 2:
    case 3: choices.oneOf(partChanges)(lines, choices); break;
    default: changeLine(lines[choices.below(lines.size())], choices);
    }
}

} // namespace

std::string changedTable(std::string_view text, Choices& choices)
{
    Lines lines = partsOf(text, "\n");
    for (std::size_t left = 1 + choices.below(3); left > 0 && !lines.empty(); --left) {
        changeLines(lines, choices);
        lines = partsOf(textOf(lines), "\n"); // a line may have lost its end, or all it had
    }
    return textOf(lines);
}
