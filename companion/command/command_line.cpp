// The command line: which subcommand a call names, its options and operands, the help, the version.

#include "command/help.h"
#include "command/subcommand.h"
#include "command/versions.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <map>
#include <ostream>

namespace companion {
namespace {

constexpr OptionRow rowsOfAll[] = {
    {"json", 0, nullptr, "one JSON document instead of text"},
    {"quiet", 'q', nullptr, "errors and totals only"},
    {"verbose", 'v', nullptr, "also the plan and what was looked at"},
    {"color", 0, "auto|always|never", "color severities; auto: on a terminal, unless NO_COLOR is set"},
    {"progress", 0, "auto|plain|none", "how long work shows its progress; auto: on a terminal"},
    {"times", 0, nullptr, "also times and durations"},
    {"help", 'h', nullptr, "show this help"},
};

std::vector<OptionRow> allOptions(const Subcommand& subcommand)
{
    std::vector<OptionRow> rows(subcommand.options.begin(), subcommand.options.end());
    rows.insert(rows.end(), std::begin(rowsOfAll), std::end(rowsOfAll));
    return rows;
}

// The words that an option with a value takes; none where it takes any.
std::vector<std::string> wordsOf(const OptionRow& row)
{
    const std::string value = row.value;
    return value.find('|') == std::string::npos ? std::vector<std::string>{} : CLI::detail::split(value, '|');
}

void mustBeKnown(const OptionRow& row, const std::string& value)
{
    const std::vector<std::string> words = wordsOf(row);
    if (!words.empty() && std::find(words.begin(), words.end(), value) == words.end()) {
        const std::string question = nearestQuestion(value, words);
        const std::string all = (question.empty() ? "; it takes " : " It takes ") + joined(words, ", ");
        throw WrongUsage{finding(
            "V002",
            {{"kind", std::string("word of --") + row.name}, {"word", value}, {"question", question + all}})};
    }
}

// Of what begins with a dash: "-1" is a number, and an operand.
bool isNegativeNumber(const std::string& word)
{
    return word.find_first_not_of("0123456789", 1) == std::string::npos;
}

// What is left over and looks like an option is an unknown one.
void refuseUnknownOptions(const std::vector<std::string>& left, const std::vector<OptionRow>& rows)
{
    std::vector<std::string> known;
    known.reserve(rows.size());
    for (const OptionRow& row : rows) {
        known.push_back(std::string("--") + row.name);
    }
    for (const std::string& each : left) {
        if (each.size() > 1 && each[0] == '-' && !isNegativeNumber(each)) {
            throw unknownWord("option", each.substr(0, each.find('=')), known);
        }
    }
}

// CLI11 would take --json=false for --json.
void refuseValuesOfFlags(const std::vector<std::string>& call, const std::vector<OptionRow>& rows)
{
    for (const OptionRow& row : rows) {
        const std::string name = std::string("--") + row.name;
        const bool hasValue = std::any_of(call.begin(), call.end(), [&name](const std::string& word) {
            return word.compare(0, name.size() + 1, name + '=') == 0;
        });
        if (row.value == nullptr && hasValue) {
            throw wrongCall(name, "takes no value");
        }
    }
}

std::string cliName(const OptionRow& row)
{
    return (row.letter == 0 ? "" : std::string{'-', row.letter, ','}) + "--" + row.name;
}

using OptionValues = std::map<std::string, std::vector<std::string>>;

void declareOptions(CLI::App& app, const std::vector<OptionRow>& rows, OptionValues& values)
{
    for (const OptionRow& row : rows) {
        if (row.value == nullptr) {
            app.add_flag(cliName(row));
        } else {
            app.add_option(cliName(row), values[row.name])->type_size(1)->allow_extra_args(false);
        }
    }
}

// Options and operands of a call, without the name of the subcommand. What follows "--" are operands.
Arguments parsed(const Subcommand& subcommand, std::vector<std::string> call)
{
    const auto end = std::find(call.begin(), call.end(), "--");
    const std::vector<std::string> behind(end == call.end() ? end : end + 1, call.end());
    call.erase(end, call.end());

    const std::vector<OptionRow> rows = allOptions(subcommand);
    refuseValuesOfFlags(call, rows);
    CLI::App app;
    app.set_help_flag();
    app.allow_extras();
    OptionValues values;
    declareOptions(app, rows, values);
    try {
        std::reverse(call.begin(), call.end()); // CLI11 takes them from the end
        app.parse(call);
    } catch (const CLI::ParseError& error) {
        throw wrongCall(subcommand.name, error.what());
    }

    Arguments arguments;
    for (const OptionRow& row : rows) {
        for (const std::string& value : values[row.name]) {
            mustBeKnown(row, value);
            arguments.add(row.name, value);
        }
        if (row.value == nullptr && app.count(std::string("--") + row.name) > 0) {
            arguments.add(row.name, "");
        }
    }
    const std::vector<std::string> left = app.remaining();
    refuseUnknownOptions(left, rows);
    for (const auto& operands : {left, behind}) {
        for (const std::string& operand : operands) {
            arguments.addOperand(operand);
        }
    }
    return arguments;
}

Appearance appearanceOf(const Arguments& arguments, Appearance look)
{
    look.json = arguments.has("json");
    look.quiet = arguments.has("quiet");
    look.verbose = arguments.has("verbose");
    look.times = arguments.has("times");
    const std::string color = arguments.value("color", "auto");
    look.color = color == "auto" ? look.color : color == "always";
    const std::string progress = arguments.value("progress", "auto");
    if (progress != "auto") {
        look.progress = progress == "plain" ? ProgressStyle::plain : ProgressStyle::none;
    }
    return look;
}

std::vector<std::string> namesOfSubcommands()
{
    std::vector<std::string> names{"help"};
    for (const Subcommand* each : subcommands()) {
        names.emplace_back(each->name);
    }
    return names;
}

const Subcommand& subcommandOf(const std::string& name)
{
    for (const Subcommand* each : subcommands()) {
        if (each->name == name) {
            return *each;
        }
    }
    throw unknownWord("subcommand", name, namesOfSubcommands());
}

int runSubcommand(const Subcommand& subcommand, const std::vector<std::string>& call, const Console& console)
{
    const Arguments arguments = parsed(subcommand, call);
    if (arguments.has("help")) {
        console.out << helpOf(subcommand);
        return 0;
    }
    const std::string operands = subcommand.operands;
    if (operands[0] != '[' && arguments.operands().empty()) {
        throw wrongCall(subcommand.name, operands + " is missing");
    }
    return subcommand.run(arguments, {console.out, console.err, appearanceOf(arguments, console.look)});
}

// A call without a subcommand: only the help and the version.
int runAlone(const std::vector<std::string>& call, const Console& console)
{
    const auto asks = [&call](const char* word) {
        return std::find(call.begin(), call.end(), word) != call.end();
    };
    if (asks("--version")) {
        console.out << versions(asks("-v") || asks("--verbose"));
        return 0;
    }
    if (asks("--help") || asks("-h")) {
        console.out << helpOfAll();
        return 0;
    }
    if (!call.empty()) {
        throw unknownWord("option", call.front(), {"--help", "--version"});
    }
    console.err << helpOfAll();
    return 2;
}

int runHelp(const std::vector<std::string>& call, const Console& console)
{
    console.out << (call.empty() ? helpOfAll() : helpOf(subcommandOf(call.front())));
    return 0;
}

// The place of the name of the subcommand: the first word that is no option. Those before it are options of
// all subcommands.
std::size_t nameIn(const std::vector<std::string>& call)
{
    std::size_t place = 0;
    while (place < call.size() && call[place].size() > 1 && call[place][0] == '-') {
        const bool takesValue = call[place] == "--color" || call[place] == "--progress";
        place += takesValue ? 2 : 1;
    }
    return std::min(place, call.size());
}

int dispatched(std::vector<std::string> call, const Console& console)
{
    const std::size_t place = nameIn(call);
    if (place == call.size()) {
        return runAlone(call, console);
    }
    const std::string name = call[place];
    call.erase(call.begin() + static_cast<std::ptrdiff_t>(place));
    return name == "help" ? runHelp(call, console) : runSubcommand(subcommandOf(name), call, console);
}

// Whoever reads the output must not take a part of it for the whole. The failure may be long ago, and its
// reason be lost: a byte more, which an output that has lost others cannot harm, fails for the same one.
void mustBeWritten(std::ostream& out)
{
    out.flush();
    if (out) {
        return;
    }
    out.clear();
    errno = 0;
    out.put('\n').flush();
    const int reason = errno == 0 ? EIO : errno;
    throw WrongUsage{finding("V003", {{"file", "standard output"}, {"what", std::strerror(reason)}})};
}

} // namespace

bool Arguments::has(std::string_view option) const
{
    return std::any_of(options.begin(), options.end(),
                       [option](const auto& each) { return each.first == option; });
}

std::string Arguments::value(std::string_view option, std::string_view fallback) const
{
    const std::vector<std::string> all = values(option);
    return all.empty() ? std::string(fallback) : all.back();
}

std::vector<std::string> Arguments::values(std::string_view option) const
{
    std::vector<std::string> all;
    for (const auto& [name, value] : options) {
        if (name == option) {
            all.push_back(value);
        }
    }
    return all;
}

void Arguments::add(std::string option, std::string value)
{
    options.emplace_back(std::move(option), std::move(value));
}

void Arguments::addOperand(std::string operand)
{
    others.push_back(std::move(operand));
}

std::span<const OptionRow> commonOptions()
{
    return rowsOfAll;
}

WrongUsage unknownWord(const std::string& kind, const std::string& word,
                       const std::vector<std::string>& known)
{
    return {finding("V002", {{"kind", kind}, {"word", word}, {"question", nearestQuestion(word, known)}})};
}

int exitStatus(const FindingTotals& totals, bool strict)
{
    return totals.errors > 0 || (strict && totals.warnings > 0) ? 1 : 0;
}

int runCommand(const std::vector<std::string>& arguments, const Console& console)
{
    try {
        const int status = dispatched(arguments, console);
        mustBeWritten(console.out);
        return status;
    } catch (const WrongUsage& usage) {
        console.err << "tavelin: " << printable(usage.why.text) << " [" << usage.why.code.text() << "]\n";
        return 2;
    }
}

} // namespace companion
