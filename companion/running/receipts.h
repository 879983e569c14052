// Receipts: what came of each task of a batch, so that what is done and still stands is not done again.

#pragma once

#include "out/json.h"
#include "running/batch_plan.h"
#include "running/task_witness.h"
#include "task/checked_task.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace companion {

/// A file of a receipt.
struct FileRecord
{
    FileStamp stamp{};
    std::string hash{}; ///< of its bytes; empty where they could not be read

    bool operator==(const FileRecord& other) const = default;
};

/// The record of a file in a state, with the hash of its bytes.
FileRecord recordOf(FileStamp stamp);

/// An output of a receipt.
struct OutputRecord
{
    FileRecord file{};
    std::string format{};
    std::size_t marks = 0;
};

/// An error among the findings of a receipt.
struct ReceiptError
{
    std::string code{};
    std::string text{};
};

/// A receipt.
struct Receipt
{
    std::size_t number = 0;
    std::string task{};        ///< the name of its file
    std::string taskHash{};    ///< of its bytes
    bool isReport = false;     ///< and not a conversion
    std::string status{};      ///< a word of a run's statuses: "good"
    std::optional<int> code{}; ///< of the result, as planned; nothing where there was no plan
    FileRecord tool{};
    std::vector<FileRecord> inputs{};
    std::vector<FileRecord> configurations{}; ///< of the series
    std::vector<OutputRecord> outputs{};
    std::string result{};  ///< the result file, empty for none
    std::size_t read = 0;  ///< marks
    std::size_t found = 0; ///< marks in the outputs
    Json accounting{};
    Json findings{};
    std::vector<ReceiptError> errors{}; ///< those of the findings
    double began = 0;                   ///< seconds since 1970
    double seconds = 0;                 ///< that the run took
};

/// What came of a run of a task.
struct ReceiptOf
{
    const BatchTask& task;
    const CheckedTask& checked;
    const TaskEvidence* evidence; ///< a null pointer where the task was not started
    std::string_view status;
};

/// The receipt of a task whose file has the path, run by a tool.
Receipt receiptOf(const ReceiptOf& run, const std::string& path, const FileRecord& tool);

/// Writes a receipt, in one step.
void writeReceipt(const BatchFolder& folder, const Receipt& receipt);

/// Reads the receipt of a task; nothing where there is none, or not a whole one.
std::optional<Receipt> readReceipt(const BatchFolder& folder, std::size_t number);

/// How files are compared with their records.
struct ReceiptComparison
{
    FileRecord tool{};      ///< that would be run; without a path it is not compared
    bool byContent = false; ///< by the hash of their bytes, and not by size and time
};

/// Whether the run of a receipt ended well: all is written as planned, though the check may have found
/// errors.
bool hasEndedWell(const Receipt& receipt);

/// Whether a run ended well, and all errors that the check had found have one of the codes.
bool isGoodButFor(const Receipt& receipt, const std::set<FindingCode>& allowed);

/// The first errors of a receipt that have none of the codes, in sentences with their codes.
std::vector<std::string> firstErrorsBut(const std::set<FindingCode>& allowed, const Receipt& receipt);

/// Why the task of a receipt is to be run again; empty where it ended well and all stands as the receipt
/// says.
std::string whyStale(const Receipt& receipt, const std::string& path, const ReceiptComparison& comparison);

} // namespace companion
