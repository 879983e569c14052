#include "records/enumerations.h"

#include <cstddef>
#include <string_view>

namespace tavelinUtils {
namespace {

template <class Enumeration>
struct Word
{
    Enumeration number;
    std::string_view word;
};

template <class Enumeration, std::size_t count>
std::string wordOf(const Word<Enumeration> (&words)[count], Enumeration number, std::string_view unknown)
{
    for (const auto& row : words) {
        if (row.number == number) {
            return std::string(row.word);
        }
    }
    return std::string(unknown);
}

template <class Enumeration, std::size_t count>
Enumeration numberOf(const Word<Enumeration> (&words)[count], std::string_view word, int unknown)
{
    for (const auto& row : words) {
        if (row.word == word) {
            return row.number;
        }
    }
    return static_cast<Enumeration>(unknown);
}

constexpr Word<TService> serviceWords[] = {
    {TService::asteroids, "asteroids"},           {TService::satellites, "satellites"},
    {TService::variablestars, "variablestars"},   {TService::alignment, "alignment"},
    {TService::identification, "identification"}, {TService::airfly, "airfly"},
};

constexpr Word<TTypeFrame> typeFrameWords[] = {
    {TTypeFrame::DIURNAL, "DIURNAL"},
    {TTypeFrame::STROKE, "STROKE"},
};

constexpr Word<TSeliNetStarCat> catalogueWords[] = {
    {TSeliNetStarCat::TYCHO2, "TYCHO2"},         {TSeliNetStarCat::UCAC4, "UCAC4"},
    {TSeliNetStarCat::UCAC5, "UCAC5"},           {TSeliNetStarCat::USNOB1, "USNOB1"},
    {TSeliNetStarCat::NOMAD1, "NOMAD1"},         {TSeliNetStarCat::GAIA2, "GAIA2"},
    {TSeliNetStarCat::PanSTARRS1, "PanSTARRS1"}, {TSeliNetStarCat::SDSS9, "SDSS9"},
    {TSeliNetStarCat::APASS9, "APASS9"},         {TSeliNetStarCat::VSX, "VSX"},
    {TSeliNetStarCat::AAVSOvsp, "AAVSOvsp"},
};

constexpr Word<TModeFitting> modeFittingWords[] = {
    {TModeFitting::Auto, "Auto"},
    {TModeFitting::Diurnal, "Diurnal"},
    {TModeFitting::Stroke, "Stroke"},
    {TModeFitting::DiffFrame, "DiffFrame"},
};

constexpr Word<TPrVKBrac> bracWords[] = {
    {TPrVKBrac::Cl, "Cl"},
    {TPrVKBrac::Dm, "Dm"},
    {TPrVKBrac::Dx, "Dx"},
};

constexpr Word<THowMakeTr> howMakeWords[] = {
    {THowMakeTr::STROB, "STROB"}, {THowMakeTr::SFAST, "SFAST"}, {THowMakeTr::HOUGH, "HOUGH"},
    {THowMakeTr::GSOHO, "GSOHO"}, {THowMakeTr::MOSKH, "MOSKH"}, {THowMakeTr::MANUA, "MANUA"},
    {THowMakeTr::STACK, "STACK"}, {THowMakeTr::UNKNO, "UNKNO"},
};

constexpr Word<TTypeBlob> typeBlobWords[] = {
    {TTypeBlob::prShort, "prShort"},       {TTypeBlob::prLong, "prLong"},
    {TTypeBlob::prLongStar, "prLongStar"}, {TTypeBlob::prShLong, "prShLong"},
    {TTypeBlob::prBadPix, "prBadPix"},     {TTypeBlob::prALLBlob, "prALLBlob"},
    {TTypeBlob::prTriangle, "prTriangle"},
};

constexpr Word<BlobCode> blobCodeWords[] = {
    {BlobCode::pltEr, "pltEr"},
    {BlobCode::bpx, "bpx"},
    {BlobCode::nearplato, "nearplato"},
    {BlobCode::onePeakIsStar, "1PeakIsStar"},
    {BlobCode::partStroke, "partStroke"},
    {BlobCode::partStrokeStar, "partStrokeStar"},
    {BlobCode::star, "star"},
    {BlobCode::ic, "ic"},
    {BlobCode::bad_parts, "bad_parts"},
};

constexpr Word<TTypeAmpl> typeAmplWords[] = {
    {TTypeAmpl::FITTING, "FITTING"},
    {TTypeAmpl::APERT, "APERT"},
    {TTypeAmpl::UndefAmpl, "UndefAmpl"},
};

constexpr Word<TTypeCalcUnderGroundBlob> underGroundWords[] = {
    {TTypeCalcUnderGroundBlob::ABC, "ABC"},
    {TTypeCalcUnderGroundBlob::C, "C"},
    {TTypeCalcUnderGroundBlob::ABCIteration, "ABCIteration"},
    {TTypeCalcUnderGroundBlob::Average, "Average"},
    {TTypeCalcUnderGroundBlob::CIteration, "CIteration"},
    {TTypeCalcUnderGroundBlob::NoSubtraction, "NoSubtraction"},
};

constexpr Word<TSpeedLimit> speedLimitWords[] = {
    {TSpeedLimit::VisibleMotion, "VisibleMotion"},
    {TSpeedLimit::ArcsecPerMin, "ArcsecPerMin"},
};

constexpr Word<TTypeNextFormation> nextFormationWords[] = {
    {TTypeNextFormation::ByTime, "ByTime"},
    {TTypeNextFormation::ByCount, "ByCount"},
};

constexpr Word<TFramesAddition> framesAdditionWords[] = {
    {TFramesAddition::ByCount, "ByCount"},
    {TFramesAddition::ByTime, "ByTime"},
};

constexpr Word<TApertureSize> apertureSizeWords[] = {
    {TApertureSize::AutoCalculation, "AutoCalculation"},
    {TApertureSize::ByRadius, "ByRadius"},
    {TApertureSize::ByFWHM, "ByFWHM"},
};

constexpr Word<TTriangleModelType> triangleModelWords[] = {
    {TTriangleModelType::Analytic, "Analytic"},
    {TTriangleModelType::Numeric, "Numeric"},
    {TTriangleModelType::StrokeAnalitic, "StrokeAnalitic"},
};

constexpr Word<TModelFitting> modelFittingWords[] = {
    {TModelFitting::Pixel, "Pixel"},
    {TModelFitting::SubPixel, "SubPixel"},
    {TModelFitting::PixelNumeric, "PixelNumeric"},
};

constexpr Word<TIdentificationWithSky> identificationWords[] = {
    {TIdentificationWithSky::BetweenFrames, "BetweenFrames"},
    {TIdentificationWithSky::WithSky, "WithSky"},
};

constexpr Word<TRaDeorXY> coordinateWords[] = {
    {TRaDeorXY::XY, "XY"},
    {TRaDeorXY::RADE, "RADE"},
};

constexpr Word<TTypeSort_Record> sortRecordWords[] = {
    {TTypeSort_Record::A2, "A2"},
    {TTypeSort_Record::A3, "A3"},
};

} // namespace

TService StrToService(std::string word)
{
    return numberOf(serviceWords, word, 0);
}

std::string ServiceToStr(TService service)
{
    return wordOf(serviceWords, service, "Service_Uncknown");
}

TTypeFrame StrToTypeFrame(std::string word)
{
    return numberOf(typeFrameWords, word, 0);
}

std::string TypeFrameToStr(TTypeFrame type)
{
    return wordOf(typeFrameWords, type, "DIURNAL");
}

TSeliNetStarCat StrToiCat(std::string word)
{
    return numberOf(catalogueWords, word, 0);
}

std::string iCatToStr(TSeliNetStarCat catalogue)
{
    return wordOf(catalogueWords, catalogue, "iNoCat");
}

TModeFitting StrToModeFitting(std::string word)
{
    return numberOf(modeFittingWords, word, 0);
}

std::string ModeFittingToStr(TModeFitting mode)
{
    return wordOf(modeFittingWords, mode, "Auto");
}

std::string TPrVKBracToStr(TPrVKBrac kind)
{
    return wordOf(bracWords, kind, "Cl");
}

TPrVKBrac TPrVKBracToStr(std::string word)
{
    return numberOf(bracWords, word, 0);
}

THowMakeTr StrToHowMake(std::string word)
{
    return numberOf(howMakeWords, word, 7);
}

std::string HowMakeToStr(THowMakeTr how)
{
    return wordOf(howMakeWords, how, "UNKNO");
}

std::string TypeBlobToStr(int type)
{
    return wordOf(typeBlobWords, static_cast<TTypeBlob>(type), "prUnckType");
}

int TypeBlobToInt(int type)
{
    // 3, 4 and 5 have words and still become -1, on purpose.
    return type == 0 || type == 1 || type == 2 || type == 6 ? type : -1;
}

int TypeBlobToInt(TTypeBlob type)
{
    return TypeBlobToInt(static_cast<int>(type));
}

TTypeBlob IntToTypeBlob(int type)
{
    return static_cast<TTypeBlob>(TypeBlobToInt(type));
}

int PeakTypeToInt(int type)
{
    return type == 1 ? 1 : 0;
}

int PeakTypeToInt(TPeakType type)
{
    return PeakTypeToInt(static_cast<int>(type));
}

TPeakType IntToPeakType(int type)
{
    return static_cast<TPeakType>(PeakTypeToInt(type));
}

std::string BlobErrorCodeToStr(BlobCode code)
{
    return wordOf(blobCodeWords, code, "ok");
}

std::string BlobErrorCodeToStr(int code)
{
    return BlobErrorCodeToStr(static_cast<BlobCode>(code));
}

int BlobErrorCodeToInt(int code)
{
    return code >= 1 && code <= 9 ? code : 0;
}

int BlobErrorCodeToInt(BlobCode code)
{
    return BlobErrorCodeToInt(static_cast<int>(code));
}

BlobCode IntToBlobErrorCode(int code)
{
    // 1 to 8 only: bad_parts comes back as ok. BlobErrorCodeToInt lets it pass.
    return static_cast<BlobCode>(code >= 1 && code <= 8 ? code : 0);
}

TTypeAmpl StrToTypeAmpl(std::string word)
{
    return numberOf(typeAmplWords, word, 2);
}

std::string TypeAmplToStr(TTypeAmpl type)
{
    return wordOf(typeAmplWords, type, "UNDEF");
}

TTypeCalcUnderGroundBlob StrToTypeCalcUnderGroundBlob(std::string word)
{
    return numberOf(underGroundWords, word, -1);
}

TSpeedLimit StrToTSpeedLimit(std::string word)
{
    return numberOf(speedLimitWords, word, 2);
}

TTypeNextFormation StrToTypeNextFormation(std::string word)
{
    return numberOf(nextFormationWords, word, 2);
}

TFramesAddition StrToTFramesAddition(std::string word)
{
    return numberOf(framesAdditionWords, word, 2);
}

TApertureSize StrToTApertureSize(std::string word)
{
    return numberOf(apertureSizeWords, word, 1);
}

TTriangleModelType StrToTriangleModelType(std::string word)
{
    return numberOf(triangleModelWords, word, -1);
}

TModelFitting StrToModelFitting(std::string word)
{
    return numberOf(modelFittingWords, word, -1);
}

TIdentificationWithSky StrToIdentificationWithSky(std::string word)
{
    return numberOf(identificationWords, word, 1);
}

TRaDeorXY StrToRaDeorXY(std::string word)
{
    return numberOf(coordinateWords, word, 1);
}

TTypeSort_Record StrToTypeSort_Record(std::string word)
{
    return numberOf(sortRecordWords, word, 9);
}

TObsSite SelectObsSite(const TObsSite& first, const TObsSite& second)
{
    if (first.SiteKnown) {
        return first;
    }
    const bool nowhere = second.Latitude == 0.0 && second.Longitude == 0.0 && second.Altitude == 0.0;
    return nowhere ? TObsSite{} : second;
}

} // namespace tavelinUtils
