#include "command/task_outcome.h"

#include "base/numbers.h"
#include "out/finding_json.h"
#include "out/units.h"
#include "running/job_log.h"
#include "task/checked_task_json.h"

#include <algorithm>
#include <map>
#include <ostream>

namespace companion {
namespace {

constexpr std::size_t shownOfCode = 3;

FindingTotals totalsOf(const std::vector<Finding>& findings)
{
    FindingTotals totals;
    for (const Finding& each : findings) {
        totals.add(each);
    }
    return totals;
}

bool hasErrors(const std::vector<Finding>& findings)
{
    return totalsOf(findings).errors > 0;
}

std::string seeCheck(const TaskOutcome& outcome)
{
    const std::string errors = counted(totalsOf(outcome.task->findings).errors, "error");
    return outcome.isMade ? errors : errors + ", see tavelin check " + shellWord(outcome.task->path);
}

// "130 of 130 marks in 1 file".
std::string marksText(const TaskOutcome& outcome)
{
    return counted(outcome.evidence->foundMarks()) + " of " +
           counted(outcome.task->plan.account.read, "mark") + " in " +
           counted(outcome.evidence->files.size(), "file");
}

std::string timesText(const EndedChild& ended)
{
    tavelinUtils::TextBuffer text(" (");
    tavelinUtils::appendFixed(text, ended.seconds, 3);
    text += " s, ";
    tavelinUtils::appendFixed(text, static_cast<double>(ended.peakMemory) / 0x1p20, 1);
    text += " MB)";
    return text.str();
}

// A line for each error of the run; of many with one code the first ones and how many more there are.
void showErrors(const Console& console, const TaskOutcome& outcome)
{
    const std::string start = printable(outcome.task->path) + ": failed: ";
    std::map<FindingCode, std::size_t> shown;
    for (const Finding& each : outcome.evidence->findings) {
        if (each.severity == Severity::error && ++shown[each.code] <= shownOfCode) {
            console.out << start << printable(each.text) << " [" << each.code.text() << "]\n";
        }
    }
    for (const auto& [code, count] : shown) {
        if (count > shownOfCode) {
            console.out << start << "and " << counted(count - shownOfCode) << " more [" << code.text()
                        << "]\n";
        }
    }
}

void showDetails(const Console& console, const TaskOutcome& outcome)
{
    for (const Finding& each : outcome.task->findings) {
        showFinding(console, each);
    }
    if (!outcome.evidence) {
        return;
    }
    for (const WitnessedFile& file : outcome.evidence->files) {
        console.out << printable(outcome.task->path + ": " + file.path) << ": " << changeWord(file.change)
                    << ", " << counted(file.found.value_or(file.planned), "mark") << '\n';
    }
}

std::string lineOf(const TaskOutcome& outcome)
{
    switch (outcome.status) {
    case RunStatus::good: return marksText(outcome);
    case RunStatus::findings: return marksText(outcome) + "; " + seeCheck(outcome);
    case RunStatus::refused: return seeCheck(outcome);
    case RunStatus::leftOut: return outcome.reason;
    case RunStatus::failed:
    case RunStatus::limit:
    case RunStatus::signal: break; // a line for each error
    }
    return "";
}

Json endedJson(const EndedChild& ended)
{
    const auto limit = [&ended] {
        switch (ended.limit) {
        case ChildLimit::time: return Json("time");
        case ChildLimit::memory: return Json("memory");
        case ChildLimit::none: break;
        }
        return Json();
    };
    return Json::object()
        .set("status", ended.status < 0 ? Json() : Json(ended.status))
        .set("signal", ended.signal == 0 ? Json() : Json(signalName(ended.signal)))
        .set("limit", limit());
}

Json resultsJson(const std::vector<ResultEntry>& results, bool times)
{
    Json list = Json::list();
    for (const ResultEntry& each : results) {
        Json object = Json::object()
                          .set("code", each.code)
                          .set("comment", each.comment)
                          .set("description", each.description);
        if (times) {
            object.set("date", each.date);
        }
        list.push(object);
    }
    return list;
}

Json filesJson(const std::vector<WitnessedFile>& files)
{
    Json list = Json::list();
    for (const WitnessedFile& each : files) {
        Json object = Json::object();
        setBytes(object, "path", each.path);
        list.push(object.set("format", each.format)
                      .set("planned", each.planned)
                      .set("found", each.found ? Json(*each.found) : Json())
                      .set("state", changeWord(each.change)));
    }
    return list;
}

void setTimes(Json& object, const EndedChild& ended)
{
    object.set("began", ended.began).set("seconds", ended.seconds).set("memory", ended.peakMemory);
}

Json findingsJson(const TaskOutcome& outcome)
{
    Json list = Json::list();
    for (const Finding& each : outcome.task->findings) {
        list.push(findingJson(each));
    }
    if (outcome.evidence) {
        for (const Finding& each : outcome.evidence->findings) {
            list.push(findingJson(each));
        }
    }
    return list;
}

} // namespace

RunStatus statusOf(const CheckedTask& task, const TaskEvidence& evidence)
{
    if (evidence.ended.limit != ChildLimit::none) {
        return RunStatus::limit;
    }
    if (evidence.ended.signal != 0) {
        return RunStatus::signal;
    }
    if (hasErrors(evidence.findings)) {
        return RunStatus::failed;
    }
    const bool isAsGood = task.hasPlan && task.plan.result.Code == 0 && !hasErrors(task.findings);
    return isAsGood ? RunStatus::good : RunStatus::findings;
}

std::string_view statusWord(RunStatus status)
{
    switch (status) {
    case RunStatus::good: return "good";
    case RunStatus::findings: return "findings";
    case RunStatus::failed: return "failed";
    case RunStatus::refused: return "refused";
    case RunStatus::limit: return "limit";
    case RunStatus::signal: return "signal";
    case RunStatus::leftOut: break;
    }
    return "left out";
}

void showOutcome(const Console& console, const TaskOutcome& outcome)
{
    if (console.look.verbose) {
        showDetails(console, outcome);
    }
    if (outcome.evidence) {
        for (const Finding& each : outcome.evidence->findings) {
            if (each.severity != Severity::error) {
                showFinding(console, each);
            }
        }
        showErrors(console, outcome);
    }
    const std::string line = lineOf(outcome);
    const bool isUsual = outcome.status == RunStatus::good || outcome.status == RunStatus::leftOut;
    if (line.empty() || (isUsual && console.look.quiet)) {
        return;
    }
    console.out << printable(outcome.task->path) << ": " << statusWord(outcome.status) << ": "
                << printable(line)
                << (console.look.times && outcome.evidence ? timesText(outcome.evidence->ended) : "") << '\n';
}

void setOutcome(Json& object, const TaskOutcome& outcome, bool times)
{
    object.set("status", statusWord(outcome.status));
    if (!outcome.reason.empty()) {
        object.set("reason", outcome.reason);
    }
    object.set("ended", outcome.evidence ? endedJson(outcome.evidence->ended) : Json());
    if (outcome.evidence) {
        object.set("results", resultsJson(outcome.evidence->results, times));
        object.set("files", filesJson(outcome.evidence->files));
        if (times) {
            setTimes(object, outcome.evidence->ended);
        }
    }
    if (outcome.task->hasPlan) {
        object.set("accounting", accountingJson(*outcome.task));
    }
    object.set("findings", findingsJson(outcome));
}

Json outcomeJson(const TaskOutcome& outcome, bool times)
{
    Json object = Json::object();
    setBytes(object, "task", outcome.task->path);
    setOutcome(object, outcome, times);
    return object;
}

void RunTotals::add(const TaskOutcome& outcome)
{
    ++tasks;
    switch (outcome.status) {
    case RunStatus::good: ++good; break;
    case RunStatus::findings: ++withFindings; break;
    case RunStatus::refused: ++refused; break;
    case RunStatus::leftOut: ++leftOut; return;
    case RunStatus::failed:
    case RunStatus::limit:
    case RunStatus::signal: ++failed; break;
    }
    marks += outcome.task->plan.account.read;
    findings.add(totalsOf(outcome.task->findings));
    if (outcome.evidence) {
        written += outcome.evidence->foundMarks();
        findings.add(totalsOf(outcome.evidence->findings));
    }
}

int RunTotals::exitStatus() const
{
    return good + leftOut == tasks ? 0 : 1;
}

std::string RunTotals::text() const
{
    return counted(tasks, "task") + ": " + counted(good) + " good, " +
           (withFindings > 0 ? counted(withFindings) + " with findings, " : "") + counted(failed) +
           " failed, " + counted(refused) + " refused" +
           (leftOut > 0 ? ", " + counted(leftOut) + " left out" : "") + "; " + counted(written) + " of " +
           counted(marks, "mark") + " written";
}

Json RunTotals::json() const
{
    return Json::object()
        .set("tasks", tasks)
        .set("good", good)
        .set("findings", withFindings)
        .set("failed", failed)
        .set("refused", refused)
        .set("leftOut", leftOut)
        .set("marks", marks)
        .set("written", written)
        .set("errors", findings.errors)
        .set("warnings", findings.warnings)
        .set("notes", findings.notes);
}

} // namespace companion
