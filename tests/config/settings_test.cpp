#include "config/settings.h"

#include <gtest/gtest.h>

#include <type_traits>

using namespace tavelinUtils;

namespace {

// Whether a member comes before another in their record.
template <class First, class Second>
bool standsBefore(const First& first, const Second& second)
{
    return static_cast<const void*>(&first) < static_cast<const void*>(&second);
}

} // namespace

TEST(Settings, NewSettings)
{
    const TPorogs porogs;
    EXPECT_EQ(porogs.subfolders.tavelinFolder, "tavelin");
    EXPECT_EQ(porogs.output.processLog, "process.log");
    EXPECT_EQ(porogs.extension.stepPrefix, "STEP-");
    EXPECT_EQ(porogs.basicSettings.Telescope, "telescope");
    EXPECT_EQ(porogs.basicSettings.Observatory, "observatory");
    EXPECT_EQ(porogs.mpc.MPCHeader.COD, "500");
}

TEST(Settings, NamesOpenTheRecord)
{
    const TPorogs porogs;
    EXPECT_EQ(static_cast<const void*>(&porogs), static_cast<const void*>(&porogs.subfolders));
    EXPECT_TRUE(standsBefore(porogs.subfolders, porogs.output));
    EXPECT_TRUE(standsBefore(porogs.output, porogs.extension));
    EXPECT_TRUE(standsBefore(porogs.extension, porogs.basicSettings));
    EXPECT_TRUE(standsBefore(porogs.basicSettings, porogs.mpc));
    static_assert(std::is_same_v<decltype(TPorogs::subfolders), TSubfolders>);
    static_assert(std::is_same_v<decltype(TPorogs::output), TOutput>);
    static_assert(std::is_same_v<decltype(TPorogs::extension), TExtension>);
    static_assert(std::is_same_v<decltype(TPorogs::basicSettings), TBasicSettings>);
    static_assert(std::is_same_v<decltype(TPorogs::mpc), TMPC>);
}

TEST(Settings, TelescopeAndSite)
{
    const auto [pixelWidth, pixelHeight, focalLength, pixelScale, telescope, filter, observatory,
                useBinningFromHeader, latitude, longitude, altitude, siteKnown] = TBasicSettings{};
    static_assert(std::is_same_v<decltype(pixelWidth), const double>);
    static_assert(std::is_same_v<decltype(useBinningFromHeader), const bool>);
    static_assert(std::is_same_v<decltype(altitude), const double>);
    static_assert(std::is_same_v<decltype(siteKnown), const bool>);
    EXPECT_EQ(pixelWidth, 0.0);
    EXPECT_EQ(pixelHeight, 0.0);
    EXPECT_EQ(focalLength, 0.0);
    EXPECT_EQ(pixelScale, 0.0);
    EXPECT_EQ(telescope, "telescope");
    EXPECT_EQ(filter, "");
    EXPECT_EQ(observatory, "observatory");
    EXPECT_FALSE(useBinningFromHeader);
    EXPECT_EQ(latitude, 0.0);
    EXPECT_EQ(longitude, 0.0);
    EXPECT_EQ(altitude, 0.0);
    EXPECT_FALSE(siteKnown);
}

TEST(Settings, TelescopeAndSiteHaveTheirFieldsInOrder)
{
    const TBasicSettings settings{1.0, 2.0, 3.0, 4.0, "T", "F", "O", true, 5.0, 6.0, 7.0, true};
    EXPECT_EQ(settings.PixelWidth, 1.0);
    EXPECT_EQ(settings.PixelHeight, 2.0);
    EXPECT_EQ(settings.FocalLength, 3.0);
    EXPECT_EQ(settings.PixelScale, 4.0);
    EXPECT_EQ(settings.Telescope, "T");
    EXPECT_EQ(settings.Filter, "F");
    EXPECT_EQ(settings.Observatory, "O");
    EXPECT_TRUE(settings.UseBinningFromHeader);
    EXPECT_EQ(settings.Latitude, 5.0);
    EXPECT_EQ(settings.Longitude, 6.0);
    EXPECT_EQ(settings.Altitude, 7.0);
    EXPECT_TRUE(settings.SiteKnown);
}

TEST(Settings, ReportToTheMinorPlanetCenter)
{
    const auto [header, mask1, mask2] = TMPC{{}, "1", "2"};
    EXPECT_EQ(mask1, "1");
    EXPECT_EQ(mask2, "2");
    static_assert(std::is_same_v<decltype(header), const TMPCReportHeader>);
    EXPECT_EQ(header.COD, "500");
    EXPECT_EQ(header.CON, "");
    EXPECT_EQ(header.OBS, "");
    EXPECT_EQ(header.MEA, "");
    EXPECT_EQ(header.COM, "");
    EXPECT_EQ(header.TEL, "");
    EXPECT_EQ(header.ACK, "");
    EXPECT_EQ(header.AC2, "");
    EXPECT_EQ(header.NET, "");
    EXPECT_TRUE(header.HeaderOn);
    EXPECT_FALSE(header.HeaderFlag2);
    EXPECT_EQ(TMPC{}.NumberingTracksInZoneMask1, "");
    EXPECT_EQ(TMPC{}.NumberingTracksInZoneMask2, "");
}

TEST(Settings, CopiesStandAlone)
{
    TPorogs porogs;
    porogs.basicSettings.Telescope = "T1";
    const TPorogs copy = porogs;
    porogs.basicSettings.Telescope = "T2";
    porogs.subfolders.tavelinFolder = "other";
    porogs.mpc.MPCHeader.OBS = "A. Observer";
    EXPECT_EQ(copy.basicSettings.Telescope, "T1");
    EXPECT_EQ(copy.subfolders.tavelinFolder, "tavelin");
    EXPECT_EQ(copy.mpc.MPCHeader.OBS, "");
}
