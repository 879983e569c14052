#include "records/blob_conversions.h"

#include "support/fitted_blob_fields.h"
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

using Mark = TRecLabelPervichka_File;
using Fitted = VihodFullBranch_file;
using Marks = std::vector<Mark>;

constexpr std::pair<const char*, double Mark::*> markNumbers[] = {
    {"X_bf", &Mark::X_bf},
    {"Y_bf", &Mark::Y_bf},
    {"X_f", &Mark::X_f},
    {"Y_f", &Mark::Y_f},
    {"SNRafit", &Mark::SNRafit},
    {"SNRasegm", &Mark::SNRasegm},
    {"SNRpeak", &Mark::SNRpeak},
    {"FWHM", &Mark::FWHM},
    {"SigFit", &Mark::SigFit},
    {"RMSFit", &Mark::RMSFit},
    {"SNcorrnotnorm", &Mark::SNcorrnotnorm},
    {"corrnorm", &Mark::corrnorm},
    {"Exc", &Mark::Exc},
    {"Angle", &Mark::Angle},
    {"Length", &Mark::Length},
    {"Width", &Mark::Width},
    {"Radius", &Mark::Radius},
    {"A", &Mark::A},
    {"Asegm", &Mark::Asegm},
    {"Astrob", &Mark::Astrob},
    {"mInstr", &Mark::mInstr},
    {"mInstr1000", &Mark::mInstr1000},
    {"time", &Mark::time},
    {"time_bjd", &Mark::time_bjd},
    {"RA", &Mark::RA},
    {"DE", &Mark::DE},
    {"AuxValue", &Mark::AuxValue},
    {"m", &Mark::m},
    {"RefValue1", &Mark::RefValue1},
    {"RefValue2", &Mark::RefValue2},
    {"RefValue3", &Mark::RefValue3},
    {"RefValue4", &Mark::RefValue4},
    {"RefValue5", &Mark::RefValue5},
    {"RefValue6", &Mark::RefValue6},
    {"RefValue7", &Mark::RefValue7},
    {"RefValue8", &Mark::RefValue8},
    {"RefValue9", &Mark::RefValue9},
    {"Spare1", &Mark::Spare1},
    {"mEnsemble", &Mark::mEnsemble},
    {"Spare2", &Mark::Spare2},
    {"Spare3", &Mark::Spare3},
    {"mInstrComp", &Mark::mInstrComp},
    {"Spare4", &Mark::Spare4},
    {"Spare5", &Mark::Spare5},
    {"SpareTail", &Mark::SpareTail},
};

constexpr std::pair<const char*, int Mark::*> markIntegers[] = {
    {"AuxInt1", &Mark::AuxInt1}, {"AuxInt2", &Mark::AuxInt2}, {"AuxInt3", &Mark::AuxInt3},
    {"iFRaw", &Mark::iFRaw},     {"iF", &Mark::iF},           {"AuxInt4", &Mark::AuxInt4},
    {"iB", &Mark::iB},           {"AuxInt5", &Mark::AuxInt5}, {"LinkIndex", &Mark::LinkIndex},
    {"date", &Mark::date},       {"bjd", &Mark::bjd},         {"Tag1", &Mark::Tag1},
    {"Tag2", &Mark::Tag2},       {"Tag3", &Mark::Tag3},       {"Tag4", &Mark::Tag4},
};

constexpr std::pair<const char*, std::string Mark::*> markTexts[] = {
    {"filtr", &Mark::filtr},         {"mjd", &Mark::mjd},     {"QRVID", &Mark::QRVID},
    {"SpareText", &Mark::SpareText}, {"KNAME", &Mark::KNAME}, {"MTYPE", &Mark::MTYPE},
    {"CNAME", &Mark::CNAME},         {"CHART", &Mark::CHART},
};

// Every field, so that a conversion which fills too much is seen as well.
void expectSame(const Mark& mark, const Mark& expected)
{
    EXPECT_EQ(static_cast<int>(BlobCode(mark.BlobCode)), static_cast<int>(BlobCode(expected.BlobCode)));
    EXPECT_EQ(static_cast<int>(TTypeBlob(mark.TypeBlob)), static_cast<int>(TTypeBlob(expected.TypeBlob)));
    EXPECT_EQ(bool(mark.AuxFlag), bool(expected.AuxFlag));
    EXPECT_EQ(std::vector<int>(mark.LinkList), std::vector<int>(expected.LinkList));
    for (const auto& [name, member] : markNumbers) {
        SCOPED_TRACE(name);
        EXPECT_EQ(double(mark.*member), double(expected.*member));
    }
    for (const auto& [name, member] : markIntegers) {
        SCOPED_TRACE(name);
        EXPECT_EQ(int(mark.*member), int(expected.*member));
    }
    for (const auto& [name, member] : markTexts) {
        SCOPED_TRACE(name);
        EXPECT_EQ(std::string(mark.*member), std::string(expected.*member));
    }
}

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

// No two fields are alike, and none is like that of a new mark.
Mark filledMark()
{
    return {.BlobCode = BlobCode::partStroke,
            .X_bf = 1.5,
            .Y_bf = 2.5,
            .X_f = 3.5,
            .Y_f = 4.5,
            .AuxInt1 = 5,
            .AuxInt2 = 6,
            .TypeBlob = TTypeBlob::prLongStar,
            .AuxFlag = true,
            .AuxInt3 = 7,
            .iFRaw = 8,
            .iF = 9,
            .AuxInt4 = 10,
            .iB = 11,
            .AuxInt5 = 12,
            .LinkIndex = 13,
            .LinkList = {14, 15},
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
            .mInstr = 32.5,
            .mInstr1000 = 33.5,
            .date = 34,
            .time = 35.5,
            .bjd = 36,
            .time_bjd = 37.5,
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
            .Tag4 = 54,
            .filtr = "V",
            .mjd = "mjd text",
            .QRVID = "id",
            .Spare1 = 55.5,
            .mEnsemble = 56.5,
            .Spare2 = 57.5,
            .Spare3 = 58.5,
            .mInstrComp = 59.5,
            .Spare4 = 60.5,
            .Spare5 = 61.5,
            .SpareText = "spare",
            .KNAME = "check",
            .MTYPE = "STD",
            .CNAME = "comparison",
            .CHART = "chart",
            .SpareTail = 62.5};
}

// The row of the mark above.
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

// What comes back from that row.
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

TObjKontur objectAt(int X, int Y)
{
    TObjKontur object;
    object.X = X;
    object.Y = Y;
    return object;
}

struct Pair
{
    int from;
    int to;
};

// Kinds of blobs on their way through an integer.
constexpr Pair kinds[] = {{-2, -1}, {-1, -1}, {0, 0},  {1, 1},   {2, 2},        {3, -1},      {4, -1},
                          {5, -1},  {6, 6},   {7, -1}, {99, -1}, {INT_MAX, -1}, {INT_MIN, -1}};

// Codes that nothing touches.
constexpr int keptCodes[] = {-1, 0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 99};

constexpr Pair tableCodes[] = {{-1, 0}, {0, 0}, {1, 1}, {2, 2}, {3, 3},  {4, 4},  {5, 5},
                               {6, 0},  {7, 0}, {8, 0}, {9, 0}, {10, 0}, {99, 0}, {INT_MIN, 0}};

constexpr Pair readCodes[] = {{-1, 0}, {0, 0}, {1, 1}, {2, 2}, {3, 3},  {4, 4},  {5, 5},
                              {6, 6},  {7, 7}, {8, 8}, {9, 0}, {10, 0}, {99, 0}, {INT_MAX, 0}};

constexpr Pair peakTypes[] = {{-1, 0}, {0, 0}, {1, 1}, {2, 0}, {99, 0}};

int codeOf(const Mark& mark)
{
    return static_cast<int>(BlobCode(mark.BlobCode));
}

int kindOf(const Mark& mark)
{
    return static_cast<int>(TTypeBlob(mark.TypeBlob));
}

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
    EXPECT_EQ(int(mark.date), -5);
    EXPECT_EQ(double(mark.time), 1.75) << "a whole day is not carried";
}

TEST(BlobConversions, MarksOfRowsShareTheTime)
{
    TBlobTable first;
    first.m = 9.5;
    const Marks marks =
        TBlobTableToTRecLabelPervichka_File(std::vector<TBlobTable>{first, filledRow()}, 60000, 0.25);
    ASSERT_EQ(marks.size(), 2U);
    EXPECT_EQ(double(marks[0].m), 9.5);
    EXPECT_EQ(int(marks[0].date), 60000);
    EXPECT_EQ(double(marks[0].time), 0.25);
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

TEST(BlobConversions, MarksOfPointsHaveTheirPositionsBeforeFitting)
{
    const Marks marks =
        TRecTRIoBlobFromQRV({{1.25, -2.5, 3.5, 4.5, 5.5, 6.5, 7.5, 8.5, 9.5}, {}, {10.75, 11.0}});
    ASSERT_EQ(marks.size(), 3U);
    expectSame(marks[0], {.X_bf = 1.25, .Y_bf = -2.5});
    expectSame(marks[1], {});
    expectSame(marks[2], {.X_bf = 10.75, .Y_bf = 11.0});
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
    EXPECT_EQ(double(marks[2].X_f), -3.5);
    EXPECT_EQ(int(marks[2].date), 60001);
    EXPECT_EQ(double(marks[2].time), 0.25);

    marks = BlobFullFIT_To_RecLabelPervichka(std::vector<VihodExt>{extAt(1.25, 2.5), filledExt()}, -1, 1.5);
    ASSERT_EQ(marks.size(), 2U);
    EXPECT_EQ(double(marks[0].X_bf), 1.25);
    EXPECT_EQ(int(marks[0].date), -1);
    EXPECT_EQ(double(marks[0].time), 1.5) << "a whole day is not carried";
    expectSame(marks[1], markOfFilledFitted(-1, 1.5));
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
