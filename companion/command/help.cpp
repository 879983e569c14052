#include "command/help.h"

#include "out/text.h"

#include <algorithm>
#include <vector>

namespace companion {
namespace {

std::string optionName(const OptionRow& row)
{
    std::string name = row.letter == 0 ? "      " : std::string{' ', ' ', '-', row.letter, ',', ' '};
    name += std::string("--") + row.name;
    return row.value == nullptr ? name : name + '=' + row.value;
}

std::string optionLines(std::span<const OptionRow> rows)
{
    constexpr std::size_t column = 28;
    std::string text;
    for (const OptionRow& row : rows) {
        std::string line = optionName(row);
        if (line.size() + 2 > column) {
            text += line + '\n';
            line.clear();
        }
        line.resize(column, ' ');
        text += wrapped(line, row.help, column);
    }
    return text;
}

// Of a line that begins with a small letter.
std::string sentence(std::string line)
{
    line[0] = static_cast<char>(line[0] - 'a' + 'A');
    return line + ".\n";
}

} // namespace

std::string helpOfAll()
{
    std::string text = "    tavelin check night.xml\n"
                       "    tavelin run night.xml\n"
                       "\n"
                       "Usage: tavelin SUBCOMMAND [OPTION...] [OPERAND...]\n"
                       "\n"
                       "Checks tasks of vomar, runs them, and says what became of each mark.\n"
                       "\n"
                       "Subcommands:\n";
    for (const Subcommand* each : subcommands()) {
        std::string line = std::string("  ") + each->name;
        line.resize(12, ' ');
        text += wrapped(line, each->line, 12);
    }
    return text + "\n"
                  "tavelin help SUBCOMMAND shows its options; tavelin --version the version.\n"
                  "Exit status: 0 good; 1 errors found, or a run that failed; 2 wrong usage, or an\n"
                  "input that cannot be read.\n";
}

std::string helpOf(const Subcommand& subcommand)
{
    std::string text;
    for (const char* example : subcommand.examples) {
        text += std::string("    ") + example + '\n';
    }
    text +=
        std::string("\nUsage: tavelin ") + subcommand.name + " [OPTION...] " + subcommand.operands + "\n\n";
    text += sentence(subcommand.line);
    text += "\nOptions:\n" + optionLines(subcommand.options);
    return text + "\nIn every subcommand:\n" + optionLines(commonOptions());
}

} // namespace companion
