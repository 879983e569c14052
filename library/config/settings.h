// The settings of a series (Porogs: thresholds): names of its folders and files, telescope and site, report.

#pragma once

#include "files/series_names.h"
#include "records/track.h"

#include <string>

namespace tavelinUtils {

/// Telescope and site.
struct TBasicSettings
{
    double PixelWidth = 0; ///< millimetres
    double PixelHeight = 0;
    double FocalLength = 0;
    double PixelScale = 0;
    std::string Telescope = "telescope";
    std::string Filter{};
    std::string Observatory = "observatory";
    bool UseBinningFromHeader = false;
    double Latitude = 0;
    double Longitude = 0;
    double Altitude = 0;
    bool SiteKnown = false; ///< whether Longitude or Latitude is not 0
};

/// The report to the Minor Planet Center.
struct TMPC
{
    TMPCReportHeader MPCHeader{};
    std::string NumberingTracksInZoneMask1{};
    std::string NumberingTracksInZoneMask2{};
};

/// The settings that the pipeline's modules get their names and thresholds from.
struct TPorogs
{
    TSubfolders subfolders{};
    TOutput output{};
    TExtension extension{};
    TBasicSettings basicSettings{};
    TMPC mpc{};
};

} // namespace tavelinUtils
