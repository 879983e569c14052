#include "config/parameters_detection.h"

#include "config/parameter_tree.h"
#include "files/essentials.h"
#include "results/code_table.h"

#include <optional>

namespace tavelinUtils {
namespace {

// A bare name is in the current folder, and a name after a single slash in the root.
bool folderIsMissing(const std::string& path)
{
    const std::string folder = ExtractPath(path);
    return folder != path && !folder.empty() && !DirectoryExists(folder);
}

} // namespace

int sThresPeakXML(std::string path, int x, int y)
{
    return saveParameters(path, branch("Fitting", {branch("Peaks", {branch("Peak", {{"X", x}, {"Y", y}})})}));
}

int sParamFittXML(std::string path, const std::vector<std::string>& FitsList, std::string IDFrame,
                  std::string DetectBadPix, std::string ConfigTavelinPath, std::string SeriePath,
                  std::string ResPath, std::string LogPath)
{
    const ParameterElement fitting = branch("Fitting", {textList("FitsList", "string", FitsList),
                                                        {"IDFrame", IDFrame},
                                                        {"DetectBadPix", DetectBadPix},
                                                        {"ConfigTavelinPath", ConfigTavelinPath},
                                                        {"SeriePath", SeriePath},
                                                        {"ResPath", ResPath},
                                                        {"LogPath", LogPath}});
    return saveParameters(path, branch("TaVeLinSettings", {fitting}));
}

void lThresFitting(std::string path, std::vector<std::string>& FitsList)
{
    if (!readParameters(path, {{"FitsList", &FitsList, "stringSubStract"}})) {
        throwErrCode(FileExists(path) ? resultCode::unreadableFile : resultCode::noParameterFile, path);
    }
}

void lParamFittingXML(std::string path, std::string& FRAME, std::string& FRAMEINDEX, std::string& SEARCHPEAK,
                      std::string& CODE, std::string& DATA, std::string& LEVELSNR, std::string& FORECAST,
                      std::string& GAMMA, std::vector<std::string>& MARKS)
{
    readParameters(path, {{"FRAME", &FRAME},
                          {"FRAMEINDEX", &FRAMEINDEX},
                          {"SEARCHPEAK", &SEARCHPEAK},
                          {"CODE", &CODE},
                          {"DATA", &DATA},
                          {"LEVELSNR", &LEVELSNR},
                          {"FORECAST", &FORECAST},
                          {"GAMMA", &GAMMA},
                          {"MARKS", &MARKS, "MARK"}});
}

void lParamTrackXML(std::string path, std::string& FRAMEBASE, std::string& CODE, std::string& DATA,
                    std::vector<std::string>& TRACKS)
{
    readParameters(
        path, {{"FRAMEBASE", &FRAMEBASE}, {"CODE", &CODE}, {"DATA", &DATA}, {"TRACKS", &TRACKS, "TRACK"}});
}

int SaveThreshHough(std::string path, std::string pathConf, std::string NumFr, std::string threshNBlob,
                    std::string position_disp, std::string shine_disp, std::string width, std::string height,
                    std::string minimumVelo, std::string maximumVelo, std::string LogPath,
                    std::string ResPath, std::string OutPathIndex, std::string OutPathStrobes,
                    const std::vector<std::string>& Blobspath)
{
    return saveParameters(path, branch("Hough", {{"pathConf", pathConf},
                                                 {"NumFr", NumFr},
                                                 {"threshNBlob", threshNBlob},
                                                 {"position_disp", position_disp},
                                                 {"shine_disp", shine_disp},
                                                 {"width", width},
                                                 {"height", height},
                                                 {"minimumVelo", minimumVelo},
                                                 {"maximumVelo", maximumVelo},
                                                 {"LogPath", LogPath},
                                                 {"ResPath", ResPath},
                                                 {"OutPathIndex", OutPathIndex},
                                                 {"OutPathStrobes", OutPathStrobes},
                                                 textList("Blobs-path", "Blobs", Blobspath)}));
}

void LoadThreshHough(std::string path, std::string& pathConf, std::string& NumFr, std::string& threshNBlob,
                     std::string& position_disp, std::string& shine_disp, std::string& width,
                     std::string& height, std::string& minimumVelo, std::string& maximumVelo,
                     std::string& LogPath, std::string& ResPath, std::string& OutPathIndex,
                     std::string& OutPathStrobes, std::vector<std::string>& Blobspath)
{
    readParameters(path, {{"pathConf", &pathConf},
                          {"NumFr", &NumFr},
                          {"threshNBlob", &threshNBlob},
                          {"position_disp", &position_disp},
                          {"shine_disp", &shine_disp},
                          {"width", &width},
                          {"height", &height},
                          {"minimumVelo", &minimumVelo},
                          {"maximumVelo", &maximumVelo},
                          {"LogPath", &LogPath},
                          {"ResPath", &ResPath},
                          {"OutPathIndex", &OutPathIndex},
                          {"OutPathStrobes", &OutPathStrobes},
                          {"Blobs-path", &Blobspath, "Blobs"}});
}

int SaveThreshHoughGSO(std::string path, std::string pathConf, std::string NumFr, std::string Thres_window,
                       std::string position_disp, std::string shine_disp, std::string Mx,
                       std::string v_ra_min, std::string v_ra_max, std::string v_de_min, std::string v_de_max,
                       std::string LogPath, std::string ResPath, std::string OutPath,
                       const std::vector<std::string>& Blobspath)
{
    return saveParameters(path, branch("HoughGSO", {{"pathConf", pathConf},
                                                    {"NumFr", NumFr},
                                                    {"Thres_window", Thres_window},
                                                    {"position_disp", position_disp},
                                                    {"shine_disp", shine_disp},
                                                    {"Mx", Mx},
                                                    {"v_ra_min", v_ra_min},
                                                    {"v_ra_max", v_ra_max},
                                                    {"v_de_min", v_de_min},
                                                    {"v_de_max", v_de_max},
                                                    {"LogPath", LogPath},
                                                    {"ResPath", ResPath},
                                                    {"OutPath", OutPath},
                                                    textList("Blobs-path", "Blobs", Blobspath)}));
}

void LoadThreshHoughGSO(std::string path, std::string& pathConf, std::string& NumFr,
                        std::string& Thres_window, std::string& position_disp, std::string& shine_disp,
                        std::string& Mx, std::string& v_ra_min, std::string& v_ra_max, std::string& v_de_min,
                        std::string& v_de_max, std::string& LogPath, std::string& ResPath,
                        std::string& OutPath, std::vector<std::string>& Blobspath)
{
    readParameters(path, {{"pathConf", &pathConf},
                          {"NumFr", &NumFr},
                          {"Thres_window", &Thres_window},
                          {"position_disp", &position_disp},
                          {"shine_disp", &shine_disp},
                          {"Mx", &Mx},
                          {"v_ra_min", &v_ra_min},
                          {"v_ra_max", &v_ra_max},
                          {"v_de_min", &v_de_min},
                          {"v_de_max", &v_de_max},
                          {"LogPath", &LogPath},
                          {"ResPath", &ResPath},
                          {"OutPath", &OutPath},
                          {"Blobs-path", &Blobspath, "Blobs"}});
}

int sThresHoughMOSK(std::string path, std::string appereance_threshold, std::string latitude,
                    std::string longitude, std::string altitude, const std::vector<std::string>& SameTLEs,
                    std::string proirOrbitTLEPath, std::string LogPath, std::string ResPath,
                    std::string OutPathDir, std::string BlobsPath, std::string BlobsTime, std::string Ra0,
                    std::string De0, std::string FOVRA, std::string FOVDE, std::string STARRMSRA,
                    std::string STARRMSDE, std::string StepName)
{
    const ParameterElement obssite =
        branch("obssite", {{"latitude", latitude}, {"longitude", longitude}, {"altitude", altitude}});
    const ParameterElement blobs = branch("Blobs", {{"BlobsPath", BlobsPath},
                                                    {"BlobsTime", BlobsTime},
                                                    {"Ra0", Ra0},
                                                    {"De0", De0},
                                                    {"FOVRA", FOVRA},
                                                    {"FOVDE", FOVDE},
                                                    {"STARRMSRA", STARRMSRA},
                                                    {"STARRMSDE", STARRMSDE},
                                                    {"StepName", StepName}});
    return saveParameters(path, branch("HoughSAT", {{"appereance_threshold", appereance_threshold},
                                                    obssite,
                                                    textList("SameTLEs", "tle", SameTLEs),
                                                    {"proirOrbitTLEPath", proirOrbitTLEPath},
                                                    {"LogPath", LogPath},
                                                    {"ResPath", ResPath},
                                                    {"OutPathDir", OutPathDir},
                                                    blobs}));
}

int sHeadParams(std::string path, double FwhmMath, double FwhmSTD, double SigFit, double RMSFit,
                double RMSFitSTD, double Ecentricity, double Width, double Length, double Angle,
                double StepMath, double StepSTD, double RawMath, double RawSTD, TTypeFrame TypeFrame)
{
    if (folderIsMissing(path)) {
        throwErrCode(resultCode::noFolder, path);
    }
    return saveParameters(path, branch("HeadBlob", {{"FwhmMath", FwhmMath},
                                                    {"FwhmSTD", FwhmSTD},
                                                    {"SigFit", SigFit},
                                                    {"RMSFit", RMSFit},
                                                    {"RMSFitSTD", RMSFitSTD},
                                                    {"Ecentricity", Ecentricity},
                                                    {"Width", Width},
                                                    {"Length", Length},
                                                    {"Angle", Angle},
                                                    {"StepMath", StepMath},
                                                    {"StepSTD", StepSTD},
                                                    {"RawMath", RawMath},
                                                    {"RawSTD", RawSTD},
                                                    {"TypeFrame", TypeFrameToStr(TypeFrame)}}));
}

void lBlobHead(std::string path, double& FwhmMath, double& FwhmSTD, double& SigFit, double& RMSFit,
               double& RMSFitSTD, double& Ecentricity, double& Width, double& Length, double& Angle,
               double& StepMath, double& StepSTD, double& RawMath, double& RawSTD, TTypeFrame& TypeFrame)
{
    std::optional<std::string> type;
    readParameters(path, {{"FwhmMath", &FwhmMath},
                          {"FwhmSTD", &FwhmSTD},
                          {"SigFit", &SigFit},
                          {"RMSFit", &RMSFit},
                          {"RMSFitSTD", &RMSFitSTD},
                          {"Ecentricity", &Ecentricity},
                          {"Width", &Width},
                          {"Length", &Length},
                          {"Angle", &Angle},
                          {"StepMath", &StepMath},
                          {"StepSTD", &StepSTD},
                          {"RawMath", &RawMath},
                          {"RawSTD", &RawSTD},
                          {"TypeFrame", &type}});
    if (type) {
        TypeFrame = StrToTypeFrame(*type);
    }
}

} // namespace tavelinUtils
