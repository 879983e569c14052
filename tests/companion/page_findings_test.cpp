// What the pages tell operators and readers of has a finding, or a reason why it has none.

#include "base/tokens.h"
#include "findings/finding_table.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

namespace {

using companion::FindingCode;
using companion::findingRow;

using Cells = std::vector<std::string>;

std::string trimmed(std::string_view text)
{
    const std::size_t first = text.find_first_not_of(' ');
    return first == std::string_view::npos
               ? ""
               : std::string(text.substr(first, text.find_last_not_of(' ') + 1 - first));
}

// The cells of a row; none for a line of another kind.
Cells cellsOf(const std::string& line)
{
    Cells cells;
    if (line.starts_with('|') && line.ends_with('|')) {
        tavelinUtils::forEachToken(std::string_view(line).substr(1), '|',
                                   [&cells](std::string_view cell) { cells.push_back(trimmed(cell)); });
    }
    return cells;
}

// Rows of a table, the first of them its titles.
using Table = std::vector<Cells>;

std::vector<Table> tablesOf(const std::string& page)
{
    std::vector<Table> tables;
    std::istringstream lines(bytesOf(std::string(VOMAR_PROJECT) + "/docs/" + page));
    bool isInside = false;
    for (std::string line; std::getline(lines, line);) {
        Cells cells = cellsOf(line);
        if (!cells.empty() && !isInside) {
            tables.emplace_back();
        }
        isInside = !cells.empty();
        if (isInside && cells.front().find_first_not_of('-') != std::string::npos) {
            tables.back().push_back(std::move(cells));
        }
    }
    return tables;
}

// "V240, V241", all of the table, or "none: " and a reason.
bool isCodesOrReason(const std::string& cell)
{
    if (cell.starts_with("none: ")) {
        return cell.size() > std::string("none: ").size();
    }
    bool areCodes = !cell.empty();
    tavelinUtils::forEachToken(cell, ',', [&areCodes](std::string_view each) {
        const auto code = FindingCode::of(trimmed(each));
        areCodes = areCodes && code && findingRow(*code) != nullptr;
    });
    return areCodes;
}

// Whether a row is for programmers alone. What stands in parentheses names operations.
bool isForProgrammers(const Table& table, const Cells& row)
{
    if (table.front().size() != 3 || table.front()[1] != "Who") {
        return false;
    }
    const std::string who = row[1].substr(0, row[1].find('('));
    return who.find("operators") == std::string::npos && who.find("readers") == std::string::npos;
}

// Checks the tables of a page that have findings; returns how many there are.
int checkedTables(const std::string& page)
{
    int tables = 0;
    for (const Table& table : tablesOf(page)) {
        if (table.front().back() != "Finding") {
            continue;
        }
        ++tables;
        for (std::size_t i = 1; i < table.size(); ++i) {
            const Cells& row = table[i];
            EXPECT_EQ(row.size(), table.front().size()) << page << ": " << row.front();
            EXPECT_TRUE(isForProgrammers(table, row) ? row.back().empty() : isCodesOrReason(row.back()))
                << page << ": " << row.front() << ": " << row.back();
        }
    }
    return tables;
}

TEST(PageFindings, every_row_has_a_code_or_a_reason)
{
    EXPECT_EQ(checkedTables("malformed_input.md"), 8);
    EXPECT_EQ(checkedTables("multi_series_report.md"), 1);
    for (const char* format : {"aavso", "ssmas", "tdm_xml", "telegram", "track_table"}) {
        EXPECT_EQ(checkedTables(std::string("formats/") + format + ".md"), 1) << format;
    }
    for (const char* format : {"mpc_report", "tdm"}) {
        EXPECT_EQ(checkedTables(std::string("formats/") + format + ".md"), 2) << format;
    }
    // All of this page's tables say who meets a behaviour, and by which finding.
    EXPECT_EQ(checkedTables("known_behaviours.md"), std::ssize(tablesOf("known_behaviours.md")));
}

TEST(PageFindings, EachTrapOfATaskHasACode)
{
    const std::string page = bytesOf(std::string(VOMAR_PROJECT) + "/docs/task_file.md");
    std::string traps = page.substr(page.find("\n## Traps\n"));
    std::size_t count = 0;
    for (std::size_t at = traps.find("\n- "); at != std::string::npos; ++count) {
        const std::size_t next = traps.find("\n- ", at + 1);
        const std::string trap = trimmed(traps.substr(at, next - at));
        const std::size_t open = trap.rfind('(');
        ASSERT_NE(open, std::string::npos) << trap;
        std::string codes = trap.substr(open + 1, trap.rfind(')') - open - 1);
        std::erase(codes, '\n');
        EXPECT_TRUE(isCodesOrReason(codes)) << trap;
        at = next;
    }
    EXPECT_EQ(count, 10U);
}

} // namespace
