// Settings of the pipeline's output: light curves and the report to the Minor Planet Center.

#pragma once

#include "../export.h"
#include "../records/enumerations.h"
#include "../records/track.h"

#include <string>

namespace TAVELIN_API tavelinUtils {

/// Light curves: aperture and observer code.
struct TCurves
{
    std::string InstrBrightFolderPath{};
    TApertureSize SetApertureSize = TApertureSize::ByRadius;
    double ApertureSize = 5.0;
    double ApertureSizeByFWHM = 1.5;
    bool CurvesFlag = false; ///< no key
    std::string AAVSOCode = "CODEAAVSO";
};

/// The report to the Minor Planet Center.
struct TMPC
{
    TMPCReportHeader MPCHeader{};
    std::string NumberingTracksInZoneMask1{};
    std::string NumberingTracksInZoneMask2{};
};

} // namespace tavelinUtils
