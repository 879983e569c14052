#include "task/plan_findings.h"

#include "out/text.h"
#include "receivers/tdm_rules.h"
#include "task/lost_digits.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

using namespace tavelinUtils;

namespace companion {
namespace {

constexpr std::size_t shownNames = 5;

bool isTdm(const std::string& word)
{
    return word == "tdm" || word == "tdm.xml";
}

// Whether blanks part the fields of a line of the form, so that names must not hold any.
bool isCutAtBlanks(const std::string& word)
{
    return word == "mea" || word == "telegram" || word == "ssmas";
}

std::string listed(const std::vector<std::string>& names)
{
    std::string text;
    for (std::size_t i = 0; i < std::min(shownNames, names.size()); ++i) {
        text += (i == 0 ? "" : ", ") + names[i];
    }
    return names.size() > shownNames ? text + ", ..." : text;
}

// Each finding of a list, with the mark places of the others as they are.
std::vector<FindingPlace> placesOf(const std::vector<MissingMark>& marks)
{
    std::vector<FindingPlace> places;
    for (const MissingMark& mark : marks) {
        FindingPlace place;
        place.mark = mark.place;
        places.push_back(std::move(place));
    }
    return places;
}

} // namespace

struct PlanInspection::State
{
    explicit State(const TConvMea& ofTask) : task(ofTask), digits(task.inputformat, task.outputformat)
    {
    }

    const TConvMea& task;
    LostDigits digits;
    std::set<std::string> blankNames{};                     // of objects, for forms that are cut at blanks
    std::map<std::string, std::set<std::string>> filters{}; // of each object
    std::vector<std::string> firstFilters{};                // of the marks of the first track of a file
    std::size_t wrongFilters = 0;

    void seeFilters(const PlannedFile& file, const TrackVtorichka& track);
};

namespace {

// The findings of one plan.
class Report
{
public:
    Report(const TConvMea& ofTask, const Plan& thePlan, const AtKey& thePlaces)
        : task(ofTask), plan(thePlan), atKey(thePlaces)
    {
    }

    void add(Finding found, std::string_view key = "")
    {
        all.push_back(atKey(std::move(found), key));
    }

    const TConvMea& task;
    const Plan& plan;
    std::vector<Finding> all{};

private:
    const AtKey& atKey;
};

// Conversions.

void findUnreadTracks(Report& report)
{
    if (report.plan.tracks.empty()) {
        report.add(finding("V062", {{"path", report.task.path_in}}), "path_in");
    }
}

void findMissingFirstMark(Report& report)
{
    const auto& tracks = report.plan.tracks;
    if (report.task.autoname && !tracks.empty() && tracks.front().marks == 0) {
        report.add(finding("V064"), "autoname");
    }
}

void findOddAutomaticName(Report& report)
{
    if (!report.task.autoname || report.plan.files.empty()) {
        return;
    }
    const std::string name = report.plan.files.front().path.substr(report.task.out_dir.size());
    if (name.find('/') != std::string::npos) {
        report.add(finding("V065", {{"name", name}}), "autoname");
    } else if (name.find("-60-") != std::string::npos) {
        report.add(finding("V066", {{"name", name}, {"what", "60 seconds"}}), "autoname");
    } else if (name.find("T24-") != std::string::npos) {
        report.add(finding("V066", {{"name", name}, {"what", "hour 24"}}), "autoname");
    }
}

void findOddFrame(Report& report)
{
    const std::string& frame = report.task.REFERENCE_FRAME;
    if (!isTdm(report.task.outputformat)) {
        return;
    }
    if (frame.empty()) {
        report.add(finding("V067"), "REFERENCE_FRAME");
    } else if (!(report.task.outputformat == "tdm" ? isTdmFrame(frame) : isTdmSchemaFrame(frame))) {
        report.add(finding("V068", {{"word", frame}}), "REFERENCE_FRAME");
    }
}

// A word of the file that the task replaces, in a form that shows it.
void findReplacedWord(Report& report, const char* key, const std::string& stamp,
                      const std::string& defaultStamp, const std::string& old)
{
    if (old.empty() || old == stamp) {
        return;
    }
    if (stamp == defaultStamp) {
        report.add(finding("V069", {{"key", key}, {"default", stamp}, {"text", old}}), key);
    } else if (!stamp.empty()) {
        report.add(finding("V070", {{"key", key}, {"old", old}, {"new", stamp}}), key);
    }
}

void findReplacedWords(Report& report)
{
    const TConvMea& task = report.task;
    const FileWords& words = report.plan.fileWords;
    const bool showsOriginator = isTdm(task.outputformat) || task.outputformat == "telegram";
    const bool showsTelescope =
        showsOriginator || task.outputformat == "mea" || task.outputformat == "ssmas" || task.autoname;
    const bool fileHasOriginator = task.inputformat == "tdm" || task.inputformat == "telegram";
    if (showsOriginator && fileHasOriginator) {
        findReplacedWord(report, "originator", task.originator, TConvMea{}.originator, words.originator);
    }
    if (showsTelescope) {
        findReplacedWord(report, "PARTICIPANT_1", task.PARTICIPANT_1, TConvMea{}.PARTICIPANT_1,
                         words.telescope);
    }
}

void findEmptyReport(Report& report)
{
    const std::string& word = report.task.outputformat;
    if (word == "mpc") {
        report.add(finding("V071"), "outputformat");
    } else if (word == "aavso") {
        report.add(finding("V072"), "outputformat");
    } else if (word == "mag") {
        report.add(finding("V073"), "outputformat");
    }
}

void findConversionTraps(Report& report)
{
    findUnreadTracks(report);
    findMissingFirstMark(report);
    findOddAutomaticName(report);
    findOddFrame(report);
    findReplacedWords(report);
    findEmptyReport(report);
}

// Reports.

void findCutMarks(Report& report)
{
    const auto& marks = report.plan.cutMarks;
    if (marks.empty()) {
        return;
    }
    Finding found = finding("V240", {{"lost", counted(marks.size())},
                                     {"marks", counted(report.plan.account.read, "mark")}})
                        .times(marks.size());
    found.places = placesOf(marks);
    report.add(std::move(found), "interval");
}

void findEmptyPieces(Report& report)
{
    std::vector<MissingMark> only;
    std::copy_if(report.plan.cutMarks.begin(), report.plan.cutMarks.end(), std::back_inserter(only),
                 [](const MissingMark& mark) { return mark.emptiesPiece; });
    if (only.empty()) {
        return;
    }
    Finding found = finding("V241", {{"pieces", counted(only.size(), "piece")}}).times(only.size());
    found.places = placesOf(only);
    report.add(std::move(found), "interval");
}

void findLeftOutMarks(Report& report)
{
    const MarkAccount& account = report.plan.account;
    if (account.excluded + account.narrowed > 0) {
        report.add(finding("V243", {{"excluded", counted(account.excluded, "mark")},
                                    {"narrowed", counted(account.narrowed)}})
                       .times(account.excluded + account.narrowed));
    }
}

void findRunningNames(Report& report)
{
    const auto& names = report.plan.runningNames;
    if (names.empty()) {
        return;
    }
    report.add(finding("V244", {{"objects", counted(names.size(), "object")}, {"names", listed(names)}})
                   .times(names.size()));
    constexpr std::size_t longestShort = std::string_view("AST9999").size();
    const bool isLong = std::any_of(names.begin(), names.end(),
                                    [](const std::string& name) { return name.size() > longestShort; });
    if (isLong && report.task.outputformat == "mpc") {
        report.add(finding("V245"));
    }
}

void findCollisions(Report& report)
{
    std::map<std::string, std::size_t> files;
    for (const PlannedFile& file : report.plan.files) {
        ++files[file.path];
    }
    for (const auto& [path, count] : files) {
        if (count > 1) {
            report.add(finding("V246", {{"files", counted(count, "file")}, {"path", path}}).times(count));
        }
    }
}

bool leadsOut(std::string_view name)
{
    return name == ".." || name.substr(0, 3) == "../" || name.find("/../") != std::string_view::npos;
}

void findOddNames(Report& report)
{
    constexpr std::size_t longestName = 255;
    for (const PlannedFile& file : report.plan.files) {
        const std::string name = file.path.substr(report.task.out_dir.size());
        if (leadsOut(name)) {
            report.add(finding("V248", {{"path", file.path}}));
        } else if (name.find('/') != std::string::npos) {
            report.add(finding("V247", {{"name", name}}));
        } else if (name.size() > longestName) {
            report.add(finding("V249", {{"name", name}}));
        }
    }
}

// With longname a file gets no name where its first track has no marks, but others have.
void findUnnamedFiles(Report& report)
{
    const bool bySeries = report.task.toSeparateFile == "eachseria";
    if (!report.task.longname || !(bySeries || report.task.toSeparateFile == "allobjects")) {
        return;
    }
    std::map<int, std::vector<MissingMark>> files;
    for (const MissingMark& mark : report.plan.unnamedMarks) {
        if (!bySeries || !mark.place.folder.empty()) { // a series without a name is another matter
            files[bySeries ? mark.place.series : 0].push_back(mark);
        }
    }
    for (const auto& [number, marks] : files) {
        const std::string file = bySeries ? "the file of series " + std::to_string(number) : "the file";
        Finding found =
            finding("V250", {{"file", file}, {"marks", counted(marks.size(), "mark")}}).times(marks.size());
        found.places = placesOf(marks);
        report.add(std::move(found));
    }
}

void findReportTraps(Report& report)
{
    findCutMarks(report);
    findEmptyPieces(report);
    findLeftOutMarks(report);
    findRunningNames(report);
    findCollisions(report);
    findOddNames(report);
    findUnnamedFiles(report);
}

} // namespace

PlanInspection::PlanInspection(const TConvMea& task) : state(new State(task))
{
}

PlanInspection::~PlanInspection() = default;

void PlanInspection::see(const PlannedFile& file, const TrackVtorichka& track)
{
    if (isCutAtBlanks(file.format) && (track.QRVName.empty() || track.QRVName.find(' ') != std::string::npos))
    {
        state->blankNames.insert(track.QRVName);
    }
    state->digits.see(track);
    state->filters[track.QRVName].insert(track.Series);
    if (file.format == "aavso") {
        state->seeFilters(file, track);
    }
}

void PlanInspection::State::seeFilters(const PlannedFile& file, const TrackVtorichka& track)
{
    if (file.tracks == 1) {
        firstFilters.clear();
        for (const TRecLabelPervichka_File& mark : track.Marks) {
            firstFilters.push_back(mark.filtr);
        }
        return;
    }
    for (std::size_t i = 0; i < std::min(track.Marks.size(), firstFilters.size()); ++i) {
        if (track.Marks[i].filtr != firstFilters[i]) {
            ++wrongFilters;
        }
    }
}

std::vector<Finding> PlanInspection::findings(const Plan& plan, const AtKey& atKey) const
{
    const bool isReport = state->task.inputformat == "vomar";
    Report report(state->task, plan, atKey);
    isReport ? findReportTraps(report) : findConversionTraps(report);
    if (!state->blankNames.empty()) {
        report.add(finding("V074", {{"names", counted(state->blankNames.size(), "name")},
                                    {"problem", "a blank or without a letter"},
                                    {"word", state->task.outputformat}})
                       .times(state->blankNames.size()));
    }
    if (std::optional<Finding> lost = state->digits.found()) {
        report.add(std::move(*lost), "outputformat");
    }
    if (isReport && state->task.toSeparateFile == "eachobject") {
        for (const auto& [name, filters] : state->filters) {
            if (filters.size() > 1) {
                report.add(finding("V254", {{"name", name},
                                            {"filters", counted(filters.size(), "filter")},
                                            {"files", counted(filters.size(), "file")}}));
            }
        }
    }
    if (state->wrongFilters > 0) {
        report.add(
            finding("V256", {{"marks", counted(state->wrongFilters, "mark")}}).times(state->wrongFilters));
    }
    return std::move(report.all);
}

} // namespace companion
