#include "multi_report.h"

#include "config/settings.h"
#include "config/user_configuration.h"
#include "exclusions.h"
#include "file_names.h"
#include "files/essentials.h"
#include "files/file_search.h"
#include "files/paths.h"
#include "format_words.h"
#include "formats/track_table.h"
#include "results/code_table.h"
#include "text/number_text.h"

#include <cstddef>
#include <string>
#include <utility>

using namespace tavelinUtils;

namespace {

// The names of unidentified objects, in the order of series and tracks. The numbers continue through all
// series of a report, so that none is given twice.
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

// The settings of a series: those of the first configuration found below its folder, three levels above its
// table. One that cannot be loaded is not reported, and the defaults stay.
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
        LoadUserConfXML(files.front(), porogs, false); // the report does not mention a failure
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

// Reduces the series to the one track that is asked for, of the first series; false where it does not exist.
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

// The tracks of all series of the task, as their files are to hold them.
std::vector<TrackList> stampedSeries(const TConvMea& task)
{
    std::vector<TrackList> series;
    series.reserve(task.paths.size());
    RunningNames names;
    for (const TSeria2& seria : task.paths) {
        series.push_back(tracksOf(seria, task, names));
    }
    return series;
}

// Writes each list to its own file; the result gets the paths that were tried, and the code for a file that
// has no name.
void writeReports(std::vector<TrackList>& reports, const ReportDivision& division, const TConvMea& task,
                  TFuncRes& result)
{
    for (std::size_t number = 0; number < reports.size(); ++number) {
        TrackList& report = reports[number];
        if (division.joins) {
            report = joinedAlone(std::move(report)); // one at a time: the memory of one serves the next
        }
        const auto path = reportPath(task, report, division.baseName(task, report, number));
        if (!path) {
            result.Code = resultCode::runFailed;
            continue;
        }
        SelectFormatAndSave(*path, task.outputformat, report); // the description lists the paths tried
        result.Description += *path + ";";
        if (division.joins) {
            TrackList().swap(report); // an assigned {} keeps the room of its head
        }
    }
}

// Divides the series among files and writes these. An unknown word divides nothing and writes nothing.
void divideAndWrite(std::vector<TrackList>&& series, const TConvMea& task, std::vector<TrackList>& reports,
                    TFuncRes& result)
{
    reports.clear();
    const ReportDivision* const division = reportDivision(task.toSeparateFile);
    if (division == nullptr) {
        return;
    }
    bool withoutMarks = false;
    reports = division->divide(std::move(series), task, withoutMarks);
    if (withoutMarks) {
        result.Code = resultCode::runFailed;
    }
    writeReports(reports, *division, task, result);
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
    result.Description.clear();
    std::vector<TrackList> series = stampedSeries(task);
    if (task.whatSave == "object" && !keepObject(series, task.object)) {
        result.Code = resultCode::runFailed;
        return result;
    }
    divideAndWrite(std::move(series), task, reports, result);
    return result;
}

TFuncRes CreateMultiReport(const TConvMea& task)
{
    std::vector<TrackList> reports;
    return CreateMultiReport(task, reports);
}
