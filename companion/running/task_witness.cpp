#include "running/task_witness.h"

#include "base/tokens.h"
#include "files/essentials.h"
#include "out/text.h"
#include "out/units.h"
#include "running/counting.h"
#include "running/verifying.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <filesystem>
#include <utility>

#include <unistd.h>

namespace companion {
namespace {

// What a run said, on one line, with its made-up name as the tool's own.
std::string saidText(const ChildCall& call, const std::string& said)
{
    constexpr std::size_t longest = 500;
    std::string text;
    tavelinUtils::forEachToken(said, '\n', [&text](std::string_view line) {
        line.remove_prefix(std::min(line.find_first_not_of(' '), line.size()));
        text += (text.empty() || line.empty() ? "" : "; ") + std::string(line);
    });
    for (std::size_t at = text.find(call.name); !call.name.empty() && at != text.npos;
         at = text.find(call.name)) {
        text.replace(at, call.name.size(), "vomar");
    }
    return text.size() > longest ? text.substr(0, longest) + "..." : text;
}

// The code of a result, or its texts where the code is the same.
std::string resultText(const ResultEntry& entry, bool codeSays)
{
    return codeSays ? "code " + std::to_string(entry.code) : '"' + entry.description + '"';
}

// A comment that holds the separator of a log is cut there: only both texts together are the same.
bool isSame(const ResultEntry& a, const ResultEntry& b)
{
    return a.code == b.code && a.comment + "//" + a.description == b.comment + "//" + b.description;
}

bool endedWell(const EndedChild& ended)
{
    return ended.failure.empty() && ended.status == 0 && ended.limit == ChildLimit::none;
}

// The results of the log that the tool writes beside the name it is told, which is removed. What it says of
// its task, of which it may have been given a copy, is said of the task itself.
std::vector<ResultEntry> takenFallback(const ChildCall& call, const std::string& task)
{
    const std::string path = call.name + ".log";
    std::vector<ResultEntry> entries = resultsOfLog(path);
    for (ResultEntry& entry : entries) {
        for (std::string* const text : {&entry.comment, &entry.description}) {
            *text = *text == call.argument ? task : *text;
        }
    }
    std::error_code ignored;
    std::filesystem::remove(path, ignored);
    return entries;
}

bool isLastOfItsPath(const PlannedFile& file)
{
    return file.isWritten && file.replacedBy == 0;
}

} // namespace

std::size_t TaskEvidence::foundMarks() const
{
    std::size_t sum = 0;
    for (const WitnessedFile& file : files) {
        const bool isWritten = file.change == FileChange::fresh || file.change == FileChange::changed;
        sum += isWritten ? file.found.value_or(file.planned) : 0;
    }
    return sum;
}

TaskWitness::TaskWitness(WitnessedTask ofTask, FolderWatch& folderWatch)
    : task(std::move(ofTask)), folders(folderWatch), results(task.task.path_res)
{
    for (const std::string& path : task.inputs) {
        inputs.push_back({path, settledState(path)});
    }
    if (task.plan != nullptr) {
        for (const PlannedFile& file : task.plan->files) {
            if (isLastOfItsPath(file)) {
                files.push_back(&file);
                before.push_back(settledState(file.path));
                folders.expect(file.path);
            }
        }
    }
    folders.expect(task.task.path_res);
    outputs = outputFolders();
    for (const std::string& folder : outputs) {
        folders.watch(folder);
    }
}

TaskWitness::~TaskWitness()
{
    for (const std::string& folder : outputs) {
        folders.leave(folder);
    }
}

TaskEvidence TaskWitness::evidence(const ChildCall& call, EndedChild ended, Verification verification)
{
    TaskEvidence evidence{std::move(ended)};
    lookAtEnd(call, evidence);
    lookAtResults(call, evidence);
    lookAtFiles(evidence, verification);
    lookAtInputs(evidence);
    lookForStrangers(evidence);
    for (Finding& each : evidence.findings) {
        each.file = task.path;
    }
    return evidence;
}

std::vector<std::string> TaskWitness::writtenPlaces() const
{
    std::vector<std::string> places;
    if (!task.task.path_res.empty()) {
        places.push_back(placeOfFile(task.task.path_res));
    }
    for (const PlannedFile* file : files) {
        places.push_back(placeOfFile(file->path));
    }
    return places;
}

void TaskWitness::lookAtEnd(const ChildCall& call, TaskEvidence& evidence) const
{
    const EndedChild& ended = evidence.ended;
    const std::string said = saidText(call, ended.said);
    const auto add = [&evidence](Finding found) { evidence.findings.push_back(std::move(found)); };
    if (ended.limit == ChildLimit::time) {
        add(finding("V412", {{"t", durationText(call.timeLimit)}}));
    } else if (ended.limit == ChildLimit::memory) {
        add(finding("V413", {{"m", memoryText(call.memoryLimit)}}));
    } else if (!ended.failure.empty()) {
        const bool isTool = access(call.program.c_str(), X_OK) != 0;
        add(isTool ? finding("V402", {{"where", "at " + call.program}})
                   : finding("V003", {{"file", call.program}, {"what", ended.failure}}));
    } else if (ended.signal == SIGABRT) {
        add(finding("V410", {{"how", "died of an exception (status 134)"}, {"text", said}}));
    } else if (ended.signal != 0) {
        add(finding("V411", {{"name", signalName(ended.signal)}}));
    } else if (ended.status != 0) {
        add(finding("V410", {{"how", "died with status " + std::to_string(ended.status)}, {"text", said}}));
    } else if (!said.empty()) {
        add(finding("V410", {{"how", "printed where the tool prints nothing"}, {"text", said}}));
    }
}

void TaskWitness::lookAtResults(const ChildCall& call, TaskEvidence& evidence) const
{
    evidence.results = takenFallback(call, task.path);
    const bool hasFallback = !evidence.results.empty();
    for (ResultEntry& entry : results.fresh()) {
        evidence.results.push_back(std::move(entry));
    }
    if (!endedWell(evidence.ended)) {
        return;
    }
    const bool isSaved = task.plan != nullptr && !task.task.path_res.empty() &&
                         tavelinUtils::DirectoryExists(tavelinUtils::ExtractPath(task.task.path_res));
    if (isSaved && !hasFallback && evidence.results.empty()) {
        evidence.findings.push_back(finding("V401", {{"path", task.task.path_res}}));
    }
    const ResultEntry planned = plannedResult();
    const bool agrees =
        evidence.results.empty() ||
        std::any_of(evidence.results.begin(), evidence.results.end(), [&](const ResultEntry& entry) {
            return task.plan == nullptr ? entry.code == 0 : isSame(entry, planned);
        });
    if (!agrees) {
        const ResultEntry& last = evidence.results.back();
        const bool codeSays = last.code != planned.code;
        evidence.findings.push_back(finding(
            "V400", {{"found", resultText(last, codeSays)}, {"planned", resultText(planned, codeSays)}}));
    }
}

// Without a plan any success will do.
ResultEntry TaskWitness::plannedResult() const
{
    if (task.plan == nullptr) {
        return {};
    }
    return {task.plan->result.Code, task.plan->result.Comment, task.plan->result.Description, {}};
}

void TaskWitness::lookAtFiles(TaskEvidence& evidence, Verification verification) const
{
    std::vector<const PlannedFile*> whole;
    for (std::size_t i = 0; i < files.size(); ++i) {
        const PlannedFile& planned = *files[i];
        WitnessedFile file{planned.path, planned.format, planned.marks};
        file.state = fileState(planned.path);
        file.change = changeOf(before[i], file.state);
        const auto add = [&evidence](Finding found) { evidence.findings.push_back(std::move(found)); };
        if (file.change == FileChange::missing) {
            add(finding("V415", {{"path", file.path}}));
        } else if (file.change == FileChange::same) {
            add(finding("V414", {{"path", file.path}}));
        } else if (verification != Verification::none) {
            const auto held = heldMarks(file.path, file.format);
            if (!held) {
                add(finding("V003", {{"file", file.path}, {"what", std::strerror(errno)}}));
            } else if (held->marks != file.planned || !held->isWhole) {
                add(finding("V416", {{"path", file.path},
                                     {"found", heldText(*held)},
                                     {"planned", std::to_string(file.planned)}}));
            } else {
                whole.push_back(&planned);
            }
            file.found = held ? held->marks : 0;
        }
        evidence.files.push_back(std::move(file));
    }
    if (verification == Verification::full && !whole.empty()) {
        for (Finding& found : differences(task.task, *task.plan, whole)) {
            evidence.findings.push_back(std::move(found));
        }
    }
}

void TaskWitness::lookAtInputs(TaskEvidence& evidence) const
{
    for (const Before& input : inputs) {
        evidence.inputs.push_back(stampOf(input.path, input.state));
        if (fileState(input.path) != input.state) {
            evidence.findings.push_back(finding("V419", {{"path", input.path}}));
        }
    }
}

void TaskWitness::lookForStrangers(TaskEvidence& evidence) const
{
    std::string paths;
    std::size_t count = 0;
    bool isDoubtful = false;
    for (const std::string& folder : outputs) {
        for (const std::string& path : folders.strangers(folder)) {
            paths += (count++ == 0 ? "" : ", ") + path;
            isDoubtful = isDoubtful || folders.isShared(folder);
        }
    }
    paths += isDoubtful ? "; another task that is running may have written there" : "";
    if (count > 0) {
        evidence.findings.push_back(finding("V418", {{"files", counted(count, "file")}, {"paths", paths}}));
    }
}

std::vector<std::string> TaskWitness::outputFolders() const
{
    std::vector<std::string> all;
    for (const PlannedFile* file : files) {
        all.push_back(std::filesystem::path(file->path).parent_path());
    }
    if (all.empty() && !task.task.out_dir.empty()) {
        all.push_back(task.task.out_dir);
    }
    std::sort(all.begin(), all.end());
    all.erase(std::unique(all.begin(), all.end()), all.end());
    return all;
}

} // namespace companion
