#include "support/list_works.h"

#include "config/settings.h"
#include "config/user_configuration.h"
#include "exclusions.h"
#include "file_names.h"
#include "files/essentials.h"
#include "files/file_search.h"
#include "files/paths.h"
#include "format_words.h"
#include "formats/mea.h"
#include "formats/ssmas.h"
#include "formats/tdm.h"
#include "formats/telegram.h"
#include "formats/track_table.h"
#include "results/code_table.h"
#include "text/number_text.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <utility>
#include <vector>

using namespace tavelinUtils;

namespace {

using Tracks = std::vector<TrackVtorichka>;
using Lists = std::vector<Tracks>;

Tracks readTracks(int format, const std::string& path, const std::string& originator)
{
    switch (format) {
    case 0: return plMEATrack(path, originator);
    case 1: return lTelegramma(path);
    case 2: return lTDM(path);
    case 3: return lckako_meas(path, originator);
    default: return {}; // no reader
    }
}

bool hasFirstMark(const Tracks& tracks)
{
    return !tracks.empty() && !tracks[0].Marks.empty();
}

// The running numbers of a report.
struct Numbers
{
    int asteroid = 1000;
    int satellite = 99000;
};

TPorogs settingsOf(const std::string& table)
{
    const std::string first = calcpathlevelup(table, false);
    const std::string second = calcpathlevelup(first, false);
    std::vector<std::string> files;
    FindFile(calcpathlevelup(second, false), "", ".conf", files);
    TPorogs porogs;
    if (!files.empty()) {
        LoadUserConfXML(files[0], porogs, false);
    }
    return porogs;
}

void nameTrack(TrackVtorichka& track, TService service, Numbers& numbers)
{
    if (static_cast<int>(service) == 2) {
        track.QRVName = track.NORAD.empty() ? IntToStr(numbers.satellite++) : track.NORAD;
    }
    if (static_cast<int>(service) == 1) {
        track.QRVName = track.MPCChecker.empty() ? "AST" + IntToStr(numbers.asteroid++) : track.MPCChecker;
    }
}

Tracks readSeries(const TSeria2& seria, const TConvMea& task, Numbers& numbers)
{
    Tracks tracks = lListTrack(seria.path);
    DeleteBlobs(seria.excludes, tracks);
    const TPorogs porogs = settingsOf(seria.path);
    for (TrackVtorichka& track : tracks) {
        track.Series = seria.filter;
        track.originator = task.originator;
        track.telescope = task.PARTICIPANT_1;
        if (task.autoTelescope) {
            track.telescope = seria.telescope;
        }
        track.MPCHeader = porogs.mpc.MPCHeader;
        track.ObsCode = porogs.curves.AAVSOCode;
        nameTrack(track, porogs.Service, numbers);
    }
    return tracks;
}

// The marks of a track as ranges, the end of each exclusive: where a track is cut, the end is the last mark
// before the gap or the last of all, which so is in no range.
std::vector<std::pair<std::size_t, std::size_t>> rangesOf(const TrackVtorichka& track, double interval)
{
    const std::size_t n = track.Marks.size();
    std::vector<std::pair<std::size_t, std::size_t>> ranges = {{0, n}};
    for (std::size_t k = 0; k + 1 < n; ++k) {
        const auto& mark = track.Marks[k];
        const auto& next = track.Marks[k + 1];
        const double nextTime = next.date + next.time;
        if ((nextTime - mark.date - mark.time) * 1440.0 >= interval) {
            ranges.back().second = k;
            ranges.emplace_back(k + 1, n - 1);
        }
    }
    return ranges;
}

// A list for each stretch of each track; -1 for a track that has no marks to cut.
Lists groupsOf(const Lists& series, double interval, int& code)
{
    Lists reports;
    for (const Tracks& tracks : series) {
        for (const TrackVtorichka& track : tracks) {
            if (track.Marks.empty()) {
                code = -1;
                continue;
            }
            for (const auto& [first, end] : rangesOf(track, interval)) {
                TrackVtorichka piece;
                static_cast<THeadTrVtor&>(piece) = track;
                for (std::size_t k = first; k < end; ++k) {
                    piece.Marks.push_back(track.Marks[k]);
                }
                reports.push_back({piece});
            }
        }
    }
    return reports;
}

void joinInto(TrackVtorichka& first, const TrackVtorichka& second)
{
    first.Marks.insert(first.Marks.begin(), second.Marks.begin(), second.Marks.end());
    first.InterBlobs.insert(first.InterBlobs.begin(), second.InterBlobs.begin(), second.InterBlobs.end());
    std::stable_sort(first.Marks.begin(), first.Marks.end(), SortTrackByTime);
}

// A list for each object, joined pair by pair.
Lists objectsAmong(const Lists& series)
{
    Lists reports;
    for (const Tracks& tracks : series) {
        for (const TrackVtorichka& track : tracks) {
            reports.push_back({track});
        }
    }
    for (std::size_t i = 0; i < reports.size(); ++i) {
        for (std::size_t j = i + 1; j < reports.size();) {
            if (reports[i][0].QRVName == reports[j][0].QRVName &&
                reports[i][0].Series == reports[j][0].Series) {
                joinInto(reports[i][0], reports[j][0]);
                reports.erase(reports.begin() + static_cast<std::ptrdiff_t>(j));
            } else {
                ++j;
            }
        }
    }
    return reports;
}

Lists allTogether(const Lists& series)
{
    Lists reports(1);
    for (const Tracks& tracks : series) {
        reports[0].insert(reports[0].end(), tracks.begin(), tracks.end());
    }
    return reports;
}

Lists reportsOf(const Lists& series, const TConvMea& task, int& code)
{
    if (task.toSeparateFile == "eachgroup") {
        return groupsOf(series, task.interval, code);
    }
    if (task.toSeparateFile == "eachobject") {
        return objectsAmong(series);
    }
    if (task.toSeparateFile == "eachseria") {
        return series;
    }
    return task.toSeparateFile == "allobjects" ? allTogether(series) : Lists{};
}

// A part of a path from its end, 1 for the last; false where it has fewer.
bool partOf(const std::string& path, std::size_t fromEnd, std::string& part)
{
    std::vector<std::string> parts;
    Pars9(path, parts, Slash);
    if (parts.size() < fromEnd) {
        return false;
    }
    part = parts[parts.size() - fromEnd];
    return true;
}

// The base name of the file of that number; false where what it is made of is missing.
bool baseNameOf(const Tracks& report, std::size_t number, const TConvMea& task, std::string& name)
{
    if (task.toSeparateFile == "eachobject" || task.toSeparateFile == "eachgroup") {
        name = report.empty() ? "" : report[0].QRVName;
        return !report.empty();
    }
    if (task.toSeparateFile == "eachseria") {
        return partOf(task.paths[number].path, 4, name);
    }
    partOf(task.out_dir, 1, name);
    return true;
}

// Writes one file. False where it has no name.
bool writeReport(Tracks& report, std::size_t number, const TConvMea& task, std::string& description)
{
    std::string name;
    if (!baseNameOf(report, number, task, name) || (task.longname && !hasFirstMark(report))) {
        return false;
    }
    if (task.longname) {
        name = CreateAutoName(report[0], report[0].telescope, name);
    }
    const std::string path = task.out_dir + name + "." + task.outputextension;
    SelectFormatAndSave(path, task.outputformat, report);
    description += path + ";";
    return true;
}

} // namespace

TFuncRes convertedAsLists(const TConvMea& task)
{
    const TFuncRes refused{-1, task.path_in, task.path_in, {}};
    const int format = formatOpticMea_to_int(task.inputformat);
    if (format == formatUnknown) {
        return {-1, "unknown input format", "format_in", {}};
    }
    Tracks tracks;
    try {
        tracks = readTracks(format, task.path_in, task.originator);
    } catch (...) {
        return refused;
    }
    for (TrackVtorichka& track : tracks) {
        track.REFERENCE_FRAME = task.REFERENCE_FRAME;
        track.telescope = task.PARTICIPANT_1;
        track.originator = task.originator;
        track.QRVName = track.NORAD.empty() ? track.QRVName : track.NORAD;
    }
    if (task.autoname && !hasFirstMark(tracks)) {
        return refused;
    }
    const std::string name = task.autoname ? CreateAutoName(tracks[0], task.PARTICIPANT_1, tracks[0].QRVName)
                                           : ExtractOnlyFileName(task.path_in);
    const std::string path = task.out_dir + name + task.outputextension;
    if (path == task.path_in) {
        return {-3, "input file = output file", task.path_in + " = " + path, {}};
    }
    SelectFormatAndSave(path, task.outputformat, tracks);
    return GetErrCode(0, path);
}

TFuncRes reportedAsLists(const TConvMea& task)
{
    if (task.paths.empty()) {
        return {-1, "OK", "paths.size() == 0", {}};
    }
    TFuncRes result{0, "OK", "", {}};
    Numbers numbers;
    Lists series;
    for (const TSeria2& seria : task.paths) {
        series.push_back(readSeries(seria, task, numbers));
    }
    if (task.whatSave == "object") {
        if (task.object < 0 || task.object >= static_cast<int>(series[0].size())) {
            result.Code = -1;
            return result;
        }
        const TrackVtorichka kept = series[0][static_cast<std::size_t>(task.object)];
        series = Lists{Tracks{kept}};
    }
    Lists reports = reportsOf(series, task, result.Code);
    for (std::size_t number = 0; number < reports.size(); ++number) {
        if (!writeReport(reports[number], number, task, result.Description)) {
            result.Code = -1;
        }
    }
    return result;
}
