#include "records/disk_records.h"

#include "support/record_image.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <iterator>
#include <string>
#include <type_traits>

using namespace tavelinUtils;

namespace {

using Fitted = VihodFullBranch_file;

const RecordField<Fitted, double> fittedNumbers[] = {
    {"X", &Fitted::X, 0},
    {"Y", &Fitted::Y, 8},
    {"A", &Fitted::A, 16},
    {"Asegm", &Fitted::Asegm, 24},
    {"BackMean", &Fitted::BackMean, 32},
    {"BackSKO", &Fitted::BackSKO, 40},
    {"SNRafit", &Fitted::SNRafit, 48},
    {"SNRasegm", &Fitted::SNRasegm, 56},
    {"SNRpeak", &Fitted::SNRpeak, 64},
    {"Radius", &Fitted::Radius, 72},
    {"FWHM", &Fitted::FWHM, 96},
    {"SigFit", &Fitted::SigFit, 104},
    {"RMSratio", &Fitted::RMSratio, 112},
    {"Width", &Fitted::Width, 144},
    {"Length", &Fitted::Length, 152},
    {"Angle", &Fitted::Angle, 160},
    {"Exc", &Fitted::Exc, 168},
    {"Ref1", &Fitted::Ref1, 184},
    {"Ref2", &Fitted::Ref2, 192},
    {"Tail1", &Fitted::Tail1, 208},
    {"Tail2", &Fitted::Tail2, 216},
    {"Tail3", &Fitted::Tail3, 224},
    {"Tail4", &Fitted::Tail4, 232},
    {"Tail5", &Fitted::Tail5, 240},
    {"SNcorrnotnorm", &Fitted::SNcorrnotnorm, 256},
    {"corrnorm", &Fitted::corrnorm, 264},
};

const RecordField<Fitted, int> fittedIntegers[] = {
    {"Aux1", &Fitted::Aux1, 120},           {"Aux2", &Fitted::Aux2, 124},
    {"Aux3", &Fitted::Aux3, 128},           {"AstrobCount", &Fitted::AstrobCount, 132},
    {"PeakType", &Fitted::PeakType, 136},   {"TypeBlob", &Fitted::TypeBlob, 176},
    {"BlobCode", &Fitted::BlobCode, 200},   {"Tail6", &Fitted::Tail6, 248},
    {"LinkIndex", &Fitted::LinkIndex, 252},
};

const RecordField<TVOBlobFile, float> compactFloats[] = {
    {"X_bf", &TVOBlobFile::X_bf, 0},
    {"Y_bf", &TVOBlobFile::Y_bf, 4},
    {"RA", &TVOBlobFile::RA, 8},
    {"DE", &TVOBlobFile::DE, 12},
    {"Length", &TVOBlobFile::Length, 16},
    {"Width", &TVOBlobFile::Width, 20},
    {"Angle", &TVOBlobFile::Angle, 24},
    {"Exc", &TVOBlobFile::Exc, 28},
    {"SNRasegm", &TVOBlobFile::SNRasegm, 32},
    {"m", &TVOBlobFile::m, 36},
};

const RecordField<TRecCatLight, double> lightNumbers[] = {
    {"RA", &TRecCatLight::RA, 0}, {"DE", &TRecCatLight::DE, 8}, {"X", &TRecCatLight::X, 16},
    {"Y", &TRecCatLight::Y, 24},  {"m", &TRecCatLight::m, 32},
};

const RecordField<TXYAdbl, double> amplitudeNumbers[] = {
    {"X", &TXYAdbl::X, 0},
    {"Y", &TXYAdbl::Y, 8},
    {"A", &TXYAdbl::A, 16},
};

// A record that is stored whole: its bytes are all that it is.
template <class Record>
constexpr bool isImage =
    std::is_trivially_copyable_v<Record>&& std::is_standard_layout_v<Record>&& std::is_aggregate_v<Record>;

template <class Record>
void expectNewIsZero()
{
    EXPECT_EQ(imageOf(Record{}), std::string(sizeof(Record), '\0'));
}

} // namespace

TEST(DiskRecords, RecordsAreTheirOwnImages)
{
    EXPECT_TRUE(isImage<VihodFullBranch_file>);
    EXPECT_TRUE(isImage<TVOBlobFile>);
    EXPECT_TRUE(isImage<TRecCatLight>);
    EXPECT_TRUE(isImage<TXYAdbl>);
}

TEST(DiskRecords, SizesAreThoseOfTheFiles)
{
    EXPECT_EQ(sizeof(VihodFullBranch_file), 272U);
    EXPECT_EQ(sizeof(TVOBlobFile), 56U);
    EXPECT_EQ(sizeof(TRecCatLight), 56U);
    EXPECT_EQ(sizeof(TXYAdbl), 24U);
}

TEST(DiskRecords, NewRecordIsZeroInEveryByte)
{
    expectNewIsZero<VihodFullBranch_file>();
    expectNewIsZero<TVOBlobFile>();
    expectNewIsZero<TRecCatLight>();
    expectNewIsZero<TXYAdbl>();
}

TEST(DiskRecords, FieldsOfAFittedBlobStandAtTheirPlaces)
{
    for (const auto& field : fittedNumbers) {
        expectOwnBytes(field);
    }
    for (const auto& field : fittedIntegers) {
        expectOwnBytes(field);
    }
}

TEST(DiskRecords, GapsOfAFittedBlobStandBetweenItsFields)
{
    EXPECT_EQ(offsetof(Fitted, Gap80), 80U);
    EXPECT_EQ(sizeof(Fitted::Gap80), 16U);
    EXPECT_EQ(offsetof(Fitted, Gap140), 140U);
    EXPECT_EQ(sizeof(Fitted::Gap140), 4U);
    EXPECT_EQ(offsetof(Fitted, Gap180), 180U);
    EXPECT_EQ(sizeof(Fitted::Gap180), 4U);
    EXPECT_EQ(offsetof(Fitted, Gap204), 204U);
    EXPECT_EQ(sizeof(Fitted::Gap204), 4U);

    const std::size_t fields = std::size(fittedNumbers) * 8 + std::size(fittedIntegers) * 4;
    EXPECT_EQ(fields + 16 + 4 + 4 + 4, sizeof(Fitted)) << "no byte is without a name";
}

TEST(DiskRecords, FittedBlobIsLittleEndian)
{
    Fitted record;
    record.X = 1.5;
    record.AstrobCount = 0x01020304;
    record.LinkIndex = -2;
    record.corrnorm = -0.1;
    const std::string image = imageOf(record);
    EXPECT_EQ(image.substr(0, 8), std::string("\0\0\0\0\0\0\xF8\x3F", 8));
    EXPECT_EQ(image.substr(132, 4), "\x04\x03\x02\x01");
    EXPECT_EQ(image.substr(252, 4), "\xFE\xFF\xFF\xFF");
    EXPECT_EQ(image.substr(264, 8), "\x9A\x99\x99\x99\x99\x99\xB9\xBF");
}

TEST(DiskRecords, FieldsOfACompactMarkStandAtTheirPlaces)
{
    for (const auto& field : compactFloats) {
        expectOwnBytes(field);
    }
    expectOwnBytes(RecordField<TVOBlobFile, int>{"date", &TVOBlobFile::date, 40});
    expectOwnBytes(RecordField<TVOBlobFile, double>{"time", &TVOBlobFile::time, 48});
    EXPECT_EQ(offsetof(TVOBlobFile, Gap44), 44U);
    EXPECT_EQ(sizeof(TVOBlobFile::Gap44), 4U);
}

TEST(DiskRecords, CompactMarkIsLittleEndian)
{
    const TVOBlobFile record{.X_bf = 0.1F, .m = -1.5F, .date = 60000, .time = 0.25};
    const std::string image = imageOf(record);
    EXPECT_EQ(image.substr(0, 4), "\xCD\xCC\xCC\x3D");
    EXPECT_EQ(image.substr(36, 4), std::string("\0\0\xC0\xBF", 4));
    EXPECT_EQ(image.substr(40, 8), std::string("\x60\xEA\0\0\0\0\0\0", 8));
    EXPECT_EQ(image.substr(48, 8), std::string("\0\0\0\0\0\0\xD0\x3F", 8));
}

TEST(DiskRecords, FieldsOfALightStarStandAtTheirPlaces)
{
    for (const auto& field : lightNumbers) {
        expectOwnBytes(field);
    }
    EXPECT_EQ(offsetof(TRecCatLight, Carried), 40U);
    EXPECT_EQ(sizeof(TRecCatLight::Carried), 16U);
}

TEST(DiskRecords, FieldsOfAnAmplitudeStandAtTheirPlaces)
{
    for (const auto& field : amplitudeNumbers) {
        expectOwnBytes(field);
    }
}
