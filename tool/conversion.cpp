#include "conversion.h"

#include "file_names.h"
#include "format_words.h"
#include "results/code_table.h"

#include <optional>
#include <utility>

using tavelinUtils::GetErrCode;
using tavelinUtils::TConvMea;
using tavelinUtils::TFuncRes;
using tavelinUtils::TrackVtorichka;

namespace {

namespace resultCode = tavelinUtils::resultCode;

// The values of the task replace those of the file, even with an empty text.
void stamp(TrackVtorichka& track, const TConvMea& task)
{
    track.REFERENCE_FRAME = task.REFERENCE_FRAME;
    track.telescope = task.PARTICIPANT_1;
    track.originator = task.originator;
    if (!track.NORAD.empty()) {
        track.QRVName = track.NORAD;
    }
}

// The tracks of the input, stamped.
NextTrack stampedSource(const TConvMea& task, const Works& works)
{
    return
        [&task, next = works.source(task.inputformat, task.path_in, task.originator)](TrackVtorichka& track) {
            const bool hasTrack = next(track);
            if (hasTrack) {
                stamp(track, task);
            }
            return hasTrack;
        };
}

// The input path is the comment too: no sentence about the format reaches the log.
TFuncRes unusableInput(const TConvMea& task)
{
    return {resultCode::runFailed, task.path_in, task.path_in, {}};
}

// Names the output after the first track and writes all.
TFuncRes writeOutput(TrackFlow& tracks, const TConvMea& task, const Works& works)
{
    const std::optional<std::string> output = conversionPath(task, tracks.first());
    if (!output) {
        return unusableInput(task);
    }
    if (*output == task.path_in) {
        return {resultCode::outputIsInput, "input file = output file", task.path_in + " = " + *output, {}};
    }
    tracks.writeTo(works.sink(*output, task.outputformat));
    return GetErrCode(resultCode::success, *output); // the run reports the path it tried
}

} // namespace

TFuncRes converter(const TConvMea& task, const Works& works)
{
    if (formatOpticMea_to_int(task.inputformat) == formatUnknown) {
        return {resultCode::runFailed, "unknown input format", "format_in", {}};
    }
    TrackVtorichka track;
    std::optional<TrackFlow> tracks;
    try {
        tracks.emplace(track, stampedSource(task, works)); // all that a reader throws is thrown here
    } catch (...) {
        return unusableInput(task);
    }
    return writeOutput(*tracks, task, works);
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
    return converter(task);
}
