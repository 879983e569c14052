#include "file_names.h"

#include "files/essentials.h"
#include "text/date_text.h"

#include <vector>

using tavelinUtils::TConvMea;
using tavelinUtils::TrackVtorichka;

namespace {

bool hasFirstMark(const TrackVtorichka* track)
{
    return track != nullptr && !track->Marks.empty();
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

std::string outputFolder(const TConvMea& task)
{
    std::string folder = task.out_dir;
    if (folder.empty() || !tavelinUtils::DirectoryExists(folder)) {
        return tavelinUtils::ExtractPath(task.path_in) + tavelinUtils::Slash;
    }
    tavelinUtils::AddSlash(folder, tavelinUtils::Slash);
    return folder;
}

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

std::optional<std::string> conversionPath(const TConvMea& task, const TrackVtorichka* first)
{
    std::string name = tavelinUtils::ExtractOnlyFileName(task.path_in);
    if (task.autoname) {
        if (!hasFirstMark(first)) {
            return std::nullopt;
        }
        name = CreateAutoName(*first, task.PARTICIPANT_1, first->QRVName);
    }
    // No point is added: the extension of a conversion brings its own.
    return task.out_dir + name + task.outputextension;
}

std::optional<std::string> objectName(const TrackVtorichka* first)
{
    return first == nullptr ? std::nullopt : std::optional(first->QRVName);
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

std::optional<std::string> reportPath(const TConvMea& task, const TrackVtorichka* first,
                                      const std::optional<std::string>& baseName)
{
    if (!baseName || (task.longname && !hasFirstMark(first))) {
        return std::nullopt;
    }
    const std::string name = task.longname ? CreateAutoName(*first, first->telescope, *baseName) : *baseName;
    // The point is added here: the extension of a report is bare.
    return task.out_dir + name + "." + task.outputextension;
}
