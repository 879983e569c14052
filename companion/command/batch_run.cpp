#include "command/batch_run.h"

#include "out/progress.h"
#include "running/batch_making.h"
#include "running/receipts.h"

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <utility>
#include <vector>

namespace companion {
namespace {

namespace fs = std::filesystem;

std::vector<const BatchTask*> tasksOf(const BatchPlan& plan, const BatchPart& part)
{
    std::vector<const BatchTask*> tasks;
    for (const BatchTask& task : plan.tasks) {
        if (part.holds(task.number)) {
            tasks.push_back(&task);
        }
    }
    return tasks;
}

bool hasInputs(const BatchTask& task)
{
    return std::all_of(task.inputs.begin(), task.inputs.end(),
                       [](const FileStamp& each) { return fileState(each.path).exists; });
}

ReceiptComparison comparisonOf(const BatchSettings& settings)
{
    const std::string& tool = settings.run.tool;
    if (tool.empty()) {
        return {{}, settings.byContent};
    }
    return {recordOf(stampOf(tool, fileState(tool))), settings.byContent};
}

// What is known of a task beside its run.
struct KeptTask
{
    BatchStatus why = BatchStatus::toRun; // what keeps it from being run; nothing does at first
    std::size_t read = 0;                 // marks of the receipt
    std::size_t found = 0;
    bool hasReceipt = false;
    Json findings = Json::list();      // of a run that had errors
    std::vector<std::string> errors{}; // the first of them that are not allowed
};

// What a task has come to whose receipt stands.
BatchStatus statusWhereAllStands(const Receipt& receipt, const BatchSettings& settings)
{
    return isGoodButFor(receipt, settings.run.allowed) ? BatchStatus::upToDate : BatchStatus::findings;
}

// Keeps the locks and receipts of the tasks of a batch.
class BatchKeeper : public TaskKeeper
{
public:
    BatchKeeper(const BatchFolder& ofBatch, std::vector<const BatchTask*> ofPart, const ByteLocks& ofFolder,
                const BatchSettings& theSettings)
        : folder(ofBatch), tasks(std::move(ofPart)), locks(ofFolder), settings(theSettings),
          comparison(comparisonOf(settings)), kept(tasks.size())
    {
    }

    std::string reasonToLeaveOut(std::size_t place) override
    {
        const BatchTask& task = *tasks[place];
        kept[place].why = whyNotRun(place);
        if (kept[place].why != BatchStatus::toRun) {
            return "it is not to be run now";
        }
        std::error_code ignored;
        fs::remove(folder.receipt(task.number), ignored); // its outputs are about to change
        makeOutputFolders(task);
        return "";
    }

    RunStatus ended(std::size_t place, const TaskOutcome& outcome) override
    {
        const BatchTask& task = *tasks[place];
        const TaskEvidence* const evidence = outcome.evidence ? &*outcome.evidence : nullptr;
        const Receipt receipt = receiptOf({task, *outcome.task, evidence, statusWord(outcome.status)},
                                          folder.task(task), comparison.tool);
        writeReceipt(folder, receipt);
        kept[place].hasReceipt = true;
        keepFindings(kept[place], receipt);
        locks.leave(task.number);
        return isGoodButFor(receipt, settings.run.allowed) ? RunStatus::good : outcome.status;
    }

    // What the task at a place came to. Its outcome must outlive what is given.
    BatchOutcome outcomeOf(std::size_t place, const TaskOutcome& ran) const
    {
        const BatchTask& task = *tasks[place];
        const KeptTask& own = kept[place];
        BatchOutcome outcome{task, folder.task(task), own.why};
        outcome.receipt = own.hasReceipt ? folder.receipt(task.number) : "";
        outcome.findings = own.findings;
        outcome.errors = own.errors;
        if (own.why != BatchStatus::toRun) {
            outcome.read = own.read;
            outcome.found = own.found;
        } else {
            addRun(outcome, ran);
        }
        return outcome;
    }

    std::vector<std::string> paths() const
    {
        std::vector<std::string> all;
        for (const BatchTask* const task : tasks) {
            all.push_back(folder.task(*task));
        }
        return all;
    }

private:
    // What keeps a task from being run. Nothing does where it is to be run: then it has its lock.
    BatchStatus whyNotRun(std::size_t place)
    {
        const BatchTask& task = *tasks[place];
        const BatchStatus known = statusByReceipt(place);
        if (!hasInputs(task)) {
            return BatchStatus::gone;
        }
        if (known != BatchStatus::toRun) {
            return known;
        }
        if (!locks.take(task.number)) {
            return BatchStatus::elsewhere;
        }
        const BatchStatus now = statusByReceipt(place); // another call may have run it until a moment ago
        if (now != BatchStatus::toRun) {
            locks.leave(task.number);
        }
        return now;
    }

    static void addRun(BatchOutcome& outcome, const TaskOutcome& ran)
    {
        outcome.status = batchStatus(statusWord(ran.status));
        outcome.reason = ran.reason;
        if (ran.status != RunStatus::leftOut) {
            outcome.ran = &ran;
            outcome.read = ran.task->plan.account.read;
            outcome.found = ran.evidence ? ran.evidence->foundMarks() : 0;
        }
    }

    // The receipt is read in any case: for its marks.
    BatchStatus statusByReceipt(std::size_t place)
    {
        const BatchTask& task = *tasks[place];
        const auto receipt = readReceipt(folder, task.number);
        kept[place].hasReceipt = receipt.has_value();
        kept[place].read = receipt ? receipt->read : 0;
        kept[place].found = receipt ? receipt->found : 0;
        if (settings.again || !receipt || !whyStale(*receipt, folder.task(task), comparison).empty()) {
            return BatchStatus::toRun;
        }
        keepFindings(kept[place], *receipt);
        return statusWhereAllStands(*receipt, settings);
    }

    void keepFindings(KeptTask& own, const Receipt& receipt) const
    {
        if (receipt.status != "good") {
            own.findings = receipt.findings;
            own.errors = firstErrorsBut(settings.run.allowed, receipt);
        }
    }

    const BatchFolder& folder;
    std::vector<const BatchTask*> tasks;
    const ByteLocks& locks;
    const BatchSettings& settings;
    ReceiptComparison comparison;
    std::vector<KeptTask> kept;
};

// Files that a killed call left beside receipts, unless their task is being run: then they may be another's.
void removeUnfinishedReceipts(const BatchFolder& folder, const ByteLocks& locks)
{
    std::error_code ignored;
    for (const auto& entry : fs::directory_iterator(folder.receipts(), ignored)) {
        const std::string name = entry.path().filename();
        std::size_t number = 0;
        std::from_chars(name.data(), name.data() + name.size(), number);
        if (name.ends_with(".part") && locks.take(number)) {
            fs::remove(entry.path(), ignored);
            locks.leave(number);
        }
    }
}

void addMarks(BatchOutcome& outcome, const Receipt& receipt)
{
    outcome.read = receipt.read;
    outcome.found = receipt.found;
}

void addStatus(BatchOutcome& outcome, const Receipt& receipt, const BatchSettings& settings,
               const ReceiptComparison& comparison)
{
    outcome.status = batchStatus(receipt.status);
    if (hasEndedWell(receipt)) {
        outcome.reason = whyStale(receipt, outcome.path, comparison);
        outcome.status =
            outcome.reason.empty() ? statusWhereAllStands(receipt, settings) : BatchStatus::toRun;
    }
    if (receipt.status != "good" && outcome.status != BatchStatus::toRun) {
        outcome.findings = receipt.findings;
        outcome.errors = firstErrorsBut(settings.run.allowed, receipt);
    }
}

// Runs tasks and shows them in their order. Gives the signal that ended the run, or 0.
int runTasks(BatchKeeper& keeper, const RunSettings& settings, BatchPresentation& presentation,
             const Console& console)
{
    const std::vector<std::string> paths = keeper.paths();
    const Interrupts interrupts;
    Progress progress(console, "task", paths.size());
    std::size_t place = 0;
    const auto show = [&](const TaskOutcome& outcome) {
        progress.wipe();
        presentation.add(keeper.outcomeOf(place++, outcome));
    };
    const auto tell = [&progress](std::size_t settled) { progress.at(settled); };
    TaskRunner(settings, interrupts, show, tell, &keeper).run(paths);
    return interrupts.signal();
}

bool hasFailed(BatchStatus status)
{
    return status == BatchStatus::failed || status == BatchStatus::refused || status == BatchStatus::findings;
}

} // namespace

std::string BatchPart::text() const
{
    return of == 1 ? "" : std::to_string(part) + '/' + std::to_string(of);
}

BatchOutcome outcomeByReceipt(const BatchFolder& folder, const BatchTask& task,
                              const ReceiptComparison& comparison, const BatchSettings& settings)
{
    BatchOutcome outcome{task, folder.task(task), BatchStatus::toRun};
    const auto receipt = readReceipt(folder, task.number);
    if (receipt) {
        outcome.receipt = folder.receipt(task.number);
        addMarks(outcome, *receipt);
    }
    if (!hasInputs(task)) {
        outcome.status = BatchStatus::gone;
    } else if (receipt) {
        addStatus(outcome, *receipt, settings, comparison);
    } else {
        outcome.reason = "it was not run yet";
    }
    return outcome;
}

int runBatch(const BatchFolder& folder, const BatchPlan& plan, const ByteLocks& locks,
             const BatchSettings& settings, const Console& console)
{
    removeUnfinishedReceipts(folder, locks);
    BatchKeeper keeper(folder, tasksOf(plan, settings.part), locks, settings);
    BatchPresentation presentation(console, folder, settings.part.text());
    const int signal = runTasks(keeper, settings.run, presentation, console);
    const int status = presentation.finish(signal);
    if (signal != 0) {
        endBySignal(signal);
    }
    return status;
}

int showBatch(const BatchFolder& folder, const BatchPlan& plan, const BatchSettings& settings,
              bool onlyFailed, const Console& console)
{
    BatchPresentation presentation(console, folder, settings.part.text());
    const ReceiptComparison comparison = comparisonOf(settings);
    for (const BatchTask* const task : tasksOf(plan, settings.part)) {
        const BatchOutcome outcome = outcomeByReceipt(folder, *task, comparison, settings);
        if (!onlyFailed || hasFailed(outcome.status)) {
            presentation.add(outcome);
        }
    }
    return presentation.finish();
}

} // namespace companion
