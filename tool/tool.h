// The operations of the tool, and the library's names in their signatures, all in the global namespace.

#pragma once

#include "conversion.h"
#include "exclusions.h"
#include "file_names.h"
#include "format_words.h"
#include "math/quick_sort.h"
#include "multi_report.h"
#include "records/track.h"
#include "results/code_table.h"
#include "results/result.h"
#include "task.h"

using tavelinUtils::GetErrCode;
using tavelinUtils::GetSeriaAndObjects;
using tavelinUtils::GetTextCode;
using tavelinUtils::ltaskconv;
using tavelinUtils::mycomp;
using tavelinUtils::SortTrackByName;
using tavelinUtils::TavelinException;
using tavelinUtils::TConvMea;
using tavelinUtils::TExcludBlobs;
using tavelinUtils::TFuncRes;
using tavelinUtils::TrackVtorichka;
using tavelinUtils::TSeria2;
