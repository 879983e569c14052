#include "config/parameters_services.h"

#include "config/parameter_tree.h"
#include "results/result_files.h"

#include <optional>

namespace tavelinUtils {
namespace {

// Files of all kinds of tracks have those of these keys that the kind needs.
void readControlLimits(const std::string& path, std::string& angle, std::string& brightness,
                       std::string& timeShift)
{
    readParameters(path, {{"angle_deviation_limit", &angle},
                          {"brightness_deviation_limit", &brightness},
                          {"time_shift", &timeShift}});
}

} // namespace

int sThresIntraXML(std::string path, std::string ProcessingType, const std::vector<std::string>& FitsList,
                   std::string ConfigTavelinPath, std::string ResPath, std::string LogPath,
                   std::string PIDPath)
{
    const ParameterElement po = branch("PO", {{"ProcessingType", ProcessingType},
                                              textList("FitsList", "string", FitsList),
                                              {"ConfigTavelinPath", ConfigTavelinPath},
                                              {"ResPath", ResPath},
                                              {"LogPath", LogPath},
                                              {"PIDPath", PIDPath}});
    return saveParameters(path, branch("TaVeLinPattern", {po}));
}

void LThresIntraXML(std::string path, std::string& ConfigTavelinPath, std::string& ResPath,
                    std::string& LogPath, std::vector<std::string>& FitsList)
{
    readParameters(path, {{"ConfigTavelinPath", &ConfigTavelinPath},
                          {"ResPath", &ResPath},
                          {"LogPath", &LogPath},
                          {"FitsList", &FitsList, "string"}});
}

int sThresInterXML(std::string path, std::string ProcessingType, std::string ResPath, std::string LogPath,
                   std::string PIDPath, std::string SeriePath, std::string ConfigTavelinPath,
                   std::string PastPath, std::string TaskPath, const std::vector<std::string>& FitsList)
{
    return saveParameters(path, branch("TaVeLinPattern", {{"ProcessingType", ProcessingType},
                                                          {"ResPath", ResPath},
                                                          {"LogPath", LogPath},
                                                          {"PIDPath", PIDPath},
                                                          {"SeriePath", SeriePath},
                                                          {"ConfigTavelinPath", ConfigTavelinPath},
                                                          {"PastPath", PastPath},
                                                          {"TaskPath", TaskPath},
                                                          textList("FitsList", "string", FitsList)}));
}

void lRunTask(std::string path, std::string& ProcessingType, std::string& IDFrame,
              std::string& ConfigTavelinPath, std::string& SeriePath, std::string& LogPath,
              std::string& ResPath, std::string& BlobPath, std::string& FitPath, std::string& PIDPath,
              std::string& TaskPath, std::string& PastPath, std::vector<std::string>& FitsList)
{
    readParameters(path, {{"ProcessingType", &ProcessingType},
                          {"IDFrame", &IDFrame},
                          {"ConfigTavelinPath", &ConfigTavelinPath},
                          {"SeriePath", &SeriePath},
                          {"LogPath", &LogPath},
                          {"ResPath", &ResPath},
                          {"BlobPath", &BlobPath},
                          {"FitPath", &FitPath},
                          {"PIDPath", &PIDPath},
                          {"TaskPath", &TaskPath},
                          {"PastPath", &PastPath},
                          {"FitsList", &FitsList, "string"}});
}

void lTestTaskXML(std::string path, std::string& mode)
{
    readParameters(path, {{"mode", &mode}});
}

void LoadOpearations(std::string path, std::string& number1, std::string& number2, std::string& operation,
                     std::string& resultPath)
{
    readParameters(path, {{"number1", &number1},
                          {"number2", &number2},
                          {"operation", &operation},
                          {"resultPath", &resultPath}});
}

int sStorageUpDownLoad(std::string path, std::string Mode, std::string TaskType, std::string LocalFileName,
                       std::string LogPath, std::string ResPath, std::string LocalStorage,
                       std::string PathStorage, std::string S3Path, std::string IDuser, std::string IDproject,
                       std::string IDseria, std::string FileName)
{
    const ParameterElement mode{"Mode", Mode, {"list", "upload,download"}};
    const ParameterElement taskType{
        "TaskType", TaskType, {"list", "input,output,result,settings,service,lctask"}};
    return saveParameters(path, branch("S3UpDownLoad", {mode,
                                                        taskType,
                                                        {"LocalFileName", LocalFileName},
                                                        {"LogPath", LogPath},
                                                        {"ResPath", ResPath},
                                                        {"LocalStorage", LocalStorage},
                                                        {"PathStorage", PathStorage},
                                                        {"S3Path", S3Path},
                                                        {"IDuser", IDuser},
                                                        {"IDproject", IDproject},
                                                        {"IDseria", IDseria},
                                                        {"FileName", FileName}}));
}

int sConvToTable(std::string path, std::string Mode, std::string LogPath, std::string ResPath,
                 std::string BlobTablePath, std::string BlobBinPath, std::string FitPath,
                 std::string ConfigTavelinPath)
{
    return saveParameters(path, branch("ConvToTableSettings", {{"Mode", Mode},
                                                               {"LogPath", LogPath},
                                                               {"ResPath", ResPath},
                                                               {"BlobTablePath", BlobTablePath},
                                                               {"BlobBinPath", BlobBinPath},
                                                               {"FitPath", FitPath},
                                                               {"ConfigTavelinPath", ConfigTavelinPath}}));
}

void lConvToTable(std::string path, std::string& Mode, std::string& LogPath, std::string& ResPath,
                  std::string& BlobTablePath, std::string& BlobBinPath, std::string& FitPath,
                  std::string& ConfigTavelinPath)
{
    std::optional<std::string> log;
    readParameters(path, {{"Mode", &Mode},
                          {"LogPath", &log},
                          {"ResPath", &ResPath},
                          {"BlobTablePath", &BlobTablePath},
                          {"BlobBinPath", &BlobBinPath},
                          {"FitPath", &FitPath},
                          {"ConfigTavelinPath", &ConfigTavelinPath}});
    if (log) {
        LogPath = *log;
        slog(LogPath, "lConvToTable=" + path); // only to the log that the file names, never to an earlier one
    }
}

void lconvertmea(std::string path, std::string& path_in, std::string& path_out, std::string& format_in,
                 std::string& format_out, std::string& names_sat, std::string& pathHeader,
                 std::string& indMea, std::string& AddFNCode, std::string& LogPath, std::string& ResPath)
{
    readParameters(path, {{"path_in", &path_in},
                          {"path_out", &path_out},
                          {"format_in", &format_in},
                          {"format_out", &format_out},
                          {"names_sat", &names_sat},
                          {"pathHeader", &pathHeader},
                          {"indMea", &indMea},
                          {"AddFNCode", &AddFNCode},
                          {"LogPath", &LogPath},
                          {"ResPath", &ResPath}});
}

int sSATChecker(std::string path, std::string OutputPath, std::string ResPath, std::string LogPath,
                std::string TavelinTelescope, std::string alphaZero, std::string deltaZero,
                std::string radius, std::string date, std::string latitude, std::string longitude,
                std::string altitude)
{
    const ParameterElement location =
        branch("location", {{"latitude", latitude}, {"longitude", longitude}, {"altitude", altitude}});
    return saveParameters(path, branch("CheckerPattern", {{"OutputPath", OutputPath},
                                                          {"ResPath", ResPath},
                                                          {"LogPath", LogPath},
                                                          {"TavelinTelescope", TavelinTelescope},
                                                          {"alphaZero", alphaZero},
                                                          {"deltaZero", deltaZero},
                                                          {"radius", radius},
                                                          {"date", date},
                                                          location}));
}

void LoadParamStarLoader(std::string path, std::string& longitude, std::string& latitude,
                         std::string& altitude, std::string& azimuth, std::string& elevation,
                         std::string& radius, std::string& datetime)
{
    readParameters(path, {{"longitude", &longitude},
                          {"latitude", &latitude},
                          {"altitude", &altitude},
                          {"azimuth", &azimuth},
                          {"elevation", &elevation},
                          {"radius", &radius},
                          {"datetime", &datetime}});
}

void lvo_track_control(std::string path, std::string& angle_deviation_limit,
                       std::string& brightness_deviation_limit, std::string& time_shift)
{
    readControlLimits(path, angle_deviation_limit, brightness_deviation_limit, time_shift);
}

void lsat_track_control(std::string path, std::string& angle_deviation_limit,
                        std::string& brightness_deviation_limit, std::string& time_shift)
{
    readControlLimits(path, angle_deviation_limit, brightness_deviation_limit, time_shift);
}

void lvs_control(std::string path, std::string& angle_deviation_limit,
                 std::string& brightness_deviation_limit, std::string& time_shift)
{
    readControlLimits(path, angle_deviation_limit, brightness_deviation_limit, time_shift);
}

} // namespace tavelinUtils
