#include "multi_report.h"

#include "exclusions.h"
#include "file_names.h"
#include "format_words.h"
#include "report_divisions.h"
#include "report_tracks.h"
#include "results/code_table.h"
#include "text/number_text.h"

#include <cstddef>
#include <string>

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

void nameTrack(TrackVtorichka& track, TService service, RunningNames& names)
{
    if (service == TService::satellites) {
        track.QRVName = track.NORAD.empty() ? names.nextSatellite() : track.NORAD;
    } else if (service == TService::asteroids) {
        track.QRVName = track.MPCChecker.empty() ? names.nextAsteroid() : track.MPCChecker;
    }
}

// What the tracks of a series have in common.
THeadTrVtor headOf(const TSeria2& seria, const TConvMea& task, const TPorogs& porogs)
{
    THeadTrVtor head;
    head.Series = seria.filter;
    head.originator = task.originator;
    head.telescope = task.autoTelescope ? seria.telescope : task.PARTICIPANT_1;
    head.MPCHeader = porogs.mpc.MPCHeader;
    head.ObsCode = porogs.curves.AAVSOCode;
    return head;
}

// The columns of a track table that the output is made of. A word that is not known has none: what is left
// are the times, which divide and name.
std::string columnsFor(const std::string& outputFormat)
{
    const FormatWord* const row = formatWord(formatOpticMea_to_int(outputFormat));
    return row == nullptr ? "date time" : row->columns;
}

// Reads the series of the task, one after the other.
class SeriesReader
{
public:
    SeriesReader(const TConvMea& theTask, const Works& theWorks) : task(theTask), works(theWorks)
    {
    }

    ReportTracks read()
    {
        const std::string columns = columnsFor(task.outputformat);
        ReportTracks tracks(columns);
        for (const TSeria2& seria : task.paths) {
            addSeries(seria, works.table(seria.path, columns), tracks);
        }
        return tracks;
    }

private:
    void addSeries(const TSeria2& seria, const NextTrack& next, ReportTracks& tracks)
    {
        const Exclusions exclusions(seria.excludes);
        const TPorogs porogs = works.settings(seria.path);
        tracks.addSeries(headOf(seria, task, porogs));
        track.Marks.clear(); // those of another table, which may have had other columns
        for (std::size_t number = 0; next(track); ++number) {
            exclusions.applyTo(number, track);
            nameTrack(track, porogs.Service, names);
            tracks.add(track);
        }
    }

    const TConvMea& task;
    const Works& works;
    RunningNames names;
    TrackVtorichka track; // each in turn
};

// Hands out the tracks of a file of a report.
class FileTracks
{
public:
    FileTracks(const ReportTracks& ofReport, std::span<const TrackPart> parts, bool areJoined)
        : tracks(ofReport), left(parts), joined(areJoined)
    {
    }

    bool next(TrackVtorichka& track)
    {
        if (left.empty()) {
            return false;
        }
        if (joined) {
            tracks.fillJoined(left, track);
            left = {};
        } else {
            tracks.fill(left.front(), track);
            left = left.subspan(1);
        }
        return true;
    }

private:
    const ReportTracks& tracks;
    std::span<const TrackPart> left;
    bool joined;
};

// Writes the files; the result gets the paths that were tried, and the code for a file that has no name.
void writeFiles(const ReportTracks& tracks, const ReportFiles& files, const ReportDivision& division,
                const TConvMea& task, const Works& works, TFuncRes& result)
{
    TrackVtorichka track;
    for (std::size_t number = 0; number < files.count(); ++number) {
        FileTracks source(tracks, files[number], division.joins);
        TrackFlow flow(track, [&source](TrackVtorichka& next) { return source.next(next); });
        const auto path = reportPath(task, flow.first(), division.baseName(task, flow.first(), number));
        if (!path) {
            result.Code = resultCode::runFailed;
            continue;
        }
        flow.writeTo(works.sink(*path, task.outputformat)); // the description lists the paths tried
        result.Description += *path + ";";
    }
}

// Divides the tracks among files and writes these. An unknown word divides nothing and writes nothing.
void divideAndWrite(const ReportTracks& tracks, const TConvMea& task, const Works& works, TFuncRes& result)
{
    const ReportDivision* const division = reportDivision(task.toSeparateFile);
    if (division == nullptr) {
        return;
    }
    bool withoutMarks = false;
    const ReportFiles files = division->divide(tracks, task, withoutMarks);
    if (withoutMarks) {
        result.Code = resultCode::runFailed;
    }
    writeFiles(tracks, files, *division, task, works, result);
}

} // namespace

TFuncRes CreateMultiReport(const TConvMea& task, const Works& works)
{
    TFuncRes result;
    if (task.paths.empty()) {
        result.Code = resultCode::runFailed;
        result.Description = "paths.size() == 0";
        return result;
    }
    result.Description.clear();
    ReportTracks tracks = SeriesReader(task, works).read();
    if (task.whatSave == "object" && !tracks.keepOnly(task.object)) {
        result.Code = resultCode::runFailed;
        return result;
    }
    divideAndWrite(tracks, task, works, result);
    return result;
}

TFuncRes CreateMultiReport(const TConvMea& task)
{
    return CreateMultiReport(task, ownWorks());
}
