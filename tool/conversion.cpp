#include "conversion.h"

#include "files/essentials.h"
#include "format_words.h"
#include "results/code_table.h"
#include "text/date_text.h"

#include <cstddef>
#include <utility>

using tavelinUtils::GetErrCode;
using tavelinUtils::TConvMea;
using tavelinUtils::TExcludBlobs;
using tavelinUtils::TFuncRes;
using tavelinUtils::TrackVtorichka;

namespace {

namespace resultCode = tavelinUtils::resultCode;

TFuncRes handMade(int code, std::string comment, std::string description)
{
    return TFuncRes{code, std::move(comment), std::move(description), {}};
}

// What the file said gives way to the task, also to an empty text.
void stamp(TrackVtorichka& track, const TConvMea& task)
{
    track.REFERENCE_FRAME = task.REFERENCE_FRAME;
    track.telescope = task.PARTICIPANT_1;
    track.originator = task.originator;
    if (!track.NORAD.empty()) {
        track.QRVName = track.NORAD;
    }
}

bool hasFirstMark(const std::vector<TrackVtorichka>& tracks)
{
    return !tracks.empty() && !tracks.front().Marks.empty();
}

} // namespace

TFuncRes converter(const TConvMea& task, std::vector<TrackVtorichka>& tracks)
{
    const FormatWord* const input = formatWord(formatOpticMea_to_int(task.inputformat));
    if (input == nullptr) {
        return handMade(resultCode::runFailed, "unknown input format", "format_in");
    }
    tracks.clear();
    if (input->read != nullptr) {
        try {
            tracks = input->read(task.path_in, task.originator);
        } catch (...) {
            // The comment is the path too; a sentence about the format does not reach the log.
            return handMade(resultCode::runFailed, task.path_in, task.path_in);
        }
    }
    for (TrackVtorichka& track : tracks) {
        stamp(track, task);
    }
    std::string name = tavelinUtils::ExtractOnlyFileName(task.path_in);
    if (task.autoname) {
        if (!hasFirstMark(tracks)) {
            return handMade(resultCode::runFailed, task.path_in, task.path_in);
        }
        name = CreateAutoName(tracks.front(), task.PARTICIPANT_1, tracks.front().QRVName);
    }
    // No point is put between: the extension of a task carries its own.
    const std::string output = task.out_dir + name + task.outputextension;
    if (output == task.path_in) {
        return handMade(resultCode::outputIsInput, "input file = output file", task.path_in + " = " + output);
    }
    SelectFormatAndSave(output, task.outputformat, tracks); // the run reports the path it tried
    return GetErrCode(resultCode::success, output);
}

TFuncRes converter(std::string path_in, std::string out_dir, std::string outputextension,
                   std::string inputformat, std::string outputformat, std::string originator,
                   std::string REFERENCE_FRAME, std::string PARTICIPANT_1, bool autoname)
{
    TConvMea task;
    task.path_in = std::move(path_in);
    task.out_dir = std::move(out_dir);
    task.outputextension = std::move(outputextension);
    task.inputformat = std::move(inputformat);
    task.outputformat = std::move(outputformat);
    task.originator = std::move(originator);
    task.REFERENCE_FRAME = std::move(REFERENCE_FRAME);
    task.PARTICIPANT_1 = std::move(PARTICIPANT_1);
    task.autoname = autoname;
    std::vector<TrackVtorichka> tracks;
    return converter(task, tracks);
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

void DeleteBlobs(const std::vector<TExcludBlobs>& excludes, std::vector<TrackVtorichka>& tracks)
{
    constexpr auto excluded = tavelinUtils::BlobCode::bad_parts;
    for (const TExcludBlobs& entry : excludes) {
        if (entry.object < 0 || static_cast<std::size_t>(entry.object) >= tracks.size()) {
            continue;
        }
        auto& marks = tracks[static_cast<std::size_t>(entry.object)].Marks;
        for (const int blob : entry.blobs) {
            if (blob >= 0 && static_cast<std::size_t>(blob) < marks.size()) {
                marks[static_cast<std::size_t>(blob)].BlobCode = excluded;
            }
        }
        std::erase_if(marks, [](const auto& mark) { return mark.BlobCode == excluded; });
    }
}
