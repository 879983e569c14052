#include "command/help.h"
#include "command/subcommand.h"
#include "companion/golden.h"
#include "texts/option_texts.h"

#include <gmock/gmock.h>

#include <map>
#include <set>
#include <string>
#include <vector>

namespace {

using namespace companion;
using testing::HasSubstr;
using Call = std::vector<std::string>;

std::string sampleOf(const OptionRow& row)
{
    const std::vector<std::string> words = wordsOf(row);
    return words.empty() ? "1" : words.back();
}

// The forms in which an option may be given.
std::vector<Call> formsOf(const OptionRow& row)
{
    const std::string name = std::string("--") + row.name;
    const std::string letter{'-', row.letter};
    std::vector<Call> forms;
    if (row.value == nullptr) {
        forms.push_back({name});
    } else {
        forms.push_back({name, sampleOf(row)});
        forms.push_back({name + '=' + sampleOf(row)});
    }
    if (row.letter != 0) {
        forms.push_back(row.value == nullptr ? Call{letter} : Call{letter, sampleOf(row)});
    }
    return forms;
}

Call together(std::initializer_list<Call> parts)
{
    Call all;
    for (const Call& part : parts) {
        all.insert(all.end(), part.begin(), part.end());
    }
    return all;
}

// The help is shown once the whole call is read, and instead of any work.
void expectTaken(const Subcommand& subcommand, const Call& call)
{
    const CommandEnd end = callCommand(call);
    EXPECT_EQ(end.status, 0) << testing::PrintToString(call) << end.err;
    EXPECT_EQ(end.out, helpOf(subcommand)) << testing::PrintToString(call);
    EXPECT_EQ(end.err, "");
}

TEST(OptionTable, EveryOptionIsTakenInEachFormBeforeAndBehindOperands)
{
    for (const Subcommand* each : subcommands()) {
        const Call name{each->name};
        const Call operand = *each->operands == 0 ? Call{} : Call{"a", "b"};
        for (const OptionRow& row : allOptionsOf(*each)) {
            for (const Call& form : formsOf(row)) {
                expectTaken(*each, together({name, form, operand, {"--help"}}));
                expectTaken(*each, together({name, operand, form, {"--help"}}));
                expectTaken(*each, together({name, {"-h"}, operand, form}));
            }
        }
    }
}

TEST(OptionTable, OptionsOfAllSubcommandsMayStandBeforeTheSubcommand)
{
    for (const Subcommand* each : subcommands()) {
        for (const OptionRow& row : commonOptions()) {
            for (const Call& form : formsOf(row)) {
                expectTaken(*each, together({form, {each->name, "--help"}}));
            }
        }
    }
}

TEST(OptionTable, AnOptionWithoutItsValueIsWrongUsage)
{
    for (const Subcommand* each : subcommands()) {
        for (const OptionRow& row : allOptionsOf(*each)) {
            if (row.value == nullptr) {
                continue;
            }
            const CommandEnd end = callCommand({each->name, "a", std::string("--") + row.name});
            EXPECT_EQ(end.status, 2) << each->name << ' ' << row.name;
            EXPECT_THAT(end.err, HasSubstr("[V001]")) << each->name << ' ' << row.name;
        }
    }
}

TEST(OptionTable, AWordThatAnOptionDoesNotKnowIsWrongUsage)
{
    for (const Subcommand* each : subcommands()) {
        for (const OptionRow& row : allOptionsOf(*each)) {
            const std::string name = std::string("--") + row.name;
            if (wordsOf(row).empty()) {
                continue;
            }
            for (const Call& form : {Call{name, "nonsense"}, Call{name + "=nonsense"}}) {
                EXPECT_EQ(callCommand(together({{each->name}, form, {"a", "--help"}})).status, 2) << name;
                EXPECT_EQ(callCommand(together({{each->name, "a", "--help"}, form})).status, 2) << name;
            }
        }
    }
}

TEST(OptionTable, AValueGivenToAFlagIsWrongUsage)
{
    for (const Subcommand* each : subcommands()) {
        for (const OptionRow& row : allOptionsOf(*each)) {
            if (row.value == nullptr) {
                EXPECT_EQ(callCommand({each->name, std::string("--") + row.name + "=nonsense"}).status, 2)
                    << each->name << ' ' << row.name;
            }
        }
    }
}

TEST(OptionTable, EachOptionStandsOnceAndShortFormsAreFew)
{
    for (const Subcommand* each : subcommands()) {
        std::set<std::string> names;
        std::set<char> letters;
        for (const OptionRow& row : allOptionsOf(*each)) {
            EXPECT_TRUE(names.insert(row.name).second) << each->name << ' ' << row.name;
            EXPECT_TRUE(row.letter == 0 || letters.insert(row.letter).second)
                << each->name << ' ' << row.name;
            const bool isOfDiff =
                each->name == std::string("diff") && (row.letter == 'c' || row.letter == 's');
            EXPECT_TRUE(isOfDiff ||
                        std::string_view("\0jofqvh", 7).find(row.letter) != std::string_view::npos)
                << each->name << ' ' << row.name;
        }
    }
}

TEST(OptionTable, AnOptionOfSeveralSubcommandsTakesTheSameInAll)
{
    std::map<std::string, std::string> values;
    for (const Subcommand* each : subcommands()) {
        for (const OptionRow& row : each->options) {
            if (each->name == std::string("explain") && row.name == std::string("as")) {
                continue; // a kind of thing, where the others take a format
            }
            if (each->name == std::string("report") && row.name == std::string("by")) {
                continue; // what a file holds, and not what marks are matched by
            }
            if (each->name == std::string("ready") && row.name == std::string("for")) {
                continue; // the form too, where a receiver takes two
            }
            if (each->name == std::string("ready") && row.name == std::string("magnitude")) {
                continue; // which of those that a file has, and not a value
            }
            const std::string value = row.value == nullptr ? "" : row.value;
            EXPECT_EQ(values.emplace(row.name, value).first->second, value) << each->name << ' ' << row.name;
        }
    }
}

} // namespace
