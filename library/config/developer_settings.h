// Developer settings of the pipeline's tools, and the settings of the on-line service.
//
// All values are texts, as the file has them; the members are named after their keys. A reader takes the
// children of the document's first element, whatever its name. A key that is missing or empty leaves its
// member, and a file that cannot be loaded leaves the record.

#pragma once

#include "../export.h"

#include <string>

namespace TAVELIN_API tavelinUtils {

/// Developer settings of the series service.
struct TDevelopClon
{
    std::string DontCreateTmp{};
    std::string keep_tle_days{};

    // How long to wait for the steps.
    std::string MaxTimeWaitInter{};
    std::string MinTimeWaitInter{};
    std::string TimeWaitCosm{};
    std::string TimeWaitPO{};
    std::string TimeWaitVO1{};
    std::string TimeWaitVO2{};
    std::string TimeWaitStack{};
    std::string TimeWaitPhoto{};
    std::string TimeWaitSpaceTrack{};
    std::string TimeWaitVSX{};

    std::string AttemptsUpDownloadS3{};
    std::string SaveFrameLog{};
    std::string iTest{};
    std::string EveryNewFrames{};
    std::string NumInterFrames{};
    std::string SaveSegments{};
    std::string PathOutDir2{};
    std::string Storage{};
};

/// Developer settings of the fitting.
struct TDevelopFitting
{
    std::string kBrightForPlato{};
    std::string ModelingMode{};
    std::string StrobeSizeCoefficient{};
    std::string MinStrobeSize{};
    std::string BackgroundRejectionLevel{};
    std::string A3StrobeSize{};
    std::string BrightnessDifference{};
    std::string PadCalculation{};
    std::string DontCreateTmp{};
    std::string always_use_automatic_frame_type{};
    std::string segment_corrframe{};
    std::string ModelType{};
    std::string SNRPeakPreDetection{};

    // The pieces that a frame is split into.
    std::string FrameSegmentationDW{};
    std::string FrameSegmentationDH{};
    std::string FrameSegmentationCover{};

    std::string BorderXY{};
    std::string ALMEPS{};
    std::string useAALM{};

    std::string ALM_epsf{};
    std::string ALM_epsg{};
    std::string ALM_epsx{};
    std::string ALM_iter{};
    std::string ALM_scaleA{};
    std::string ALM_scaleXY{};
    std::string ALM_scaleS{};

    // Anomalous pixels.
    std::string AnomalPixexl{};
    std::string numIterAP{};
    std::string percentAP{};
    std::string minCountPixAP{};
    std::string nSkoAP{};

    std::string DetectTypeFrame{};
    std::string LevGetHightPix{};
    std::string LevSeparateNoiseSignalPix{};
    std::string TrExenNotDurnal{};
    std::string TriangleModelType{};
    std::string AnaliticTri{};
    std::string centerSuperObj{};
    std::string useRadon{};
    std::string alm_iter_long{};
};

/// Developer settings of the identification with the sky.
struct TDevelopAstro
{
    std::string DontCreateTmp{};
    std::string astroIterations{};

    // Radii in pixels.
    std::string min_radius_ident_firstiter_pix{};
    std::string min_radius_ident_seconditer_pix{};

    std::string NBlob_secident{};
    std::string KStar_secident{};
    std::string K_FirstNumAstro{};
    std::string TrResBlesk{};
    std::string few_measurements{};
    std::string dist12_measur{};
    std::string AutoSetAstroPolinom{};
    std::string PersentMxy{};
    std::string NumBlUsed{};
    std::string Accuracy_NScale{};
    std::string SnailSteps{};
    std::string minpair5{};
    std::string minpair3{};
    std::string timeWaitExternalAstro{};
    std::string timeWaitHorizon{};
    std::string useselectRS_near_tavelin{};
    std::string use_new_rademoov{};
    std::string TrMinNumPairFragment{};
    std::string use_triangle_iteration{};
    std::string use_astrometry_yes{};
    std::string GAIA2ASGAIA3{};
    std::string useDBCatalog{};
    std::string smallFOV{};
    std::string enlargeFOV{};
    std::string maxAstroStars{};
    std::string saveAccuracy{};

    // The outside program and its catalogue.
    std::string use_ASTAP{};
    std::string pathASTAPcat{};
};

/// Developer settings of the inter-frame stage.
struct TDevelopInterAip
{
    std::string DontCreateTmp{};
    std::string MinAllowMaxVHok{};
    std::string Threshold_Matching_DelNear{};
    std::string Threshold_Disp_DelNear{};
    std::string use_two_frames_for_mpc{};
    std::string timewait_tolpi_perframe_second{};
    std::string corr_response_checkframes{};
    std::string corr_response_threshold{};
    std::string brac_all_ic{};
    std::string sat{};
};

/// Developer settings of the photometry.
struct TDevelopLocalPhoto
{
    std::string DontCreateTmp{};
    std::string useSyntFrame{};

    std::string useWL{};
    std::string nameWL{};
    std::string levelWL{};
    std::string deletelevelWL{};

    std::string useRawFrame{};
    std::string useAndrWeight{};
    std::string dUT1{};
    std::string useFracPix{};
    std::string levelBracAnomalInWin{};

    // Whether pixels are rejected by each measure, and then the limits of the measures.
    std::string RejectPixelsBySNR{};
    std::string RejectPixelsBySMR{};
    std::string RejectPixelsByModelDeviation{};
    std::string SNRForPixelsRejection{};
    std::string SMRForPixelsRejection{};
    std::string ModelDeviationForPixelsRejection{};

    std::string minNoisePix{};
    std::string numSubPixSquare{};
    std::string numSubPixSuper{};
    std::string nMatrSuper{};
    std::string addInner{};
    std::string addOuter{};
    std::string thresMinDistCheckStar{};
    std::string thresRSearchVSXBlob{};
};

/// Settings of the on-line service.
struct TZunekXML
{
    std::string ProcessingFolderPath{};
    std::string TimeSleep{};

    // The database; these keys are below "database".
    std::string host{};
    std::string port{};
    std::string name{};
    std::string user{};
    std::string password{};

    std::string iTest{};
    std::string StopFile{}; ///< no key: "cloneaip.stop" in the folder of processing
};

/// Reads the developer settings of the series service.
void lDevelopClon(std::string path, TDevelopClon& settings);

/// Reads the developer settings of the fitting. Throws a TavelinException of code 5 with the path for a file
/// that cannot be loaded, or is missing.
void lDevelopFitting(std::string path, TDevelopFitting& settings);

/// Reads the developer settings of the identification.
void lDevelopAstro(std::string path, TDevelopAstro& settings);

/// Reads the developer settings of the inter-frame stage.
void ldevelop_interaip(std::string path, TDevelopInterAip& settings);

/// Reads the developer settings of the photometry, whose first element is usually "CommonSettings".
void lDevelopLocalPhoto(std::string path, TDevelopLocalPhoto& settings);

/// Reads the settings of the on-line service and forms the path of its stop file.
void lZunekXML(std::string path, TZunekXML& settings);

} // namespace tavelinUtils
