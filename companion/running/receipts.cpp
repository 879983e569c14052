#include "running/receipts.h"

#include "base/bytes.h"
#include "out/finding_json.h"
#include "out/safe_file.h"
#include "out/text.h"
#include "running/content_hash.h"
#include "task/checked_task_json.h"
#include "task/configuration_checks.h"

#include <algorithm>
#include <utility>

namespace companion {
namespace {

constexpr const char* receiptSchema = "tavelin.receipt/1";
constexpr const char* disagreement = "V490";

Json recordJson(const FileRecord& record)
{
    Json object = Json::object();
    setBytes(object, "path", record.stamp.path);
    return object.set("size", record.stamp.size).set("time", record.stamp.time).set("hash", record.hash);
}

Json recordsJson(const std::vector<FileRecord>& records)
{
    Json list = Json::list();
    for (const FileRecord& each : records) {
        list.push(recordJson(each));
    }
    return list;
}

Json outputsJson(const std::vector<OutputRecord>& outputs)
{
    Json list = Json::list();
    for (const OutputRecord& each : outputs) {
        list.push(recordJson(each.file).set("format", each.format).set("marks", each.marks));
    }
    return list;
}

Json taskJson(const Receipt& receipt)
{
    Json task = Json::object();
    setBytes(task, "name", receipt.task);
    return task.set("hash", receipt.taskHash);
}

Json resultJson(const Receipt& receipt)
{
    Json result = Json::object();
    setBytes(result, "path", receipt.result);
    return receipt.result.empty() ? Json() : result;
}

void addWhatCame(Json& object, const Receipt& receipt)
{
    object.set("outputs", outputsJson(receipt.outputs))
        .set("result", resultJson(receipt))
        .set("marks", Json::object().set("read", receipt.read).set("found", receipt.found))
        .set("accounting", receipt.accounting)
        .set("findings", receipt.findings)
        .set("began", receipt.began)
        .set("seconds", receipt.seconds);
}

std::string receiptText(const Receipt& receipt)
{
    Json object = Json::object();
    object.set("schema", receiptSchema)
        .set("number", receipt.number)
        .set("task", taskJson(receipt))
        .set("work", receipt.isReport ? "report" : "conversion")
        .set("status", receipt.status)
        .set("code", receipt.code ? Json(*receipt.code) : Json())
        .set("tool", recordJson(receipt.tool))
        .set("inputs", recordsJson(receipt.inputs))
        .set("configurations", recordsJson(receipt.configurations));
    addWhatCame(object, receipt);
    return object.text() + '\n';
}

FileRecord recordIn(const JsonView& object)
{
    return {{bytesMember(object, "path"), static_cast<std::uint64_t>(object["size"].integer()),
             object["time"].integer()},
            object["hash"].text()};
}

std::vector<FileRecord> recordsIn(const JsonView& list)
{
    std::vector<FileRecord> records;
    for (std::size_t i = 0; i < list.size(); ++i) {
        records.push_back(recordIn(list[i]));
    }
    return records;
}

std::size_t countIn(const JsonView& number)
{
    return static_cast<std::size_t>(number.integer());
}

std::vector<OutputRecord> outputsIn(const JsonView& list)
{
    std::vector<OutputRecord> outputs;
    for (std::size_t i = 0; i < list.size(); ++i) {
        outputs.push_back({recordIn(list[i]), list[i]["format"].text(), countIn(list[i]["marks"])});
    }
    return outputs;
}

std::optional<int> codeIn(const JsonView& number)
{
    constexpr int none = -1;
    const auto code = static_cast<int>(number.integer(none));
    return code == none ? std::nullopt : std::optional(code);
}

std::vector<ReceiptError> errorsIn(const JsonView& findings)
{
    std::vector<ReceiptError> errors;
    for (std::size_t i = 0; i < findings.size(); ++i) {
        const JsonView each = findings[i];
        if (each["severity"].text() == "error") {
            errors.push_back({each["code"].text(), each["text"].text()});
        }
    }
    return errors;
}

void readWhatCame(Receipt& receipt, const JsonView& root)
{
    receipt.outputs = outputsIn(root["outputs"]);
    receipt.result = bytesMember(root["result"], "path");
    receipt.read = countIn(root["marks"]["read"]);
    receipt.found = countIn(root["marks"]["found"]);
    receipt.findings = root["findings"].value();
    receipt.errors = errorsIn(root["findings"]);
}

Receipt receiptIn(const JsonView& root)
{
    Receipt receipt;
    receipt.number = countIn(root["number"]);
    receipt.task = bytesMember(root["task"], "name");
    receipt.taskHash = root["task"]["hash"].text();
    receipt.isReport = root["work"].text() == "report";
    receipt.status = root["status"].text();
    receipt.code = codeIn(root["code"]);
    receipt.tool = recordIn(root["tool"]);
    receipt.inputs = recordsIn(root["inputs"]);
    receipt.configurations = recordsIn(root["configurations"]);
    readWhatCame(receipt, root);
    return receipt;
}

// Outputs that are replaced are no matter of the task: a broken batch that was taken up again has the
// receipts of a whole one.
constexpr FindingCode outputsReplaced = "V048";

Json findingsOf(const ReceiptOf& run)
{
    Json list = Json::list();
    for (const Finding& each : run.checked.findings) {
        if (each.code != outputsReplaced) {
            list.push(findingJson(each));
        }
    }
    if (run.evidence != nullptr) {
        for (const Finding& each : run.evidence->findings) {
            list.push(findingJson(each));
        }
    }
    return list;
}

void addInputs(Receipt& receipt, const ReceiptOf& run)
{
    const auto& configurations = run.checked.configurations;
    for (const FileStamp& input : run.evidence->inputs) {
        if (input.path == run.checked.path) {
            continue;
        }
        const bool isConfiguration =
            std::find(configurations.begin(), configurations.end(), input.path) != configurations.end();
        (isConfiguration ? receipt.configurations : receipt.inputs).push_back(recordOf(input));
    }
}

void addOutputs(Receipt& receipt, const ReceiptOf& run)
{
    for (const WitnessedFile& file : run.evidence->files) {
        if (file.state.exists) {
            receipt.outputs.push_back(
                {recordOf(stampOf(file.path, file.state)), file.format, file.found.value_or(file.planned)});
        }
    }
}

void addRun(Receipt& receipt, const ReceiptOf& run)
{
    addInputs(receipt, run);
    addOutputs(receipt, run);
    receipt.found = run.evidence->foundMarks();
    receipt.began = run.evidence->ended.began;
    receipt.seconds = run.evidence->ended.seconds;
}

bool isSame(const FileRecord& record, const ReceiptComparison& comparison)
{
    const FileState state = fileState(record.stamp.path);
    if (!state.exists || state.size != record.stamp.size) {
        return false;
    }
    return comparison.byContent ? fileHash(record.stamp.path) == record.hash
                                : state.written == record.stamp.time;
}

// A configuration may have come since, or another may be the first now.
bool hasItsConfigurations(const Receipt& receipt)
{
    if (!receipt.isReport) {
        return true;
    }
    tavelinUtils::TConvMea task;
    task.inputformat = "vomar";
    for (const FileRecord& input : receipt.inputs) {
        task.paths.push_back({input.stamp.path});
    }
    std::vector<std::string> paths;
    for (const FileRecord& each : receipt.configurations) {
        paths.push_back(each.stamp.path);
    }
    return paths == SeriesSettings().takenBy(task);
}

bool stand(const std::vector<FileRecord>& records, const ReceiptComparison& comparison)
{
    return std::all_of(records.begin(), records.end(),
                       [&comparison](const FileRecord& each) { return isSame(each, comparison); });
}

bool outputsStand(const Receipt& receipt, const ReceiptComparison& comparison)
{
    return (receipt.result.empty() || fileState(receipt.result).exists) &&
           std::all_of(receipt.outputs.begin(), receipt.outputs.end(),
                       [&comparison](const OutputRecord& each) { return isSame(each.file, comparison); });
}

bool isSameTool(const FileRecord& before, const ReceiptComparison& comparison)
{
    return comparison.tool.stamp.path.empty() ||
           (comparison.byContent ? before.hash == comparison.tool.hash
                                 : before.stamp == comparison.tool.stamp);
}

// Where they do not, what is written may not be all.
bool accountsAgree(const Receipt& receipt)
{
    return std::none_of(receipt.errors.begin(), receipt.errors.end(),
                        [](const ReceiptError& each) { return each.code == disagreement; });
}

} // namespace

FileRecord recordOf(FileStamp stamp)
{
    std::string hash = fileHash(stamp.path).value_or("");
    return {std::move(stamp), std::move(hash)};
}

Receipt receiptOf(const ReceiptOf& run, const std::string& path, const FileRecord& tool)
{
    Receipt receipt;
    receipt.number = run.task.number;
    receipt.task = run.task.name;
    receipt.taskHash = fileHash(path).value_or("");
    receipt.status = run.status;
    if (run.checked.hasPlan) {
        receipt.code = run.checked.plan.result.Code;
    }
    receipt.tool = tool;
    receipt.isReport = run.checked.isReport;
    receipt.result = run.checked.task.path_res;
    receipt.read = run.checked.plan.account.read;
    receipt.accounting = run.checked.hasPlan ? accountingJson(run.checked) : Json();
    receipt.findings = findingsOf(run);
    // As they are read again later, where bytes that are not UTF-8 are gone.
    receipt.errors = errorsIn(ReadJson(receipt.findings.text()).root());
    if (run.evidence != nullptr) {
        addRun(receipt, run);
    }
    return receipt;
}

void writeReceipt(const BatchFolder& folder, const Receipt& receipt)
{
    SafeFile file(folder.receipt(receipt.number), true, {});
    file.write(receiptText(receipt));
    file.commitUnwaited();
}

std::optional<Receipt> readReceipt(const BatchFolder& folder, std::size_t number)
{
    tavelinUtils::FileBytes file;
    if (!tavelinUtils::readBytes(folder.receipt(number), file)) {
        return std::nullopt;
    }
    const ReadJson json(file.view());
    if (json.root()["schema"].text() != receiptSchema) {
        return std::nullopt;
    }
    Receipt receipt = receiptIn(json.root());
    return receipt.number == number ? std::optional(std::move(receipt)) : std::nullopt;
}

bool hasEndedWell(const Receipt& receipt)
{
    return receipt.status == "good" ||
           (receipt.status == "findings" && receipt.code == 0 && accountsAgree(receipt));
}

bool isGoodButFor(const Receipt& receipt, const std::set<FindingCode>& allowed)
{
    return receipt.status == "good" || (hasEndedWell(receipt) && firstErrorsBut(allowed, receipt).empty());
}

std::vector<std::string> firstErrorsBut(const std::set<FindingCode>& allowed, const Receipt& receipt)
{
    constexpr std::size_t most = 3;
    std::vector<std::string> errors;
    for (const ReceiptError& each : receipt.errors) {
        const auto code = FindingCode::of(each.code);
        if (errors.size() < most && !(code && allowed.contains(*code))) {
            errors.push_back(printable(each.text) + " [" + each.code + ']');
        }
    }
    return errors;
}

std::string whyStale(const Receipt& receipt, const std::string& path, const ReceiptComparison& comparison)
{
    if (!hasEndedWell(receipt)) {
        return "it did not end well";
    }
    if (fileHash(path) != receipt.taskHash) {
        return "the task has changed";
    }
    if (!isSameTool(receipt.tool, comparison)) {
        return "the tool has changed";
    }
    if (!stand(receipt.inputs, comparison)) {
        return "an input has changed";
    }
    if (!stand(receipt.configurations, comparison) || !hasItsConfigurations(receipt)) {
        return "a configuration has changed";
    }
    return outputsStand(receipt, comparison) ? "" : "an output is not as it was written";
}

} // namespace companion
