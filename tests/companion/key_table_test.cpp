#include "task/key_table.h"

#include "support/tasks.h"
#include "support/temporary_folder.h"
#include "task.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <regex>
#include <sstream>

namespace {

using namespace companion;

// What a task holds, by its keys; those of its one series by "seria.path" and so on.
using Values = std::map<std::string, std::string>;

template <class Number>
std::string numberText(Number number)
{
    std::ostringstream text;
    text << number;
    return text.str();
}

std::string exclusionText(const std::vector<tavelinUtils::TExcludBlobs>& excludes)
{
    std::string text;
    for (const tavelinUtils::TExcludBlobs& each : excludes) {
        text += numberText(each.object) + ':' + numberText(each.blobs.size());
    }
    return text;
}

Values valuesOf(const tavelinUtils::TConvMea& task)
{
    Values values{
        {"autoname", task.autoname ? "true" : "false"},
        {"longname", task.longname ? "true" : "false"},
        {"autoTelescope", task.autoTelescope ? "true" : "false"},
        {"object", numberText(task.object)},
        {"interval", numberText(task.interval)},
        {"path_in", task.path_in},
        {"out_dir", task.out_dir},
        {"outputextension", task.outputextension},
        {"inputformat", task.inputformat},
        {"outputformat", task.outputformat},
        {"originator", task.originator},
        {"path_res", task.path_res},
        {"REFERENCE_FRAME", task.REFERENCE_FRAME},
        {"PARTICIPANT_1", task.PARTICIPANT_1},
        {"whatSave", task.whatSave},
        {"toSeparateFile", task.toSeparateFile},
        {"paths", task.paths.empty() ? "" : numberText(task.paths.size())},
    };
    for (const tavelinUtils::TSeria2& seria : task.paths) {
        values["seria.path"] = seria.path;
        values["seria.filtr"] = seria.filter;
        values["seria.telescope"] = seria.telescope;
        values["seria.excludes"] = exclusionText(seria.excludes);
    }
    return values;
}

Values valuesOf(const std::string& inside)
{
    const TemporaryFolder folder;
    makeFile(folder / "task.xml", "<task>" + inside + "</task>");
    tavelinUtils::TConvMea task;
    EXPECT_TRUE(tavelinUtils::ltaskconv(folder / "task.xml", task)) << inside;
    return valuesOf(task);
}

std::string element(std::string_view name, std::string_view value)
{
    const std::string key(name);
    return '<' + key + '>' + std::string(value) + "</" + key + '>';
}

std::string seriaWith(const std::string& inside)
{
    return "<paths><seria>" + inside + "<none>1</none></seria></paths>";
}

// A value that is not the default of the key.
std::string otherThan(const TaskKey& key)
{
    switch (key.type) {
    case KeyType::boolean: return key.ofNone == "true" ? "false" : "true";
    case KeyType::integer:
    case KeyType::number: return "7";
    case KeyType::exclusions: return "3;0;7";
    case KeyType::series: return "<seria><path>a/b/c/d</path></seria>";
    default: return "other";
    }
}

// The names that differ between two tasks.
std::vector<std::string> differences(const Values& one, const Values& other)
{
    std::vector<std::string> names;
    for (const auto& [name, value] : one) {
        const auto there = other.find(name);
        if (there == other.end() || there->second != value) {
            names.push_back(name);
        }
    }
    return names;
}

std::vector<std::string> allMatches(const std::string& text, const std::string& pattern)
{
    const std::regex regex(pattern);
    std::vector<std::string> matches;
    for (std::sregex_iterator match(text.begin(), text.end(), regex), end; match != end; ++match) {
        matches.push_back((*match)[1]);
    }
    return matches;
}

std::string between(const std::string& text, const std::string& front, const std::string& back)
{
    const std::size_t begin = text.find(front);
    EXPECT_NE(begin, std::string::npos) << front;
    return text.substr(begin, text.find(back, begin) - begin);
}

// The keys of the tables between two texts of the page of tasks.
std::vector<std::string> rowsOfPage(const std::string& front, const std::string& back)
{
    const std::string page = bytesOf(std::string(VOMAR_PROJECT) + "/docs/task_file.md");
    return allMatches(between(page, front, back), "\\n\\| `(\\w+)` \\|");
}

std::vector<std::string> sorted(std::vector<std::string> names)
{
    std::sort(names.begin(), names.end());
    return names;
}

} // namespace

TEST(KeyTable, EachKeyOfTheRootChangesItsMemberAlone)
{
    const Values none = valuesOf("");
    for (const TaskKey& key : taskKeyTable()) {
        const Values with = valuesOf(element(key.name, otherThan(key)));
        EXPECT_EQ(differences(none, with), std::vector<std::string>{std::string(key.name)});
    }
}

TEST(KeyTable, EachKeyOfASeriaChangesItsMemberAlone)
{
    const Values none = valuesOf(seriaWith(""));
    for (const TaskKey& key : seriaKeyTable()) {
        const Values with = valuesOf(seriaWith(element(key.name, otherThan(key))));
        EXPECT_EQ(differences(none, with), std::vector<std::string>{"seria." + std::string(key.name)});
    }
}

TEST(KeyTable, KeysOfTheOtherTableChangeNothing)
{
    for (const TaskKey& key : seriaKeyTable()) {
        EXPECT_EQ(valuesOf(element(key.name, "7")), valuesOf("")) << key.name;
    }
    for (const TaskKey& key : taskKeyTable()) {
        EXPECT_EQ(valuesOf(seriaWith(element(key.name, "7"))), valuesOf(seriaWith(""))) << key.name;
    }
}

TEST(KeyTable, DefaultsAreThoseOfTheTool)
{
    const Values none = valuesOf("");
    for (const TaskKey& key : taskKeyTable()) {
        const Values with = valuesOf(key.ofNone.empty() ? "" : element(key.name, key.ofNone));
        EXPECT_EQ(with, none) << key.name;
        EXPECT_EQ(none.at(std::string(key.name)).empty(), key.ofNone.empty()) << key.name;
    }
    const Values noneOfSeria = valuesOf(seriaWith(""));
    for (const TaskKey& key : seriaKeyTable()) {
        const std::string inside = key.ofNone.empty() ? "" : element(key.name, key.ofNone);
        EXPECT_EQ(valuesOf(seriaWith(inside)), noneOfSeria) << key.name;
        EXPECT_EQ(noneOfSeria.at("seria." + std::string(key.name)).empty(), key.ofNone.empty()) << key.name;
    }
}

// Any other name changes nothing, since the tool's own source has no further row.
TEST(KeyTable, KeysAreThoseOfTheToolsSource)
{
    const std::string source = bytesOf(std::string(VOMAR_PROJECT) + "/tool/task.cpp");
    std::vector<std::string> ofTask = allMatches(between(source, " taskKeys[]", "};"), "\\{\"(\\w+)\"");
    ofTask.emplace_back("paths");
    EXPECT_EQ(sorted(namesOf(taskKeyTable())), sorted(ofTask));
    EXPECT_EQ(namesOf(seriaKeyTable()), allMatches(between(source, " seriaKeys[]", "};"), "\\{\"(\\w+)\""));
}

TEST(KeyTable, KeysStandInTheOrderOfThePage)
{
    std::vector<std::string> ofRoot = rowsOfPage("## Keys of a conversion", "## Keys of the report");
    const std::vector<std::string> ofReport = rowsOfPage("## Keys of the report", "Below `paths`");
    ofRoot.insert(ofRoot.end(), ofReport.begin(), ofReport.end());
    EXPECT_EQ(namesOf(taskKeyTable()), ofRoot);
    EXPECT_EQ(namesOf(seriaKeyTable()), rowsOfPage("Below `paths`", "## How values are read"));
}

TEST(KeyTable, WordsAreThoseOfTheTool)
{
    const auto words = [](std::string_view key) { return wordsOf(*keyOf(taskKeyTable(), key)); };
    EXPECT_EQ(words("inputformat"), (std::vector<std::string>{"mea", "telegram", "tdm", "ssmas", "vomar"}));
    EXPECT_EQ(words("outputformat"), (std::vector<std::string>{"mea", "telegram", "tdm", "ssmas", "mpc",
                                                               "tdm.xml", "mag", "aavso"}));
    EXPECT_EQ(words("toSeparateFile"),
              (std::vector<std::string>{"eachgroup", "eachobject", "eachseria", "allobjects"}));
    EXPECT_EQ(words("whatSave"), (std::vector<std::string>{"all", "object"}));
    EXPECT_TRUE(words("path_in").empty());
}

TEST(KeyTable, NamesAreComparedExactly)
{
    EXPECT_EQ(keyOf(seriaKeyTable(), "filter"), nullptr);
    EXPECT_EQ(keyOf(taskKeyTable(), "Path_in"), nullptr);
    ASSERT_NE(keyOf(taskKeyTable(), "path_in"), nullptr);
    EXPECT_EQ(keyOf(taskKeyTable(), "path_in")->name, "path_in");
}
