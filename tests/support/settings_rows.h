// Settings as rows of name and text, so that one check sees every member, and the texts that new settings
// have.

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

/// Members of settings: the name with that of the record, and the member's text.
using SettingRows = std::vector<std::pair<std::string, std::string>>;

/// Texts as they are, numbers in the shortest form that reads back as the same, words as their numbers.
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

/// A member of the settings: its name with that of its record, its text in new settings, and in any.
struct Setting
{
    const char* name;
    const char* textInNew;
    std::string (*textIn)(const tavelinUtils::TPorogs& porogs);
};

// clang-format off
#define SETTING(member, textInNew) \
    {#member, textInNew, [](const tavelinUtils::TPorogs& porogs) { return settingText(porogs.member); }}
// clang-format on

/// Every member of the settings, in their order.
inline constexpr Setting everySetting[] = {
    SETTING(subfolders.tavelinFolder, "tavelin"),
    SETTING(subfolders.cosmFolder, "cosm"),
    SETTING(subfolders.dataPOFolder, "dataPO"),
    SETTING(subfolders.dataVOFolder, "dataVO"),
    SETTING(subfolders.dataFolder, "data"),
    SETTING(subfolders.mfitsFolder, "mfits"),
    SETTING(subfolders.logsFolder, "logs"),
    SETTING(subfolders.lightcurvesFolder, "lightcurves"),
    SETTING(subfolders.lctasksFolder, "lctasks"),
    SETTING(subfolders.tmpFolder, "tmp"),
    SETTING(subfolders.reportsFolder, "reports"),
    SETTING(subfolders.tempUnpackFolder, "temp-unpack"),
    SETTING(subfolders.packFolder, "pack"),
    SETTING(subfolders.stackTmpFolder, "stack_tmp"),
    SETTING(subfolders.stackedFolder, "stacked"),
    SETTING(subfolders.vomarFolder, "vomar"),
    SETTING(subfolders.vomarLogsFolder, "logs"),
    SETTING(subfolders.vomarConfFolder, "conf"),
    SETTING(output.processLog, "process.log"),
    SETTING(output.objLightcurveQrv, "obj-lightcurve-qrv.txt"),
    SETTING(output.objAavsoVsp, "obj-aavso-vsp.txt"),
    SETTING(output.objVarstarsVsx, "obj-varstars-vsx.txt"),
    SETTING(output.objAsteroidsQrv, "obj-asteroids-qrv.txt"),
    SETTING(output.objAsteroidsMpc, "obj-asteroids-mpc.txt"),
    SETTING(output.objSatellitesQrv, "obj-satellites-qrv.txt"),
    SETTING(output.objSatellitesCat, "obj-satellites-cat.txt"),
    SETTING(output.rptAsteroidsMpcAuto, "rpt-asteroids-mpc-auto.txt"),
    SETTING(output.representative, "representative.bin"),
    SETTING(output.vkInd, "VKInd.txt"),
    SETTING(extension.stepPrefix, "STEP-"),
    SETTING(extension.fqrvPrefix, "FQRV-"),
    SETTING(extension.stepSuperPrefix, "STEP-SUPER-"),
    SETTING(extension.pixobjExt, ".pixobj"),
    SETTING(extension.fittingblobExt, ".fittingblob"),
    SETTING(extension.binExt, ".bin"),
    SETTING(extension.tableblobExt, ".tableblob"),
    SETTING(extension.hotExt, ".hot"),
    SETTING(extension.coldExt, ".cold"),
    SETTING(extension.resultExt, ".result"),
    SETTING(extension.wcsxmlExt, ".wcsxml"),
    SETTING(exe.FindOrb, ""),
    SETTING(exe.Java, ""),
    SETTING(basicSettings.PixelWidth, "0"),
    SETTING(basicSettings.PixelHeight, "0"),
    SETTING(basicSettings.FocalLength, "0"),
    SETTING(basicSettings.PixelScale, "0"),
    SETTING(basicSettings.Telescope, "telescope"),
    SETTING(basicSettings.Filter, ""),
    SETTING(basicSettings.Observatory, "observatory"),
    SETTING(basicSettings.UseBinningFromHeader, "false"),
    SETTING(basicSettings.Latitude, "0"),
    SETTING(basicSettings.Longitude, "0"),
    SETTING(basicSettings.Altitude, "0"),
    SETTING(basicSettings.SiteKnown, "false"),
    SETTING(filtersID.R, "[]"),
    SETTING(filtersID.V, "[]"),
    SETTING(filtersID.B, "[]"),
    SETTING(filtersID.I, "[]"),
    SETTING(headerKeys.ObservationDate, "[]"),
    SETTING(headerKeys.ObservationTime, "[]"),
    SETTING(headerKeys.ExposureTime, "[]"),
    SETTING(headerKeys.Telescope, "[]"),
    SETTING(headerKeys.Filter, "[]"),
    SETTING(headerKeys.RA, "[]"),
    SETTING(headerKeys.DE, "[]"),
    SETTING(headerKeys.FocalLength, "[]"),
    SETTING(headerKeys.PixelWidth, "[]"),
    SETTING(headerKeys.PixelHeight, "[]"),
    SETTING(headerKeys.Temperature, "[]"),
    SETTING(headerKeys.ImageType, "[]"),
    SETTING(headerKeys.Aperture, "[]"),
    SETTING(headerKeys.Instrument, "[]"),
    SETTING(headerKeys.Altitude, "[]"),
    SETTING(headerKeys.Latitude, "[]"),
    SETTING(headerKeys.Longitude, "[]"),
    SETTING(headerKeys.Observer, "[]"),
    SETTING(headerKeys.XBIN, "[]"),
    SETTING(headerKeys.YBIN, "[]"),
    SETTING(zunek.QuidanceError, "0.2"),
    SETTING(zunek.AddDate, "false"),
    SETTING(zunek.AddObject, "false"),
    SETTING(zunek.AddFilter, "false"),
    SETTING(zunek.AddRADE, "false"),
    SETTING(zunek.AddCamera, "false"),
    SETTING(zunek.IsSeriesFormed, "false"),
    SETTING(zunek.WaitLastFrame, "2"),
    SETTING(zunek.WaitLastFrameTime, "3"),
    SETTING(zunek.SubseriesCount, "0"),
    SETTING(zunek.SaveTableBlob, "false"),
    SETTING(input.PathLog, ""),
    SETTING(mpc.MPCHeader.COD, "500"),
    SETTING(mpc.MPCHeader.CON, ""),
    SETTING(mpc.MPCHeader.OBS, ""),
    SETTING(mpc.MPCHeader.MEA, ""),
    SETTING(mpc.MPCHeader.COM, ""),
    SETTING(mpc.MPCHeader.TEL, ""),
    SETTING(mpc.MPCHeader.ACK, ""),
    SETTING(mpc.MPCHeader.AC2, ""),
    SETTING(mpc.MPCHeader.NET, ""),
    SETTING(mpc.MPCHeader.HeaderOn, "true"),
    SETTING(mpc.MPCHeader.HeaderFlag2, "false"),
    SETTING(mpc.NumberingTracksInZoneMask1, ""),
    SETTING(mpc.NumberingTracksInZoneMask2, ""),
    SETTING(masterFrame.UseMasterBias, "false"),
    SETTING(masterFrame.UseMasterDark, "false"),
    SETTING(masterFrame.UseMasterDarkFlat, "false"),
    SETTING(masterFrame.UseMasterFlat, "false"),
    SETTING(masterFrame.UseFHF, "false"),
    SETTING(masterFrame.UseCommonFolder, "false"),
    SETTING(masterFrame.ProcessingRawBias, "[]"),
    SETTING(masterFrame.ProcessingRawDark, "[]"),
    SETTING(masterFrame.ProcessingRawDarkFlat, "[]"),
    SETTING(masterFrame.ProcessingRawFlat, "[]"),
    SETTING(masterFrame.ProcessingRawFolder, ""),
    SETTING(masterFrame.IgnoreTimeFactor, "false"),
    SETTING(masterFrame.ExposureAutoDetermination, "false"),
    SETTING(masterFrame.HorizontalBandsFilter, "false"),
    SETTING(masterFrame.BinningCoefficient, "0"),
    SETTING(masterFrame.MedianWindow, "0"),
    SETTING(curves.InstrBrightFolderPath, ""),
    SETTING(curves.SetApertureSize, "1"),
    SETTING(curves.ApertureSize, "5"),
    SETTING(curves.ApertureSizeByFWHM, "1.5"),
    SETTING(curves.CurvesFlag, "false"),
    SETTING(curves.AAVSOCode, "CODEAAVSO"),
    SETTING(fitt.HotPixels, "0"),
    SETTING(fitt.NegativePixels, "0"),
    SETTING(fitt.IsDetect, "false"),
    SETTING(fitt.FittingType, "0"),
    SETTING(fitt.DetectionAtEqualityPixels, "3"),
    SETTING(fitt.snrPeakPointObject, "2.5"),
    SETTING(fitt.snrPeakStrokeStar, "3"),
    SETTING(fitt.CorrelationResponse, "2.5"),
    SETTING(fitt.DoNotSelectStarsOnFrame, "[]"),
    SETTING(fitt.AreaWithBadImages, "[]"),
    SETTING(fitt.Int1, "5"),
    SETTING(fitt.Int2, "5"),
    SETTING(fitt.Value1, "3"),
    SETTING(fitt.Value2, "0.7"),
    SETTING(fitt.Value3, "7"),
    SETTING(fitt.Int3, "500"),
    SETTING(fitt.Forms123.Form1, "[]"),
    SETTING(fitt.Forms123.Form2, "[]"),
    SETTING(fitt.Forms123.Form3, "[]"),
    SETTING(intraThresh.filter, ""),
    SETTING(intraThresh.numberMedianFrames, "5"),
    SETTING(intraThresh.numberSkipFrames, "0"),
    SETTING(intraThresh.sigmaFit, "1"),
    SETTING(intraThresh.nSigmaNegative, "5"),
    SETTING(intraThresh.threshLengthSegment, "50"),
    SETTING(intraThresh.threshNumPixSegment, "300"),
    SETTING(intraThresh.snrPeak, "2.5"),
    SETTING(intraThresh.SNRNeNormCorrelationResponse, "2.5"),
    SETTING(intraThresh.combineRadius, "2"),
    SETTING(intraThresh.threshRMSContour, "1"),
    SETTING(intraThresh.threshRMSContourPlato, "1"),
    SETTING(astro.INetAstrometric, "0"),
    SETTING(astro.INetPhotometric, "0"),
    SETTING(astro.XCropInitialAstro, "1"),
    SETTING(astro.YCropInitialAstro, "1"),
    SETTING(astro.MarksFromFrame, "0"),
    SETTING(astro.PercentOfMatching, "0"),
    SETTING(astro.StarsResearch, "0"),
    SETTING(astro.DifferentBetweenAngles, "0"),
    SETTING(astro.DistanceTo3DVertex, "0"),
    SETTING(astro.AstrometryReductionDegree, "0"),
    SETTING(astro.StarsRejectionThreshold, "0"),
    SETTING(astro.CriticalSNR3forMeasurements, "0"),
    SETTING(astro.FragmentsNumber, "4"),
    SETTING(astro.MinPixelScale, "1"),
    SETTING(astro.MaxPixelScale, "180"),
    SETTING(astro.use_astrometry_net, "false"),
    SETTING(astro.CoefficientsNumber, "0"),
    SETTING(astro.KMTN.List, "[]"),
    SETTING(astro.KMTN.Texts, "[]"),
    SETTING(devPhoto.Text, ""),
    SETTING(devPhoto.List, "[]"),
    SETTING(vo.mpc_ident_angle, "15"),
    SETTING(vo.mpc_load_mag, "25"),
    SETTING(vo.thresh_find_orb, "1"),
    SETTING(vo.use_find_orb, "false"),
    SETTING(vo.DoDetectionSlow, "false"),
    SETTING(vo.DoDetectionHough, "false"),
    SETTING(vo.DoDetectionFast, "false"),
    SETTING(vo.MakeTracksOnFrames, ""),
    SETTING(vo.DispersionThresholdsResid, "0"),
    SETTING(vo.DispersionThresholdsSumResid, "0"),
    SETTING(vo.DispersionThresholdsMagnitudeDisp, "0"),
    SETTING(vo.ThresholdFSignificance, "0"),
    SETTING(vo.ThresholdSNR3segment, "0"),
    SETTING(vo.VelocityPointThreshold2, "0"),
    SETTING(vo.VelocityPointThreshold3, "0"),
    SETTING(vo.TypeSpeedLimit, "2"),
    SETTING(vo.speedlimit, "200"),
    SETTING(vo.confstrobe, "10"),
    SETTING(vo.rms_angle, "20"),
    SETTING(vo.corr_meaangle_traangle, "360"),
    SETTING(vo.snr_segment, "0"),
    SETTING(vo.snr_peak, "0"),
    SETTING(vo.dispersion_xy, "1.25"),
    SETTING(vo.dispersion_mag, "1.5"),
    SETTING(vo.only_stroke, "true"),
    SETTING(vo.allow_plato, "true"),
    SETTING(vo.TieFrames, "0"),
    SETTING(vo.RejectFrames, "0"),
    SETTING(vo.MinSpeed, "0"),
    SETTING(vo.MaxSpeed, "0"),
    SETTING(vo.Strob2Res, "0"),
    SETTING(vo.BlobLengthRMS, "0"),
    SETTING(vo.BlobLengthKoef, "0"),
    SETTING(vo.DubAngle, "0"),
    SETTING(vo.DubVelocity, "0"),
    SETTING(vo.DubPosition, "0"),
    SETTING(interIC.DmThreshold, "2"),
    SETTING(interIC.RadiusOfFixidity, "2"),
    SETTING(interIC.MakeICFromFrames, ""),
    SETTING(interSat.DoDetectionGEO, "false"),
    SETTING(interSat.DoDetectionLEO, "false"),
    SETTING(interSat.deltaSpeedSat, "5"),
    SETTING(interSat.VelocityFast, "200"),
    SETTING(interSat.maxSpeedHough, "30"),
    SETTING(interSat.minSpeedHough, "2"),
    SETTING(interSat.identification_radius_leo, "4"),
    SETTING(interSat.identification_radius_geo, "6"),
    SETTING(interSat.TLEs, "[]"),
    SETTING(stacking.run_stacking, "true"),
    SETTING(stacking.subseries_autodetermination, "true"),
    SETTING(stacking.search_objects, "false"),
    SETTING(stacking.useAllFrames, "true"),
    SETTING(stacking.subseries_time_coefficient, "5"),
    SETTING(stacking.userSubseries, "3"),
    SETTING(stacking.rangeX, "5"),
    SETTING(stacking.rangeY, "5"),
    SETTING(stacking.horizon_request, "true"),
    SETTING(stacking.pa, "0"),
    SETTING(stacking.velocity, "0"),
    SETTING(stacking.rms_x, "0.5"),
    SETTING(stacking.rms_xy, "0.7"),
    SETTING(stacking.rms_m, "1"),
    SETTING(stacking.snr_peak, "3"),
    SETTING(stacking.Int1, "9"),
    SETTING(stacking.Int2, "20"),
    SETTING(stacking.Int3, "2"),
    SETTING(stacking.Int4, "25"),
    SETTING(stacking.Value1, "5"),
    SETTING(stacking.Value2, "999"),
    SETTING(Version, ""),
    SETTING(Service, "0"),
};

#undef SETTING

/// Every member of the settings with its text.
inline SettingRows settingRows(const tavelinUtils::TPorogs& porogs)
{
    SettingRows rows;
    for (const Setting& setting : everySetting) {
        rows.push_back({setting.name, setting.textIn(porogs)});
    }
    return rows;
}

/// Puts another text into the row of the name. False where there is no such row.
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

/// Checks rows one by one, so that a failure names the member.
inline void expectRows(const SettingRows& rows, const SettingRows& expected)
{
    ASSERT_EQ(rows.size(), expected.size());
    for (std::size_t i = 0; i < rows.size(); ++i) {
        EXPECT_EQ(rows[i].first, expected[i].first);
        EXPECT_EQ(rows[i].second, expected[i].second) << expected[i].first;
    }
}

/// Checks every member of the settings: those of the rows given have the texts of the rows, all others are as
/// in new settings.
inline void expectDefaultsBut(const tavelinUtils::TPorogs& porogs, const SettingRows& differences)
{
    SettingRows expected;
    for (const Setting& setting : everySetting) {
        expected.push_back({setting.name, setting.textInNew});
    }
    for (const auto& [name, text] : differences) {
        EXPECT_TRUE(setRow(expected, name, text)) << name;
    }
    expectRows(settingRows(porogs), expected);
}
