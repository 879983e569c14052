#include "support/texts.h"

#include <gtest/gtest.h>

#include <sstream>

std::vector<std::string> linesOf(const std::string& text)
{
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) {
        lines.push_back(line);
    }
    EXPECT_TRUE(text.empty() || text.back() == '\n') << text;
    return lines;
}

std::string textOf(const std::vector<std::string>& lines)
{
    std::string text;
    for (const std::string& line : lines) {
        text += line + "\n";
    }
    return text;
}

std::string between(const std::string& head, const std::string& text, const std::string& tail)
{
    const std::size_t ends = head.size() + tail.size();
    if (text.size() < ends || !text.starts_with(head) || !text.ends_with(tail)) {
        ADD_FAILURE() << text;
        return "";
    }
    return text.substr(head.size(), text.size() - ends);
}
