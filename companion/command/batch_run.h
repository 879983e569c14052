// Batch run: the tasks of a plan. Only those are run that are not up to date.

#pragma once

#include "command/batch_outcome.h"
#include "command/task_runner.h"
#include "out/text.h"
#include "running/batch_plan.h"
#include "running/byte_locks.h"

#include <cstddef>
#include <string>

namespace companion {

/// A part of a batch: the tasks whose number modulo `of` is `part` - 1.
struct BatchPart
{
    std::size_t part = 1;
    std::size_t of = 1;

    bool holds(std::size_t number) const
    {
        return number % of == part - 1;
    }
    /// "3/8"; empty for all.
    std::string text() const;
};

/// How a batch is run.
struct BatchSettings
{
    RunSettings run{};
    BatchPart part{};
    bool again = false;     ///< also tasks that are up to date
    bool byContent = false; ///< files are compared by the hash of their bytes
};

/// Runs a batch from the present folder, shows what its tasks came to, and gives the exit status. A signal
/// that ends it is raised again once all is shown.
int runBatch(const BatchFolder& folder, const BatchPlan& plan, const ByteLocks& locks,
             const BatchSettings& settings, const Console& console);

/// What a task of a batch has come to by its receipt and the states of its files. Of the settings the allowed
/// findings count.
BatchOutcome outcomeByReceipt(const BatchFolder& folder, const BatchTask& task,
                              const ReceiptComparison& comparison, const BatchSettings& settings = {});

/// Shows what the tasks of a batch have come to by their receipts, or those alone that have failed; gives the
/// exit status. The tool may have no path where there is none.
int showBatch(const BatchFolder& folder, const BatchPlan& plan, const BatchSettings& settings,
              bool onlyFailed, const Console& console);

} // namespace companion
