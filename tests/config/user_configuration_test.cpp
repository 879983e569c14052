#include "config/user_configuration.h"

#include "support/places.h"
#include "support/results.h"
#include "support/settings_rows.h"
#include "support/temporary_folder.h"
#include "support/user_configurations.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>

using namespace tavelinUtils;

namespace {

/// The content within an element for each name of the place, one inside the other.
std::string elementsAround(const std::string& place, const std::string& content)
{
    const std::size_t slash = place.find('/');
    const std::string name = place.substr(0, slash);
    return "<" + name + ">" +
           (slash == std::string::npos ? content : elementsAround(place.substr(slash + 1), content)) + "</" +
           name + ">";
}

struct LoneKey
{
    const char* place;   ///< sections and key
    const char* content; ///< of the key
    const char* member;
    const char* text; ///< of the member
};

constexpr LoneKey loneKeys[] = {
    {"basicSettings/PixelWidth", "9.0", "basicSettings.PixelWidth", "0.009"},
    {"basicSettings/PixelHeight", "7.4", "basicSettings.PixelHeight", "0.0074"},
    {"basicSettings/FocalLength", "1200.5", "basicSettings.FocalLength", "1200.5"},
    {"basicSettings/PixelScale", "1.55", "basicSettings.PixelScale", "1.55"},
    {"basicSettings/Telescope", "Schmidt 1", "basicSettings.Telescope", "Schmidt 1"},
    {"basicSettings/Filter", "Clear", "basicSettings.Filter", "Clear"},
    {"basicSettings/Observatory", "Dark Hill", "basicSettings.Observatory", "Dark Hill"},
    {"basicSettings/UseBinningFromHeader", "true", "basicSettings.UseBinningFromHeader", "true"},
    {"basicSettings/Latitude", "-30.1674", "basicSettings.Latitude", "-30.1674"},
    {"basicSettings/Longitude", "289.1934", "basicSettings.Longitude", "289.1934"},
    {"basicSettings/Altitude", "2207.5", "basicSettings.Altitude", "2207.5"},
    {"ZUNEK/QuidanceError", "0.35", "zunek.QuidanceError", "0.35"},
    {"ZUNEK/AddDate", "true", "zunek.AddDate", "true"},
    {"ZUNEK/AddObject", "true", "zunek.AddObject", "true"},
    {"ZUNEK/AddFilter", "true", "zunek.AddFilter", "true"},
    {"ZUNEK/AddRADE", "true", "zunek.AddRADE", "true"},
    {"ZUNEK/AddCamera", "true", "zunek.AddCamera", "true"},
    {"ZUNEK/IsSeriesFormed", "true", "zunek.IsSeriesFormed", "true"},
    {"ZUNEK/WaitLastFrame", "ByCount", "zunek.WaitLastFrame", "1"},
    {"ZUNEK/WaitLastFrameTime", "4.25", "zunek.WaitLastFrameTime", "4.25"},
    {"ZUNEK/SubseriesCount", "17", "zunek.SubseriesCount", "17"},
    {"ZUNEK/SaveTableBlob", "true", "zunek.SaveTableBlob", "true"},
    {"ReportSettings/MPCReport/MPCcode", "W84", "mpc.MPCHeader.COD", "W84"},
    {"ReportSettings/MPCReport/CON", "A. Contact, 1 Hill Road", "mpc.MPCHeader.CON",
     "A. Contact, 1 Hill Road"},
    {"ReportSettings/MPCReport/OBS", "B. Observer", "mpc.MPCHeader.OBS", "B. Observer"},
    {"ReportSettings/MPCReport/MEA", "C. Measurer", "mpc.MPCHeader.MEA", "C. Measurer"},
    {"ReportSettings/MPCReport/TEL", "0.4-m reflector + CCD", "mpc.MPCHeader.TEL", "0.4-m reflector + CCD"},
    {"ReportSettings/MPCReport/ACK", "night 7", "mpc.MPCHeader.ACK", "night 7"},
    {"ReportSettings/MPCReport/AC2", "a@b.example", "mpc.MPCHeader.AC2", "a@b.example"},
    {"ReportSettings/MPCReport/IsMagnitudeValueToReport", "false", "mpc.MPCHeader.HeaderOn", "false"},
    {"ReportSettings/MPCReport/IsImprovedAccuracy", "true", "mpc.MPCHeader.HeaderFlag2", "true"},
    {"ReportSettings/MPCReport/NumberingTracksInZoneMask1", "AB####", "mpc.NumberingTracksInZoneMask1",
     "AB####"},
    {"ReportSettings/MPCReport/NumberingTracksInZoneMask2", "CD%%%", "mpc.NumberingTracksInZoneMask2",
     "CD%%%"},
    {"intraframeProcessing/brightnessFramesAlignment/UseMasterBias", "true", "masterFrame.UseMasterBias",
     "true"},
    {"intraframeProcessing/brightnessFramesAlignment/UseMasterDark", "true", "masterFrame.UseMasterDark",
     "true"},
    {"intraframeProcessing/brightnessFramesAlignment/UseMasterDarkFlat", "true",
     "masterFrame.UseMasterDarkFlat", "true"},
    {"intraframeProcessing/brightnessFramesAlignment/UseMasterFlat", "true", "masterFrame.UseMasterFlat",
     "true"},
    {"intraframeProcessing/brightnessFramesAlignment/UseFHF", "true", "masterFrame.UseFHF", "true"},
    {"intraframeProcessing/brightnessFramesAlignment/UseCommonFolder", "true", "masterFrame.UseCommonFolder",
     "true"},
    {"intraframeProcessing/brightnessFramesAlignment/ProcessingRawBias",
     "<path>bias/1.fit</path><path>bias/2.fit</path>", "masterFrame.ProcessingRawBias",
     "[bias/1.fit|bias/2.fit]"},
    {"intraframeProcessing/brightnessFramesAlignment/ProcessingRawDark", "<path>dark/1.fit</path>",
     "masterFrame.ProcessingRawDark", "[dark/1.fit]"},
    {"intraframeProcessing/brightnessFramesAlignment/ProcessingRawDarkFlat",
     "<path>darkflat/1.fit</path><path>darkflat/2.fit</path><path>darkflat/3.fit</path>",
     "masterFrame.ProcessingRawDarkFlat", "[darkflat/1.fit|darkflat/2.fit|darkflat/3.fit]"},
    {"intraframeProcessing/brightnessFramesAlignment/ProcessingRawFlat",
     "<path>flat one.fit</path><path>flat two.fit</path>", "masterFrame.ProcessingRawFlat",
     "[flat one.fit|flat two.fit]"},
    {"intraframeProcessing/brightnessFramesAlignment/ProcessingRawFolder", "raw frames",
     "masterFrame.ProcessingRawFolder", "raw frames"},
    {"intraframeProcessing/brightnessFramesAlignment/IgnoreTimeFactor", "true",
     "masterFrame.IgnoreTimeFactor", "true"},
    {"intraframeProcessing/brightnessFramesAlignment/ExposureAutoDetermination", "true",
     "masterFrame.ExposureAutoDetermination", "true"},
    {"intraframeProcessing/brightnessFramesAlignment/HorizontalBandsFilter", "true",
     "masterFrame.HorizontalBandsFilter", "true"},
    {"intraframeProcessing/brightnessFramesAlignment/BinningCoefficient", "6",
     "masterFrame.BinningCoefficient", "6"},
    {"intraframeProcessing/brightnessFramesAlignment/MedianWindow", "31", "masterFrame.MedianWindow", "31"},
    {"lightCurves/InstrBrightFolderPath", "curves/instrument", "curves.InstrBrightFolderPath",
     "curves/instrument"},
    {"lightCurves/SetApertureSize", "ByFWHM", "curves.SetApertureSize", "2"},
    {"lightCurves/ApertureSize", "6.5", "curves.ApertureSize", "6.5"},
    {"lightCurves/ApertureSizeByFWHM", "2.25", "curves.ApertureSizeByFWHM", "2.25"},
    {"lightCurves/AAVSOCode", "DERA", "curves.AAVSOCode", "DERA"},
    {"intraframeProcessing/artifactsFilter/HotPixels", "11.5", "fitt.HotPixels", "11.5"},
    {"intraframeProcessing/artifactsFilter/NegativePixels", "-12.5", "fitt.NegativePixels", "-12.5"},
    {"intraframeProcessing/artifactsFilter/IsDetect", "true", "fitt.IsDetect", "true"},
    {"intraframeProcessing/ImageDetection/FittingType", "DiffFrame", "fitt.FittingType", "3"},
    {"intraframeProcessing/ImageDetection/DetectionAtEqualityPixels", "8", "fitt.DetectionAtEqualityPixels",
     "8"},
    {"intraframeProcessing/ImageDetection/snrPeakPointObject", "2.75", "fitt.snrPeakPointObject", "2.75"},
    {"intraframeProcessing/ImageDetection/snrPeakStrokeStar", "3.75", "fitt.snrPeakStrokeStar", "3.75"},
    {"intraframeProcessing/ImageDetection/CorrelationResponse", "2.625", "fitt.CorrelationResponse", "2.625"},
    {"intraframeProcessing/ImageDetection/DoNotSelectStarsOnFrame", "(1;2-30;40)(5;6-70;80)",
     "fitt.DoNotSelectStarsOnFrame", "[(1;2-30;40)(5;6-70;80)]"},
    {"intraframeProcessing/ImageDetection/AreaWithBadImages", "(100;200-300;400)", "fitt.AreaWithBadImages",
     "[(100;200-300;400)]"},
    {"intraframeProcessing/DifferenceFrame/filter", "median", "intraThresh.filter", "median"},
    {"intraframeProcessing/DifferenceFrame/numberMedianFrames", "9", "intraThresh.numberMedianFrames", "9"},
    {"intraframeProcessing/DifferenceFrame/numberSkipFrames", "2", "intraThresh.numberSkipFrames", "2"},
    {"intraframeProcessing/DifferenceFrame/sigmaFit", "1.125", "intraThresh.sigmaFit", "1.125"},
    {"intraframeProcessing/DifferenceFrame/nSigmaNegative", "5.5", "intraThresh.nSigmaNegative", "5.5"},
    {"intraframeProcessing/DifferenceFrame/threshLengthSegment", "51.5", "intraThresh.threshLengthSegment",
     "51.5"},
    {"intraframeProcessing/DifferenceFrame/threshNumPixSegment", "301", "intraThresh.threshNumPixSegment",
     "301"},
    {"intraframeProcessing/DifferenceFrame/snrPeak", "2.875", "intraThresh.snrPeak", "2.875"},
    {"intraframeProcessing/DifferenceFrame/SNRNeNormCorrelationResponse", "2.9",
     "intraThresh.SNRNeNormCorrelationResponse", "2.9"},
    {"intraframeProcessing/DifferenceFrame/combineRadius", "2.1", "intraThresh.combineRadius", "2.1"},
    {"intraframeProcessing/DifferenceFrame/threshRMSContour", "1.2", "intraThresh.threshRMSContour", "1.2"},
    {"intraframeProcessing/DifferenceFrame/threshRMSContourPlato", "1.3", "intraThresh.threshRMSContourPlato",
     "1.3"},
    {"Identification/astroPhotoMetryCatalogs/INetAstrometric", "GAIA2", "astro.INetAstrometric", "7"},
    {"Identification/astroPhotoMetryCatalogs/INetPhotometric", "AAVSOvsp", "astro.INetPhotometric", "12"},
    {"Identification/astroPhotoMetry/XCropInitialAstro", "13", "astro.XCropInitialAstro", "13"},
    {"Identification/astroPhotoMetry/YCropInitialAstro", "14", "astro.YCropInitialAstro", "14"},
    {"Identification/astroPhotoMetry/MarksFromFrame", "150", "astro.MarksFromFrame", "150"},
    {"Identification/astroPhotoMetry/PercentOfMatching", "65", "astro.PercentOfMatching", "65"},
    {"Identification/astroPhotoMetry/StarsResearch", "7.5", "astro.StarsResearch", "7.5"},
    {"Identification/astroPhotoMetry/DifferentBetweenAngles", "0.15", "astro.DifferentBetweenAngles", "0.15"},
    {"Identification/astroPhotoMetry/DistanceTo3DVertex", "1.75", "astro.DistanceTo3DVertex", "1.75"},
    {"Identification/astroPhotoMetry/AstrometryReductionDegree", "5", "astro.AstrometryReductionDegree", "5"},
    {"Identification/astroPhotoMetry/StarsRejectionThreshold", "3.3", "astro.StarsRejectionThreshold", "3.3"},
    {"Identification/astroPhotoMetry/CriticalSNR3forMeasurements", "4.4", "astro.CriticalSNR3forMeasurements",
     "4.4"},
    {"Identification/astroPhotoMetry/FragmentsNumber", "16", "astro.FragmentsNumber", "16"},
    {"Identification/astroPhotoMetry/MinPixelScale", "0.25", "astro.MinPixelScale", "0.25"},
    {"Identification/astroPhotoMetry/MaxPixelScale", "90.5", "astro.MaxPixelScale", "90.5"},
    {"Identification/astroPhotoMetry/use_astrometry_net", "true", "astro.use_astrometry_net", "true"},
    {"interframeasteroids/mpc_ident_angle", "16.5", "vo.mpc_ident_angle", "16.5"},
    {"interframeasteroids/mpc_load_mag", "21.5", "vo.mpc_load_mag", "21.5"},
    {"interframeasteroids/thresh_find_orb", "1.4", "vo.thresh_find_orb", "1.4"},
    {"interframeasteroids/use_find_orb", "true", "vo.use_find_orb", "true"},
    {"interframeasteroids/DoDetectionSlow", "true", "vo.DoDetectionSlow", "true"},
    {"interframeasteroids/DoDetectionHough", "true", "vo.DoDetectionHough", "true"},
    {"interframeasteroids/DoDetectionFast", "true", "vo.DoDetectionFast", "true"},
    {"interframeasteroids/MakeTracksOnFrames", "1-4;7", "vo.MakeTracksOnFrames", "1-4;7"},
    {"interframeasteroids/DispersionThresholdsResid", "0.41", "vo.DispersionThresholdsResid", "0.41"},
    {"interframeasteroids/DispersionThresholdsSumResid", "0.42", "vo.DispersionThresholdsSumResid", "0.42"},
    {"interframeasteroids/DispersionThresholdsMagnitudeDisp", "0.43", "vo.DispersionThresholdsMagnitudeDisp",
     "0.43"},
    {"interframeasteroids/ThresholdFSignificance", "0.44", "vo.ThresholdFSignificance", "0.44"},
    {"interframeasteroids/ThresholdSNR3segment", "0.45", "vo.ThresholdSNR3segment", "0.45"},
    {"interframeasteroids/VelocityPointThreshold2", "0.46", "vo.VelocityPointThreshold2", "0.46"},
    {"interframeasteroids/VelocityPointThreshold3", "0.47", "vo.VelocityPointThreshold3", "0.47"},
    {"interframeasteroids/TypeSpeedLimit", "ArcsecPerMin", "vo.TypeSpeedLimit", "1"},
    {"interframeasteroids/speedlimit", "210.5", "vo.speedlimit", "210.5"},
    {"interframeasteroids/confstrobe", "11.25", "vo.confstrobe", "11.25"},
    {"interframeasteroids/rms_angle", "22.5", "vo.rms_angle", "22.5"},
    {"interframeasteroids/corr_meaangle_traangle", "180.5", "vo.corr_meaangle_traangle", "180.5"},
    {"interframeasteroids/snr_segment", "2.2", "vo.snr_segment", "2.2"},
    {"interframeasteroids/snr_peak", "2.3", "vo.snr_peak", "2.3"},
    {"interframeasteroids/dispersion_xy", "1.35", "vo.dispersion_xy", "1.35"},
    {"interframeasteroids/dispersion_mag", "1.6", "vo.dispersion_mag", "1.6"},
    {"interframeasteroids/only_stroke", "false", "vo.only_stroke", "false"},
    {"interframeasteroids/allow_plato", "false", "vo.allow_plato", "false"},
    {"interframeasteroids/DmThreshold", "2.45", "interIC.DmThreshold", "2.45"},
    {"interframeasteroids/RadiusOfFixidity", "2.55", "interIC.RadiusOfFixidity", "2.55"},
    {"interframeasteroids/MakeICFromFrames", "2-9", "interIC.MakeICFromFrames", "2-9"},
    {"interframesatellites/DoDetectionGEO", "true", "interSat.DoDetectionGEO", "true"},
    {"interframesatellites/DoDetectionLEO", "true", "interSat.DoDetectionLEO", "true"},
    {"interframesatellites/deltaSpeedSat", "5.25", "interSat.deltaSpeedSat", "5.25"},
    {"interframesatellites/VelocityFast", "220.5", "interSat.VelocityFast", "220.5"},
    {"interframesatellites/maxSpeedHough", "33.5", "interSat.maxSpeedHough", "33.5"},
    {"interframesatellites/minSpeedHough", "2.05", "interSat.minSpeedHough", "2.05"},
    {"interframesatellites/identification_radius_leo", "4.75", "interSat.identification_radius_leo", "4.75"},
    {"interframesatellites/identification_radius_geo", "6.25", "interSat.identification_radius_geo", "6.25"},
    {"autoframestacking/run_stacking", "false", "stacking.run_stacking", "false"},
    {"autoframestacking/subseries_autodetermination", "false", "stacking.subseries_autodetermination",
     "false"},
    {"autoframestacking/search_objects", "true", "stacking.search_objects", "true"},
    {"autoframestacking/useAllFrames", "false", "stacking.useAllFrames", "false"},
    {"autoframestacking/subseries_time_coefficient", "5.75", "stacking.subseries_time_coefficient", "5.75"},
    {"autoframestacking/userSubseries", "12", "stacking.userSubseries", "12"},
    {"autoframestacking/rangeX", "18", "stacking.rangeX", "18"},
    {"autoframestacking/rangeY", "19", "stacking.rangeY", "19"},
    {"autoframestacking/horizon_request", "false", "stacking.horizon_request", "false"},
    {"autoframestacking/pa", "45.5", "stacking.pa", "45.5"},
    {"autoframestacking/velocity", "0.75", "stacking.velocity", "0.75"},
    {"autoframestacking/rms_x", "0.55", "stacking.rms_x", "0.55"},
    {"autoframestacking/rms_xy", "0.77", "stacking.rms_xy", "0.77"},
    {"autoframestacking/rms_m", "1.1", "stacking.rms_m", "1.1"},
    {"autoframestacking/snr_peak", "3.5", "stacking.snr_peak", "3.5"},
    {"Version", "2.5 beta", "Version", "2.5 beta"},
    {"Service", "variablestars", "Service", "3"},
};

constexpr const char* sections[] = {
    "basicSettings",
    "ZUNEK",
    "intraframeProcessing",
    "intraframeProcessing/artifactsFilter",
    "intraframeProcessing/ImageDetection",
    "intraframeProcessing/DifferenceFrame",
    "intraframeProcessing/brightnessFramesAlignment",
    "Identification",
    "Identification/astroPhotoMetryCatalogs",
    "Identification/astroPhotoMetry",
    "interframeasteroids",
    "interframesatellites",
    "autoframestacking",
    "lightCurves",
    "ReportSettings",
    "ReportSettings/MPCReport",
    "HeaderSettings",
    "HeaderSettings/headerKeys",
    "HeaderSettings/headerKeys/key",
    "HeaderSettings/filterKeys",
    "TLEs",
    "TLEs/TLE",
};

} // namespace

// Beside the keys of the table: lists, and members that follow from a key.
TEST(UserConfiguration, EveryKeyOfEverySection)
{
    TPorogs porogs;
    expectResult(LoadUserConfXML(fixture("configuration/every_key.conf"), porogs, true), 0, "OK", "OK", {});
    SettingRows differences{
        {"basicSettings.SiteKnown", "true"},
        {"filtersID.R", "[[Rc|R_c][r]]"},
        {"filtersID.V", "[[V][]]"},
        {"filtersID.B", "[[Bj|Johnson B][b]]"},
        {"filtersID.I", "[[Ic][i|I_c]]"},
        {"headerKeys.ObservationDate", "[DATE-OBS|DATE]"},
        {"headerKeys.ObservationTime", "[TIME-OBS|UT]"},
        {"headerKeys.ExposureTime", "[EXPTIME|EXPOSURE]"},
        {"headerKeys.Telescope", "[TELESCOP]"},
        {"headerKeys.Filter", "[FILTER|FILTER1]"},
        {"headerKeys.RA", "[OBJCTRA|RA]"},
        {"headerKeys.DE", "[OBJCTDEC|DEC]"},
        {"headerKeys.FocalLength", "[FOCALLEN]"},
        {"headerKeys.PixelWidth", "[XPIXSZ|PIXSIZE1]"},
        {"headerKeys.PixelHeight", "[YPIXSZ|PIXSIZE2]"},
        {"headerKeys.Temperature", "[CCD-TEMP]"},
        {"headerKeys.ImageType", "[IMAGETYP|OBSTYPE]"},
        {"headerKeys.Aperture", "[APTDIA]"},
        {"headerKeys.Instrument", "[INSTRUME]"},
        {"headerKeys.Altitude", "[SITEELEV|ALT-OBS]"},
        {"headerKeys.Latitude", "[SITELAT|LAT-OBS]"},
        {"headerKeys.Longitude", "[SITELONG|LONG-OBS]"},
        {"headerKeys.Observer", "[OBSERVER]"},
        {"headerKeys.XBIN", "[XBINNING|CCDXBIN]"},
        {"headerKeys.YBIN", "[YBINNING|CCDYBIN|YBIN]"},
        {"astro.CoefficientsNumber", "21"},
        {"interSat.TLEs", "[0 SAT ONE|1 00001U one|2 00001 one][0 SAT TWO|1 00002U two|2 00002 two]"},
    };
    for (const LoneKey& key : loneKeys) {
        differences.push_back({key.member, key.text});
    }
    expectDefaultsBut(porogs, differences);
}

// A key that also fills a neighbour's member fails here and not above.
TEST(UserConfiguration, AKeyFillsItsMemberAlone)
{
    for (const LoneKey& key : loneKeys) {
        SCOPED_TRACE(key.place);
        SettingRows differences{{key.member, key.text}};
        const std::string member = key.member;
        if (member == "basicSettings.Latitude" || member == "basicSettings.Longitude") {
            differences.push_back({"basicSettings.SiteKnown", "true"});
        } else if (member == "astro.AstrometryReductionDegree") {
            differences.push_back({"astro.CoefficientsNumber", "21"});
        } else if (member.rfind("masterFrame.ProcessingRaw", 0) == 0 &&
                   member != "masterFrame.ProcessingRawFolder") {
            differences = {}; // an unused kind of master frame has no raw frames
        }
        expectDefaultsBut(loaded(elementsAround(key.place, key.content)), differences);
    }
}

TEST(UserConfiguration, AnEmptyKeyIsAMissingOne)
{
    for (const LoneKey& key : loneKeys) {
        SCOPED_TRACE(key.place);
        expectDefaultsBut(loaded(elementsAround(key.place, "")), {});
        expectDefaultsBut(loaded(elementsAround(key.place, "  ")), {});
    }
}

TEST(UserConfiguration, AKeyInAnotherPlaceIsNotRead)
{
    for (const LoneKey& key : loneKeys) {
        SCOPED_TRACE(key.place);
        expectDefaultsBut(loaded(elementsAround("other/" + std::string(key.place), key.content)), {});
        const std::string place = key.place;
        const std::size_t slash = place.rfind('/');
        if (slash != std::string::npos) {
            expectDefaultsBut(loaded(elementsAround(place.substr(slash + 1), key.content)), {});
        }
    }
}

TEST(UserConfiguration, NamesOfKeysAreComparedWithCase)
{
    expectDefaultsBut(loaded("<version>2</version><service>asteroids</service>"
                             "<BasicSettings><Telescope>T</Telescope></BasicSettings>"
                             "<basicSettings><telescope>T</telescope></basicSettings>"
                             "<lightcurves><AAVSOCode>ABC</AAVSOCode></lightcurves>"),
                      {});
}

TEST(UserConfiguration, AnEmptySectionIsAMissingOne)
{
    for (const char* section : sections) {
        SCOPED_TRACE(section);
        expectDefaultsBut(loaded(elementsAround(section, "")), {});
    }
}

TEST(UserConfiguration, ATextThatIsNoNumberIsZero)
{
    expectDefaultsBut(
        loaded("<lightCurves><ApertureSize>wide</ApertureSize></lightCurves>"
               "<Identification><astroPhotoMetry><FragmentsNumber>four</FragmentsNumber>"
               "<XCropInitialAstro>12abc</XCropInitialAstro>"
               "<YCropInitialAstro>7.9</YCropInitialAstro>"
               "<MaxPixelScale>90,5</MaxPixelScale></astroPhotoMetry></Identification>"
               "<autoframestacking><rangeX>1e3</rangeX><rangeY>-2</rangeY></autoframestacking>"),
        {{"curves.ApertureSize", "0"},
         {"astro.FragmentsNumber", "0"},
         {"astro.XCropInitialAstro", "12"},
         {"astro.YCropInitialAstro", "7"},
         {"astro.MaxPixelScale", "90"},
         {"stacking.rangeX", "1"},
         {"stacking.rangeY", "-2"}});
}

// 4294967299 is 3 in 32 bits, and 65538 is 2 in 16.
TEST(UserConfiguration, LargeIntegersAreCut)
{
    expectDefaultsBut(loaded("<Identification><astroPhotoMetry><FragmentsNumber>4294967299</FragmentsNumber>"
                             "<AstrometryReductionDegree>65538</AstrometryReductionDegree>"
                             "</astroPhotoMetry></Identification>"),
                      {{"astro.FragmentsNumber", "3"}, {"astro.AstrometryReductionDegree", "2"}});
}

TEST(UserConfiguration, OnlyTheWordTrueIsTrue)
{
    for (const char* word : {"TRUE", "True", "1", "yes", "true ", " true", "false", "0"}) {
        SCOPED_TRACE(word);
        const TPorogs porogs = loaded("<autoframestacking><run_stacking>" + std::string(word) +
                                      "</run_stacking></autoframestacking>");
        EXPECT_FALSE(porogs.stacking.run_stacking);
    }
    EXPECT_TRUE(loaded("<autoframestacking><run_stacking>true</run_stacking></autoframestacking>")
                    .stacking.run_stacking);
}

TEST(UserConfiguration, WordsOfTheService)
{
    const struct
    {
        const char* word;
        int number;
    } rows[] = {
        {"asteroids", 1},        {"satellites", 2}, {"variablestars", 3}, {"alignment", 4},
        {"identification", 5},   {"airfly", 6},     {"Asteroids", 0},     {" asteroids", 0},
        {"Service_Uncknown", 0}, {"1", 0},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.word);
        TPorogs porogs;
        porogs.Service = TService::alignment;
        EXPECT_EQ(load("<Service>" + std::string(row.word) + "</Service>", porogs).Code, 0);
        EXPECT_EQ(static_cast<int>(porogs.Service), row.number);
    }
}

TEST(UserConfiguration, AMissingServiceIsAnUnknownOne)
{
    for (const char* inside : {"", "<Service/>", "<Service></Service>", "<Service><![CDATA[]]></Service>"}) {
        SCOPED_TRACE(inside);
        TPorogs porogs;
        porogs.Service = TService::satellites;
        EXPECT_EQ(load(inside, porogs).Code, 0);
        EXPECT_EQ(static_cast<int>(porogs.Service), 0);
    }
}

TEST(UserConfiguration, AMissingVersionLeavesTheText)
{
    for (const char* inside : {"", "<Version/>", "<Version></Version>"}) {
        SCOPED_TRACE(inside);
        TPorogs porogs;
        porogs.Version = "1.7";
        EXPECT_EQ(load(inside, porogs).Code, 0);
        EXPECT_EQ(porogs.Version, "1.7");
    }
}

TEST(UserConfiguration, OfTwoKeysTheFirstCounts)
{
    expectDefaultsBut(loaded("<Version>1</Version><Version>2</Version>"
                             "<Service>airfly</Service><Service>asteroids</Service>"
                             "<lightCurves><AAVSOCode>A</AAVSOCode><AAVSOCode>B</AAVSOCode></lightCurves>"),
                      {{"Version", "1"}, {"Service", "6"}, {"curves.AAVSOCode", "A"}});
}

TEST(UserConfiguration, OfTwoSectionsTheFirstCounts)
{
    const std::string first = "<basicSettings><Telescope>T1</Telescope></basicSettings>"
                              "<ZUNEK><SubseriesCount>1</SubseriesCount></ZUNEK>"
                              "<Identification/>"
                              "<interframeasteroids><snr_peak>1.5</snr_peak></interframeasteroids>"
                              "<interframesatellites/>"
                              "<autoframestacking><pa>1</pa></autoframestacking>"
                              "<lightCurves/>"
                              "<ReportSettings><MPCReport><OBS>A</OBS></MPCReport>"
                              "<MPCReport><OBS>B</OBS><MEA>B</MEA></MPCReport></ReportSettings>"
                              "<HeaderSettings/><TLEs/>";
    const std::string second =
        "<basicSettings><Telescope>T2</Telescope><Filter>R</Filter></basicSettings>"
        "<ZUNEK><SubseriesCount>2</SubseriesCount><AddDate>true</AddDate></ZUNEK>"
        "<Identification><astroPhotoMetry><FragmentsNumber>9</FragmentsNumber>"
        "</astroPhotoMetry></Identification>"
        "<interframeasteroids><DmThreshold>9</DmThreshold></interframeasteroids>"
        "<interframesatellites><VelocityFast>9</VelocityFast></interframesatellites>"
        "<autoframestacking><velocity>9</velocity></autoframestacking>"
        "<lightCurves><AAVSOCode>B</AAVSOCode></lightCurves>"
        "<ReportSettings><MPCReport><MPCcode>Z99</MPCcode></MPCReport></ReportSettings>"
        "<HeaderSettings><headerKeys><key name=\"RA\"><string>RA</string></key></headerKeys>"
        "</HeaderSettings>"
        "<TLEs><TLE><Line0>0 A</Line0></TLE></TLEs>";
    expectDefaultsBut(loaded(first + second), {{"basicSettings.Telescope", "T1"},
                                               {"zunek.SubseriesCount", "1"},
                                               {"vo.snr_peak", "1.5"},
                                               {"stacking.pa", "1"},
                                               {"mpc.MPCHeader.OBS", "A"}});
}

TEST(UserConfiguration, SectionsOfDetectionAreReadInTurn)
{
    expectDefaultsBut(
        loaded("<intraframeProcessing>"
               "<artifactsFilter><HotPixels>1</HotPixels><NegativePixels>2</NegativePixels></artifactsFilter>"
               "<ImageDetection><FittingType>Stroke</FittingType><AreaWithBadImages>(1;2-3;4)</"
               "AreaWithBadImages>"
               "<CorrelationResponse>7</CorrelationResponse></ImageDetection>"
               "<DifferenceFrame><filter>a</filter><sigmaFit>3</sigmaFit></DifferenceFrame>"
               "<brightnessFramesAlignment><MedianWindow>3</MedianWindow></brightnessFramesAlignment>"
               "</intraframeProcessing>"
               "<lightCurves/>"
               "<intraframeProcessing>"
               "<artifactsFilter><HotPixels>5</HotPixels><IsDetect>true</IsDetect></artifactsFilter>"
               "<DifferenceFrame><sigmaFit>4</sigmaFit><combineRadius>9</combineRadius></DifferenceFrame>"
               "<brightnessFramesAlignment><MedianWindow>9</MedianWindow><UseFHF>true</UseFHF>"
               "</brightnessFramesAlignment>"
               "</intraframeProcessing>"
               "<intraframeProcessing>"
               "<ImageDetection><CorrelationResponse>8</CorrelationResponse>"
               "<AreaWithBadImages>(5;6-7;8)</AreaWithBadImages></ImageDetection>"
               "</intraframeProcessing>"),
        {{"fitt.HotPixels", "5"},
         {"fitt.NegativePixels", "2"},
         {"fitt.IsDetect", "true"},
         {"fitt.FittingType", "2"},
         {"fitt.CorrelationResponse", "8"},
         {"fitt.AreaWithBadImages", "[(5;6-7;8)]"},
         {"intraThresh.filter", "a"},
         {"intraThresh.sigmaFit", "4"},
         {"intraThresh.combineRadius", "9"},
         {"masterFrame.MedianWindow", "3"}}); // that record comes from the first section alone
}

TEST(UserConfiguration, TheDegreeGivesTheNumberOfCoefficients)
{
    const struct
    {
        const char* degree;
        int number;
    } rows[] = {
        {"1", 3},  {"3", 10}, {"5", 21},   {"0", 77},  {"2", 77},     {"4", 77},
        {"6", 77}, {"7", 77}, {"-1", 77},  {"-3", 77}, {"first", 77}, {"3rd", 10},
        {"", 77},  {" ", 77}, {" 5 ", 21}, {"10", 77}, {"65537", 3}, // 65537 is 1 in 16 bits
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.degree);
        TPorogs porogs;
        porogs.astro.CoefficientsNumber = 77;
        EXPECT_EQ(load("<Identification><astroPhotoMetry><AstrometryReductionDegree>" +
                           std::string(row.degree) +
                           "</AstrometryReductionDegree></astroPhotoMetry></Identification>",
                       porogs)
                      .Code,
                  0);
        EXPECT_EQ(porogs.astro.CoefficientsNumber, row.number);
    }
}

TEST(UserConfiguration, ALaterLoadOfAnotherDegreeKeepsTheNumberOfCoefficients)
{
    const auto withDegree = [](const std::string& degree) {
        return elementsAround("Identification/astroPhotoMetry/AstrometryReductionDegree", degree);
    };
    TPorogs porogs;
    EXPECT_EQ(load(withDegree("3"), porogs).Code, 0);
    EXPECT_EQ(porogs.astro.CoefficientsNumber, 10);
    EXPECT_EQ(load(withDegree("2"), porogs).Code, 0);
    EXPECT_EQ(porogs.astro.AstrometryReductionDegree, 2);
    EXPECT_EQ(porogs.astro.CoefficientsNumber, 10);
    EXPECT_EQ(load("", porogs).Code, 0);
    EXPECT_EQ(porogs.astro.AstrometryReductionDegree, 0);
    EXPECT_EQ(porogs.astro.CoefficientsNumber, 10);
    EXPECT_EQ(load(withDegree("5"), porogs).Code, 0);
    EXPECT_EQ(porogs.astro.CoefficientsNumber, 21);
    EXPECT_EQ(load(withDegree("1"), porogs).Code, 0);
    EXPECT_EQ(porogs.astro.CoefficientsNumber, 3);
}

TEST(UserConfiguration, UnusedKindsOfMasterFramesHaveNoRawFrames)
{
    const std::string lists = "<ProcessingRawBias><path>b</path></ProcessingRawBias>"
                              "<ProcessingRawDark><path>d</path></ProcessingRawDark>"
                              "<ProcessingRawDarkFlat><path>df</path></ProcessingRawDarkFlat>"
                              "<ProcessingRawFlat><path>f</path></ProcessingRawFlat>";
    const struct
    {
        const char* use;
        const char* member;
        const char* text;
    } kinds[] = {
        {"UseMasterBias", "masterFrame.ProcessingRawBias", "[b]"},
        {"UseMasterDark", "masterFrame.ProcessingRawDark", "[d]"},
        {"UseMasterDarkFlat", "masterFrame.ProcessingRawDarkFlat", "[df]"},
        {"UseMasterFlat", "masterFrame.ProcessingRawFlat", "[f]"},
    };
    const std::string place = "intraframeProcessing/brightnessFramesAlignment";
    expectDefaultsBut(loaded(elementsAround(place, lists)), {});
    for (const auto& kind : kinds) {
        SCOPED_TRACE(kind.use);
        const std::string use = std::string("masterFrame.") + kind.use;
        expectDefaultsBut(loaded(elementsAround(place, lists + elementsAround(kind.use, "true"))),
                          {{use, "true"}, {kind.member, kind.text}});
        expectDefaultsBut(loaded(elementsAround(place, lists + elementsAround(kind.use, "false"))), {});
        expectDefaultsBut(loaded(elementsAround(place, lists + elementsAround(kind.use, "1"))), {});
    }
    // Common folders and the other switches keep no list.
    expectDefaultsBut(loaded(elementsAround(place, lists + "<UseCommonFolder>true</UseCommonFolder>"
                                                           "<UseFHF>true</UseFHF>")),
                      {{"masterFrame.UseCommonFolder", "true"}, {"masterFrame.UseFHF", "true"}});
}

TEST(UserConfiguration, ElementSetsAreReadOnlyWhereAskedFor)
{
    const std::string sets = "<TLEs><TLE><Line0>0 A</Line0><Line1>1 A</Line1><Line2>2 A</Line2></TLE></TLEs>";
    expectDefaultsBut(loaded(sets, true), {{"interSat.TLEs", "[0 A|1 A|2 A]"}});
    expectDefaultsBut(loaded(sets, false), {});
}

TEST(UserConfiguration, ElementSetsOfAnEarlierLoadAreGone)
{
    TPorogs porogs;
    porogs.interSat.TLEs = {{"0 OLD", "1 OLD", "2 OLD"}};
    EXPECT_EQ(load("<TLEs><TLE><Line0>0 A</Line0></TLE></TLEs>", porogs, false).Code, 0);
    EXPECT_EQ(settingText(porogs.interSat.TLEs), "[]");
    porogs.interSat.TLEs = {{"0 OLD", "1 OLD", "2 OLD"}};
    EXPECT_EQ(load("<TLEs><TLE><Line0>0 A</Line0></TLE></TLEs>", porogs, true).Code, 0);
    EXPECT_EQ(settingText(porogs.interSat.TLEs), "[0 A||]");
}

TEST(UserConfiguration, BadAreasOfAWrongShapeAreLeftOutWithoutAWord)
{
    TPorogs porogs;
    expectResult(load("<intraframeProcessing><ImageDetection>"
                      "<DoNotSelectStarsOnFrame>(1;2-3;4)(5;6)(7;8-9;10)</DoNotSelectStarsOnFrame>"
                      "<AreaWithBadImages>all of it</AreaWithBadImages>"
                      "</ImageDetection></intraframeProcessing>",
                      porogs),
                 0, "OK", "OK", {});
    expectDefaultsBut(porogs, {{"fitt.DoNotSelectStarsOnFrame", "[(1;2-3;4)(7;8-9;10)]"}});
}
