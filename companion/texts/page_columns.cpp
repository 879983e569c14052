#include "texts/page_columns.h"

#include "base/tokens.h"
#include "texts/manual_layout.h"

#include <algorithm>
#include <cstddef>
#include <regex>
#include <stdexcept>
#include <vector>

namespace companion {
namespace {

using Cells = std::vector<std::string_view>;

bool isRow(std::string_view line)
{
    return line.starts_with("| ");
}

std::string_view withoutBlanks(std::string_view cell)
{
    const std::size_t begin = cell.find_first_not_of(' ');
    return begin == std::string_view::npos ? "" : cell.substr(begin, cell.find_last_not_of(' ') - begin + 1);
}

// "| a | b |" has two cells.
Cells cellsOf(std::string_view line)
{
    Cells cells;
    tavelinUtils::forEachToken(line.substr(1), '|',
                               [&cells](std::string_view cell) { cells.push_back(withoutBlanks(cell)); });
    return cells;
}

// Of a link, [text](place), the text.
std::string withoutLinks(const std::string& text)
{
    static const std::regex link(R"(\[([^\]]*)\]\([^)]*\))");
    return std::regex_replace(text, link, "$1");
}

// What is between backticks is code.
std::string marked(std::string_view cell)
{
    const std::string pieces = withoutLinks(std::string(cell));
    std::string text;
    bool isCode = false;
    tavelinUtils::forEachToken(pieces, '`', [&](std::string_view piece) {
        text += isCode ? bold(piece) : plain(piece);
        isCode = !isCode;
    });
    return text;
}

std::string markedHeading(std::string_view cell)
{
    std::string text(cell);
    text.erase(std::remove(text.begin(), text.end(), '`'), text.end());
    return bold(text);
}

// Some cells of a row, counted from 1, each with its marks.
std::vector<std::string> chosen(const Cells& cells, const std::vector<int>& columns,
                                std::string (*mark)(std::string_view cell))
{
    std::vector<std::string> texts;
    texts.reserve(columns.size());
    for (const int column : columns) {
        texts.push_back(mark(cells.at(static_cast<std::size_t>(column) - 1)));
    }
    return texts;
}

std::vector<std::string_view> linesOf(std::string_view page)
{
    std::vector<std::string_view> lines;
    tavelinUtils::forEachToken(page, '\n', [&lines](std::string_view line) { lines.push_back(line); });
    return lines;
}

} // namespace

std::string manualTableOfPage(std::string_view page, const std::vector<int>& columns,
                              std::string_view heading)
{
    std::vector<std::vector<std::string>> rows;
    for (const std::string_view line : linesOf(page)) {
        if (rows.empty() && isRow(line) && cellsOf(line).front() == heading) {
            rows.push_back(chosen(cellsOf(line), columns, markedHeading));
        } else if (!rows.empty() && isRow(line)) {
            rows.push_back(chosen(cellsOf(line), columns, marked));
        } else if (rows.size() > 1) {
            return manualTable(rows);
        }
    }
    throw std::runtime_error("no table of the page begins with " + std::string(heading));
}

} // namespace companion
