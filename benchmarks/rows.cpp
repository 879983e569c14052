#include "rows.h"

#include <algorithm>
#include <cstdio>

bool Figure::above() const
{
    return measured > asked.atMost;
}

bool Figure::farAbove() const
{
    return measured > std::max(asked.atMost, asked.reached) * 1.25;
}

bool Figure::beyondDoubt() const
{
    return measured > std::max(asked.atMost, asked.reached) * 2;
}

bool Row::farAbove() const
{
    return std::any_of(figures.begin(), figures.end(),
                       [](const Figure& figure) { return figure.farAbove(); });
}

bool Row::beyondDoubt() const
{
    return std::any_of(figures.begin(), figures.end(),
                       [](const Figure& figure) { return figure.beyondDoubt(); });
}

std::string grouped(long number)
{
    std::string digits = std::to_string(number);
    for (std::size_t end = digits.size(); end > 3; end -= 3) {
        digits.insert(end - 3, 1, ',');
    }
    return digits;
}

std::string withUnit(double number, int decimals, const std::string& unit)
{
    char text[64];
    std::snprintf(text, sizeof text, "%.*f ", decimals, number);
    return text + unit;
}

void printHead()
{
    std::printf("| %-76s | %-9s | %-9s | %-24s | %8s | %7s | %7s | %-5s |\n", "work", "tool", "yardstick",
                "figure", "measured", "at most", "wanted", "");
    const auto line = [](std::size_t width) { return std::string(width, '-'); };
    std::printf("|-%s-|-%s-|-%s-|-%s-|-%s:|-%s:|-%s:|-%s-|\n", line(76).c_str(), line(9).c_str(),
                line(9).c_str(), line(24).c_str(), line(8).c_str(), line(7).c_str(), line(7).c_str(),
                line(5).c_str());
}

void print(const Row& row)
{
    bool first = true;
    for (const Figure& figure : row.figures) {
        const auto atFirst = [first](const std::string& text) { return first ? text.c_str() : ""; };
        std::printf("| %-76s | %-9s | %-9s | %-24s | %8.2f | %7.2f | %7.2f | %-5s |\n", atFirst(row.name),
                    atFirst(row.tool), atFirst(row.yardstick), figure.what.c_str(), figure.measured,
                    figure.asked.atMost, figure.asked.wanted, figure.above() ? "above" : "");
        first = false;
    }
    std::fflush(stdout);
}
