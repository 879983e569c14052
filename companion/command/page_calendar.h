// Page calendar: the nights of a batch, each with the states of its tasks.

#pragma once

#include "command/page_contents.h"
#include "out/html.h"

#include <cstddef>
#include <string>

namespace companion {

/// The date of the night that a file is of: the last date in its path that is the day of its first mark or a
/// day beside it, since nights are named by their evening, and else the day of the mark. Where that time is
/// not known, the last date in the path; empty where there is none.
std::string nightOf(const std::string& path, const std::string& first);

/// How many nights the tasks of batches are of.
std::size_t nightCount(const PageContents& contents);

/// Adds the calendar, and the table of the tasks that it leads to.
void addNights(Html& page, const PageContents& contents);

} // namespace companion
