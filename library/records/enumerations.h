// Enumerations of the settings and of the track table, and their words.
//
// The two directions of a pair are not inverses: each has its own answer for what it does not know. Words
// are compared whole, with case and blanks. No conversion fails. An enumeration can hold any number.

#pragma once

#include "../export.h"

#include <string>

namespace TAVELIN_API tavelinUtils {

/// The service that a series was observed for.
enum class TService : int
{
    unknown = 0,
    asteroids = 1,
    satellites = 2,
    variablestars = 3,
    alignment = 4,
    identification = 5,
    airfly = 6
};

/// The kind of tracking of a frame: stars are points (diurnal) or strokes.
enum class TTypeFrame : int
{
    DIURNAL = 0,
    STROKE = 1
};

/// Star catalogues of the network service.
enum class TSeliNetStarCat : int
{
    iNoCat = 0,
    TYCHO2 = 2,
    UCAC4 = 3,
    UCAC5 = 4,
    USNOB1 = 5,
    NOMAD1 = 6,
    GAIA2 = 7,
    PanSTARRS1 = 8,
    SDSS9 = 9,
    APASS9 = 10,
    VSX = 11,
    AAVSOvsp = 12
};

/// How the kind of fitting is chosen.
enum class TModeFitting : int
{
    Auto = 0,
    Diurnal = 1,
    Stroke = 2,
    DiffFrame = 3
};

/// Kind of a bracketing measure.
enum class TPrVKBrac : int
{
    Cl = 0,
    Dm = 1,
    Dx = 2
};

/// How a track was made.
enum class THowMakeTr : int
{
    STROB = 0,
    SFAST = 1,
    HOUGH = 2,
    GSOHO = 3,
    MOSKH = 4,
    MANUA = 5,
    STACK = 6,
    UNKNO = 7
};

/// The kind of a blob.
enum class TTypeBlob : int
{
    prShort = 0,
    prLong = 1,
    prLongStar = 2,
    prShLong = 3,
    prBadPix = 4,
    prALLBlob = 5,
    prTriangle = 6
};

/// The kind of a peak; it has numbers and no words.
enum class TPeakType : int
{
    zero = 0,
    one = 1
};

/// The verdict on a blob.
enum class BlobCode : int
{
    ok = 0,
    pltEr = 1,
    bpx = 2,
    nearplato = 3,
    onePeakIsStar = 4,
    partStroke = 5,
    partStrokeStar = 6,
    star = 7,
    ic = 8,
    bad_parts = 9
};

/// The kind of an amplitude.
enum class TTypeAmpl : int
{
    FITTING = 0,
    APERT = 1,
    UndefAmpl = 2
};

/// How the background below a blob is found.
enum class TTypeCalcUnderGroundBlob : int
{
    ABC = 0,
    C = 1,
    ABCIteration = 2,
    Average = 3,
    CIteration = 4,
    NoSubtraction = 5
};

/// The unit of a speed limit.
enum class TSpeedLimit : int
{
    VisibleMotion = 0,
    ArcsecPerMin = 1
};

/// When the next light curve is formed. TFramesAddition has the numbers the other way round.
enum class TTypeNextFormation : int
{
    ByTime = 0,
    ByCount = 1
};

/// How frames are grouped for stacking. TTypeNextFormation has the numbers the other way round.
enum class TFramesAddition : int
{
    ByCount = 0,
    ByTime = 1
};

/// How an aperture is sized.
enum class TApertureSize : int
{
    AutoCalculation = 0,
    ByRadius = 1,
    ByFWHM = 2
};

/// The model of a blob's triangle.
enum class TTriangleModelType : int
{
    Analytic = 0,
    Numeric = 1,
    StrokeAnalitic = 2
};

/// The model of a fit.
enum class TModelFitting : int
{
    Pixel = 0,
    SubPixel = 1,
    PixelNumeric = 2
};

/// What a frame is identified against.
enum class TIdentificationWithSky : int
{
    BetweenFrames = 0,
    WithSky = 1
};

/// The coordinates of a search.
enum class TRaDeorXY : int
{
    XY = 0,
    RADE = 1
};

/// The key of a sort of records.
enum class TTypeSort_Record : int
{
    A2 = 3,
    A3 = 4
};

/// 0 for an unknown word.
TService StrToService(std::string word);
/// "Service_Uncknown" for every number outside 1 to 6; that word does not convert back.
std::string ServiceToStr(TService service);

/// 0 for an unknown word.
TTypeFrame StrToTypeFrame(std::string word);
/// "DIURNAL" for every number but 1.
std::string TypeFrameToStr(TTypeFrame type);

/// 0 for an unknown word, "iNoCat" included. No word leads to 1.
TSeliNetStarCat StrToiCat(std::string word);
/// "iNoCat" for every number outside 2 to 12.
std::string iCatToStr(TSeliNetStarCat catalogue);

/// 0 for an unknown word.
TModeFitting StrToModeFitting(std::string word);
/// "Auto" for an unknown number.
std::string ModeFittingToStr(TModeFitting mode);

/// "Cl" for an unknown number.
std::string TPrVKBracToStr(TPrVKBrac kind);
/// The other direction under the same name; 0 for an unknown word.
TPrVKBrac TPrVKBracToStr(std::string word);

/// 7 for an unknown word.
THowMakeTr StrToHowMake(std::string word);
/// "UNKNO" for every number outside 0 to 7.
std::string HowMakeToStr(THowMakeTr how);

/// "prUnckType" for every number outside 0 to 6.
std::string TypeBlobToStr(int type);
/// Pass 0, 1, 2 and 6; every other number becomes -1.
TTypeBlob IntToTypeBlob(int type);
int TypeBlobToInt(TTypeBlob type);
int TypeBlobToInt(int type);

/// 1 for 1 and 0 for everything else, in both directions.
TPeakType IntToPeakType(int type);
int PeakTypeToInt(TPeakType type);
int PeakTypeToInt(int type);

/// "ok" for every number outside 1 to 9.
std::string BlobErrorCodeToStr(BlobCode code);
std::string BlobErrorCodeToStr(int code);
/// Pass 1 to 9; every other number becomes 0.
int BlobErrorCodeToInt(BlobCode code);
int BlobErrorCodeToInt(int code);
/// Passes 1 to 8; every other number becomes 0, so that 9, "bad_parts", is read back as "ok".
BlobCode IntToBlobErrorCode(int code);

/// 2 for every text but "FITTING" and "APERT".
TTypeAmpl StrToTypeAmpl(std::string word);
/// "UNDEF" for every number outside 0 to 2.
std::string TypeAmplToStr(TTypeAmpl type);

/// -1 for an unknown word.
TTypeCalcUnderGroundBlob StrToTypeCalcUnderGroundBlob(std::string word);
/// 2 for an unknown word.
TSpeedLimit StrToTSpeedLimit(std::string word);
/// 2 for an unknown word.
TTypeNextFormation StrToTypeNextFormation(std::string word);
/// 2 for an unknown word.
TFramesAddition StrToTFramesAddition(std::string word);
/// 1 for an unknown word.
TApertureSize StrToTApertureSize(std::string word);
/// -1 for an unknown word.
TTriangleModelType StrToTriangleModelType(std::string word);
/// -1 for an unknown word.
TModelFitting StrToModelFitting(std::string word);
/// 1 for an unknown word.
TIdentificationWithSky StrToIdentificationWithSky(std::string word);
/// 1 for an unknown word.
TRaDeorXY StrToRaDeorXY(std::string word);
/// 9 for an unknown word.
TTypeSort_Record StrToTypeSort_Record(std::string word);

/// The place of an observatory: degrees, degrees, metres.
struct TObsSite
{
    double Latitude = 0;
    double Longitude = 0;
    double Altitude = 0;
    bool SiteKnown = false;
};

/// The first site if it is known; otherwise an empty one if the three numbers of the second are all 0.0,
/// and a copy of the second if they are not.
TObsSite SelectObsSite(const TObsSite& first, const TObsSite& second);

} // namespace tavelinUtils
