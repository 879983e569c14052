// Page tables: tables of a page, which are scrolled by themselves where the window is narrow.

#pragma once

#include "out/html.h"

#include <initializer_list>
#include <string>

namespace companion {

/// A column of a table, and whether it holds numbers.
struct Column
{
    const char* title;
    bool isNumber = false;
};

/// A region that is scrolled where the window is narrower than its table; by keys too. What is added until it
/// ends stands in the table.
class TableRegion
{
public:
    /// Opens the region of a table of something, by an id of its own.
    TableRegion(Html& page, const std::string& label, const std::string& id);

private:
    Html::Element region;
    Html::Element table;
};

/// Adds the head of a table. A column without a title is left out.
void addHead(Html& page, std::initializer_list<Column> columns);

/// Adds the heading of a row: a name, which leads to a place of the page where there is one.
void addRowName(Html& page, const std::string& name, const std::string& target = "");

/// Adds a cell.
void addCell(Html& page, const std::string& text);

/// Adds a cell of what a file says.
void addSaid(Html& page, const std::string& text);

/// Adds a cell that is a number.
void addNumber(Html& page, const std::string& text);

} // namespace companion
