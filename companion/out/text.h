// Text: what the command shows to people. Data go to one stream, messages to the other.

#pragma once

#include "findings/finding.h"

#include <cstddef>
#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

namespace companion {

/// Whether bytes are well-formed UTF-8.
bool isUtf8(std::string_view bytes);

/// The bytes in base 16, two small letters or digits each.
std::string hexadecimal(std::string_view bytes);

/// Texts one after the other, with a separator between.
template <class Texts>
std::string joined(const Texts& texts, std::string_view separator)
{
    std::string all;
    for (const auto& text : texts) {
        all.append(all.empty() ? "" : separator).append(text);
    }
    return all;
}

/// A text as it can be shown on a line: control characters, and bytes that are not UTF-8, as "\xE9".
std::string printable(std::string_view bytes);

/// Words in lines of at most 80 columns, where they have room: the first ones follow what the line holds
/// already, the lines after it are indented. Each line has its line feed.
std::string wrapped(std::string line, std::string_view words, std::size_t indent);

/// How progress is shown.
enum class ProgressStyle
{
    bar,   ///< a line that is written anew, on a terminal
    plain, ///< a line each tenth or half a minute, for logs
    none
};

/// What a run of the command may show, and how: the options that all subcommands have.
struct Appearance
{
    bool json = false;
    bool quiet = false;   ///< errors and totals only
    bool verbose = false; ///< also the plan and what was looked at
    bool color = false;
    bool times = false; ///< times and durations may be shown
    ProgressStyle progress = ProgressStyle::none;
};

/// The two streams of a run and how they are written.
struct Console
{
    std::ostream& out; ///< data: findings, tables, JSON
    std::ostream& err; ///< messages and progress
    Appearance look{};
};

/// A finding as a line: "FILE:LINE:COLUMN: SEVERITY: TEXT [CODE]", without a line feed. Line and column are
/// left out where there is none.
std::string findingLine(const Finding& found, bool color = false);

/// The place of a mark: "series 2 night, track 0 Z6433, mark 1, 2010-11-06T04:30:13.824".
std::string markPlaceText(const MarkPlace& place);

/// A moment as "2010-11-06T04:30:13.824", rounded to the millisecond with its carry; empty for what is no day
/// from the year 1 to 9999.
std::string momentText(double mjd);

/// Writes a finding and, indented below it, its first places that name marks of a task. Quiet consoles show
/// errors alone.
void showFinding(const Console& console, const Finding& found);

/// The word of the known ones that is nearest to a word, empty where none is near: at most a third of its
/// letters, and one at least, are other, missing or too many, where case does not count; else one that begins
/// with it.
std::string nearestWord(std::string_view word, const std::vector<std::string>& known);

/// The end of a sentence about an unknown word: "; did you mean "check"?", empty where none is near.
std::string nearestQuestion(std::string_view word, const std::vector<std::string>& known);

} // namespace companion
