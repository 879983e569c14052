#include "formats/star_tables.h"

#include "support/failed_writes.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace tavelinUtils;

namespace {

using Stars = std::vector<TRecCat2>;
using Points = std::vector<TRecTRI>;
using Marks = std::vector<TRecLabelPervichka_File>;
using Represents = std::vector<TRepresent>;

const Stars threeStars = {
    {.RA = 157.5, .DE = -20.25, .m = 13.25, .Name = "TYC 1-2-3"},
    {.RA = 0.0, .DE = 0.5, .m = -1.5, .Name = ""},
    {.RA = 15.0, .DE = 0.0, .m = 7.0, .Name = "B"},
};

/// A group whose first entry names the blob and whose second names the star.
TRepresent matched(int blob, int star)
{
    return {.X = 1.0, .Y = 2.0, .Value = 3.0, .Index = 4, .Items = {{5, blob, 6}, {7, star, 8}}};
}

std::string starsOf(const Stars& stars)
{
    const TemporaryFolder folder;
    sStars(folder / "stars.txt", stars);
    return bytesOf(folder / "stars.txt");
}

std::string starsOf(const Represents& representatives, const Stars& stars)
{
    const TemporaryFolder folder;
    sStars(folder / "stars.txt", representatives, stars);
    return bytesOf(folder / "stars.txt");
}

std::string blobsOf(const Points& points)
{
    const TemporaryFolder folder;
    sBlobs(folder / "blobs.txt", points);
    return bytesOf(folder / "blobs.txt");
}

std::string refStarsOf(Represents representatives, const Marks& blobs, const Marks& stars)
{
    const TemporaryFolder folder;
    sRefStars(folder / "ref.txt", representatives, blobs, stars);
    return bytesOf(folder / "ref.txt");
}

/// The first fields of the lines, each followed by a "|".
std::string firstFields(std::string text)
{
    std::string fields;
    for (; !text.empty(); text.erase(0, text.find('\n') + 1)) {
        fields += text.substr(0, text.find('\t')) + "|";
    }
    return fields;
}

TEST(StarTables, StarsHaveTheirNumbersFromZero)
{
    EXPECT_EQ(starsOf(threeStars), "0\tTYC 1-2-3\t157.50000\t-20.25000\t10:30:00.00\t-20:15:00.0\t13.2\n"
                                   "1\t\t0.00000\t0.50000\t00:00:00.00\t00:30:00.0\t-1.5\n"
                                   "2\tB\t15.00000\t0.00000\t01:00:00.00\t00:00:00.0\t7.0\n");
}

TEST(StarTables, NumbersOfStarsAreNotPadded)
{
    const Stars stars(11);
    EXPECT_EQ(firstFields(starsOf(stars)), "0|1|2|3|4|5|6|7|8|9|10|");
}

TEST(StarTables, DecimalsOfStarsAreRounded)
{
    EXPECT_EQ(starsOf({{.RA = 359.9999999, .DE = -0.0000001, .m = 9.96, .Name = "A"}}),
              "0\tA\t360.00000\t-0.00000\t23:59:60.00\t-00:00:00.0\t10.0\n");
}

TEST(StarTables, TabInANameStays)
{
    EXPECT_EQ(starsOf({{.Name = "A\tB"}}), "0\tA\tB\t0.00000\t0.00000\t00:00:00.00\t00:00:00.0\t0.0\n");
}

TEST(StarTables, MatchedStarHasTheIndexOfItsBlob)
{
    EXPECT_EQ(starsOf({matched(17, 2), matched(0, 0)}, threeStars),
              "0\tTYC 1-2-3\t157.50000\t-20.25000\t10:30:00.00\t-20:15:00.0\t13.2\n"
              "\t\t0.00000\t0.50000\t00:00:00.00\t00:30:00.0\t-1.5\n"
              "17\tB\t15.00000\t0.00000\t01:00:00.00\t00:00:00.0\t7.0\n");
}

TEST(StarTables, StarWithoutABlobBeginsWithATab)
{
    EXPECT_EQ(starsOf(Represents{}, {{.Name = "A"}}),
              "\tA\t0.00000\t0.00000\t00:00:00.00\t00:00:00.0\t0.0\n");
}

TEST(StarTables, LastBlobOfAStarCounts)
{
    EXPECT_EQ(firstFields(starsOf({matched(5, 1), matched(9, 0), matched(3, 1)}, threeStars)), "9|3||");
}

TEST(StarTables, BlobOfMinusOneIsNone)
{
    EXPECT_EQ(
        firstFields(starsOf({matched(-1, 0), matched(-2, 1), matched(4, 2), matched(-1, 2)}, threeStars)),
        "|-2||");
}

TEST(StarTables, BlobIndexIsNotComparedWithTheStars)
{
    EXPECT_EQ(firstFields(starsOf({matched(2147483647, 1)}, threeStars)), "|2147483647||");
}

TEST(StarTables, RepresentativeOfAnUnknownStarIsPassedOver)
{
    for (const int star : {-1, 3, 2147483647, -2147483647 - 1}) {
        SCOPED_TRACE(star);
        EXPECT_EQ(firstFields(starsOf({matched(5, star), matched(6, 1)}, threeStars)), "|6||");
    }
}

TEST(StarTables, RepresentativeOfFewerThanTwoEntriesIsPassedOver)
{
    const TRepresent none;
    const TRepresent one{.Items = {{0, 1, 0}}};
    EXPECT_EQ(firstFields(starsOf({none, one, matched(6, 1), one, none}, threeStars)), "|6||");
}

TEST(StarTables, EntriesBehindTheSecondDoNotCount)
{
    TRepresent represent = matched(5, 1);
    represent.Items.push_back({0, 2, 0});
    EXPECT_EQ(firstFields(starsOf({represent}, threeStars)), "|5||");
}

TEST(StarTables, PointsHaveFirstSecondAndNinthValue)
{
    EXPECT_EQ(blobsOf({{1.0, 2.0, 3.0, 4.0, 5.0, 6.0, 7.0, 8.0, 9.0},
                       {1024.25, -0.04, 3, 4, 5, 6, 7, 8, 65535.75}}),
              "0\t1.0\t2.0\t9.0\n"
              "1\t1024.2\t-0.0\t65535.8\n");
}

TEST(StarTables, NumbersOfPointsAreNotPadded)
{
    const Points points(12);
    EXPECT_EQ(firstFields(blobsOf(points)), "0|1|2|3|4|5|6|7|8|9|10|11|");
}

TEST(StarTables, ReferenceStarsStandUnderTheirColumns)
{
    const Marks blobs = {{.X_bf = 1.5, .Y_bf = 2.25, .X_f = 90.0, .Y_f = 91.0},
                         {.X_bf = 1024.0625, .Y_bf = -3.0, .RA = 92.0, .DE = 93.0, .m = 94.0}};
    const Marks stars = {{.X_bf = 7.5, .Y_bf = 8.5, .RA = 15.0, .DE = 0.5, .m = 9.0},
                         {.X_bf = 5.0, .Y_bf = 6.0, .X_f = 95.0, .RA = 157.5, .DE = -20.25, .m = 13.4375},
                         {.X_bf = 0.0005, .Y_bf = 0.0015, .RA = 359.9999999, .DE = -0.0000001, .m = -1.46}};
    EXPECT_EQ(refStarsOf({matched(1, 1), matched(0, 2), matched(1, 0)}, blobs, stars),
              "xBlob\tyBlob\tRACat\tDECat\txCat\tyCat\tmCat\n"
              "1024.062\t-3.000\t157.500000\t-20.250000\t5.000\t6.000\t13.438\n"
              "1.500\t2.250\t360.000000\t-0.000000\t0.001\t0.002\t-1.460\n"
              "1024.062\t-3.000\t15.000000\t0.500000\t7.500\t8.500\t9.000\n");
}

TEST(StarTables, ReferenceStarsWithUnknownIndexesArePassedOver)
{
    const Marks blobs(2);
    const Marks stars(3);
    const std::string columns = "xBlob\tyBlob\tRACat\tDECat\txCat\tyCat\tmCat\n";
    const std::string line = "0.000\t0.000\t0.000000\t0.000000\t0.000\t0.000\t0.000\n";
    EXPECT_EQ(refStarsOf({matched(2, 0)}, blobs, stars), columns);
    EXPECT_EQ(refStarsOf({matched(-1, 0)}, blobs, stars), columns);
    EXPECT_EQ(refStarsOf({matched(0, 3)}, blobs, stars), columns);
    EXPECT_EQ(refStarsOf({matched(0, -1)}, blobs, stars), columns);
    EXPECT_EQ(refStarsOf({matched(0, 0)}, {}, stars), columns);
    EXPECT_EQ(refStarsOf({matched(0, 0)}, blobs, {}), columns);
    EXPECT_EQ(refStarsOf({matched(2, 0), matched(1, 2), matched(0, 3)}, blobs, stars), columns + line);
}

TEST(StarTables, ReferenceStarsOfFewerThanTwoEntriesArePassedOver)
{
    const Marks marks(2);
    const TRepresent one{.Items = {{0, 1, 0}}};
    EXPECT_EQ(refStarsOf({TRepresent{}, one, matched(1, 1)}, marks, marks),
              "xBlob\tyBlob\tRACat\tDECat\txCat\tyCat\tmCat\n"
              "0.000\t0.000\t0.000000\t0.000000\t0.000\t0.000\t0.000\n");
}

TEST(StarTables, EmptyListsGiveEmptyFilesOrTheColumnsAlone)
{
    EXPECT_EQ(starsOf(Stars{}), "");
    EXPECT_EQ(starsOf(Represents{}, Stars{}), "");
    EXPECT_EQ(starsOf({matched(0, 0)}, Stars{}), "");
    EXPECT_EQ(blobsOf({}), "");
    EXPECT_EQ(refStarsOf({}, {}, {}), "xBlob\tyBlob\tRACat\tDECat\txCat\tyCat\tmCat\n");
}

TEST(StarTables, FilesThatAreThereAreReplaced)
{
    const TemporaryFolder folder;
    const std::string path = folder / "a.txt";
    Represents representatives;
    makeFile(path, "old\nold\n");
    sBlobs(path, {{}});
    EXPECT_EQ(bytesOf(path), "0\t0.0\t0.0\t0.0\n");
    sRefStars(path, representatives, {}, {});
    EXPECT_EQ(bytesOf(path), "xBlob\tyBlob\tRACat\tDECat\txCat\tyCat\tmCat\n");
    sStars(path, Stars{{.Name = "A"}});
    EXPECT_EQ(bytesOf(path), "0\tA\t0.00000\t0.00000\t00:00:00.00\t00:00:00.0\t0.0\n");
    sStars(path, representatives, Stars{{.Name = "B"}});
    EXPECT_EQ(bytesOf(path), "\tB\t0.00000\t0.00000\t00:00:00.00\t00:00:00.0\t0.0\n");
}

TEST(StarTables, FilesThatCannotBeWrittenAreCode7)
{
    Represents representatives;
    expectCode7([](const std::string& path) { sStars(path, threeStars); });
    expectCode7([&](const std::string& path) { sStars(path, representatives, threeStars); });
    expectCode7([](const std::string& path) { sBlobs(path, {{}}); });
    expectCode7([&](const std::string& path) { sRefStars(path, representatives, {}, {}); });
}

} // namespace
