#include "records/blob_conversions.h"

#include "support/fitted_blob_fields.h"
#include "support/mark_fields.h"
#include "support/record_image.h"

#include <gtest/gtest.h>

#include <climits>
#include <limits>
#include <set>
#include <string>
#include <utility>
#include <vector>

using namespace tavelinUtils;

namespace {

using Fitted = VihodFullBranch_file;
using Marks = std::vector<Mark>;

// Every field but the numbers of the peaks, which the counter gives.
void expectSame(const VihodExt& blob, const VihodExt& expected)
{
    for (const auto& [name, member] : fittedNumbers) {
        SCOPED_TRACE(name);
        EXPECT_EQ(blob.*member, expected.*member);
    }
    for (const auto& [name, member] : fittedIntegers) {
        SCOPED_TRACE(name);
        EXPECT_EQ(blob.*member, expected.*member);
    }
    EXPECT_EQ(static_cast<int>(blob.PeakType), static_cast<int>(expected.PeakType));
    EXPECT_EQ(static_cast<int>(blob.TypeBlob), static_cast<int>(expected.TypeBlob));
    EXPECT_EQ(static_cast<int>(blob.BlobCode), static_cast<int>(expected.BlobCode));
    EXPECT_EQ(blob.Peak1.BlobNumber, expected.Peak1.BlobNumber);
    EXPECT_EQ(blob.Peak2.BlobNumber, expected.Peak2.BlobNumber);
}

Fitted filledFitted()
{
    return {.X = 1.5,
            .Y = 2.5,
            .A = 100.0,
            .Asegm = 3.5,
            .BackMean = 4.5,
            .BackSKO = 5.5,
            .SNRafit = 6.5,
            .SNRasegm = 7.5,
            .SNRpeak = 8.5,
            .Radius = 9.5,
            .FWHM = 10.5,
            .SigFit = 11.5,
            .RMSratio = 0.5,
            .Aux1 = 12,
            .Aux2 = 13,
            .Aux3 = 14,
            .AstrobCount = 15,
            .PeakType = 1,
            .Width = 16.5,
            .Length = 17.5,
            .Angle = 18.5,
            .Exc = 19.5,
            .TypeBlob = 6,
            .Ref1 = 20.5,
            .Ref2 = 21.5,
            .BlobCode = 8,
            .Tail1 = 22.5,
            .Tail2 = 23.5,
            .Tail3 = 24.5,
            .Tail4 = 25.5,
            .Tail5 = 26.5,
            .Tail6 = 27,
            .LinkIndex = 28,
            .SNcorrnotnorm = 29.5,
            .corrnorm = 30.5};
}

// The same blob, with the gaps as another tool may have left them.
Fitted filledFittedWithGaps()
{
    Fitted record = filledFitted();
    for (unsigned char& byte : record.Gap80) {
        byte = 0x5A;
    }
    for (unsigned char& byte : record.Gap140) {
        byte = 0x5B;
    }
    for (unsigned char& byte : record.Gap180) {
        byte = 0x5C;
    }
    for (unsigned char& byte : record.Gap204) {
        byte = 0x5D;
    }
    return record;
}

// The same blob as the stages work with it, without number and object.
VihodExt filledExt()
{
    VihodExt blob;
    blob.X = 1.5;
    blob.Y = 2.5;
    blob.A = 100.0;
    blob.Asegm = 3.5;
    blob.BackMean = 4.5;
    blob.BackSKO = 5.5;
    blob.SNRafit = 6.5;
    blob.SNRasegm = 7.5;
    blob.SNRpeak = 8.5;
    blob.Radius = 9.5;
    blob.FWHM = 10.5;
    blob.SigFit = 11.5;
    blob.RMSratio = 0.5;
    blob.Aux1 = 12;
    blob.Aux2 = 13;
    blob.Aux3 = 14;
    blob.AstrobCount = 15.0;
    blob.PeakType = TPeakType::one;
    blob.TypeBlob = TTypeBlob::prTriangle;
    blob.Width = 16.5;
    blob.Length = 17.5;
    blob.Angle = 18.5;
    blob.Exc = 19.5;
    blob.Ref1 = 20.5;
    blob.Ref2 = 21.5;
    blob.BlobCode = BlobCode::ic;
    blob.Tail1 = 22.5;
    blob.Tail2 = 23.5;
    blob.Tail3 = 24.5;
    blob.Tail4 = 25.5;
    blob.Tail5 = 26.5;
    blob.Tail6 = 27;
    blob.LinkIndex = 28;
    blob.SNcorrnotnorm = 29.5;
    blob.corrnorm = 30.5;
    return blob;
}

// The mark of that blob after the full conversion.
Mark markOfFilledFitted(int date, double time)
{
    return {.BlobCode = BlobCode::ic,
            .X_bf = 1.5,
            .Y_bf = 2.5,
            .X_f = 1.5,
            .Y_f = 2.5,
            .AuxInt1 = 12,
            .AuxInt2 = 13,
            .TypeBlob = TTypeBlob::prTriangle,
            .AuxInt3 = 14,
            .LinkIndex = 28,
            .SNRafit = 6.5,
            .SNRasegm = 7.5,
            .SNRpeak = 8.5,
            .FWHM = 10.5,
            .SigFit = 11.5,
            .RMSFit = 50.0,
            .SNcorrnotnorm = 29.5,
            .corrnorm = 30.5,
            .Exc = 19.5,
            .Angle = 18.5,
            .Length = 17.5,
            .Width = 16.5,
            .Radius = 9.5,
            .A = 100.0,
            .Asegm = 3.5,
            .Astrob = 15.0,
            .date = date,
            .time = time};
}

Fitted fittedAt(double X, double Y)
{
    Fitted record;
    record.X = X;
    record.Y = Y;
    return record;
}

VihodExt extAt(double X, double Y)
{
    VihodExt blob;
    blob.X = X;
    blob.Y = Y;
    return blob;
}

constexpr Pair readCodes[] = {{-1, 0}, {0, 0}, {1, 1}, {2, 2}, {3, 3},  {4, 4},  {5, 5},
                              {6, 6},  {7, 7}, {8, 8}, {9, 0}, {10, 0}, {99, 0}, {INT_MAX, 0}};

constexpr Pair peakTypes[] = {{-1, 0}, {0, 0}, {1, 1}, {2, 0}, {99, 0}};

} // namespace

TEST(BlobConversions, MarkOfAFittedBlobHasItsPositionTwice)
{
    const int before = TRecPeak::idCounter;
    expectSame(VihodFullBranch_file_to_BlobFromQRV(filledFittedWithGaps()),
               {.X_bf = 1.5, .Y_bf = 2.5, .X_f = 1.5, .Y_f = 2.5});
    EXPECT_EQ(TRecPeak::idCounter, before);
}

TEST(BlobConversions, MarkOfAFittedBlobInMemoryHasItsPositionTwice)
{
    VihodExt blob = filledExt();
    blob.BlobNumber = 40;
    blob.Index = 41;
    const int before = TRecPeak::idCounter;
    expectSame(TVihodExt_to_BlobFromQRV(blob), {.X_bf = 1.5, .Y_bf = 2.5, .X_f = 1.5, .Y_f = 2.5});
    EXPECT_EQ(TRecPeak::idCounter, before);
}

TEST(BlobConversions, MarksOfFittedBlobsStandInTheirOrder)
{
    const Marks marks =
        Res_SavoBlobFromQRV(std::vector<Fitted>{fittedAt(1.25, 2.5), filledFitted(), fittedAt(-3.5, 0.0)});
    ASSERT_EQ(marks.size(), 3U);
    expectSame(marks[0], {.X_bf = 1.25, .Y_bf = 2.5, .X_f = 1.25, .Y_f = 2.5});
    expectSame(marks[1], {.X_bf = 1.5, .Y_bf = 2.5, .X_f = 1.5, .Y_f = 2.5});
    expectSame(marks[2], {.X_bf = -3.5, .X_f = -3.5});
}

TEST(BlobConversions, MarksOfFittedBlobsInMemoryStandInTheirOrder)
{
    const std::vector<VihodExt> blobs{extAt(1.25, 2.5), filledExt(), extAt(-3.5, 0.0)};
    const int before = TRecPeak::idCounter;
    const Marks marks = Res_SavoBlobFromQRV(blobs);
    EXPECT_EQ(TRecPeak::idCounter, before);
    ASSERT_EQ(marks.size(), 3U);
    expectSame(marks[0], {.X_bf = 1.25, .Y_bf = 2.5, .X_f = 1.25, .Y_f = 2.5});
    expectSame(marks[1], {.X_bf = 1.5, .Y_bf = 2.5, .X_f = 1.5, .Y_f = 2.5});
    expectSame(marks[2], {.X_bf = -3.5, .X_f = -3.5});
}

TEST(BlobConversions, FullMarkTakesItsFieldsFromTheFittedBlob)
{
    const std::vector<Fitted> records{filledFittedWithGaps()};
    const int before = TRecPeak::idCounter;
    const Marks marks = BlobFullFIT_To_RecLabelPervichka(records, 60000, 0.625);
    EXPECT_EQ(TRecPeak::idCounter, before);
    ASSERT_EQ(marks.size(), 1U);
    expectSame(marks[0], markOfFilledFitted(60000, 0.625));
    expectSameImage(records[0], filledFittedWithGaps());
}

TEST(BlobConversions, FullMarkTakesItsFieldsFromTheFittedBlobInMemory)
{
    std::vector<VihodExt> blobs{filledExt()};
    blobs[0].BlobNumber = 40;
    blobs[0].Index = 41;
    const int before = TRecPeak::idCounter;
    const Marks marks = BlobFullFIT_To_RecLabelPervichka(blobs, 60000, 0.625);
    EXPECT_EQ(TRecPeak::idCounter, before);
    ASSERT_EQ(marks.size(), 1U);
    expectSame(marks[0], markOfFilledFitted(60000, 0.625));
}

TEST(BlobConversions, FullMarkOfANewBlobHasLinkZero)
{
    Marks marks = BlobFullFIT_To_RecLabelPervichka(std::vector<Fitted>(1), 0, 0.0);
    ASSERT_EQ(marks.size(), 1U);
    expectSame(marks[0], {.LinkIndex = 0});
    marks = BlobFullFIT_To_RecLabelPervichka(std::vector<VihodExt>(1), 0, 0.0);
    ASSERT_EQ(marks.size(), 1U);
    expectSame(marks[0], {.LinkIndex = 0});
}

TEST(BlobConversions, RmsOfAFullMarkIsInUnitsOfItsAmplitude)
{
    constexpr struct
    {
        double A;
        double RMSratio;
        double RMSFit;
    } cases[] = {{100.0, 0.5, 50.0}, {0.0, 0.5, 0.0},    {100.0, 0.0, 0.0},
                 {-8.0, 0.25, -2.0}, {8.0, -0.25, -2.0}, {3.0, 1.5, 4.5}};
    for (const auto& one : cases) {
        SCOPED_TRACE(one.A);
        SCOPED_TRACE(one.RMSratio);
        Fitted record;
        record.A = one.A;
        record.RMSratio = one.RMSratio;
        Marks marks = BlobFullFIT_To_RecLabelPervichka(std::vector<Fitted>{record}, 0, 0.0);
        ASSERT_EQ(marks.size(), 1U);
        EXPECT_EQ(double(marks[0].RMSFit), one.RMSFit);
        EXPECT_EQ(double(marks[0].A), one.A);
        VihodExt blob;
        blob.A = one.A;
        blob.RMSratio = one.RMSratio;
        marks = BlobFullFIT_To_RecLabelPervichka(std::vector<VihodExt>{blob}, 0, 0.0);
        ASSERT_EQ(marks.size(), 1U);
        EXPECT_EQ(double(marks[0].RMSFit), one.RMSFit);
    }
}

TEST(BlobConversions, FullMarkKeepsTheCodeOfItsBlob)
{
    for (const int code : keptCodes) {
        SCOPED_TRACE(code);
        Fitted record;
        record.BlobCode = code;
        Marks marks = BlobFullFIT_To_RecLabelPervichka(std::vector<Fitted>{record}, 0, 0.0);
        ASSERT_EQ(marks.size(), 1U);
        EXPECT_EQ(codeOf(marks[0]), code);
        VihodExt blob;
        blob.BlobCode = static_cast<BlobCode>(code);
        marks = BlobFullFIT_To_RecLabelPervichka(std::vector<VihodExt>{blob}, 0, 0.0);
        ASSERT_EQ(marks.size(), 1U);
        EXPECT_EQ(codeOf(marks[0]), code);
    }
}

TEST(BlobConversions, FullMarkKnowsFourKindsOfBlobs)
{
    for (const auto& [from, to] : kinds) {
        SCOPED_TRACE(from);
        Fitted record;
        record.TypeBlob = from;
        Marks marks = BlobFullFIT_To_RecLabelPervichka(std::vector<Fitted>{record}, 0, 0.0);
        ASSERT_EQ(marks.size(), 1U);
        EXPECT_EQ(kindOf(marks[0]), to);
        VihodExt blob;
        blob.TypeBlob = static_cast<TTypeBlob>(from);
        marks = BlobFullFIT_To_RecLabelPervichka(std::vector<VihodExt>{blob}, 0, 0.0);
        ASSERT_EQ(marks.size(), 1U);
        EXPECT_EQ(kindOf(marks[0]), to);
    }
}

TEST(BlobConversions, StrobeOfAFullMarkIsTheCount)
{
    for (const int count : {0, 1, -1, INT_MAX, INT_MIN}) {
        SCOPED_TRACE(count);
        Fitted record;
        record.AstrobCount = count;
        const Marks marks = BlobFullFIT_To_RecLabelPervichka(std::vector<Fitted>{record}, 0, 0.0);
        ASSERT_EQ(marks.size(), 1U);
        EXPECT_EQ(double(marks[0].Astrob), static_cast<double>(count));
    }
}

TEST(BlobConversions, FullMarksOfAFrameShareItsTime)
{
    Marks marks = BlobFullFIT_To_RecLabelPervichka(
        std::vector<Fitted>{fittedAt(1.25, 2.5), filledFitted(), fittedAt(-3.5, 4.5)}, 60001, 0.25);
    ASSERT_EQ(marks.size(), 3U);
    expectSame(
        marks[0],
        {.X_bf = 1.25, .Y_bf = 2.5, .X_f = 1.25, .Y_f = 2.5, .LinkIndex = 0, .date = 60001, .time = 0.25});
    expectSame(marks[1], markOfFilledFitted(60001, 0.25));
    expectSame(
        marks[2],
        {.X_bf = -3.5, .Y_bf = 4.5, .X_f = -3.5, .Y_f = 4.5, .LinkIndex = 0, .date = 60001, .time = 0.25});

    marks = BlobFullFIT_To_RecLabelPervichka(std::vector<VihodExt>{extAt(1.25, 2.5), filledExt()}, -1, 1.5);
    ASSERT_EQ(marks.size(), 2U);
    // A whole day is not carried.
    expectSame(marks[0],
               {.X_bf = 1.25, .Y_bf = 2.5, .X_f = 1.25, .Y_f = 2.5, .LinkIndex = 0, .date = -1, .time = 1.5});
    expectSame(marks[1], markOfFilledFitted(-1, 1.5));
}

TEST(BlobConversions, BlobFromItsRecordHasItsFieldsAndItsNumber)
{
    const Fitted record = filledFittedWithGaps();
    VihodExt expected = filledExt();
    expected.BlobNumber = 40;
    expected.Peak1.BlobNumber = 40;
    expectSame(VihodFullBranch_To_VihodExt(record, 40), expected);
    expectSameImage(record, filledFittedWithGaps());

    expected.BlobNumber = -1;
    expected.Peak1.BlobNumber = -1;
    expectSame(VihodFullBranch_To_VihodExt(record, -1), expected);
}

TEST(BlobConversions, BlobFromItsRecordCountsTwoPeaks)
{
    const int before = TRecPeak::idCounter;
    const VihodExt first = VihodFullBranch_To_VihodExt(filledFitted(), 1);
    EXPECT_EQ(TRecPeak::idCounter, before + 2);
    const VihodExt second = VihodFullBranch_To_VihodExt(filledFitted(), 1);
    EXPECT_EQ(TRecPeak::idCounter, before + 4);
    EXPECT_EQ((std::set<int>{first.Peak1.id, first.Peak2.id}), (std::set<int>{before, before + 1}));
    EXPECT_EQ((std::set<int>{second.Peak1.id, second.Peak2.id}), (std::set<int>{before + 2, before + 3}));
}

TEST(BlobConversions, BadPartOfARecordComesBackAsOk)
{
    for (const auto& [from, to] : readCodes) {
        SCOPED_TRACE(from);
        Fitted record;
        record.BlobCode = from;
        EXPECT_EQ(static_cast<int>(VihodFullBranch_To_VihodExt(record, 0).BlobCode), to);
        const std::vector<VihodExt> blobs = VihodFullBranch_To_Res_Sav({record});
        ASSERT_EQ(blobs.size(), 1U);
        EXPECT_EQ(static_cast<int>(blobs[0].BlobCode), to);
    }
}

TEST(BlobConversions, BlobFromItsRecordHasOneOfFourKinds)
{
    for (const auto& [from, to] : kinds) {
        SCOPED_TRACE(from);
        Fitted record;
        record.TypeBlob = from;
        EXPECT_EQ(static_cast<int>(VihodFullBranch_To_VihodExt(record, 0).TypeBlob), to);
    }
}

TEST(BlobConversions, BlobFromItsRecordHasOneOfTwoPeakTypes)
{
    for (const auto& [from, to] : peakTypes) {
        SCOPED_TRACE(from);
        Fitted record;
        record.PeakType = from;
        EXPECT_EQ(static_cast<int>(VihodFullBranch_To_VihodExt(record, 0).PeakType), to);
    }
}

TEST(BlobConversions, CountOfStrobesBecomesADouble)
{
    for (const int count : {0, 1, -1, INT_MAX, INT_MIN}) {
        SCOPED_TRACE(count);
        Fitted record;
        record.AstrobCount = count;
        EXPECT_EQ(VihodFullBranch_To_VihodExt(record, 0).AstrobCount, static_cast<double>(count));
    }
}

TEST(BlobConversions, RecordTakesItsFieldsFromTheBlob)
{
    VihodExt blob = filledExt();
    blob.BlobNumber = 40;
    blob.Index = 41;
    blob.Peak1.BlobNumber = 42;
    blob.Peak2.BlobNumber = 43;
    const int before = TRecPeak::idCounter;
    expectSameImage(VihodExt_To_VihodFullBranch(blob), filledFitted());
    EXPECT_EQ(TRecPeak::idCounter, before);
}

TEST(BlobConversions, RecordOfANewBlobIsZeroInEveryByte)
{
    EXPECT_EQ(imageOf(VihodExt_To_VihodFullBranch(VihodExt{})), std::string(272, '\0'));
}

TEST(BlobConversions, RecordKeepsTheCodeOfItsBlob)
{
    for (int code = 0; code <= 9; ++code) {
        SCOPED_TRACE(code);
        VihodExt blob;
        blob.BlobCode = static_cast<BlobCode>(code);
        EXPECT_EQ(VihodExt_To_VihodFullBranch(blob).BlobCode, code);
    }
}

TEST(BlobConversions, RecordHasOneOfFourKinds)
{
    for (const auto& [from, to] : kinds) {
        SCOPED_TRACE(from);
        VihodExt blob;
        blob.TypeBlob = static_cast<TTypeBlob>(from);
        EXPECT_EQ(VihodExt_To_VihodFullBranch(blob).TypeBlob, to);
    }
}

TEST(BlobConversions, RecordHasOneOfTwoPeakTypes)
{
    for (const auto& [from, to] : peakTypes) {
        SCOPED_TRACE(from);
        VihodExt blob;
        blob.PeakType = static_cast<TPeakType>(from);
        EXPECT_EQ(VihodExt_To_VihodFullBranch(blob).PeakType, to);
    }
}

TEST(BlobConversions, CountOfStrobesIsCutTowardsZero)
{
    const std::pair<double, int> cases[] = {
        {0.0, 0},   {7.0, 7},    {7.5, 7},   {7.999, 7},
        {-7.5, -7}, {-0.999, 0}, {0.999, 0}, {2147483646.5, 2147483646},
    };
    for (const auto& [count, cut] : cases) {
        SCOPED_TRACE(count);
        VihodExt blob;
        blob.AstrobCount = count;
        EXPECT_EQ(VihodExt_To_VihodFullBranch(blob).AstrobCount, cut);
    }
}

TEST(BlobConversions, CountOfStrobesBeyondAnIntegerIsTheNearestEnd)
{
    const std::pair<double, int> cases[] = {
        {3e9, INT_MAX},
        {-3e9, INT_MIN},
        {std::numeric_limits<double>::infinity(), INT_MAX},
        {-std::numeric_limits<double>::infinity(), INT_MIN},
        {std::numeric_limits<double>::quiet_NaN(), 0},
    };
    for (const auto& [count, cut] : cases) {
        SCOPED_TRACE(count);
        VihodExt blob;
        blob.AstrobCount = count;
        EXPECT_EQ(VihodExt_To_VihodFullBranch(blob).AstrobCount, cut);
    }
}

TEST(BlobConversions, BlobsOfAListAreNumberedFromZero)
{
    const std::vector<Fitted> records{fittedAt(1.25, 2.5), filledFittedWithGaps(), fittedAt(-3.5, 4.5)};
    const int before = TRecPeak::idCounter;
    const std::vector<VihodExt> blobs = VihodFullBranch_To_Res_Sav(records);
    EXPECT_EQ(TRecPeak::idCounter, before + 6) << "two peaks for each blob, none for a copy";
    ASSERT_EQ(blobs.size(), 3U);
    VihodExt expected = filledExt();
    expected.BlobNumber = 1;
    expected.Peak1.BlobNumber = 1;
    expectSame(blobs[1], expected);
    EXPECT_EQ(blobs[0].X, 1.25);
    EXPECT_EQ(blobs[0].BlobNumber, 0);
    EXPECT_EQ(blobs[0].Peak1.BlobNumber, 0);
    EXPECT_EQ(blobs[2].X, -3.5);
    EXPECT_EQ(blobs[2].BlobNumber, 2);
    EXPECT_EQ(blobs[2].Peak1.BlobNumber, 2);
    std::set<int> numbers;
    for (const VihodExt& blob : blobs) {
        numbers.insert(blob.Peak1.id);
        numbers.insert(blob.Peak2.id);
    }
    EXPECT_EQ(numbers.size(), 6U);
    EXPECT_EQ(*numbers.begin(), before);
    expectSameImage(records[1], filledFittedWithGaps());
}

TEST(BlobConversions, RecordsOfBlobsStandInTheirOrder)
{
    const std::vector<VihodExt> blobs{extAt(1.25, 2.5), filledExt(), extAt(-3.5, 4.5)};
    const int before = TRecPeak::idCounter;
    const std::vector<Fitted> records = Res_SavTOVihodFullBranch_file(blobs);
    EXPECT_EQ(TRecPeak::idCounter, before);
    ASSERT_EQ(records.size(), 3U);
    expectSameImage(records[0], fittedAt(1.25, 2.5));
    expectSameImage(records[1], filledFitted());
    expectSameImage(records[2], fittedAt(-3.5, 4.5));
}

TEST(BlobConversions, RecordThroughABlobLosesGapsBadPartsAndOddKinds)
{
    Fitted lost = filledFittedWithGaps();
    lost.BlobCode = 9;
    lost.TypeBlob = 4;
    lost.PeakType = 2;
    const std::vector<Fitted> back =
        Res_SavTOVihodFullBranch_file(VihodFullBranch_To_Res_Sav({filledFittedWithGaps(), lost}));
    ASSERT_EQ(back.size(), 2U);
    expectSameImage(back[0], filledFitted());
    Fitted expected = filledFitted();
    expected.BlobCode = 0;
    expected.TypeBlob = -1;
    expected.PeakType = 0;
    expectSameImage(back[1], expected);
}
