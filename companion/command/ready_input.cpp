#include "command/ready_input.h"

#include "command/measurement_files.h"
#include "format_words.h"
#include "reading/file_info.h"
#include "task/checked_task.h"
#include "task/task_checks.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace companion {
namespace {

// The standard input as a file of the system, whatever the call has redirected there.
constexpr const char* standardInputFile = "/dev/stdin";

// What a task's document, its inputs and the choice of marks in them have. The station and the observer's
// code are the copy's own to tell.
constexpr CodeRange ofInputs[] = {
    {"V010", "V023"}, {"V025", "V026"}, {"V029", "V029"}, {"V040", "V041"},
    {"V060", "V063"}, {"V100", "V223"}, {"V230", "V232"}, {"V234", "V237"},
    {"V239", "V239"}, {"V243", "V244"}, {"V252", "V253"}, {"V490", "V490"},
};

// An input that cannot be read: missing, or of a word without a reader.
constexpr CodeRange unreadable[] = {{"V040", "V041"}, {"V060", "V060"}};

// V040 is told of the word of the input and of that of the output.
bool isOfOutputWord(const Finding& found)
{
    return found.code == FindingCode("V040") && found.text.starts_with("unknown output ");
}

std::vector<Finding> findingsOfInputs(CheckedTask& checked)
{
    std::vector<Finding> kept;
    for (Finding& each : checked.findings) {
        if (isAmong(ofInputs, each.code) && !isOfOutputWord(each)) {
            kept.push_back(std::move(each));
        }
    }
    return kept;
}

// Tables are read as the tool reads them, and a check tells what it makes of their lines; the file of a
// conversion is read as it is meant.
CheckedTask checkedTask(const std::string& path)
{
    TaskDocument document = readTaskDocument(path);
    CheckSettings settings;
    settings.quick = !document.goesOn() || !isReport(taskOf(document));
    return TaskChecker(settings).check(std::move(document));
}

// The word of a conversion may be that of another format than its file has.
void lookAtFormat(const CheckedTask& checked, CopyInput& input)
{
    const Recognition found = recognisedFile(checked.task.path_in);
    const std::string& word = checked.task.inputformat;
    if (found.isSure() && found.format != word) {
        const Finding why = finding("V063", {{"format", formatTitle(found.format)}, {"word", word}});
        input.findings.insert(input.findings.begin(), Finding(why).in(checked.path));
    }
}

ReadyInput readTask(const std::string& path)
{
    ReadyInput read;
    read.format = "task";
    CheckedTask checked = checkedTask(path);
    std::vector<Finding> findings = findingsOfInputs(checked);
    if (!checked.isLoaded || hasErrors(findings)) {
        read.goesOn = false;
        read.isRead = checked.isLoaded &&
                      std::none_of(findings.begin(), findings.end(),
                                   [](const Finding& each) { return isAmong(unreadable, each.code); });
        read.copy.findings = std::move(findings);
        return read;
    }
    read.copy = copyTracksOfTask(checked);
    if (!checked.isReport) {
        read.file = checked.task.path_in;
        lookAtFormat(checked, read.copy);
    }
    read.copy.findings.insert(read.copy.findings.begin(), std::make_move_iterator(findings.begin()),
                              std::make_move_iterator(findings.end()));
    return read;
}

ReadyInput readFile(const std::string& path, const std::string& format, const std::string& name)
{
    if (!hasTracks(format)) {
        const std::string what = "its marks are not read: the format is " + formatTitle(format);
        throw WrongUsage{finding("V003", {{"file", name}, {"what", what}})};
    }
    ReadyInput read;
    read.format = format;
    read.copy = copyTracksOfFile(path, format, name);
    return read;
}

// The standard input is read from a copy, whose name is nobody's business.
void callByName(ReadyInput& read, const std::string& path, const std::string& name)
{
    if (path == name) {
        return;
    }
    for (Finding& each : read.copy.findings) {
        each.file = each.file == path ? name : each.file;
    }
    std::replace(read.copy.files.begin(), read.copy.files.end(), path, std::string(standardInputFile));
}

// An input without marks gives no copy.
void refuseNothing(ReadyInput& read)
{
    if (!read.goesOn || marksOf(read.copy) > 0) {
        return;
    }
    read.goesOn = false;
    if (!hasErrors(read.copy.findings)) {
        read.copy.findings.push_back(finding("V062", {{"path", read.file}}).in(read.file));
    }
}

} // namespace

ReadyInput readyInput(const Arguments& arguments, const std::string& name, InputFiles& files)
{
    std::string format = givenFormat(arguments);
    const std::string path = files.pathOf(name);
    if (format.empty()) {
        const Recognition recognition = recognisedFile(path);
        if (!recognition.isSure()) {
            ReadyInput read;
            read.copy.findings.push_back(uncertainFormat(name, recognition));
            read.goesOn = false;
            return read;
        }
        format = recognition.format;
    }
    ReadyInput read = format == "task" ? readTask(path) : readFile(path, format, name);
    read.file = read.file.empty() ? name : read.file;
    callByName(read, path, name);
    refuseNothing(read);
    return read;
}

std::size_t marksOf(const CopyInput& input)
{
    std::size_t marks = input.leftOut;
    for (const CopyTrack& track : input.tracks) {
        marks += track.marks.size();
    }
    return marks;
}

} // namespace companion
