#include "command/task_runner.h"

#include "base/bytes.h"
#include "reading/input_files.h"
#include "running/folder_watch.h"
#include "running/job_log.h"
#include "running/private_folder.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <map>
#include <optional>
#include <utility>

namespace companion {
namespace {

using namespace std::chrono_literals;

constexpr FindingCode walkWithoutEnd = "V230";

// All that a task is made of: itself, its input, its tables and the configurations of their series.
std::vector<std::string> inputsOf(const CheckedTask& task)
{
    std::vector<std::string> paths;
    if (task.path != standardInput) {
        paths.push_back(task.path);
    }
    if (task.isReport) {
        for (const tavelinUtils::TSeria2& seria : task.task.paths) {
            paths.push_back(seria.path);
        }
        paths.insert(paths.end(), task.configurations.begin(), task.configurations.end());
    } else if (!task.task.path_in.empty()) {
        paths.push_back(task.task.path_in);
    }
    return paths;
}

// Whether the outputs of a task are there and none is older than an input.
bool isUpToDate(const CheckedTask& task)
{
    std::int64_t newestInput = 0;
    for (const std::string& path : inputsOf(task)) {
        newestInput = std::max(newestInput, fileState(path).written);
    }
    return task.hasPlan && std::all_of(task.plan.files.begin(), task.plan.files.end(),
                                       [newestInput](const PlannedFile& file) {
                                           const FileState state = fileState(file.path);
                                           return state.exists && state.written >= newestInput;
                                       });
}

// A task whose child is running.
struct StartedTask
{
    std::unique_ptr<CheckedTask> task;
    ChildCall call;
    std::unique_ptr<TaskWitness> witness;
    std::vector<std::string> places; // that it may write
};

bool shareOne(const std::vector<std::string>& a, const std::vector<std::string>& b)
{
    return std::any_of(a.begin(), a.end(), [&b](const std::string& each) {
        return std::find(b.begin(), b.end(), each) != b.end();
    });
}

} // namespace

struct TaskRunner::State
{
    State(RunSettings theSettings, const Interrupts& theInterrupts, TakeOutcome takeOutcome,
          TellSettled tellSettled, TaskKeeper* theKeeper)
        : settings(std::move(theSettings)), interrupts(theInterrupts), take(std::move(takeOutcome)),
          tell(std::move(tellSettled)), keeper(theKeeper), checker({}), quickChecker({.quick = true}),
          children(interrupts)
    {
        if (settings.resumes) {
            done = readJobLog(settings.jobLog);
        }
        if (!settings.jobLog.empty()) {
            log.emplace(settings.jobLog, settings.resumes);
        }
    }

    void run(const std::vector<std::string>& tasks)
    {
        std::size_t next = 0;
        while (interrupts.signal() == 0) {
            while (canStart() && next < tasks.size() && takeOn(next, tasks[next])) {
                ++next;
                tell(settled);
            }
            if (running.empty()) {
                break;
            }
            if (auto ended = children.next(100ms)) {
                settle(std::move(*ended));
            }
            tell(settled);
        }
        children.stop();
        while (auto ended = children.next(0ms)) {
            settle(std::move(*ended));
        }
        for (; next < tasks.size(); ++next) {
            leaveOut(next, tasks[next], whyStopped());
        }
    }

private:
    bool canStart() const
    {
        const bool stops = settings.stopAfter > 0 && failures >= settings.stopAfter;
        return running.size() < settings.jobs && !stops && interrupts.signal() == 0;
    }

    // Settles or starts a task. False where it has to wait for one that is running: one that writes what this
    // one reads or writes too.
    bool takeOn(std::size_t number, const std::string& path)
    {
        const std::string reason = keeper == nullptr ? "" : keeper->reasonToLeaveOut(number);
        if (!reason.empty()) {
            leaveOut(number, path, reason);
            return true;
        }
        if (!running.empty() && readsWhatIsWritten(quickChecker.check(documentOf(path)))) {
            return false;
        }
        auto task = std::make_unique<CheckedTask>(checker.check(documentOf(path)));
        if (settings.resumes && endedWellBefore(*task)) {
            settle(number, {std::move(task),
                            RunStatus::leftOut,
                            {},
                            "it ended well before, and its files are newer than what they are made of"});
        } else if (isRefused(*task)) {
            settle(number, {std::move(task), RunStatus::refused, {}, {}});
        } else {
            return start(number, std::move(task));
        }
        return true;
    }

    // The standard input is read once, though a task may be looked at again and again before its turn.
    TaskDocument documentOf(const std::string& path)
    {
        if (path != standardInput) {
            return readTaskDocument(path);
        }
        if (!givenTask) {
            givenTask = readTaskDocument(path);
        }
        return *givenTask;
    }

    // The path under which the tool finds a task.
    std::string argumentFor(const CheckedTask& task) const
    {
        if (task.path != standardInput) {
            return task.path;
        }
        std::string path = ownFolder->path() + "/task.xml";
        if (!tavelinUtils::writeBytes(path, "wb", task.document.bytes)) {
            throw WrongUsage{finding("V003", {{"file", path}, {"what", std::strerror(errno)}})};
        }
        return path;
    }

    bool readsWhatIsWritten(const CheckedTask& task) const
    {
        std::vector<std::string> places;
        for (const std::string& path : inputsOf(task)) {
            places.push_back(placeOfFile(path));
        }
        return isBeingWritten(places);
    }

    bool isBeingWritten(const std::vector<std::string>& places) const
    {
        return std::any_of(running.begin(), running.end(),
                           [&places](const auto& each) { return shareOne(each.second.places, places); });
    }

    bool isRefused(const CheckedTask& task) const
    {
        std::set<FindingCode> allowed = settings.allowed;
        for (const Finding& each : task.findings) {
            if (settings.anyway && (each.code != walkWithoutEnd || settings.hasTimeLimit)) {
                allowed.insert(each.code);
            }
        }
        if (!settings.anyway || !settings.hasTimeLimit) {
            allowed.erase(walkWithoutEnd);
        }
        return task.isRefused(allowed);
    }

    // What came from the standard input before may have been another task.
    bool endedWellBefore(const CheckedTask& task) const
    {
        if (task.path == standardInput) {
            return false;
        }
        const auto line = done.find(commandOf(task));
        return line != done.end() && line->second.exitValue == 0 && line->second.signal == 0 &&
               isUpToDate(task);
    }

    std::string commandOf(const CheckedTask& task) const
    {
        return shellWord(settings.tool) + ' ' + shellWord(task.path);
    }

    bool start(std::size_t number, std::unique_ptr<CheckedTask> task)
    {
        std::vector<std::string> inputs = inputsOf(*task);
        auto witness = std::make_unique<TaskWitness>(
            WitnessedTask{task->path, task->task, std::move(inputs), task->hasPlan ? &task->plan : nullptr},
            folders);
        std::vector<std::string> places = witness->writtenPlaces();
        if (isBeingWritten(places)) {
            return false;
        }
        if (!ownFolder) {
            ownFolder.emplace();
        }
        const ChildCall call{settings.tool, ownFolder->path() + '/' + std::to_string(number),
                             argumentFor(*task), settings.timeLimit, settings.memoryLimit};
        children.start(number, call);
        running.emplace(number, StartedTask{std::move(task), call, std::move(witness), std::move(places)});
        return true;
    }

    void settle(EndedChild ended)
    {
        const auto place = running.find(ended.number);
        StartedTask started = std::move(place->second);
        running.erase(place);
        const std::size_t number = ended.number;
        TaskEvidence evidence =
            started.witness->evidence(started.call, std::move(ended), settings.verification);
        const RunStatus status = statusOf(*started.task, evidence);
        settle(number, {std::move(started.task), status, std::move(evidence), {}});
    }

    // Hands out an outcome once those of all tasks before it are.
    void settle(std::size_t number, TaskOutcome outcome)
    {
        ++settled;
        if (keeper != nullptr && outcome.status != RunStatus::leftOut) {
            outcome.status = keeper->ended(number, outcome);
        }
        const bool isGood = outcome.status == RunStatus::good || outcome.status == RunStatus::leftOut;
        failures += isGood ? 0 : 1;
        addToLog(number, outcome);
        waiting.emplace(number, std::move(outcome));
        for (auto first = waiting.begin(); first != waiting.end() && first->first == handedOut;
             first = waiting.begin())
        {
            ++handedOut;
            take(std::move(first->second));
            waiting.erase(first);
        }
    }

    void addToLog(std::size_t number, const TaskOutcome& outcome)
    {
        if (!log || outcome.status == RunStatus::leftOut) {
            return;
        }
        const EndedChild ended = outcome.evidence ? outcome.evidence->ended : EndedChild{};
        int exitValue = outcome.status == RunStatus::good ? 0 : std::max(ended.status, 1);
        if (ended.limit == ChildLimit::time) {
            exitValue = -1; // as GNU parallel says it
        }
        log->add({number + 1, ended.began, ended.seconds, exitValue, ended.signal, commandOf(*outcome.task)});
    }

    std::string whyStopped() const
    {
        return interrupts.signal() != 0 ? "ended by " + signalName(interrupts.signal()) + " before its turn"
                                        : counted(failures, "task") + " before it had failed";
    }

    void leaveOut(std::size_t number, const std::string& path, const std::string& reason)
    {
        auto task = std::make_unique<CheckedTask>();
        task->path = path;
        settle(number, {std::move(task), RunStatus::leftOut, {}, reason});
    }

    RunSettings settings;
    const Interrupts& interrupts;
    TakeOutcome take;
    TellSettled tell;
    TaskKeeper* keeper;
    TaskChecker checker;
    TaskChecker quickChecker;
    FolderWatch folders{};
    std::map<std::string, JobLine> done{};
    std::optional<JobLog> log{};
    std::optional<PrivateFolder> ownFolder{};
    std::optional<TaskDocument> givenTask{}; // that of the standard input
    Children children;
    std::map<std::size_t, StartedTask> running{};
    std::map<std::size_t, TaskOutcome> waiting{};
    std::size_t handedOut = 0;
    std::size_t settled = 0;
    std::size_t failures = 0;
};

TaskRunner::TaskRunner(RunSettings settings, const Interrupts& interrupts, TakeOutcome take, TellSettled tell,
                       TaskKeeper* keeper)
    : state(new State(std::move(settings), interrupts, std::move(take), std::move(tell), keeper))
{
}

TaskRunner::~TaskRunner() = default;

void TaskRunner::run(const std::vector<std::string>& tasks)
{
    state->run(tasks);
}

} // namespace companion
