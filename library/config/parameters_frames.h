// Parameter files of frames: correction, conversion, filtering, adding, selecting, editing, packing.
//
// A writer replaces the file and returns 0, or 1 if it cannot be saved. A reader takes the children of the
// document's first element, whatever its name. A key that is missing or empty leaves its argument, lists are
// appended to, and a file that cannot be loaded leaves everything. The walk through a list never returns from
// an empty item.

#pragma once

#include "../export.h"

#include <string>
#include <vector>

namespace TAVELIN_API tavelinUtils {

/// Orders the cosmetic correction of frames, with their calibration frames: 0, or 1.
int sThresCosmetic(std::string path, std::string ProcessingType, const std::vector<std::string>& FitsList,
                   const std::vector<std::string>& FitsListBias, const std::vector<std::string>& FitsListDark,
                   const std::vector<std::string>& FitsListDarkFlat,
                   const std::vector<std::string>& FitsListFlat, std::string AddMask, std::string PathRes,
                   std::string PIDPath, std::string PathLog, std::string OutPutFolder, std::string NSigm,
                   std::string PathFHF, std::string winFHF5, std::string HorizontalBandsFilter,
                   std::string BinningCoefficient, std::string CommonFolder, std::string DeleteTMP,
                   std::string UseBias, std::string UseDark, std::string UseDarkFlat, std::string UseFlat,
                   std::string UseFHF, std::string UseCommonFolder, std::string SpecifiedMasterFrames,
                   std::string ConfigTavelinPath);

/// Orders to convert frames of other formats: 0, or 1.
int SaveParamMultiformat(std::string path, const std::vector<std::string>& InputFilesList,
                         const std::vector<std::string>& OutputFilesList, std::string ToGrayscale,
                         std::string ConfigTavelinPath, std::string ResPath, std::string LogPath,
                         std::string HeaderPath);

/// Orders the high-frequency filter of a frame: 0, or 1. The flags are "0" or "1"; the result file is always
/// "---" and the inverse median filter always on.
int SaveThresholdFHF(std::string path, std::string FullNameLogFile, std::string FullNameInitFile,
                     std::string FullNameFitInInversMedianFilter,
                     std::string FullNameFitOutInversMedianFilter, std::string InversMedianWindow,
                     std::string Binning, bool ColorOrBw, bool SmallOrBig, bool HorizontalBandsFilter);

/// Reads an order to add frames. Throws a TavelinException with the path: code 1 for a missing file, 5 for
/// one that cannot be loaded.
void lThresADD(std::string path, std::string& AddType, std::string& BaseFit, std::string& ResPath,
               std::string& LogPath, std::string& SuperFit, std::vector<std::string>& FitsList,
               std::vector<std::string>& ShiftList);

/// Reads an order to convert formats.
void lThresConvFormats(std::string path, std::string& zonePath, std::string& startTime);

/// Reads an order to select frames.
void LFrameSelector(std::string path, std::string& frames, std::string& list_frames,
                    std::string& observations, std::string& full_path);

/// Reads an order to edit the headers of frames.
void lFitEdit(std::string path, std::string& fixheader, std::string& inputdirectory, std::string& exludedtext,
              std::string& roundmillisecond, std::string& outputdirectory, std::string& add_time);

/// Reads an order to pack or unpack frames.
void lPACKxml(std::string path, std::string& Mode, std::string& ResPath, std::vector<std::string>& FitsList,
              std::vector<std::string>& OutputFitsList);

} // namespace tavelinUtils
