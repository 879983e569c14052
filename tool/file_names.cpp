#include "file_names.h"

#include "files/essentials.h"
#include "text/date_text.h"

using tavelinUtils::TConvMea;
using tavelinUtils::TrackVtorichka;

namespace {

using Tracks = std::vector<TrackVtorichka>;

bool hasFirstMark(const Tracks& tracks)
{
    return !tracks.empty() && !tracks.front().Marks.empty();
}

// A part of a path, counted from its end, 1 for the last; nothing where the path has fewer parts.
std::optional<std::string> partFromEnd(const std::string& path, std::size_t fromEnd)
{
    std::vector<std::string> parts;
    tavelinUtils::Pars9(path, parts, tavelinUtils::Slash);
    if (parts.size() < fromEnd) {
        return std::nullopt;
    }
    return parts[parts.size() - fromEnd];
}

} // namespace

std::string CreateAutoName(const TrackVtorichka& track, std::string telescope, std::string name)
{
    double mjd = 0;
    if (!track.Marks.empty()) {
        const auto& first = track.Marks.front();
        mjd = first.date + first.time;
    }
    const std::string exact = tavelinUtils::MJDToDateTime(mjd, "-", "-", "T", 1);
    const std::string time = exact.substr(0, exact.find('.'));
    return telescope + "-" + name + "-" + time + "-" + track.Series;
}

std::optional<std::string> conversionPath(const TConvMea& task, const Tracks& tracks)
{
    std::string name = tavelinUtils::ExtractOnlyFileName(task.path_in);
    if (task.autoname) {
        if (!hasFirstMark(tracks)) {
            return std::nullopt;
        }
        name = CreateAutoName(tracks.front(), task.PARTICIPANT_1, tracks.front().QRVName);
    }
    // No point is added: the extension of a conversion brings its own.
    return task.out_dir + name + task.outputextension;
}

std::optional<std::string> objectName(const Tracks& report)
{
    return report.empty() ? std::nullopt : std::optional(report.front().QRVName);
}

std::optional<std::string> seriesFolderName(const TConvMea& task, std::size_t number)
{
    constexpr std::size_t seriesFolder = 4;
    return number < task.paths.size() ? partFromEnd(task.paths[number].path, seriesFolder) : std::nullopt;
}

std::string outputFolderName(const TConvMea& task)
{
    return partFromEnd(task.out_dir, 1).value_or("");
}

std::optional<std::string> reportPath(const TConvMea& task, const Tracks& report,
                                      const std::optional<std::string>& baseName)
{
    if (!baseName || (task.longname && !hasFirstMark(report))) {
        return std::nullopt;
    }
    const std::string name =
        task.longname ? CreateAutoName(report.front(), report.front().telescope, *baseName) : *baseName;
    // The point is added here: the extension of a report is bare.
    return task.out_dir + name + "." + task.outputextension;
}
