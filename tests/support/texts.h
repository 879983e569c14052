// Texts of a test.

#pragma once

#include <cstddef>
#include <string>
#include <vector>

/// The text a number of times.
inline std::string repeated(const std::string& text, int count)
{
    std::string all;
    all.reserve(text.size() * static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
        all += text;
    }
    return all;
}

/// The lines of a text, each of which ends with a line feed; fails the test where the last does not.
std::vector<std::string> linesOf(const std::string& text);

/// The text of the lines, each ended by a line feed.
std::string textOf(const std::vector<std::string>& lines);

/// The text between its two ends; fails the test where it has other ends.
std::string between(const std::string& head, const std::string& text, const std::string& tail);

/// The line with another text from the position on, as long as what it replaces.
inline std::string with(std::string line, std::size_t position, const std::string& text)
{
    return line.replace(position, text.size(), text);
}
