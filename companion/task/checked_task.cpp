#include "task/checked_task.h"

#include "file_names.h"
#include "findings/finding_table.h"
#include "format_words.h"
#include "out/text.h"
#include "reading/signatures.h"
#include "receivers/track_rules.h"
#include "task/plan_findings.h"
#include "task/present_folder.h"
#include "task/read_inputs.h"
#include "task/task_checks.h"

#include <algorithm>
#include <filesystem>
#include <unistd.h>
#include <utility>

using namespace tavelinUtils;

namespace companion {
namespace {

std::string columnsOf(const TConvMea& task)
{
    const FormatWord* const row = formatWord(formatOpticMea_to_int(task.outputformat));
    return row == nullptr ? "date time" : row->columns;
}

// How an input of a task is read: conversions by their word, reports by track tables.
struct InputToRead
{
    std::string path;
    std::string format;
};

std::vector<InputToRead> inputsOf(const CheckedTask& checked)
{
    if (!checked.isReport) {
        return {{checked.task.path_in, checked.task.inputformat}};
    }
    std::vector<InputToRead> inputs;
    for (const TSeria2& seria : checked.task.paths) {
        inputs.push_back({seria.path, "table"});
    }
    return inputs;
}

// The path of a regular file; that of none for anything else.
std::string regularFile(const std::string& path)
{
    std::error_code ignored;
    return std::filesystem::is_regular_file(path, ignored) ? path : "";
}

bool canBeRead(const InputToRead& input)
{
    const FormatWord* const row = formatWord(formatOpticMea_to_int(input.format));
    const bool hasReader = input.format == "table" || (row != nullptr && row->read != nullptr);
    return hasReader && !regularFile(input.path).empty() && access(input.path.c_str(), R_OK) == 0;
}

// The check of one task.
class Check
{
public:
    Check(const CheckSettings& theSettings, InputReader& theReader, SeriesSettings& theSeries,
          CheckedTask& theTask)
        : settings(theSettings), reader(theReader), series(theSeries), checked(theTask)
    {
    }

    void run()
    {
        add(std::move(checked.document.findings));
        if (!checked.document.goesOn()) {
            return;
        }
        checked.isLoaded = true;
        checked.written = taskOf(checked.document);
        checked.task = checked.written;
        checked.task.out_dir = outputFolder(checked.written);
        checked.isReport = isReport(checked.task);
        add(taskFindings(checked.document, checked.written));
        add(series.findings(checked.document, checked.written));
        if (!settings.quick) {
            readInputs();
            makePlan();
        }
        if (checked.hasPlan) {
            holdAccounts();
        }
        add(trackFindings(checked.document, checked.written, plan()));
        checked.configurations = series.takenBy(checked.task);
        add(pathFindings(checked.document, checked.written, checked.task, plan(), checked.configurations));
    }

    void holdAgainst(SharedOutputs& outputs)
    {
        if (checked.isLoaded) {
            add(outputs.add(outputsOf(checked.document, checked.task, plan())));
        }
    }

private:
    const Plan* plan() const
    {
        return checked.hasPlan ? &checked.plan : nullptr;
    }

    void add(std::vector<Finding> found)
    {
        std::move(found.begin(), found.end(), std::back_inserter(checked.findings));
    }

    void readInputs()
    {
        const std::string columns = checked.isReport ? columnsOf(checked.task) : "";
        for (const InputToRead& input : inputsOf(checked)) {
            if (!canBeRead(input)) {
                continue;
            }
            const ReadInput& read = reader.read(input.path, input.format, columns);
            checked.inputs.push_back({input.path, input.format, read.account});
            lookAtFormat(input);
            add(read.findings);
        }
    }

    // The input of a conversion may be another format than its word says. The word of a report is not looked
    // at.
    void lookAtFormat(const InputToRead& input)
    {
        if (checked.isReport) {
            return;
        }
        const Recognition found = recognisedFile(input.path);
        if (found.isSure() && found.format != input.format) {
            add({atKey(finding("V063", {{"format", formatTitle(found.format)}, {"word", input.format}}),
                       "inputformat")});
        }
    }

    // The tool's own, but for pipes and devices, which a check must neither empty nor wait for.
    Works worksOfCheck()
    {
        Works works = ownWorks();
        works.source = [own = works.source](const std::string& word, const std::string& path,
                                            const std::string& originator) {
            return own(word, regularFile(path), originator);
        };
        works.table = [own = works.table](const std::string& path, const std::string& columns) {
            return own(regularFile(path), columns);
        };
        works.settings = series.forWorks();
        return works;
    }

    void makePlan()
    {
        const Works works = worksOfCheck();
        PlanInspection inspection(checked.task);
        const std::unique_ptr<TrackRules> rules = trackRulesOf(checked.task.outputformat);
        PlanWatch watch;
        watch.openFile = [&rules](const PlannedFile& file) {
            if (rules != nullptr) {
                rules->openFile(file.path);
            }
        };
        watch.track = [&](const PlannedFile& file, const TrackVtorichka& track) {
            inspection.see(file, track);
            if (rules != nullptr) {
                rules->add(track);
            }
        };
        checked.plan = planOf(checked.task, works, watch);
        checked.hasPlan = true;
        add(inspection.findings(checked.plan, [this](Finding found, std::string_view key) {
            return atKey(std::move(found), key);
        }));
        if (rules != nullptr) {
            addRules(*rules);
        }
    }

    // What breaks every file of the form is told in full only to who asks for the receiver.
    void addRules(const TrackRules& rules)
    {
        addPlaced(rules.findings());
        std::vector<Finding> ofForm = rules.findingsOfForm();
        if (ofForm.empty()) {
            return;
        }
        const std::string receiver = receiverOf(checked.task.outputformat);
        if (settings.receiver == receiver) {
            addPlaced(std::move(ofForm));
            return;
        }
        std::string codes;
        for (const Finding& found : ofForm) {
            codes += (codes.empty() ? "" : ", ") + found.code.text();
        }
        add({finding("V301", {{"word", checked.task.outputformat},
                              {"codes", codes},
                              {"remedy", "tavelin ready --for " + receiver}})
                 .in(checked.path)});
    }

    // Marks of files are told by where they were read.
    void addPlaced(std::vector<Finding> findings)
    {
        for (Finding& found : findings) {
            for (FindingPlace& place : found.places) {
                if (place.mark.number > 0) {
                    const std::string time = place.mark.time;
                    place.mark = checked.plan.placeOf(place.mark.number, checked.task);
                    place.mark.time = time;
                }
            }
            add({std::move(found).in(checked.path)});
        }
    }

    Finding atKey(Finding found, std::string_view key) const
    {
        const DocumentKey* const element = key.empty() ? nullptr : checked.document.key(key);
        if (element == nullptr) {
            return std::move(found).in(checked.path);
        }
        return findingAt(checked.document, element->place, std::move(found));
    }

    // Both sides of each sum come from different ways: lines from the watched readers, marks from the plan.
    void holdAccounts()
    {
        const FileAccount lines = checked.lines();
        if (!lines.agrees()) {
            addDisagreement("the lines of the inputs and their fates");
        }
        if (!checked.plan.account.agrees()) {
            addDisagreement("the marks that were read and what became of them");
        }
        const bool isRead = lines.refused == 0 && !checked.inputs.empty();
        if (isRead && !checked.plan.dies && lines.marksRead != checked.plan.account.read) {
            addDisagreement("the marks of the readers, " + counted(lines.marksRead) + ", and of the plan, " +
                            counted(checked.plan.account.read));
        }
    }

    void addDisagreement(const std::string& sum)
    {
        add({finding("V490", {{"sum", sum}}).in(checked.path)});
    }

    const CheckSettings& settings;
    InputReader& reader;
    SeriesSettings& series;
    CheckedTask& checked;
};

} // namespace

FileAccount CheckedTask::lines() const
{
    FileAccount sum;
    for (const CheckedInput& input : inputs) {
        sum += input.account;
    }
    return sum;
}

bool CheckedTask::isRefused(const std::set<FindingCode>& allowed) const
{
    return std::any_of(findings.begin(), findings.end(), [&allowed](const Finding& each) {
        return findingRow(each.code)->refuses && !allowed.contains(each.code);
    });
}

TaskChecker::TaskChecker(CheckSettings theSettings)
    : settings(std::move(theSettings)), reader(std::make_unique<InputReader>())
{
}

TaskChecker::~TaskChecker() = default;

CheckedTask TaskChecker::check(const std::string& path)
{
    return check(readTaskDocument(path));
}

CheckedTask TaskChecker::check(TaskDocument document)
{
    CheckedTask checked;
    checked.path = document.path;
    checked.document = std::move(document);
    const PresentFolderFor folder(settings.folder);
    Check check(settings, *reader, series, checked);
    check.run();
    check.holdAgainst(outputs);
    sortFindings(checked.findings, checked.path);
    return checked;
}

} // namespace companion
