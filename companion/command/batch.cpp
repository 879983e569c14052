#include "command/batch_run.h"
#include "command/finding_codes.h"
#include "command/several_runs.h"
#include "command/subcommands.h"
#include "out/finding_json.h"
#include "running/batch_making.h"
#include "running/tool_path.h"
#include "task/present_folder.h"

#include <charconv>
#include <filesystem>
#include <map>
#include <optional>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

namespace companion {
namespace {

namespace fs = std::filesystem;

constexpr OptionRow options[] = {
    {"over", 0, "PATTERN", "the files of the archive, with fields in braces; may come several times"},
    {"into", 0, "WORK", "the folder of the plan, the tasks and the receipts"},
    {"group", 0, "FIELD", "one task for each value of a field: the seria of the template is repeated"},
    {"set", 0, "KEY=VALUE", "the value of a field of the template, or of a key of the tasks"},
    {"only-make", 0, nullptr, "make the plan and the tasks, and run none"},
    jobsRow,
    {"part", 0, "K/N", "only the tasks whose number modulo N is K-1: a part of N, for clusters"},
    {"again", 0, nullptr, "also run tasks that are up to date"},
    {"by-content", 0, nullptr, "compare files by a hash of their bytes, and not by size and time"},
    {"summary", 0, nullptr, "run nothing; show what the tasks have come to"},
    {"failed", 0, nullptr, "run nothing; show the tasks that have failed, and why"},
    {"forget", 0, "TASK", "take a task out of the plan, by its number or name; its outputs stay"},
    timeLimitRow,
    memoryLimitRow,
    {"allow", 0, "CODES",
     "run in spite of findings of these codes, with commas between; as errors they leave a task good"},
    anywayRow,
    verifyRow,
    toolRow,
    stopAfterRow,
};

// "3/8".
BatchPart partOf(const Arguments& arguments)
{
    if (!arguments.has("part")) {
        return {};
    }
    const std::string text = arguments.value("part");
    const char* const end = text.data() + text.size();
    BatchPart part{0, 0};
    const auto first = std::from_chars(text.data(), end, part.part);
    if (first.ec == std::errc() && first.ptr != end && *first.ptr == '/') {
        const auto second = std::from_chars(first.ptr + 1, end, part.of);
        if (second.ec == std::errc() && second.ptr == end && part.part >= 1 && part.part <= part.of) {
            return part;
        }
    }
    throw wrongValue("part", '"' + text + "\" is no part K/N with K from 1 to N");
}

std::map<std::string, std::string> settingsIn(const Arguments& arguments)
{
    std::map<std::string, std::string> settings;
    for (const std::string& each : arguments.values("set")) {
        const std::size_t equals = each.find('=');
        if (equals == 0 || equals == std::string::npos) {
            throw wrongValue("set", '"' + each + "\" is not of the form KEY=VALUE");
        }
        settings[each.substr(0, equals)] = each.substr(equals + 1);
    }
    return settings;
}

// What a call does is one thing.
void refuseSeveralWorks(const Arguments& arguments)
{
    std::string first;
    for (const char* const option : {"over", "summary", "failed", "forget"}) {
        if (arguments.has(option) && !first.empty()) {
            throw wrongValue(option, "it cannot stand with " + first);
        }
        first = arguments.has(option) ? std::string("--") + option : first;
    }
}

// Options that count only where a plan is made.
void checkOptions(const Arguments& arguments)
{
    const bool makes = arguments.has("over");
    for (const char* const option : {"into", "group", "set", "only-make"}) {
        if (!makes && arguments.has(option)) {
            throw wrongValue(option, "it needs --over");
        }
    }
    if (makes && !arguments.has("into")) {
        throw wrongValue("over", "it needs --into");
    }
    refuseSeveralWorks(arguments);
}

// What follows the template are more patterns: a shell may have made them of one.
BatchOrder orderOf(const Arguments& arguments)
{
    BatchOrder order;
    order.taskTemplate = arguments.operands().front();
    order.patterns = arguments.values("over");
    order.patterns.insert(order.patterns.end(), arguments.operands().begin() + 1, arguments.operands().end());
    order.group = arguments.value("group");
    order.settings = settingsIn(arguments);
    return order;
}

BatchSettings settingsOf(const Arguments& arguments)
{
    BatchSettings settings;
    settings.run = settingsOfSeveral(arguments);
    settings.run.tool = fs::absolute(settings.run.tool).lexically_normal();
    settings.part = partOf(arguments);
    settings.again = arguments.has("again");
    settings.byContent = arguments.has("by-content");
    return settings;
}

// The tool counts for what is up to date, but need not be there.
BatchSettings settingsOfSummary(const Arguments& arguments)
{
    BatchSettings settings;
    const std::string tool = toolPath(arguments.value("vomar"));
    settings.run.tool = tool.empty() ? "" : fs::absolute(tool).lexically_normal().string();
    settings.run.allowed = findingCodes(arguments, "allow");
    settings.part = partOf(arguments);
    settings.byContent = arguments.has("by-content");
    return settings;
}

int runAll(const BatchFolder& given, const BatchPlan& plan, const ByteLocks& locks,
           const Arguments& arguments, const Console& console)
{
    const BatchSettings settings = settingsOf(arguments);
    const SeenBatch batch = seenBatch(given, plan);
    const PresentFolderFor present(batch.from);
    return runBatch(batch.folder, plan, locks, settings, console);
}

int showAll(const BatchFolder& given, const BatchPlan& plan, const Arguments& arguments,
            const Console& console)
{
    const BatchSettings settings = settingsOfSummary(arguments);
    const SeenBatch batch = seenBatch(given, plan);
    const PresentFolderFor present(batch.from);
    return showBatch(batch.folder, plan, settings, arguments.has("failed"), console);
}

Json findingsJson(const std::vector<Finding>& findings)
{
    Json list = Json::list();
    for (const Finding& each : findings) {
        list.push(findingJson(each));
    }
    return list;
}

void showFindings(const std::vector<Finding>& findings, const Console& console)
{
    for (const Finding& each : findings) {
        showFinding(console, each);
    }
}

void printMadeJson(const BatchFolder& folder, const MadeBatch& made, std::ostream& out)
{
    JsonDocument document(out, "tavelin.batch/1");
    document.set("work", folder.path());
    if (!made.isRefused) {
        document.set("made", Json::object()
                                 .set("tasks", made.plan.tasks.size())
                                 .set("new", made.fresh)
                                 .set("changed", made.changed));
    }
    document.set("findings", findingsJson(made.findings));
    document.set("exit", made.isRefused ? 1 : 0);
    document.finish();
}

// What was made, where nothing is run then.
int showMade(const BatchFolder& folder, const MadeBatch& made, const Console& console)
{
    const std::string start = "batch: " + counted(made.plan.tasks.size(), "task");
    if (console.look.json) {
        printMadeJson(folder, made, console.out);
    } else if (made.isRefused) {
        console.out << start << " refused: nothing was made or run\n";
    } else {
        console.out << start << " in " << printable(folder.plan()) << ": " << counted(made.fresh) << " new, "
                    << counted(made.changed) << " changed\n";
    }
    return made.isRefused ? 1 : 0;
}

int makeAndRun(const Arguments& arguments, const Console& console)
{
    const BatchOrder order = orderOf(arguments);
    const BatchFolder folder(arguments.value("into"));
    if (!arguments.has("only-make")) {
        settingsOf(arguments); // what is wrong with them is told before anything is made
    }
    const MadeBatch made = makeBatch(folder, order);
    if (!console.look.json) {
        showFindings(made.findings, console);
    }
    if (made.isRefused || arguments.has("only-make")) {
        return showMade(folder, made, console);
    }
    const ByteLocks locks(folder.lock());
    return runAll(folder, made.plan, locks, arguments, console);
}

void showForgotten(const BatchFolder& folder, std::size_t count, const Console& console)
{
    const std::size_t left = readPlan(folder).tasks.size();
    if (console.look.json) {
        JsonDocument document(console.out, "tavelin.batch/1");
        document.set("work", folder.path());
        document.set("forgotten", count);
        document.set("left", left);
        document.set("exit", 0);
        document.finish();
    } else {
        console.out << "batch: " << counted(count, "task") << " forgotten, " << counted(left) << " left\n";
    }
}

int forget(const BatchFolder& folder, const Arguments& arguments, const Console& console)
{
    const ByteLocks locks(folder.lock());
    const std::vector<std::string> words = arguments.values("forget");
    forgetTasks(folder, words, locks);
    showForgotten(folder, words.size(), console);
    return 0;
}

BatchFolder givenFolder(const Arguments& arguments)
{
    if (arguments.operands().size() > 1) {
        throw wrongCall("batch", "takes one WORK");
    }
    return BatchFolder(arguments.operands().front());
}

int batch(const Arguments& arguments, const Console& console)
{
    checkOptions(arguments);
    if (arguments.has("over")) {
        return makeAndRun(arguments, console);
    }
    const BatchFolder folder = givenFolder(arguments);
    const BatchPlan plan = readPlan(folder);
    if (arguments.has("forget")) {
        return forget(folder, arguments, console);
    }
    if (arguments.has("summary") || arguments.has("failed")) {
        return showAll(folder, plan, arguments, console);
    }
    const ByteLocks locks(folder.lock());
    return runAll(folder, plan, locks, arguments, console);
}

} // namespace

const Subcommand batchCommand{
    "batch",
    "TEMPLATE|WORK",
    "tasks for a whole archive: only what is new or changed is run",
    {"tavelin batch mpc.xml --over 'archive/{night}/{scope}_*.mea' --into work", "tavelin batch work -j 0"},
    options,
    batch};

} // namespace companion
