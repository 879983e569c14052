#include "texts/manual_texts.h"

#include "base/numbers.h"
#include "base/tokens.h"
#include "command/subcommand.h"
#include "texts/manual_layout.h"
#include "texts/manual_tables.h"
#include "texts/page_columns.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <sstream>
#include <stdexcept>
#include <vector>

namespace companion {
namespace {

// The operands of the usage: [_WHAT_], _DIR_ _TABLE_...
std::string emphasized(const std::string& operands)
{
    std::string text;
    tavelinUtils::forEachToken(operands, ' ', [&text](std::string_view operand) {
        const std::size_t begin = operand[0] == '[' ? 1 : 0;
        const std::size_t end = std::min(operand.find_first_of(".]"), operand.size());
        text += text.empty() ? "" : " ";
        text += operand.substr(0, begin);
        text += '_';
        text += operand.substr(begin, end - begin);
        text += '_';
        text += operand.substr(end);
    });
    return text;
}

std::string optionLines(std::span<const OptionRow> rows)
{
    std::string text;
    for (const OptionRow& row : rows) {
        text += row.letter == 0 ? "" : std::string("*-") + row.letter + "*, ";
        text += std::string("*--") + row.name + '*';
        text += row.value == nullptr ? "" : '=' + ('_' + plain(row.value) + '_');
        std::string help = row.help;
        text += "\n\t" + plain(help) + "\n\n";
    }
    return text;
}

const Subcommand& subcommandOf(std::string_view name)
{
    for (const Subcommand* each : subcommands()) {
        if (each->name == name) {
            return *each;
        }
    }
    throw std::runtime_error("no subcommand " + std::string(name));
}

std::string synopsis(const Subcommand& subcommand)
{
    return std::string("# SYNOPSIS\n\n*tavelin ") + subcommand.name + "* [_OPTION_...] " +
           emphasized(subcommand.operands) + "\n\n";
}

std::string optionsOf(std::string_view name)
{
    if (name.empty()) {
        return "# OPTIONS IN EVERY SUBCOMMAND\n\n" + optionLines(commonOptions());
    }
    const auto options = subcommandOf(name).options;
    return "# OPTIONS\n\n" + optionLines(options) +
           "Those that every subcommand has are in *tavelin*(1).\n\n";
}

std::string examplesOf(const Subcommand& subcommand)
{
    std::string text = "# EXAMPLES\n\n```\n";
    for (const char* example : subcommand.examples) {
        text += std::string(example) + '\n';
    }
    return text + "```\n\n";
}

std::string listOfSubcommands()
{
    std::string text = "# SUBCOMMANDS\n\n";
    for (const Subcommand* each : subcommands()) {
        text += std::string("*tavelin-") + each->name + "*(1)\n\t" + plain(each->line) + "\n\n";
    }
    return text;
}

// "docs/formats/mea.md 1,2,4 Field": a page below the present folder, the columns, and the first heading.
std::string tableOfPage(const std::string& place)
{
    std::istringstream words(place);
    std::string path;
    std::string numbers;
    std::string heading;
    std::getline(words >> path >> numbers >> std::ws, heading);
    std::vector<int> columns;
    tavelinUtils::forEachToken(numbers, ',', [&columns](std::string_view number) {
        columns.push_back(tavelinUtils::toInt(number));
    });
    std::ifstream file(path);
    return manualTableOfPage(std::string(std::istreambuf_iterator<char>(file), {}), columns, heading);
}

std::string ofSubcommand(const std::string& section, const Subcommand& row)
{
    if (section == "name") {
        return std::string("# NAME\n\ntavelin-") + row.name + " - " + plain(row.line) + "\n\n";
    }
    if (section == "synopsis") {
        return synopsis(row);
    }
    if (section == "examples") {
        return examplesOf(row);
    }
    throw std::runtime_error("no table makes the section " + section);
}

std::string madeSection(const std::string& section, std::string_view subcommand)
{
    constexpr std::string_view table = "table ";
    if (section == "subcommands") {
        return listOfSubcommands();
    }
    if (section == "options") {
        return optionsOf(subcommand);
    }
    if (section.starts_with(table)) {
        return tableOfPage(section.substr(table.size()));
    }
    const std::string made = madeTable(section);
    return made.empty() ? ofSubcommand(section, subcommandOf(subcommand)) : made;
}

} // namespace

std::string manualWithTables(std::string_view page, std::string_view subcommand)
{
    constexpr std::string_view begin = "; made: ";
    constexpr std::string_view end = "; end\n";
    std::string text;
    while (!page.empty()) {
        const std::size_t line = std::min(page.find('\n'), page.size() - 1) + 1; // with its line feed
        text += page.substr(0, line);
        if (page.substr(0, begin.size()) == begin) {
            const std::string section(page.substr(begin.size(), line - 1 - begin.size()));
            const std::size_t last = page.find(end);
            if (last == std::string_view::npos) {
                throw std::runtime_error("the section " + section + " does not end");
            }
            text += madeSection(section, subcommand);
            page.remove_prefix(last);
            continue;
        }
        page.remove_prefix(line);
    }
    return text;
}

} // namespace companion
