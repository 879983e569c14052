// Parameter files of the services: stages and tasks, storage, tables, satellites and stars, track limits.
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

/// Orders the intra-frame stage for a list of frames: 0, or 1. The keys are below "PO".
int sThresIntraXML(std::string path, std::string ProcessingType, const std::vector<std::string>& FitsList,
                   std::string ConfigTavelinPath, std::string ResPath, std::string LogPath,
                   std::string PIDPath);

/// Reads an order of the intra-frame stage whose keys are below the first element: not what sThresIntraXML
/// writes, whose keys are one level deeper.
void LThresIntraXML(std::string path, std::string& ConfigTavelinPath, std::string& ResPath,
                    std::string& LogPath, std::vector<std::string>& FitsList);

/// Orders the inter-frame stage of a series: 0, or 1.
int sThresInterXML(std::string path, std::string ProcessingType, std::string ResPath, std::string LogPath,
                   std::string PIDPath, std::string SeriePath, std::string ConfigTavelinPath,
                   std::string PastPath, std::string TaskPath, const std::vector<std::string>& FitsList);

/// Reads an order to run a task, of one frame or of a series.
void lRunTask(std::string path, std::string& ProcessingType, std::string& IDFrame,
              std::string& ConfigTavelinPath, std::string& SeriePath, std::string& LogPath,
              std::string& ResPath, std::string& BlobPath, std::string& FitPath, std::string& PIDPath,
              std::string& TaskPath, std::string& PastPath, std::vector<std::string>& FitsList);

/// Reads an order of a test.
void lTestTaskXML(std::string path, std::string& mode);

/// Reads an order to compute with two numbers.
void LoadOpearations(std::string path, std::string& number1, std::string& number2, std::string& operation,
                     std::string& resultPath);

/// Orders a transfer to or from the storage: 0, or 1. The words that "Mode" and "TaskType" may have are in
/// their attribute "list".
int sStorageUpDownLoad(std::string path, std::string Mode, std::string TaskType, std::string LocalFileName,
                       std::string LogPath, std::string ResPath, std::string LocalStorage,
                       std::string PathStorage, std::string S3Path, std::string IDuser, std::string IDproject,
                       std::string IDseria, std::string FileName);

/// Orders a table of blobs: 0, or 1.
int sConvToTable(std::string path, std::string Mode, std::string LogPath, std::string ResPath,
                 std::string BlobTablePath, std::string BlobBinPath, std::string FitPath,
                 std::string ConfigTavelinPath);

/// Reads what sConvToTable writes. If the file names a log, the line "lConvToTable=" with the path is
/// appended to it.
void lConvToTable(std::string path, std::string& Mode, std::string& LogPath, std::string& ResPath,
                  std::string& BlobTablePath, std::string& BlobBinPath, std::string& FitPath,
                  std::string& ConfigTavelinPath);

/// Reads an order to convert measurements.
void lconvertmea(std::string path, std::string& path_in, std::string& path_out, std::string& format_in,
                 std::string& format_out, std::string& names_sat, std::string& pathHeader,
                 std::string& indMea, std::string& AddFNCode, std::string& LogPath, std::string& ResPath);

/// Orders a check for known satellites around a position at a date, seen from a site: 0, or 1. The site is
/// below "location".
int sSATChecker(std::string path, std::string OutputPath, std::string ResPath, std::string LogPath,
                std::string TavelinTelescope, std::string alphaZero, std::string deltaZero,
                std::string radius, std::string date, std::string latitude, std::string longitude,
                std::string altitude);

/// Reads an order to load stars.
void LoadParamStarLoader(std::string path, std::string& longitude, std::string& latitude,
                         std::string& altitude, std::string& azimuth, std::string& elevation,
                         std::string& radius, std::string& datetime);

/// Read the control limits of tracks: of asteroids, of satellites, of variable stars. Each reads those of the
/// three that the file holds.
void lvo_track_control(std::string path, std::string& angle_deviation_limit,
                       std::string& brightness_deviation_limit, std::string& time_shift);
void lsat_track_control(std::string path, std::string& angle_deviation_limit,
                        std::string& brightness_deviation_limit, std::string& time_shift);
void lvs_control(std::string path, std::string& angle_deviation_limit,
                 std::string& brightness_deviation_limit, std::string& time_shift);

} // namespace tavelinUtils
