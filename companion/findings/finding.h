// Findings: what the command tells about a task, a file or a run: a code, how severe it is, where, and a
// sentence.
//
//   findings.push_back(finding("V240", {{"n", "2"}, {"m", "23"}}).in(path).at(12, 5));

#pragma once

#include <cstddef>
#include <initializer_list>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace companion {

/// How severe a finding is.
enum class Severity
{
    error,   ///< something is lost or wrong
    warning, ///< something may be other than meant
    note     ///< worth knowing
};

/// "error", "warning" or "note".
std::string_view severityWord(Severity severity);

/// The code of a finding: "V240". Each has a row in the table of findings (findings/finding_table.h).
class FindingCode
{
public:
    /// A literal of a V and three digits; any other does not compile.
    consteval FindingCode(const char (&text)[5])
        : number(placeIn("V", text[0]) + digit(text[1]) * 100 + digit(text[2]) * 10 + digit(text[3]))
    {
    }

    /// The code of a text, whether or not the table has it; nothing for a text of another form.
    static std::optional<FindingCode> of(std::string_view text);

    /// "V240".
    std::string text() const;

    friend constexpr auto operator<=>(const FindingCode& a, const FindingCode& b)
    {
        return a.number <=> b.number;
    }
    friend constexpr bool operator==(const FindingCode& a, const FindingCode& b)
    {
        return a.number == b.number;
    }

private:
    explicit FindingCode(int ofTable) : number(ofTable)
    {
    }

    // A character that is not among them does not compile: at() has nothing to give.
    static consteval int placeIn(std::string_view all, char c)
    {
        const std::size_t place = all.find(c);
        static_cast<void>(all.at(place));
        return static_cast<int>(place);
    }
    static consteval int digit(char c)
    {
        return placeIn("0123456789", c);
    }

    int number;
};

/// A mark of a task, as far as it is known: members that are negative or empty are left out.
struct MarkPlace
{
    int series = 0;       ///< from 1, in the order of the task; 0 where there is none
    std::string folder{}; ///< of the series
    int track = -1;       ///< of the series, counted from 0
    std::string object{};
    int mark = -1; ///< of the track, counted from 0
    std::string time{};
    int number = 0; ///< in the order of a plan's reading, from 1; 0 where there is none; not shown
};

/// Where a finding occurs: a stretch of a line of a file, or a mark of a task.
struct FindingPlace
{
    std::size_t line = 0;   ///< from 1; 0 where there is none
    std::size_t column = 0; ///< from 1, in bytes; 0 where there is none
    std::size_t length = 0; ///< in bytes
    std::string snippet;    ///< the line, as its bytes are
    std::string field;      ///< the field of the format
    std::string value;      ///< what stands in the field
    MarkPlace mark;
};

/// The values of the fields of a finding's text, each after the name of its field.
using FindingValues = std::initializer_list<std::pair<std::string_view, std::string>>;

/// A finding. `text` is the text of its row in the table, with the fields filled.
struct Finding
{
    FindingCode code;
    Severity severity;
    std::string text;
    std::string file;       ///< empty where there is none
    std::size_t line = 0;   ///< from 1; 0 where there is none
    std::size_t column = 0; ///< from 1, in bytes; 0 where there is none
    std::size_t count = 1;  ///< how many times it occurs
    std::vector<FindingPlace> places{};

    /// The same finding in a file.
    Finding in(std::string path) &&;
    /// The same finding at a line and column.
    Finding at(std::size_t atLine, std::size_t atColumn) &&;
    /// The same finding, which occurs so many times.
    Finding times(std::size_t number) &&;
};

/// A finding of the table. Fields of the row's text are in braces, "{n}": each takes the value of its name.
/// Throws std::logic_error for a code without a row and for a field without a value.
Finding finding(FindingCode code, FindingValues values = {});

/// Whether one of the findings is an error.
bool hasErrors(std::span<const Finding> findings);

/// Codes that follow each other in the table.
struct CodeRange
{
    FindingCode first;
    FindingCode last;
};

/// Whether a code is in one of the ranges.
bool isAmong(std::span<const CodeRange> ranges, FindingCode code);

/// A call that cannot be carried out: the program ends with status 2 and this finding.
struct WrongUsage
{
    Finding why;
};

/// A call (V001) whose option or operand cannot be taken: the problem follows its name.
WrongUsage wrongCall(std::string_view name, std::string_view problem);

/// Puts findings in the order in which they are shown: those of the first file, then those of other files in
/// the order in which these first occur; in each by line and column, then those without a place by code.
void sortFindings(std::vector<Finding>& findings, const std::string& firstFile = "");

/// How many findings of each severity there are.
struct FindingTotals
{
    std::size_t errors = 0;
    std::size_t warnings = 0;
    std::size_t notes = 0;

    /// Counts a finding.
    void add(const Finding& found);
    /// Adds other totals.
    void add(const FindingTotals& others);
};

/// "1 error, 2 warnings, 0 notes".
std::string totalsText(const FindingTotals& totals);

/// "1 mark", "2,000 marks": a number with commas between thousands and its noun, which gets an s unless it is
/// one.
std::string counted(std::size_t number, std::string_view noun);

/// "2", "2,000": the number alone.
std::string counted(std::size_t number);

} // namespace companion
