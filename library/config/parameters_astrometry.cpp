#include "config/parameters_astrometry.h"

#include "config/parameter_tree.h"

#include <utility>

namespace tavelinUtils {
namespace {

ParameterElement commented(std::string key, std::string value, std::string comment)
{
    return {std::move(key), std::move(value), {"comment", std::move(comment)}};
}

} // namespace

int sParamSkyIdentXML(std::string path, std::string IDFrame, std::string FitPath, std::string BlobPath,
                      std::string ConfigTavelinPath, std::string SeriePath, std::string ResPath,
                      std::string LogPath, std::string PIDPath)
{
    return saveParameters(path, branch("SkyIdent", {{"IDFrame", IDFrame},
                                                    {"FitPath", FitPath},
                                                    {"BlobPath", BlobPath},
                                                    {"ConfigTavelinPath", ConfigTavelinPath},
                                                    {"SeriePath", SeriePath},
                                                    {"ResPath", ResPath},
                                                    {"LogPath", LogPath},
                                                    {"PIDPath", PIDPath}}));
}

int sThresPatternAstrometryNetXML(std::string path, const std::vector<std::string>& FitsList,
                                  std::string Language, std::string ConfigAstrometryPath,
                                  std::string ConfigTavelinPath, std::string ResPath, std::string LogPath,
                                  std::string SeriePath)
{
    return saveParameters(path, branch("AstrometryPattern", {textList("FitsList", "string", FitsList),
                                                             {"Language", Language},
                                                             {"ConfigAstrometryPath", ConfigAstrometryPath},
                                                             {"ConfigTavelinPath", ConfigTavelinPath},
                                                             {"ResPath", ResPath},
                                                             {"LogPath", LogPath},
                                                             {"SeriePath", SeriePath}}));
}

int sAstrometryNetSettings(std::string path, bool UseWCS, bool UseCenterPixel, std::string WCSPath,
                           std::string RDLSPath, std::string AXYPath, std::string CorrPath,
                           std::string CalibrationPath, std::string AnnotationsPath, std::string NewImagePath,
                           bool UseNewImage, bool UseRDLS, bool UseAXY, bool UseCorr, bool UseCalibration,
                           bool UseAnnotations, std::string ScaleLower, std::string ScaleUpper)
{
    // Five values are fixed: what is sent is not public, and the scale is given by its two bounds.
    return saveParameters(path, branch("AstrometrySettings", {{"UseWCS", UseWCS},
                                                              {"UseCenterPixel", UseCenterPixel},
                                                              {"WCSPath", WCSPath},
                                                              {"RDLSPath", RDLSPath},
                                                              {"AXYPath", AXYPath},
                                                              {"CorrPath", CorrPath},
                                                              {"CalibrationPath", CalibrationPath},
                                                              {"AnnotationsPath", AnnotationsPath},
                                                              {"NewImagePath", NewImagePath},
                                                              {"UseNewImage", UseNewImage},
                                                              {"UseRDLS", UseRDLS},
                                                              {"UseAXY", UseAXY},
                                                              {"UseCorr", UseCorr},
                                                              {"UseCalibration", UseCalibration},
                                                              {"UseAnnotations", UseAnnotations},
                                                              {"AllowCommercialUse", "n"},
                                                              {"AllowModifications", "n"},
                                                              {"PubliclyVisible", "n"},
                                                              {"ScaleUnits", "arcsecperpix"},
                                                              {"ScaleType", "ul"},
                                                              {"ScaleLower", ScaleLower},
                                                              {"ScaleUpper", ScaleUpper}}));
}

int sAstrometryYesSettings(std::string path, std::string useCenterPixel, std::string BlobPath,
                           std::string FitPath, std::string WCSPath, std::string LogPath, std::string ResPath,
                           std::string ScaleLower, std::string ScaleUpper, std::string CRVAL1,
                           std::string CRVAL2, std::string Radius, std::string NAXIS1, std::string NAXIS2)
{
    return saveParameters(path, branch("AstrometrySettings", {{"useCenterPixel", useCenterPixel},
                                                              {"BlobPath", BlobPath},
                                                              {"FitPath", FitPath},
                                                              {"WCSPath", WCSPath},
                                                              {"LogPath", LogPath},
                                                              {"ResPath", ResPath},
                                                              {"ScaleLower", ScaleLower},
                                                              {"ScaleUpper", ScaleUpper},
                                                              {"CRVAL1", CRVAL1},
                                                              {"CRVAL2", CRVAL2},
                                                              {"Radius", Radius},
                                                              {"NAXIS1", NAXIS1},
                                                              {"NAXIS2", NAXIS2}}));
}

int sWCSXML(std::string path, std::string CRVAL1, std::string CRVAL2, std::string CRPIX1, std::string CRPIX2,
            std::string CD1_1, std::string CD1_2, std::string CD2_1, std::string CD2_2, std::string FOCUS,
            std::string FOV, std::string SCALE, std::string Rotation)
{
    return saveParameters(
        path, branch("WCS", {commented("CRVAL1", CRVAL1,
                                       "World coordinate value (RA) at the reference point of Axis X[deg.]"),
                             commented("CRVAL2", CRVAL2,
                                       "World coordinate value (DE) at the reference point of Axis Y[deg.]"),
                             commented("CRPIX1", CRPIX1, "Reference point of Axis X[pix.]"),
                             commented("CRPIX2", CRPIX2, "Reference point of Axis Y[pix.]"),
                             commented("CD1_1", CD1_1, "Transformation matrix element 1_1"),
                             commented("CD1_2", CD1_2, "Transformation matrix element 1_2"),
                             commented("CD2_1", CD2_1, "Transformation matrix element 2_1"),
                             commented("CD2_2", CD2_2, "Transformation matrix element 2_2"),
                             commented("FOCUS", FOCUS, "Focal length"),
                             commented("FOV", FOV, "Field of view"), commented("SCALE", SCALE, "Image scale"),
                             commented("Rotation", Rotation, "Camera rotation angle[deg.]")}));
}

int sThresGetiNetXML(std::string path, std::string ProcessingType, std::string TypeCat, std::string RA0,
                     std::string DE0, std::string FOV, std::string VLim, std::string DATEOBS,
                     std::string TypeMag, std::string Pathcat, std::string PathRes, std::string PathOut,
                     std::string PathLog)
{
    const ParameterElement getiNet = branch("GetiNet", {{"ProcessingType", ProcessingType},
                                                        {"TypeCat", TypeCat},
                                                        {"RA0", RA0},
                                                        {"DE0", DE0},
                                                        {"FOV", FOV},
                                                        {"VLim", VLim},
                                                        {"DATEOBS", DATEOBS},
                                                        {"TypeMag", TypeMag},
                                                        {"Pathcat", Pathcat},
                                                        {"PathRes", PathRes},
                                                        {"PathOut", PathOut},
                                                        {"PathLog", PathLog}});
    return saveParameters(path, branch("TaVeLinPattern", {getiNet}));
}

int sParamMPC1(std::string path, std::string Frame, std::string sendMPC2, std::string ConfigTavelinPath,
               std::string LogPath, std::string MPC1Path, std::string ResPath, std::string LimMMPC,
               std::string MPCCode)
{
    return saveParameters(path, branch("MPC1", {{"Frame", Frame},
                                                {"sendMPC2", sendMPC2},
                                                {"ConfigTavelinPath", ConfigTavelinPath},
                                                {"LogPath", LogPath},
                                                {"MPC1Path", MPC1Path},
                                                {"ResPath", ResPath},
                                                {"LimMMPC", LimMMPC},
                                                {"MPCCode", MPCCode}}));
}

} // namespace tavelinUtils
