#include "command/made_task.h"
#include "command/run_options.h"
#include "command/subcommands.h"
#include "out/json.h"
#include "out/units.h"
#include "reading/signatures.h"
#include "task/format_suffixes.h"
#include "task/path_checks.h"

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <ostream>

namespace companion {
namespace {

namespace fs = std::filesystem;

constexpr OptionRow options[] = {
    {"to", 0, "mea|telegram|tdm|ssmas|mpc|tdm.xml|mag|aavso", "the format of the files; must be given"},
    {"by", 0, "group|object|series|all",
     "what a file holds: a stretch of a track, an object, a series or everything; must be given"},
    {"short-names", 0, nullptr, "names without telescope, time and filter"},
    {"filter", 0, "F", "the label of all series in names; objects of different labels are not joined"},
    {"telescope", 0, "NAME", "the telescope of all series"},
    {"originator", 0, "NAME", "the originator of all tracks"},
    {"gap", 0, "T", "with --by group: cut a track where marks are so far apart: 30m, 4h; default 30m"},
    {"exclude", 0, "MARKS",
     "leave out marks: TABLE:3;0;7 are marks 0 and 7 of track 3 of a table; may be given again"},
    {"only-track", 0, "N", "keep only this track of the first table, counted from 0"},
    {"make", 0, nullptr, "make DIR where it does not exist"},
    {"keep-task", 0, "FILE", "save the task that does the same"},
    {"force", 'f', nullptr, "replace files that exist"},
    {"allow", 0, "CODES", "run in spite of findings of these codes, with commas between"},
    timeLimitRow,
    memoryLimitRow,
    verifyRow,
    toolRow,
};

// Folders that are made for a report, and taken away where nothing came to stand in them.
class MadeFolders
{
public:
    void make(const fs::path& folder)
    {
        if (folder.has_parent_path() && !fs::exists(folder.parent_path())) {
            make(folder.parent_path());
        }
        std::error_code failure;
        if (fs::create_directory(folder, failure)) {
            made.push_back(folder);
        } else if (failure) {
            throw WrongUsage{finding("V003", {{"file", folder.string()}, {"what", failure.message()}})};
        }
    }

    MadeFolders() = default;
    ~MadeFolders()
    {
        for (; !made.empty(); made.pop_back()) {
            std::error_code isHolding;
            fs::remove(made.back(), isHolding);
        }
    }
    MadeFolders(const MadeFolders&) = delete;
    MadeFolders& operator=(const MadeFolders&) = delete;

private:
    std::vector<fs::path> made;
};

// The folder of the files, by a path that ends in its name.
std::string outputFolder(const Arguments& arguments, MadeFolders& folders)
{
    std::string folder = folderWithoutSlash(arguments.operands().front());
    while (folder.ends_with("/.")) {
        folder.pop_back();
        folder = folderWithoutSlash(folder);
    }
    if (arguments.has("make")) {
        folders.make(folder);
    }
    std::error_code failure;
    if (!fs::is_directory(folder, failure)) {
        throw wrongCall("report",
                        folder + (fs::exists(folder, failure) ? " is no folder"
                                                              : " does not exist; --make would make it"));
    }
    const std::string name = fs::path(folder).filename();
    return name == "." || name == ".." ? fs::canonical(folder).string() : folder;
}

std::string divisionOf(const std::string& word)
{
    return word == "all" ? "allobjects" : word == "series" ? "eachseria" : "each" + word;
}

std::string minutesOf(const Arguments& arguments)
{
    if (!arguments.has("gap")) {
        return "";
    }
    if (arguments.value("by") != "group") {
        throw wrongValue("gap", "it goes with --by group only");
    }
    const std::string text = arguments.value("gap");
    const auto gap = durationOf(text);
    if (!gap) {
        throw wrongValue("gap", '"' + text + "\" is no duration such as 30m or 4h");
    }
    char minutes[32] = {};
    std::to_chars(minutes, minutes + sizeof minutes - 1, static_cast<double>(gap->count()) / 60'000);
    return minutes;
}

// The tables of a report and what is left out of each.
class Tables
{
public:
    explicit Tables(const Arguments& arguments)
        : paths(arguments.operands().begin() + 1, arguments.operands().end()), exclusions(paths.size())
    {
        for (const std::string& path : paths) {
            recognisedFile(path); // throws where it cannot be read
        }
        for (const std::string& text : arguments.values("exclude")) {
            exclude(text);
        }
    }

    void addTo(NewTask& task, const Arguments& arguments) const
    {
        for (std::size_t i = 0; i < paths.size(); ++i) {
            task.addSeries({{"path", paths[i]},
                            {"filtr", arguments.value("filter")},
                            {"telescope", arguments.value("telescope")},
                            {"excludes", exclusions[i]}});
        }
    }

    const std::vector<std::string>& all() const
    {
        return paths;
    }

private:
    // The path of a table may hold a colon, marks do not.
    void exclude(const std::string& text)
    {
        const std::size_t colon = text.rfind(':');
        const std::string path = text.substr(0, colon);
        const auto table = std::find_if(paths.begin(), paths.end(), [&path](const std::string& each) {
            return each == path || isSameFile(each, path);
        });
        if (colon == std::string::npos || table == paths.end()) {
            throw wrongValue("exclude",
                             '"' + text + "\" does not begin with a table of this report and a colon");
        }
        std::string& marks = exclusions[static_cast<std::size_t>(table - paths.begin())];
        marks += (marks.empty() ? "" : " ") + text.substr(colon + 1);
    }

    std::vector<std::string> paths;
    std::vector<std::string> exclusions;
};

NewTask taskOf(const Arguments& arguments, const Tables& tables)
{
    NewTask task;
    task.set("out_dir", ".");
    task.set("outputextension", usualSuffix(arguments.value("to")).substr(1)); // a report puts the point
    task.set("inputformat", "vomar");
    task.set("outputformat", arguments.value("to"));
    task.set("originator", arguments.value("originator"));
    task.set("longname", arguments.has("short-names") ? "false" : "true");
    task.set("toSeparateFile", divisionOf(arguments.value("by")));
    task.set("interval", minutesOf(arguments));
    if (arguments.has("only-track")) {
        task.set("whatSave", "object");
        task.set("object", std::to_string(numberOf(arguments, "only-track", 0)));
    }
    tables.addTo(task, arguments);
    return task;
}

void mustBeComplete(const Arguments& arguments)
{
    if (arguments.operands().size() < 2) {
        throw wrongCall("report", "takes DIR and at least one TABLE");
    }
    for (const char* option : {"to", "by"}) {
        if (!arguments.has(option)) {
            throw wrongValue(option, "it must be given");
        }
    }
}

void keep(const Arguments& arguments, const MadeTask& made)
{
    NewTask task = made.task;
    task.set("out_dir", made.folder);
    task.set("path_res", made.folder + "/result.xml");
    keepTask(task, arguments.value("keep-task"), made.replaces, made.inputs);
}

void showDocument(const Console& console, const Arguments& arguments, const Tables& tables,
                  const TaskOutcome& outcome, int status)
{
    JsonDocument document(console.out, "tavelin.report/1");
    Json folder = Json::object();
    setBytes(folder, "path", arguments.operands().front());
    document.set("folder", folder);
    document.set("format", arguments.value("to"));
    document.set("by", arguments.value("by"));
    document.openList("tables");
    for (const std::string& path : tables.all()) {
        Json table = Json::object();
        setBytes(table, "path", path);
        document.element(table);
    }
    document.closeList();
    showMadeMembers(document, arguments.value("keep-task"), outcome, console.look.times);
    document.set("exit", status);
    document.finish();
}

int report(const Arguments& arguments, const Console& console)
{
    mustBeComplete(arguments);
    const RunSettings settings = runSettings(arguments);
    const Tables tables(arguments);
    MadeTask made;
    made.task = taskOf(arguments, tables);
    made.inputs = tables.all();
    made.replaces = arguments.has("force");
    made.name = arguments.operands().front();
    MadeOutcome result;
    {
        MadeFolders folders;
        made.folder = outputFolder(arguments, folders);
        made.baseName = fs::path(made.folder).filename();
        if (arguments.has("keep-task")) {
            keep(arguments, made);
        }
        result = runMade(made, settings, console);
    }
    if (console.look.json) {
        showDocument(console, arguments, tables, result.outcome, statusOf(result));
    } else {
        showMade(console, result.outcome);
    }
    return endMade(result, console);
}

} // namespace

const Subcommand reportCommand{
    "report",
    "DIR TABLE...",
    "a report of track tables, without a task file",
    {"tavelin report --make --to mpc --by object reports night1/tavelin/dataVO/table.txt",
     "tavelin report --to tdm --by group --gap 4h reports night*/tavelin/dataVO/*.txt"},
    options,
    report};

} // namespace companion
