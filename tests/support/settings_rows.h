// Settings of a test as rows of name and text, so that one expectation sees every member.

#pragma once

#include "config/settings.h"

#include <gtest/gtest.h>

#include <charconv>
#include <cstddef>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

/// The members of settings in their order: name of the record and of the member, and the member's text.
using SettingRows = std::vector<std::pair<std::string, std::string>>;

/// Texts as they stand, numbers in the shortest form that reads back as the same, words as their numbers.
template <class Value>
std::string settingText(const Value& value)
{
    if constexpr (std::is_same_v<Value, std::string>) {
        return value;
    } else if constexpr (std::is_same_v<Value, bool>) {
        return value ? "true" : "false";
    } else if constexpr (std::is_enum_v<Value>) {
        return std::to_string(static_cast<int>(value));
    } else {
        char digits[64];
        const std::to_chars_result end = std::to_chars(digits, digits + sizeof digits, value);
        return std::string(digits, end.ptr);
    }
}

/// A list: "[]", or "[a|b]".
template <class Item>
std::string settingText(const std::vector<Item>& items)
{
    std::string text = "[";
    for (std::size_t i = 0; i < items.size(); ++i) {
        text += (i == 0 ? "" : "|") + settingText(items[i]);
    }
    return text + "]";
}

/// A list of lists: "[]", or "[[a|b][c]]".
inline std::string settingText(const std::vector<std::vector<std::string>>& lists)
{
    std::string text = "[";
    for (const std::vector<std::string>& list : lists) {
        text += settingText(list);
    }
    return text + "]";
}

/// Rectangles: "[]", or "[(1;2-3;4)(5;6-7;8)]".
inline std::string settingText(const std::vector<tavelinUtils::TBadAreaFrame>& areas)
{
    std::string text = "[";
    for (const tavelinUtils::TBadAreaFrame& area : areas) {
        text += "(" + std::to_string(area.X1) + ";" + std::to_string(area.Y1) + "-" +
                std::to_string(area.X2) + ";" + std::to_string(area.Y2) + ")";
    }
    return text + "]";
}

/// Element sets: "[]", or the three lines of each, "[a|b|c][d|e|f]".
inline std::string settingText(const std::vector<tavelinUtils::TTLEstr>& sets)
{
    std::string text;
    for (const tavelinUtils::TTLEstr& set : sets) {
        text += "[" + set.Line0 + "|" + set.Line1 + "|" + set.Line2 + "]";
    }
    return sets.empty() ? "[]" : text;
}

/// Every member of the settings.
inline SettingRows settingRows(const tavelinUtils::TPorogs& porogs)
{
    return {
        {"subfolders.tavelinFolder", settingText(porogs.subfolders.tavelinFolder)},
        {"subfolders.cosmFolder", settingText(porogs.subfolders.cosmFolder)},
        {"subfolders.dataPOFolder", settingText(porogs.subfolders.dataPOFolder)},
        {"subfolders.dataVOFolder", settingText(porogs.subfolders.dataVOFolder)},
        {"subfolders.dataFolder", settingText(porogs.subfolders.dataFolder)},
        {"subfolders.mfitsFolder", settingText(porogs.subfolders.mfitsFolder)},
        {"subfolders.logsFolder", settingText(porogs.subfolders.logsFolder)},
        {"subfolders.lightcurvesFolder", settingText(porogs.subfolders.lightcurvesFolder)},
        {"subfolders.lctasksFolder", settingText(porogs.subfolders.lctasksFolder)},
        {"subfolders.tmpFolder", settingText(porogs.subfolders.tmpFolder)},
        {"subfolders.reportsFolder", settingText(porogs.subfolders.reportsFolder)},
        {"subfolders.tempUnpackFolder", settingText(porogs.subfolders.tempUnpackFolder)},
        {"subfolders.packFolder", settingText(porogs.subfolders.packFolder)},
        {"subfolders.stackTmpFolder", settingText(porogs.subfolders.stackTmpFolder)},
        {"subfolders.stackedFolder", settingText(porogs.subfolders.stackedFolder)},
        {"subfolders.vomarFolder", settingText(porogs.subfolders.vomarFolder)},
        {"subfolders.vomarLogsFolder", settingText(porogs.subfolders.vomarLogsFolder)},
        {"subfolders.vomarConfFolder", settingText(porogs.subfolders.vomarConfFolder)},
        {"output.processLog", settingText(porogs.output.processLog)},
        {"output.objLightcurveQrv", settingText(porogs.output.objLightcurveQrv)},
        {"output.objAavsoVsp", settingText(porogs.output.objAavsoVsp)},
        {"output.objVarstarsVsx", settingText(porogs.output.objVarstarsVsx)},
        {"output.objAsteroidsQrv", settingText(porogs.output.objAsteroidsQrv)},
        {"output.objAsteroidsMpc", settingText(porogs.output.objAsteroidsMpc)},
        {"output.objSatellitesQrv", settingText(porogs.output.objSatellitesQrv)},
        {"output.objSatellitesCat", settingText(porogs.output.objSatellitesCat)},
        {"output.rptAsteroidsMpcAuto", settingText(porogs.output.rptAsteroidsMpcAuto)},
        {"output.representative", settingText(porogs.output.representative)},
        {"output.vkInd", settingText(porogs.output.vkInd)},
        {"extension.stepPrefix", settingText(porogs.extension.stepPrefix)},
        {"extension.fqrvPrefix", settingText(porogs.extension.fqrvPrefix)},
        {"extension.stepSuperPrefix", settingText(porogs.extension.stepSuperPrefix)},
        {"extension.pixobjExt", settingText(porogs.extension.pixobjExt)},
        {"extension.fittingblobExt", settingText(porogs.extension.fittingblobExt)},
        {"extension.binExt", settingText(porogs.extension.binExt)},
        {"extension.tableblobExt", settingText(porogs.extension.tableblobExt)},
        {"extension.hotExt", settingText(porogs.extension.hotExt)},
        {"extension.coldExt", settingText(porogs.extension.coldExt)},
        {"extension.resultExt", settingText(porogs.extension.resultExt)},
        {"extension.wcsxmlExt", settingText(porogs.extension.wcsxmlExt)},
        {"exe.FindOrb", settingText(porogs.exe.FindOrb)},
        {"exe.Java", settingText(porogs.exe.Java)},
        {"basicSettings.PixelWidth", settingText(porogs.basicSettings.PixelWidth)},
        {"basicSettings.PixelHeight", settingText(porogs.basicSettings.PixelHeight)},
        {"basicSettings.FocalLength", settingText(porogs.basicSettings.FocalLength)},
        {"basicSettings.PixelScale", settingText(porogs.basicSettings.PixelScale)},
        {"basicSettings.Telescope", settingText(porogs.basicSettings.Telescope)},
        {"basicSettings.Filter", settingText(porogs.basicSettings.Filter)},
        {"basicSettings.Observatory", settingText(porogs.basicSettings.Observatory)},
        {"basicSettings.UseBinningFromHeader", settingText(porogs.basicSettings.UseBinningFromHeader)},
        {"basicSettings.Latitude", settingText(porogs.basicSettings.Latitude)},
        {"basicSettings.Longitude", settingText(porogs.basicSettings.Longitude)},
        {"basicSettings.Altitude", settingText(porogs.basicSettings.Altitude)},
        {"basicSettings.SiteKnown", settingText(porogs.basicSettings.SiteKnown)},
        {"filtersID.R", settingText(porogs.filtersID.R)},
        {"filtersID.V", settingText(porogs.filtersID.V)},
        {"filtersID.B", settingText(porogs.filtersID.B)},
        {"filtersID.I", settingText(porogs.filtersID.I)},
        {"headerKeys.ObservationDate", settingText(porogs.headerKeys.ObservationDate)},
        {"headerKeys.ObservationTime", settingText(porogs.headerKeys.ObservationTime)},
        {"headerKeys.ExposureTime", settingText(porogs.headerKeys.ExposureTime)},
        {"headerKeys.Telescope", settingText(porogs.headerKeys.Telescope)},
        {"headerKeys.Filter", settingText(porogs.headerKeys.Filter)},
        {"headerKeys.RA", settingText(porogs.headerKeys.RA)},
        {"headerKeys.DE", settingText(porogs.headerKeys.DE)},
        {"headerKeys.FocalLength", settingText(porogs.headerKeys.FocalLength)},
        {"headerKeys.PixelWidth", settingText(porogs.headerKeys.PixelWidth)},
        {"headerKeys.PixelHeight", settingText(porogs.headerKeys.PixelHeight)},
        {"headerKeys.Temperature", settingText(porogs.headerKeys.Temperature)},
        {"headerKeys.ImageType", settingText(porogs.headerKeys.ImageType)},
        {"headerKeys.Aperture", settingText(porogs.headerKeys.Aperture)},
        {"headerKeys.Instrument", settingText(porogs.headerKeys.Instrument)},
        {"headerKeys.Altitude", settingText(porogs.headerKeys.Altitude)},
        {"headerKeys.Latitude", settingText(porogs.headerKeys.Latitude)},
        {"headerKeys.Longitude", settingText(porogs.headerKeys.Longitude)},
        {"headerKeys.Observer", settingText(porogs.headerKeys.Observer)},
        {"headerKeys.XBIN", settingText(porogs.headerKeys.XBIN)},
        {"headerKeys.YBIN", settingText(porogs.headerKeys.YBIN)},
        {"zunek.QuidanceError", settingText(porogs.zunek.QuidanceError)},
        {"zunek.AddDate", settingText(porogs.zunek.AddDate)},
        {"zunek.AddObject", settingText(porogs.zunek.AddObject)},
        {"zunek.AddFilter", settingText(porogs.zunek.AddFilter)},
        {"zunek.AddRADE", settingText(porogs.zunek.AddRADE)},
        {"zunek.AddCamera", settingText(porogs.zunek.AddCamera)},
        {"zunek.IsSeriesFormed", settingText(porogs.zunek.IsSeriesFormed)},
        {"zunek.WaitLastFrame", settingText(porogs.zunek.WaitLastFrame)},
        {"zunek.WaitLastFrameTime", settingText(porogs.zunek.WaitLastFrameTime)},
        {"zunek.SubseriesCount", settingText(porogs.zunek.SubseriesCount)},
        {"zunek.SaveTableBlob", settingText(porogs.zunek.SaveTableBlob)},
        {"input.PathLog", settingText(porogs.input.PathLog)},
        {"mpc.MPCHeader.COD", settingText(porogs.mpc.MPCHeader.COD)},
        {"mpc.MPCHeader.CON", settingText(porogs.mpc.MPCHeader.CON)},
        {"mpc.MPCHeader.OBS", settingText(porogs.mpc.MPCHeader.OBS)},
        {"mpc.MPCHeader.MEA", settingText(porogs.mpc.MPCHeader.MEA)},
        {"mpc.MPCHeader.COM", settingText(porogs.mpc.MPCHeader.COM)},
        {"mpc.MPCHeader.TEL", settingText(porogs.mpc.MPCHeader.TEL)},
        {"mpc.MPCHeader.ACK", settingText(porogs.mpc.MPCHeader.ACK)},
        {"mpc.MPCHeader.AC2", settingText(porogs.mpc.MPCHeader.AC2)},
        {"mpc.MPCHeader.NET", settingText(porogs.mpc.MPCHeader.NET)},
        {"mpc.MPCHeader.HeaderOn", settingText(porogs.mpc.MPCHeader.HeaderOn)},
        {"mpc.MPCHeader.HeaderFlag2", settingText(porogs.mpc.MPCHeader.HeaderFlag2)},
        {"mpc.NumberingTracksInZoneMask1", settingText(porogs.mpc.NumberingTracksInZoneMask1)},
        {"mpc.NumberingTracksInZoneMask2", settingText(porogs.mpc.NumberingTracksInZoneMask2)},
        {"masterFrame.UseMasterBias", settingText(porogs.masterFrame.UseMasterBias)},
        {"masterFrame.UseMasterDark", settingText(porogs.masterFrame.UseMasterDark)},
        {"masterFrame.UseMasterDarkFlat", settingText(porogs.masterFrame.UseMasterDarkFlat)},
        {"masterFrame.UseMasterFlat", settingText(porogs.masterFrame.UseMasterFlat)},
        {"masterFrame.UseFHF", settingText(porogs.masterFrame.UseFHF)},
        {"masterFrame.UseCommonFolder", settingText(porogs.masterFrame.UseCommonFolder)},
        {"masterFrame.ProcessingRawBias", settingText(porogs.masterFrame.ProcessingRawBias)},
        {"masterFrame.ProcessingRawDark", settingText(porogs.masterFrame.ProcessingRawDark)},
        {"masterFrame.ProcessingRawDarkFlat", settingText(porogs.masterFrame.ProcessingRawDarkFlat)},
        {"masterFrame.ProcessingRawFlat", settingText(porogs.masterFrame.ProcessingRawFlat)},
        {"masterFrame.ProcessingRawFolder", settingText(porogs.masterFrame.ProcessingRawFolder)},
        {"masterFrame.IgnoreTimeFactor", settingText(porogs.masterFrame.IgnoreTimeFactor)},
        {"masterFrame.ExposureAutoDetermination", settingText(porogs.masterFrame.ExposureAutoDetermination)},
        {"masterFrame.HorizontalBandsFilter", settingText(porogs.masterFrame.HorizontalBandsFilter)},
        {"masterFrame.BinningCoefficient", settingText(porogs.masterFrame.BinningCoefficient)},
        {"masterFrame.MedianWindow", settingText(porogs.masterFrame.MedianWindow)},
        {"curves.InstrBrightFolderPath", settingText(porogs.curves.InstrBrightFolderPath)},
        {"curves.SetApertureSize", settingText(porogs.curves.SetApertureSize)},
        {"curves.ApertureSize", settingText(porogs.curves.ApertureSize)},
        {"curves.ApertureSizeByFWHM", settingText(porogs.curves.ApertureSizeByFWHM)},
        {"curves.CurvesFlag", settingText(porogs.curves.CurvesFlag)},
        {"curves.AAVSOCode", settingText(porogs.curves.AAVSOCode)},
        {"fitt.HotPixels", settingText(porogs.fitt.HotPixels)},
        {"fitt.NegativePixels", settingText(porogs.fitt.NegativePixels)},
        {"fitt.IsDetect", settingText(porogs.fitt.IsDetect)},
        {"fitt.FittingType", settingText(porogs.fitt.FittingType)},
        {"fitt.DetectionAtEqualityPixels", settingText(porogs.fitt.DetectionAtEqualityPixels)},
        {"fitt.snrPeakPointObject", settingText(porogs.fitt.snrPeakPointObject)},
        {"fitt.snrPeakStrokeStar", settingText(porogs.fitt.snrPeakStrokeStar)},
        {"fitt.CorrelationResponse", settingText(porogs.fitt.CorrelationResponse)},
        {"fitt.DoNotSelectStarsOnFrame", settingText(porogs.fitt.DoNotSelectStarsOnFrame)},
        {"fitt.AreaWithBadImages", settingText(porogs.fitt.AreaWithBadImages)},
        {"fitt.Int1", settingText(porogs.fitt.Int1)},
        {"fitt.Int2", settingText(porogs.fitt.Int2)},
        {"fitt.Value1", settingText(porogs.fitt.Value1)},
        {"fitt.Value2", settingText(porogs.fitt.Value2)},
        {"fitt.Value3", settingText(porogs.fitt.Value3)},
        {"fitt.Int3", settingText(porogs.fitt.Int3)},
        {"fitt.Forms123.Form1", settingText(porogs.fitt.Forms123.Form1)},
        {"fitt.Forms123.Form2", settingText(porogs.fitt.Forms123.Form2)},
        {"fitt.Forms123.Form3", settingText(porogs.fitt.Forms123.Form3)},
        {"intraThresh.filter", settingText(porogs.intraThresh.filter)},
        {"intraThresh.numberMedianFrames", settingText(porogs.intraThresh.numberMedianFrames)},
        {"intraThresh.numberSkipFrames", settingText(porogs.intraThresh.numberSkipFrames)},
        {"intraThresh.sigmaFit", settingText(porogs.intraThresh.sigmaFit)},
        {"intraThresh.nSigmaNegative", settingText(porogs.intraThresh.nSigmaNegative)},
        {"intraThresh.threshLengthSegment", settingText(porogs.intraThresh.threshLengthSegment)},
        {"intraThresh.threshNumPixSegment", settingText(porogs.intraThresh.threshNumPixSegment)},
        {"intraThresh.snrPeak", settingText(porogs.intraThresh.snrPeak)},
        {"intraThresh.SNRNeNormCorrelationResponse",
         settingText(porogs.intraThresh.SNRNeNormCorrelationResponse)},
        {"intraThresh.combineRadius", settingText(porogs.intraThresh.combineRadius)},
        {"intraThresh.threshRMSContour", settingText(porogs.intraThresh.threshRMSContour)},
        {"intraThresh.threshRMSContourPlato", settingText(porogs.intraThresh.threshRMSContourPlato)},
        {"astro.INetAstrometric", settingText(porogs.astro.INetAstrometric)},
        {"astro.INetPhotometric", settingText(porogs.astro.INetPhotometric)},
        {"astro.XCropInitialAstro", settingText(porogs.astro.XCropInitialAstro)},
        {"astro.YCropInitialAstro", settingText(porogs.astro.YCropInitialAstro)},
        {"astro.MarksFromFrame", settingText(porogs.astro.MarksFromFrame)},
        {"astro.PercentOfMatching", settingText(porogs.astro.PercentOfMatching)},
        {"astro.StarsResearch", settingText(porogs.astro.StarsResearch)},
        {"astro.DifferentBetweenAngles", settingText(porogs.astro.DifferentBetweenAngles)},
        {"astro.DistanceTo3DVertex", settingText(porogs.astro.DistanceTo3DVertex)},
        {"astro.AstrometryReductionDegree", settingText(porogs.astro.AstrometryReductionDegree)},
        {"astro.StarsRejectionThreshold", settingText(porogs.astro.StarsRejectionThreshold)},
        {"astro.CriticalSNR3forMeasurements", settingText(porogs.astro.CriticalSNR3forMeasurements)},
        {"astro.FragmentsNumber", settingText(porogs.astro.FragmentsNumber)},
        {"astro.MinPixelScale", settingText(porogs.astro.MinPixelScale)},
        {"astro.MaxPixelScale", settingText(porogs.astro.MaxPixelScale)},
        {"astro.use_astrometry_net", settingText(porogs.astro.use_astrometry_net)},
        {"astro.CoefficientsNumber", settingText(porogs.astro.CoefficientsNumber)},
        {"astro.KMTN.List", settingText(porogs.astro.KMTN.List)},
        {"astro.KMTN.Texts", settingText(porogs.astro.KMTN.Texts)},
        {"devPhoto.Text", settingText(porogs.devPhoto.Text)},
        {"devPhoto.List", settingText(porogs.devPhoto.List)},
        {"vo.mpc_ident_angle", settingText(porogs.vo.mpc_ident_angle)},
        {"vo.mpc_load_mag", settingText(porogs.vo.mpc_load_mag)},
        {"vo.thresh_find_orb", settingText(porogs.vo.thresh_find_orb)},
        {"vo.use_find_orb", settingText(porogs.vo.use_find_orb)},
        {"vo.DoDetectionSlow", settingText(porogs.vo.DoDetectionSlow)},
        {"vo.DoDetectionHough", settingText(porogs.vo.DoDetectionHough)},
        {"vo.DoDetectionFast", settingText(porogs.vo.DoDetectionFast)},
        {"vo.MakeTracksOnFrames", settingText(porogs.vo.MakeTracksOnFrames)},
        {"vo.DispersionThresholdsResid", settingText(porogs.vo.DispersionThresholdsResid)},
        {"vo.DispersionThresholdsSumResid", settingText(porogs.vo.DispersionThresholdsSumResid)},
        {"vo.DispersionThresholdsMagnitudeDisp", settingText(porogs.vo.DispersionThresholdsMagnitudeDisp)},
        {"vo.ThresholdFSignificance", settingText(porogs.vo.ThresholdFSignificance)},
        {"vo.ThresholdSNR3segment", settingText(porogs.vo.ThresholdSNR3segment)},
        {"vo.VelocityPointThreshold2", settingText(porogs.vo.VelocityPointThreshold2)},
        {"vo.VelocityPointThreshold3", settingText(porogs.vo.VelocityPointThreshold3)},
        {"vo.TypeSpeedLimit", settingText(porogs.vo.TypeSpeedLimit)},
        {"vo.speedlimit", settingText(porogs.vo.speedlimit)},
        {"vo.confstrobe", settingText(porogs.vo.confstrobe)},
        {"vo.rms_angle", settingText(porogs.vo.rms_angle)},
        {"vo.corr_meaangle_traangle", settingText(porogs.vo.corr_meaangle_traangle)},
        {"vo.snr_segment", settingText(porogs.vo.snr_segment)},
        {"vo.snr_peak", settingText(porogs.vo.snr_peak)},
        {"vo.dispersion_xy", settingText(porogs.vo.dispersion_xy)},
        {"vo.dispersion_mag", settingText(porogs.vo.dispersion_mag)},
        {"vo.only_stroke", settingText(porogs.vo.only_stroke)},
        {"vo.allow_plato", settingText(porogs.vo.allow_plato)},
        {"vo.TieFrames", settingText(porogs.vo.TieFrames)},
        {"vo.RejectFrames", settingText(porogs.vo.RejectFrames)},
        {"vo.MinSpeed", settingText(porogs.vo.MinSpeed)},
        {"vo.MaxSpeed", settingText(porogs.vo.MaxSpeed)},
        {"vo.Strob2Res", settingText(porogs.vo.Strob2Res)},
        {"vo.BlobLengthRMS", settingText(porogs.vo.BlobLengthRMS)},
        {"vo.BlobLengthKoef", settingText(porogs.vo.BlobLengthKoef)},
        {"vo.DubAngle", settingText(porogs.vo.DubAngle)},
        {"vo.DubVelocity", settingText(porogs.vo.DubVelocity)},
        {"vo.DubPosition", settingText(porogs.vo.DubPosition)},
        {"interIC.DmThreshold", settingText(porogs.interIC.DmThreshold)},
        {"interIC.RadiusOfFixidity", settingText(porogs.interIC.RadiusOfFixidity)},
        {"interIC.MakeICFromFrames", settingText(porogs.interIC.MakeICFromFrames)},
        {"interSat.DoDetectionGEO", settingText(porogs.interSat.DoDetectionGEO)},
        {"interSat.DoDetectionLEO", settingText(porogs.interSat.DoDetectionLEO)},
        {"interSat.deltaSpeedSat", settingText(porogs.interSat.deltaSpeedSat)},
        {"interSat.VelocityFast", settingText(porogs.interSat.VelocityFast)},
        {"interSat.maxSpeedHough", settingText(porogs.interSat.maxSpeedHough)},
        {"interSat.minSpeedHough", settingText(porogs.interSat.minSpeedHough)},
        {"interSat.identification_radius_leo", settingText(porogs.interSat.identification_radius_leo)},
        {"interSat.identification_radius_geo", settingText(porogs.interSat.identification_radius_geo)},
        {"interSat.TLEs", settingText(porogs.interSat.TLEs)},
        {"stacking.run_stacking", settingText(porogs.stacking.run_stacking)},
        {"stacking.subseries_autodetermination", settingText(porogs.stacking.subseries_autodetermination)},
        {"stacking.search_objects", settingText(porogs.stacking.search_objects)},
        {"stacking.useAllFrames", settingText(porogs.stacking.useAllFrames)},
        {"stacking.subseries_time_coefficient", settingText(porogs.stacking.subseries_time_coefficient)},
        {"stacking.userSubseries", settingText(porogs.stacking.userSubseries)},
        {"stacking.rangeX", settingText(porogs.stacking.rangeX)},
        {"stacking.rangeY", settingText(porogs.stacking.rangeY)},
        {"stacking.horizon_request", settingText(porogs.stacking.horizon_request)},
        {"stacking.pa", settingText(porogs.stacking.pa)},
        {"stacking.velocity", settingText(porogs.stacking.velocity)},
        {"stacking.rms_x", settingText(porogs.stacking.rms_x)},
        {"stacking.rms_xy", settingText(porogs.stacking.rms_xy)},
        {"stacking.rms_m", settingText(porogs.stacking.rms_m)},
        {"stacking.snr_peak", settingText(porogs.stacking.snr_peak)},
        {"stacking.Int1", settingText(porogs.stacking.Int1)},
        {"stacking.Int2", settingText(porogs.stacking.Int2)},
        {"stacking.Int3", settingText(porogs.stacking.Int3)},
        {"stacking.Int4", settingText(porogs.stacking.Int4)},
        {"stacking.Value1", settingText(porogs.stacking.Value1)},
        {"stacking.Value2", settingText(porogs.stacking.Value2)},
        {"Version", settingText(porogs.Version)},
        {"Service", settingText(porogs.Service)},
    };
}

/// Puts another text into the row of the name; whether there is such a row.
inline bool setRow(SettingRows& rows, std::string_view name, std::string_view text)
{
    for (auto& [rowName, rowText] : rows) {
        if (rowName == name) {
            rowText = text;
            return true;
        }
    }
    return false;
}

/// Checks rows one by one, so that a difference is told by its name.
inline void expectRows(const SettingRows& rows, const SettingRows& expected)
{
    ASSERT_EQ(rows.size(), expected.size());
    for (std::size_t i = 0; i < rows.size(); ++i) {
        EXPECT_EQ(rows[i].first, expected[i].first);
        EXPECT_EQ(rows[i].second, expected[i].second) << expected[i].first;
    }
}

/// Checks the settings against new ones that differ from the defaults in the rows given.
inline void expectDefaultsBut(const tavelinUtils::TPorogs& porogs, const SettingRows& differences)
{
    SettingRows expected = settingRows(tavelinUtils::TPorogs{});
    for (const auto& [name, text] : differences) {
        EXPECT_TRUE(setRow(expected, name, text)) << name;
    }
    expectRows(settingRows(porogs), expected);
}
