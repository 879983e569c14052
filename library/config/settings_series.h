// Settings of a series: telescope and site, the spellings of frame headers, on-line processing, paths.

#pragma once

#include "../export.h"
#include "../records/enumerations.h"

#include <string>
#include <vector>

namespace TAVELIN_API tavelinUtils {

/// The other programs of the pipeline and outside tools; the members are named after their keys.
struct TExe
{
    std::string FindOrb{};
    std::string Java{};
};

/// Paths of the running module, from its own parameter file.
struct TInput
{
    std::string PathLog{};
};

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

/// The names that frame headers give to the filters of each band, one list for each group of names.
struct TFiltersID
{
    std::vector<std::vector<std::string>> R{};
    std::vector<std::vector<std::string>> V{};
    std::vector<std::vector<std::string>> B{};
    std::vector<std::vector<std::string>> I{};
};

/// The FITS header keywords that may carry a value, several spellings for each.
struct THeaderKeys
{
    std::vector<std::string> ObservationDate{};
    std::vector<std::string> ObservationTime{};
    std::vector<std::string> ExposureTime{};
    std::vector<std::string> Telescope{};
    std::vector<std::string> Filter{};
    std::vector<std::string> RA{};
    std::vector<std::string> DE{};
    std::vector<std::string> FocalLength{};
    std::vector<std::string> PixelWidth{};
    std::vector<std::string> PixelHeight{};
    std::vector<std::string> Temperature{};
    std::vector<std::string> ImageType{};
    std::vector<std::string> Aperture{};
    std::vector<std::string> Instrument{};
    std::vector<std::string> Altitude{};
    std::vector<std::string> Latitude{};
    std::vector<std::string> Longitude{};
    std::vector<std::string> Observer{};
    std::vector<std::string> XBIN{};
    std::vector<std::string> YBIN{};
};

/// On-line processing.
struct TZunek
{
    double QuidanceError = 0.2;
    bool AddDate = false;
    bool AddObject = false;
    bool AddFilter = false;
    bool AddRADE = false;
    bool AddCamera = false;
    bool IsSeriesFormed = false;
    TTypeNextFormation WaitLastFrame{2}; ///< 2 means no known word
    double WaitLastFrameTime = 3.0;
    int SubseriesCount = 0;
    bool SaveTableBlob = false;
};

} // namespace tavelinUtils
