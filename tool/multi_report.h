// The multi-series report: the tracks of several series, each with its own settings, written in one work.

#pragma once

#include "results/result.h"
#include "task.h"
#include "works.h"

/// Reads the series of the task, stamps their tracks with the settings of the series and of the task, gives
/// unidentified objects running numbers as names, divides the tracks among files and writes these.
///
/// The description of the result lists the paths that were tried, each followed by ";". Code -1, with the
/// comment "OK", if the task has no series ("paths.size() == 0"), if the one object asked for does not exist,
/// and if a name needs a track, a mark or a part of a path that is missing: that file is then left out, and
/// the next one is written. Exceptions of a writer are passed on; a series with an empty path throws
/// std::out_of_range.
tavelinUtils::TFuncRes CreateMultiReport(const tavelinUtils::TConvMea& task);

/// The same with sources, settings and sinks of the caller's choice.
tavelinUtils::TFuncRes CreateMultiReport(const tavelinUtils::TConvMea& task, const Works& works);
