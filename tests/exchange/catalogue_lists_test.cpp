#include "exchange/catalogue_lists.h"

#include "text/number_text.h"

#include "support/places.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <filesystem>
#include <iterator>
#include <limits>
#include <string>
#include <vector>

using namespace tavelinUtils;

namespace {

/// The stars that lListAAVSOvsp reads from a file of the bytes, over five of an earlier list.
std::vector<TAAVSOvsp> requestedStars(const std::string& bytes)
{
    return readBy(
        [](const std::string& path) {
            std::vector<TAAVSOvsp> stars(5);
            lListAAVSOvsp(path, stars);
            return stars;
        },
        bytes);
}

template <std::size_t count>
void expectMags(const double (&mags)[count], const double (&expected)[count])
{
    for (std::size_t i = 0; i < count; ++i) {
        EXPECT_EQ(mags[i], expected[i]) << "magnitude " << i;
    }
}

} // namespace

TEST(ChartStars, ColumnsFillTheirFields)
{
    const std::vector<TRecVSP> stars =
        readBy(lVSP, "one\ntwo\nx\tlabel\tauid\t135.5\t-49.25\ttext\t1\t2\t3\t4\t5\t6\t7\t8\t9\t10\t-11."
                     "5\tclosing\tmore\n");
    ASSERT_EQ(stars.size(), 1u);
    EXPECT_EQ(stars[0].Label, "label");
    EXPECT_EQ(stars[0].AUID, "auid");
    EXPECT_EQ(stars[0].RA, 135.5);
    EXPECT_EQ(stars[0].DE, -49.25);
    EXPECT_EQ(stars[0].Text, "text");
    expectMags(stars[0].Mags, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, -11.5});
    EXPECT_EQ(stars[0].Closing, "closing");
}

TEST(ChartStars, RealChartOfSixteenStars)
{
    const std::vector<TRecVSP> stars = lVSP(fixture("vsx/comparison_stars_of_a_chart.txt"));
    const struct
    {
        const char* Label;
        const char* AUID;
        double RA;
        double DE;
        double B, V, Rc, Ic;
    } expected[] = {
        {"69", "000-BBQ-208", 135.761833, 49.948250, 6.887, 6.876, 6.826, 0},
        {"114", "000-BLP-651", 135.744583, 49.740194, 12.124, 11.404, 11.023, 10.666},
        {"119", "000-BLP-656", 135.344208, 49.974361, 12.694, 11.901, 11.491, 11.107},
        {"122", "000-BLP-657", 135.703583, 50.037000, 12.951, 12.220, 11.833, 11.470},
        {"127", "000-BLP-655", 135.543792, 50.035083, 13.295, 12.691, 12.348, 12.025},
        {"129", "000-BLP-654", 135.889042, 49.916028, 13.523, 12.873, 12.533, 12.213},
        {"130", "000-BLP-653", 135.534458, 49.843722, 13.682, 12.998, 12.635, 12.293},
        {"136", "000-BLP-652", 135.462375, 49.951778, 14.138, 13.577, 13.223, 12.890},
        {"140", "000-BLP-649", 135.488875, 49.769500, 14.624, 13.968, 13.578, 13.212},
        {"144", "000-BLP-648", 135.709333, 49.907806, 15.070, 14.397, 14.025, 13.676},
        {"146", "000-BLP-642", 135.572500, 49.857167, 15.439, 14.571, 14.123, 13.704},
        {"149", "000-BLP-644", 135.724042, 49.833889, 15.699, 14.872, 14.485, 14.122},
        {"151", "000-BLP-647", 135.806542, 49.759028, 15.803, 15.068, 14.654, 14.266},
        {"153", "000-BLP-650", 135.493542, 49.739861, 16.269, 15.316, 14.979, 14.662},
        {"156", "000-BLP-646", 135.763833, 49.787056, 16.374, 15.575, 15.154, 14.760},
        {"159", "000-BLP-645", 135.736833, 49.797111, 16.594, 15.890, 15.477, 15.090},
    };
    ASSERT_EQ(stars.size(), std::size(expected));
    for (std::size_t i = 0; i < stars.size(); ++i) {
        SCOPED_TRACE(expected[i].AUID);
        EXPECT_EQ(stars[i].Label, expected[i].Label);
        EXPECT_EQ(stars[i].AUID, expected[i].AUID);
        EXPECT_EQ(stars[i].RA, expected[i].RA);
        EXPECT_EQ(stars[i].DE, expected[i].DE);
        EXPECT_EQ(stars[i].Text, "");
        EXPECT_EQ(stars[i].Closing, "na");
        const auto& [label, auid, RA, DE, B, V, Rc, Ic] = expected[i];
        if (i == 0) {
            // The one star with U and with the infrared bands J, H and K.
            expectMags(stars[i].Mags, {6.933, B, V, Rc, Ic, 6.671, 6.716, 6.663, 0, 0, 0});
        } else {
            expectMags(stars[i].Mags, {0, B, V, Rc, Ic, 0, 0, 0, 0, 0, 0});
        }
    }
}

TEST(ChartStars, NanLeavesZeroInEachBand)
{
    for (std::size_t band = 0; band < 11; ++band) {
        std::string line = "1\tl\ta\t1\t2\tt";
        for (std::size_t i = 0; i < 11; ++i) {
            line += i == band ? "\tNan" : "\t9";
        }
        const std::vector<TRecVSP> stars = readBy(lVSP, "one\ntwo\n" + line + "\tna\n");
        ASSERT_EQ(stars.size(), 1u);
        for (std::size_t i = 0; i < 11; ++i) {
            EXPECT_EQ(stars[0].Mags[i], i == band ? 0.0 : 9.0) << "band " << i;
        }
    }
}

TEST(ChartStars, OtherTextInABandIsReadAsANumber)
{
    const std::vector<TRecVSP> stars = readBy(
        lVSP, "one\ntwo\n1\tl\ta\tabc\t\tt\tabc\t\t-\t12.5?\t 3\tNaN\tnan\tNAN\tinf\tNan \tNanny\tna\n");
    ASSERT_EQ(stars.size(), 1u);
    EXPECT_EQ(stars[0].RA, 0.0);
    EXPECT_EQ(stars[0].DE, 0.0);
    const double(&mags)[11] = stars[0].Mags;
    EXPECT_EQ(mags[0], 0.0);
    EXPECT_EQ(mags[1], 0.0);
    EXPECT_EQ(mags[2], 0.0);
    EXPECT_EQ(mags[3], 12.5);
    EXPECT_EQ(mags[4], 3.0);
    EXPECT_TRUE(std::isnan(mags[5]));
    EXPECT_TRUE(std::isnan(mags[6]));
    EXPECT_TRUE(std::isnan(mags[7]));
    EXPECT_EQ(mags[8], std::numeric_limits<double>::infinity());
    // Only exactly "Nan" means no magnitude.
    EXPECT_TRUE(std::isnan(mags[9]));
    EXPECT_TRUE(std::isnan(mags[10]));
}

TEST(ChartStars, ShortLinesLeaveTheDefaults)
{
    const std::vector<TRecVSP> stars =
        readBy(lVSP, "one\ntwo\n\n1\n1\tl\n1\tl\ta\t3\n1\tl\ta\t3\t4\t\t5\t\t\n");
    ASSERT_EQ(stars.size(), 5u);
    const struct
    {
        const char* Label;
        const char* AUID;
        double RA, DE, U;
    } expected[] = {
        {"", "", 0, 0, 0}, {"", "", 0, 0, 0}, {"l", "", 0, 0, 0}, {"l", "a", 3, 0, 0}, {"l", "a", 3, 4, 5}};
    for (std::size_t i = 0; i < stars.size(); ++i) {
        SCOPED_TRACE(i);
        EXPECT_EQ(stars[i].Label, expected[i].Label);
        EXPECT_EQ(stars[i].AUID, expected[i].AUID);
        EXPECT_EQ(stars[i].RA, expected[i].RA);
        EXPECT_EQ(stars[i].DE, expected[i].DE);
        EXPECT_EQ(stars[i].Text, "");
        expectMags(stars[i].Mags, {expected[i].U, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0});
        EXPECT_EQ(stars[i].Closing, "");
    }
}

TEST(ChartStars, FewerThanThreeLinesAreNoStars)
{
    for (const char* bytes : {"", "one\n", "one\ntwo", "one\ntwo\n"}) {
        SCOPED_TRACE(bytes);
        EXPECT_TRUE(readBy(lVSP, bytes).empty());
    }
}

TEST(RequestedStars, ColumnsFillTheirFieldsFromTheFirstLineOn)
{
    const std::vector<TAAVSOvsp> stars =
        requestedStars("135.5\t-49.25\ta\tb\tc\t1\t2\t3\t4\t5\t6\t7\t8\t9\t10\t11\t-12.5\tclosing\tmore\n"
                       "1\t2\td\te\tf\t\t.5\n");
    ASSERT_EQ(stars.size(), 2u);
    EXPECT_EQ(stars[0].RA, 135.5);
    EXPECT_EQ(stars[0].DE, -49.25);
    EXPECT_EQ(stars[0].Text1, "a");
    EXPECT_EQ(stars[0].Text2, "b");
    EXPECT_EQ(stars[0].Text3, "c");
    expectMags(stars[0].Mags, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, -12.5});
    EXPECT_EQ(stars[0].Closing, "closing");
    EXPECT_EQ(stars[1].RA, 1.0);
    EXPECT_EQ(stars[1].DE, 2.0);
    EXPECT_EQ(stars[1].Text1, "d");
    EXPECT_EQ(stars[1].Text2, "e");
    EXPECT_EQ(stars[1].Text3, "f");
    expectMags(stars[1].Mags, {0, 0.5, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0});
    EXPECT_EQ(stars[1].Closing, "");
}

TEST(RequestedStars, NanHasNoMeaningOfItsOwn)
{
    const std::vector<TAAVSOvsp> stars = requestedStars("abc\tNan\ta\tb\tc\tNan\tabc\t3\n");
    ASSERT_EQ(stars.size(), 1u);
    EXPECT_EQ(stars[0].RA, 0.0);
    EXPECT_TRUE(std::isnan(stars[0].DE));
    EXPECT_TRUE(std::isnan(stars[0].Mags[0]));
    EXPECT_EQ(stars[0].Mags[1], 0.0);
    EXPECT_EQ(stars[0].Mags[2], 3.0);
}

TEST(RequestedStars, EveryLineIsAStar)
{
    const std::vector<TAAVSOvsp> stars = requestedStars("RA\tDE\tName\n\n7");
    ASSERT_EQ(stars.size(), 3u);
    EXPECT_EQ(stars[0].RA, 0.0);
    EXPECT_EQ(stars[0].Text1, "Name");
    EXPECT_EQ(stars[1].Text1, "");
    EXPECT_EQ(stars[2].RA, 7.0);
}

TEST(SatelliteNames, ColumnsFillTheirFields)
{
    const std::vector<TNameSat> names =
        readBy(lNameSat, "25544\tISS\tZARYA\tmore\n43013\tNOAA 20\r\n -7x\t\tb\nabc\n\n0x10\t a \n");
    const struct
    {
        int Number;
        const char* Text1;
        const char* Text2;
    } expected[] = {{25544, "ISS", "ZARYA"}, {43013, "NOAA 20", ""}, {-7, "", "b"}, {0, "", ""}, {0, "", ""},
                    {0, " a ", ""}};
    ASSERT_EQ(names.size(), std::size(expected));
    for (std::size_t i = 0; i < names.size(); ++i) {
        SCOPED_TRACE(i);
        EXPECT_EQ(names[i].Number, expected[i].Number);
        EXPECT_EQ(names[i].Text1, expected[i].Text1);
        EXPECT_EQ(names[i].Text2, expected[i].Text2);
    }
}

TEST(SatelliteNames, NumberIsCutTo32Bits)
{
    const std::vector<TNameSat> names =
        readBy(lNameSat, "4294967297\ta\n2147483648\tb\n99999999999999999999\tc\n");
    ASSERT_EQ(names.size(), 3u);
    EXPECT_EQ(names[0].Number, 1);
    EXPECT_EQ(names[1].Number, -2147483647 - 1);
    EXPECT_EQ(names[2].Number, -1);
}

TEST(CatalogueLists, FileThatCannotBeReadIsAnEmptyList)
{
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder / "folder");
    for (const std::string& path :
         {std::string(), folder / "missing.txt", folder / "missing/a.txt", folder / "folder"})
    {
        SCOPED_TRACE(path);
        EXPECT_TRUE(LoadVSX(path).empty());
        EXPECT_TRUE(lVSP(path).empty());
        EXPECT_TRUE(lNameSat(path).empty());
        std::vector<TVSX> variables(2);
        lListVSX(path, variables);
        EXPECT_TRUE(variables.empty());
        std::vector<TAAVSOvsp> requested(2);
        lListAAVSOvsp(path, requested);
        EXPECT_TRUE(requested.empty());
    }
    EXPECT_FALSE(exists(folder / "missing.txt"));
}

TEST(CatalogueLists, NameIsFoundByItsPlace)
{
    EXPECT_EQ(GetDataID({}, "a"), -1);
    EXPECT_EQ(GetDataID(std::vector<std::string>{"b", "c"}, "a"), -2);
    EXPECT_EQ(GetDataID(std::vector<std::string>{"b", "a", "a"}, "a"), 1);
    EXPECT_EQ(GetDataID(std::vector<std::string>{"A", " a"}, "a"), -2);
    EXPECT_EQ(GetDataID(std::vector<std::string>{"a", ""}, ""), 1);
}
