#include "config/range_checks.h"

#include "base/numbers.h"
#include "base/tokens.h"
#include "config/user_configuration.h"
#include "config/xml_document.h"
#include "files/essentials.h"
#include "files/paths.h"
#include "files/series_layout.h"
#include "results/code_table.h"
#include "results/result_files.h"
#include "text/number_text.h"

#include <string_view>

namespace tavelinUtils {
namespace {

// A program of the pipeline or an outside tool.
struct Program
{
    const char* key;
    std::string TExe::*path;
    const char* standardName;
};

constexpr Program programs[] = {
    {"FindOrb", &TExe::FindOrb, "find_orb%exe%"},
    {"Java", &TExe::Java, "java%exe%"},
};

constexpr const char* extensionMarks[] = {".exe", "%exe%"};
constexpr const char* extensionOfExecutables = "";
constexpr std::string_view programConfiguration = "vomar.xml";

// The folders of a series below the service folder.
constexpr std::string TSubfolders::*seriesFolders[] = {
    &TSubfolders::cosmFolder,        &TSubfolders::dataPOFolder,     &TSubfolders::dataVOFolder,
    &TSubfolders::dataFolder,        &TSubfolders::mfitsFolder,      &TSubfolders::logsFolder,
    &TSubfolders::lightcurvesFolder, &TSubfolders::lctasksFolder,    &TSubfolders::tmpFolder,
    &TSubfolders::reportsFolder,     &TSubfolders::tempUnpackFolder, &TSubfolders::packFolder,
    &TSubfolders::stackTmpFolder,    &TSubfolders::stackedFolder,
};

// A file of a series, and its folder.
struct SeriesFile
{
    std::string TOutput::*name;
    std::string TSubfolders::*folder;
};

constexpr SeriesFile seriesFiles[] = {
    {&TOutput::processLog, &TSubfolders::logsFolder},
    {&TOutput::objLightcurveQrv, &TSubfolders::dataVOFolder},
    {&TOutput::objAavsoVsp, &TSubfolders::dataVOFolder},
    {&TOutput::objVarstarsVsx, &TSubfolders::dataVOFolder},
    {&TOutput::objAsteroidsQrv, &TSubfolders::dataVOFolder},
    {&TOutput::objAsteroidsMpc, &TSubfolders::dataVOFolder},
    {&TOutput::objSatellitesQrv, &TSubfolders::dataVOFolder},
    {&TOutput::objSatellitesCat, &TSubfolders::dataVOFolder},
    {&TOutput::rptAsteroidsMpcAuto, &TSubfolders::reportsFolder},
    {&TOutput::representative, &TSubfolders::dataVOFolder},
    {&TOutput::vkInd, &TSubfolders::dataVOFolder},
};

std::string forThisPlatform(std::string path)
{
    for (const char* mark : extensionMarks) {
        path = replaceFileNameExtension(path, mark, extensionOfExecutables);
    }
    return path;
}

void nameMissingPrograms(TExe& exe)
{
    for (const Program& program : programs) {
        if ((exe.*program.path).empty()) {
            exe.*program.path = forThisPlatform(program.standardName);
        }
    }
}

std::string programConfigurationOf(std::string folder, const TSubfolders& subfolders)
{
    AddSlash(folder, Slash);
    return folder.append(subfolders.vomarFolder).append(Slash).append(programConfiguration);
}

std::string seriesConfigurationOf(const std::string& path, const std::string& seriesFolder)
{
    if (FileExists(path)) {
        return path;
    }
    return DirectoryExists(seriesFolder) ? GetSeriaConfig(seriesFolder) : "";
}

// An empty program folder leaves the program configuration out.
void loadPrograms(const std::string& programFolder, const std::string& logPath, TPorogs& porogs,
                  TFuncRes& result)
{
    porogs.exe.Java = "java";
    const std::string config = programConfigurationOf(programFolder, porogs.subfolders);
    slog(logPath, "loading vomar.conf: " + config);
    if (!programFolder.empty()) {
        result = lConfig(config, porogs.exe);
        nameMissingPrograms(porogs.exe);
    }
}

std::string foundConfiguration(const std::string& path, const std::string& seriesFolder,
                               const std::string& logPath, TFuncRes& result)
{
    std::string config = seriesConfigurationOf(path, seriesFolder);
    slog(logPath, "userConf.Config = " + config);
    if (config.empty()) {
        result = GetErrCode(resultCode::undeterminedConfiguration, "");
        throwErrCode(resultCode::undeterminedConfiguration, "");
    }
    return config;
}

bool isListed(int value, std::string_view list)
{
    bool found = false;
    forEachToken(list, ',', [&](std::string_view part) { found = found || toInt(part) == value; });
    return found;
}

} // namespace

TFuncRes lConfig(std::string path, TExe& exe)
{
    if (!FileExists(path)) {
        return GetErrCode(resultCode::noConfiguration, path);
    }
    TtavelinXmlDocument document(path);
    if (!document.LoadFile()) {
        return GetErrCode(resultCode::brokenConfiguration, path);
    }
    for (const Program& program : programs) {
        GetText(document.FirstChildElement(), program.key, exe.*program.path);
    }
    return GetErrCode(resultCode::success, "");
}

TPorogs LoadUserConf(std::string seriesFolder, std::string programFolder, std::string configPath,
                     std::string logPath, TFuncRes& result, bool loadTLE)
{
    slog(logPath, "start load userConf");
    result = GetErrCode(resultCode::success, "");
    TPorogs porogs;
    SetBlanks(porogs);
    loadPrograms(programFolder, logPath, porogs, result);
    if (result.Code != resultCode::success) {
        return porogs;
    }
    const std::string config = foundConfiguration(configPath, seriesFolder, logPath, result);
    result = LoadUserConfXML(config, porogs, loadTLE);
    if (result.Code == resultCode::success) {
        DelExtensionExe(porogs);
        CheckModulsForPaths(programFolder, porogs);
        slog(logPath, "end load userConf");
    }
    return porogs;
}

void SetBlanks(TPorogs& porogs)
{
    TSubfolders& folders = porogs.subfolders;
    for (const auto folder : seriesFolders) {
        folders.*folder = folders.tavelinFolder + Slash + folders.*folder;
    }
    for (const SeriesFile& file : seriesFiles) {
        porogs.output.*file.name = folders.*file.folder + Slash + porogs.output.*file.name;
    }
}

void DelExtensionExe(TPorogs& porogs)
{
    for (const Program& program : programs) {
        porogs.exe.*program.path = forThisPlatform(porogs.exe.*program.path);
    }
}

void CheckModulsForPaths(std::string folder, TPorogs& porogs)
{
    if (folder.empty()) {
        return;
    }
    folder = DeleteLastSlash(folder) + Slash;
    for (const Program& program : programs) {
        porogs.exe.*program.path = folder + porogs.exe.*program.path;
    }
}

void SetCode142(std::string name, std::string range, TFuncRes& result)
{
    result.Code = resultCode::settingOutOfRange;
    result.Description.append(name).append(" out of [").append(range).append("] ");
}

void CheckDoubleMinMax(std::string name, double min, double max, double value, TFuncRes& result)
{
    if (value >= min && value <= max) {
        return;
    }
    SetCode142(name + "=" + FloatToStr(value), FloatToStr(min) + "; " + FloatToStr(max), result);
}

void CheckAstroDegree(std::string name, int value, std::string allowed, TFuncRes& result)
{
    if (!isListed(value, allowed)) {
        SetCode142(name + "=" + IntToStr(value), allowed, result);
    }
}

} // namespace tavelinUtils
