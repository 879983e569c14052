#include "config/parameters_frames.h"

#include "config/parameter_tree.h"
#include "files/essentials.h"
#include "results/code_table.h"

namespace tavelinUtils {
namespace {

// The filter takes its switches as numbers, not as the words that setTextNode makes of a bool.
std::string flagOf(bool on)
{
    return on ? "1" : "0";
}

} // namespace

int sThresCosmetic(std::string path, std::string ProcessingType, const std::vector<std::string>& FitsList,
                   const std::vector<std::string>& FitsListBias, const std::vector<std::string>& FitsListDark,
                   const std::vector<std::string>& FitsListDarkFlat,
                   const std::vector<std::string>& FitsListFlat, std::string AddMask, std::string PathRes,
                   std::string PIDPath, std::string PathLog, std::string OutPutFolder, std::string NSigm,
                   std::string PathFHF, std::string winFHF5, std::string HorizontalBandsFilter,
                   std::string BinningCoefficient, std::string CommonFolder, std::string DeleteTMP,
                   std::string UseBias, std::string UseDark, std::string UseDarkFlat, std::string UseFlat,
                   std::string UseFHF, std::string UseCommonFolder, std::string SpecifiedMasterFrames,
                   std::string ConfigTavelinPath)
{
    return saveParameters(
        path, branch("TaVeLinPattern", {{"ProcessingType", ProcessingType},
                                        textList("FitsList", "stringFL", FitsList),
                                        textList("FitsListBias", "stringFLB", FitsListBias),
                                        textList("FitsListDark", "stringFLD", FitsListDark),
                                        textList("FitsListDarkFlat", "stringFLDF", FitsListDarkFlat),
                                        textList("FitsListFlat", "stringFLF", FitsListFlat),
                                        {"AddMask", AddMask},
                                        {"PathRes", PathRes},
                                        {"PIDPath", PIDPath},
                                        {"PathLog", PathLog},
                                        {"OutPutFolder", OutPutFolder},
                                        {"NSigm", NSigm},
                                        {"PathFHF", PathFHF},
                                        {"winFHF5", winFHF5},
                                        {"HorizontalBandsFilter", HorizontalBandsFilter},
                                        {"BinningCoefficient", BinningCoefficient},
                                        {"CommonFolder", CommonFolder},
                                        {"DeleteTMP", DeleteTMP},
                                        {"UseBias", UseBias},
                                        {"UseDark", UseDark},
                                        {"UseDarkFlat", UseDarkFlat},
                                        {"UseFlat", UseFlat},
                                        {"UseFHF", UseFHF},
                                        {"UseCommonFolder", UseCommonFolder},
                                        {"SpecifiedMasterFrames", SpecifiedMasterFrames},
                                        {"ConfigTavelinPath", ConfigTavelinPath}}));
}

int SaveParamMultiformat(std::string path, const std::vector<std::string>& InputFilesList,
                         const std::vector<std::string>& OutputFilesList, std::string ToGrayscale,
                         std::string ConfigTavelinPath, std::string ResPath, std::string LogPath,
                         std::string HeaderPath)
{
    return saveParameters(path, branch("Root", {textList("InputFilesList", "String", InputFilesList),
                                                textList("OutputFilesList", "String", OutputFilesList),
                                                {"ToGrayscale", ToGrayscale},
                                                {"ConfigTavelinPath", ConfigTavelinPath},
                                                {"ResPath", ResPath},
                                                {"LogPath", LogPath},
                                                {"HeaderPath", HeaderPath}}));
}

int SaveThresholdFHF(std::string path, std::string FullNameLogFile, std::string FullNameInitFile,
                     std::string FullNameFitInInversMedianFilter,
                     std::string FullNameFitOutInversMedianFilter, std::string InversMedianWindow,
                     std::string Binning, bool ColorOrBw, bool SmallOrBig, bool HorizontalBandsFilter)
{
    const ParameterElement files = branch("logAndInitFile", {{"FullNameLogFile", FullNameLogFile},
                                                             {"FullNameResFile", "---"},
                                                             {"FullNameInitFile", FullNameInitFile}});
    const ParameterElement filter =
        branch("inversMedianFilter", {{"IsInversMedianFilter", "1"},
                                      {"FullNameFitInInversMedianFilter", FullNameFitInInversMedianFilter},
                                      {"FullNameFitOutInversMedianFilter", FullNameFitOutInversMedianFilter},
                                      {"InversMedianWindow", InversMedianWindow}});
    return saveParameters(path,
                          branch("FhfSettings", {files,
                                                 filter,
                                                 {"Binning", Binning},
                                                 {"ColorOrBw", flagOf(ColorOrBw)},
                                                 {"SmallOrBig", flagOf(SmallOrBig)},
                                                 {"HorizontalBandsFilter", flagOf(HorizontalBandsFilter)}}));
}

void lThresADD(std::string path, std::string& AddType, std::string& BaseFit, std::string& ResPath,
               std::string& LogPath, std::string& SuperFit, std::vector<std::string>& FitsList,
               std::vector<std::string>& ShiftList)
{
    if (!readParameters(path, {{"AddType", &AddType},
                               {"BaseFit", &BaseFit},
                               {"ResPath", &ResPath},
                               {"LogPath", &LogPath},
                               {"SuperFit", &SuperFit},
                               {"FitsList", &FitsList, "string"},
                               {"ShiftList", &ShiftList, "dxdy"}}))
    {
        throwErrCode(FileExists(path) ? resultCode::unreadableFile : resultCode::noParameterFile, path);
    }
}

void lThresConvFormats(std::string path, std::string& zonePath, std::string& startTime)
{
    readParameters(path, {{"zonePath", &zonePath}, {"startTime", &startTime}});
}

void LFrameSelector(std::string path, std::string& frames, std::string& list_frames,
                    std::string& observations, std::string& full_path)
{
    readParameters(path, {{"frames", &frames},
                          {"list_frames", &list_frames},
                          {"observations", &observations},
                          {"full_path", &full_path}});
}

void lFitEdit(std::string path, std::string& fixheader, std::string& inputdirectory, std::string& exludedtext,
              std::string& roundmillisecond, std::string& outputdirectory, std::string& add_time)
{
    readParameters(path, {{"fixheader", &fixheader},
                          {"inputdirectory", &inputdirectory},
                          {"exludedtext", &exludedtext},
                          {"roundmillisecond", &roundmillisecond},
                          {"outputdirectory", &outputdirectory},
                          {"add_time", &add_time}});
}

void lPACKxml(std::string path, std::string& Mode, std::string& ResPath, std::vector<std::string>& FitsList,
              std::vector<std::string>& OutputFitsList)
{
    readParameters(path, {{"Mode", &Mode},
                          {"ResPath", &ResPath},
                          {"FitsList", &FitsList, "input"},
                          {"OutputFitsList", &OutputFitsList, "output"}});
}

} // namespace tavelinUtils
