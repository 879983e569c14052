// The settings of a series (Porogs: thresholds): names, places and numbers for the modules of the pipeline.
//
// A member is named by its key in the configuration, and its initialiser is the key's default, which is given
// nowhere else. So a new record and one read from an empty file are the same.

#pragma once

#include "../export.h"
#include "../files/series_names.h"
#include "../records/enumerations.h"
#include "settings_frames.h"
#include "settings_objects.h"
#include "settings_reports.h"
#include "settings_series.h"

#include <string>

namespace TAVELIN_API tavelinUtils {

/// All settings and thresholds. Large: pass it by reference.
struct TPorogs
{
    TSubfolders subfolders{};
    TOutput output{};
    TExtension extension{};
    TExe exe{};
    TBasicSettings basicSettings{};
    TFiltersID filtersID{};
    THeaderKeys headerKeys{};
    TZunek zunek{};
    TInput input{};
    TMPC mpc{};
    TMasterFrame masterFrame{};
    TCurves curves{};
    TFitt fitt{};
    TQRVDIntraframeThresh intraThresh{};
    TAstro astro{};
    TDevPhoto devPhoto{};
    TVO vo{};
    TInterIC interIC{};
    TInterSat interSat{};
    TStacking stacking{};
    std::string Version{};
    TService Service = TService::unknown;
};

} // namespace tavelinUtils
