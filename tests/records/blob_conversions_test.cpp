#include "records/blob_conversions.h"

#include "support/mark_fields.h"
#include "support/measured_marks.h"
#include "support/record_image.h"

#include <gtest/gtest.h>

#include <climits>
#include <string>
#include <vector>

using namespace tavelinUtils;

namespace {

using Fitted = VihodFullBranch_file;
using Marks = std::vector<Mark>;

// The row of a filled mark.
TBlobTable filledRow()
{
    return {.Code = BlobCode::partStroke,
            .X_bf = 1.5,
            .Y_bf = 2.5,
            .X_f = 3.5,
            .Y_f = 4.5,
            .AuxInt1 = 5,
            .AuxInt2 = 6,
            .TypeBlob = 2,
            .AuxInt3 = 7,
            .LinkIndex = 13,
            .SNRafit = 16.5,
            .SNRasegm = 17.5,
            .SNRpeak = 18.5,
            .FWHM = 19.5,
            .SigFit = 20.5,
            .RMSFit = 21.5,
            .SNcorrnotnorm = 22.5,
            .corrnorm = 23.5,
            .Exc = 24.5,
            .Angle = 25.5,
            .Length = 26.5,
            .Width = 27.5,
            .Radius = 28.5,
            .A = 29.5,
            .Asegm = 30.5,
            .Astrob = 31.5,
            .RA = 38.5,
            .AuxValue = 40.5,
            .DE = 39.5,
            .m = 41.5,
            .RefValue1 = 42.5,
            .RefValue2 = 43.5,
            .RefValue3 = 44.5,
            .RefValue4 = 45.5,
            .RefValue5 = 46.5,
            .RefValue6 = 47.5,
            .RefValue7 = 48.5,
            .RefValue8 = 49.5,
            .RefValue9 = 50.5,
            .Tag1 = 51,
            .Tag2 = 52,
            .Tag3 = 53,
            .Tag4 = 54};
}

// The mark that comes back from that row.
Mark markOfFilledRow(int date, double time)
{
    return {.BlobCode = BlobCode::partStroke,
            .X_bf = 1.5,
            .Y_bf = 2.5,
            .X_f = 3.5,
            .Y_f = 4.5,
            .AuxInt1 = 5,
            .AuxInt2 = 6,
            .TypeBlob = TTypeBlob::prLongStar,
            .AuxInt3 = 7,
            .iFRaw = -1,
            .AuxInt4 = -1,
            .LinkIndex = 13,
            .SNRafit = 16.5,
            .SNRasegm = 17.5,
            .SNRpeak = 18.5,
            .FWHM = 19.5,
            .SigFit = 20.5,
            .RMSFit = 21.5,
            .SNcorrnotnorm = 22.5,
            .corrnorm = 23.5,
            .Exc = 24.5,
            .Angle = 25.5,
            .Length = 26.5,
            .Width = 27.5,
            .Radius = 28.5,
            .A = 29.5,
            .Asegm = 30.5,
            .Astrob = 31.5,
            .date = date,
            .time = time,
            .RA = 38.5,
            .DE = 39.5,
            .AuxValue = 40.5,
            .m = 41.5,
            .RefValue1 = 42.5,
            .RefValue2 = 43.5,
            .RefValue3 = 44.5,
            .RefValue4 = 45.5,
            .RefValue5 = 46.5,
            .RefValue6 = 47.5,
            .RefValue7 = 48.5,
            .RefValue8 = 49.5,
            .RefValue9 = 50.5,
            .Tag1 = 51,
            .Tag2 = 52,
            .Tag3 = 53,
            .Tag4 = 54};
}

// No two fields are alike, and none is like that of a new mark.
Mark filledMark()
{
    Mark mark = markOfFilledRow(34, 35.5);
    mark.AuxFlag = true;
    mark.iFRaw = 8;
    mark.iF = 9;
    mark.AuxInt4 = 10;
    mark.iB = 11;
    mark.AuxInt5 = 12;
    mark.LinkList = {14, 15};
    mark.mInstr = 32.5;
    mark.mInstr1000 = 33.5;
    mark.bjd = 36;
    mark.time_bjd = 37.5;
    mark.filtr = "V";
    mark.mjd = "mjd text";
    mark.QRVID = "id";
    mark.Spare1 = 55.5;
    mark.mEnsemble = 56.5;
    mark.Spare2 = 57.5;
    mark.Spare3 = 58.5;
    mark.mInstrComp = 59.5;
    mark.Spare4 = 60.5;
    mark.Spare5 = 61.5;
    mark.SpareText = "spare";
    mark.KNAME = "check";
    mark.MTYPE = "STD";
    mark.CNAME = "comparison";
    mark.CHART = "chart";
    mark.SpareTail = 62.5;
    return mark;
}

TObjKontur objectAt(int X, int Y)
{
    TObjKontur object;
    object.X = X;
    object.Y = Y;
    return object;
}

constexpr Pair tableCodes[] = {{-1, 0}, {0, 0}, {1, 1}, {2, 2}, {3, 3},  {4, 4},  {5, 5},
                               {6, 0},  {7, 0}, {8, 0}, {9, 0}, {10, 0}, {99, 0}, {INT_MIN, 0}};

template <class Result, class... Arguments>
using Operation = Result (*)(Arguments...);

} // namespace

TEST(BlobConversions, OperationsTakeAndGiveTheirRecords)
{
    using Rows = std::vector<TBlobTable>;
    using Exts = std::vector<VihodExt>;
    using Objects = std::vector<TObjKontur>;
    using Segments = std::vector<DTSegment>;
    using Compact = std::vector<TVOBlobFile>;
    // A conversion with another argument or result does not compile here.
    [[maybe_unused]] Operation<TBlobTable, const Mark&> toRow = TRecLabelPervichka_FileToTBlobTable;
    [[maybe_unused]] Operation<Rows, const Marks&> toRows = TRecLabelPervichka_FileToTBlobTable;
    [[maybe_unused]] Operation<Mark, const TBlobTable&, int, double> row =
        TBlobTableToTRecLabelPervichka_File;
    [[maybe_unused]] Operation<Marks, const Rows&, int, double> rows = TBlobTableToTRecLabelPervichka_File;
    [[maybe_unused]] Operation<Mark, const TObjKontur&> object = TTObjKontur_to_BlobFromQRV;
    [[maybe_unused]] Operation<Mark, const Fitted&> fitted = VihodFullBranch_file_to_BlobFromQRV;
    [[maybe_unused]] Operation<Mark, const VihodExt&> ext = TVihodExt_to_BlobFromQRV;
    [[maybe_unused]] Operation<Marks, const std::vector<Fitted>&> fittedList = Res_SavoBlobFromQRV;
    [[maybe_unused]] Operation<Marks, const Exts&> extList = Res_SavoBlobFromQRV;
    [[maybe_unused]] Operation<Marks, const Objects&> objectList = TObjKonturToBlobFromQRV;
    [[maybe_unused]] Operation<Marks, const std::vector<TRecTRI>&> points = TRecTRIoBlobFromQRV;
    [[maybe_unused]] Operation<Marks, std::vector<Fitted>, int, double> full =
        BlobFullFIT_To_RecLabelPervichka;
    [[maybe_unused]] Operation<Marks, const Exts&, int, double> fullExt = BlobFullFIT_To_RecLabelPervichka;
    [[maybe_unused]] Operation<Marks, const std::vector<TRecCatLight>&> light =
        TRecCatLightToTRecLabelPervichka_File;
    [[maybe_unused]] Operation<Compact, const Marks&> compact = TRecLabelPervichkaToTVOBlob;
    [[maybe_unused]] Operation<std::vector<Compact>, const std::vector<THeadBlobs>&> frames =
        TRecLabelPervichka_FileToTVOBlobFile;
    [[maybe_unused]] Operation<std::vector<Compact>, const std::vector<Marks>&> lists =
        TRecLabelPervichka_FileToTVOBlobFile;
    [[maybe_unused]] Operation<VihodExt, const Fitted&, int> toExt = VihodFullBranch_To_VihodExt;
    [[maybe_unused]] Operation<Fitted, const VihodExt&> toFitted = VihodExt_To_VihodFullBranch;
    [[maybe_unused]] Operation<Exts, std::vector<Fitted>> toExts = VihodFullBranch_To_Res_Sav;
    [[maybe_unused]] Operation<std::vector<Fitted>, const Exts&> toFittedList = Res_SavTOVihodFullBranch_file;
    [[maybe_unused]] Operation<Segments, const Objects&> toSegments = TObjKonturToDTSegment;
    [[maybe_unused]] Operation<Objects, const Segments&> toObjects = TObjKonturToDTSegment;
    [[maybe_unused]] Operation<std::vector<pixel>, std::vector<pixelAper>> pixels = PixelAperListToPixel;
}

TEST(BlobConversions, EmptyListsGiveEmptyListsAndCountNoPeaks)
{
    const int before = TRecPeak::idCounter;
    EXPECT_TRUE(TRecLabelPervichka_FileToTBlobTable(Marks{}).empty());
    EXPECT_TRUE(TBlobTableToTRecLabelPervichka_File(std::vector<TBlobTable>{}, 60000, 0.5).empty());
    EXPECT_TRUE(Res_SavoBlobFromQRV(std::vector<Fitted>{}).empty());
    EXPECT_TRUE(Res_SavoBlobFromQRV(std::vector<VihodExt>{}).empty());
    EXPECT_TRUE(TObjKonturToBlobFromQRV(std::vector<TObjKontur>{}).empty());
    EXPECT_TRUE(TRecTRIoBlobFromQRV(std::vector<TRecTRI>{}).empty());
    EXPECT_TRUE(BlobFullFIT_To_RecLabelPervichka(std::vector<Fitted>{}, 60000, 0.5).empty());
    EXPECT_TRUE(BlobFullFIT_To_RecLabelPervichka(std::vector<VihodExt>{}, 60000, 0.5).empty());
    EXPECT_TRUE(TRecCatLightToTRecLabelPervichka_File(std::vector<TRecCatLight>{}).empty());
    EXPECT_TRUE(TRecLabelPervichkaToTVOBlob(Marks{}).empty());
    EXPECT_TRUE(TRecLabelPervichka_FileToTVOBlobFile(std::vector<THeadBlobs>{}).empty());
    EXPECT_TRUE(TRecLabelPervichka_FileToTVOBlobFile(std::vector<Marks>{}).empty());
    EXPECT_TRUE(VihodFullBranch_To_Res_Sav(std::vector<Fitted>{}).empty());
    EXPECT_TRUE(Res_SavTOVihodFullBranch_file(std::vector<VihodExt>{}).empty());
    EXPECT_TRUE(TObjKonturToDTSegment(std::vector<TObjKontur>{}).empty());
    EXPECT_TRUE(TObjKonturToDTSegment(std::vector<DTSegment>{}).empty());
    EXPECT_TRUE(PixelAperListToPixel(std::vector<pixelAper>{}).empty());
    EXPECT_EQ(TRecPeak::idCounter, before);
}

TEST(BlobConversions, RowTakesItsFieldsFromTheMark)
{
    const Mark mark = filledMark();
    expectSameImage(TRecLabelPervichka_FileToTBlobTable(mark), filledRow());
    expectSame(mark, filledMark());
}

TEST(BlobConversions, RowOfANewMarkHasNoLinkAndNoReferences)
{
    const TBlobTable expected{.LinkIndex = -1,
                              .RefValue1 = -1.0,
                              .RefValue2 = -1.0,
                              .RefValue3 = -1.0,
                              .RefValue4 = -1.0,
                              .RefValue5 = -1.0,
                              .RefValue6 = -1.0,
                              .RefValue7 = -1.0,
                              .RefValue8 = -1.0,
                              .RefValue9 = -1.0};
    expectSameImage(TRecLabelPervichka_FileToTBlobTable(Mark{}), expected);
}

TEST(BlobConversions, RowKeepsTheCodeOfItsMark)
{
    for (const int code : keptCodes) {
        SCOPED_TRACE(code);
        Mark mark;
        mark.BlobCode = static_cast<BlobCode>(code);
        const TBlobTable row = TRecLabelPervichka_FileToTBlobTable(mark);
        EXPECT_EQ(static_cast<int>(BlobCode(row.Code)), code);
    }
}

TEST(BlobConversions, RowKnowsFourKindsOfBlobs)
{
    for (const auto& [from, to] : kinds) {
        SCOPED_TRACE(from);
        Mark mark;
        mark.TypeBlob = static_cast<TTypeBlob>(from);
        EXPECT_EQ(int(TRecLabelPervichka_FileToTBlobTable(mark).TypeBlob), to);
    }
}

TEST(BlobConversions, RowsStandInTheOrderOfTheMarks)
{
    const Marks marks{{.X_bf = 1.5, .TypeBlob = TTypeBlob::prShLong}, filledMark(), {.Tag4 = 3}};
    const std::vector<TBlobTable> rows = TRecLabelPervichka_FileToTBlobTable(marks);
    ASSERT_EQ(rows.size(), 3U);
    EXPECT_EQ(double(rows[0].X_bf), 1.5);
    EXPECT_EQ(int(rows[0].TypeBlob), -1);
    expectSameImage(rows[1], filledRow());
    EXPECT_EQ(int(rows[2].Tag4), 3);
    EXPECT_EQ(double(rows[2].X_bf), 0.0);
    ASSERT_EQ(marks.size(), 3U);
    expectSame(marks[1], filledMark());
}

TEST(BlobConversions, MarkTakesItsFieldsFromTheRow)
{
    const TBlobTable row = filledRow();
    expectSame(TBlobTableToTRecLabelPervichka_File(row, 60000, 0.625), markOfFilledRow(60000, 0.625));
    expectSameImage(row, filledRow());
}

TEST(BlobConversions, MarkOfANewRowHasZerosWhereANewMarkHasNot)
{
    expectSame(TBlobTableToTRecLabelPervichka_File(TBlobTable{}, 0, 0.0), {.iFRaw = -1,
                                                                           .AuxInt4 = -1,
                                                                           .LinkIndex = 0,
                                                                           .RefValue1 = 0.0,
                                                                           .RefValue2 = 0.0,
                                                                           .RefValue3 = 0.0,
                                                                           .RefValue4 = 0.0,
                                                                           .RefValue5 = 0.0,
                                                                           .RefValue6 = 0.0,
                                                                           .RefValue7 = 0.0,
                                                                           .RefValue8 = 0.0,
                                                                           .RefValue9 = 0.0});
}

TEST(BlobConversions, MarkTakesFiveCodesFromARow)
{
    for (const auto& [from, to] : tableCodes) {
        SCOPED_TRACE(from);
        TBlobTable row;
        row.Code = static_cast<BlobCode>(from);
        EXPECT_EQ(codeOf(TBlobTableToTRecLabelPervichka_File(row, 60000, 0.5)), to);
        const Marks marks = TBlobTableToTRecLabelPervichka_File(std::vector<TBlobTable>{row}, 60000, 0.5);
        ASSERT_EQ(marks.size(), 1U);
        EXPECT_EQ(codeOf(marks[0]), to);
    }
}

TEST(BlobConversions, MarkTakesFourKindsOfBlobsFromARow)
{
    for (const auto& [from, to] : kinds) {
        SCOPED_TRACE(from);
        TBlobTable row;
        row.TypeBlob = from;
        EXPECT_EQ(kindOf(TBlobTableToTRecLabelPervichka_File(row, 60000, 0.5)), to);
        const Marks marks = TBlobTableToTRecLabelPervichka_File(std::vector<TBlobTable>{row}, 60000, 0.5);
        ASSERT_EQ(marks.size(), 1U);
        EXPECT_EQ(kindOf(marks[0]), to);
    }
}

TEST(BlobConversions, MarkTakesItsTimeAsItIsGiven)
{
    const Mark mark = TBlobTableToTRecLabelPervichka_File(filledRow(), -5, 1.75);
    expectSame(mark, markOfFilledRow(-5, 1.75)); // a whole day is not carried
}

TEST(BlobConversions, MarksOfRowsShareTheTime)
{
    TBlobTable first;
    first.m = 9.5;
    const Marks marks =
        TBlobTableToTRecLabelPervichka_File(std::vector<TBlobTable>{first, filledRow()}, 60000, 0.25);
    ASSERT_EQ(marks.size(), 2U);
    EXPECT_EQ(measured(marks[0]), (Measured{60000, 0.25, 0.0, 0.0, 9.5}));
    EXPECT_EQ(int(marks[0].iFRaw), -1);
    EXPECT_EQ(int(marks[0].AuxInt4), -1);
    expectSame(marks[1], markOfFilledRow(60000, 0.25));
}

TEST(BlobConversions, MarkThroughARowKeepsWhatTheRowHolds)
{
    const Marks marks = TBlobTableToTRecLabelPervichka_File(
        TRecLabelPervichka_FileToTBlobTable(Marks{filledMark()}), 34, 35.5);
    ASSERT_EQ(marks.size(), 1U);
    expectSame(marks[0], markOfFilledRow(34, 35.5));
}

TEST(BlobConversions, MarkThroughARowLosesHighCodesAndOddKinds)
{
    Mark mark;
    mark.BlobCode = BlobCode::partStrokeStar;
    mark.TypeBlob = TTypeBlob::prALLBlob;
    const Mark back = TBlobTableToTRecLabelPervichka_File(TRecLabelPervichka_FileToTBlobTable(mark), 0, 0.0);
    EXPECT_EQ(codeOf(back), 0);
    EXPECT_EQ(kindOf(back), -1);
}

TEST(BlobConversions, MarkOfAnObjectHasItsPositionBeforeFitting)
{
    TObjKontur object{
        1,    12,   -7,   3.5,  4.5, {{5, 6, 7.5, 8.5}}, {{9, 10, 11.5, 12.5}}, 13, 14.5, 15.5, 16.5, 17.5,
        18.5, 19.5, 20.5, 21.5, 22.5};
    expectSame(TTObjKontur_to_BlobFromQRV(object), {.X_bf = 12.0, .Y_bf = -7.0});
    EXPECT_EQ(object.Area.size(), 1U);

    object.X = INT_MAX;
    object.Y = INT_MIN;
    expectSame(TTObjKontur_to_BlobFromQRV(object), {.X_bf = 2147483647.0, .Y_bf = -2147483648.0});
}

TEST(BlobConversions, MarksOfObjectsStandInTheirOrder)
{
    const Marks marks = TObjKonturToBlobFromQRV({objectAt(1, 2), objectAt(0, 0), objectAt(5, 6)});
    ASSERT_EQ(marks.size(), 3U);
    expectSame(marks[0], {.X_bf = 1.0, .Y_bf = 2.0});
    expectSame(marks[1], {});
    expectSame(marks[2], {.X_bf = 5.0, .Y_bf = 6.0});
}

TEST(BlobConversions, MarksOfPointsHaveTheirPositionsBeforeFitting)
{
    const Marks marks =
        TRecTRIoBlobFromQRV({{1.25, -2.5, 3.5, 4.5, 5.5, 6.5, 7.5, 8.5, 9.5}, {}, {10.75, 11.0}});
    ASSERT_EQ(marks.size(), 3U);
    expectSame(marks[0], {.X_bf = 1.25, .Y_bf = -2.5});
    expectSame(marks[1], {});
    expectSame(marks[2], {.X_bf = 10.75, .Y_bf = 11.0});
}

TEST(BlobConversions, MarkOfALightStarHasPositionCoordinatesAndMagnitude)
{
    TRecCatLight star{.RA = 187.5, .DE = -12.25, .X = 10.5, .Y = 20.5, .m = 9.5};
    for (unsigned char& byte : star.Carried) {
        byte = 0x5A;
    }
    const Marks marks = TRecCatLightToTRecLabelPervichka_File({star, {}, {.RA = 1.0, .m = -1.5}});
    ASSERT_EQ(marks.size(), 3U);
    expectSame(marks[0], {.X_bf = 10.5, .Y_bf = 20.5, .RA = 187.5, .DE = -12.25, .m = 9.5});
    expectSame(marks[1], {});
    expectSame(marks[2], {.RA = 1.0, .m = -1.5});
}

TEST(BlobConversions, CompactMarkTakesItsFieldsFromTheMark)
{
    const Marks marks{filledMark()};
    const std::vector<TVOBlobFile> compact = TRecLabelPervichkaToTVOBlob(marks);
    ASSERT_EQ(compact.size(), 1U);
    expectSameImage(compact[0], {.X_bf = 1.5F,
                                 .Y_bf = 2.5F,
                                 .RA = 38.5F,
                                 .DE = 39.5F,
                                 .Length = 26.5F,
                                 .Width = 27.5F,
                                 .Angle = 25.5F,
                                 .Exc = 24.5F,
                                 .SNRasegm = 17.5F,
                                 .m = 41.5F,
                                 .date = 34,
                                 .time = 35.5});
    expectSame(marks[0], filledMark());
}

TEST(BlobConversions, CompactMarkIsNarrowedButForItsTime)
{
    const Marks marks{{.X_bf = 1234.56789,
                       .Y_bf = -987.654321,
                       .SNRasegm = 16777217.0,
                       .Exc = 0.9,
                       .Angle = 45.67,
                       .Length = 17.1,
                       .Width = 3.3,
                       .date = 16777217,
                       .time = 0.123456789012345,
                       .RA = 187.123456789,
                       .DE = -12.987654321,
                       .m = -1.7}};
    const std::vector<TVOBlobFile> compact = TRecLabelPervichkaToTVOBlob(marks);
    ASSERT_EQ(compact.size(), 1U);
    EXPECT_EQ(static_cast<double>(compact[0].X_bf), 1234.56787109375);
    EXPECT_EQ(static_cast<double>(compact[0].Y_bf), -987.654296875);
    EXPECT_EQ(static_cast<double>(compact[0].SNRasegm), 16777216.0);
    EXPECT_EQ(static_cast<double>(compact[0].Exc), 0x1.ccccccp-1);
    EXPECT_EQ(static_cast<double>(compact[0].Angle), 0x1.6d5c28p+5);
    EXPECT_EQ(static_cast<double>(compact[0].Length), 0x1.11999ap+4);
    EXPECT_EQ(static_cast<double>(compact[0].Width), 0x1.a66666p+1);
    EXPECT_EQ(static_cast<double>(compact[0].RA), 0x1.763f36p+7);
    EXPECT_EQ(static_cast<double>(compact[0].DE), -0x1.9f9adep+3);
    EXPECT_EQ(static_cast<double>(compact[0].m), -0x1.b33334p+0);
    EXPECT_EQ(compact[0].date, 16777217);
    EXPECT_EQ(compact[0].time, 0.123456789012345);
}

TEST(BlobConversions, CompactMarkOfANewMarkIsZeroInEveryByte)
{
    const std::vector<TVOBlobFile> compact = TRecLabelPervichkaToTVOBlob(Marks(2));
    ASSERT_EQ(compact.size(), 2U);
    EXPECT_EQ(imageOf(compact[0]), std::string(56, '\0'));
    EXPECT_EQ(imageOf(compact[1]), std::string(56, '\0'));
}

TEST(BlobConversions, CompactMarksOfFramesStayWithTheirFrames)
{
    std::vector<THeadBlobs> frames(3);
    frames[0].date = 60009;
    frames[0].time = 0.875;
    frames[0].Marks = {{.X_bf = 1.5, .date = 60000, .time = 0.25}, {.X_bf = 2.5}};
    frames[2].Marks = {{.m = 9.5}};
    const auto compact = TRecLabelPervichka_FileToTVOBlobFile(frames);
    ASSERT_EQ(compact.size(), 3U);
    ASSERT_EQ(compact[0].size(), 2U);
    expectSameImage(compact[0][0], {.X_bf = 1.5F, .date = 60000, .time = 0.25});
    expectSameImage(compact[0][1], {.X_bf = 2.5F});
    EXPECT_TRUE(compact[1].empty());
    ASSERT_EQ(compact[2].size(), 1U);
    expectSameImage(compact[2][0], {.m = 9.5F});
}

TEST(BlobConversions, CompactMarksOfListsStayInTheirLists)
{
    const std::vector<Marks> lists{
        {}, {{.X_bf = 1.5, .date = 60000, .time = 0.25}, {.X_bf = 2.5}}, {{.m = 9.5}}, {}};
    const auto compact = TRecLabelPervichka_FileToTVOBlobFile(lists);
    ASSERT_EQ(compact.size(), 4U);
    EXPECT_TRUE(compact[0].empty());
    ASSERT_EQ(compact[1].size(), 2U);
    expectSameImage(compact[1][0], {.X_bf = 1.5F, .date = 60000, .time = 0.25});
    expectSameImage(compact[1][1], {.X_bf = 2.5F});
    ASSERT_EQ(compact[2].size(), 1U);
    expectSameImage(compact[2][0], {.m = 9.5F});
    EXPECT_TRUE(compact[3].empty());
}

TEST(BlobConversions, SegmentTakesTheAreaOfAnObject)
{
    std::vector<TObjKontur> objects(3);
    objects[0].Kind = 1;
    objects[0].X = 12;
    objects[0].Y = -7;
    objects[0].Value = 3.5;
    objects[0].ValueA = 4.5;
    objects[0].Contour = {{90, 91, 92.5, 93.5}};
    objects[0].Area = {{1, 2, 3.25, 4.25}, {-5, 6, -7.25, 8.25}, {1, 2, 3.25, 0.0}};
    objects[0].Index = 13;
    objects[2].X = 5;
    objects[2].Area = {{8, 9, 0.5, 0.0}};
    const std::vector<DTSegment> segments = TObjKonturToDTSegment(objects);
    ASSERT_EQ(segments.size(), 3U);
    EXPECT_EQ(segments[0].X, 12);
    EXPECT_EQ(segments[0].Y, -7);
    EXPECT_EQ(segments[0].Value, 3.5);
    ASSERT_EQ(segments[0].Points.size(), 3U);
    expectSameImage(segments[0].Points[0], {1, 2, 3.25});
    expectSameImage(segments[0].Points[1], {-5, 6, -7.25});
    expectSameImage(segments[0].Points[2], {1, 2, 3.25});
    EXPECT_EQ(segments[1].X, 0);
    EXPECT_EQ(segments[1].Y, 0);
    EXPECT_EQ(segments[1].Value, 0.0);
    EXPECT_TRUE(segments[1].Points.empty());
    EXPECT_EQ(segments[2].X, 5);
    ASSERT_EQ(segments[2].Points.size(), 1U);
    expectSameImage(segments[2].Points[0], {8, 9, 0.5});
    EXPECT_EQ(objects[0].Area.size(), 3U);
}

TEST(BlobConversions, ObjectTakesThePointsOfASegment)
{
    const std::vector<DTSegment> segments{
        {12, -7, 3.5, {{1, 2, 3.25}, {-5, 6, -7.25}}}, {}, {5, 6, 0.0, {{8, 9, 0.5}}}};
    const std::vector<TObjKontur> objects = TObjKonturToDTSegment(segments);
    ASSERT_EQ(objects.size(), 3U);
    EXPECT_EQ(objects[0].X, 12);
    EXPECT_EQ(objects[0].Y, -7);
    EXPECT_EQ(objects[0].Value, 3.5);
    ASSERT_EQ(objects[0].Area.size(), 2U);
    expectSameImage(objects[0].Area[0], {1, 2, 3.25, 0.0});
    expectSameImage(objects[0].Area[1], {-5, 6, -7.25, 0.0});
    EXPECT_TRUE(objects[1].Area.empty());
    EXPECT_EQ(objects[1].X, 0);
    EXPECT_EQ(objects[2].X, 5);
    EXPECT_EQ(objects[2].Y, 6);
    ASSERT_EQ(objects[2].Area.size(), 1U);
    expectSameImage(objects[2].Area[0], {8, 9, 0.5, 0.0});
    for (const TObjKontur& object : objects) {
        EXPECT_EQ(object.Kind, 0);
        EXPECT_EQ(object.ValueA, 0.0);
        EXPECT_TRUE(object.Contour.empty());
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
}

TEST(BlobConversions, PixelsOfAnApertureHaveOnlyTheirPlaces)
{
    const std::vector<pixelAper> aperture{{3, -4}, {0, 0}, {INT_MAX, INT_MIN}, {3, -4}};
    const std::vector<pixel> pixels = PixelAperListToPixel(aperture);
    ASSERT_EQ(pixels.size(), 4U);
    expectSameImage(pixels[0], {3, -4, 0.0, 0.0});
    expectSameImage(pixels[1], {0, 0, 0.0, 0.0});
    expectSameImage(pixels[2], {INT_MAX, INT_MIN, 0.0, 0.0});
    expectSameImage(pixels[3], {3, -4, 0.0, 0.0});
    EXPECT_EQ(aperture.size(), 4U);
}
