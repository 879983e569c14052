#include "config/settings.h"

#include "support/settings_rows.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <iterator>
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
    EXPECT_EQ(std::size(everySetting), 248u);
    expectDefaultsBut(TPorogs{}, {});
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
