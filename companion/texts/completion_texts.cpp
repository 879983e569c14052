#include "texts/completion_texts.h"

#include "command/subcommand.h"
#include "out/text.h"
#include "texts/option_texts.h"

#include <regex>
#include <string>
#include <vector>

namespace companion {
namespace {

std::string longName(const OptionRow& row)
{
    return std::string("--") + row.name;
}

// A text between single quotes of a shell.
std::string inQuotes(std::string_view text)
{
    return '\'' + std::regex_replace(std::string(text), std::regex("'"), R"('\'')") + '\'';
}

std::vector<std::string> namesOfSubcommands()
{
    std::vector<std::string> names;
    for (const Subcommand* each : subcommands()) {
        names.emplace_back(each->name);
    }
    return names;
}

std::vector<std::string> namesOfOptions(std::span<const OptionRow> rows)
{
    std::vector<std::string> names;
    for (const OptionRow& row : rows) {
        if (row.letter != 0) {
            names.push_back({'-', row.letter});
        }
        names.push_back(longName(row));
    }
    return names;
}

// The lines of a case: which words an option of a subcommand takes, "/" for files, "" for anything else.
std::string bashValues(const std::string& subcommand, std::span<const OptionRow> rows)
{
    std::string lines;
    for (const OptionRow& row : rows) {
        if (row.value == nullptr) {
            continue;
        }
        std::string options = '"' + subcommand + ' ' + longName(row) + '"';
        options += row.letter == 0 ? "" : " | \"" + subcommand + " -" + row.letter + '"';
        lines += "    " + options + ") echo " + inQuotes(takesPath(row) ? "/" : joined(wordsOf(row), " ")) +
                 " ;;\n";
    }
    return lines;
}

std::string bashTables()
{
    std::string options = "_tavelin_options()\n{\n    case $1 in\n";
    std::string values = "_tavelin_values()\n{\n    case \"$1 $2\" in\n";
    std::string operands = "_tavelin_operands()\n{\n    case $1 in\n    help) echo " +
                           inQuotes(joined(namesOfSubcommands(), " ")) + " ;;\n";
    for (const Subcommand* each : subcommands()) {
        const std::string name = each->name;
        const std::vector<OptionRow> rows = allOptionsOf(*each);
        options += "    " + name + ") echo " + inQuotes(joined(namesOfOptions(rows), " ")) + " ;;\n";
        values += bashValues(name, rows);
        if (!operandWords(*each).empty()) {
            operands += "    " + name + ") echo " + inQuotes(joined(operandWords(*each), " ")) + " ;;\n";
        }
    }
    options +=
        "    *) echo " + inQuotes(joined(namesOfOptions(commonOptions()), " ") + " --version") + " ;;\n";
    values += bashValues("", commonOptions()) + "    *) return 1 ;;\n";
    operands += "    *) return 1 ;;\n";
    const std::string end = "    esac\n}\n\n";
    return options + end + values + end + operands + end;
}

constexpr const char* bashRest =
    R"(# The name of the subcommand: the first word that is no option and no value of one. Bash cuts --color=never into
# three words.
_tavelin_subcommand()
{
    local i
    for ((i = 1; i < COMP_CWORD; ++i)); do
        case ${COMP_WORDS[i]} in
        --color | --progress) ((++i)); [[ ${COMP_WORDS[i]} != '=' ]] || ((++i)) ;;
        -*) ;;
        *) echo "${COMP_WORDS[i]}"; return ;;
        esac
    done
}

_tavelin()
{
    local word=${COMP_WORDS[COMP_CWORD]} option=${COMP_WORDS[COMP_CWORD - 1]} subcommand words
    if [[ $word == '=' ]]; then
        word=
    elif [[ $option == '=' ]]; then
        option=${COMP_WORDS[COMP_CWORD - 2]}
    fi
    subcommand=$(_tavelin_subcommand)
    if [[ $option == -* ]] && words=$(_tavelin_values "$subcommand" "$option"); then
        [[ $words != / ]] || { mapfile -t COMPREPLY < <(compgen -f -- "$word"); return; }
    elif [[ $word == -* ]]; then
        words=$(_tavelin_options "$subcommand")
    elif [[ -z $subcommand ]]; then
        words=$(_tavelin_names)
    elif ! words=$(_tavelin_operands "$subcommand"); then
        mapfile -t COMPREPLY < <(compgen -f -- "$word")
        return
    fi
    mapfile -t COMPREPLY < <(compgen -W "$words" -- "$word")
}

complete -o filenames -F _tavelin tavelin
)";

std::string bashCompletion()
{
    return "# Completion of tavelin for bash. Made by scripts/make_companion_texts.\n\n"
           "_tavelin_names()\n{\n    echo " +
           inQuotes(joined(namesOfSubcommands(), " ") + " help") + "\n}\n\n" + bashTables() + bashRest;
}

// '(-q --quiet)'{-q,--quiet}'[errors and totals only]'
std::string zshOption(const OptionRow& row)
{
    const std::string name = longName(row);
    std::string text = "'[" + backslashed(row.help, "[]:\\") + ']';
    if (row.value != nullptr) {
        const std::vector<std::string> words = wordsOf(row);
        const std::string value = words.empty() ? row.value : row.name;
        text += ':' + value + ':' +
                (words.empty() ? takesPath(row) ? "_files" : "" : '(' + joined(words, " ") + ')');
    }
    text += '\'';
    const std::string equals = row.value == nullptr ? "" : "=";
    if (row.letter == 0) {
        return '\'' + name + equals + text.substr(1);
    }
    const std::string letter{'-', row.letter};
    return "'(" + letter + ' ' + name + ")'{" + letter + (row.value == nullptr ? "" : "+") + ',' + name +
           equals + '}' + text;
}

std::string zshOptions(std::span<const OptionRow> rows, const std::string& indent)
{
    std::string lines;
    for (const OptionRow& row : rows) {
        lines += indent + zshOption(row) + '\n';
    }
    return lines;
}

std::string zshOperand(const Subcommand& subcommand)
{
    const std::string operands = subcommand.operands;
    const std::vector<std::string> words = operandWords(subcommand);
    const std::string name = operands.substr(operands[0] == '[' ? 1 : 0,
                                             operands.find_first_of(".]") - (operands[0] == '[' ? 1 : 0));
    return "'*:" + name + ':' + (words.empty() ? "_files" : '(' + joined(words, " ") + ')') + '\'';
}

std::string zshSubcommand(const Subcommand& subcommand)
{
    std::string text = std::string("    ") + subcommand.name + ")\n        _arguments \\\n";
    for (const OptionRow& row : subcommand.options) {
        text += "            " + zshOption(row) + " \\\n";
    }
    return text + "            $common " + zshOperand(subcommand) + "\n        ;;\n";
}

std::string zshCompletion()
{
    std::string names;
    std::string cases;
    for (const Subcommand* each : subcommands()) {
        names += "        " + inQuotes(std::string(each->name) + ':' + each->line) + '\n';
        cases += zshSubcommand(*each);
    }
    return "#compdef tavelin\n# Completion of tavelin for zsh. Made by scripts/make_companion_texts.\n\n"
           "_tavelin()\n{\n    local context state state_descr line\n    typeset -A opt_args\n"
           "    local -a common=(\n" +
           zshOptions(commonOptions(), "        ") + "    )\n    local -a names=(\n" + names +
           "        'help:show the help of a subcommand'\n    )\n"
           "    _arguments -C $common '--version[show the version]' '1:subcommand:->name' "
           "'*::operand:->rest'\n"
           "    case $state in\n    name) _describe subcommand names; return ;;\n    rest) ;;\n"
           "    *) return ;;\n    esac\n"
           "    case $words[1] in\n" +
           cases + "    help) _arguments '1:subcommand:(" + joined(namesOfSubcommands(), " ") +
           ")' ;;\n    esac\n}\n\n_tavelin \"$@\"\n";
}

std::string fishOption(const OptionRow& row, const std::string& condition)
{
    std::string line = "complete -c tavelin" + condition;
    line += row.letter == 0 ? "" : std::string(" -s ") + row.letter;
    line += std::string(" -l ") + row.name;
    const std::vector<std::string> words = wordsOf(row);
    if (!words.empty()) {
        line += " -x -a " + inQuotes(joined(words, " "));
    } else if (row.value != nullptr) {
        line += takesPath(row) ? " -r -F" : " -x";
    }
    return line + " -d " + inQuotes(row.help) + '\n';
}

std::string fishCompletion()
{
    const std::string names = joined(namesOfSubcommands(), " ");
    const std::string none = " -n 'not __fish_seen_subcommand_from " + names + " help'";
    std::string text = "# Completion of tavelin for fish. Made by scripts/make_companion_texts.\n\n";
    for (const OptionRow& row : commonOptions()) {
        text += fishOption(row, "");
    }
    text += "complete -c tavelin" + none + " -l version -d 'show the version'\n";
    text += "complete -c tavelin" + none + " -f -a help -d 'show the help of a subcommand'\n";
    text += "complete -c tavelin -n '__fish_seen_subcommand_from help' -f -a " + inQuotes(names) + '\n';
    for (const Subcommand* each : subcommands()) {
        const std::string seen = std::string(" -n '__fish_seen_subcommand_from ") + each->name + '\'';
        text +=
            "\ncomplete -c tavelin" + none + " -f -a " + each->name + " -d " + inQuotes(each->line) + '\n';
        for (const OptionRow& row : each->options) {
            text += fishOption(row, seen);
        }
        if (!operandWords(*each).empty()) {
            text +=
                "complete -c tavelin" + seen + " -f -a " + inQuotes(joined(operandWords(*each), " ")) + '\n';
        }
    }
    return text;
}

} // namespace

std::string completionOf(std::string_view shell)
{
    if (shell == "bash") {
        return bashCompletion();
    }
    if (shell == "zsh") {
        return zshCompletion();
    }
    return shell == "fish" ? fishCompletion() : "";
}

} // namespace companion
