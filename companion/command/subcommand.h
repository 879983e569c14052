// Subcommands: what each is called, which options it takes, what it does. The help, the manual pages and the
// completions come from these rows.

#pragma once

#include "findings/finding.h"
#include "out/text.h"

#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace companion {

/// An option.
struct OptionRow
{
    const char* name;  ///< its long form, without the dashes
    char letter;       ///< its short form, 0 where it has none
    const char* value; ///< what it takes: a name in capitals, or its words with bars between; null for a flag
    const char* help;  ///< what it means, from a small letter on, without a full stop
};

/// The options and operands of a call.
class Arguments
{
public:
    /// Whether an option was given.
    bool has(std::string_view option) const;
    /// The value of an option, the last where it was given several times; the fallback where it was not
    /// given.
    std::string value(std::string_view option, std::string_view fallback = "") const;
    /// All values of an option, in their order.
    std::vector<std::string> values(std::string_view option) const;
    /// What is no option, in its order.
    const std::vector<std::string>& operands() const
    {
        return others;
    }

    /// Adds an option, with an empty value for a flag.
    void add(std::string option, std::string value);
    /// Adds an operand.
    void addOperand(std::string operand);

private:
    std::vector<std::pair<std::string, std::string>> options;
    std::vector<std::string> others;
};

/// A subcommand.
struct Subcommand
{
    const char* name;
    const char* operands; ///< "TASK...": demanded unless in brackets
    const char* line;     ///< what it does, in one line, from a small letter on
    const char* examples[2];
    std::span<const OptionRow> options;
    int (*run)(const Arguments& arguments, const Console& console); ///< gives the exit status
};

/// All subcommands, in the order of the help.
std::span<const Subcommand* const> subcommands();

/// The options that all subcommands have.
std::span<const OptionRow> commonOptions();

/// A call with a word that is not known; the finding names the nearest of the known ones.
WrongUsage unknownWord(const std::string& kind, const std::string& word,
                       const std::vector<std::string>& known);

/// The exit status by what was found: 1 where there is an error, or with `strict` a warning, and 0 otherwise.
int exitStatus(const FindingTotals& totals, bool strict = false);

/// Runs the command with the arguments behind its name; gives the exit status. 2 is wrong usage, or an input
/// that cannot be read at all.
int runCommand(const std::vector<std::string>& arguments, const Console& console);

} // namespace companion
