#include "records/blob.h"

#include "records/photo_blob.h"

#include <gtest/gtest.h>

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
    EXPECT_EQ(double(frame.Marks[0].m), 9.5);
    EXPECT_EQ(std::string(frame.Marks[0].filtr), "V");

    const THeadBlobs moved = std::move(copy);
    EXPECT_EQ(moved.Instrument, "other");
    EXPECT_EQ(moved.Marks.size(), 3u);
}

TEST(PhotoBlob, NewBlobIsANewHeadAndANewMark)
{
    const TLocPhotoBlob blob;
    expectNewHead(blob.Head);
    EXPECT_EQ(int(blob.Mark.date), 0);
    EXPECT_EQ(double(blob.Mark.time), 0.0);
    EXPECT_EQ(double(blob.Mark.m), 0.0);
    EXPECT_EQ(int(blob.Mark.LinkIndex), -1);
    EXPECT_EQ(double(blob.Mark.RefValue1), -1.0);
    EXPECT_EQ(std::string(blob.Mark.filtr), "R");
    EXPECT_EQ(double(blob.Mark.Spare1), 0.0);
    EXPECT_EQ(double(blob.Mark.mEnsemble), 0.0);
    EXPECT_EQ(double(blob.Mark.Spare5), 0.0);
    EXPECT_EQ(std::string(blob.Mark.SpareText), "");
    EXPECT_EQ(std::string(blob.Mark.KNAME), "");
    EXPECT_EQ(std::string(blob.Mark.MTYPE), "DIF");
    EXPECT_EQ(std::string(blob.Mark.CNAME), "ENSEMBLE");
    EXPECT_EQ(std::string(blob.Mark.CHART), "na");
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
    EXPECT_EQ(double(copy.Mark.m), 9.5);
}
