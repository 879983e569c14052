#include "command/made_task.h"

#include "base/bytes.h"
#include "out/progress.h"
#include "out/safe_file.h"
#include "running/interrupts.h"
#include "running/private_folder.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <optional>
#include <utility>

namespace companion {
namespace {

namespace fs = std::filesystem;

// A file or folder under the name that the run knows, and under the one that people know.
struct Renaming
{
    std::string from;
    std::string to;
};

void replaceAll(std::string& text, const std::string& from, const std::string& to)
{
    for (std::size_t at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size())) {
        text.replace(at, from.size(), to);
    }
}

// The names that people know in place of those that the run knows.
class Renamings
{
public:
    void add(const std::string& from, const std::string& to)
    {
        all.push_back({from, to});
        std::stable_sort(all.begin(), all.end(),
                         [](const Renaming& a, const Renaming& b) { return a.from.size() > b.from.size(); });
    }

    // Texts hold paths as they are, or as they can be shown.
    std::string in(std::string text) const
    {
        for (const Renaming& each : all) {
            replaceAll(text, each.from, each.to);
            replaceAll(text, printable(each.from), printable(each.to));
        }
        return text;
    }

private:
    std::vector<Renaming> all; // the longest first: a folder is the front of its files
};

WrongUsage failed(const std::string& path, const std::string& what)
{
    return {finding("V003", {{"file", path}, {"what", what}})};
}

std::string bytesOfFile(const std::string& path)
{
    tavelinUtils::FileBytes file;
    if (!tavelinUtils::readBytes(path, file)) {
        throw failed(path, std::strerror(errno));
    }
    return std::string(file.view());
}

// A folder in which a task is run, and the task in it.
class RunFolder
{
public:
    explicit RunFolder(const MadeTask& ofTask) : made(ofTask)
    {
        made.folder.empty() ? own.emplace() : own.emplace(made.folder);
        outputs = own->path() + "/out";
        outputs += made.baseName.empty() ? "" : '/' + made.baseName;
        task = own->path() + '/' + fs::path(made.name).stem().string().substr(0, longestStem) + ".xml";
        write();
    }

    const std::string& taskPath() const
    {
        return task;
    }

    // The place that a file is to have.
    std::string placeOf(const std::string& file) const
    {
        if (!made.file.empty()) {
            return made.file;
        }
        return made.folder + '/' + fs::path(file).filename().string();
    }

    Renamings renamings(const std::vector<WitnessedFile>& files) const
    {
        Renamings names;
        for (const WitnessedFile& file : files) {
            names.add(file.path, placeOf(file.path));
        }
        names.add(outputs + '/', folderShown());
        names.add(result(), "result.xml");
        names.add(task, made.name);
        names.add(input(), "-");
        names.add(own->path(), made.folder);
        return names;
    }

private:
    // As paths of files begin with it.
    std::string folderShown() const
    {
        const std::size_t slash = made.file.rfind('/');
        const bool isBare = slash == std::string::npos;
        return made.file.empty() ? made.folder + '/' : isBare ? "" : made.file.substr(0, slash + 1);
    }

    std::string result() const
    {
        return own->path() + "/result/result.xml";
    }

    std::string input() const
    {
        return own->path() + "/input";
    }

    void write()
    {
        makeFolder(outputs);
        makeFolder(fs::path(result()).parent_path());
        NewTask complete = made.task;
        if (!made.copied.empty()) {
            std::error_code failure;
            fs::copy_file(made.copied, input(), failure);
            if (failure) {
                throw failed("-", failure.message());
            }
            complete.set("path_in", input());
        }
        complete.set("out_dir", outputs);
        complete.set("path_res", result());
        if (!tavelinUtils::writeBytes(task, "wb", complete.text())) {
            throw failed(task, std::strerror(errno));
        }
    }

    static void makeFolder(const std::string& path)
    {
        std::error_code failure;
        fs::create_directories(path, failure);
        if (failure) {
            throw failed(path, failure.message());
        }
    }

    static constexpr std::size_t longestStem = 200;

    const MadeTask& made;
    std::optional<PrivateFolder> own{};
    std::string outputs{};
    std::string task{};
};

bool isThere(const std::string& path)
{
    std::error_code ignored;
    return fs::exists(fs::symlink_status(path, ignored));
}

bool isWhole(const TaskOutcome& outcome)
{
    return outcome.evidence && (outcome.status == RunStatus::good || outcome.status == RunStatus::findings);
}

// Gives the files their places: all of them, or none where one cannot have its own.
void giveTheirPlaces(const MadeTask& made, const RunFolder& folder, TaskOutcome& outcome)
{
    std::vector<std::string> inputs = made.inputs;
    inputs.insert(inputs.end(), outcome.task->configurations.begin(), outcome.task->configurations.end());
    for (const WitnessedFile& file : outcome.evidence->files) {
        mustBeFree(folder.placeOf(file.path), made.replaces, inputs);
    }
    for (WitnessedFile& file : outcome.evidence->files) {
        const std::string place = folder.placeOf(file.path);
        file.change = isThere(place) ? FileChange::changed : FileChange::fresh;
        moveInto(file.path, place, made.replaces);
    }
}

// The files of a run that did not end well go with its folder.
void leaveAsTheyWere(const MadeTask& made, const RunFolder& folder, TaskOutcome& outcome)
{
    if (!outcome.evidence) {
        return;
    }
    for (WitnessedFile& file : outcome.evidence->files) {
        const std::string place = folder.placeOf(file.path);
        const bool isOld = !made.folder.empty() && isThere(place);
        file.change = isOld ? FileChange::same : FileChange::missing;
        file.found.reset(); // what was counted is not there any more
        for (Finding& each : outcome.evidence->findings) {
            if (isOld && each.text == finding("V415", {{"path", file.path}}).text) {
                each = finding("V414", {{"path", place}}).in(each.file);
            }
        }
    }
}

// Findings of the task have no place that anybody could look at.
void rename(Finding& found, const Renamings& names, const std::string& task)
{
    if (found.file == task) {
        found.line = 0;
        found.column = 0;
    }
    found.file = names.in(found.file);
    found.text = names.in(found.text);
}

void rename(TaskOutcome& outcome, const Renamings& names)
{
    const std::string task = outcome.task->path;
    outcome.task->path = names.in(task);
    for (Finding& each : outcome.task->findings) {
        rename(each, names, task);
    }
    if (!outcome.evidence) {
        return;
    }
    for (Finding& each : outcome.evidence->findings) {
        rename(each, names, task);
    }
    for (ResultEntry& each : outcome.evidence->results) {
        each.comment = names.in(each.comment);
        each.description = names.in(each.description);
    }
    for (WitnessedFile& file : outcome.evidence->files) {
        file.path = names.in(file.path);
    }
}

} // namespace

MadeOutcome runMade(const MadeTask& made, RunSettings settings, const Console& console)
{
    for (const FindingCode code : {FindingCode("V065"), FindingCode("V248")}) {
        settings.allowed.erase(code);
    }
    const RunFolder folder(made);
    const Interrupts interrupts;
    MadeOutcome result;
    {
        Progress progress(console, "task", 1);
        const auto take = [&result](TaskOutcome outcome) { result.outcome = std::move(outcome); };
        const auto tell = [&progress](std::size_t settled) { progress.at(settled); };
        TaskRunner(std::move(settings), interrupts, take, tell).run({folder.taskPath()});
    }

    TaskOutcome& outcome = result.outcome;
    outcome.isMade = true;
    std::vector<WitnessedFile> files;
    if (outcome.evidence) {
        files = outcome.evidence->files;
    }
    if (!isWhole(outcome)) {
        leaveAsTheyWere(made, folder, outcome);
    } else if (!made.folder.empty()) {
        giveTheirPlaces(made, folder, outcome);
    } else if (!files.empty()) {
        result.bytes = bytesOfFile(files.front().path);
    }
    rename(outcome, folder.renamings(files));
    result.signal = interrupts.signal();
    return result;
}

void keepTask(const NewTask& task, const std::string& path, bool force,
              const std::vector<std::string>& inputs)
{
    SafeFile file(path, force, inputs);
    file.write(task.text());
    file.commit();
}

std::string folderWithoutSlash(std::string folder)
{
    while (folder.size() > 1 && folder.back() == '/') {
        folder.pop_back();
    }
    return folder;
}

int statusOf(const MadeOutcome& result)
{
    return result.signal != 0 ? 128 + result.signal : result.outcome.status == RunStatus::good ? 0 : 1;
}

int endMade(const MadeOutcome& result, const Console& console)
{
    console.out.flush();
    if (result.signal != 0) {
        endBySignal(result.signal);
    }
    return statusOf(result);
}

void showMadeMembers(JsonDocument& document, const std::string& keptTask, const TaskOutcome& outcome,
                     bool times)
{
    Json object = Json::object();
    setOutcome(object, outcome, times);
    document.set("outcome", object);
    if (!keptTask.empty()) {
        Json kept = Json::object();
        setBytes(kept, "path", keptTask);
        document.set("kept", kept);
    }
}

void showMade(const Console& console, const TaskOutcome& outcome)
{
    for (const Finding& each : outcome.task->findings) {
        if (!console.look.verbose && each.severity != Severity::note) {
            showFinding(console, each);
        }
    }
    showOutcome(console, outcome);
}

} // namespace companion
