#include "command/page_contents.h"

#include "command/batch_run.h"
#include "command/measurement_files.h"
#include "command/page_calendar.h"
#include "command/subcommand.h"
#include "out/finding_json.h"
#include "out/progress.h"
#include "out/text.h"
#include "reading/file_info.h"
#include "reading/input_files.h"
#include "reading/lint.h"
#include "reading/measured_points.h"
#include "reading/signatures.h"
#include "running/batch_plan.h"
#include "running/counting.h"
#include "running/receipts.h"
#include "running/verifying.h"
#include "task/present_folder.h"

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstring>
#include <filesystem>

namespace companion {
namespace {

constexpr std::size_t shownOfCode = 10;

bool isKnownTime(const std::string& moment)
{
    return !moment.empty() && moment != "?";
}

// Takes a span of times into another.
void widen(std::string& first, std::string& last, const std::string& from, const std::string& to)
{
    if (isKnownTime(from)) {
        first = first.empty() ? from : std::min(first, from);
    }
    if (isKnownTime(to)) {
        last = std::max(last, to);
    }
}

// Whether the time of a mark is one that a calendar has. What could not be read as a date is day 0.
bool hasTime(const MeasuredPoint& point)
{
    constexpr double year10000 = 2973484;
    return point.mjd >= 1.0 && point.mjd < year10000;
}

// Whether a magnitude is one that anything in the sky may have.
bool hasMagnitude(const MeasuredPoint& point)
{
    return std::abs(point.magnitude) <= 100.0;
}

void addTrack(PageObject& object, const TrackInfo& track)
{
    ++object.tracks;
    object.marks += track.marks;
    widen(object.first, object.last, track.first, track.last);
    if (track.hasMotion) {
        object.slowest = object.hasMotion ? std::min(object.slowest, track.motion) : track.motion;
        object.fastest = object.hasMotion ? std::max(object.fastest, track.motion) : track.motion;
        object.hasMotion = true;
    }
}

LightCurve& curveOf(PageObject& object, const std::string& filter)
{
    const auto place = std::find_if(object.curves.begin(), object.curves.end(),
                                    [&filter](const LightCurve& each) { return each.filter == filter; });
    return place != object.curves.end() ? *place : object.curves.emplace_back(LightCurve{filter, {}});
}

void addMarkAccount(MarkAccount& sum, const MarkAccount& account)
{
    sum.read += account.read;
    sum.excluded += account.excluded;
    sum.narrowed += account.narrowed;
    sum.cut += account.cut;
    sum.unnamed += account.unnamed;
    sum.planned += account.planned;
    sum.overwritten += account.overwritten;
    sum.unwritten += account.unwritten;
    sum.written += account.written;
}

std::vector<std::string> namesOf(const std::map<std::string, PageObject>& objects)
{
    std::vector<std::string> names;
    names.reserve(objects.size());
    for (const auto& [name, object] : objects) {
        names.push_back(name);
    }
    return names;
}

// The names of all objects, those with the most marks first.
std::vector<std::string> byMarks(const std::map<std::string, PageObject>& objects)
{
    std::vector<std::string> names = namesOf(objects);
    std::stable_sort(names.begin(), names.end(), [&objects](const std::string& a, const std::string& b) {
        return objects.at(a).marks > objects.at(b).marks;
    });
    return names;
}

// Names that were asked for. Each is one of an object.
const std::vector<std::string>& namedOf(const std::map<std::string, PageObject>& objects,
                                        const std::vector<std::string>& wanted)
{
    for (const std::string& name : wanted) {
        if (!objects.contains(name)) {
            throw unknownWord("object", name, namesOf(objects));
        }
    }
    return wanted;
}

// Why a task of a batch is to be run, or what has failed.
std::string whyOf(const BatchOutcome& outcome)
{
    std::string text = outcome.status == BatchStatus::gone ? "its input is missing" : outcome.reason;
    for (const std::string& error : outcome.errors) {
        text += (text.empty() ? "" : "; ") + error;
    }
    return text;
}

// The folder of a batch as its tasks see it, so that a page is the same wherever it is made.
BatchFolder seenFromThere(const SeenBatch& batch)
{
    const std::filesystem::path folder = batch.folder.path();
    return batch.from.empty() ? batch.folder : BatchFolder(folder.lexically_proximate(batch.from));
}

std::vector<ResultEntry> resultsIn(const std::string& path)
{
    if (path.empty()) {
        return {};
    }
    return isResultDocument(path) ? resultsOfDocument(path) : resultsOfLog(path);
}

} // namespace

bool PageTask::wasRun() const
{
    const bool hasRun =
        night && (night->status == BatchStatus::failed || night->status == BatchStatus::findings);
    return hasRun ||
           std::any_of(outputs.begin(), outputs.end(), [](const PageOutput& each) { return each.isThere; });
}

std::size_t PageTask::found() const
{
    std::size_t sum = 0;
    for (const PageOutput& each : outputs) {
        sum += each.found;
    }
    return sum;
}

std::size_t PageContents::pictured() const
{
    return static_cast<std::size_t>(std::count_if(objects.begin(), objects.end(),
                                                  [](const auto& each) { return each.second.isPictured; }));
}

bool PageContents::hasTasksAlone() const
{
    return std::any_of(tasks.begin(), tasks.end(), [](const PageTask& each) { return !each.night; });
}

struct PageGatherer::State
{
    explicit State(const Console& theConsole) : console(theConsole)
    {
    }

    void addSource(const std::string& path)
    {
        sources.push_back(std::filesystem::absolute(path));
    }

    void addFinding(Finding found)
    {
        codesOfTask.insert(found.code);
        contents.totals.add(found);
        FindingGroup& group = contents.findings[{found.severity, found.code}];
        ++group.count;
        if (group.first.size() < shownOfCode) {
            group.first.push_back(std::move(found));
        }
    }

    // Reads a file for its marks; a file that several tasks read counts once.
    const PageFile& addMarks(const std::string& name, const std::string& path, const std::string& format)
    {
        const auto [place, isNew] = read.try_emplace({name, format}, contents.files.size());
        if (isNew) {
            addSource(name);
            readMarks(name, path, format);
        }
        return contents.files[place->second];
    }

    void readMarks(const std::string& name, const std::string& path, const std::string& format)
    {
        const FileInfo info = fileInfo(path, format, 0, true);
        contents.files.push_back({name, format, info.site, info.account, info.first, info.last});
        contents.lines += info.account;
        widen(contents.first, contents.last, info.first, info.last);
        for (const std::string& station : info.stations) {
            contents.sites.insert(station);
        }
        for (const TrackInfo& track : info.tracks) {
            addTrack(contents.objects[track.object], track);
        }
        addCurves(path, format);
        for (const MeasuredSeries& series : pathsIn(path, format)) {
            addPath(contents.objects[series.object], series);
        }
        if (!info.account.agrees()) {
            addFinding(finding("V490", {{"sum", "lines and marks of the file"}}).in(name));
        }
    }

    void addCurves(const std::string& path, const std::string& format)
    {
        for (const MeasuredSeries& series : lightCurvesIn(path, format)) {
            PageObject& object = contents.objects[series.object];
            if (!hasTracks(format)) {
                addPointsAlone(object, series);
            }
            if (!series.filter.empty()) {
                object.filters.insert(series.filter);
            }
            for (const MeasuredPoint& point : series.points) {
                addPoint(object, series.filter, point);
            }
        }
    }

    // Of a format without tracks the points of its light curves are all that is known.
    void addPointsAlone(PageObject& object, const MeasuredSeries& series)
    {
        object.marks += series.points.size();
        const std::string first = momentText(series.points.front().mjd);
        const std::string last = momentText(series.points.back().mjd);
        widen(object.first, object.last, first, last);
        widen(contents.first, contents.last, first, last);
        widen(contents.files.back().first, contents.files.back().last, first, last);
    }

    void addPoint(PageObject& object, const std::string& filter, const MeasuredPoint& point)
    {
        if (!hasTime(point) || !hasMagnitude(point)) {
            ++contents.undrawn;
            return;
        }
        object.sumOfMagnitudes += point.magnitude;
        ++object.magnitudes;
        curveOf(object, filter).marks.push_back({point.mjd, point.magnitude, point.error});
    }

    static void addPath(PageObject& object, const MeasuredSeries& series)
    {
        SkyTrack track;
        for (const MeasuredPoint& point : series.points) {
            if (hasTime(point)) {
                track.push_back({point.mjd, point.ra, point.de});
            }
        }
        if (!track.empty()) {
            object.paths.push_back(std::move(track));
        }
    }

    void lint(const std::string& name, const std::string& path, const std::string& format)
    {
        LintSettings settings;
        settings.receiver = ownReceiver(format);
        lintFile(path, format, settings,
                 [this, &name](Finding each) { addFinding(std::move(each).in(name)); });
    }

    CheckedTask checkedTask(const std::string& name, const std::string& path)
    {
        addSource(name);
        TaskDocument document = readTaskDocument(path);
        document.path = name;
        for (Finding& each : document.findings) {
            each.file = name;
        }
        return checker.check(std::move(document));
    }

    // Adds a task; findings of some codes are left out.
    PageTask& addTask(const std::string& name, const std::string& path, const std::set<FindingCode>& unshown)
    {
        const CheckedTask checked = checkedTask(name, path);
        codesOfTask.clear();
        for (const Finding& each : checked.findings) {
            if (!unshown.contains(each.code)) {
                addFinding(each);
            }
        }
        PageTask task{name, checked.isReport, checked.hasPlan};
        task.first = addInputs(checked);
        if (checked.hasPlan) {
            task.marks = checked.plan.account;
            addMarkAccount(contents.marks, task.marks);
            task.results = resultsIn(checked.task.path_res);
            lookAtOutputs(checked, task);
        }
        return contents.tasks.emplace_back(std::move(task));
    }

    // Adds the inputs of a task and gives the earliest time of their marks.
    std::string addInputs(const CheckedTask& checked)
    {
        std::string first;
        std::string last;
        for (const CheckedInput& input : checked.inputs) {
            const PageFile& file = addMarks(input.path, input.path, input.format);
            widen(first, last, file.first, file.last);
        }
        return first;
    }

    void addBatchTask(const BatchFolder& folder, const BatchTask& task)
    {
        const BatchOutcome outcome = outcomeByReceipt(folder, task, {});
        ++contents.states[outcome.status];
        addSource(folder.receipt(task.number));
        PageTask& added = addTaskOf(outcome);
        added.night = PageNight{outcome.status, nightOf(task.inputs.front().path, added.first),
                                whyOf(outcome), outcome.read, outcome.found};
        if (!isWell(outcome.status)) {
            addRunFindings(outcome);
        }
    }

    // Without its input there is nothing in a task to be checked.
    PageTask& addTaskOf(const BatchOutcome& outcome)
    {
        if (outcome.status != BatchStatus::gone) {
            // That outputs would be replaced is true of each task that was run.
            return addTask(outcome.path, outcome.path, {"V048"});
        }
        addSource(outcome.path);
        addFinding(keptFromFinding(outcome));
        return contents.tasks.emplace_back(PageTask{outcome.path});
    }

    // What was found in the run of a task and cannot be seen in its files.
    void addRunFindings(const BatchOutcome& outcome)
    {
        const std::set<FindingCode> known = codesOfTask;
        const ReadJson findings(outcome.findings.text());
        for (std::size_t i = 0; i < findings.root().size(); ++i) {
            auto found = findingIn(findings.root()[i]);
            if (found && !known.contains(found->code)) {
                addFinding(found->file.empty() ? std::move(*found).in(outcome.path) : *found);
            }
        }
    }

    // What is there of the files of a task, and whether it is what the task makes.
    void lookAtOutputs(const CheckedTask& checked, PageTask& task)
    {
        std::vector<const PlannedFile*> whole;
        for (const PlannedFile& planned : checked.plan.files) {
            if (planned.isWritten && planned.replacedBy == 0) {
                PageOutput output{planned.path, planned.format, planned.marks};
                if (isThereAsPlanned(checked.path, planned, output)) {
                    whole.push_back(&planned);
                }
                task.outputs.push_back(std::move(output));
            }
        }
        if (!whole.empty()) {
            for (Finding& each : differences(checked.task, checked.plan, whole)) {
                addFinding(std::move(each).in(checked.path));
            }
        }
        addMissing(task);
    }

    // Tells which files of a task that was run are missing.
    void addMissing(const PageTask& task)
    {
        for (const PageOutput& output : task.outputs) {
            if (task.wasRun() && !output.isThere) {
                addFinding(finding("V415", {{"path", output.path}}).in(task.path));
            }
        }
    }

    bool isThereAsPlanned(const std::string& task, const PlannedFile& planned, PageOutput& output)
    {
        std::error_code ignored;
        output.isThere = std::filesystem::exists(planned.path, ignored);
        if (!output.isThere) {
            return false;
        }
        addSource(planned.path);
        return isAsPlanned(task, planned, output);
    }

    bool isAsPlanned(const std::string& task, const PlannedFile& planned, PageOutput& output)
    {
        const auto held = heldMarks(planned.path, planned.format);
        if (!held) {
            addFinding(finding("V003", {{"file", planned.path}, {"what", std::strerror(errno)}}).in(task));
            return false;
        }
        output.found = held->marks;
        const bool isGood = held->marks == planned.marks && held->isWhole;
        if (!isGood) {
            addFinding(finding("V416", {{"path", planned.path},
                                        {"found", heldText(*held)},
                                        {"planned", counted(planned.marks)}})
                           .in(task));
        }
        return isGood;
    }

    const Console& console;
    PageContents contents{};
    TaskChecker checker{CheckSettings{}};
    std::map<std::pair<std::string, std::string>, std::size_t> read{}; // places of names and formats
    std::set<FindingCode> codesOfTask{};                               // that was added last
    std::vector<std::string> sources{};
};

PageGatherer::PageGatherer(const Console& console) : state(std::make_unique<State>(console))
{
}

PageGatherer::~PageGatherer() = default;

void PageGatherer::add(const std::string& name, const std::string& path, std::string format)
{
    if (format.empty()) {
        const Recognition recognition = recognisedFile(path);
        if (!recognition.isSure()) {
            state->addSource(name);
            state->addFinding(uncertainFormat(name, recognition));
            state->contents.files.push_back({name, ""});
            return;
        }
        format = recognition.format;
    }
    if (format == "task") {
        state->addTask(name, path, {});
    } else if (format == "result" || format == "configuration") {
        throw wrongCall(name, "is a " + format + ", and no measurement file or task");
    } else {
        state->addMarks(name, path, format);
        state->lint(name, path, format);
    }
}

void PageGatherer::addBatch(const std::string& name)
{
    const BatchFolder given(name);
    if (!fileState(given.plan()).exists) {
        throw wrongCall(name, "is a folder without the plan of a batch");
    }
    const BatchPlan plan = readPlan(given);
    const SeenBatch batch = seenBatch(given, plan);
    state->addSource(given.plan());
    ++state->contents.batches;
    const PresentFolderFor present(batch.from);
    const BatchFolder folder = seenFromThere(batch);
    Progress progress(state->console, "task", plan.tasks.size());
    std::size_t done = 0;
    for (const BatchTask& task : plan.tasks) {
        state->addBatchTask(folder, task);
        progress.at(++done);
    }
}

PageContents PageGatherer::finish(const std::vector<std::string>& pictured)
{
    std::map<std::string, PageObject>& objects = state->contents.objects;
    std::size_t count = 0;
    for (const std::string& name : pictured.empty() ? byMarks(objects) : namedOf(objects, pictured)) {
        PageObject& object = objects.at(name);
        if (count < mostPictured && object.canBePictured() && !object.isPictured) {
            object.isPictured = true;
            ++count;
        }
    }
    return std::move(state->contents);
}

const std::vector<std::string>& PageGatherer::sources() const
{
    return state->sources;
}

} // namespace companion
