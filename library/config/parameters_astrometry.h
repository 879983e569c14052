// Parameter files of the astrometry: identification with the sky, network services, catalogues, reports.
//
// A writer replaces the file and returns 0, or 1 if it cannot be saved.

#pragma once

#include "../export.h"

#include <string>
#include <vector>

namespace TAVELIN_API tavelinUtils {

/// Orders to identify a frame with the sky: 0, or 1.
int sParamSkyIdentXML(std::string path, std::string IDFrame, std::string FitPath, std::string BlobPath,
                      std::string ConfigTavelinPath, std::string SeriePath, std::string ResPath,
                      std::string LogPath, std::string PIDPath);

/// Orders the astrometry of a list of frames by the network service: 0, or 1.
int sThresPatternAstrometryNetXML(std::string path, const std::vector<std::string>& FitsList,
                                  std::string Language, std::string ConfigAstrometryPath,
                                  std::string ConfigTavelinPath, std::string ResPath, std::string LogPath,
                                  std::string SeriePath);

/// Writes the settings of the network service: 0, or 1. Commercial use, changes and public view are always
/// "n", the scale's units "arcsecperpix" and its type "ul".
int sAstrometryNetSettings(std::string path, bool UseWCS, bool UseCenterPixel, std::string WCSPath,
                           std::string RDLSPath, std::string AXYPath, std::string CorrPath,
                           std::string CalibrationPath, std::string AnnotationsPath, std::string NewImagePath,
                           bool UseNewImage, bool UseRDLS, bool UseAXY, bool UseCorr, bool UseCalibration,
                           bool UseAnnotations, std::string ScaleLower, std::string ScaleUpper);

/// Orders the astrometry of a frame from its blobs, near a first position: 0, or 1.
int sAstrometryYesSettings(std::string path, std::string useCenterPixel, std::string BlobPath,
                           std::string FitPath, std::string WCSPath, std::string LogPath, std::string ResPath,
                           std::string ScaleLower, std::string ScaleUpper, std::string CRVAL1,
                           std::string CRVAL2, std::string Radius, std::string NAXIS1, std::string NAXIS2);

/// Writes the world coordinates of a frame, each value with a comment: 0, or 1.
int sWCSXML(std::string path, std::string CRVAL1, std::string CRVAL2, std::string CRPIX1, std::string CRPIX2,
            std::string CD1_1, std::string CD1_2, std::string CD2_1, std::string CD2_2, std::string FOCUS,
            std::string FOV, std::string SCALE, std::string Rotation);

/// Orders the part of a star catalogue around a position: 0, or 1.
int sThresGetiNetXML(std::string path, std::string ProcessingType, std::string TypeCat, std::string RA0,
                     std::string DE0, std::string FOV, std::string VLim, std::string DATEOBS,
                     std::string TypeMag, std::string Pathcat, std::string PathRes, std::string PathOut,
                     std::string PathLog);

/// Orders a report of one position to the MPC: 0, or 1.
int sParamMPC1(std::string path, std::string Frame, std::string sendMPC2, std::string ConfigTavelinPath,
               std::string LogPath, std::string MPC1Path, std::string ResPath, std::string LimMMPC,
               std::string MPCCode);

} // namespace tavelinUtils
