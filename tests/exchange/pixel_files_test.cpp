#include "exchange/pixel_files.h"

#include "support/failed_writes.h"
#include "support/no_room.h"
#include "support/record_bytes.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <cstddef>
#include <filesystem>
#include <limits>
#include <string>
#include <utility>
#include <vector>

using namespace tavelinUtils;

namespace {

using Places = std::vector<std::pair<int, int>>;

template <class Pixels>
Places placesOf(const Pixels& pixels)
{
    Places places;
    for (const auto& one : pixels) {
        places.emplace_back(one.X, one.Y);
    }
    return places;
}

/// An object whose other fields hold something that no file keeps.
TObjKontur objectAt(int x, int y, std::vector<pixel> area)
{
    TObjKontur object;
    object.Kind = 1;
    object.X = x;
    object.Y = y;
    object.Value = 3.0;
    object.ValueA = 4.0;
    object.Contour = {{90, 91, 92.0, 93.0}};
    object.Area = std::move(area);
    object.Index = 55;
    object.XWeight = 5.0;
    return object;
}

std::vector<TObjKontur> threeObjects()
{
    return {objectAt(10, -20, {{1, 2, 100.0, 101.0}, {3, 4, 102.0, 103.0}}), objectAt(30, 40, {}),
            objectAt(50, 60, {{5, 6, 104.0, 105.0}})};
}

const std::string firstObject = int32s({2, 10, -20, 1, 2, 3, 4});
const std::string secondObject = int32s({0, 30, 40});
const std::string thirdObject = int32s({1, 50, 60, 5, 6});

/// Blobs that name the objects at these places.
std::vector<VihodExt> blobsOf(const std::vector<int>& indices)
{
    std::vector<VihodExt> blobs(indices.size());
    for (std::size_t i = 0; i < indices.size(); ++i) {
        blobs[i].Index = indices[i];
        blobs[i].X = 77.0;
    }
    return blobs;
}

/// Reads objects out of the bytes into an empty list and expects success.
std::vector<TObjKontur> objectsIn(const std::string& bytes)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.pixobj", bytes);
    std::vector<TObjKontur> objects;
    EXPECT_EQ(LoadPixelObj(folder / "a.pixobj", objects), 0);
    return objects;
}

std::vector<DTSegment> threeSegments()
{
    return {{1, -2, 3.5, {{4, 5, 6.5}, {7, 8, -9.5}}}, {10, 11, 12.0, {}}, {13, 14, 15.0, {{16, 17, 18.0}}}};
}

const std::string bytesOfThreeSegments = int32s({3}) +                                            // count
                                         int32s({2, 1, -2}) + doubles({3.5}) +                    // n, head
                                         int32s({4, 5}) + doubles({6.5}) +                        // points
                                         int32s({7, 8}) + doubles({-9.5}) + int32s({0, 10, 11}) + //
                                         doubles({12.0}) + int32s({1, 13, 14}) + doubles({15.0}) +
                                         int32s({16, 17}) + doubles({18.0});

void expectSegment(const DTSegment& segment, int x, int y, double value, const Places& places)
{
    EXPECT_EQ(segment.X, x);
    EXPECT_EQ(segment.Y, y);
    EXPECT_EQ(segment.Value, value);
    EXPECT_EQ(placesOf(segment.Points), places);
}

std::vector<DTSegment> segmentsIn(const std::string& bytes)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.bin", bytes);
    std::vector<DTSegment> segments;
    LoadSegment(folder / "a.bin", segments);
    return segments;
}

} // namespace

TEST(PixelFiles, BadPixelIsTwoIntegers)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.bin", std::string(100, 'x'));
    EXPECT_EQ(sBadPix(folder / "a.bin", std::vector<pixel>{{1, 2, 3.0, 4.0}, {-5, 66051, 6.0, 7.0}}), 0);
    using namespace std::string_literals;
    EXPECT_EQ(bytesOf(folder / "a.bin"), "\x01\x00\x00\x00\x02\x00\x00\x00"
                                         "\xfb\xff\xff\xff\x03\x02\x01\x00"s);
}

TEST(PixelFiles, NoBadPixelsAreAnEmptyFile)
{
    const TemporaryFolder folder;
    EXPECT_EQ(sBadPix(folder / "a.bin", std::vector<pixel>{}), 0);
    EXPECT_EQ(bytesOf(folder / "a.bin"), "");
    std::vector<pixel> pixels(3);
    EXPECT_EQ(lBadPix(folder / "a.bin", pixels), 0);
    EXPECT_TRUE(pixels.empty());
}

TEST(PixelFiles, BadPixelsTakeThePlaceOfTheListAndHaveAPositionAlone)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.bin", int32s({1, 2, -5, INT_MAX}));
    std::vector<pixel> pixels = {{9, 9, 9.0, 9.0}, {9, 9, 9.0, 9.0}, {9, 9, 9.0, 9.0}};
    EXPECT_EQ(lBadPix(folder / "a.bin", pixels), 0);
    EXPECT_EQ(placesOf(pixels), (Places{{1, 2}, {-5, INT_MAX}}));
    for (const pixel& bad : pixels) {
        EXPECT_EQ(bad.C, 0.0);
        EXPECT_EQ(bad.A, 0.0);
    }
}

TEST(PixelFiles, FileOfBadPixelsLosesItsTail)
{
    const TemporaryFolder folder;
    for (std::size_t size = 0; size <= 24; ++size) {
        SCOPED_TRACE(size);
        makeFile(folder / "a.bin", int32s({1, 2, 3, 4, 5, 6}).substr(0, size));
        std::vector<pixel> pixels;
        EXPECT_EQ(lBadPix(folder / "a.bin", pixels), 0);
        ASSERT_EQ(pixels.size(), size / 8);
        if (!pixels.empty()) {
            EXPECT_EQ(pixels.back().X, static_cast<int>(2 * pixels.size()) - 1);
            EXPECT_EQ(pixels.back().Y, static_cast<int>(2 * pixels.size()));
        }
    }
}

TEST(PixelFiles, BadPixelsThatCannotBeWrittenAreOne)
{
    forUnwritablePaths([](const std::string& path) {
        EXPECT_EQ(sBadPix(path, std::vector<pixel>{{1, 2, 3.0, 4.0}}), 1);
    });
}

TEST(PixelFiles, BadPixelsOfNoFileAreOneAndNone)
{
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder / "folder");
    for (const std::string& path :
         {folder / "missing.bin", folder / "missing/a.bin", std::string(), folder / "folder"})
    {
        SCOPED_TRACE(path);
        std::vector<pixel> pixels(3);
        EXPECT_EQ(lBadPix(path, pixels), 1);
        EXPECT_TRUE(pixels.empty());
    }
}

TEST(PixelFiles, SegmentsAreCountsHeadsAndPoints)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.bin", std::string(500, 'x'));
    std::vector<DTSegment> segments = threeSegments();
    SaveSegment(folder / "a.bin", segments);
    EXPECT_EQ(bytesOf(folder / "a.bin"), bytesOfThreeSegments);
    ASSERT_EQ(segments.size(), 3u);
    expectSegment(segments[0], 1, -2, 3.5, {{4, 5}, {7, 8}});

    std::vector<DTSegment> none;
    SaveSegment(folder / "b.bin", none);
    EXPECT_EQ(bytesOf(folder / "b.bin"), zeros(4));
}

TEST(PixelFiles, SegmentsComeBack)
{
    const std::vector<DTSegment> segments = segmentsIn(bytesOfThreeSegments + "tail");
    ASSERT_EQ(segments.size(), 3u);
    expectSegment(segments[0], 1, -2, 3.5, {{4, 5}, {7, 8}});
    EXPECT_EQ(segments[0].Points[0].Value, 6.5);
    EXPECT_EQ(segments[0].Points[1].Value, -9.5);
    expectSegment(segments[1], 10, 11, 12.0, {});
    expectSegment(segments[2], 13, 14, 15.0, {{16, 17}});
    EXPECT_EQ(segments[2].Points[0].Value, 18.0);
}

TEST(PixelFiles, SegmentsTakeThePlaceOfWhatTheListHolds)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.bin",
             int32s({1}) + int32s({1, 1, 2}) + doubles({3.0}) + int32s({4, 5}) + doubles({6.0}));
    std::vector<DTSegment> segments = threeSegments();
    LoadSegment(folder / "a.bin", segments);
    ASSERT_EQ(segments.size(), 1u);
    expectSegment(segments[0], 1, 2, 3.0, {{4, 5}});
    EXPECT_EQ(segments[0].Points[0].Value, 6.0);

    makeFile(folder / "a.bin", bytesOfThreeSegments);
    LoadSegment(folder / "a.bin", segments);
    ASSERT_EQ(segments.size(), 3u);
    expectSegment(segments[0], 1, -2, 3.5, {{4, 5}, {7, 8}});
}

TEST(PixelFiles, SegmentsOfNoFileLeaveTheList)
{
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder / "folder");
    for (const std::string& path :
         {folder / "missing.bin", folder / "missing/a.bin", std::string(), folder / "folder"})
    {
        SCOPED_TRACE(path);
        std::vector<DTSegment> segments = threeSegments();
        EXPECT_NO_THROW(LoadSegment(path, segments));
        ASSERT_EQ(segments.size(), 3u);
        expectSegment(segments[0], 1, -2, 3.5, {{4, 5}, {7, 8}});
    }
}

TEST(PixelFiles, SegmentsThatCannotBeWrittenArePassedOver)
{
    const auto save = [](const std::string& path) {
        std::vector<DTSegment> segments = threeSegments();
        SaveSegment(path, segments);
    };
    expectSilence(save);
    forUnwritablePaths([&save](const std::string& path) { EXPECT_NO_THROW(save(path)); });
}

TEST(PixelFiles, CountOfSegmentsAboveTheLimitAndTheFileIsRefused)
{
    const TemporaryFolder folder;
    for (const int count : {65537, INT_MAX}) {
        SCOPED_TRACE(count);
        makeFile(folder / "a.bin", int32s({count}) + int32s({0, 1, 2}) + doubles({3.0}));
        std::vector<DTSegment> segments = threeSegments();
        LoadSegment(folder / "a.bin", segments);
        ASSERT_EQ(segments.size(), 3u);
        expectSegment(segments[0], 1, -2, 3.5, {{4, 5}, {7, 8}});
    }
    EXPECT_TRUE(segmentsIn(int32s({65537}) + zeros(65532)).empty()); // 65536 bytes
    EXPECT_EQ(segmentsIn(int32s({65537}) + zeros(65533)).size(), 65537u);
}

TEST(PixelFiles, CountOfSegmentsUpToTheLimitIsBelieved)
{
    for (const int count : {2, 1000, 65536}) {
        SCOPED_TRACE(count);
        const std::vector<DTSegment> segments =
            segmentsIn(int32s({count}) + int32s({0, 1, 2}) + doubles({3.0}));
        ASSERT_EQ(segments.size(), static_cast<std::size_t>(count));
        expectSegment(segments.front(), 1, 2, 3.0, {});
        expectSegment(segments.back(), 0, 0, 0.0, {});
    }
}

TEST(PixelFiles, NegativeOrMissingCountOfSegmentsEmptiesTheList)
{
    const TemporaryFolder folder;
    for (const std::string& bytes : {int32s({0, 1, 1, 2}), int32s({-1, 1, 1, 2}), int32s({INT_MIN}),
                                     std::string(), std::string("\x05\x00", 2)})
    {
        SCOPED_TRACE(testing::PrintToString(bytes));
        makeFile(folder / "a.bin", bytes);
        std::vector<DTSegment> segments = threeSegments();
        LoadSegment(folder / "a.bin", segments);
        EXPECT_TRUE(segments.empty());
    }
}

TEST(PixelFiles, CountOfPointsUpToTheLimitIsBelieved)
{
    for (const int count : {2, 1000, 65536}) {
        SCOPED_TRACE(count);
        const std::vector<DTSegment> segments = segmentsIn(int32s({2}) + int32s({count, 1, 2}) +
                                                           doubles({3.0}) + int32s({4, 5}) + doubles({6.0}));
        ASSERT_EQ(segments.size(), 2u);
        EXPECT_EQ(segments[0].X, 1);
        EXPECT_EQ(segments[0].Value, 3.0);
        ASSERT_EQ(segments[0].Points.size(), static_cast<std::size_t>(count));
        EXPECT_EQ(segments[0].Points.front().Y, 5);
        EXPECT_EQ(segments[0].Points.front().Value, 6.0);
        EXPECT_EQ(segments[0].Points.back().X, 0);
        EXPECT_EQ(segments[0].Points.back().Value, 0.0);
        expectSegment(segments[1], 0, 0, 0.0, {});
    }
}

TEST(PixelFiles, CountOfPointsThatTheFileCannotHoldEndsTheReading)
{
    for (const int count : {65537, INT_MAX}) {
        SCOPED_TRACE(count);
        const std::vector<DTSegment> segments =
            segmentsIn(int32s({3}) + int32s({0, 1, 2}) + doubles({3.0}) + int32s({count, 4, 5}) +
                       doubles({6.0}) + int32s({0, 7, 8}) + doubles({9.0}));
        ASSERT_EQ(segments.size(), 3u);
        expectSegment(segments[0], 1, 2, 3.0, {});
        EXPECT_TRUE(segments[1].Points.empty());
        expectSegment(segments[2], 0, 0, 0.0, {});
    }
}

TEST(PixelFiles, LargeCountOfPointsThatTheFileHoldsIsRead)
{
    const std::vector<DTSegment> segments =
        segmentsIn(int32s({2, 65537, 1, 2}) + doubles({3.0}) + zeros(16 * 65536) + int32s({4, 5}) +
                   doubles({6.0}) + int32s({0, 7, 8}) + doubles({9.0}));
    ASSERT_EQ(segments.size(), 2u);
    ASSERT_EQ(segments[0].Points.size(), 65537u);
    EXPECT_EQ(segments[0].Points[65536].X, 4);
    EXPECT_EQ(segments[0].Points[65536].Y, 5);
    EXPECT_EQ(segments[0].Points[65536].Value, 6.0);
    expectSegment(segments[1], 7, 8, 9.0, {});
}

TEST(PixelFiles, NegativeCountOfPointsIsNone)
{
    for (const int count : {-1, INT_MIN}) {
        SCOPED_TRACE(count);
        const std::vector<DTSegment> segments = segmentsIn(
            int32s({2}) + int32s({count, 1, 2}) + doubles({3.0}) + int32s({0, 4, 5}) + doubles({6.0}));
        ASSERT_EQ(segments.size(), 2u);
        expectSegment(segments[0], 1, 2, 3.0, {});
        expectSegment(segments[1], 4, 5, 6.0, {});
    }
}

TEST(PixelFiles, EveryCutOfSegmentsLeavesTheWholePointsBeforeIt)
{
    // Count at 0; n at 4, head at 8, points at 24 and 40; n at 56, head at 60; n at 76, head at 80, point
    // at 96.
    for (std::size_t size = 4; size <= bytesOfThreeSegments.size(); ++size) {
        SCOPED_TRACE(size);
        const std::vector<DTSegment> segments = segmentsIn(bytesOfThreeSegments.substr(0, size));
        ASSERT_EQ(segments.size(), 3u);
        EXPECT_EQ(segments[0].Points.size(), size < 8 ? 0u : 2u);
        if (size >= 24) {
            EXPECT_EQ(segments[0].X, 1);
            EXPECT_EQ(segments[0].Y, -2);
            EXPECT_EQ(segments[0].Value, 3.5);
        }
        if (size >= 40) {
            EXPECT_EQ(segments[0].Points[0].Value, 6.5);
        }
        if (size >= 76) {
            expectSegment(segments[0], 1, -2, 3.5, {{4, 5}, {7, 8}});
            expectSegment(segments[1], 10, 11, 12.0, {});
        }
        EXPECT_EQ(segments[2].Points.size(), size < 80 ? 0u : 1u);
    }
    ASSERT_EQ(bytesOfThreeSegments.size(), 112u);
    expectSegment(segmentsIn(bytesOfThreeSegments)[2], 13, 14, 15.0, {{16, 17}});
}

TEST(PixelFiles, ObjectsAreCountsPositionsAndPixels)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.pixobj", std::string(500, 'x'));
    std::vector<TObjKontur> objects = threeObjects();
    SavePixelObj(folder / "a.pixobj", objects);
    EXPECT_EQ(bytesOf(folder / "a.pixobj"), int32s({3}) + firstObject + secondObject + thirdObject);

    ASSERT_EQ(objects.size(), 3u);
    EXPECT_EQ(objects[0].Kind, 1);
    EXPECT_EQ(placesOf(objects[0].Area), (Places{{1, 2}, {3, 4}}));
    EXPECT_EQ(objects[0].Area[1].C, 102.0);
    EXPECT_EQ(placesOf(objects[0].Contour), (Places{{90, 91}}));

    std::vector<TObjKontur> none;
    SavePixelObj(folder / "b.pixobj", none);
    EXPECT_EQ(bytesOf(folder / "b.pixobj"), zeros(4));
}

TEST(PixelFiles, ListOfWrittenObjectsIsTrimmed)
{
    const TemporaryFolder folder;
    std::vector<TObjKontur> objects = threeObjects();
    objects.reserve(100);
    SavePixelObj(folder / "a.pixobj", objects);
    EXPECT_EQ(objects.size(), 3u);
    EXPECT_EQ(objects.capacity(), 3u);
}

TEST(PixelFiles, BlobsChooseTheObjectsAndTheirOrder)
{
    const TemporaryFolder folder;
    std::vector<TObjKontur> objects = threeObjects();
    const struct
    {
        std::vector<int> indices;
        std::string bytes;
    } rows[] = {
        {{0, 1, 2}, int32s({3}) + firstObject + secondObject + thirdObject},
        {{2, 0}, int32s({2}) + thirdObject + firstObject},
        {{1}, int32s({1}) + secondObject},
        {{2, 2, 0, 2}, int32s({4}) + thirdObject + thirdObject + firstObject + thirdObject},
        {{}, int32s({0})},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::PrintToString(row.indices));
        std::vector<VihodExt> blobs = blobsOf(row.indices);
        SavePixelObj(folder / "a.pixobj", blobs, objects);
        EXPECT_EQ(bytesOf(folder / "a.pixobj"), row.bytes);
        EXPECT_EQ(objects.size(), 3u);
        EXPECT_EQ(blobs.size(), row.indices.size());
    }
}

TEST(PixelFiles, BlobWithoutObjectGetsAnEmptyOne)
{
    const TemporaryFolder folder;
    std::vector<TObjKontur> objects = threeObjects();
    for (const int index : {3, 65536, INT_MAX, -1, INT_MIN}) {
        SCOPED_TRACE(index);
        std::vector<VihodExt> blobs = blobsOf({2, index, 1});
        SavePixelObj(folder / "a.pixobj", blobs, objects);
        EXPECT_EQ(bytesOf(folder / "a.pixobj"), int32s({3}) + thirdObject + zeros(12) + secondObject);
    }
    std::vector<TObjKontur> none;
    std::vector<VihodExt> blobs = blobsOf({0});
    SavePixelObj(folder / "a.pixobj", blobs, none);
    EXPECT_EQ(bytesOf(folder / "a.pixobj"), int32s({1}) + zeros(12));
}

TEST(PixelFiles, ObjectsComeBackWithoutTheirValues)
{
    const std::vector<TObjKontur> objects =
        objectsIn(int32s({3}) + thirdObject + firstObject + secondObject + "tail");
    ASSERT_EQ(objects.size(), 3u);
    EXPECT_EQ(objects[0].X, 50);
    EXPECT_EQ(objects[0].Y, 60);
    EXPECT_EQ(placesOf(objects[0].Area), (Places{{5, 6}}));
    EXPECT_EQ(objects[1].X, 10);
    EXPECT_EQ(objects[1].Y, -20);
    EXPECT_EQ(placesOf(objects[1].Area), (Places{{1, 2}, {3, 4}}));
    EXPECT_EQ(objects[2].X, 30);
    EXPECT_EQ(objects[2].Y, 40);
    EXPECT_TRUE(objects[2].Area.empty());
    for (const TObjKontur& object : objects) {
        EXPECT_EQ(object.Kind, 0);
        EXPECT_EQ(object.Value, 0.0);
        EXPECT_EQ(object.ValueA, 0.0);
        EXPECT_EQ(object.Index, 0);
        EXPECT_TRUE(object.Contour.empty());
        for (const pixel& one : object.Area) {
            EXPECT_EQ(one.C, 0.0);
            EXPECT_EQ(one.A, 0.0);
        }
    }
}

TEST(PixelFiles, ListOfObjectsIsResizedAndItsAreasAreReplaced)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.pixobj", int32s({2}) + thirdObject + firstObject);
    std::vector<TObjKontur> objects = threeObjects();
    EXPECT_EQ(LoadPixelObj(folder / "a.pixobj", objects), 0);
    ASSERT_EQ(objects.size(), 2u);
    EXPECT_EQ(objects[0].X, 50);
    EXPECT_EQ(placesOf(objects[0].Area), (Places{{5, 6}}));
    EXPECT_EQ(placesOf(objects[1].Area), (Places{{1, 2}, {3, 4}}));
    // What the file does not hold of an object stays.
    EXPECT_EQ(objects[0].Kind, 1);
    EXPECT_EQ(objects[0].ValueA, 4.0);
    EXPECT_EQ(placesOf(objects[0].Contour), (Places{{90, 91}}));
}

TEST(PixelFiles, MissingFileOfObjectsLeavesTheListTrimmed)
{
    const TemporaryFolder folder;
    for (const std::string& path : {folder / "missing.pixobj", folder / "missing/a.pixobj", std::string()}) {
        SCOPED_TRACE(path);
        std::vector<TObjKontur> objects = threeObjects();
        objects.reserve(100);
        EXPECT_EQ(LoadPixelObj(path, objects), 0);
        ASSERT_EQ(objects.size(), 3u);
        EXPECT_EQ(objects.capacity(), 3u);
        EXPECT_EQ(objects[0].X, 10);
        EXPECT_EQ(objects[0].Kind, 1);
        EXPECT_EQ(objects[0].Area[1].C, 102.0);
    }
}

TEST(PixelFiles, FolderInPlaceOfObjectsIsOneAndLeavesTheList)
{
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder / "folder");
    std::vector<TObjKontur> objects = threeObjects();
    EXPECT_EQ(LoadPixelObj(folder / "folder", objects), 1);
    ASSERT_EQ(objects.size(), 3u);
    EXPECT_EQ(placesOf(objects[0].Area), (Places{{1, 2}, {3, 4}}));
}

TEST(PixelFiles, ObjectsThatCannotBeWrittenArePassedOver)
{
    const auto save = [](const std::string& path) {
        std::vector<TObjKontur> objects = threeObjects();
        SavePixelObj(path, objects);
        std::vector<VihodExt> blobs = blobsOf({2, 0});
        SavePixelObj(path, blobs, objects);
    };
    expectSilence(save);
    forUnwritablePaths([&save](const std::string& path) { EXPECT_NO_THROW(save(path)); });
}

TEST(PixelFiles, CountOfObjectsAboveTheLimitAndTheFileIsRefused)
{
    const TemporaryFolder folder;
    for (const int count : {65537, INT_MAX}) {
        SCOPED_TRACE(count);
        makeFile(folder / "a.pixobj", int32s({count}) + firstObject);
        std::vector<TObjKontur> objects = threeObjects();
        EXPECT_EQ(LoadPixelObj(folder / "a.pixobj", objects), 1);
        ASSERT_EQ(objects.size(), 3u);
        EXPECT_EQ(objects[1].X, 30);
        EXPECT_EQ(placesOf(objects[0].Area), (Places{{1, 2}, {3, 4}}));
    }
    std::vector<TObjKontur> objects;
    makeFile(folder / "a.pixobj", int32s({65537}) + zeros(65532)); // 65536 bytes
    EXPECT_EQ(LoadPixelObj(folder / "a.pixobj", objects), 1);
    EXPECT_TRUE(objects.empty());
    makeFile(folder / "a.pixobj", int32s({65537}) + zeros(65533));
    EXPECT_EQ(LoadPixelObj(folder / "a.pixobj", objects), 0);
    EXPECT_EQ(objects.size(), 65537u);
}

TEST(PixelFiles, CountOfObjectsUpToTheLimitIsBelieved)
{
    for (const int count : {2, 1000, 65536}) {
        SCOPED_TRACE(count);
        const std::vector<TObjKontur> objects = objectsIn(int32s({count}) + firstObject);
        ASSERT_EQ(objects.size(), static_cast<std::size_t>(count));
        EXPECT_EQ(objects.front().X, 10);
        EXPECT_EQ(placesOf(objects.front().Area), (Places{{1, 2}, {3, 4}}));
        EXPECT_EQ(objects.back().X, 0);
        EXPECT_EQ(objects.back().Y, 0);
        EXPECT_TRUE(objects.back().Area.empty());
    }
}

TEST(PixelFiles, NegativeOrMissingCountOfObjectsEmptiesTheList)
{
    const TemporaryFolder folder;
    for (const std::string& bytes : {int32s({0, 1, 1, 2}), int32s({-1, 1, 1, 2}), int32s({INT_MIN}),
                                     std::string(), std::string("\x05\x00", 2)})
    {
        SCOPED_TRACE(testing::PrintToString(bytes));
        makeFile(folder / "a.pixobj", bytes);
        std::vector<TObjKontur> objects = threeObjects();
        EXPECT_EQ(LoadPixelObj(folder / "a.pixobj", objects), 0);
        EXPECT_TRUE(objects.empty());
    }
}

TEST(PixelFiles, CountOfPixelsUpToTheLimitIsBelieved)
{
    for (const int count : {2, 1000, 65536}) {
        SCOPED_TRACE(count);
        const std::vector<TObjKontur> objects = objectsIn(int32s({2}) + int32s({count, 7, 8, 1, 2}));
        ASSERT_EQ(objects.size(), 2u);
        EXPECT_EQ(objects[0].X, 7);
        EXPECT_EQ(objects[0].Y, 8);
        ASSERT_EQ(objects[0].Area.size(), static_cast<std::size_t>(count));
        EXPECT_EQ(objects[0].Area.front().X, 1);
        EXPECT_EQ(objects[0].Area.front().Y, 2);
        EXPECT_EQ(objects[0].Area.back().X, 0);
        EXPECT_EQ(objects[0].Area.back().Y, 0);
        EXPECT_TRUE(objects[1].Area.empty());
    }
}

TEST(PixelFiles, CountOfPixelsThatTheFileCannotHoldEndsTheReading)
{
    for (const int count : {65537, INT_MAX}) {
        SCOPED_TRACE(count);
        const std::vector<TObjKontur> objects =
            objectsIn(int32s({3}) + thirdObject + int32s({count, 7, 8}) + thirdObject);
        ASSERT_EQ(objects.size(), 3u);
        EXPECT_EQ(placesOf(objects[0].Area), (Places{{5, 6}}));
        EXPECT_TRUE(objects[1].Area.empty());
        EXPECT_EQ(objects[2].X, 0);
        EXPECT_TRUE(objects[2].Area.empty());
    }
}

TEST(PixelFiles, LargeCountOfPixelsThatTheFileHoldsIsRead)
{
    const std::vector<TObjKontur> objects =
        objectsIn(int32s({2, 65537, 7, 8}) + zeros(8 * 65536) + int32s({9, 10}) + thirdObject);
    ASSERT_EQ(objects.size(), 2u);
    ASSERT_EQ(objects[0].Area.size(), 65537u);
    EXPECT_EQ(objects[0].Area[65536].X, 9);
    EXPECT_EQ(objects[0].Area[65536].Y, 10);
    EXPECT_EQ(placesOf(objects[1].Area), (Places{{5, 6}}));
}

TEST(PixelFiles, NegativeCountOfPixelsIsNone)
{
    for (const int count : {-1, INT_MIN}) {
        SCOPED_TRACE(count);
        const std::vector<TObjKontur> objects = objectsIn(int32s({2}) + int32s({count, 7, 8}) + thirdObject);
        ASSERT_EQ(objects.size(), 2u);
        EXPECT_EQ(objects[0].X, 7);
        EXPECT_TRUE(objects[0].Area.empty());
        EXPECT_EQ(placesOf(objects[1].Area), (Places{{5, 6}}));
    }
}

TEST(PixelFiles, EveryCutOfObjectsLeavesTheWholePixelsBeforeIt)
{
    // Count at 0; n at 4, position at 8, pixels at 16 and 24; n at 32, position at 36; n at 44.
    const std::string whole = int32s({3}) + firstObject + secondObject + thirdObject;
    ASSERT_EQ(whole.size(), 64u);
    for (std::size_t size = 4; size <= whole.size(); ++size) {
        SCOPED_TRACE(size);
        const std::vector<TObjKontur> objects = objectsIn(whole.substr(0, size));
        ASSERT_EQ(objects.size(), 3u);
        EXPECT_EQ(objects[0].Area.size(), size < 8 ? 0u : 2u);
        if (size >= 16) {
            EXPECT_EQ(objects[0].X, 10);
            EXPECT_EQ(objects[0].Y, -20);
        }
        if (size >= 24) {
            EXPECT_EQ(objects[0].Area[0].X, 1);
            EXPECT_EQ(objects[0].Area[0].Y, 2);
        }
        if (size >= 44) {
            EXPECT_EQ(placesOf(objects[0].Area), (Places{{1, 2}, {3, 4}}));
            EXPECT_EQ(objects[1].X, 30);
            EXPECT_EQ(objects[1].Y, 40);
        }
        EXPECT_EQ(objects[2].Area.size(), size < 48 ? 0u : 1u);
    }
}

TEST(PixelFiles, DoublesAreReadFromTheStart)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.bin", doubles({1.5, -2.5, 3.5}) + "tail");
    const struct
    {
        int n;
        std::vector<double> numbers;
    } rows[] = {
        {1, {1.5}},
        {2, {1.5, -2.5}},
        {3, {1.5, -2.5, 3.5}},
        {4, {1.5, -2.5, 3.5, 0.0}}, // four bytes are no double
        {6, {1.5, -2.5, 3.5, 0.0, 0.0, 0.0}},
        {0, {}},
        {-1, {}},
        {INT_MIN, {}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.n);
        EXPECT_EQ(ReadArrayFromFileDbl(folder / "a.bin", row.n), row.numbers);
    }
}

TEST(PixelFiles, DoublesOfAnEmptyFileAreZero)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.bin", "");
    EXPECT_EQ(ReadArrayFromFileDbl(folder / "a.bin", 2), (std::vector<double>{0.0, 0.0}));
    EXPECT_EQ(ReadArrayFromFileDbl(folder / "a.bin", 100000), std::vector<double>(100000));
    EXPECT_TRUE(ReadArrayFromFileDbl(folder / "a.bin", 0).empty());
}

TEST(PixelFiles, DoublesAreReadAsTheyStand)
{
    using namespace std::string_literals;
    const TemporaryFolder folder;
    makeFile(folder / "a.bin", "\x00\x00\x00\x00\x00\x00\xf0\x3f"
                               "\x00\x00\x00\x00\x00\x00\xf0\xff"
                               "\x00\x00\x00\x00\x00\x00\xf8\x7f"
                               "\x00\x00\x00\x00\x00\x00\x00\x80"s);
    const std::vector<double> numbers = ReadArrayFromFileDbl(folder / "a.bin", 4);
    ASSERT_EQ(numbers.size(), 4u);
    EXPECT_EQ(numbers[0], 1.0);
    EXPECT_EQ(numbers[1], -std::numeric_limits<double>::infinity());
    EXPECT_TRUE(std::isnan(numbers[2]));
    EXPECT_EQ(numbers[3], 0.0);
    EXPECT_TRUE(std::signbit(numbers[3]));
}

TEST(PixelFiles, DoublesOfNoFileRaiseCode5)
{
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder / "folder");
    const std::string text = "Failed to read parameter";
    const std::pair<std::string, std::string> rows[] = {
        {folder / "missing.bin", folder / "missing.bin"},
        {folder / "missing/a.bin", folder / "missing/a.bin"},
        {folder / "folder", folder / "folder"},
        {"", text}, // without a path the text stands twice
    };
    for (const auto& [path, comment] : rows) {
        for (const int n : {3, 0, -1}) {
            SCOPED_TRACE(path + ", " + std::to_string(n));
            try {
                ReadArrayFromFileDbl(path, n);
                ADD_FAILURE() << "nothing was thrown";
            } catch (const TavelinException& failure) {
                EXPECT_EQ(failure.getCode(), 5);
                EXPECT_EQ(failure.getComment(), comment);
                EXPECT_EQ(failure.what(), text);
            }
        }
    }
}
