// Light curve tasks, which stars to measure against which, and the note that goes with a light curve.

#pragma once

#include "../config/settings.h"
#include "../export.h"
#include "../records/blob.h"
#include "../records/photo_blob.h"

#include <string>
#include <utility>
#include <vector>

namespace TAVELIN_API tavelinUtils {

/// A star to be measured; its positions in degrees.
struct TInvestObj
{
    std::string name{};
    std::vector<double> ra{};
    std::vector<double> de{};
};

/// A comparison star; its position in degrees, and its magnitudes by filter.
struct TCompareStar
{
    std::string name{};
    double ra = 0;
    double de = 0;
    std::vector<std::pair<std::string, double>> filters{};
};

/// A light curve task. The two guards are 0 in a new record; a star is taken only while its guard is.
struct TLCTask
{
    int guardResearch = 0;
    int guardComparison = 0;
    std::vector<TInvestObj> research{};
    std::vector<TCompareStar> comparison{};
    std::string series{};
    std::string telescope{};
    std::string type{};
    std::string magType = "DIF";
};

/// The time system that the note of a light curve names.
struct TReportVS
{
    std::string TimeSystem{};
};

/// Reads a light curve task; a new record for a file that is missing or cannot be loaded. Positions are
/// sexagesimal or decimal texts.
TLCTask lLCTask(std::string path);

/// Replaces the file by the note of a light curve. 0 where it was saved, 1 where not.
int sHeadLightCurve(std::string path, const TPorogs& porogs, const THeadBlobs& frame,
                    const TLocPhotoBlob& target, const TLocPhotoBlob& comparison, const TLCTask& task,
                    TReportVS& report);

} // namespace tavelinUtils
