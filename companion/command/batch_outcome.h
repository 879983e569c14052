// Batch outcome: what the tasks of a batch came to, as text and as JSON.

#pragma once

#include "command/task_outcome.h"
#include "out/json.h"
#include "out/text.h"
#include "running/batch_plan.h"
#include "running/receipts.h"

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace companion {

/// What a task of a batch came to.
enum class BatchStatus
{
    upToDate,
    good,
    findings, ///< as planned, and the check had found errors
    failed,   ///< also where a limit or a signal ended it
    refused,
    elsewhere, ///< it is being run by another call
    gone,      ///< an input of it is missing
    leftOut,
    toRun ///< in a summary: it was not run yet, or is not up to date
};

/// The status that a word of a receipt or of a run stands for.
BatchStatus batchStatus(std::string_view runStatus);

/// Its word: "up to date".
std::string_view batchStatusWord(BatchStatus status);

/// Whether it is good or up to date.
bool isWell(BatchStatus status);

/// How many tasks came to what.
using BatchCounts = std::map<BatchStatus, std::size_t>;

/// "100 up to date, 1 good, 1 failed"; what is given stands behind those that have failed.
std::string batchCountsText(const BatchCounts& counts, const std::string& behindFailed = "");

/// Gives an object a number for each status, also where it is 0.
void setBatchCounts(Json& object, const BatchCounts& counts);

/// A task of a batch and what it came to.
struct BatchOutcome
{
    const BatchTask& task;
    std::string path; ///< of its file
    BatchStatus status;
    std::size_t read = 0;  ///< marks
    std::size_t found = 0; ///< marks in its outputs
    std::string receipt{}; ///< its path; empty where there is none
    std::string reason{};  ///< why it was left out, or is to be run
    Json findings = Json::list();
    const TaskOutcome* ran = nullptr;  ///< of a task that was run or refused in this call
    std::vector<std::string> errors{}; ///< the first of a receipt's errors that are not allowed
};

/// That a task has no input (V452), or is run elsewhere (V453).
Finding keptFromFinding(const BatchOutcome& outcome);

/// Shows the tasks of a batch as they are settled, and their totals at the end.
class BatchPresentation
{
public:
    /// The folder of the batch, and the part of it that the call takes, empty for all.
    BatchPresentation(const Console& console, const BatchFolder& folder, const std::string& part = "");
    ~BatchPresentation();
    BatchPresentation(const BatchPresentation&) = delete;
    BatchPresentation& operator=(const BatchPresentation&) = delete;

    /// Shows a task: those that are good or up to date only where more is asked for.
    void add(const BatchOutcome& outcome);

    /// Counts a task without showing it.
    void count(const BatchOutcome& outcome);

    /// Shows the totals and gives the exit status: 0 where all tasks are good or up to date.
    int finish(int signal = 0);

private:
    std::string totalsText() const;
    std::string failedReceipts(std::size_t count) const;
    Json totalsJson() const;
    int exitStatus() const;
    void show(const BatchOutcome& outcome) const;
    void log(const BatchOutcome& outcome) const;

    const Console& console;
    std::optional<JsonDocument> document{};
    BatchCounts counts{};
    std::size_t tasks = 0;
    std::size_t read = 0;
    std::size_t found = 0;
    std::string firstFailed{}; // the receipt
};

} // namespace companion
