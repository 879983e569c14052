#include "texts/page_columns.h"

#include "base/tokens.h"
#include "texts/manual_layout.h"

#include <algorithm>
#include <cstddef>
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

// A text without code: of a link, [text](place), the text.
std::string withoutLinks(std::string_view text)
{
    std::string result;
    for (std::size_t middle = text.find("]("); middle != std::string_view::npos; middle = text.find("](")) {
        const std::size_t begin = text.rfind('[', middle);
        result.append(text.substr(0, begin)).append(text.substr(begin + 1, middle - begin - 1));
        text.remove_prefix(text.find(')', middle) + 1);
    }
    return plain(result.append(text));
}

// What is between backticks is code.
std::string marked(std::string_view cell)
{
    std::string text;
    bool isCode = false;
    tavelinUtils::forEachToken(cell, '`', [&](std::string_view piece) {
        text += isCode ? bold(piece) : withoutLinks(piece);
        isCode = !isCode;
    });
    return text;
}

// Some cells of a row, counted from 1.
std::vector<std::string> markedCells(const Cells& cells, const std::vector<int>& columns)
{
    std::vector<std::string> texts;
    for (const int column : columns) {
        texts.push_back(marked(cells.at(static_cast<std::size_t>(column) - 1)));
    }
    return texts;
}

std::vector<std::string> headings(const Cells& cells, const std::vector<int>& columns)
{
    std::vector<std::string> texts;
    for (const int column : columns) {
        std::string text(cells.at(static_cast<std::size_t>(column) - 1));
        text.erase(std::remove(text.begin(), text.end(), '`'), text.end());
        texts.push_back(bold(text));
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
            rows.push_back(headings(cellsOf(line), columns));
        } else if (!rows.empty() && isRow(line)) {
            rows.push_back(markedCells(cellsOf(line), columns));
        } else if (rows.size() > 1) {
            return manualTable(rows);
        }
    }
    throw std::runtime_error("no table of the page begins with " + std::string(heading));
}

} // namespace companion
