#include "records/blob.h"

#include "records/photo_blob.h"

#include "support/fitted_blob_fields.h"
#include "support/mark_fields.h"
#include "support/measured_marks.h"
#include "support/record_image.h"

#include <gtest/gtest.h>

#include <iterator>
#include <set>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

using namespace tavelinUtils;

namespace {

TFitHead filledHead()
{
    return {7, 60000, 0.5, 1024, 2048, 30.0, "FLI", "V", "/data/a.fit", 187.5, -12.25, {1.0, 2.0, 3.0, 4.0}};
}

void expectNewHead(const TFitHead& head)
{
    EXPECT_EQ(head.FrameNumber, 0);
    EXPECT_EQ(head.date, 0);
    EXPECT_EQ(head.time, 0.0);
    EXPECT_EQ(head.Width, 0);
    EXPECT_EQ(head.Height, 0);
    EXPECT_EQ(head.Exposure, 0.0);
    EXPECT_EQ(head.Instrument, "");
    EXPECT_EQ(head.Filter, "");
    EXPECT_EQ(head.PathFit, "");
    EXPECT_EQ(head.CRVAL1, 0.0);
    EXPECT_EQ(head.CRVAL2, 0.0);
    for (const double element : head.CD) {
        EXPECT_EQ(element, 0.0);
    }
}

void expectFilledHead(const TFitHead& head)
{
    EXPECT_EQ(head.FrameNumber, 7);
    EXPECT_EQ(head.date, 60000);
    EXPECT_EQ(head.time, 0.5);
    EXPECT_EQ(head.Width, 1024);
    EXPECT_EQ(head.Height, 2048);
    EXPECT_EQ(head.Exposure, 30.0);
    EXPECT_EQ(head.Instrument, "FLI");
    EXPECT_EQ(head.Filter, "V");
    EXPECT_EQ(head.PathFit, "/data/a.fit");
    EXPECT_EQ(head.CRVAL1, 187.5);
    EXPECT_EQ(head.CRVAL2, -12.25);
    EXPECT_EQ(head.CD[0], 1.0);
    EXPECT_EQ(head.CD[1], 2.0);
    EXPECT_EQ(head.CD[2], 3.0);
    EXPECT_EQ(head.CD[3], 4.0);
}

const RecordField<TBlobTable, double> rowNumbers[] = {
    {"X_bf", &TBlobTable::X_bf, 4},
    {"Y_bf", &TBlobTable::Y_bf, 12},
    {"X_f", &TBlobTable::X_f, 20},
    {"Y_f", &TBlobTable::Y_f, 28},
    {"SNRafit", &TBlobTable::SNRafit, 56},
    {"SNRasegm", &TBlobTable::SNRasegm, 64},
    {"SNRpeak", &TBlobTable::SNRpeak, 72},
    {"FWHM", &TBlobTable::FWHM, 80},
    {"SigFit", &TBlobTable::SigFit, 88},
    {"RMSFit", &TBlobTable::RMSFit, 96},
    {"SNcorrnotnorm", &TBlobTable::SNcorrnotnorm, 104},
    {"corrnorm", &TBlobTable::corrnorm, 112},
    {"Exc", &TBlobTable::Exc, 120},
    {"Angle", &TBlobTable::Angle, 128},
    {"Length", &TBlobTable::Length, 136},
    {"Width", &TBlobTable::Width, 144},
    {"Radius", &TBlobTable::Radius, 152},
    {"A", &TBlobTable::A, 160},
    {"Asegm", &TBlobTable::Asegm, 168},
    {"Astrob", &TBlobTable::Astrob, 176},
    {"RA", &TBlobTable::RA, 184},
    {"AuxValue", &TBlobTable::AuxValue, 192},
    {"DE", &TBlobTable::DE, 200},
    {"m", &TBlobTable::m, 208},
    {"RefValue1", &TBlobTable::RefValue1, 216},
    {"RefValue2", &TBlobTable::RefValue2, 224},
    {"RefValue3", &TBlobTable::RefValue3, 232},
    {"RefValue4", &TBlobTable::RefValue4, 240},
    {"RefValue5", &TBlobTable::RefValue5, 248},
    {"RefValue6", &TBlobTable::RefValue6, 256},
    {"RefValue7", &TBlobTable::RefValue7, 264},
    {"RefValue8", &TBlobTable::RefValue8, 272},
    {"RefValue9", &TBlobTable::RefValue9, 280},
};

const RecordField<TBlobTable, int> rowIntegers[] = {
    {"AuxInt1", &TBlobTable::AuxInt1, 36},     {"AuxInt2", &TBlobTable::AuxInt2, 40},
    {"TypeBlob", &TBlobTable::TypeBlob, 44},   {"AuxInt3", &TBlobTable::AuxInt3, 48},
    {"LinkIndex", &TBlobTable::LinkIndex, 52}, {"Tag1", &TBlobTable::Tag1, 288},
    {"Tag2", &TBlobTable::Tag2, 292},          {"Tag3", &TBlobTable::Tag3, 296},
    {"Tag4", &TBlobTable::Tag4, 300},
};

} // namespace

TEST(Blob, NewHeadIsZeroAndEmpty)
{
    expectNewHead(TFitHead{});
    TFitHead head;
    expectNewHead(head);
    static_assert(std::extent_v<decltype(head.CD)> == 4);
}

TEST(Blob, HeadHasItsFieldsInOrder)
{
    expectFilledHead(filledHead());
    static_assert(std::is_same_v<decltype(TFitHead::FrameNumber), int>);
    static_assert(std::is_same_v<decltype(TFitHead::date), int>);
    static_assert(std::is_same_v<decltype(TFitHead::time), double>);
    static_assert(std::is_same_v<decltype(TFitHead::Width), int>);
    static_assert(std::is_same_v<decltype(TFitHead::Height), int>);
    static_assert(std::is_same_v<decltype(TFitHead::Exposure), double>);
    static_assert(std::is_same_v<decltype(TFitHead::CRVAL1), double>);
    static_assert(std::is_same_v<decltype(TFitHead::CRVAL2), double>);
}

TEST(Blob, FrameIsAHeadWithMarks)
{
    static_assert(std::is_base_of_v<TFitHead, THeadBlobs>);
    static_assert(std::is_convertible_v<THeadBlobs*, TFitHead*>, "the derivation is public");
    static_assert(std::is_same_v<decltype(THeadBlobs::Marks), std::vector<TRecLabelPervichka_File>>);
    const THeadBlobs frame;
    expectNewHead(frame);
    EXPECT_TRUE(frame.Marks.empty());
}

TEST(Blob, FrameIsPassedWhereAHeadIsExpected)
{
    THeadBlobs frame;
    static_cast<TFitHead&>(frame) = filledHead();
    frame.Marks.resize(2);
    const TFitHead& head = frame;
    expectFilledHead(head);
}

TEST(Blob, CopyOfAFrameOwnsItsMarks)
{
    THeadBlobs frame;
    static_cast<TFitHead&>(frame) = filledHead();
    frame.Marks = {{.m = 9.5, .filtr = "V"}};
    THeadBlobs copy = frame;
    copy.Marks[0].m = 1.0;
    copy.Marks[0].filtr = "B";
    copy.Marks.resize(3);
    copy.Instrument = "other";
    copy.CD[0] = 9.0;
    expectFilledHead(frame);
    ASSERT_EQ(frame.Marks.size(), 1u);
    expectSame(frame.Marks[0], {.m = 9.5, .filtr = "V"});

    const THeadBlobs moved = std::move(copy);
    EXPECT_EQ(moved.Instrument, "other");
    EXPECT_EQ(moved.Marks.size(), 3u);
}

TEST(BlobTable, FieldsFollowEachOtherWithoutGaps)
{
    EXPECT_EQ(sizeof(TBlobTable), 304U);
    expectOwnBytes(RecordField<TBlobTable, BlobCode>{"Code", &TBlobTable::Code, 0});
    for (const auto& field : rowNumbers) {
        expectOwnBytes(field);
    }
    for (const auto& field : rowIntegers) {
        expectOwnBytes(field);
    }
    EXPECT_EQ(4 + std::size(rowNumbers) * 8 + std::size(rowIntegers) * 4, sizeof(TBlobTable));
}

TEST(BlobTable, NewRowIsZeroInEveryByte)
{
    EXPECT_EQ(imageOf(TBlobTable{}), std::string(304, '\0'));
}

TEST(BlobTable, RowsOfAListFollowEachOther)
{
    const std::vector<TBlobTable> rows(2);
    EXPECT_EQ(reinterpret_cast<const char*>(&rows[1]) - reinterpret_cast<const char*>(&rows[0]), 304);
}

TEST(Represent, NewOneHasNoIndexAndNoEntries)
{
    const TRepresent representative;
    EXPECT_EQ(representative.X, 0.0);
    EXPECT_EQ(representative.Y, 0.0);
    EXPECT_EQ(representative.Value, 0.0);
    EXPECT_EQ(representative.Index, -1);
    EXPECT_TRUE(representative.Items.empty());
}

TEST(Represent, PositionIsTheFirstSixteenBytes)
{
    const TRepresent representative{1.5, 2.5, 3.5, 4, {{5, 6, 7}, {8, 9, 10}}};
    const auto* const first = reinterpret_cast<const char*>(&representative);
    EXPECT_EQ(reinterpret_cast<const char*>(&representative.X) - first, 0);
    EXPECT_EQ(reinterpret_cast<const char*>(&representative.Y) - first, 8);
    EXPECT_EQ(representative.X, 1.5);
    EXPECT_EQ(representative.Y, 2.5);
    EXPECT_EQ(representative.Value, 3.5);
    EXPECT_EQ(representative.Index, 4);
    ASSERT_EQ(representative.Items.size(), 2U);
    EXPECT_EQ(representative.Items[1].FrameNumber, 8);
    EXPECT_EQ(representative.Items[1].BlobIndex, 9);
    EXPECT_EQ(representative.Items[1].Third, 10);
}

TEST(Represent, EntryIsThreeIntegers)
{
    EXPECT_EQ(sizeof(TIndVK), 12U);
    EXPECT_EQ(imageOf(TIndVK{}), std::string(12, '\0'));
    expectOwnBytes(RecordField<TIndVK, int>{"FrameNumber", &TIndVK::FrameNumber, 0});
    expectOwnBytes(RecordField<TIndVK, int>{"BlobIndex", &TIndVK::BlobIndex, 4});
    expectOwnBytes(RecordField<TIndVK, int>{"Third", &TIndVK::Third, 8});
}

TEST(Segment, PointIsSixteenBytes)
{
    EXPECT_EQ(sizeof(TSegmentPoint), 16U);
    EXPECT_EQ(imageOf(TSegmentPoint{}), std::string(16, '\0'));
    expectOwnBytes(RecordField<TSegmentPoint, int>{"X", &TSegmentPoint::X, 0});
    expectOwnBytes(RecordField<TSegmentPoint, int>{"Y", &TSegmentPoint::Y, 4});
    expectOwnBytes(RecordField<TSegmentPoint, double>{"Value", &TSegmentPoint::Value, 8});
}

TEST(Segment, HeadIsTheFirstSixteenBytes)
{
    const DTSegment segment{1, 2, 3.5, {{4, 5, 6.5}}};
    const auto* const first = reinterpret_cast<const char*>(&segment);
    EXPECT_EQ(reinterpret_cast<const char*>(&segment.X) - first, 0);
    EXPECT_EQ(reinterpret_cast<const char*>(&segment.Y) - first, 4);
    EXPECT_EQ(reinterpret_cast<const char*>(&segment.Value) - first, 8);
    EXPECT_EQ(segment.X, 1);
    EXPECT_EQ(segment.Y, 2);
    EXPECT_EQ(segment.Value, 3.5);
    ASSERT_EQ(segment.Points.size(), 1U);
    EXPECT_EQ(segment.Points[0].X, 4);
    EXPECT_EQ(segment.Points[0].Y, 5);
    EXPECT_EQ(segment.Points[0].Value, 6.5);
}

TEST(Segment, NewOneIsZeroAndEmpty)
{
    const DTSegment segment;
    EXPECT_EQ(segment.X, 0);
    EXPECT_EQ(segment.Y, 0);
    EXPECT_EQ(segment.Value, 0.0);
    EXPECT_TRUE(segment.Points.empty());
}

TEST(ObjectOutline, NewOneIsZeroAndEmpty)
{
    const TObjKontur object;
    EXPECT_EQ(object.Kind, 0);
    EXPECT_EQ(object.X, 0);
    EXPECT_EQ(object.Y, 0);
    EXPECT_EQ(object.Value, 0.0);
    EXPECT_EQ(object.ValueA, 0.0);
    EXPECT_TRUE(object.Contour.empty());
    EXPECT_TRUE(object.Area.empty());
    EXPECT_EQ(object.Index, 0);
    EXPECT_EQ(object.XWeight, 0.0);
    EXPECT_EQ(object.YWeight, 0.0);
    EXPECT_EQ(object.XMean, 0.0);
    EXPECT_EQ(object.YMean, 0.0);
    EXPECT_EQ(object.ValueB, 0.0);
    EXPECT_EQ(object.Width, 0.0);
    EXPECT_EQ(object.Length, 0.0);
    EXPECT_EQ(object.Angle, 0.0);
    EXPECT_EQ(object.Exc, 0.0);
}

TEST(ObjectOutline, HasItsFieldsInOrder)
{
    const TObjKontur object{1,
                            2,
                            3,
                            4.5,
                            5.5,
                            {{6, 7, 8.5, 9.5}},
                            {{10, 11, 12.5, 13.5}, {14, 15}},
                            16,
                            17.5,
                            18.5,
                            19.5,
                            20.5,
                            21.5,
                            22.5,
                            23.5,
                            24.5,
                            25.5};
    EXPECT_EQ(object.Kind, 1);
    EXPECT_EQ(object.X, 2);
    EXPECT_EQ(object.Y, 3);
    EXPECT_EQ(object.Value, 4.5);
    EXPECT_EQ(object.ValueA, 5.5);
    ASSERT_EQ(object.Contour.size(), 1U);
    EXPECT_EQ(object.Contour[0].X, 6);
    ASSERT_EQ(object.Area.size(), 2U);
    EXPECT_EQ(object.Area[1].X, 14);
    EXPECT_EQ(object.Index, 16);
    EXPECT_EQ(object.XWeight, 17.5);
    EXPECT_EQ(object.YWeight, 18.5);
    EXPECT_EQ(object.XMean, 19.5);
    EXPECT_EQ(object.YMean, 20.5);
    EXPECT_EQ(object.ValueB, 21.5);
    EXPECT_EQ(object.Width, 22.5);
    EXPECT_EQ(object.Length, 23.5);
    EXPECT_EQ(object.Angle, 24.5);
    EXPECT_EQ(object.Exc, 25.5);
    static_assert(std::is_same_v<decltype(TObjKontur::Value), double>);
    static_assert(sizeof(TObjKontur::Value) == 8);
}

TEST(Peak, NewPeakTakesTheNextNumber)
{
    const int before = TRecPeak::idCounter;
    const TRecPeak first;
    EXPECT_EQ(TRecPeak::idCounter, before + 1);
    const TRecPeak second{};
    EXPECT_EQ(TRecPeak::idCounter, before + 2);
    EXPECT_EQ(first.id, before);
    EXPECT_EQ(second.id, before + 1);
    EXPECT_EQ(first.BlobNumber, 0);
    EXPECT_EQ(second.BlobNumber, 0);
}

TEST(Peak, NumbersFollowTheCounterWhereverItStands)
{
    const int before = TRecPeak::idCounter;
    TRecPeak::idCounter = 5000;
    const TRecPeak peak;
    EXPECT_EQ(peak.id, 5000);
    EXPECT_EQ(TRecPeak::idCounter, 5001);
    TRecPeak::idCounter = before;
}

TEST(Peak, CopyKeepsTheNumberOfItsSource)
{
    TRecPeak source;
    source.BlobNumber = 17;
    TRecPeak assigned;
    const int before = TRecPeak::idCounter;
    const TRecPeak copy = source;
    assigned = source;
    EXPECT_EQ(copy.id, source.id);
    EXPECT_EQ(copy.BlobNumber, 17);
    EXPECT_EQ(assigned.id, source.id);
    EXPECT_EQ(assigned.BlobNumber, 17);
    TRecPeak moved = std::move(assigned);
    EXPECT_EQ(moved.id, source.id);
    EXPECT_EQ(TRecPeak::idCounter, before);
}

TEST(FittedBlob, NewOneIsZeroButForItsPeaks)
{
    const VihodExt blob;
    for (const auto& [name, member] : fittedNumbers) {
        SCOPED_TRACE(name);
        EXPECT_EQ(blob.*member, 0.0);
    }
    for (const auto& [name, member] : fittedIntegers) {
        SCOPED_TRACE(name);
        EXPECT_EQ(blob.*member, 0);
    }
    EXPECT_EQ(static_cast<int>(blob.PeakType), 0);
    EXPECT_EQ(static_cast<int>(blob.TypeBlob), 0);
    EXPECT_EQ(static_cast<int>(blob.BlobCode), 0);
    static_assert(std::is_same_v<decltype(VihodExt::PeakType), TPeakType>);
    static_assert(std::is_same_v<decltype(VihodExt::TypeBlob), TTypeBlob>);
    static_assert(std::is_same_v<decltype(VihodExt::BlobCode), BlobCode>);
}

TEST(FittedBlob, BuildingOneCountsTwoPeaks)
{
    const int before = TRecPeak::idCounter;
    const VihodExt blob;
    EXPECT_EQ(TRecPeak::idCounter, before + 2);
    EXPECT_EQ((std::set<int>{blob.Peak1.id, blob.Peak2.id}), (std::set<int>{before, before + 1}));
    const VihodExt next{.X = 1.5};
    EXPECT_EQ(TRecPeak::idCounter, before + 4);
    EXPECT_EQ((std::set<int>{next.Peak1.id, next.Peak2.id}), (std::set<int>{before + 2, before + 3}));
}

TEST(FittedBlob, ListOfNewOnesCountsTwoPeaksEach)
{
    const int before = TRecPeak::idCounter;
    const std::vector<VihodExt> blobs(5);
    EXPECT_EQ(TRecPeak::idCounter, before + 10);
    std::set<int> numbers;
    for (const VihodExt& blob : blobs) {
        numbers.insert(blob.Peak1.id);
        numbers.insert(blob.Peak2.id);
    }
    EXPECT_EQ(numbers.size(), 10U);
    EXPECT_EQ(*numbers.begin(), before);
    EXPECT_EQ(*numbers.rbegin(), before + 9);
}

TEST(FittedBlob, CopiesDoNotCount)
{
    VihodExt blob;
    blob.Peak1.BlobNumber = 7;
    VihodExt assigned;
    const int before = TRecPeak::idCounter;
    const VihodExt copy = blob;
    assigned = blob;
    std::vector<VihodExt> blobs(20, blob);
    blobs.push_back(blob);
    blobs.erase(blobs.begin());
    EXPECT_EQ(TRecPeak::idCounter, before);
    for (const VihodExt& one : {copy, assigned, blobs.front(), blobs.back()}) {
        EXPECT_EQ(one.Peak1.id, blob.Peak1.id);
        EXPECT_EQ(one.Peak1.BlobNumber, 7);
        EXPECT_EQ(one.Peak2.id, blob.Peak2.id);
    }
}

TEST(HoughTrack, StrobeIsTheFirstFortyBytes)
{
    const THOKTrack track{1.5, 2.5, 3.5, 4.5, 5.5, {{6, 7}, {8, 9}}};
    const auto* const first = reinterpret_cast<const char*>(&track);
    EXPECT_EQ(std::string(first, 40), std::string("\0\0\0\0\0\0\xF8\x3F"
                                                  "\0\0\0\0\0\0\x04\x40"
                                                  "\0\0\0\0\0\0\x0C\x40"
                                                  "\0\0\0\0\0\0\x12\x40"
                                                  "\0\0\0\0\0\0\x16\x40",
                                                  40));
    EXPECT_EQ(reinterpret_cast<const char*>(&track.Items) - first, 40);
    ASSERT_EQ(track.Items.size(), 2U);
    EXPECT_EQ(track.Items[1].FrameNumber, 8);
    EXPECT_EQ(track.Items[1].BlobIndex, 9);
}

TEST(HoughTrack, NewOneIsZeroAndEmpty)
{
    const THOKTrack track;
    EXPECT_EQ(std::string(reinterpret_cast<const char*>(&track), 40), std::string(40, '\0'));
    EXPECT_TRUE(track.Items.empty());
}

TEST(FastObject, EntryIsFrameAndBlob)
{
    EXPECT_EQ(sizeof(TIndFrBl), 8U);
    EXPECT_EQ(imageOf(TIndFrBl{}), std::string(8, '\0'));
    expectOwnBytes(RecordField<TIndFrBl, int>{"FrameNumber", &TIndFrBl::FrameNumber, 0});
    expectOwnBytes(RecordField<TIndFrBl, int>{"BlobIndex", &TIndFrBl::BlobIndex, 4});
    EXPECT_TRUE(TBranch{}.Items.empty());
    static_assert(std::is_same_v<decltype(TBranch::Items), std::vector<TIndFrBl>>);
}

TEST(BlobListPoint, HasNineNumbersInOrder)
{
    EXPECT_EQ(imageOf(TRecTRI{}), std::string(72, '\0'));
    const TRecTRI point{1.5, 2.5, 3.5, 4.5, 5.5, 6.5, 7.5, 8.5, 9.5};
    EXPECT_EQ(point.X, 1.5);
    EXPECT_EQ(point.Y, 2.5);
    EXPECT_EQ(point.Value3, 3.5);
    EXPECT_EQ(point.Value4, 4.5);
    EXPECT_EQ(point.Value5, 5.5);
    EXPECT_EQ(point.Value6, 6.5);
    EXPECT_EQ(point.Value7, 7.5);
    EXPECT_EQ(point.Value8, 8.5);
    EXPECT_EQ(point.Value9, 9.5);
}

TEST(Blob, RecordsOfSortsAreNewAtZero)
{
    const TRecCat2 star;
    EXPECT_EQ(star.RA, 0.0);
    EXPECT_EQ(star.DE, 0.0);
    EXPECT_EQ(star.m, 0.0);
    EXPECT_EQ(star.Name, "");
    EXPECT_EQ(TComparStar{}.A, 0.0);
    const TFittObject fitted;
    EXPECT_EQ(fitted.X, 0.0);
    EXPECT_EQ(fitted.Y, 0.0);
    EXPECT_EQ(fitted.Index, 0);
}

TEST(PhotoBlob, NewBlobIsANewHeadAndANewMark)
{
    const TLocPhotoBlob blob;
    expectNewHead(blob.Head);
    expectSame(blob.Mark, {});
}

TEST(PhotoBlob, HeadStandsBeforeTheMark)
{
    static_assert(std::is_same_v<decltype(TLocPhotoBlob::Head), TFitHead>);
    static_assert(std::is_same_v<decltype(TLocPhotoBlob::Mark), TRecLabelPervichka_File>);
    TLocPhotoBlob blob{filledHead(), {.m = 9.5}};
    const TLocPhotoBlob copy = blob;
    blob.Head = {};
    blob.Mark.m = 1.0;
    expectFilledHead(copy.Head);
    EXPECT_EQ(measured(copy.Mark), (Measured{0, 0.0, 0.0, 0.0, 9.5}));
}
