#include "config/settings.h"

#include "support/settings_rows.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

using namespace tavelinUtils;

namespace {

/// Whether members of one record follow each other in the order given.
template <class... Members>
bool standInOrder(const Members&... members)
{
    const std::vector<const void*> places{static_cast<const void*>(&members)...};
    for (std::size_t i = 1; i < places.size(); ++i) {
        if (!(places[i - 1] < places[i])) {
            return false;
        }
    }
    return true;
}

} // namespace

TEST(SettingsDefaults, EveryMemberOfNewSettings)
{
    expectRows(settingRows(TPorogs{}), {
                                           {"subfolders.tavelinFolder", "tavelin"},
                                           {"subfolders.cosmFolder", "cosm"},
                                           {"subfolders.dataPOFolder", "dataPO"},
                                           {"subfolders.dataVOFolder", "dataVO"},
                                           {"subfolders.dataFolder", "data"},
                                           {"subfolders.mfitsFolder", "mfits"},
                                           {"subfolders.logsFolder", "logs"},
                                           {"subfolders.lightcurvesFolder", "lightcurves"},
                                           {"subfolders.lctasksFolder", "lctasks"},
                                           {"subfolders.tmpFolder", "tmp"},
                                           {"subfolders.reportsFolder", "reports"},
                                           {"subfolders.tempUnpackFolder", "temp-unpack"},
                                           {"subfolders.packFolder", "pack"},
                                           {"subfolders.stackTmpFolder", "stack_tmp"},
                                           {"subfolders.stackedFolder", "stacked"},
                                           {"subfolders.vomarFolder", "vomar"},
                                           {"subfolders.vomarLogsFolder", "logs"},
                                           {"subfolders.vomarConfFolder", "conf"},
                                           {"output.processLog", "process.log"},
                                           {"output.objLightcurveQrv", "obj-lightcurve-qrv.txt"},
                                           {"output.objAavsoVsp", "obj-aavso-vsp.txt"},
                                           {"output.objVarstarsVsx", "obj-varstars-vsx.txt"},
                                           {"output.objAsteroidsQrv", "obj-asteroids-qrv.txt"},
                                           {"output.objAsteroidsMpc", "obj-asteroids-mpc.txt"},
                                           {"output.objSatellitesQrv", "obj-satellites-qrv.txt"},
                                           {"output.objSatellitesCat", "obj-satellites-cat.txt"},
                                           {"output.rptAsteroidsMpcAuto", "rpt-asteroids-mpc-auto.txt"},
                                           {"output.representative", "representative.bin"},
                                           {"output.vkInd", "VKInd.txt"},
                                           {"extension.stepPrefix", "STEP-"},
                                           {"extension.fqrvPrefix", "FQRV-"},
                                           {"extension.stepSuperPrefix", "STEP-SUPER-"},
                                           {"extension.pixobjExt", ".pixobj"},
                                           {"extension.fittingblobExt", ".fittingblob"},
                                           {"extension.binExt", ".bin"},
                                           {"extension.tableblobExt", ".tableblob"},
                                           {"extension.hotExt", ".hot"},
                                           {"extension.coldExt", ".cold"},
                                           {"extension.resultExt", ".result"},
                                           {"extension.wcsxmlExt", ".wcsxml"},
                                           {"exe.FindOrb", ""},
                                           {"exe.Java", ""},
                                           {"basicSettings.PixelWidth", "0"},
                                           {"basicSettings.PixelHeight", "0"},
                                           {"basicSettings.FocalLength", "0"},
                                           {"basicSettings.PixelScale", "0"},
                                           {"basicSettings.Telescope", "telescope"},
                                           {"basicSettings.Filter", ""},
                                           {"basicSettings.Observatory", "observatory"},
                                           {"basicSettings.UseBinningFromHeader", "false"},
                                           {"basicSettings.Latitude", "0"},
                                           {"basicSettings.Longitude", "0"},
                                           {"basicSettings.Altitude", "0"},
                                           {"basicSettings.SiteKnown", "false"},
                                           {"filtersID.R", "[]"},
                                           {"filtersID.V", "[]"},
                                           {"filtersID.B", "[]"},
                                           {"filtersID.I", "[]"},
                                           {"headerKeys.ObservationDate", "[]"},
                                           {"headerKeys.ObservationTime", "[]"},
                                           {"headerKeys.ExposureTime", "[]"},
                                           {"headerKeys.Telescope", "[]"},
                                           {"headerKeys.Filter", "[]"},
                                           {"headerKeys.RA", "[]"},
                                           {"headerKeys.DE", "[]"},
                                           {"headerKeys.FocalLength", "[]"},
                                           {"headerKeys.PixelWidth", "[]"},
                                           {"headerKeys.PixelHeight", "[]"},
                                           {"headerKeys.Temperature", "[]"},
                                           {"headerKeys.ImageType", "[]"},
                                           {"headerKeys.Aperture", "[]"},
                                           {"headerKeys.Instrument", "[]"},
                                           {"headerKeys.Altitude", "[]"},
                                           {"headerKeys.Latitude", "[]"},
                                           {"headerKeys.Longitude", "[]"},
                                           {"headerKeys.Observer", "[]"},
                                           {"headerKeys.XBIN", "[]"},
                                           {"headerKeys.YBIN", "[]"},
                                           {"zunek.QuidanceError", "0.2"},
                                           {"zunek.AddDate", "false"},
                                           {"zunek.AddObject", "false"},
                                           {"zunek.AddFilter", "false"},
                                           {"zunek.AddRADE", "false"},
                                           {"zunek.AddCamera", "false"},
                                           {"zunek.IsSeriesFormed", "false"},
                                           {"zunek.WaitLastFrame", "2"},
                                           {"zunek.WaitLastFrameTime", "3"},
                                           {"zunek.SubseriesCount", "0"},
                                           {"zunek.SaveTableBlob", "false"},
                                           {"input.PathLog", ""},
                                           {"mpc.MPCHeader.COD", "500"},
                                           {"mpc.MPCHeader.CON", ""},
                                           {"mpc.MPCHeader.OBS", ""},
                                           {"mpc.MPCHeader.MEA", ""},
                                           {"mpc.MPCHeader.COM", ""},
                                           {"mpc.MPCHeader.TEL", ""},
                                           {"mpc.MPCHeader.ACK", ""},
                                           {"mpc.MPCHeader.AC2", ""},
                                           {"mpc.MPCHeader.NET", ""},
                                           {"mpc.MPCHeader.HeaderOn", "true"},
                                           {"mpc.MPCHeader.HeaderFlag2", "false"},
                                           {"mpc.NumberingTracksInZoneMask1", ""},
                                           {"mpc.NumberingTracksInZoneMask2", ""},
                                           {"masterFrame.UseMasterBias", "false"},
                                           {"masterFrame.UseMasterDark", "false"},
                                           {"masterFrame.UseMasterDarkFlat", "false"},
                                           {"masterFrame.UseMasterFlat", "false"},
                                           {"masterFrame.UseFHF", "false"},
                                           {"masterFrame.UseCommonFolder", "false"},
                                           {"masterFrame.ProcessingRawBias", "[]"},
                                           {"masterFrame.ProcessingRawDark", "[]"},
                                           {"masterFrame.ProcessingRawDarkFlat", "[]"},
                                           {"masterFrame.ProcessingRawFlat", "[]"},
                                           {"masterFrame.ProcessingRawFolder", ""},
                                           {"masterFrame.IgnoreTimeFactor", "false"},
                                           {"masterFrame.ExposureAutoDetermination", "false"},
                                           {"masterFrame.HorizontalBandsFilter", "false"},
                                           {"masterFrame.BinningCoefficient", "0"},
                                           {"masterFrame.MedianWindow", "0"},
                                           {"curves.InstrBrightFolderPath", ""},
                                           {"curves.SetApertureSize", "1"},
                                           {"curves.ApertureSize", "5"},
                                           {"curves.ApertureSizeByFWHM", "1.5"},
                                           {"curves.CurvesFlag", "false"},
                                           {"curves.AAVSOCode", "CODEAAVSO"},
                                           {"fitt.HotPixels", "0"},
                                           {"fitt.NegativePixels", "0"},
                                           {"fitt.IsDetect", "false"},
                                           {"fitt.FittingType", "0"},
                                           {"fitt.DetectionAtEqualityPixels", "3"},
                                           {"fitt.snrPeakPointObject", "2.5"},
                                           {"fitt.snrPeakStrokeStar", "3"},
                                           {"fitt.CorrelationResponse", "2.5"},
                                           {"fitt.DoNotSelectStarsOnFrame", "[]"},
                                           {"fitt.AreaWithBadImages", "[]"},
                                           {"fitt.Int1", "5"},
                                           {"fitt.Int2", "5"},
                                           {"fitt.Value1", "3"},
                                           {"fitt.Value2", "0.7"},
                                           {"fitt.Value3", "7"},
                                           {"fitt.Int3", "500"},
                                           {"fitt.Forms123.Form1", "[]"},
                                           {"fitt.Forms123.Form2", "[]"},
                                           {"fitt.Forms123.Form3", "[]"},
                                           {"intraThresh.filter", ""},
                                           {"intraThresh.numberMedianFrames", "5"},
                                           {"intraThresh.numberSkipFrames", "0"},
                                           {"intraThresh.sigmaFit", "1"},
                                           {"intraThresh.nSigmaNegative", "5"},
                                           {"intraThresh.threshLengthSegment", "50"},
                                           {"intraThresh.threshNumPixSegment", "300"},
                                           {"intraThresh.snrPeak", "2.5"},
                                           {"intraThresh.SNRNeNormCorrelationResponse", "2.5"},
                                           {"intraThresh.combineRadius", "2"},
                                           {"intraThresh.threshRMSContour", "1"},
                                           {"intraThresh.threshRMSContourPlato", "1"},
                                           {"astro.INetAstrometric", "0"},
                                           {"astro.INetPhotometric", "0"},
                                           {"astro.XCropInitialAstro", "1"},
                                           {"astro.YCropInitialAstro", "1"},
                                           {"astro.MarksFromFrame", "0"},
                                           {"astro.PercentOfMatching", "0"},
                                           {"astro.StarsResearch", "0"},
                                           {"astro.DifferentBetweenAngles", "0"},
                                           {"astro.DistanceTo3DVertex", "0"},
                                           {"astro.AstrometryReductionDegree", "0"},
                                           {"astro.StarsRejectionThreshold", "0"},
                                           {"astro.CriticalSNR3forMeasurements", "0"},
                                           {"astro.FragmentsNumber", "4"},
                                           {"astro.MinPixelScale", "1"},
                                           {"astro.MaxPixelScale", "180"},
                                           {"astro.use_astrometry_net", "false"},
                                           {"astro.CoefficientsNumber", "0"},
                                           {"astro.KMTN.List", "[]"},
                                           {"astro.KMTN.Texts", "[]"},
                                           {"devPhoto.Text", ""},
                                           {"devPhoto.List", "[]"},
                                           {"vo.mpc_ident_angle", "15"},
                                           {"vo.mpc_load_mag", "25"},
                                           {"vo.thresh_find_orb", "1"},
                                           {"vo.use_find_orb", "false"},
                                           {"vo.DoDetectionSlow", "false"},
                                           {"vo.DoDetectionHough", "false"},
                                           {"vo.DoDetectionFast", "false"},
                                           {"vo.MakeTracksOnFrames", ""},
                                           {"vo.DispersionThresholdsResid", "0"},
                                           {"vo.DispersionThresholdsSumResid", "0"},
                                           {"vo.DispersionThresholdsMagnitudeDisp", "0"},
                                           {"vo.ThresholdFSignificance", "0"},
                                           {"vo.ThresholdSNR3segment", "0"},
                                           {"vo.VelocityPointThreshold2", "0"},
                                           {"vo.VelocityPointThreshold3", "0"},
                                           {"vo.TypeSpeedLimit", "2"},
                                           {"vo.speedlimit", "200"},
                                           {"vo.confstrobe", "10"},
                                           {"vo.rms_angle", "20"},
                                           {"vo.corr_meaangle_traangle", "360"},
                                           {"vo.snr_segment", "0"},
                                           {"vo.snr_peak", "0"},
                                           {"vo.dispersion_xy", "1.25"},
                                           {"vo.dispersion_mag", "1.5"},
                                           {"vo.only_stroke", "true"},
                                           {"vo.allow_plato", "true"},
                                           {"vo.TieFrames", "0"},
                                           {"vo.RejectFrames", "0"},
                                           {"vo.MinSpeed", "0"},
                                           {"vo.MaxSpeed", "0"},
                                           {"vo.Strob2Res", "0"},
                                           {"vo.BlobLengthRMS", "0"},
                                           {"vo.BlobLengthKoef", "0"},
                                           {"vo.DubAngle", "0"},
                                           {"vo.DubVelocity", "0"},
                                           {"vo.DubPosition", "0"},
                                           {"interIC.DmThreshold", "2"},
                                           {"interIC.RadiusOfFixidity", "2"},
                                           {"interIC.MakeICFromFrames", ""},
                                           {"interSat.DoDetectionGEO", "false"},
                                           {"interSat.DoDetectionLEO", "false"},
                                           {"interSat.deltaSpeedSat", "5"},
                                           {"interSat.VelocityFast", "200"},
                                           {"interSat.maxSpeedHough", "30"},
                                           {"interSat.minSpeedHough", "2"},
                                           {"interSat.identification_radius_leo", "4"},
                                           {"interSat.identification_radius_geo", "6"},
                                           {"interSat.TLEs", "[]"},
                                           {"stacking.run_stacking", "true"},
                                           {"stacking.subseries_autodetermination", "true"},
                                           {"stacking.search_objects", "false"},
                                           {"stacking.useAllFrames", "true"},
                                           {"stacking.subseries_time_coefficient", "5"},
                                           {"stacking.userSubseries", "3"},
                                           {"stacking.rangeX", "5"},
                                           {"stacking.rangeY", "5"},
                                           {"stacking.horizon_request", "true"},
                                           {"stacking.pa", "0"},
                                           {"stacking.velocity", "0"},
                                           {"stacking.rms_x", "0.5"},
                                           {"stacking.rms_xy", "0.7"},
                                           {"stacking.rms_m", "1"},
                                           {"stacking.snr_peak", "3"},
                                           {"stacking.Int1", "9"},
                                           {"stacking.Int2", "20"},
                                           {"stacking.Int3", "2"},
                                           {"stacking.Int4", "25"},
                                           {"stacking.Value1", "5"},
                                           {"stacking.Value2", "999"},
                                           {"Version", ""},
                                           {"Service", "0"},
                                       });
}

TEST(SettingsDefaults, RecordsStandInTheirOrder)
{
    const TPorogs p;
    EXPECT_TRUE(standInOrder(p.subfolders, p.output, p.extension, p.exe, p.basicSettings, p.filtersID,
                             p.headerKeys, p.zunek, p.input, p.mpc, p.masterFrame, p.curves, p.fitt,
                             p.intraThresh, p.astro, p.devPhoto, p.vo, p.interIC, p.interSat, p.stacking,
                             p.Version, p.Service));
}

TEST(SettingsDefaults, FoldersOfASeriesStandInTheirOrder)
{
    const auto& [f1, f2, f3, f4, f5, f6, f7, f8, f9, f10, f11, f12, f13, f14, f15, f16, f17, f18] =
        TSubfolders{};
    EXPECT_EQ((std::vector<std::string>{f1, f2, f3, f4, f5, f6, f7, f8, f9, f10, f11, f12, f13, f14, f15, f16,
                                        f17, f18}),
              (std::vector<std::string>{"tavelin", "cosm", "dataPO", "dataVO", "data", "mfits", "logs",
                                        "lightcurves", "lctasks", "tmp", "reports", "temp-unpack", "pack",
                                        "stack_tmp", "stacked", "vomar", "logs", "conf"}));
}

TEST(SettingsDefaults, FilesOfASeriesStandInTheirOrder)
{
    const auto& [f1, f2, f3, f4, f5, f6, f7, f8, f9, f10, f11] = TOutput{};
    EXPECT_EQ(
        (std::vector<std::string>{f1, f2, f3, f4, f5, f6, f7, f8, f9, f10, f11}),
        (std::vector<std::string>{"process.log", "obj-lightcurve-qrv.txt", "obj-aavso-vsp.txt",
                                  "obj-varstars-vsx.txt", "obj-asteroids-qrv.txt", "obj-asteroids-mpc.txt",
                                  "obj-satellites-qrv.txt", "obj-satellites-cat.txt",
                                  "rpt-asteroids-mpc-auto.txt", "representative.bin", "VKInd.txt"}));
}

TEST(SettingsDefaults, PrefixesAndExtensionsStandInTheirOrder)
{
    const auto& [f1, f2, f3, f4, f5, f6, f7, f8, f9, f10, f11] = TExtension{};
    EXPECT_EQ((std::vector<std::string>{f1, f2, f3, f4, f5, f6, f7, f8, f9, f10, f11}),
              (std::vector<std::string>{"STEP-", "FQRV-", "STEP-SUPER-", ".pixobj", ".fittingblob", ".bin",
                                        ".tableblob", ".hot", ".cold", ".result", ".wcsxml"}));
}

TEST(SettingsDefaults, SpellingsStandInTheirOrder)
{
    const THeaderKeys h;
    EXPECT_TRUE(standInOrder(h.ObservationDate, h.ObservationTime, h.ExposureTime, h.Telescope, h.Filter,
                             h.RA, h.DE, h.FocalLength, h.PixelWidth, h.PixelHeight, h.Temperature,
                             h.ImageType, h.Aperture, h.Instrument, h.Altitude, h.Latitude, h.Longitude,
                             h.Observer, h.XBIN, h.YBIN));
    static_assert(sizeof(THeaderKeys) == 20 * sizeof(std::vector<std::string>));
}

TEST(SettingsDefaults, NamesOfFiltersAreFourListsOfLists)
{
    using Lists = std::vector<std::vector<std::string>>;
    const TFiltersID f;
    EXPECT_TRUE(standInOrder(f.R, f.V, f.B, f.I));
    static_assert(std::is_same_v<decltype(TFiltersID::R), Lists>);
    static_assert(sizeof(TFiltersID) == 4 * sizeof(Lists));
}

TEST(SettingsDefaults, CalibrationFramesStandInTheirOrder)
{
    const auto& [bias, dark, darkFlat, flat, fhf, common, rawBias, rawDark, rawDarkFlat, rawFlat, rawFolder,
                 ignoreTime, autoExposure, bands, binning, window] = TMasterFrame{
        true, false, true, false, true, false, {"1"}, {"2"}, {"3"}, {"4"}, "5", true, false, true, 6, 7};
    EXPECT_TRUE(bias);
    EXPECT_FALSE(dark);
    EXPECT_TRUE(darkFlat);
    EXPECT_FALSE(flat);
    EXPECT_TRUE(fhf);
    EXPECT_FALSE(common);
    EXPECT_EQ(rawBias, std::vector<std::string>{"1"});
    EXPECT_EQ(rawDark, std::vector<std::string>{"2"});
    EXPECT_EQ(rawDarkFlat, std::vector<std::string>{"3"});
    EXPECT_EQ(rawFlat, std::vector<std::string>{"4"});
    EXPECT_EQ(rawFolder, "5");
    EXPECT_TRUE(ignoreTime);
    EXPECT_FALSE(autoExposure);
    EXPECT_TRUE(bands);
    EXPECT_EQ(binning, 6);
    EXPECT_EQ(window, 7);
    const TMasterFrame m;
    EXPECT_TRUE(standInOrder(m.UseMasterBias, m.UseMasterDark, m.UseMasterDarkFlat, m.UseMasterFlat, m.UseFHF,
                             m.UseCommonFolder, m.ProcessingRawBias, m.ProcessingRawDark,
                             m.ProcessingRawDarkFlat, m.ProcessingRawFlat, m.ProcessingRawFolder,
                             m.IgnoreTimeFactor, m.ExposureAutoDetermination, m.HorizontalBandsFilter,
                             m.BinningCoefficient, m.MedianWindow));
}

TEST(SettingsDefaults, LightCurvesStandInTheirOrder)
{
    const auto& [folder, set, size, byFwhm, flag, code] =
        TCurves{"f", TApertureSize::ByFWHM, 1.0, 2.0, true, "code"};
    EXPECT_EQ(folder, "f");
    EXPECT_EQ(static_cast<int>(set), 2);
    EXPECT_EQ(size, 1.0);
    EXPECT_EQ(byFwhm, 2.0);
    EXPECT_TRUE(flag);
    EXPECT_EQ(code, "code");
    const TCurves c;
    EXPECT_TRUE(standInOrder(c.InstrBrightFolderPath, c.SetApertureSize, c.ApertureSize, c.ApertureSizeByFWHM,
                             c.CurvesFlag, c.AAVSOCode));
}

TEST(SettingsDefaults, ReportMasksStandBehindTheHeader)
{
    const TMPC m;
    EXPECT_TRUE(standInOrder(m.MPCHeader, m.NumberingTracksInZoneMask1, m.NumberingTracksInZoneMask2));
}

TEST(SettingsDefaults, MembersHaveTheTypesOfTheirKeys)
{
    static_assert(std::is_same_v<decltype(TAstro::AstrometryReductionDegree), short>);
    static_assert(std::is_same_v<decltype(TAstro::CoefficientsNumber), int>);
    static_assert(std::is_same_v<decltype(TAstro::INetPhotometric), TSeliNetStarCat>);
    static_assert(std::is_same_v<decltype(TZunek::WaitLastFrame), TTypeNextFormation>);
    static_assert(std::is_same_v<decltype(TZunek::SubseriesCount), int>);
    static_assert(std::is_same_v<decltype(TVO::TypeSpeedLimit), TSpeedLimit>);
    static_assert(std::is_same_v<decltype(TFitt::FittingType), TModeFitting>);
    static_assert(std::is_same_v<decltype(TFitt::DetectionAtEqualityPixels), int>);
    static_assert(std::is_same_v<decltype(TQRVDIntraframeThresh::threshNumPixSegment), int>);
    static_assert(std::is_same_v<decltype(TQRVDIntraframeThresh::threshLengthSegment), double>);
    static_assert(std::is_same_v<decltype(TStacking::userSubseries), int>);
    static_assert(std::is_same_v<decltype(TStacking::pa), double>);
    static_assert(std::is_same_v<decltype(TInterSat::TLEs), std::vector<TTLEstr>>);
    static_assert(std::is_same_v<decltype(TDevPhoto::List), std::vector<double>>);
    static_assert(std::is_same_v<decltype(TPorogs::zunek), TZunek>);
    static_assert(std::is_same_v<decltype(TPorogs::filtersID), TFiltersID>);
    static_assert(std::is_same_v<decltype(TPorogs::interIC), TInterIC>);
    static_assert(std::is_same_v<decltype(TPorogs::interSat), TInterSat>);
    static_assert(std::is_same_v<decltype(TPorogs::stacking), TStacking>);
    static_assert(std::is_same_v<decltype(TPorogs::Service), TService>);
}

TEST(SettingsDefaults, CopiesOwnTheirTextsAndLists)
{
    TPorogs porogs;
    porogs.filtersID.R = {{"Rc"}};
    porogs.masterFrame.ProcessingRawBias = {"1.fit"};
    porogs.interSat.TLEs = {{"0 A", "1 A", "2 A"}};
    porogs.fitt.AreaWithBadImages = {{1, 2, 3, 4}};
    TPorogs copy = porogs;
    const SettingRows before = settingRows(porogs);
    copy.filtersID.R[0][0] = "other";
    copy.masterFrame.ProcessingRawBias[0] = "other";
    copy.interSat.TLEs[0].Line0 = "other";
    copy.fitt.AreaWithBadImages[0].X1 = 9;
    copy.Version = "other";
    expectRows(settingRows(porogs), before);
    const TPorogs moved = std::move(porogs);
    expectRows(settingRows(moved), before);
}
