#include "multi_report.h"

#include "config/settings.h"
#include "config/user_configuration.h"
#include "conversion.h"
#include "files/essentials.h"
#include "files/file_search.h"
#include "files/paths.h"
#include "format_words.h"
#include "formats/track_table.h"
#include "results/code_table.h"
#include "text/number_text.h"

#include <cstddef>
#include <optional>
#include <string>
#include <utility>

using namespace tavelinUtils;

namespace {

// The names that unidentified objects get, in the order of series and tracks. They run on over all series of
// a report, so that none is given twice.
class RunningNames
{
public:
    std::string nextAsteroid()
    {
        return "AST" + IntToStr(asteroidNumber++);
    }

    std::string nextSatellite()
    {
        return IntToStr(satelliteNumber++);
    }

private:
    int asteroidNumber = 1000;
    int satelliteNumber = 99000;
};

// The settings of a series: those of the configuration found first below its folder, three levels above its
// table. One that cannot be loaded says nothing, and the defaults stay.
TPorogs settingsOf(const std::string& table)
{
    std::string folder = table;
    for (int level = 0; level < 3; ++level) {
        folder = calcpathlevelup(folder, false);
    }
    std::vector<std::string> files;
    FindFile(folder, "", ".conf", files);
    TPorogs porogs;
    if (!files.empty()) {
        LoadUserConfXML(files.front(), porogs, false); // no word of it reaches the report
    }
    return porogs;
}

void nameTrack(TrackVtorichka& track, TService service, RunningNames& names)
{
    if (service == TService::satellites) {
        track.QRVName = track.NORAD.empty() ? names.nextSatellite() : track.NORAD;
    } else if (service == TService::asteroids) {
        track.QRVName = track.MPCChecker.empty() ? names.nextAsteroid() : track.MPCChecker;
    }
}

TrackList tracksOf(const TSeria2& seria, const TConvMea& task, RunningNames& names)
{
    std::vector<TrackVtorichka> tracks = lListTrack(seria.path);
    DeleteBlobs(seria.excludes, tracks);
    const TPorogs porogs = settingsOf(seria.path);
    for (TrackVtorichka& track : tracks) {
        track.Series = seria.filter;
        track.originator = task.originator;
        track.telescope = task.autoTelescope ? seria.telescope : task.PARTICIPANT_1;
        track.MPCHeader = porogs.mpc.MPCHeader;
        track.ObsCode = porogs.curves.AAVSOCode;
        nameTrack(track, porogs.Service, names);
    }
    return tracks;
}

// Narrows the series to the one track that is asked for; false where it does not exist.
bool keepObject(std::vector<TrackList>& series, int object)
{
    TrackList& first = series.front();
    if (object < 0 || static_cast<std::size_t>(object) >= first.size()) {
        return false;
    }
    TrackList kept;
    kept.push_back(std::move(first[static_cast<std::size_t>(object)]));
    series.clear();
    series.push_back(std::move(kept));
    return true;
}

std::vector<TrackList> dividedTracks(std::vector<TrackList>&& series, const TConvMea& task,
                                     bool& withoutMarks)
{
    if (task.toSeparateFile == "eachgroup") {
        return stretchesOf(std::move(series), task.interval, withoutMarks);
    }
    if (task.toSeparateFile == "eachobject") {
        return objectsOf(std::move(series));
    }
    if (task.toSeparateFile == "eachseria") {
        return std::move(series);
    }
    if (task.toSeparateFile == "allobjects") {
        return allOf(std::move(series));
    }
    return {};
}

// The part of a path that stands so far from its end, 1 for the last; nothing where it has fewer parts.
std::optional<std::string> partFromEnd(const std::string& path, std::size_t fromEnd)
{
    std::vector<std::string> parts;
    Pars9(path, parts, Slash);
    if (parts.size() < fromEnd) {
        return std::nullopt;
    }
    return parts[parts.size() - fromEnd];
}

// The name that a file is built around; nothing where what it needs is missing.
std::optional<std::string> baseName(const TConvMea& task, const TrackList& report, std::size_t number)
{
    constexpr std::size_t seriesFolder = 4;
    if (task.toSeparateFile == "eachseria") {
        return number < task.paths.size() ? partFromEnd(task.paths[number].path, seriesFolder) : std::nullopt;
    }
    if (task.toSeparateFile == "allobjects") {
        return partFromEnd(task.out_dir, 1).value_or("");
    }
    return report.empty() ? std::nullopt : std::optional(report.front().QRVName);
}

std::optional<std::string> fileName(const TConvMea& task, const TrackList& report, std::size_t number)
{
    std::optional<std::string> base = baseName(task, report, number);
    if (!base || !task.longname) {
        return base;
    }
    if (report.empty() || report.front().Marks.empty()) {
        return std::nullopt;
    }
    return CreateAutoName(report.front(), report.front().telescope, *base);
}

} // namespace

TFuncRes CreateMultiReport(const TConvMea& task, std::vector<TrackList>& reports)
{
    TFuncRes result;
    if (task.paths.empty()) {
        result.Code = resultCode::runFailed;
        result.Description = "paths.size() == 0";
        return result;
    }
    std::vector<TrackList> series;
    series.reserve(task.paths.size());
    RunningNames names;
    for (const TSeria2& seria : task.paths) {
        series.push_back(tracksOf(seria, task, names));
    }
    result.Description.clear();
    if (task.whatSave == "object" && !keepObject(series, task.object)) {
        result.Code = resultCode::runFailed;
        return result;
    }
    bool withoutMarks = false;
    reports = dividedTracks(std::move(series), task, withoutMarks);
    if (withoutMarks) {
        result.Code = resultCode::runFailed;
    }
    const bool eachObject = task.toSeparateFile == "eachobject";
    for (std::size_t number = 0; number < reports.size(); ++number) {
        TrackList& report = reports[number];
        if (eachObject) {
            // Joined one at a time, so that the memory of one serves the next.
            TrackList object;
            object.push_back(joined(std::move(report)));
            report = std::move(object);
        }
        const std::optional<std::string> name = fileName(task, report, number);
        if (!name) {
            result.Code = resultCode::runFailed;
            continue;
        }
        // The point stands here: the extension of a report's task is bare.
        const std::string output = task.out_dir + *name + "." + task.outputextension;
        SelectFormatAndSave(output, task.outputformat, report); // the description lists the paths tried
        result.Description += output + ";";
        if (eachObject) {
            report = {};
        }
    }
    return result;
}

TFuncRes CreateMultiReport(const TConvMea& task)
{
    std::vector<TrackList> reports;
    return CreateMultiReport(task, reports);
}
