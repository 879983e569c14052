#include "base/numbers.h"
#include "records/enumerations.h"

#include <gtest/gtest.h>

#include <cctype>
#include <limits>
#include <string>
#include <type_traits>
#include <vector>

using namespace tavelinUtils;

namespace {

constexpr int least = std::numeric_limits<int>::min();
constexpr int greatest = std::numeric_limits<int>::max();

struct Row
{
    int number;
    const char* word;
};

using Rows = std::vector<Row>;

std::string inOtherCase(std::string word)
{
    for (char& c : word) {
        const auto letter = static_cast<unsigned char>(c);
        c = static_cast<char>(std::islower(letter) != 0 ? std::toupper(letter) : std::tolower(letter));
    }
    return word;
}

// Every word gives its number. Whatever is near a word, and what is nothing, gives the fallback.
template <class Enumeration>
void expectNumbers(Enumeration (*numberOf)(std::string), const Rows& rows, int fallback)
{
    std::vector<std::string> unknown{"", " ", "Unknown", "unknown", "0", "1", "ok"};
    for (const Row& row : rows) {
        SCOPED_TRACE(row.word);
        EXPECT_EQ(static_cast<int>(numberOf(row.word)), row.number);
        const std::string word = row.word;
        unknown.push_back(inOtherCase(word));
        unknown.push_back(" " + word);
        unknown.push_back(word + " ");
        unknown.push_back(word + "\n");
        unknown.push_back(word + std::string(1, '\0'));
        unknown.push_back(word + "x");
        unknown.push_back(word.substr(0, word.size() - 1) + "_");
        unknown.push_back("\"" + word + "\"");
    }
    for (const std::string& word : unknown) {
        SCOPED_TRACE(word);
        EXPECT_EQ(static_cast<int>(numberOf(word)), fallback);
    }
}

// Every number gives its word, the numbers of the list the fallback.
template <class Enumeration>
void expectWords(std::string (*wordOf)(Enumeration), const Rows& rows, const std::vector<int>& unknown,
                 const char* fallback)
{
    for (const Row& row : rows) {
        SCOPED_TRACE(row.number);
        EXPECT_EQ(wordOf(static_cast<Enumeration>(row.number)), row.word);
    }
    for (const int number : unknown) {
        SCOPED_TRACE(number);
        EXPECT_EQ(wordOf(static_cast<Enumeration>(number)), fallback);
    }
}

const Rows services = {{1, "asteroids"}, {2, "satellites"},     {3, "variablestars"},
                       {4, "alignment"}, {5, "identification"}, {6, "airfly"}};

const Rows frameTypes = {{0, "DIURNAL"}, {1, "STROKE"}};

const Rows catalogues = {{2, "TYCHO2"},  {3, "UCAC4"}, {4, "UCAC5"},      {5, "USNOB1"},
                         {6, "NOMAD1"},  {7, "GAIA2"}, {8, "PanSTARRS1"}, {9, "SDSS9"},
                         {10, "APASS9"}, {11, "VSX"},  {12, "AAVSOvsp"}};

const Rows fittingModes = {{0, "Auto"}, {1, "Diurnal"}, {2, "Stroke"}, {3, "DiffFrame"}};

const Rows brackets = {{0, "Cl"}, {1, "Dm"}, {2, "Dx"}};

const Rows trackMakers = {{0, "STROB"}, {1, "SFAST"}, {2, "HOUGH"}, {3, "GSOHO"},
                          {4, "MOSKH"}, {5, "MANUA"}, {6, "STACK"}, {7, "UNKNO"}};

const Rows blobTypes = {{0, "prShort"},  {1, "prLong"},    {2, "prLongStar"}, {3, "prShLong"},
                        {4, "prBadPix"}, {5, "prALLBlob"}, {6, "prTriangle"}};

const Rows blobCodes = {
    {0, "ok"},         {1, "pltEr"},          {2, "bpx"},  {3, "nearplato"}, {4, "1PeakIsStar"},
    {5, "partStroke"}, {6, "partStrokeStar"}, {7, "star"}, {8, "ic"},        {9, "bad_parts"}};

const Rows amplitudes = {{0, "FITTING"}, {1, "APERT"}, {2, "UndefAmpl"}};

} // namespace

// Words and numbers.

TEST(Enumerations, WordsOfServicesGiveNumbers)
{
    expectNumbers(StrToService, services, 0);
    EXPECT_EQ(static_cast<int>(StrToService("")), 0);
}

TEST(Enumerations, ServicesGiveWords)
{
    expectWords(ServiceToStr, services, {0, 7, 8, -1, least, greatest}, "Service_Uncknown");
}

TEST(Enumerations, WordOfAnUnknownServiceDoesNotConvertBack)
{
    EXPECT_EQ(static_cast<int>(StrToService("Service_Uncknown")), 0);
    EXPECT_EQ(static_cast<int>(StrToService(ServiceToStr(static_cast<TService>(7)))), 0);
    EXPECT_EQ(ServiceToStr(StrToService("Service_Uncknown")), "Service_Uncknown");
}

TEST(Enumerations, WordsOfFrameTypesGiveNumbers)
{
    expectNumbers(StrToTypeFrame, frameTypes, 0);
    EXPECT_EQ(static_cast<int>(StrToTypeFrame("stroke")), 0);
}

TEST(Enumerations, EveryFrameTypeButOneIsDiurnal)
{
    expectWords(TypeFrameToStr, frameTypes, {2, 3, -1, least, greatest}, "DIURNAL");
}

TEST(Enumerations, WordsOfCataloguesGiveNumbers)
{
    expectNumbers(StrToiCat, catalogues, 0);
    EXPECT_EQ(static_cast<int>(StrToiCat("iNoCat")), 0);
}

TEST(Enumerations, CataloguesGiveWordsFromTwoOn)
{
    expectWords(iCatToStr, catalogues, {0, 1, 13, 14, -1, least, greatest}, "iNoCat");
}

TEST(Enumerations, WordsOfFittingModesGiveNumbers)
{
    expectNumbers(StrToModeFitting, fittingModes, 0);
}

TEST(Enumerations, UnknownFittingModeIsAuto)
{
    expectWords(ModeFittingToStr, fittingModes, {4, 5, -1, least, greatest}, "Auto");
}

TEST(Enumerations, OneNameConvertsBracketsInBothDirections)
{
    expectNumbers<TPrVKBrac>(TPrVKBracToStr, brackets, 0);
    expectWords<TPrVKBrac>(TPrVKBracToStr, brackets, {3, 4, -1, least, greatest}, "Cl");
    EXPECT_EQ(static_cast<int>(TPrVKBracToStr("Dx")), 2);
    EXPECT_EQ(TPrVKBracToStr(TPrVKBrac::Dx), "Dx");
}

TEST(Enumerations, UnknownMakerOfATrackIsSeven)
{
    expectNumbers(StrToHowMake, trackMakers, 7);
}

TEST(Enumerations, MakersOfTracksGiveWords)
{
    expectWords(HowMakeToStr, trackMakers, {8, 9, -1, least, greatest}, "UNKNO");
}

TEST(Enumerations, WordsOfAmplitudesGiveNumbers)
{
    expectNumbers(StrToTypeAmpl, Rows{{0, "FITTING"}, {1, "APERT"}}, 2);
    EXPECT_EQ(static_cast<int>(StrToTypeAmpl("UndefAmpl")), 2);
    EXPECT_EQ(static_cast<int>(StrToTypeAmpl("UNDEF")), 2);
}

TEST(Enumerations, AmplitudesGiveWords)
{
    expectWords(TypeAmplToStr, amplitudes, {3, 4, -1, least, greatest}, "UNDEF");
}

// Kinds and verdicts of blobs.

TEST(Enumerations, BlobTypesGiveWords)
{
    for (const Row& row : blobTypes) {
        SCOPED_TRACE(row.number);
        EXPECT_EQ(TypeBlobToStr(row.number), row.word);
    }
    for (const int number : {7, 8, -1, least, greatest}) {
        SCOPED_TRACE(number);
        EXPECT_EQ(TypeBlobToStr(number), "prUnckType");
    }
}

TEST(Enumerations, ConversionOfBlobTypesLosesThreeToFive)
{
    const struct
    {
        int given;
        int kept;
    } rows[] = {{0, 0}, {1, 1},  {2, 2},   {3, -1},     {4, -1},       {5, -1},
                {6, 6}, {7, -1}, {-1, -1}, {least, -1}, {greatest, -1}};
    for (const auto& [given, kept] : rows) {
        SCOPED_TRACE(given);
        EXPECT_EQ(static_cast<int>(IntToTypeBlob(given)), kept);
        EXPECT_EQ(TypeBlobToInt(given), kept);
        EXPECT_EQ(TypeBlobToInt(static_cast<TTypeBlob>(given)), kept);
    }
    EXPECT_EQ(TypeBlobToInt(TTypeBlob::prBadPix), -1);
    EXPECT_EQ(TypeBlobToStr(static_cast<int>(IntToTypeBlob(3))), "prUnckType");
}

TEST(Enumerations, PeakTypesOtherThanOneAreZero)
{
    const struct
    {
        int given;
        int kept;
    } rows[] = {{0, 0}, {1, 1}, {2, 0}, {-1, 0}, {257, 0}, {least, 0}, {greatest, 0}};
    for (const auto& [given, kept] : rows) {
        SCOPED_TRACE(given);
        EXPECT_EQ(static_cast<int>(IntToPeakType(given)), kept);
        EXPECT_EQ(PeakTypeToInt(given), kept);
        EXPECT_EQ(PeakTypeToInt(static_cast<TPeakType>(given)), kept);
    }
}

TEST(Enumerations, BlobCodesGiveWords)
{
    expectWords<BlobCode>(BlobErrorCodeToStr, blobCodes, {10, 11, -1, least, greatest}, "ok");
    for (const Row& row : blobCodes) {
        SCOPED_TRACE(row.number);
        EXPECT_EQ(BlobErrorCodeToStr(row.number), row.word);
    }
    for (const int number : {10, 11, -1, least, greatest}) {
        SCOPED_TRACE(number);
        EXPECT_EQ(BlobErrorCodeToStr(number), "ok");
    }
}

TEST(Enumerations, BadPartsComesBackAsOkOutOfANumber)
{
    const struct
    {
        int given;
        int toInt;
        int fromInt;
    } rows[] = {{0, 0, 0}, {1, 1, 1}, {2, 2, 2}, {3, 3, 3},  {4, 4, 4},  {5, 5, 5},     {6, 6, 6},
                {7, 7, 7}, {8, 8, 8}, {9, 9, 0}, {10, 0, 0}, {-1, 0, 0}, {least, 0, 0}, {greatest, 0, 0}};
    for (const auto& [given, toInt, fromInt] : rows) {
        SCOPED_TRACE(given);
        EXPECT_EQ(BlobErrorCodeToInt(given), toInt);
        EXPECT_EQ(BlobErrorCodeToInt(static_cast<BlobCode>(given)), toInt);
        EXPECT_EQ(static_cast<int>(IntToBlobErrorCode(given)), fromInt);
    }
    EXPECT_EQ(BlobErrorCodeToStr(IntToBlobErrorCode(9)), "ok");
    EXPECT_EQ(BlobErrorCodeToStr(BlobErrorCodeToInt(9)), "bad_parts");
    EXPECT_EQ(BlobErrorCodeToInt(BlobCode::bad_parts), 9);
}

// Words that have no way back.

TEST(Enumerations, WordsOfBackgroundsGiveNumbers)
{
    expectNumbers(StrToTypeCalcUnderGroundBlob,
                  Rows{{0, "ABC"},
                       {1, "C"},
                       {2, "ABCIteration"},
                       {3, "Average"},
                       {4, "CIteration"},
                       {5, "NoSubtraction"}},
                  -1);
}

TEST(Enumerations, WordsOfSpeedLimitsGiveNumbers)
{
    expectNumbers(StrToTSpeedLimit, Rows{{0, "VisibleMotion"}, {1, "ArcsecPerMin"}}, 2);
}

TEST(Enumerations, TimeAndCountHaveOppositeNumbersInTheTwoTables)
{
    expectNumbers(StrToTypeNextFormation, Rows{{0, "ByTime"}, {1, "ByCount"}}, 2);
    expectNumbers(StrToTFramesAddition, Rows{{0, "ByCount"}, {1, "ByTime"}}, 2);
}

TEST(Enumerations, UnknownApertureSizeIsByRadius)
{
    expectNumbers(StrToTApertureSize, Rows{{0, "AutoCalculation"}, {1, "ByRadius"}, {2, "ByFWHM"}}, 1);
}

TEST(Enumerations, WordsOfTriangleModelsGiveNumbers)
{
    expectNumbers(StrToTriangleModelType, Rows{{0, "Analytic"}, {1, "Numeric"}, {2, "StrokeAnalitic"}}, -1);
    EXPECT_EQ(static_cast<int>(StrToTriangleModelType("StrokeAnalytic")), -1);
}

TEST(Enumerations, WordsOfFittingModelsGiveNumbers)
{
    expectNumbers(StrToModelFitting, Rows{{0, "Pixel"}, {1, "SubPixel"}, {2, "PixelNumeric"}}, -1);
}

TEST(Enumerations, UnknownIdentificationIsWithSky)
{
    expectNumbers(StrToIdentificationWithSky, Rows{{0, "BetweenFrames"}, {1, "WithSky"}}, 1);
}

TEST(Enumerations, UnknownCoordinatesAreEquatorial)
{
    expectNumbers(StrToRaDeorXY, Rows{{0, "XY"}, {1, "RADE"}}, 1);
}

TEST(Enumerations, WordsOfSortKeysGiveNumbers)
{
    expectNumbers(StrToTypeSort_Record, Rows{{3, "A2"}, {4, "A3"}}, 9);
    EXPECT_EQ(static_cast<int>(StrToTypeSort_Record("A1")), 9);
}

// Enumerators and types.

TEST(Enumerations, EnumeratorsHaveTheNumbersOfTheirWords)
{
    EXPECT_EQ(ServiceToStr(TService::asteroids), "asteroids");
    EXPECT_EQ(ServiceToStr(TService::satellites), "satellites");
    EXPECT_EQ(ServiceToStr(TService::variablestars), "variablestars");
    EXPECT_EQ(ServiceToStr(TService::alignment), "alignment");
    EXPECT_EQ(ServiceToStr(TService::identification), "identification");
    EXPECT_EQ(ServiceToStr(TService::airfly), "airfly");
    EXPECT_EQ(TypeFrameToStr(TTypeFrame::DIURNAL), "DIURNAL");
    EXPECT_EQ(TypeFrameToStr(TTypeFrame::STROKE), "STROKE");
    EXPECT_EQ(iCatToStr(TSeliNetStarCat::TYCHO2), "TYCHO2");
    EXPECT_EQ(iCatToStr(TSeliNetStarCat::AAVSOvsp), "AAVSOvsp");
    EXPECT_EQ(ModeFittingToStr(TModeFitting::DiffFrame), "DiffFrame");
    EXPECT_EQ(HowMakeToStr(THowMakeTr::MANUA), "MANUA");
    EXPECT_EQ(BlobErrorCodeToStr(BlobCode::onePeakIsStar), "1PeakIsStar");
    EXPECT_EQ(TypeAmplToStr(TTypeAmpl::UndefAmpl), "UndefAmpl");
    EXPECT_EQ(StrToTypeNextFormation("ByCount"), TTypeNextFormation::ByCount);
    EXPECT_EQ(StrToTFramesAddition("ByCount"), TFramesAddition::ByCount);
    EXPECT_EQ(StrToTypeSort_Record("A3"), TTypeSort_Record::A3);
    EXPECT_EQ(StrToTriangleModelType("StrokeAnalitic"), TTriangleModelType::StrokeAnalitic);
}

template <class Enumeration>
class EnumerationType : public testing::Test
{
};

using EnumerationTypes =
    testing::Types<TService, TTypeFrame, TSeliNetStarCat, TModeFitting, TPrVKBrac, THowMakeTr, TTypeBlob,
                   TPeakType, BlobCode, TTypeAmpl, TTypeCalcUnderGroundBlob, TSpeedLimit, TTypeNextFormation,
                   TFramesAddition, TApertureSize, TTriangleModelType, TModelFitting, TIdentificationWithSky,
                   TRaDeorXY, TTypeSort_Record>;
TYPED_TEST_SUITE(EnumerationType, EnumerationTypes);

TYPED_TEST(EnumerationType, HoldsEveryThirtyTwoBitNumber)
{
    EXPECT_EQ(sizeof(TypeParam), 4U);
    EXPECT_TRUE((std::is_same_v<std::underlying_type_t<TypeParam>, int>));
    EXPECT_FALSE((std::is_convertible_v<TypeParam, int>)) << "numbers are reached by a cast";
    EXPECT_EQ(static_cast<int>(static_cast<TypeParam>(-1)), -1);
}

// Observatory sites.

namespace {

void expectSite(const TObsSite& site, double latitude, double longitude, double altitude, bool known)
{
    EXPECT_EQ(site.Latitude, latitude);
    EXPECT_EQ(site.Longitude, longitude);
    EXPECT_EQ(site.Altitude, altitude);
    EXPECT_EQ(site.SiteKnown, known);
}

} // namespace

TEST(ObservatorySite, IsEmptyAndUnknownAtFirst)
{
    expectSite(TObsSite{}, 0.0, 0.0, 0.0, false);
}

TEST(ObservatorySite, KnownFirstSiteIsTaken)
{
    const TObsSite first{48.5, 22.3, 150.0, true};
    expectSite(SelectObsSite(first, TObsSite{}), 48.5, 22.3, 150.0, true);
    expectSite(SelectObsSite(first, TObsSite{1.0, 2.0, 3.0, true}), 48.5, 22.3, 150.0, true);
}

TEST(ObservatorySite, KnownFirstSiteIsTakenAlsoWhenItIsEmpty)
{
    expectSite(SelectObsSite(TObsSite{0.0, 0.0, 0.0, true}, TObsSite{1.0, 2.0, 3.0, false}), 0.0, 0.0, 0.0,
               true);
}

TEST(ObservatorySite, NumbersOfAnUnknownFirstSiteDoNotCount)
{
    expectSite(SelectObsSite(TObsSite{48.5, 22.3, 150.0, false}, TObsSite{1.0, 2.0, 3.0, false}), 1.0, 2.0,
               3.0, false);
    expectSite(SelectObsSite(TObsSite{48.5, 22.3, 150.0, false}, TObsSite{}), 0.0, 0.0, 0.0, false);
}

TEST(ObservatorySite, SecondSiteIsCopiedWithItsFlag)
{
    expectSite(SelectObsSite(TObsSite{}, TObsSite{1.0, 2.0, 3.0, true}), 1.0, 2.0, 3.0, true);
    expectSite(SelectObsSite(TObsSite{}, TObsSite{1.0, 2.0, 3.0, false}), 1.0, 2.0, 3.0, false);
}

TEST(ObservatorySite, OneNumberOtherThanZeroMakesTheSecondSite)
{
    expectSite(SelectObsSite(TObsSite{}, TObsSite{1e-300, 0.0, 0.0, false}), 1e-300, 0.0, 0.0, false);
    expectSite(SelectObsSite(TObsSite{}, TObsSite{0.0, -22.5, 0.0, false}), 0.0, -22.5, 0.0, false);
    expectSite(SelectObsSite(TObsSite{}, TObsSite{0.0, 0.0, 10.0, true}), 0.0, 0.0, 10.0, true);
}

TEST(ObservatorySite, SecondSiteWithoutNumbersLosesItsFlag)
{
    expectSite(SelectObsSite(TObsSite{}, TObsSite{0.0, 0.0, 0.0, true}), 0.0, 0.0, 0.0, false);
    expectSite(SelectObsSite(TObsSite{}, TObsSite{-0.0, 0.0, -0.0, true}), 0.0, 0.0, 0.0, false);
}
