// The two works of the tool on lists, plain and slow: every list is held whole, every step is done for all
// tracks before the next begins. What a run is to give, whichever way its tracks take.

#pragma once

#include "results/result.h"
#include "task.h"

/// A conversion: reads all tracks, stamps them, names the output, compares the paths, writes.
tavelinUtils::TFuncRes convertedAsLists(const tavelinUtils::TConvMea& task);

/// A report: reads and stamps all series, divides all tracks, writes file after file.
tavelinUtils::TFuncRes reportedAsLists(const tavelinUtils::TConvMea& task);
