// Settings of the work on single frames: calibration, detection, astrometry and photometry.

#pragma once

#include "../export.h"
#include "../records/element_set.h"
#include "../records/enumerations.h"
#include "../text/bad_areas.h"

#include <string>
#include <vector>

namespace TAVELIN_API tavelinUtils {

/// Calibration frames and the alignment of brightness.
struct TMasterFrame
{
    bool UseMasterBias = false;
    bool UseMasterDark = false;
    bool UseMasterDarkFlat = false;
    bool UseMasterFlat = false;
    bool UseFHF = false;
    bool UseCommonFolder = false;
    std::vector<std::string> ProcessingRawBias{}; ///< paths, as in the next three
    std::vector<std::string> ProcessingRawDark{};
    std::vector<std::string> ProcessingRawDarkFlat{};
    std::vector<std::string> ProcessingRawFlat{};
    std::string ProcessingRawFolder{};
    bool IgnoreTimeFactor = false;
    bool ExposureAutoDetermination = false;
    bool HorizontalBandsFilter = false;
    int BinningCoefficient = 0;
    int MedianWindow = 0;
};

/// Detection on a frame. The members after AreaWithBadImages have no key: they are carried for the modules
/// that fit.
struct TFitt
{
    double HotPixels = 0;
    double NegativePixels = 0;
    bool IsDetect = false;
    TModeFitting FittingType = TModeFitting::Auto;
    int DetectionAtEqualityPixels = 3;
    double snrPeakPointObject = 2.5;
    double snrPeakStrokeStar = 3.0;
    double CorrelationResponse = 2.5;
    std::vector<TBadAreaFrame> DoNotSelectStarsOnFrame{};
    std::vector<TBadAreaFrame> AreaWithBadImages{};
    int Int1 = 5;
    int Int2 = 5;
    double Value1 = 3.0;
    double Value2 = 0.7;
    double Value3 = 7.0;
    int Int3 = 500;
    TForms123 Forms123{};
};

/// Detection on the difference of frames.
struct TQRVDIntraframeThresh
{
    std::string filter{};
    int numberMedianFrames = 5;
    int numberSkipFrames = 0;
    double sigmaFit = 1.0;
    double nSigmaNegative = 5.0;
    double threshLengthSegment = 50.0;
    int threshNumPixSegment = 300;
    double snrPeak = 2.5;
    double SNRNeNormCorrelationResponse = 2.5;
    double combineRadius = 2.0;
    double threshRMSContour = 1.0;
    double threshRMSContourPlato = 1.0;
};

/// Identification of a frame with the catalogues: astrometry and photometry.
struct TAstro
{
    TSeliNetStarCat INetAstrometric = TSeliNetStarCat::iNoCat;
    TSeliNetStarCat INetPhotometric = TSeliNetStarCat::iNoCat;
    int XCropInitialAstro = 1;
    int YCropInitialAstro = 1;
    int MarksFromFrame = 0;
    int PercentOfMatching = 0;
    double StarsResearch = 0;
    double DifferentBetweenAngles = 0;
    double DistanceTo3DVertex = 0;
    short AstrometryReductionDegree = 0;
    double StarsRejectionThreshold = 0;
    double CriticalSNR3forMeasurements = 0;
    int FragmentsNumber = 4;
    double MinPixelScale = 1.0;
    double MaxPixelScale = 180.0;
    bool use_astrometry_net = false;
    int CoefficientsNumber = 0; ///< depends on the degree of the reduction: 3, 10 or 21
    TKMTN KMTN{};               ///< no key
};

/// Photometry, from a developer's parameter file.
struct TDevPhoto
{
    std::string Text{};
    std::vector<double> List{};
};

} // namespace tavelinUtils
