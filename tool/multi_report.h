// The multi-series report: the track tables of several series, each with its own settings, in one work.

#pragma once

#include "report_divisions.h"
#include "results/result.h"
#include "task.h"

#include <vector>

/// Reads the series of the task, stamps their tracks with the settings of the series and of the task, names
/// unidentified objects by running numbers, divides the tracks among files and writes these.
///
/// The description of the result lists the paths that were tried, each with ";" behind it. Code -1, with
/// the comment "OK", where the task has no series ("paths.size() == 0"), where the one object asked for does
/// not exist, and where a name needs a track, a mark or a part of a path that is missing: the entry is then
/// left out, and the next is taken. What a writer throws is passed on, and so is std::out_of_range for a
/// series with an empty path.
tavelinUtils::TFuncRes CreateMultiReport(const tavelinUtils::TConvMea& task);

/// The same with lists of tracks that the caller owns, so that a run may leave them to the system.
tavelinUtils::TFuncRes CreateMultiReport(const tavelinUtils::TConvMea& task, std::vector<TrackList>& reports);
