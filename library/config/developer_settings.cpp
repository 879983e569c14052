#include "config/developer_settings.h"

#include "config/key_table.h"
#include "config/parameter_tree.h"
#include "files/essentials.h"
#include "results/code_table.h"

namespace tavelinUtils {
namespace {

constexpr KeyRow<TDevelopClon> clonKeys[] = {
    {"DontCreateTmp", &TDevelopClon::DontCreateTmp},
    {"keep_tle_days", &TDevelopClon::keep_tle_days},
    {"MaxTimeWaitInter", &TDevelopClon::MaxTimeWaitInter},
    {"MinTimeWaitInter", &TDevelopClon::MinTimeWaitInter},
    {"TimeWaitCosm", &TDevelopClon::TimeWaitCosm},
    {"TimeWaitPO", &TDevelopClon::TimeWaitPO},
    {"TimeWaitVO1", &TDevelopClon::TimeWaitVO1},
    {"TimeWaitVO2", &TDevelopClon::TimeWaitVO2},
    {"TimeWaitStack", &TDevelopClon::TimeWaitStack},
    {"TimeWaitPhoto", &TDevelopClon::TimeWaitPhoto},
    {"TimeWaitSpaceTrack", &TDevelopClon::TimeWaitSpaceTrack},
    {"TimeWaitVSX", &TDevelopClon::TimeWaitVSX},
    {"AttemptsUpDownloadS3", &TDevelopClon::AttemptsUpDownloadS3},
    {"SaveFrameLog", &TDevelopClon::SaveFrameLog},
    {"iTest", &TDevelopClon::iTest},
    {"EveryNewFrames", &TDevelopClon::EveryNewFrames},
    {"NumInterFrames", &TDevelopClon::NumInterFrames},
    {"SaveSegments", &TDevelopClon::SaveSegments},
    {"PathOutDir2", &TDevelopClon::PathOutDir2},
    {"Storage", &TDevelopClon::Storage},
};

constexpr KeyRow<TDevelopFitting> fittingKeys[] = {
    {"kBrightForPlato", &TDevelopFitting::kBrightForPlato},
    {"ModelingMode", &TDevelopFitting::ModelingMode},
    {"StrobeSizeCoefficient", &TDevelopFitting::StrobeSizeCoefficient},
    {"MinStrobeSize", &TDevelopFitting::MinStrobeSize},
    {"BackgroundRejectionLevel", &TDevelopFitting::BackgroundRejectionLevel},
    {"A3StrobeSize", &TDevelopFitting::A3StrobeSize},
    {"BrightnessDifference", &TDevelopFitting::BrightnessDifference},
    {"PadCalculation", &TDevelopFitting::PadCalculation},
    {"DontCreateTmp", &TDevelopFitting::DontCreateTmp},
    {"always_use_automatic_frame_type", &TDevelopFitting::always_use_automatic_frame_type},
    {"segment_corrframe", &TDevelopFitting::segment_corrframe},
    {"ModelType", &TDevelopFitting::ModelType},
    {"SNRPeakPreDetection", &TDevelopFitting::SNRPeakPreDetection},
    {"FrameSegmentationDW", &TDevelopFitting::FrameSegmentationDW},
    {"FrameSegmentationDH", &TDevelopFitting::FrameSegmentationDH},
    {"FrameSegmentationCover", &TDevelopFitting::FrameSegmentationCover},
    {"BorderXY", &TDevelopFitting::BorderXY},
    {"ALMEPS", &TDevelopFitting::ALMEPS},
    {"useAALM", &TDevelopFitting::useAALM},
    {"ALM_epsf", &TDevelopFitting::ALM_epsf},
    {"ALM_epsg", &TDevelopFitting::ALM_epsg},
    {"ALM_epsx", &TDevelopFitting::ALM_epsx},
    {"ALM_iter", &TDevelopFitting::ALM_iter},
    {"ALM_scaleA", &TDevelopFitting::ALM_scaleA},
    {"ALM_scaleXY", &TDevelopFitting::ALM_scaleXY},
    {"ALM_scaleS", &TDevelopFitting::ALM_scaleS},
    {"AnomalPixexl", &TDevelopFitting::AnomalPixexl},
    {"numIterAP", &TDevelopFitting::numIterAP},
    {"percentAP", &TDevelopFitting::percentAP},
    {"minCountPixAP", &TDevelopFitting::minCountPixAP},
    {"nSkoAP", &TDevelopFitting::nSkoAP},
    {"DetectTypeFrame", &TDevelopFitting::DetectTypeFrame},
    {"LevGetHightPix", &TDevelopFitting::LevGetHightPix},
    {"LevSeparateNoiseSignalPix", &TDevelopFitting::LevSeparateNoiseSignalPix},
    {"TrExenNotDurnal", &TDevelopFitting::TrExenNotDurnal},
    {"TriangleModelType", &TDevelopFitting::TriangleModelType},
    {"AnaliticTri", &TDevelopFitting::AnaliticTri},
    {"centerSuperObj", &TDevelopFitting::centerSuperObj},
    {"useRadon", &TDevelopFitting::useRadon},
    {"alm_iter_long", &TDevelopFitting::alm_iter_long},
};

constexpr KeyRow<TDevelopAstro> astroKeys[] = {
    {"DontCreateTmp", &TDevelopAstro::DontCreateTmp},
    {"astroIterations", &TDevelopAstro::astroIterations},
    {"min_radius_ident_firstiter_pix", &TDevelopAstro::min_radius_ident_firstiter_pix},
    {"min_radius_ident_seconditer_pix", &TDevelopAstro::min_radius_ident_seconditer_pix},
    {"NBlob_secident", &TDevelopAstro::NBlob_secident},
    {"KStar_secident", &TDevelopAstro::KStar_secident},
    {"K_FirstNumAstro", &TDevelopAstro::K_FirstNumAstro},
    {"TrResBlesk", &TDevelopAstro::TrResBlesk},
    {"few_measurements", &TDevelopAstro::few_measurements},
    {"dist12_measur", &TDevelopAstro::dist12_measur},
    {"AutoSetAstroPolinom", &TDevelopAstro::AutoSetAstroPolinom},
    {"PersentMxy", &TDevelopAstro::PersentMxy},
    {"NumBlUsed", &TDevelopAstro::NumBlUsed},
    {"Accuracy_NScale", &TDevelopAstro::Accuracy_NScale},
    {"SnailSteps", &TDevelopAstro::SnailSteps},
    {"minpair5", &TDevelopAstro::minpair5},
    {"minpair3", &TDevelopAstro::minpair3},
    {"timeWaitExternalAstro", &TDevelopAstro::timeWaitExternalAstro},
    {"timeWaitHorizon", &TDevelopAstro::timeWaitHorizon},
    {"useselectRS_near_tavelin", &TDevelopAstro::useselectRS_near_tavelin},
    {"use_new_rademoov", &TDevelopAstro::use_new_rademoov},
    {"TrMinNumPairFragment", &TDevelopAstro::TrMinNumPairFragment},
    {"use_triangle_iteration", &TDevelopAstro::use_triangle_iteration},
    {"use_astrometry_yes", &TDevelopAstro::use_astrometry_yes},
    {"GAIA2ASGAIA3", &TDevelopAstro::GAIA2ASGAIA3},
    {"useDBCatalog", &TDevelopAstro::useDBCatalog},
    {"smallFOV", &TDevelopAstro::smallFOV},
    {"enlargeFOV", &TDevelopAstro::enlargeFOV},
    {"maxAstroStars", &TDevelopAstro::maxAstroStars},
    {"saveAccuracy", &TDevelopAstro::saveAccuracy},
    {"use_ASTAP", &TDevelopAstro::use_ASTAP},
    {"pathASTAPcat", &TDevelopAstro::pathASTAPcat},
};

constexpr KeyRow<TDevelopInterAip> interAipKeys[] = {
    {"DontCreateTmp", &TDevelopInterAip::DontCreateTmp},
    {"MinAllowMaxVHok", &TDevelopInterAip::MinAllowMaxVHok},
    {"Threshold_Matching_DelNear", &TDevelopInterAip::Threshold_Matching_DelNear},
    {"Threshold_Disp_DelNear", &TDevelopInterAip::Threshold_Disp_DelNear},
    {"use_two_frames_for_mpc", &TDevelopInterAip::use_two_frames_for_mpc},
    {"timewait_tolpi_perframe_second", &TDevelopInterAip::timewait_tolpi_perframe_second},
    {"corr_response_checkframes", &TDevelopInterAip::corr_response_checkframes},
    {"corr_response_threshold", &TDevelopInterAip::corr_response_threshold},
    {"brac_all_ic", &TDevelopInterAip::brac_all_ic},
    {"sat", &TDevelopInterAip::sat},
};

constexpr KeyRow<TDevelopLocalPhoto> localPhotoKeys[] = {
    {"DontCreateTmp", &TDevelopLocalPhoto::DontCreateTmp},
    {"useSyntFrame", &TDevelopLocalPhoto::useSyntFrame},
    {"useWL", &TDevelopLocalPhoto::useWL},
    {"nameWL", &TDevelopLocalPhoto::nameWL},
    {"levelWL", &TDevelopLocalPhoto::levelWL},
    {"deletelevelWL", &TDevelopLocalPhoto::deletelevelWL},
    {"useRawFrame", &TDevelopLocalPhoto::useRawFrame},
    {"useAndrWeight", &TDevelopLocalPhoto::useAndrWeight},
    {"dUT1", &TDevelopLocalPhoto::dUT1},
    {"useFracPix", &TDevelopLocalPhoto::useFracPix},
    {"levelBracAnomalInWin", &TDevelopLocalPhoto::levelBracAnomalInWin},
    {"RejectPixelsBySNR", &TDevelopLocalPhoto::RejectPixelsBySNR},
    {"RejectPixelsBySMR", &TDevelopLocalPhoto::RejectPixelsBySMR},
    {"RejectPixelsByModelDeviation", &TDevelopLocalPhoto::RejectPixelsByModelDeviation},
    {"SNRForPixelsRejection", &TDevelopLocalPhoto::SNRForPixelsRejection},
    {"SMRForPixelsRejection", &TDevelopLocalPhoto::SMRForPixelsRejection},
    {"ModelDeviationForPixelsRejection", &TDevelopLocalPhoto::ModelDeviationForPixelsRejection},
    {"minNoisePix", &TDevelopLocalPhoto::minNoisePix},
    {"numSubPixSquare", &TDevelopLocalPhoto::numSubPixSquare},
    {"numSubPixSuper", &TDevelopLocalPhoto::numSubPixSuper},
    {"nMatrSuper", &TDevelopLocalPhoto::nMatrSuper},
    {"addInner", &TDevelopLocalPhoto::addInner},
    {"addOuter", &TDevelopLocalPhoto::addOuter},
    {"thresMinDistCheckStar", &TDevelopLocalPhoto::thresMinDistCheckStar},
    {"thresRSearchVSXBlob", &TDevelopLocalPhoto::thresRSearchVSXBlob},
};

constexpr KeyRow<TZunekXML> zunekKeys[] = {
    {"ProcessingFolderPath", &TZunekXML::ProcessingFolderPath},
    {"TimeSleep", &TZunekXML::TimeSleep},
    {"iTest", &TZunekXML::iTest},
};

constexpr KeyRow<TZunekXML> databaseKeys[] = {
    {"host", &TZunekXML::host}, {"port", &TZunekXML::port},         {"name", &TZunekXML::name},
    {"user", &TZunekXML::user}, {"password", &TZunekXML::password},
};

constexpr const char* stopFile = "cloneaip.stop";

} // namespace

void lDevelopClon(std::string path, TDevelopClon& settings)
{
    readKeys(ParameterFile(path).root(), clonKeys, settings);
}

void lDevelopFitting(std::string path, TDevelopFitting& settings)
{
    ParameterFile file(path);
    if (file.root() == nullptr) {
        throwErrCode(resultCode::unreadableFile, path);
    }
    readKeys(file.root(), fittingKeys, settings);
}

void lDevelopAstro(std::string path, TDevelopAstro& settings)
{
    readKeys(ParameterFile(path).root(), astroKeys, settings);
}

void ldevelop_interaip(std::string path, TDevelopInterAip& settings)
{
    readKeys(ParameterFile(path).root(), interAipKeys, settings);
}

void lDevelopLocalPhoto(std::string path, TDevelopLocalPhoto& settings)
{
    readKeys(ParameterFile(path).root(), localPhotoKeys, settings);
}

void lZunekXML(std::string path, TZunekXML& settings)
{
    ParameterFile file(path);
    TiXmlElement* const root = file.root();
    if (root == nullptr) {
        return;
    }
    readKeys(root, zunekKeys, settings);
    readKeys(root->FirstChildElement("database"), databaseKeys, settings);
    settings.StopFile = settings.ProcessingFolderPath;
    AddSlash(settings.StopFile, Slash);
    settings.StopFile += stopFile;
}

} // namespace tavelinUtils
