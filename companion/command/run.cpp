#include "command/several_runs.h"
#include "command/subcommands.h"
#include "command/task_operands.h"
#include "command/task_runner.h"
#include "out/progress.h"
#include "reading/input_files.h"
#include "running/evidence.h"

#include <csignal>
#include <optional>
#include <ostream>

namespace companion {
namespace {

constexpr OptionRow options[] = {
    jobsRow,
    timeLimitRow,
    memoryLimitRow,
    allowRow,
    anywayRow,
    verifyRow,
    {"joblog", 0, "FILE", "a line per task in the columns of GNU parallel"},
    {"resume", 0, nullptr, "leave out tasks that ended well by the job log and whose files are still newer"},
    {"force", 'f', nullptr, "replace a job log that exists"},
    toolRow,
    stopAfterRow,
};

// A job log is not to replace a file, least of all a task.
void checkJobLog(const Arguments& arguments, const RunSettings& settings,
                 const std::vector<std::string>& tasks)
{
    if (settings.resumes && settings.jobLog.empty()) {
        throw wrongValue("resume", "it needs --joblog");
    }
    const FileState log = settings.jobLog.empty() ? FileState{} : fileState(settings.jobLog);
    for (const std::string& path : tasks) {
        const FileState task = path == standardInput ? FileState{} : fileState(path);
        if (log.exists && task.exists && log.device == task.device && log.inode == task.inode) {
            throw WrongUsage{finding("V005", {{"file", settings.jobLog}})};
        }
    }
    if (log.exists && !settings.resumes && !arguments.has("force")) {
        throw WrongUsage{finding("V004", {{"file", settings.jobLog}})};
    }
}

RunSettings settingsOf(const Arguments& arguments)
{
    RunSettings settings = settingsOfSeveral(arguments);
    settings.jobLog = arguments.value("joblog");
    settings.resumes = arguments.has("resume");
    return settings;
}

// Shows tasks as they are settled, and their totals at the end.
class Presentation
{
public:
    explicit Presentation(const Console& theConsole) : console(theConsole)
    {
        if (console.look.json) {
            document.emplace(console.out, "tavelin.run/1");
            document->openList("tasks");
        }
    }

    void add(const TaskOutcome& outcome)
    {
        totals.add(outcome);
        if (document) {
            document->element(outcomeJson(outcome, console.look.times));
        } else {
            showOutcome(console, outcome);
        }
        console.out.flush();
    }

    int finish(int signal)
    {
        const int status = signal != 0 ? 128 + signal : totals.exitStatus();
        if (document) {
            document->closeList();
            document->set("totals", totals.json());
            document->set("exit", status);
            document->finish();
        } else if (totals.count() > 1) {
            console.out << totals.text() << '\n';
        }
        console.out.flush();
        return status;
    }

private:
    const Console& console;
    std::optional<JsonDocument> document{};
    RunTotals totals{};
};

int run(const Arguments& arguments, const Console& console)
{
    const std::vector<std::string> tasks = taskOperands(arguments);
    const RunSettings settings = settingsOf(arguments);
    checkJobLog(arguments, settings, tasks);
    Presentation presentation(console);
    int signal = 0;
    {
        const Interrupts interrupts;
        Progress progress(console, "task", tasks.size());
        const auto show = [&](const TaskOutcome& outcome) {
            progress.wipe();
            presentation.add(outcome);
        };
        TaskRunner(settings, interrupts, show, [&progress](std::size_t settled) {
            progress.at(settled);
        }).run(tasks);
        signal = interrupts.signal();
    }
    const int status = presentation.finish(signal);
    if (signal != 0) {
        endBySignal(signal);
    }
    return status;
}

} // namespace

const Subcommand runTasksCommand{
    "run",
    "TASK...",
    "check tasks, run them, and account for every mark",
    {"tavelin run night.xml", "tavelin run -j 0 --joblog nights.log tasks/*.xml"},
    options,
    run};

} // namespace companion
