// The multi-series report: the track tables of several series in one work.

#pragma once

#include "results/result.h"
#include "task.h"

/// Answers the word "vomar". The report is not part of this version: code 3, with the word as description,
/// and nothing is written.
tavelinUtils::TFuncRes CreateMultiReport(const tavelinUtils::TConvMea& task);
