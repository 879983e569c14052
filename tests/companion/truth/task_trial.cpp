#include "companion/truth/task_trial.h"

#include "companion/truth/folder_states.h"
#include "companion/truth/input_reading.h"
#include "companion/truth/random_tasks.h"
#include "companion/truth/tool_run.h"
#include "files/essentials.h"
#include "files/paths.h"
#include "results/result_files.h"
#include "running/counting.h"
#include "task/checked_task.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>

#include <set>
#include <string_view>
#include <utility>

using companion::CheckedTask;
using companion::Finding;
using companion::PlannedFile;
using companion::Severity;
using tavelinUtils::TFuncRes;

namespace {

using Codes = std::vector<std::string_view>;

// What says that a run never ends, dies, or loses marks.
const Codes endless = {"V221", "V230"};
const Codes deadly = {"V038", "V039", "V052", "V053", "V065", "V232", "V247", "V248", "V249"};
const Codes cutting = {"V240", "V241"};
const Codes unnaming = {"V046", "V064", "V233", "V237", "V238", "V250"};
const Codes overwriting = {"V246"};
const Codes unwriting = {"V038", "V039", "V040", "V042", "V052", "V053",
                         "V062", "V065", "V232", "V247", "V248", "V249"};
const Codes losingLines = {"V061", "V062", "V101", "V102", "V105", "V150", "V151", "V160",
                           "V163", "V164", "V165", "V166", "V170", "V171", "V172", "V173",
                           "V185", "V186", "V187", "V188", "V190", "V201", "V207"};
// Errors that make a plan void: what is read, searched or still to be written is itself written over or
// removed.
const Codes voiding = {"V034", "V047", "V051", "V052", "V217"};

constexpr double limit = 0.5;
// A run that is not expected to hang gets more time by the clock, since the machine may be busy.
constexpr double longLimit = 20.0;

class Trial
{
public:
    Trial(std::uint64_t theSeed, const std::string& theFolder, const std::string& theTool)
        : seed(theSeed), folder(theFolder), place(theFolder + "/trial/case"), tool(theTool)
    {
    }

    TrialOutcome run()
    {
        std::filesystem::create_directories(place);
        makeFolder(randomTask(seed, folder + "/scratch"), place);
        std::filesystem::remove(folder + "/scratch");
        std::filesystem::current_path(place);
        ageFiles(statesBelow(folder));
        before = statesBelow(folder);
        check();
        if (checked.isLoaded) {
            reading = readInputs(checked);
        }
        if (outcome.wasRun) {
            const bool mayHang = hasAny(endless, Severity::error);
            end = runToolHere(tool, "task.xml", mayHang ? limit : longLimit);
            after = statesBelow(folder);
            judge();
        }
        return std::move(outcome);
    }

private:
    void fail(const std::string& sentence)
    {
        outcome.failures.push_back(sentence);
    }

    // Whether there is a finding of one of the codes that is at least as severe.
    bool hasAny(const Codes& codes, Severity least = Severity::warning) const
    {
        return std::any_of(checked.findings.begin(), checked.findings.end(), [&](const Finding& each) {
            return each.severity <= least &&
                   std::find(codes.begin(), codes.end(), each.code.text()) != codes.end();
        });
    }

    void expectAny(const Codes& codes, const std::string& what)
    {
        if (!hasAny(codes)) {
            fail(what + ", and no finding says so");
        }
    }

    void check();
    void judge();
    void judgeUnloaded();
    void judgeEnd();
    void judgePlan();
    void judgeFiles();
    void judgeResult();
    void judgeInputs();
    void judgeAccounts();
    void judgeLosses();
    std::set<std::pair<dev_t, ino_t>> expectedFiles() const;

    std::uint64_t seed;
    std::string folder; // whose states are compared: tasks may write some levels above their place
    std::string place;
    std::string tool;
    CheckedTask checked{};
    InputReading reading{}; // before the run
    FolderStates before{};
    FolderStates after{};
    ToolEnd end{};
    TrialOutcome outcome{};
};

std::pair<dev_t, ino_t> identityOf(const std::string& path)
{
    struct stat status = {};
    return stat(path.c_str(), &status) == 0 ? std::pair(status.st_dev, status.st_ino)
                                            : std::pair<dev_t, ino_t>();
}

bool isThere(const std::string& path)
{
    return identityOf(path) != std::pair<dev_t, ino_t>();
}

std::string lineOf(const Finding& found)
{
    return std::string(companion::severityWord(found.severity)) + ": " + found.text + " [" +
           found.code.text() + "] " + found.file;
}

void Trial::check()
{
    companion::TaskChecker checker{companion::CheckSettings{}};
    checked = checker.check("task.xml");
    outcome.isClean = true;
    outcome.isReport = checked.isReport;
    for (const Finding& found : checked.findings) {
        outcome.findings.push_back(lineOf(found));
        outcome.isClean = outcome.isClean && found.severity != Severity::error;
    }
    for (const std::string& path : changedPaths(before, statesBelow(folder))) {
        fail("the check changed " + path);
    }
    if (hasAny({"V490"}, Severity::note)) {
        fail("the accounts of the check do not agree");
    }
    // A report without a folder for its output goes to the root folder of the machine.
    outcome.wasRun = !checked.isLoaded || checked.task.out_dir != "/";
    if (!outcome.wasRun) {
        expectAny({"V037"}, "the output goes to /");
    }
}

void Trial::judge()
{
    judgeEnd();
    if (end.timedOut) {
        return;
    }
    if (!checked.isLoaded) {
        judgeUnloaded();
        return;
    }
    judgeInputs();
    if (!hasAny(voiding, Severity::error)) {
        judgePlan();
    }
    judgeLosses();
}

void Trial::judgeEnd()
{
    outcome.hung = end.timedOut;
    outcome.died = end.isDead();
    const bool saysEndless = hasAny(endless, Severity::error);
    const bool diesBefore = end.isDead() && hasAny(deadly, Severity::error);
    if (end.timedOut && !saysEndless) {
        fail("the run does not end, and no error says so");
    }
    if (!end.timedOut && saysEndless && !diesBefore) {
        fail("the run ends, and an error says it would not");
    }
    if (!end.timedOut && end.seconds > limit) {
        fail("the run takes " + std::to_string(end.seconds) + " seconds");
    }
    if (end.isDead()) {
        expectAny(deadly, "the run dies");
    }
}

// A task that cannot be loaded leaves a line in the log beside the tool; one whose keys are too deep nothing.
void Trial::judgeUnloaded()
{
    if (outcome.isClean) {
        fail("the task was not loaded, and no error says so");
    }
    for (const std::string& path : changedPaths(before, after)) {
        if (path != place + "/tool.log") {
            fail("written by a task that cannot be loaded: " + path);
        }
    }
}

void Trial::judgePlan()
{
    if (checked.plan.dies != end.isDead()) {
        fail(end.isDead() ? "the run dies, and the plan does not" : "the plan dies, and the run does not");
    }
    judgeFiles();
    judgeResult();
    judgeAccounts();
}

// What is written is the planned files and the result.
void Trial::judgeFiles()
{
    const auto expected = expectedFiles();
    std::set<std::pair<dev_t, ino_t>> changed;
    for (const std::string& path : changedPaths(before, after)) {
        const auto state = after.find(path);
        if (state == after.end()) {
            if (!isThere(path)) {
                fail("gone: " + path);
            }
            continue;
        }
        changed.insert(state->second.identity());
        if (!expected.contains(state->second.identity())) {
            fail("written without a plan: " + path);
        }
    }
    for (const PlannedFile& file : checked.plan.files) {
        if (!file.isWritten || file.replacedBy != 0) {
            continue;
        }
        if (!changed.contains(identityOf(file.path))) {
            fail("not written: " + file.path);
        }
        const auto held = companion::heldMarks(file.path, file.format);
        if (!held || !held->isWhole || held->marks != file.marks) {
            fail(file.path + " holds " + (held ? std::to_string(held->marks) : "no") +
                 " marks, planned are " + std::to_string(file.marks));
        }
    }
}

std::set<std::pair<dev_t, ino_t>> Trial::expectedFiles() const
{
    std::set<std::pair<dev_t, ino_t>> expected;
    for (const PlannedFile& file : checked.plan.files) {
        if (file.isWritten && file.replacedBy == 0) {
            expected.insert(identityOf(file.path));
        }
    }
    expected.insert(identityOf(checked.task.path_res));
    return expected;
}

// The last result of a file: of a document, in which the library exchanges two texts, or of a log.
TFuncRes lastResult(const std::string& path, const std::string& bytes)
{
    const std::string extension = tavelinUtils::GetFileExt(path);
    if (extension == ".xml" || extension == ".result") {
        const std::vector<TFuncRes> results = tavelinUtils::lArrResXML(path);
        if (results.size() != 1) {
            return {-99, "not one result", "", {}};
        }
        return {results.front().Code, results.front().Description, results.front().Comment, {}};
    }
    const std::size_t code = bytes.rfind(" Code=");
    const std::size_t comment = code == std::string::npos ? code : bytes.find("//", code);
    if (comment == std::string::npos) {
        return {-99, "no result", "", {}};
    }
    return {std::atoi(bytes.c_str() + code + 6), "", bytes.substr(comment + 2), {}};
}

void Trial::judgeResult()
{
    const std::string& path = checked.task.path_res;
    if (path.empty() || end.isDead() || hasAny({"V031", "V032", "V035"}, Severity::error)) {
        return;
    }
    std::error_code ignored;
    if (!std::filesystem::is_regular_file(path, ignored)) {
        fail("no result in " + path);
        return;
    }
    std::ifstream file(path, std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    const TFuncRes result = lastResult(path, bytes);
    const TFuncRes& planned = checked.plan.result;
    if (result.Code != planned.Code) {
        fail("the result says code " + std::to_string(result.Code) + ", planned is " +
             std::to_string(planned.Code));
    }
}

// Inputs stay as they are.
void Trial::judgeInputs()
{
    if (!outcome.isClean) {
        return;
    }
    std::set<std::string> inputs{"task.xml", checked.task.path_in};
    for (const auto& seria : checked.task.paths) {
        inputs.insert(seria.path);
    }
    for (const auto& [path, state] : before) {
        const std::string name = path.size() > place.size() ? path.substr(place.size() + 1) : path;
        const bool isInput = inputs.contains(name) || inputs.contains("./" + name) || name.ends_with(".conf");
        const auto now = after.find(path);
        if (isInput && (now == after.end() || now->second.content != state.content)) {
            fail("an input was changed: " + path);
        }
    }
}

// Both sides of each sum come from different ways.
void Trial::judgeAccounts()
{
    const companion::MarkAccount& account = checked.plan.account;
    if (!account.agrees()) {
        fail("marks: what was read is not what became of it");
    }
    std::size_t written = 0;
    std::set<std::string> seen;
    for (const PlannedFile& file : checked.plan.files) {
        if (file.isWritten && seen.insert(file.path).second) {
            const auto held = companion::heldMarks(file.path, file.format);
            written += held ? held->marks : 0;
        }
    }
    if (written != account.written) {
        fail("the files hold " + std::to_string(written) + " marks, the account has " +
             std::to_string(account.written));
    }
    outcome.marksRead = account.read;
    outcome.marksWritten = written;
}

void Trial::judgeLosses()
{
    for (const std::string& sentence : reading.disagreements) {
        fail(sentence);
    }
    if (reading.linesLost > 0) {
        expectAny(losingLines, std::to_string(reading.linesLost) + " lines of marks are lost");
    }
    const companion::MarkAccount& account = checked.plan.account;
    if (account.cut > 0) {
        expectAny(cutting, "marks are cut off");
    }
    if (account.unnamed > 0) {
        expectAny(unnaming, "marks are in no file");
    }
    if (account.overwritten > 0) {
        expectAny(overwriting, "marks are overwritten");
    }
    if (account.unwritten > 0) {
        expectAny(unwriting, "marks are not written");
    }
}

} // namespace

TrialOutcome tryTask(std::uint64_t seed, const std::string& folder, const std::string& tool)
{
    return Trial(seed, folder, tool).run();
}
