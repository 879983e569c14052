#include "running/batch_making.h"

#include "base/bytes.h"
#include "file_names.h"
#include "out/safe_file.h"
#include "out/text.h"
#include "reading/result_entries.h"
#include "task/checked_task.h"
#include "task/task_checks.h"
#include "task/template.h"

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <iterator>
#include <utility>

#include <fcntl.h>
#include <unistd.h>

namespace companion {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t planByte = 0;
constexpr std::size_t longestStem = 200; // of a name in tasks/, with number and extension below 255 bytes

WrongUsage unreadable(const std::string& path, int error)
{
    return {finding("V003", {{"file", path}, {"what", std::strerror(error)}})};
}

std::string bytesOfFile(const std::string& path)
{
    tavelinUtils::FileBytes file;
    std::error_code ignored;
    if (fs::is_directory(path, ignored)) {
        throw WrongUsage{finding("V003", {{"file", path}, {"what", "is a folder"}})};
    }
    if (!tavelinUtils::readBytes(path, file)) {
        throw unreadable(path, errno);
    }
    return std::string(file.view());
}

void makeFolder(const std::string& path)
{
    std::error_code failure;
    fs::create_directories(path, failure);
    if (failure) {
        throw unreadable(path, failure.value());
    }
}

// The present folder, seen from another one, which need not be there.
std::string presentSeenFrom(const std::string& folder)
{
    return fs::relative(fs::current_path(), fs::weakly_canonical(fs::absolute(folder))).string();
}

// Folders that are made as they are wanted, and go again with the object unless they are to stay. One that
// somebody has put something into stays in any case.
class NewFolders
{
public:
    NewFolders() = default;
    ~NewFolders()
    {
        std::for_each(made.rbegin(), made.rend(), [](const fs::path& path) {
            std::error_code ignored;
            fs::remove(path, ignored);
        });
    }
    NewFolders(const NewFolders&) = delete;
    NewFolders& operator=(const NewFolders&) = delete;

    // With those above them. Where that fails, the check of what is written there says so.
    void make(const std::vector<std::string>& paths)
    {
        std::error_code ignored;
        for (const std::string& path : paths) {
            fs::path folder;
            for (const fs::path& part : fs::path(path)) {
                folder /= part;
                if (fs::create_directory(folder, ignored)) {
                    made.push_back(folder);
                }
            }
        }
    }

    void stay()
    {
        made.clear();
    }

private:
    std::vector<fs::path> made{};
};

// The folders that a task writes into, as far as it names them.
std::vector<std::string> foldersOf(const BatchTask& task)
{
    std::vector<std::string> folders;
    for (const std::string& path : {task.folder, fs::path(task.result).parent_path().string()}) {
        if (!path.empty()) {
            folders.push_back(path);
        }
    }
    return folders;
}

// All that was written to a file system is on its disk.
void waitForDisk(const std::string& folder)
{
    const int descriptor = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    syncfs(descriptor); // where the folder could not be opened, both do nothing
    close(descriptor);
}

// Files that a killed process left beside their names. Whoever writes has the lock of the plan.
void removeUnfinished(const std::string& folder)
{
    std::error_code ignored;
    for (const auto& entry : fs::directory_iterator(folder, ignored)) {
        if (entry.path().extension() == ".part") {
            fs::remove(entry.path(), ignored);
        }
    }
}

// The lock of the plan until the end of the block.
class PlanLock
{
public:
    explicit PlanLock(const ByteLocks& ofFolder) : locks(ofFolder)
    {
        locks.wait(planByte);
    }
    ~PlanLock()
    {
        locks.leave(planByte);
    }
    PlanLock(const PlanLock&) = delete;
    PlanLock& operator=(const PlanLock&) = delete;

private:
    const ByteLocks& locks;
};

// Device and inode of a folder.
using FolderId = std::pair<std::uint64_t, std::uint64_t>;

// A task that is being made.
struct MadeTask
{
    BatchTask task{};
    std::string bytes{};    // of its file; empty for one that is kept from before
    bool isChanged = false; // the file is not there with these bytes
    bool isForeseen = true; // the outputs are those of the plan before
};

class Making
{
public:
    Making(const BatchFolder& ofBatch, const BatchOrder& theOrder)
        : folder(ofBatch), order(theOrder),
          taskTemplate(order.taskTemplate, bytesOfFile(order.taskTemplate), order.settings),
          here(presentSeenFrom(folder.path()))
    {
        if (!order.group.empty()) {
            taskTemplate.divideForGroups();
        }
    }

    // All but the writing, by the plan that is there. False where that is refused.
    bool prepare()
    {
        made = {};
        tasks.clear();
        before.clear();
        isFirstPlan = !fileState(folder.plan()).exists;
        readOldPlan();
        makeTasks();
        if (!hasErrors(made.findings)) {
            foreseeOutputs();
            holdOutputsAgainstEachOther();
        }
        made.isRefused = hasErrors(made.findings);
        fillPlan();
        return !made.isRefused;
    }

    // Under the lock of the plan, which another call may have written since.
    MadeBatch write()
    {
        const bool stands = isFirstPlan && !fileState(folder.plan()).exists;
        if (stands || prepare()) {
            writeFiles();
            folders.stay();
        }
        return std::move(made);
    }

    MadeBatch refused()
    {
        return std::move(made);
    }

    void gatherFiles()
    {
        std::vector<Pattern> patterns(order.patterns.begin(), order.patterns.end());
        for (ArchiveFile& file : archiveFiles(patterns)) {
            std::string key = file.path;
            if (!order.group.empty()) {
                const std::string* const value = file.value(order.group);
                if (value == nullptr) {
                    throw unknownGroup(file);
                }
                key = *value;
            }
            groups[key].push_back(std::move(file));
        }
    }

private:
    WrongUsage unknownGroup(const ArchiveFile& file) const
    {
        std::vector<std::string> known;
        for (const auto& [name, value] : file.values) {
            known.push_back(name);
        }
        return {finding(
            "V002",
            {{"kind", "field"}, {"word", order.group}, {"question", nearestQuestion(order.group, known)}})};
    }

    // A plan from another folder, or with other groups, cannot grow.
    void refuseAnother(const BatchPlan& old) const
    {
        std::string problem;
        if (old.folder != here) {
            problem = "was made from another folder";
        } else if (old.group != order.group) {
            problem = old.group.empty() ? "has no groups" : "has groups of {" + old.group + '}';
        }
        if (!problem.empty()) {
            throw WrongUsage{finding("V454", {{"path", folder.plan()}, {"problem", problem}})};
        }
    }

    void readOldPlan()
    {
        made.plan.folder = here;
        if (isFirstPlan) {
            return;
        }
        BatchPlan old = readPlan(folder);
        refuseAnother(old);
        made.plan.next = old.next;
        for (BatchTask& task : old.tasks) {
            const std::string key = order.group.empty() ? task.inputs.front().path : task.group;
            before.emplace(key, std::move(task));
        }
    }

    void makeTask(const std::string& key, const std::vector<ArchiveFile>& files)
    {
        const auto known = before.extract(key);
        MadeTask task{known.empty() ? newTask(key, files) : std::move(known.mapped())};
        task.bytes = taskTemplate.task(task.task.number, key, files, made.findings);
        task.isChanged = hasChanged(task);
        made.changed += task.isChanged && !known.empty() ? 1U : 0U;
        std::vector<FileStamp> stamps = stampsOf(files);
        task.isForeseen = !task.isChanged && stamps == task.task.inputs;
        task.task.inputs = std::move(stamps);
        tasks.push_back(std::move(task));
    }

    static std::vector<FileStamp> stampsOf(const std::vector<ArchiveFile>& files)
    {
        std::vector<FileStamp> stamps;
        stamps.reserve(files.size());
        for (const ArchiveFile& file : files) {
            stamps.push_back(stampOf(file.path, fileState(file.path)));
        }
        return stamps;
    }

    BatchTask newTask(const std::string& key, const std::vector<ArchiveFile>& files)
    {
        BatchTask task;
        task.number = made.plan.next++;
        const bool isGroup = !order.group.empty();
        task.name =
            numberText(task.number) + '_' + nameOf(isGroup ? key : *files.front().value("stem")) + ".xml";
        task.group = isGroup ? key : "";
        ++made.fresh;
        return task;
    }

    // The value of a group may have slashes.
    static std::string nameOf(std::string stem)
    {
        std::replace(stem.begin(), stem.end(), '/', '_');
        return stem.substr(0, longestStem);
    }

    bool hasChanged(const MadeTask& task) const
    {
        tavelinUtils::FileBytes file;
        return !tavelinUtils::readBytes(folder.task(task.task), file) || file.view() != task.bytes;
    }

    // Those of the files that are there, and those of the old plan that are left.
    void makeTasks()
    {
        for (const auto& [key, files] : groups) {
            makeTask(key, files);
        }
        for (auto& [key, task] : before) {
            tasks.push_back({std::move(task)});
        }
        std::sort(tasks.begin(), tasks.end(),
                  [](const MadeTask& a, const MadeTask& b) { return a.task.number < b.task.number; });
    }

    void foreseeOutputs()
    {
        for (MadeTask& task : tasks) {
            if (!task.isForeseen) {
                foresee(task);
            }
        }
        TaskChecker checker({});
        const auto writers = tasksByFolder();
        for (MadeTask& task : tasks) {
            if (!task.task.outputs && !task.bytes.empty() && writers.at(folderOf(task.task)) > 1) {
                readOutputs(task, checker);
            }
        }
    }

    // What a task says of its outputs by itself.
    void foresee(MadeTask& ofTask)
    {
        BatchTask& task = ofTask.task;
        const TaskDocument document = taskDocumentOf(ofTask.bytes, folder.task(task));
        task.outputs.reset();
        if (!document.goesOn()) {
            task.outputs.emplace(); // its run is refused
            return;
        }
        tavelinUtils::TConvMea read = taskOf(document);
        task.folder = read.out_dir;
        task.result = read.path_res;
        folders.make(foldersOf(task));
        read.out_dir = outputFolder(read);
        if (!isReport(read) && !read.autoname) {
            task.outputs = outputsOf(document, read, nullptr).files;
        }
    }

    // Names that come from what is read are looked for only where another task writes into the same folder.
    void readOutputs(MadeTask& ofTask, TaskChecker& checker) const
    {
        ofTask.task.outputs.emplace();
        const CheckedTask checked = checker.check(taskDocumentOf(ofTask.bytes, folder.task(ofTask.task)));
        for (const PlannedFile& file : checked.plan.files) {
            ofTask.task.outputs->push_back(file.path);
        }
    }

    static FolderId folderOf(const BatchTask& task)
    {
        const std::string input = fs::path(task.inputs.front().path).parent_path();
        const std::string& path = task.folder.empty() ? input : task.folder;
        const FileState state = fileState(path.empty() ? "." : path);
        return {state.device, state.inode};
    }

    std::map<FolderId, std::size_t> tasksByFolder() const
    {
        std::map<FolderId, std::size_t> counts;
        for (const MadeTask& each : tasks) {
            ++counts[folderOf(each.task)];
        }
        return counts;
    }

    void holdOutputsAgainstEachOther()
    {
        SharedOutputs shared;
        for (const MadeTask& each : tasks) {
            const std::string result = isResultDocument(each.task.result) ? each.task.result : "";
            const auto files = each.task.outputs.value_or(std::vector<std::string>());
            for (Finding& found : shared.add({folder.task(each.task), {}, result, files})) {
                made.findings.push_back(std::move(found));
            }
        }
    }

    void fillPlan()
    {
        made.plan.taskTemplate = order.taskTemplate;
        made.plan.patterns = order.patterns;
        made.plan.group = order.group;
        made.plan.settings = order.settings;
        for (const MadeTask& each : tasks) {
            made.plan.tasks.push_back(each.task);
        }
    }

    void writeFiles() const
    {
        bool hasWritten = false;
        for (const MadeTask& each : tasks) {
            if (each.isChanged) {
                SafeFile file(folder.task(each.task), true, {});
                file.write(each.bytes);
                file.commitUnwaited();
                hasWritten = true;
            }
        }
        if (hasWritten) {
            waitForDisk(folder.tasks());
        }
        writePlan(folder, made.plan);
    }

    const BatchFolder& folder;
    const BatchOrder& order;
    TaskTemplate taskTemplate;
    std::string here;
    std::map<std::string, std::vector<ArchiveFile>> groups{};
    bool isFirstPlan = false;                  // what is prepared grows none
    std::map<std::string, BatchTask> before{}; // tasks of the old plan, by their files or groups
    std::vector<MadeTask> tasks{};
    MadeBatch made{};
    NewFolders folders{}; // of outputs: names of files depend on whether they are there
};

// The number that a word begins with, of a task's name or path; 0 for none.
std::size_t numberIn(const std::string& word)
{
    const std::string name = fs::path(word).filename();
    std::size_t number = 0;
    std::from_chars(name.data(), name.data() + name.size(), number);
    return number;
}

// Tasks that no other call is running, with their locks.
std::vector<BatchTask> lockedTasks(const BatchPlan& plan, const std::vector<std::string>& words,
                                   const ByteLocks& locks)
{
    std::vector<BatchTask> tasks;
    for (const std::string& word : words) {
        tasks.push_back(taskNamed(plan, word));
        const std::size_t number = tasks.back().number;
        if (!locks.take(number)) {
            throw WrongUsage{finding("V453", {{"task", std::to_string(number)}})};
        }
    }
    return tasks;
}

} // namespace

MadeBatch makeBatch(const BatchFolder& folder, const BatchOrder& order)
{
    Making making(folder, order);
    making.gatherFiles();
    if (!fileState(folder.plan()).exists && !making.prepare()) {
        return making.refused();
    }
    makeFolder(folder.tasks());
    makeFolder(folder.receipts());
    const ByteLocks locks(folder.lock());
    const PlanLock lock(locks);
    removeUnfinished(folder.path());
    removeUnfinished(folder.tasks());
    return making.write();
}

void makeOutputFolders(const BatchTask& task)
{
    std::error_code ignored;
    for (const std::string& path : foldersOf(task)) {
        fs::create_directories(path, ignored);
    }
}

const BatchTask& taskNamed(const BatchPlan& plan, const std::string& word)
{
    const std::size_t number = numberIn(word);
    std::vector<std::string> names;
    for (const BatchTask& task : plan.tasks) {
        const std::string plain = std::to_string(task.number);
        const std::string name = fs::path(word).filename();
        if (task.number == number && (name == task.name || name == plain || name == numberText(number))) {
            return task;
        }
        names.push_back(task.name);
    }
    throw WrongUsage{
        finding("V002", {{"kind", "task"}, {"word", word}, {"question", nearestQuestion(word, names)}})};
}

void forgetTasks(const BatchFolder& folder, const std::vector<std::string>& words, const ByteLocks& locks)
{
    const PlanLock lock(locks);
    BatchPlan plan = readPlan(folder);
    const std::vector<BatchTask> forgotten = lockedTasks(plan, words, locks);
    std::erase_if(plan.tasks, [&forgotten](const BatchTask& task) {
        return std::find(forgotten.begin(), forgotten.end(), task) != forgotten.end();
    });
    writePlan(folder, plan);
    std::error_code ignored;
    for (const BatchTask& task : forgotten) {
        fs::remove(folder.task(task), ignored);
        fs::remove(folder.receipt(task.number), ignored);
        locks.leave(task.number);
    }
}

} // namespace companion
