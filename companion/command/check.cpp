#include "command/finding_codes.h"
#include "command/subcommands.h"
#include "command/task_operands.h"
#include "out/finding_json.h"
#include "task/checked_task_json.h"

#include <algorithm>
#include <optional>
#include <ostream>
#include <set>

namespace companion {
namespace {

constexpr OptionRow options[] = {
    {"quick", 0, nullptr,
     "look at the task and at the states of files only; no input is read, and the plan has no marks"},
    {"strict", 0, nullptr, "warnings count as errors for the exit status"},
    {"plan", 0, nullptr, "list each file that would be written, with its tracks and marks"},
    {"for", 0, "mpc|ccsds|aavso|ades",
     "list all that this receiver would refuse, also what every file of the format breaks"},
    {"only", 0, "CODES", "show and count only findings of these codes, with commas between"},
    {"ignore", 0, "CODES", "neither show nor count findings of these codes"},
    {"folder", 0, "DIR", "relative paths count from there, as for a run that is started in DIR"},
};

// Which findings are shown and counted.
class ShownCodes
{
public:
    explicit ShownCodes(const Arguments& arguments)
        : only(findingCodes(arguments, "only")), ignored(findingCodes(arguments, "ignore"))
    {
    }

    std::vector<Finding> of(std::vector<Finding> findings) const
    {
        std::erase_if(findings, [this](const Finding& each) {
            return ignored.contains(each.code) || (!only.empty() && !only.contains(each.code));
        });
        return findings;
    }

private:
    std::set<FindingCode> only;
    std::set<FindingCode> ignored;
};

// A task and the findings that are shown of it.
struct Outcome
{
    CheckedTask task;
    std::vector<Finding> findings;
    FindingTotals totals;
};

// A number at the right of so many columns.
void appendRight(std::string& text, std::size_t number, std::size_t width)
{
    const std::string digits = std::to_string(number);
    text.append(width - std::min(width, digits.size()), ' ');
    text += digits;
}

std::string planTable(const Plan& plan)
{
    std::string text = "marks  tracks  file\n";
    for (const PlannedFile& file : plan.files) {
        appendRight(text, file.marks, 5);
        text += "  ";
        appendRight(text, file.tracks, 6);
        text += "  ";
        text += printable(file.path);
        text += '\n';
    }
    return text;
}

// "7 files, 21 of 23 marks; code 0 in out/result.xml".
std::string planText(const CheckedTask& task)
{
    const MarkAccount& account = task.plan.account;
    const std::string files = counted(task.plan.writtenFiles(), "file") + ", " + counted(account.written) +
                              " of " + counted(account.read, "mark");
    if (task.plan.dies) {
        return files + "; the run would die with status 134";
    }
    const std::string place = task.task.path_res.empty() ? "no result file" : "in " + task.task.path_res;
    return files + "; code " + std::to_string(task.plan.result.Code) +
           (task.task.path_res.empty() ? ", " : " ") + place;
}

std::string summary(const Outcome& outcome)
{
    const CheckedTask& task = outcome.task;
    const std::string what = !task.isLoaded ? "cannot be run"
                             : task.hasPlan ? planText(task)
                                            : "its inputs were not read";
    return printable(task.path + ": " + what) + "; " + totalsText(outcome.totals) + '\n';
}

void show(const Console& console, const Outcome& outcome, bool withPlan)
{
    for (const Finding& each : outcome.findings) {
        showFinding(console, each);
    }
    if (console.look.verbose) {
        for (const CheckedInput& input : outcome.task.inputs) {
            console.out << printable(outcome.task.path + ": read " + input.path) << ": "
                        << counted(input.account.lines, "line") << ", "
                        << counted(input.account.marksRead, "mark") << '\n';
        }
    }
    console.out << summary(outcome);
    if (outcome.task.hasPlan && (withPlan || console.look.verbose)) {
        console.out << planTable(outcome.task.plan);
    }
}

Json outcomeJson(const Outcome& outcome)
{
    const CheckedTask& task = outcome.task;
    Json object = Json::object();
    setBytes(object, "task", task.path);
    object.set("work", !task.isLoaded ? Json() : Json(task.isReport ? "report" : "conversion"));
    Json findings = Json::list();
    for (const Finding& each : outcome.findings) {
        findings.push(findingJson(each));
    }
    object.set("findings", findings);
    if (task.hasPlan) {
        object.set("plan", planJson(task)).set("accounting", accountingJson(task));
    }
    return object;
}

// Shows tasks as they are checked, and their totals at the end.
class Presentation
{
public:
    Presentation(const Arguments& arguments, const Console& theConsole)
        : codes(arguments), console(theConsole), withPlan(arguments.has("plan"))
    {
        if (console.look.json) {
            document.emplace(console.out, "tavelin.check/1");
            document->openList("tasks");
        }
    }

    void add(CheckedTask task)
    {
        Outcome outcome{std::move(task), {}, {}};
        outcome.findings = codes.of(std::move(outcome.task.findings));
        for (const Finding& each : outcome.findings) {
            outcome.totals.add(each);
        }
        ++tasks;
        totals.add(outcome.totals);
        if (document) {
            document->element(outcomeJson(outcome));
        } else {
            show(console, outcome, withPlan);
        }
    }

    int finish(bool strict)
    {
        const int status = exitStatus(totals, strict);
        if (document) {
            document->closeList();
            Json sums = Json::object().set("tasks", tasks);
            document->set("totals", sums.set("errors", totals.errors)
                                        .set("warnings", totals.warnings)
                                        .set("notes", totals.notes));
            document->set("exit", status);
            document->finish();
        } else if (tasks > 1) {
            console.out << counted(tasks, "task") << ": " << totalsText(totals) << '\n';
        }
        return status;
    }

private:
    ShownCodes codes;
    const Console& console;
    bool withPlan;
    std::optional<JsonDocument> document{};
    std::size_t tasks = 0;
    FindingTotals totals{};
};

int check(const Arguments& arguments, const Console& console)
{
    CheckSettings settings;
    settings.quick = arguments.has("quick");
    settings.receiver = arguments.value("for");
    settings.folder = arguments.value("folder");
    Presentation presentation(arguments, console);
    TaskChecker checker(settings);
    for (const std::string& path : taskOperands(arguments)) {
        CheckedTask task = checker.check(path);
        presentation.add(std::move(task));
    }
    return presentation.finish(arguments.has("strict"));
}

} // namespace

const Subcommand checkCommand{"check",
                              "TASK...",
                              "what a task would do, and every trap in it, without running it",
                              {"tavelin check night.xml", "tavelin check --plan --folder /data tasks/*.xml"},
                              options,
                              check};

} // namespace companion
