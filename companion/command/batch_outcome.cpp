#include "command/batch_outcome.h"

#include "out/finding_json.h"

#include <algorithm>
#include <iterator>
#include <ostream>

namespace companion {
namespace {

// In the order of the totals.
struct StatusRow
{
    BatchStatus status;
    const char* word; // of a task
    const char* sum;  // behind the number of such tasks
    const char* key;  // in the totals
};

constexpr StatusRow statusRows[] = {
    {BatchStatus::upToDate, "up to date", "up to date", "upToDate"},
    {BatchStatus::good, "good", "good", "good"},
    {BatchStatus::findings, "findings", "with findings", "findings"},
    {BatchStatus::failed, "failed", "failed", "failed"},
    {BatchStatus::refused, "refused", "refused", "refused"},
    {BatchStatus::elsewhere, "elsewhere", "run elsewhere", "elsewhere"},
    {BatchStatus::gone, "gone", "without input", "gone"},
    {BatchStatus::leftOut, "left out", "left out", "leftOut"},
    {BatchStatus::toRun, "to run", "to run", "toRun"},
};

const StatusRow& rowOf(BatchStatus status)
{
    return *std::find_if(std::begin(statusRows), std::end(statusRows),
                         [status](const StatusRow& each) { return each.status == status; });
}

// Whether something outside keeps a task from being run.
bool isKeptFrom(BatchStatus status)
{
    return status == BatchStatus::gone || status == BatchStatus::elsewhere;
}

std::string marksText(const BatchOutcome& outcome)
{
    return counted(outcome.found) + " of " + counted(outcome.read, "mark");
}

// A task that was not run in this call.
void showWhatIsKnown(const Console& console, const BatchOutcome& outcome)
{
    const std::string start = printable(outcome.path) + ": " + rowOf(outcome.status).word + ": ";
    for (const std::string& error : outcome.errors) {
        console.out << start << error << '\n';
    }
    if (outcome.errors.empty()) {
        const std::string why = outcome.reason.empty() ? marksText(outcome) : outcome.reason;
        console.out << start << printable(why) << '\n';
    }
}

// In one line, with the receipt where that says more.
std::string whyNotGood(const BatchOutcome& outcome)
{
    if (outcome.errors.empty()) {
        return printable(outcome.reason.empty() ? marksText(outcome) : outcome.reason);
    }
    return outcome.errors.front() + (outcome.receipt.empty() ? "" : " (" + printable(outcome.receipt) + ')');
}

Json elementOf(const BatchOutcome& outcome)
{
    Json element = Json::object().set("number", outcome.task.number);
    setBytes(element, "task", outcome.path);
    element.set("status", rowOf(outcome.status).word);
    if (!outcome.reason.empty()) {
        element.set("reason", outcome.reason);
    }
    element.set("receipt", outcome.receipt.empty() ? Json() : Json(outcome.receipt))
        .set("read", outcome.read)
        .set("found", outcome.found);
    const Json findings = isKeptFrom(outcome.status)
                              ? Json::list().push(findingJson(keptFromFinding(outcome)))
                              : outcome.findings;
    return findings.empty() ? element : element.set("findings", findings);
}

} // namespace

BatchStatus batchStatus(std::string_view runStatus)
{
    for (const BatchStatus status :
         {BatchStatus::good, BatchStatus::findings, BatchStatus::refused, BatchStatus::leftOut})
    {
        if (runStatus == rowOf(status).word) {
            return status;
        }
    }
    return BatchStatus::failed;
}

std::string_view batchStatusWord(BatchStatus status)
{
    return rowOf(status).word;
}

bool isWell(BatchStatus status)
{
    return status == BatchStatus::upToDate || status == BatchStatus::good;
}

std::string batchCountsText(const BatchCounts& counts, const std::string& behindFailed)
{
    std::string text;
    for (const StatusRow& row : statusRows) {
        const auto known = counts.find(row.status);
        if (known != counts.end()) {
            text += (text.empty() ? "" : ", ") + counted(known->second) + ' ' + row.sum +
                    (row.status == BatchStatus::failed ? behindFailed : "");
        }
    }
    return text;
}

void setBatchCounts(Json& object, const BatchCounts& counts)
{
    for (const StatusRow& row : statusRows) {
        const auto known = counts.find(row.status);
        object.set(row.key, known == counts.end() ? 0 : known->second);
    }
}

Finding keptFromFinding(const BatchOutcome& outcome)
{
    const char* const number = "task";
    const FindingValues values{{number, std::to_string(outcome.task.number)}};
    return (outcome.status == BatchStatus::gone ? finding("V452", values) : finding("V453", values))
        .in(outcome.path);
}

BatchPresentation::BatchPresentation(const Console& theConsole, const BatchFolder& folder,
                                     const std::string& part)
    : console(theConsole)
{
    if (console.look.json) {
        document.emplace(console.out, "tavelin.batch/1");
        document->set("work", folder.path());
        if (!part.empty()) {
            document->set("part", part);
        }
        document->openList("tasks");
    }
}

BatchPresentation::~BatchPresentation() = default;

void BatchPresentation::add(const BatchOutcome& outcome)
{
    count(outcome);
    if (document) {
        document->element(elementOf(outcome));
        log(outcome);
    } else {
        show(outcome);
    }
}

void BatchPresentation::count(const BatchOutcome& outcome)
{
    ++tasks;
    ++counts[outcome.status];
    read += outcome.read;
    found += outcome.found;
    if (outcome.status == BatchStatus::failed && firstFailed.empty()) {
        firstFailed = outcome.receipt;
    }
}

int BatchPresentation::finish(int signal)
{
    const int status = signal != 0 ? 128 + signal : exitStatus();
    if (document) {
        document->closeList();
        document->set("totals", totalsJson());
        document->set("exit", status);
        document->finish();
    } else {
        console.out << totalsText() << '\n';
    }
    console.out.flush();
    return status;
}

std::string BatchPresentation::failedReceipts(std::size_t count) const
{
    const std::string others = count > 1 ? " and " + counted(count - 1) + " more" : "";
    return " (" + printable(firstFailed) + others + ')';
}

std::string BatchPresentation::totalsText() const
{
    const auto failed = counts.find(BatchStatus::failed);
    const std::string text =
        batchCountsText(counts, failed == counts.end() ? "" : failedReceipts(failed->second));
    return "batch: " + counted(tasks, "task") + (text.empty() ? "" : ": ") + text + "; " + counted(found) +
           " of " + counted(read, "mark");
}

Json BatchPresentation::totalsJson() const
{
    Json totals = Json::object().set("tasks", tasks);
    setBatchCounts(totals, counts);
    return totals.set("read", read).set("found", found);
}

int BatchPresentation::exitStatus() const
{
    return std::all_of(counts.begin(), counts.end(), [](const auto& each) { return isWell(each.first); }) ? 0
                                                                                                          : 1;
}

void BatchPresentation::show(const BatchOutcome& outcome) const
{
    const bool isShown = !isWell(outcome.status) || console.look.verbose;
    if (isKeptFrom(outcome.status)) {
        showFinding(console, keptFromFinding(outcome));
    } else if (outcome.ran != nullptr && isShown) {
        showOutcome(console, *outcome.ran);
    } else if (outcome.ran != nullptr && outcome.ran->evidence) {
        for (const Finding& each : outcome.ran->evidence->findings) {
            showFinding(console, each);
        }
    } else if (isShown &&
               !(console.look.quiet && outcome.status != BatchStatus::failed && outcome.errors.empty()))
    {
        showWhatIsKnown(console, outcome);
    }
}

// A document may be thrown away where the status is not 0: a log has what the matter was.
void BatchPresentation::log(const BatchOutcome& outcome) const
{
    if (isKeptFrom(outcome.status)) {
        showFinding({console.err, console.err, console.look}, keptFromFinding(outcome));
    } else if (!isWell(outcome.status)) {
        console.err << printable(outcome.path) << ": " << rowOf(outcome.status).word << ": "
                    << whyNotGood(outcome) << '\n';
    }
}

} // namespace companion
