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

// Fills the tracks with those of the input, stamped; none where the format is only written. False where the
// reader throws.
bool readInput(const FormatWord& input, const TConvMea& task, std::vector<TrackVtorichka>& tracks)
{
    tracks.clear();
    if (input.read != nullptr) {
        try {
            tracks = input.read(task.path_in, task.originator);
        } catch (...) {
            return false;
        }
    }
    for (TrackVtorichka& track : tracks) {
        stamp(track, task);
    }
    return true;
}

// The input path is the comment too: no sentence about the format reaches the log.
TFuncRes unusableInput(const TConvMea& task)
{
    return {resultCode::runFailed, task.path_in, task.path_in, {}};
}

} // namespace

TFuncRes converter(const TConvMea& task, std::vector<TrackVtorichka>& tracks)
{
    const FormatWord* const input = formatWord(formatOpticMea_to_int(task.inputformat));
    if (input == nullptr) {
        return {resultCode::runFailed, "unknown input format", "format_in", {}};
    }
    if (!readInput(*input, task, tracks)) {
        return unusableInput(task);
    }
    const std::optional<std::string> output = conversionPath(task, tracks);
    if (!output) {
        return unusableInput(task);
    }
    if (*output == task.path_in) {
        return {resultCode::outputIsInput, "input file = output file", task.path_in + " = " + *output, {}};
    }
    SelectFormatAndSave(*output, task.outputformat, tracks); // the run reports the path it tried
    return GetErrCode(resultCode::success, *output);
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
