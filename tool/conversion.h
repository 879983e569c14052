// The single conversion: one measurement file in one format into another.

#pragma once

#include "records/track.h"
#include "results/result.h"
#include "task.h"

#include <string>
#include <vector>

/// Reads path_in, stamps the task's names on the tracks and writes them to out_dir + name +
/// outputextension, simply joined. The name is that of the input, or with `autoname` that of CreateAutoName
/// for the first track.
///
/// The result tells which path was tried: code 0 and the output path also where the output word is unknown
/// or has nothing to write. Code -1 for an unknown input word, for a reader that raised an exception and
/// for `autoname` without a first mark; code -3 where the output path equals path_in. What a writer throws
/// is passed on.
tavelinUtils::TFuncRes converter(std::string path_in, std::string out_dir, std::string outputextension,
                                 std::string inputformat, std::string outputformat, std::string originator,
                                 std::string REFERENCE_FRAME, std::string PARTICIPANT_1, bool autoname);

/// The same with the values of a task and with tracks that the caller owns, so that a run may leave them
/// to the system.
tavelinUtils::TFuncRes converter(const tavelinUtils::TConvMea& task,
                                 std::vector<tavelinUtils::TrackVtorichka>& tracks);

/// The automatic file name, without folder and extension: telescope, name, date and time of the first mark
/// and the track's Series with "-" between them, "T1-1234-2023-02-25T12-00-00-R". A track without marks
/// gives the time of MJD 0.
std::string CreateAutoName(const tavelinUtils::TrackVtorichka& track, std::string telescope,
                           std::string name);

/// Takes excluded marks out, entry by entry: an entry's indices count in the marks that the entries before
/// it left. A mark with the code "bad_parts" goes with the first entry for its track, also one without
/// indices. Tracks and marks that do not exist are passed over. The lists beside the marks keep their
/// length.
void DeleteBlobs(const std::vector<tavelinUtils::TExcludBlobs>& excludes,
                 std::vector<tavelinUtils::TrackVtorichka>& tracks);
