#include "task/path_checks.h"

#include "file_names.h"
#include "files/essentials.h"
#include "format_words.h"
#include "out/system_files.h"
#include "out/text.h"
#include "reading/result_entries.h"
#include "results/code_table.h"
#include "task/task_checks.h"
#include "task/writable.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <map>
#include <optional>
#include <set>
#include <string_view>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace tavelinUtils;

namespace companion {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view separators = "/\\";
constexpr std::size_t longestName = 255;
constexpr std::size_t longestPath = 4095;

std::optional<struct stat> stateOf(const std::string& path)
{
    struct stat state = {};
    return stat(path.c_str(), &state) == 0 ? std::optional(state) : std::nullopt;
}

bool isLink(const std::string& path)
{
    struct stat state = {};
    return lstat(path.c_str(), &state) == 0 && S_ISLNK(state.st_mode);
}

// Device and inode of a file.
using FileId = std::pair<dev_t, ino_t>;

FileId idOf(const struct stat& state)
{
    return {state.st_dev, state.st_ino};
}

// The entry of a path: its name in the real folder. Two paths of one entry are one file even where nothing is
// there yet; a link counts as itself. Most outputs are in one folder, whose real path is kept.
class Entries
{
public:
    std::string of(const std::string& path)
    {
        const fs::path whole = fs::path(path).lexically_normal();
        return realFolder(whole.has_parent_path() ? whole.parent_path().string() : ".") + '/' +
               whole.filename().string();
    }

private:
    const std::string& realFolder(const std::string& folder)
    {
        const auto [known, isNew] = folders.try_emplace(folder);
        if (isNew) {
            std::error_code failure;
            const fs::path real = fs::canonical(folder, failure);
            known->second = (failure ? fs::absolute(folder, failure) : real).string();
        }
        return known->second;
    }

    std::map<std::string, std::string> folders;
};

// Files that an output must not replace, with what they are.
class Sources
{
public:
    explicit Sources(Entries& ofPaths) : entries(ofPaths)
    {
    }

    // The first word for a file counts.
    void add(const std::string& path, const std::string& what)
    {
        const auto state = path.empty() ? std::nullopt : stateOf(path);
        if (state) {
            byFile.try_emplace(idOf(*state), what);
            byEntry.try_emplace(entries.of(path), what);
        }
    }

    // What an output replaces; empty for nothing. A writer that removes what is at its path first does no
    // harm to what a link there leads to.
    std::string replacedBy(const std::string& path, const std::optional<struct stat>& state, bool removes)
    {
        if (!state) {
            return "";
        }
        if (removes) {
            const auto known = byEntry.find(entries.of(path));
            return known == byEntry.end() ? "" : known->second;
        }
        const auto known = byFile.find(idOf(*state));
        return known == byFile.end() ? "" : known->second;
    }

private:
    Entries& entries;
    std::map<FileId, std::string> byFile;
    std::map<std::string, std::string> byEntry;
};

// Why a file cannot be read as an input; empty where it can.
std::string readingProblem(const std::string& path)
{
    const auto state = stateOf(path);
    if (!state) {
        return errno == ENOENT ? "does not exist" : "cannot be read: " + std::string(std::strerror(errno));
    }
    if (!S_ISREG(state->st_mode)) {
        return "is " + kindOf(*state);
    }
    if (access(path.c_str(), R_OK) != 0) {
        return "cannot be read: " + std::string(std::strerror(errno));
    }
    return state->st_size == 0 ? "is empty" : "";
}

// A path that cannot be seen whole is quoted.
std::string shown(const std::string& path)
{
    const bool isWhole = !path.empty() && path.front() != ' ' && path.back() != ' ';
    return isWhole ? printable(path) : '"' + printable(path) + '"';
}

// An output of a task.
struct Output
{
    std::string path;
    std::string format;
};

// The outputs of the plan, or of a conversion that is named after its input.
std::vector<Output> outputsOfTask(const TConvMea& task, const Plan* plan)
{
    std::vector<Output> outputs;
    if (plan != nullptr) {
        for (const PlannedFile& file : plan->files) {
            outputs.push_back({file.path, file.format});
        }
    } else if (!isReport(task) && !task.autoname && formatOpticMea_to_int(task.outputformat) != formatUnknown)
    {
        outputs.push_back({conversionPath(task, nullptr).value_or(""), task.outputformat});
    }
    return outputs;
}

// The paths of one task.
class PathReport
{
public:
    PathReport(const TaskDocument& ofTask, const TConvMea& written, const TConvMea& theTask,
               const Plan* thePlan, const std::vector<std::string>& theConfigurations)
        : document(ofTask), asWritten(written), task(theTask), plan(thePlan),
          outputs(outputsOfTask(theTask, thePlan))
    {
        if (!isReport(task)) {
            sources.add(task.path_in, theInput);
        }
        for (std::size_t i = 0; isReport(task) && i < task.paths.size(); ++i) {
            sources.add(task.paths[i].path, "a track table of the report");
        }
        for (const std::string& configuration : theConfigurations) {
            sources.add(configuration, "the configuration of a series");
        }
        sources.add(document.file, "the task itself");
    }

    std::vector<Finding> findings()
    {
        lookAtResult();
        lookAtFolder();
        lookAtInput();
        lookAtTables();
        lookAtOutputs();
        lookAtBackslashes();
        return std::move(all);
    }

private:
    void add(std::string_view key, Finding found)
    {
        all.push_back(atKey(document, std::move(found), key));
    }

    void addInSeria(std::size_t number, Finding found)
    {
        all.push_back(atKeyOfSeria(document, std::move(found), number, "path"));
    }

    // The result.

    void lookAtResult()
    {
        const std::string& path = task.path_res;
        if (path.empty()) {
            add("path_res", finding("V030"));
            return;
        }
        const std::string folder = ExtractPath(path);
        const std::string problem = resultFolderProblem(path, folder);
        if (path.find_first_of(separators) == std::string::npos) {
            add("path_res", finding("V031", {{"path", printable(path)}}));
        } else if (!problem.empty()) {
            add("path_res", finding("V032", {{"folder", folder.empty() ? "/" : printable(folder)},
                                             {"problem", problem}}));
        }
        if (!isResultDocument(path)) {
            const std::string extension = ExtractFileName(GetFileExt(path), Slash);
            add("path_res", finding("V033", {{"extension", printable(extension)}}));
        }
        lookAtOldResult(path);
    }

    static std::string resultFolderProblem(const std::string& path, const std::string& folder)
    {
        if (folder.empty()) {
            return "is the root of the machine, which the tool takes for none";
        }
        if (!DirectoryExists(folder)) {
            return stateOf(folder) ? "is not a folder" : "does not exist";
        }
        return canBeWritten(path) || (stateOf(path) && S_ISDIR(stateOf(path)->st_mode))
                   ? ""
                   : "is not writable, or the file in it is not";
    }

    void lookAtOldResult(const std::string& path)
    {
        const std::string what = otherRoleOf(path);
        if (!what.empty()) {
            add("path_res", finding("V034", {{"what", what}}));
            return;
        }
        const auto state = stateOf(path);
        if (!state || (S_ISREG(state->st_mode) && state->st_size == 0) || !isKnownKind(*state)) {
            return;
        }
        const bool isResult = isResultDocument(path) ? !resultsOfDocument(path).empty() : isLog(path);
        if (!isResult) {
            add("path_res", finding("V035", {{"path", printable(path)}}));
        }
    }

    // Pipes and devices take a log line without harm.
    static bool isKnownKind(const struct stat& state)
    {
        return S_ISREG(state.st_mode) || S_ISDIR(state.st_mode);
    }

    static bool isLog(const std::string& path)
    {
        return !resultsOfLog(path).empty();
    }

    // What else of the task the result would be written to; empty for nothing. A result is written through
    // links.
    std::string otherRoleOf(const std::string& path)
    {
        const auto state = stateOf(path);
        std::string source = sources.replacedBy(path, state, false);
        const std::string entry = entries.of(path);
        const auto isOutput = [&](const Output& output) {
            const auto other = state ? stateOf(output.path) : std::nullopt;
            return entries.of(output.path) == entry || (other && idOf(*state) == idOf(*other));
        };
        if (source.empty() && std::any_of(outputs.begin(), outputs.end(), isOutput)) {
            return "the output";
        }
        return source;
    }

    // The folder of the output.

    void lookAtFolder()
    {
        const std::string& folder = asWritten.out_dir;
        const bool exists = DirectoryExists(folder);
        const auto state = stateOf(normalizeSeparatorDir(folder));
        if (folder.empty() && (isReport(task) || task.path_in.empty())) {
            add("out_dir", finding("V037", {{"dir", ""}, {"problem", "is empty"}}));
        } else if (!folder.empty() && !exists) {
            const std::string problem = state ? "is not a folder but " + kindOf(*state) : "does not exist";
            add("out_dir", finding("V037", {{"dir", printable(folder)}, {"problem", problem}}));
        } else if (exists && !S_ISDIR(state->st_mode)) {
            // The tool takes a device or a socket for a folder.
            add("out_dir", finding("V038", {{"dir", printable(folder)},
                                            {"problem", "is not a folder but " + kindOf(*state)}}));
        } else if (exists && access(normalizeSeparatorDir(folder).c_str(), W_OK | X_OK) != 0) {
            add("out_dir", finding("V038", {{"dir", printable(folder)}, {"problem", "is not writable"}}));
        }
        if (exists && folder.ends_with('\\')) {
            add("out_dir", finding("V039"));
        }
        // Instead of an out_dir that does not exist there is another folder, which has to be looked at.
        folderIsTold = std::any_of(all.begin(), all.end(), [this](const Finding& each) {
            const bool isRoot = each.code == "V037" && task.out_dir == "/";
            return isRoot || each.code == "V038" || each.code == "V039";
        });
        if (!exists && !task.path_in.empty() && task.path_in.find_first_of(separators) == std::string::npos) {
            add("path_in", finding("V053", {{"path", printable(task.path_in)}}));
            folderIsTold = true;
        }
        lookAtNameOfAll();
    }

    void lookAtNameOfAll()
    {
        const std::string name = outputFolderName(task);
        const bool isOdd = name.empty() || name == "." || name == "..";
        if (isReport(task) && task.toSeparateFile == "allobjects" && !task.longname && isOdd) {
            add("out_dir", finding("V251", {{"name", name}}));
        }
    }

    // The inputs.

    void lookAtInput()
    {
        const FormatWord* const row = formatWord(formatOpticMea_to_int(task.inputformat));
        if (isReport(task) || row == nullptr || row->read == nullptr) {
            return;
        }
        const std::string problem = task.path_in.empty() ? "is not named" : readingProblem(task.path_in);
        if (!problem.empty()) {
            add("path_in", finding("V060", {{"path", shown(task.path_in)}, {"problem", problem}}));
        }
    }

    void lookAtTables()
    {
        std::map<std::pair<dev_t, ino_t>, std::vector<std::size_t>> seriesOfTable;
        for (std::size_t i = 0; isReport(task) && i < task.paths.size(); ++i) {
            const std::string& path = task.paths[i].path;
            const std::string problem = path.empty() ? "" : readingProblem(path);
            if (!problem.empty()) {
                addInSeria(i, finding("V200", {{"path", printable(path)}, {"problem", problem}}));
            } else if (const auto state = stateOf(path)) {
                seriesOfTable[{state->st_dev, state->st_ino}].push_back(i);
            }
        }
        for (const auto& [table, series] : seriesOfTable) {
            if (series.size() > 1) {
                addInSeria(series[1], finding("V253", {{"series", std::to_string(series.size()) + " series"},
                                                       {"path", printable(task.paths[series[0]].path)}}));
            }
        }
    }

    // The outputs.

    void lookAtOutputs()
    {
        if (plan != nullptr && plan->result.Code == resultCode::outputIsInput) {
            add("path_in", finding("V046", {{"path", printable(task.path_in)}}));
        }
        std::size_t replaced = 0;
        std::set<std::string> seen;
        for (const Output& output : outputs) {
            if (seen.insert(entries.of(output.path)).second) {
                replaced += lookAtOutput(output) ? 1U : 0U;
            }
        }
        if (replaced > 0) {
            all.push_back(
                finding("V048", {{"files", counted(replaced, "file")}}).in(document.path).times(replaced));
        }
    }

    // Whether the output replaces a file that is not told of in another way.
    bool lookAtOutput(const Output& output)
    {
        const std::string path = printable(output.path);
        if (!isReport(task) && output.path == task.path_in) {
            add("path_in", finding("V046", {{"path", path}}));
            return false;
        }
        const auto state = stateOf(output.path);
        const std::string what = sources.replacedBy(output.path, state, removesFirst(output.format));
        const std::string problem = writingProblem(output, state);
        if (what == theInput) {
            add("path_in", finding("V047", {{"path", path}}));
        } else if (!what.empty()) {
            add("outputextension", finding("V051", {{"path", path}, {"what", what}}));
        } else if (!problem.empty()) {
            add("outputextension", finding("V052", {{"path", path}, {"problem", problem}}));
        } else if (isLink(output.path)) {
            add("outputextension", finding("V049", {{"path", path}}));
        }
        return state && what.empty() && problem.empty();
    }

    // Names that come from marks are the plan's matter: slashes in them, and how long they are.
    bool isToldByPlan(const Output& output) const
    {
        const std::string name = output.path.substr(std::min(task.out_dir.size(), output.path.size()));
        const bool isOfMarks = isReport(task) || task.autoname;
        return isOfMarks && (name.find('/') != std::string::npos || name.size() > longestName);
    }

    std::string writingProblem(const Output& output, const std::optional<struct stat>& state) const
    {
        const bool removes = removesFirst(output.format);
        std::error_code failure;
        const bool isRemoved = removes && !isLink(output.path) && fs::is_empty(output.path, failure);
        if (state && S_ISDIR(state->st_mode) && !isRemoved) {
            return "is a folder";
        }
        const std::size_t name = output.path.size() - (output.path.rfind('/') + 1);
        if (output.path.size() > longestPath || (!isReport(task) && name > longestName)) {
            return "is longer than the system takes";
        }
        const bool isTold = folderIsTold || isToldByPlan(output);
        return isTold || canBeWritten(output.path, removes) ? "" : "cannot be written";
    }

    // Spellings.

    void lookAtBackslashes()
    {
        const std::pair<std::string_view, std::string> paths[] = {
            {"path_in", task.path_in}, {"out_dir", asWritten.out_dir}, {"path_res", task.path_res}};
        for (const auto& [key, path] : paths) {
            // One at the end of out_dir has its own finding.
            const std::size_t at = path.find('\\');
            if (at != std::string::npos && !(key == "out_dir" && at + 1 == path.size())) {
                add(key, finding("V054", {{"key", std::string(key)}, {"path", printable(path)}}));
            }
        }
        for (std::size_t i = 0; isReport(task) && i < task.paths.size(); ++i) {
            if (task.paths[i].path.find('\\') != std::string::npos) {
                addInSeria(i, finding("V054", {{"key", "path"}, {"path", printable(task.paths[i].path)}}));
            }
        }
    }

    static constexpr const char* theInput = "the input";

    const TaskDocument& document;
    const TConvMea& asWritten;
    const TConvMea& task;
    const Plan* plan;
    std::vector<Output> outputs;
    bool folderIsTold = false; // there is a finding of the folder that nothing can be written to
    Entries entries;
    Sources sources{entries};
    std::vector<Finding> all;
};

// Which tasks write each file.
class Writers
{
public:
    // Takes a file of a task. The finding of the tasks that were taken before with the same one; nothing
    // where there is none.
    std::optional<Finding> add(FindingCode code, const std::string& path, const std::string& task)
    {
        std::vector<std::string>& writers = tasksOfEntry[entries.of(path)];
        if (std::find(writers.begin(), writers.end(), task) != writers.end()) {
            return std::nullopt;
        }
        writers.push_back(task);
        if (writers.size() == 1) {
            return std::nullopt;
        }
        return finding(code, {{"tasks", counted(writers.size(), "task")},
                              {"path", printable(path)},
                              {"others", othersOf(writers)}})
            .in(task);
    }

private:
    // All but the last.
    static std::string othersOf(const std::vector<std::string>& writers)
    {
        constexpr std::size_t shownTasks = 3;
        std::string text;
        for (std::size_t i = 0; i < std::min(shownTasks, writers.size() - 1); ++i) {
            text += (i == 0 ? "" : ", ") + printable(writers[i]);
        }
        return writers.size() - 1 > shownTasks ? text + ", ..." : text;
    }

    Entries entries;
    std::map<std::string, std::vector<std::string>> tasksOfEntry;
};

} // namespace

std::vector<Finding> pathFindings(const TaskDocument& document, const TConvMea& asWritten,
                                  const TConvMea& withFolder, const Plan* plan,
                                  const std::vector<std::string>& configurations)
{
    if (!document.goesOn()) {
        return {};
    }
    return PathReport(document, asWritten, withFolder, plan, configurations).findings();
}

TaskOutputs outputsOf(const TaskDocument& document, const TConvMea& withFolder, const Plan* plan)
{
    TaskOutputs result{document.path};
    if (const DocumentKey* const key = document.key("path_res")) {
        result.resultPlace = key->place;
    }
    if (isResultDocument(withFolder.path_res)) {
        result.result = withFolder.path_res;
    }
    for (const Output& output : outputsOfTask(withFolder, plan)) {
        result.files.push_back(output.path);
    }
    return result;
}

struct SharedOutputs::State
{
    Writers ofResults;
    Writers ofFiles;
};

SharedOutputs::SharedOutputs() : state(std::make_unique<State>())
{
}

SharedOutputs::~SharedOutputs() = default;

std::vector<Finding> SharedOutputs::add(const TaskOutputs& task)
{
    std::vector<Finding> findings;
    auto shared = task.result.empty() ? std::nullopt : state->ofResults.add("V036", task.result, task.task);
    if (shared) {
        findings.push_back(std::move(*shared).at(task.resultPlace.line, task.resultPlace.column));
    }
    for (const std::string& file : task.files) {
        if (auto other = state->ofFiles.add("V050", file, task.task)) {
            findings.push_back(std::move(*other));
        }
    }
    return findings;
}

bool isSameFile(const std::string& one, const std::string& other)
{
    const auto first = stateOf(one);
    const auto second = stateOf(other);
    if (first && second) {
        return first->st_dev == second->st_dev && first->st_ino == second->st_ino;
    }
    Entries entries;
    return !first && !second && entries.of(one) == entries.of(other);
}

} // namespace companion
