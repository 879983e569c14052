#include "exchange/blob_files.h"

#include "support/failed_writes.h"
#include "support/no_room.h"
#include "support/record_bytes.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cstddef>
#include <filesystem>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

using namespace tavelinUtils;

namespace {

using Fitted = std::vector<VihodFullBranch_file>;
using Blobs = std::vector<VihodExt>;
using Places = std::vector<std::pair<int, int>>;

template <class Bytes>
void fillGap(Bytes& gap)
{
    std::fill(std::begin(gap), std::end(gap), static_cast<unsigned char>(0xaa));
}

/// A record that holds another value in each field, and something in each gap.
VihodFullBranch_file filledRecord()
{
    VihodFullBranch_file record;
    record.X = 1.5;
    record.Y = 2.5;
    record.A = 100.0;
    record.Asegm = 101.0;
    record.BackMean = 5.0;
    record.BackSKO = 6.0;
    record.SNRafit = 7.0;
    record.SNRasegm = 8.0;
    record.SNRpeak = 9.0;
    record.Radius = 10.0;
    record.FWHM = 3.25;
    record.SigFit = 11.0;
    record.RMSratio = 0.5;
    record.Aux1 = -21;
    record.Aux2 = 22;
    record.Aux3 = 23;
    record.AstrobCount = 24;
    record.PeakType = 1;
    record.Width = 12.0;
    record.Length = 13.0;
    record.Angle = -14.0;
    record.Exc = 0.125;
    record.TypeBlob = 6;
    record.Ref1 = 15.0;
    record.Ref2 = 16.0;
    record.BlobCode = 8;
    record.Tail1 = 31.0;
    record.Tail2 = 32.0;
    record.Tail3 = 33.0;
    record.Tail4 = 34.0;
    record.Tail5 = 35.0;
    record.Tail6 = 36;
    record.LinkIndex = -37;
    record.SNcorrnotnorm = 38.0;
    record.corrnorm = 39.0;
    fillGap(record.Gap80);
    fillGap(record.Gap140);
    fillGap(record.Gap180);
    fillGap(record.Gap204);
    return record;
}

/// The bytes of the record above, with the bytes of the gaps.
std::string filledBytes(char gap)
{
    return doubles({1.5, 2.5, 100.0, 101.0, 5.0, 6.0, 7.0, 8.0, 9.0, 10.0}) + std::string(16, gap) +
           doubles({3.25, 11.0, 0.5}) + int32s({-21, 22, 23, 24, 1}) + std::string(4, gap) +
           doubles({12.0, 13.0, -14.0, 0.125}) + int32s({6}) + std::string(4, gap) + doubles({15.0, 16.0}) +
           int32s({8}) + std::string(4, gap) + doubles({31.0, 32.0, 33.0, 34.0, 35.0}) + int32s({36, -37}) +
           doubles({38.0, 39.0});
}

/// The fields that a fitted record has in both its forms, but for those that are converted.
template <class Record>
void expectFilled(const Record& record)
{
    EXPECT_EQ(record.X, 1.5);
    EXPECT_EQ(record.Y, 2.5);
    EXPECT_EQ(record.A, 100.0);
    EXPECT_EQ(record.Asegm, 101.0);
    EXPECT_EQ(record.BackMean, 5.0);
    EXPECT_EQ(record.BackSKO, 6.0);
    EXPECT_EQ(record.SNRafit, 7.0);
    EXPECT_EQ(record.SNRasegm, 8.0);
    EXPECT_EQ(record.SNRpeak, 9.0);
    EXPECT_EQ(record.Radius, 10.0);
    EXPECT_EQ(record.FWHM, 3.25);
    EXPECT_EQ(record.SigFit, 11.0);
    EXPECT_EQ(record.RMSratio, 0.5);
    EXPECT_EQ(record.Aux1, -21);
    EXPECT_EQ(record.Aux2, 22);
    EXPECT_EQ(record.Aux3, 23);
    EXPECT_EQ(record.AstrobCount, 24);
    EXPECT_EQ(record.Width, 12.0);
    EXPECT_EQ(record.Length, 13.0);
    EXPECT_EQ(record.Angle, -14.0);
    EXPECT_EQ(record.Exc, 0.125);
    EXPECT_EQ(record.Ref1, 15.0);
    EXPECT_EQ(record.Ref2, 16.0);
    EXPECT_EQ(record.Tail1, 31.0);
    EXPECT_EQ(record.Tail2, 32.0);
    EXPECT_EQ(record.Tail3, 33.0);
    EXPECT_EQ(record.Tail4, 34.0);
    EXPECT_EQ(record.Tail5, 35.0);
    EXPECT_EQ(record.Tail6, 36);
    EXPECT_EQ(record.LinkIndex, -37);
    EXPECT_EQ(record.SNcorrnotnorm, 38.0);
    EXPECT_EQ(record.corrnorm, 39.0);
}

/// A fitted record with kinds and codes of its own.
VihodFullBranch_file recordOf(int peakType, int typeBlob, int blobCode)
{
    VihodFullBranch_file record;
    record.PeakType = peakType;
    record.TypeBlob = typeBlob;
    record.BlobCode = blobCode;
    return record;
}

std::string bytesOfKinds(int peakType, int typeBlob, int blobCode)
{
    return zeros(136) + int32s({peakType}) + zeros(36) + int32s({typeBlob}) + zeros(20) + int32s({blobCode}) +
           zeros(68);
}

TVOBlobFile filledMark()
{
    TVOBlobFile mark{1.5f, 2.5f, 187.5f, -12.25f, 5.0f, 4.0f, 30.0f, 0.5f, 77.0f, 9.5f, 60000, {}, 0.1};
    fillGap(mark.Gap44);
    return mark;
}

std::string markBytes(char gap)
{
    return floats({1.5f, 2.5f, 187.5f, -12.25f, 5.0f, 4.0f, 30.0f, 0.5f, 77.0f, 9.5f}) + int32s({60000}) +
           std::string(4, gap) + doubles({0.1});
}

TRecCatLight filledStar()
{
    TRecCatLight star{187.5, -12.25, 100.5, 200.25, 9.5, {}};
    for (std::size_t i = 0; i < 16; ++i) {
        star.Carried[i] = static_cast<unsigned char>('a' + i);
    }
    return star;
}

const std::string starBytes = doubles({187.5, -12.25, 100.5, 200.25, 9.5}) + "abcdefghijklmnop";

/// Bytes that repeat only after 251 of them, so that no field is like its neighbour.
std::string manyBytes(std::size_t size)
{
    std::string bytes;
    for (std::size_t i = 0; i < size; ++i) {
        bytes += static_cast<char>(i * 7 % 251);
    }
    return bytes;
}

template <class Track>
Places placesOf(const Track& track)
{
    Places places;
    for (const TIndFrBl& blob : track.Items) {
        places.emplace_back(blob.FrameNumber, blob.BlobIndex);
    }
    return places;
}

const std::vector<TBranch> threeObjects = {{{{1, 2}, {3, -4}}}, {}, {{{5, 6}}}};
const std::string bytesOfThreeObjects =
    int32s({3}) + int32s({2, 1, 2, 3, -4}) + int32s({0}) + int32s({1, 5, 6});

const std::vector<THOKTrack> threeTracks = {{1.5, 2.5, 3.5, 4.5, 5.5, {{1, 2}, {3, -4}}},
                                            {-1.0, -2.0, -3.0, -4.0, -5.0, {}},
                                            {0.1, 0.2, 0.3, 0.4, 0.5, {{5, 6}}}};

/// Reads objects out of the bytes into an empty list and expects success.
std::vector<TBranch> objectsIn(const std::string& bytes)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.bin", bytes);
    std::vector<TBranch> objects;
    EXPECT_EQ(LoadObjects(folder / "a.bin", objects), 0);
    return objects;
}

/// Calls `work(path)` for a missing file, a name in a missing folder, no name, and a folder.
template <class Work>
void forUnreadablePaths(Work work)
{
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder / "folder");
    for (const std::string& path :
         {folder / "missing.bin", folder / "missing/a.bin", std::string(), folder / "folder"})
    {
        SCOPED_TRACE(path);
        work(path);
    }
    EXPECT_FALSE(exists(folder / "missing.bin"));
}

} // namespace

TEST(BlobFiles, FittedRecordHas272BytesWithZeroInItsGaps)
{
    const TemporaryFolder folder;
    SaveToFile(folder / "a.bin", Fitted{filledRecord(), VihodFullBranch_file{}, filledRecord()});
    const std::string expected = filledBytes('\0') + zeros(272) + filledBytes('\0');
    ASSERT_EQ(expected.size(), 816u);
    EXPECT_EQ(bytesOf(folder / "a.bin"), expected);
}

TEST(BlobFiles, EachFieldOfAFittedRecordStandsAtItsOffset)
{
    const TemporaryFolder folder;
    SaveToFile(folder / "a.bin", Fitted{filledRecord()});
    const std::string bytes = bytesOf(folder / "a.bin");
    ASSERT_EQ(bytes.size(), 272u);
    const std::pair<std::size_t, double> numbers[] = {
        {0, 1.5},    {8, 2.5},     {16, 100.0},  {24, 101.0}, {32, 5.0},   {40, 6.0},   {48, 7.0},
        {56, 8.0},   {64, 9.0},    {72, 10.0},   {96, 3.25},  {104, 11.0}, {112, 0.5},  {144, 12.0},
        {152, 13.0}, {160, -14.0}, {168, 0.125}, {184, 15.0}, {192, 16.0}, {208, 31.0}, {216, 32.0},
        {224, 33.0}, {232, 34.0},  {240, 35.0},  {256, 38.0}, {264, 39.0}};
    for (const auto& [offset, number] : numbers) {
        SCOPED_TRACE(offset);
        EXPECT_EQ(bytes.substr(offset, 8), doubles({number}));
    }
    const std::pair<std::size_t, int> integers[] = {{120, -21}, {124, 22}, {128, 23}, {132, 24}, {136, 1},
                                                    {176, 6},   {200, 8},  {248, 36}, {252, -37}};
    for (const auto& [offset, number] : integers) {
        SCOPED_TRACE(offset);
        EXPECT_EQ(bytes.substr(offset, 4), int32s({number}));
    }
    for (const std::size_t offset : {80u, 84u, 88u, 92u, 140u, 180u, 204u}) {
        SCOPED_TRACE(offset);
        EXPECT_EQ(bytes.substr(offset, 4), zeros(4));
    }
}

TEST(BlobFiles, FittedRecordsAreReadWhateverTheirGapsHold)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.bin", filledBytes('\x55') + zeros(272));
    const Fitted records = lVihodFullBranch_file(folder / "a.bin");
    ASSERT_EQ(records.size(), 2u);
    expectFilled(records[0]);
    EXPECT_EQ(records[0].PeakType, 1);
    EXPECT_EQ(records[0].TypeBlob, 6);
    EXPECT_EQ(records[0].BlobCode, 8);
    EXPECT_EQ(records[1].X, 0.0);
    EXPECT_EQ(records[1].corrnorm, 0.0);

    SaveToFile(folder / "b.bin", records);
    EXPECT_EQ(bytesOf(folder / "b.bin"), filledBytes('\0') + zeros(272));
}

TEST(BlobFiles, KindsAndCodesOfAFittedRecordStayPlainNumbers)
{
    const TemporaryFolder folder;
    SaveToFile(folder / "a.bin", Fitted{recordOf(5, 3, 9), recordOf(-1, INT_MAX, INT_MIN)});
    EXPECT_EQ(bytesOf(folder / "a.bin"), bytesOfKinds(5, 3, 9) + bytesOfKinds(-1, INT_MAX, INT_MIN));
    const Fitted records = lVihodFullBranch_file(folder / "a.bin");
    ASSERT_EQ(records.size(), 2u);
    EXPECT_EQ(records[0].PeakType, 5);
    EXPECT_EQ(records[0].TypeBlob, 3);
    EXPECT_EQ(records[0].BlobCode, 9);
    EXPECT_EQ(records[1].PeakType, -1);
    EXPECT_EQ(records[1].TypeBlob, INT_MAX);
    EXPECT_EQ(records[1].BlobCode, INT_MIN);
}

TEST(BlobFiles, FileOfFittedRecordsLosesItsTail)
{
    const TemporaryFolder folder;
    for (const std::size_t size : {0u, 1u, 271u, 272u, 273u, 300u, 543u, 544u}) {
        SCOPED_TRACE(size);
        makeFile(folder / "a.bin", (filledBytes('\0') + filledBytes('\0')).substr(0, size));
        const Fitted records = lVihodFullBranch_file(folder / "a.bin");
        EXPECT_EQ(records.size(), size / 272);
        for (const VihodFullBranch_file& record : records) {
            expectFilled(record);
        }
        EXPECT_EQ(LoadFromFile(folder / "a.bin").size(), size / 272);
    }
}

TEST(BlobFiles, FileOfOtherRecordsIsMisread)
{
    const TemporaryFolder folder;
    std::string stars;
    for (int i = 0; i < 10; ++i) {
        stars += starBytes;
    }
    makeFile(folder / "a.bin", stars); // 560 bytes
    const Fitted records = lVihodFullBranch_file(folder / "a.bin");
    ASSERT_EQ(records.size(), 2u);
    EXPECT_EQ(records[0].X, 187.5);
    EXPECT_EQ(records[0].BackMean, 9.5);
    EXPECT_EQ(records[0].SNRasegm, 187.5); // the second star begins at 56
}

TEST(BlobFiles, FittedRecordsThatCannotBeWrittenRaiseCode7)
{
    expectCode7([](const std::string& path) { SaveToFile(path, Fitted{filledRecord()}); });
    expectCode7([](const std::string& path) { SaveToFile(path, Blobs(1)); });
}

TEST(BlobFiles, FittedRecordsOfNoFileAreNone)
{
    forUnreadablePaths([](const std::string& path) {
        const int counted = TRecPeak::idCounter;
        EXPECT_TRUE(lVihodFullBranch_file(path).empty());
        EXPECT_TRUE(LoadFromFile(path).empty());
        EXPECT_EQ(TRecPeak::idCounter, counted);
    });
}

TEST(BlobFiles, EmptyListOfFittedRecordsIsAnEmptyFile)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.bin", "what was");
    SaveToFile(folder / "a.bin", Fitted{});
    EXPECT_EQ(bytesOf(folder / "a.bin"), "");
    EXPECT_TRUE(lVihodFullBranch_file(folder / "a.bin").empty());
    makeFile(folder / "b.bin", "what was");
    SaveToFile(folder / "b.bin", Blobs{});
    EXPECT_EQ(bytesOf(folder / "b.bin"), "");
    EXPECT_TRUE(LoadFromFile(folder / "b.bin").empty());
}

TEST(BlobFiles, BlobsAreReadOutOfFittedRecords)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.bin", zeros(272) + filledBytes('\x55') + zeros(272) + "tail");
    const int counted = TRecPeak::idCounter;
    const Blobs blobs = LoadFromFile(folder / "a.bin");
    EXPECT_EQ(TRecPeak::idCounter, counted + 6);
    ASSERT_EQ(blobs.size(), 3u);
    expectFilled(blobs[1]);
    EXPECT_EQ(blobs[1].PeakType, TPeakType::one);
    EXPECT_EQ(blobs[1].TypeBlob, TTypeBlob::prTriangle);
    EXPECT_EQ(blobs[1].BlobCode, BlobCode::ic);
    for (int i = 0; i < 3; ++i) {
        const VihodExt& blob = blobs[static_cast<std::size_t>(i)];
        EXPECT_EQ(blob.BlobNumber, i);
        EXPECT_EQ(blob.Peak1.BlobNumber, i);
        EXPECT_EQ(blob.Peak2.BlobNumber, 0);
    }
    EXPECT_EQ(blobs[0].X, 0.0);
    EXPECT_EQ(blobs[0].PeakType, TPeakType::zero);
    EXPECT_EQ(blobs[0].TypeBlob, TTypeBlob::prShort);
    EXPECT_EQ(blobs[0].BlobCode, BlobCode::ok);
}

TEST(BlobFiles, KindsAndCodesOfBlobsAreConvertedOnTheirWayIn)
{
    const struct
    {
        int stored, peakType, typeBlob, blobCode;
    } rows[] = {{0, 0, 0, 0},   {1, 1, 1, 1},   {2, 0, 2, 2},        {3, 0, -1, 3},      {4, 0, -1, 4},
                {5, 0, -1, 5},  {6, 0, 6, 6},   {7, 0, -1, 7},       {8, 0, -1, 8},      {9, 0, -1, 0},
                {10, 0, -1, 0}, {-1, 0, -1, 0}, {INT_MAX, 0, -1, 0}, {INT_MIN, 0, -1, 0}};
    const TemporaryFolder folder;
    for (const auto& row : rows) {
        SCOPED_TRACE(row.stored);
        makeFile(folder / "a.bin", bytesOfKinds(row.stored, row.stored, row.stored));
        const Blobs blobs = LoadFromFile(folder / "a.bin");
        ASSERT_EQ(blobs.size(), 1u);
        EXPECT_EQ(static_cast<int>(blobs[0].PeakType), row.peakType);
        EXPECT_EQ(static_cast<int>(blobs[0].TypeBlob), row.typeBlob);
        EXPECT_EQ(static_cast<int>(blobs[0].BlobCode), row.blobCode);
    }
}

TEST(BlobFiles, BlobsAreStoredAsFittedRecords)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.bin", filledBytes('\x55') + filledBytes('\x66'));
    Blobs blobs = LoadFromFile(folder / "a.bin");
    ASSERT_EQ(blobs.size(), 2u);
    blobs[0].BlobNumber = 1234; // has no place on disk, and neither has Index
    blobs[0].Index = 99;
    blobs[1].AstrobCount = -7.9;
    blobs[1].X = 6.5;
    SaveToFile(folder / "b.bin", blobs);
    std::string second = filledBytes('\0');
    second.replace(0, 8, doubles({6.5}));
    second.replace(132, 4, int32s({-7}));
    EXPECT_EQ(bytesOf(folder / "b.bin"), filledBytes('\0') + second);
}

TEST(BlobFiles, KindsOfBlobsAreConvertedOnTheirWayOutAndCodesAreNot)
{
    const TemporaryFolder folder;
    Blobs blobs(3);
    blobs[0].TypeBlob = TTypeBlob::prShLong; // 3
    blobs[0].BlobCode = BlobCode::bad_parts; // 9
    blobs[1].TypeBlob = TTypeBlob::prLongStar;
    blobs[1].PeakType = TPeakType::one;
    blobs[1].BlobCode = BlobCode::pltEr;
    blobs[2].TypeBlob = TTypeBlob::prALLBlob; // 5
    SaveToFile(folder / "a.bin", blobs);
    EXPECT_EQ(bytesOf(folder / "a.bin"),
              bytesOfKinds(0, -1, 9) + bytesOfKinds(1, 2, 1) + bytesOfKinds(0, -1, 0));
}

TEST(BlobFiles, StarHas56BytesWithItsCarriedOnesKept)
{
    const TemporaryFolder folder;
    sRecCatLight(folder / "a.bin", std::vector<TRecCatLight>{filledStar(), TRecCatLight{}});
    EXPECT_EQ(bytesOf(folder / "a.bin"), starBytes + zeros(56));

    makeFile(folder / "b.bin", zeros(56) + starBytes + starBytes.substr(0, 55));
    const std::vector<TRecCatLight> stars = lRecCatLight(folder / "b.bin");
    ASSERT_EQ(stars.size(), 2u);
    EXPECT_EQ(stars[0].m, 0.0);
    EXPECT_EQ(stars[1].RA, 187.5);
    EXPECT_EQ(stars[1].DE, -12.25);
    EXPECT_EQ(stars[1].X, 100.5);
    EXPECT_EQ(stars[1].Y, 200.25);
    EXPECT_EQ(stars[1].m, 9.5);
    EXPECT_EQ(std::string(std::begin(stars[1].Carried), std::end(stars[1].Carried)), "abcdefghijklmnop");
}

TEST(BlobFiles, EveryByteOfAStarComesBack)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.bin", manyBytes(56 * 20));
    sRecCatLight(folder / "b.bin", lRecCatLight(folder / "a.bin"));
    EXPECT_EQ(bytesOf(folder / "b.bin"), manyBytes(56 * 20));
}

TEST(BlobFiles, CompactMarkHas56BytesWithZeroInItsGap)
{
    const TemporaryFolder folder;
    sBlobFastVO(folder / "a.bin", std::vector<TVOBlobFile>{filledMark(), TVOBlobFile{}});
    EXPECT_EQ(bytesOf(folder / "a.bin"), markBytes('\0') + zeros(56));
}

TEST(BlobFiles, CompactMarksAreReadWhateverTheirGapHolds)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.bin", markBytes('\x55') + zeros(56));
    const std::vector<TVOBlobFile> marks = lBlobFastVO(folder / "a.bin");
    ASSERT_EQ(marks.size(), 2u);
    EXPECT_EQ(marks[0].X_bf, 1.5f);
    EXPECT_EQ(marks[0].Y_bf, 2.5f);
    EXPECT_EQ(marks[0].RA, 187.5f);
    EXPECT_EQ(marks[0].DE, -12.25f);
    EXPECT_EQ(marks[0].Length, 5.0f);
    EXPECT_EQ(marks[0].Width, 4.0f);
    EXPECT_EQ(marks[0].Angle, 30.0f);
    EXPECT_EQ(marks[0].Exc, 0.5f);
    EXPECT_EQ(marks[0].SNRasegm, 77.0f);
    EXPECT_EQ(marks[0].m, 9.5f);
    EXPECT_EQ(marks[0].date, 60000);
    EXPECT_EQ(marks[0].time, 0.1);
    EXPECT_EQ(marks[1].date, 0);

    sBlobFastVO(folder / "b.bin", marks);
    EXPECT_EQ(bytesOf(folder / "b.bin"), markBytes('\0') + zeros(56));
}

TEST(BlobFiles, FileOf100BytesHoldsOneCompactMark)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.bin", (markBytes('\0') + markBytes('\0')).substr(0, 100));
    const std::vector<TVOBlobFile> marks = lBlobFastVO(folder / "a.bin");
    ASSERT_EQ(marks.size(), 1u);
    EXPECT_EQ(marks[0].time, 0.1);
}

TEST(BlobFiles, StarsAndCompactMarksOfNoFileAreNone)
{
    forUnreadablePaths([](const std::string& path) {
        EXPECT_TRUE(lRecCatLight(path).empty());
        EXPECT_TRUE(lBlobFastVO(path).empty());
    });
    const TemporaryFolder folder;
    for (const std::size_t size : {0u, 1u, 55u}) {
        makeFile(folder / "a.bin", manyBytes(size));
        EXPECT_TRUE(lRecCatLight(folder / "a.bin").empty());
        EXPECT_TRUE(lBlobFastVO(folder / "a.bin").empty());
    }
}

TEST(BlobFiles, EmptyListsAreEmptyFiles)
{
    const TemporaryFolder folder;
    for (const std::string name : {"star", "mark", "position", "strobe"}) {
        makeFile(folder / name, "what was");
    }
    sRecCatLight(folder / "star", std::vector<TRecCatLight>{});
    sBlobFastVO(folder / "mark", std::vector<TVOBlobFile>{});
    sXYAdbl(folder / "position", std::vector<TXYAdbl>{});
    EXPECT_EQ(sHoughtStrob(folder / "strobe", std::vector<THOKTrack>{}), 0);
    for (const std::string name : {"star", "mark", "position", "strobe"}) {
        SCOPED_TRACE(name);
        EXPECT_EQ(bytesOf(folder / name), "");
    }
}

TEST(BlobFiles, ListsThatCannotBeWrittenArePassedOver)
{
    expectSilence(
        [](const std::string& path) { sRecCatLight(path, std::vector<TRecCatLight>{filledStar()}); });
    expectSilence([](const std::string& path) { sBlobFastVO(path, std::vector<TVOBlobFile>{filledMark()}); });
    expectSilence([](const std::string& path) { sXYAdbl(path, std::vector<TXYAdbl>{{1.0, 2.0, 3.0}}); });
    forUnwritablePaths([](const std::string& path) {
        EXPECT_NO_THROW(sRecCatLight(path, std::vector<TRecCatLight>{filledStar()}));
        EXPECT_NO_THROW(sBlobFastVO(path, std::vector<TVOBlobFile>{filledMark()}));
        EXPECT_NO_THROW(sXYAdbl(path, std::vector<TXYAdbl>{{1.0, 2.0, 3.0}}));
    });
}

TEST(BlobFiles, PositionAndAmplitudeAreThreeDoubles)
{
    const TemporaryFolder folder;
    sXYAdbl(folder / "a.bin", std::vector<TXYAdbl>{{1.5, -2.5, 3.0}, {0.0, 5.0, 6.0}});
    EXPECT_EQ(bytesOf(folder / "a.bin"), doubles({1.5, -2.5, 3.0, 0.0, 5.0, 6.0}));
}

TEST(BlobFiles, BlobsOfHoughTracksHaveCounts)
{
    const TemporaryFolder folder;
    EXPECT_EQ(sHoughtInd(folder / "a.bin", threeTracks), 0);
    EXPECT_EQ(bytesOf(folder / "a.bin"), bytesOfThreeObjects);
    EXPECT_EQ(sHoughtInd(folder / "b.bin", std::vector<THOKTrack>{}), 0);
    EXPECT_EQ(bytesOf(folder / "b.bin"), int32s({0}));
}

TEST(BlobFiles, StrobesOfHoughTracksAreFiveDoubles)
{
    const TemporaryFolder folder;
    EXPECT_EQ(sHoughtStrob(folder / "a.bin", threeTracks), 0);
    EXPECT_EQ(bytesOf(folder / "a.bin"),
              doubles({1.5, 2.5, 3.5, 4.5, 5.5, -1.0, -2.0, -3.0, -4.0, -5.0, 0.1, 0.2, 0.3, 0.4, 0.5}));
}

TEST(BlobFiles, TracksAndObjectsThatCannotBeWrittenAreOne)
{
    forUnwritablePaths([](const std::string& path) {
        EXPECT_EQ(sHoughtInd(path, threeTracks), 1);
        EXPECT_EQ(sHoughtInd(path, std::vector<THOKTrack>{}), 1);
        EXPECT_EQ(sHoughtStrob(path, threeTracks), 1);
        EXPECT_EQ(SaveFastObj(path, threeObjects), 1);
        EXPECT_EQ(SaveFastObj(path, std::vector<TBranch>{}), 1);
    });
}

TEST(BlobFiles, FastObjectsAreACountAndTheBlobsOfEach)
{
    const TemporaryFolder folder;
    EXPECT_EQ(SaveFastObj(folder / "a.bin", threeObjects), 0);
    EXPECT_EQ(bytesOf(folder / "a.bin"), bytesOfThreeObjects);
    EXPECT_EQ(SaveFastObj(folder / "a.bin", std::vector<TBranch>{}), 0);
    EXPECT_EQ(bytesOf(folder / "a.bin"), zeros(4));
}

TEST(BlobFiles, FastObjectsComeBack)
{
    const std::vector<TBranch> objects = objectsIn(bytesOfThreeObjects + "tail");
    ASSERT_EQ(objects.size(), 3u);
    EXPECT_EQ(placesOf(objects[0]), (Places{{1, 2}, {3, -4}}));
    EXPECT_EQ(placesOf(objects[1]), (Places{}));
    EXPECT_EQ(placesOf(objects[2]), (Places{{5, 6}}));
}

TEST(BlobFiles, FastObjectsTakeThePlaceOfWhatTheListHolds)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.bin", bytesOfThreeObjects);
    std::vector<TBranch> objects = {{{{9, 9}, {9, 9}, {9, 9}}}};
    EXPECT_EQ(LoadObjects(folder / "a.bin", objects), 0);
    ASSERT_EQ(objects.size(), 3u);
    EXPECT_EQ(placesOf(objects[0]), (Places{{1, 2}, {3, -4}}));

    makeFile(folder / "a.bin", int32s({1}) + int32s({0}));
    EXPECT_EQ(LoadObjects(folder / "a.bin", objects), 0);
    ASSERT_EQ(objects.size(), 1u);
    EXPECT_EQ(placesOf(objects[0]), (Places{}));
}

TEST(BlobFiles, FastObjectsOfNoFileAreTwoAndLeaveTheList)
{
    forUnreadablePaths([](const std::string& path) {
        std::vector<TBranch> objects = threeObjects;
        EXPECT_EQ(LoadObjects(path, objects), 2);
        ASSERT_EQ(objects.size(), 3u);
        EXPECT_EQ(placesOf(objects[0]), (Places{{1, 2}, {3, -4}}));
    });
}

TEST(BlobFiles, CountOfFastObjectsAboveTheLimitAndTheFileIsRefused)
{
    const TemporaryFolder folder;
    for (const int count : {65537, INT_MAX}) {
        SCOPED_TRACE(count);
        makeFile(folder / "a.bin", int32s({count, 1, 1, 2}));
        std::vector<TBranch> objects = threeObjects;
        EXPECT_EQ(LoadObjects(folder / "a.bin", objects), 2);
        ASSERT_EQ(objects.size(), 3u);
        EXPECT_EQ(placesOf(objects[0]), (Places{{1, 2}, {3, -4}}));
    }
    makeFile(folder / "a.bin", int32s({65537}) + zeros(65532)); // 65536 bytes
    std::vector<TBranch> objects;
    EXPECT_EQ(LoadObjects(folder / "a.bin", objects), 2);
    EXPECT_TRUE(objects.empty());
    makeFile(folder / "a.bin", int32s({65537}) + zeros(65533));
    EXPECT_EQ(LoadObjects(folder / "a.bin", objects), 0);
    EXPECT_EQ(objects.size(), 65537u);
}

TEST(BlobFiles, CountOfFastObjectsUpToTheLimitIsBelieved)
{
    for (const int count : {2, 1000, 65536}) {
        SCOPED_TRACE(count);
        const std::vector<TBranch> objects = objectsIn(int32s({count, 1, 1, 2}));
        ASSERT_EQ(objects.size(), static_cast<std::size_t>(count));
        EXPECT_EQ(placesOf(objects.front()), (Places{{1, 2}}));
        EXPECT_EQ(placesOf(objects.back()), (Places{}));
    }
}

TEST(BlobFiles, NegativeOrMissingCountOfFastObjectsEmptiesTheList)
{
    const TemporaryFolder folder;
    for (const std::string& bytes : {int32s({0, 1, 1, 2}), int32s({-1, 1, 1, 2}), int32s({INT_MIN}),
                                     std::string(), std::string("\x05\x00", 2)})
    {
        SCOPED_TRACE(testing::PrintToString(bytes));
        makeFile(folder / "a.bin", bytes);
        std::vector<TBranch> objects = threeObjects;
        EXPECT_EQ(LoadObjects(folder / "a.bin", objects), 0);
        EXPECT_TRUE(objects.empty());
    }
}

TEST(BlobFiles, CountOfBlobsUpToTheLimitIsBelieved)
{
    for (const int count : {2, 1000, 65536}) {
        SCOPED_TRACE(count);
        const std::vector<TBranch> objects = objectsIn(int32s({3, 1, 7, 8, count, 1, 2}));
        ASSERT_EQ(objects.size(), 3u);
        EXPECT_EQ(placesOf(objects[0]), (Places{{7, 8}}));
        ASSERT_EQ(objects[1].Items.size(), static_cast<std::size_t>(count));
        EXPECT_EQ(objects[1].Items.front().FrameNumber, 1);
        EXPECT_EQ(objects[1].Items.front().BlobIndex, 2);
        EXPECT_EQ(objects[1].Items.back().FrameNumber, 0);
        EXPECT_EQ(objects[1].Items.back().BlobIndex, 0);
        EXPECT_EQ(placesOf(objects[2]), (Places{}));
    }
}

TEST(BlobFiles, CountOfBlobsThatTheFileCannotHoldEndsTheReading)
{
    for (const int count : {65537, INT_MAX}) {
        SCOPED_TRACE(count);
        const std::vector<TBranch> objects = objectsIn(int32s({3, 1, 7, 8, count, 1, 1, 2}));
        ASSERT_EQ(objects.size(), 3u);
        EXPECT_EQ(placesOf(objects[0]), (Places{{7, 8}}));
        EXPECT_EQ(placesOf(objects[1]), (Places{}));
        EXPECT_EQ(placesOf(objects[2]), (Places{}));
    }
}

TEST(BlobFiles, LargeCountOfBlobsThatTheFileHoldsIsRead)
{
    const std::vector<TBranch> objects =
        objectsIn(int32s({2, 65537}) + zeros(8 * 65536) + int32s({5, 6}) + int32s({1, 7, 8}));
    ASSERT_EQ(objects.size(), 2u);
    ASSERT_EQ(objects[0].Items.size(), 65537u);
    EXPECT_EQ(objects[0].Items[65536].FrameNumber, 5);
    EXPECT_EQ(objects[0].Items[65536].BlobIndex, 6);
    EXPECT_EQ(placesOf(objects[1]), (Places{{7, 8}}));
}

TEST(BlobFiles, NegativeCountOfBlobsIsNone)
{
    for (const int count : {-1, INT_MIN}) {
        SCOPED_TRACE(count);
        const std::vector<TBranch> objects = objectsIn(int32s({2, count, 1, 3, 4}));
        ASSERT_EQ(objects.size(), 2u);
        EXPECT_EQ(placesOf(objects[0]), (Places{}));
        EXPECT_EQ(placesOf(objects[1]), (Places{{3, 4}}));
    }
}

TEST(BlobFiles, EveryCutOfFastObjectsLeavesTheWholeBlobsBeforeIt)
{
    // Count at 0; n at 4, blobs at 8 and 16; n at 24; n at 28, blob at 32.
    for (std::size_t size = 4; size <= 40; ++size) {
        SCOPED_TRACE(size);
        const std::vector<TBranch> objects = objectsIn(bytesOfThreeObjects.substr(0, size));
        ASSERT_EQ(objects.size(), 3u);
        ASSERT_EQ(objects[0].Items.size(), size < 8 ? 0u : 2u);
        if (size >= 16) {
            EXPECT_EQ(objects[0].Items[0].FrameNumber, 1);
            EXPECT_EQ(objects[0].Items[0].BlobIndex, 2);
        }
        if (size >= 24) {
            EXPECT_EQ(placesOf(objects[0]), (Places{{1, 2}, {3, -4}}));
        }
        EXPECT_TRUE(objects[1].Items.empty());
        EXPECT_EQ(objects[2].Items.size(), size < 32 ? 0u : 1u);
    }
    EXPECT_EQ(placesOf(objectsIn(bytesOfThreeObjects)[2]), (Places{{5, 6}}));
}
