// Parameter files of the detection: fitting, marking by hand, searches by Hough, quality of blobs.
//
// A writer replaces the file and returns 0, or 1 if it cannot be saved. A reader takes the children of the
// document's first element, whatever its name. A key that is missing or empty leaves its argument, lists are
// appended to, and a file that cannot be loaded leaves everything. The walk through a list never returns from
// an empty item.

#pragma once

#include "../export.h"
#include "../records/enumerations.h"

#include <string>
#include <vector>

namespace TAVELIN_API tavelinUtils {

/// Orders to fit one peak, at a position in pixels: 0, or 1.
int sThresPeakXML(std::string path, int x, int y);

/// Orders to fit a frame of a series: 0, or 1.
int sParamFittXML(std::string path, const std::vector<std::string>& FitsList, std::string IDFrame,
                  std::string DetectBadPix, std::string ConfigTavelinPath, std::string SeriePath,
                  std::string ResPath, std::string LogPath);

/// Reads the list of frames of a fitting order. Throws a TavelinException with the path: code 1 for a missing
/// file, 5 for one that cannot be loaded.
void lThresFitting(std::string path, std::vector<std::string>& FitsList);

/// Reads an order to fit marks of a frame.
void lParamFittingXML(std::string path, std::string& FRAME, std::string& FRAMEINDEX, std::string& SEARCHPEAK,
                      std::string& CODE, std::string& DATA, std::string& LEVELSNR, std::string& FORECAST,
                      std::string& GAMMA, std::vector<std::string>& MARKS);

/// Reads an order about tracks.
void lParamTrackXML(std::string path, std::string& FRAMEBASE, std::string& CODE, std::string& DATA,
                    std::vector<std::string>& TRACKS);

/// Orders a search by Hough in files of blobs: 0, or 1.
int SaveThreshHough(std::string path, std::string pathConf, std::string NumFr, std::string threshNBlob,
                    std::string position_disp, std::string shine_disp, std::string width, std::string height,
                    std::string minimumVelo, std::string maximumVelo, std::string LogPath,
                    std::string ResPath, std::string OutPathIndex, std::string OutPathStrobes,
                    const std::vector<std::string>& Blobspath);

/// Reads what SaveThreshHough writes.
void LoadThreshHough(std::string path, std::string& pathConf, std::string& NumFr, std::string& threshNBlob,
                     std::string& position_disp, std::string& shine_disp, std::string& width,
                     std::string& height, std::string& minimumVelo, std::string& maximumVelo,
                     std::string& LogPath, std::string& ResPath, std::string& OutPathIndex,
                     std::string& OutPathStrobes, std::vector<std::string>& Blobspath);

/// Orders a search by Hough in files of blobs, with velocity limits in right ascension and declination: 0,
/// or 1.
int SaveThreshHoughGSO(std::string path, std::string pathConf, std::string NumFr, std::string Thres_window,
                       std::string position_disp, std::string shine_disp, std::string Mx,
                       std::string v_ra_min, std::string v_ra_max, std::string v_de_min, std::string v_de_max,
                       std::string LogPath, std::string ResPath, std::string OutPath,
                       const std::vector<std::string>& Blobspath);

/// Reads what SaveThreshHoughGSO writes.
void LoadThreshHoughGSO(std::string path, std::string& pathConf, std::string& NumFr,
                        std::string& Thres_window, std::string& position_disp, std::string& shine_disp,
                        std::string& Mx, std::string& v_ra_min, std::string& v_ra_max, std::string& v_de_min,
                        std::string& v_de_max, std::string& LogPath, std::string& ResPath,
                        std::string& OutPath, std::vector<std::string>& Blobspath);

/// Orders a search by Hough for satellites seen from a site: 0, or 1. The site is below "obssite", the frame
/// of the blobs below "Blobs".
int sThresHoughMOSK(std::string path, std::string appereance_threshold, std::string latitude,
                    std::string longitude, std::string altitude, const std::vector<std::string>& SameTLEs,
                    std::string proirOrbitTLEPath, std::string LogPath, std::string ResPath,
                    std::string OutPathDir, std::string BlobsPath, std::string BlobsTime, std::string Ra0,
                    std::string De0, std::string FOVRA, std::string FOVDE, std::string STARRMSRA,
                    std::string STARRMSDE, std::string StepName);

/// Writes what the blobs of a frame have in common, with six decimals, and the word of the frame's type: 0,
/// or 1. Throws a TavelinException of code 6 with the path if the folder is missing.
int sHeadParams(std::string path, double FwhmMath, double FwhmSTD, double SigFit, double RMSFit,
                double RMSFitSTD, double Ecentricity, double Width, double Length, double Angle,
                double StepMath, double StepSTD, double RawMath, double RawSTD, TTypeFrame TypeFrame);

/// Reads what sHeadParams writes. A text that is no number gives 0; the type is what StrToTypeFrame makes of
/// its word.
void lBlobHead(std::string path, double& FwhmMath, double& FwhmSTD, double& SigFit, double& RMSFit,
               double& RMSFitSTD, double& Ecentricity, double& Width, double& Length, double& Angle,
               double& StepMath, double& StepSTD, double& RawMath, double& RawSTD, TTypeFrame& TypeFrame);

} // namespace tavelinUtils
